// SPDX-License-Identifier: MIT
#include "merge/segment_sieve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace velmorankite {
namespace {

constexpr Lattice window{0.0, 0.0, 1.0, 1.0, 1024, 1024};

// A line to the east at y = 512 with a vertex in every column, up and down by `jag`.
std::vector<line_segment> dense_line(double jag) {
  stitch_line line;
  for (int i = 0; i < 1024; ++i) {
    line.x.push_back(i);
    line.y.push_back(512.0 + (i % 2 == 0 ? jag : -jag));
  }
  std::vector<line_segment> segments;
  std::int32_t steps = 0;
  EXPECT_EQ(measure_segments(line, 1.0, segments, steps), "");
  return segments;
}

// What is left for a block of 8 x 8 cells, sifted from the whole window downwards.
struct Left {
  Left(const std::vector<line_segment>& segments, float reach, std::int32_t column,
       std::int32_t row) {
    SegmentSieve sieve(segments, window, limits_of(0.5F * reach, reach));
    SegmentSieve::selection kept = sieve.all();
    for (std::int32_t size = window.x_count; size >= 8; size /= 2) {
      const auto start = [&](std::int32_t first) { return (first - 1) / size * size + 1; };
      kept = sieve.sift({start(column), start(row), size, size}, kept);
    }
    strips.assign(sieve.strips(kept).begin(), sieve.strips(kept).end());
    fans.assign(sieve.fans(kept).begin(), sieve.fans(kept).end());
  }
  std::vector<const line_segment*> strips;
  std::vector<const line_segment*> fans;
};

TEST(SegmentSieve, leaves_a_small_block_only_what_is_abreast_of_it_however_wide_the_band) {
  for (const double jag : {0.0, 0.2}) {
    const std::vector<line_segment> segments = dense_line(jag);
    for (const float reach : {120.0F, 480.0F}) {
      // Rows 605 to 612 are some 97 cells north of the line; the block holds columns 505 to 512.
      const Left left(segments, reach, 505, 605);
      EXPECT_GE(left.strips.size(), 8U) << jag << " " << reach;
      EXPECT_LE(left.strips.size(), jag == 0.0 ? 12U : 90U) << jag << " " << reach;
      EXPECT_LE(left.fans.size(), 16U) << jag << " " << reach;
      for (const line_segment* s : left.fans) {
        EXPECT_NEAR(s->x, 508.5, 12.0);
      }
    }
  }
}

TEST(SegmentSieve, empties_blocks_beyond_the_reach_and_none_within) {
  const std::vector<line_segment> segments = dense_line(0.0);
  // Rows 537 to 544 begin 24 north of the line, rows 473 to 480 end 33 south of it.
  EXPECT_TRUE(Left(segments, 23.9F, 513, 541).strips.empty());
  EXPECT_FALSE(Left(segments, 24.0F, 513, 541).strips.empty());
  EXPECT_TRUE(Left(segments, 32.9F, 513, 473).strips.empty());
  EXPECT_FALSE(Left(segments, 33.0F, 513, 473).strips.empty());
}

TEST(SegmentSieve, keeps_the_segments_in_the_order_of_the_line) {
  const std::vector<line_segment> segments = dense_line(0.3);
  const Left left(segments, 60.0F, 505, 513);
  EXPECT_GT(left.fans.size(), 1U);
  EXPECT_TRUE(std::is_sorted(left.strips.begin(), left.strips.end()));
  EXPECT_TRUE(std::is_sorted(left.fans.begin(), left.fans.end()));
}

}  // namespace
}  // namespace velmorankite
