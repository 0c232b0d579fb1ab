// SPDX-License-Identifier: MIT
#include "platform/scratch_file.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/system.h"

namespace velmorankite::platform {
namespace {

// The list that a signal handler walks: plain arrays, since a handler may not allocate. A run
// holds about ten scratch files at once; one that finds no free slot or has a longer path is
// still deleted on every ordinary path.
constexpr std::size_t slot_count = 128;
constexpr std::size_t longest_path = 1024;

enum slot_state : int { slot_free = 0, slot_filling = 1, slot_used = 2 };

struct scratch_slot {
  std::atomic<int> state{slot_free};
  std::array<char, longest_path> path{};
};

std::array<scratch_slot, slot_count> scratch_slots;

std::optional<std::size_t> enter(const std::string& path) {
  if (path.size() >= longest_path) {
    return std::nullopt;
  }
  for (std::size_t slot = 0; slot < slot_count; ++slot) {
    int expected = slot_free;
    if (scratch_slots[slot].state.compare_exchange_strong(expected, slot_filling)) {
      std::memcpy(scratch_slots[slot].path.data(), path.c_str(), path.size() + 1);
      scratch_slots[slot].state.store(slot_used);
      return slot;
    }
  }
  return std::nullopt;
}

extern "C" void remove_scratch_and_end(int signal_number) {
  for (scratch_slot& slot : scratch_slots) {
    if (slot.state.load() == slot_used) {
      ::unlink(slot.path.data());
    }
  }
  std::signal(signal_number, SIG_DFL);
  std::raise(signal_number);
}

// A link is followed, so that the result replaces what it names and not the link.
std::filesystem::path resolved_target(const std::filesystem::path& target) {
  std::error_code failure;
  const std::filesystem::file_status status = std::filesystem::status(target, failure);
  if (!std::filesystem::exists(status)) {
    return link_target(target);
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw IoError(target, "is not a regular file, so it is not replaced");
  }
  std::filesystem::path resolved = std::filesystem::canonical(target, failure);
  return failure ? target : resolved;
}

}  // namespace

ScratchFile::ScratchFile(std::filesystem::path path) : path_(std::move(path)) {
  if (path_.empty()) {
    return;
  }
  std::error_code failure;
  const std::filesystem::path absolute = std::filesystem::absolute(path_, failure);
  slot_ = enter((failure ? path_ : absolute).string()).value_or(no_slot);
}

ScratchFile::~ScratchFile() {
  remove();
}

ScratchFile::ScratchFile(ScratchFile&& other) noexcept
    : path_(std::exchange(other.path_, {})), slot_(std::exchange(other.slot_, no_slot)) {}

ScratchFile& ScratchFile::operator=(ScratchFile&& other) noexcept {
  if (this != &other) {
    remove();
    path_ = std::exchange(other.path_, {});
    slot_ = std::exchange(other.slot_, no_slot);
  }
  return *this;
}

void ScratchFile::remove() noexcept {
  if (!path_.empty()) {
    current_system().remove(path_);
  }
  forget();
}

void ScratchFile::keep() noexcept {
  forget();
}

void ScratchFile::forget() noexcept {
  if (slot_ != no_slot) {
    scratch_slots[slot_].state.store(slot_free);
  }
  slot_ = no_slot;
  path_.clear();
}

std::filesystem::path scratch_name(const std::filesystem::path& stem, int number) {
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "%04d.tmp", number);
  std::filesystem::path name = stem;
  name += digits.data();
  return name;
}

ScratchFile create_scratch(const std::filesystem::path& stem, const std::filesystem::path& told) {
  for (int number = 0; number < scratch_name_count; ++number) {
    const std::filesystem::path name = scratch_name(stem, number);
    const file_handle handle = current_system().open(name, open_mode::create_new);
    if (handle >= 0) {
      current_system().close(handle);
      return ScratchFile(name);
    }
    if (handle != -EEXIST) {
      throw IoError(told, system_reason("cannot be written", -handle));
    }
  }
  std::string reason = "no free scratch name: all of ";
  reason += scratch_name(stem, 0).string() + " to ";
  reason += scratch_name(stem, scratch_name_count - 1).string() + " are taken";
  throw IoError(told, reason);
}

StagedFile::StagedFile(const std::filesystem::path& target) : target_(resolved_target(target)) {
  std::string stem(1, '~');
  stem += target_.filename().string();
  scratch_ = create_scratch(target_.parent_path() / stem, target_);
  file_ = BinaryFile(scratch_.path(), open_mode::read_write);
}

void StagedFile::commit() {
  file_.close();
  const int result = current_system().rename(scratch_.path(), target_);
  if (result < 0) {
    throw IoError(target_, system_reason("cannot be put in place", -result));
  }
  scratch_.keep();
}

void remove_scratch_on_signals() {
  for (const int signal_number : {SIGINT, SIGTERM, SIGHUP}) {
    // One that the caller has the program ignore, as nohup does, stays ignored.
    if (std::signal(signal_number, SIG_IGN) != SIG_IGN) {
      std::signal(signal_number, remove_scratch_and_end);
    }
  }
}

}  // namespace velmorankite::platform
