// The stored cells of a grid file as single-precision values.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>

#include "formats/grid_description.h"

namespace velmorankite {

// Widens the bytes of a stored line to floats, in stored order. What its type calls no number is
// the dummy; what the file calls a dummy still stands as it is (settle_cells).
//   line   as many bytes as stored_lines_of says of its cells.
//   cells  out: one a cell.
using cell_decoder = void (*)(std::span<const std::byte> line, const grid_description& grid,
                              std::span<float> cells);

// The decoder of a binary grid by its format, kind and size of cells, and by the byte order that
// `element_code` gives; no decoder for a size that no cell has. A negative code of a standard grid
// says that it is compressed: the expanded one is described by its absolute value.
[[nodiscard]] cell_decoder decoder_of(const grid_ints& ints) noexcept;

// A double as a cell; what is beyond single precision, or no number, is the dummy.
[[nodiscard]] float rounded(double value) noexcept;

// Twice the spacing of single-precision numbers at the size of a grid's dummy: cells that are
// nearer to it count as dummies. 0 for a dummy beyond single precision.
[[nodiscard]] double dummy_tolerance(double dummy_value) noexcept;

// Makes dummies of the cells that the file calls so, and true values of the others: a cell above
// -1.0E30 becomes value / z_mult + z_base. Rows are scaled where base or factor differ from 0 and
// 1 by more than 1.0E-6, columns where they do by more than 0.01, ER Mapper's cells never.
void settle_cells(const grid_description& grid, std::span<float> cells);

// Makes dummies of the cells that are NaN or infinite.
void drop_non_finite(std::span<float> cells) noexcept;

}  // namespace velmorankite
