// SPDX-License-Identifier: MIT
#include "condition/level_interpolation.h"

#include <algorithm>
#include <cmath>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

VELMORANKITE_VECTOR_CLONES std::int32_t count_blanks(const float* cells, std::size_t count) {
  std::int32_t blanks = 0;
  for (std::size_t i = 0; i < count; ++i) {
    blanks += is_valid(cells[i]) ? 0 : 1;
  }
  return blanks;
}

// The cubic along Y through four rows of nodes.
VELMORANKITE_VECTOR_CLONES void cross_rows(const float* p, const float* q, const float* r,
                                           const float* s, double fraction, std::size_t count,
                                           double* values) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = static_cast<double>(column_value(p[i], q[i], r[i], s[i], fraction));
  }
}

}  // namespace

LevelInterpolation::LevelInterpolation(const Lattice& points, LevelRows& nodes)
    : points_(points),
      nodes_(nodes),
      interpolator_(nodes.lattice(), [&nodes](std::int32_t row) { return nodes.row(row); }),
      x_(x_of_columns(points)),
      y_axis_(y_axis(nodes.lattice())),
      values_(x_.size()) {
  columns_.make(x_axis(nodes.lattice()), x_);
  column_values_.resize(static_cast<std::size_t>(columns_.last_column - columns_.first_column) + 1);
}

void LevelInterpolation::row(std::int32_t row, std::span<float> values) {
  interpolator_.row(x_, points_.y(row), values);
}

fill_count LevelInterpolation::fill_row(std::int32_t row, bool complete, std::span<float> cells) {
  fill_count result;
  result.filled = count_blanks(cells.data(), cells.size());
  if (result.filled == 0) {
    return result;
  }
  const double y = points_.y(row);
  const AxisPlace place = y_axis_.place(y);
  const bool inside = y_axis_.contains(y) && place.base() >= 2 &&
                      place.base() + 2 <= nodes_.lattice().y_count && columns_.begin == 0 &&
                      columns_.end == cells.size();
  if (complete && inside) {
    result.lost = fill_between(place, cells);
    return result;
  }
  this->row(row, values_);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      cells[i] = values_[i];
      result.lost += is_valid(cells[i]) ? 0 : 1;
    }
  }
  return result;
}

// Between rows of valid nodes nothing is patched but the columns beyond their ends, where the
// outermost goes on; so the columns are brought to the row's Y as a whole.
std::int64_t LevelInterpolation::fill_between(const AxisPlace& y, std::span<float> cells) {
  const std::int32_t base = y.base();
  const std::span<const float> nodes[] = {nodes_.row(base - 1), nodes_.row(base),
                                          nodes_.row(base + 1), nodes_.row(base + 2)};
  const std::span<double> columns = column_values_;
  const auto ahead = static_cast<std::size_t>(1 - columns_.first_column);
  const std::size_t there = std::min(nodes[0].size(), columns.size() - ahead);
  cross_rows(nodes[0].data(), nodes[1].data(), nodes[2].data(), nodes[3].data(), y.fraction(),
             there, &columns[ahead]);
  std::ranges::fill(columns.first(ahead), columns[ahead]);
  std::ranges::fill(columns.subspan(ahead + there), columns[ahead + there - 1]);

  const std::span<const float> nearest_row = y.nearest > base ? nodes[2] : nodes[1];
  const double y_distance = std::fabs(y.offset);
  std::int64_t lost = 0;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (is_valid(cells[i])) {
      continue;
    }
    const double* const f = &columns[static_cast<std::size_t>(columns_.left[i])];
    const float value = is_on_cell(columns_.distance[i], y_distance)
                            ? nearest_row[static_cast<std::size_t>(columns_.nearest[i]) - ahead]
                            : row_value(f[0], f[1], f[2], f[3], columns_.fraction[i]);
    cells[i] = std::isnan(value) ? dummy : value;
    lost += is_valid(cells[i]) ? 0 : 1;
  }
  return lost;
}

}  // namespace velmorankite
