// SPDX-License-Identifier: MIT
#include "synthetic.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "grid/dummy.h"

namespace velmorankite::bench {
namespace {

constexpr double turn = 2.0 * std::numbers::pi;

double width(const Lattice& lattice) {
  return lattice.x(lattice.x_count) - lattice.x_min;
}

// From 0 at the lowest row to 1 at the highest.
double height_share(const Lattice& lattice, double y) {
  return (y - lattice.y_min) / (lattice.y(lattice.y_count) - lattice.y_min);
}

double meander(double share) {
  return std::sin(3.0 * turn * share) + 0.3 * std::sin(11.0 * turn * share);
}

}  // namespace

double uniform(Random& random) {
  return static_cast<double>(random()) / static_cast<double>(Random::max());
}

Field::Field(Random& random, double shortest_wave) {
  for (const double ratio : {1.0, 2.0, 4.0, 8.0, 16.0, 32.0}) {
    const double length = ratio * shortest_wave;
    waves_.push_back({ratio, turn / length, turn / (0.8 * length), turn * uniform(random),
                      turn * uniform(random)});
  }
}

void Field::row(const Lattice& lattice, std::int32_t row, float level,
                std::span<float> values) const {
  std::fill(values.begin(), values.end(), level);
  const double y = lattice.y(row);
  for (const Wave& wave : waves_) {
    const double height = wave.amplitude * std::cos(wave.ky * y + wave.phase_y);
    for (std::int32_t column = 1; column <= lattice.x_count; ++column) {
      values[static_cast<std::size_t>(column - 1)] +=
          static_cast<float>(height * std::sin(wave.kx * lattice.x(column) + wave.phase_x));
    }
  }
}

Holes::Holes(Random& random, const Lattice& lattice, double share) {
  // Discs fall on one another, so that n of area a leave exp(-n a / A) of the lattice A.
  double area_left = -std::log(1.0 - share) * static_cast<double>(lattice.cell_count());
  while (area_left > 0.0) {
    const Disc disc{lattice.x_count * uniform(random), lattice.y_count * uniform(random),
                    5.0 + 55.0 * uniform(random)};
    area_left -= std::numbers::pi * disc.radius * disc.radius;
    discs_.push_back(disc);
  }
}

void Holes::punch(std::int32_t row, std::span<float> values) const {
  const auto count = static_cast<double>(values.size());
  for (const Disc& disc : discs_) {
    const double apart = row - disc.row;
    if (std::abs(apart) < disc.radius) {
      const double half = std::sqrt(disc.radius * disc.radius - apart * apart);
      const auto first = static_cast<std::size_t>(std::max(0.0, disc.column - half));
      const auto last = static_cast<std::size_t>(std::clamp(disc.column + half, 0.0, count));
      std::fill(values.begin() + static_cast<std::ptrdiff_t>(std::min(first, last)),
                values.begin() + static_cast<std::ptrdiff_t>(last), dummy);
    }
  }
}

LineShape meandering(const Lattice& lattice) {
  return [lattice](double y) {
    const double share = height_share(lattice, y);
    return lattice.x_min + width(lattice) * (0.5 + 0.05 * meander(share));
  };
}

LineShape diagonal(const Lattice& lattice) {
  return [lattice](double y) {
    const double share = height_share(lattice, y);
    return lattice.x_min + width(lattice) * (share + 0.01 * meander(share));
  };
}

}  // namespace velmorankite::bench
