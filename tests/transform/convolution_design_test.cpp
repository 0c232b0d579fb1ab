// SPDX-License-Identifier: MIT
#include "transform/convolution_design.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "support/grids.h"
#include "transform/filter_traits.h"
#include "transform/responses.h"

namespace velmorankite {
namespace {

const log_sink no_log = [](std::string_view) {};

filter_parameters parameters_of(std::int32_t filter, float par_1 = 1.0F, std::int32_t opt_1 = 0,
                                std::int32_t opt_2 = 0) {
  filter_parameters p;
  p.FilterNo = filter;
  p.Par1 = par_1;
  p.Opt1 = opt_1;
  p.Opt2 = opt_2;
  return p;
}

std::vector<float> symmetric(const filter_parameters& p, std::int32_t w) {
  std::vector<float> weights(static_cast<std::size_t>(w * w));
  EXPECT_EQ(WTSYM(p, w, weights, no_log), success);
  return weights;
}

std::vector<float> asymmetric(const filter_parameters& p, std::int32_t n) {
  std::vector<float> weights(static_cast<std::size_t>(n * n));
  EXPECT_EQ(WTASYM(p, n, weights, no_log), success);
  return weights;
}

// What a symmetric operator does to a wave of frequencies u, v: the sum over all its lags.
double gain(const std::vector<float>& weights, std::int32_t w, double u, double v) {
  double sum = 0.0;
  for (std::int32_t a = 1 - w; a < w; ++a) {
    for (std::int32_t b = 1 - w; b < w; ++b) {
      sum +=
          static_cast<double>(weights[testing::cell_index(std::abs(b) + 1, std::abs(a) + 1, w)]) *
          std::cos(TwoPi * (u * b + v * a));
    }
  }
  return sum;
}

TEST(SymmetricOperator, has_the_response_at_the_frequencies_that_it_was_sampled_at) {
  constexpr std::int32_t w = 6;
  for (const std::int32_t filter : {101, 102, 103, 104, 105, 106, 107, 109, 111, 114}) {
    filter_parameters p = parameters_of(filter, 1.5F, 1);
    p.Par2 = 2.0F;
    p.LoCut = 0.4F;
    const std::vector<float> weights = symmetric(p, w);
    for (std::int32_t k = 0; k < w; ++k) {
      for (std::int32_t l = 0; l < w; ++l) {
        const double u = k / 11.0;
        const double v = l / 11.0;
        const double expected = response_at(traits_of(filter).sampled, p, u, v).re;
        EXPECT_NEAR(gain(weights, w, u, v), expected, 2.0E-6 * (1.0 + expected))
            << filter << ": " << k << ", " << l;
      }
    }
  }
}

TEST(SymmetricOperator, without_a_response_is_the_identity) {
  const std::vector<float> weights = symmetric(parameters_of(110), 3);
  EXPECT_NEAR(weights[0], 1.0F, 1.0E-6);
  for (std::size_t i = 1; i < weights.size(); ++i)
    EXPECT_NEAR(weights[i], 0.0F, 1.0E-7);
  EXPECT_EQ(symmetric(parameters_of(110), 1), std::vector<float>{1.0F});
}

TEST(SymmetricOperator, smoothing_windows_sum_to_one) {
  // Bartlett, half width 2: 1, a half on the axes, 1 - sqrt(1/2) on the diagonals.
  const float corner = 1.0F - std::sqrt(0.5F);
  const float sum = 1.0F + 4.0F * 0.5F + 4.0F * corner;
  const std::vector<float> bartlett = symmetric(parameters_of(100, 0.0F, 1), 2);
  EXPECT_FLOAT_EQ(bartlett[0], 1.0F / sum);
  EXPECT_FLOAT_EQ(bartlett[1], 0.5F / sum);
  EXPECT_FLOAT_EQ(bartlett[2], 0.5F / sum);
  EXPECT_FLOAT_EQ(bartlett[3], corner / sum);
  struct example {
    std::int32_t window;
    double half_way;  // weight at half of the half width, over that of the centre
  };
  for (const example& e : {example{1, 0.5}, {2, 4.0 / (Pi * Pi)}, {3, 0.5}, {4, 0.54}, {5, 1.0}}) {
    const std::vector<float> weights = symmetric(parameters_of(100, 0.0F, e.window), 4);
    EXPECT_NEAR(gain(weights, 4, 0.0, 0.0), 1.0, 1.0E-6);
    EXPECT_NEAR(weights[2] / weights[0], e.half_way, 1.0E-6) << e.window;
    EXPECT_EQ(weights[15], 0.0F);  // beyond the half width
    const std::vector<float> residual = symmetric(parameters_of(100, 0.0F, e.window, 1), 4);
    EXPECT_NEAR(gain(residual, 4, 0.0, 0.0), 0.0, 1.0E-6);
    EXPECT_EQ(residual[2], -weights[2]);
    EXPECT_EQ(symmetric(parameters_of(100, 0.0F, e.window, 2), 4), weights);
  }
  const std::vector<float> hamming = symmetric(parameters_of(100, 0.0F, 4), 5);
  EXPECT_NEAR(hamming[4 * 5 + 3] / hamming[0], 0.08, 1.0E-6);  // right on the half width
  EXPECT_NEAR(hamming[1] / hamming[0], 0.54 - 0.46 * std::cos(0.8 * Pi), 1.0E-6);
}

TEST(SymmetricOperator, strike_takes_the_mean_along_the_strike_from_that_of_the_area) {
  filter_parameters p = parameters_of(115);
  p.Par3 = 0.009F;
  const std::vector<float> along_y = symmetric(p, 3);
  EXPECT_FLOAT_EQ(along_y[0], 1.0F + 1.0F / 25.0F - 0.2F);
  EXPECT_FLOAT_EQ(along_y[3], 1.0F / 25.0F - 0.2F);
  EXPECT_FLOAT_EQ(along_y[1], 1.0F / 25.0F);
  p.Par3 = -0.01F;
  const std::vector<float> along_x = symmetric(p, 3);
  EXPECT_FLOAT_EQ(along_x[1], 1.0F / 25.0F - 0.2F);
  EXPECT_FLOAT_EQ(along_x[3], 1.0F / 25.0F);
  EXPECT_NEAR(gain(along_x, 3, 0.0, 0.0), 1.0, 1.0E-6);
}

TEST(SymmetricOperator, is_refused_for_filters_that_have_none) {
  std::vector<float> weights(9, 7.0F);
  for (const std::int32_t filter : {99, 200, 212, 312}) {
    EXPECT_EQ(WTSYM(parameters_of(filter), 3, weights, no_log), operator_index_invalid);
  }
  for (const std::int32_t filter : {108, 112, 113, 116, 117, 150, 199}) {
    EXPECT_EQ(WTSYM(parameters_of(filter), 3, weights, no_log), operator_unknown);
  }
  EXPECT_EQ(WTSYM(parameters_of(101), 4, weights, no_log), operator_size_invalid);
  EXPECT_EQ(WTSYM(parameters_of(101), 0, weights, no_log), operator_size_invalid);
  EXPECT_EQ(weights, std::vector<float>(9, 7.0F));
}

TEST(SymmetricOperator, is_logged_with_its_sum) {
  std::vector<std::string> log;
  std::vector<float> weights(4);
  const auto sink = [&](std::string_view line) { log.emplace_back(line); };
  ASSERT_EQ(WTSYM(parameters_of(115), 2, weights, sink), success);
  ASSERT_EQ(log.size(), 5U);
  EXPECT_EQ(log[0], "");
  EXPECT_EQ(log[1].substr(0, 34), "Symmetric Filter coefficients : 0.");
  EXPECT_EQ(log[3], platform::shortest(weights[2]) + " " + platform::shortest(weights[3]));
  EXPECT_EQ(log[4], "");
}

TEST(AsymmetricOperator, has_the_response_at_the_frequencies_that_it_was_sampled_at) {
  constexpr std::int32_t n = 9;
  for (const std::int32_t filter :
       {101, 111, 201, 202, 203, 204, 206, 208, 209, 210, 211, 312, 313, 314}) {
    filter_parameters p = parameters_of(filter);
    p.Par2 = 60.0F;
    p.Par4 = 70.0F;
    MAGDIRCOS(p);
    set_direction(p, 30.0);
    const std::vector<float> weights = asymmetric(p, n);
    for (std::int32_t k = -4; k <= 4; ++k) {
      for (std::int32_t l = -4; l <= 4; ++l) {
        // out(x, y) = sum of weight(b, a) in(x - b, y - a), so a wave takes exp(-2 pi i (ub + va)).
        complex_response sum;
        for (std::int32_t a = -4; a <= 4; ++a) {
          for (std::int32_t b = -4; b <= 4; ++b) {
            const double phase = -TwoPi * (k * b + l * a) / n;
            const auto weight = static_cast<double>(weights[testing::cell_index(b + 5, a + 5, n)]);
            sum = sum + weight * complex_response{std::cos(phase), std::sin(phase)};
          }
        }
        const complex_response expected = response_at(
            traits_of(filter).response, p, static_cast<double>(k) / n, static_cast<double>(l) / n);
        // A phase flip is not odd on its edge: what the operator, being real, can keep of it.
        const complex_response opposite =
            response_at(traits_of(filter).response, p, static_cast<double>(-k) / n,
                        static_cast<double>(-l) / n);
        const double size = 1.0 + std::hypot(expected.re, expected.im);
        EXPECT_NEAR(sum.re, 0.5 * (expected.re + opposite.re), 1.0E-5 * size) << filter;
        EXPECT_NEAR(sum.im, 0.5 * (expected.im - opposite.im), 1.0E-5 * size) << filter;
      }
    }
  }
}

TEST(AsymmetricOperator, needs_a_response_and_an_odd_number_of_points_with_room_for_them) {
  std::vector<float> weights(16);
  for (const std::int32_t filter : {102, 200, 205, 212}) {
    EXPECT_EQ(WTASYM(parameters_of(filter), 3, std::span(weights).first(9), no_log),
              operator_without_response);
    EXPECT_EQ(weights[8], 1.0F);
  }
  for (const std::int32_t points : {4, 5, -3}) {
    EXPECT_EQ(WTASYM(parameters_of(204), points, weights, no_log), operator_size_invalid);
  }
  EXPECT_EQ(WTASYM(parameters_of(204), 1, weights, no_log), success);
}

TEST(FilterCoefficients, come_from_the_designer_of_their_index) {
  std::vector<float> weights(25, -1.0F);
  const auto calculate = [&](std::int32_t filter, float par_1, float par_2, double azimuth,
                             std::int32_t rows) {
    return CALC_FILTER_COEFFICIENTS(filter, 0, 0, 0.0F, 0.0F, par_1, par_2, 0.0F, 10.0, 5.0,
                                    azimuth, 5, rows, weights);
  };
  ASSERT_EQ(calculate(101, 1.5F, 0.0F, 0.0, 5), success);
  const std::vector<float> upward = symmetric(parameters_of(101, 1.5F), 3);
  EXPECT_EQ(std::vector<float>(weights.begin(), weights.begin() + 9), upward);
  EXPECT_EQ(weights[9], -1.0F);

  ASSERT_EQ(calculate(204, 1.0F, 0.0F, 90.0, 5), success);
  filter_parameters p = parameters_of(204);
  p.CellX = 10.0;
  p.CellY = 5.0;
  set_direction(p, 90.0);
  EXPECT_EQ(weights, asymmetric(p, 5));

  ASSERT_EQ(calculate(201, 25.0F, 60.0F, 0.0, 5), success);
  p = parameters_of(201, 25.0F);
  p.Par2 = p.Par4 = 60.0F;
  p.Par3 = 25.0F;
  MAGDIRCOS(p);
  EXPECT_EQ(weights, asymmetric(p, 5));
  EXPECT_EQ(calculate(201, 25.0F, 60.0F, 0.0, 3), operator_size_invalid);
  EXPECT_EQ(calculate(200, 0.0F, 0.0F, 0.0, 5), operator_without_response);
}

TEST(FilterCoefficients, take_every_parameter_to_its_field) {
  struct example {
    std::int32_t filter, opt_1, opt_2;
    float low_cut, high_cut, par_3;
  };
  for (const example& e : {example{100, 2, 1, 0.0F, 0.0F, 0.0F},
                           {111, 0, 0, 0.9F, 0.0F, 0.0F},
                           {115, 0, 0, 0.0F, 0.0F, 0.0F},
                           {204, 0, 0, 0.0F, 0.5F, 0.0F}}) {
    std::vector<float> weights(e.filter < 200 ? 9 : 25);
    ASSERT_EQ(CALC_FILTER_COEFFICIENTS(e.filter, e.opt_1, e.opt_2, e.low_cut, e.high_cut, 1.0F,
                                       0.0F, e.par_3, 1.0, 1.0, 0.0, 5, 5, weights),
              success);
    filter_parameters p = parameters_of(e.filter, 1.0F, e.opt_1, e.opt_2);
    p.LoCut = e.low_cut;
    p.HiCut = e.high_cut;
    p.Par3 = e.par_3;
    EXPECT_EQ(weights, e.filter < 200 ? symmetric(p, 3) : asymmetric(p, 5)) << e.filter;
    EXPECT_EQ(CALC_FILTER_COEFFICIENTS(e.filter, 0, 0, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0, 1.0, 0.0,
                                       4, 4, weights),
              operator_size_invalid);
  }
}

}  // namespace
}  // namespace velmorankite
