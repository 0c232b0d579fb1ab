// SPDX-License-Identifier: MIT
#include "merge/sieve/leaf_distances.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Beyond every distance where a test does not hold. Added rather than chosen, so that the loops
// have no branch.
double unless(bool holds) {
  return holds ? 0.0 : infinity;
}

}  // namespace

LeafDistances::LeafDistances(const Lattice& window, const cell_block& block,
                             const band_limits& band)
    : band_(band),
      columns_(static_cast<std::size_t>(block.columns)),
      rows_(static_cast<std::size_t>(block.rows)) {
  for (std::int32_t i = 0; i < block.columns; ++i) {
    x_[static_cast<std::size_t>(i)] = window.x(block.first_column + i);
  }
  for (std::int32_t j = 0; j < block.rows; ++j) {
    y_[static_cast<std::size_t>(j)] = window.y(block.first_row + j);
  }
  right_strip_.fill(infinity);
  left_strip_.fill(infinity);
  right_fan_.fill(infinity);
  left_fan_.fill(infinity);
}

LeafDistances::products LeafDistances::products_of(const line_segment& s) const {
  products p;
  for (std::size_t i = 0; i < columns_; ++i) {
    const double px = x_[i] - s.x;
    p.ux_px[i] = s.ux * px;
    p.uy_px[i] = px * s.uy;
  }
  for (std::size_t j = 0; j < rows_; ++j) {
    const double py = y_[j] - s.y;
    p.ux_py[j] = s.ux * py;
    p.uy_py[j] = s.uy * py;
  }
  return p;
}

VELMORANKITE_VECTOR_CLONES void LeafDistances::add_strip(const line_segment& s) {
  const products p = products_of(s);
  const double last = last_along(s.length);
  // `sign` turns distances across so that they are above 0 on the side looked for.
  const auto add = [&](cell_values& nearest, double sign, double least_across) {
    for (std::size_t j = 0; j < rows_; ++j) {
      double* const near = nearest.data() + j * row_size;
      for (std::size_t i = 0; i < columns_; ++i) {
        const double t = p.ux_px[i] + p.uy_py[j];
        const double d = sign * (p.uy_px[i] - p.ux_py[j]);
        const double a = d + unless((t >= least_along) & (t <= last) & (d >= least_across));
        near[i] = a < near[i] ? a : near[i];
      }
    }
  };
  // Across a segment the extremes lie in two corners of the block.
  const auto [low_x, high_x] = std::minmax(p.uy_px[0], p.uy_px[columns_ - 1]);
  const auto [low_y, high_y] = std::minmax(p.ux_py[0], p.ux_py[rows_ - 1]);
  if (high_x - low_y >= 0.0) {
    add(right_strip_, 1.0, 0.0);
  }
  if (low_x - high_y < 0.0) {
    add(left_strip_, -1.0, std::numeric_limits<double>::denorm_min());
  }
}

VELMORANKITE_VECTOR_CLONES void LeafDistances::add_fan(const line_segment& s) {
  const products p = products_of(s);
  const double sign = s.at_start == bend::left ? 1.0 : -1.0;
  cell_values& nearest = s.at_start == bend::left ? right_fan_ : left_fan_;
  row_values px2;
  for (std::size_t i = 0; i < columns_; ++i) {
    px2[i] = (x_[i] - s.x) * (x_[i] - s.x);
  }
  for (std::size_t j = 0; j < rows_; ++j) {
    const double py2 = (y_[j] - s.y) * (y_[j] - s.y);
    double* const near = nearest.data() + j * row_size;
    for (std::size_t i = 0; i < columns_; ++i) {
      const double outward = sign * (p.uy_px[i] - p.ux_py[j]);
      const double a = px2[i] + py2 + unless(outward >= band_.least_outward);
      near[i] = a < near[i] ? a : near[i];
    }
  }
}

VELMORANKITE_VECTOR_CLONES void LeafDistances::round(values& distances) const {
  constexpr float undecided = std::numeric_limits<float>::quiet_NaN();
  const double blend = band_.blend_width;
  const float limit = band_.limit;
  for (std::size_t k = 0; k < distances.size(); ++k) {
    const auto right_d = static_cast<float>(right_strip_[k] / blend);
    const auto left_d = static_cast<float>(left_strip_[k] / blend);
    const auto right_e = static_cast<float>(std::sqrt(right_fan_[k]) / blend);
    const auto left_e = static_cast<float>(std::sqrt(left_fan_[k]) / blend);
    const float right = right_d < right_e ? right_d : right_e;
    const float left = left_d < left_e ? left_d : left_e;
    const float nearest = right < left ? right : left;
    const float signed_nearest = right < left ? right : -left;
    const float decided = right == left ? undecided : signed_nearest;
    const float v = nearest > 0.0F ? decided : 0.0F;
    distances[k] = nearest <= limit ? v : dummy;
  }
}

}  // namespace velmorankite
