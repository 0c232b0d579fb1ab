// Merges that meet damaged files and failing file operations: each ends in one clear error, with
// its inputs as they were and nothing half done.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/merge_folder.h"

namespace velmorankite {
namespace {

using testing::MergeFolder;
using testing::read_file;
using testing::system_call;
using testing::write_file;

std::string error_of(const MergeFolder& folder,
                     const std::function<void(std::string_view)>& on_line = {}) {
  try {
    (void)folder.run(on_line);
  } catch (const platform::IoError& error) {
    return error.what();
  }
  return "no error";
}

template <typename T>
void put(const std::filesystem::path& path, std::size_t offset, T value) {
  std::string bytes = read_file(path);
  std::memcpy(bytes.data() + offset, &value, sizeof value);
  write_file(path, bytes);
}

TEST(Faults, of_any_file_operation_leave_inputs_and_older_results_alone) {
  for (const system_call call :
       {system_call::open, system_call::read, system_call::write, system_call::rename}) {
    MergeFolder folder;
    write_file(folder / "merged.grd", "an older result");
    folder.write_definitions();
    const auto before = folder.contents();
    const int failures = testing::fail_each_call(
        call, call == system_call::read ? EIO : ENOSPC, [&] { (void)folder.run(); },
        [&](int nth) {
          auto after = folder.contents();
          after.erase("merged_mismatch.dat");  // complete, or not there
          EXPECT_EQ(after, before) << nth;
        });
    EXPECT_GE(failures, 2);
    EXPECT_EQ(read_file(folder / "merged.grd").size(), 512U + 41 * 31 * 4);
  }
}

TEST(Faults, of_truncated_files_are_named) {
  for (const char* name : {"one.grd", "two.grd"}) {
    for (const std::size_t size : {std::size_t{512}, std::size_t{5595}}) {
      MergeFolder folder;
      write_file(folder / name, read_file(folder / name).substr(0, size));
      folder.write_definitions();
      const auto before = folder.contents();
      const std::string error = error_of(folder);
      EXPECT_EQ(error.find(std::string(name) + ": the file ends too early"), 0U) << error;
      EXPECT_EQ(folder.contents(), before);
    }
  }
}

TEST(Faults, of_a_grid_that_shrinks_after_it_was_described_are_named) {
  MergeFolder folder;
  const std::string error = error_of(folder, [&](std::string_view line) {
    if (line == "Grid limits 2:") {
      std::filesystem::resize_file(folder / "one.grd", 600);
    }
  });
  EXPECT_EQ(
      error,
      "one.grd: the file ends too early: 41 columns by 31 rows need 5596 bytes, 600 are there");
  EXPECT_FALSE(std::filesystem::exists(folder / "merged.grd"));
}

TEST(Faults, of_folders_that_cannot_hold_the_results_are_named) {
  for (const std::string& name :
       std::vector<std::string>{"no such folder/merged", "one.grd/merged"}) {
    MergeFolder folder;
    folder.define(5, name + ".grd");
    std::string error = error_of(folder);
    EXPECT_EQ(error.find(name + ".grd: cannot be written: "), 0U) << error;

    folder.define(5, "merged.grd");
    folder.define(6, name + ".txt");
    error = error_of(folder);
    EXPECT_EQ(error.find(name + "_mismatch.dat: cannot be written: "), 0U) << error;
    EXPECT_FALSE(std::filesystem::exists(folder / "merged.grd"));
  }
}

}  // namespace
}  // namespace velmorankite
