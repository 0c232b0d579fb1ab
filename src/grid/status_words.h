// The words behind the status numbers, for messages and for the documentation.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "grid/status.h"

namespace velmorankite {

// Formats of which a meaning speaks alone, by their codes in the catalogue, and the name that they
// have together where the format of a file is not known.
struct format_group {
  std::string_view name;
  std::array<std::int32_t, 3> codes;  // 0: no more
};

// One number of one routine, as the constant beside the routine names it. A blank routine stands
// for all of the C interface.
struct status_row {
  std::string_view routine;
  Status status;
  std::string_view words;
  const format_group* formats = nullptr;  // none: for all formats
};

// Numbers that count something: base - n speaks of the n-th, down to `last`. A number that has a
// row of its own means that.
struct status_family {
  std::string_view routine;
  std::int32_t base;
  std::int32_t last;
  std::string_view before;  // words ahead of the count, and behind it
  std::string_view behind;
  const format_group* formats = nullptr;
  std::int32_t first_count = 1;
};

// A routine that hands on another's numbers has no rows of its own for them.
struct status_handover {
  std::string_view routine;
  std::string_view numbers_of;
};

// What the routines of one floor mean by their numbers. Each floor has its table and goes on with
// that of the floor below it, so that the table of the highest has all.
struct status_table {
  std::span<const status_row> rows;
  std::span<const status_family> families;
  std::span<const status_handover> handovers;
  const status_table* below = nullptr;
};

// What a status of a routine means: its own meaning first, then that of the routine whose numbers
// it hands on, then that of the whole C interface; "status N" for a number without words.
//   table        of the routine's floor or of a higher one.
//   format_code  of the grid at hand: of several meanings of a number that for its format, or else
//                that for all formats. 0: not known; all meanings, each with its formats.
[[nodiscard]] std::string status_words(const status_table& table, std::string_view routine,
                                       Status status, std::int32_t format_code = 0);

// The routines of this floor.
extern const status_table grid_statuses;

}  // namespace velmorankite
