// SPDX-License-Identifier: MIT
#include "merge/stitch.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "formats/companion_file.h"
#include "grid/cell_interpolation.h"
#include "grid/row_blocks.h"
#include "grid/standard_header.h"
#include "merge/marked_weight.h"
#include "merge/merge_rule.h"
#include "merge/seam.h"
#include "platform/file_tests.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

// Columns or rows of the output that lie in the working window, counted from 0, the last excluded.
struct index_range {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// A window may reach beyond the last column of the output, whose count its limits do not know.
index_range in_output(std::int32_t first, std::int32_t last, std::int32_t window_count,
                      std::int32_t output_count) {
  const std::int64_t end = std::min(
      {std::int64_t{last}, std::int64_t{first} + window_count - 1, std::int64_t{output_count}});
  const std::int64_t begin = std::min(std::int64_t{first} - 1, std::max(end, std::int64_t{0}));
  return {static_cast<std::size_t>(begin), static_cast<std::size_t>(std::max(begin, end))};
}

// Columns of the output and both grids on them. Each part of a row has its own: so each keeps the
// rows that it reads, and the places of its columns, from one row to the next.
class ResampledColumns {
 public:
  ResampledColumns(const input_grid& grid_1, const input_grid& grid_2, std::span<const double> x,
                   index_range columns)
      : cells_1_(grid_1.path, grid_1.description),
        cells_2_(grid_2.path, grid_2.description),
        x_(x.subspan(columns.begin, columns.end - columns.begin)),
        first_(columns.begin) {}

  // Puts the values of both grids at `y` on these columns of two rows of the output.
  void resample(double y, std::span<float> values_1, std::span<float> values_2) {
    if (!x_.empty()) {
      cells_1_.row(x_, y, values_1.subspan(first_, x_.size()));
      cells_2_.row(x_, y, values_2.subspan(first_, x_.size()));
    }
  }

 private:
  CellInterpolator cells_1_;
  CellInterpolator cells_2_;
  std::span<const double> x_;
  std::size_t first_;
};

// Makes the rows of the merged grid, from the bottom up.
class MergedRows {
 public:
  MergedRows(const stitch_parameters& parameters, const input_grid& grid_1,
             const input_grid& grid_2, const seam& measured);

  // Row `row` of the output, from 1.
  void make(std::int32_t row, std::span<float> out);

  [[nodiscard]] std::int64_t blended_cells() const noexcept { return blended_cells_; }

 private:
  [[nodiscard]] bool window_x_agrees() const;
  [[nodiscard]] merge_stretch stretch(std::span<float> out, std::size_t begin,
                                      std::size_t end) const;
  void make_window_part(std::int32_t row, std::span<float> out);

  const seam& seam_;
  Lattice lattice_;
  levelling level_;
  index_range columns_;  // of the window
  index_range rows_;
  std::vector<double> x_;
  std::vector<float> values_2_;
  std::vector<float> correction_;  // of the row; no correction is 0 everywhere
  std::vector<float> weights_;     // of the window's part of the row
  bool x_agrees_;
  ResampledColumns whole_;
  ResampledColumns left_;  // of the window
  ResampledColumns right_;
  std::optional<CellInterpolator> correction_cells_;
  std::int64_t blended_cells_ = 0;
};

MergedRows::MergedRows(const stitch_parameters& parameters, const input_grid& grid_1,
                       const input_grid& grid_2, const seam& measured)
    : seam_(measured),
      lattice_(parameters.lattice),
      level_{parameters.adjusted_grid, measured.mismatch.offset},
      columns_(in_output(measured.band.window.first_column, measured.band.window.last_column,
                         measured.band.window.lattice.x_count, lattice_.x_count)),
      rows_(in_output(measured.band.window.first_row, measured.band.window.last_row,
                      measured.band.window.lattice.y_count, lattice_.y_count)),
      x_(x_of_columns(lattice_)),
      values_2_(x_.size()),
      correction_(x_.size(), 0.0F),
      weights_(columns_.end - columns_.begin),
      x_agrees_(window_x_agrees()),
      whole_(grid_1, grid_2, x_, {0, x_.size()}),
      left_(grid_1, grid_2, x_, {0, columns_.begin}),
      right_(grid_1, grid_2, x_, {columns_.end, x_.size()}) {
  if (measured.correction) {
    correction_cells_.emplace(measured.correction->path, measured.correction->description);
  }
}

// Whether the window's columns lie on those of the output to the last bit: they are counted from
// another origin, and a sum may round differently.
bool MergedRows::window_x_agrees() const {
  for (std::size_t column = columns_.begin; column < columns_.end; ++column) {
    const auto in_window = static_cast<std::int32_t>(column - columns_.begin) + 1;
    if (seam_.band.window.lattice.x(in_window) != x_[column]) {
      return false;
    }
  }
  return true;
}

merge_stretch MergedRows::stretch(std::span<float> out, std::size_t begin, std::size_t end) const {
  const auto part = [=](auto cells) { return std::span(cells).subspan(begin, end - begin); };
  return {part(out), part(std::span(values_2_)), part(std::span(correction_))};
}

void MergedRows::make(std::int32_t row, std::span<float> out) {
  if (correction_cells_) {
    correction_cells_->row(x_, lattice_.y(row), correction_);
  }
  const auto index = static_cast<std::size_t>(row - 1);
  if (index < rows_.begin || index >= rows_.end) {
    whole_.resample(lattice_.y(row), out, values_2_);
    merge_outside(stretch(out, 0, out.size()), level_);
    return;
  }
  make_window_part(row, out);
  merge_outside(stretch(out, 0, columns_.begin), level_);
  merge_outside(stretch(out, columns_.end, out.size()), level_);
}

// Leaves the resampled grids on the columns beside the window and the merged values on those of
// the window. Where window and output agree to the bit, the grids need not be resampled again on
// the window: the filled grids hold their values, and the marks say where.
void MergedRows::make_window_part(std::int32_t row, std::span<float> out) {
  const auto row_in_window =
      static_cast<std::int32_t>(static_cast<std::size_t>(row - 1) - rows_.begin) + 1;
  const Lattice& window = seam_.band.window.lattice;
  const std::size_t width = columns_.end - columns_.begin;
  const auto window_part = [&](const platform::LargeArray<float>& cells) {
    const auto stride = static_cast<std::size_t>(window.x_count);
    return cells.span().subspan(static_cast<std::size_t>(row_in_window - 1) * stride, width);
  };
  const window_stretch filled{weights_, window_part(seam_.filled_1), window_part(seam_.filled_2)};
  const double y = lattice_.y(row);
  const bool agrees = x_agrees_ && window.y(row_in_window) == y;

  unmark_weights(window_part(seam_.band.weights), filled.filled_1, filled.filled_2,
                 out.subspan(columns_.begin, width),
                 std::span(values_2_).subspan(columns_.begin, width), weights_);
  if (agrees) {
    left_.resample(y, out, values_2_);
    right_.resample(y, out, values_2_);
  } else {
    whole_.resample(y, out, values_2_);
  }
  blended_cells_ += merge_inside(stretch(out, columns_.begin, columns_.end), filled, level_);
}

void write_grid(const Lattice& lattice, MergedRows& rows, platform::StagedFile& output) {
  OUTPUT_GEOSOFT_HEADER(output.file(), float_grid_header(lattice));
  RowBlockWriter cells(output.file(), {sense_bottom_up, lattice.x_count, lattice.y_count});
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    rows.make(row, cells.next_row());
  }
  cells.finish();
  output.commit();
}

Outcome check_room(const std::filesystem::path& path, const Lattice& lattice) {
  constexpr std::int64_t mega = 1000000;
  const auto cell_bytes = static_cast<std::int64_t>(sizeof(float));
  const std::int64_t bytes = standard_header_bytes + cell_bytes * lattice.cell_count();
  const std::filesystem::path folder = std::filesystem::absolute(path).parent_path();
  if (platform::has_room(folder, bytes)) {
    return {};
  }
  return impossible(path.string() + " takes " + std::to_string(bytes / mega) +
                    " MB, the disk has " + std::to_string(platform::free_bytes(folder) / mega) +
                    " left");
}

void keep_results_apart(const stitch_parameters& parameters, const input_grid& grid_1,
                        const input_grid& grid_2) {
  platform::named_files inputs =
      files_of_grid(grid_1.path, "grid 1", grid_1.description.ints.format_code);
  std::ranges::move(files_of_grid(grid_2.path, "grid 2", grid_2.description.ints.format_code),
                    std::back_inserter(inputs));
  platform::keep_apart(inputs, results_of(parameters));
}

}  // namespace

platform::named_files results_of(const stitch_parameters& parameters) {
  platform::named_files results{
      {parameters.output_path, "the output grid"},
      {mismatch_report_path(parameters.report_name), "the mismatch report"}};
  if (parameters.correction_distance > 0.0F) {
    results.push_back({correction_grid_path(parameters.report_name), "the correction grid"});
    results.push_back({correction_log_path(parameters.report_name), "the log of the correction"});
  }
  return results;
}

Outcome GRIDSTITCH(const stitch_parameters& parameters, const input_grid& grid_1,
                   const input_grid& grid_2, stitch_line& line, stitch_summary& summary) {
  if (parameter_check check = check_parameters(parameters); check.outcome.failed()) {
    return std::move(check.outcome);
  }
  keep_results_apart(parameters, grid_1, grid_2);
  // First of all, so that a place that cannot be written costs no work and leaves no report.
  platform::StagedFile output(parameters.output_path);
  if (Outcome outcome = check_room(output.target(), parameters.lattice); outcome.failed()) {
    return outcome;
  }
  seam measured;
  if (Outcome outcome = GRDSTITCHW(parameters, grid_1, grid_2, line, measured); outcome.failed()) {
    return outcome;
  }
  MergedRows rows(parameters, grid_1, grid_2, measured);
  write_grid(parameters.lattice, rows, output);
  summary = {measured.mismatch, rows.blended_cells(), measured.correction.has_value()};
  return {};
}

}  // namespace velmorankite
