// Which segments of the stitch line matter in a block of window cells.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "grid/lattice.h"
#include "merge/sieve/band_limits.h"
#include "merge/sieve/line_segments.h"

namespace velmorankite {

// Cells of a window; columns and rows count from 1.
struct cell_block {
  std::int32_t first_column;
  std::int32_t first_row;
  std::int32_t columns;
  std::int32_t rows;
};

// A segment gives a cell a distance in two ways: from its strip, which holds the cells abreast of
// it, and from its fan, which holds those round its first vertex on the outer side of the bend
// there.
//
// The sieve is used from large blocks to small ones. It sorts out what can give no cell of a block
// its smallest distance: strips and fans that do not reach the block, and fans whose vertex lies
// further from every cell than the vertex of another fan that holds them all. Every limit is
// taken wider by many times the rounding of the distances, so that neither the nearest strip or
// fan of a cell nor another as near is ever sorted out: the sieve saves work and changes nothing.
class SegmentSieve {
 public:
  SegmentSieve(std::span<const line_segment> segments, const Lattice& window,
               const band_limits& band);

  // What is left for a block: places in the sieve's store, the last ones one behind.
  struct selection {
    std::size_t first_strip;
    std::size_t last_strip;
    std::size_t first_fan;
    std::size_t last_fan;

    [[nodiscard]] bool empty() const noexcept {
      return first_strip == last_strip && first_fan == last_fan;
    }
  };

  // All segments.
  [[nodiscard]] const selection& all() const noexcept { return all_; }
  // Those of `from` that matter in `block`. They stand in the store behind `from`, in the place of
  // what was sifted from it before.
  [[nodiscard]] selection sift(const cell_block& block, const selection& from);

  // In the order of the line.
  [[nodiscard]] std::span<const line_segment* const> strips(const selection& of) const {
    return std::span(strips_).subspan(of.first_strip, of.last_strip - of.first_strip);
  }
  [[nodiscard]] std::span<const line_segment* const> fans(const selection& of) const {
    return std::span(fans_).subspan(of.first_fan, of.last_fan - of.first_fan);
  }

 private:
  // The rectangle of a block's cell centres: its own centre and half its sizes.
  struct rectangle {
    double x;
    double y;
    double half_width;
    double half_height;
  };
  [[nodiscard]] rectangle rectangle_of(const cell_block& block) const;
  [[nodiscard]] std::size_t sift_strips(const rectangle& r, const selection& from);
  [[nodiscard]] std::size_t sift_fans(const rectangle& r, const selection& from);
  [[nodiscard]] static double across_spread(const line_segment& s, const rectangle& r);
  [[nodiscard]] double outward(const line_segment& s, const rectangle& r) const;
  [[nodiscard]] const line_segment* nearest_holding(const rectangle& r, std::size_t first,
                                                    std::size_t last) const;
  [[nodiscard]] std::size_t drop_beaten(const rectangle& r, const line_segment& nearest,
                                        std::size_t first, std::size_t last);

  Lattice window_;
  band_limits band_;
  double grain_;   // map units, many times the rounding of a position
  double margin_;  // map units, many times the rounding of a distance
  std::vector<const line_segment*> strips_;
  std::vector<const line_segment*> fans_;
  selection all_;
};

}  // namespace velmorankite
