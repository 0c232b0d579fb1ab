// SPDX-License-Identifier: MIT
#include "formats/failure_words.h"

#include <string_view>

#include "formats/catalogue.h"
#include "formats/convert_grid.h"
#include "formats/line_source.h"
#include "grid/status_text.h"

namespace velmorankite {
namespace {

// The names by which the table of statuses speaks of formats.
struct format_label {
  std::string_view name;
  std::int32_t format_code;
};

constexpr format_label format_labels[] = {
    {"ArcInfo", format_arcinfo},    {"BIL", format_bil},          {"BIP", format_bip},
    {"ER Mapper", format_ermapper}, {"GXF", format_gxf},          {"PCIDSK", format_pcidsk},
    {"Surfer 7", format_surfer_7},  {"ZMap", format_zmap},        {"netCDF", format_netcdf},
    {"tiles", format_tile_3_arcs},  {"tiles", format_tile_1_arc}, {"tiles", format_geodesy},
    {"$$GRID$$", format_grid_text}};

// Cuts the text ahead of a separator off the front of `text`; all of it where there is none.
std::string_view take_until(std::string_view& text, std::string_view separator) {
  const std::size_t end = text.find(separator);
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + separator.size());
  return part;
}

enum class bearing { any_format, this_format, other_format };

// Whether one meaning, as "GXF: the file ends" or "BIL, BIP: no band", speaks of a format. Where it
// does, its label is cut off.
bearing cut_label(std::string_view& meaning, std::int32_t format_code) {
  std::string_view rest = meaning;
  std::string_view label = take_until(rest, ": ");
  if (rest.empty()) {
    return bearing::any_format;
  }
  bool known = false;
  bool ours = false;
  while (!label.empty()) {
    const std::string_view name = take_until(label, ", ");
    for (const format_label& row : format_labels) {
      known = known || row.name == name;
      ours = ours || (row.name == name && row.format_code == format_code);
    }
  }
  if (!known) {
    return bearing::any_format;
  }
  meaning = rest;
  return ours ? bearing::this_format : bearing::other_format;
}

void add(std::string& all, std::string_view meaning) {
  all.append(all.empty() ? "" : "; ").append(meaning);
}

// Of several meanings of a number those of the format, or else those of all formats.
std::string words_for_format(std::string_view words, std::int32_t format_code) {
  std::string ours;
  std::string any;
  for (std::string_view rest = words; !rest.empty();) {
    std::string_view meaning = take_until(rest, "; ");
    const bearing found = cut_label(meaning, format_code);
    if (found != bearing::other_format) {
      add(found == bearing::this_format ? ours : any, meaning);
    }
  }
  return !ours.empty() ? ours : !any.empty() ? any : std::string(words);
}

std::string words_of(std::string_view routine, Status status, std::int32_t format_code) {
  return words_for_format(status_words(routine, status), format_code);
}

bool holds_images(std::int32_t format_code) {
  return format_code == format_pcidsk || format_code == format_bil || format_code == format_bip;
}

}  // namespace

std::string words_of_description(Status status, const grid_description& grid) {
  return words_of("GRDRDH", status, grid.ints.format_code);
}

std::string words_of_conversion(Status status, const grid_description& grid) {
  const std::int32_t format_code = grid.ints.format_code;
  if (status == conversion_impossible && holds_images(format_code)) {
    std::string name;
    std::string mask;
    (void)GET_GRID_FORMAT_NAME(format_code, name, mask);
    return "files of format \"" + name + "\" hold images, which are not converted to grids";
  }
  // A line of a ZMap file has its own number, which other failures have too.
  if (format_code == format_zmap && status != conversion_impossible) {
    std::string words = "line " + std::to_string(-status.code) + " of the file cannot be read";
    if (status == conversion_output_unopened || status == zmap_header_unended) {
      words.append(", or ").append(words_of("GRDRDG", status, format_code));
    }
    return words;
  }
  return words_of("GRDRDG", status, format_code);
}

}  // namespace velmorankite
