// Least-squares plane of a grid and its removal.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "condition/plane_fit.h"
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status detrend_no_valid_cell{-1};  // the mean is then 0
// The grid cannot be written, or would replace the input; the plane: or the residual.
inline constexpr Status detrend_trend_unwritable{-997};
inline constexpr Status detrend_residual_unwritable{-998};
inline constexpr Status detrend_input_unreadable{-999};

// Which valid cells are samples of the fit.
enum class fit_scope : std::int32_t { line_ends = 0, all_cells = 1 };

// Distance along Y, in cells, that the plane gives to a lattice row. On a sense other than 1 it
// counts down from the highest row and begins at 1, not at 0; the padded grid does the same, so
// that removing a plane and adding it back meet.
[[nodiscard]] constexpr std::int32_t plane_row(std::int32_t storage_sense, std::int32_t y_count,
                                               std::int32_t row) noexcept {
  return storage_sense == 1 ? row - 1 : y_count - row + 1;
}

// Fits a plane to a standard grid and, if asked, writes the residual and the plane as grids.
//   scope        line_ends: first and last valid cell of every row, then of every column; a cell
//                that ends both counts twice, a line of one valid cell gives no sample.
//                all_cells: every valid cell.
//   input_name   standard grid of 4-byte floats.  Not changed.
//   output_name  residual grid; the plane goes to a grid named after it (trend_path).  Blank: fit
//                only.  Both appear complete or not at all.
//   mean         out: mean of all valid cells whatever the scope (single-precision sum).
//   trend        out: the plane; sums and solution in double, narrowed once.
// Dummies stay dummies in the residual; the plane grid has none.
// Cost: one read of the grid to fit, one more to write; memory is one row and the line ends.
// Status: those above. Throws IoError for a grid that is not what its header says.
Status GRID_DETREND_PLANE(fit_scope scope, std::string_view input_name,
                          std::string_view output_name, float& mean, plane& trend);

// GRID_DETREND_PLANE on the line ends.
Status GRID_DETREND(std::string_view input_name, std::string_view output_name, float& mean,
                    plane& trend);

// An earlier form, kept for its users. Samples are the ends of each row with more than one valid
// cell, and the cells between them that end their own column, each counted once. Outputs of a
// grid of sense -2 are turned to sense 1. An output name must be given; the plane goes to a grid
// with "_detrend.grd" behind the stem.
Status GRID_DETREND_OLD(std::string_view input_name, std::string_view output_name, float& mean,
                        plane& trend);

}  // namespace velmorankite
