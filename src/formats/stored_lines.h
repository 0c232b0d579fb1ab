// How the cells of a binary grid lie in its file, line by line.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "formats/grid_description.h"

namespace velmorankite {

// A stored line is the unit of the file: a row of the lattice, or a column, as the sense says.
struct stored_lines {
  std::int32_t count = 0;   // lines
  std::int32_t length = 0;  // cells a line
  std::int64_t bytes = 0;   // of its cells, Geopak's extra words among them
  std::int64_t stride = 0;  // bytes from the start of one line to the start of the next
};

// Whether the stored lines of a grid of this sense are columns.
[[nodiscard]] constexpr bool stores_columns(std::int32_t storage_sense) noexcept {
  return storage_sense == -1 || storage_sense == 2 || storage_sense == -3 || storage_sense == 4;
}

// The lines of a binary grid, what stands ahead of and behind each and Geopak's extra words
// counted in. A count below 1 counts as none.
[[nodiscard]] stored_lines stored_lines_of(const grid_ints& ints) noexcept;

}  // namespace velmorankite
