// SPDX-License-Identifier: MIT
#include "merge/working_window.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

namespace velmorankite {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// A line from (40, 50) to (60, 55) on 101 x 101 cells of 1 from (0, 0); the band reaches 5.
struct Fixture {
  Fixture() {
    parameters.blend_width = 3.0F;
    parameters.band_margin = 2.0F;
    parameters.lattice = {0.0, 0.0, 1.0, 1.0, 101, 101};
    parameters.lattice_x_max = 100.0;
    parameters.lattice_y_max = 100.0;
  }
  // Why there is none.
  std::string snap() { return snap_window(parameters, adjusted, line, window).why; }

  stitch_parameters parameters;
  grid_description adjusted;
  stitch_line line{{40.0, 60.0}, {50.0, 55.0}};
  working_window window;
};

// Window columns and rows on the output lattice.
struct span_of_cells {
  std::int32_t first_column, last_column, first_row, last_row;
  friend bool operator==(const span_of_cells&, const span_of_cells&) = default;
};

span_of_cells cells_of(const working_window& w) {
  EXPECT_EQ(w.lattice.x_count, w.last_column - w.first_column + 1);
  EXPECT_EQ(w.lattice.y_count, w.last_row - w.first_row + 1);
  return {w.first_column, w.last_column, w.first_row, w.last_row};
}

TEST(WorkingWindow, covers_the_line_and_its_band_in_whole_cells_of_the_lattice) {
  Fixture f;
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{36, 66, 46, 61}));
  EXPECT_EQ(f.window.lattice, (Lattice{35.0, 45.0, 1.0, 1.0, 31, 16}));
  EXPECT_EQ(f.window.x_max, 65.0);
  EXPECT_EQ(f.window.y_max, 60.0);

  f.line = {{40.75, 59.5}, {50.25, 55.0}};  // 35.75 and 64.5 go down to 35 and 64
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{36, 65, 46, 61}));
}

TEST(WorkingWindow, stays_on_the_lattice_where_the_line_leaves_it) {
  Fixture f;
  f.line = {{-20.0, 200.0}, {-3.0, 2.0}};
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{1, 101, 1, 8}));
  // A limit between two cells ends the window at the last whole cell.
  f.parameters.lattice_x_max = 100.5;
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(f.window.last_column, 101);
  EXPECT_EQ(f.window.x_max, 100.0);
  // A line beside it, which reaches it only with its band.
  f.line = {{103.0, 103.0}, {20.0, 60.0}};
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{99, 101, 16, 66}));
}

TEST(WorkingWindow, takes_in_the_adjusted_grid_only_with_a_correction) {
  Fixture f;
  f.adjusted.reals.x_min = 30.5;
  f.adjusted.reals.x_max = 50.0;
  f.adjusted.reals.y_min = -1000.0;
  f.adjusted.reals.y_max = 70.5;
  f.parameters.correction_distance = 0.0F;
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{36, 66, 46, 61}));
  f.parameters.correction_distance = 10.0F;
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{31, 66, 1, 71}));
  // Reaching far beyond the lattice, further than cells can be counted, is no fault.
  f.adjusted.reals = {-1e12, 1e12, -1e300, 1e300};
  ASSERT_EQ(f.snap(), "");
  EXPECT_EQ(cells_of(f.window), (span_of_cells{1, 101, 1, 101}));
  f.adjusted.reals.y_max = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(f.snap(), "the limits of the adjusted grid are not all finite numbers");
}

TEST(WorkingWindow, never_counts_an_index_beyond_its_own_cells) {
  // At 0.1 a cell the count of cells and the last index are rounded apart.
  for (int i = 0; i < 400; ++i) {
    Fixture f;
    f.parameters.lattice = {430012.5, -0.3, 0.1, 0.7, 1001, 1001};
    f.parameters.lattice_x_max = 430012.5 + 100.0;
    f.parameters.lattice_y_max = 700.0 - 0.3;
    f.line = {{430032.5 + 0.1 * i, 430050.0}, {50.0 + 0.3 * i, 60.0}};
    ASSERT_EQ(f.snap(), "");
    const working_window& w = f.window;
    EXPECT_LE(w.last_column - w.first_column + 1, w.lattice.x_count) << i;
    EXPECT_LE(w.last_row - w.first_row + 1, w.lattice.y_count) << i;
  }
}

TEST(WorkingWindow, says_with_numbers_why_there_is_none) {
  struct example {
    const char* words;
    std::function<void(Fixture&)> spoil;
  };
  const example examples[] = {
      {"", [](Fixture& f) { f.parameters.lattice.x_cell = 2.5; }},  // exactly two cells
      {"blend_width + band_margin is 4.9999995, at least two X cell sizes (5) are needed",
       [](Fixture& f) {
         f.parameters.lattice.x_cell = 2.5;
         f.parameters.band_margin = 1.9999995F;
       }},
      {"line and output lattice do not meet: along X the lattice goes from 0 to 100, the line "
       "with its band from -55 to -1",
       [](Fixture& f) {
         f.line.x = {-50.0, -6.0};
       }},
      {"line and output lattice do not meet: along Y the lattice goes from 0 to 100, the line "
       "with its band from 101 to 115",
       [](Fixture& f) {
         f.line.y = {106.0, 110.0};
       }},
      {"blend_width is 12, the working window is only 41 by 11 (41 by 11 cells)",
       [](Fixture& f) {
         f.parameters.blend_width = 12.0F;
         f.parameters.band_margin = -2.0F;
         f.line.y = {0.0, 0.0};
       }},
      {"a blend_width above 0 and a finite band_margin are needed, 0 and 2 are given",
       [](Fixture& f) { f.parameters.blend_width = 0.0F; }},
      {"a blend_width above 0 and a finite band_margin are needed, 3 and nan are given",
       [](Fixture& f) { f.parameters.band_margin = std::numeric_limits<float>::quiet_NaN(); }},
      {"blend_width is 1e-38, too small beside a band of 2",
       [](Fixture& f) { f.parameters.blend_width = 1e-38F; }},
      {"cell sizes above 0 are needed, 1 and -1 are given",
       [](Fixture& f) { f.parameters.lattice.y_cell = -1.0; }},
      {"the limits of the output lattice are not all finite numbers",
       [](Fixture& f) { f.parameters.lattice_x_max = infinity; }},
      {"a vertex of the stitch line is not a finite number",
       [](Fixture& f) { f.line.y[1] = -infinity; }},
      {"a stitch line needs at least 2 vertices, 1 given",
       [](Fixture& f) {
         f.line = {{1.0}, {1.0}};
       }},
      {"the working window goes from 0 to 1e+10 along Y, which is more cells of 1 than can be "
       "counted",
       [](Fixture& f) {
         f.parameters.lattice_y_max = 1e10;
         f.line.y = {0.0, 1e11};
       }},
      {"the working window of 2000000001 by 2000000001 cells is larger than any memory",
       [](Fixture& f) {
         f.parameters.lattice_x_max = f.parameters.lattice_y_max = 2e9;
         f.line = {{0.0, 1e11}, {0.0, 1e11}};
       }},
  };
  for (const example& e : examples) {
    Fixture f;
    e.spoil(f);
    EXPECT_EQ(f.snap(), e.words);
  }
}

}  // namespace
}  // namespace velmorankite
