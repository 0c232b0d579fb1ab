// SPDX-License-Identifier: MIT
#include "grid/file_services.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/process.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::CurrentFolder;
using testing::read_file;
using testing::TemporaryFolder;
using testing::write_file;

TEST(FileServices, names_lose_their_trailing_blanks_only) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  write_file(" a", "kept");
  write_file("b", "old");
  EXPECT_TRUE(GRDFILECOPY(" a   ", "b  "));
  EXPECT_EQ(read_file("b"), "kept");
  EXPECT_FALSE(GRDFILECOPY("a", "b"));
  EXPECT_EQ(read_file("b"), "kept");
  GRDFILEDEL("b      ");
  GRDFILEDEL("never there");
  EXPECT_EQ(folder.names(), std::vector<std::string>{" a"});
}

TEST(GRDOSTEMP, every_call_makes_an_empty_file_of_a_new_name_or_fails) {
  const TemporaryFolder folder;
  const std::string place = folder.path().string();
  std::string first;
  std::string second;
  ASSERT_EQ(GRDOSTEMP(place + "   ", "grd  ", first), success);
  ASSERT_EQ(GRDOSTEMP(place, "grd", second), success);
  EXPECT_NE(first, second);
  EXPECT_EQ(std::filesystem::path(second).filename().string().substr(0, 3), "grd");
  EXPECT_EQ(folder.names().size(), 2U);
  EXPECT_EQ(std::filesystem::file_size(second), 0U);
  EXPECT_EQ(GRDOSTEMP(place + "/missing", "grd", second), temporary_name_failed);
  EXPECT_EQ(second, "");
  EXPECT_EQ(GRDOSTEMP(place, "../grd", second), temporary_name_failed);
}

TEST(FSYSTEM, runs_255_characters_up_to_the_first_nul) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  // Cut at 255 characters, the command writes to a name of 247.
  EXPECT_EQ(FSYSTEM("echo a >" + std::string(292, 'x')), success);
  EXPECT_EQ(folder.names(), std::vector<std::string>{std::string(247, 'x')});
  EXPECT_EQ(FSYSTEM(std::string("echo a >b\0; exit 1", 18)), success);
  EXPECT_EQ(read_file("b"), "a\n");
  const std::string blanks(249, ' ');
  EXPECT_EQ(FSYSTEM("exit 3" + blanks), command_failed);
  EXPECT_EQ(FSYSTEM("exit 0" + blanks + "; exit 1"), success);
}

TEST(FINDFILEINPATH, gives_the_full_path_from_the_first_folder_that_has_the_file) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  for (const char* const name : {"one", "two", "three", "two/tool", "three/tool.x"}) {
    std::filesystem::create_directory(folder / name);
  }
  write_file("three/tool", "");
  write_file("here", "");
  const std::string before = platform::environment("PATH").value_or("");
  const std::string folders =
      (folder / "one").string() + ":" + (folder / "two").string() + "::three";
  ::setenv("PATH", folders.c_str(), 1);
  std::string result;
  const std::string expected = (folder / "three/tool").string();
  // A folder of that name is no file, and a relative folder gives a full path too.
  EXPECT_EQ(FINDFILEINPATH("tool   ", result), static_cast<std::int32_t>(expected.size()));
  EXPECT_EQ(result, expected);
  EXPECT_GT(FINDFILEINPATH("here", result), 0);
  EXPECT_TRUE(std::filesystem::equivalent(result, folder / "here"));
  EXPECT_EQ(FINDFILEINPATH("nowhere", result), 0);
  EXPECT_EQ(result, "");
  EXPECT_EQ(FINDFILEINPATH("    ", result), 0);
  ::setenv("PATH", before.c_str(), 1);
}

}  // namespace
}  // namespace velmorankite
