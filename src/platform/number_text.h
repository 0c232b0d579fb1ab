// Numbers in messages and logs.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <charconv>
#include <string>

namespace velmorankite::platform {

// The shortest decimal that reads back as `value`; integers as they are.
template <typename T>
[[nodiscard]] std::string shortest(T value) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), result.ptr};
}

}  // namespace velmorankite::platform
