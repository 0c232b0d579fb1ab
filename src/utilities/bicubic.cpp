// SPDX-License-Identifier: MIT
#include "utilities/bicubic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <utility>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/padded_text.h"
#include "utilities/bicubic_kernel.h"
#include "utilities/cell_source.h"
#include "utilities/point_axes.h"
#include "utilities/point_evaluation.h"

namespace velmorankite {
namespace {

// Columns and rows from these on count as empty.
struct bounds {
  std::int32_t columns;
  std::int32_t rows;
};

// Cells in an array. A base cell is found by the rows that the description tells, its neighbours by
// those that the caller does: the two differ only where the caller's counts are not the grid's.
class ArrayCells {
 public:
  ArrayCells(std::span<const float> cells, const CellLayout& described, std::int32_t rows)
      : cells_(cells), described_(described), rows_(rows) {}

  [[nodiscard]] const float* base(std::int32_t row, std::int32_t column) const noexcept {
    const std::size_t place = index(described_.y_count, row, column);
    return column < described_.x_count && place < cells_.size() ? &cells_[place] : nullptr;
  }
  [[nodiscard]] const float* stretch(std::int32_t row, std::int32_t first,
                                     std::int32_t /*count*/) const noexcept {
    return &cells_[index(rows_, row, first)];
  }
  [[nodiscard]] bool has_one_order() const noexcept {
    return !described_.top_down || rows_ == described_.y_count;
  }

 private:
  [[nodiscard]] std::size_t index(std::int32_t rows, std::int32_t row,
                                  std::int32_t column) const noexcept {
    const auto stored = static_cast<std::size_t>(described_.top_down ? rows - 1 - row : row);
    return stored * static_cast<std::size_t>(described_.x_count) + static_cast<std::size_t>(column);
  }

  std::span<const float> cells_;
  CellLayout described_;
  std::int32_t rows_;
};

// The same of a file, which has one order of rows.
class StoredCells {
 public:
  explicit StoredCells(FileCells<float> cells) : cells_(std::move(cells)) {}

  [[nodiscard]] const float* base(std::int32_t row, std::int32_t column) {
    return cells_.stretch(row, column, 1);
  }
  [[nodiscard]] const float* stretch(std::int32_t row, std::int32_t first, std::int32_t count) {
    return cells_.stretch(row, first, count);
  }
  [[nodiscard]] static bool has_one_order() noexcept { return true; }

 private:
  FileCells<float> cells_;
};

// The core of all five routines.
//   Real    the type of the offsets and of the kernel.
//   Axis    the rule by which a point gets its base cell.
//   Source  ArrayCells or StoredCells.
template <typename Real, typename Axis, typename Source>
class Bicubic {
 public:
  Bicubic(Source source, const Axis& x, const Axis& y, const bounds& limits)
      : source_(std::move(source)),
        x_axis_(x),
        y_axis_(y),
        limits_{std::max(limits.columns, 0), std::max(limits.rows, 0)} {}

  void points(std::span<const double> x, std::span<const double> y, std::span<float> values) {
    for (std::size_t done = 0; done < values.size(); done += points_at_once) {
      const std::size_t count = std::min(points_at_once, values.size() - done);
      x_.place(x_axis_, x.subspan(done, count));
      y_.place(y_axis_, y.subspan(done, count));
      placed_points(values.subspan(done, count));
    }
  }

 private:
  void placed_points(std::span<float> values) {
    // The neighbours of the base cells of a run are all within the limits.
    const RunLimits whole = {1, std::min(limits_.columns, x_axis_.count) - 3,
                             std::min(limits_.rows, y_axis_.count) - 3};
    const bool runs = source_.has_one_order();
    for (std::size_t i = 0; i < values.size();) {
      const std::size_t length = runs ? run_length(x_, y_, i, values.size(), whole) : 0;
      if (length < shortest_run || !run_from(i, values.subspan(i, length))) {
        values[i] = value_from(i);
        ++i;
      } else {
        i += length;
      }
    }
  }

  // Points from `from` on whose base cells follow each other; false where a cell cannot be read.
  bool run_from(std::size_t from, std::span<float> values) {
    bicubic_rows rows;
    for (std::int32_t r = 0; r < 4; ++r) {
      const float* const cells = source_.stretch(y_.base[from] + r - 1, x_.base[from] - 1,
                                                 static_cast<std::int32_t>(values.size()) + 3);
      if (cells == nullptr) {
        return false;
      }
      rows[static_cast<std::size_t>(r)] = cells;
    }
    std::array<std::int32_t, points_at_once> whole;
    bicubic_run<Real>(rows, &x_.offset[from], &y_.offset[from], values.size(), values.data(),
                      whole.data());
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (whole[i] == 0) {
        values[i] = value_from(from + i);
      }
    }
    return true;
  }

  float value_from(std::size_t i) {
    const std::int32_t column = x_.base[i];
    const std::int32_t row = y_.base[i];
    if (column == outside_axis || row == outside_axis) {
      return dummy;
    }
    const float* const base = source_.base(row, column);
    if (base == nullptr) {
      return dummy;
    }
    const float z = *base;
    const auto u = static_cast<Real>(x_.offset[i]);
    const auto v = static_cast<Real>(y_.offset[i]);
    if (is_on_base_cell(u, v)) {
      return std::isnan(z) ? dummy : z;
    }
    return is_valid(z) ? patched_value(column, row, z, u, v) : dummy;
  }

  float patched_value(std::int32_t column, std::int32_t row, float z, Real u, Real v) {
    const four_weights<Real> along_x = catmull_rom(u);
    Real by_row[4];
    for (std::int32_t r = 0; r < 4; ++r) {
      std::array<float, 4> p;
      if (!read_row_of_four(std::int64_t{row} + r - 1, column - 1, p)) {
        return dummy;
      }
      p[1] = filled(p[1], z);
      p[0] = filled(p[0], p[1]);
      p[2] = filled(p[2], p[1]);
      p[3] = filled(p[3], p[2]);
      by_row[r] = weighted(along_x, static_cast<Real>(p[0]), static_cast<Real>(p[1]),
                           static_cast<Real>(p[2]), static_cast<Real>(p[3]));
    }
    const auto value =
        static_cast<float>(weighted(catmull_rom(v), by_row[0], by_row[1], by_row[2], by_row[3]));
    return std::isnan(value) ? dummy : value;
  }

  // Four cells of a row, empty beyond the limits; false where one cannot be read.
  bool read_row_of_four(std::int64_t row, std::int32_t first, std::array<float, 4>& p) {
    p.fill(dummy);
    const std::int32_t from = std::max(first, 0);
    const std::int32_t count = std::min(first + 4, limits_.columns) - from;
    if (row < 0 || row >= limits_.rows || count < 1) {
      return true;
    }
    const float* const cells = source_.stretch(static_cast<std::int32_t>(row), from, count);
    if (cells != nullptr) {
      std::copy_n(cells, count, p.begin() + (from - first));
    }
    return cells != nullptr;
  }

  Source source_;
  Axis x_axis_;
  Axis y_axis_;
  bounds limits_;
  PlacedPoints x_;
  PlacedPoints y_;
};

// The points of a call, and where its values go.
struct points_of_call {
  std::int32_t count;
  std::span<const double> x;
  std::span<const double> y;
  std::span<float> values;

  [[nodiscard]] bool are_there() const noexcept {
    const auto wanted = static_cast<std::size_t>(std::max(count, 0));
    return x.size() >= wanted && y.size() >= wanted && values.size() >= wanted;
  }
  // As many as there are to be; their values are dummies from now on.
  [[nodiscard]] points_of_call begun() const {
    const auto wanted = static_cast<std::size_t>(std::max(count, 0));
    const std::span<float> out = values.first(wanted);
    std::ranges::fill(out, dummy);
    return {count, x.first(wanted), y.first(wanted), out};
  }
};

// Whether an array has `rows` rows of `length` cells.
bool has_rows(std::span<const float> cells, std::int32_t length, std::int32_t rows) noexcept {
  return length >= 1 && length <= longest_row && rows >= 1 &&
         cells.size() / static_cast<std::size_t>(length) >= static_cast<std::size_t>(rows);
}

template <typename Real, typename Axis, typename Source>
Status evaluate(Source source, const Axis& x, const Axis& y, const bounds& limits,
                const points_of_call& points) {
  Bicubic<Real, Axis, Source>(std::move(source), x, y, limits)
      .points(points.x, points.y, points.values);
  return success;
}

template <typename Real>
Status grid_form(std::span<const float> cells, const grid_description& grid, const bounds& limits,
                 const points_of_call& call) {
  if (call.count < 1) {
    return success;
  }
  if (!call.are_there()) {
    return bicubic_bad_call;
  }
  const points_of_call points = call.begun();
  const grid_ints& ints = grid.ints;
  const grid_reals& reals = grid.reals;
  if (ints.y_count < 1 || !has_rows(cells, ints.x_count, std::max(ints.y_count, limits.rows))) {
    return bicubic_bad_call;
  }
  const CellLayout described = {ints.x_count, ints.y_count, ints.storage_sense == sense_top_down};
  return evaluate<Real>(ArrayCells(cells, described, limits.rows),
                        FloorAxis{{reals.x_min, reals.x_max, reals.x_cell, ints.x_count}},
                        FloorAxis{{reals.y_min, reals.y_max, reals.y_cell, ints.y_count}},
                        {std::min(limits.columns, ints.x_count), limits.rows}, points);
}

}  // namespace

Status BICUBIC_GRID_INTERPOLATION(std::span<const float> cells, const grid_description& grid,
                                  std::int32_t columns, std::int32_t rows, std::int32_t point_count,
                                  std::span<const double> x, std::span<const double> y,
                                  std::span<float> values) {
  return grid_form<float>(cells, grid, {columns, rows}, {point_count, x, y, values});
}

Status BICUBIC_GRID_INTERPOLATIOND(std::span<const float> cells, const grid_description& grid,
                                   std::int32_t point_count, std::span<const double> x,
                                   std::span<const double> y, std::span<float> values) {
  return grid_form<double>(cells, grid, {grid.ints.x_count, grid.ints.y_count},
                           {point_count, x, y, values});
}

Status BICUBIC_GEO_INTERPOLATION(std::int32_t memory_flag, std::string_view name,
                                 const grid_description& grid, std::int32_t columns,
                                 std::int32_t rows, std::span<const float> cells,
                                 std::int32_t point_count, std::span<const double> x,
                                 std::span<const double> y, std::span<float> values) {
  constexpr std::int32_t float_cells = 4;
  const points_of_call call = {point_count, x, y, values};
  const std::string_view path = platform::without_padding(name.substr(0, name.find('\0')));
  if (!call.are_there()) {
    return bicubic_bad_call;
  }
  const points_of_call points = call.begun();
  const HalfCellAxis<double> x_axis = out_x_axis<double>(grid);
  const HalfCellAxis<double> y_axis = out_y_axis<double>(grid);
  CellLayout layout = layout_in_memory(grid);  // only sense -2 begins at the top, in a file too
  if (path.empty()) {
    return bicubic_bad_call;
  }
  if (memory_flag != 0 && call.count < 1) {
    return success;
  }
  if (layout.x_count < 1 || layout.y_count < 1) {
    return bicubic_bad_call;
  }
  if (memory_flag == 0) {
    const std::int32_t told = grid.ints.element_code;
    FileCells<float> file = open_cells<float>(
        std::filesystem::path(path), layout, standard_header_bytes, told == 0 ? float_cells : told);
    return evaluate<double>(StoredCells(std::move(file)), x_axis, y_axis,
                            {std::min(columns, layout.x_count), std::min(rows, layout.y_count)},
                            points);
  }
  if (!has_rows(cells, columns, rows)) {
    return bicubic_bad_call;
  }
  layout.x_count = columns;
  return evaluate<double>(ArrayCells(cells, layout, rows), x_axis, y_axis, {columns, rows}, points);
}

}  // namespace velmorankite
