// Numbers of headers that are stored as something else: as text, or counts as reals.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "platform/list_directed.h"

namespace velmorankite {

// The integer part of a count that is stored as a real; 0, which no count may be, for what is no
// integer of 32 bits.
[[nodiscard]] inline std::int32_t integer_part(double value) noexcept {
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  return value >= lowest && value <= highest ? static_cast<std::int32_t>(value) : 0;
}

// The first free-format number in a text; nothing if there is none.
template <typename T>
[[nodiscard]] std::optional<T> number_in(std::string_view text) {
  T value{};
  const platform::list_item item = &value;
  if (platform::read_list(text, {&item, 1}) != platform::list_result::complete) {
    return std::nullopt;
  }
  return value;
}

}  // namespace velmorankite
