// SPDX-License-Identifier: MIT
#include "transform/transform_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <thread>
#include <vector>

#include "condition/hole_filling.h"
#include "support/foreign_grids.h"
#include "transform/transform_test.h"

namespace velmorankite {
namespace {

using testing::attraction;
using testing::describe;
using testing::lattice;
using testing::read_file;
using testing::read_grid;
using testing::write_grid;
using names = std::vector<std::string>;

class Transform : public testing::TransformTest {};

TEST_F(Transform, a_field_continued_upwards_is_that_of_the_deeper_source_where_the_input_has_data) {
  for (const std::int32_t sense : {1, -2}) {
    write_grid(
        folder / "in.grd", lattice,
        [](int c, int r) { return c == 20 && r == 30 ? dummy : attraction(c, r, 12.0); }, sense);
    ASSERT_EQ(run(request(101, 4.0F)), success);
    EXPECT_EQ(describe(folder / "out.grd").ints.storage_sense, sense);
    EXPECT_NE(log().find(sense == 1 ? "Storage Sense :  1 (first element at bottom left"
                                    : "Storage Sense : -2 (first element at top left"),
              std::string::npos);
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
  // Cells that are not square, and none at the highest point.
  const auto slope = [](int c, int r) {
    return c == 61 && r == 1 ? dummy : 50.0F + 0.5F * static_cast<float>(2 * c - r);
  };
  Lattice oblong = lattice;
  oblong.y_cell = 3.0;
  for (const std::int32_t sense : {1, -2}) {
    write_grid(folder / "in.grd", oblong, slope, sense);
    const std::vector<float> in = read_grid(folder / "in.grd");
    for (const std::int32_t detrend : {0, 1, 10, 11}) {
      transform_request r = request(101, 3.0F);
      r.detrend = detrend;
      ASSERT_EQ(run(r), success);
      const std::vector<float> out = read_grid(folder / "out.grd");
      for (std::size_t i = 0; i < out.size(); i += 97) {
        EXPECT_NEAR(out[i], detrend % 10 == 0 ? 0.0F : in[i], 2E-3F) << detrend;
      }
      EXPECT_EQ(out[60], dummy);
      EXPECT_EQ(range.OutMax, *std::ranges::max_element(out));
      EXPECT_EQ(range.OutMin, *std::ranges::min_element(
                                  out, {}, [](float z) { return is_valid(z) ? z : HUGE_VALF; }));
      EXPECT_EQ(describe(folder / "out.grd").reals.z_min, static_cast<double>(range.OutMin));
      EXPECT_NE(read_file(folder / "out_power_Continuation.dat").find("\n           2 "),
                std::string::npos);
    }
  }
}

TEST_F(Transform, a_total_gradient_takes_the_high_cut_and_its_integral_the_low_cut) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  const auto gradient = [this](std::int32_t integrated, float high, float low,
                               std::int32_t mode = fft_mode_memory) {
    transform_request r = request(106);
    r.fft_mode = mode;
    r.int_par[1] = integrated;
    r.hi_cut = high;
    r.lo_cut = low;
    EXPECT_EQ(run(r), success);
    return read_file(folder / "out.grd");
  };
  const std::string plain = gradient(0, 0.0F, 0.0F);
  EXPECT_EQ(gradient(0, 0.0F, 0.9F), plain);
  EXPECT_NE(gradient(0, 0.9F, 0.0F), plain);
  const std::string integral = gradient(1, 0.0F, 0.0F);
  EXPECT_NE(integral, plain);
  EXPECT_NE(gradient(1, 0.0F, 0.9F), integral);
  EXPECT_NE(gradient(1, 0.0F, 0.0F, fft_mode_convolution),
            gradient(0, 0.0F, 0.0F, fft_mode_convolution));
}

TEST_F(Transform, cutoffs_and_azimuth_reach_their_fields) {
  write_grid(folder / "in.grd", lattice, [](int c, int r) { return attraction(c, r, 9.0); });
  transform_request r = request(106);
  r.int_par[1] = 1;
  r.hi_cut = 0.5F;
  r.lo_cut = 0.25F;
  ASSERT_EQ(run(r), success);
  EXPECT_NE(log().find("HF: 0.5\nVI: Yes\nLF: 0.25\n"), std::string::npos);
  r.filter = 211;
  r.azimuth = 30.0F;
  ASSERT_EQ(run(r), success);
  EXPECT_NE(log().find("Azim: 30\n"), std::string::npos);
}

// The response counts in units of the mean cell size, the result is divided by the cell's area.
TEST_F(Transform, a_vertical_integral_is_scaled_by_its_order) {
  const auto integral = [this](double cell, float order) {
    Lattice scaled = lattice;
    scaled.x_cell = 1.0;  // the same mean size and area as square ones
    scaled.y_cell = cell * cell;
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

TEST_F(Transform, an_input_in_another_format_is_converted_first_and_gives_the_same) {
  const testing::sample_grid sample = testing::small_sample();
  write_grid(folder / "in.grd", sample.lattice,
             [&](int column, int row) { return sample.at(column, row); });
  ASSERT_EQ(run(request(101, 3.0F)), success);
  const std::vector<float> expected = read_grid(folder / "out.grd");
  const auto format =
      std::ranges::find(testing::foreign_formats(), 11, &testing::foreign_format::format_code);
  testing::write_file(folder / format->file_name, format->bytes(sample));
  ASSERT_EQ(run(request(101, 3.0F, format->file_name)), success) << log();
  EXPECT_NE(log().find("Convert the input grid file to standard Geosoft\n"), std::string::npos);
  const std::vector<float> out = read_grid(folder / "out.grd");
  ASSERT_EQ(out.size(), expected.size());
  for (std::size_t i = 0; i < out.size(); ++i) {
    EXPECT_NEAR(out[i], expected[i], 1E-4F) << i;
  }
  EXPECT_EQ(folder.names(), (names{format->file_name, "in.grd", "out.grd",
                                   "out_power_Continuation.dat", "out_trs.log"}));
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
  r.filter_width = 50;  // 99 points, over 97 rows
  EXPECT_EQ(run(r), transform_design_failed);
  r.filter_width = 49;
  EXPECT_EQ(run(r), success);
}

TEST_F(Transform, the_hole_filter_gives_the_number_of_filled_cells) {
  write_grid(folder / "in.grd", lattice,
             [](int c, int r) { return c > 20 && c < 26 && r == 9 ? dummy : 5.0F; });
  transform_request r = request(112);
  r.int_par[1] = 1;
  r.pad_width = 0;
  // The nodes of the coarser levels count too: 3, 2 and 1 of them have no value of their own.
  r.fft_mode = -1;  // it takes none of the roads
  EXPECT_EQ(run(r).code, 5 + 3 + 2 + 1);
  EXPECT_EQ(read_grid(folder / "out.grd"), std::vector<float>(std::size_t{61} * 47, 5.0F));
}

TEST_F(Transform, the_hole_filter_fills_by_sweeps_as_grid_fill_does) {
  const auto cell = [](int c, int r) {
    return c == 1 || (c > 20 && r > 8 && c * r < 240) ? dummy : float(c - r);
  };
  write_grid(folder / "in.grd", lattice, cell);
  transform_request r = request(112);
  r.pad_width = 0;
  float minimum = 0.0F;
  float maximum = 0.0F;
  std::int64_t filled = 0;
  ASSERT_EQ(GRID_FILL(r.in_grid, (folder / "filled.grd").string(), 0, 0, minimum, maximum, filled),
            success);
  EXPECT_GT(filled, 5);
  EXPECT_EQ(run(r).code, filled);
  EXPECT_EQ(read_file(folder / "out.grd"), read_file(folder / "filled.grd"));
  write_grid(folder / "in.grd", lattice, [](int, int) { return dummy; });
  EXPECT_EQ(run(r), transform_fill_failed);
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
    threads.reserve(requests.size());
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
