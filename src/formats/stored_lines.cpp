// SPDX-License-Identifier: MIT
#include "formats/stored_lines.h"

#include <algorithm>
#include <cstdlib>

#include "formats/catalogue.h"

namespace velmorankite {
namespace {

// Geopak: one 16-bit word that is no cell ahead of every 64 cells.
constexpr std::int64_t geopak_bytes(std::int64_t cells) {
  constexpr std::int64_t cells_per_group = 64;
  constexpr std::int64_t word = 2;
  return word * (cells + (cells - 1) / cells_per_group + 1);
}

// The formats whose lines stand between bytes of their own.
constexpr bool frames_its_lines(std::int32_t format_code) {
  return format_code == format_standard || format_code == format_tile_3_arcs ||
         format_code == format_tile_1_arc;
}

}  // namespace

stored_lines stored_lines_of(const grid_ints& ints) noexcept {
  const bool columns = stores_columns(ints.storage_sense);
  stored_lines lines;
  lines.count = std::max(columns ? ints.x_count : ints.y_count, 0);
  lines.length = std::max(columns ? ints.y_count : ints.x_count, 0);
  if (ints.format_code == format_geopak) {
    lines.bytes = lines.stride = geopak_bytes(lines.length);
    return lines;
  }
  lines.bytes = lines.stride = std::abs(std::int64_t{ints.element_code}) * lines.length;
  if (frames_its_lines(ints.format_code)) {
    lines.stride += std::int64_t{ints.aux_1} + ints.aux_2;
  }
  return lines;
}

bool has_cells_in_place(const grid_ints& ints) noexcept {
  constexpr std::int32_t surfer_text_mark = 1;
  switch (ints.format_code) {
    case format_standard:
      return ints.element_code >= 0 || ints.data_offset != 512;
    case format_surfer_6:
      return ints.element_code != surfer_text_mark;
    case format_grid_binary:
    case format_geosolutions:
    case format_encom:
    case format_geopak:
    case format_surfer_7:
    case format_tile_3_arcs:
    case format_tile_1_arc:
    case format_float_cells:
    case format_geodass:
    case format_vulcan:
    case format_netcdf:
    case format_gmt:
    case format_newmont:
    case format_geodesy:
      return true;
    default:
      return false;
  }
}

}  // namespace velmorankite
