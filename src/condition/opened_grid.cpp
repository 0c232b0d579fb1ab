// SPDX-License-Identifier: MIT
#include "condition/opened_grid.h"

#include <utility>

#include "formats/describe_grid.h"
#include "platform/io_error.h"
#include "platform/padded_text.h"

namespace velmorankite {

std::optional<opened_grid> open_float_grid(std::string_view name) {
  grid_description description;
  platform::BinaryFile file;
  try {
    grid_texts texts;
    if (GRDRDH(name, description, texts).failed()) {
      return std::nullopt;
    }
    file = platform::BinaryFile(platform::without_padding(name), platform::open_mode::read);
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
  check_float_grid(file, description);
  return opened_grid{description, {std::move(file), layout_of(description)}};
}

}  // namespace velmorankite
