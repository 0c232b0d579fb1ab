// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <velmorankite/velmorankite.h>

#include <sstream>
#include <string>

#include "grid/status_text.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

// The page for callers lists every number, in the order of the tables.
TEST(DocumentedNumbers, the_page_on_the_c_interface_has_the_words_of_every_status) {
  const std::string head = "| Routine | Number | Meaning |\n|---|---|---|\n";
  std::string expected = head;
  for (const status_family& family : status_families()) {
    std::ostringstream line;
    line << "| `" << family.routine << "` | " << family.base << " - n | " << family.before << "n"
         << family.behind << " |\n";
    expected += line.str();
  }
  expected += "\nAll others:\n\n" + head;
  for (const status_row& row : status_rows()) {
    std::string routine = "any";
    if (!row.routine.empty()) {
      routine.assign(1, '`').append(row.routine).append("`");
    }
    std::ostringstream line;
    line << "| " << routine << " | " << row.number << " | " << row.words << " |\n";
    expected += line.str();
  }
  const std::string page = testing::read_file(VELMORANKITE_DOCS "/c-interface.md");
  const std::size_t begin = page.find(head);
  ASSERT_NE(begin, std::string::npos);
  EXPECT_EQ(page.substr(begin), expected);
}

TEST(DocumentedNumbers, the_header_and_the_table_give_numbers_of_the_interface_the_same_words) {
  for (const int number : {VELMORANKITE_FILE_FAILED, VELMORANKITE_OUT_OF_MEMORY,
                           VELMORANKITE_TEXT_TOO_LONG, VELMORANKITE_FAILED}) {
    EXPECT_FALSE(status_text({}, Status{number}).empty()) << number;
  }
}

}  // namespace
}  // namespace velmorankite
