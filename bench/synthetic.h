// Seeded fields, holes and lines for benchmarks: the same on every machine.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <functional>
#include <random>
#include <span>
#include <vector>

#include "grid/lattice.h"

namespace velmorankite::bench {

using Random = std::mt19937;

// Uniform from 0 to 1; the standard's own distributions differ from library to library.
double uniform(Random& random);

// A smooth relief: a sum of six waves, each twice as long and high as the one before.
class Field {
 public:
  Field(Random& random, double shortest_wave);
  // Values of one lattice row, from 1, with `level` added.
  void row(const Lattice& lattice, std::int32_t row, float level, std::span<float> values) const;

 private:
  struct Wave {
    double amplitude, kx, ky, phase_x, phase_y;
  };
  std::vector<Wave> waves_;
};

// Round holes of 5 to 60 cells' radius, strewn until about `share` of the lattice is blank.
class Holes {
 public:
  Holes(Random& random, const Lattice& lattice, double share);
  void punch(std::int32_t row, std::span<float> values) const;

 private:
  struct Disc {
    double column, row, radius;
  };
  std::vector<Disc> discs_;
};

// A line from the south edge to the north edge of a lattice: x as a function of y.
using LineShape = std::function<double(double y)>;

// Up the middle, with meanders of a twentieth of the width.
LineShape meandering(const Lattice& lattice);
// From corner to corner, so that the working window is the whole lattice.
LineShape diagonal(const Lattice& lattice);

}  // namespace velmorankite::bench
