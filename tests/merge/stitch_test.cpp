// SPDX-License-Identifier: MIT
#include "merge/stitch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "condition/hole_filling.h"
#include "grid/cell_interpolation.h"
#include "grid/dummy.h"
#include "merge/merge_rule.h"
#include "merge/seam_band.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::describe;
using testing::read_grid;

struct stitch_case {
  const char* what;
  stitch_parameters parameters;
  Lattice grid_1;
  Lattice grid_2;
  std::int32_t sense_2;
  stitch_line line;
};

// Rough terrain with scattered holes, a large one among them, that differs from grid to grid.
float terrain(const Lattice& lattice, std::int32_t column, std::int32_t row, double level) {
  const double x = lattice.x(column);
  const double y = lattice.y(row);
  const std::int32_t scatter = (column * 7919 + row * 104729) % 23;
  if (scatter == 0 || std::hypot(x - 60.0 - level, y - 150.0) < 25.0) {
    return dummy;
  }
  return static_cast<float>(level + 20.0 * std::sin(x / 31.0) + 0.1 * y + 0.37 * scatter);
}

// Every cell of a lattice by one call of the interpolation a row.
std::vector<float> resampled(const input_grid& grid, const Lattice& lattice) {
  std::vector<float> cells;
  const std::vector<double> x = x_of_columns(lattice);
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    const std::vector<double> y(x.size(), lattice.y(row));
    std::vector<float> values(x.size());
    std::int32_t mode = 1;
    EXPECT_EQ(GEO_CELL_INTERPOLATION(0, grid.path.string(), grid.description, {}, mode,
                                     lattice.x_count, x, y, values),
              success);
    cells.insert(cells.end(), values.begin(), values.end());
  }
  return cells;
}

// A grid on the window, filled from file to file.
input_grid filled(const std::vector<float>& cells, const Lattice& window,
                  const std::filesystem::path& scratch) {
  testing::write_grid(scratch, window, [&](std::int32_t column, std::int32_t row) {
    return cells[testing::cell_index(column, row, window.x_count)];
  });
  const std::filesystem::path path = scratch.string() + ".filled";
  float minimum = 0.0F;
  float maximum = 0.0F;
  std::int64_t count = 0;
  EXPECT_EQ(GRID_FILL(scratch.string(), path.string(), 1, 0, minimum, maximum, count), success);
  return {path, describe(path)};
}

// The merged grid by way of scratch files, cell by cell, with nothing reused.
std::vector<float> plain_stitch(const stitch_parameters& p, const input_grid& grid_1,
                                const input_grid& grid_2, stitch_line line,
                                const std::filesystem::path& folder) {
  seam_band band;
  EXPECT_EQ(build_seam_band(p, grid_1.description, grid_2.description, line, band).why, "");
  const Lattice& window = band.window.lattice;
  const input_grid filled_1 = filled(resampled(grid_1, window), window, folder / "~1.grd");
  const input_grid filled_2 = filled(resampled(grid_2, window), window, folder / "~2.grd");
  const std::vector<float> cells_1 = read_grid(filled_1.path);
  const std::vector<float> cells_2 = read_grid(filled_2.path);

  std::vector<float> z_1(band.sample_x.size());
  std::vector<float> z_2 = z_1;
  CellInterpolator(filled_1.path, filled_1.description).points(band.sample_x, band.sample_y, z_1);
  CellInterpolator(filled_2.path, filled_1.description).points(band.sample_x, band.sample_y, z_2);
  float sum = 0.0F;
  for (std::size_t i = 0; i < z_1.size(); ++i) {
    sum += z_1[i] - z_2[i];
  }
  const levelling level{p.adjusted_grid, sum / static_cast<float>(z_1.size())};

  std::vector<float> merged;
  const std::vector<float> r_1 = resampled(grid_1, p.lattice);
  const std::vector<float> r_2 = resampled(grid_2, p.lattice);
  const working_window& w = band.window;
  for (std::int32_t row = 1; row <= p.lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= p.lattice.x_count; ++column) {
      const std::size_t i = merged.size();
      merge_cell cell{r_1[i], r_2[i], 0.0F, false, 0.0F, 0.0F, 0.0F};
      if (column >= w.first_column && column <= w.last_column && row >= w.first_row &&
          row <= w.last_row) {
        const std::size_t k =
            testing::cell_index(column - w.first_column + 1, row - w.first_row + 1, window.x_count);
        cell.in_window = true;
        cell.weight = band.weights[k];
        cell.filled_1 = cells_1[k];
        cell.filled_2 = cells_2[k];
      }
      merged.push_back(merged_value(cell, level));
    }
  }
  return merged;
}

class Stitch : public ::testing::Test {
 protected:
  input_grid write(const char* name, const Lattice& lattice, double level, std::int32_t sense) {
    testing::write_grid(
        folder / name, lattice,
        [&](std::int32_t column, std::int32_t row) { return terrain(lattice, column, row, level); },
        sense);
    return {folder / name, describe(folder / name)};
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder here{folder.path()};
};

constexpr Lattice even{0.0, 0.0, 10.0, 10.0, 41, 31};

stitch_parameters on_lattice(const Lattice& lattice, double x_max, double y_max) {
  return {"report", 0.0F, 1, 50.0F, 30.0F, lattice, x_max, y_max, "merged.grd"};
}

TEST_F(Stitch, gives_the_bits_of_a_plain_reading_through_scratch_files) {
  const Lattice shifted{3.7, -8.1, 17.0, 16.3, 25, 21};
  // Tenths are rounded, and other ones when they are counted from the window. Every second of
  // them lies half way between two cells of the grids, where that decides which is the nearer.
  const Lattice tenths{0.0, 0.0, 0.1, 0.1, 160, 120};
  const Lattice fifths{0.0, 0.0, 0.2, 0.2, 81, 61};
  const stitch_line small{{5.05, 7, 10, 12}, {4, 6.5, 6, 9}};
  stitch_parameters rounding = on_lattice(tenths, 15.9, 11.9);
  rounding.blend_width = 1.0F;
  rounding.band_margin = 0.5F;
  const stitch_line east{{-50, 200, 450}, {150, 150, 150}};
  const stitch_line bent{{120, 160, 230, 280}, {80, 140, 130, 220}};
  const stitch_line ring{{130, 260, 250, 120, 131}, {90, 100, 210, 200, 91}};
  const stitch_case cases[] = {
      {"one lattice", on_lattice(even, 400, 300), even, even, 1, east},
      {"a coarser grid, top down", on_lattice(even, 400, 300), even, shifted, -2, east},
      {"a window inside the output", on_lattice(even, 400, 300), even, shifted, 1, bent},
      {"a closed line", on_lattice(even, 400, 300), shifted, even, 1, ring},
      {"sums that round", rounding, fifths, fifths, -2, small},
      {"limits beyond the counts", on_lattice(even, 1000, 2000), even, shifted, 1, east},
      {"limits short of the counts", on_lattice(even, 333, 222), even, shifted, 1, east},
  };
  for (stitch_case c : cases) {
    const input_grid grid_1 = write("one.grd", c.grid_1, 100.0, 1);
    const input_grid grid_2 = write("two.grd", c.grid_2, 60.0, c.sense_2);
    for (const std::int32_t adjusted : {0, 1}) {
      c.parameters.adjusted_grid = adjusted;
      const auto expected = plain_stitch(c.parameters, grid_1, grid_2, c.line, folder.path());
      stitch_line line = c.line;
      stitch_summary summary;
      ASSERT_EQ(GRIDSTITCH(c.parameters, grid_1, grid_2, line, summary).why, "") << c.what;
      EXPECT_EQ(testing::first_difference(expected, read_grid("merged.grd")), "")
          << c.what << ", adjusted grid " << adjusted;
    }
  }
}

TEST_F(Stitch, refuses_values_that_no_stitch_can_use_and_writes_nothing) {
  const input_grid grid = write("one.grd", even, 100.0, 1);
  for (void (*spoil)(stitch_parameters&) :
       {+[](stitch_parameters& p) { p.blend_width = 0.0F; },
        +[](stitch_parameters& p) { p.adjusted_grid = 2; },
        +[](stitch_parameters& p) { p.correction_distance = std::nanf(""); },
        +[](stitch_parameters& p) { p.lattice.y_count = 0; },
        +[](stitch_parameters& p) { p.lattice.x_cell = std::nan(""); }}) {
    stitch_parameters parameters = on_lattice(even, 400, 300);
    spoil(parameters);
    stitch_line line{{-50, 200, 450}, {150, 150, 150}};
    stitch_summary summary;
    const Outcome outcome = GRIDSTITCH(parameters, grid, grid, line, summary);
    EXPECT_EQ(outcome.status, stitch_impossible);
    EXPECT_NE(outcome.why.find(" is expected"), std::string::npos) << outcome.why;
    EXPECT_EQ(folder.names(), std::vector<std::string>{"one.grd"});
  }
}

}  // namespace
}  // namespace velmorankite
