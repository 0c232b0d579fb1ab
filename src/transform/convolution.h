// Operators passed over a grid file, row by row.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/grid_rows.h"
#include "transform/filter_parameters.h"

namespace velmorankite {

// A padded grid that is read and one that is written, which may be the same: every row is read
// before it is overwritten. Both have the same counts and need no header of their own.
struct convolution_grids {
  const RowFile& input;
  RowFile& output;
};

// Passes a symmetric operator over a grid: w x w weights of the quarter plane, X fastest, the
// centre first. The filters of the gradient family take the horizontal derivatives from the eight
// neighbours of a cell in the input: 106 gives the length of the gradient, 109 its angle map and
// 110 the length of its horizontal part; the others give what the operator gives. The w - 1 rows
// and columns along the edges, and every cell whose operator touches a cell without data, become
// dummies. Sums in single precision. Throws IoError.
void WTCONVS(std::span<const float> weights, std::int32_t w, const filter_parameters& parameters,
             const convolution_grids& grids);

// Passes an asymmetric operator over a grid: n x n weights, n odd, X fastest. The weight at a lag
// takes the cell that lies the lag back in X and Y, so that a filter has the sign that it has on
// the FFT road. The (n - 1) / 2 rows and columns along the edges become 0; cells whose operator
// touches a cell without data become dummies. Sums in double precision. Throws IoError.
void WTCONVA(std::span<const float> weights, std::int32_t n, const convolution_grids& grids);

}  // namespace velmorankite
