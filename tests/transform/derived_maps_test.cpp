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

TEST(DerivedMaps, are_chosen_by_the_filter_and_its_option) {
  const auto map = [](std::int32_t filter, std::int32_t option) {
    filter_parameters p;
    p.FilterNo = filter;
    p.Opt2 = option;
    return derived_map_of(p);
  };
  EXPECT_EQ(map(106, 1), derived_map::total_gradient);
  EXPECT_EQ(map(111, 1), derived_map::total_gradient);
  EXPECT_EQ(map(212, 2), derived_map::total_gradient);
  EXPECT_EQ(map(109, 0), derived_map::tilt);
  EXPECT_EQ(map(109, 1), derived_map::theta);
  EXPECT_EQ(map(109, 2), derived_map::tdx);
  EXPECT_EQ(map(109, 3), derived_map::tilt);
}

TEST(DerivedMaps, components_are_named_beside_the_output) {
  struct example {
    const char* output;
    const char* first;
  };
  const example examples[] = {{"a.b.grd", "a.b_Tx.grd"},
                              {"a_WDtmp.grd", "a_Tx.grd"},
                              {"a_WDtmp.x_WDtmp.grd.grd  ", "a_WDtmp.x_Tx.grd"},
                              {"plain", "plain_Tx.grd"},
                              {"/v1.2/plain", "/v1.2/plain_Tx.grd"},
                              {"/v1.2/a.grd", "/v1.2/a_Tx.grd"}};
  for (const example& e : examples) {
    EXPECT_EQ(component_names(e.output)[0], e.first);
  }
  EXPECT_EQ(component_names("a.grd")[1], "a_Ty.grd");
  EXPECT_EQ(component_names("a.grd")[2], "a_Tz.grd");
}

TEST(GradientStage, filters_have_their_own_passes) {
  const auto passes = [](std::int32_t filter, std::int32_t opt_2, std::int32_t opt_3) {
    filter_parameters p;
    p.FilterNo = filter;
    p.Opt2 = opt_2;
    p.Opt3 = opt_3;
    return gradient_passes_of(p);
  };
  EXPECT_EQ(passes(106, 0, 0), gradient_passes::derivatives);
  EXPECT_EQ(passes(107, 0, 0), gradient_passes::euler_derivatives);
  EXPECT_EQ(passes(109, 0, 0), gradient_passes::derivatives);
  EXPECT_EQ(passes(109, 0, 1), gradient_passes::components);
  EXPECT_EQ(passes(109, 0, 2), gradient_passes::derivatives);
  EXPECT_EQ(passes(111, 0, 1), gradient_passes::none);
  EXPECT_EQ(passes(111, 1, 0), gradient_passes::derivatives);
  EXPECT_EQ(passes(212, 0, 0), gradient_passes::kept_components);
  EXPECT_EQ(passes(101, 1, 1), gradient_passes::none);
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
  const platform::BinaryFile input(run.folder() / "in.grd", platform::open_mode::read);
  platform::BinaryFile spectrum = platform::BinaryFile::anonymous();
  spectrum.write_values(513, std::span<const float>(run.array()));
  gradient_work_grids work = make_work_grids(run.run());
  FFTGRAD3(run.run(), 0.0F, input, {1, lattice.x_count, lattice.y_count}, spectrum, work);
  std::vector<float> kept(static_cast<std::size_t>(run.geometry().nxp));
  double sum = 0.0;
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    read_row(work.grids[2], work.layout, row + testing::pad_of_width_1, kept);
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      const float cell = kept[static_cast<std::size_t>(column + testing::pad_of_width_1 - 1)];
      if (valid(column, row)) sum += static_cast<double>(cell);
    }
  }
  EXPECT_NEAR(sum, 0.0, 1.0E-4);
  // The other two keep theirs: the X derivative of the hill is what it is.
  read_row(work.grids[0], work.layout, 15, kept);
  const double x = run.lattice().x(17);
  EXPECT_NEAR(kept[16], -x / 25.0 * hill(x, run.lattice().y(15)), 1.0E-3);
}

TEST(GradientStage, rows_of_a_map_are_integrated_in_place) {
  const auto hill = [](double x, double y) { return std::exp(-(x * x + y * y) / 200.0); };
  testing::GridRun run(64, 64, 1.0, 1.0, -2, hill);
  const std::vector<float> expected = run.filtered(111, {1.0F});
  run.parameters().Par1 = 7.0F;
  run.parameters().HiCut = 0.5F;
  integrate_padded_grid(run.run(), 0.0F, run.file(), run.layout());
  run.file().close();
  EXPECT_EQ(testing::first_difference(expected, testing::read_grid(run.folder() / "padded.grd")),
            "");
}

}  // namespace
}  // namespace velmorankite
