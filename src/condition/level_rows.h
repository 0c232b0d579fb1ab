// The nodes of one level of a fill, row by row, wherever they are held.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "grid/grid_rows.h"
#include "grid/lattice.h"

namespace velmorankite {

// Rows count from 1 at the lowest Y, whatever the order in which a file stores them, so that one
// grid stored in two senses fills alike.
class LevelRows {
 public:
  explicit LevelRows(const Lattice& lattice) : lattice_(lattice) {}
  virtual ~LevelRows() = default;
  LevelRows(const LevelRows&) = delete;
  LevelRows& operator=(const LevelRows&) = delete;

  [[nodiscard]] const Lattice& lattice() const noexcept { return lattice_; }
  [[nodiscard]] std::size_t width() const noexcept {
    return static_cast<std::size_t>(lattice_.x_count);
  }

  // The nodes of a row. The span stays good while rows less than `rows_kept` from it are asked
  // for.
  virtual std::span<float> row(std::int32_t row) = 0;
  // Room for the nodes of a row that is about to be written; what it holds is not defined.
  virtual std::span<float> fresh_row(std::int32_t row) { return this->row(row); }
  // Makes changes of a row last.
  virtual void keep(std::int32_t /*row*/) {}

  static constexpr std::int32_t rows_kept = 6;

 private:
  Lattice lattice_;
};

// A level that is held in memory as a whole, in an array that outlives it.
class MemoryRows final : public LevelRows {
 public:
  MemoryRows(const Lattice& lattice, std::span<float> cells) : LevelRows(lattice), cells_(cells) {}

  std::span<float> row(std::int32_t row) override {
    return cells_.subspan(static_cast<std::size_t>(row - 1) * width(), width());
  }

 private:
  std::span<float> cells_;
};

// The last few rows of a level that is held elsewhere.
class RowCache {
 public:
  explicit RowCache(std::size_t width);

  // The buffer of a row, and whether it holds that row already.
  struct entry {
    std::span<float> cells;
    bool present;
  };
  entry find(std::int32_t row);

 private:
  std::size_t width_;
  std::vector<float> cells_;
  std::array<std::int32_t, LevelRows::rows_kept> held_{};
};

// Where the input cells lie on the working lattice: input column 1, row 1 goes to column
// 1 + column_offset, row 1 + row_offset.
struct input_placement {
  RowLayout layout;  // of the input
  std::int32_t column_offset = 0;
  std::int32_t row_offset = 0;

  [[nodiscard]] bool has_row(std::int32_t row) const noexcept {
    return row > row_offset && row - row_offset <= layout.y_count;
  }
  // The part of a working row that the input's columns cover.
  template <typename T>
  [[nodiscard]] std::span<T> covered(std::span<T> cells) const noexcept {
    return cells.subspan(static_cast<std::size_t>(column_offset),
                         static_cast<std::size_t>(layout.x_count));
  }
  // Blanks the other columns of a working row.
  void blank_margin(std::span<float> cells) const;
};

// Reads one row of the working lattice from the input; what the input does not cover is dummy.
void read_placed_row(const RowFile& input, const input_placement& placement, std::int32_t row,
                     std::span<float> cells);

// Level 0 of a grid too large for memory: its rows come from the input file, which is never
// written, every time that they are asked for.
class InputRows final : public LevelRows {
 public:
  InputRows(const Lattice& lattice, const RowFile& input, const input_placement& placement)
      : LevelRows(lattice), input_(input), placement_(placement), cache_(width()) {}

  std::span<float> row(std::int32_t row) override;

 private:
  const RowFile& input_;
  input_placement placement_;
  RowCache cache_;
};

}  // namespace velmorankite
