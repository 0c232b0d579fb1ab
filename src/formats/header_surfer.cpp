// Surfer 7: a chain of tagged sections, of which the second tells the lattice.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <string_view>

#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/text_helpers.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

constexpr std::size_t tag_bytes = 8;       // 4 characters and a length, which is not used
constexpr std::int64_t version_bytes = 4;  // behind the tag "DSRB"
constexpr std::size_t grid_bytes = 72;     // behind the tag "GRID"
constexpr std::int32_t first_cell = 100;   // of a file with the usual three sections
constexpr std::int64_t longest_header = 4096;

void take_grid_section(std::span<const std::byte, grid_bytes> bytes, grid_description& grid) {
  const auto decoded = [bytes](std::size_t offset) {
    return DECODE_VULCAN_BINARY(&bytes[offset], decode_little_endian);
  };
  grid_reals& reals = grid.reals;
  grid.ints.y_count = platform::load<std::int32_t>(&bytes[0]);
  grid.ints.x_count = platform::load<std::int32_t>(&bytes[4]);
  reals.x_min = decoded(8);
  reals.y_min = decoded(16);
  reals.x_cell = decoded(24);
  reals.y_cell = decoded(32);
  reals.z_min = decoded(40);
  reals.z_max = decoded(48);
  reals.rotation = decoded(56);
  reals.dummy_value = decoded(64);
  reals.z_mid = reals.dummy_value;
  reals.z_spread = reals.dummy_value;
  reals.x_max = (grid.ints.x_count - 1.0) * reals.x_cell + reals.x_min;
  reals.y_max = (grid.ints.y_count - 1.0) * reals.y_cell + reals.y_min;
}

}  // namespace

Status read_surfer_7_header(header_source& source, grid_description& grid, grid_texts&) {
  grid.ints.data_offset = first_cell;
  grid.ints.element_code = 8;
  grid.ints.storage_sense = 1;
  grid.ints.element_kind = kind_float;
  std::int64_t position = 1;
  while (position <= longest_header) {
    std::array<std::byte, tag_bytes> tag{};
    if (!read_header_bytes(source, position, tag)) {
      return header_too_short;
    }
    position += static_cast<std::int64_t>(tag_bytes);
    const std::string_view name(reinterpret_cast<const char*>(tag.data()), 4);
    if (name == "DSRB") {
      position += version_bytes;
    } else if (name == "GRID") {
      std::array<std::byte, grid_bytes> bytes{};
      if (!read_header_bytes(source, position, bytes)) {
        return header_too_short;
      }
      position += static_cast<std::int64_t>(grid_bytes);
      take_grid_section(bytes, grid);
    } else {
      const bool sound = name == "DATA" && grid.ints.x_count >= 1 && grid.ints.y_count >= 1;
      return sound ? success : surfer_7_sections_unsound;
    }
  }
  return surfer_7_sections_unsound;
}

}  // namespace velmorankite
