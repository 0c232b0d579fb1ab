// SPDX-License-Identifier: MIT
#include "platform/io_error.h"

#include <algorithm>
#include <system_error>

namespace velmorankite::platform {

IoError::IoError(const std::filesystem::path& path, const std::string& reason, int error_number)
    : std::runtime_error(printable(path.string() + ": " + reason)),
      path_(path),
      error_number_(error_number) {}

std::string printable(std::string_view text) {
  std::string shown(text);
  std::ranges::replace_if(
      shown, [](unsigned char c) { return c < 0x20 || c == 0x7F; }, '?');
  return shown;
}

IoError malformed_line(const std::filesystem::path& path, std::int64_t line,
                       const std::string& reason) {
  return {path, "line " + std::to_string(line) + ": " + reason};
}

std::string system_reason(const std::string& what, int error_number) {
  return what + ": " + std::generic_category().message(error_number);
}

}  // namespace velmorankite::platform
