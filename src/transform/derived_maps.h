// Maps that are made of three grids: total gradient and the angle maps of the tilt family.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

#include "grid/grid_rows.h"
#include "platform/binary_file.h"
#include "transform/fft_array.h"
#include "transform/gradient_stage.h"

namespace velmorankite {

enum class derived_map : std::uint8_t {
  total_gradient,  // sqrt(a^2 + b^2 + c^2): Nabighian (1972)
  tilt,            // angle of the gradient with the level, without its sign, 0.81 to 90 degrees
  theta,           // the same with its sign, -90 to 90: Miller and Singh (1994)
  tdx              // what theta leaves to the right angle of its sign
};

// The map of a filter; of 109 by its second option.
[[nodiscard]] derived_map derived_map_of(const filter_parameters& parameters);

// One row of a map, in single precision.
//   a, b   components along X and Y.
//   c      component down, in; the map, out. Angles are in degrees.
void combine_row(derived_map map, std::span<const float> a, std::span<const float> b,
                 std::span<float> c);

// Writes a map over the rows of the padded grid: the components along X and Y from the work grids,
// the third from the array. Throws IoError.
void write_derived_map(derived_map map, const gradient_work_grids& work,
                       std::span<const float> array, const fft_geometry& geometry, RowFile& padded);

}  // namespace velmorankite
