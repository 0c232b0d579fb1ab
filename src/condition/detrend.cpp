// SPDX-License-Identifier: MIT
#include "condition/detrend.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "condition/detrend_files.h"
#include "condition/line_ends.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

// What the first pass over a grid finds.
struct first_pass {
  line_ends ends;
  plane_sums all_cells;
  ValidMean values{};
};

void add_row(std::span<const float> cells, double y, double x_cell, plane_sums& sums) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (is_valid(cells[i])) {
      sums.add(static_cast<double>(i) * x_cell, y, static_cast<double>(cells[i]));
    }
  }
}

first_pass read_samples(const detrend_input& input, fit_scope scope) {
  first_pass pass{{input.x_count(), input.y_count()}, {}};
  std::vector<float> cells(static_cast<std::size_t>(input.x_count()));
  for (std::int32_t row = 1; row <= input.y_count(); ++row) {
    input.rows.read(row, cells);
    pass.values.add(cells);
    if (scope == fit_scope::all_cells) {
      add_row(cells, input.y_of(row), input.x_cell, pass.all_cells);
    }
    pass.ends.note_row(row, cells);
  }
  return pass;
}

// Rows first, then columns; a cell that ends both counts twice. A line with one valid cell gives
// no sample.
plane_sums sums_of_line_ends(const detrend_input& input, const line_ends& ends) {
  plane_sums sums;
  const auto x_of = [&](std::int32_t column) { return (column - 1) * input.x_cell; };
  for (std::int32_t row = 1; row <= input.y_count(); ++row) {
    const line_end_pair& pair = ends.row(row);
    if (pair.spans()) {
      sums.add(x_of(pair.first), input.y_of(row), static_cast<double>(pair.first_value));
      sums.add(x_of(pair.last), input.y_of(row), static_cast<double>(pair.last_value));
    }
  }
  for (std::int32_t column = 1; column <= input.x_count(); ++column) {
    const line_end_pair pair = ends.column(column);
    if (pair.spans()) {
      sums.add(x_of(column), input.y_of(pair.first), static_cast<double>(pair.first_value));
      sums.add(x_of(column), input.y_of(pair.last), static_cast<double>(pair.last_value));
    }
  }
  return sums;
}

}  // namespace

Status GRID_DETREND_PLANE(fit_scope scope, std::string_view input_name,
                          std::string_view output_name, float& mean, plane& trend) {
  mean = 0.0F;
  trend = {};
  const std::optional<detrend_input> input = open_detrend_input(input_name);
  if (!input) {
    return detrend_input_unreadable;
  }
  std::optional<detrend_outputs> outputs;
  if (const std::filesystem::path output = platform::without_padding(output_name);
      !output.empty()) {
    const Status status = open_detrend_outputs(
        *input, output, trend_path(output, "_WDtmp", "_trend.grd"), input->rows.layout(),
        [&](platform::BinaryFile& file) {
          OUTPUT_GEOSOFT_HEADER(file, header_of_copy(input->description));
        },
        outputs);
    if (status.failed()) {
      return status;
    }
  }
  const first_pass pass = read_samples(*input, scope);
  if (pass.values.empty()) {
    return detrend_no_valid_cell;
  }
  mean = pass.values.mean();
  const plane_sums sums =
      scope == fit_scope::all_cells ? pass.all_cells : sums_of_line_ends(*input, pass.ends);
  trend = solve_plane(sums, mean);
  if (outputs) {
    write_detrended(*input, pass.ends, trend, *outputs);
  }
  return success;
}

Status GRID_DETREND(std::string_view input_name, std::string_view output_name, float& mean,
                    plane& trend) {
  return GRID_DETREND_PLANE(fit_scope::line_ends, input_name, output_name, mean, trend);
}

}  // namespace velmorankite
