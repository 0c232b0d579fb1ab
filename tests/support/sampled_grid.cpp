// SPDX-License-Identifier: MIT
#include "support/sampled_grid.h"

#include <cmath>
#include <cstddef>
#include <limits>

#include "support/plain_interpolation.h"

namespace velmorankite::testing {

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
