// SPDX-License-Identifier: MIT
#include "merge/stitch_line.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>
#include <utility>
#include <vector>

#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;

struct reading {
  Status status;
  stitch_line line;
  std::string words;  // why, or what the stop said
  friend bool operator==(const reading&, const reading&) = default;
};

// Reads `bytes` as a DXF file; the path in the words is cut off.
reading read(const std::string& bytes, double minimum_distance = 1.0) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder / "line.dxf";
  testing::write_file(path, bytes);
  reading result;
  try {
    Outcome outcome = RDSTITCHDXF(path, minimum_distance, result.line);
    result.status = outcome.status;
    result.words = std::move(outcome.why);
  } catch (const platform::IoError& error) {
    result.status = Status{-99};
    result.words = error.what();
  }
  if (result.words.starts_with(path.string())) {
    result.words.erase(0, path.string().size());
  }
  return result;
}

std::string vertex(const std::string& x, const std::string& y) {
  return "  0\nVERTEX\n  8\n0\n 10\n" + x + "\n 20\n" + y + "\n 30\n7.5\n";
}

const std::string head = "  0\nSECTION\n  2\nENTITIES\n  0\nPOLYLINE\n 10\n99\n 20\n99\n 70\n1\n";
const std::string tail = "  0\nSEQEND\n  0\nENDSEC\n";

// A file whose polyline has these vertices; `flags` is a group 70 as it stands in the file.
std::string dxf(const std::vector<std::pair<double, double>>& vertices,
                const std::string& flags = "") {
  std::string text = head + flags;
  for (const auto& [x, y] : vertices) {
    text += vertex(std::to_string(x), std::to_string(y));
  }
  return text + tail;
}

using doubles = std::vector<double>;

TEST(StitchLine, holds_the_vertices_of_the_first_polyline_only) {
  const std::string second = "  0\nPOLYLINE\n" + vertex("50", "50") + vertex("60", "60") + tail;
  const std::string unix_text = dxf({{0, 0}, {3, 4}, {-10, 4}}) + second;
  std::string dos_text;
  for (const char c : unix_text) {
    dos_text += c == '\n' ? "\r\n" : std::string(1, c);
  }
  for (const std::string& text : {unix_text, dos_text}) {
    const reading r = read(text);
    EXPECT_EQ(r.status, success) << r.words;
    EXPECT_EQ(r.line.x, (doubles{0, 3, -10}));
    EXPECT_EQ(r.line.y, (doubles{0, 4, 4}));
  }
}

TEST(StitchLine, drops_a_vertex_nearer_than_the_minimum_to_the_one_before_it_in_the_file) {
  struct example {
    std::vector<std::pair<double, double>> vertices;
    doubles kept_x;
  };
  const example examples[] = {
      {{{0, 0}, {1, 0}, {2, 0}}, {0, 1, 2}},                  // exactly the minimum
      {{{0, 0}, {0.99, 0}, {2, 0}, {3, 0}}, {0, 2, 3}},       // 2 lies 1.01 from the dropped one
      {{{0, 0}, {0.5, 0}, {1.25, 0}, {5, 0}}, {0, 5}},        // 1.25 is far from 0, near 0.5
      {{{0, 0}, {0.9, 0}, {-0.1, 0}, {5, 0}}, {0, -0.1, 5}},  // kept, though near the first
  };
  for (const example& e : examples) {
    EXPECT_EQ(read(dxf(e.vertices)).line.x, e.kept_x) << e.kept_x.size();
  }
}

TEST(StitchLine, returns_to_its_start_where_the_flag_is_odd_and_the_gap_above_the_minimum) {
  struct example {
    std::string flags;
    double last_y;
    std::size_t count;
  };
  const example examples[] = {
      {"70\n1\n", 5.0, 4},        {"70\n     9\n", 5.0, 4}, {"70\n-1\n", 5.0, 4},
      {"70\n2\n", 5.0, 3},        {" 70\n1\n", 5.0, 3},  // a leading blank hides the flag
      {"70\n1\n70\n0\n", 5.0, 4},                        // once closed it stays closed
      {"70\n1\n", 1.0, 3},                               // exactly the minimum
      {"70\n1\n", 1.001, 4},      {"70\n1\n", 0.0, 3},
  };
  for (const example& e : examples) {
    const reading r = read(dxf({{0, 0}, {5, 5}, {0, e.last_y}}, e.flags));
    EXPECT_EQ(r.line.x.size(), e.count) << e.flags << e.last_y;
    if (e.count == 4) {
      EXPECT_EQ(std::pair(r.line.x[3], r.line.y[3]), std::pair(0.0, 0.0));
    }
  }
  // The last vertex of the file decides, also when it was dropped: it lies 0.9 from the first.
  EXPECT_EQ(read(dxf({{0, 0}, {5, 5}, {0, 1.2}, {0, 0.9}}, "70\n1\n")).line.x.size(), 3U);
}

TEST(StitchLine, sees_codes_and_words_only_where_they_begin_a_line) {
  const auto count = [](const std::string& text) { return read(text).line.x.size(); };
  const std::string two = vertex("0", "0") + vertex("5", "0");
  EXPECT_EQ(count(head + two + "10\n10\n20\n0\n" + tail), 3U);      // codes without a blank
  EXPECT_EQ(count(head + two + "  10\n10\n  20\n0\n" + tail), 2U);  // with two blanks
  EXPECT_EQ(count(head + two + "100\nAcDb\n210\n1\n" + tail), 2U);  // longer codes
  EXPECT_EQ(count(head + two + " 10 extra characters\n9\n 20\n0\n" + tail), 3U);
  EXPECT_EQ(count(head + two + "  0\n SEQEND\n" + vertex("9", "9") + tail), 3U);
  EXPECT_EQ(count(" ENTITIES\n" + two + tail), 0U);
  EXPECT_EQ(count("seqend\nENTITIES of this file\n" + two), 2U);  // the end of the file will do
  EXPECT_EQ(count("ENTITIES\n" + two + " 10\n7\n"), 2U);          // a vertex that was cut off
}

TEST(StitchLine, takes_free_format_numbers_from_the_first_256_characters) {
  const std::string blanks(250, ' ');
  const reading r = read(head + vertex("1.5D2 , 7", "-.5") + vertex("+3", "4/") +
                         vertex(blanks + "1234567", blanks + "  2 3 4 5") + tail);
  EXPECT_EQ(r.line.x, (doubles{150, 3, 123456}));
  EXPECT_EQ(r.line.y, (doubles{-0.5, 4, 2}));
}

TEST(StitchLine, without_two_vertices_is_unusable_and_says_why) {
  const std::string no_word = ": no line that begins with the word ENTITIES";
  const std::string no_line = ": no POLYLINE with VERTEX records behind the word ENTITIES";
  const std::string no_vertex = ": no VERTEX has its X in group 10 and its Y in group 20";
  const std::string one_left =
      ": a stitch line needs 2 vertices, 1 is left without those nearer than 1 to the one before "
      "them";
  const std::pair<std::string, std::string> examples[] = {
      {"", no_word},
      {"  2\nENTITIES\n  0\nLWPOLYLINE\n 10\n1\n 20\n1\n", no_line},
      {head + "  0\nVERTEX\n", no_vertex},
      {dxf({{3, 3}}, "70\n1\n"), ": a stitch line needs 2 vertices, 1 is there"},
      // Each lies 0.9 from the one before it, however far the chain runs.
      {dxf({{0, 0}, {0.9, 0}, {1.8, 0}, {2.7, 0}, {3.6, 0}}), one_left},
  };
  for (const auto& [text, words] : examples) {
    const reading r = read(text);
    EXPECT_EQ(r.status, stitch_line_unusable) << text;
    EXPECT_EQ(r.words, words) << text;
    EXPECT_TRUE(r.line.x.empty()) << text;
  }
}

TEST(StitchLine, stops_at_the_line_where_a_vertex_is_malformed) {
  const std::pair<std::string, std::string> examples[] = {
      {vertex("0", "east"), ": line 20: a number expected for the Y of a vertex, \"east\" found"},
      {vertex("", "0"), ": line 18: a number expected for the X of a vertex, \"\" found"},
      {vertex("0", "NaN"), ": line 20: a number expected for the Y of a vertex, \"NaN\" found"},
      {vertex("0", "1*"), ": line 20: a number expected for the Y of a vertex, \"1*\" found"},
      {"  0\nVERTEX\n 20\n1\n 10\n2\n",
       ": line 16: group 10, the X of the vertex, expected ahead of group 20"},
      {vertex("0", "0") + "  0\nVERTEX\n 20\n1\n 10\n2\n",
       ": line 26: group 10, the X of the vertex, expected ahead of group 20"},
      {"  0\nVERTEX\n 10\n1\n 10\n2\n",
       ": line 18: group 20, the Y of the vertex, expected ahead of the next group 10"},
      {"  0\nVERTEX\n 10\n1\n" + tail,
       ": line 18: group 20, the Y of the vertex, expected ahead of SEQEND"},
      {"70\nyes\n", ": line 14: an integer expected for the flags of group 70, \"yes\" found"},
  };
  for (const auto& [text, words] : examples) {
    std::string bytes = head;
    EXPECT_EQ(read(bytes.append(text).append(tail)).words, words) << text;
  }
}

TEST(StitchLine, says_what_the_system_said_of_a_file_that_cannot_be_opened_or_read) {
  const TemporaryFolder folder;
  stitch_line line;
  EXPECT_THROW((void)RDSTITCHDXF(folder / "missing.dxf", 1.0, line), platform::IoError);
  EXPECT_THROW((void)RDSTITCHDXF(folder.path(), 1.0, line), platform::IoError);
  // The second block of the file fails to come, behind vertices that came.
  std::string text = dxf({{0, 0}, {5, 5}});
  text.insert(text.size() - tail.size(), "999\n" + std::string(70000, 'x') + "\n");
  testing::write_file(folder / "line.dxf", text);
  Outcome outcome;
  const int failures = testing::fail_each_call(
      testing::system_call::read, EIO,
      [&] { outcome = RDSTITCHDXF(folder / "line.dxf", 1.0, line); },
      [&](int) {
        EXPECT_EQ(outcome.status, stitch_line_unusable);
        EXPECT_NE(outcome.why.find("Input/output error"), std::string::npos) << outcome.why;
        EXPECT_TRUE(line.x.empty());
      });
  EXPECT_GE(failures, 2);
  EXPECT_FALSE(outcome.failed());
}

}  // namespace
}  // namespace velmorankite
