// SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "grid/dummy.h"
#include "grid/point_interpolation.h"
#include "grid/value_transform.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

// Columns that are read beside a single point, since its neighbours often come next.
constexpr std::int32_t columns_to_spare = 125;

// Points that a whole call takes at once. Its memory then stays so small that the system does not
// take it back between one call and the next: fresh pages would cost more than the values.
constexpr std::size_t points_at_once = 1024;

// All cells of a grid in memory, as they are; nothing where they are to be transformed.
CellWindow window_of(std::span<const float> cells, const RowLayout& layout, std::int32_t mode) {
  if (is_transformed(mode)) {
    return {};
  }
  const std::ptrdiff_t width = layout.x_count;
  const bool top_down = layout.storage_sense == sense_top_down;
  const float* const lowest = cells.data() + (top_down ? width * (layout.y_count - 1) : 0);
  return {lowest, top_down ? -width : width, 1, 1, layout.x_count, layout.y_count};
}

}  // namespace

CellInterpolator::CellInterpolator(const std::filesystem::path& path, const grid_description& grid,
                                   std::int32_t mode)
    : rows_(open_rows(path, grid), mode),
      x_axis_(x_axis(grid)),
      y_axis_(y_axis(grid)),
      mode_(mode) {}

CellInterpolator::CellInterpolator(std::span<const float> cells, const grid_description& grid,
                                   std::int32_t mode)
    : rows_(cells, layout_of(grid), mode),
      memory_(window_of(cells, layout_of(grid), mode)),
      x_axis_(x_axis(grid)),
      y_axis_(y_axis(grid)),
      mode_(mode) {}

CellInterpolator::CellInterpolator(RowFile rows, const Lattice& lattice, std::int32_t mode)
    : rows_(std::move(rows), mode),
      x_axis_(x_axis(lattice)),
      y_axis_(y_axis(lattice)),
      mode_(mode) {}

CellInterpolator::CellInterpolator(std::span<const float> cells, std::int32_t storage_sense,
                                   const Lattice& lattice, std::int32_t mode)
    : rows_(cells, {storage_sense, lattice.x_count, lattice.y_count}, mode),
      memory_(window_of(cells, {storage_sense, lattice.x_count, lattice.y_count}, mode)),
      x_axis_(x_axis(lattice)),
      y_axis_(y_axis(lattice)),
      mode_(mode) {}

CellInterpolator::CellInterpolator(const Lattice& lattice, CellRows::row_source rows)
    : rows_(std::move(rows), lattice.x_count, lattice.y_count),
      x_axis_(x_axis(lattice)),
      y_axis_(y_axis(lattice)),
      mode_(1) {}

void CellInterpolator::points(std::span<const double> x, std::span<const double> y,
                              std::span<float> values) {
  const bool one_row = std::ranges::all_of(y, [&](double other) { return other == y.front(); });
  if (one_row && !y.empty()) {
    row(x, y.front(), values);
    return;
  }
  if (memory_.cells != nullptr) {
    interpolate_points(memory_, x_axis_, y_axis_, x, y, values);
    make_plain(mode_, values);
    return;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const bool inside = x_axis_.contains(x[i]) && y_axis_.contains(y[i]);
    values[i] = inside ? value_at(x_axis_.place(x[i]), y_axis_.place(y[i])) : dummy;
  }
  make_plain(mode_, values);
}

void CellInterpolator::row(std::span<const double> x, double y, std::span<float> values) {
  plan_.make(x_axis_, x);
  if (!y_axis_.contains(y) || plan_.begin == plan_.end) {
    std::ranges::fill(values, dummy);
    return;
  }
  const AxisPlace place = y_axis_.place(y);
  const auto cells_of = [&](std::int64_t row) {
    return rows_.stretch(row, plan_.first_column, plan_.last_column, 0);
  };
  if (plan_.all_on_cells(std::fabs(place.offset))) {
    copy_nearest(cells_of(place.nearest), plan_, values);
  } else {
    const std::int64_t base = place.base();
    const four_rows rows = {cells_of(base - 1), cells_of(base), cells_of(base + 1),
                            cells_of(base + 2)};
    interpolate_row(rows, plan_, place, scratch_, values);
  }
  make_plain(mode_, values);
}

float CellInterpolator::value_at(const AxisPlace& x, const AxisPlace& y) {
  const float nearest = *rows_.stretch(y.nearest, x.nearest, x.nearest, columns_to_spare);
  if (is_on_cell(std::fabs(x.offset), std::fabs(y.offset)) || !is_valid(nearest)) {
    return nearest;
  }
  four_rows rows;
  for (int r = 0; r < 4; ++r) {
    rows[static_cast<std::size_t>(r)] =
        rows_.stretch(std::int64_t{y.base()} + r - 1, x.base() - 1, x.base() + 2, columns_to_spare);
  }
  return interpolate_patched(rows, nearest, x.fraction(), y.fraction());
}

Status GEO_CELL_INTERPOLATION(std::int32_t source_flag, std::string_view path,
                              const grid_description& grid, std::span<const float> cells,
                              std::int32_t& mode, std::int32_t point_count,
                              std::span<const double> x, std::span<const double> y,
                              std::span<float> values) {
  const bool from_file = source_flag == 0;
  const std::string_view name = platform::without_tail(path);
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
  for (std::size_t done = 0; done < count; done += points_at_once) {
    const std::size_t some = std::min(points_at_once, count - done);
    grid_cells.points(x.subspan(done, some), y.subspan(done, some), values.subspan(done, some));
  }
  return success;
}

}  // namespace velmorankite
