// SPDX-License-Identifier: MIT
#include "transform/responses.h"
#include "transform/filter_traits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "transform/radial_responses.h"

namespace velmorankite {
namespace {

using P = filter_parameters;
using R = response_id;

P with(std::initializer_list<float> reals, std::int32_t opt_1 = 0, std::int32_t opt_2 = 0) {
  P p;
  float P::*const fields[] = {&P::Par1, &P::Par2, &P::Par3, &P::Par4};
  std::size_t i = 0;
  for (const float value : reals)
    p.*fields[i++] = value;
  p.Opt1 = opt_1;
  p.Opt2 = opt_2;
  return p;
}

P cut(P p, float high, float low = 0.0F) {
  p.HiCut = high;
  p.LoCut = low;
  return p;
}

P celled(P p, double x, double y) {
  p.CellX = x;
  p.CellY = y;
  return p;
}

P facing(P p, double degrees) {
  set_direction(p, degrees);
  return p;
}

P strike_at(P p, float azimuth) {
  p.Azim = azimuth;
  return p;
}

P magnetised(std::initializer_list<float> reals, std::int32_t stabilised = 0) {
  P p = with(reals, 0, stabilised);
  MAGDIRCOS(p);
  return p;
}

struct example {
  std::string what;
  R response;
  P parameters;
  double u, v;
  double re, im = 0.0;
};

void expect_values(const std::vector<example>& examples) {
  for (const example& e : examples) {
    const complex_response value = response_at(e.response, e.parameters, e.u, e.v);
    const double tolerance = 3.0E-7 * (1.0 + std::abs(e.re) + std::abs(e.im));
    EXPECT_NEAR(value.re, e.re, tolerance) << e.what;
    EXPECT_NEAR(value.im, e.im, tolerance) << e.what;
  }
}

constexpr double quarter = 0.25;
const double k5 = TwoPi * 0.05;  // of u = 0.03, v = 0.04

TEST(RadialResponses, smoothing_windows_fall_to_zero_at_the_nyquist_frequency) {
  expect_values({
      {"Bartlett half way", R::smooth, with({}, 1), quarter, 0.0, 0.5},
      {"squared sinc half way", R::smooth, with({}, 2), 0.0, quarter, 8.0 / (Pi * Pi)},
      {"Hann half way", R::smooth, with({}, 3), quarter, 0.0, 0.5},
      {"Hann off the axes", R::smooth, with({}, 3), 0.15, 0.2, 0.5},
      {"Hamming half way", R::smooth, with({}, 4), quarter, 0.0, 0.54},
      {"roll-off: flat up to its knee", R::smooth, with({}), 0.4375, 0.0, 1.0},
      {"roll-off: half way down", R::smooth, with({}), 0.46875, 0.0, 0.5},
      {"roll-off as wide as HiCut says", R::smooth, cut(with({}), 1.0F), 0.4375, 0.0, 0.5},
      {"roll-off wider than any cutoff", R::smooth, cut(with({}), 1.5F), 0.40625, 0.0, 0.5},
      {"corner", R::smooth, with({}, 4), 0.4, 0.4, 0.0},
      {"Hamming between", R::smooth, with({}, 4), 0.375, 0.0, 0.54 - 0.46 * std::sqrt(0.5)},
      {"Hamming at the Nyquist frequency", R::smooth, with({}, 4), 0.5, 0.0, 0.08},
      {"zero frequency", R::smooth, with({}, 2), 0.0, 0.0, 1.0},
      {"residual at zero frequency", R::smooth, with({}, 3, 1), 0.0, 0.0, 0.0},
      {"residual in the corner", R::smooth, with({}, 1, 1), 0.4, 0.4, 1.0},
      {"residual half way", R::smooth, with({}, 4, 1), quarter, 0.0, 0.46},
      {"no residual", R::smooth, with({}, 4, 2), quarter, 0.0, 0.54},
  });
}

TEST(RadialResponses, continuation_decays_upwards_and_is_capped_downwards) {
  const double k_of_cap = std::log(20.0) / TwoPi;
  expect_values({
      {"upwards", R::continuation, with({2.0F}), 0.03, 0.04, std::exp(-2.0 * k5)},
      {"downwards", R::continuation, with({-2.0F}), 0.03, -0.04, std::exp(2.0 * k5)},
      {"short of the cap", R::continuation, with({-1.0F}), k_of_cap * 0.99, 0.0,
       std::pow(20.0, 0.99)},
      {"at the cap", R::continuation, with({-1.0F}), k_of_cap * 1.01, 0.0, 20.0},
      {"mean", R::continuation, with({5.0F}), 0.0, 0.0, 1.0},
  });
}

TEST(RadialResponses, vertical_derivatives_and_integrals_are_powers_of_the_wavenumber) {
  const P cells = celled(with({1.5F}), 4.0, 9.0);
  const P first = celled(with({1.0F}), 4.0, 9.0);
  expect_values({
      {"order 1", R::vertical_derivative, first, 0.03, 0.04, k5 / 6.0},
      {"order 1.5", R::vertical_derivative, cells, 0.03, 0.04, std::pow(k5 / 6.0, 1.5)},
      {"order 1.5 of the mean", R::vertical_derivative, cells, 0.0, 0.0, 0.0},
      {"no ramp on its own", R::vertical_derivative, cut(first, 0.1F), 0.03, 0.04, k5 / 6.0},
      {"integral", R::vertical_integral, cells, 0.03, 0.04, std::pow(k5 / 6.0, -1.5)},
      {"integral of the mean", R::vertical_integral, first, 0.0, 0.0, 1.0},
      {"with a low cut", R::vertical_integral, cut(first, 0.0F, 0.5F), 0.0, 0.0, 0.0},
      {"on the ramp", R::vertical_integral, cut(first, 0.0F, 0.8F), 0.03, 0.04, 0.5 * 6.0 / k5},
      {"above the ramp", R::vertical_integral, cut(first, 0.0F, 0.4F), 0.03, 0.04, 6.0 / k5},
      {"no ramp without a cutoff", R::vertical_integral, cut(first, 0.0F, 1.5F), 0.03, 0.04,
       6.0 / k5},
      {"close to the mean", R::vertical_integral, first, 0.0, 1.1E-4, 6.0 / (TwoPi * 1.1E-4)},
      {"derivative of integral", R::vertical_derivative_of_integral, cells, 0.03, 0.04, 1.0},
  });
}

TEST(RadialResponses, layers_and_the_reste_residual) {
  const double x = -2.0 * TwoPi * 1.0E-4;
  expect_values({
      {"magnetic layer", R::magnetic_layer, with({1.0F, 2.0F}), 0.03, 0.04,
       std::exp(-k5) * (1.0 - std::exp(-2.0 * k5))},
      {"gravity layer", R::gravity_layer, with({1.0F, 2.0F}), 0.03, 0.04,
       k5 * std::exp(-k5) * (1.0 - std::exp(-2.0 * k5))},
      {"order 0", R::reste, with({2.0F}, 0), 0.03, 0.04, std::exp(-2.0 * k5) - 1.0},
      {"negative order", R::reste, with({2.0F}, -4), 0.03, 0.04, std::exp(-2.0 * k5) - 1.0},
      {"order 2", R::reste, with({2.0F}, 2), 0.03, 0.04,
       std::exp(-2.0 * k5) - (1.0 - 2.0 * k5 + 2.0 * k5 * k5)},
      {"very high order", R::reste, with({2.0F}, 2147483647), 0.03, 0.04, 0.0},
  });
  EXPECT_NEAR(response_at(R::reste, with({2.0F}, 1), 0.0, 1.0E-4).re / (x * x / 2.0), 1.0, 1.0E-3);
}

TEST(DirectionalResponses, strike_filter_stops_waves_along_its_direction) {
  const P sharp = with({20.0F, 0.0F});
  const P tapered = with({20.0F, 10.0F});
  const auto at = [](double degrees, double r) {
    return std::pair{r * std::cos(degrees * DegToRad), r * std::sin(degrees * DegToRad)};
  };
  struct turn {
    std::string what;
    P parameters;
    double degrees, direction;  // of the wave; its share by direction alone
  };
  const turn turns[] = {
      {"along", sharp, 0.0, 0.0},
      {"inside the block", sharp, 19.9, 0.0},
      {"outside the block", sharp, -20.1, 1.0},
      {"the other way round", sharp, 180.0, 0.0},
      {"across", sharp, 90.0, 1.0},
      {"turned", strike_at(sharp, -60.0F), 135.0, 0.0},
      {"turned off", strike_at(sharp, -60.0F), 60.0, 1.0},
      {"taper inside", tapered, 9.9, 0.0},
      {"taper half way", tapered, 20.0, 0.5},
      {"taper outer half", tapered, -155.0, 0.5 * (1.0 + std::sqrt(0.5))},
      {"taper inner half", tapered, 15.0, 0.5 * (1.0 - std::sqrt(0.5))},
      {"taper outside", tapered, 30.1, 1.0},
      {"taper turned", strike_at(tapered, 30.0F), 50.0, 0.5},
      {"block of the whole circle", with({90.0F, 5.0F}), 60.0, 0.0},
      {"across a block of the whole circle", with({90.0F, 5.0F}), 90.0, 0.5},
      {"just inside the edge", sharp, -19.99995, 0.0},
      {"just outside the edge", sharp, 20.00005, 1.0},
      {"just inside it, the other way round", sharp, 160.00005, 0.0},
      {"just inside it, the third way round", sharp, -160.00005, 0.0},
      {"a roll-off below 0 widens the block", with({20.0F, -10.0F}), 25.0, 0.0},
      {"just inside the widened block", with({20.0F, -10.0F}), 29.99995, 0.0},
      {"no block", with({0.0F, 0.0F}), 0.0, 1.0},
  };
  for (const turn& t : turns) {
    const auto [u, v] = at(t.degrees, 0.05);
    const double roll_off = static_cast<double>(t.parameters.Par2);
    const double shortness = roll_off > 0.0 ? 1.0 - std::exp(-roll_off * k5) : 1.0;
    expect_values({{t.what, R::strike, t.parameters, u, v, 1.0 - (1.0 - t.direction) * shortness}});
  }
  expect_values({{"zero frequency", R::strike, sharp, 0.0, 0.0, 1.0},
                 {"on the edge", R::strike, with({45.0F, 0.0F}), 0.05, 0.05, 1.0}});
}

TEST(DirectionalResponses, tensor_components_and_their_inverses) {
  const double rr = 0.03 * 0.03 + 0.04 * 0.04;
  const P turned = facing(with({}, 0, -1), 90.0);  // the axes swap
  const double c = std::sqrt(0.75);
  const double s = 0.5;
  expect_values({
      {"cross term", R::tensor, with({}, 0, -4), 0.03, 0.04, -0.03 * 0.04 / rr},
      {"difference", R::tensor, with({}, 0, -3), 0.03, 0.04, -(9.0 - 16.0) / 25.0},
      {"second pair", R::tensor, with({}, 0, -2), 0.03, 0.04, (9.0 + 32.0) / 25.0},
      {"first pair", R::tensor, with({}, 0, -1), 0.03, 0.04, (18.0 + 16.0) / 25.0},
      {"others", R::tensor, with({}, 0, 0), 0.03, 0.04, (18.0 + 16.0) / 25.0},
      {"turned", R::tensor, turned, 0.03, 0.04, (32.0 + 9.0) / 25.0},
      {"turned by 30 degrees", R::tensor, facing(with({}, 0, -4), 30.0), 0.03, 0.04,
       -(0.03 * c + 0.04 * s) * (0.04 * c - 0.03 * s) / rr},
      {"zero frequency", R::tensor, with({}, 0, -1), 0.0, 0.0, 0.0},
      {"close to it", R::tensor, with({}, 0, -1), 0.0, 5.0E-5, 1.0},
      {"nothing to divide by", R::tensor, with({}, 0, 4), 0.03, 0.0, 0.0},
      {"no difference", R::tensor, with({}, 0, 3), 0.03, 0.03, 0.0},
  });
  for (const std::int32_t component : {1, 2, 3, 4}) {
    P direct = facing(with({}, 0, -component), 17.0);
    P inverse = facing(with({}, 0, component), 17.0);
    EXPECT_NEAR(response_at(R::tensor, direct, 0.03, 0.04).re *
                    response_at(R::tensor, inverse, 0.03, 0.04).re,
                1.0, 1.0E-12);
  }
}

TEST(DirectionalResponses, horizontal_derivatives_turn_the_phase_by_quarters) {
  const double t = TwoPi * 0.03 / 4.0;
  const P cells = celled(with({1.0F}), 4.0, 9.0);
  expect_values({
      {"d/dx", R::horizontal_derivative, facing(cells, 90.0), 0.03, 0.04, 0.0, t},
      {"d/dx of the opposite wave", R::horizontal_derivative, facing(cells, 90.0), -0.03, 0.04, 0.0,
       -t},
      {"d/dy", R::horizontal_derivative, facing(cells, 0.0), 0.03, 0.04, 0.0, TwoPi * 0.04 / 9.0},
      {"order 2", R::horizontal_derivative, facing(celled(with({2.0F}), 4.0, 9.0), 90.0), -0.03,
       0.04, -t * t, 0.0},
      {"order 3", R::horizontal_derivative, facing(celled(with({3.0F}), 4.0, 9.0), 90.0), 0.03,
       0.04, 0.0, -t * t * t},
      {"order 4", R::horizontal_derivative, facing(celled(with({4.0F}), 4.0, 9.0), 90.0), -0.03,
       0.04, t * t * t * t, 0.0},
      {"order 1/2", R::horizontal_derivative, facing(celled(with({0.5F}), 4.0, 9.0), 90.0), -0.03,
       0.04, std::sqrt(t / 2.0), -std::sqrt(t / 2.0)},
      {"order -1", R::horizontal_derivative, facing(celled(with({-1.0F}), 4.0, 9.0), 90.0), 0.03,
       0.04, 0.0, -1.0 / t},
      {"order -2", R::horizontal_derivative, facing(celled(with({-2.0F}), 4.0, 9.0), 90.0), 0.03,
       0.04, -1.0 / (t * t), 0.0},
      {"integral along a level", R::horizontal_derivative, facing(with({-1.0F}), 90.0), 0.0, 0.04,
       0.0, 0.0},
      {"on the ramp", R::horizontal_derivative, cut(facing(cells, 90.0), 1.0F), 0.3125, 0.0, 0.0,
       0.5 * TwoPi * 0.3125 / 4.0},
      {"of the vertical derivative", R::horizontal_of_vertical_derivative, facing(cells, 90.0),
       0.03, 0.04, 0.0, t * k5 / 6.0},
      {"of the vertical integral", R::horizontal_of_vertical_integral, facing(cells, 90.0), 0.03,
       0.04, 0.0, t * 6.0 / k5},
      {"d2/dxdy", R::second_cross_derivative, facing(cells, 33.0), 0.03, 0.04,
       -t * TwoPi * 0.04 / 9.0, 0.0},
  });
}

TEST(DirectionalResponses, phase_flip_turns_the_two_sides_of_its_direction_apart) {
  const auto at = [](std::string what, float angle, double degrees, double im) {
    return example{std::move(what),
                   R::phase_flip,
                   with({angle}),
                   0.05 * std::cos(degrees * DegToRad),
                   0.05 * std::sin(degrees * DegToRad),
                   0.0,
                   im};
  };
  expect_values({at("near", 0.0F, 60.0, -1.0),
                 at("far", 0.0F, -60.0, 1.0),
                 at("cubic ahead of the edge", 0.0F, 0.5, -0.125),
                 at("cubic behind the edge", 0.0F, -0.5, 0.125),
                 at("over the back", 350.0F, 60.0, -1.0),
                 at("angle turned", 90.0F, 175.0, -1.0),
                 at("close ahead of the edge", 0.0F, 2.0, -1.0),
                 at("close behind the edge", 0.0F, -2.0, 1.0),
                 at("over the front", -250.0F, 150.0, -1.0),
                 at("on the edge over the back", 239.5F, 60.0, 0.125),
                 {"zero frequency", R::phase_flip, with({30.0F}), 0.0, 0.0, 0.0, 0.0}});
}

// The direction of a field of dip I and azimuth D along the wave (u, v), over its downward part.
double slope(float dip, float azimuth, double u, double v) {
  const double d = static_cast<double>(azimuth) * DegToRad;
  const double horizontal = (u * std::sin(d) + v * std::cos(d)) / std::hypot(u, v);
  return horizontal / std::tan(static_cast<double>(dip) * DegToRad);
}

TEST(MagneticResponses, reduction_to_the_pole_undoes_the_directions_of_field_and_remanence) {
  const double u = 0.03;
  const double v = -0.04;
  const double a = slope(60.0F, 25.0F, u, v);
  const double b = slope(-40.0F, 200.0F, u, v);
  const double n = std::sin(60.0 * DegToRad) * std::sin(-40.0 * DegToRad);
  const complex_response pole =
      response_at(R::pole, magnetised({25.0F, 60.0F, 200.0F, -40.0F}), u, v);
  const complex_response anomaly{n * (1.0 - a * b), n * (a + b)};  // of what stands on the pole
  const complex_response product = pole * anomaly;
  EXPECT_NEAR(product.re, 1.0, 1.0E-6);
  EXPECT_NEAR(product.im, 0.0, 1.0E-6);
  expect_values({{"vertical", R::pole, magnetised({25.0F, 90.0F, 0.0F, 90.0F}), u, v, 1.0, 0.0},
                 {"mean", R::pole, magnetised({25.0F, 60.0F, 25.0F, 60.0F}), 0.0, 0.0, 1.0, 0.0}});
}

TEST(MagneticResponses, stabilised_reduction_blends_45_degrees_with_a_change_of_sign) {
  const double u = 0.03;
  const double v = -0.04;
  const complex_response at_45 =
      response_at(R::pole, magnetised({25.0F, 45.0F, 25.0F, 45.0F}), u, v);
  const complex_response at_minus_45 =
      response_at(R::pole, magnetised({25.0F, -45.0F, 25.0F, -45.0F}), u, v);
  const double w = 0.5;  // sin of twice 15 degrees
  expect_values({
      {"equator", R::pole, magnetised({25.0F, 0.0F}, 1), u, v, -1.0, 0.0},
      {"mean", R::pole, magnetised({25.0F, 0.0F}, 1), 0.0, 0.0, 1.0, 0.0},
      {"15 degrees", R::pole, magnetised({25.0F, 15.0F}, 1), u, v, w * at_45.re - 1.0 + w,
       w * at_45.im},
      {"-15 degrees", R::pole, magnetised({25.0F, -15.0F}, 1), u, v, w * at_minus_45.re - 1.0 + w,
       w * at_minus_45.im},
      {"steep", R::pole, magnetised({25.0F, 45.0F, 25.0F, 45.0F}, 1), u, v, at_45.re, at_45.im},
  });
}

TEST(MagneticResponses, reduction_to_the_equator_goes_on_from_the_pole) {
  const double u = 0.03;
  const double v = -0.04;
  const P steep = magnetised({25.0F, 60.0F, 25.0F, 60.0F}, 1);
  const complex_response pole = response_at(R::pole, steep, u, v);
  const double share = -0.64;  // -v^2 / r^2
  expect_values({
      {"steep", R::equator, steep, u, v, share * pole.re, share * pole.im},
      {"along X", R::equator, steep, 0.05, 0.0, 0.0, 0.0},
      {"mean", R::equator, steep, 0.0, 0.0, 1.0, 0.0},
  });
  // At a level field along the wave both branches are the same real number: -1 from the field,
  // weight 1 + epsilon, against the one across the field, weight epsilon.
  const complex_response level = response_at(R::equator, magnetised({0.0F, 0.0F}, 1), 0.0, 0.05);
  EXPECT_NEAR(level.re, 1.0, 1.0E-3);
}

TEST(MagneticResponses, split_reduction_weights_along_and_across_the_field) {
  const double u = 0.03;
  const double v = 0.04;
  const P p = magnetised({30.0F, 20.0F, 30.0F, 20.0F}, 1);
  const double n = p.MagN;
  const double a = (u * p.MagL + v * p.MagM) / 0.05;
  const double b = (v * p.MagL - u * p.MagM) / 0.05;
  const double q = std::sqrt((n - 0.25) * 4.0);
  const double w1 = std::pow((a * a + n * n) * (1.0 + q) / 2.0, 2.0);
  const double w2 = std::pow((b * b + n * n) * (1.0 - q) / 2.0, 2.0);
  // w / (n + i a)^2 = w (n - i a)^2 / (n^2 + a^2)^2
  const double d1 = std::pow(n * n + a * a, 2.0);
  const double d2 = std::pow(n * n + b * b, 2.0);
  const double re = (w1 * (n * n - a * a) / d1 + w2 * (n * n - b * b) / d2) / (w1 + w2);
  const double im = (-2.0 * n * a * w1 / d1 - 2.0 * n * b * w2 / d2) / (w1 + w2);
  expect_values({{"20 degrees", R::equator, p, u, v, -0.64 * re, -0.64 * im}});
  // From 30 degrees on the field is steep enough for the plain reduction.
  for (const float inclination : {30.1F, -30.1F, 29.9F, -29.9F}) {
    const std::initializer_list<float> field{30.0F, inclination, 30.0F, inclination};
    const complex_response plain = response_at(R::equator, magnetised(field), u, v);
    const complex_response asked = response_at(R::equator, magnetised(field, 1), u, v);
    EXPECT_EQ(asked.re == plain.re, std::abs(inclination) > 30.0F) << inclination;
  }
}

TEST(MagneticResponses, pseudo_gravity_of_a_vertical_field_divides_by_the_wavenumber) {
  const P vertical = magnetised({0.0F, 90.0F, 0.0F, 90.0F});
  const P slanted = magnetised({25.0F, 60.0F, 200.0F, -40.0F});
  const complex_response pole = response_at(R::pole, slanted, 0.03, -0.04);
  expect_values({
      {"vertical", R::pseudo_gravity, vertical, 0.03, -0.04, 1.0 / k5, 0.0},
      {"slanted", R::pseudo_gravity, slanted, 0.03, -0.04, pole.re / k5, -pole.im / k5},
      {"mean", R::pseudo_gravity, slanted, 0.0, 0.0, 1.0 / TwoPi, 0.0},
  });
}

TEST(MagneticResponses, components_of_the_field_from_the_total_field) {
  const double u = 0.03;
  const double v = -0.04;
  P p = magnetised({25.0F, 60.0F});
  const double n = p.MagN;
  const double a = (u * p.MagL + v * p.MagM) / 0.05;
  const double d = n * n + a * a;
  expect_values({
      {"Z", R::field_z, p, u, v, n / d, -a / d},
      {"X", R::field_x, p, u, v, -0.6 * a / d, -0.6 * n / d},
      {"Y", R::field_y, p, u, v, 0.8 * a / d, 0.8 * n / d},
      {"mean", R::field_z, p, 0.0, 0.0, 0.0, 0.0},
      {"low cut: stopped", R::field_z, cut(p, 0.0F, 1.0F), u, v, 0.0, 0.0},
      {"low cut: ramp", R::field_z, cut(p, 0.0F, 2.0F / 3.0F), u, v, 0.5 * n / d, -0.5 * a / d},
      {"low cut: passed", R::field_x, cut(p, 0.0F, 0.5F), u, v, -0.6 * a / d, -0.6 * n / d},
  });
  const complex_response at_45 = response_at(R::field_x, magnetised({25.0F, 45.0F}), u, v);
  expect_values({{"stabilised", R::field_x, magnetised({25.0F, 15.0F}, 1), u, v,
                  0.5 * at_45.re - 0.5, 0.5 * at_45.im}});
}

TEST(MagneticResponses, apparent_susceptibility_goes_down_and_spreads_over_prisms) {
  const double x = 2.0 * Pi * 0.03;
  const double y = 2.0 * Pi * 0.04;
  expect_values({
      {"off the axes", R::apparent_susceptibility, with({2.0F, 3.0F, 5.0F}), 0.03, -0.04,
       std::exp(3.0 * k5) * std::sin(x) / x * std::sin(y) / y / 5.0 / TwoPi},
      {"mean", R::apparent_susceptibility, with({2.0F, 3.0F, 5.0F}), 0.0, 0.0, 0.2 / TwoPi},
  });
}

}  // namespace
}  // namespace velmorankite
