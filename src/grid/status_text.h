// The words behind the status numbers, for messages and for the documentation.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

// One number of one routine; a blank routine stands for all of the C interface.
struct status_row {
  std::string_view routine;
  std::int32_t number;
  std::string_view words;
};

// The table, by routine and number. A routine that hands on another's numbers has none of its own
// for them.
[[nodiscard]] std::span<const status_row> status_rows() noexcept;

// What a status of a routine means, its own meaning first, then that of the routine whose numbers
// it hands on; blank for a number that has no words.
[[nodiscard]] std::string_view status_text(std::string_view routine, Status status) noexcept;

}  // namespace velmorankite
