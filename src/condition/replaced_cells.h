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
  // Takes over what stands ahead of the cells. The grid must outlive this. Throws IoError.
  explicit ReplacedCells(const RowFile& grid);

  // Where the new cells go, as the layout of the grid says.
  [[nodiscard]] platform::BinaryFile& file() noexcept { return output_.file(); }

  // Takes over what stands behind the cells and puts the new state in the grid's place, with its
  // permissions. Throws IoError.
  void commit();

 private:
  void copy_bytes(std::int64_t position, std::int64_t end);

  const RowFile& grid_;
  std::filesystem::perms permissions_;
  platform::StagedFile output_;
};

}  // namespace velmorankite
