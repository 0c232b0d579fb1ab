// SPDX-License-Identifier: MIT
#include "transform/fft_response.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "support/grids.h"
#include "transform/filter_index.h"
#include "transform/filter_traits.h"
#include "transform/responses.h"
#include "transform/trs_filter.h"

namespace velmorankite {
namespace {

constexpr std::int32_t nx = 128;  // rows are worked on in stretches of 32
constexpr std::int32_t ny = 16;

// Place of the real part of an array element.
std::size_t element(std::int32_t i, std::int32_t j) {
  return 2 * testing::cell_index(i + 1, j + 1, nx);
}

filter_parameters parameters_of(std::int32_t filter, float par_1 = 1.0F) {
  filter_parameters p;
  const std::array<std::int32_t, integer_parameters> integers{3, 0, 0};
  // A thickness or a depth below 200, an inclination from there on.
  const float par_2 = filter < 200 ? 2.0F : 55.0F;
  const std::array<float, real_parameters> reals{par_1, par_2, 20.0F, 70.0F};
  if (filter <= last_filter) {
    EXPECT_FALSE(TRSFLT(filter, 3, 2, 1, 0.4F, 0.3F, 15.0F, integers, reals, 1.0, 1.0, p,
                        [](std::string_view) {})
                     .failed());
  } else {
    p.Par1 = par_1;
    p.Par2 = 55.0F;
    MAGDIRCOS(p);
  }
  return p;
}

// The factor of HiCut = 0.4 at a frequency.
double ramp(double f) {
  return f < 0.05 ? 1.0 : std::max(0.0, 1.0 - (f - 0.05) / 0.45);
}

TEST(FftResponse, every_element_is_multiplied_by_the_value_at_its_own_frequency) {
  const std::int32_t filters[] = {100, 101, 102, 103, 104, 105, 106, 110, 111,
                                  114, 115, 116, 117, 118, 201, 202, 203, 204,
                                  206, 207, 208, 209, 210, 211, 312, 313, 314};
  for (const std::int32_t filter : filters) {
    filter_parameters p = parameters_of(filter);
    std::vector<float> array;
    for (std::int32_t i = 0; i < nx * ny; ++i) {
      array.insert(array.end(), {1.0F, 0.5F});
    }
    PowerSpectrum power;
    fftrsp(false, {nx, ny}, filter, p, array, power);
    for (std::int32_t j = 0; j < ny; ++j) {
      for (std::int32_t i = filter > last_filter && j == 0 ? 1 : 0; i < nx; ++i) {
        const double u = (i < nx / 2 ? i : i - nx) / -static_cast<double>(nx);
        const double v = (j < ny / 2 ? j : j - ny) / static_cast<double>(ny);
        complex_response value = response_at(traits_of(filter).response, p, u, v);
        if (filter == 102 || filter == 106) value = ramp(std::hypot(u, v)) * value;
        value = value * complex_response{1.0, 0.5};
        const double tolerance = 2.0E-7 * (1.0 + std::hypot(value.re, value.im));
        EXPECT_NEAR(array[element(i, j)], value.re, tolerance) << filter << ": " << i << ", " << j;
        EXPECT_NEAR(array[element(i, j) + 1], value.im, tolerance) << filter;
      }
    }
  }
}

TEST(FftResponse, powers_are_gathered_by_the_distance_from_zero_frequency) {
  std::vector<float> array(std::size_t{2} * nx * ny, 1.0F);
  filter_parameters p = parameters_of(102);
  PowerSpectrum power;
  power.count[3] = 77;  // of an earlier transform
  fftrsp(false, {nx, ny}, 102, p, array, power);
  std::array<std::int64_t, power_bins> count{};
  std::array<double, power_bins> output{};
  for (std::int32_t j = -ny / 2; j < ny / 2; ++j) {
    for (std::int32_t i = -nx / 2; i < nx / 2; ++i) {
      const double f = std::hypot(static_cast<double>(i) / nx, static_cast<double>(j) / ny);
      if (f >= 0.5) continue;
      const auto bin = static_cast<std::size_t>(f * 512.0);
      count[bin] += 2;
      output[bin] += 2.0 * std::pow(TwoPi * f * ramp(f), 2.0);
    }
  }
  EXPECT_EQ(power.count, count);
  for (std::size_t k = 0; k < power_bins; ++k) {
    EXPECT_EQ(power.input[k], static_cast<double>(count[k])) << k;
    EXPECT_NEAR(power.output[k], output[k], 1.0E-5 * (1.0 + output[k])) << k;
  }
}

TEST(FftResponse, powers_of_every_kind_of_response_are_those_of_its_elements) {
  for (const std::int32_t filter : {101, 110, 115, 204}) {  // even, none, by direction, complex
    std::vector<float> array(std::size_t{2} * nx * ny);
    for (std::size_t i = 0; i < array.size(); ++i)
      array[i] = static_cast<float>(i * i % 13);
    const std::vector<float> before = array;
    filter_parameters p = parameters_of(filter);
    PowerSpectrum power;
    fftrsp(false, {nx, ny}, filter, p, array, power);
    std::array<double, power_bins> input{};
    std::array<double, power_bins> output{};
    for (std::int32_t j = 0; j < ny; ++j) {
      for (std::int32_t i = 0; i < nx; ++i) {
        const double f = std::hypot((i < nx / 2 ? i : i - nx) / static_cast<double>(nx),
                                    (j < ny / 2 ? j : j - ny) / static_cast<double>(ny));
        if (f >= 0.5) continue;
        const std::size_t at = element(i, j);
        const auto square = [at](const std::vector<float>& of) {
          return std::pow(of[at], 2.0) + std::pow(of[at + 1], 2.0);
        };
        input[static_cast<std::size_t>(f * 512.0)] += square(before);
        output[static_cast<std::size_t>(f * 512.0)] += square(array);
      }
    }
    for (std::size_t k = 0; k < power_bins; ++k) {
      EXPECT_NEAR(power.input[k], input[k], 1.0E-5 * (1.0 + input[k])) << filter << ": " << k;
      EXPECT_NEAR(power.output[k], output[k], 1.0E-5 * (1.0 + output[k])) << filter << ": " << k;
    }
  }
}

TEST(FftResponse, field_components_balance_the_first_element) {
  std::vector<float> array(std::size_t{2} * nx * ny);
  for (std::size_t i = 0; i < array.size(); ++i)
    array[i] = static_cast<float>(i % 7);
  const std::vector<float> before = array;
  for (const std::int32_t filter : {filter_field_x, filter_field_y, filter_field_z}) {
    array = before;
    filter_parameters p = parameters_of(filter);
    PowerSpectrum power;
    fftrsp(true, {nx, ny}, filter, p, array, power);
    double re = 0.0;
    double im = 0.0;
    for (std::size_t i = 2; i < array.size(); i += 2) {
      re += static_cast<double>(array[i]);
      im += static_cast<double>(array[i + 1]);
    }
    EXPECT_NEAR(array[0], -re, 1.0E-6) << filter;
    EXPECT_NEAR(array[1], -im, 1.0E-6) << filter;
  }
}

TEST(FftResponse, smallest_arrays_work) {
  for (const auto& [columns, rows] : {std::pair{1, 1}, {2, 1}, {1, 2}, {2, 2}, {4, 2}}) {
    std::vector<float> array(static_cast<std::size_t>(2 * columns * rows), 1.0F);
    filter_parameters p = parameters_of(101);
    PowerSpectrum power;
    fftrsp(false, {columns, rows}, 101, p, array, power);
    EXPECT_EQ(array[0], 1.0F);
    if (columns > 1) {
      EXPECT_NEAR(array[2], std::exp(-TwoPi / columns), 1.0E-7);
    }
  }
}

}  // namespace
}  // namespace velmorankite
