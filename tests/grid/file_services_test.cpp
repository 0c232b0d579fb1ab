// SPDX-License-Identifier: MIT
#include "grid/file_services.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/process.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::CurrentFolder;
using testing::read_file;
using testing::TemporaryFolder;
using testing::write_file;

// Sets an environment variable for the life of the object.
class Environment {
 public:
  Environment(std::string name, const std::string& value)
      : name_(std::move(name)), old_(platform::environment(name_)) {
    ::setenv(name_.c_str(), value.c_str(), 1);
  }
  ~Environment() {
    if (old_) {
      ::setenv(name_.c_str(), old_->c_str(), 1);
    } else {
      ::unsetenv(name_.c_str());
    }
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  std::string name_;
  std::optional<std::string> old_;
};

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

TEST(GRDOSTEMP, every_call_makes_an_empty_file_of_a_new_name) {
  const TemporaryFolder folder;
  const std::string place = folder.path().string();
  std::string first;
  std::string second;
  ASSERT_EQ(GRDOSTEMP(place + "   ", "grd  ", first), success);
  ASSERT_EQ(GRDOSTEMP(place, "grd", second), success);
  EXPECT_NE(first, second);
  for (const std::filesystem::path path : {first, second}) {
    EXPECT_EQ(path.parent_path(), folder.path());
    EXPECT_EQ(path.filename().string().substr(0, 3), "grd");
    EXPECT_EQ(std::filesystem::file_size(path), 0U);
  }
}

TEST(GRDOSTEMP, fails_where_no_file_can_be_made) {
  const TemporaryFolder folder;
  std::string result = "left from before";
  EXPECT_EQ(GRDOSTEMP((folder / "missing").string(), "grd", result), temporary_name_failed);
  EXPECT_EQ(result, "");
  EXPECT_EQ(GRDOSTEMP(folder.path().string(), "../grd", result), temporary_name_failed);
  testing::FailingSystem system(testing::system_call::open, 1, ENOSPC);
  const platform::SystemOverride override(system);
  EXPECT_EQ(GRDOSTEMP(folder.path().string(), "grd", result), temporary_name_failed);
}

TEST(FSYSTEM, runs_255_characters_up_to_the_first_nul) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  // Cut at 255 characters, the command writes to a name of 247.
  EXPECT_EQ(FSYSTEM("echo a >" + std::string(292, 'x')), success);
  EXPECT_EQ(folder.names(), std::vector<std::string>{std::string(247, 'x')});
  EXPECT_EQ(FSYSTEM(std::string("echo a >b\0; exit 1", 18)), success);
  EXPECT_EQ(read_file("b"), "a\n");
  std::string padded = "exit 3";
  padded.resize(255, ' ');
  EXPECT_EQ(FSYSTEM(padded), command_failed);
  padded = "exit 0";
  padded.resize(255, ' ');
  EXPECT_EQ(FSYSTEM(padded + "; exit 1"), success);
}

TEST(FINDFILEINPATH, gives_the_full_path_from_the_first_folder_that_has_the_file) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  for (const char* const name : {"one", "two", "three", "two/tool", "three/tool.x"}) {
    std::filesystem::create_directory(folder / name);
  }
  write_file("three/tool", "");
  write_file("here", "");
  const Environment path("PATH",
                         (folder / "one").string() + ":" + (folder / "two").string() + "::three");
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
}

}  // namespace
}  // namespace velmorankite
