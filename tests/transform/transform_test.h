// A fixture for runs of the transform engine from file to file.
// SPDX-License-Identifier: MIT
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/grids.h"
#include "support/temporary_folder.h"
#include "transform/transform_driver.h"

namespace velmorankite::testing {

inline constexpr Lattice lattice{100.0, 200.0, 2.0, 2.0, 61, 47};

// Vertical attraction of a point mass `depth` below the middle of the grid, without units.
inline float attraction(std::int32_t column, std::int32_t row, double depth) {
  const double x = (column - 31) * lattice.x_cell;
  const double y = (row - 24) * lattice.y_cell;
  return static_cast<float>(1.0E4 * depth / std::pow(x * x + y * y + depth * depth, 1.5));
}

// Runs stand in a folder of their own, from "in.grd" to "out.grd".
class TransformTest : public ::testing::Test {
 protected:
  transform_request request(std::int32_t filter, float first = 0.0F, const char* input = "in.grd") {
    transform_request r;
    r.in_grid = (folder / input).string();
    r.grid = describe(r.in_grid);
    r.out_grid = (folder / "out.grd").string();
    r.filter = filter;
    r.pad_width = 8;
    r.filter_width = 5;
    r.detrend = 2;
    r.fft_mode = fft_mode_memory;
    r.real_par[0] = first;
    return r;
  }

  Status run(const transform_request& r) { return TRSD(r, range); }
  [[nodiscard]] std::string log() const { return read_file(folder / "out_trs.log"); }

  TemporaryFolder folder;
  CurrentFolder inside{folder.path()};
  transform_range range;
};

}  // namespace velmorankite::testing
