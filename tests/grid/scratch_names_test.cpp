// SPDX-License-Identifier: MIT
#include "grid/scratch_names.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/io_error.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

class ScratchNames : public ::testing::Test {
 protected:
  static std::string completed(std::string name) {
    EXPECT_EQ(GRDTMPNAME(name), success);
    return name;
  }
  // The path that a failure tells of.
  static std::filesystem::path told_by_failure(const std::string& stem) {
    try {
      const platform::ScratchFile scratch = new_scratch(stem);
    } catch (const platform::IoError& error) {
      return error.path();
    }
    return "no failure";
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder current{folder.path()};
};

TEST_F(ScratchNames, a_stem_is_completed_to_the_first_free_name) {
  EXPECT_EQ(completed("~grdfill1    "), "~grdfill10000.tmp");
  EXPECT_EQ(completed("     "), "~scratch0000.tmp");
  testing::write_file("~grdfill10000.tmp", "left by an aborted run");
  EXPECT_EQ(completed("~grdfill1"), "~grdfill10001.tmp");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"~grdfill10000.tmp"});
}

TEST_F(ScratchNames, the_last_name_is_0256_and_then_they_are_taken) {
  for (int number = 0; number < 256; ++number) {
    testing::write_file(platform::scratch_name("~a", number), "somebody's");
  }
  std::string name = completed("~a");
  EXPECT_EQ(name, "~a0256.tmp");
  EXPECT_EQ(new_scratch("~a").path(), "~a0256.tmp");
  testing::write_file(name, "");
  EXPECT_EQ(GRDTMPNAME(name = "~a"), scratch_names_taken);
  EXPECT_EQ(name, "~a0256.tmp");
  EXPECT_EQ(told_by_failure("~a"), "~a");
  EXPECT_EQ(testing::read_file("~a0000.tmp"), "somebody's");
}

TEST_F(ScratchNames, a_scratch_file_stands_empty_as_long_as_its_guard) {
  {
    const platform::ScratchFile first = new_scratch("~a");
    const platform::ScratchFile second = new_scratch("~a");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"~a0000.tmp", "~a0001.tmp"}));
    EXPECT_EQ(testing::read_file(second.path()), "");
  }
  EXPECT_TRUE(folder.names().empty());
  EXPECT_EQ(told_by_failure("missing/~a"), "missing/~a");
}

}  // namespace
}  // namespace velmorankite
