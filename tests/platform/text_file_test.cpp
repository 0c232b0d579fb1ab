// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/file_tests.h"
#include "support/temporary_folder.h"

namespace velmorankite::platform {
namespace {

using testing::TemporaryFolder;

std::vector<std::string> lines_of(const std::string& bytes, line_end end) {
  const TemporaryFolder folder;
  testing::write_file(folder / "a", bytes);
  TextReader reader(folder / "a", end);
  std::vector<std::string> lines;
  std::string line;
  while (reader.next_line(line)) {
    lines.push_back(line);
  }
  EXPECT_EQ(reader.line_number(), static_cast<std::int64_t>(lines.size()));
  return lines;
}

TEST(TextReader, each_line_end_parts_lines_where_it_is_the_chosen_one) {
  using lines = std::vector<std::string>;
  struct example {
    std::string bytes;
    line_end end;
    lines expected;
  };
  const example examples[] = {
      {"a\nb\r\nc\rd", line_end::any, {"a", "b", "c", "d"}},
      {"a\n\nb\n", line_end::any, {"a", "", "b"}},
      {"a\r\n\r\nb", line_end::any, {"a", "", "b"}},
      {"a\nb\r\nc", line_end::lf, {"a", "b\r", "c"}},
      {"a\rb\r\nc\nd", line_end::crlf, {"a\rb", "c\nd"}},
      {"a\rb\nc\r", line_end::cr, {"a", "b\nc"}},
      {"a\r", line_end::crlf, {"a\r"}},
      {"", line_end::any, {}},
  };
  for (const example& e : examples) {
    EXPECT_EQ(lines_of(e.bytes, e.end), e.expected) << e.bytes;
  }
}

TEST(TextReader, line_ends_astride_two_blocks_end_one_line) {
  for (const std::size_t length : {65534U, 65535U, 65536U, 65537U}) {
    const std::string first(length, 'x');
    const std::vector<std::string> lines = lines_of(first + "\r\nb", line_end::any);
    ASSERT_EQ(lines.size(), 2U) << length;
    EXPECT_EQ(lines[1], "b") << length;
  }
}

TEST(TextReader, the_rest_of_a_long_line_is_passed_over) {
  const TemporaryFolder folder;
  testing::write_file(folder / "a", std::string(200000, 'x') + "\nnext\n");
  TextReader reader(folder / "a");
  std::string line;
  ASSERT_TRUE(reader.next_line(line, 16));
  EXPECT_EQ(line, std::string(16, 'x'));
  ASSERT_TRUE(reader.next_line(line, 16));
  EXPECT_EQ(line, "next");
}

TEST(TextWriter, lines_take_the_chosen_end_and_can_be_appended) {
  const TemporaryFolder folder;
  {
    TextWriter writer(folder / "a", line_end::crlf);
    writer.write_line("one");
    writer.close();
  }
  TextWriter writer(folder / "a", line_end::lf, open_mode::open_always);
  writer.write_line("two");
  writer.close();
  EXPECT_EQ(testing::read_file(folder / "a"), "one\r\ntwo\n");
}

TEST(TextWriter, a_staged_file_appears_when_it_is_closed_and_not_without) {
  const TemporaryFolder folder;
  const std::string line(70000, 'x');  // more than is gathered
  for (const bool closes : {false, true}) {
    {
      TextWriter writer(StagedFile(folder / "a"));
      writer.write_line(line);
      EXPECT_FALSE(file_exists(folder / "a"));
      if (closes) {
        writer.close();
      }
    }
    EXPECT_EQ(file_exists(folder / "a"), closes);
  }
  EXPECT_EQ(testing::read_file(folder / "a"), line + "\n");
}

}  // namespace
}  // namespace velmorankite::platform
