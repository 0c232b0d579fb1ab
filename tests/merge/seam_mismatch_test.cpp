// SPDX-License-Identifier: MIT
#include "merge/seam_mismatch.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <vector>

#include "grid/dummy.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::read_file;
using testing::TemporaryFolder;
using names = std::vector<std::string>;

TEST(ReportStem, loses_blanks_and_what_follows_the_last_dot) {
  const std::pair<const char*, const char*> examples[] = {
      {"merge.rep", "merge"},
      {"merge.v2.rep  ", "merge.v2"},
      {"merge", "merge"},
      {"", ""},
      {"    ", ""},
      {".rep", ""},
      {"a.b/merge", "a"},
      {"  merge.", "  merge"},
      {"in two words.x", "in two words"},
  };
  for (const auto& [name, stem] : examples) {
    EXPECT_EQ(report_stem(name), stem) << name;
  }
  EXPECT_EQ(mismatch_report_path("   "), "_mismatch.dat");
}

TEST(Mismatch, is_the_mean_over_samples_that_both_grids_have_and_else_0) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const std::vector<float> grid_1 = {10, 20, dummy, 30, 1000};
  std::vector<float> grid_2 = {4, 18, 7, nan, dummy};
  const seam_mismatch m = measure_mismatch(grid_1, grid_2);
  EXPECT_EQ(m.offset, 4.0F);
  EXPECT_EQ(m.sample_count, 2);
  EXPECT_EQ(grid_2, (std::vector<float>{8, 22, dummy, dummy, dummy}));
  EXPECT_DOUBLE_EQ(m.rms_before * m.rms_before, (36.0 + 4.0) / 2);
  EXPECT_DOUBLE_EQ(m.rms_after, 2.0);
  // Without a common sample it is 0.
  std::vector<float> apart = {dummy, 3};
  const seam_mismatch none = measure_mismatch(std::vector<float>{1, dummy}, apart);
  EXPECT_EQ(none.offset, 0.0F);
  EXPECT_EQ(none.sample_count, 0);
  EXPECT_EQ(apart, (std::vector<float>{dummy, dummy}));
}

TEST(Mismatch, is_summed_in_order_in_single_precision) {
  // 2^24 + 1 + 1 stays 2^24 when the ones come one by one behind it.
  const std::vector<float> zero(4, 0.0F);
  const std::vector<float> grid_1 = {16777216.0F, 1.0F, 1.0F, 0.0F};
  std::vector<float> grid_2 = zero;
  EXPECT_EQ(measure_mismatch(grid_1, grid_2).offset, 4194304.0F);
  const std::vector<float> ones_first = {1.0F, 1.0F, 16777216.0F, 0.0F};
  grid_2 = zero;
  EXPECT_EQ(measure_mismatch(ones_first, grid_2).offset, 4194304.5F);
}

class Report : public ::testing::Test {
 protected:
  void write() const { write_mismatch_report(path, x, y, grid_1, grid_2); }

  TemporaryFolder folder;
  std::filesystem::path path = folder / "a_mismatch.dat";
  std::vector<double> x = {1.25, 2.0, 123456789.06, 4.0};
  std::vector<double> y = {-1.25, 2.0, -0.04, 4.0};
  std::vector<float> grid_1 = {0.1F, 1, -1000, 5};
  std::vector<float> grid_2 = {0.4F, dummy, 1234567.0F, 5};
};

TEST_F(Report, has_one_line_of_fixed_columns_for_each_common_sample) {
  write();
  EXPECT_EQ(read_file(path),
            "Num,X,Y,grid1,grid2,grid1-grid2\n"
            "     1       1.2      -1.2      0.1000      0.4000     -0.3000\n"
            "     2**********      -0.0  -1000.00001234567.0000************\n"
            "     3       4.0       4.0      5.0000      5.0000      0.0000\n");
}

TEST_F(Report, appears_whole_or_not_at_all) {
  testing::write_file(path, "old");
  for (const auto call :
       {testing::system_call::open, testing::system_call::write, testing::system_call::rename}) {
    const int failures = testing::fail_each_call(
        call, ENOSPC, [this] { write(); },
        [this](int) {
          EXPECT_EQ(folder.names(), names{"a_mismatch.dat"});
          EXPECT_EQ(read_file(path), "old");
        });
    EXPECT_GE(failures, 1);
    testing::write_file(path, "old");
  }
}

TEST_F(Report, of_many_samples_is_complete) {
  constexpr std::size_t count = 3000;
  x.assign(count, 1.0);
  y.assign(count, 2.0);
  grid_1.assign(count, 3.0F);
  grid_2.assign(count, 4.0F);
  write();
  const std::string text = read_file(path);
  EXPECT_EQ(text.size(), 32 + count * 63);
  EXPECT_EQ(text.substr(text.size() - 63),
            "  3000       1.0       2.0      3.0000      4.0000     -1.0000\n");
}

}  // namespace
}  // namespace velmorankite
