// SPDX-License-Identifier: MIT
#include "transform/fft_grid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/file_tests.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;

const Lattice lattice{500.0, -200.0, 25.0, 10.0, 3, 2};

fft_geometry geometry_of(std::int32_t pad_width = 1, std::int32_t columns = 3) {
  fft_geometry geometry;
  EXPECT_EQ(plan_fft(columns, 2, pad_width, geometry), success);
  return geometry;
}

std::vector<float> some_spectrum(const fft_geometry& geometry) {
  std::vector<float> array(geometry.fftwords());
  for (std::size_t i = 0; i < array.size(); ++i)
    array[i] = static_cast<float>(i) - 100.0F;
  return array;
}

TEST(FftGrid, is_a_standard_grid_with_two_columns_for_every_element) {
  const TemporaryFolder folder;
  const fft_geometry g = geometry_of();  // 16 x 16, the grid behind 6 columns and 7 rows
  save_fft_grid(folder / "s.grd", lattice, g, some_spectrum(g));
  const grid_description d = testing::describe(folder / "s.grd");
  EXPECT_EQ(d.ints.x_count, 32);
  EXPECT_EQ(d.ints.y_count, 16);
  EXPECT_EQ(d.ints.storage_sense, -2);
  EXPECT_EQ(d.reals.x_min, 500.0 - 6 * 25.0);
  EXPECT_EQ(d.reals.y_min, -200.0 - 7 * 10.0);
  EXPECT_EQ(d.reals.x_cell, 12.5);
  EXPECT_EQ(d.reals.y_cell, 10.0);
  EXPECT_EQ(platform::bytes_of_file(folder / "s.grd"), 512 + 4 * 2 * 16 * 16);
  // The first words of the array are those of the northernmost row.
  EXPECT_EQ(testing::read_grid(folder / "s.grd")[15 * 32 + 1], -99.0F);
}

struct reuse {
  bool found;
  std::vector<float> array;
  std::vector<std::string> log;
};

reuse try_reuse(const std::filesystem::path& path, const Lattice& wanted,
                const fft_geometry& geometry) {
  reuse result{false, std::vector<float>(geometry.fftwords()), {}};
  result.found = reuse_fft_grid(path, wanted, geometry, result.array,
                                [&](std::string_view line) { result.log.emplace_back(line); });
  return result;
}

TEST(FftGrid, is_read_again_by_a_run_on_the_same_lattice) {
  const TemporaryFolder folder;
  const fft_geometry g = geometry_of();
  save_fft_grid(folder / "s.grd", lattice, g, some_spectrum(g));
  Lattice near = lattice;
  near.x_min += 0.9E-6;
  const reuse result = try_reuse(folder / "s.grd", near, g);
  EXPECT_TRUE(result.found);
  EXPECT_EQ(result.array, some_spectrum(g));
  const std::string name = (folder / "s.grd").string();
  EXPECT_EQ(result.log,
            (std::vector<std::string>{"Check for reuse of FFT file : " + name,
                                      "Read the saved FFT coefficients", "FFT coefficients read"}));
}

TEST(FftGrid, of_another_geometry_is_deleted) {
  struct example {
    Lattice lattice;
    fft_geometry geometry;
    std::size_t log_lines;
  };
  const auto shifted = [](double Lattice::*field, double by) {
    Lattice other = lattice;
    other.*field += by;
    return other;
  };
  const fft_geometry g = geometry_of();
  const example examples[] = {{shifted(&Lattice::x_min, 1.1E-6), g, 2},
                              {shifted(&Lattice::y_min, -1.1E-6), g, 2},
                              {shifted(&Lattice::x_cell, 1.0), g, 2},
                              {shifted(&Lattice::y_cell, 1.0), g, 2},
                              {lattice, geometry_of(1, 5), 2},
                              // other cells behind the same corner of the array
                              {{350.0 + 6 * 26.0, -200.0, 26.0, 10.0, 3, 2}, g, 2},
                              {{500.0, -270.0 + 7 * 11.0, 25.0, 11.0, 3, 2}, g, 2},
                              {lattice, geometry_of(3), 3}};  // not even of the same size
  for (const example& e : examples) {
    const TemporaryFolder folder;
    save_fft_grid(folder / "s.grd", lattice, g, some_spectrum(g));
    const reuse result = try_reuse(folder / "s.grd", e.lattice, e.geometry);
    EXPECT_FALSE(result.found);
    ASSERT_EQ(result.log.size(), e.log_lines);
    EXPECT_EQ(result.log.back(),
              "There is a mismatch in the definitions of the saved FFT grid file, so the existing "
              "file will be deleted");
    if (e.log_lines == 3) {
      EXPECT_EQ(result.log[1], "Mismatch in size of saved FFT grid file: 2560 8704");
    }
    EXPECT_TRUE(folder.names().empty());
  }
}

TEST(FftGrid, of_as_many_words_on_other_sides_or_of_more_is_deleted) {
  fft_geometry wide;
  fft_geometry high;
  ASSERT_EQ(plan_fft(20, 2, 1, wide), success);  // 32 x 16 behind 2 columns and 3 rows
  ASSERT_EQ(plan_fft(2, 20, 1, high), success);
  const TemporaryFolder folder;
  save_fft_grid(folder / "s.grd", lattice, wide, some_spectrum(wide));
  Lattice same_corner = lattice;
  same_corner.x_min += (high.origx - wide.origx) * lattice.x_cell;
  same_corner.y_min += (high.origy - wide.origy) * lattice.y_cell;
  EXPECT_FALSE(try_reuse(folder / "s.grd", same_corner, high).found);
  EXPECT_TRUE(folder.names().empty());
  save_fft_grid(folder / "s.grd", lattice, wide, some_spectrum(wide));
  testing::write_file(folder / "s.grd", testing::read_file(folder / "s.grd") + "more");
  EXPECT_FALSE(try_reuse(folder / "s.grd", lattice, wide).found);
}

TEST(FftGrid, that_cannot_be_read_is_deleted_and_of_a_missing_one_nothing_is_said) {
  const TemporaryFolder folder;
  const fft_geometry g = geometry_of();
  EXPECT_TRUE(try_reuse(folder / "s.grd", lattice, g).log.empty());
  EXPECT_FALSE(try_reuse("", lattice, g).found);
  testing::write_file(folder / "s.grd", std::string(512 + 4 * g.fftwords(), 'x'));
  EXPECT_FALSE(try_reuse(folder / "s.grd", lattice, g).found);
  EXPECT_TRUE(folder.names().empty());
  bool found = true;
  const int failures = testing::fail_each_call(
      testing::system_call::read, EIO,
      [&] {
        save_fft_grid(folder / "s.grd", lattice, g, some_spectrum(g));
        found = try_reuse(folder / "s.grd", lattice, g).found;
      },
      [&](int) {
        EXPECT_FALSE(found);
        EXPECT_TRUE(folder.names().empty());
      });
  EXPECT_GT(failures, 0);
  EXPECT_TRUE(found);
}

TEST(FftGrid, appears_only_when_it_is_complete) {
  const TemporaryFolder folder;
  const fft_geometry g = geometry_of();
  const auto save = [&] { save_fft_grid(folder / "s.grd", lattice, g, some_spectrum(g)); };
  const int failures = testing::fail_each_call(testing::system_call::write, ENOSPC, save,
                                               [&](int) { EXPECT_TRUE(folder.names().empty()); });
  EXPECT_GT(failures, 0);
}

}  // namespace
}  // namespace velmorankite
