// SPDX-License-Identifier: MIT
#include "transform/derived_maps.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "grid/row_blocks.h"
#include "transform/filter_traits.h"

namespace velmorankite {
namespace {

constexpr float degrees_per_radian = 57.29577F;
constexpr float steepest_cosine = 0.9999F;  // keeps the arc cosine off its flat end

using combination = float (*)(float a, float b, float c);

float total_gradient(float a, float b, float c) {
  return std::sqrt(a * a + b * b + c * c);
}

float tilt_angle(float a, float b, float c) {
  const float total = std::sqrt(c * c + a * a + b * b);
  const float level = std::sqrt(a * a + b * b);
  if (!(total > 0.0F)) return 0.0F;
  return std::acos(std::min(level / total, steepest_cosine)) * degrees_per_radian;
}

float theta_angle(float a, float b, float c) {
  const float level = std::sqrt(a * a + b * b);
  if (level > 0.0F) return std::atan(c / level) * degrees_per_radian;
  return c >= 0.0F ? 90.0F : -90.0F;
}

float tdx_angle(float a, float b, float c) {
  const float theta = theta_angle(a, b, c);
  return theta >= 0.0F ? 90.0F - theta : -90.0F - theta;
}

template <combination Combine>
void combine_cells(std::span<const float> a, std::span<const float> b, std::span<float> c) {
  for (std::size_t i = 0; i < c.size(); ++i) {
    c[i] = Combine(a[i], b[i], c[i]);
  }
}

using row_combination = void (*)(std::span<const float>, std::span<const float>, std::span<float>);

// In the order of derived_map.
constexpr row_combination combinations[] = {combine_cells<total_gradient>,
                                            combine_cells<tilt_angle>, combine_cells<theta_angle>,
                                            combine_cells<tdx_angle>};

}  // namespace

derived_map derived_map_of(const filter_parameters& parameters) {
  if (traits_of(parameters.FilterNo).gradient != gradient_use::angle) {
    return derived_map::total_gradient;
  }
  if (parameters.Opt2 == 1) return derived_map::theta;
  return parameters.Opt2 == 2 ? derived_map::tdx : derived_map::tilt;
}

void combine_row(derived_map map, std::span<const float> a, std::span<const float> b,
                 std::span<float> c) {
  combinations[static_cast<std::size_t>(map)](a, b, c);
}

void write_derived_map(derived_map map, const gradient_work_grids& work,
                       std::span<const float> array, const fft_geometry& geometry,
                       RowFile& padded) {
  const auto width = static_cast<std::size_t>(geometry.nxp);
  std::vector<float> a(width);
  std::vector<float> b(width);
  RowBlockWriter rows(padded);
  for (std::int32_t row = 1; row <= geometry.nyp; ++row) {
    work.grids[0].read(row, a);
    work.grids[1].read(row, b);
    const std::span<float> c = rows.next_row();
    read_window_row(array, geometry, row, c);
    combine_row(map, a, b, c);
  }
  rows.finish();
}

}  // namespace velmorankite
