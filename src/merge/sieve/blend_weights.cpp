// SPDX-License-Identifier: MIT
#include "merge/sieve/blend_weights.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <vector>

#include "grid/dummy.h"
#include "merge/sieve/band_limits.h"
#include "merge/sieve/leaf_distances.h"
#include "merge/sieve/segment_sieve.h"

namespace velmorankite {
namespace {

// The signed distance of a cell, in blend widths, after one more segment: below 0 on the left of
// the line. (px, py) leads from the first vertex of the segment to the cell. The dummy is further
// off than any cell of the band, so that a cell without a distance needs no test of its own.
//
// This is what the distance of a cell means: the segments in the order of the line, each first by
// its strip and then by its fan, and only what is strictly nearer counts. The work is done by
// SegmentSieve and LeafDistances, which give the same to the bit; where a cell lies as far on the
// left as on the right, it is done here.
float nearer(float v, double px, double py, const line_segment& s, const band_limits& band) {
  const auto t = static_cast<float>(s.ux * px + s.uy * py);
  const auto d = static_cast<float>((px * s.uy - s.ux * py) / band.blend_width);
  if (std::fabs(d) <= band.limit && t >= 0.0F && static_cast<double>(t) <= s.length &&
      std::fabs(d) < std::fabs(v)) {
    v = d;
  }
  if (s.at_start == bend::none) {
    return v;
  }
  const auto e = static_cast<float>(std::sqrt(px * px + py * py) / band.blend_width);
  if (e <= band.limit && e < std::fabs(v)) {
    if (s.at_start == bend::right && d < bend_overlap) {
      v = -e;
    } else if (s.at_start == bend::left && d > -bend_overlap) {
      v = e;
    }
  }
  return v;
}

// The share of grid 1 rises from 0, one blend width left of the line, to 1 on it, level at both
// ends.
float weight_of(float v) {
  const float u = (v + 1.0F) * (v + 1.0F);
  const float blend = u * (2.0F - u);
  const float left = v < -1.0F ? weight_grid_2 : blend;
  const float in_band = v > 0.0F ? weight_grid_1 : left;
  return v == dummy ? dummy : in_band;
}

// Divides the window down to the blocks that the line can reach.
class WeightPass {
 public:
  WeightPass(std::span<const line_segment> segments, const Lattice& window, const band_limits& band,
             std::span<float> weights)
      : window_(window), band_(band), sieve_(segments, window, band), weights_(weights) {}

  void make() {
    std::fill(weights_.begin(), weights_.end(), dummy);
    divide({1, 1, window_.x_count, window_.y_count}, sieve_.all());
  }

 private:
  void divide(const cell_block& block, const SegmentSieve::selection& from);
  void fill(const cell_block& block, const SegmentSieve::selection& kept);
  void decide(const LeafDistances& leaf, const SegmentSieve::selection& kept,
              LeafDistances::values& distances) const;

  Lattice window_;
  band_limits band_;
  SegmentSieve sieve_;
  std::span<float> weights_;
};

// Half of a count, in whole leaves.
std::int32_t half(std::int32_t count) {
  constexpr std::int32_t side = LeafDistances::side;
  return (count / 2 + side - 1) / side * side;
}

void WeightPass::divide(const cell_block& block, const SegmentSieve::selection& from) {
  const SegmentSieve::selection kept = sieve_.sift(block, from);
  if (kept.empty()) {
    return;
  }
  if (block.columns <= LeafDistances::side && block.rows <= LeafDistances::side) {
    fill(block, kept);
    return;
  }
  cell_block first = block;
  cell_block second = block;
  if (block.columns >= block.rows) {
    first.columns = half(block.columns);
    second.first_column += first.columns;
    second.columns -= first.columns;
  } else {
    first.rows = half(block.rows);
    second.first_row += first.rows;
    second.rows -= first.rows;
  }
  divide(first, kept);
  divide(second, kept);
}

void WeightPass::fill(const cell_block& block, const SegmentSieve::selection& kept) {
  LeafDistances leaf(window_, block, band_);
  for (const line_segment* s : sieve_.strips(kept)) {
    leaf.add_strip(*s);
  }
  for (const line_segment* s : sieve_.fans(kept)) {
    leaf.add_fan(*s);
  }
  LeafDistances::values distances;
  leaf.round(distances);
  if (std::any_of(distances.begin(), distances.end(), [](float v) { return std::isnan(v); })) {
    decide(leaf, kept, distances);
  }
  const float* distance = distances.data();
  float* weight = weights_.data() + std::int64_t{block.first_row - 1} * window_.x_count +
                  (block.first_column - 1);
  for (std::int32_t row = 0; row < block.rows; ++row) {
    std::transform(distance, distance + block.columns, weight, weight_of);
    distance += LeafDistances::side;
    weight += window_.x_count;
  }
}

// Takes the segments in order for the cells that are as far on the left as on the right.
void WeightPass::decide(const LeafDistances& leaf, const SegmentSieve::selection& kept,
                        LeafDistances::values& distances) const {
  std::vector<const line_segment*> segments;
  std::ranges::set_union(sieve_.strips(kept), sieve_.fans(kept), std::back_inserter(segments));
  for (std::size_t k = 0; k < distances.size(); ++k) {
    if (std::isnan(distances[k])) {
      const double x = leaf.x(k % LeafDistances::side);
      const double y = leaf.y(k / LeafDistances::side);
      distances[k] = dummy;
      for (const line_segment* s : segments) {
        distances[k] = nearer(distances[k], x - s->x, y - s->y, *s, band_);
      }
    }
  }
}

}  // namespace

void fill_blend_weights(std::span<const line_segment> segments, const Lattice& window,
                        float blend_width, float reach, std::span<float> weights) {
  WeightPass(segments, window, limits_of(blend_width, reach), weights).make();
}

}  // namespace velmorankite
