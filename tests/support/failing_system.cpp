// SPDX-License-Identifier: MIT
#include "support/failing_system.h"

#include "platform/io_error.h"

namespace velmorankite::testing {

bool FailingSystem::fails(system_call call) {
  if (call != which_ || left_-- > 0) {
    return false;
  }
  left_ = 0;
  failed_ = true;
  return true;
}

platform::file_handle FailingSystem::open(const std::filesystem::path& path,
                                          platform::open_mode mode) {
  return fails(system_call::open) ? -error_number_ : System::open(path, mode);
}

platform::file_handle FailingSystem::open_anonymous() {
  return fails(system_call::open) ? -error_number_ : System::open_anonymous();
}

std::int64_t FailingSystem::read_at(platform::file_handle handle, std::int64_t offset,
                                    std::span<std::byte> bytes) {
  return fails(system_call::read) ? -error_number_ : System::read_at(handle, offset, bytes);
}

std::int64_t FailingSystem::write_at(platform::file_handle handle, std::int64_t offset,
                                     std::span<const std::byte> bytes) {
  return fails(system_call::write) ? -error_number_ : System::write_at(handle, offset, bytes);
}

int FailingSystem::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  return fails(system_call::rename) ? -error_number_ : System::rename(from, to);
}

int fail_each_call(system_call which, int error_number, const std::function<void()>& work,
                   const std::function<void(int)>& check) {
  constexpr int most_runs = 10000;
  for (int nth = 1; nth <= most_runs; ++nth) {
    FailingSystem system(which, nth, error_number);
    {
      const platform::SystemOverride override(system);
      try {
        work();
      } catch (const platform::IoError&) {
        // The stop that the failure asks for.
      }
    }
    if (!system.has_failed()) {
      return nth - 1;
    }
    check(nth);
  }
  return most_runs;
}

}  // namespace velmorankite::testing
