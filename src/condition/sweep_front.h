// Which cells a sweep looks at in a row: the rim of the holes and what is still being smoothed.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <vector>

#include "condition/gap_tables.h"

namespace velmorankite {

// What the cell mask means while a sweep runs. Enclosed blanks on the list have bits of their own
// for the ends of their row gap that they are.
inline constexpr std::int8_t mask_exterior_listed = -2;
inline constexpr std::int8_t mask_enclosed_listed = 64;
inline constexpr std::int8_t mask_left_end = 1;
inline constexpr std::int8_t mask_right_end = 2;
inline constexpr std::int8_t oldest_age = 2;  // from here on a filled cell that is still smoothed

[[nodiscard]] constexpr bool is_exterior(std::int8_t mask) noexcept {
  return mask < mask_data;
}
[[nodiscard]] constexpr bool is_smoothed(std::int8_t mask) noexcept {
  return mask >= oldest_age && mask < mask_enclosed_listed;
}
[[nodiscard]] constexpr bool is_enclosed(std::int8_t mask) noexcept {
  return mask == mask_enclosed || mask >= mask_enclosed_listed;
}

// The lists of cells, one a row. A cell enters when it could get a value and stays until it has
// one, so that a pass costs the cells on the lists and a look at each row.
//
// A cell of an enclosed gap enters as an end of its row gap, or when the cell above or below has a
// value. An end that gets a value hands its part to its neighbour along the row; where that has a
// value already, the gap has no such end any more. An exterior blank enters when one of its eight
// neighbours has a value.
class SweepFront {
 public:
  // Lists what the first pass of a filling looks at. The tables' mask is used up.
  explicit SweepFront(GapTables& tables);

  // Lists the exterior blanks beside cells that have values, and the filled exterior cells. From
  // now on exterior blanks are listed too.
  void take_in_exterior();

  // Columns of the cells on the list of a row; to be shortened by those that are done.
  [[nodiscard]] std::vector<std::int32_t>& of_row(std::int32_t row) {
    return rows_[static_cast<std::size_t>(row)];
  }

  // A blank cell got a value, its mask is up to date: lists those that it opens the way to.
  //   before  its mask ahead of that.
  void note_filled(std::int32_t column, std::int32_t row, std::int8_t before);

 private:
  void list_end(std::int32_t column, std::int32_t row, std::int8_t end);
  void list_enclosed(std::int32_t column, std::int32_t row);
  void list_exterior(std::int32_t column, std::int32_t row);
  void list_gap(const cell_run& gap, std::int32_t row);
  void list_exterior_gap(const cell_run& gap, std::int32_t row);
  [[nodiscard]] bool touches_values(std::int32_t column, std::int32_t row) const;

  GapTables& tables_;
  bool exterior_ = false;
  std::vector<std::vector<std::int32_t>> rows_;
};

}  // namespace velmorankite
