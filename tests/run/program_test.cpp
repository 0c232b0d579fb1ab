// The program itself: exit status, what goes to which stream, and the limits of the system.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/process.h"
#include "support/merge_folder.h"

namespace velmorankite {
namespace {

using testing::MergeFolder;
using testing::read_file;

class Program : public ::testing::Test {
 protected:
  // Runs the program in the folder behind `limits`, a shell command; gives its exit status.
  int run(const std::string& arguments = "mergedefs.trs", const std::string& limits = "true") {
    std::string command = "{ ( ";
    command += limits;
    command += "; '" VELMORANKITE_PROGRAM "' ";
    command += arguments;
    command += " ) 2>err.log; echo $? >status.log; } | cat >out.log";
    EXPECT_TRUE(platform::run_command(command));
    return std::stoi(read_file(folder / "status.log"));
  }
  [[nodiscard]] std::string console() const { return read_file(folder / "out.log"); }
  [[nodiscard]] std::string errors() const { return read_file(folder / "err.log"); }
  [[nodiscard]] bool has_scratch() const {
    const auto names = folder.names();
    return std::any_of(names.begin(), names.end(),
                       [](const std::string& name) { return name.front() == '~'; });
  }

  MergeFolder folder;
};

TEST_F(Program, writes_what_a_run_says_to_the_two_streams_and_ends_with_0) {
  const testing::run_text expected = folder.run();
  std::filesystem::remove(folder / "merged.grd");
  EXPECT_EQ(run("'mergedefs.trs  ' and more"), 0);
  EXPECT_EQ(console(), expected.console);
  EXPECT_EQ(errors(), "velmorankite: " + expected.remarks);
  EXPECT_EQ(read_file(folder / "merged.grd").size(), 512U + 41 * 31 * 4);
}

TEST_F(Program, ends_with_0_at_an_ordinary_stop) {
  for (const char* arguments : {"", "--help"}) {
    EXPECT_EQ(run(arguments), 0);
    EXPECT_NE(console().find("Usage: Velmorankite mergedefs.trs\n"), std::string::npos);
    EXPECT_NE(errors().find("docs/definitions.md"), std::string::npos);
  }
  folder.define(2, "none.grd");
  folder.write_definitions();
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(errors(), "velmorankite: none.grd: the file does not exist\n");
}

TEST_F(Program, ends_with_2_and_one_line_where_the_definitions_cannot_be_used) {
  EXPECT_EQ(run("none.trs"), 2);
  EXPECT_EQ(errors(), "velmorankite: none.trs: cannot be opened: No such file or directory\n");
  folder.define(8, "3");
  folder.write_definitions();
  EXPECT_EQ(run(), 2);
  EXPECT_EQ(errors(),
            "velmorankite: mergedefs.trs: line 8: adjusted_grid is 3, 0 or 1 is expected\n");
  const std::string said = console();
  EXPECT_EQ(said.substr(said.rfind("\n\n") + 2),
            "Starting Velmorankite with parameters from: mergedefs.trs\n");
}

TEST_F(Program, meets_a_limit_on_file_sizes_with_a_line_and_leaves_nothing_half_done) {
  struct example {
    const char* limit;  // in blocks of 512 bytes
    const char* file;
  };
  // The report has 2615 bytes, the merged grid 5596.
  for (const example& e :
       {example{"ulimit -f 4", "merged_mismatch.dat"}, example{"ulimit -f 8", "merged.grd"}}) {
    std::filesystem::remove(folder / "merged_mismatch.dat");
    folder.write_definitions();
    EXPECT_EQ(run("mergedefs.trs", e.limit), 2);
    EXPECT_NE(errors().find(e.file), std::string::npos) << errors();
    EXPECT_NE(errors().find(": cannot be written: File too large\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / e.file));
    EXPECT_FALSE(has_scratch());
  }
}

TEST_F(Program, whose_reader_has_gone_ends_with_a_line) {
  folder.write_definitions();
  EXPECT_TRUE(platform::run_command("'" VELMORANKITE_PROGRAM
                                    "' mergedefs.trs >/dev/full 2>err.log; "
                                    "test $? -eq 2"));
  const std::string said = errors();
  EXPECT_EQ(said.substr(said.rfind("velmorankite: ")),
            "velmorankite: standard output: cannot be written\n");
}

#if !defined(__SANITIZE_ADDRESS__)  // which takes more address space than any limit here
TEST_F(Program, says_in_a_line_that_memory_does_not_hold_the_window) {
  // A window of 3189 by 3201 cells: 41 MB for the weights, as much for each of the two grids.
  folder.define(9, "16000");
  folder.define(10, "0");
  folder.draw_line({{-10, 0}, {0, 0}, {10, 0}, {30, 0}});
  folder.define(12, "-15850 16150 10 3201");
  folder.define(13, "-16000 16000 10 3201");
  folder.write_definitions();
  for (const char* kilobytes : {"40000", "110000"}) {
    std::string limit = "ulimit -v ";
    EXPECT_EQ(run("mergedefs.trs", limit.append(kilobytes)), 0);
    EXPECT_NE(errors().find("need more memory than there is\n"), std::string::npos) << errors();
    EXPECT_NE(errors().find("working window of 3189 by 3201 cells"), std::string::npos);
    EXPECT_FALSE(has_scratch());
    EXPECT_FALSE(std::filesystem::exists(folder / "merged.grd"));
  }
}
#endif

}  // namespace
}  // namespace velmorankite
