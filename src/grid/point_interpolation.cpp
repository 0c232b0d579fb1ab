// SPDX-License-Identifier: MIT
#include "grid/point_interpolation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "grid/row_interpolation.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Points that are placed, then brought along Y, then along X, each step for all of them: what lies
// between stays in the first-level cache, and the loops run without branches.
constexpr std::size_t points_at_once = 128;
constexpr std::size_t cells_at_once = 4 * points_at_once;

// Where points fall along one axis: GridAxis::place, one entry a point.
struct Places {
  static constexpr std::int32_t outside = 0;
  std::int32_t base[points_at_once];
  std::int32_t nearest[points_at_once];  // or outside
  double fraction[points_at_once];
  double distance[points_at_once];
};

// The four rows of cells round each point, four columns a point, and what becomes of them.
struct Blocks {
  float p[cells_at_once];  // the lowest row
  float q[cells_at_once];
  float r[cells_at_once];
  float s[cells_at_once];
  double fraction[cells_at_once];        // of the point, along Y
  float values[cells_at_once];           // of the columns, at the point's Y
  std::int32_t complete[cells_at_once];  // whether a column has its four cells
};

VELMORANKITE_VECTOR_CLONES
void place(const GridAxis axis, const double* coordinates, std::size_t count, Places& places) {
  std::int32_t* const base = places.base;
  std::int32_t* const nearest = places.nearest;
  double* const fraction = places.fraction;
  double* const distance = places.distance;
  for (std::size_t i = 0; i < count; ++i) {
    const AxisPlace at = axis.place(coordinates[i]);
    base[i] = at.base();
    nearest[i] = axis.contains(coordinates[i]) ? at.nearest : Places::outside;
    fraction[i] = at.fraction();
    distance[i] = std::fabs(at.offset);
  }
}

// Points too near the rim of the window take the nearest four by four cells that there are.
void gather(const CellWindow cells, const Places& x, const Places& y, std::size_t count,
            Blocks& blocks) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t column =
        std::clamp(x.base[i], cells.first_column + 1, cells.last_column - 2);
    const std::int32_t row = std::clamp(y.base[i], cells.first_row + 1, cells.last_row - 2);
    const float* const f = cells.at(column - 1, row - 1);
    std::copy_n(f, 4, &blocks.p[4 * i]);
    std::copy_n(f + cells.row_step, 4, &blocks.q[4 * i]);
    std::copy_n(f + 2 * cells.row_step, 4, &blocks.r[4 * i]);
    std::copy_n(f + 3 * cells.row_step, 4, &blocks.s[4 * i]);
    std::fill_n(&blocks.fraction[4 * i], 4, y.fraction[i]);
  }
}

VELMORANKITE_VECTOR_CLONES
void evaluate_columns(Blocks& blocks, std::size_t count) {
  for (std::size_t k = 0; k < 4 * count; ++k) {
    const float p = blocks.p[k];
    const float q = blocks.q[k];
    const float r = blocks.r[k];
    const float s = blocks.s[k];
    blocks.values[k] = column_value(p, q, r, s, blocks.fraction[k]);
    blocks.complete[k] =
        static_cast<std::int32_t>(is_valid(p)) & static_cast<std::int32_t>(is_valid(q)) &
        static_cast<std::int32_t>(is_valid(r)) & static_cast<std::int32_t>(is_valid(s));
  }
}

VELMORANKITE_VECTOR_CLONES
void evaluate_rows(const Blocks& blocks, const Places& x, std::size_t count, float* values) {
  for (std::size_t i = 0; i < count; ++i) {
    const float* const f = &blocks.values[4 * i];
    values[i] = row_value(f[0], f[1], f[2], f[3], x.fraction[i]);
  }
}

bool is_complete(const Blocks& blocks, std::size_t i) noexcept {
  const std::int32_t* const columns = &blocks.complete[4 * i];
  return (columns[0] & columns[1] & columns[2] & columns[3]) != 0;
}

// The value beside a hole or the rim, of the cells one by one.
float patched_value(const CellWindow& cells, const Places& x, const Places& y, std::size_t i,
                    float nearest) {
  CellBlock block;
  for (int r = -1; r <= 2; ++r) {
    for (int c = -1; c <= 2; ++c) {
      const std::int32_t column = x.base[i] + c;
      const std::int32_t row = y.base[i] + r;
      block.at(r, c) = cells.holds(column, row) ? *cells.at(column, row) : dummy;
    }
  }
  const four_rows rows = {block.f[0], block.f[1], block.f[2], block.f[3]};
  return interpolate_patched(rows, nearest, x.fraction[i], y.fraction[i]);
}

// Puts right the points outside, at the rim, on a cell, on an empty one or beside a hole.
void take_one_by_one(const CellWindow& cells, const Places& x, const Places& y,
                     const Blocks* blocks, std::span<float> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (x.nearest[i] == Places::outside || y.nearest[i] == Places::outside) {
      values[i] = dummy;
      continue;
    }
    const bool on_cell = is_on_cell(x.distance[i], y.distance[i]);
    const bool whole = blocks != nullptr && is_complete(*blocks, i) &&
                       cells.holds(x.base[i] - 1, y.base[i] - 1) &&
                       cells.holds(x.base[i] + 2, y.base[i] + 2);
    if (whole && !on_cell) {
      continue;
    }
    const float nearest =
        cells.holds(x.nearest[i], y.nearest[i]) ? *cells.at(x.nearest[i], y.nearest[i]) : dummy;
    values[i] = on_cell || !is_valid(nearest) ? nearest : patched_value(cells, x, y, i, nearest);
  }
}

}  // namespace

void interpolate_points(const CellWindow& cells, const GridAxis& x_axis, const GridAxis& y_axis,
                        std::span<const double> x, std::span<const double> y,
                        std::span<float> values) {
  const bool has_block =
      cells.last_column - cells.first_column >= 3 && cells.last_row - cells.first_row >= 3;
  Places x_places;
  Places y_places;
  Blocks blocks;
  for (std::size_t done = 0; done < values.size(); done += points_at_once) {
    const std::size_t count = std::min(points_at_once, values.size() - done);
    const std::span<float> some = values.subspan(done, count);
    place(x_axis, &x[done], count, x_places);
    place(y_axis, &y[done], count, y_places);
    if (has_block) {
      gather(cells, x_places, y_places, count, blocks);
      evaluate_columns(blocks, count);
      evaluate_rows(blocks, x_places, count, some.data());
    }
    take_one_by_one(cells, x_places, y_places, has_block ? &blocks : nullptr, some);
  }
}

}  // namespace velmorankite
