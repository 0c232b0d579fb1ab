// Scratch files that vanish on every path out: return, exception, interrupt.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <filesystem>

#include "platform/binary_file.h"

namespace velmorankite::platform {

// Owns the name of a scratch file and deletes the file when it goes. The name is also entered in
// a list that a signal handler can walk, so that an interrupted run leaves nothing behind.
class ScratchFile {
 public:
  ScratchFile() = default;
  // A blank path owns nothing.
  explicit ScratchFile(std::filesystem::path path);
  ~ScratchFile();
  ScratchFile(ScratchFile&& other) noexcept;
  ScratchFile& operator=(ScratchFile&& other) noexcept;
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
  // Deletes the file now, if there is one.
  void remove() noexcept;
  // Gives the file up: it stays.
  void keep() noexcept;

 private:
  void forget() noexcept;

  static constexpr std::size_t no_slot = static_cast<std::size_t>(-1);
  std::filesystem::path path_;
  std::size_t slot_ = no_slot;
};

// Scratch names: a stem, four digits, ".tmp". A stem has this many of them, from 0000 on.
inline constexpr int scratch_name_count = 257;
inline constexpr std::size_t scratch_ending_length = 8;  // digits and ".tmp"
[[nodiscard]] std::filesystem::path scratch_name(const std::filesystem::path& stem, int number);

// Creates an empty file under the first free scratch name of `stem`, in one step with the test, so
// that two runs in one folder never take the same. Throws IoError with the path `told` if the
// folder cannot be written or if all names are taken.
[[nodiscard]] ScratchFile create_scratch(const std::filesystem::path& stem,
                                         const std::filesystem::path& told);

// A result that appears under its name only when it is complete: it is written beside it under
// a scratch name and moved into place by commit(). Without commit() nothing of it stays.
class StagedFile {
 public:
  // Throws IoError if the target is something other than a regular file, if its directory
  // cannot be written, or if the 257 scratch names beside it are taken.
  explicit StagedFile(const std::filesystem::path& target);

  [[nodiscard]] BinaryFile& file() noexcept { return file_; }
  [[nodiscard]] const std::filesystem::path& target() const noexcept { return target_; }
  void commit();

 private:
  std::filesystem::path target_;
  ScratchFile scratch_;
  BinaryFile file_;
};

// Makes SIGINT, SIGTERM and SIGHUP delete the scratch files before they end the process. For the
// program's main; the library itself never touches signals.
void remove_scratch_on_signals();

}  // namespace velmorankite::platform
