// SPDX-License-Identifier: MIT
#include "grid/status_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

namespace velmorankite {
namespace {

TEST(StatusText, a_number_means_what_its_routine_means_by_it) {
  EXPECT_NE(status_text("GRID_FILL", Status{-1}), status_text("GRDRDH", Status{-1}));
  EXPECT_EQ(status_text("GEOCLONE", Status{-1}), status_text("GRDRDH", Status{-1}));
  EXPECT_EQ(status_text("GRDRDH", Status{3}), "success");
  EXPECT_EQ(status_text("GRDRDH", Status{-3}), "");
  EXPECT_EQ(status_text("grdrdh", Status{-1}), "");
}

TEST(StatusText, a_number_without_words_of_its_own_counts_or_is_told_as_it_is) {
  EXPECT_EQ(status_words("EXPUNCOMPGRID", Status{-21001}), "block 1: the file ends within it");
  EXPECT_EQ(status_words("EXPUNCOMPGRID", Status{-23500}),
            "block 1500: its cells cannot be written");
  EXPECT_EQ(status_words("EXPUNCOMPGRID", Status{-20021}),
            "the file ends within value 19 of its header");
  EXPECT_EQ(status_words("GRDRDGS", Status{-1007}), "line 7 of the cells cannot be read");
  EXPECT_EQ(status_words("GRDRDH", Status{-3}), "status -3");
}

TEST(StatusText, no_number_of_a_routine_stands_twice) {
  std::set<std::pair<std::string, std::int32_t>> seen;
  for (const status_row& row : status_rows()) {
    EXPECT_TRUE(seen.emplace(row.routine, row.number).second) << row.routine << ' ' << row.number;
    EXPECT_LT(row.number, 0) << row.routine;
  }
}

}  // namespace
}  // namespace velmorankite
