// SPDX-License-Identifier: MIT
#include "grid/file_services.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/file_tests.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/process.h"
#include "platform/system.h"

namespace velmorankite {
namespace {

using platform::without_padding;

constexpr std::size_t longest_command = 255;
constexpr unsigned temporary_name_count = 0x10000;  // four hexadecimal digits

}  // namespace

void GRDFILEDEL(std::string_view path) {
  platform::delete_file(without_padding(path));
}

bool GRDFILECOPY(std::string_view source, std::string_view target) {
  platform::keep_apart({{without_padding(source), "the file that is copied"}},
                       {{without_padding(target), "the copy"}});
  return platform::copy_whole_file(without_padding(source), without_padding(target));
}

Status GRDOSTEMP(std::string_view folder, std::string_view prefix, std::string& result) {
  result.clear();
  const std::string stem(without_padding(prefix));
  if (std::filesystem::path(stem).has_parent_path()) {
    return temporary_name_failed;
  }
  for (unsigned number = 0; number < temporary_name_count; ++number) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%04X.tmp", number);
    const std::filesystem::path path =
        std::filesystem::path(without_padding(folder)) / (stem + digits.data());
    const platform::file_handle handle =
        platform::current_system().open(path, platform::open_mode::create_new);
    if (handle >= 0) {
      platform::current_system().close(handle);
      result = path.string();
      return success;
    }
    if (handle != -EEXIST) {
      break;
    }
  }
  return temporary_name_failed;
}

Status FSYSTEM(std::string_view command) {
  const std::string text(command.substr(0, std::min(command.find('\0'), longest_command)));
  return platform::run_command(text) ? success : command_failed;
}

std::int32_t FINDFILEINPATH(std::string_view name, std::string& result) {
  result.clear();
  const std::filesystem::path file = without_padding(name);
  if (file.empty()) {
    return 0;
  }
  for (const std::filesystem::path& folder : platform::folders_in("PATH")) {
    std::error_code failure;
    const std::filesystem::path candidate = std::filesystem::absolute(folder / file, failure);
    if (!failure && std::filesystem::is_regular_file(candidate, failure)) {
      result = candidate.string();
      break;
    }
  }
  return static_cast<std::int32_t>(result.size());
}

void ZRV_DLL_VERSION(std::int32_t& a, std::int32_t& b, std::int32_t& c) noexcept {
  a = 32;
  b = 5;
  c = 5;
}

}  // namespace velmorankite
