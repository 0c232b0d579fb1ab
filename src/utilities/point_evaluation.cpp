// SPDX-License-Identifier: MIT
#include "utilities/point_evaluation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// A point so near to its base cell, in cells along both axes together, takes the cell's value.
constexpr auto on_cell = static_cast<double>(0.001F);

constexpr double floor_of_logarithms = -8.0;  // stands for the logarithm of 0 and below
constexpr double lowest_logarithm = -1.0E10;  // what lies lower is no logarithm

bool has_data(float cell) noexcept {
  return is_valid(cell);
}
bool has_data(std::int16_t cell) noexcept {
  return cell > dummy_int16;
}

bool is_on_base(double u, double v) noexcept {
  return std::fabs(u) + std::fabs(v) < on_cell;
}

double on_scale(value_scale scale, double cell) noexcept {
  if (scale == value_scale::linear) {
    return cell;
  }
  return cell > 0.0 ? std::log10(cell) : floor_of_logarithms;
}

// Whether a block's row may be read that begins with this cell. The bound of a file is 500 bytes
// and its cells, not the 512 of its header and its cells: so the last three cells of a file of
// floats are never read together.
template <typename Cell>
bool may_begin(const MemoryCells<Cell>& /*cells*/, std::int32_t /*row*/, std::int32_t /*column*/) {
  return true;
}
template <typename Cell>
bool may_begin(const FileCells<Cell>& cells, std::int32_t row, std::int32_t column) {
  constexpr std::int64_t cell_bytes = 4;
  constexpr std::int64_t bytes_ahead = 500;
  const CellLayout& layout = cells.layout();
  const std::int64_t position = cells.position(row, column);
  return position > standard_header_bytes &&
         position < std::int64_t{layout.x_count} * layout.y_count * cell_bytes + bytes_ahead;
}

// The biquadratic at points whose blocks follow each other along a row, the first block beginning
// at the rows' first cells.
//   whole  out: whether the value stands: nine cells with data, and a point not on its base.
VELMORANKITE_VECTOR_CLONES void biquadratic_run(const std::array<const float*, 3>& rows,
                                                const double* u, const double* v, std::size_t count,
                                                float* values, std::int32_t* whole) {
  const float* const a = rows[0];
  const float* const b = rows[1];
  const float* const c = rows[2];
  for (std::size_t i = 0; i < count; ++i) {
    const three_weights along_x = parabola(u[i]);
    const double by_row[] = {weighted(along_x, a + i), weighted(along_x, b + i),
                             weighted(along_x, c + i)};
    const auto value = static_cast<float>(weighted(parabola(v[i]), by_row));
    values[i] = value;
    std::int32_t all = static_cast<std::int32_t>(std::fabs(u[i]) + std::fabs(v[i]) >= on_cell) &
                       static_cast<std::int32_t>(!std::isnan(value));
    for (int k = 0; k < 3; ++k) {
      all &= static_cast<std::int32_t>(is_valid(a[i + k])) &
             static_cast<std::int32_t>(is_valid(b[i + k])) &
             static_cast<std::int32_t>(is_valid(c[i + k]));
    }
    whole[i] = all;
  }
}

}  // namespace

template <typename Cell, typename Axis>
void PointEvaluation<Cell, Axis>::points(std::span<const Coordinate> x,
                                         std::span<const Coordinate> y, std::span<float> values) {
  for (std::size_t done = 0; done < values.size(); done += points_at_once) {
    const std::size_t count = std::min(points_at_once, values.size() - done);
    x_.place(x_axis_, x.subspan(done, count));
    y_.place(y_axis_, y.subspan(done, count));
    std::visit([&](auto& source) { points_from(source, values.subspan(done, count)); }, cells_);
  }
}

template <typename Cell, typename Axis>
float PointEvaluation<Cell, Axis>::at(Coordinate x, Coordinate y) {
  float value = dummy;
  points(std::span(&x, 1), std::span(&y, 1), std::span(&value, 1));
  return value;
}

// The placed points.
template <typename Cell, typename Axis>
template <typename Source>
void PointEvaluation<Cell, Axis>::points_from(Source& source, std::span<float> values) {
  const bool runs = std::is_same_v<Cell, float> && scale_ == value_scale::linear;
  const RunLimits limits = {1, x_axis_.count - 2, y_axis_.count - 2};
  for (std::size_t i = 0; i < values.size();) {
    const std::size_t length = runs ? run_length(x_, y_, i, values.size(), limits) : 0;
    if (length < shortest_run || !run_from(source, i, values.subspan(i, length))) {
      values[i] = value_from(source, i);
      ++i;
    } else {
      i += length;
    }
  }
}

// Points from `from` on whose blocks follow each other; false where one must not or cannot be read.
template <typename Cell, typename Axis>
template <typename Source>
bool PointEvaluation<Cell, Axis>::run_from(Source& source, std::size_t from,
                                           std::span<float> values) {
  if constexpr (std::is_same_v<Cell, float>) {
    const auto length = static_cast<std::int32_t>(values.size());
    std::array<const float*, 3> rows;
    for (std::int32_t r = 0; r < 3; ++r) {
      const std::int32_t row = y_.base[from] + r - 1;
      const std::int32_t first = x_.base[from] - 1;
      const float* const cells =
          may_begin(source, row, first) && may_begin(source, row, first + length - 1)
              ? source.stretch(row, first, length + 2)
              : nullptr;
      if (cells == nullptr) {
        return false;
      }
      rows[static_cast<std::size_t>(r)] = cells;
    }
    std::array<std::int32_t, points_at_once> whole;
    biquadratic_run(rows, &x_.offset[from], &y_.offset[from], values.size(), values.data(),
                    whole.data());
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (whole[i] == 0) {
        values[i] = value_from(source, from + i);
      }
    }
  }
  return true;
}

template <typename Cell, typename Axis>
template <typename Source>
float PointEvaluation<Cell, Axis>::value_from(Source& source, std::size_t i) {
  std::int32_t column = x_.base[i];
  std::int32_t row = y_.base[i];
  double u = x_.offset[i];
  double v = y_.offset[i];
  if (column == outside_axis || row == outside_axis) {
    return dummy;
  }
  const Cell* const base = source.stretch(row, column, 1);
  if (base == nullptr || (Axis::looks_at_base_first && !has_data(*base))) {
    return dummy;
  }
  if (is_on_base(u, v)) {
    const auto value = static_cast<float>(*base);
    const bool stands = scale_ == value_scale::linear ? !std::isnan(value) : value > 0.0F;
    return stands ? value : dummy;
  }
  if (!has_data(*base)) {
    return dummy;
  }
  // On the edge the block moves inwards, and the point with it.
  const auto move_inwards = [](std::int32_t& index, double& offset, std::int32_t count) {
    const int inwards = index == count - 1 ? -1 : static_cast<int>(index == 0);
    index += inwards;
    offset -= inwards;
  };
  move_inwards(column, u, x_axis_.count);
  move_inwards(row, v, y_axis_.count);
  return hold_block(source, column, row) ? value_in_block(u, v) : dummy;
}

// Holds the block round a centre; false where it cannot be read, and none is held then.
template <typename Cell, typename Axis>
template <typename Source>
bool PointEvaluation<Cell, Axis>::hold_block(Source& source, std::int32_t column,
                                             std::int32_t row) {
  if (block_held_ && column == block_column_ && row == block_row_) {
    return true;
  }
  block_held_ = false;
  block_ = {};
  const std::int32_t first = std::max(column - 1, 0);
  const std::int32_t last = std::min(column + 1, x_axis_.count - 1);
  for (std::int32_t r = std::max(row - 1, 0); r <= std::min(row + 1, y_axis_.count - 1); ++r) {
    const Cell* const cells =
        may_begin(source, r, first) ? source.stretch(r, first, last - first + 1) : nullptr;
    if (cells == nullptr) {
      return false;
    }
    for (std::int32_t c = first; c <= last; ++c) {
      if (has_data(cells[c - first])) {
        const auto k = static_cast<std::uint32_t>(3 * (r - row + 1) + c - column + 1);
        block_.z[k] = on_scale(scale_, cells[c - first]);
        block_.present |= 1U << k;
      }
    }
  }
  block_column_ = column;
  block_row_ = row;
  block_held_ = true;
  return true;
}

template <typename Cell, typename Axis>
float PointEvaluation<Cell, Axis>::value_in_block(double u, double v) const {
  std::optional<double> value = block_value(block_, u, v);
  if (value && scale_ == value_scale::logarithmic && *value > lowest_logarithm) {
    value = std::pow(10.0, *value);
  }
  const float single = value ? static_cast<float>(*value) : dummy;
  return std::isnan(single) ? dummy : single;
}

GridPoints points_of_grid(std::span<const float> cells, std::int32_t storage_sense,
                          const Lattice& lattice, value_scale scale) {
  const CellLayout layout = {lattice.x_count, lattice.y_count, storage_sense == sense_top_down};
  return {MemoryCells<float>(cells, layout),
          {{lattice.x_min, lattice.x(lattice.x_count), lattice.x_cell, lattice.x_count}},
          {{lattice.y_min, lattice.y(lattice.y_count), lattice.y_cell, lattice.y_count}},
          scale};
}

GridPoints points_of_grid(const std::filesystem::path& path, const grid_description& grid,
                          value_scale scale) {
  return {
      open_cells<float>(path, layout_in_file(grid), grid.ints.data_offset, grid.ints.element_code),
      out_x_axis<double>(grid), out_y_axis<double>(grid), scale};
}

CellLayout layout_in_file(const grid_description& grid) noexcept {
  return {grid.ints.out_x_count, grid.ints.out_y_count, grid.ints.storage_sense != sense_bottom_up};
}

CellLayout layout_in_memory(const grid_description& grid) noexcept {
  return {grid.ints.out_x_count, grid.ints.out_y_count, grid.ints.storage_sense == sense_top_down};
}

template class PointEvaluation<float, HalfCellAxis<double>>;
template class PointEvaluation<float, HalfCellAxis<float>>;
template class PointEvaluation<float, EdgeAxis<double>>;
template class PointEvaluation<float, EdgeAxis<float>>;
template class PointEvaluation<std::int16_t, HalfCellAxis<double>>;

}  // namespace velmorankite
