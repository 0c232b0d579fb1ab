// Expected values are those that a Fortran compiler's run-time library reads.
// SPDX-License-Identifier: MIT
#include "platform/list_directed.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include "support/temporary_folder.h"

namespace velmorankite::platform {

std::ostream& operator<<(std::ostream& stream, list_result result) {
  constexpr std::array<const char*, 3> names = {"complete", "end_of_file", "malformed"};
  return stream << names.at(static_cast<std::size_t>(result));
}

namespace {

using testing::TemporaryFolder;

// Two doubles, an integer and a double, as they stand before a value is read.
struct four {
  double a = -1;
  double b = -2;
  std::int32_t n = -4;
  double c = -3;

  std::array<list_item, 4> items() { return {&a, &b, &n, &c}; }
  friend bool operator==(const four&, const four&) = default;
  friend std::ostream& operator<<(std::ostream& stream, const four& values) {
    return stream << values.a << ' ' << values.b << ' ' << values.n << ' ' << values.c;
  }
};

struct outcome {
  list_result result = list_result::complete;
  four values;
  std::string rejected;
};

outcome read_four(const std::string& bytes) {
  const TemporaryFolder folder;
  testing::write_file(folder / "list", bytes);
  TextReader reader(folder / "list");
  outcome read;
  const std::array<list_item, 4> items = read.values.items();
  read.result = read_list(reader, items, &read.rejected);
  return read;
}

TEST(ReadList, takes_what_a_fortran_read_takes) {
  struct example {
    std::string bytes;
    four expected;
  };
  const example examples[] = {
      {"1 2 3 4\n", {1, 2, 3, 4}},
      {"1 , 2\t,3,4 text behind the last value\n", {1, 2, 3, 4}},
      {"\n  \n1,2,\n\n3\n4", {1, 2, 3, 4}},
      {"1\r\n2\r\n3\r\n4\r\n", {1, 2, 3, 4}},
      {"1\n,2,3,4\n", {1, 2, 3, 4}},  // the comma parts two values astride a line end
      {"1,\n,2,3\n", {1, -2, 2, 3}},  // a second comma stands for a value
      {",,,9\n", {-1, -2, -4, 9}},
      {"1  ,  ,3 4\n", {1, -2, 3, 4}},
      {"2*1.5 3 4\n", {1.5, 1.5, 3, 4}},
      {"3* 9\n", {-1, -2, -4, 9}},
      {"1 2*,4\n", {1, -2, -4, 4}},
      {"200000000*7\n", {7, 7, 7, 7}},
      {"1 2 / 3 4\n", {1, 2, -4, -3}},
      {"1/2\n", {1, -2, -4, -3}},
      {"2*3/\n", {3, 3, -4, -3}},
      {"1 2 3 4/abc\n", {1, 2, 3, 4}},
      {"1d2 1D+2 +3 1.e-2\n", {100, 100, 3, 0.01}},
      {"1q2 1+2 3 1-2\n", {100, 100, 3, 0.01}},
      {".5 5. 3 -.5\n", {0.5, 5, 3, -0.5}},
      {"Inf -infinity -2147483648 +INF\n",
       {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
        std::numeric_limits<std::int32_t>::min(), std::numeric_limits<double>::infinity()}},
  };
  for (const example& e : examples) {
    const outcome read = read_four(e.bytes);
    EXPECT_EQ(read.result, list_result::complete) << e.bytes << read.rejected;
    EXPECT_EQ(read.values, e.expected) << e.bytes;
  }
}

TEST(ReadList, a_text_that_is_no_value_is_named_and_ends_the_list) {
  struct example {
    std::string bytes;
    std::string rejected;
  };
  const example examples[] = {
      {"1 2 1.5 4", "1.5"},   {"1 2 3. 4", "3."},
      {"1 2 3e1 4", "3e1"},   {"'1' 2 3 4", "'1'"},
      {"1 2 3 4abc", "4abc"}, {"1 2 2147483648 4", "2147483648"},
      {"1e 2 3 4", "1e"},     {"1e+ 2 3 4", "1e+"},
      {". 2 3 4", "."},       {"- 2 3 4", "-"},
      {"1.2.3 2", "1.2.3"},   {"1 2 3 0x10", "0x10"},
      {"1e5d2 1", "1e5d2"},   {"1 2 -+3 4", "-+3"},
      {"1 2 ++3 4", "++3"},   {"0*1 2", "0*1"},
      {"2**2 3", "2**2"},     {"+2*3 2 3 4", "+2*3"},
      {"2 *3", "*3"},         {"200000001*1", "200000001*1"},
      {"1e400 2", "1e400"},   {"2*a 3", "2*a"},
      {"1 !c\n2 3 4", "!c"},  {"1;2;3;4", "1;2;3;4"},
  };
  for (const example& e : examples) {
    const outcome read = read_four(e.bytes);
    EXPECT_EQ(read.result, list_result::malformed) << e.bytes;
    EXPECT_EQ(read.rejected, e.rejected) << e.bytes;
  }
}

TEST(ReadList, a_list_that_runs_short_keeps_what_was_read) {
  for (const std::string bytes : {"1 2", "1 2\n\n", "1,2,\n"}) {
    const outcome read = read_four(bytes);
    EXPECT_EQ(read.result, list_result::end_of_file) << bytes;
    EXPECT_EQ(read.values, (four{1, 2, -4, -3})) << bytes;
  }
}

TEST(ReadList, each_list_begins_on_a_new_line) {
  const TemporaryFolder folder;
  testing::write_file(folder / "list", "1 99\n\n2*2 99\n3");
  TextReader reader(folder / "list");
  double value = 0;
  const std::array<list_item, 1> items = {&value};
  for (const double expected : {1.0, 2.0, 3.0}) {
    EXPECT_EQ(read_list(reader, items), list_result::complete);
    EXPECT_EQ(value, expected);
  }
  EXPECT_EQ(read_list(reader, items), list_result::end_of_file);
}

TEST(ReadList, a_value_beyond_the_kept_part_of_a_line_is_refused_not_cut) {
  const std::size_t keep = TextReader::default_keep;
  const std::string first = "1 2 3 ";
  const auto blanks = [](std::size_t count) { return std::string(count, ' '); };
  EXPECT_EQ(read_four(first + blanks(keep - first.size() - 1) + "4").values, (four{1, 2, 3, 4}));
  EXPECT_EQ(read_four(first + blanks(keep - first.size() - 1) + "45").result,
            list_result::malformed);
  EXPECT_EQ(read_four(first + blanks(keep) + "4").result, list_result::malformed);
  EXPECT_EQ(read_four(first + "4" + blanks(keep) + "5").values, (four{1, 2, 3, 4}));
  const outcome long_text = read_four(std::string(keep, 'x'));
  EXPECT_EQ(long_text.result, list_result::malformed);
  EXPECT_LT(long_text.rejected.size(), 100U);
}

TEST(ReadList, one_text_does_not_go_on) {
  double value = 7;
  const std::array<list_item, 1> items = {&value};
  EXPECT_EQ(read_list("  ", items), list_result::end_of_file);
  EXPECT_EQ(read_list(" /", items), list_result::complete);
  EXPECT_EQ(value, 7);
  EXPECT_EQ(read_list("1.25D1 rest", items), list_result::complete);
  EXPECT_EQ(value, 12.5);
}

TEST(ParseReal, too_small_is_zero_and_too_large_is_no_number) {
  const std::string zeros(400, '0');
  EXPECT_EQ(parse_real("1e-400"), 0.0);
  EXPECT_TRUE(std::signbit(parse_real("-1d-99999999999999999999").value_or(1)));
  EXPECT_EQ(parse_real("0." + zeros + "1"), 0.0);
  EXPECT_EQ(parse_real("0." + zeros + "1e401"), 1.0);
  EXPECT_EQ(parse_real("1" + zeros + "e-400"), 1.0);
  EXPECT_EQ(parse_real("5e-324"), std::numeric_limits<double>::denorm_min());
  EXPECT_FALSE(parse_real("0.0001e400"));
  EXPECT_FALSE(parse_real("1" + zeros + "e-80"));
  EXPECT_FALSE(parse_real("1e99999999999999999999"));
  EXPECT_EQ(parse_single("1e-60"), 0.0F);
  EXPECT_FALSE(parse_single("1e39"));
  EXPECT_TRUE(std::isnan(parse_single("-NaN").value_or(0)));
  EXPECT_TRUE(std::isnan(parse_single("-nan(ind)").value_or(0)));
  EXPECT_FALSE(parse_single("nan(").has_value());
}

TEST(ParseReal, single_precision_is_rounded_once) {
  // Just above the middle between 1 and the next float: as a double it is the middle itself,
  // from which a second rounding would go down to the even 1.
  const std::string text = "1.00000005960464477540";
  EXPECT_EQ(parse_single(text), std::nextafter(1.0F, 2.0F));
  EXPECT_EQ(static_cast<float>(parse_real(text).value_or(0)), 1.0F);
}

}  // namespace
}  // namespace velmorankite::platform
