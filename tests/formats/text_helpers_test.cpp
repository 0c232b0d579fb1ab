// SPDX-License-Identifier: MIT
#include "formats/text_helpers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <limits>

#include "platform/byte_order.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;
using testing::write_file;

TEST(LineEnds, are_sensed_from_the_first_line) {
  struct example {
    std::string bytes;
    line_end_kind expected;
  };
  const example examples[] = {
      {"A\r\nB", line_end_kind::windows},
      {"A\nB\r\nC", line_end_kind::unsettled},
      {"A\r\nB\nC", line_end_kind::windows},
      {"A\nB", line_end_kind::unix_system},
      {"A\nB\rC", line_end_kind::unsettled},
      {"A\rB\r\n", line_end_kind::unsettled},
      {"A\rB", line_end_kind::mac},
      {"AB", line_end_kind::unsettled},
      {"", line_end_kind::unsettled},
      {std::string(1023, 'x') + "\n", line_end_kind::unix_system},
      {std::string(1024, 'x') + "\n", line_end_kind::unsettled},
      {std::string(1023, 'x') + "\r\n", line_end_kind::mac},
  };
  const TemporaryFolder folder;
  for (const example& e : examples) {
    write_file(folder / "a.txt", e.bytes);
    EXPECT_EQ(ISFILEUNIX(folder / "a.txt"), e.expected) << e.bytes;
  }
}

TEST(LineEnds, of_a_file_that_cannot_be_read_are_not_settled) {
  const TemporaryFolder folder;
  EXPECT_EQ(ISFILEUNIX(folder / "missing.txt"), line_end_kind::unsettled);
  EXPECT_EQ(ISFILEUNIX(folder.path()), line_end_kind::unsettled);
  write_file(folder / "a.txt", "A\nB");
  testing::FailingSystem failing(testing::system_call::read, 1, EIO);
  const platform::SystemOverride override(failing);
  EXPECT_EQ(ISFILEUNIX(folder / "a.txt"), line_end_kind::unsettled);
}

TEST(LineReader, takes_all_three_line_ends_and_leaves_what_does_not_fit) {
  struct example {
    std::string bytes;
    std::vector<std::string> lines;  // in calls with room for 4 characters
  };
  const example examples[] = {
      {"A\rB", {"A", "B", ""}},
      {"A\r\nB\nC", {"A", "B", "C", ""}},
      {"\n\r\n\rX\n", {"", "", "", "X", ""}},
      {"ABC\r\nX", {"ABC", "X", ""}},
      {"ABCD\r\nX", {"ABCD", "", "X"}},
      {"ABCDEFGHI\nX", {"ABCD", "EFGH", "I", "X"}},
      {"A\r", {"A", ""}},
      {"", {"", ""}},
  };
  const TemporaryFolder folder;
  for (const example& e : examples) {
    write_file(folder / "a.txt", e.bytes);
    const platform::BinaryFile file(folder / "a.txt", platform::open_mode::read);
    std::int64_t position = 1;
    for (const std::string& line : e.lines) {
      EXPECT_EQ(RDLINE(file, position, 4), line) << e.bytes;
    }
    EXPECT_LE(position, static_cast<std::int64_t>(e.bytes.size()) + 1);
  }
}

TEST(BlankPaddedTexts, are_trimmed_of_blanks_and_nuls) {
  const auto with_nuls = [](std::string text) {
    std::replace(text.begin(), text.end(), '0', '\0');
    return text;
  };
  EXPECT_EQ(FTRIM("  AB  "), "AB");
  EXPECT_EQ(FTRIM(with_nuls("00 A0B0  ")), "A B");
  EXPECT_EQ(FTRIM(with_nuls(" 0 0 ")), "");
  EXPECT_EQ(FTRIM("\tA"), "\tA");
  EXPECT_EQ(FTAIL(with_nuls("  A0B0 0")), 5U);
  EXPECT_EQ(FTAIL(with_nuls("0 0")), 0U);
  EXPECT_EQ(FTAIL("    "), 0U);
}

TEST(UpperCase, changes_the_26_letters_only) {
  std::string text = "az`{AZ[@\xC3\xA4";
  FUPPER(text);
  EXPECT_EQ(text, "AZ`{AZ[@\xC3\xA4");
}

double decoded(double value, std::endian stored, std::int32_t order_code) {
  std::byte bytes[8];
  platform::store(value, bytes, stored);
  return DECODE_VULCAN_BINARY(bytes, order_code);
}

TEST(DecodedDoubles, are_the_stored_numbers_in_either_byte_order) {
  for (const double value : {1.0, -0.1, 1234567.891, std::numeric_limits<double>::min(),
                             -std::numeric_limits<double>::max()}) {
    EXPECT_EQ(decoded(value, std::endian::little, decode_little_endian), value);
    EXPECT_EQ(decoded(value, std::endian::little, 4), value);
    EXPECT_EQ(decoded(value, std::endian::big, decode_big_endian), value);
  }
}

TEST(DecodedDoubles, know_no_zero_and_no_nan) {
  const double infinity = std::numeric_limits<double>::infinity();
  const auto little = [](double value) { return decoded(value, std::endian::little, 0); };
  EXPECT_EQ(little(0.0), 0x1p-1023);
  EXPECT_EQ(little(-0.0), -0x1p-1023);
  EXPECT_EQ(little(0x1p-1023), 0x1.8p-1023);  // its fraction of a half gets the leading 1
  EXPECT_EQ(little(infinity), infinity);
  EXPECT_EQ(little(-infinity), -infinity);
  EXPECT_EQ(little(std::copysign(std::nan(""), -1.0)), -infinity);
}

}  // namespace
}  // namespace velmorankite
