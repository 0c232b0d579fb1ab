// SPDX-License-Identifier: MIT
#include "condition/opened_grid.h"

#include "formats/describe_grid.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "platform/padded_text.h"

namespace velmorankite {

std::optional<opened_grid> open_float_grid(std::string_view name) {
  opened_grid grid;
  try {
    grid_texts texts;
    if (GRDRDH(name, grid.description, texts).failed()) {
      return std::nullopt;
    }
    grid.file = platform::BinaryFile(platform::without_padding(name), platform::open_mode::read);
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
  check_float_grid(grid.file, grid.description);
  return grid;
}

}  // namespace velmorankite
