// SPDX-License-Identifier: MIT
// The grids that a run saves for later runs.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "condition/detrend.h"
#include "condition/padded_grid.h"
#include "grid/standard_header.h"
#include "transform/transform_test.h"

namespace velmorankite {
namespace {

using testing::attraction;
using testing::describe;
using testing::lattice;
using testing::read_file;
using testing::write_grid;
using names = std::vector<std::string>;

class SavedGrids : public testing::TransformTest {};

TEST_F(SavedGrids, a_saved_spectrum_gives_the_same_file_as_a_computed_one) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(102, 1.0F);
  r.reuse = 1;
  r.reuse_base = "mag.grd";
  ASSERT_EQ(run(r), success);
  const std::string computed = read_file(folder / "out.grd");
  EXPECT_TRUE(std::filesystem::exists(folder / "mag_trs_ext_008.grd"));
  ASSERT_TRUE(std::filesystem::exists(folder / "mag_trs_ext_008_fft.grd"));
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(read_file(folder / "out.grd"), computed);
  EXPECT_NE(log().find("Read the existing padded grid file\n"), std::string::npos);
  EXPECT_NE(log().find("Read the saved FFT coefficients\n"), std::string::npos);
  // Grids of another lattice are not taken for this one's.
  write_grid(folder / "in.grd", {0.0, 0.0, 2.0, 2.0, 61, 47},
             [](int c, int w) { return attraction(w, c, 9.0); });
  r.grid = describe(r.in_grid);
  ASSERT_EQ(run(r), success);
  EXPECT_NE(log().find("inconsistent with definitions, so it will be regenerated\n"),
            std::string::npos);
  EXPECT_NE(read_file(folder / "out.grd"), computed);
  // Without the wish to use them saved files are not looked at, and deleted at the end.
  const std::string other = read_file(folder / "out.grd");
  const std::string name = (folder / "mag_trs_ext_008_fft.grd").string();
  const auto spoil = [](const std::string& file) {
    std::string bytes = read_file(file);
    std::fill(bytes.begin() + 512, bytes.end(), '\0');
    testing::write_file(file, bytes);
  };
  spoil(name);
  spoil((folder / "mag_trs_ext_008.grd").string());
  // Below 0 they are neither used nor deleted.
  r.reuse = -1;
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(read_file(folder / "out.grd"), other);
  EXPECT_EQ(read_file(folder / "mag_trs_ext_008.grd").find_first_not_of('\0', 512),
            std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(name));
  spoil(name);
  r.reuse = 0;
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(read_file(folder / "out.grd"), other);
  EXPECT_FALSE(std::filesystem::exists(folder / "mag_trs_ext_008.grd"));
  EXPECT_FALSE(std::filesystem::exists(folder / "mag_trs_ext_008_fft.grd"));
}

TEST_F(SavedGrids, saved_grids_without_a_base_take_scratch_names_and_stay_where_they_are_kept) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(106);
  const names products{"in.grd", "out.grd", "out_power_AS.dat", "out_trs.log"};
  struct example {
    std::int32_t reuse;
    names saved;
  };
  for (const example& e : {example{0, {}},
                           {-1, {"~grdReUseFFT0000.tmp"}},
                           {1, {"~grdReUseExt0000.tmp", "~grdReUseFFT0000.tmp"}}}) {
    r.reuse = e.reuse;
    ASSERT_EQ(run(r), success);
    names expected = products;
    expected.insert(expected.end(), e.saved.begin(), e.saved.end());
    EXPECT_EQ(folder.names(), expected) << e.reuse;
    for (const std::string& name : e.saved) {
      std::filesystem::remove(folder / name);
    }
  }
}

TEST_F(SavedGrids, saved_grids_go_with_a_run_that_ends_early_too) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(101);
  r.reuse_base = "mag.grd";
  r.pad_width = 0x100000;  // no memory for its array
  testing::write_file(folder / "mag_trs_ext_1048576.grd", "old");
  testing::write_file(folder / "mag_trs_ext_1048576_fft.grd", "old");
  EXPECT_EQ(run(r), transform_array_memory);
  EXPECT_EQ(folder.names(), (names{"in.grd", "out_trs.log"}));
}

TEST_F(SavedGrids, a_padded_grid_is_saved_as_its_request_says_and_gives_the_same_when_taken_again) {
  struct example {
    std::int32_t detrend;
    const char* saved;
  };
  for (const example& e : {example{0, "mag_trs_det_ext_008"},
                           {1, "mag_trs_det_ext_008"},
                           {11, "mag_trs_det_all_ext_008"},
                           {2, "mag_trs_ext_008"}}) {
    for (const std::int32_t mode : {fft_mode_convolution, fft_mode_memory}) {
      write_grid(folder / "in.grd", lattice, [](int c, int r) {
        return attraction(c, r, 9.0) + 0.25F * static_cast<float>(3 * c + r) + 100.0F;
      });
      transform_request r = request(101, 1.0F);
      r.detrend = e.detrend;
      r.fft_mode = mode;
      r.reuse = 1;
      r.reuse_base = "mag.grd";
      ASSERT_EQ(run(r), success);
      const std::string saved = (folder / e.saved).string();
      pad_request pad;
      pad.taper = mode == fft_mode_memory;
      pad.taper_width = 8;
      pad.column_pad = pad.row_pad = 25;
      pad.x_count = 61 + 50;
      pad.y_count = 47 + 50;
      pad.detrend_mode = e.detrend % 10;
      const fit_scope scope = e.detrend > 9 ? fit_scope::all_cells : fit_scope::line_ends;
      ASSERT_EQ(GRID_DETREND_PLANE(scope, r.in_grid, "", pad.average, pad.trend), success);
      value_range padded;
      ASSERT_EQ(GRDPAD(r.in_grid, folder / "want.grd", pad, padded), success);
      EXPECT_EQ(read_file(saved + ".grd"), read_file(folder / "want.grd")) << e.detrend << mode;
      // Taken again, with its spectrum to be made anew.
      const std::string computed = read_file(folder / "out.grd");
      std::filesystem::remove(saved + "_fft.grd");
      ASSERT_EQ(run(r), success);
      EXPECT_NE(log().find("Read the existing padded grid file\n"), std::string::npos);
      EXPECT_EQ(read_file(folder / "out.grd"), computed) << e.detrend << mode;
      std::filesystem::remove(saved + ".grd");
      std::filesystem::remove(saved + "_fft.grd");
    }
  }
}

TEST_F(SavedGrids, a_saved_padded_grid_with_another_header_is_made_anew) {
  using H = standard_header;
  write_grid(folder / "in.grd", {10.0, 20.0, 2.0, 2.0, 9, 7},
             [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(101, 1.0F);
  r.pad_width = 1;
  r.reuse = 1;
  r.reuse_base = "mag.grd";
  ASSERT_EQ(run(r), success);
  const std::string saved = (folder / "mag_trs_ext_001.grd").string();
  const std::string good = read_file(saved);
  const std::function<void(H&)> changes[] = {
      [](H& h) { std::swap(h.elements_per_row, h.row_count); },
      [](H& h) { h.storage_sense = -2; },
      [](H& h) { h.x_origin += 2.0E-6; },
      [](H& h) { h.y_origin += 2.0E-6; },
      [](H& h) { h.element_spacing += 2.0E-6, h.x_origin -= 4 * 2.0E-6; },
      [](H& h) { h.row_spacing += 2.0E-6, h.y_origin -= 4 * 2.0E-6; },
      [](H& h) { h.process_flag = 1; },
      [](H& h) { h.stat_min = dummy; },
      [](H& h) { h.stat_max = dummy; },
      [](H& h) { h.stat_median = dummy; },
      [](H& h) { h.stat_mean = dummy; }};
  for (std::size_t i = 0; i <= std::size(changes); ++i) {
    testing::write_file(saved, i < std::size(changes) ? good : good + "more");
    if (i < std::size(changes)) {
      platform::BinaryFile file(saved, platform::open_mode::read_write);
      standard_header header;
      ASSERT_EQ(READ_GEOSOFT_HEADER(file, header), success);
      changes[i](header);
      OUTPUT_GEOSOFT_HEADER(file, header);
      file.close();
    }
    ASSERT_EQ(run(r), success);
    EXPECT_NE(log().find("so it will be regenerated\n"), std::string::npos) << i;
    EXPECT_EQ(read_file(saved), good) << i;
  }
}

}  // namespace
}  // namespace velmorankite
