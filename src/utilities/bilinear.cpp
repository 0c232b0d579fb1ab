// SPDX-License-Identifier: MIT
#include "utilities/bilinear.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

constexpr std::size_t points_at_once = 256;

// Where points fall along one axis.
struct Places {
  static constexpr std::int32_t outside = 0;
  std::int32_t cell[points_at_once];    // at or below the point, from 1; or outside
  std::int32_t square[points_at_once];  // the lower cell of the square
  float fraction[points_at_once];       // distance from that, in cells
};

struct Squares {
  float a[points_at_once];
  float b[points_at_once];
  float c[points_at_once];
  float d[points_at_once];
  std::int32_t complete[points_at_once];
};

// The value inside a complete square.
inline float plain_value(float a, float b, float c, float d, float u, float v) noexcept {
  return (1.0F - v) * (a * (1.0F - u) + b * u) + v * (c * (1.0F - u) + d * u);
}

// The outermost cell has no square beyond it and takes the one before, with one more cell to go.
VELMORANKITE_VECTOR_CLONES
void place(const double origin, const double cell_size, const std::int32_t cell_count,
           const double* coordinates, std::size_t count, Places& places) {
  std::int32_t* const cell = places.cell;
  std::int32_t* const square = places.square;
  float* const fraction = places.fraction;
  const double beyond = cell_count;
  for (std::size_t i = 0; i < count; ++i) {
    const double place = (coordinates[i] - origin) / cell_size;
    const bool inside = static_cast<int>(place > -1.0) & static_cast<int>(place < beyond);
    const double held = inside ? place : 0.0;
    const auto whole = static_cast<std::int32_t>(held);
    const auto ahead = static_cast<float>(held - whole);
    const bool outermost = whole == cell_count - 1;
    cell[i] = inside ? whole + 1 : Places::outside;
    square[i] = outermost ? whole : whole + 1;
    fraction[i] = outermost ? ahead + 1.0F : ahead;
  }
}

// Points outside take any square of the window.
void gather(const CellWindow cells, const Places& x, const Places& y, std::size_t count,
            Squares& squares) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::int32_t column = std::clamp(x.square[i], cells.first_column, cells.last_column - 1);
    const std::int32_t row = std::clamp(y.square[i], cells.first_row, cells.last_row - 1);
    const float* const lower = cells.at(column, row);
    const float* const upper = lower + cells.row_step;
    squares.a[i] = lower[0];
    squares.b[i] = lower[1];
    squares.c[i] = upper[0];
    squares.d[i] = upper[1];
  }
}

VELMORANKITE_VECTOR_CLONES
void evaluate(Squares& squares, const Places& x, const Places& y, std::size_t count,
              float* values) {
  for (std::size_t i = 0; i < count; ++i) {
    const float a = squares.a[i];
    const float b = squares.b[i];
    const float c = squares.c[i];
    const float d = squares.d[i];
    values[i] = plain_value(a, b, c, d, x.fraction[i], y.fraction[i]);
    squares.complete[i] =
        static_cast<std::int32_t>(is_valid(a)) & static_cast<std::int32_t>(is_valid(b)) &
        static_cast<std::int32_t>(is_valid(c)) & static_cast<std::int32_t>(is_valid(d));
  }
}

// Puts right the points outside and those of a square that lacks a cell.
void take_one_by_one(const Places& x, const Places& y, const Squares& squares,
                     std::span<float> values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (x.cell[i] == Places::outside || y.cell[i] == Places::outside) {
      values[i] = dummy;
    } else if (squares.complete[i] == 0) {
      const cell_square square = {squares.a[i], squares.b[i], squares.c[i], squares.d[i]};
      const bool right = x.cell[i] != x.square[i];
      const bool upper = y.cell[i] != y.square[i];
      const float lower_base = right ? square.b : square.a;
      const float upper_base = right ? square.d : square.c;
      const float base = upper ? upper_base : lower_base;
      values[i] = base > dummy ? square_value(square, x.fraction[i], y.fraction[i]) : dummy;
    }
    values[i] = std::isnan(values[i]) ? dummy : values[i];
  }
}

}  // namespace

float square_value(cell_square square, float u, float v) noexcept {
  auto& [a, b, c, d] = square;
  const auto both = [](float one, float other) { return is_valid(one) && is_valid(other); };
  const bool bottom = both(a, b);
  const bool top = both(c, d);
  const bool left = both(a, c);
  const bool right = both(b, d);
  if (bottom && !top && left) {
    d = b + (c - a);
  } else if (bottom && !top && right) {
    c = a + (d - b);
  } else if (top && !bottom && left) {
    b = d - (c - a);
  } else if (top && !bottom && right) {
    a = c - (d - b);
  } else if (!top || !bottom) {
    return dummy;
  }
  return plain_value(a, b, c, d, u, v);
}

void bilinear_points(const CellWindow& cells, const Lattice& grid, std::span<const double> x,
                     std::span<const double> y, std::span<float> values) {
  if (cells.last_column <= cells.first_column || cells.last_row <= cells.first_row) {
    std::ranges::fill(values, dummy);  // no point lies near enough to want a square
    return;
  }
  Places x_places;
  Places y_places;
  Squares squares;
  for (std::size_t done = 0; done < values.size(); done += points_at_once) {
    const std::size_t count = std::min(points_at_once, values.size() - done);
    const std::span<float> some = values.subspan(done, count);
    place(grid.x_min, grid.x_cell, grid.x_count, &x[done], count, x_places);
    place(grid.y_min, grid.y_cell, grid.y_count, &y[done], count, y_places);
    gather(cells, x_places, y_places, count, squares);
    evaluate(squares, x_places, y_places, count, some.data());
    take_one_by_one(x_places, y_places, squares, some);
  }
}

}  // namespace velmorankite
