// SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <vector>

#include "grid/dummy.h"
#include "grid/value_transform.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/plain_interpolation.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::plain_interpolation;
using testing::TemporaryFolder;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr float nan_cell = std::numeric_limits<float>::quiet_NaN();

// A grid both on disk and in memory.
class TestGrid {
 public:
  TestGrid(const Lattice& lattice, const testing::cell_function& cell, std::int32_t sense = 1)
      : lattice_(lattice) {
    testing::write_grid(path_, lattice, cell, sense);
    description_ = testing::describe(path_);
    for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
      for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
        cells_.push_back(cell(column, row));
      }
    }
    for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
      const std::int32_t source = sense == 1 ? row : lattice.y_count + 1 - row;
      const auto first = cells_.begin() + std::ptrdiff_t{source - 1} * lattice.x_count;
      stored_.insert(stored_.end(), first, first + lattice.x_count);
    }
  }

  [[nodiscard]] CellInterpolator open(bool in_memory = false, std::int32_t mode = 1) const {
    return in_memory ? CellInterpolator(stored_, description_, mode)
                     : CellInterpolator(path_, description_, mode);
  }
  [[nodiscard]] float at(double x, double y, std::int32_t mode = 1) const {
    float value = 0.0F;
    open(true, mode).points(std::span(&x, 1), std::span(&y, 1), std::span(&value, 1));
    return value;
  }
  [[nodiscard]] float plain(double x, double y, std::int32_t mode = 1) const {
    return plain_interpolation(cells_, description_, mode, x, y);
  }
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] const grid_description& description() const { return description_; }
  [[nodiscard]] const Lattice& lattice() const { return lattice_; }
  [[nodiscard]] const std::vector<float>& stored() const { return stored_; }

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_ / "a.grd";
  Lattice lattice_;
  grid_description description_;
  std::vector<float> cells_;   // row 1 first
  std::vector<float> stored_;  // as the sense has them
};

// Cells from -20 to 20, `hole_share` of them holes of several kinds.
testing::cell_function rough_cells(double hole_share, unsigned seed) {
  return [hole_share, generator = std::mt19937(seed),
          known = std::vector<std::pair<std::int64_t, float>>()](std::int32_t column,
                                                                 std::int32_t row) mutable {
    const std::int64_t key = std::int64_t{row} * 1000 + column;
    const auto seen = std::ranges::find(known, key, &std::pair<std::int64_t, float>::first);
    if (seen != known.end()) {
      return seen->second;
    }
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    constexpr float holes[] = {dummy, -2.0E30F, nan_cell, -std::numeric_limits<float>::infinity()};
    const bool is_hole = unit(generator) < hole_share;
    const auto value = is_hole ? holes[static_cast<std::size_t>(unit(generator) * 3.99)]
                               : static_cast<float>(40.0 * unit(generator) - 20.0);
    known.emplace_back(key, value);
    return value;
  };
}

struct plain_case {
  Lattice lattice;
  double hole_share;
  std::int32_t sense;
};

// Small, wide, high, with every share of holes; the odd sizes and origins make the offsets round.
const plain_case plain_cases[] = {
    {{10.0, -3.0, 1.0, 1.0, 1, 1}, 0.0, 1},       {{0.1, 0.2, 0.3, 0.7, 1, 6}, 0.0, -2},
    {{1.0E6, 5.0E6, 12.5, 25.0, 9, 1}, 0.1, 1},   {{-7.0, 7.0, 0.1, 0.1, 2, 2}, 0.0, 1},
    {{0.0, 0.0, 1.0, 1.0, 12, 9}, 0.0, 1},        {{0.3, 0.7, 1.1, 0.9, 11, 13}, 0.1, -2},
    {{-1.0E3, 4.0E3, 7.3, 7.3, 30, 20}, 0.03, 1}, {{0.0, 0.0, 0.25, 0.5, 17, 21}, 0.5, -2},
    {{100.0, 100.0, 3.0, 3.0, 300, 7}, 0.001, 1},
};

// Coordinates along one axis, in and beyond the grid: at centres, beside them, at the limits.
std::vector<double> coordinates(double origin, double cell, std::int32_t count, int how_many,
                                std::mt19937& generator) {
  std::uniform_real_distribution<double> along(-1.0, count);
  std::uniform_int_distribution<int> kind(0, 7);
  std::vector<double> result;
  for (int i = 0; i < how_many; ++i) {
    const double index = along(generator);
    const double centre = origin + std::floor(index) * cell;
    const double lowest = origin - cell / 2.0;
    const double highest = origin + (count - 1) * cell + cell / 2.0;
    const double choices[] = {origin + index * cell,
                              origin + index * cell,
                              centre,
                              centre + 0.004 * cell,
                              centre - 0.0099999998 * cell,
                              centre + 0.5 * cell,
                              i % 2 == 0 ? lowest : highest,
                              i % 3 == 0 ? nan : std::nextafter(highest, 1.0E9)};
    result.push_back(choices[kind(generator)]);
  }
  return result;
}

TEST(CellInterpolation, any_points_in_any_order_have_the_values_of_the_plain_reading) {
  for (std::size_t i = 0; i < std::size(plain_cases); ++i) {
    const plain_case& c = plain_cases[i];
    const TestGrid grid(c.lattice, rough_cells(c.hole_share, 7), c.sense);
    std::mt19937 generator(11);
    const auto x =
        coordinates(c.lattice.x_min, c.lattice.x_cell, c.lattice.x_count, 500, generator);
    const auto y =
        coordinates(c.lattice.y_min, c.lattice.y_cell, c.lattice.y_count, 500, generator);
    for (const std::int32_t mode : {0, 1, 2, 3}) {
      std::vector<float> expected;
      for (std::size_t k = 0; k < x.size(); ++k) {
        expected.push_back(grid.plain(x[k], y[k], mode));
      }
      for (const bool in_memory : {false, true}) {
        std::vector<float> values(x.size());
        grid.open(in_memory, mode).points(x, y, values);
        EXPECT_EQ(first_difference(expected, values), "") << i << " mode " << mode;
      }
    }
  }
}

// A lattice over the grid's area and beyond, with cells of `ratio` times the grid's, moved by
// `shift` of them.
Lattice over(const Lattice& grid, double ratio, double shift) {
  const double x_cell = grid.x_cell * ratio;
  const double y_cell = grid.y_cell * ratio;
  return {grid.x_min + (shift - 2.0) * x_cell,
          grid.y_min + (shift - 2.0) * y_cell,
          x_cell,
          y_cell,
          static_cast<std::int32_t>(grid.x_count / ratio) + 4,
          static_cast<std::int32_t>(grid.y_count / ratio) + 4};
}

TEST(CellInterpolation, rows_of_any_lattice_have_the_values_of_the_plain_reading) {
  struct example {
    double ratio, shift;
    std::int32_t mode;
  };
  const example examples[] = {{1.0, 0.0, 1},  {1.0, 0.3, 1},  {1.0, 0.005, 1}, {1.0, -0.4, 2},
                              {2.0, 0.0, 1},  {0.5, 0.0, 3},  {1.7, 0.37, 1},  {0.31, 0.2, 1},
                              {0.31, 0.1, 3}, {1.0, -0.5, 0}, {4.3, 0.1, 1}};
  for (std::size_t i = 0; i < std::size(plain_cases); ++i) {
    const plain_case& c = plain_cases[i];
    const TestGrid grid(c.lattice, rough_cells(c.hole_share, 5), c.sense);
    for (const example& e : examples) {
      const Lattice target = over(c.lattice, e.ratio, e.shift);
      std::vector<double> x;
      for (std::int32_t column = 1; column <= target.x_count; ++column) {
        x.push_back(target.x(column));
      }
      CellInterpolator from_file = grid.open(false, e.mode);
      CellInterpolator from_memory = grid.open(true, e.mode);
      for (std::int32_t row = 1; row <= target.y_count; ++row) {
        std::vector<float> expected;
        for (const double one : x) {
          expected.push_back(grid.plain(one, target.y(row), e.mode));
        }
        std::vector<float> values(x.size());
        from_file.row(x, target.y(row), values);
        EXPECT_EQ(first_difference(expected, values), "") << i << ' ' << e.ratio << ' ' << row;
        from_memory.row(x, target.y(row), values);
        EXPECT_EQ(first_difference(expected, values), "") << i << ' ' << e.ratio << ' ' << row;
      }
    }
  }
}

TEST(CellInterpolation, a_row_may_change_its_points_from_call_to_call) {
  const TestGrid grid({0.0, 0.0, 1.0, 1.0, 40, 5}, rough_cells(0.05, 3));
  CellInterpolator cells = grid.open();
  std::mt19937 generator(2);
  for (int call = 0; call < 20; ++call) {
    std::vector<double> x = coordinates(0.0, 1.0, 40, 1 + call % 5, generator);
    if (call % 2 == 0) {
      std::ranges::sort(x);
    }
    const double y = coordinates(0.0, 1.0, 5, 1, generator).front();
    std::vector<float> expected;
    for (const double one : x) {
      expected.push_back(grid.plain(one, y));
    }
    std::vector<float> values(x.size());
    cells.row(x, y, values);
    EXPECT_EQ(first_difference(expected, values), "") << call;
  }
}

TEST(CellInterpolation, a_quadratic_surface_is_met_between_the_cells) {
  const auto surface = [](double x, double y) { return 3.0 + 2.0 * x - y + 0.5 * x * x + x * y; };
  const TestGrid grid({0.0, 0.0, 1.0, 1.0, 9, 9}, [&](int column, int row) {
    return static_cast<float>(surface(column - 1, row - 1));
  });
  for (const double x : {1.25, 3.5, 6.99}) {
    for (const double y : {1.02, 4.75, 6.5}) {
      EXPECT_NEAR(grid.at(x, y), surface(x, y), 1.0E-5);
    }
  }
}

// Beyond the outer cells the cubic sees the outer cell three times and then its inner neighbour:
// half a cell out it is a sixteenth of their difference off the outer value.
TEST(CellInterpolation, the_area_reaches_half_a_cell_beyond_the_outer_centres) {
  const TestGrid grid({10.0, 20.0, 2.0, 2.0, 4, 3},
                      [](int column, int row) { return static_cast<float>(100 * row + column); });
  struct example {
    double x, y;
    float value;
  };
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const example examples[] = {
      {9.0, 20.0, 101.0F - 0.0625F},
      {17.0, 24.0, 304.0F + 0.0625F},
      {12.0, 19.0, 102.0F - 6.25F},
      {14.0, 25.0, 303.0F + 6.25F},
      {std::nextafter(9.0, 0.0), 20.0, dummy},
      {std::nextafter(17.0, 99.0), 24.0, dummy},
      {12.0, std::nextafter(19.0, 0.0), dummy},
      {14.0, std::nextafter(25.0, 99.0), dummy},
      {nan, 20.0, dummy},
      {10.0, nan, dummy},
      {1.0E300, 20.0, dummy},
      {10.0, -infinity, dummy},
  };
  for (const example& e : examples) {
    EXPECT_EQ(grid.at(e.x, e.y), e.value) << e.x << ' ' << e.y;
  }
}

TEST(CellInterpolation, an_empty_nearest_cell_empties_the_point_and_no_other_hole_does) {
  for (int hole_column = 1; hole_column <= 4; ++hole_column) {
    for (int hole_row = 1; hole_row <= 4; ++hole_row) {
      for (const float hole : {dummy, nan_cell}) {
        const TestGrid grid({0.0, 0.0, 1.0, 1.0, 4, 4}, [&](int column, int row) {
          return column == hole_column && row == hole_row ? hole : 5.0F;
        });
        const bool nearest = hole_column == 2 && hole_row == 3;
        EXPECT_EQ(grid.at(1.3, 1.6), nearest ? dummy : 5.0F) << hole_column << ' ' << hole_row;
      }
    }
  }
}

// The base cell of both points is a hole. It stands in as the point's own nearest cell, whichever
// point was asked for before.
TEST(CellInterpolation, the_points_before_do_not_change_a_value_beside_a_hole) {
  const TestGrid grid({0.0, 0.0, 1.0, 1.0, 4, 4}, [](int column, int row) {
    return column == 2 && row == 2 ? dummy : static_cast<float>(100 * column + row);
  });
  const std::vector<double> x = {1.8, 1.2, 1.8, 1.9};
  const std::vector<double> y = {1.3, 1.8, 1.3, 1.9};
  std::vector<float> forward(4);
  grid.open().points(x, y, forward);
  EXPECT_EQ(forward[0], forward[2]);
  for (std::size_t i = 0; i < x.size(); ++i) {
    EXPECT_EQ(forward[i], grid.at(x[i], y[i]));
    EXPECT_EQ(forward[i], grid.plain(x[i], y[i]));
  }
}

TEST(CellInterpolation, the_logarithmic_mode_floors_what_has_no_logarithm) {
  const float cells[] = {100.0F, 0.0F, -5.0F, dummy};
  const TestGrid grid({0.0, 0.0, 1.0, 1.0, 4, 1},
                      [&](int column, int) { return cells[column - 1]; });
  EXPECT_FLOAT_EQ(grid.at(0.0, 0.0, 2), 100.0F);
  EXPECT_FLOAT_EQ(grid.at(1.0, 0.0, 2), std::exp(-18.0F));
  EXPECT_FLOAT_EQ(grid.at(2.0, 0.0, 2), std::exp(-18.0F));
  EXPECT_EQ(grid.at(3.0, 0.0, 2), dummy);
  EXPECT_EQ(grid.at(2.0, 0.0, 3), -5.0F);
}

class WholeCall : public ::testing::Test {
 protected:
  Status call(std::int32_t count) {
    return GEO_CELL_INTERPOLATION(source_flag, path, grid.description(), grid.stored(), mode, count,
                                  x, y, values);
  }

  TestGrid grid{{0.0, 0.0, 1.0, 1.0, 3, 3},
                [](int column, int row) { return static_cast<float>(column * row); }};
  std::vector<double> x = {0.0, 1.0, 2.0, 1.5, 9.0};
  std::vector<double> y = {0.0, 1.0, 2.0, 1.5, 0.0};
  std::vector<float> values = std::vector<float>(5, 77.0F);
  std::int32_t source_flag = 0;
  std::string path = grid.path().string() + "   ";
  std::int32_t mode = 1;
};

TEST_F(WholeCall, file_and_memory_give_the_same_values) {
  EXPECT_EQ(call(5), success);
  const std::vector<float> from_file = values;
  EXPECT_EQ(from_file[1], 4.0F);
  EXPECT_EQ(from_file[4], dummy);
  source_flag = 1;
  path.clear();
  EXPECT_EQ(call(5), success);
  EXPECT_EQ(first_difference(from_file, values), "");
}

TEST_F(WholeCall, a_negative_count_takes_logarithms_and_leaves_the_mode_so) {
  EXPECT_EQ(call(-4), success);
  EXPECT_EQ(mode, 2);
  EXPECT_EQ(values[3], grid.plain(1.5, 1.5, 2));
  EXPECT_EQ(values[4], 77.0F);
}

TEST_F(WholeCall, a_bad_call_leaves_values_and_mode_alone) {
  const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  for (const std::int32_t count : {0, 6, -6, lowest}) {
    EXPECT_EQ(call(count), interpolation_bad_call) << count;
  }
  path = "     ";
  EXPECT_EQ(call(-5), interpolation_bad_call);
  EXPECT_EQ(mode, 1);
  EXPECT_EQ(values, std::vector<float>(5, 77.0F));
}

TEST_F(WholeCall, cells_in_memory_that_cannot_be_what_the_description_says_are_a_bad_call) {
  source_flag = 1;
  const auto with = [&](auto change) {
    grid_description wrong = grid.description();
    change(wrong);
    return GEO_CELL_INTERPOLATION(1, "", wrong, grid.stored(), mode, 5, x, y, values);
  };
  EXPECT_EQ(with([](grid_description&) {}), success);
  EXPECT_EQ(with([](grid_description& d) { d.ints.x_count = 4; }), interpolation_bad_call);
  EXPECT_EQ(with([](grid_description& d) { d.ints.y_count = 0; }), interpolation_bad_call);
  EXPECT_EQ(with([](grid_description& d) { d.reals.x_cell = 0.0; }), interpolation_bad_call);
  EXPECT_EQ(with([](grid_description& d) { d.reals.y_cell = nan; }), interpolation_bad_call);
}

TEST_F(WholeCall, limits_that_do_not_fit_the_counts_index_nothing) {
  grid_description wild = grid.description();
  wild.reals.x_max = 1.0E300;
  wild.reals.y_max = std::numeric_limits<double>::infinity();
  x = {1.0E299, 2.5, 1.0E18, -0.5, 3.0E9};
  y = {1.0, 1.0E300, 1.0E18, std::numeric_limits<double>::infinity(), 4.0E9};
  EXPECT_EQ(GEO_CELL_INTERPOLATION(0, path, wild, {}, mode, 5, x, y, values), success);
  wild.reals.x_max = nan;
  EXPECT_EQ(GEO_CELL_INTERPOLATION(0, path, wild, {}, mode, 5, x, y, values), success);
  EXPECT_EQ(values, std::vector<float>(5, dummy));
}

TEST_F(WholeCall, a_file_that_shrinks_or_fails_is_a_stop) {
  EXPECT_GT(testing::fail_each_call(
                testing::system_call::read, EIO, [&] { (void)call(5); }, [](int) {}),
            0);
  EXPECT_EQ(testing::fail_each_call(
                testing::system_call::open, EACCES, [&] { (void)call(5); }, [](int) {}),
            1);
  CellInterpolator open_grid = grid.open();
  std::filesystem::resize_file(grid.path(), 512 + 20);
  EXPECT_THROW(open_grid.row(x, 2.0, values), platform::IoError);
  open_grid.row(std::vector<double>{0.0, 1.0}, 0.0, std::span(values).first(2));
  EXPECT_EQ(values[1], 2.0F);
  EXPECT_THROW((void)call(5), platform::IoError);
}

}  // namespace
}  // namespace velmorankite
