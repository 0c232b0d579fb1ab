// SPDX-License-Identifier: MIT
#include "formats/convert_grid.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "formats/catalogue.h"
#include "formats/describe_grid.h"
#include "grid/dummy.h"
#include "platform/binary_file.h"
#include "support/compressed_grids.h"
#include "support/foreign_grids.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::read_file;
using testing::test_data;
using testing::write_file;

class Conversion : public ::testing::Test {
 protected:
  Conversion() : here(folder.path()) {}

  Status convert(const std::filesystem::path& input, grid_window asked = {}) {
    window = asked;
    grid = {};
    const Status described = GRDRDH(input.string(), grid, texts);
    return described.failed() ? described : GRDRDG(input.string(), output.string(), grid, window);
  }
  Status convert_bytes(const std::string& name, const std::string& bytes, grid_window asked = {}) {
    write_file(folder / name, bytes);
    return convert(folder / name, asked);
  }
  // Expects every cell of the output to be what the plain reading gives.
  void expect_cells(const testing::cell_function& cell) const {
    const grid_description made = testing::describe(output);
    const std::vector<float> cells = testing::read_grid(output);
    EXPECT_EQ(made.ints.storage_sense, -2);
    const grid_reals& reals = grid.reals;
    EXPECT_NEAR(reals.x_max, reals.x_min + (grid.ints.x_count - 1) * reals.x_cell, 1E-9);
    EXPECT_NEAR(reals.y_max, reals.y_min + (grid.ints.y_count - 1) * reals.y_cell, 1E-9);
    ASSERT_EQ(std::ssize(cells), std::int64_t{grid.ints.out_x_count} * grid.ints.out_y_count);
    std::size_t i = 0;
    for (std::int32_t row = 1; row <= grid.ints.out_y_count; ++row) {
      for (std::int32_t column = 1; column <= grid.ints.out_x_count; ++column, ++i) {
        ASSERT_EQ(cells[i], cell(column, row)) << column << " " << row;
      }
    }
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder here;
  std::filesystem::path output = folder / "out.grd";
  grid_description grid;
  grid_texts texts;
  grid_window window;
};

TEST_F(Conversion, of_every_binary_layout_gives_the_cells_that_were_written) {
  testing::sample_grid wide = testing::small_sample();
  wide.lattice.x_count = 66;  // a stored line of some formats is in groups of 64
  wide.cells.resize(std::size_t{66} * 4);
  std::iota(wide.cells.begin(), wide.cells.end(), 1000.0F);
  for (const testing::sample_grid& sample : {testing::small_sample(), wide}) {
    for (const testing::foreign_format& format : testing::foreign_formats()) {
      SCOPED_TRACE(format.file_name);
      ASSERT_EQ(convert_bytes(format.file_name, format.bytes(sample)), success);
      expect_cells([&](std::int32_t column, std::int32_t row) { return sample.at(column, row); });
    }
  }
}

// The fields of tests/data/README.md.
float text_field(std::int32_t c, std::int32_t r) {
  const bool blank = (c == 1 && r == 5) || (r == 1 && c >= 6);
  return blank ? dummy
               : 100.0F + 10.0F * static_cast<float>(c) - 3.0F * static_cast<float>(r * r) +
                     0.25F * static_cast<float>(c * r);
}
float binary_field(std::int32_t c, std::int32_t r) {
  return r + c == 2 || r + c == 20 ? dummy : static_cast<float>(10 * r + c * c);
}

TEST_F(Conversion, reads_what_other_programs_wrote) {
  for (const char* name :
       {"square.asc", "square.flt", "oblong.ers", "oblong.dat", "oblong_text.grd"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(convert(test_data(std::string("gdal/") + name)), success);
    expect_cells(text_field);
    const grid_description made = testing::describe(output);
    EXPECT_EQ(made.reals.x_min, grid.reals.x_min);
    EXPECT_EQ(made.reals.y_min, grid.reals.y_min);
    EXPECT_EQ(grid.ints.valid_count, 32);
    EXPECT_EQ(grid.ints.dummy_count, 3);
    EXPECT_EQ(made.reals.z_min, grid.reals.z_min);
    EXPECT_EQ(grid.reals.z_min, 100.0 + 20.0 - 75.0 + 2.5);
    EXPECT_EQ(made.reals.z_max, grid.reals.z_max);
  }
  for (const char* name :
       {"surfer/surfer6.grd", "surfer/surfer6_gmt.grd", "surfer/surfer7.grd", "gmt/native.grd",
        "gmt/native_pixel.grd", "gmt/native_double.grd", "netcdf/field.nc", "netcdf/double.nc",
        "netcdf/short.nc", "netcdf/int.nc", "netcdf/byte.nc", "netcdf/pixel.nc", "netcdf/older.grd",
        "netcdf/older_pixel.grd", "netcdf/offsets64.nc"}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(convert(test_data(name)), success);
    expect_cells(binary_field);
    EXPECT_EQ(grid.ints.x_count, 13);
    EXPECT_DOUBLE_EQ(grid.reals.x_min, 100.3);
    EXPECT_DOUBLE_EQ(grid.reals.x_max, 124.3);
    EXPECT_DOUBLE_EQ(grid.reals.x_cell, 2.0);
    EXPECT_DOUBLE_EQ(grid.reals.y_min, -20.7);
    EXPECT_DOUBLE_EQ(grid.reals.y_max, 9.3);
    EXPECT_DOUBLE_EQ(grid.reals.y_cell, 5.0);
    EXPECT_TRUE(texts.advice.empty());
  }
}

TEST_F(Conversion, takes_the_cells_of_er_mapper_from_either_companion) {
  std::filesystem::copy_file(test_data("gdal/oblong.ers"), folder / "a.b.ers");
  EXPECT_EQ(convert(folder / "a.b.ers"), conversion_impossible);
  std::filesystem::copy_file(test_data("gdal/oblong"), folder / "a.b.erm");
  EXPECT_EQ(GRDRDG("a.b.ers", "a.b.erm", grid, window), conversion_output_unopened);
  ASSERT_EQ(convert(folder / "a.b.ers"), success);
  expect_cells(text_field);
}

std::string gxf(const std::string& head, const std::string& cells) {
  return "#POINTS\n4\n#ROWS\n3\n" + head + "#DUMMY\n-9\n#GRID\n" + cells;
}

TEST_F(Conversion, of_text_follows_senses_repeats_and_lines) {
  struct example {
    const char* what;
    std::string bytes;
    std::vector<float> cells;  // the lowest row first
  };
  const float none = dummy;
  const example examples[] = {
      {"rows",
       gxf("", "1 nan 3 4\n5 6\n7 -9\n9 10 -inf 1.25D1\n"),
       {1, none, 3, 4, 5, 6, 7, none, 9, 10, none, 12.5F}},
      {"the rest of a line",
       gxf("", "1,2,,4 99 99\n2*5 2*-9\n+9 10 11.5e0 12 /"),
       {1, 2, none, 4, 5, 5, none, none, 9, 10, 11.5F, 12}},
      {"columns",
       gxf("#POINTS\n3\n#ROWS\n4\n#SENSE\n-1\n", "1 5 9 2 6 10\n2 6 10\n3 7 -9\r\n4 8 12"),
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, none, 12}},
      {"turned rows",
       gxf("#SENSE\n3\n", "12 11 10 9\n8 7 6 5\n4 3 2 1\n"),
       {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
      // Ten decimals are read the short way, more are not.
      {"decimals",
       gxf("", "0.0000000003 0.00000000003 1.00000000000 -0.000000000005\n5 6 7 8\n9 10 11 12\n"),
       {3E-10F, 3E-11F, 1, -5E-12F, 5, 6, 7, 8, 9, 10, 11, 12}},
      // Digits of base 90 from "%" on; "&%" is 90, "!!" a dummy, four times by "\"\"" and "%)".
      {"codes",
       gxf("#GTYPE\n2\n", "%%&%!!%'\n$ remark\n\"\"%)&%\n%&%& rest\n%*%+\n"),
       {0, 90, none, 2, 90, 90, 90, 90, 1, 1, 5, 6}},
  };
  for (const example& e : examples) {
    SCOPED_TRACE(e.what);
    ASSERT_EQ(convert_bytes("a.gxf", e.bytes), success);
    expect_cells([&](std::int32_t column, std::int32_t row) {
      return e.cells[testing::cell_index(column, row, 4)];
    });
  }
}

// A grid of 4 x 3 cells in codes of `width` characters, whose numbers are the values. A comment in
// the header says that tokens may repeat.
std::string grid_text(int width, bool comment, const std::string& cells) {
  return "$$GRID$$   4   3   0   0   0   0\n" + std::string(14, '-') + "   " +
         std::to_string(width) + (comment ? "   1" : "   0") + std::string(18, '-') +
         "    1000.0    2009.0              1008.0    2000.0          \n" +
         (comment ? "comment\n" : "") + "       2.0       3.0            0.0            0.0" +
         (width == 1 ? "      63.0\n" : "    4000.0\n") + cells + std::string(256, '0');
}

TEST_F(Conversion, knows_voids_of_the_largest_float_however_they_are_written) {
  for (const char* mark : {"-3.40282346638529e+38", "-3.4028234663852886e38", "-3.4028235E+38"}) {
    ASSERT_EQ(convert_bytes("a.asc", std::string("ncols 2\nnrows 1\ncellsize 1\nxllcorner 0\n"
                                                 "yllcorner 0\nNODATA_value ") +
                                         mark + "\n" + mark + " 7" + std::string(256, ' ')),
              success);
    expect_cells([](std::int32_t column, std::int32_t) { return column == 1 ? dummy : 7.0F; });
  }
}

TEST_F(Conversion, of_zmap_takes_what_lies_beyond_data_as_voids) {
  const auto fields = [](const std::string& one, const std::string& two) {
    const auto field = [](const std::string& text) {
      return std::string(15 - text.size(), ' ') + text;
    };
    return field(one) + field(two) + "\n";
  };
  // Columns, each from the top down.
  ASSERT_EQ(convert_bytes("a.dat",
                          "! comment\n@ mag, GRID, 2\n 15, -99, Void, 7, 1\n"
                          " 2, 2, 1000, 1002, 2000, 2002\n 0, 0, 0\n@\n" +
                              fields("1.0E20", "1.00001E20") + fields("-99", "7") +
                              std::string(256, ' ')),
            success);
  expect_cells([](std::int32_t column, std::int32_t row) {
    const float cells[] = {dummy, 7.0F, 1.0E20F, dummy};
    return cells[testing::cell_index(column, row, 2)];
  });
}

TEST_F(Conversion, of_coded_text_repeats_the_token_ahead) {
  const float none = dummy;
  struct example {
    std::string bytes;
    std::vector<float> cells;  // the lowest row first
  };
  // Digits of base 64 from ":" on, as many z as a code is wide a dummy. "~" and a character from
  // the blank on copy once or more; a blank at the end of a line may be missing.
  const example examples[] = {
      {grid_text(1, true, "0001;~ z?\n0002<=~\n0003~  \n0004>~\"   \n"),
       {1, 1, none, 5, 2, 3, 3, 3, 4, 4, 4, 4}},
      {grid_text(2, true, "0001;:~!zz\n0002:;:<~ \n0003zz\n0004<;~\"\n"),
       {64, 64, 64, none, 1, 2, 2, none, 129, 129, 129, 129}},
      {grid_text(2, false, "0001:;;:zz<<\n0002:;:;:;:;\n0003zz:::;:<\n"),
       {1, 64, none, 130, 1, 1, 1, 1, none, 0, 1, 2}},
  };
  for (const example& e : examples) {
    ASSERT_EQ(convert_bytes("a.grd", e.bytes), success);
    expect_cells([&](std::int32_t column, std::int32_t row) {
      return e.cells[testing::cell_index(column, row, 4)];
    });
  }
}

TEST_F(Conversion, keeps_a_window_and_every_so_many_cells_on_both_roads) {
  for (const std::int32_t sense : {1, -2}) {
    testing::write_grid(
        folder / "a.grd", {100.0, 200.0, 2.0, 5.0, 10, 7},
        [](int c, int r) { return static_cast<float>(100 * c + r); }, sense);
    std::string bytes = read_file(folder / "a.grd");
    struct example {
      grid_window asked;
      std::int32_t first_column, x_step, columns, first_row, y_step, rows;
    };
    const example examples[] = {
        {{100.0, 118.0, 3, 200.0, 230.0, 2}, 1, 3, 4, 1, 2, 4},
        {{100.0, 116.0, 3, 200.0, 230.0, 1}, 1, 3, 3, 1, 1, 7},
        {{100.0015, 117.9985, 1, 200.0, 230.0, 1}, 1, 1, 10, 1, 1, 7},  // within a margin
        {{105.0, 113.9, 2, 211.0, 222.0, 3}, 3, 2, 3, 3, 3, 1},
        {{}, 1, 1, 10, 1, 1, 7},
    };
    for (const example& e : examples) {
      ASSERT_EQ(convert(folder / "a.grd", e.asked), success);
      EXPECT_EQ(grid.ints.out_x_count, e.columns);
      EXPECT_EQ(grid.ints.out_y_count, e.rows);
      EXPECT_EQ(grid.reals.out_x_min, 100.0 + 2.0 * (e.first_column - 1));
      EXPECT_EQ(grid.reals.out_x_max, grid.reals.out_x_min + 2.0 * e.x_step * (e.columns - 1));
      EXPECT_EQ(grid.reals.out_y_cell, 5.0 * e.y_step);
      expect_cells([&](std::int32_t column, std::int32_t row) {
        return static_cast<float>(100 * (e.first_column + (column - 1) * e.x_step) + e.first_row +
                                  (row - 1) * e.y_step);
      });
    }
    EXPECT_EQ(window.x_end, 118.0);
    EXPECT_EQ(window.y_step, 1);
    for (const grid_window outside : {grid_window{118.0, 200.0, 1, 200.0, 230.0, 1},
                                      grid_window{112.0, 110.0, 1, 200.0, 230.0, 1},
                                      grid_window{100.0, std::nan(""), 1, 200.0, 230.0, 1}}) {
      std::filesystem::remove(output);
      EXPECT_EQ(convert(folder / "a.grd", outside), conversion_impossible);
      EXPECT_FALSE(std::filesystem::exists(output));
    }
  }
}

// A standard grid of 5 x 3 cells, 1 to 15 in stored order, with some fields of its header changed.
std::string standard_grid(std::int32_t sense, std::int32_t size, std::int32_t kind, double z_base,
                          double z_mult) {
  std::string bytes(512, ' ');
  const auto put = [&bytes](std::size_t at, auto value) {
    bytes.replace(at, sizeof value, reinterpret_cast<const char*>(&value), sizeof value);
  };
  const bool columns = sense == -1 || sense == 2 || sense == -3 || sense == 4;
  put(0, size);
  put(4, kind);
  put(8, columns ? 3 : 5);
  put(12, columns ? 5 : 3);
  put(16, sense);
  put(20, 2.0);
  put(28, 2.0);
  put(36, 100.0);
  put(44, 200.0);
  put(60, z_base);
  put(68, z_mult);
  put(160, 0.0);
  put(168, 0.0);
  for (int cell = 1; cell <= 15; ++cell) {
    bytes.resize(bytes.size() + static_cast<std::size_t>(size));
    const std::size_t at = bytes.size() - static_cast<std::size_t>(size);
    if (kind == 2) {
      put(at, static_cast<float>(cell));
    } else {
      const auto number = static_cast<std::int16_t>(cell == 15 ? -1 : cell);
      put(at, number);
    }
  }
  return bytes;
}

TEST_F(Conversion, of_standard_grids_knows_eight_senses_integers_and_scales) {
  struct example {
    std::int32_t sense, column, row;  // of the first stored cell
    bool by_columns;
  };
  for (const example& e :
       {example{1, 1, 1, false}, example{-1, 1, 1, true}, example{2, 1, 3, true},
        example{-2, 1, 3, false}, example{3, 5, 3, false}, example{-3, 5, 3, true},
        example{4, 5, 1, true}, example{-4, 5, 1, false}}) {
    SCOPED_TRACE(e.sense);
    ASSERT_EQ(convert_bytes("a.grd", standard_grid(e.sense, 4, 2, 0.0, 1.0)), success);
    expect_cells([&](std::int32_t column, std::int32_t row) {
      const std::int32_t x = std::abs(column - e.column);
      const std::int32_t y = std::abs(row - e.row);
      return static_cast<float>(e.by_columns ? 3 * x + y + 1 : 5 * y + x + 1);
    });
    EXPECT_EQ(grid.reals.z_mid, 8.0);
    EXPECT_NEAR(grid.reals.z_spread, std::sqrt(224.0 / 12.0), 1e-12);
  }
  ASSERT_EQ(convert_bytes("a.grd", standard_grid(1, 2, 1, 10.0, 4.0)), success);
  expect_cells([](int c, int r) {
    const int stored = c + 5 * (r - 1);
    return static_cast<float>(stored == 15 ? -1 : stored) / 4.0F + 10.0F;
  });
  ASSERT_EQ(convert_bytes("a.grd", standard_grid(1, 2, 0, 0.0, 1.0)), success);
  EXPECT_EQ(grid.reals.z_max, 65535.0);
  // A base counts by rows beyond 0.000001, by columns beyond 0.01 in single precision.
  struct scale {
    std::int32_t sense;
    double base, z_min;
  };
  for (const scale& e :
       {scale{1, 0.005, static_cast<double>(1.005F)}, scale{-1, static_cast<double>(0.01F), 1.0},
        scale{-1, 0.01, static_cast<double>(1.01F)}}) {
    ASSERT_EQ(convert_bytes("a.grd", standard_grid(e.sense, 4, 2, e.base, 1.0)), success);
    EXPECT_EQ(grid.reals.z_min, e.z_min) << e.base;
  }
}

TEST_F(Conversion, expands_a_compressed_grid_and_leaves_no_scratch_file) {
  const std::string plain = standard_grid(1, 4, 2, 0.0, 1.0);
  std::string packed =
      testing::compressed_file(plain, 3, {testing::deflate_block(plain.substr(512))});
  ASSERT_EQ(convert_bytes("a.grd", packed), success);
  expect_cells([](int c, int r) { return static_cast<float>(c + 5 * (r - 1)); });
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "out.grd"}));
  std::filesystem::remove(output);
  packed.resize(packed.size() - 9);
  EXPECT_EQ(convert_bytes("a.grd", packed), expansion_failed);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd"}));
}

// The window without the stored line that comes last in the file, thinned out alike in X and Y.
grid_window without_last_line(const grid_description& grid, std::int32_t step) {
  const grid_reals& r = grid.reals;
  grid_window window{r.x_min, r.x_max, step, r.y_min, r.y_max, step};
  switch (grid.ints.storage_sense) {
    case -1:
      window.x_end -= r.x_cell;
      break;
    case 1:
      window.y_end -= r.y_cell;
      break;
    default:
      window.y_start += r.y_cell;
  }
  return window;
}

TEST_F(Conversion, of_a_file_cut_within_its_cells_needs_only_the_lines_of_the_window) {
  struct example {
    std::string name, bytes;
    std::size_t behind = 0;  // bytes behind the last cell
    std::int32_t step = 1;
  };
  std::vector<example> examples;
  testing::sample_grid sample = testing::small_sample();
  sample.lattice.x_count = 66;  // cells enough for each file to be longer than its first bytes
  sample.cells.resize(std::size_t{66} * 4);
  std::iota(sample.cells.begin(), sample.cells.end(), 1000.0F);
  for (const testing::foreign_format& format : testing::foreign_formats()) {
    const bool framed = format.format_code == 2 || format.format_code == 16;
    if (format.format_code != 19) {  // whose cells are found from the end of the file
      examples.push_back({format.file_name, format.bytes(sample), framed ? 4U : 0U});
    }
  }
  for (const char* name : {"surfer/surfer6.grd", "surfer/surfer7.grd", "gmt/native.grd",
                           "gmt/native_pixel.grd", "netcdf/field.nc", "netcdf/older.grd"}) {
    examples.push_back({std::filesystem::path(name).filename(), read_file(test_data(name))});
  }
  std::filesystem::copy_file(test_data("gdal/square.hdr"), folder / "square.hdr");
  examples.push_back({"square.flt", read_file(test_data("gdal/square.flt"))});
  examples.push_back({"S45E120.xi", std::string(12500000, '\1'), 0, 100});
  for (const example& e : examples) {
    SCOPED_TRACE(e.name);
    const std::filesystem::path file = folder / e.name;
    write_file(file, e.bytes);
    const grid_window asked = without_last_line(testing::describe(file), e.step);
    ASSERT_EQ(convert(file, asked), success);
    const std::string expected = read_file(output);
    std::filesystem::resize_file(file, e.bytes.size() - e.behind);
    EXPECT_EQ(convert(file), success);
    std::filesystem::remove(output);
    std::filesystem::resize_file(file, e.bytes.size() - e.behind - 1);
    EXPECT_EQ(convert(file), binary_line_unread);
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(convert(file, asked), success);
    EXPECT_EQ(read_file(output), expected);
    std::filesystem::remove(output);
    if (grid.ints.data_offset > 300 && grid.ints.format_code != format_netcdf) {
      std::filesystem::resize_file(file, 300);
      EXPECT_EQ(convert(file), binary_line_unread);
    }
  }
}

TEST_F(Conversion, holds_counts_and_places_against_the_file_before_it_takes_memory) {
  const std::string whole = testing::foreign_formats()[3].bytes(testing::small_sample());
  write_file(folder / "a", whole);
  const grid_description sound = testing::describe(folder / "a");
  struct example {
    const char* what;
    std::function<void(grid_ints&)> spoil;
  };
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  const example examples[] = {
      {"rows", [](grid_ints& i) { i.y_count = most; }},
      {"columns", [](grid_ints& i) { i.x_count = most; }},
      {"both, as doubles", [](grid_ints& i) { i.x_count = i.y_count = most, i.element_code = 8; }},
      {"columns stored", [](grid_ints& i) { i.x_count = i.y_count = most, i.storage_sense = -1; }},
      {"an offset", [](grid_ints& i) { i.data_offset = -1; }},
      {"bands",
       [](grid_ints& i) {
         i.format_code = format_ermapper;
         i.band_count = i.band_select = i.y_count = i.x_count = most;
       }},
  };
  for (const example& e : examples) {
    grid = sound;
    e.spoil(grid.ints);
    EXPECT_EQ(GRDRDG("a", output.string(), grid, window = {}), binary_line_unread) << e.what;
  }
}

TEST_F(Conversion, that_cannot_be_done_gives_its_status_and_no_output) {
  struct example {
    const char* name;
    std::string bytes;
    Status status;
  };
  const std::string plain = gxf("", "1 2 3 4\n5 6 7 8\n9 10");
  const example examples[] = {
      {"a.gxf", plain, Status{-1003}},
      {"a.gxf", gxf("", "1 2 3 4\n5 six 7 8\n"), Status{-1002}},
      {"a.gxf", gxf("", "1 2 nan(3 4\n"), Status{-1001}},
      {"a.gxf", gxf("", "+2*1 2 3\n"), Status{-1001}},
      {"a.gxf", gxf("", "333333333*\n5 6 7 8\n"), Status{-1001}},
      {"a.gxf", gxf("#GTYPE\n2\n", "%%&%!!%'\n\"\"%)&%\n%&"), Status{-1003}},
      {"a.gxf", gxf("", ""), Status{-1001}},
  };
  for (const example& e : examples) {
    EXPECT_EQ(convert_bytes(e.name, e.bytes), e.status) << e.bytes;
    EXPECT_FALSE(std::filesystem::exists(output));
    EXPECT_EQ(folder.names().size(), 1U);
  }
  // A file that shrinks behind the reading of its header.
  const std::string whole = standard_grid(1, 4, 2, 0.0, 1.0);
  ASSERT_EQ(convert_bytes("a.grd", whole), success);
  std::filesystem::remove(output);
  for (const std::size_t bytes : {512U, 550U, 571U}) {
    write_file(folder / "a.grd", whole.substr(0, bytes));
    EXPECT_EQ(GRDRDG((folder / "a.grd").string(), output.string(), grid, window),
              binary_line_unread);
    EXPECT_FALSE(std::filesystem::exists(output));
  }
  write_file(folder / "a.grd", whole);
  EXPECT_EQ(GRDRDG("a.grd", "none/out.grd", grid, window), conversion_output_unopened);
  // A name too short for the ending of a header beside it, in a description of the caller's.
  write_file(folder / "f", read_file("a.grd"));
  grid.ints.format_code = format_float_cells;
  EXPECT_EQ(GRDRDG("f", "f", grid, window), conversion_output_unopened);
  EXPECT_EQ(GRDRDG("f", "out.grd", grid, window), success);
  EXPECT_EQ(GRDRDG(" ", "out.grd", grid, window), conversion_impossible);
  grid.ints.format_code = format_raster;
  EXPECT_EQ(GRDRDG("a.grd", "out.grd", grid, window), conversion_missing);
  grid.ints.format_code = format_bil;
  EXPECT_EQ(GRDRDG("a.grd", "out.grd", grid, window), conversion_impossible);
  EXPECT_EQ(read_file(folder / "a.grd"), whole);
}

}  // namespace
}  // namespace velmorankite
