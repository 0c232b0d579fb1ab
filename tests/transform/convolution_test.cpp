// SPDX-License-Identifier: MIT
#include "transform/convolution.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <vector>

#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::cell_index;
using testing::TemporaryFolder;

// A grid file with a small pattern in it, and the passes over it in place.
class Pattern {
 public:
  Pattern(std::int32_t columns, std::int32_t rows, const testing::cell_function& cell,
          std::int32_t sense = 1)
      : layout_{sense, columns, rows} {
    testing::write_grid(path(), {0.0, 0.0, 1.0, 1.0, columns, rows}, cell, sense);
  }
  [[nodiscard]] std::filesystem::path path() const { return folder_ / "g.grd"; }
  std::vector<float> symmetric(const std::vector<float>& weights, std::int32_t w,
                               std::int32_t filter = 101) {
    filter_parameters p;
    p.FilterNo = filter;
    p.CellX = 2.0;
    p.CellY = 4.0;
    RowFile file({path(), open_mode::read_write}, layout_);
    WTCONVS(weights, w, p, {file, file});
    file.close();
    return testing::read_grid(path());
  }
  std::vector<float> asymmetric(const std::vector<float>& weights, std::int32_t n) {
    RowFile file({path(), open_mode::read_write}, layout_);
    WTCONVA(weights, n, {file, file});
    file.close();
    return testing::read_grid(path());
  }

 private:
  TemporaryFolder folder_;
  RowLayout layout_;
};

float spike(std::int32_t column, std::int32_t row) {
  return column == 4 && row == 3 ? 1.0F : 0.0F;
}

TEST(SymmetricConvolution, spreads_a_spike_into_the_operator) {
  const std::vector<float> weights{1.0F, 2.0F, 4.0F, 8.0F};  // centre, X, Y, diagonals
  for (const std::int32_t sense : {1, -2}) {
    Pattern grid(8, 6, spike, sense);
    const std::vector<float> out = grid.symmetric(weights, 2);
    for (std::int32_t row = 1; row <= 6; ++row) {
      for (std::int32_t column = 1; column <= 8; ++column) {
        const bool edge = row == 1 || row == 6 || column == 1 || column == 8;
        const int b = std::abs(column - 4);
        const int a = std::abs(row - 3);
        const float expected = edge             ? dummy
                               : a > 1 || b > 1 ? 0.0F
                                                : weights[cell_index(b + 1, a + 1, 2)];
        EXPECT_EQ(out[cell_index(column, row, 8)], expected) << column << ", " << row;
      }
    }
  }
}

TEST(SymmetricConvolution, cells_are_summed_in_one_order_whatever_the_width_of_the_grid) {
  std::vector<float> weights(16);
  for (std::size_t i = 0; i < 16; ++i)
    weights[i] = 1.0F / static_cast<float>(3 + i);
  const auto rough = [](std::int32_t column, std::int32_t row) {
    return std::sin(static_cast<float>(column * 37 + row * 11)) * 1000.0F;
  };
  Pattern grid(600, 9, rough);
  const std::vector<float> out = grid.symmetric(weights, 4);
  for (const std::int32_t x : {4, 259, 260, 261, 597}) {
    const std::int32_t y = 5;
    const auto c = [&](std::int32_t b, std::int32_t a) { return rough(x + b, y + a); };
    float sum = weights[0] * c(0, 0);
    for (int b = 1; b < 4; ++b)
      sum += weights[static_cast<std::size_t>(b)] * (c(b, 0) + c(-b, 0));
    for (int a = 1; a < 4; ++a) {
      sum += weights[cell_index(1, a + 1, 4)] * (c(0, a) + c(0, -a));
    }
    for (int a = 1; a < 4; ++a) {
      for (int b = 1; b < 4; ++b) {
        sum += weights[cell_index(b + 1, a + 1, 4)] * (c(b, a) + c(-b, a) + c(b, -a) + c(-b, -a));
      }
    }
    EXPECT_EQ(out[cell_index(x, y, 600)], sum) << x;
  }
  EXPECT_EQ(out[cell_index(598, 5, 600)], dummy);
}

TEST(Convolution, does_not_reach_over_a_cell_without_data) {
  const auto holed = [](std::int32_t column, std::int32_t row) {
    return (row == 3 && (column == 4 || column == 5)) || (column == 14 && row == 8) ? dummy : 1.0F;
  };
  // Weights of 2: a sum over a dummy is none.
  Pattern symmetric(15, 13, holed);
  Pattern asymmetric(15, 13, holed);
  const std::vector<float> s = symmetric.symmetric(std::vector<float>(9, 2.0F), 3);
  const std::vector<float> a = asymmetric.asymmetric(std::vector<float>(25, 2.0F), 5);
  for (std::int32_t row = 3; row <= 11; ++row) {
    for (std::int32_t column = 3; column <= 13; ++column) {
      const bool near = (row <= 5 && column <= 7) || (std::abs(row - 8) <= 2 && column >= 12);
      const std::size_t at = cell_index(column, row, 15);
      EXPECT_EQ(s[at], near ? dummy : 50.0F) << column << ", " << row;
      EXPECT_EQ(a[at], near ? dummy : 50.0F) << column << ", " << row;
    }
  }
  EXPECT_EQ(a[0], 0.0F);
  EXPECT_EQ(s[0], dummy);
}

TEST(SymmetricConvolution, gradient_filters_take_the_slopes_of_the_input) {
  // 3 per cell along X and 8 per cell along Y; cells of 2 by 4.
  const auto slope = [](std::int32_t column, std::int32_t row) {
    return static_cast<float>(3 * column + 8 * row);
  };
  struct example {
    std::int32_t filter;
    double value;
  };
  for (const std::int32_t w : {1, 2}) {
    std::vector<float> identity(static_cast<std::size_t>(w * w));
    identity[0] = 1.0F;
    const double c = 3.0 * 3 + 8.0 * 3;
    const double level = std::hypot(1.5, 2.0);
    for (const example& e :
         {example{106, std::hypot(c, level)},
          {109, std::acos(std::min(level / std::hypot(c, level), 0.9999)) / DegToRad},
          {110, level}}) {
      Pattern grid(5, 5, slope);
      const std::vector<float> out = grid.symmetric(identity, w, e.filter);
      EXPECT_NEAR(out[12], e.value, 1.0E-4) << e.filter;
      EXPECT_EQ(out[7] == dummy, false);
      EXPECT_EQ(out[4], dummy);
    }
  }
}

TEST(AsymmetricConvolution, puts_the_weight_of_a_lag_that_far_from_a_spike) {
  std::vector<float> weights(9);
  for (std::size_t i = 0; i < 9; ++i)
    weights[i] = static_cast<float>(i + 1);
  for (const std::int32_t sense : {1, -2}) {
    Pattern grid(8, 6, spike, sense);
    const std::vector<float> out = grid.asymmetric(weights, 3);
    for (std::int32_t a = -1; a <= 1; ++a) {
      for (std::int32_t b = -1; b <= 1; ++b) {
        EXPECT_EQ(out[cell_index(4 + b, 3 + a, 8)], weights[cell_index(b + 2, a + 2, 3)])
            << b << ", " << a;
      }
    }
    EXPECT_EQ(out[8], 0.0F);
    EXPECT_EQ(out[7 * 6 - 1], 0.0F);
  }
  // To another file the input stays.
  Pattern grid(8, 6, spike);
  const RowFile input({grid.path(), open_mode::read}, {1, 8, 6});
  RowFile output(BinaryFile::anonymous(), {1, 8, 6});
  WTCONVA(weights, 3, {input, output});
  EXPECT_EQ(output.file().read_value<float>(512 + 4 * (2 * 8 + 3) + 1), 5.0F);
  EXPECT_EQ(testing::read_grid(grid.path())[2 * 8 + 3], 1.0F);
}

TEST(Convolution, of_a_grid_smaller_than_the_operator_is_all_edge) {
  Pattern low(9, 4, spike);
  EXPECT_EQ(low.symmetric(std::vector<float>(9, 1.0F), 3), std::vector<float>(36, dummy));
  Pattern lower(9, 3, spike);
  EXPECT_EQ(lower.symmetric(std::vector<float>(9, 1.0F), 3), std::vector<float>(27, dummy));
  Pattern narrow(4, 9, spike);
  EXPECT_EQ(narrow.asymmetric(std::vector<float>(25, 1.0F), 5), std::vector<float>(36, 0.0F));
  Pattern fitting(5, 5, spike);
  EXPECT_EQ(fitting.asymmetric(std::vector<float>(25, 1.0F), 5)[12], 1.0F);
}

TEST(Convolution, that_cannot_read_or_write_is_an_error) {
  for (const testing::system_call call :
       {testing::system_call::read, testing::system_call::write}) {
    Pattern grid(8, 6, spike);
    RowFile file({grid.path(), open_mode::read_write}, {1, 8, 6});
    bool done = false;
    const int failures = testing::fail_each_call(
        call, EIO,
        [&] {
          done = false;
          WTCONVA(std::vector<float>(9, 1.0F), 3, {file, file});
          done = true;
        },
        [&](int nth) { EXPECT_FALSE(done) << nth; });
    EXPECT_EQ(failures, 6);
  }
}

}  // namespace
}  // namespace velmorankite
