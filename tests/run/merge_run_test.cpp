// Whole merges: what the console says, and what the merged grid holds.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include "grid/dummy.h"
#include "merge/driver.h"
#include "support/merge_folder.h"

namespace velmorankite {
namespace {

using testing::first_difference;
using testing::MergeFolder;
using testing::read_file;
using testing::read_grid;
using testing::run_text;
using testing::test_data;
using testing::write_file;
using testing::write_grid;

constexpr Lattice lattice = MergeFolder::lattice;
constexpr auto plane = MergeFolder::plane;
constexpr auto at = MergeFolder::index;

constexpr std::string_view banner =
    "\n"
    "          ***************************************************\n"
    "          *                                                 *\n"
    "          *     Velmorankite - Version 5.01              *\n"
    "          *                                                 *\n"
    "          *                                                 *\n"
    "          *     a program to perform grid stitching         *\n"
    "          *                                                 *\n"
    "          *                                                 *\n"
    "          *                   April,  2022                  *\n"
    "          *                                                 *\n"
    "          ***************************************************\n"
    "\n";
constexpr std::string_view start =
    "Starting Velmorankite with parameters from: mergedefs.trs\n"
    "Parameters read correctly\n";
constexpr std::string_view report_1 =
    "\n"
    "Grid limits 1:\n"
    "          0.000000        400.000000\n"
    "          0.000000        300.000000\n"
    "\n"
    "Grid cell sizes:\n"
    "         10.000000         10.000000\n"
    "\n"
    "Grid num cells:\n"
    "      41      31\n";
constexpr std::string_view ending =
    "\n"
    "Completed Velmorankite\n";

std::string joined(std::initializer_list<std::string_view> texts) {
  std::string all;
  for (const std::string_view text : texts) {
    all += text;
  }
  return all;
}

std::string report_2() {
  std::string text(report_1);
  text.at(text.find('1')) = '2';
  return text;
}

class Merge : public ::testing::Test {
 protected:
  // Both grids as functions of the cell, on the lattice.
  void write_both(const testing::cell_function& one, const testing::cell_function& two) const {
    write_grid(folder / "one.grd", lattice, one);
    write_grid(folder / "two.grd", lattice, two);
  }
  std::vector<float> merged() {
    text = folder.run();
    return read_grid(folder / "merged.grd");
  }

  MergeFolder folder;
  run_text text;
};

TEST_F(Merge, of_two_planes_at_different_levels_is_the_plane) {
  const std::vector<float> cells = merged();
  EXPECT_EQ(text.console, joined({banner, start, report_1, report_2(), ending}));
  EXPECT_EQ(text.remarks,
            "offset 12.5 (grid 1 minus grid 2 on 41 samples), 246 blended cells, residual along "
            "the line 12.5 rms before, 0 after\n");
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      const float tolerance = row > 16 && row < 21 ? 5.0E-5F : 0.0F;  // where both are mixed
      ASSERT_NEAR(cells[at(column, row)], plane(column, row), tolerance) << column << ", " << row;
    }
  }
  EXPECT_EQ(folder.names(),
            (std::vector<std::string>{"line.dxf", "merged.grd", "merged_mismatch.dat",
                                      "mergedefs.trs", "one.grd", "two.grd"}));
  const std::string report = read_file(folder / "merged_mismatch.dat");
  EXPECT_EQ(report.substr(0, 32 + 63),
            "Num,X,Y,grid1,grid2,grid1-grid2\n"
            "     1       0.0     150.0     62.5000     62.5000      0.0000\n");
  EXPECT_EQ(report.size(), 32U + 41 * 63);
}

TEST_F(Merge, header_of_the_result_is_that_of_a_plain_standard_grid) {
  (void)merged();
  EXPECT_EQ(read_file(folder / "merged.grd").size(), 512U + 41 * 31 * 4);
  const grid_description grid = testing::describe(folder / "merged.grd");
  EXPECT_TRUE(is_plain_standard(grid.ints));
  EXPECT_EQ(grid.ints.storage_sense, 1);
  EXPECT_EQ(grid.reals.x_max, 400.0);
  EXPECT_EQ(grid.reals.z_min, static_cast<double>(dummy));
}

// With grid 1 everywhere 0 and grid 2 equal to the distance north of the line, every cell tells
// from which grid it comes.
TEST_F(Merge, takes_grid_1_south_of_a_line_to_the_east_and_blends_into_grid_2_north_of_it) {
  write_both([](int, int) { return 0.0F; },
             [](int, int row) { return 10.0F * static_cast<float>(row - 16); });
  for (const char* adjusted : {"0", "1"}) {
    folder.define(8, adjusted);
    const std::vector<float> cells = merged();
    for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
      const double north = 10.0 * (row - 16);
      double expected = 0.0;  // grid 1 before grid 2 off the band
      if (north > 0 && north <= 50) {
        const double u = (1.0 - north / 50.0) * (1.0 - north / 50.0);
        expected = (1.0 - u * (2.0 - u)) * north;
      } else if (north > 50 && north <= 100) {
        expected = north;
      }
      for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
        ASSERT_NEAR(cells[at(column, row)], expected, 1e-5) << column << ", " << row;
      }
    }
  }
}

TEST_F(Merge, that_moves_grid_1_leaves_a_step_of_the_offset_at_the_windows_edge) {
  folder.define(8, "0");
  const std::vector<float> cells = merged();
  // The window reaches from y = 50 to y = 250.
  for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
    EXPECT_EQ(cells[at(column, 5)], plane(column, 5));
    EXPECT_EQ(cells[at(column, 6)], plane(column, 6) - 12.5F);
    EXPECT_EQ(cells[at(column, 16)], plane(column, 16) - 12.5F);
    EXPECT_EQ(cells[at(column, 26)], plane(column, 26) - 12.5F);
    EXPECT_EQ(cells[at(column, 27)], plane(column, 27));
  }
}

TEST_F(Merge, without_an_argument_tells_how_it_is_called) {
  std::string console;
  run_merge(std::nullopt, {[&](std::string_view line) { console.append(line).append("\n"); },
                           [](std::string_view) { FAIL(); }});
  EXPECT_EQ(console, joined({banner, "Usage: Velmorankite mergedefs.trs\n"}));
}

// Puts bytes over those of a file.
std::function<void(MergeFolder&)> put(const std::string& file, std::size_t offset,
                                      const std::string& bytes) {
  return [=](MergeFolder& folder) {
    std::string all = read_file(folder / file);
    write_file(folder / file, all.replace(offset, bytes.size(), bytes));
  };
}

// Grid 2 as a text grid with its first `rows` rows, and the name of it in the definitions.
void write_text_grid(MergeFolder& folder, const std::string& name, std::int32_t rows) {
  std::string text =
      "ncols 41\nnrows 31\ncellsize 10\nxllcenter 0\nyllcenter 0\nnodata_value -9999\n";
  for (std::int32_t row = 31; row > 31 - rows; --row) {
    for (std::int32_t column = 1; column <= 41; ++column) {
      text += std::to_string(plane(column, row) - 12.5F) + " ";
    }
    text += "\n";
  }
  write_file(folder / name, text);
  folder.define(3, name);
}

TEST_F(Merge, of_a_foreign_grid_gives_what_the_standard_grid_gives_and_no_scratch_stays) {
  const std::vector<float> expected = merged();
  write_text_grid(folder, "two.asc", 31);
  EXPECT_EQ(first_difference(expected, merged()), "");
  EXPECT_EQ(text.console,
            joined({banner, start, report_1, "Convert the input grid file 2 to standard Geosoft\n",
                    report_2(), ending}));
  for (const std::string& name : folder.names()) {
    EXPECT_NE(name.front(), '~') << name;
  }
}

// A stop: what brings it about, what the console says behind the start, and the reason.
struct stop {
  const char* what;
  std::function<void(MergeFolder&)> prepare;
  std::string console;
  std::string reason;
};

void expect_stop(const stop& s) {
  MergeFolder folder;
  s.prepare(folder);
  folder.write_definitions();
  const auto before = folder.contents();
  const run_text text = folder.run();
  EXPECT_EQ(text.console, joined({banner, start, s.console})) << s.what;
  EXPECT_NE(text.remarks.find(s.reason), std::string::npos) << s.what << ": " << text.remarks;
  EXPECT_EQ(std::count(text.remarks.begin(), text.remarks.end(), '\n'), 1) << s.what;
  EXPECT_EQ(folder.contents(), before) << s.what;
}

TEST(MergeStops, at_an_input_that_cannot_be_used_say_which) {
  const std::string unknown = "Failed to determine the grid file format\n";
  const std::string convert_1 =
      "Convert the input grid file 1 to standard Geosoft\n"
      "Failed to read the input grid file 1\n";
  const std::string convert_2 = joined({report_1,
                                        "Convert the input grid file 2 to standard Geosoft\nFailed "
                                        "to read the input grid file 2\n"});
  const stop stops[] = {
      {"grid 1 is missing", [](MergeFolder& f) { f.define(2, "none.grd"); }, unknown,
       "none.grd: the file does not exist\n"},
      {"grid 1 has no name", [](MergeFolder& f) { f.define(2, ""); }, unknown,
       ": the name has fewer than 3 characters\n"},
      {"grid 2 is no grid",
       [](MergeFolder& f) { write_file(f / "two.grd", std::string(999, '\0')); },
       joined({report_1, unknown}), "two.grd: the format of the file is not recognised\n"},
      {"grid 1 ends in its header",
       [](MergeFolder& f) { write_file(f / "one.grd", read_file(f / "one.grd").substr(0, 300)); },
       unknown, "one.grd: the file ends inside its header\n"},
      {"grid 1 is compressed, and unsound", put("one.grd", 0, {"\4\4", 2}), convert_1,
       "one.grd: the compressed grid cannot be expanded\n"},
      {"grid 2 is cut off", [](MergeFolder& f) { write_text_grid(f, "two.asc", 30); }, convert_2,
       "two.asc: line 31 of the cells cannot be read\n"},
      {"grid 2 ends within its cells",
       [](MergeFolder& f) {
         write_file(f / "two.grd", read_file(test_data("surfer/surfer7.grd")).substr(0, 827));
       },
       convert_2, "two.grd: a line of the cells cannot be read\n"},
  };
  for (const stop& s : stops) {
    expect_stop(s);
  }
}

TEST(MergeStops, at_a_line_that_cannot_be_stitched_are_silent_on_the_console) {
  const std::string both = joined({report_1, report_2()});
  const std::string at_end = joined({both, ending});
  const std::string far_away =
      "\nGrid limits 2:\n"
      "       5000.000000       5400.000000\n"
      "       5000.000000       5300.000000\n"
      "\nGrid cell sizes:\n"
      "         10.000000         10.000000\n"
      "\nGrid num cells:\n"
      "      41      31\n";
  const auto nine_cells = [](int c, int r) { return r == 18 && c < 10 ? 1.0F : dummy; };
  const stop stops[] = {
      {"2 vertices",
       [](MergeFolder& f) {
         f.draw_line({{0, 150}, {400, 150}});
       },
       both, "line.dxf: the stitch line keeps 2 vertices, 3 are needed\n"},
      {"1 vertex",
       [](MergeFolder& f) {
         f.draw_line({{0, 150}});
       },
       both, "line.dxf: a stitch line needs 2 vertices, 1 is there"},
      {"no overlap",
       [](MergeFolder& f) {
         write_grid(f / "two.grd", {5000.0, 5000.0, 10.0, 10.0, 41, 31}, plane);
       },
       joined({report_1, far_away, ending}),
       "no merged grid: 0 cells of the blend strip hold data of both grids, 10 are needed\n"},
      {"9 common cells", [&](MergeFolder& f) { write_grid(f / "one.grd", lattice, nine_cells); },
       at_end,
       "no merged grid: 9 cells of the blend strip hold data of both grids, 10 are needed\n"},
      {"far from the output",
       [](MergeFolder& f) {
         f.draw_line({{0, 1500}, {200, 1500}, {400, 1500}});
       },
       at_end, "no merged grid: "},
      {"short",
       [](MergeFolder& f) {
         f.draw_line({{0, 150}, {10, 150}, {20, 150}});
       },
       at_end, "no merged grid: "},
  };
  for (const stop& s : stops) {
    expect_stop(s);
  }
}

TEST(MergeStops, at_too_few_samples_keep_the_report) {
  // The window is clipped to 9 columns: 9 samples of the line lie in it, and 54 blend cells.
  MergeFolder folder;
  folder.define(12, "0 80 10 41");
  const run_text text = folder.run();
  EXPECT_EQ(text.remarks,
            "no merged grid: 9 points of the stitch line hold data of both grids, 10 are needed\n");
  EXPECT_EQ(read_file(folder / "merged_mismatch.dat").size(), 32U + 9 * 63);
  EXPECT_FALSE(std::filesystem::exists(folder / "merged.grd"));
  folder.define(12, "0 90 10 41");  // 10 samples will do, and 10 cells
  write_grid(folder / "one.grd", lattice,
             [](int c, int r) { return r == 18 && c < 11 ? 1.0F : dummy; });
  EXPECT_EQ(folder.run().remarks.find("no merged grid"), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder / "merged.grd"));
}

}  // namespace
}  // namespace velmorankite
