// Where a cell of a grid file lies.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

inline constexpr std::int32_t sense_bottom_up = 1;  // rows, the lowest Y first
inline constexpr std::int32_t sense_top_down = -2;  // rows, the highest Y first

inline constexpr std::int32_t standard_header_bytes = 512;

// The byte position, from 1, of the cell at `row` (from 1 at the lowest Y) and `column` (from 1
// at the lowest X). Any sense other than 1 is taken as top-down. A cell outside the lattice is
// the caller's fault.
[[nodiscard]] std::int64_t GRDCELLPOS(std::int32_t storage_sense, std::int32_t header_bytes,
                                      std::int32_t element_size, std::int32_t elements_per_row,
                                      std::int32_t row_count, std::int32_t row,
                                      std::int32_t column) noexcept;

}  // namespace velmorankite
