// SPDX-License-Identifier: MIT
#include "platform/scratch_file.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>

#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/large_array.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite::platform {
namespace {

using testing::read_file;
using testing::TemporaryFolder;
using testing::write_file;
using names = std::vector<std::string>;

TEST(StagedFile, the_old_result_stands_until_the_new_one_is_complete) {
  const TemporaryFolder folder;
  write_file(folder / "out.grd", "old");
  {
    StagedFile staged(folder / "out.grd");
    staged.file().write_value<std::int8_t>(1, 'n');
    EXPECT_EQ(read_file(folder / "out.grd"), "old");
  }
  EXPECT_EQ(folder.names(), names{"out.grd"});
  StagedFile staged(folder / "out.grd");
  staged.file().write_value<std::int8_t>(1, 'n');
  staged.commit();
  EXPECT_EQ(read_file(folder / "out.grd"), "n");
  EXPECT_EQ(folder.names(), names{"out.grd"});
}

TEST(StagedFile, a_failed_write_or_move_leaves_the_folder_as_it_was) {
  for (const testing::system_call call :
       {testing::system_call::open, testing::system_call::write, testing::system_call::rename}) {
    const TemporaryFolder folder;
    write_file(folder / "out.grd", "old");
    const int failures = testing::fail_each_call(
        call, ENOSPC,
        [&] {
          StagedFile staged(folder / "out.grd");
          staged.file().write_value<std::int32_t>(1, 7);
          staged.commit();
        },
        [&](int) {
          EXPECT_EQ(folder.names(), names{"out.grd"});
          EXPECT_EQ(read_file(folder / "out.grd"), "old");
        });
    EXPECT_GE(failures, 1);
  }
}

TEST(StagedFile, a_link_is_followed_and_a_device_or_folder_refused) {
  const TemporaryFolder folder;
  write_file(folder / "real.grd", "old");
  std::filesystem::create_symlink(folder / "real.grd", folder / "link.grd");
  StagedFile staged(folder / "link.grd");
  staged.file().write_value<std::int8_t>(1, 'n');
  staged.commit();
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.grd"));
  EXPECT_EQ(read_file(folder / "real.grd"), "n");
  std::filesystem::create_symlink("later.grd", folder / "ahead.grd");
  StagedFile(folder / "ahead.grd").commit();
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "ahead.grd"));
  EXPECT_TRUE(std::filesystem::exists(folder / "later.grd"));
  EXPECT_THROW(StagedFile("/dev/null"), IoError);
  EXPECT_THROW(StagedFile(folder.path()), IoError);
}

TEST(StagedFile, scratch_names_that_are_taken_are_never_overwritten) {
  const TemporaryFolder folder;
  write_file(folder / "~out.grd0000.tmp", "somebody's");
  {
    StagedFile staged(folder / "out.grd");
    staged.commit();
  }
  EXPECT_EQ(read_file(folder / "~out.grd0000.tmp"), "somebody's");
  for (int number = 1; number < 257; ++number) {
    char name[32];
    std::snprintf(name, sizeof name, "~out.grd%04d.tmp", number);
    write_file(folder / name, "");
  }
  try {
    const StagedFile staged(folder / "out.grd");
    ADD_FAILURE();
  } catch (const IoError& error) {
    const std::string words = error.what();
    EXPECT_NE(words.find("out.grd: no free scratch name: all of "), std::string::npos) << words;
    EXPECT_TRUE(words.ends_with("~out.grd0256.tmp are taken")) << words;
  }
}

TEST(ScratchFile, an_interrupted_process_leaves_none) {
  const TemporaryFolder folder;
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGHUP, SIG_IGN);  // as nohup does
    remove_scratch_on_signals();
    write_file(folder / "~a", "x");
    write_file(folder / "~b", "x");
    write_file(folder / "kept", "x");
    const ScratchFile a(folder / "~a");
    const ScratchFile b(folder / "~b");
    ScratchFile kept(folder / "kept");
    kept.keep();
    std::raise(SIGHUP);
    write_file(folder / "behind", "x");
    std::raise(SIGTERM);
    ::_exit(1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
  EXPECT_EQ(folder.names(), (names{"behind", "kept"}));
}

TEST(CopyFile, the_target_is_replaced_whole_or_not_at_all) {
  const TemporaryFolder folder;
  write_file(folder / "from", std::string(3'000'000, 'f'));
  write_file(folder / "to", "old");
  testing::fail_each_call(
      testing::system_call::write, ENOSPC,
      [&] {
        if (!copy_whole_file(folder / "from", folder / "to")) {
          throw IoError("to", "not copied");
        }
      },
      [&](int) { EXPECT_EQ(read_file(folder / "to"), "old"); });
  EXPECT_EQ(read_file(folder / "to"), read_file(folder / "from"));
  EXPECT_FALSE(copy_whole_file(folder / "missing", folder / "to"));
}

TEST(LargeArray, small_and_large_arrays_hold_what_is_written_and_impossible_sizes_throw) {
  for (const std::size_t count : {std::size_t{0}, std::size_t{7}, std::size_t{3} << 20}) {
    LargeArray<float> array(count);
    for (std::size_t i = 0; i < count; ++i) {
      array[i] = static_cast<float>(i);
    }
    LargeArray<float> moved = std::move(array);
    EXPECT_EQ(moved.size(), count);
    EXPECT_TRUE(count == 0 || moved[count - 1] == static_cast<float>(count - 1));
  }
  EXPECT_THROW(LargeArray<double>(std::size_t{1} << 61), std::bad_alloc);
}

}  // namespace
}  // namespace velmorankite::platform
