// SPDX-License-Identifier: MIT
#include "formats/recognition.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <utility>

#include "formats/describe_grid.h"
#include "platform/byte_order.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;
using testing::write_file;

// The first 256 bytes of a file, in the making.
struct head {
  std::string bytes = std::string(head_bytes, '\xFF');

  head& text(std::size_t offset, std::string_view value) {
    bytes.replace(offset, value.size(), value);
    return *this;
  }
  template <typename T>
  head& put(std::size_t offset, T value) {
    platform::store(value, reinterpret_cast<std::byte*>(&bytes[offset]));
    return *this;
  }
  head& doubles(std::size_t offset, std::initializer_list<double> values) {
    for (const double value : values) {
      put(offset, value);
      offset += sizeof value;
    }
    return *this;
  }
};

class Recognition : public ::testing::Test {
 protected:
  // The format of a file of this name and these bytes, or the status that refuses it.
  std::int32_t format_of(const std::string& name, const std::string& bytes) {
    write_file(folder / name, bytes);
    return format_of_size(name, static_cast<std::int64_t>(bytes.size()));
  }
  std::int32_t format_of(const std::string& name, const head& h) {
    return format_of(name, h.bytes);
  }
  std::int32_t format_of_size(const std::string& name, std::int64_t size) {
    grid = {};
    const std::filesystem::path path = folder / name;
    const Status status = recognise_format({path, extension_of(path), size}, grid);
    return status.failed() ? status.code : grid.ints.format_code;
  }

  TemporaryFolder folder;
  grid_description grid;
};

head gmt_head() {
  return head()
      .put(0, 6)
      .put(4, 4)
      .put(8, 0)
      .doubles(12, {10.5, 20.5, -3.0, 3.0})
      .doubles(60, {2.0, 2.0});
}

head vulcan_head() {
  return head().doubles(0, {6.0, 4.0, 2.0, 5.0, 10.0, 20.0, 100.0, 115.0});
}

head geodass_head() {
  return head().put(5, 2.0F).put(9, 3.0F).put<std::int16_t>(13, 4).put<std::int16_t>(15, 6);
}

TEST_F(Recognition, an_extension_decides_ahead_of_the_content) {
  const std::pair<const char*, std::int32_t> examples[] = {
      {"a.ers", 1}, {"a.Gxf", 3},  {"a.pix", 4},  {"a.bil", 5},   {"a.bip", 6},   {"a.bgd", 8},
      {"a.arc", 9}, {"a.asc", 9},  {"a.dt1", 16}, {"a.dt2", 17},  {"a.flt", 18},  {"a.ga", 25},
      {"a.ha", 25}, {"a.dg2", 25}, {"a.xi", 25},  {"a.eta3", 25}, {"a.ga12", 25},
  };
  for (const auto& [name, format] : examples) {
    EXPECT_EQ(format_of(name, "# a GXF by its content"), format) << name;
  }
  for (const char* name : {"a.et", "a.asc2", "a.g", "asc", "a.x"}) {
    EXPECT_EQ(format_of(name, head().text(0, "#")), 3) << name;
  }
}

TEST_F(Recognition, a_tile_is_known_by_its_size) {
  EXPECT_EQ(format_of_size("a.hgt", 2884802), 16);
  EXPECT_EQ(format_of_size("a.hgt", 2884801), -1005);
  EXPECT_EQ(format_of_size("a.hgt", 2884802 + 1000), 16);
  EXPECT_EQ(format_of_size("a.hgt", 2889608), -1005);
  EXPECT_EQ(format_of_size("a.HGT", 25934402), 17);
  EXPECT_EQ(format_of_size("a.hgt", 25934400), -1005);
  EXPECT_EQ(format_of_size("a.hgt", 1000), -1005);
}

TEST_F(Recognition, the_extension_is_that_of_the_files_own_name) {
  std::filesystem::create_directories(folder / "sur vey.asc/2.ers");
  EXPECT_EQ(extension_of(folder / "sur vey.asc/2.ers/tile"), "");
  EXPECT_EQ(extension_of("data.asc\\tile"), "");
  EXPECT_EQ(extension_of("Gr\xC3\xB6\xC3\x9F"
                         "e.v2.a\xC3\xA4sc"),
            ".A\xC3\xA4SC");
  EXPECT_EQ(extension_of("a.b123456789012345678"), ".B12345678901234");
  EXPECT_EQ(format_of("sur vey.asc/2.ers/tile", head().text(0, "DSRB")), 14);
  EXPECT_EQ(format_of("sur vey.asc/2.ers/h\xC3\xB6he 1.gxf", head().text(0, "DSRB")), 3);
}

TEST_F(Recognition, the_first_bytes_decide_where_the_extension_does_not) {
  struct example {
    const char* name;
    head bytes;
    std::int32_t expected;
  };
  const std::string record_length("\0\0\0\x1C", 4);
  const example examples[] = {
      {"a.grd", head().text(0, "#"), 3},
      {"a.grd", head().text(0, "PCIDSK  "), 4},
      {"a.grd", head().text(0, "PCIDSK 2"), -1005},
      {"a.grd", head().text(0, "$$GRID$$"), 7},
      {"a.grd", head().text(0, "$$BGD"), 8},
      {"a.grd", head().text(0, "TOOL"), 11},
      {"a.grd", head().text(0, "DSBB"), 13},
      {"a.grd", head().text(0, "DSRB"), 14},
      {"a.dat", head().text(0, "CDF"), 21},
      {"a.txt", head().text(0, "ncols"), 9},
      {"a.txt", head().text(0, "NCOLS"), 9},
      {"a.txt", head().text(0, "Ncols"), -1005},
      {"a.grd", head().text(0, "K").put(2, 4.0F).put(6, 6.0F), 12},
      {"a.grd", head().text(0, "K").put(2, 4.0F).put(6, 0.0F), -1005},
      {"a.grd", head().put(0, 65), 23},
      {"a.grd", head().text(0, "!@GRID"), 24},
      {"a.dat", head().text(0, "@ GRID"), 24},
      {"a.dat", head().text(0, "! GRID"), -1005},
      {"a.grd", head().text(0, " @GRID"), -1005},
      {"a.grd", head().put(0, 4).put(4, 2), 2},
      {"a.grd", head().put(0, 0x0404).put(4, -1), 2},
      {"a.dat", head().put(0, 4).put(4, 2), -1005},
      {"a.grd", head().put(0, 3).put(4, 2), -1005},
      {"a.grd", head().put(0, 0x0304).put(4, 2), -1005},
      {"a.grd", head().put(0, 8).put(4, 4), -1005},
      {"a.xyz", head().text(0, record_length).text(32, record_length), 2},
      {"a.xyz", head().text(0, record_length), -1005},
      {"a.grd", head().put(0, 5.0F).put(4, 4.0F).put(8, 6.0F).put(20, 0.0F), 10},
      {"a.xyz", head().put(0, 5.0F).put(4, 4.0F).put(8, 6.0F).put(20, 0.0F), -1005},
      {"a.grd", head().put(0, 5.0F).put(4, 4.0F).put(8, 6.0F).put(20, 1.0F), -1005},
  };
  for (const example& e : examples) {
    EXPECT_EQ(format_of(e.name, e.bytes), e.expected)
        << e.name << " " << e.bytes.bytes.substr(0, 8);
  }
}

TEST_F(Recognition, both_variants_of_surfer_6_and_of_the_standard_grid_are_told_apart) {
  EXPECT_EQ(format_of("a.grd", head().text(0, "DSAA")), 13);
  EXPECT_EQ(grid.ints.element_code, 1);
  EXPECT_EQ(format_of("a.grd", head().text(0, "DSBB")), 13);
  EXPECT_EQ(grid.ints.element_code, 4);
  const std::string record_length("\0\0\0\x1C", 4);
  EXPECT_EQ(format_of("a.grd", head().text(0, record_length).text(32, record_length)), 2);
  EXPECT_EQ(grid.ints.data_offset, 36);
  EXPECT_EQ(format_of("a.grd", head().put(0, 4).put(4, 2)), 2);
  EXPECT_EQ(grid.ints.data_offset, 0);
}

TEST_F(Recognition, a_gmt_header_needs_limits_and_cell_sizes_in_order) {
  EXPECT_EQ(format_of("a.any", gmt_head()), 22);
  EXPECT_EQ(grid.ints.x_count, 6);
  EXPECT_EQ(grid.ints.y_count, 4);
  EXPECT_EQ(grid.reals.x_min, 10.5);
  EXPECT_EQ(grid.reals.y_max, 3.0);
  EXPECT_EQ(grid.reals.y_cell, 2.0);
  EXPECT_EQ(format_of("a.any", gmt_head().put(20, 10.5)), -1005);
  EXPECT_EQ(format_of("a.any", gmt_head().put(36, -3.0)), -1005);
  EXPECT_EQ(format_of("a.any", gmt_head().put(60, -2.0)), -1005);
  EXPECT_EQ(format_of("a.any", gmt_head().put(8, 1)), -1005);
  EXPECT_EQ(format_of("a.any", gmt_head().put(12, 0.1)), -1005);  // its low word is not 0
  EXPECT_EQ(format_of("a.any", gmt_head().put(12, 0.0)), 22);
}

TEST_F(Recognition,
       what_looks_like_gmt_and_is_not_can_still_be_a_standard_grid_but_nothing_before) {
  const auto failing = [] { return gmt_head().put(68, 0.0).put(68, -1.0); };
  EXPECT_EQ(format_of("a.grd", failing().put(0, 65)), -1005);
  EXPECT_EQ(format_of("a.grd", failing().text(0, std::string_view("!\0\0\0", 4)).text(80, "@GRID")),
            -1005);
  EXPECT_EQ(format_of("a.grd", failing().put(0, 4).put(4, 2)), 2);
  EXPECT_EQ(format_of("a.dat", failing().put(0, 4).put(4, 2)), -1005);
}

TEST_F(Recognition, a_vulcan_header_agrees_with_itself) {
  EXPECT_EQ(format_of("a.any", vulcan_head()), 20);
  EXPECT_EQ(format_of("a.any", vulcan_head().put(40, 20.19)), 20);
  EXPECT_EQ(format_of("a.any", vulcan_head().put(40, 20.21)), -1005);
  EXPECT_EQ(format_of("a.any", vulcan_head().put(56, 115.51)), -1005);
  for (const std::size_t offset : {0, 8, 16, 24}) {
    EXPECT_EQ(format_of("a.any", vulcan_head().put(offset, -6.0)), -1005) << offset;
  }
}

TEST_F(Recognition, a_geodass_header_is_what_its_cells_leave_of_the_file) {
  constexpr std::int64_t cells = 96;  // bytes of 4 by 6 floats
  ASSERT_EQ(format_of("a.grd", geodass_head()), 19);
  EXPECT_EQ(format_of("a.any", geodass_head()), -1005);
  EXPECT_EQ(format_of_size("a.grd", cells + 26), 19);
  EXPECT_EQ(format_of_size("a.grd", cells + 25), -1005);
  EXPECT_EQ(format_of_size("a.grd", cells + 26 + 9973), 19);
  EXPECT_EQ(format_of_size("a.grd", cells + 26 + 9974), -1005);
  EXPECT_EQ(format_of("a.grd", geodass_head().put(5, 0.0F)), -1005);
  EXPECT_EQ(format_of("a.grd", geodass_head().put<std::int16_t>(13, -4)), -1005);
}

TEST_F(Recognition, a_file_without_256_bytes_is_only_known_by_its_extension) {
  const std::string short_head = head().text(0, "DSBB").bytes.substr(0, 255);
  EXPECT_EQ(format_of("a.grd", short_head), -1006);
  EXPECT_EQ(format_of("a.asc", short_head), 9);
  write_file(folder / "a.grd", gmt_head().bytes);
  testing::FailingSystem failing(testing::system_call::read, 1, EIO);
  const platform::SystemOverride override(failing);
  EXPECT_EQ(format_of_size("a.grd", 256), -1006);
}

}  // namespace
}  // namespace velmorankite
