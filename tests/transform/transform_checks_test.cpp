// SPDX-License-Identifier: MIT
#include "transform/transform_checks.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "transform/run_names.h"
#include "transform/transform_test.h"

namespace velmorankite {
namespace {

using testing::attraction;
using testing::lattice;
using testing::read_file;
using testing::write_grid;
using names = std::vector<std::string>;

class TransformChecks : public testing::TransformTest {};

TEST_F(TransformChecks, no_file_of_a_run_falls_on_its_input_or_on_its_output) {
  struct example {
    const char* input;
    const char* output;
    std::int32_t filter;
    std::int32_t reuse;
  };
  const example examples[] = {{"in.grd", "in.grd", 101, 0},
                              {"out_Tz.grd", "out.grd", 212, 0},
                              {"mag_trs_ext_008.grd", "out.grd", 101, 0},
                              {"mag_trs_ext_008_fft.grd", "out.grd", 101, 1},
                              {"in.grd", "mag_trs_ext_008.grd", 101, 0}};
  for (const example& e : examples) {
    write_grid(folder / e.input, lattice, [](int c, int r) { return attraction(c, r, 9.0); });
    const std::string before = read_file(folder / e.input);
    transform_request r = request(e.filter, 1.0F, e.input);
    r.out_grid = e.output;
    r.reuse_base = "mag.grd";
    r.reuse = e.reuse;
    EXPECT_EQ(run(r), transform_arguments_invalid) << e.input;
    EXPECT_NE(read_file(name_run(r).log).find(" would replace the "), std::string::npos);
    EXPECT_EQ(read_file(folder / e.input), before);
    std::filesystem::remove(folder / e.input);
  }
  write_grid(folder / "out_trs.log", lattice, [](int, int) { return 1.0F; });
  const std::string before = read_file(folder / "out_trs.log");
  EXPECT_THROW(static_cast<void>(run(request(101, 1.0F, "out_trs.log"))), platform::IoError);
  EXPECT_EQ(read_file(folder / "out_trs.log"), before);
}

TEST_F(TransformChecks, refusals_have_a_status_and_a_line_and_make_no_grid) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  struct example {
    std::function<void(transform_request&)> change;
    Status status;
    const char* line;
  };
  const example examples[] = {
      {[](auto& r) { r.in_grid.assign(1, ' '); },
       {-1001},
       "The input grid name has not been specified"},
      {[](auto& r) { r.grid.ints.storage_sense = 3; }, {-1001}, "not supported: 3"},
      {[](auto& r) { r.grid.reals.y_cell = std::nan(""); },
       {-1001},
       "cell size is not valid: 2 nan"},
      {[](auto& r) { r.pad_width = 0; }, {-1003}, "The padding width is not valid: 0"},
      {[](auto& r) { r.fft_mode = 2; }, {-1004}, "The FFT mode is not supported: 2"},
      {[](auto& r) { r.fft_mode = -1; }, {-1002}, "Not available in this version: the FFT on disk"},
      {[](auto& r) { r.filter = 213; }, {-1010}, "Filter Index is invalid: 213"},
      {[](auto& r) { r.filter = 204; }, {-1010}, "Derivative Order is invalid: 0"},
      {[](auto& r) { r.filter = 114; }, {-1002}, "the multilayer continuation"},
      {[](auto& r) { r.grid.reals.x_cell = 0.0; }, {-1001}, "cell size is not valid: 0 2"},
      {[](auto& r) { r.grid.reals.y_cell = 0.0; }, {-1001}, "cell size is not valid: 2 0"},
      {[](auto& r) { r.filter = 107; }, {-1002}, "Euler deconvolution"},
      {[](auto& r) { r.filter = 108; }, {-1002}, "the log spectral slope"},
      {[](auto& r) { r.filter = 201, r.int_par[2] = 1; }, {-1002}, "varies over the grid"},
      {[](auto& r) { r.filter = 205; }, {-1002}, "the derivative ensemble"},
      {[](auto& r) { r.filter = 205, r.fft_mode = -1; },
       {-1010},
       "not supported for disk based FFT mode: 5\nThere was a problem with the filter parameters"},
      {[](auto& r) { r.filter = 212, r.int_par[2] = 1; }, {-1002}, "VRMI by layers"},
      {[](auto& r) { r.filter = 212, r.real_par[5] = 1.0F; }, {-1002}, "VRMI by layers"},
      {[](auto& r) { r.filter = 212, r.fft_mode = 0; }, {-1002}, "VRMI by layers"},
      {[](auto& r) { r.grid.ints.element_code = -4; },
       {-1006},
       "Failed to read the input grid file"},
      {[](auto& r) { r.pad_width = 0x7FFFFFFF; }, {-1012}, "arrays failed : -1012"},
      {[](auto& r) {
         r.pad_width = 0x7FFFFFFF;
         r.fft_mode = 0;
       },
       {-1013},
       "arrays failed : -1013"},
      {[](auto& r) {
         r.pad_width = 0x2000000;  // a padded grid of more than any disk holds
         r.fft_mode = 0;
       },
       {-1013},
       "arrays failed : -1013"},
      {[](auto& r) { r.pad_width = 0x100000; },  // an array of 512 TiB
       {-1015},
       "There was a problem allocating the work array: -1015\nDeallocate\n"}};
  for (const example& e : examples) {
    transform_request r = request(101);
    e.change(r);
    range = {-7.0F, 0.0F};
    EXPECT_EQ(run(r), e.status) << e.line;
    EXPECT_NE(log().find(e.line), std::string::npos) << log();
    EXPECT_TRUE(log().ends_with("Transform complete\n"));
    EXPECT_EQ(range.OutMin, -7.0F);
    EXPECT_EQ(range.OutMax, 1.0F);
    EXPECT_EQ(folder.names(), (names{"in.grd", "out_trs.log"}));
  }
  write_grid(folder / "in.grd", lattice, [](int, int) { return dummy; });
  EXPECT_EQ(run(request(101)), transform_padding_failed);
  EXPECT_EQ(folder.names(), (names{"in.grd", "out_trs.log"}));
}

TEST_F(TransformChecks, a_failing_write_or_read_leaves_no_scratch_and_no_output) {
  write_grid(folder / "in.grd", {0.0, 0.0, 2.0, 2.0, 9, 7},
             [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(106);
  r.pad_width = 1;
  const std::string input = read_file(folder / "in.grd");
  for (const auto call :
       {testing::system_call::open, testing::system_call::read, testing::system_call::write}) {
    testing::fail_each_call(
        call, ENOSPC,
        [&] {
          if (run(r).failed()) {
            throw platform::IoError("out.grd", "refused");
          }
        },
        [&](int nth) {
          for (const std::string& name : folder.names()) {
            const bool expected = name == "in.grd" || name == "out_trs.log" ||
                                  (name == "out.grd" || name == "out_power_AS.dat");
            EXPECT_TRUE(expected && !name.starts_with('~')) << name << " " << nth;
          }
          EXPECT_EQ(read_file(folder / "in.grd"), input);
          if (std::filesystem::exists(folder / "out.grd")) {
            EXPECT_EQ(read_file(folder / "out.grd").size(), 512U + 9 * 7 * 4);
          }
        });
  }
}

}  // namespace
}  // namespace velmorankite
