// The keyword lines ahead of an ArcInfo ASCII grid, and the ".hdr" file beside a float grid.
// SPDX-License-Identifier: MIT
#include <string>

#include "formats/catalogue.h"
#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/cell_position.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

struct arc_header {
  grid_description& grid;
  bool float_grid = false;    // the ".hdr" of a float grid
  bool from_top = false;      // ULYMAP gives the highest row
  bool corner_early = false;  // a corner stands ahead of the cell size
  bool placed = false;        // an origin has been read
};

using arc_action = bool (*)(arc_header&, std::string_view value);

template <auto field>
bool int_value(arc_header& h, std::string_view value) {
  return read_number(value, h.grid.ints.*field);
}

template <auto field>
bool real_value(arc_header& h, std::string_view value) {
  return read_number(value, h.grid.reals.*field);
}

template <auto field>
bool origin(arc_header& h, std::string_view value) {
  h.placed = true;
  return read_number(value, h.grid.reals.*field);
}

// A corner of the outer cell becomes its centre by the cell size known so far.
template <auto field, auto cell>
bool corner(arc_header& h, std::string_view value) {
  const double cell_size = h.grid.reals.*cell;
  h.corner_early = h.corner_early || cell_size == 0.0;
  const bool read = origin<field>(h, value);
  h.grid.reals.*field += cell_size * 0.5;
  return read;
}

bool cell_size(arc_header& h, std::string_view value) {
  const bool read = read_number(value, h.grid.reals.x_cell);
  h.grid.reals.y_cell = h.grid.reals.x_cell;
  return read;
}

bool top_row(arc_header& h, std::string_view value) {
  h.from_top = true;
  return origin<&grid_reals::y_max>(h, value);
}

// LSBFIRST or I, MSBFIRST or M.
bool byte_order(arc_header& h, std::string_view value) {
  h.grid.ints.element_code = trimmed_text(value).starts_with('M') ? -4 : 4;
  return true;
}

struct arc_keyword {
  std::string_view keyword;
  bool float_grid_only;
  arc_action act;
};

// Tested in this order, wherever they stand in a line; the value is what follows the first blank.
constexpr arc_keyword arc_keywords[] = {
    {"NCOLS", false, int_value<&grid_ints::x_count>},
    {"NROWS", false, int_value<&grid_ints::y_count>},
    {"CELLSIZE", false, cell_size},
    {"XLLCEN", false, origin<&grid_reals::x_min>},
    {"YLLCEN", false, origin<&grid_reals::y_min>},
    {"XLLCOR", false, corner<&grid_reals::x_min, &grid_reals::x_cell>},
    {"YLLCOR", false, corner<&grid_reals::y_min, &grid_reals::y_cell>},
    {"NODATA", false, real_value<&grid_reals::dummy_value>},
    {"ULXMAP", true, origin<&grid_reals::x_min>},
    {"ULYMAP", true, top_row},
    {"XDIM", true, real_value<&grid_reals::x_cell>},
    {"YDIM", true, real_value<&grid_reals::y_cell>},
    {"BYTEORDER", true, byte_order},
};

const arc_keyword* find_keyword(const HeaderLines& lines, const arc_header& h) {
  for (const arc_keyword& row : arc_keywords) {
    if (lines.holds(row.keyword) && (h.float_grid || !row.float_grid_only)) {
      return &row;
    }
  }
  return nullptr;
}

bool is_complete(const arc_header& h) {
  const grid_ints& ints = h.grid.ints;
  return ints.x_count > 0 && ints.y_count > 0 && h.grid.reals.x_cell > 0.0 &&
         h.grid.reals.y_cell > 0.0 && h.placed;
}

void finish(arc_header& h, grid_texts& texts) {
  const grid_ints& ints = h.grid.ints;
  grid_reals& reals = h.grid.reals;
  reals.x_max = reals.x_min + (ints.x_count - 1.0) * reals.x_cell;
  if (h.from_top) {
    reals.y_min = reals.y_max - (ints.y_count - 1.0) * reals.y_cell;
  } else {
    reals.y_max = reals.y_min + (ints.y_count - 1.0) * reals.y_cell;
  }
  if (h.corner_early) {
    texts.advice.emplace_back(
        "the corner lines stand ahead of the CELLSIZE line, so the corner is taken as the centre "
        "of the first cell and the grid lies half a cell from where its writer meant it; move the "
        "CELLSIZE line ahead of XLLCORNER and YLLCORNER");
  }
}

}  // namespace

Status read_arcinfo_header(header_source& source, grid_description& grid, grid_texts& texts) {
  arc_header header{grid, grid.ints.format_code == format_float_cells};
  grid.ints.element_code = 4;
  grid.ints.storage_sense = sense_top_down;
  grid.ints.element_kind = header.float_grid ? kind_float : kind_signed;
  HeaderLines lines(*source.text);
  std::int32_t line_count = 0;
  bool begun = false;  // a keyword has been seen; what stands ahead of the first is passed over
  bool ended = false;
  while (!ended && lines.next()) {
    ++line_count;
    if (lines.blank()) {
      continue;
    }
    const arc_keyword* const keyword = find_keyword(lines, header);
    if (keyword != nullptr) {
      begun = true;
      if (!keyword->act(header, behind_blank(lines.line()))) {
        return number_unreadable;
      }
    } else if (begun) {
      // For an ASCII grid this is the first row of cells. The file beside a float grid may hold
      // lines of other programs between those that are needed.
      ended = !header.float_grid || is_complete(header);
    }
  }
  // The file beside a float grid may end with its last keyword.
  if (!ended && !(header.float_grid && is_complete(header))) {
    return arcinfo_ended_early;
  }
  grid.ints.data_offset = header.float_grid ? 0 : line_count - 1;
  finish(header, texts);
  return success;
}

}  // namespace velmorankite
