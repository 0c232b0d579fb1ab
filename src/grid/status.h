// The result of a routine that can fail by its contract.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

// 0 or a positive count is success, a negative number a failure. The numbers mean different
// things in different routines: named constants stand beside each, and status_words has the words.
struct [[nodiscard]] Status {
  std::int32_t code = 0;

  [[nodiscard]] constexpr bool failed() const noexcept { return code < 0; }
  friend constexpr bool operator==(Status, Status) = default;
};

inline constexpr Status success{0};

}  // namespace velmorankite
