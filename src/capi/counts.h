// Counts of cells for a caller of the C interface.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstdint>
#include <limits>

namespace velmorankite::capi {

// Counts of cells are 64-bit in the library; a caller's integer holds as much as it can.
[[nodiscard]] inline std::int32_t count_out(std::int64_t count) noexcept {
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(count, std::numeric_limits<std::int32_t>::max()));
}

}  // namespace velmorankite::capi
