// Elevation tiles on whole degrees: their south-west corner stands in the file's name, or in a
// DTED header.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "formats/catalogue.h"
#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/text_helpers.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

constexpr std::int32_t count_3_arcs = 1201;
constexpr std::int32_t count_1_arc = 3601;

// Hemisphere and degrees of latitude, then the letter of the longitude and its degrees:
// S33W071. `name` is the file's own name as far as the first dot.
Status place_corner(std::string_view name, grid_reals& reals) {
  const char latitude_letter = name.empty() ? ' ' : name.front();
  name.remove_prefix(std::min<std::size_t>(name.size(), 1));
  std::size_t letter = name.find('E');
  if (letter == std::string_view::npos) {
    letter = name.find('W');
  }
  if (letter == std::string_view::npos) {
    return tile_name_without_longitude;
  }
  if (!read_number(name.substr(0, letter), reals.y_min) ||
      !read_number(name.substr(letter + 1), reals.x_min)) {
    return number_unreadable;
  }
  reals.y_min = latitude_letter == 'S' ? -reals.y_min : reals.y_min;
  reals.x_min = name[letter] == 'W' ? -reals.x_min : reals.x_min;
  return success;
}

std::string name_of_tile(const header_source& source) {
  const std::string path = source.file.path.string();
  const std::string_view name = own_name(path);
  return std::string(name.substr(0, name.find('.')));
}

void span_degrees(double degrees, grid_reals& reals) {
  reals.x_max = reals.x_min + degrees;
  reals.y_max = reals.y_min + degrees;
}

void set_degree_tile(grid_description& grid) {
  span_degrees(1.0, grid.reals);
  grid.reals.x_cell = 1.0 / (grid.ints.x_count - 1.0);
  grid.reals.y_cell = 1.0 / (grid.ints.y_count - 1.0);
}

}  // namespace

Status read_degree_tile_name(header_source& source, grid_description& grid, grid_texts&) {
  const std::int32_t count =
      grid.ints.format_code == format_tile_3_arcs ? count_3_arcs : count_1_arc;
  grid.ints.x_count = count;
  grid.ints.y_count = count;
  grid.ints.element_code = -2;
  grid.ints.storage_sense = -2;
  grid.ints.element_kind = kind_signed;
  grid.reals.dummy_value = -32768.0;
  std::string name = name_of_tile(source);
  FUPPER(name);
  std::replace(name.begin(), name.end(), '_', ' ');
  const Status status = place_corner(name, grid.reals);
  set_degree_tile(grid);
  return status;
}

Status read_geodesy_tile_name(header_source& source, grid_description& grid, grid_texts&) {
  constexpr double tile_degrees = 5.0;
  constexpr double cell_degrees = 0.002;
  grid.ints.storage_sense = -1;
  grid.reals.x_cell = cell_degrees;
  grid.reals.y_cell = cell_degrees;
  grid.reals.dummy_value = grid.ints.element_code == -2 ? -32768.0 : -2147483648.0;
  // The letters must be capitals here: the name is taken as it stands.
  const Status status = place_corner(name_of_tile(source), grid.reals);
  span_degrees(tile_degrees, grid.reals);
  return status;
}

Status read_dted_header(header_source& source, grid_description& grid, grid_texts&) {
  std::array<std::byte, 56> bytes{};
  if (!read_header_bytes(source, 1, bytes)) {
    return header_too_short;
  }
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  // Degrees, minutes and seconds as one number: DDDMMSS.
  double longitude = 0.0;
  double latitude = 0.0;
  if (!read_number(text.substr(4, 7), longitude) || !read_number(text.substr(12, 7), latitude) ||
      !read_number(text.substr(47, 4), grid.ints.x_count) ||
      !read_number(text.substr(51, 4), grid.ints.y_count)) {
    return number_unreadable;
  }
  constexpr double degree = 10000.0;
  grid.ints.element_code = -2;
  grid.ints.storage_sense = -1;
  grid.ints.element_kind = kind_signed;
  grid.reals.x_min = (text[11] == 'W' ? -longitude : longitude) / degree;
  grid.reals.y_min = (text[19] == 'S' ? -latitude : latitude) / degree;
  grid.reals.dummy_value = -1.0;
  set_degree_tile(grid);
  return success;
}

}  // namespace velmorankite
