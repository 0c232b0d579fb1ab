// The marker of a cell without data.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

inline constexpr float dummy = -1.0E32F;             // bits 0xF49DC5AE
inline constexpr float valid_threshold = -1.0E30F;   // bits 0xF149F2CA
inline constexpr std::int16_t dummy_int16 = -32767;  // bits 0x8001
inline constexpr std::int32_t dummy_int32 = -2147483647;

// Written this way round so that NaN is never valid.
[[nodiscard]] constexpr bool is_valid(float value) noexcept {
  return value > valid_threshold;
}

}  // namespace velmorankite
