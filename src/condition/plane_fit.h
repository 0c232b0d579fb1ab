// Least-squares plane through samples: the sums and the solution, apart from any grid.
// SPDX-License-Identifier: MIT
#pragma once

namespace velmorankite {

// z = a + b x + c y.  x and y are distances in map units from the first cell of a grid, not map
// coordinates. On a storage sense other than 1 the first row is the highest, and y grows southwards
// from one cell there.
struct plane {
  float a = 0.0F;  // grid units
  float b = 0.0F;  // grid units per map unit along X
  float c = 0.0F;  // grid units per map unit along Y

  [[nodiscard]] double at(double x, double y) const noexcept {
    return static_cast<double>(a) + static_cast<double>(c) * y + static_cast<double>(b) * x;
  }
};

// The sums of the normal equations, in double precision.
struct plane_sums {
  double n = 0.0;
  double x = 0.0, y = 0.0, z = 0.0;
  double xx = 0.0, xy = 0.0, yy = 0.0;
  double xz = 0.0, yz = 0.0;

  void add(double sample_x, double sample_y, double sample_z) noexcept {
    n += 1.0;
    x += sample_x;
    y += sample_y;
    z += sample_z;
    xx += sample_x * sample_x;
    xy += sample_x * sample_y;
    yy += sample_y * sample_y;
    xz += sample_x * sample_z;
    yz += sample_y * sample_z;
  }
};

// Solves the normal equations by Cramer's rule. Samples on one line, or too few, determine no
// plane: |determinant| is then at most 1.0E-6, or 1.0E-11 of its largest product n xx yy. In that
// case a is their mean, `mean_without_samples` where there are none, and the slopes are 0.
[[nodiscard]] plane solve_plane(const plane_sums& sums, float mean_without_samples) noexcept;

}  // namespace velmorankite
