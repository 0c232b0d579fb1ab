// Where every cell of a window lies against the stitch line, as the weight of grid 1.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

#include "grid/lattice.h"
#include "merge/sieve/line_segments.h"

namespace velmorankite {

// Weights of the cells that are no blend. The dummy marks a cell outside the band.
inline constexpr float weight_grid_1 = -2.0F;  // right of the line
inline constexpr float weight_grid_2 = -1.0F;  // left of the line, beyond the blend

// Finds the distance of each cell from the line, signed by the side and taken from the nearest
// segment, or at the outer side of a bend from the nearest vertex, and turns it into a weight.
//   window       its cells.
//   blend_width  map units, above 0; the unit of the distance.
//   reach        map units: half width of the band; cells further off stay outside it.
//   weights      out: window columns by window rows, row 1 first: the dummy, weight_grid_1,
//                weight_grid_2 or, in the blend, the share of grid 1 from 0 to 1.
// The ends of an open line end the band square. Cost: one pass over the window, and for each
// segment the cells that it can reach.
void fill_blend_weights(std::span<const line_segment> segments, const Lattice& window,
                        float blend_width, float reach, std::span<float> weights);

}  // namespace velmorankite
