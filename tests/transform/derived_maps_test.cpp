// SPDX-License-Identifier: MIT
#include "transform/derived_maps.h"

#include <gtest/gtest.h>

#include <cmath>

#include "transform/grid_run.h"

namespace velmorankite {
namespace {

TEST(DerivedMaps, cells_by_their_three_components) {
  struct example {
    float a, b, c;
    float total, tilt, theta, tdx;
  };
  const float level = std::acos(0.9999F) * 57.29577F;
  const example examples[] = {{0.0F, 0.0F, 2.0F, 2.0F, 90.0F, 90.0F, 0.0F},
                              {0.0F, 0.0F, -1.0F, 1.0F, 90.0F, -90.0F, 0.0F},
                              {0.0F, 0.0F, 0.0F, 0.0F, 0.0F, 90.0F, 0.0F},
                              {1.0F, 0.0F, 0.0F, 1.0F, level, 0.0F, 90.0F},
                              {3.0F, 4.0F, 5.0F, std::sqrt(50.0F), 45.0F, 45.0F, 45.0F},
                              {3.0F, -4.0F, -5.0F, std::sqrt(50.0F), 45.0F, -45.0F, -45.0F}};
  for (const example& e : examples) {
    const auto value = [&](derived_map map) {
      float c = e.c;
      combine_row(map, std::span(&e.a, 1), std::span(&e.b, 1), std::span(&c, 1));
      return c;
    };
    EXPECT_FLOAT_EQ(value(derived_map::total_gradient), e.total);
    EXPECT_NEAR(value(derived_map::tilt), e.tilt, 2.0E-5);
    EXPECT_NEAR(value(derived_map::theta), e.theta, 2.0E-5);
    EXPECT_NEAR(value(derived_map::tdx), e.tdx, 2.0E-5);
  }
}

TEST(DerivedMaps, and_the_passes_to_them_are_chosen_by_the_filter_and_its_options) {
  using D = derived_map;
  using G = gradient_passes;
  struct example {
    std::int32_t filter, opt_2, opt_3;
    derived_map map;
    gradient_passes passes;
  };
  const example examples[] = {{106, 1, 0, D::total_gradient, G::derivatives},
                              {107, 0, 0, D::total_gradient, G::euler_derivatives},
                              {109, 0, 0, D::tilt, G::derivatives},
                              {109, 1, 1, D::theta, G::components},
                              {109, 2, 2, D::tdx, G::derivatives},
                              {109, 3, 0, D::tilt, G::derivatives},
                              {111, 0, 1, D::total_gradient, G::none},
                              {111, 1, 0, D::total_gradient, G::derivatives},
                              {212, 2, 0, D::total_gradient, G::kept_components},
                              {101, 1, 1, D::total_gradient, G::none}};
  for (const example& e : examples) {
    filter_parameters p;
    p.FilterNo = e.filter;
    p.Opt2 = e.opt_2;
    p.Opt3 = e.opt_3;
    EXPECT_EQ(derived_map_of(p), e.map) << e.filter << " " << e.opt_2;
    EXPECT_EQ(gradient_passes_of(p), e.passes) << e.filter << " " << e.opt_3;
  }
}

// An input with holes: the mean is that of the valid cells alone, and the whole window loses it.
TEST(GradientStage, mean_is_taken_over_the_valid_cells) {
  const auto hill = [](double x, double y) {
    return std::exp(-(x * x + (y - 3) * (y - 3)) / 50.0);
  };
  testing::GridRun run(40, 30, 1.0, 1.0, -2, hill);
  run.load(107, {1.0F});
  run.forward();
  const Lattice lattice = run.grid_lattice();
  const auto valid = [](std::int32_t column, std::int32_t row) { return row > 9 && column < 20; };
  testing::write_grid(run.folder() / "in.grd", lattice, [&](std::int32_t column, std::int32_t row) {
    return valid(column, row) ? 1.0F : dummy;
  });
  const RowFile input({run.folder() / "in.grd", platform::open_mode::read},
                      {1, lattice.x_count, lattice.y_count});
  platform::BinaryFile spectrum = platform::BinaryFile::anonymous();
  spectrum.write_values(513, std::span<const float>(run.array()));
  gradient_work_grids work = make_work_grids(run.stage());
  FFTGRAD3(run.stage(), run.parameters(), input, spectrum, work);
  std::vector<float> kept(static_cast<std::size_t>(run.geometry().nxp));
  double sum = 0.0;
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    work.grids[2].read(row + testing::pad_of_width_1, kept);
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      const float cell = kept[static_cast<std::size_t>(column + testing::pad_of_width_1 - 1)];
      if (valid(column, row)) sum += static_cast<double>(cell);
    }
  }
  EXPECT_NEAR(sum, 0.0, 1.0E-4);
  // The other two keep theirs: the X derivative of the hill is what it is.
  work.grids[0].read(15, kept);
  const double x = run.lattice().x(17);
  // What the third loses it loses everywhere, in the margin too.
  const std::vector<float> vertical = run.filtered(102, {1.0F});
  const auto lost = [&](std::int32_t row) {
    work.grids[2].read(row, kept);
    return vertical[testing::cell_index(3, row, 40)] - kept[2];
  };
  EXPECT_GT(std::abs(lost(15)), 1.0E-4F);
  EXPECT_NEAR(lost(1), lost(15), 1.0E-6F);
  EXPECT_NEAR(lost(30), lost(15), 1.0E-6F);
  work.grids[0].read(15, kept);
  EXPECT_NEAR(kept[16], -x / 25.0 * hill(x, run.lattice().y(15)), 1.0E-3);
}

TEST(GradientStage, components_of_a_field_lose_their_means) {
  const auto hill = [](double x, double y) {
    return std::exp(-(x * x + (y - 3) * (y - 3)) / 50.0);
  };
  for (const std::int32_t filter : {109, 212}) {
    testing::GridRun run(40, 30, 1.0, 1.0, -2, hill);
    run.load(filter, {25.0F, 60.0F}, {0, 0, filter == 109 ? 1 : 0});
    run.forward();
    const Lattice lattice = run.grid_lattice();
    testing::write_grid(run.folder() / "in.grd", lattice,
                        [](int column, int row) { return row > 9 && column < 20 ? 1.0F : dummy; });
    const RowFile input({run.folder() / "in.grd", platform::open_mode::read},
                        {1, lattice.x_count, lattice.y_count});
    platform::BinaryFile spectrum = platform::BinaryFile::anonymous();
    spectrum.write_values(513, std::span<const float>(run.array()));
    gradient_work_grids work = make_work_grids(run.stage());
    FFTGRAD3(run.stage(), run.parameters(), input, spectrum, work);
    const std::vector<float> third = run.window();
    for (std::size_t n = 0; n < 3; ++n) {
      double sum = 0.0;
      for (std::int32_t row = 10; row <= lattice.y_count; ++row) {
        std::vector<float> cells(40);
        if (n < 2) {
          work.grids[n].read(row + 4, cells);
        } else {
          std::copy_n(&third[testing::cell_index(1, row + 4, 40)], 40, cells.begin());
        }
        for (std::size_t column = 5; column < 24; ++column)
          sum += static_cast<double>(cells[column - 1]);
      }
      EXPECT_NEAR(sum, 0.0, 1.0E-4) << filter << " " << n;
    }
  }
}

TEST(GradientStage, rows_of_a_map_are_integrated_in_place) {
  const auto hill = [](double x, double y) { return std::exp(-(x * x + y * y) / 200.0); };
  testing::GridRun run(60, 50, 1.0, 1.0, -2, hill);
  const std::vector<float> expected = run.filtered(111, {1.0F});
  run.parameters().Par1 = 7.0F;
  run.parameters().HiCut = 0.5F;
  integrate_padded_grid(run.stage(), run.parameters(), run.padded());
  run.padded().close();
  EXPECT_EQ(testing::first_difference(expected, testing::read_grid(run.folder() / "padded.grd")),
            "");
}

}  // namespace
}  // namespace velmorankite
