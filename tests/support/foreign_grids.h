// Small grids in the formats of other systems, written from their layouts.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/grid_description.h"
#include "grid/lattice.h"

namespace velmorankite::testing {

// A field on a lattice: row 1 (the lowest Y) first, dummies where there is no value.
struct sample_grid {
  Lattice lattice;
  std::vector<float> cells;

  [[nodiscard]] float at(std::int32_t column, std::int32_t row) const {
    return cells[static_cast<std::size_t>((row - 1) * lattice.x_count + column - 1)];
  }
};

// 6 columns by 4 rows of cells of 2 by 5 map units; whole numbers without any symmetry, with
// dummies in the lower left and the upper right corner.
sample_grid small_sample();

// A format that this system reads and whose files are made here.
struct foreign_format {
  std::int32_t format_code;
  const char* file_name;  // one by which it is recognised
  std::string (*bytes)(const sample_grid& grid);
};

// The binary formats with a header that no other program at hand writes. Geosolutions has square
// cells of 2 units, DTED a tile of one degree, Geopak a base of 100 and a multiplier of 4.
std::span<const foreign_format> foreign_formats();

}  // namespace velmorankite::testing
