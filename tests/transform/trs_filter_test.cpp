// SPDX-License-Identifier: MIT
#include "transform/trs_filter.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace velmorankite {
namespace {

using lines = std::vector<std::string>;

// What a call of TRSFLT is given, with the values that a test leaves alone.
struct filter_call {
  std::int32_t filter = 101;
  std::array<std::int32_t, integer_parameters> integers{};
  std::array<float, real_parameters> reals{};
  float high_cut = 0.0F;
  float low_cut = 0.0F;
  float azimuth = 0.0F;
  std::int32_t road = 1;
  double x_cell = 2.0;
  double y_cell = 4.0;
};

struct loaded {
  filter_parameters parameters;
  lines log;
  Status status;
};

loaded load(const filter_call& call, const filter_parameters& before = {}) {
  loaded result{before, {}, success};
  result.status = TRSFLT(call.filter, 7, 2, call.road, call.high_cut, call.low_cut, call.azimuth,
                         call.integers, call.reals, call.x_cell, call.y_cell, result.parameters,
                         [&](std::string_view line) { result.log.emplace_back(line); });
  return result;
}

TEST(FilterCatalogue, each_filter_logs_its_title_and_then_its_fields) {
  struct example {
    filter_call call;
    lines log;
    std::string short_name;
  };
  const example examples[] = {
      {{100, {3, 1, 0}, {}, 0.5F},
       {"Smoothing filter", "Residual: Yes", "High Frequency Cutoff: 0.5"},
       "Smoothing"},
      {{100, {3, 0, 0}, {}, 1.5F}, {"Smoothing filter", "Residual: No"}, "Smoothing"},
      {{101, {}, {-2.5F}}, {"Continuation: ", "Distance: -2.5"}, "Continuation"},
      {{102, {}, {1.0F}, 0.25F}, {"Vert gradient: ", "Order: 1", "HF: 0.25"}, "VG"},
      {{103, {}, {10.0F, 20.0F}}, {"Magnetic layer extraction: ", "Top: 10", "Thick: 20"}, "MLE"},
      {{105, {2, 0, 0}, {8.0F}},
       {"Reste Residual: ", "Polynomial Order: 2", "UC dist: 8"},
       "Reste"},
      {{106, {0, 1, 0}, {}, 0.5F, 0.1F},
       {"Total gradient: ", "HF: 0.5", "VI: Yes", "LF: 0.1"},
       "AS"},
      {{106, {}, {}, 0.5F, 0.1F}, {"Total gradient: ", "HF: 0.5", "VI: No"}, "AS"},
      {{108, {4, 0, 0}},
       {"Log spectral slope: ", "Window width: 7", "Window step: 4"},
       "LogSpectralSlope"},
      {{109, {0, 1, 1}, {25.0F, 60.0F}},
       {"Theta map", "Calculated using mag field components", "Incl, Dec: 60 25", "HF: 0"},
       "ThetaMap"},
      {{109, {0, 2, 0}, {25.0F, 60.0F}},
       {"TDX map", "Calculated using mag derivative components", "HF: 0"},
       "TDXMap"},
      {{109, {0, 0, 2}},
       {"Tilt map", "Calculated using mag derivative components", "HF: 0"},
       "TiltMap"},
      {{109, {0, 7, 0}},
       {"Tilt map", "Calculated using mag derivative components", "HF: 0"},
       "TiltMap"},
      {{111, {0, 1, 0}, {1.0F}, 1.0F, 0.2F},
       {"Vertical integral: ", "Order: 1", "LF: 0.2", "AS: Yes", "High Frequency Cutoff: 1"},
       "VI"},
      {{111, {}, {2.0F}, 1.0F, 0.2F},
       {"Vertical integral: ", "Order: 2", "LF: 0.2", "AS: No"},
       "VI"},
      {{112}, {"Hole fill: "}, "HoleFill"},
      {{113, {0, 1, 0}, {1.0F, 2.0F, 3.0F, 4.0F}},
       {"Incl, Dec: 2 1", "Remanent Incl, Dec: 4 3", "Stabilization Applied: Yes"},
       ""},
      {{115, {}, {20.0F, 10.0F, 2.0F}, 0.0F, 0.0F, -30.0F},
       {"Strike filter: ", "Azim: -30", "Block: 20", "Roll-off: 10", "Crossline-filter: 2"},
       "SF"},
      {{115, {}, {20.0F, 10.0F, 2.0F}, 0.0F, 0.0F, -30.0F, 0},
       {"Strike filter: ", "Azim: -30"},
       "SF"},
      {{201, {0, 0, 1}, {25.0F, 60.0F, 10.0F, 20.0F}},
       {"Reduction to the pole: ", "Incl, Dec: 60 25", "Remanent Incl, Dec: 20 10",
        "Stabilization Applied: No", "Variable RTP: Yes"},
       "RTP"},
      {{204, {}, {1.0F, 90.0F}, 0.75F, 0.0F, 15.0F},
       {"horizontal grad", "Order: 1", "Direction: 90", "Grid azim: 15",
        "High Frequency Cutoff: 0.75"},
       "HG"},
      {{211, {}, {}, 0.0F, 0.0F, -90.0F}, {"Phase flip: ", "Azim: 270"}, "PhaseFlip"},
      {{212, {0, 1, 1}, {25.0F, 60.0F, 100.0F, 0.0F, 0.0F, 1.0F}},
       {"TMI VRMI: ", "Incl, Dec: 60 25", "Stabilization Applied: Yes", "Layer thickness: 100",
        "Multilayer: Yes", "Variable VRMI: Yes"},
       "VRMI"}};
  for (const example& e : examples) {
    const loaded result = load(e.call);
    EXPECT_EQ(result.status, success);
    EXPECT_EQ(result.log, e.log) << e.call.filter;
    EXPECT_EQ(result.parameters.ShortName, e.short_name) << e.call.filter;
    EXPECT_EQ(result.parameters.FilterNo, e.call.filter);
  }
  // The ensemble keeps the name of the run before, the one without a name does not.
  const filter_parameters before = load({102}).parameters;
  EXPECT_EQ(load({205}, before).parameters.ShortName, "VG");
  EXPECT_EQ(load({113}, before).parameters.ShortName, "");
}

TEST(FilterCatalogue, distances_come_in_cells_of_the_x_axis) {
  struct example {
    filter_call call;
    std::array<float, 3> parameters;
  };
  const example examples[] = {
      {{101, {}, {-3.0F, 5.0F, 7.0F}}, {-1.5F, 5.0F, 7.0F}},
      {{102, {}, {3.0F, 5.0F, 7.0F}}, {3.0F, 5.0F, 7.0F}},
      {{104, {}, {3.0F, 5.0F, 7.0F}}, {1.5F, 2.5F, 7.0F}},
      {{105, {}, {3.0F, 5.0F, 7.0F}}, {1.5F, 5.0F, 7.0F}},
      {{106, {}, {3.0F, 5.0F, 7.0F}}, {1.0F, 5.0F, 7.0F}},
      {{107, {}, {3.0F, 5.0F, 7.0F}}, {1.0F, 5.0F, 7.0F}},
      {{114, {}, {3.0F, 5.0F, 7.0F}}, {1.5F, 2.5F, 3.5F}},
      {{115, {}, {3.0F, 5.0F, -7.0F}}, {3.0F, 2.5F, 7.0F}},
      {{115, {}, {3.0F, 5.0F, 2.0F}}, {3.0F, 2.5F, 5.0F}},
      {{117, {}, {3.0F, 5.0F, 7.0F}}, {1.5F, 2.5F, 7.0F}},
      {{212, {0, 0, 0}, {3.0F, 5.0F, 7.0F}}, {3.0F, 5.0F, 7.0F}},
      {{212, {0, 0, 1}, {3.0F, 5.0F, 7.0F}}, {3.0F, 5.0F, 3.5F}},
  };
  for (const example& e : examples) {
    const filter_parameters p = load(e.call).parameters;
    EXPECT_EQ((std::array{p.Par1, p.Par2, p.Par3}), e.parameters) << e.call.filter;
  }
}

TEST(FilterCatalogue, indices_outside_the_range_are_refused_with_nothing_loaded) {
  for (const std::int32_t index : {99, 213, 312, -1}) {
    const loaded result = load({index});
    EXPECT_EQ(result.status, filter_index_invalid);
    EXPECT_EQ(result.log, lines{"Filter Index is invalid: " + std::to_string(index)});
    EXPECT_EQ(result.parameters.FilterNo, 0);
  }
}

TEST(FilterCatalogue, order_of_a_horizontal_derivative_must_not_vanish) {
  for (const std::int32_t filter : {204, 206, 207, 208, 209, 210}) {
    const loaded result = load({filter, {}, {-0.005F, 30.0F}});
    EXPECT_EQ(result.status, derivative_order_invalid) << filter;
    ASSERT_EQ(result.log.size(), 5U);
    EXPECT_EQ(result.log[1], "Derivative Order is invalid: -0.005");
    EXPECT_EQ(result.log[4], "Grid azim: 0");
  }
  EXPECT_EQ(load({204, {}, {0.01F}}).status, success);
  EXPECT_EQ(load({205, {}, {0.0F}}).status, success);
}

TEST(FilterCatalogue, azimuths_are_brought_into_their_range) {
  struct example {
    std::int32_t filter;
    float given, loaded;
  };
  const example examples[] = {{115, -30.0F, -30.0F},  {115, 90.0F, -90.0F},  {115, 89.5F, 89.5F},
                              {115, 180.0F, 0.0F},    {115, 360.0F, 0.0F},   {115, 450.0F, -90.0F},
                              {115, 300.0F, -60.0F},  {115, -360.0F, 0.0F},  {115, -400.0F, -40.0F},
                              {115, 1200.0F, -60.0F}, {115, -500.0F, 40.0F}, {211, -90.0F, 270.0F},
                              {211, 370.0F, 10.0F},   {211, 360.0F, 0.0F}};
  for (const example& e : examples) {
    filter_call call{e.filter};
    call.azimuth = e.given;
    EXPECT_EQ(load(call).parameters.Azim, e.loaded) << e.filter << " at " << e.given;
  }
  // An operator of the strike filter gets its cosine and sine.
  const filter_call call{115, {}, {20.0F, 10.0F, 2.0F}, 0.0F, 0.0F, 210.0F, 0};
  const filter_parameters p = load(call).parameters;
  EXPECT_FLOAT_EQ(p.Par2, std::sqrt(0.75F));
  EXPECT_FLOAT_EQ(p.Par3, 0.5F);
  EXPECT_EQ(p.Par1, 20.0F);
  // That of an angle map is designed for the first derivative.
  filter_call map{109, {}, {25.0F, 60.0F}};
  EXPECT_EQ(load(map).parameters.Par1, 25.0F);
  map.road = 0;
  EXPECT_EQ(load(map).parameters.Par1, 1.0F);
}

TEST(Directions, cosines_point_along_the_field_and_never_lie_flat) {
  filter_parameters p;
  p.Par1 = 25.0F;
  p.Par2 = 60.0F;
  p.Par3 = 180.0F;
  p.Par4 = -0.1F;
  MAGDIRCOS(p);
  EXPECT_NEAR(p.MagL, 0.5 * std::sin(25.0 * M_PI / 180.0), 1.0E-15);
  EXPECT_NEAR(p.MagM, 0.5 * std::cos(25.0 * M_PI / 180.0), 1.0E-15);
  EXPECT_NEAR(p.MagN, std::sqrt(0.75), 1.0E-15);
  EXPECT_NEAR(p.RemM, -1.0, 1.0E-5);
  EXPECT_EQ(p.RemN, static_cast<double>(-0.01F));
  EXPECT_EQ(p.MagRemN, p.MagN * p.RemN);
  p.Par2 = 0.0F;
  MAGDIRCOS(p);
  EXPECT_EQ(p.MagN, static_cast<double>(0.01F));
  EXPECT_EQ(p.MagNN, p.MagN * p.MagN);
}

TEST(Directions, are_set_up_for_the_filters_that_have_one) {
  filter_call call{204, {}, {1.0F, 75.0F}};
  call.azimuth = 15.0F;
  EXPECT_NEAR(load(call).parameters.DirSin, std::sqrt(0.75), 1.0E-15);
  EXPECT_NEAR(load(call).parameters.DirCos, 0.5, 1.0E-15);
  call.filter = 116;
  EXPECT_NEAR(load(call).parameters.DirSin, std::sin(15.0 * M_PI / 180.0), 1.0E-15);
  const std::array<float, real_parameters> level{90.0F, 30.0F};
  for (const std::int32_t filter : {200, 201, 202, 203, 212}) {
    EXPECT_NEAR(load({filter, {}, level}).parameters.MagN, 0.5, 1.0E-15) << filter;
  }
  EXPECT_NEAR(load({109, {0, 0, 1}, level}).parameters.MagN, 0.5, 1.0E-15);
  EXPECT_EQ(load({109, {0, 0, 0}, level}).parameters.MagN, 1.0);
}

}  // namespace
}  // namespace velmorankite
