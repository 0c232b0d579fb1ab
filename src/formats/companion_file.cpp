// SPDX-License-Identifier: MIT
#include "formats/companion_file.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "formats/format_traits.h"
#include "formats/recognition.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"

namespace velmorankite {

std::filesystem::path header_beside(const std::filesystem::path& cells) {
  constexpr std::size_t ending = 4;
  std::string name = cells.string();
  name.resize(name.size() - std::min(name.size(), ending));
  return name + ".hdr";
}

std::filesystem::path ermapper_cells(const std::filesystem::path& header) {
  const std::string name = header.string();
  const std::size_t dot = name.size() - own_name(name).size() + own_name(name).rfind('.');
  const std::string stem =
      own_name(name).find('.') == std::string::npos ? name : name.substr(0, dot);
  for (const char* const ending : {"", ".erm", ".dat"}) {
    std::filesystem::path candidate = stem + ending;
    if (platform::bytes_of_file(candidate) >= 0) {
      return candidate;
    }
  }
  return {};
}

std::filesystem::path companion_file(const std::filesystem::path& path, std::int32_t format_code) {
  grid_ints ints;
  ints.format_code = format_code;
  const second_file second = traits_of(ints).second;
  return second == second_file::cells    ? ermapper_cells(path)
         : second == second_file::header ? header_beside(path)
                                         : std::filesystem::path();
}

std::filesystem::path companion_file(const std::filesystem::path& path) {
  const grid_file file{path, extension_of(path), platform::bytes_of_file(path)};
  grid_description grid;
  try {
    if (file.size <= 0 || recognise_format(file, grid).failed()) {
      return {};
    }
  } catch (const platform::IoError&) {
    return {};
  }
  return companion_file(path, grid.ints.format_code);
}

platform::named_files files_of_grid(const std::filesystem::path& path, const std::string& meaning,
                                    std::int32_t format_code) {
  return {{path, meaning}, {companion_file(path, format_code), "a file of " + meaning}};
}

platform::named_files files_of_grid(const std::filesystem::path& path, const std::string& meaning) {
  return {{path, meaning}, {companion_file(path), "a file of " + meaning}};
}

}  // namespace velmorankite
