// The files of a detrending: the input by rows, the residual and the plane as staged grids.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "condition/detrend.h"
#include "condition/line_ends.h"
#include "formats/grid_description.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/binary_file.h"
#include "platform/scratch_file.h"

namespace velmorankite {

struct detrend_input {
  RowFile rows;
  grid_description description;
  double x_cell = 0.0;
  double y_cell = 0.0;

  [[nodiscard]] std::int32_t x_count() const noexcept { return rows.layout().x_count; }
  [[nodiscard]] std::int32_t y_count() const noexcept { return rows.layout().y_count; }
  // Y of a lattice row as the plane counts it.
  [[nodiscard]] double y_of(std::int32_t row) const noexcept {
    return plane_row(rows.layout().storage_sense, y_count(), row) * y_cell;
  }
};

// The mean of the valid cells of a grid, summed in single precision, cell after cell.
class ValidMean {
 public:
  void add(std::span<const float> cells) noexcept {
    float sum = sum_;  // both stay in registers
    std::int64_t count = 0;
    for (const float z : cells) {
      sum += is_valid(z) ? z : 0.0F;
      count += is_valid(z) ? 1 : 0;
    }
    sum_ = sum;
    count_ += count;
  }
  [[nodiscard]] bool empty() const noexcept { return count_ == 0; }
  [[nodiscard]] float mean() const noexcept { return sum_ / static_cast<float>(count_); }

 private:
  float sum_ = 0.0F;
  std::int64_t count_ = 0;
};

struct detrend_outputs {
  platform::StagedFile residual;
  platform::StagedFile trend;
  RowLayout layout;
};

// Nothing if the grid cannot be described or opened. Throws IoError for a grid that is not what
// its header says.
[[nodiscard]] std::optional<detrend_input> open_detrend_input(std::string_view name);

// Name of the grid of the plane: `output` up to the first "." of the file's own name, less a
// `mark` in front of it, and `ending`.  A name without a "." gives `ending` alone.
[[nodiscard]] std::filesystem::path trend_path(const std::filesystem::path& output,
                                               std::string_view mark, std::string_view ending);

// The header that a copy of the grid has: its lattice, sense and statistics.
[[nodiscard]] standard_header header_of_copy(const grid_description& grid);

using header_writer = std::function<void(platform::BinaryFile&)>;

// Opens both outputs and writes their headers; the rows will lie as `layout` says. Neither may
// replace the input, nor one the other.
Status open_detrend_outputs(const detrend_input& input, const std::filesystem::path& residual_path,
                            const std::filesystem::path& trend_path, const RowLayout& layout,
                            const header_writer& write_header,
                            std::optional<detrend_outputs>& outputs);

// Writes the residual (the input less the plane between the ends of each row) and the plane (all
// cells), row by row, and puts both in place.
void write_detrended(const detrend_input& input, const line_ends& ends, const plane& trend,
                     detrend_outputs& outputs);

}  // namespace velmorankite
