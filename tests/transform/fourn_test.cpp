// SPDX-License-Identifier: MIT
#include "transform/fourn.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "support/grids.h"

namespace velmorankite {
namespace {

using dimension_list = std::vector<std::int32_t>;

std::size_t words_of(const dimension_list& dimensions) {
  std::size_t words = 2;
  for (const std::int32_t n : dimensions)
    words *= static_cast<std::size_t>(n);
  return words;
}

std::vector<float> rough_data(std::size_t words) {
  std::vector<float> data(words);
  for (std::size_t i = 0; i < words; ++i) {
    data[i] = std::sin(static_cast<float>(i * i % 1009)) * static_cast<float>(1 + i % 17);
  }
  return data;
}

std::size_t bit_reversed(std::size_t k, std::size_t n) {
  std::size_t reversed = 0;
  for (std::size_t bit = 1; bit < n; bit *= 2, k /= 2)
    reversed = 2 * reversed + k % 2;
  return reversed;
}

// One line of n elements, `step` complex numbers apart, by the textbook: reorder, then combine
// pairs at growing distances, the factor going on by its recurrence.
void textbook_line(float* line, std::size_t n, std::size_t step, int sign) {
  const auto at = [&](std::size_t k) { return line + 2 * step * k; };
  for (std::size_t k = 0; k < n; ++k) {
    const std::size_t r = bit_reversed(k, n);
    if (k < r) {
      std::swap(at(k)[0], at(r)[0]);
      std::swap(at(k)[1], at(r)[1]);
    }
  }
  for (std::size_t m = 1; m < n; m *= 2) {
    const double angle = sign * (6.28318530717959 / static_cast<double>(2 * m));
    const double wpr = -2.0 * std::sin(0.5 * angle) * std::sin(0.5 * angle);
    const double wpi = std::sin(angle);
    double wr = 1.0;
    double wi = 0.0;
    for (std::size_t j = 0; j < m; ++j) {
      const auto fr = static_cast<float>(wr);
      const auto fi = static_cast<float>(wi);
      for (std::size_t k = j; k < n; k += 2 * m) {
        float* const a = at(k);
        float* const b = at(k + m);
        const float re = fr * b[0] - fi * b[1];
        const float im = fr * b[1] + fi * b[0];
        b[0] = a[0] - re;
        b[1] = a[1] - im;
        a[0] += re;
        a[1] += im;
      }
      const double before = wr;
      wr = wr * wpr - wi * wpi + wr;
      wi = wi * wpr + before * wpi + wi;
    }
  }
}

void textbook(std::vector<float>& data, const dimension_list& dimensions, int sign) {
  const std::size_t total = data.size() / 2;
  std::size_t step = 1;
  for (const std::int32_t length : dimensions) {
    const auto n = static_cast<std::size_t>(length);
    for (std::size_t first = 0; first < total; ++first) {
      if (first / step % n == 0) textbook_line(data.data() + 2 * first, n, step, sign);
    }
    step *= n;
  }
}

TEST(Fourn, rounds_as_the_textbook_loop_does_bit_for_bit) {
  const dimension_list examples[] = {
      {1},        {2},          {8},       {4096},     {32768},         {2, 4},     {1, 16},
      {16, 1},    {4, 4},       {64, 32},  {8, 1024},  {1024, 8},       {512, 256}, {2, 2048},
      {4, 8, 16}, {16, 2, 128}, {2, 2, 2}, {1, 1, 64}, {3 + 1, 1, 4, 2}};
  for (const dimension_list& dimensions : examples) {
    for (const int sign : {1, -1}) {
      std::vector<float> expected = rough_data(words_of(dimensions));
      std::vector<float> actual = expected;
      textbook(expected, dimensions, sign);
      for (const float behind : {1.0F, 2.0F, 3.0F}) {  // stays as it is
        expected.push_back(behind);
        actual.push_back(behind);
      }
      ASSERT_EQ(FOURN(actual, dimensions, sign), success);
      EXPECT_EQ(testing::first_difference(expected, actual), "")
          << ::testing::PrintToString(dimensions) << " sign " << sign;
    }
  }
}

TEST(Fourn, lines_made_just_ahead_of_their_transform_give_the_same) {
  for (const dimension_list& dimensions : {dimension_list{16, 16}, {1, 4}, {64}, {8, 2, 4}}) {
    std::vector<float> expected = rough_data(words_of(dimensions));
    std::vector<float> actual(expected.size(), 7.0F);
    std::size_t next = 0;
    const auto make = [&](std::size_t line, std::span<float> elements) {
      EXPECT_EQ(line, next++);
      std::ranges::copy(std::span(expected).subspan(line * elements.size(), elements.size()),
                        elements.begin());
    };
    ASSERT_EQ(FOURN(actual, dimensions, -1, make), success);
    ASSERT_EQ(FOURN(expected, dimensions, -1), success);
    EXPECT_EQ(testing::first_difference(expected, actual), "")
        << ::testing::PrintToString(dimensions);
  }
}

TEST(Fourn, zeros_of_both_signs_and_infinities_come_out_as_in_the_textbook_loop) {
  const dimension_list dimensions{8, 8};
  std::vector<float> expected(words_of(dimensions), -0.0F);
  expected[5] = HUGE_VALF;
  std::vector<float> actual = expected;
  textbook(expected, dimensions, 1);
  ASSERT_EQ(FOURN(actual, dimensions, 1), success);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(std::signbit(expected[i]) && expected[i] == 0.0F,
              std::signbit(actual[i]) && actual[i] == 0.0F);
    EXPECT_EQ(std::isnan(expected[i]), std::isnan(actual[i])) << i;
  }
}

TEST(Fourn, one_wave_gathers_in_one_element_of_the_forward_transform) {
  const std::size_t nx = 16;
  const std::size_t ny = 8;
  std::vector<float> data(2 * nx * ny);
  for (std::size_t j = 0; j < ny; ++j) {
    for (std::size_t i = 0; i < nx; ++i) {
      // exp(-2 pi i (3 i / 16 + 5 j / 8)): the forward exponent is the positive one.
      const double phase = -2.0 * M_PI *
                           (3.0 * static_cast<double>(i) / static_cast<double>(nx) +
                            5.0 * static_cast<double>(j) / static_cast<double>(ny));
      data[2 * (j * nx + i)] = static_cast<float>(std::cos(phase));
      data[2 * (j * nx + i) + 1] = static_cast<float>(std::sin(phase));
    }
  }
  const std::int32_t dimensions[] = {nx, ny};
  ASSERT_EQ(FOURN(data, dimensions, 1), success);
  for (std::size_t k = 0; k < nx * ny; ++k) {
    EXPECT_NEAR(data[2 * k], k == 5 * nx + 3 ? 128.0 : 0.0, 1.0E-4) << k;
    EXPECT_NEAR(data[2 * k + 1], 0.0, 1.0E-4) << k;
  }
}

TEST(Fourn, refuses_what_it_cannot_transform_and_leaves_the_data) {
  struct example {
    dimension_list dimensions;
    std::int32_t sign;
    Status status;
  };
  const example examples[] = {{{}, 1, fourn_bad_dimension},
                              {{8, 0}, 1, fourn_bad_dimension},
                              {{12}, 1, fourn_bad_dimension},
                              {{-8}, 1, fourn_bad_dimension},
                              {{-2147483647 - 1}, 1, fourn_bad_dimension},
                              {{16, 8}, 1, fourn_short_array},
                              {{1 << 30, 1 << 30, 1 << 30}, 1, fourn_short_array},
                              {{8, 8}, 0, fourn_bad_sign},
                              {{8, 8}, 2, fourn_bad_sign}};
  const std::vector<float> before = rough_data(words_of({8, 8}));
  for (const example& e : examples) {
    std::vector<float> data = before;
    EXPECT_EQ(FOURN(data, e.dimensions, e.sign), e.status)
        << ::testing::PrintToString(e.dimensions);
    EXPECT_EQ(data, before);
  }
}

}  // namespace
}  // namespace velmorankite
