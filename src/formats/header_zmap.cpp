// The header of ZMap grids: "!" comments, then lines of fields parted by commas.
// SPDX-License-Identifier: MIT
#include <string>

#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/header_text_readers.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

constexpr std::size_t zmap_line_length = 256;
constexpr std::int32_t lines_behind_first = 4;  // of the header, behind the line with "@"

// The fields of one line, taken from the left. A field that a comma must end has a status for
// where it does not.
class Fields {
 public:
  explicit Fields(std::string_view text) : rest_(text) {}

  // Takes the text ahead of the next comma; false if there is none or, where the field must not
  // be empty, if the comma comes first.
  [[nodiscard]] bool take(std::string_view& field, bool may_be_empty = true) {
    const std::size_t comma = rest_.find(',');
    if (comma == std::string_view::npos || (comma == 0 && !may_be_empty)) {
      return false;
    }
    field = trimmed_text(rest_.substr(0, comma));
    rest_.remove_prefix(comma + 1);
    return true;
  }
  [[nodiscard]] std::string_view rest() const noexcept {
    return trimmed_text(rest_.substr(0, rest_.find(',')));
  }
  [[nodiscard]] std::string_view all_that_is_left() const noexcept { return rest_; }

 private:
  std::string_view rest_;
};

// Goes on to a line that must not be blank.
Status next_filled(HeaderLines& lines, Status blank) {
  return lines.next() && !lines.blank() ? success : blank;
}

// "@name, GRID, nodes a line"
Status read_kind(HeaderLines& lines, grid_ints& ints) {
  Fields fields(lines.line());
  std::string_view field;
  if (!fields.take(field)) {
    return zmap_name_unended;
  }
  if (!trimmed_text(fields.all_that_is_left()).starts_with("GRID")) {
    return zmap_kind_unknown;
  }
  return fields.take(field) && read_number(fields.rest(), ints.aux_1) ? success
                                                                      : zmap_no_line_nodes;
}

// Field width, dummy, null text, decimals, start column.
Status read_layout(HeaderLines& lines, grid_description& grid, grid_texts& texts) {
  if (const Status status = next_filled(lines, zmap_layout_blank); status.failed()) {
    return status;
  }
  Fields fields(lines.as_written());
  std::string_view field;
  if (!fields.take(field, false) || !read_number(field, grid.ints.aux_2)) {
    return zmap_no_field_width;
  }
  if (!fields.take(field)) {
    return zmap_no_dummy;
  }
  grid.reals.dummy_value = static_cast<double>(dummy);
  if (!field.empty() && !read_number(field, grid.reals.dummy_value)) {
    return zmap_no_dummy;
  }
  if (!fields.take(field)) {
    return zmap_no_null_text;
  }
  texts.band_names.emplace_back(field);
  return fields.take(field) && read_number(fields.rest(), grid.ints.aux_3) ? success
                                                                           : zmap_no_decimals;
}

// Rows, columns, limits of X, limits of Y. Rows come first.
Status read_lattice(HeaderLines& lines, grid_description& grid) {
  if (const Status status = next_filled(lines, zmap_limits_blank); status.failed()) {
    return status;
  }
  grid_reals& reals = grid.reals;
  Fields fields(lines.line());
  std::string_view field;
  if (!fields.take(field, false) || !read_number(field, grid.ints.y_count)) {
    return zmap_no_rows;
  }
  if (!fields.take(field) || !read_number(field, grid.ints.x_count)) {
    return zmap_no_columns;
  }
  struct limit {
    double* value;
    Status status;
  };
  const limit limits[] = {
      {&reals.x_min, zmap_no_x_min}, {&reals.x_max, zmap_no_x_max}, {&reals.y_min, zmap_no_y_min}};
  for (const limit& row : limits) {
    if (!fields.take(field) || !read_number(field, *row.value)) {
      return row.status;
    }
  }
  return read_number(fields.rest(), reals.y_max) ? success : zmap_no_y_max;
}

Status finish(grid_description& grid) {
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  if (ints.x_count < 1 || ints.y_count < 1) {
    return zmap_counts_unsound;
  }
  reals.x_cell = (reals.x_max - reals.x_min) / (ints.x_count - 1.0);
  reals.y_cell = (reals.y_max - reals.y_min) / (ints.y_count - 1.0);
  if (!(reals.x_cell > 0.0) || !(reals.y_cell > 0.0)) {
    return zmap_cells_unsound;
  }
  if (ints.aux_1 < 1) {
    return zmap_line_nodes_unsound;
  }
  for (double* value : {&reals.z_min, &reals.z_max, &reals.z_mid, &reals.z_spread}) {
    *value = reals.dummy_value;
  }
  return success;
}

}  // namespace

Status read_zmap_header(header_source& source, grid_description& grid, grid_texts& texts) {
  grid.ints.element_code = 4;
  grid.ints.storage_sense = 2;
  grid.ints.element_kind = kind_float;
  HeaderLines lines(*source.text, zmap_line_length);
  std::int32_t line_count = 0;
  do {
    if (const Status status = next_filled(lines, zmap_comment_blank); status.failed()) {
      return status;
    }
    ++line_count;
  } while (lines.line().starts_with('!'));
  if (!lines.line().starts_with('@')) {
    return zmap_at_sign_missing;
  }
  if (const Status status = read_kind(lines, grid.ints); status.failed()) {
    return status;
  }
  if (const Status status = read_layout(lines, grid, texts); status.failed()) {
    return status;
  }
  if (const Status status = read_lattice(lines, grid); status.failed()) {
    return status;
  }
  (void)lines.next();  // a line of transformation numbers that no writer fills
  if (const Status status = next_filled(lines, zmap_end_blank); status.failed()) {
    return status;
  }
  if (!lines.line().starts_with('@')) {
    return zmap_end_missing;
  }
  grid.ints.data_offset = line_count + lines_behind_first;
  const Status status = finish(grid);
  if (!status.failed()) {
    texts.advice.emplace_back(
        "the limits of this ZMap header are taken as the centres of the outer cells; if its writer "
        "meant the outer edges, the grid lies half a cell further out than it should");
  }
  return status;
}

}  // namespace velmorankite
