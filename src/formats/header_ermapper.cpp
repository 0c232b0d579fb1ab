// The header of ER Mapper rasters (".ers"); the cells lie in a file of their own.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>

#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

constexpr int fewest_items = 7;
constexpr double origin_not_given = -99999.0;
constexpr std::int32_t most_bands = 65536;

// The header while it is read.
struct ers_header {
  grid_description& grid;
  grid_texts& texts;
  HeaderLines lines;
  double origin_x = origin_not_given;
  double origin_y = origin_not_given;
  std::string datum{};
  std::string projection{};
  int items = 0;
  std::size_t bands_named = 0;
  bool big_endian = false;
  bool skipping = false;
  bool registered = false;
  bool geographic = false;
  bool raw = false;
  bool ended = false;
};

using ers_action = bool (*)(ers_header&, std::string_view value);

std::string quoted(std::string_view value) {
  const std::size_t first = value.find('"');
  const std::size_t last = value.rfind('"');
  if (first == std::string_view::npos || last == first) {
    return std::string(trimmed_text(value));
  }
  return std::string(trimmed_text(value.substr(first + 1, last - first - 1)));
}

bool coordinate_type(ers_header& h, std::string_view value) {
  if (value.find("LATLONG") != std::string_view::npos ||
      value.find("LL") != std::string_view::npos) {
    h.geographic = true;
  } else if (value.find("RAW") != std::string_view::npos) {
    h.raw = true;
  }
  return true;
}

bool null_value(ers_header& h, std::string_view value) {
  constexpr double lowest = -1.0E32;
  double& mark = h.grid.reals.dummy_value;
  if (value.find("E+75") != std::string_view::npos) {
    mark = lowest;
    return true;
  }
  const bool read = read_number(value, mark);
  mark = std::max(mark, lowest);
  return read;
}

// Any type without these words means 4-byte floats.
bool cell_type(ers_header& h, std::string_view value) {
  const auto has = [value](std::string_view word) {
    return value.find(word) != std::string_view::npos;
  };
  grid_ints& ints = h.grid.ints;
  ints.element_kind = kind_float;
  if (has("8BYTEREAL")) {
    ints.element_code = 8;
  } else if (has("INTEGER")) {
    ints.element_code = has("8BITINTEGER") ? 1 : has("16BITINTEGER") ? 2 : 4;
    ints.element_kind = has("UNSIGNED") ? kind_unsigned : kind_signed;
  }
  return true;
}

// Degrees, minutes and seconds with colons between them. Degrees of -0 count as positive.
std::optional<double> parse_angle(std::string_view text) {
  std::array<double, 3> parts{};
  for (double& part : parts) {
    const std::size_t colon = text.find(':');
    if (!read_number(text.substr(0, colon), part)) {
      return std::nullopt;
    }
    text =
        colon == std::string_view::npos ? std::string_view() : trimmed_text(text.substr(colon + 1));
    if (text.empty()) {
      break;
    }
  }
  const double fraction = (parts[1] + parts[2] / 60.0) / 60.0;
  return parts[0] < 0.0 ? parts[0] - fraction : parts[0] + fraction;
}

bool angle(ers_header& h, std::string_view value) {
  const std::optional<double> degrees = parse_angle(trimmed_text(value));
  grid_reals& reals = h.grid.reals;
  (h.lines.holds("LONGITUDE") ? reals.x_min : reals.y_min) = degrees.value_or(0.0);
  return degrees.has_value();
}

bool band_count(ers_header& h, std::string_view value) {
  std::int32_t& count = h.grid.ints.band_count;
  if (!read_number(value, count) || count > most_bands) {
    return false;
  }
  std::vector<std::string>& names = h.texts.band_names;
  names.resize(std::max(names.size(), static_cast<std::size_t>(std::max(count, 0))));
  for (int n = 1; n <= count; ++n) {
    std::string& name = names[static_cast<std::size_t>(n - 1)];
    name = n < 10 ? "Band  " : "Band 1";
    name += static_cast<char>('0' + (n < 10 ? n : n - 10));
  }
  return true;
}

bool band_name(ers_header& h, std::string_view) {
  if (!h.lines.next() || h.lines.blank()) {
    h.ended = true;
    return true;
  }
  constexpr std::size_t value_column = 10;
  const std::string_view name = trimmed_text(behind_equals(h.lines.line(), value_column));
  if (h.bands_named >= h.texts.band_names.size()) {
    h.texts.band_names.resize(h.bands_named + 1);
  }
  h.texts.band_names[h.bands_named++] =
      name.size() < 2 ? std::string() : std::string(name.substr(1, name.size() - 2));
  return h.bands_named <= static_cast<std::size_t>(most_bands);
}

// A line holds a keyword of a row, and `also` where there is one; the first row that holds acts.
struct ers_keyword {
  std::string_view keyword;
  std::string_view also;
  std::size_t fixed_column;  // where the value starts in a line without "="
  bool counts;               // towards the fewest items
  bool geographic_only;
  ers_action act;
};

template <auto field>
bool int_value(ers_header& h, std::string_view value) {
  return read_number(value, h.grid.ints.*field);
}

template <auto field>
bool real_value(ers_header& h, std::string_view value) {
  return read_number(value, h.grid.reals.*field);
}

template <auto field>
bool origin_cell(ers_header& h, std::string_view value) {
  h.registered = true;
  return read_number(value, h.*field);
}

template <auto field>
bool name_value(ers_header& h, std::string_view value) {
  h.*field = quoted(value);
  return true;
}

bool byte_order(ers_header& h, std::string_view value) {
  h.big_endian = value.find("MSB") != std::string_view::npos;
  return true;
}

bool start_skipping(ers_header& h, std::string_view) {
  h.skipping = true;
  return true;
}

constexpr ers_keyword ers_keywords[] = {
    {"HEADEROFFSET", "", 13, false, false, int_value<&grid_ints::data_offset>},
    {"COORDINATETYPE", "", 14, false, false, coordinate_type},
    {"NULLCELLVALUE", "", 14, true, false, null_value},
    {"CELLTYPE", "", 9, true, false, cell_type},
    {"BYTEORDER", "", 11, false, false, byte_order},
    {"XDIMENSION", "", 11, true, false, real_value<&grid_reals::x_cell>},
    {"YDIMENSION", "", 11, true, false, real_value<&grid_reals::y_cell>},
    {"NROFLINES", "", 10, true, false, int_value<&grid_ints::y_count>},
    {"NROFCELLSPERLINE", "", 16, true, false, int_value<&grid_ints::x_count>},
    {"DATUM", "", 7, false, false, name_value<&ers_header::datum>},
    {"PROJECTION", "", 12, false, false, name_value<&ers_header::projection>},
    {"EASTINGS", "", 9, true, false, real_value<&grid_reals::x_min>},
    {"METERSX", "", 9, true, false, real_value<&grid_reals::x_min>},
    {"NORTHINGS", "", 9, true, false, real_value<&grid_reals::y_min>},
    {"METERSY", "", 9, true, false, real_value<&grid_reals::y_min>},
    {"LONGITUDE", "", 9, true, true, angle},
    {"LATITUDE", "", 9, true, true, angle},
    {"ORIGINCELLX", "", 11, false, false, origin_cell<&ers_header::origin_x>},
    {"REGISTRATIONCELLX", "", 11, false, false, origin_cell<&ers_header::origin_x>},
    {"ORIGINCELLY", "", 11, false, false, origin_cell<&ers_header::origin_y>},
    {"REGISTRATIONCELLY", "", 11, false, false, origin_cell<&ers_header::origin_y>},
    {"NROFBANDS", "", 10, false, false, band_count},
    {"BANDID", "BEGIN", 10, false, false, band_name},
    {"WARPCONTROL BEGIN", "", 0, false, false, start_skipping},
    {"REGIONINFO BEGIN", "", 0, false, false, start_skipping},
};

Status take_line(ers_header& h) {
  if (h.skipping) {
    h.skipping = !h.lines.holds("WARPCONTROL END") && !h.lines.holds("REGIONINFO END");
    return success;
  }
  for (const ers_keyword& row : ers_keywords) {
    if (!h.lines.holds(row.keyword) || !h.lines.holds(row.also) ||
        (row.geographic_only && !h.geographic)) {
      continue;
    }
    h.items += row.counts ? 1 : 0;
    const std::string line = h.lines.line();
    return row.act(h, behind_equals(line, row.fixed_column)) ? success : number_unreadable;
  }
  return success;
}

// The registration point lies at a cell of its own, counted from the top left corner of the top
// left cell; the description wants cell centres and the lowest row.
void place_lattice(ers_header& h) {
  if (!h.raw && !h.registered) {
    h.origin_x = 0.0;
    h.origin_y = 0.0;
  }
  const grid_ints& ints = h.grid.ints;
  grid_reals& reals = h.grid.reals;
  reals.x_min -= (h.origin_x - 0.5) * reals.x_cell;
  reals.x_max = (ints.x_count - 1.0) * reals.x_cell + reals.x_min;
  reals.y_min -= (ints.y_count - 0.5 - h.origin_y) * reals.y_cell;
  reals.y_max = reals.y_cell * (ints.y_count - 1.0) + reals.y_min;
}

}  // namespace

Status read_ermapper_header(header_source& source, grid_description& grid, grid_texts& texts) {
  grid.ints.element_code = 4;
  grid.ints.element_kind = kind_float;
  grid.reals.dummy_value = 0.0;
  ers_header header{grid, texts, HeaderLines(*source.text)};
  while (!header.ended && header.lines.next() && !header.lines.holds("DATASETHEADER END")) {
    if (const Status status = take_line(header); status.failed()) {
      return status;
    }
  }
  if (header.items < fewest_items) {
    return ermapper_items_missing;
  }
  grid.ints.storage_sense = sense_top_down;
  place_lattice(header);
  if (grid.ints.element_code == 2) {
    constexpr double null_scale_of_16_bits = 1000.0;
    constexpr double largest_of_16_bits = 65535.0;
    const double null = grid.reals.dummy_value;
    grid.reals.dummy_value = null / null_scale_of_16_bits;
    if (null != 0.0 && std::abs(null) <= largest_of_16_bits) {
      texts.advice.emplace_back(
          "the null value of this ER Mapper grid of 2-byte cells is divided by 1000; if its writer "
          "meant it as it stands, convert the grid to 4-byte cells first");
    }
  }
  if (header.big_endian) {
    grid.ints.element_code = -grid.ints.element_code;
  }
  if (!header.datum.empty() && !header.projection.empty()) {
    if (texts.band_names.empty()) {
      texts.band_names.emplace_back();
    }
    texts.band_names[0] = header.datum;
    texts.band_names[0] += '/';
    texts.band_names[0] += header.projection;
  }
  return success;
}

}  // namespace velmorankite
