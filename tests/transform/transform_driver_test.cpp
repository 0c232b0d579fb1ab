// SPDX-License-Identifier: MIT
#include "transform/transform_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"
#include "transform/run_names.h"

namespace velmorankite {
namespace {

using testing::describe;
using testing::read_file;
using testing::read_grid;
using testing::write_grid;
using names = std::vector<std::string>;

constexpr Lattice lattice{100.0, 200.0, 2.0, 2.0, 61, 47};

// Vertical attraction of a point mass `depth` below the middle of the grid, without units.
float attraction(std::int32_t column, std::int32_t row, double depth) {
  const double x = (column - 31) * lattice.x_cell;
  const double y = (row - 24) * lattice.y_cell;
  return static_cast<float>(1.0E4 * depth / std::pow(x * x + y * y + depth * depth, 1.5));
}

class Transform : public ::testing::Test {
 protected:
  transform_request request(std::int32_t filter, float first = 0.0F, const char* input = "in.grd") {
    transform_request r;
    r.in_grid = (folder / input).string();
    r.grid = describe(r.in_grid);
    r.out_grid = (folder / "out.grd").string();
    r.filter = filter;
    r.pad_width = 8;
    r.filter_width = 5;
    r.detrend = 2;
    r.fft_mode = fft_mode_memory;
    r.real_par[0] = first;
    return r;
  }

  Status run(const transform_request& r) { return TRSD(r, range); }
  [[nodiscard]] std::string log() const { return read_file(folder / "out_trs.log"); }

  testing::TemporaryFolder folder;
  testing::CurrentFolder inside{folder.path()};
  transform_range range;
};

TEST_F(Transform, a_field_continued_upwards_is_that_of_the_deeper_source_where_the_input_has_data) {
  for (const std::int32_t sense : {1, -2}) {
    write_grid(
        folder / "in.grd", lattice,
        [](int c, int r) { return c == 20 && r == 30 ? dummy : attraction(c, r, 12.0); }, sense);
    ASSERT_EQ(run(request(101, 4.0F)), success);
    EXPECT_EQ(describe(folder / "out.grd").ints.storage_sense, sense);
    const std::vector<float> out = read_grid(folder / "out.grd");
    for (std::int32_t row = 12; row <= 36; row += 4) {
      for (std::int32_t column = 16; column <= 46; column += 5) {
        const std::size_t i = testing::cell_index(column, row, lattice.x_count);
        EXPECT_NEAR(out[i], attraction(column, row, 16.0), 0.5F) << column << " " << row;
      }
    }
    EXPECT_EQ(out[29 * 61 + 19], dummy);
    EXPECT_EQ(range.OutMax, *std::max_element(out.begin(), out.end()));
    EXPECT_EQ(describe(folder / "out.grd").reals.z_max, static_cast<double>(range.OutMax));
  }
  EXPECT_EQ(folder.names(),
            (names{"in.grd", "out.grd", "out_power_Continuation.dat", "out_trs.log"}));
  EXPECT_NE(log().find("FFT array size: 128 128\n"), std::string::npos);
  EXPECT_TRUE(log().starts_with("Transform log file\n"));
  EXPECT_TRUE(log().ends_with("Transform complete\n"));
}

TEST_F(Transform, the_log_tells_the_steps_in_their_order) {
  write_grid(folder / "in.grd", {0.0, 0.0, 2.0, 2.0, 9, 7}, [](int, int) { return 4.0F; });
  transform_request r = request(101, 2.0F);
  r.pad_width = 1;
  r.reuse = 1;
  r.reuse_base = "kept.grd";
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(
      log(),
      "Transform log file\n"
      "Filter index : 101 1 2 0\n"
      "Output file: " +
          r.out_grid +
          "\n"
          "Continuation: \n"
          "Distance: 2\n"
          "FFT array size: 32 16\n"
          "FFT Padding Offsest: 7 0\n"
          "FFT Origin Offsest: 11 4\n"
          "Allocate padded grid arrays : 17 15\n"
          "Allocate FFT arrays : 32 16\n"
          "Initialise the allocated FFT array: \n"
          "Check padded grid file : kept_trs_ext_001.grd\n"
          "Generate padded grid file : 9 7 1\n"
          "Storage Sense :  1 (first element at bottom left, stored by row. Supported by Oasis)\n"
          "Padded grid data range,average : 4 4 4\n"
          "Perform FFT : 1 32 16\n"
          "Initialise the values for the FFT arrays 32 16\n"
          "Copy input grid data into FFT arrays\n"
          "Calculate forward FFT\n"
          "save the FFT coefficients\n"
          "FFT coefficient grid file saved\n"
          "call fftrsp\n"
          "compute inverse fft\n"
          "Output the transformed grid\n"
          "Transformed range : 4 4\n"
          "Deallocate\n"
          "Transform complete\n");
}

TEST_F(Transform, a_plane_is_left_out_put_back_or_kept_as_the_detrending_says) {
  const auto slope = [](int c, int r) { return 50.0F + 0.5F * static_cast<float>(2 * c - r); };
  for (const std::int32_t sense : {1, -2}) {
    write_grid(folder / "in.grd", lattice, slope, sense);
    const std::vector<float> in = read_grid(folder / "in.grd");
    for (const std::int32_t detrend : {0, 1, 10, 11}) {
      transform_request r = request(101, 3.0F);
      r.detrend = detrend;
      ASSERT_EQ(run(r), success);
      const std::vector<float> out = read_grid(folder / "out.grd");
      for (std::size_t i = 0; i < out.size(); i += 97) {
        EXPECT_NEAR(out[i], detrend % 10 == 0 ? 0.0F : in[i], 2E-3F) << detrend;
      }
    }
  }
}

TEST_F(Transform, a_saved_spectrum_gives_the_same_file_as_a_computed_one) {
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
  std::string spectrum = read_file(name);
  std::fill(spectrum.begin() + 512, spectrum.end(), '\0');
  testing::write_file(name, spectrum);
  r.reuse = 0;
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(read_file(folder / "out.grd"), other);
  EXPECT_FALSE(std::filesystem::exists(folder / "mag_trs_ext_008.grd"));
  EXPECT_FALSE(std::filesystem::exists(folder / "mag_trs_ext_008_fft.grd"));
}

TEST_F(Transform, saved_grids_without_a_base_take_scratch_names_and_stay_where_they_are_kept) {
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

TEST_F(Transform, saved_grids_go_with_a_run_that_ends_early_too) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(101);
  r.reuse_base = "mag.grd";
  r.pad_width = 0x100000;  // no memory for its array
  testing::write_file(folder / "mag_trs_ext_1048576.grd", "old");
  testing::write_file(folder / "mag_trs_ext_1048576_fft.grd", "old");
  EXPECT_EQ(run(r), transform_array_memory);
  EXPECT_EQ(folder.names(), (names{"in.grd", "out_trs.log"}));
}

TEST_F(Transform, no_file_of_a_run_falls_on_its_input_or_on_its_output) {
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

// The response counts in units of the mean cell size, the result is divided by the cell's area.
TEST_F(Transform, a_vertical_integral_is_scaled_by_its_order) {
  const auto integral = [this](double cell, float order) {
    Lattice scaled = lattice;
    scaled.x_cell = scaled.y_cell = cell;
    write_grid(folder / "in.grd", scaled, [](int c, int r) { return attraction(c, r, 9.0); });
    EXPECT_EQ(run(request(111, order)), success);
    return read_grid(folder / "out.grd");
  };
  for (const float order : {1.0F, 2.0F}) {
    const std::vector<float> of_1 = integral(1.0, order);
    const std::vector<float> of_2 = integral(2.0, order);
    for (std::size_t i = 0; i < of_1.size(); i += 211) {
      // A constant has no integral.
      EXPECT_NEAR(of_2[i] - of_2[0], (of_1[i] - of_1[0]) * std::pow(0.5F, order), 2E-4F) << order;
    }
  }
}

TEST_F(Transform, maps_of_three_grids_leave_one_grid_and_vrmi_its_components_too) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  ASSERT_EQ(run(request(106)), success);
  const std::vector<float> gradient = read_grid(folder / "out.grd");
  EXPECT_GE(*std::min_element(gradient.begin(), gradient.end()), 0.0F);
  transform_request r = request(212);
  r.real_par[1] = 60.0F;
  ASSERT_EQ(run(r), success);
  EXPECT_EQ(folder.names(), (names{"in.grd", "out.grd", "out_Tx.grd", "out_Ty.grd", "out_Tz.grd",
                                   "out_power_AS.dat", "out_power_VRMI.dat", "out_trs.log"}));
  const std::vector<float> x = read_grid(folder / "out_Tx.grd");
  const std::vector<float> y = read_grid(folder / "out_Ty.grd");
  const std::vector<float> z = read_grid(folder / "out_Tz.grd");
  const std::vector<float> whole = read_grid(folder / "out.grd");
  for (std::size_t i = 0; i < whole.size(); i += 131) {
    EXPECT_NEAR(whole[i], std::hypot(x[i], y[i], z[i]), 1E-4F * whole[i]);
  }
}

TEST_F(Transform, both_roads_mean_the_same_by_a_filter) {
  const auto field = [](int c, int r) {
    return attraction(c, r, 14.0) + 0.1F * attraction(r, c, 9.0);
  };
  // A short operator cuts off the far part of a response, so the roads are held against each other
  // by the slope of one on the other: 1 for the same sign and size. The operator of a horizontal
  // derivative rings at long waves, by the jump of its response at the Nyquist frequency.
  struct example {
    std::int32_t filter;
    float first, second;
    double tolerance;
    std::int32_t opt_2 = 0;
  };
  const example examples[] = {
      {101, 4.0F, 0.0F, 0.1}, {102, 1.0F, 0.0F, 0.2},
      {106, 1.0F, 0.0F, 0.2}, {204, 1.0F, 90.0F, 0.6},
      {204, 1.0F, 0.0F, 0.6}, {111, 1.0F, 0.0F, 0.6, 1}};  // two passes, in their order
  for (const std::int32_t sense : {1, -2}) {
    write_grid(folder / "in.grd", lattice, field, sense);
    for (const example& e : examples) {
      transform_request r = request(e.filter, e.first);
      r.real_par[1] = e.second;
      r.int_par[1] = e.opt_2;
      r.filter_width = 12;
      ASSERT_EQ(run(r), success);
      const std::vector<float> by_fft = read_grid(folder / "out.grd");
      r.fft_mode = fft_mode_convolution;
      ASSERT_EQ(run(r), success) << log();
      const std::vector<float> by_operator = read_grid(folder / "out.grd");
      double product = 0.0;
      double square = 0.0;
      for (std::size_t row = 10; row < 37; ++row) {
        for (std::size_t i = row * 61 + 10; i < row * 61 + 50; ++i) {
          product += static_cast<double>(by_fft[i]) * static_cast<double>(by_operator[i]);
          square += static_cast<double>(by_fft[i]) * static_cast<double>(by_fft[i]);
        }
      }
      EXPECT_NEAR(product / square, 1.0, e.tolerance)
          << e.filter << " " << e.second << " " << sense;
    }
  }
  transform_request r = request(116);
  r.fft_mode = fft_mode_convolution;
  EXPECT_EQ(run(r), transform_design_failed);
  r = request(101, 1.0F);
  r.fft_mode = fft_mode_convolution;
  r.filter_width = 0x7FFFFFFF;
  EXPECT_EQ(run(r), transform_design_failed);
}

TEST_F(Transform, the_hole_filter_gives_the_number_of_filled_cells) {
  write_grid(folder / "in.grd", lattice,
             [](int c, int r) { return c > 20 && c < 26 && r == 9 ? dummy : 5.0F; });
  transform_request r = request(112);
  r.int_par[1] = 1;
  r.pad_width = 0;
  // The nodes of the coarser levels count too: 3, 2 and 1 of them have no value of their own.
  EXPECT_EQ(run(r).code, 5 + 3 + 2 + 1);
  EXPECT_EQ(read_grid(folder / "out.grd"), std::vector<float>(std::size_t{61} * 47, 5.0F));
}

TEST_F(Transform, refusals_have_a_status_and_a_line_and_make_no_grid) {
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

TEST_F(Transform, a_failing_write_or_read_leaves_no_scratch_and_no_output) {
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

// 106 reads its spectrum three times: it must be its own to the end of the run.
TEST_F(Transform, two_runs_in_two_threads_do_not_meet) {
  const char* const inputs[] = {"a.grd", "b.grd"};
  std::vector<transform_request> requests;
  std::vector<std::string> alone;
  for (std::size_t i = 0; i < 2; ++i) {
    write_grid(folder / inputs[i], lattice,
               [i](int c, int r) { return attraction(c, r, i == 0 ? 9.0 : 12.0); });
    transform_request r = request(106, 0.0F, inputs[i]);
    r.out_grid = (folder / ("of_" + std::string(inputs[i]))).string();
    requests.push_back(r);
    ASSERT_EQ(run(r), success);
    alone.push_back(read_file(r.out_grid));
  }
  for (int turn = 0; turn < 10; ++turn) {
    std::vector<std::thread> threads;
    for (const transform_request& r : requests) {
      threads.emplace_back([&r] {
        transform_range own;
        EXPECT_EQ(TRSD(r, own), success);
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    for (std::size_t i = 0; i < 2; ++i) {
      EXPECT_EQ(read_file(requests[i].out_grid), alone[i]) << turn;
    }
  }
}

}  // namespace
}  // namespace velmorankite
