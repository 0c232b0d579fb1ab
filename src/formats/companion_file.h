// The second file of a grid that consists of two.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <string>

#include "platform/keep_apart.h"

namespace velmorankite {

// The header file of cells that have none themselves: the same name with its last four characters
// ".hdr", there or not.
[[nodiscard]] std::filesystem::path header_beside(const std::filesystem::path& cells);

// ER Mapper's cells stand beside the header, under its name without the extension or with one of
// two others; an empty path if there is no such file.
[[nodiscard]] std::filesystem::path ermapper_cells(const std::filesystem::path& header);

// What is read beside `path`, a grid of the given format; an empty path where that is nothing.
[[nodiscard]] std::filesystem::path companion_file(const std::filesystem::path& path,
                                                   std::int32_t format_code);

// The same for a grid whose format is not known yet. An empty path too where it cannot be told.
[[nodiscard]] std::filesystem::path companion_file(const std::filesystem::path& path);

// A grid and what is read beside it, as inputs that no result may replace.
//   meaning  what the grid is to the routine at hand, "grid 1".
[[nodiscard]] platform::named_files files_of_grid(const std::filesystem::path& path,
                                                  const std::string& meaning,
                                                  std::int32_t format_code);
// The same for a grid whose format is not known yet.
[[nodiscard]] platform::named_files files_of_grid(const std::filesystem::path& path,
                                                  const std::string& meaning);

}  // namespace velmorankite
