// A small grid both on disk and in memory, to be sampled and held against the plain reading.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <random>
#include <vector>

#include "grid/cell_interpolation.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite::testing {

class SampledGrid {
 public:
  SampledGrid(const Lattice& lattice, const cell_function& cell, std::int32_t sense = 1);

  [[nodiscard]] CellInterpolator open(bool in_memory = false, std::int32_t mode = 1) const;
  [[nodiscard]] float at(double x, double y, std::int32_t mode = 1) const;
  // One value for each of x, with the y of the same place or the one y of all.
  [[nodiscard]] std::vector<float> plain_values(const std::vector<double>& x,
                                                const std::vector<double>& y,
                                                std::int32_t mode = 1) const;
  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] const grid_description& description() const { return description_; }
  [[nodiscard]] const std::vector<float>& stored() const { return stored_; }

 private:
  TemporaryFolder folder_;
  std::filesystem::path path_ = folder_ / "a.grd";
  grid_description description_;
  std::vector<float> cells_;   // row 1 first
  std::vector<float> stored_;  // as the sense has them
};

// Cells from -20 to 20, `hole_share` of them holes of several kinds.
cell_function rough_cells(double hole_share, unsigned seed);

// Coordinates along one axis, in and beyond the grid: at centres, beside them, at the limits.
std::vector<double> rough_coordinates(double origin, double cell, std::int32_t count, int how_many,
                                      std::mt19937& generator);

}  // namespace velmorankite::testing
