// The grid description: the record of a grid beside what its header says in words.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "grid/grid_record.h"

namespace velmorankite {

// What a header says in words.
struct grid_texts {
  std::vector<std::string> band_names;  // one a band, where the format names its bands
  std::vector<std::string> advice;      // plain sentences for the user about this file
};

// The catalogue code of the standard grid.
inline constexpr std::int32_t format_standard = 2;

// A plain standard grid is read in place; everything else goes through the conversion first.
[[nodiscard]] constexpr bool is_plain_standard(const grid_ints& ints) noexcept {
  return ints.format_code == format_standard && ints.element_code >= 0;
}

}  // namespace velmorankite
