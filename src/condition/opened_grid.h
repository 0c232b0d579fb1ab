// A standard grid as the input of a conditioning routine.
// SPDX-License-Identifier: MIT
#pragma once
#include <optional>
#include <string_view>

#include "formats/grid_description.h"
#include "grid/grid_rows.h"

namespace velmorankite {

struct opened_grid {
  grid_description description;
  RowFile rows;
};

// Describes a grid of 4-byte floats and opens it for reading. Nothing where it cannot be described
// or opened. Throws IoError for a file that is not what its header says.
[[nodiscard]] std::optional<opened_grid> open_float_grid(std::string_view name);

}  // namespace velmorankite
