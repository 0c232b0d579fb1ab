// The failure of a file operation that no routine tests: it ends the run.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velmorankite::platform {

// Carries the path and the reason, so that one line can tell the user which file and why.
class IoError : public std::runtime_error {
 public:
  IoError(const std::filesystem::path& path, const std::string& reason, int error_number = 0);

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
  // The system's number for what went wrong; 0 where the system saw nothing wrong.
  [[nodiscard]] int error_number() const noexcept { return error_number_; }

 private:
  std::filesystem::path path_;
  int error_number_;
};

// Throws the error unless what was expected of a file holds.
inline void expect(bool holds, const std::filesystem::path& path, const std::string& reason) {
  if (!holds) {
    throw IoError(path, reason);
  }
}

// Control characters, which a terminal would obey, as "?": names and files may hold any.
std::string printable(std::string_view text);

// The error of a text file whose line `line` (from 1) is not what was expected there.
IoError malformed_line(const std::filesystem::path& path, std::int64_t line,
                       const std::string& reason);

// "what: the system's words for error_number".
std::string system_reason(const std::string& what, int error_number);

}  // namespace velmorankite::platform
