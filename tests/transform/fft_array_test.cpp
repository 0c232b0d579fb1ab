// SPDX-License-Identifier: MIT
#include "transform/fft_array.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

TEST(FftGeometry, doubles_until_the_padded_grid_fits) {
  struct example {
    std::int32_t columns, pad_width;
    std::int32_t pad, nxp, fftnx, padoffx, origx;
  };
  const example examples[] = {{64, 5, 16, 96, 128, 16, 32},
                              {120, 1, 4, 128, 128, 0, 4},
                              {121, 1, 4, 129, 256, 63, 67},
                              {4000, 11, 34, 4068, 4096, 14, 48},
                              {1, 1, 4, 9, 16, 3, 7}};
  for (const example& e : examples) {
    fft_geometry g;
    ASSERT_EQ(plan_fft(e.columns, 7, e.pad_width, g), success);
    EXPECT_EQ(g.pad, e.pad);
    EXPECT_EQ(g.nxp, e.nxp);
    EXPECT_EQ(g.fftnx, e.fftnx);
    EXPECT_EQ(g.padoffx, e.padoffx);
    EXPECT_EQ(g.origx, e.origx);
  }
  fft_geometry g;
  ASSERT_EQ(plan_fft(64, 7, 5, g), success);
  EXPECT_EQ(g.fftny, 64);
  EXPECT_EQ(g.padoffy, 12);
  EXPECT_EQ(g.fftwords(), std::size_t{2} * 128 * 64);
}

TEST(FftGeometry, sizes_that_no_array_can_have_are_refused) {
  fft_geometry g;
  EXPECT_EQ(plan_fft(1 << 30, 10, 1, g), fft_too_large);
  EXPECT_EQ(plan_fft(10, 0x7FFFFFFF, 1, g), fft_too_large);
  EXPECT_EQ(plan_fft(10, 10, 0x7FFFFFFF, g), fft_too_large);
}

float cell(std::int32_t column, std::int32_t row) {
  return static_cast<float>(100 * row + column);
}

TEST(FftArray, rows_run_from_the_north_in_both_storage_senses) {
  fft_geometry g;
  ASSERT_EQ(plan_fft(3, 2, 1, g), success);  // 11 x 10 padded cells in 16 x 16
  for (const std::int32_t sense : {1, -2}) {
    const testing::TemporaryFolder folder;
    testing::write_grid(folder / "p.grd", {0.0, 0.0, 1.0, 1.0, g.nxp, g.nyp}, cell, sense);
    RowFile file({folder / "p.grd", platform::open_mode::read_write}, {sense, g.nxp, g.nyp});
    std::vector<float> array(g.fftwords(), 77.0F);
    transform_padded(file, g, 0.5F, array);
    transform_array(array, g, -1);  // there and back: 256 times what was put in
    for (float& word : array)
      word /= 256.0F;
    constexpr float rounding = 1.0E-3F;
    for (std::int32_t j = 0; j < g.fftny; ++j) {
      for (std::int32_t i = 0; i < g.fftnx; ++i) {
        const std::int32_t column = i - 2 + 1;  // (16 - 11) / 2 ahead of it
        const std::int32_t row = 10 - (j - 3);  // (16 - 10) / 2
        const bool inside = column >= 1 && column <= 11 && row >= 1 && row <= 10;
        const std::size_t at = 2 * testing::cell_index(i + 1, j + 1, 16);
        ASSERT_NEAR(array[at], inside ? cell(column, row) : 0.5F, rounding) << i << ", " << j;
        ASSERT_NEAR(array[at + 1], 0.0F, rounding);
      }
    }
    EXPECT_NEAR(array[g.grid_row(1)], cell(5, 5), rounding);
    EXPECT_NEAR(array[g.grid_row(2) + 4], cell(7, 6), rounding);

    write_window(array, g, file);
    file.close();
    const std::vector<float> cells = testing::read_grid(folder / "p.grd");
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const auto n = static_cast<std::int32_t>(i);
      EXPECT_NEAR(cells[i], cell(n % 11 + 1, n / 11 + 1), rounding) << i;
    }
  }
}

}  // namespace
}  // namespace velmorankite
