// The header of the plain standard grid, taken field by field so that compressed files and files
// with 8-byte cells can be described too.
// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/stored_lines.h"
#include "grid/cell_position.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

using platform::load;

// The first word of the statistics says whether they are known.
bool statistics_unknown(const std::byte* first, std::int32_t kind, std::int32_t element_size) {
  // 00 80 FF FF: the dummy of 16-bit cells as some writers widen it.
  constexpr std::uint32_t widened_dummy = 0xFFFF8000U;
  if (load<std::uint32_t>(first) == widened_dummy) {
    return true;
  }
  if (kind == kind_float) {
    const auto value = load<float>(first);
    return !std::isfinite(value) || value < valid_threshold;
  }
  const bool size_known = element_size == 1 || element_size == 2 || element_size == 4;
  return size_known && load<std::int32_t>(first) == unknown_statistic(element_size);
}

void read_statistics(const std::byte* words, std::int32_t element_size, grid_description& grid) {
  const std::int32_t kind = grid.ints.element_kind;
  grid_reals& reals = grid.reals;
  const bool unknown = statistics_unknown(words, kind, element_size);
  const auto true_value = [&](std::size_t index) {
    const std::byte* const word = words + 4 * index;
    const double stored = kind == kind_float ? static_cast<double>(load<float>(word))
                                             : static_cast<double>(load<std::int32_t>(word));
    return unknown ? reals.dummy_value : stored / reals.z_mult + reals.z_base;
  };
  reals.z_min = true_value(0);
  reals.z_max = true_value(1);
  reals.z_mid = true_value(2);
  reals.z_spread = true_value(3);
}

void place_lattice(std::int32_t per_row, std::int32_t rows, double spacing, double row_spacing,
                   grid_description& grid) {
  if (stores_columns(grid.ints.storage_sense)) {
    grid.ints.x_count = rows;
    grid.ints.y_count = per_row;
    grid.reals.x_cell = row_spacing;
    grid.reals.y_cell = static_cast<double>(static_cast<float>(spacing));
  } else {
    grid.ints.x_count = per_row;
    grid.ints.y_count = rows;
    grid.reals.x_cell = spacing;
    grid.reals.y_cell = row_spacing;
  }
  grid.reals.x_max = (grid.ints.x_count - 1.0) * grid.reals.x_cell + grid.reals.x_min;
  grid.reals.y_max = (grid.ints.y_count - 1.0) * grid.reals.y_cell + grid.reals.y_min;
}

}  // namespace

Status read_standard_header(header_source& source, grid_description& grid, grid_texts&) {
  std::array<std::byte, standard_header_bytes> bytes{};
  if (!read_header_bytes(source, 1, bytes)) {
    return header_too_short;
  }
  // The recognition let bytes 0 and 1 pass: a size of 1, 2, 4 or 8, and a marker of 0 or 4.
  const auto element_size = std::to_integer<std::int32_t>(bytes[0]);
  const bool compressed = bytes[1] != std::byte{0};

  grid.ints.data_offset = standard_header_bytes;
  grid.ints.element_code = compressed ? -element_size : element_size;
  grid.ints.element_kind = load<std::int32_t>(&bytes[4]);
  grid.ints.storage_sense = load<std::int32_t>(&bytes[16]);
  grid.ints.band_select = load<std::int32_t>(&bytes[184]);  // the header's process flag
  grid.reals.x_min = load<double>(&bytes[36]);
  grid.reals.y_min = load<double>(&bytes[44]);
  grid.reals.z_base = load<double>(&bytes[60]);
  grid.reals.z_mult = load<double>(&bytes[68]);
  grid.reals.dummy_value = dummy_of_cells(grid.ints.element_kind, element_size);
  place_lattice(load<std::int32_t>(&bytes[8]), load<std::int32_t>(&bytes[12]),
                load<double>(&bytes[20]), load<double>(&bytes[28]), grid);
  read_statistics(&bytes[160], element_size, grid);
  return success;
}

}  // namespace velmorankite
