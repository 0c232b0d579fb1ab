// SPDX-License-Identifier: MIT
#include "utilities/rotation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "grid/cell_interpolation.h"
#include "grid/dummy.h"
#include "platform/io_error.h"
#include "support/grids.h"
#include "support/temporary_folder.h"
#include "utilities/bilinear.h"
#include "utilities/resampling.h"

namespace velmorankite {
namespace {

using testing::describe;
using testing::first_difference;
using testing::read_file;
using testing::read_grid;

constexpr Lattice lattice{100.0, -50.0, 2.0, 4.0, 9, 7};

struct Rotation : ::testing::Test {
  testing::TemporaryFolder folder;
  const std::string in = (folder / "in.grd").string();
  const std::string out = (folder / "out.grd").string();
  rotation_request request{in, out, lattice, lattice};

  // A turn about the middle of the lattice.
  void turn(float degrees, double x_pivot, double y_pivot) {
    request.angle = degrees;
    request.x_pivot_in = request.x_pivot_out = x_pivot;
    request.y_pivot_in = request.y_pivot_out = y_pivot;
  }
};

// Cells of a grid of 2-byte integers, stored as they stand.
void write_integers(const std::string& path, const std::vector<std::int16_t>& cells) {
  standard_header header = float_grid_header(lattice);
  header.element_size = 2;
  header.sign_flag = kind_signed;
  platform::BinaryFile file(path, platform::open_mode::create);
  OUTPUT_GEOSOFT_HEADER(file, header);
  file.write_values(513, std::span<const std::int16_t>(cells));
}

std::vector<std::int16_t> read_integers(const std::string& path) {
  const platform::BinaryFile file(path, platform::open_mode::read);
  std::vector<std::int16_t> cells(static_cast<std::size_t>(file.size() - 512) / 2);
  file.read_values(513, std::span(cells));
  return cells;
}

TEST(Bilinear, one_missing_corner_completes_the_parallelogram_and_two_leave_nothing) {
  const cell_square whole = {1.0F, 2.0F, 4.0F, 5.0F};  // a plane, so any three corners tell it
  float cell_square::*const corners[] = {&cell_square::a, &cell_square::b, &cell_square::c,
                                         &cell_square::d};
  EXPECT_EQ(square_value(whole, 0.25F, 0.5F), 2.75F);
  for (float cell_square::*const one : corners) {
    cell_square holed = whole;
    holed.*one = -1.0E31F;
    EXPECT_EQ(square_value(holed, 0.25F, 0.5F), 2.75F);
    for (float cell_square::*const other : corners) {
      if (other != one) {
        cell_square two = holed;
        two.*other = std::numeric_limits<float>::quiet_NaN();
        EXPECT_EQ(square_value(two, 0.25F, 0.5F), dummy);
      }
    }
  }
  EXPECT_EQ(square_value({1.0F, 2.0F, 4.0F, 9.0F}, 1.5F, -0.5F), -2.0F);
}

TEST_F(Rotation, a_plane_turns_scales_and_shifts_as_the_angle_says) {
  const Lattice plane_lattice{0.0, 0.0, 2.0, 4.0, 60, 40};
  const auto plane = [](double x, double y) { return 7.0 + 0.5 * x - 0.25 * y; };
  testing::write_grid(in, plane_lattice, [&](int column, int row) {
    return static_cast<float>(plane(plane_lattice.x(column), plane_lattice.y(row)));
  });
  turn(30.0F, 60.0, 80.0);
  request.in = plane_lattice;
  request.out = {900.0, 500.0, 3.0, 2.0, 11, 9};
  request.x_pivot_out = 910.0;
  request.y_pivot_out = 505.0;
  request.x_scale = 2.0;
  request.y_scale = 0.5;
  for (const bool cubic : {false, true}) {
    ASSERT_EQ(cubic ? GEOROTD(request, 1) : GEOROT(request), success);
    const std::vector<float> cells = read_grid(out);
    for (int row = 1; row <= 9; ++row) {
      for (int column = 1; column <= 11; ++column) {
        const double x = request.out.x(column) - 910.0;
        const double y = request.out.y(row) - 505.0;
        const double sine = std::sin(std::numbers::pi / 6.0);
        const double cosine = std::cos(std::numbers::pi / 6.0);
        EXPECT_NEAR(
            cells[testing::cell_index(column, row, 11)],
            plane((cosine * x + sine * y) / 2.0 + 60.0, (cosine * y - sine * x) / 0.5 + 80.0),
            1.0E-4)
            << column << ' ' << row;
      }
    }
  }
}

TEST_F(Rotation, without_a_turn_the_cells_are_copied_in_either_sense_and_kind) {
  std::vector<std::int16_t> cells(63);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = static_cast<std::int16_t>(i % 2 == 0 ? 300 - 100 * static_cast<int>(i) : 32767);
  }
  cells[10] = dummy_int16;
  write_integers(in, cells);
  request.stat_max = 12.0F;
  ASSERT_EQ(GEOROTD(request, 1), success);
  std::ranges::replace(cells, std::int16_t{32767}, std::int16_t{32766});
  // Beside the hole one corner is made up, which at a cell has no weight.
  EXPECT_EQ(read_integers(out), cells);
  const grid_description grid = describe(out);
  EXPECT_EQ(grid.ints.element_code, 2);
  EXPECT_EQ(grid.reals.z_mult, 1.0);
  EXPECT_EQ(grid.reals.z_max, 12.0);

  testing::write_grid(
      in, lattice, [](int column, int row) { return static_cast<float>(column * 10 + row); }, -2);
  request.sense_out = 7;
  ASSERT_EQ(GEOROT(request), success);
  EXPECT_EQ(read_file(out).substr(512), read_file(in).substr(512));
  EXPECT_EQ(describe(out).ints.storage_sense, -2);
}

TEST_F(Rotation, points_beyond_the_outer_cells_go_on_in_their_squares_and_need_their_own_cell) {
  const auto is_hole = [](int column, int row) {
    return (column == 4 && row == 7) || (column == 9 && (row == 2 || row == 7));
  };
  testing::write_grid(in, lattice, [&](int column, int row) {
    return is_hole(column, row) ? dummy : static_cast<float>(column - 1 + 100 * (row - 1));
  });
  // From 1.25 cells before the first cells by quarters of a cell, to beyond the last.
  request.out = {97.5, -55.0, 0.5, 1.0, 46, 38};
  ASSERT_EQ(GEOROT(request), success);
  const std::vector<float> cells = read_grid(out);
  for (int row = 1; row <= 38; ++row) {
    for (int column = 1; column <= 46; ++column) {
      const double p = (column - 6) / 4.0;
      const double q = (row - 6) / 4.0;
      const bool inside = p > -1.0 && p < 9.0 && q > -1.0 && q < 7.0;
      const bool hole = is_hole(static_cast<int>(p) + 1, static_cast<int>(q) + 1);
      EXPECT_EQ(cells[testing::cell_index(column, row, 46)],
                inside && !hole ? static_cast<float>(p + 100.0 * q) : dummy)
          << p << ' ' << q;
    }
  }
}

// A field without symmetry, with holes, over more than one piece of the output.
TEST_F(Rotation, the_cubic_has_the_bits_of_the_interpolator_whatever_the_piece) {
  const Lattice rough{-3.0, 5.0, 1.5, 0.5, 40, 70};
  testing::write_grid(
      in, rough,
      [](int column, int row) {
        const int at = column * 37 + row * 101;
        return at % 19 == 0 ? dummy : static_cast<float>(at % 71) + 0.37F;
      },
      -2);
  turn(-33.0F, 20.0, 25.0);
  request.out = {-30.0, -10.0, 0.17, 0.125, 600, 530};
  for (const std::int32_t mode : {1, 2}) {
    ASSERT_EQ(GEOROTD(request, mode), success);
    const std::vector<float> cells = read_grid(out);
    const float theta = -33.0F * 3.1415925F / 180.0F;
    const double sine = std::sin(theta);
    const double cosine = std::cos(theta);
    CellInterpolator interpolator(std::filesystem::path(in), describe(in), mode);
    std::vector<double> x(600);
    std::vector<double> y(600);
    std::vector<float> row_of(600);
    std::vector<float> expected;
    for (int row = 0; row < 530; ++row) {
      for (int c = 0; c < 600; ++c) {
        const double from_x = c * 0.17 - 30.0 - 20.0;
        const double from_y = row * 0.125 - 10.0 - 25.0;
        x[static_cast<std::size_t>(c)] = (cosine * from_x + sine * from_y) / 1.0 + 20.0;
        y[static_cast<std::size_t>(c)] = (-sine * from_x + cosine * from_y) / 1.0 + 25.0;
      }
      interpolator.points(x, y, row_of);
      expected.insert(expected.end(), row_of.begin(), row_of.end());
    }
    EXPECT_EQ(first_difference(expected, cells), "");
  }
}

TEST_F(Rotation, pieces_of_any_size_make_one_file) {
  testing::write_grid(in, lattice, [](int column, int row) {
    return column == 5 && row == 3 ? dummy : static_cast<float>(column * column - 7 * row);
  });
  source_grid source;
  ASSERT_EQ(open_source(in, source), success);
  resampling work;
  work.in = lattice;
  work.header = float_grid_header({0.0, 0.0, 1.0, 1.0, 23, 17}, -2);
  work.place = [](std::int32_t column, std::int32_t row, std::span<double> x, std::span<double> y) {
    for (std::size_t i = 0; i < x.size(); ++i) {
      const double c = column + static_cast<int>(i);
      x[i] = 96.0 + 0.7 * c + 0.5 * row;
      y[i] = -40.0 - 0.6 * c + 1.9 * row;
    }
  };
  work.values = [](const CellWindow& cells, std::span<const double> x, std::span<const double> y,
                   std::span<float> values) { bilinear_points(cells, lattice, x, y, values); };
  resample(source, work, out);
  const std::string whole = read_file(out);
  for (const piece_limits limits :
       {piece_limits{1, 1, 1}, {5, 1, 50}, {8, 60, 1000}, {64, 9, 99}}) {
    resample(source, work, out, limits);
    EXPECT_EQ(read_file(out), whole) << limits.side;
  }
}

TEST_F(Rotation, what_cannot_be_turned_is_refused_without_an_output) {
  struct refusal {
    Status status;
    std::function<void(standard_header&)> spoil;
    std::function<void(rotation_request&)> ask;
  };
  const auto as_is = [](auto&) {};
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const refusal refusals[] = {
      {resampling_header_unsound, [](auto& h) { h.element_spacing = 0.0; }, as_is},
      {resampling_header_unsound, [](auto& h) { h.element_size = 1; }, as_is},
      {resampling_header_unsound, as_is, [](auto& r) { r.input = "  "; }},
      {resampling_cells_unknown, [](auto& h) { h.sign_flag = kind_signed; }, as_is},
      {resampling_cells_unknown, [](auto& h) { h.element_size = 2, h.sign_flag = 0; }, as_is},
      {resampling_too_small, [](auto& h) { h.row_count = 1; }, as_is},
      {resampling_counts_differ, as_is, [](auto& r) { r.in.y_count = 6; }},
      {resampling_output_unsound, as_is, [](auto& r) { r.out.x_count = 0; }},
      {resampling_output_unsound, as_is, [](auto& r) { r.out.y_cell = -1.0; }},
      {resampling_numbers_unsound, as_is, [](auto& r) { r.y_scale = 0.0; }},
      {resampling_numbers_unsound, as_is, [nan](auto& r) { r.x_pivot_in = nan; }},
  };
  for (const refusal& refused : refusals) {
    standard_header header = float_grid_header(lattice);
    refused.spoil(header);
    platform::BinaryFile file(in, platform::open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, header);
    file.resize(512 + 4 * lattice.cell_count());
    rotation_request asked = request;
    refused.ask(asked);
    EXPECT_EQ(GEOROT(asked), refused.status) << refused.status.code;
  }
  testing::write_grid(in, lattice, [](int, int) { return 1.0F; });
  const std::string bytes = read_file(in);
  const std::string other_spelling = (folder / "./in.grd").string();
  request.output = other_spelling;
  EXPECT_THROW((void)GEOROTD(request, 1), platform::IoError);
  EXPECT_EQ(read_file(in), bytes);
  testing::write_file(in, bytes.substr(0, bytes.size() - 1));
  request.output = out;
  EXPECT_THROW((void)GEOROT(request), platform::IoError);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"in.grd"});
}

}  // namespace
}  // namespace velmorankite
