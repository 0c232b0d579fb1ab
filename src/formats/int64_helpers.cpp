// SPDX-License-Identifier: MIT
#include "formats/int64_helpers.h"

#include <array>
#include <charconv>
#include <string_view>

namespace velmorankite {
namespace {

constexpr std::string_view no_room = "*";

// The first unit whose limit lies above the count is used; the last has no limit.
struct size_unit {
  std::int64_t limit;
  double bytes;
  std::string_view suffix;
};

constexpr size_unit size_units[] = {
    {std::int64_t{1} << 20, 0x1p10, " KB"},
    {std::int64_t{1} << 30, 0x1p20, " MB"},
    {std::int64_t{1} << 40, 0x1p30, " GB"},
};
constexpr size_unit largest_unit = {0, 0x1p40, " TB"};

constexpr std::uint64_t bits(std::int64_t value) noexcept {
  return static_cast<std::uint64_t>(value);
}

std::string with_two_decimals(double value) {
  std::array<char, 32> text;
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 2);
  return {text.data(), end.ptr};
}

std::string size_in_words(std::int64_t value, std::size_t width) {
  constexpr std::int64_t kilobyte = 1024;
  std::string number;
  std::string_view suffix = " bytes";
  if (value < kilobyte) {
    number = std::to_string(value);
  } else {
    const size_unit* unit = &largest_unit;
    for (const size_unit& row : size_units) {
      if (value < row.limit) {
        unit = &row;
        break;
      }
    }
    number = with_two_decimals(static_cast<double>(value) / unit->bytes);
    suffix = unit->suffix;
  }
  if (number.size() > width) {
    return std::string(no_room);
  }
  number.append(suffix);
  return number.substr(0, width);
}

}  // namespace

std::int64_t joined(int64_halves halves) noexcept {
  return static_cast<std::int64_t>((static_cast<std::uint64_t>(halves.high) << 32) |
                                   static_cast<std::uint32_t>(halves.low));
}

int64_halves parted(std::int64_t value) noexcept {
  return {static_cast<std::int32_t>(value >> 32),
          static_cast<std::int32_t>(static_cast<std::uint32_t>(value))};
}

std::int64_t ADDI8A(std::int64_t a, std::int64_t b) noexcept {
  return static_cast<std::int64_t>(bits(a) + bits(b));
}

std::int64_t SUBTRACTI8A(std::int64_t a, std::int64_t b) noexcept {
  return static_cast<std::int64_t>(bits(a) - bits(b));
}

std::int64_t MULTIPLYI8A(std::int64_t a, std::int64_t b) noexcept {
  return static_cast<std::int64_t>(bits(a) * bits(b));
}

std::int64_t DIVIDEI8A(std::int64_t a, std::int64_t b) noexcept {
  if (b == 0) {
    return 0;
  }
  return b == -1 ? SUBTRACTI8A(0, a) : a / b;  // the lowest number has no opposite
}

std::int32_t COMPAREI8A(std::int64_t a, std::int64_t b) noexcept {
  return static_cast<std::int32_t>(a > b) - static_cast<std::int32_t>(a < b);
}

int64_halves ADDI8(int64_halves a, int64_halves b) noexcept {
  return parted(ADDI8A(joined(a), joined(b)));
}

int64_halves SUBTRACTI8(int64_halves a, int64_halves b) noexcept {
  return parted(SUBTRACTI8A(joined(a), joined(b)));
}

int64_halves MULTIPLYI8(int64_halves a, int64_halves b) noexcept {
  return parted(MULTIPLYI8A(joined(a), joined(b)));
}

int64_halves DIVIDEI8(int64_halves a, int64_halves b) noexcept {
  return parted(DIVIDEI8A(joined(a), joined(b)));
}

std::int32_t COMPAREI8(int64_halves a, int64_halves b) noexcept {
  return COMPAREI8A(joined(a), joined(b));
}

size_texts ENCODEI8A(std::int64_t value, std::size_t digits_width, std::size_t size_width) {
  constexpr std::size_t widest = 16;
  const std::string digits = std::to_string(value);
  if (digits.size() > widest) {
    return {std::string(no_room), std::string(no_room)};
  }
  return {digits.size() > digits_width ? std::string(no_room) : digits,
          value < 0 ? std::string(no_room) : size_in_words(value, size_width)};
}

size_texts ENCODEI8(int64_halves value, std::size_t digits_width, std::size_t size_width) {
  return ENCODEI8A(joined(value), digits_width, size_width);
}

}  // namespace velmorankite
