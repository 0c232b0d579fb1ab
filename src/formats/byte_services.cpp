// SPDX-License-Identifier: MIT
#include "formats/byte_services.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

namespace velmorankite {
namespace {

// An unsigned integer of the width of T: floats are reversed as such, since a float whose bytes
// stand the wrong way round may be a signalling NaN.
template <typename T>
using word_of =
    std::conditional_t<sizeof(T) == 2, std::uint16_t,
                       std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t>>;

// Written with shifts, which compilers turn into one instruction, and loops over it into vectors.
constexpr std::uint16_t reversed(std::uint16_t w) noexcept {
  return static_cast<std::uint16_t>((w >> 8) | (w << 8));
}
constexpr std::uint32_t reversed(std::uint32_t w) noexcept {
  return (w >> 24) | ((w >> 8) & 0xFF00U) | ((w << 8) & 0xFF0000U) | (w << 24);
}
constexpr std::uint64_t reversed(std::uint64_t w) noexcept {
  return (std::uint64_t{reversed(static_cast<std::uint32_t>(w))} << 32) |
         reversed(static_cast<std::uint32_t>(w >> 32));
}

template <typename T>
void reverse_each(std::span<T> values) noexcept {
  for (T& value : values) {
    word_of<T> word;
    std::memcpy(&word, &value, sizeof word);
    word = reversed(word);
    std::memcpy(&value, &word, sizeof word);
  }
}

template <typename T>
T reversed_at(const std::byte* bytes) noexcept {
  word_of<T> word;
  std::memcpy(&word, bytes, sizeof word);
  word = reversed(word);
  T value;
  std::memcpy(&value, &word, sizeof word);
  return value;
}

// Copies |size| bytes, reversed for a size below 0.
std::size_t copy_ordered(const std::byte* from, std::int32_t size, std::byte* to) {
  const auto count = static_cast<std::size_t>(std::abs(std::int64_t{size}));
  if (size < 0) {
    std::reverse_copy(from, from + count, to);
  } else {
    std::copy_n(from, count, to);
  }
  return count;
}

}  // namespace

void BUF2VAL(std::size_t position, const std::byte* buffer, std::int32_t size, std::byte* value) {
  copy_ordered(buffer + position, size, value);
}

void VAL2BUF(std::size_t& position, std::byte* buffer, std::int32_t size, const std::byte* value) {
  position += copy_ordered(value, size, buffer + position);
}

void RDPLTVEC(std::vector<plot_vector>& staging, std::int64_t& position, const std::byte* buffer,
              std::int32_t order, std::int32_t count, std::vector<plot_vector>& out) {
  static_assert(sizeof(plot_vector) == 12);
  const auto records = static_cast<std::size_t>(std::max(count, 0));
  staging.resize(std::max(staging.size(), records));
  if (order != 0 && records > 0) {
    const std::span<plot_vector> taken = std::span(staging).first(records);
    std::memcpy(taken.data(), buffer + position, taken.size_bytes());
    if (order < 0) {
      for (plot_vector& vector : taken) {
        REVBYT(vector.x);
        REVBYT(vector.y);
        REVBYT4(vector.code);
      }
    }
  }
  position += static_cast<std::int64_t>(sizeof(plot_vector)) * count;
  for (std::size_t i = 0; i < records; ++i) {
    const plot_vector& vector = staging[i];
    const bool between = i > 0 && i + 1 < records;
    if (between && vector.code == plot_draw &&
        std::abs(vector.x - out.back().x) + std::abs(vector.y - out.back().y) == 0.0F) {
      continue;
    }
    out.push_back(vector);
  }
}

void CPYBYT(const std::byte* from, std::byte* to) noexcept {
  constexpr std::size_t word = 4;
  std::memmove(to, from, word);
}

void REVBYT2(std::int16_t& value) noexcept {
  reverse_each(std::span(&value, 1));
}
void REVBYT4(std::int32_t& value) noexcept {
  reverse_each(std::span(&value, 1));
}
void REVBYT(float& value) noexcept {
  reverse_each(std::span(&value, 1));
}
void REVBYT8(double& value) noexcept {
  reverse_each(std::span(&value, 1));
}

std::int32_t REVI2(const std::byte* bytes) noexcept {
  return reversed_at<std::int16_t>(bytes);
}
std::int32_t REVI4(const std::byte* bytes) noexcept {
  return reversed_at<std::int32_t>(bytes);
}
float REVR4(const std::byte* bytes) noexcept {
  return reversed_at<float>(bytes);
}
double REVR8(const std::byte* bytes) noexcept {
  return reversed_at<double>(bytes);
}

void CHREVARR2(std::span<std::int16_t> values) noexcept {
  reverse_each(values);
}
void CHREVARR4(std::span<std::int32_t> values) noexcept {
  reverse_each(values);
}
void CHREVARR(std::span<float> values) noexcept {
  reverse_each(values);
}
void CHREVARR8(std::span<double> values) noexcept {
  reverse_each(values);
}

}  // namespace velmorankite
