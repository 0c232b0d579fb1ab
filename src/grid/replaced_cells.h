// A grid file whose cells are made anew while all else in it stays.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>

#include "grid/grid_rows.h"
#include "platform/scratch_file.h"

namespace velmorankite {

// The new state of a grid, beside it until it is complete: a failure on the way leaves the grid as
// it was.
class ReplacedCells {
 public:
  // Takes over what stands ahead of the cells, which are so many bytes behind so many of a header.
  // The grid must outlive this. Throws IoError.
  ReplacedCells(const platform::BinaryFile& grid, std::int64_t header_bytes,
                std::int64_t cell_bytes);
  explicit ReplacedCells(const RowFile& grid);

  // The new state: where the new cells go, and a header that changes.
  [[nodiscard]] platform::BinaryFile& file() noexcept { return output_.file(); }

  // Takes over what stands behind the cells and puts the new state in the grid's place, with its
  // permissions. Throws IoError.
  void commit();

 private:
  void copy_bytes(std::int64_t position, std::int64_t end);

  const platform::BinaryFile& grid_;
  std::int64_t cells_end_;
  platform::StagedFile output_;
};

}  // namespace velmorankite
