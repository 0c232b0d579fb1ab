// SPDX-License-Identifier: MIT
#include "grid/row_blocks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace velmorankite {
namespace {

// A block holds 2^18 cells: 2 rows of 100,000 and a single row of 300,000, the last block being
// short or full.
TEST(RowBlocks, every_row_lies_at_its_place_in_both_senses) {
  struct Size {
    std::int32_t columns;
    std::int32_t rows;
  };
  for (const Size size : {Size{3, 5}, {100'000, 5}, {100'000, 4}, {300'000, 2}, {1, 1}}) {
    for (const std::int32_t sense : {sense_bottom_up, sense_top_down}) {
      const RowLayout layout{sense, size.columns, size.rows};
      platform::BinaryFile file = platform::BinaryFile::anonymous();
      RowBlockWriter writer(file, layout);
      for (std::int32_t row = 1; row <= size.rows; ++row) {
        std::ranges::fill(writer.next_row(), static_cast<float>(row));
      }
      writer.finish();
      writer.finish();  // nothing is left
      std::vector<float> cells(static_cast<std::size_t>(size.columns));
      for (std::int32_t row = 1; row <= size.rows; ++row) {
        read_row(file, layout, row, cells);
        EXPECT_EQ(std::ranges::count(cells, static_cast<float>(row)), size.columns)
            << size.columns << " columns, sense " << sense << ", row " << row;
      }
    }
  }
}

}  // namespace
}  // namespace velmorankite
