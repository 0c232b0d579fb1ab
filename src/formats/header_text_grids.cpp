// The headers of two text grids with fixed lines: Surfer's ASCII grid and "$$GRID$$".
// SPDX-License-Identifier: MIT
#include <span>
#include <string>

#include "formats/catalogue.h"
#include "formats/header_numbers.h"
#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/cell_position.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

constexpr std::int32_t surfer_header_lines = 5;

bool read_pair(platform::TextReader& reader, platform::list_item first,
               platform::list_item second) {
  const platform::list_item items[] = {first, second};
  return platform::read_list(reader, items) == platform::list_result::complete;
}

// Largest code of one, two or three characters.
constexpr double code_ranges[] = {63.0, 4000.0, 250000.0};

// A value in fixed columns (from 1) of a line.
template <typename T>
struct column_field {
  std::size_t column;
  std::size_t width;
  T* value;
};

template <typename T, std::size_t n>
bool read_fields(std::string_view line, const column_field<T> (&fields)[n]) {
  for (const column_field<T>& field : fields) {
    if (!read_field(line, field.column, field.width, *field.value)) {
      return false;
    }
  }
  return true;
}

Status read_limits(std::string_view line, grid_description& grid) {
  grid_reals& r = grid.reals;
  const column_field<std::int32_t> ints[] = {{15, 4, &grid.ints.element_code},
                                             {19, 4, &grid.ints.data_offset}};
  const column_field<double> reals[] = {
      {41, 10, &r.x_min}, {51, 10, &r.y_max}, {71, 10, &r.x_max}, {81, 10, &r.y_min}};
  return read_fields(line, ints) && read_fields(line, reals) ? success : grid_text_limits_unread;
}

// Limits that span as many cells as there are columns are edges; centres span one cell less.
void place_centres(grid_description& grid) {
  grid_reals& r = grid.reals;
  const double columns = (r.x_max - r.x_min) / r.x_cell;
  if (columns >= grid.ints.x_count && columns < grid.ints.x_count + 1.0) {
    edges_to_centres(r);
  }
}

}  // namespace

// A file that ends early gives the description as far as it got.
Status read_surfer_text_header(header_source& source, grid_description& grid, grid_texts&) {
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  ints.data_offset = surfer_header_lines;
  ints.element_code = surfer_text_mark;  // the cells are plain numbers
  ints.storage_sense = sense_bottom_up;
  ints.element_kind = kind_float;
  reals.dummy_value = surfer_blank;
  reals.z_mid = surfer_blank;
  reals.z_spread = surfer_blank;
  platform::TextReader& reader = *source.text;
  std::string magic;
  if (reader.next_line(magic) && read_pair(reader, &ints.x_count, &ints.y_count) &&
      read_pair(reader, &reals.x_min, &reals.x_max) &&
      read_pair(reader, &reals.y_min, &reals.y_max) &&
      read_pair(reader, &reals.z_min, &reals.z_max)) {
    reals.x_cell = (reals.x_max - reals.x_min) / (ints.x_count - 1.0);
    reals.y_cell = (reals.y_max - reals.y_min) / (ints.y_count - 1.0);
  }
  return success;
}

Status read_grid_text_header(header_source& source, grid_description& grid, grid_texts&) {
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  platform::TextReader& reader = *source.text;
  std::string line;
  const column_field<std::int32_t> counts[] = {{9, 4, &ints.x_count}, {13, 4, &ints.y_count}};
  if (!reader.next_line(line) || !read_fields(line, counts)) {
    return grid_text_counts_unread;
  }
  if (!reader.next_line(line)) {
    return grid_text_limits_unread;
  }
  if (const Status status = read_limits(line, grid); status.failed()) {
    return status;
  }
  constexpr std::int32_t most_comments = 9999;  // the field holds four digits
  if (ints.data_offset < 0 || ints.data_offset > most_comments) {
    return grid_text_comments_unended;
  }
  for (std::int32_t i = 0; i < ints.data_offset; ++i) {
    if (!reader.next_line(line)) {
      return grid_text_comments_unended;
    }
  }
  ints.data_offset += 3;
  ints.storage_sense = sense_bottom_up;
  ints.element_kind = kind_float;
  const column_field<double> scales[] = {{1, 10, &reals.x_cell},
                                         {11, 10, &reals.y_cell},
                                         {31, 5, &reals.rotation},
                                         {41, 10, &reals.z_min},
                                         {51, 10, &reals.z_max}};
  if (!reader.next_line(line) || !read_fields(line, scales)) {
    return grid_text_scale_unread;
  }
  place_centres(grid);
  reals.dummy_value = static_cast<double>(dummy);
  if (ints.element_code < 1 || ints.element_code > static_cast<int>(std::size(code_ranges))) {
    return grid_text_code_width_unknown;
  }
  reals.z_base = reals.z_min;
  reals.z_mult = code_ranges[ints.element_code - 1] / (reals.z_max - reals.z_min);
  return success;
}

}  // namespace velmorankite
