// SPDX-License-Identifier: MIT
#include "platform/keep_apart.h"

#include <gtest/gtest.h>

#include "platform/io_error.h"
#include "support/temporary_folder.h"

namespace velmorankite::platform {
namespace {

class KeepApart : public ::testing::Test {
 protected:
  KeepApart() {
    testing::write_file("in.grd", "cells");
    std::filesystem::create_directory("sub");
    std::filesystem::create_symlink("in.grd", "link.grd");
    std::filesystem::create_hard_link("in.grd", "hard.grd");
    std::filesystem::create_symlink("new.grd", "ahead.grd");
    std::filesystem::create_directory_symlink("sub", "way");
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder here{folder.path()};
};

TEST_F(KeepApart, a_result_under_the_name_of_another_file_is_told_however_it_is_spelt) {
  struct example {
    std::filesystem::path input;
    std::filesystem::path first;
    std::filesystem::path second;
    const char* reason;  // ahead of the path; blank: all are apart
  };
  const example examples[] = {
      {"in.grd", "in.grd", "b", "the grid would replace the input (in.grd)"},
      {"in.grd", "a", "./sub/../in.grd", "the log would replace the input (./sub/../in.grd)"},
      {"in.grd", "link.grd", "b", "the grid would replace the input (link.grd)"},
      {"link.grd", "in.grd", "b", "the grid would replace the input (in.grd)"},
      {"in.grd", "hard.grd", "b", "the grid would replace the input (hard.grd)"},
      {folder / "in.grd", "in.grd", "b", "the grid would replace the input (in.grd)"},
      // Two results, of which neither is there yet.
      {"in.grd", "new.grd", "new.grd", "the log would replace the grid (new.grd)"},
      {"in.grd", "new.grd", "ahead.grd", "the log would replace the grid (ahead.grd)"},
      {"in.grd", "sub/new", "way/./new", "the log would replace the grid (way/./new)"},
      {"in.grd", "new", "none/../new", "the log would replace the grid (none/../new)"},
      {"in.grd", "sub/in.grd", "In.grd", ""},
      {"in.grd", "new.grd", "sub/ahead.grd", ""},
      {"", "", "", ""},  // a blank name means no file
  };
  for (const example& e : examples) {
    const std::string text(e.reason);
    const named_files inputs{{e.input, "the input"}};
    const named_files results{{e.first, "the grid"}, {e.second, "the log"}};
    const auto clash = find_clash(inputs, results);
    ASSERT_EQ(clash.has_value(), !text.empty()) << text;
    if (clash) {
      EXPECT_EQ(clash->reason, text + ", a name of its own is expected");
      EXPECT_EQ(clash->result, text.starts_with("the grid") ? 0U : 1U);
      EXPECT_EQ(clash->lost, text.find("the input") < text.size() ? e.input : e.first);
      EXPECT_THROW(keep_apart(inputs, results), IoError);
    } else {
      EXPECT_NO_THROW(keep_apart(inputs, results));
    }
  }
}

}  // namespace
}  // namespace velmorankite::platform
