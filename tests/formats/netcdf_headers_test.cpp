// Headers of netCDF classic files.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>

#include "formats/describe_grid.h"
#include "formats/header_status.h"
#include "formats/netcdf_header.h"
#include "grid/grid_rows.h"
#include "support/netcdf_file.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::netcdf_file;
using testing::netcdf_values;
using enum netcdf_type;

constexpr std::size_t cell_bytes = 176;  // of 11 by 4 floats
constexpr double standard_dummy = static_cast<double>(-1.0E32F);

class NetcdfHeaders : public ::testing::Test {
 protected:
  Status describe(const std::string& bytes) {
    testing::write_file(folder / "a.grd", bytes);
    return GRDRDH((folder / "a.grd").string(), grid, texts);
  }
  Status describe(const netcdf_file& file) { return describe(file.bytes()); }

  // Bytes of the file from the first cell on.
  [[nodiscard]] std::size_t bytes_behind(const netcdf_file& file) const {
    return file.bytes().size() - static_cast<std::size_t>(grid.ints.data_offset);
  }

  testing::TemporaryFolder folder;
  grid_description grid;
  grid_texts texts;
};

std::vector<double> steps(double first, double step, int count) {
  std::vector<double> values;
  values.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    values.push_back(first + i * step);
  }
  return values;
}

// 11 columns by 4 rows, X from 0 to 10 and Y from 100 to 130, the cells counted from 1.
netcdf_file coards_file() {
  netcdf_file file;
  file.dimensions = {{"x", 11}, {"y", 4}};
  file.texts = {{"Conventions", "COARDS/extra"}};
  file.variables = {
      {"x", {0}, real64, steps(10.0, -1.0, 11), {{"actual_range", real64, {0.0, 10.0}}}},
      {"y", {1}, real64, steps(130.0, -10.0, 4), {{"actual_range", real64, {100.0, 130.0}}}},
      {"z", {1, 0}, real32, steps(1.0, 1.0, 44), {{"actual_range", real64, {1.0, 44.0}}}},
  };
  return file;
}

// The same lattice as files of today have it: names of their own, no ranges, rows from the south.
netcdf_file today_file() {
  netcdf_file file = coards_file();
  file.dimensions = {{"east", 11}, {"north", 4}};
  file.texts = {{"Conventions", "CF-1.8"}};
  file.variables = {{"east", {0}, real64, steps(0.0, 1.0, 11)},
                    {"north", {1}, real64, steps(100.0, 10.0, 4)},
                    {"height", {1, 0}, real32, steps(1.0, 1.0, 44)}};
  return file;
}

void expect_lattice(const grid_description& grid) {
  EXPECT_EQ(lattice_of(grid), (Lattice{0.0, 100.0, 1.0, 10.0, 11, 4}));
  EXPECT_EQ(grid.reals.x_max, 10.0);
  EXPECT_EQ(grid.reals.y_max, 130.0);
}

TEST_F(NetcdfHeaders, coards_ranges_give_the_lattice) {
  const netcdf_file file = coards_file();
  ASSERT_EQ(describe(file), success);
  expect_lattice(grid);
  EXPECT_EQ(grid.ints.format_code, 21);
  EXPECT_EQ(grid.ints.element_code, -4);
  EXPECT_EQ(grid.ints.storage_sense, -2);
  EXPECT_EQ(grid.ints.element_kind, 2);
  EXPECT_EQ(bytes_behind(file), cell_bytes);
  EXPECT_EQ(grid.reals.z_min, 1.0);
  EXPECT_EQ(grid.reals.z_max, 44.0);
  EXPECT_EQ(grid.reals.dummy_value, standard_dummy);
  EXPECT_TRUE(texts.advice.empty());
}

TEST_F(NetcdfHeaders, node_offset_makes_coards_ranges_edges_when_it_stands_behind_the_convention) {
  netcdf_file file = coards_file();
  file.dimensions[0].second = 10;
  file.variables[0].values = steps(9.5, -1.0, 10);
  file.variables[2].values = steps(1.0, 1.0, 40);
  file.numbers = {{"node_offset", int32, {1.0}}};
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(lattice_of(grid), (Lattice{0.5, 103.75, 1.0, 7.5, 10, 4}));
  EXPECT_EQ(grid.reals.x_max, 9.5);
  EXPECT_EQ(grid.reals.y_max, 126.25);
  file.numbers = {{"node_offset", real32, {1.0}}};
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.reals.x_min, 0.0);
}

TEST_F(NetcdfHeaders, coards_attributes_have_single_precision_and_the_scale_divides) {
  netcdf_file file = coards_file();
  file.variables[0].attributes = {{"actual_range", real64, {0.1, 10.1}}};
  file.variables[2].attributes = {{"scale_factor", real64, {0.1}},
                                  {"add_offset", real64, {1000.3}},
                                  {"_FillValue", real64, {-99999.9}}};
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.reals.x_min, static_cast<double>(0.1F));
  EXPECT_EQ(grid.reals.z_mult, static_cast<double>(0.1F));
  EXPECT_EQ(grid.reals.z_base, static_cast<double>(1000.3F));
  EXPECT_EQ(grid.reals.dummy_value, static_cast<double>(-99999.9F));
  ASSERT_EQ(texts.advice.size(), 1U);
  EXPECT_NE(texts.advice[0].find("scale_factor"), std::string::npos);
}

TEST_F(NetcdfHeaders, a_fill_value_that_is_no_number_is_the_standard_dummy) {
  for (const double value : {std::nan(""), std::numeric_limits<double>::infinity()}) {
    netcdf_file file = coards_file();
    file.variables[2].attributes = {{"_FillValue", real32, {value}}};
    ASSERT_EQ(describe(file), success);
    EXPECT_EQ(grid.reals.dummy_value, standard_dummy);
  }
  netcdf_file file = coards_file();
  file.variables[2].attributes = {{"_FillValue", int32, {-1.0}}};  // four FF bytes of no float
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.reals.dummy_value, -1.0);
  std::string bytes = file.bytes();
  const std::size_t at = bytes.find("_FillValue") + 12 + 3;
  bytes[at] = '\5';  // the same bytes as a float
  ASSERT_EQ(describe(bytes), success);
  EXPECT_EQ(grid.reals.dummy_value, standard_dummy);
}

TEST_F(NetcdfHeaders, cells_of_a_coards_file_are_those_of_z_or_of_the_last_variable) {
  netcdf_file file = coards_file();
  const netcdf_values extra = {"extra", {1, 0}, real32, steps(0.0, 0.0, 44)};
  file.variables.push_back(extra);
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(bytes_behind(file), 2 * cell_bytes);
  file.variables[2].attributes.clear();
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(bytes_behind(file), cell_bytes);
}

TEST_F(NetcdfHeaders, the_user_hears_of_what_had_to_be_chosen) {
  netcdf_file file = coards_file();  // whose rows are taken from the north, as 4-byte floats
  file.variables[1].values = steps(100.0, 10.0, 4);
  file.variables[2].type = real64;
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.ints.storage_sense, -2);
  EXPECT_EQ(grid.ints.element_code, -4);
  ASSERT_EQ(texts.advice.size(), 2U);
  EXPECT_NE(texts.advice[0].find("4-byte floats"), std::string::npos);
  EXPECT_NE(texts.advice[1].find("upside down"), std::string::npos);
  file = today_file();  // where ranges win over coordinates
  file.variables[0].attributes = {{"actual_range", real64, {0.0, 20.0}}};
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.reals.x_max, 20.0);
  EXPECT_EQ(grid.reals.x_cell, 2.0);
  ASSERT_EQ(texts.advice.size(), 1U);
  EXPECT_NE(texts.advice[0].find("\"east\""), std::string::npos);
  file = today_file();  // of several grids the one named z
  file.variables.push_back({"z", {1, 0}, int16, steps(1.0, 1.0, 44)});
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.ints.element_code, -2);
  ASSERT_EQ(texts.advice.size(), 1U);
  EXPECT_NE(texts.advice[0].find("\"z\""), std::string::npos);
}

TEST_F(NetcdfHeaders, without_a_convention_the_lattice_stands_in_variables) {
  netcdf_file file;
  file.dimensions = {{"side", 2}, {"xysize", 44}};
  file.texts = {{"title", "no convention"}};
  file.variables = {{"x_range", {0}, real64, {0.1, 10.1}},  {"y_range", {0}, real32, {100, 130}},
                    {"z_range", {0}, real64, {1.0, 44.0}},  {"spacing", {0}, real64, {1.0, 10.0}},
                    {"dimension", {0}, int32, {11.0, 4.0}}, {"z", {1}, real32, steps(1, 1, 44)}};
  file.variables[5].attributes = {{"scale_factor", real64, {2.0}}, {"node_offset", int32, {0.0}}};
  for (const netcdf_type type : {int32, real32, real64}) {
    file.variables[4].type = type;
    ASSERT_EQ(describe(file), success);
    EXPECT_EQ(grid.ints.x_count, 11);
    EXPECT_EQ(grid.ints.y_count, 4);
    EXPECT_EQ(grid.reals.x_min, 0.1);
    EXPECT_EQ(grid.reals.y_max, 130.0);
    EXPECT_EQ(grid.reals.z_max, 44.0);
    EXPECT_EQ(grid.reals.z_mult, 2.0);
    EXPECT_EQ(bytes_behind(file), cell_bytes);
  }
  file.variables[5].attributes[1].values = {1.0};
  ASSERT_EQ(describe(file), success);
  EXPECT_EQ(grid.reals.x_min, 0.6);
  EXPECT_EQ(grid.reals.y_max, 125.0);
  file.variables[3].name = "spacings";
  EXPECT_EQ(describe(file), cell_size_unsound);
}

TEST_F(NetcdfHeaders, files_of_today_need_no_ranges_and_no_names) {
  for (const char* convention : {"CF-1.8", "COARDS", "none"}) {
    netcdf_file file = today_file();
    file.texts = {{"Conventions", convention}};
    ASSERT_EQ(describe(file), success) << convention;
    expect_lattice(grid);
    EXPECT_EQ(grid.ints.storage_sense, 1) << convention;
    EXPECT_EQ(bytes_behind(file), cell_bytes);
  }
}

TEST_F(NetcdfHeaders, coordinates_tell_rows_or_columns_and_their_direction) {
  for (const std::int32_t sense : {1, -1, 2, -2, 3, -3, 4, -4}) {
    const bool columns = sense == -1 || sense == 2 || sense == -3 || sense == 4;
    const bool x_rises = std::abs(sense) <= 2;
    const bool y_rises = std::abs(sense) == 1 || std::abs(sense) == 4;
    netcdf_file file = today_file();
    file.variables[0].values = x_rises ? steps(0.0, 1.0, 11) : steps(10.0, -1.0, 11);
    file.variables[1].values = y_rises ? steps(100.0, 10.0, 4) : steps(130.0, -10.0, 4);
    file.variables[1].texts = {{"units", "degrees_north"}};
    if (columns) {
      file.variables[2].dimensions = {0, 1};
    }
    ASSERT_EQ(describe(file), success);
    EXPECT_EQ(grid.ints.storage_sense, sense);
    expect_lattice(grid);
  }
}

TEST_F(NetcdfHeaders, cells_may_be_of_any_numeric_type) {
  struct example {
    netcdf_type type;
    std::int32_t element_code, kind;
    double dummy_value;
  };
  const example examples[] = {{byte, -1, 1, standard_dummy},
                              {int16, -2, 1, -32767.0},
                              {int32, -4, 1, -2147483647.0},
                              {real32, -4, 2, 9.969209968386869E36},
                              {real64, -8, 2, 9.969209968386869E36}};
  for (const example& e : examples) {
    netcdf_file file = today_file();
    file.variables[2].type = e.type;
    ASSERT_EQ(describe(file), success);
    EXPECT_EQ(grid.ints.element_code, e.element_code);
    EXPECT_EQ(grid.ints.element_kind, e.kind);
    EXPECT_EQ(grid.reals.dummy_value, e.dummy_value);
    file.variables[2].attributes = {{"missing_value", e.type, {-9.0}},
                                    {"scale_factor", real64, {0.5}},
                                    {"add_offset", real64, {0.1}}};
    file.variables[2].texts = {{"_Unsigned", "true"}};
    ASSERT_EQ(describe(file), success);
    // The same bits in unsigned cells.
    const double bits = std::exp2(-8 * e.element_code) - 9.0;
    EXPECT_EQ(grid.reals.dummy_value, e.kind == 1 ? bits : -9.0);
    EXPECT_EQ(grid.reals.z_mult, 2.0);
    EXPECT_EQ(grid.reals.z_base, 0.1);
    EXPECT_EQ(grid.ints.element_kind, e.kind == 1 ? 0 : e.kind);
  }
}

TEST_F(NetcdfHeaders, coordinates_must_be_evenly_spaced) {
  netcdf_file file = today_file();
  file.variables[0].values[5] += 0.09;
  EXPECT_EQ(describe(file), success);
  file.variables[0].values[5] += 0.02;
  EXPECT_EQ(describe(file), lattice_irregular);
  file.variables[0].values[5] = std::nan("");
  EXPECT_EQ(describe(file), lattice_irregular);
  // Single precision of degrees is uneven by itself.
  file = today_file();
  file.variables[0].type = real32;
  file.variables[0].values = steps(179.9, 1.0 / 14400.0, 11);
  EXPECT_EQ(describe(file), success);
}

TEST_F(NetcdfHeaders, files_that_are_no_grid_are_refused) {
  netcdf_file file = today_file();
  file.dimensions.emplace_back("time", 1);
  EXPECT_EQ(describe(file), netcdf_not_two_dimensions);
  file.dimensions.clear();
  EXPECT_EQ(describe(file), netcdf_no_dimensions);
  file = today_file();
  file.dimensions[1].second = 0;  // grows with the records
  EXPECT_EQ(describe(file), counts_unsound);
  file = today_file();
  file.version = 5;
  EXPECT_EQ(describe(file), layout_unsupported);
  file = today_file();
  file.variables[0].attributes = {{"odd", static_cast<netcdf_type>(7), {}}};
  EXPECT_EQ(describe(file), layout_unsupported);
}

TEST_F(NetcdfHeaders, tables_beyond_the_limits_are_refused) {
  const auto many = [](int count) {
    std::vector<testing::netcdf_numbers> list;
    list.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      list.push_back({"a" + std::to_string(i), byte, {1.0}});
    }
    return list;
  };
  netcdf_file older = coards_file();
  older.numbers = many(31);  // and the convention
  EXPECT_EQ(describe(older), success);
  older.numbers = many(32);
  EXPECT_EQ(describe(older), table_too_long);
  netcdf_file today = today_file();
  today.numbers = many(255);
  EXPECT_EQ(describe(today), success);
  today.numbers = many(256);
  EXPECT_EQ(describe(today), table_too_long);
  today = today_file();
  today.dimensions[0].first = std::string(257, 'x');
  EXPECT_EQ(describe(today), table_too_long);
}

TEST_F(NetcdfHeaders, refuse_a_file_that_ends_anywhere_in_its_header) {
  for (const netcdf_file& file : {coards_file(), today_file()}) {
    const std::string bytes = file.bytes();
    ASSERT_EQ(describe(bytes), success);
    const auto cells = static_cast<std::size_t>(grid.ints.data_offset);
    bool refused = false;  // and so is every shorter one
    for (std::size_t length = bytes.size() - 1; length > 0; --length) {
      std::filesystem::resize_file(folder / "a.grd", length);
      const bool failed = GRDRDH((folder / "a.grd").string(), grid, texts).failed();
      EXPECT_TRUE(failed ? length < cells : !refused) << length;
      refused = failed;
    }
    EXPECT_TRUE(refused);
  }
}

TEST_F(NetcdfHeaders, survive_any_word_of_the_header) {
  const std::string whole = testing::read_file(testing::test_data("netcdf/offsets64.nc"));
  testing::write_file(folder / "a.nc", whole);
  std::fstream file(folder / "a.nc", std::ios::in | std::ios::out | std::ios::binary);
  const auto put = [&file](std::size_t at, const char* word) {
    file.seekp(static_cast<std::streamoff>(at)).write(word, 4).flush();
  };
  for (std::size_t at = 4; at + 4 <= whole.size(); at += 4) {
    for (const char* word : {"\x7F\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF", "\x80\0\0\0"}) {
      put(at, word);
      EXPECT_LE(GRDRDH((folder / "a.nc").string(), grid, texts).code, 0);
    }
    put(at, &whole[at]);
  }
  EXPECT_EQ(GRDRDH((folder / "a.nc").string(), grid, texts), success);
}

}  // namespace
}  // namespace velmorankite
