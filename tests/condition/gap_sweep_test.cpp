// SPDX-License-Identifier: MIT
#include "condition/gap_sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "condition/gap_continuation.h"
#include "condition/grid_extension.h"
#include "condition/plain_sweep.h"
#include "formats/describe_grid.h"
#include "platform/io_error.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::plain_grid;
using testing::read_file;

plain_grid uniform_grid(std::int32_t x_count, std::int32_t y_count, float value) {
  return {x_count, y_count,
          std::vector<float>(static_cast<std::size_t>(x_count) * static_cast<std::size_t>(y_count),
                             value)};
}

// The tables of a grid, whose rows are handed on with them.
template <typename Use>
auto with_tables(plain_grid& grid, Use&& use) {
  MemoryRows rows({0.0, 0.0, 1.0, 1.0, grid.x_count, grid.y_count}, grid.cells);
  GapTables tables = GRDGAPS(rows, {{sense_bottom_up, grid.x_count, grid.y_count}, 0, 0});
  return use(rows, tables);
}

std::int64_t sweep(plain_grid& grid, const sweep_plan& plan) {
  return with_tables(grid, [&](auto& rows, auto& tables) { return GRDSWEEP(rows, tables, plan); });
}

// Data with holes of many shapes, on edges and off them.
plain_grid some_grid(std::mt19937& random, std::int32_t longest) {
  const auto below = [&](std::int32_t end) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(end));
  };
  plain_grid grid = uniform_grid(1 + below(longest), 1 + below(longest), 0.0F);
  for (float& cell : grid.cells) {
    cell = static_cast<float>(random() % 1000) / 7.0F;
  }
  for (std::int32_t hole = below(6); hole >= 0; --hole) {
    const std::int32_t column = below(grid.x_count + 4) - 2;
    const std::int32_t row = below(grid.y_count + 4) - 2;
    const std::int32_t width = 1 + below(1 + grid.x_count / 2);
    const std::int32_t height = 1 + below(1 + grid.y_count / 2);
    const unsigned left_over = hole % 2 == 0 ? 4 : 1000;  // of so many cells one keeps its value
    for (std::int32_t i = 0; i < width * height; ++i) {
      if (grid.has(column + i % width, row + i / width) && random() % left_over != 0) {
        grid.cells[grid.index(column + i % width, row + i / width)] = dummy;
      }
    }
  }
  return grid;
}

TEST(GapSweep, gives_the_bits_of_the_plain_form) {
  std::mt19937 random(5);
  std::int64_t filled = 0;
  for (int turn = 0; turn < 600; ++turn) {
    plain_grid swept = some_grid(random, turn % 10 == 0 ? 60 : 16);
    if (std::ranges::none_of(swept.cells, is_valid)) {
      continue;
    }
    plain_grid plain = swept;
    const sweep_plan plan{turn % 2 == 0, 80.0F, turn % 3 == 0 ? 1 + turn % 7 : 0};
    const std::int64_t count = sweep(swept, plan);
    EXPECT_EQ(count, testing::plain_sweep(plain, plan)) << turn;
    EXPECT_EQ(first_difference(plain.cells, swept.cells), "") << turn;
    filled += count;
  }
  EXPECT_GT(filled, 5000);
}

TEST(GapSweep, a_hole_of_one_cell_weighs_each_neighbour_by_its_distance) {
  for (std::int32_t i = 0; i < 25; ++i) {
    plain_grid grid = uniform_grid(5, 5, 0.0F);
    grid.cells[static_cast<std::size_t>(i)] = 21.0F;
    grid.cells[12] = dummy;
    EXPECT_EQ(sweep(grid, {}), 1);
    const int steps = std::abs(i % 5 - 2) + std::abs(i / 5 - 2);
    EXPECT_EQ(grid.cells[12], i == 12 ? 0.0F : 4.0F * std::ldexp(1.0F, -steps)) << i;
  }
}

TEST(GapSweep, a_hole_closes_a_layer_a_pass_and_is_drawn_to_the_background_from_the_third_on) {
  plain_grid grid = uniform_grid(20, 20, 1.0F);
  for (std::int32_t i = 0; i < 49; ++i) {
    grid.cells[grid.index(5 + i % 7, 5 + i / 7)] = dummy;
  }
  EXPECT_EQ(sweep(grid, {false, 3.0F, 0}), 49);
  EXPECT_EQ(grid.at(6, 8), 1.0F);
  EXPECT_FLOAT_EQ(grid.at(7, 8), 1.2F);  // a step of 2 / 20
  EXPECT_GT(grid.at(8, 8), 1.4F);
}

TEST(GapSweep, an_extension_ends_in_the_background) {
  plain_grid grid = uniform_grid(40, 30, dummy);
  grid.cells[grid.index(3, 4)] = 5.0F;
  EXPECT_EQ(sweep(grid, {true, 9.0F, 0}), 40 * 30 - 1 - 2);  // two cells go straight on
  EXPECT_EQ(grid.at(3, 4), 5.0F);
  EXPECT_EQ(grid.at(40, 30), 9.0F);
}

TEST(GapContinuation, goes_straight_on_by_one_cell_into_gaps_of_more_than_three) {
  constexpr float none = dummy;
  struct example {
    std::vector<float> before;
    std::vector<float> after;
  };
  const std::vector<example> examples{
      {{1, 2, 4, none, none, none, none}, {1, 2, 4, 6, none, none, none}},
      {{1, 2, 4, none, none, none}, {1, 2, 4, none, none, none}},
      {{none, none, none, none, 4, 7}, {none, none, none, 1, 4, 7}},
      {{none, none, none, none, 4}, {none, none, none, none, 4}},
      {{none, 4, none, none, none, none}, {none, 4, 4, none, none, none}},
      {{-3E38F, 3E38F, none, none, none, none}, {-3E38F, 3E38F, 3E38F, none, none, none}}};
  for (const example& e : examples) {
    const auto count = static_cast<std::int32_t>(e.before.size());
    for (const bool along_row : {true, false}) {
      plain_grid grid{along_row ? count : 1, along_row ? 1 : count, e.before};
      with_tables(grid,
                  [](auto& rows, auto& tables) { return continue_into_gaps(rows, tables, 18); });
      EXPECT_EQ(grid.cells, e.after);
    }
  }
}

class GridExtension : public ::testing::Test {
 protected:
  GridExtension() {
    request.x_min = 100.0;
    request.y_min = 200.0;
    request.x_cell = 2.0;
    request.y_cell = 5.0;
    request.x_count = 31;
    request.y_count = 27;
    request.column_offset = 7;
    request.row_offset = 4;
    request.output_name = output;
    const auto cell = [](int c, int r) {
      return (c * r) % 7 == 3 || (c > 5 && c < 11 && r > 3 && r < 9) ? dummy : float(3 * c - r);
    };
    for (const std::int32_t sense : {1, -2}) {
      testing::write_grid(source(sense), {100.0, 200.0, 2.0, 5.0, 18, 13}, cell, sense);
    }
  }

  std::filesystem::path source(std::int32_t sense) const {
    return folder / (sense == 1 ? "up.grd" : "down.grd");
  }

  Status extend(std::int32_t sense, std::int64_t most_cells = while_memory_lasts) {
    request.storage_sense = sense;
    const std::filesystem::path path = source(sense);
    platform::BinaryFile(path, platform::open_mode::read_write)
        .write_value(5, integers ? kind_signed : kind_float);
    const RowFile file({path, platform::open_mode::read}, {1, 18, rows});
    return GRDEXT(file, request, minimum, maximum, background, filled, most_cells);
  }

  testing::TemporaryFolder folder;
  std::string output = (folder / "out.grd").string();
  extension_request request;
  std::int32_t rows = 13;
  bool integers = false;  // what the header says of the cells
  float minimum = 7.0F;
  float maximum = 7.0F;
  float background = dummy;
  std::int64_t filled = 0;
};

TEST_F(GridExtension, data_keep_their_coordinates_and_rows_give_the_bits_of_memory) {
  for (const std::int32_t sense : {1, -2}) {
    for (const bool all : {true, false}) {
      request.extend = all;
      ASSERT_EQ(extend(sense), success);
      const std::string in_memory = read_file(output);
      ASSERT_EQ(extend(sense, 0), success);
      EXPECT_EQ(read_file(output), in_memory);
      const grid_description grid = testing::describe(output);
      const std::int32_t rows_below = sense == 1 ? 4 : 27 - 13 - 4;
      EXPECT_EQ(grid.ints.storage_sense, sense);
      EXPECT_EQ(grid.reals.x_min, 100.0 - 7 * 2.0);
      EXPECT_EQ(grid.reals.y_min, 200.0 - rows_below * 5.0);
      const std::vector<float> cells = testing::read_grid(output);
      EXPECT_EQ(cells[testing::cell_index(7 + 2, rows_below + 3, 31)], 3.0F);
      EXPECT_EQ(std::ranges::all_of(cells, is_valid), all);
    }
  }
  EXPECT_EQ(minimum, -10.0F);
  EXPECT_EQ(maximum, 53.0F);
  EXPECT_GT(background, 0.0F);
}

TEST_F(GridExtension, a_bad_call_writes_nothing) {
  const auto refused = [this](auto change) {
    const extension_request before = request;
    change(request);
    const bool is_refused = extend(request.storage_sense) == extension_impossible;
    request = before;
    return is_refused && minimum == 0.0F && maximum == 0.0F && filled == 0 &&
           !std::filesystem::exists(output);
  };
  EXPECT_TRUE(refused([](auto& r) { r.column_offset = 14; }));
  EXPECT_TRUE(refused([](auto& r) { r.row_offset = -1; }));
  EXPECT_TRUE(refused([](auto& r) { r.x_count = 0; }));
  EXPECT_TRUE(refused([](auto& r) { r.y_cell = std::nan(""); }));
  EXPECT_TRUE(refused([](auto& r) { r.output_name = "  "; }));
  rows = 14;  // more than the file holds
  EXPECT_TRUE(refused([](auto&) {}));
  rows = 13;
  integers = true;
  EXPECT_TRUE(refused([](auto&) {}));
  const std::string itself = (folder / "." / "up.grd").string();
  request.output_name = itself;
  integers = false;
  EXPECT_THROW((void)extend(1), platform::IoError);
}

}  // namespace
}  // namespace velmorankite
