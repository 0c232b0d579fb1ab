// SPDX-License-Identifier: MIT
#include "condition/padded_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

#include "condition/edge_taper.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::cell_index;
using testing::describe;
using testing::first_difference;
using testing::read_grid;
using testing::write_grid;

constexpr Lattice lattice{500.0, 900.0, 10.0, 5.0, 12, 9};

float field(std::int32_t column, std::int32_t row) {
  const bool blank = row == 5 || (column > 4 && column < 8 && row > 6);
  return blank ? dummy : 40.0F + static_cast<float>(3 * column - 2 * row + column * row % 5);
}

class PaddedGrid : public ::testing::Test {
 protected:
  PaddedGrid() {
    request.taper = true;
    request.taper_width = 4;
    request.column_pad = 13;
    request.row_pad = 11;
    request.x_count = 38;
    request.y_count = 31;
    request.average = 44.0F;
    request.trend = {41.0F, 0.25F, -0.5F};
  }

  std::vector<float> padded(std::int32_t sense, pad_storage storage = pad_storage::whole) {
    write_grid(folder / "in.grd", lattice, field, sense);
    EXPECT_EQ(GRDPAD((folder / "in.grd").string(), folder / "pad.grd", request, range, storage),
              success);
    return read_grid(folder / "pad.grd");
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder inside{folder.path()};
  pad_request request;
  value_range range;
};

TEST_F(PaddedGrid, data_lie_in_the_middle_less_their_plane_and_the_edges_hold_the_level) {
  for (const std::int32_t sense : {1, -2}) {
    for (const std::int32_t mode : {0, 2}) {
      request.detrend_mode = mode;
      const std::vector<float> cells = padded(sense);
      const float level = mode == 2 ? 44.0F : 0.0F;
      for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
        for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
          const float given = field(column, row);
          if (!is_valid(given)) {
            continue;
          }
          // On sense -2 the plane counts rows down from the highest, the first of them as 1.
          const int t = sense == 1 ? row - 1 : lattice.y_count - row + 1;
          const double plane = 41.0 + 0.25 * 10.0 * (column - 1) - 0.5 * 5.0 * t;
          const double expected = mode == 2 ? given : given - plane;
          EXPECT_EQ(cells[cell_index(column + 13, row + 11, 38)], static_cast<float>(expected))
              << column << " " << row;
        }
      }
      for (std::int32_t column = 1; column <= 38; ++column) {
        EXPECT_EQ(cells[cell_index(column, 1, 38)], level);
        EXPECT_EQ(cells[cell_index(column, 31, 38)], level);
      }
    }
  }
}

TEST_F(PaddedGrid, every_row_is_tapered_by_the_margins_of_both_axes_and_enters_the_range) {
  request.taper = false;
  std::vector<float> expected = padded(1);
  for (std::int32_t row = 1; row <= 31; ++row) {
    taper_row(std::span(expected).subspan(cell_index(1, row, 38), 38), row, 31,
              taper_factors(13, 4), taper_factors(11, 4), 0.0F);
  }
  request.taper = true;
  EXPECT_EQ(first_difference(expected, padded(1)), "");
  EXPECT_EQ(range.smallest, *std::ranges::min_element(expected));
  EXPECT_EQ(range.largest, *std::ranges::max_element(expected));
}

TEST_F(PaddedGrid, the_header_tells_a_later_run_what_it_was_made_with) {
  request.detrend_mode = 1;
  (void)padded(-2);
  const grid_description grid = describe(folder / "pad.grd");
  EXPECT_EQ(grid.ints.storage_sense, -2);
  EXPECT_EQ(grid.ints.band_select, 1);
  const grid_reals& reals = grid.reals;
  EXPECT_EQ((std::vector<double>{reals.x_min, reals.y_min, reals.z_min, reals.z_max, reals.z_mid,
                                 reals.z_spread}),
            (std::vector<double>{370.0, 845.0, 0.25, -0.5, 41.0, 44.0}));
}

TEST_F(PaddedGrid, held_by_rows_it_is_the_same_to_the_bit) {
  for (const std::int32_t sense : {1, -2}) {
    const std::vector<float> whole = padded(sense);
    const value_range of_whole = range;
    EXPECT_EQ(first_difference(whole, padded(sense, pad_storage::by_rows)), "");
    EXPECT_EQ(range.largest, of_whole.largest);
    EXPECT_EQ(range.smallest, of_whole.smallest);
  }
}

TEST_F(PaddedGrid, made_in_lent_memory_it_is_the_same_and_what_lies_behind_it_stays) {
  const std::size_t cells = std::size_t{38} * 31;
  const std::vector<float> own = padded(1);
  for (const std::size_t lent : {cells - 1, cells, cells + 2}) {
    std::vector<float> memory(cells + 2, 7.0F);
    request.lent = std::span(memory).first(lent);
    EXPECT_EQ(first_difference(own, padded(1)), "") << lent;
    EXPECT_EQ(memory[cells], 7.0F);
    EXPECT_EQ(memory[0] == 7.0F, lent < cells) << lent;  // too small: not touched
  }
}

TEST_F(PaddedGrid, impossible_requests_and_failing_files_leave_nothing) {
  using names = std::vector<std::string>;
  for (const std::string& name : {std::string("missing.grd"), folder.path().string()}) {
    EXPECT_EQ(GRDPAD(name, folder / "pad.grd", request, range), pad_input_unreadable);
  }
  write_grid(folder / "in.grd", lattice, field);
  const std::string input = (folder / "in.grd").string();
  for (const auto& [column_pad, row_pad] : {std::pair{27, 11}, {13, 23}, {-1, 11}, {13, -1}}) {
    request.column_pad = column_pad;
    request.row_pad = row_pad;
    EXPECT_EQ(GRDPAD(input, folder / "pad.grd", request, range), pad_size_impossible);
  }
  // The first and the last place of the input in the padded grid.
  for (const auto& [column_pad, row_pad] : {std::pair{0, 0}, {26, 22}}) {
    request.column_pad = column_pad;
    request.row_pad = row_pad;
    EXPECT_EQ(GRDPAD(input, folder / "pad.grd", request, range), success);
  }
  std::filesystem::remove(folder / "pad.grd");
  // Every call of a small grid fails in its turn.
  request.column_pad = request.row_pad = 2;
  request.x_count = request.y_count = 8;
  write_grid(folder / "in.grd", {0.0, 0.0, 1.0, 1.0, 4, 4}, field);
  for (const pad_storage storage : {pad_storage::whole, pad_storage::by_rows}) {
    for (const auto call : {testing::system_call::write, testing::system_call::read}) {
      testing::fail_each_call(
          call, ENOSPC, [&] { (void)GRDPAD(input, folder / "pad.grd", request, range, storage); },
          [&](int) { EXPECT_EQ(folder.names(), names{"in.grd"}); });
      std::filesystem::remove(folder / "pad.grd");
    }
  }
  write_grid(folder / "in.grd", {0.0, 0.0, 1.0, 1.0, 4, 4}, [](int, int) { return dummy; });
  EXPECT_TRUE(GRDPAD(input, folder / "pad.grd", request, range).failed());
  EXPECT_EQ(folder.names(), names{"in.grd"});
  // No level of the fill, which goes through a file, takes the place of the input.
  write_grid("mmap_level_001.grd", {0.0, 0.0, 1.0, 1.0, 4, 4}, field);
  const std::string before = testing::read_file("mmap_level_001.grd");
  EXPECT_THROW(static_cast<void>(
                   GRDPAD("./mmap_level_001.grd", "pad.grd", request, range, pad_storage::by_rows)),
               platform::IoError);
  EXPECT_EQ(testing::read_file("mmap_level_001.grd"), before);
  EXPECT_EQ(folder.names(), (names{"in.grd", "mmap_level_001.grd"}));
}

TEST(EdgeTaper, rises_from_nothing_at_the_edge_and_stays_within_the_margin) {
  // A margin of 3 x 11 + 1 cells: 2 x 11 + 5 of them are tapered.
  const std::vector<float> factors = taper_factors(34, 11);
  ASSERT_EQ(factors.size(), 27U);
  EXPECT_EQ(factors[0], 0.0F);
  EXPECT_EQ(factors[13], (1.0F - std::cos(3.14159250F * 13.0F / 27.0F)) / 2.0F);
  EXPECT_EQ(taper_factors(2, 9).size(), 9U);
  std::vector<float> row(10, 8.0F);
  const std::vector<float> columns{0.0F, 0.5F};
  taper_row(row, 2, 9, columns, columns, 4.0F);
  EXPECT_EQ(row, (std::vector<float>{4, 5, 6, 6, 6, 6, 6, 6, 5, 4}));
  taper_row(row, 3, 9, {}, columns, 4.0F);
  EXPECT_EQ(row[4], 6.0F);
  taper_row(row, 8, 9, {}, columns, 4.0F);
  EXPECT_EQ(row[4], 5.0F);
  taper_row(row, 9, 9, {}, columns, 4.0F);
  EXPECT_EQ(row[4], 4.0F);
  // A grid of one column, and what lies behind it.
  std::vector<float> narrow(3, 8.0F);
  taper_row(std::span(narrow).first(1), 5, 9, columns, columns, 4.0F);
  EXPECT_EQ(narrow, (std::vector<float>{4, 8, 8}));
}

}  // namespace
}  // namespace velmorankite
