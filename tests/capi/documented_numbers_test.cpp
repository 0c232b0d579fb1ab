// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

#include "capi/status_table.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

// The page for callers lists every number, by routine and from -1 down.
TEST(DocumentedNumbers, the_page_on_the_c_interface_has_the_words_of_every_status) {
  const std::string head = "| Routine | Number | Meaning |\n|---|---|---|\n";
  std::ostringstream expected;
  expected << head;
  std::map<std::string, std::set<std::int32_t, std::greater<>>, std::less<>> numbers;
  for (const status_table* floor = &capi_statuses; floor != nullptr; floor = floor->below) {
    for (const status_family& family : floor->families) {
      expected << "| `" << family.routine << "` | " << family.base << " - n | "
               << (family.formats == nullptr ? "" : std::string(family.formats->name) + ": ")
               << family.before << "n" << family.behind << " |\n";
    }
    for (const status_row& row : floor->rows) {
      numbers[std::string(row.routine)].insert(row.status.code);
    }
  }
  expected << "\nAll others:\n\n" << head;
  for (const auto& [routine, codes] : numbers) {
    for (const std::int32_t code : codes) {
      expected << "| " << (routine.empty() ? "any" : "`" + routine + "`") << " | " << code << " | "
               << status_words(capi_statuses, routine, Status{code}) << " |\n";
    }
  }
  const std::string page = testing::read_file(VELMORANKITE_DOCS "/c-interface.md");
  const std::size_t begin = page.find(head);
  ASSERT_NE(begin, std::string::npos);
  EXPECT_EQ(page.substr(begin), expected.str());
}

TEST(DocumentedNumbers, no_number_of_a_routine_stands_twice_for_the_same_formats) {
  std::set<std::tuple<std::string, std::int32_t, const format_group*>> seen;
  for (const status_table* floor = &capi_statuses; floor != nullptr; floor = floor->below) {
    for (const status_row& row : floor->rows) {
      EXPECT_TRUE(seen.emplace(row.routine, row.status.code, row.formats).second)
          << row.routine << ' ' << row.status.code;
      EXPECT_LT(row.status.code, 0) << row.routine;
    }
  }
}

}  // namespace
}  // namespace velmorankite
