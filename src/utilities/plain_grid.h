// What the utilities that move whole grids ask of a standard grid and of the names of its files.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "grid/standard_header.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

// What GEOVALID, GEOTRIM and GEOFLIP refuse, beside header_unsound; a compressed grid is among the
// unsound headers.
inline constexpr Status plain_cells_unknown{-2};  // 1-byte cells, floats of other than 4 bytes
inline constexpr Status plain_sense_unknown{-3};  // neither 1 nor -2

// Reads the header and makes sure that the cells can be moved as it says. Status: success,
// header_unsound, plain_cells_unknown, plain_sense_unknown. Throws IoError if the file does not
// hold all its cells, or if a row of cells or of a turned grid is 2 GiB or longer.
Status read_plain_header(const platform::BinaryFile& file, standard_header& header);

// The path of a result: without blanks and NULs at its end, "outfile.grd" if fewer than 2
// characters are left. Throws IoError if it leads to the place of the input.
[[nodiscard]] std::filesystem::path result_path(const std::filesystem::path& input,
                                                std::string_view output_path);

// Rows that are moved at once: a block of them stays in the second-level cache.
[[nodiscard]] std::int32_t rows_of_block(std::int64_t row_bytes, std::int32_t row_count) noexcept;

}  // namespace velmorankite
