// What the filters make. One file a product; the catalogue says which a filter makes on a road.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"
#include "transform/filter_parameters.h"

namespace velmorankite {

struct transform_run;

// All throw IoError; the parameters are those of the filter, in a copy that the product may change.

// The output grid is the input with its holes filled: enclosed ones by sweeps where Opt2 is 0,
// else all of them. The status is the number of filled cells.
Status make_filled_grid(transform_run& run, filter_parameters parameters);

// The output grid is the padded grid behind a convolution operator. The total gradient of the
// vertical integral, in either order, takes a second pass.
Status make_convolved_grid(transform_run& run, filter_parameters parameters);

// The output grid is the inverse transform of the spectrum behind one response.
Status make_filtered_grid(transform_run& run, filter_parameters parameters);

// The output grid is a map of three derivatives or components.
Status make_gradient_map(transform_run& run, filter_parameters parameters);

// The same, and the three components as grids beside it.
Status make_field_components(transform_run& run, filter_parameters parameters);

}  // namespace velmorankite
