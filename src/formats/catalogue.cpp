// SPDX-License-Identifier: MIT
#include "formats/catalogue.h"

#include "formats/format_traits.h"

namespace velmorankite {

void GET_NUM_SUPPORTED_GRID_FORMATS(std::int32_t& count) noexcept {
  count = all_formats().back().code;
}

Status GET_GRID_FORMAT_NAME(std::int32_t code, std::string& name, std::string& mask) {
  if (code == 0) {
    return success;
  }
  grid_ints ints;
  ints.format_code = code;
  const format_traits& row = traits_of(ints);
  name = row.name;
  mask = row.mask;
  return row.code == code ? success : format_uncatalogued;
}

}  // namespace velmorankite
