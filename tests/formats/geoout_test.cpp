// SPDX-License-Identifier: MIT
#include "formats/geoout.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "grid/dummy.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::CurrentFolder;
using testing::describe;
using testing::read_grid;
using testing::TemporaryFolder;

constexpr Lattice wide{10.0, 20.0, 2.0, 3.0, 4, 3};

class Geoout : public ::testing::Test {
 protected:
  Geoout() {
    for (int i = 0; i < 12; ++i) {
      floats.push_back(static_cast<float>(i + 1));
      integers.push_back(static_cast<std::int16_t>(i + 1));
    }
  }

  [[nodiscard]] std::string path() const { return (folder / "out.grd").string(); }

  TemporaryFolder folder;
  CurrentFolder inside{folder.path()};
  std::vector<float> floats;  // 1 to 12
  std::vector<std::int16_t> integers;
  float z_min = 0.0F;
  float z_max = 0.0F;
};

TEST_F(Geoout, rows_come_from_an_array_either_way_round_by_columns_or_from_a_file) {
  BinaryFile unit(folder / "raw", open_mode::create);
  unit.write_values(1, std::span<const float>(floats));
  const std::vector<float> turned{9, 10, 11, 12, 5, 6, 7, 8, 1, 2, 3, 4};
  const std::vector<float> columns{1, 4, 7, 10, 2, 5, 8, 11, 3, 6, 9, 12};
  struct example {
    float_source source;
    std::vector<float> expected;
  };
  const example examples[] = {{{0, floats, nullptr}, floats},
                              {{-1, floats, nullptr}, turned},
                              {{7, floats, nullptr}, columns},
                              {{7, {}, &unit}, floats}};
  for (const example& e : examples) {
    for (const std::int32_t sense : {1, -2, 2}) {
      ASSERT_EQ(GEOOUT(path(), e.source, wide, sense, -99.0F, 0, z_min, z_max), success);
      EXPECT_EQ(read_grid(path()), e.expected);
      EXPECT_EQ(describe(path()).ints.storage_sense, sense == 1 ? 1 : -2);
      EXPECT_EQ(describe(path()).reals.z_max, 12.0);
    }
  }
  EXPECT_EQ(z_min, 1.0F);
}

TEST_F(Geoout, a_constant_takes_no_transform_and_is_its_own_range) {
  z_min = 5.0F;
  ASSERT_EQ(GEOOUT(path(), {source_constant, {}, nullptr}, wide, 1, -99.0F, 2, z_min, z_max),
            success);
  EXPECT_EQ(read_grid(path()), std::vector<float>(12, 5.0F));
  EXPECT_EQ(z_max, 5.0F);
  EXPECT_EQ(describe(path()).reals.z_min, 5.0);
}

TEST_F(Geoout, input_dummies_within_two_spacings_are_blanked_and_logarithms_undone) {
  const float mark = -99.0F;
  const float near = std::nextafter(mark, 0.0F);
  const float two_off = std::nextafter(near, 0.0F);
  const std::vector<float> cells{mark, near, two_off, 0.0F, 1.0F, 2.0F, -2.0F, 0.5F};
  const Lattice lattice{0.0, 0.0, 1.0, 1.0, 8, 1};
  ASSERT_EQ(GEOOUT(path(), {0, cells, nullptr}, lattice, 1, mark, 3, z_min, z_max), success);
  const std::vector<float> out = read_grid(path());
  EXPECT_EQ(out[0], dummy);
  EXPECT_EQ(out[1], dummy);
  EXPECT_LT(out[2], -1.0E30F);  // -e to the power 98
  EXPECT_EQ(out[3], 0.0F);
  EXPECT_EQ(out[4], 1.0F);
  EXPECT_NEAR(out[5], std::exp(1.0F), 1E-6F);
  EXPECT_NEAR(out[6], -std::exp(1.0F), 1E-6F);
  EXPECT_EQ(out[7], 0.5F);
  EXPECT_EQ(z_min, out[6]);
  // The largest float is a common mark, with no float above it.
  constexpr float largest = std::numeric_limits<float>::max();
  const std::vector<float> marked{largest, 2.0F, -largest};
  for (const float sign : {1.0F, -1.0F}) {
    ASSERT_EQ(GEOOUT(path(), {0, marked, nullptr}, {0.0, 0.0, 1.0, 1.0, 3, 1}, 1, sign * largest, 0,
                     z_min, z_max),
              success);
    EXPECT_EQ(read_grid(path())[sign > 0 ? 0 : 2], dummy);
    EXPECT_EQ(z_max, sign > 0 ? 2.0F : largest);
  }
  const std::vector<float> blank(8, mark);
  ASSERT_EQ(GEOOUT(path(), {0, blank, nullptr}, lattice, 1, mark, 3, z_min, z_max), success);
  EXPECT_EQ(z_min, 1.0E32F);
  EXPECT_EQ(z_max, -1.0E32F);
}

TEST_F(Geoout, integers_come_in_any_of_four_line_orders_from_arrays_or_a_file) {
  // A lattice of 4 columns by 3 rows; the stored numbers 1 to 12 by lines of 4, or of 3.
  const std::vector<float> rows_up(floats);
  const std::vector<float> rows_down{9, 10, 11, 12, 5, 6, 7, 8, 1, 2, 3, 4};
  const std::vector<float> columns_up{1, 4, 7, 10, 2, 5, 8, 11, 3, 6, 9, 12};
  const std::vector<float> columns_down{3, 6, 9, 12, 2, 5, 8, 11, 1, 4, 7, 10};
  BinaryFile unit(folder / "raw", open_mode::create);
  unit.write_values(8, std::span<const std::int16_t>(integers));
  const auto cells_of = [this](bool turned) {
    std::vector<float> cells;
    const BinaryFile file(path(), open_mode::read);
    EXPECT_EQ(file.size(), 512 + 24);
    for (std::int64_t i = 0; i < 12; ++i) {
      const std::int64_t place = turned ? (2 - i / 4) * 4 + i % 4 : i;
      cells.push_back(file.read_value<std::int16_t>(513 + 2 * place));
    }
    return cells;
  };
  struct example {
    std::int32_t sense;
    const std::vector<float>& expected;
  };
  const example examples[] = {{1, rows_up}, {-2, rows_down}, {-1, columns_up}, {2, columns_down}};
  for (const example& e : examples) {
    const int16_source array{e.sense, integers, integers, nullptr, 0};
    ASSERT_EQ(GEOOUTI2(path(), array, wide, -1, 0, z_min, z_max), success);
    EXPECT_EQ(cells_of(true), e.expected) << e.sense;
    EXPECT_EQ(describe(path()).ints.storage_sense, -2);
    const int16_source file{e.sense, {}, {}, &unit, 7};
    ASSERT_EQ(GEOOUTI2(path(), file, wide, -1, 0, z_min, z_max), success);
    EXPECT_EQ(cells_of(false), e.expected) << e.sense;
    EXPECT_EQ(describe(path()).ints.storage_sense, 1);
    EXPECT_EQ(z_max, 12.0F);
  }
}

TEST_F(Geoout, integer_blanks_transforms_and_statistics) {
  const std::vector<std::int16_t> cells{-5, 0, 3, 20};
  const Lattice lattice{0.0, 0.0, 1.0, 1.0, 4, 1};
  ASSERT_EQ(GEOOUTI2(" ", {1, cells, {}, nullptr, 0}, lattice, -5, 2, z_min, z_max), success);
  const BinaryFile file(folder / "outfile.grd", open_mode::read);
  const std::int16_t expected[] = {-32767, 1, 20, 32767};  // e^3 = 20.08, e^20 beyond 16 bits
  for (std::int64_t i = 0; i < 4; ++i) {
    EXPECT_EQ(file.read_value<std::int16_t>(513 + 2 * i), expected[i]);
  }
  const float statistics[] = {1.0F, 32767.0F, -32767.0F, -32767.0F};
  for (std::int64_t i = 0; i < 4; ++i) {
    EXPECT_EQ(file.read_value<float>(161 + 4 * i), statistics[i]);
  }
}

TEST_F(Geoout, short_sources_and_impossible_names_fail_and_leave_nothing) {
  const std::span<const float> few(floats.data(), 11);
  EXPECT_EQ(GEOOUT("ab", {0, floats, nullptr}, wide, 1, 0.0F, 0, z_min, z_max), geoout_failed);
  EXPECT_EQ(GEOOUT(path(), {0, few, nullptr}, wide, 1, 0.0F, 0, z_min, z_max), geoout_failed);
  EXPECT_EQ(GEOOUT(path(), {5, few, nullptr}, wide, 1, 0.0F, 0, z_min, z_max), geoout_failed);
  EXPECT_EQ(GEOOUT("no/out.grd", {0, floats, nullptr}, wide, 1, 0.0F, 0, z_min, z_max),
            geoout_failed);
  const BinaryFile unit(folder / "raw", open_mode::create);
  EXPECT_THROW((void)GEOOUTI2(path(), {-1, {}, {}, &unit, 0}, wide, 0, 0, z_min, z_max),
               platform::IoError);
  testing::fail_each_call(
      testing::system_call::write, ENOSPC,
      [&] {
        (void)GEOOUT(path(), {0, floats, nullptr}, wide, 1, 0.0F, 0, z_min, z_max);
      },
      [&](int) { EXPECT_EQ(folder.names(), std::vector<std::string>{"raw"}); });
}

}  // namespace
}  // namespace velmorankite
