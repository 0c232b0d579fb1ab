// SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "formats/text_helpers.h"
#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "grid/value_transform.h"

namespace velmorankite {
namespace {

// Points no further than this from a cell centre, |x| + |y| in cells, take the cell's own value.
constexpr double on_cell = static_cast<double>(0.01F);

// Columns that are read beside a single point, since its neighbours often come next.
constexpr std::int32_t columns_to_spare = 125;

}  // namespace

CellInterpolator::CellInterpolator(const std::filesystem::path& path, const grid_description& grid,
                                   std::int32_t mode)
    : rows_(path, grid, mode), x_axis_(x_axis(grid)), y_axis_(y_axis(grid)), mode_(mode) {}

CellInterpolator::CellInterpolator(std::span<const float> cells, const grid_description& grid,
                                   std::int32_t mode)
    : rows_(cells, grid, mode), x_axis_(x_axis(grid)), y_axis_(y_axis(grid)), mode_(mode) {}

void CellInterpolator::points(std::span<const double> x, std::span<const double> y,
                              std::span<float> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const bool inside = x_axis_.contains(x[i]) && y_axis_.contains(y[i]);
    values[i] = inside ? value_at(x_axis_.place(x[i]), y_axis_.place(y[i])) : dummy;
  }
}

void CellInterpolator::row(std::span<const double> x, double y, std::span<float> values) {
  if (!y_axis_.contains(y)) {
    std::ranges::fill(values, dummy);
    return;
  }
  const AxisPlace place = y_axis_.place(y);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = x_axis_.contains(x[i]) ? value_at(x_axis_.place(x[i]), place) : dummy;
  }
}

float CellInterpolator::value_at(const AxisPlace& x, const AxisPlace& y) {
  const float nearest = *rows_.stretch(y.nearest, x.nearest, x.nearest, columns_to_spare);
  if (std::fabs(x.offset) + std::fabs(y.offset) < on_cell || !is_valid(nearest)) {
    return finished(nearest);
  }
  CellBlock block;
  for (int r = -1; r <= 2; ++r) {
    const float* const cells =
        rows_.stretch(std::int64_t{y.base()} + r, x.base() - 1, x.base() + 2, columns_to_spare);
    std::copy_n(cells, 4, block.f[r + 1]);
  }
  patch_holes(block, nearest);
  const auto column = [&](int c) {
    return column_value(block.at(-1, c), block.at(0, c), block.at(1, c), block.at(2, c),
                        y.fraction());
  };
  return finished(row_value(column(-1), column(0), column(1), column(2), x.fraction()));
}

// What is handed out for an interpolated or a plain value, empty ones among them.
float CellInterpolator::finished(float value) const noexcept {
  if (is_valid(value)) {
    return is_transformed(mode_) ? restore_value(mode_, value) : value;
  }
  return std::isnan(value) ? dummy : value;
}

Status GEO_CELL_INTERPOLATION(std::int32_t source_flag, std::string_view path,
                              const grid_description& grid, std::span<const float> cells,
                              std::int32_t& mode, std::int32_t point_count,
                              std::span<const double> x, std::span<const double> y,
                              std::span<float> values) {
  const bool from_file = source_flag == 0;
  const std::string_view name = path.substr(0, FTAIL(path));
  const auto count = static_cast<std::size_t>(std::abs(std::int64_t{point_count}));
  const bool points_there = x.size() >= count && y.size() >= count && values.size() >= count;
  if ((from_file ? name.empty() : !holds_cells(cells, grid)) || count == 0 || !points_there) {
    return interpolation_bad_call;
  }
  if (point_count < 0) {
    mode = mode_logarithmic;
  }
  values = values.first(count);
  std::ranges::fill(values, dummy);  // what stays if the file fails
  CellInterpolator grid_cells = from_file
                                    ? CellInterpolator(std::filesystem::path(name), grid, mode)
                                    : CellInterpolator(cells, grid, mode);
  grid_cells.points(x.first(count), y.first(count), values);
  return success;
}

}  // namespace velmorankite
