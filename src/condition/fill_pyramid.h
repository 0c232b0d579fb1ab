// The pyramid of coarser and coarser copies of a grid from which its blanks are filled.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "condition/level_interpolation.h"
#include "condition/level_rows.h"
#include "condition/level_store.h"
#include "grid/lattice.h"

namespace velmorankite {

// The smallest count along either axis that can be halved.
inline constexpr std::int32_t fewest_nodes = 4;

// Level 1 up to the first level with a count below 4: each has half the nodes of the one before
// and one more, from the same origin at twice the cell size.
[[nodiscard]] std::vector<Lattice> coarser_lattices(const Lattice& level_0);

// Gives every blank node of a grid a value: the pyramid is built by decimation, each level
// reaching one node further into the blanks than its data, up to a constant; on the way back down
// each blank node takes the bicubic interpolation of the level above it.
class FillPyramid {
 public:
  // `level_0` has at least 4 columns and rows and outlives the object.
  FillPyramid(LevelRows& level_0, const level_storage& storage);

  // Builds the coarser levels from level 0, which is only read; false if it has no valid node.
  [[nodiscard]] bool build();

  // Takes each row of level 0, from 1 at the lowest Y, when it is complete. May be empty.
  using row_sink = std::function<void(std::int32_t row, std::span<const float> cells)>;

  // Fills all levels, level 0 last; gives the number of nodes that got a value, over all of them.
  std::int64_t fill(const row_sink& sink);

 private:
  // Fills one level from the next coarser one, of which `complete` says that all nodes are valid.
  static fill_count fill_level(LevelRows& coarser, bool complete, LevelRows& level,
                               const row_sink& sink);
  // For a single valid cell, which is all that there is to fill from.
  std::int64_t fill_with_constant(const row_sink& sink);

  LevelRows& level_0_;
  LevelStore store_;
  std::vector<std::unique_ptr<LevelRows>> coarser_;  // [0] is level 1
  float constant_ = 0.0F;  // every node of the coarsest level, or every blank cell without any
};

}  // namespace velmorankite
