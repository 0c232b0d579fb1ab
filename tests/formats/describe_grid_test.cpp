// SPDX-License-Identifier: MIT
#include "formats/describe_grid.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "formats/header_status.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::describe;
using testing::read_file;
using testing::TemporaryFolder;
using testing::write_file;

// A standard grid of 6 columns by 4 rows, with some bytes of its header put over.
class StandardGrid : public ::testing::Test {
 protected:
  StandardGrid() {
    testing::write_grid(path, {1000.0, 2000.0, 0.1, 30.0, 6, 4},
                        [](int column, int row) { return static_cast<float>(10 * row + column); });
  }

  template <typename T>
  void put(std::size_t offset, T value) {
    std::string bytes = read_file(path);
    std::memcpy(bytes.data() + offset, &value, sizeof value);
    write_file(path, bytes);
  }

  Status status_of(const std::string& name) { return GRDRDH(name, grid, texts); }

  TemporaryFolder folder;
  std::filesystem::path path = folder / "a.grd";
  grid_description grid;
  grid_texts texts;
};

TEST_F(StandardGrid, rows_or_columns_follow_from_the_sense) {
  for (const std::int32_t sense : {1, -1, 2, -2, 3, -3, 4, -4}) {
    put(16, sense);
    grid = describe(path);
    const bool columns = sense == -1 || sense == 2 || sense == -3 || sense == 4;
    EXPECT_EQ(grid.ints.storage_sense, sense);
    EXPECT_EQ(grid.ints.x_count, columns ? 4 : 6);
    EXPECT_EQ(grid.ints.y_count, columns ? 6 : 4);
    EXPECT_EQ(grid.reals.x_cell, columns ? 30.0 : 0.1);
    EXPECT_EQ(grid.reals.y_cell, columns ? static_cast<double>(0.1F) : 30.0);
    EXPECT_EQ(grid.reals.x_max, grid.reals.x_min + (grid.ints.x_count - 1) * grid.reals.x_cell);
    EXPECT_EQ(grid.reals.out_y_max, grid.reals.y_max);
    EXPECT_EQ(grid.ints.out_x_count, grid.ints.x_count);
  }
}

TEST_F(StandardGrid, a_compressed_grid_has_a_negative_element_code_and_is_not_plain) {
  grid = describe(path);
  EXPECT_TRUE(is_plain_standard(grid.ints));
  put<std::int16_t>(0, 1028);
  grid = describe(path);
  EXPECT_EQ(grid.ints.element_code, -4);
  EXPECT_FALSE(is_plain_standard(grid.ints));
}

TEST_F(StandardGrid, statistics_are_scaled_by_base_and_multiplier) {
  put(60, 100.0);
  put(68, 4.0);
  for (int i = 0; i < 4; ++i) {
    put(160 + 4 * static_cast<std::size_t>(i), static_cast<float>(i + 1));
  }
  grid = describe(path);
  EXPECT_EQ(grid.reals.z_min, 100.25);
  EXPECT_EQ(grid.reals.z_max, 100.5);
  EXPECT_EQ(grid.reals.z_mid, 100.75);
  EXPECT_EQ(grid.reals.z_spread, 101.0);
  put<std::int16_t>(0, 2);
  put<std::int32_t>(4, 1);
  for (int i = 0; i < 4; ++i) {
    put(160 + 4 * static_cast<std::size_t>(i), i + 8);
  }
  grid = describe(path);
  EXPECT_EQ(grid.reals.dummy_value, -32767.0);
  EXPECT_EQ(grid.reals.z_min, 102.0);
  EXPECT_EQ(grid.reals.z_spread, 102.75);
}

TEST_F(StandardGrid, unknown_statistics_are_the_dummy_of_the_cells) {
  struct example {
    std::int16_t element_size;
    std::int32_t kind;
    std::uint32_t word;
    double expected;
  };
  const example examples[] = {
      {4, 2, 0xF49DC5AE, -1.0000000331813535e+32},
      {4, 2, 0x7FC00000, -1.0000000331813535e+32},
      {4, 2, 0x7F800000, -1.0000000331813535e+32},
      {4, 1, 0x80000001, -2147483647.0},
      {2, 1, 0xFFFF8001, -32767.0},
      {2, 0, 0xFFFF8001, 65536.0},
      {1, 1, 0xFFFFFF81, -127.0},
      {2, 1, 0xFFFF8000, -32767.0},
  };
  for (const example& e : examples) {
    put(0, e.element_size);
    put(4, e.kind);
    put(160, e.word);
    put(164, 1.0F);
    grid = describe(path);
    EXPECT_EQ(grid.reals.z_min, e.expected) << e.word;
    EXPECT_EQ(grid.reals.z_max, e.expected) << e.word;
  }
}

TEST_F(StandardGrid, names_and_files_that_are_no_grid_have_their_own_status) {
  EXPECT_EQ(status_of("ab"), name_too_short);
  EXPECT_EQ(status_of("ab      "), name_too_short);
  EXPECT_EQ(status_of((folder / "missing.grd").string()), file_missing);
  write_file(folder / "empty.grd", "");
  EXPECT_EQ(status_of((folder / "empty.grd").string()), file_empty);
  write_file(folder / "short.grd", read_file(path).substr(0, 255));
  EXPECT_EQ(status_of((folder / "short.grd").string()), first_bytes_unreadable);
  write_file(folder / "other.grd", std::string(600, '\xFF'));
  EXPECT_EQ(status_of((folder / "other.grd").string()), format_unknown);
  write_file(folder / "four.nc", "\x89HDF\r\n" + std::string(600, ' '));
  grid_description unknown;
  grid_texts advised;
  EXPECT_EQ(GRDRDH((folder / "four.nc").string(), unknown, advised), format_unknown);
  ASSERT_EQ(advised.advice.size(), 1U);
  EXPECT_NE(advised.advice[0].find("nccopy -k classic"), std::string::npos);
  EXPECT_EQ(status_of(path.string() + std::string(1, '\0') + "   "), success);
}

TEST_F(StandardGrid, a_file_that_ends_inside_its_header_is_refused) {
  for (std::size_t length = 511; length >= 256; --length) {
    std::filesystem::resize_file(path, length);
    EXPECT_EQ(status_of(path.string()), header_too_short) << length;
  }
}

TEST_F(StandardGrid, what_goes_through_the_conversion_needs_counts_and_cell_sizes) {
  put<std::int16_t>(0, 1028);
  EXPECT_EQ(status_of(path.string()), success);
  put(20, std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(status_of(path.string()), cell_size_unsound);
  put(20, 0.1);
  put(28, -30.0);
  EXPECT_EQ(status_of(path.string()), cell_size_unsound);
  put(28, 30.0);
  put(36, std::numeric_limits<double>::infinity());
  EXPECT_EQ(status_of(path.string()), limits_unsound);
  put(8, 0x7FFFFFFF);
  EXPECT_EQ(status_of(path.string()), counts_unsound);
  put(8, 0);
  EXPECT_EQ(status_of(path.string()), counts_unsound);
}

TEST_F(StandardGrid, rows_are_read_only_from_files_that_hold_what_the_header_says) {
  const auto refusal = [this] {
    grid = describe(path);
    const platform::BinaryFile file(path, platform::open_mode::read);
    try {
      check_float_grid(file, grid);
    } catch (const platform::IoError& error) {
      return std::string(error.what()).substr(path.string().size() + 2);
    }
    return std::string();
  };
  EXPECT_EQ(refusal(), "");
  put(12, 0x7FFFFFFF);
  EXPECT_EQ(refusal(),
            "the file ends too early: 6 columns by 2147483647 rows need 51539608040 bytes, 608 "
            "are there");
  put(8, 0x7FFFFFFF);
  EXPECT_EQ(refusal(), "rows below 2 GiB expected, 2147483647 columns found");
  put(8, 0);
  EXPECT_EQ(refusal(), "counts of at least 1 expected, 0 columns and 2147483647 rows found");
  put(16, 3);
  EXPECT_EQ(refusal(), "storage sense 1 or -2 expected, 3 found");
  put<std::int32_t>(4, 1);
  EXPECT_EQ(refusal(), "cells of 4-byte floats expected, element size 4 and kind 1 found");
}

}  // namespace
}  // namespace velmorankite
