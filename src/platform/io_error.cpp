// SPDX-License-Identifier: MIT
#include "platform/io_error.h"

#include <system_error>

namespace velmorankite::platform {

IoError::IoError(const std::filesystem::path& path, const std::string& reason, int error_number)
    : std::runtime_error(path.string() + ": " + reason), path_(path), error_number_(error_number) {}

IoError malformed_line(const std::filesystem::path& path, std::int64_t line,
                       const std::string& reason) {
  return {path, "line " + std::to_string(line) + ": " + reason};
}

std::string system_reason(const std::string& what, int error_number) {
  return what + ": " + std::generic_category().message(error_number);
}

}  // namespace velmorankite::platform
