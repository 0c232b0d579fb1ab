// The earlier form of the detrending.
// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "condition/detrend.h"
#include "condition/detrend_files.h"
#include "condition/line_ends.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

// All 512 bytes as they are, but for the sense: the outputs run from the lowest row up.
void copy_header(const platform::BinaryFile& from, platform::BinaryFile& to) {
  constexpr std::int64_t sense_position = 17;
  std::array<std::byte, standard_header_bytes> bytes{};
  from.read(1, bytes);
  to.write(1, bytes);
  to.write_value(sense_position, sense_bottom_up);
}

// The ends of a row, and the cells between them that end their own column; each counts once.
void add_row(const detrend_input& input, const line_ends& ends, std::int32_t row,
             std::span<const float> cells, plane_sums& sums) {
  const line_end_pair& pair = ends.row(row);
  if (!pair.spans()) {
    return;
  }
  for (std::int32_t column = pair.first; column <= pair.last; ++column) {
    const line_end_pair own = ends.column(column);
    const bool ends_row = column == pair.first || column == pair.last;
    if (ends_row || own.first == row || own.last == row) {
      sums.add((column - 1) * input.x_cell, input.y_of(row),
               static_cast<double>(cells[static_cast<std::size_t>(column - 1)]));
    }
  }
}

line_ends find_ends(const detrend_input& input, ValidMean& values) {
  line_ends ends(input.x_count(), input.y_count());
  std::vector<float> cells(static_cast<std::size_t>(input.x_count()));
  for (std::int32_t row = 1; row <= input.y_count(); ++row) {
    input.rows.read(row, cells);
    ends.note_row(row, cells);
    values.add(cells);
  }
  return ends;
}

}  // namespace

Status GRID_DETREND_OLD(std::string_view input_name, std::string_view output_name, float& mean,
                        plane& trend) {
  mean = 0.0F;
  trend = {};
  const std::optional<detrend_input> input = open_detrend_input(input_name);
  if (!input) {
    return detrend_input_unreadable;
  }
  const std::filesystem::path output = platform::without_padding(output_name);
  if (output.empty()) {
    return detrend_residual_unwritable;
  }
  RowLayout layout = input->rows.layout();
  layout.storage_sense = sense_bottom_up;
  std::optional<detrend_outputs> outputs;
  const Status status = open_detrend_outputs(
      *input, output, trend_path(output, "", "_detrend.grd"), layout,
      [&](platform::BinaryFile& file) { copy_header(input->rows.file(), file); }, outputs);
  if (status.failed()) {
    return status;
  }
  ValidMean values;
  line_ends ends = find_ends(*input, values);
  if (values.empty()) {
    return detrend_no_valid_cell;
  }
  mean = values.mean();
  plane_sums sums;
  std::vector<float> cells(static_cast<std::size_t>(input->x_count()));
  for (std::int32_t row = 1; row <= input->y_count(); ++row) {
    input->rows.read(row, cells);
    add_row(*input, ends, row, cells, sums);
  }
  trend = solve_plane(sums, mean);
  // A row with a single valid cell is left as it is.
  ends.drop_single_cells();
  write_detrended(*input, ends, trend, *outputs);
  return success;
}

}  // namespace velmorankite
