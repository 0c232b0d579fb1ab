// SPDX-License-Identifier: MIT
#include "formats/stored_lines.h"

#include <algorithm>
#include <cstdlib>

#include "formats/format_traits.h"

namespace velmorankite {
namespace {

// Geopak: one 16-bit word that is no cell ahead of every 64 cells.
constexpr std::int64_t geopak_bytes(std::int64_t cells) {
  constexpr std::int64_t cells_per_group = 64;
  constexpr std::int64_t word = 2;
  return word * (cells + (cells - 1) / cells_per_group + 1);
}

}  // namespace

stored_lines stored_lines_of(const grid_ints& ints) noexcept {
  const bool columns = stores_columns(ints.storage_sense);
  stored_lines lines;
  lines.count = std::max(columns ? ints.x_count : ints.y_count, 0);
  lines.length = std::max(columns ? ints.y_count : ints.x_count, 0);
  const line_form form = traits_of(ints).lines;
  if (form == line_form::grouped) {
    lines.bytes = lines.stride = geopak_bytes(lines.length);
    return lines;
  }
  lines.bytes = lines.stride = std::abs(std::int64_t{ints.element_code}) * lines.length;
  if (form == line_form::framed) {
    lines.stride += std::int64_t{ints.aux_1} + ints.aux_2;
  }
  return lines;
}

}  // namespace velmorankite
