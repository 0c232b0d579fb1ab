// SPDX-License-Identifier: MIT
#include "merge/sieve/segment_sieve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmorankite {
namespace {

// Distances in single precision are off by 1.2E-7 of themselves at most.
constexpr double margin_share = 1e-6;
// Positions, their differences and the products of these with a direction are off by a few 2^-53
// of the largest coordinate.
constexpr double grain_share = 0x1p-44;

double largest_coordinate(std::span<const line_segment> segments, const Lattice& window) {
  double largest = std::max({std::fabs(window.x_min), std::fabs(window.x(window.x_count)),
                             std::fabs(window.y_min), std::fabs(window.y(window.y_count))});
  for (const line_segment& s : segments) {
    largest = std::max({largest, std::fabs(s.x), std::fabs(s.y)});
  }
  return largest;
}

bool has_direction(const line_segment& s) {
  return std::isfinite(s.ux) && std::isfinite(s.uy);
}

double square(double v) {
  return v * v;
}

// Makes room for `count` places, and for more in one go.
void make_room(std::vector<const line_segment*>& store, std::size_t count) {
  if (store.size() < count) {
    store.resize(2 * count);
  }
}

}  // namespace

SegmentSieve::SegmentSieve(std::span<const line_segment> segments, const Lattice& window,
                           const band_limits& band)
    : window_(window),
      band_(band),
      grain_(grain_share * largest_coordinate(segments, window)),
      margin_(margin_share * band.reach + grain_) {
  for (const line_segment& s : segments) {
    if (has_direction(s)) {
      strips_.push_back(&s);
    }
    if (s.at_start != bend::none) {
      fans_.push_back(&s);
    }
  }
  all_ = {0, strips_.size(), 0, fans_.size()};
}

SegmentSieve::rectangle SegmentSieve::rectangle_of(const cell_block& block) const {
  const double half_width = 0.5 * (block.columns - 1) * window_.x_cell;
  const double half_height = 0.5 * (block.rows - 1) * window_.y_cell;
  return {window_.x(block.first_column) + half_width, window_.y(block.first_row) + half_height,
          half_width, half_height};
}

SegmentSieve::selection SegmentSieve::sift(const cell_block& block, const selection& from) {
  const rectangle r = rectangle_of(block);
  return {from.last_strip, sift_strips(r, from), from.last_fan, sift_fans(r, from)};
}

// How far a rectangle reaches across a segment, to either side of its centre.
double SegmentSieve::across_spread(const line_segment& s, const rectangle& r) {
  return std::fabs(s.uy) * r.half_width + std::fabs(s.ux) * r.half_height;
}

// How far the centre lies inside the half plane of a fan.
double SegmentSieve::outward(const line_segment& s, const rectangle& r) const {
  const double across = (r.x - s.x) * s.uy - s.ux * (r.y - s.y);
  return (s.at_start == bend::left ? across : -across) - band_.least_outward;
}

// The loops keep a segment by moving on behind it: a branch would be guessed wrong every other
// time.
std::size_t SegmentSieve::sift_strips(const rectangle& r, const selection& from) {
  make_room(strips_, 2 * from.last_strip - from.first_strip);
  const double widest = band_.reach + margin_;
  std::size_t end = from.last_strip;
  for (std::size_t i = from.first_strip; i < from.last_strip; ++i) {
    const line_segment& s = *strips_[i];
    const double px = r.x - s.x;
    const double py = r.y - s.y;
    const double along = s.ux * px + s.uy * py;
    const double spread = std::fabs(s.ux) * r.half_width + std::fabs(s.uy) * r.half_height;
    const double across = std::fabs(px * s.uy - s.ux * py);
    const double slack = margin_share * s.length + grain_;
    const bool reaches = (along + spread >= -slack) & (along - spread <= s.length + slack) &
                         (across - across_spread(s, r) <= widest);
    strips_[end] = &s;
    end += reaches ? 1 : 0;
  }
  return end;
}

std::size_t SegmentSieve::sift_fans(const rectangle& r, const selection& from) {
  make_room(fans_, 2 * from.last_fan - from.first_fan);
  const double farthest = square(band_.reach + margin_);
  std::size_t end = from.last_fan;
  for (std::size_t i = from.first_fan; i < from.last_fan; ++i) {
    const line_segment& s = *fans_[i];
    const double gap_x = std::max(0.0, std::fabs(r.x - s.x) - r.half_width);
    const double gap_y = std::max(0.0, std::fabs(r.y - s.y) - r.half_height);
    // Written so that a fan without a direction is kept wherever its disc reaches.
    const bool outside = outward(s, r) + across_spread(s, r) < -margin_;
    fans_[end] = &s;
    end += ((square(gap_x) + square(gap_y) <= farthest) & !outside) ? 1 : 0;
  }
  // The margin of drop_beaten is good for rectangles up to the size of the band; larger ones are
  // hardly ever held by a fan.
  if (r.half_width + r.half_height < band_.reach) {
    const line_segment* const nearest = nearest_holding(r, from.last_fan, end);
    if (nearest != nullptr) {
      end = drop_beaten(r, *nearest, from.last_fan, end);
    }
  }
  return end;
}

// Of the fans that hold every cell, the one whose vertex is nearest to the centre.
const line_segment* SegmentSieve::nearest_holding(const rectangle& r, std::size_t first,
                                                  std::size_t last) const {
  const line_segment* nearest = nullptr;
  double nearest_square = std::numeric_limits<double>::infinity();
  for (std::size_t i = first; i < last; ++i) {
    const line_segment& s = *fans_[i];
    const double distance = square(r.x - s.x) + square(r.y - s.y);
    if (distance < nearest_square && outward(s, r) - across_spread(s, r) > margin_ &&
        has_direction(s)) {
      nearest = &s;
      nearest_square = distance;
    }
  }
  return nearest;
}

// Takes out the fans whose vertex lies further from every cell than that of `nearest`. The
// difference of the two squared distances is linear, so it is least in a corner.
std::size_t SegmentSieve::drop_beaten(const rectangle& r, const line_segment& nearest,
                                      std::size_t first, std::size_t last) {
  const double margin = band_.reach * (margin_share * band_.reach + 32.0 * grain_);
  const double nearest_square = square(r.x - nearest.x) + square(r.y - nearest.y);
  std::size_t end = first;
  for (std::size_t i = first; i < last; ++i) {
    const line_segment& s = *fans_[i];
    const double lead = square(r.x - s.x) + square(r.y - s.y) - nearest_square;
    const double spread = 2.0 * (std::fabs(s.x - nearest.x) * r.half_width +
                                 std::fabs(s.y - nearest.y) * r.half_height);
    fans_[end] = &s;
    end += lead - spread > margin ? 0 : 1;
  }
  return end;
}

}  // namespace velmorankite
