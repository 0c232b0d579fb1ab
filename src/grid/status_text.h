// The words behind the status numbers, for messages and for the documentation.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string>
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

// Numbers that count something: base - n speaks of the n-th, down to `last`. A number that has a
// row of its own means that.
struct status_family {
  std::string_view routine;
  std::int32_t base;
  std::int32_t last;
  std::string_view before;  // words ahead of the count, and behind it
  std::string_view behind;
};

[[nodiscard]] std::span<const status_family> status_families() noexcept;

// What a status of a routine means, its own meaning first, then that of the routine whose numbers
// it hands on; blank for a number that has no words of its own.
[[nodiscard]] std::string_view status_text(std::string_view routine, Status status) noexcept;

// The same with the words of families, and "status N" for a number without any.
[[nodiscard]] std::string status_words(std::string_view routine, Status status);

}  // namespace velmorankite
