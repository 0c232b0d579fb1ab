// The header of GXF, the grid exchange format: keyword lines, each with its value on the next line.
// SPDX-License-Identifier: MIT
#include <array>
#include <string>

#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

enum class gxf_value { none, integer, real, transform, grid };

struct gxf_keyword {
  std::string_view keyword;
  gxf_value kind;
  Status status;  // where the value cannot be read
  std::int32_t grid_ints::*integer = nullptr;
  double grid_reals::*real = nullptr;
};

// Tested in this order. A keyword counts wherever it stands in the line.
constexpr gxf_keyword gxf_keywords[] = {
    {"TITLE", gxf_value::none, success},
    {"POINTS", gxf_value::integer, gxf_points_unread, &grid_ints::x_count},
    {"ROWS", gxf_value::integer, gxf_rows_unread, &grid_ints::y_count},
    {"PTSEP", gxf_value::real, gxf_point_separation_unread, nullptr, &grid_reals::x_cell},
    {"RWSEP", gxf_value::real, gxf_row_separation_unread, nullptr, &grid_reals::y_cell},
    {"ROT", gxf_value::real, gxf_rotation_unread, nullptr, &grid_reals::rotation},
    {"SENSE", gxf_value::integer, gxf_sense_unread, &grid_ints::storage_sense},
    {"UNIT", gxf_value::none, success},
    {"GTYPE", gxf_value::integer, gxf_type_unread, &grid_ints::element_code},
    {"XOR", gxf_value::real, gxf_x_origin_unread, nullptr, &grid_reals::x_min},
    {"YOR", gxf_value::real, gxf_y_origin_unread, nullptr, &grid_reals::y_min},
    {"ZMIN", gxf_value::real, gxf_z_minimum_unread, nullptr, &grid_reals::z_min},
    {"ZMAX", gxf_value::real, gxf_z_maximum_unread, nullptr, &grid_reals::z_max},
    {"TRANSF", gxf_value::transform, gxf_transform_unread},
    {"DUMMY", gxf_value::real, gxf_dummy_unread, nullptr, &grid_reals::dummy_value},
    {"#GRID", gxf_value::grid, success},
};

const gxf_keyword* find_keyword(const HeaderLines& lines) {
  for (const gxf_keyword& row : gxf_keywords) {
    if (lines.holds(row.keyword)) {
      return &row;
    }
  }
  return nullptr;
}

// Keywords of the map projection and the units, and any other that this reader has no use for:
// they have as many value lines as stand ahead of the next "#", and their own words ("#MAP_
// DATUM_TRANSFORM") must not be taken for a keyword that counts.
bool is_foreign(const HeaderLines& lines, const gxf_keyword* keyword) {
  const std::string& line = lines.line();
  return line.starts_with("#MAP_") || line.starts_with("#UNIT_LENGTH") ||
         (line.starts_with("#") && keyword == nullptr);
}

// Scale and base, parted by the first blank, in single precision.
bool read_transform(HeaderLines& lines, grid_reals& reals) {
  if (!lines.next()) {
    return true;
  }
  const std::string_view line = lines.line();
  float scale = 1.0F;
  float base = 0.0F;
  if (!read_number(line.substr(0, line.find(' ')), scale) || scale == 0.0F ||
      !read_number(behind_blank(line), base)) {
    return false;
  }
  reals.z_mult = static_cast<double>(1.0F / scale);
  reals.z_base = static_cast<double>(base);
  return true;
}

// False where the value is no number. The end of the file is left to the next line's read.
bool read_value(HeaderLines& lines, const gxf_keyword& row, grid_description& grid) {
  std::string dropped;
  switch (row.kind) {
    case gxf_value::none:
      (void)lines.reader().next_line(dropped);
      return true;
    case gxf_value::transform:
      return read_transform(lines, grid.reals);
    case gxf_value::integer: {
      const platform::list_item item = &(grid.ints.*row.integer);
      return platform::read_list(lines.reader(), std::span(&item, 1)) !=
             platform::list_result::malformed;
    }
    case gxf_value::real: {
      const platform::list_item item = &(grid.reals.*row.real);
      return platform::read_list(lines.reader(), std::span(&item, 1)) !=
             platform::list_result::malformed;
    }
    case gxf_value::grid:
      break;
  }
  return true;
}

void finish(grid_description& grid) {
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  // POINTS and ROWS speak of stored lines; only these two senses are turned.
  if (ints.storage_sense == -1 || ints.storage_sense == 2) {
    std::swap(ints.x_count, ints.y_count);
    std::swap(reals.x_cell, reals.y_cell);
    reals.y_cell = static_cast<double>(static_cast<float>(reals.y_cell));
  }
  reals.x_max = reals.x_min + (ints.x_count - 1.0) * reals.x_cell;
  reals.y_max = reals.y_min + (ints.y_count - 1.0) * reals.y_cell;
  for (double* limit : {&reals.z_min, &reals.z_max}) {
    if (*limit > static_cast<double>(valid_threshold)) {
      *limit = *limit / reals.z_mult + reals.z_base;
    }
  }
  reals.z_mid = reals.dummy_value;
  reals.z_spread = reals.dummy_value;
}

}  // namespace

Status read_gxf_header(header_source& source, grid_description& grid, grid_texts&) {
  grid.reals.x_cell = 1.0;
  grid.reals.y_cell = 1.0;
  grid.reals.dummy_value = static_cast<double>(dummy);
  grid.ints.storage_sense = 1;
  grid.ints.element_kind = kind_float;
  HeaderLines lines(*source.text);
  bool dropping = false;
  while (lines.next()) {
    if (lines.blank() || (dropping && !lines.line().starts_with("#"))) {
      continue;
    }
    const gxf_keyword* const keyword = find_keyword(lines);
    dropping = is_foreign(lines, keyword);
    if (dropping || keyword == nullptr) {
      continue;
    }
    if (keyword->kind == gxf_value::grid) {
      finish(grid);
      return success;
    }
    if (!read_value(lines, *keyword, grid)) {
      return keyword->status;
    }
    if (grid.ints.element_code > 0) {
      grid.ints.element_kind = kind_signed;  // coded cells are integers
    }
  }
  return gxf_ended_early;
}

}  // namespace velmorankite
