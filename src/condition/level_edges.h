// The ends of the data along each column and row of a level, and the level's extension beyond them.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <vector>

#include "condition/level_rows.h"
#include "condition/line_ends.h"
#include "grid/lattice.h"

namespace velmorankite {

// Only the outer ends of a column or row are extended; holes inside it are not. Each level builds
// on the extended level below it, so that coverage grows from level to level.
class LevelEdges {
 public:
  //   reach  nodes by which the data are extended, 1 or 2.
  LevelEdges(const Lattice& lattice, std::int32_t reach);

  // Notes the valid nodes of a row; rows come in order, from 1.
  void record(std::int32_t row, std::span<const float> cells) { ends_.note_row(row, cells); }

  // Gives the nodes just beyond the ends of each column the value at the end, then, over these,
  // those beyond the ends of each row. Ends on the outermost nodes stay as they are.
  void extend(LevelRows& level) const;

 private:
  // A node beyond the data of its column, and the value at the end of them.
  struct extension {
    std::int32_t row;
    std::int32_t column;
    float value;
  };

  [[nodiscard]] std::vector<extension> column_extensions() const;
  [[nodiscard]] bool extends_row(std::int32_t row) const;
  void extend_row(std::int32_t row, std::span<float> cells) const;

  std::int32_t column_count_;
  std::int32_t row_count_;
  std::int32_t reach_;
  line_ends ends_;  // a line without a valid node has none, and is not extended
};

}  // namespace velmorankite
