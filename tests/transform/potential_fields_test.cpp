// Filters on fields whose transforms are known in closed form, in both storage senses.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "transform/derived_maps.h"
#include "transform/fft_grid.h"
#include "transform/gradient_stage.h"
#include "transform/grid_run.h"

namespace velmorankite {
namespace {

using testing::field;
using testing::GridRun;

// X east, Y north, Z down.
struct vector3 {
  double x, y, z;
};

double dot(vector3 a, vector3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

vector3 direction(double inclination, double declination) {
  const double i = inclination * DegToRad;
  const double d = declination * DegToRad;
  return {std::cos(i) * std::sin(d), std::cos(i) * std::cos(d), std::sin(i)};
}

// Field of a dipole of moment `m`, `depth` below the point (x, y) = (3, -2).
vector3 dipole_field(vector3 m, double depth, double x, double y) {
  const vector3 r{x - 3.0, y + 2.0, -depth};
  const double square = dot(r, r);
  const double cube = square * std::sqrt(square);
  const double along = 3.0 * dot(m, r) / (square * cube);
  return {along * r.x - m.x / cube, along * r.y - m.y / cube, along * r.z - m.z / cube};
}

field total_field(vector3 f, vector3 m, double depth) {
  return [=](double x, double y) { return dot(f, dipole_field(m, depth, x, y)); };
}

// Attraction of a point mass.
field point_mass(double depth) {
  return [=](double x, double y) {
    const double square = (x - 3.0) * (x - 3.0) + (y + 2.0) * (y + 2.0) + depth * depth;
    return depth / (square * std::sqrt(square));
  };
}

// Slope of the attraction of a point mass 6 deep, by a small step in a direction.
field mass_slope(vector3 to) {
  constexpr double step = 1.0E-3;
  return [=](double x, double y) {
    return (point_mass(6.0 - to.z * step)(x + to.x * step, y + to.y * step) -
            point_mass(6.0 + to.z * step)(x - to.x * step, y - to.y * step)) /
           (2.0 * step);
  };
}

constexpr std::array<float, real_parameters> order_1{1.0F};

// Both senses, and an array whose sides differ and do not fit the grid.
class PotentialField : public ::testing::TestWithParam<std::int32_t> {
 protected:
  GridRun run_on(const field& value) { return {120, 100, 1.0, 1.0, GetParam(), value}; }
};
INSTANTIATE_TEST_SUITE_P(Senses, PotentialField, ::testing::Values(1, -2));

TEST_P(PotentialField, continued_upwards_is_the_field_at_the_new_height) {
  GridRun run = run_on(point_mass(6.0));
  run.expect_field(run.filtered(101, {3.0F}), point_mass(9.0), 0.005);
}

TEST_P(PotentialField, derivatives_are_slopes_downwards_and_along_the_axes_of_the_map) {
  GridRun run = run_on(point_mass(6.0));
  run.expect_field(run.filtered(102, order_1), mass_slope({0.0, 0.0, 1.0}), 0.005);
  for (const float azimuth : {0.0F, 90.0F, 30.0F}) {
    run.expect_field(run.filtered(204, {1.0F, azimuth}),
                     mass_slope(direction(0.0, static_cast<double>(azimuth))), 0.005);
  }
}

TEST_P(PotentialField, derivatives_take_cells_that_are_not_square) {
  const field hill = [](double x, double y) { return std::exp(-(x * x + y * y) / 800.0); };
  GridRun run(120, 100, 2.0, 3.0, GetParam(), hill);
  run.expect_field(
      run.filtered(204, {1.0F, 0.0F}), [&](double x, double y) { return -y / 400.0 * hill(x, y); },
      0.002);
  run.expect_field(
      run.filtered(204, {2.0F, 90.0F}),
      [&](double x, double y) { return (x * x / 400.0 - 1.0) / 400.0 * hill(x, y); }, 0.002);
}

TEST_P(PotentialField, reduced_to_the_pole_is_the_anomaly_of_a_vertical_dipole) {
  struct example {
    double inclination, declination, moment_inclination, moment_declination;
  };
  const vector3 down{0.0, 0.0, 1.0};
  const field at_the_pole = total_field(down, down, 6.0);
  for (const example& e : {example{60.0, 25.0, 60.0, 25.0},
                           {60.0, -70.0, 60.0, -70.0},
                           {-50.0, 160.0, -50.0, 160.0},
                           {60.0, 25.0, 40.0, 120.0}}) {
    GridRun run = run_on(total_field(direction(e.inclination, e.declination),
                                     direction(e.moment_inclination, e.moment_declination), 6.0));
    run.expect_field(
        run.filtered(201, {static_cast<float>(e.declination), static_cast<float>(e.inclination),
                           static_cast<float>(e.moment_declination),
                           static_cast<float>(e.moment_inclination)}),
        at_the_pole, 0.02);
  }
}

TEST_P(PotentialField, reduced_to_the_equator_is_the_anomaly_in_a_level_field) {
  const vector3 f = direction(60.0, 25.0);
  const vector3 north{0.0, 1.0, 0.0};
  GridRun run = run_on(total_field(f, f, 6.0));
  run.expect_field(run.filtered(202, {25.0F, 60.0F, 25.0F, 60.0F}), total_field(north, north, 6.0),
                   0.02);
}

// The three components and what is made of them, from a total field.
struct components {
  std::vector<float> x, y, z, map;
};

components components_of(GridRun& run, std::int32_t filter,
                         std::array<float, real_parameters> reals,
                         std::array<std::int32_t, integer_parameters> integers = {}) {
  run.load(filter, reals, integers);
  run.forward();
  save_fft_grid(run.folder() / "s.grd", run.grid_lattice(), run.geometry(), run.array());
  const platform::BinaryFile prepared = prepare_gradient_spectrum(run.stage(), run.parameters());
  const platform::BinaryFile saved(run.folder() / "s.grd", platform::open_mode::read);
  gradient_work_grids work = make_work_grids(run.stage());
  // The grid inside the pad, all of it valid.
  const Lattice lattice = run.grid_lattice();
  testing::write_grid(run.folder() / "in.grd", lattice,
                      [](std::int32_t, std::int32_t) { return 1.0F; });
  const RowFile input({run.folder() / "in.grd", platform::open_mode::read},
                      {1, lattice.x_count, lattice.y_count});
  FFTGRAD3(run.stage(), run.parameters(), input, prepared.is_open() ? prepared : saved, work);
  components result;
  result.z = run.window();
  write_derived_map(derived_map_of(run.parameters()), work, run.array(), run.geometry(),
                    run.padded());
  const auto rows_of = [&](const RowFile& grid) {
    std::vector<float> cells;
    std::vector<float> row_cells(static_cast<std::size_t>(grid.layout().x_count));
    for (std::int32_t row = 1; row <= grid.layout().y_count; ++row) {
      grid.read(row, row_cells);
      cells.insert(cells.end(), row_cells.begin(), row_cells.end());
    }
    return cells;
  };
  result.x = rows_of(work.grids[0]);
  result.y = rows_of(work.grids[1]);
  result.map = rows_of(run.padded());
  return result;
}

TEST_P(PotentialField, components_of_a_total_field_are_those_of_the_source) {
  const vector3 f = direction(60.0, 25.0);
  GridRun run = run_on(total_field(f, f, 6.0));
  const components found = components_of(run, 212, {25.0F, 60.0F});
  const auto part = [&](double vector3::*member, double sign) -> field {
    return [=](double x, double y) { return sign * (dipole_field(f, 6.0, x, y).*member); };
  };
  run.expect_field(found.z, part(&vector3::z, 1.0), 0.02);
  // The horizontal components count towards the west and the south.
  run.expect_field(found.x, part(&vector3::x, -1.0), 0.02);
  run.expect_field(found.y, part(&vector3::y, -1.0), 0.02);
  run.expect_field(
      found.map,
      [&](double x, double y) {
        const vector3 b = dipole_field(f, 6.0, x, y);
        return std::sqrt(dot(b, b));
      },
      0.02);
}

TEST_P(PotentialField, total_gradient_of_a_point_mass_has_no_side) {
  GridRun run = run_on(point_mass(6.0));
  run.expect_field(
      components_of(run, 106, {}).map,
      [](double x, double y) {
        return std::hypot(mass_slope({1.0, 0.0, 0.0})(x, y), mass_slope({0.0, 1.0, 0.0})(x, y),
                          mass_slope({0.0, 0.0, 1.0})(x, y));
      },
      0.005);
}

TEST_P(PotentialField, components_have_the_high_cut_of_the_run) {
  GridRun run = run_on(point_mass(6.0));
  run.high_cut = 1.0F;
  const std::vector<float> east = run.filtered(204, {1.0F, 90.0F});
  const std::vector<float> down = run.filtered(102, order_1);
  const components found = components_of(run, 106, {});
  for (std::size_t i = 0; i < found.x.size(); i += 97) {
    EXPECT_NEAR(found.x[i], east[i], 1.0E-8F) << i;
    EXPECT_NEAR(found.z[i], down[i], 1.0E-8F) << i;  // keeps its mean
  }
}

// A slab with vertical sides at x = -30 and 30, its top at depth 3: the field over a side is an
// arc tangent. The grid fills the array, so that the slab goes on for ever along y.
TEST_P(PotentialField, tilt_is_zero_over_a_contact_and_45_degrees_its_depth_away) {
  const auto side = [](double x) { return std::atan(x / 3.0); };
  GridRun run(128, 64, 1.0, 1.0, GetParam(),
              [&](double x, double) { return side(x + 30.0) - side(x - 30.0); });
  const components theta = components_of(run, 109, {}, {0, 1, 0});
  const auto at = [&](double x) {
    const auto column = static_cast<std::size_t>(std::lround(x - run.lattice().x_min));
    return static_cast<double>(theta.map[std::size_t{30} * 128 + column]);
  };
  // Columns lie at halves: the contacts are half way between two cells.
  EXPECT_NEAR(0.5 * (at(-30.5) + at(-29.5)), 0.0, 2.0);
  EXPECT_NEAR(0.5 * (at(29.5) + at(30.5)), 0.0, 2.0);
  EXPECT_NEAR(at(-27.5) - at(-30.5),
              std::atan(2.5 / 3.0) / DegToRad + std::atan(0.5 / 3.0) / DegToRad, 3.0);
  EXPECT_GT(at(0.5), 80.0);
  EXPECT_LT(at(-50.5), -60.0);
}

TEST_P(PotentialField, total_gradient_of_the_integral_starts_from_the_integrated_spectrum) {
  // The vertical integral of a point mass's attraction is its potential.
  GridRun run = run_on(point_mass(6.0));
  const components found = components_of(run, 111, order_1, {0, 1, 0});
  // The vertical derivative of the integral is the field itself, but for its mean.
  std::vector<float> z = found.z;
  run.load(111, order_1);
  const double lost = static_cast<double>(z[50 * 120 + 60]) -
                      point_mass(6.0)(run.lattice().x(61), run.lattice().y(51));
  for (float& cell : z)
    cell -= static_cast<float>(lost);
  run.expect_field(z, point_mass(6.0), 0.01);
  run.expect_field(
      found.x,
      [](double x, double y) {  // of 1 / r
        return (3.0 - x) / std::pow((x - 3.0) * (x - 3.0) + (y + 2.0) * (y + 2.0) + 36.0, 1.5);
      },
      0.05, 30);
}

TEST(GradientSpectrum, a_layer_is_taken_from_the_spectrum_ahead_of_its_components) {
  for (const std::int32_t layers : {0, 1}) {  // of several the thickness comes in cells
    GridRun run(60, 50, 2.0, 4.0, 1, point_mass(8.0));
    run.load(212, {25.0F, 60.0F, 6.0F}, {0, 0, layers});
    run.forward();
    const std::vector<float> whole = run.array();
    const platform::BinaryFile layer = prepare_gradient_spectrum(run.stage(), run.parameters());
    ASSERT_TRUE(layer.is_open());
    EXPECT_EQ(run.parameters().Par1, 25.0F);
    EXPECT_EQ(run.parameters().Par2, 60.0F);
    std::vector<float> read(whole.size());
    read_fft_grid(layer, read);
    EXPECT_EQ(read, run.array());
    // Element (2, 1): a thickness of 6 is 3 cells.
    const double k = TwoPi / 64.0;
    EXPECT_NEAR(read[2], static_cast<double>(whole[2]) * (1.0 - std::exp(-3.0 * k)), 1.0E-6);
  }
}

}  // namespace
}  // namespace velmorankite
