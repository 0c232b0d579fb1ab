// The straight continuation of data by one cell into the gaps beside them.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "condition/gap_tables.h"
#include "condition/level_rows.h"

namespace velmorankite {

// Shortens the exterior gaps of more than three cells at the ends where two cells p and q of the
// lattice precede them: row by row upwards, along the row and then along the columns, the end cell
// takes 2p - q, or p where q is blank or the value would be none.
//   age  the mask that these cells get.
// Gives their number.
std::int64_t continue_into_gaps(LevelRows& rows, GapTables& tables, std::int8_t age);

}  // namespace velmorankite
