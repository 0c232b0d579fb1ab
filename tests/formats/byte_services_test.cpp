// SPDX-License-Identifier: MIT
#include "formats/byte_services.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace velmorankite {
namespace {

template <std::size_t N>
std::array<std::byte, N> bytes(const int (&values)[N]) {
  std::array<std::byte, N> result{};
  for (std::size_t i = 0; i < N; ++i) {
    result[i] = static_cast<std::byte>(values[i]);
  }
  return result;
}

TEST(ByteReversal, of_single_values) {
  EXPECT_EQ(REVI2(bytes({0x80, 0x00}).data()), -32768);
  EXPECT_EQ(REVI2(bytes({0x00, 0x80}).data()), 128);
  EXPECT_EQ(REVI4(bytes({0x12, 0x34, 0x56, 0x78}).data()), 0x12345678);
  EXPECT_EQ(REVR4(bytes({0x3F, 0x80, 0x00, 0x00}).data()), 1.0F);
  EXPECT_EQ(REVR8(bytes({0xC0, 0, 0, 0, 0, 0, 0, 0}).data()), -2.0);
}

TEST(ByteReversal, twice_gives_every_bit_pattern_back) {
  // Among them a float whose reverse is a signalling NaN.
  const std::array<std::uint32_t, 4> patterns = {0x0000807FU, 0x7F800001U, 0x12345678U, 0xFFU};
  auto floats = std::bit_cast<std::array<float, 4>>(patterns);
  CHREVARR(floats);
  for (float& value : floats) {
    REVBYT(value);
  }
  EXPECT_EQ((std::bit_cast<std::array<std::uint32_t, 4>>(floats)), patterns);
}

TEST(ByteReversal, of_arrays_reverses_each_element) {
  std::array<std::int16_t, 3> shorts = {0x0102, 0x0304, -2};
  CHREVARR2(shorts);
  EXPECT_EQ(shorts, (std::array<std::int16_t, 3>{0x0201, 0x0403, -257}));
  std::array<std::int32_t, 2> words = {0x01020304, -2};
  CHREVARR4(words);
  EXPECT_EQ(words, (std::array<std::int32_t, 2>{0x04030201, -16777217}));
  std::array<double, 2> doubles = {1.0, -2.0};
  CHREVARR8(doubles);
  EXPECT_EQ(std::bit_cast<std::uint64_t>(doubles[1]), 0xC0U);
  REVBYT8(doubles[0]);
  EXPECT_EQ(doubles[0], 1.0);
  CHREVARR4({});
}

TEST(BufferValues, the_sign_of_the_size_is_the_order_and_only_putting_advances) {
  std::array<std::byte, 8> buffer{};
  std::size_t position = 1;
  const auto value = bytes({1, 2, 3});
  VAL2BUF(position, buffer.data(), 3, value.data());
  VAL2BUF(position, buffer.data(), -3, value.data());
  VAL2BUF(position, buffer.data(), 0, value.data());
  EXPECT_EQ(position, 7U);
  EXPECT_EQ(buffer, bytes({0, 1, 2, 3, 3, 2, 1, 0}));
  for (int turn = 0; turn < 2; ++turn) {
    std::array<std::byte, 3> taken{};
    BUF2VAL(4, buffer.data(), -3, taken.data());
    EXPECT_EQ(taken, value);
  }
}

// Records as a reader of plots meets them: x, y and the pen's code.
struct PlotVectors : ::testing::Test {
  void read(std::vector<plot_vector> records, std::int32_t order = 1) {
    if (order < 0) {
      for (plot_vector& record : records) {
        REVBYT(record.x);
        REVBYT(record.y);
        REVBYT4(record.code);
      }
    }
    RDPLTVEC(staging, position, reinterpret_cast<const std::byte*>(records.data()) - position,
             order, static_cast<std::int32_t>(records.size()), out);
  }
  [[nodiscard]] std::vector<float> xs() const {
    std::vector<float> values;
    for (const plot_vector& vector : out) {
      values.push_back(vector.x);
    }
    return values;
  }

  std::vector<plot_vector> staging;
  std::vector<plot_vector> out;
  std::int64_t position = 0;
};

TEST_F(PlotVectors, that_draw_nothing_are_dropped_but_for_the_first_and_the_last) {
  read({{1, 1, 3}, {1, 1, 3}, {1, 1, 2}, {2, 1, 3}, {2, 1, 3}, {1, 1, 3}, {1, 1, 3}, {1, 1, 3}});
  EXPECT_EQ(xs(), (std::vector<float>{1, 1, 2, 1, 1}));
  EXPECT_EQ(position, 96);
  read({{1, 1, 3}});
  EXPECT_EQ(out.size(), 6U);
  EXPECT_EQ(position, 108);
}

TEST_F(PlotVectors, come_in_either_byte_order_and_stay_for_the_next_call) {
  read({{1.5F, -2.0F, 3}, {4, 5, 2}}, -1);
  ASSERT_EQ(out.size(), 2U);
  EXPECT_EQ(out[0].y, -2.0F);
  EXPECT_EQ(out[1].code, 2);
  RDPLTVEC(staging, position, nullptr, 0, 1, out);
  ASSERT_EQ(out.size(), 3U);
  EXPECT_EQ(out[2].x, 1.5F);
  RDPLTVEC(staging, position, nullptr, 1, 0, out);
  EXPECT_EQ(out.size(), 3U);
  EXPECT_EQ(position, 36);
}

}  // namespace
}  // namespace velmorankite
