// SPDX-License-Identifier: MIT
#include "grid/status_words.h"

#include <gtest/gtest.h>

namespace velmorankite {
namespace {

// Two floors: the upper one hands on what the lower one means, by formats 1, 2 and 3.
constexpr format_group first{"First", {1}};
constexpr format_group others{"Second, Third", {2, 3}};
constexpr status_row lower_rows[] = {{"READ", Status{-1}, "no name"},
                                     {"READ", Status{-2}, "no line"},
                                     {"READ", Status{-2}, "no band", &others},
                                     {"READ", Status{-3}, "no comma", &first},
                                     {"READ", Status{-3}, "no band name", &others}};
constexpr status_family lower_families[] = {{"READ", 0, -100, "line ", " is bad", &first, 2},
                                            {"READ", -10, -100, "row ", " is bad"},
                                            {"READ", -50, -100, "block ", " is bad"}};
constexpr status_table lower{lower_rows, lower_families, {}, nullptr};
constexpr status_row upper_rows[] = {{"", Status{-900}, "no memory"},
                                     {"FILL", Status{-1}, "no cell"}};
constexpr status_handover upper_handovers[] = {{"FILL", "READ"}, {"FILLS", "FILL"}};
constexpr status_table upper{upper_rows, {}, upper_handovers, &lower};

TEST(StatusWords, are_those_of_the_routine_and_of_the_format_at_hand) {
  struct example {
    const char* routine;
    std::int32_t number;
    std::int32_t format_code;
    const char* words;
  };
  const example examples[] = {
      {"READ", 3, 0, "success"},
      {"READ", -1, 0, "no name"},
      {"FILL", -1, 0, "no cell"},
      {"FILLS", -1, 0, "no cell"},
      {"fill", -1, 0, "status -1"},
      {"FILLS", -900, 0, "no memory"},
      {"FILLS", -2, 0, "no line; Second, Third: no band"},
      {"FILLS", -2, 3, "no band"},
      {"READ", -2, 4, "no line"},
      {"READ", -3, 1, "no comma"},
      {"READ", -3, 4, "First: no comma; Second, Third: no band name"},
      {"READ", -1, 1, "no name"},
      {"READ", -2, 1, "line 2 is bad"},
      {"READ", -49, 2, "row 39 is bad"},
      {"READ", -51, 2, "block 1 is bad"},
      {"READ", -51, 1, "line 51 is bad"},
      {"READ", -4, 0, "First: line 4 is bad"},
      {"READ", -101, 1, "status -101"},
  };
  for (const example& e : examples) {
    EXPECT_EQ(status_words(upper, e.routine, Status{e.number}, e.format_code), e.words)
        << e.routine << ' ' << e.number << ' ' << e.format_code;
  }
}

}  // namespace
}  // namespace velmorankite
