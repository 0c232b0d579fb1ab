// SPDX-License-Identifier: MIT
#include "support/sampled_grid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "grid/dummy.h"
#include "grid/value_transform.h"

namespace velmorankite::testing {
namespace {

struct cell_reader {
  const std::vector<float>& cells;
  const grid_description& grid;
  std::int32_t mode;

  float operator()(int column, int row) const {
    if (column < 1 || column > grid.ints.x_count || row < 1 || row > grid.ints.y_count) {
      return dummy;
    }
    const float z = cells[cell_index(column, row, grid.ints.x_count)];
    return is_valid(z) ? transform_value(mode, z) : z;
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
  return is_valid(z) ? restore_value(mode, z) : z;
}

// f[0] to f[3] are the rows -1 to 2 round the base cell, each with its columns -1 to 2.
void patch(float (&f)[4][4], float nearest) {
  const auto take = [&f](int r, int c, float value) {
    float& cell = f[r + 1][c + 1];
    cell = is_valid(cell) ? cell : value;
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

// The interpolation at one point, as plainly as it can be put: nothing is kept, nothing is read
// ahead, every cell is looked up on its own. Slow, and the measure of the quick forms. `cells`
// holds all cells, row 1 first, whatever the sense of the description.
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
  if (std::fabs(fx) + std::fabs(fy) < 0.009999999776482582 || !is_valid(z)) {
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

}  // namespace

SampledGrid::SampledGrid(const Lattice& lattice, const cell_function& cell, std::int32_t sense) {
  write_grid(path_, lattice, cell, sense);
  description_ = describe(path_);
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      cells_.push_back(cell(column, row));
      stored_.push_back(cell(column, sense == 1 ? row : lattice.y_count + 1 - row));
    }
  }
}

CellInterpolator SampledGrid::open(bool in_memory, std::int32_t mode) const {
  return in_memory ? CellInterpolator(stored_, description_, mode)
                   : CellInterpolator(path_, description_, mode);
}

float SampledGrid::at(double x, double y, std::int32_t mode) const {
  float value = 0.0F;
  open(true, mode).points(std::span(&x, 1), std::span(&y, 1), std::span(&value, 1));
  return value;
}

std::vector<float> SampledGrid::plain_values(const std::vector<double>& x,
                                             const std::vector<double>& y,
                                             std::int32_t mode) const {
  std::vector<float> values(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    const double one_y = y[y.size() > 1 ? i : 0];
    values[i] = plain_interpolation(cells_, description_, mode, x[i], one_y);
  }
  return values;
}

cell_function rough_cells(double hole_share, unsigned seed) {
  return [=](std::int32_t column, std::int32_t row) {
    constexpr float holes[] = {dummy, -2.0E30F, std::numeric_limits<float>::quiet_NaN(),
                               -std::numeric_limits<float>::infinity()};
    std::mt19937 generator(seed + 1000U * static_cast<unsigned>(row) +
                           static_cast<unsigned>(column));
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    if (unit(generator) < hole_share) {
      return holes[generator() % 4];
    }
    return static_cast<float>(40.0 * unit(generator) - 20.0);
  };
}

std::vector<double> rough_coordinates(double origin, double cell, std::int32_t count, int how_many,
                                      std::mt19937& generator) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  const double lowest = origin - cell / 2.0;
  const double highest = origin + (count - 1) * cell + cell / 2.0;
  std::uniform_real_distribution<double> along(-1.0, count);
  std::vector<double> result(static_cast<std::size_t>(how_many));
  for (double& coordinate : result) {
    const double index = along(generator);
    const double centre = origin + std::floor(index) * cell;
    const double choices[] = {origin + index * cell,
                              origin + index * cell,
                              centre,
                              centre + 0.004 * cell,
                              centre - 0.0099999998 * cell,
                              centre + 0.5 * cell,
                              lowest,
                              highest,
                              std::nextafter(highest, std::numeric_limits<double>::max()),
                              nan};
    coordinate = choices[generator() % std::size(choices)];
  }
  return result;
}

}  // namespace velmorankite::testing
