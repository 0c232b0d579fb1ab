// SPDX-License-Identifier: MIT
#include "transform/power_spectrum.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;

TEST(PowerFile, is_named_after_the_run_and_the_filter) {
  filter_parameters p;
  p.ShortName = "VG";
  EXPECT_EQ(power_file_name("mag_power", p), "mag_power_VG.dat");
  EXPECT_EQ(power_file_name("", p), "power_fft.dat");
  EXPECT_EQ(power_file_name("   ", p), "power_fft.dat");
}

TEST(PowerFile, holds_smoothed_means_without_the_mean_of_the_grid) {
  PowerSpectrum power;
  power.input.fill(8.0);
  power.count.fill(4);
  power.input[0] = 1.0E9;
  power.output[100] = 16.0;
  power.count[200] = 0;
  const TemporaryFolder folder;
  write_power_file(folder / "p.dat", power, 25.0);
  const std::string text = testing::read_file(folder / "p.dat");
  std::istringstream lines(text);
  std::string line;
  std::vector<std::string> all;
  while (std::getline(lines, line))
    all.push_back(line);
  ASSERT_EQ(all.size(), 256U);
  EXPECT_EQ(all[0], "Radius      Power       Transformed");
  EXPECT_EQ(all[1], "           0           0           0");
  EXPECT_EQ(all[2], "          25         1.5           0");
  EXPECT_EQ(all[3], "          50           2           0");
  EXPECT_EQ(all[100], "        2475           2           1");
  EXPECT_EQ(all[101], "        2500           2           2");
  EXPECT_EQ(all[200], "        4975         1.5           0");
  EXPECT_EQ(all[201], "        5000           1           0");
  EXPECT_EQ(all[255], "        6350         1.5           0");
}

TEST(PowerFile, that_cannot_be_written_is_an_error) {
  const TemporaryFolder folder;
  const int failures = testing::fail_each_call(
      testing::system_call::write, ENOSPC, [&] { write_power_file(folder / "p.dat", {}, 1.0); },
      [](int) {});
  EXPECT_GT(failures, 0);
  EXPECT_THROW(write_power_file(folder / "no" / "p.dat", {}, 1.0), platform::IoError);
}

}  // namespace
}  // namespace velmorankite
