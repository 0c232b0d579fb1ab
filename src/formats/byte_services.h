// Single values in and out of byte buffers, and the reversal of their bytes.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace velmorankite {

// Takes a value of |size| bytes out of a buffer, from the byte offset `position` on: in the order
// of the buffer for a size above 0, reversed for one below, nothing for 0.
void BUF2VAL(std::size_t position, const std::byte* buffer, std::int32_t size, std::byte* value);

// Puts a value into a buffer by the same rule and moves `position` behind it.
void VAL2BUF(std::size_t& position, std::byte* buffer, std::int32_t size, const std::byte* value);

// A point of a pen plot.
struct plot_vector {
  float x = 0.0F;
  float y = 0.0F;
  std::int32_t code = 0;  // what the pen does on its way here
};

inline constexpr std::int32_t plot_draw = 3;  // the code of points that may be dropped

// Takes plot vectors of 12 bytes out of a buffer, and leaves out those that draw nothing.
//   staging   records of the last call; kept by the caller from call to call.
//   position  byte offset of the first record; out: moved by 12 bytes a record.
//   order     above 0: the buffer has this machine's byte order; below 0: the reverse of it;
//             0: the buffer is not read, the records of the call before are taken once more.
//   count     records in the buffer; below 1: none.
//   out       the first and the last record are always added; one between them is not if its code
//             is plot_draw and it lies where the last added one does.
void RDPLTVEC(std::vector<plot_vector>& staging, std::int64_t& position, const std::byte* buffer,
              std::int32_t order, std::int32_t count, std::vector<plot_vector>& out);

// Copies the 4 bytes of a word, which may be of any type.
void CPYBYT(const std::byte* from, std::byte* to) noexcept;

// Reverse the bytes of one value in place.
void REVBYT2(std::int16_t& value) noexcept;
void REVBYT4(std::int32_t& value) noexcept;
void REVBYT(float& value) noexcept;
void REVBYT8(double& value) noexcept;

// The value whose bytes stand reversed at `bytes`.
[[nodiscard]] std::int32_t REVI2(const std::byte* bytes) noexcept;  // sign extended
[[nodiscard]] std::int32_t REVI4(const std::byte* bytes) noexcept;
[[nodiscard]] float REVR4(const std::byte* bytes) noexcept;
[[nodiscard]] double REVR8(const std::byte* bytes) noexcept;

// Reverse the bytes of each element in place.
void CHREVARR2(std::span<std::int16_t> values) noexcept;
void CHREVARR4(std::span<std::int32_t> values) noexcept;
void CHREVARR(std::span<float> values) noexcept;
void CHREVARR8(std::span<double> values) noexcept;

}  // namespace velmorankite
