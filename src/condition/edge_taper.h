// The raised cosine that brings the edges of a padded grid to one level.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

namespace velmorankite {

// Factors from 0 at the outermost cell to nearly 1 at the last one, along one axis, in single
// precision. The width is the larger of `pad` - `taper_width` + 4 and `taper_width`: with a margin
// of 3 x taper_width + 1 cells it is 2 x taper_width + 5 and the data are not touched.
//   pad          cells of margin on each side.
//   taper_width  basic width in cells, above 0.
[[nodiscard]] std::vector<float> taper_factors(std::int32_t pad, std::int32_t taper_width);

// Tapers the cells of padded row `row` (from 1) of `row_count` towards `level`; the outermost
// cells then hold exactly `level`, and corner cells take the factors of both axes.
void taper_row(std::span<float> cells, std::int32_t row, std::int32_t row_count,
               std::span<const float> column_factors, std::span<const float> row_factors,
               float level);

}  // namespace velmorankite
