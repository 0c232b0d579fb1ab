// SPDX-License-Identifier: MIT
#include "support/plain_interpolation.h"

#include <algorithm>
#include <cmath>

#include "grid/dummy.h"
#include "grid/value_transform.h"

namespace velmorankite::testing {
namespace {

bool is_hole(float z) {
  return !is_valid(z);
}

struct cell_reader {
  const std::vector<float>& cells;
  const grid_description& grid;
  std::int32_t mode;

  float operator()(int column, int row) const {
    if (column < 1 || column > grid.ints.x_count || row < 1 || row > grid.ints.y_count) {
      return dummy;
    }
    const float z = cells[static_cast<std::size_t>((row - 1) * grid.ints.x_count + column - 1)];
    return is_hole(z) ? z : transform_value(mode, z);
  }
};

int nearest_index(double from_origin, double cell, int count) {
  return static_cast<int>(
      std::clamp(std::trunc((cell / 2 + from_origin) / cell) + 1, 1.0, static_cast<double>(count)));
}

float result_of(float z, std::int32_t mode) {
  if (std::isnan(z)) {
    return dummy;
  }
  return is_hole(z) ? z : restore_value(mode, z);
}

// f[0] to f[3] are the rows -1 to 2 round the base cell, each with its columns -1 to 2.
void patch(float (&f)[4][4], float nearest) {
  const auto take = [&f](int r, int c, float value) {
    float& cell = f[r + 1][c + 1];
    cell = is_hole(cell) ? value : cell;
    return cell;
  };
  const float base = take(0, 0, nearest);
  const float below = take(-1, 0, base);
  take(-1, -1, below);
  take(-1, 2, take(-1, 1, below));
  take(0, -1, base);
  take(0, 2, take(0, 1, base));
  const float above = take(1, 0, base);
  take(1, -1, above);
  take(1, 2, take(1, 1, above));
  const float top = take(2, 0, above);
  take(2, -1, top);
  take(2, 2, take(2, 1, top));
}

}  // namespace

float plain_interpolation(const std::vector<float>& cells, const grid_description& grid,
                          std::int32_t mode, double x, double y) {
  const grid_reals& g = grid.reals;
  const bool outside = std::isnan(x) || std::isnan(y) || x < g.x_min - g.x_cell / 2 ||
                       x > g.x_max + g.x_cell / 2 || y < g.y_min - g.y_cell / 2 ||
                       y > g.y_max + g.y_cell / 2;
  if (outside) {
    return dummy;
  }
  const double u = x - g.x_min;
  const double v = y - g.y_min;
  int column = nearest_index(u, g.x_cell, grid.ints.x_count);
  int row = nearest_index(v, g.y_cell, grid.ints.y_count);
  double fx = (u - (column - 1) * g.x_cell) / g.x_cell;
  double fy = (v - (row - 1) * g.y_cell) / g.y_cell;
  const cell_reader read{cells, grid, mode};
  const float z = read(column, row);
  if (std::fabs(fx) + std::fabs(fy) < 0.009999999776482582 || is_hole(z)) {
    return result_of(z, mode);
  }
  if (fx < 0) {
    fx += 1;
    column -= 1;
  }
  if (fy < 0) {
    fy += 1;
    row -= 1;
  }
  float f[4][4];
  for (int r = -1; r <= 2; ++r) {
    for (int c = -1; c <= 2; ++c) {
      f[r + 1][c + 1] = read(column + c, row + r);
    }
  }
  patch(f, z);
  float column_values[4];
  for (int c = 0; c < 4; ++c) {
    const float p = f[0][c], q = f[1][c], r = f[2][c], s = f[3][c];
    const float a = (q - r) * 1.5F - 0.5F * p + 0.5F * s;
    const float b = (p - 2.5F * q) + 2.0F * r - 0.5F * s;
    const float d = 0.5F * r - 0.5F * p;
    const double value =
        static_cast<double>(q) +
        (static_cast<double>(d) + (static_cast<double>(b) + static_cast<double>(a) * fy) * fy) * fy;
    column_values[c] = static_cast<float>(value);
  }
  const double P = column_values[0], Q = column_values[1], R = column_values[2],
               S = column_values[3];
  const double value =
      Q + fx * ((R - P) * 0.5 +
                ((P - 2.5 * Q + 2.0 * R - 0.5 * S) + ((Q - R) * 1.5 + (S - P) * 0.5) * fx) * fx);
  return result_of(static_cast<float>(value), mode);
}

}  // namespace velmorankite::testing
