// Room for the coarser levels of a fill, in memory or in level files.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <vector>

#include "condition/level_rows.h"
#include "grid/lattice.h"
#include "platform/keep_apart.h"
#include "platform/large_array.h"

namespace velmorankite {

// The limit on cells of a level in memory that leaves it to the system to say when there is none.
inline constexpr std::int64_t while_memory_lasts = std::numeric_limits<std::int64_t>::max();

// How levels are held.
struct level_storage {
  std::int64_t most_cells_in_memory = while_memory_lasts;  // a level with more is held by rows
  std::int32_t storage_sense = sense_bottom_up;            // of level files
  float minimum = 0.0F;                                    // for the headers of level files
  float maximum = 0.0F;
  platform::named_files kept;  // what no level file may replace
};

// As many levels as there is room for are held in memory, the coarsest before all others.
class LevelStore {
 public:
  //   lattices  level 1 and those that follow it.
  LevelStore(std::vector<Lattice> lattices, level_storage storage);

  // Number of levels behind level 0.
  [[nodiscard]] std::size_t level_count() const noexcept { return lattices_.size(); }

  // Level `number`, from 1; it may not outlive the store. A level that is held by rows lies in
  // "mmap_level_001.grd" (the number in its three digits) in the current directory, under an
  // exclusive lock; the file is deleted with the level. Throws IoError if another run in this
  // directory has it.
  [[nodiscard]] std::unique_ptr<LevelRows> make(std::size_t number);

 private:
  std::vector<Lattice> lattices_;
  level_storage storage_;
  std::size_t by_rows_ = 0;  // levels 1 to this one are held by rows
  // All others, one after the other: on pages of their own, small levels would cost more than the
  // work on them.
  platform::LargeArray<float> cells_;
};

}  // namespace velmorankite
