// Values in the byte order of a file, whatever the order of the machine.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

namespace velmorankite::platform {

template <typename T>
T reverse_bytes(T value) noexcept {
  static_assert(std::is_trivially_copyable_v<T>);
  auto bytes = std::bit_cast<std::array<std::byte, sizeof(T)>>(value);
  std::reverse(bytes.begin(), bytes.end());
  return std::bit_cast<T>(bytes);
}

// The value whose sizeof(T) bytes, in the order `order`, begin at `bytes`.
template <typename T>
T load(const std::byte* bytes, std::endian order = std::endian::little) noexcept {
  T value;
  std::memcpy(&value, bytes, sizeof(T));
  return order == std::endian::native ? value : reverse_bytes(value);
}

template <typename T>
void store(T value, std::byte* bytes, std::endian order = std::endian::little) noexcept {
  const T ordered = order == std::endian::native ? value : reverse_bytes(value);
  std::memcpy(bytes, &ordered, sizeof(T));
}

// Turns values between the little-endian order of a file and that of the machine, in place.
template <typename T>
void swap_from_little(std::span<T> values) noexcept {
  if constexpr (std::endian::native != std::endian::little) {
    for (T& value : values) {
      value = reverse_bytes(value);
    }
  } else {
    (void)values;
  }
}

}  // namespace velmorankite::platform
