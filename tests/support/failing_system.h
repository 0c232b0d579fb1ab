// A double of the system that fails at a chosen call.
// SPDX-License-Identifier: MIT
#pragma once
#include <cerrno>
#include <functional>
#include <limits>
#include <string>

#include "platform/system.h"

namespace velmorankite::testing {

enum class system_call { open, read, write, rename };

// Passes everything on to the real system, but for the n-th call of one kind (from 1) and all
// later ones of that kind, which give `error_number`.
class FailingSystem final : public platform::System {
 public:
  FailingSystem(system_call which, int nth, int error_number)
      : which_(which), left_(nth - 1), error_number_(error_number) {}

  [[nodiscard]] bool has_failed() const noexcept { return failed_; }

  platform::file_handle open(const std::filesystem::path& path, platform::open_mode mode) override;
  platform::file_handle open_anonymous() override;
  std::int64_t read_at(platform::file_handle handle, std::int64_t offset,
                       std::span<std::byte> bytes) override;
  std::int64_t write_at(platform::file_handle handle, std::int64_t offset,
                        std::span<const std::byte> bytes) override;
  int rename(const std::filesystem::path& from, const std::filesystem::path& to) override;

 private:
  bool fails(system_call call);

  system_call which_;
  int left_;
  int error_number_;
  bool failed_ = false;
};

// Runs `work` with the 1st, 2nd, ... call of one kind failing, until a run gets through without
// meeting the failure. After each failed run `check` is called with the number of the call.
// `work` tells of a failure by an exception or by its own means; both are caught here.
// Gives the number of runs that failed.
int fail_each_call(system_call which, int error_number, const std::function<void()>& work,
                   const std::function<void(int)>& check);

}  // namespace velmorankite::testing
