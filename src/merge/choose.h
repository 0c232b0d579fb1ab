// One of two values without a jump, so that loops over cells take several of them at a time.
// SPDX-License-Identifier: MIT
#pragma once
#include <bit>
#include <cstdint>

namespace velmorankite {

constexpr std::uint32_t choose(bool first, std::uint32_t a, std::uint32_t b) noexcept {
  const std::uint32_t mask = first ? 0xFFFFFFFFU : 0U;
  return (a & mask) | (b & ~mask);
}

// By the bits: a NaN passes unchanged.
constexpr float choose(bool first, float a, float b) noexcept {
  return std::bit_cast<float>(
      choose(first, std::bit_cast<std::uint32_t>(a), std::bit_cast<std::uint32_t>(b)));
}

}  // namespace velmorankite
