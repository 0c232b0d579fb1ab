// SPDX-License-Identifier: MIT
#include "capi/file_units.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/io_error.h"
#include "support/temporary_folder.h"

namespace velmorankite::capi {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::TemporaryFolder;

class FileUnitsTest : public ::testing::Test {
 protected:
  FileUnitsTest() {
    testing::write_file(folder_ / "a", "first");
    testing::write_file(folder_ / "b", "second");
  }

  BinaryFile file(const char* name) const { return {folder_ / name, open_mode::read}; }

  TemporaryFolder folder_;
  FileUnits units_;
};

TEST_F(FileUnitsTest, the_first_free_number_from_101_on_is_given_out) {
  EXPECT_EQ(units_.connect(file("a")), 101);
  EXPECT_EQ(units_.connect(file("b")), 102);
  EXPECT_EQ(units_.connect(file("a")), 103);
  units_.disconnect(102);
  EXPECT_EQ(units_.connect(file("a")), 102);
  EXPECT_EQ(units_.at(102).file.path(), folder_ / "a");
  units_.connect(unit_of_created, file("b"));
  EXPECT_EQ(units_.connect(file("b")), 104);
}

TEST_F(FileUnitsTest, unit_1000_is_given_out_again_when_all_are_open) {
  for (int unit = 101; unit <= 999; ++unit) {
    ASSERT_EQ(units_.connect(BinaryFile()), unit);
  }
  EXPECT_EQ(units_.connect(file("a")), 1000);
  EXPECT_EQ(units_.connect(file("b")), 1000);
  EXPECT_EQ(units_.at(1000).file.path(), folder_ / "b");
  units_.disconnect(500);
  EXPECT_EQ(units_.connect(file("a")), 500);
}

TEST_F(FileUnitsTest, a_unit_without_a_file_is_told_by_its_number) {
  units_.disconnect(107);
  try {
    (void)units_.at(107);
    ADD_FAILURE();
  } catch (const platform::IoError& error) {
    EXPECT_NE(std::string(error.what()).find("unit 107"), std::string::npos);
  }
}

}  // namespace
}  // namespace velmorankite::capi
