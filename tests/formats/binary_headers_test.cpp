// Headers of the binary formats.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "formats/describe_grid.h"
#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/foreign_grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::foreign_format;
using testing::foreign_formats;
using testing::small_sample;
using testing::write_file;

class BinaryHeaders : public ::testing::Test {
 protected:
  Status describe(const std::string& name) { return GRDRDH((folder / name).string(), grid, texts); }
  Status describe(const std::string& name, const std::string& bytes) {
    write_file(folder / name, bytes);
    return describe(name);
  }
  // A tile without a header: its size and its name are all there is.
  Status describe_tile(const std::string& name, std::uintmax_t size) {
    std::filesystem::create_directories((folder / name).parent_path());
    write_file(folder / name, "x");
    std::filesystem::resize_file(folder / name, size);
    const Status status = describe(name);
    std::filesystem::remove(folder / name);
    return status;
  }

  testing::TemporaryFolder folder;
  grid_description grid;
  grid_texts texts;
};

template <typename T>
std::string with(const std::string& bytes, std::size_t offset, T value) {
  const std::string_view stored(reinterpret_cast<const char*>(&value), sizeof value);
  std::string result = bytes.substr(0, offset);
  return result.append(stored).append(bytes, offset + sizeof value, std::string::npos);
}

std::string sample_bytes(std::int32_t format_code) {
  const auto formats = foreign_formats();
  return std::find_if(formats.begin(), formats.end(),
                      [format_code](const foreign_format& format) {
                        return format.format_code == format_code;
                      })
      ->bytes(small_sample());
}

TEST_F(BinaryHeaders, tell_the_layout_the_lattice_and_the_dummy) {
  struct example {
    std::int32_t format, data_offset, element, sense, kind, aux_1, aux_2;
    double x_min, x_max, y_min, y_max, x_cell, y_cell;
    double dummy_value, z_min, z_max, z_mid, z_spread;
  };
  const double e30 = static_cast<double>(1.0E30F);
  const double e34 = static_cast<double>(-1.0E34F);
  const double standard = static_cast<double>(-1.0E32F);
  const double x1 = 1000.5;
  const double x2 = 1010.5;
  const double y1 = -2000.25;
  const double y2 = -1985.25;
  const example examples[] = {
      {2, 36, -4, 1, 2, 4, 4, x1, x2, y1, y2, 2, 5, e30, e30, e30, e30, e30},
      {8, 512, -4, -2, 2, 0, 0, x1, x2, y1, y2, 2, 5, e34, 5, 75, e34, e34},
      {10, 4096, 4, -1, 2, 0, 0, x1, x2, y1, -1994.25, 2, 2, -e30, -e30, -e30, -e30, -e30},
      {11, 240, 4, -2, 2, 0, 0, x1, x2, y1, y2, 2, 5, 99999, 99999, 99999, 99999, 99999},
      {12, 130, 2, 1, 1, 0, 0, x1, x2, y1, y2, 2, 5, -9999, -9999, -9999, -9999, -9999},
      {16, 3428, -2, -1, 1, 8, 4, 5, 6, -3, -2, 1.0 / 5, 1.0 / 3, -1, -1, -1, -1, -1},
      {19, 200, 4, -1, 2, 0, 0, x1, x2, y1, y2, 2, 5, -1.0E30, -1.0E30, -1.0E30, -1.0E30, -1.0E30},
      {20, 592, -8, 1, 4, 0, 0, x1, x2, y1, y2, 2, 5, -1.0E8, 5, 75, -1.0E8, -1.0E8},
      {23, 485, 4, -1, 2, 0, 0, x1, x2, y1, y2, 2, 5, standard, standard, standard, standard,
       standard},
  };
  for (const foreign_format& format : foreign_formats()) {
    SCOPED_TRACE(format.file_name);
    const example& e =
        *std::find_if(std::begin(examples), std::end(examples),
                      [&format](const example& row) { return row.format == format.format_code; });
    ASSERT_EQ(describe(format.file_name, format.bytes(small_sample())), success);
    const grid_ints& ints = grid.ints;
    const grid_reals& reals = grid.reals;
    EXPECT_EQ((std::array{ints.format_code, ints.band_count, ints.data_offset, ints.element_code}),
              (std::array{e.format, 1, e.data_offset, e.element}));
    EXPECT_EQ((std::array{ints.storage_sense, ints.element_kind, ints.aux_1, ints.aux_2}),
              (std::array{e.sense, e.kind, e.aux_1, e.aux_2}));
    EXPECT_EQ(lattice_of(grid), (Lattice{e.x_min, e.y_min, e.x_cell, e.y_cell, 6, 4}));
    EXPECT_EQ((std::array{reals.x_max, reals.y_max, reals.out_y_min}),
              (std::array{e.x_max, e.y_max, e.y_min}));
    EXPECT_EQ((std::array{reals.dummy_value, reals.z_min, reals.z_max}),
              (std::array{e.dummy_value, e.z_min, e.z_max}));
    EXPECT_EQ((std::array{reals.z_mid, reals.z_spread}), (std::array{e.z_mid, e.z_spread}));
    EXPECT_EQ(reals.rotation, e.format == 8 ? 30.0 : 0.0);
    EXPECT_EQ(reals.z_mult, e.format == 12 ? 4.0 : 1.0);
    EXPECT_EQ(reals.z_base, e.format == 12 ? 100.0 : 0.0);
  }
}

TEST_F(BinaryHeaders, describe_what_other_programs_write) {
  struct example {
    const char* name;
    std::int32_t format;
    double dummy_value, z_min, z_max;
  };
  const double surfer = 1.701410009187828E+38;
  const double standard = static_cast<double>(-1.0E32F);
  const example examples[] = {
      {"surfer/surfer6.grd", 13, surfer, 14.0, 229.0},
      {"surfer/surfer6_gmt.grd", 13, surfer, 14.0, 229.0},
      {"surfer/surfer7.grd", 14, 1.70141E+38, 14.0, 229.0},
      {"gmt/native.grd", 22, standard, standard, standard},
      {"gmt/native_pixel.grd", 22, standard, standard, standard},
  };
  for (const example& e : examples) {
    ASSERT_EQ(GRDRDH(testing::test_data(e.name).string(), grid, texts), success) << e.name;
    EXPECT_EQ(grid.ints.format_code, e.format) << e.name;
    EXPECT_FLOAT_EQ(static_cast<float>(grid.reals.dummy_value), static_cast<float>(e.dummy_value));
    EXPECT_EQ(grid.reals.z_min, e.z_min) << e.name;
    EXPECT_EQ(grid.reals.z_max, e.z_max) << e.name;
  }
}

TEST_F(BinaryHeaders, surfer_7_needs_its_sections_in_a_row) {
  const std::string bytes = testing::read_file(testing::test_data("surfer/surfer7.grd"));
  std::string section = bytes;
  section.insert(92, std::string("FLTI\4\0\0\0\0\0\0\0", 12));
  EXPECT_EQ(describe("a.grd", section), surfer_7_sections_unsound);
  EXPECT_EQ(describe("a.grd", with(bytes, 92, 'd')), surfer_7_sections_unsound);
  EXPECT_EQ(describe("a.grd", with(bytes, 20, 0)), surfer_7_sections_unsound);
  EXPECT_EQ(describe("a.grd", with(bytes, 24, -13)), surfer_7_sections_unsound);
  EXPECT_EQ(describe("a.grd", with(bytes, 44, 0.0)), cell_size_unsound);
  // A chain that never comes to its data.
  std::string chain;
  while (chain.size() < 8192) {
    chain += bytes.substr(0, 12);
  }
  EXPECT_EQ(describe("a.grd", chain), surfer_7_sections_unsound);
}

TEST_F(BinaryHeaders, refuse_a_file_that_ends_in_its_header_and_tell_of_any_longer_one_the_same) {
  std::vector<std::pair<std::string, std::string>> files;
  for (const char* name : {"surfer/surfer6.grd", "surfer/surfer7.grd", "gmt/native.grd"}) {
    files.emplace_back("a.grd", testing::read_file(testing::test_data(name)));
  }
  for (const foreign_format& format : foreign_formats()) {
    files.emplace_back(format.file_name, format.bytes(small_sample()));
  }
  for (const auto& [name, bytes] : files) {
    ASSERT_EQ(describe(name, bytes), success) << name;
    const grid_description whole = grid;
    // Contents show in 256 bytes; what the extension tells apart needs its fields only.
    const std::size_t needed = name.ends_with(".bgd") ? 236 : name.ends_with(".dt1") ? 56 : 256;
    for (std::size_t length = bytes.size() - 1; length > 0; --length) {
      std::filesystem::resize_file(folder / name, length);
      EXPECT_EQ(describe(name).failed(), length < needed) << name << " " << length;
      if (length >= needed && whole.ints.format_code == 19) {  // its cells end the file
        EXPECT_EQ(grid.ints.data_offset, static_cast<std::int32_t>(length) - 96);
      } else if (length >= needed) {
        EXPECT_EQ(std::memcmp(&grid, &whole, sizeof whole), 0) << name << " " << length;
      }
    }
  }
}

TEST_F(BinaryHeaders, let_a_failed_read_end_in_a_status_or_an_io_error) {
  for (const foreign_format& format : foreign_formats()) {
    write_file(folder / format.file_name, format.bytes(small_sample()));
    for (const auto call : {testing::system_call::open, testing::system_call::read}) {
      bool described = false;
      const int failures = testing::fail_each_call(
          call, EIO,
          [&] {
            described = false;
            described = !describe(format.file_name).failed();
          },
          [&described](int) { EXPECT_FALSE(described); });
      EXPECT_GE(failures, 1) << format.file_name;
    }
  }
}

TEST_F(BinaryHeaders, refuse_counts_and_cell_sizes_that_no_grid_has) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::string encom = sample_bytes(11);
  EXPECT_EQ(describe("a.grd", with(encom, 196, 0.5F)), counts_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 196, -6.0F)), counts_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 196, nan)), counts_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 196, 1.0E20F)), counts_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 220, 0.0F)), cell_size_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 228, -5.0F)), cell_size_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 220, nan)), cell_size_unsound);
  EXPECT_EQ(describe("a.grd", with(encom, 204, nan)), limits_unsound);
  const std::string tile = sample_bytes(16);
  EXPECT_EQ(describe("a.dt1", with(tile, 4, 'x')), number_unreadable);
  EXPECT_EQ(describe("a.dt1", with(tile, 50, '.')), number_unreadable);
  EXPECT_EQ(describe("a.dt1", with(with(tile, 50, '1'), 49, '0')), cell_size_unsound);
}

TEST_F(BinaryHeaders, hemispheres_of_a_dted_tile_make_negative_degrees) {
  ASSERT_EQ(describe("a.dt2", with(with(sample_bytes(16), 11, 'W'), 19, 'N')), success);
  EXPECT_EQ(grid.ints.format_code, 17);
  EXPECT_EQ(grid.ints.data_offset, 3428);
  EXPECT_EQ(grid.ints.aux_1, 8);
  EXPECT_EQ(grid.ints.aux_2, 4);
  EXPECT_EQ(grid.reals.x_min, -5.0);
  EXPECT_EQ(grid.reals.y_min, 3.0);
}

TEST_F(BinaryHeaders, record_lengths_mend_counts_that_single_precision_cut_short) {
  testing::sample_grid sample = small_sample();
  sample.lattice.x_min = 10.0;
  sample.lattice.x_cell = 0.1;  // as a float a hair above, so that 5 cells do not fit the limits
  std::string (*const as_records)(const testing::sample_grid&) = foreign_formats()[0].bytes;
  ASSERT_EQ(describe("a.grd", as_records(sample)), success);
  EXPECT_EQ(grid.ints.x_count, 6);
  EXPECT_EQ(grid.ints.y_count, 4);
  // Nothing tells of a sixth column here.
  ASSERT_EQ(describe("a.grd", with(as_records(sample), 36, 0)), success);
  EXPECT_EQ(grid.ints.x_count, 5);
}

TEST_F(BinaryHeaders, tiles_take_their_corner_from_their_own_name) {
  struct example {
    const char* name;
    Status status;
    double x_min, y_min;
  };
  const example examples[] = {
      {"s33w071.hgt", success, -71, -33},
      {"N45E006_SRTM3.hgt", success, 6, 45},
      {"n00e000.hgt", success, 0, 0},
      {"N12.tiles/E W/S07E0135.v2.hgt", success, 135, -7},
      {"h\xC3\xB6he/data\\S07E0135.hgt", success, 135, -7},
      {"N45X006.hgt", tile_name_without_longitude, 0, 0},
      {"E.tiles/n45.hgt", tile_name_without_longitude, 0, 0},
      {"elevation.hgt", number_unreadable, 0, 0},
      {"N45E.hgt", number_unreadable, 0, 0},
  };
  for (const example& e : examples) {
    EXPECT_EQ(describe_tile(e.name, 2884802), e.status) << e.name;
    if (e.status == success) {
      EXPECT_EQ(grid.reals.x_min, e.x_min) << e.name;
      EXPECT_EQ(grid.reals.y_min, e.y_min) << e.name;
      EXPECT_EQ(grid.reals.x_max, e.x_min + 1.0) << e.name;
    }
  }
}

TEST_F(BinaryHeaders, tiles_without_a_header_have_a_fixed_layout) {
  ASSERT_EQ(describe_tile("N45W120.hgt", 25934402), success);
  EXPECT_EQ(grid.ints.format_code, 17);
  EXPECT_EQ(grid.ints.data_offset, 0);
  EXPECT_EQ(grid.ints.element_code, -2);
  EXPECT_EQ(grid.ints.storage_sense, -2);
  EXPECT_EQ(grid.ints.element_kind, 1);
  EXPECT_EQ(grid.ints.x_count, 3601);
  EXPECT_EQ(grid.reals.y_cell, 1.0 / 3600.0);
  EXPECT_EQ(grid.reals.dummy_value, -32768.0);

  ASSERT_EQ(describe_tile("S45E120.xi", 12500000), success);
  EXPECT_EQ(grid.ints.format_code, 25);
  EXPECT_EQ(grid.ints.element_code, -2);
  EXPECT_EQ(grid.ints.storage_sense, -1);
  EXPECT_EQ(grid.ints.x_count, 2500);
  EXPECT_EQ(grid.reals.x_min, 120.0);
  EXPECT_EQ(grid.reals.y_min, -45.0);
  EXPECT_EQ(grid.reals.y_max, -40.0);
  EXPECT_EQ(grid.reals.x_cell, 0.002);
  EXPECT_EQ(grid.reals.dummy_value, -32768.0);
  for (const auto& [name, bytes] : {std::pair("S45E120.ga12", 4),
                                    {"S45E120.ha", 4},
                                    {"S45E120.dg2", 2},
                                    {"S45E120.xi", 2},
                                    {"S45E120.eta", 2}}) {
    ASSERT_EQ(describe_tile(name, 1), success) << name;  // the cells are not looked at
    EXPECT_EQ(grid.reals.dummy_value, bytes == 4 ? -2147483648.0 : -32768.0) << name;
  }
  EXPECT_EQ(describe_tile("s45e120.ga", 25000000), tile_name_without_longitude);
}

}  // namespace
}  // namespace velmorankite
