// SPDX-License-Identifier: MIT
#include "merge/definitions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/io_error.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;
using testing::write_file;

class Definitions : public ::testing::Test {
 protected:
  Definitions() : here(folder.path()) {}

  // Puts `text` in place of one of the 13 lines.
  void put(std::size_t line, std::string text) { lines.at(line - 1) = std::move(text); }

  [[nodiscard]] merge_definitions read(const std::string& line_end = "\n") const {
    std::string text;
    for (const std::string& line : lines) {
      text += line + line_end;
    }
    write_file(path, text);
    return read_definitions(path);
  }

  // What the refusal says behind the file's name; empty if it is read.
  [[nodiscard]] std::string refusal() const {
    try {
      (void)read();
    } catch (const platform::IoError& error) {
      const std::string text = error.what();
      EXPECT_EQ(text.find(path.string() + ": "), 0U) << text;
      return text.substr(path.string().size() + 2);
    }
    return {};
  }

  TemporaryFolder folder;
  testing::CurrentFolder here;
  std::filesystem::path path = folder / "mergedefs.trs";
  const std::vector<std::string> sound = {"Anything, even \"quotes\"",
                                          "one.grd",
                                          "two.grd",
                                          "line.dxf",
                                          "out.grd",
                                          "report.rep",
                                          "0.0",
                                          "1",
                                          "500.0",
                                          "250",
                                          "0",
                                          "1000.0 9000.0 50.0 161",
                                          "2000.0 6000.0 25.0 161"};
  std::vector<std::string> lines = sound;
};

TEST_F(Definitions, thirteen_lines_say_it_all) {
  put(7, "-1.5");
  put(9, "0.1 and what follows is a remark");
  put(12, "1000.5,9000,5D1,161 more");
  for (const char* line_end : {"\n", "\r\n", "\r"}) {
    const merge_definitions d = read(line_end);
    EXPECT_EQ(d.grid_1_file, "one.grd");
    EXPECT_EQ(d.grid_2_file, "two.grd");
    EXPECT_EQ(d.stitch_line_file, "line.dxf");
    EXPECT_EQ(d.stitch.output_path, "out.grd");
    EXPECT_EQ(d.stitch.report_name, "report.rep");
    EXPECT_EQ(d.stitch.correction_distance, -1.5F);
    EXPECT_EQ(d.stitch.adjusted_grid, 1);
    EXPECT_EQ(d.stitch.blend_width, 0.1F);
    EXPECT_EQ(d.stitch.band_margin, 250.0F);
    EXPECT_EQ(d.stitch.lattice, (Lattice{1000.5, 2000.0, 50.0, 25.0, 161, 161}));
    EXPECT_EQ(d.stitch.lattice_x_max, 9000.0);
    EXPECT_EQ(d.stitch.lattice_y_max, 6000.0);
  }
}

TEST_F(Definitions, paths_are_whole_lines_without_the_blanks_at_their_end) {
  put(2, "data of 2021/ grid, one.grd   ");
  put(3, " two.grd");
  put(6, "   ");
  const merge_definitions d = read();
  EXPECT_EQ(d.grid_1_file, "data of 2021/ grid, one.grd");
  EXPECT_EQ(d.grid_2_file, " two.grd");
  EXPECT_EQ(d.stitch.report_name, "");
  put(2, std::string(256, 'a') + std::string(100, ' '));
  EXPECT_EQ(read().grid_1_file.string().size(), 256U);
}

TEST_F(Definitions, numbers_skip_blank_lines_and_go_on_in_the_next) {
  put(7, "\n  \n0.0");
  put(12, "1000.0, 9000.0\n\n50.0 161 extra");
  put(11, "-7");
  const merge_definitions d = read();
  EXPECT_EQ(d.stitch.lattice.x_cell, 50.0);
  EXPECT_EQ(d.stitch.lattice.y_cell, 25.0);
}

TEST_F(Definitions, what_is_malformed_is_refused_with_its_line) {
  struct example {
    std::size_t line;
    std::string text;
    const char* refusal;
  };
  const example examples[] = {
      {2, std::string(257, 'a'),
       "line 2: path of grid 1 expected, at most 256 characters long, 257 characters found"},
      {5, " ",
       "line 5: path of the output grid expected, at most 256 characters long, 0 characters "
       "found"},
      {7, "none", "line 7: correction_distance, a number, expected, \"none\" found"},
      {8, "1.0", "line 8: adjusted_grid, an integer, expected, \"1.0\" found"},
      {11, "x", "line 11: an integer that is not used expected, \"x\" found"},
      {12, "\n1000 9000 50\nabc",
       "line 14: lattice_x_min, lattice_x_max, lattice_cell_x and the integer lattice_nx "
       "expected, \"abc\" found"},
      {13, "2000.0 6000.0 25.0",
       "line 14: lattice_y_min, lattice_y_max, lattice_cell_y and the integer lattice_ny "
       "expected, the file ends (it should have 13 lines)"},
  };
  for (const example& e : examples) {
    lines = sound;
    put(e.line, e.text);
    EXPECT_EQ(refusal(), e.refusal);
  }
  lines.assign(sound.begin(), sound.begin() + 2);
  EXPECT_EQ(refusal(), "line 3: path of grid 2 expected, the file ends (it should have 13 lines)");
  lines.clear();
  EXPECT_EQ(refusal(), "line 1: title expected, the file ends (it should have 13 lines)");
  EXPECT_THROW((void)read_definitions(folder / "missing.trs"), platform::IoError);
}

TEST_F(Definitions, values_that_no_stitch_can_use_are_refused_before_any_work) {
  struct example {
    std::size_t line;
    const char* text;
    const char* refusal;
  };
  const example examples[] = {
      {7, "NaN", "line 7: correction_distance is left out or no number, a finite number"},
      {8, "2", "line 8: adjusted_grid is 2, 0 or 1"},
      {9, "0", "line 9: blend_width is 0, a finite number above 0"},
      {9, "inf", "line 9: blend_width is inf, a finite number above 0"},
      {9, "/", "line 9: blend_width is left out or no number, a finite number above 0"},
      {10, "\n\n-inf", "line 12: band_margin is -inf, a finite number"},
      {12, "NaN 9000.0 50.0 161",
       "line 12: lattice_x_min is left out or no number, a finite number"},
      {12, "1000.0 inf 50.0 161", "line 12: lattice_x_max is inf, a finite number"},
      {12, "1.0 9.0 -1D-3 161", "line 12: lattice_cell_x is -0.001, a finite number above 0"},
      {12, "1.0 9.0 50.0 0", "line 12: lattice_nx is 0, a count from 1 to 536870911"},
      {12, "0 1 1 536870912", "line 12: lattice_nx is 536870912, a count from 1 to 536870911"},
      {13, "2*inf 25.0 161", "line 13: lattice_y_min is inf, a finite number"},
      {13, "2000.0 NaN 25.0 161",
       "line 13: lattice_y_max is left out or no number, a finite number"},
      {13, "2000.0 6000.0 0 161", "line 13: lattice_cell_y is 0, a finite number above 0"},
      {13, "2000.0 6000.0 25.0 -161", "line 13: lattice_ny is -161, a count of at least 1"},
  };
  for (const example& e : examples) {
    lines = sound;
    put(e.line, e.text);
    EXPECT_EQ(refusal(), std::string(e.refusal).append(" is expected"));
  }
}

TEST_F(Definitions, no_result_takes_the_place_of_an_input_or_of_another_result) {
  struct example {
    std::size_t line;
    std::string text;
    std::string refusal;
  };
  const std::string own = ", a name of its own is expected";
  const example examples[] = {
      {5, "one.grd", "line 5: the output grid would replace grid 1 (one.grd)" + own},
      {5, "link.grd", "line 5: the output grid would replace grid 1 (link.grd)" + own},
      {5, (folder / "line.dxf").string(),
       "line 5: the output grid would replace the stitch line (" + (folder / "line.dxf").string() +
           ")" + own},
      {5, "mergedefs.trs",
       "line 5: the output grid would replace the definitions file (mergedefs.trs)" + own},
      {5, "report_mismatch.dat",
       "line 6: the mismatch report would replace the output grid (report_mismatch.dat)" + own},
      {2, "report_mismatch.dat",
       "line 6: the mismatch report would replace grid 1 (report_mismatch.dat)" + own},
  };
  write_file(folder / "one.grd", "x");
  std::filesystem::create_symlink("one.grd", folder / "link.grd");
  for (const example& e : examples) {
    lines = sound;
    put(e.line, e.text);
    EXPECT_EQ(refusal(), e.refusal);
  }
  // Nor the cells of an ER Mapper header.
  write_file(folder / "map.ers", std::string("DatasetHeader Begin\n") + std::string(300, ' '));
  write_file(folder / "map", "cells");
  lines = sound;
  put(2, "map.ers");
  put(5, "map");
  EXPECT_EQ(refusal(), "line 5: the output grid would replace a file of grid 1 (map)" + own);
  // The correction grid is a result only where a correction is asked for.
  lines = sound;
  put(2, "report_stitch_grid_smooth.grd");
  EXPECT_EQ(refusal(), "");
  put(7, "5");
  EXPECT_EQ(refusal(),
            "line 6: the correction grid would replace grid 1 "
            "(report_stitch_grid_smooth.grd)" +
                own);
}

}  // namespace
}  // namespace velmorankite
