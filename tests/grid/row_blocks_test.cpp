// SPDX-License-Identifier: MIT
#include "grid/row_blocks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <vector>

#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::TemporaryFolder;

std::vector<float> cells_of(const RowLayout& layout, std::int32_t row) {
  std::vector<float> cells(static_cast<std::size_t>(layout.x_count));
  std::iota(cells.begin(), cells.end(), static_cast<float>(1000 * row));
  return cells;
}

// Rows that share a block, rows that each are one, and a last block that is not full.
const RowLayout layouts[] = {{sense_bottom_up, 3, 5},     {sense_top_down, 3, 5},
                             {sense_bottom_up, 700, 301}, {sense_top_down, 700, 301},
                             {sense_bottom_up, 70000, 4}, {sense_top_down, 70000, 4}};

// Upwards, downwards, and in no order at all.
std::vector<std::vector<std::int32_t>> row_orders(std::int32_t row_count) {
  std::vector<std::int32_t> rows(static_cast<std::size_t>(row_count));
  std::iota(rows.begin(), rows.end(), 1);
  std::vector<std::vector<std::int32_t>> orders(3, rows);
  std::ranges::reverse(orders[1]);
  std::ranges::shuffle(orders[2], std::mt19937(1));
  return orders;
}

TEST(RowBlocks, rows_are_written_and_read_in_any_order_where_single_rows_would_be) {
  for (const RowLayout& layout : layouts) {
    for (const std::vector<std::int32_t>& order : row_orders(layout.y_count)) {
      const TemporaryFolder folder;
      BinaryFile file(folder / "a.grd", open_mode::create);
      RowBlockWriter writer(file, layout);
      for (const std::int32_t row : order) {
        writer.write(row, cells_of(layout, row));
      }
      writer.finish();
      EXPECT_EQ(file.size(), 512 + std::int64_t{4} * layout.x_count * layout.y_count);
      std::vector<float> cells(static_cast<std::size_t>(layout.x_count));
      RowBlockReader reader(file, layout);
      for (const std::int32_t row : order) {
        read_row(file, layout, row, cells);
        ASSERT_EQ(cells, cells_of(layout, row)) << row << " of " << layout.y_count;
        ASSERT_TRUE(std::ranges::equal(reader.row(row), cells)) << row << " of " << layout.y_count;
      }
    }
  }
}

TEST(RowBlocks, row_that_is_given_again_takes_the_place_of_the_first) {
  const TemporaryFolder folder;
  BinaryFile file(folder / "a.grd", open_mode::create);
  const RowLayout layout = layouts[1];
  RowBlockWriter writer(file, layout);
  for (const std::int32_t row : {1, 2, 3, 2, 5}) {
    writer.write(row, cells_of(layout, row + 10));
    writer.write(row, cells_of(layout, row));
  }
  writer.finish();
  std::vector<float> cells(3);
  for (const std::int32_t row : {1, 2, 3, 5}) {
    read_row(file, layout, row, cells);
    EXPECT_EQ(cells, cells_of(layout, row));
  }
}

}  // namespace
}  // namespace velmorankite
