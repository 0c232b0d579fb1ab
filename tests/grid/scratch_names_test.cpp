// SPDX-License-Identifier: MIT
#include "grid/scratch_names.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::CurrentFolder;
using testing::TemporaryFolder;

// All 257 names of a stem, but for one.
void take_names(const TemporaryFolder& folder, const std::string& stem, int but_for) {
  for (int number = 0; number < 257; ++number) {
    if (number != but_for) {
      testing::write_file(platform::scratch_name(folder / stem, number), "somebody's");
    }
  }
}

TEST(ScratchNames, a_stem_is_completed_to_the_first_free_name) {
  const TemporaryFolder folder;
  const CurrentFolder current(folder.path());
  struct example {
    std::string stem;
    std::string name;
  };
  const example examples[] = {
      {"~grdfill1", "~grdfill10000.tmp"},
      {"~grdfill1    ", "~grdfill10000.tmp"},
      {"", "~scratch0000.tmp"},
      {"     ", "~scratch0000.tmp"},
  };
  for (const example& e : examples) {
    std::string name = e.stem;
    EXPECT_EQ(GRDTMPNAME(name), success);
    EXPECT_EQ(name, e.name);
  }
  testing::write_file("~grdfill10000.tmp", "left by an aborted run");
  std::string name = "~grdfill1";
  EXPECT_EQ(GRDTMPNAME(name), success);
  EXPECT_EQ(name, "~grdfill10001.tmp");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"~grdfill10000.tmp"});
}

TEST(ScratchNames, the_last_name_is_0256_and_then_they_are_taken) {
  const TemporaryFolder folder;
  const std::string stem = (folder / "~a").string();
  take_names(folder, "~a", 256);
  std::string name = stem;
  EXPECT_EQ(GRDTMPNAME(name), success);
  EXPECT_EQ(name, stem + "0256.tmp");
  EXPECT_EQ(new_scratch(stem).path(), stem + "0256.tmp");

  testing::write_file(name, "");
  name = stem;
  EXPECT_EQ(GRDTMPNAME(name), scratch_names_taken);
  EXPECT_EQ(name, stem + "0256.tmp");
  try {
    const platform::ScratchFile scratch = new_scratch(stem);
    ADD_FAILURE() << scratch.path();
  } catch (const platform::IoError& error) {
    EXPECT_EQ(error.path(), stem);
  }
  EXPECT_EQ(testing::read_file(folder / "~a0000.tmp"), "somebody's");
}

TEST(NewScratch, the_file_stands_empty_as_long_as_its_guard) {
  const TemporaryFolder folder;
  {
    const platform::ScratchFile first = new_scratch((folder / "~a").string());
    const platform::ScratchFile second = new_scratch((folder / "~a").string());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"~a0000.tmp", "~a0001.tmp"}));
    EXPECT_EQ(testing::read_file(second.path()), "");
  }
  EXPECT_TRUE(folder.names().empty());
}

TEST(NewScratch, runs_at_the_same_time_never_share_a_file) {
  const TemporaryFolder folder;
  constexpr std::size_t each = 60;
  std::vector<std::vector<platform::ScratchFile>> taken(4);
  std::vector<std::thread> runs;
  runs.reserve(taken.size());
  for (auto& mine : taken) {
    runs.emplace_back([&mine, &folder] {
      for (std::size_t i = 0; i < each; ++i) {
        mine.push_back(new_scratch((folder / "~a").string()));
      }
    });
  }
  for (std::thread& run : runs) {
    run.join();
  }
  std::set<std::string> names;
  for (const auto& mine : taken) {
    for (const platform::ScratchFile& scratch : mine) {
      names.insert(scratch.path().string());
    }
  }
  EXPECT_EQ(names.size(), 4 * each);
}

TEST(NewScratch, a_folder_that_cannot_be_written_is_told_with_the_stem) {
  const TemporaryFolder folder;
  const std::string stem = (folder / "missing/~a").string();
  try {
    const platform::ScratchFile scratch = new_scratch(stem);
    ADD_FAILURE() << scratch.path();
  } catch (const platform::IoError& error) {
    EXPECT_EQ(error.path(), stem);
  }
  const int failures = testing::fail_each_call(
      testing::system_call::open, EACCES,
      [&] { const platform::ScratchFile scratch = new_scratch((folder / "~a").string()); },
      [&](int) { EXPECT_TRUE(folder.names().empty()); });
  EXPECT_EQ(failures, 1);
}

}  // namespace
}  // namespace velmorankite
