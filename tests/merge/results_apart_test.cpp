// What a caller owns stays, whatever names the results are given.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "condition/detrend.h"
#include "condition/hole_filling.h"
#include "condition/multi_level_fill.h"
#include "condition/padded_grid.h"
#include "formats/compressed_grid.h"
#include "formats/convert_grid.h"
#include "formats/geoout.h"
#include "grid/file_services.h"
#include "merge/status_table.h"
#include "merge/stitch.h"
#include "platform/io_error.h"
#include "support/merge_folder.h"
#include "transform/filter_index.h"
#include "transform/transform_driver.h"
#include "utilities/clone.h"

namespace velmorankite {
namespace {

using testing::MergeFolder;

class NothingIsLost : public ::testing::Test {
 protected:
  NothingIsLost() {
    std::filesystem::create_directory("sub");
    std::filesystem::create_symlink("one.grd", "link.grd");
    std::filesystem::create_hard_link("one.grd", "hard.grd");
    std::filesystem::create_symlink("a_mismatch.dat", "ahead.grd");
  }

  MergeFolder folder;
};

// Gives the words of the failure; none for a stitch that was done.
std::string stitch(const char* grid_1, const char* output, float correction) {
  stitch_parameters parameters;
  parameters.report_name = "a.txt";
  parameters.correction_distance = correction;
  parameters.blend_width = parameters.band_margin = 50.0F;
  parameters.lattice = MergeFolder::lattice;
  parameters.lattice_x_max = 400.0;
  parameters.lattice_y_max = 300.0;
  parameters.output_path = output;
  stitch_line line{{-50.0, 200.0, 450.0}, {150.0, 150.0, 150.0}};
  stitch_summary summary;
  try {
    return GRIDSTITCH(parameters, {grid_1, testing::describe("one.grd")},
                      {"two.grd", testing::describe("two.grd")}, line, summary)
        .why;
  } catch (const platform::IoError& error) {
    return error.what();
  }
}

TEST_F(NothingIsLost, in_a_stitch_to_a_name_that_another_of_its_files_has) {
  std::filesystem::copy_file("one.grd", "a_stitch_grid_smooth.grd");
  std::filesystem::copy_file("one.grd", "a_stitch_grid_smooth_trs.log");
  std::filesystem::copy_file("one.grd", "a_mismatch.dat");
  struct example {
    const char* grid_1;
    const char* output;
    float correction;
    const char* told;
  };
  const example examples[] = {
      {"a_stitch_grid_smooth.grd", "out.grd", 60.0F,
       "the correction grid would replace grid 1 (a_"},
      {"a_stitch_grid_smooth_trs.log", "out.grd", 60.0F, "the log of the correction would replace"},
      {"a_mismatch.dat", "out.grd", 0.0F, "the mismatch report would replace grid 1 (a_mismatch"},
      {"one.grd", "a_stitch_grid_smooth.grd", 60.0F, "grid would replace the output grid (a_"},
      {"one.grd", "a_mismatch.dat", 0.0F, "the mismatch report would replace the output grid"},
      {"one.grd", "ahead.grd", 0.0F, "the mismatch report would replace the output grid"},
      {"one.grd", "two.grd", 0.0F, "two.grd: the output grid would replace grid 2 (two.grd), a"},
      {"one.grd", "link.grd", 0.0F, "one.grd: the output grid would replace grid 1 (link.grd), a"},
      {"link.grd", "one.grd", 0.0F, "link.grd: the output grid would replace grid 1 (one.grd), a"},
      {"one.grd", "hard.grd", 0.0F, "the output grid would replace grid 1 (hard.grd), a name of"},
      {"one.grd", "./sub/../one.grd", 0.0F, "would replace grid 1 (./sub/../one.grd), a name of"}};
  const auto before = folder.contents();
  for (const example& e : examples) {
    const std::string why = stitch(e.grid_1, e.output, e.correction);
    EXPECT_NE(why.find(e.told), std::string::npos) << why;
    EXPECT_TRUE(folder.contents() == before) << e.told;
  }
  // Without a correction its names are as good as any others.
  EXPECT_EQ(stitch("one.grd", "a_stitch_grid_smooth.grd", 0.0F), "");
}

// Routines that make one file of another, to their status; none can succeed here.
using call = std::function<Status(const std::string& in, const std::string& out)>;

Status fill(const std::string& in, const std::string& out, std::int32_t road) {
  float range = 0.0F;
  std::int64_t filled = 0;
  return GRID_FILL(in, out, road, 0, range, range, filled);
}

Status fill_by_levels(const std::string& in, const std::string& out) {
  fill_request request;
  request.input_name = in;
  request.input = testing::describe(in);
  request.x_count = MergeFolder::lattice.x_count;
  request.y_count = MergeFolder::lattice.y_count;
  request.output_name = out;
  std::int64_t filled = 0;
  return GRDMIPMAP(request, filled);
}

Status pad(const std::string& in, const std::string& out) {
  pad_request request;
  request.x_count = request.y_count = 64;
  value_range range;
  return GRDPAD(in, out, request, range);
}

Status convert(const std::string& in, const std::string& out) {
  grid_description grid = testing::describe(in);
  grid_window whole;
  return GRDRDG(in, out, grid, whole);
}

Status transform(const std::string& in, const std::string& out) {
  transform_request request;
  request.in_grid = in;
  request.grid = testing::describe(in);
  request.out_grid = out;
  request.filter = filter_continuation;
  request.pad_width = request.filter_width = 8;
  request.fft_mode = fft_mode_memory;
  request.real_par = {10.0F};
  transform_range range;
  return TRSD(request, range);
}

Status write_floats(const std::string& in, const std::string& out) {
  const platform::BinaryFile unit(in, platform::open_mode::read);
  float range = 0.0F;
  return GEOOUT(out, {1, {}, &unit}, {0.0, 0.0, 1.0, 1.0, 3, 3}, 1, dummy, 0, range, range);
}

Status write_integers(const std::string& in, const std::string& out) {
  const platform::BinaryFile unit(in, platform::open_mode::read);
  float range = 0.0F;
  return GEOOUTI2(out, {1, {}, {}, &unit, 0}, {0.0, 0.0, 1.0, 1.0, 3, 3}, 0, 0, range, range);
}

TEST_F(NothingIsLost, when_a_result_of_any_routine_has_the_name_of_its_input) {
  struct example {
    const char* routine;
    call write;
    std::int32_t status;  // 0: IoError
  };
  float mean = 0.0F;
  plane trend;
  const example examples[] = {
      {"GRID_DETREND", [&](auto& i, auto& o) { return GRID_DETREND(i, o, mean, trend); }, -998},
      {"GRID_DETREND_OLD", [&](auto& i, auto& o) { return GRID_DETREND_OLD(i, o, mean, trend); },
       -998},
      {"GRID_FILL", [](auto& in, auto& out) { return fill(in, out, 0); }, 0},
      {"GRID_FILL", [](auto& in, auto& out) { return fill(in, out, 1); }, 0},
      {"GRDMIPMAP", fill_by_levels, 0},
      {"GRDPAD", pad, 0},
      {"GEOCLONE", [](auto& in, auto& out) { return GEOCLONE(in, out, clone_zeros); }, 0},
      {"GRDRDG", convert, -12},
      {"EXPUNCOMPGRID", [](auto& in, auto& out) { return EXPUNCOMPGRID(in, out); }, -20002},
      {"TRSD", transform, -1001},
      {"GEOOUT", write_floats, -1},
      {"GEOOUTI2", write_integers, -1},
      {"GRDFILECOPY", [](auto& in, auto& out) { return Status{GRDFILECOPY(in, out) ? 1 : -1}; },
       0}};
  const std::string before = testing::read_file("one.grd");
  for (const example& e : examples) {
    for (const char* output : {"one.grd", "link.grd", "hard.grd", "./sub/../one.grd"}) {
      std::string why;
      try {
        const Status status = e.write("one.grd", output);
        EXPECT_EQ(status.code, e.status) << e.routine << " " << output;
        why = status_words(merge_statuses, e.routine, status);
      } catch (const platform::IoError& error) {
        EXPECT_EQ(e.status, 0) << e.routine << " " << output;
        why = error.what();
      }
      EXPECT_NE(why.find("would replace "), std::string::npos) << e.routine << " " << why;
      EXPECT_EQ(testing::read_file("one.grd"), before) << e.routine;
      EXPECT_TRUE(std::filesystem::is_symlink("link.grd"));
      EXPECT_EQ(std::filesystem::hard_link_count("one.grd"), 2U) << e.routine;
    }
  }
  EXPECT_EQ(fill("one.grd", "  ", 1), success);  // in place
}

}  // namespace
}  // namespace velmorankite
