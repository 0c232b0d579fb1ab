// A standard grid put on another lattice, piece by piece: what rotation and drape have in common.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "grid/cell_window.h"
#include "grid/lattice.h"
#include "grid/standard_header.h"
#include "utilities/source_grid.h"

namespace velmorankite {

// The points of the source from which some neighbouring cells of an output row take their values.
//   column, row  of the output, from 0: that of the first cell, and the row of all.
//   x, y         out: map units, one entry a cell. In each column they must go one way, or stay,
//                from row to row: so a piece of the output needs no more than what lies between its
//                first and its last row.
using point_placer = std::function<void(std::int32_t column, std::int32_t row, std::span<double> x,
                                        std::span<double> y)>;

// Values of the source at points, from cells that hold it for two columns and rows round them.
using point_values = std::function<void(const CellWindow& cells, std::span<const double> x,
                                        std::span<const double> y, std::span<float> values)>;

struct resampling {
  Lattice in;              // of the source, as the points take it
  std::int32_t mode = 1;   // in which its cells are read (value_transform.h)
  standard_header header;  // of the output: lattice, kind of cells, sense
  point_placer place;
  point_values values;
};

// How much is taken at once.
struct piece_limits {
  std::int32_t side = 512;                          // columns and rows of the output
  std::int64_t cells = std::int64_t{1} << 20;       // of the source
  std::int64_t held_cells = std::int64_t{1} << 24;  // of the output, ahead of their being written
};

// Whether a grid can be written as its header says: counts, row length, origin, cell sizes.
[[nodiscard]] bool is_sound_result(const standard_header& header) noexcept;

// Writes the output, whose header must be sound: 4-byte floats, or 2-byte integers truncated from
// -32767, the dummy, to 32766. Each piece of it reads the part of the source that it lies over, so
// memory is that of a piece and of the rows of pieces, however large the grids; nothing depends on
// the limits. Throws IoError, also where the output would replace the source; there is then no
// output.
void resample(const source_grid& source, const resampling& work, std::string_view output,
              const piece_limits& limits = {});

}  // namespace velmorankite
