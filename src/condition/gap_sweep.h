// Filling gaps from their rims inwards, a layer of cells a pass.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "condition/gap_tables.h"
#include "condition/level_rows.h"
#include "grid/dummy.h"

namespace velmorankite {

struct sweep_plan {
  bool extend = false;          // fill exterior gaps too, outwards until the lattice is full
  float background = dummy;     // what values are drawn to with distance from the data
  std::int32_t pass_limit = 0;  // above 0: an extension ends after the first pass beyond it
};

// Gives the blank cells of enclosed gaps, and of all gaps where it extends, weighted means of the
// valid cells within two columns and rows. Passes go up and down in turn; a mean is taken of the
// values of the pass before. Cells that a pass fills are drawn to the background, not at all in the
// first two passes and wholly from half the lattice's longer side on. An extension begins with the
// straight continuation of rows and columns by one cell into gaps of more than three, and filled
// exterior cells are taken anew for some passes.
//   rows    the lattice of the tables; rows count in the order in which they are stored, which the
//           passes follow. Blank cells that get no value stay as they are.
//   tables  those of these rows, with a valid cell among them. The mask is used up.
// Gives the number of blank cells that a mean filled; those of the continuation are not counted. A
// pass costs the cells on the rims and those that are smoothed. A mean that is no valid number is
// not stored.
std::int64_t GRDSWEEP(LevelRows& rows, GapTables& tables, const sweep_plan& plan);

}  // namespace velmorankite
