// 64-bit integers for callers that hold them as two 32-bit halves, and sizes in words.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace velmorankite {

// The number high x 2^32 + low, with low taken as unsigned.
struct int64_halves {
  std::int32_t high = 0;
  std::int32_t low = 0;

  friend constexpr bool operator==(const int64_halves&, const int64_halves&) = default;
};

[[nodiscard]] std::int64_t joined(int64_halves halves) noexcept;
[[nodiscard]] int64_halves parted(std::int64_t value) noexcept;

// Sum, difference, product and quotient, modulo 2^64. The quotient is truncated, and 0 for a
// divisor of 0.
[[nodiscard]] std::int64_t ADDI8A(std::int64_t a, std::int64_t b) noexcept;
[[nodiscard]] std::int64_t SUBTRACTI8A(std::int64_t a, std::int64_t b) noexcept;
[[nodiscard]] std::int64_t MULTIPLYI8A(std::int64_t a, std::int64_t b) noexcept;
[[nodiscard]] std::int64_t DIVIDEI8A(std::int64_t a, std::int64_t b) noexcept;
// 1 if a is greater than b, -1 if it is less, 0 if they are equal.
[[nodiscard]] std::int32_t COMPAREI8A(std::int64_t a, std::int64_t b) noexcept;

// The same on halves.
[[nodiscard]] int64_halves ADDI8(int64_halves a, int64_halves b) noexcept;
[[nodiscard]] int64_halves SUBTRACTI8(int64_halves a, int64_halves b) noexcept;
[[nodiscard]] int64_halves MULTIPLYI8(int64_halves a, int64_halves b) noexcept;
[[nodiscard]] int64_halves DIVIDEI8(int64_halves a, int64_halves b) noexcept;
[[nodiscard]] std::int32_t COMPAREI8(int64_halves a, int64_halves b) noexcept;

// A count of bytes in words.
struct size_texts {
  std::string digits;  // all digits
  std::string size;    // as "1023 bytes" or "1.00 KB"
};

// Writes a count of bytes into two texts of at most `digits_width` and `size_width` characters.
// "*" stands for digits that are longer than their text, for the size of a negative count, for a
// size whose number is longer than its text, and in both for a count of more than 16 columns. A
// unit that finds no room behind its number is cut.
[[nodiscard]] size_texts ENCODEI8A(std::int64_t value, std::size_t digits_width,
                                   std::size_t size_width);
[[nodiscard]] size_texts ENCODEI8(int64_halves value, std::size_t digits_width,
                                  std::size_t size_width);

}  // namespace velmorankite
