// Values as logarithms, so that a quantity that spans decades interpolates and rotates smoothly.
// SPDX-License-Identifier: MIT
#pragma once
#include <cmath>
#include <cstdint>
#include <span>

namespace velmorankite {

// Modes of the routines that resample. Any other mode takes values as they are.
inline constexpr std::int32_t mode_logarithmic = 2;  // ln z, and a floor for z not above 0
inline constexpr std::int32_t mode_log_linear = 3;   // linear from -1 to 1, logarithmic beyond

inline constexpr float logarithm_floor = -18.0F;  // stands for the logarithm of 0 and below

[[nodiscard]] constexpr bool is_transformed(std::int32_t mode) noexcept {
  return mode == mode_logarithmic || mode == mode_log_linear;
}

// The transformed value of a valid cell. Evaluated in double precision and rounded to single.
[[nodiscard]] inline float transform_value(std::int32_t mode, float z) noexcept {
  const double value = z;
  if (mode == mode_logarithmic) {
    return z > 0.0F ? static_cast<float>(std::log(value)) : logarithm_floor;
  }
  if (mode == mode_log_linear && z > 1.0F) {
    return static_cast<float>(1.0 + std::log(value));
  }
  if (mode == mode_log_linear && z < -1.0F) {
    return static_cast<float>(-1.0 - std::log(-value));
  }
  return z;
}

// The value whose transformed value is `t`.
[[nodiscard]] inline float restore_value(std::int32_t mode, float t) noexcept {
  const double value = t;
  if (mode == mode_logarithmic) {
    return static_cast<float>(std::exp(value));
  }
  if (mode == mode_log_linear && t > 1.0F) {
    return static_cast<float>(std::exp(value - 1.0));
  }
  if (mode == mode_log_linear && t < -1.0F) {
    return static_cast<float>(-std::exp(-value - 1.0));
  }
  return t;
}

// Plain values of interpolated ones, in place: what is not a number becomes a dummy, and valid
// values are restored where `mode` transforms.
void make_plain(std::int32_t mode, std::span<float> values) noexcept;

// Transforms one value in place; a value that is not valid stays as it is.
//   mode       2 or 3; any other leaves the value as it is.
//   direction  0 or above: transform; below 0: restore. A value that mode 2 had no logarithm for
//              comes back as e to the power of the floor.
void GRDZTRANS(std::int32_t mode, float& value, std::int32_t direction) noexcept;

}  // namespace velmorankite
