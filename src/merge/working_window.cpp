// SPDX-License-Identifier: MIT
#include "merge/working_window.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "grid/dummy.h"
#include "platform/number_text.h"

namespace velmorankite {
namespace {

using platform::shortest;

// The band must be at least this many X cells wide, so that a cell of it lies on each side of
// the line.
constexpr double least_reach = 2.0;

// One axis of the output lattice, and what of it the stitch wants.
struct axis {
  std::string name;
  double min;
  double max;
  double cell;
  double band_low;  // limits of the line and the band around it
  double band_high;
  double lowest;  // the same, cut to the lattice and widened to the adjusted grid
  double highest;
};

// The window along one axis. Indices count from 1 on the output lattice.
struct axis_window {
  double min = 0.0;
  double max = 0.0;
  std::int32_t count = 0;
  std::int32_t first = 0;
  std::int32_t last = 0;
};

// The whole part of a number of cells; nothing if it is no 32-bit number.
std::optional<std::int32_t> whole(double cells) {
  constexpr double limit = 2147483648.0;  // 2^31
  if (!(cells > -limit && cells < limit)) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(cells);
}

Outcome check_numbers(const stitch_parameters& p) {
  const Lattice& lattice = p.lattice;
  const double reach = static_cast<double>(band_reach(p));
  const auto is_size = [](double value) { return std::isfinite(value) && value > 0.0; };
  if (!is_size(lattice.x_cell) || !is_size(lattice.y_cell)) {
    return impossible("cell sizes above 0 are needed, " + shortest(lattice.x_cell) + " and " +
                      shortest(lattice.y_cell) + " are given");
  }
  if (!std::isfinite(lattice.x_min) || !std::isfinite(p.lattice_x_max) ||
      !std::isfinite(lattice.y_min) || !std::isfinite(p.lattice_y_max)) {
    return impossible("the limits of the output lattice are not all finite numbers");
  }
  if (!is_size(static_cast<double>(p.blend_width)) || !std::isfinite(reach)) {
    return impossible("a blend_width above 0 and a finite band_margin are needed, " +
                      shortest(p.blend_width) + " and " + shortest(p.band_margin) + " are given");
  }
  if (reach / lattice.x_cell < least_reach) {
    return impossible("blend_width + band_margin is " + shortest(band_reach(p)) +
                      ", at least two X cell sizes (" + shortest(least_reach * lattice.x_cell) +
                      ") are needed");
  }
  // Distances are measured in blend widths and must stay far from the dummy.
  if (!is_valid(-band_reach(p) / p.blend_width)) {
    return impossible("blend_width is " + shortest(p.blend_width) +
                      ", too small beside a band of " + shortest(band_reach(p)));
  }
  return {};
}

Outcome check_line(const stitch_line& line) {
  if (line.x.size() < 2) {
    return impossible("a stitch line needs at least 2 vertices, " + std::to_string(line.x.size()) +
                      " given");
  }
  const auto finite = [](double value) { return std::isfinite(value); };
  if (!std::all_of(line.x.begin(), line.x.end(), finite) ||
      !std::all_of(line.y.begin(), line.y.end(), finite)) {
    return impossible("a vertex of the stitch line is not a finite number");
  }
  return {};
}

Outcome check_limits(const grid_reals& grid) {
  if (std::isfinite(grid.x_min) && std::isfinite(grid.x_max) && std::isfinite(grid.y_min) &&
      std::isfinite(grid.y_max)) {
    return {};
  }
  return impossible("the limits of the adjusted grid are not all finite numbers");
}

// An axis with the line and `reach` beyond it, cut to the lattice.
axis around(std::string name, double min, double max, double cell, std::span<const double> vertices,
            double reach) {
  const auto [least, most] = std::minmax_element(vertices.begin(), vertices.end());
  const double low = *least - reach;
  const double high = *most + reach;
  return {std::move(name), min, max, cell, low, high, std::max(min, low), std::min(max, high)};
}

void widen(axis& wanted, double grid_min, double grid_max) {
  wanted.lowest = std::min(grid_min, wanted.lowest);
  wanted.highest = std::max(grid_max, wanted.highest);
}

// The lattice position at or towards the origin from `position`.
double snap(const axis& a, double position) {
  return a.min + std::trunc((position - a.min) / a.cell) * a.cell;
}

Outcome snap_axis(const axis& a, axis_window& window) {
  window.min = std::max(a.min, snap(a, a.lowest));
  window.max = std::min(a.max, snap(a, a.highest));
  if (!(window.min <= a.max) || !(window.max >= a.min)) {
    return impossible("line and output lattice do not meet: along " + a.name +
                      " the lattice goes from " + shortest(a.min) + " to " + shortest(a.max) +
                      ", the line with its band from " + shortest(a.band_low) + " to " +
                      shortest(a.band_high));
  }
  const std::optional<std::int32_t> count = whole((window.max - window.min) / a.cell + 1.0);
  const std::optional<std::int32_t> first = whole((window.min - a.min) / a.cell + 1.0);
  const std::optional<std::int32_t> last = whole((window.max - a.min) / a.cell + 1.0);
  if (!count || !first || !last) {
    return impossible("the working window goes from " + shortest(window.min) + " to " +
                      shortest(window.max) + " along " + a.name + ", which is more cells of " +
                      shortest(a.cell) + " than can be counted");
  }
  window.count = *count;
  window.first = *first;
  // Count and last index are rounded on their own: no index may lead past the window's cells.
  const std::int64_t last_cell = std::int64_t{*first} + *count - 1;
  window.last = static_cast<std::int32_t>(std::min(std::int64_t{*last}, last_cell));
  return {};
}

Outcome check_size(const axis_window& x, const axis_window& y, const Lattice& lattice,
                   float blend_width) {
  const double wide = static_cast<double>(x.count) * lattice.x_cell;
  const double high = static_cast<double>(y.count) * lattice.y_cell;
  const double blend = static_cast<double>(blend_width);
  if (blend > wide || blend > high) {
    return impossible("blend_width is " + shortest(blend_width) + ", the working window is only " +
                      shortest(wide) + " by " + shortest(high) + " (" + std::to_string(x.count) +
                      " by " + std::to_string(y.count) + " cells)");
  }
  constexpr std::int64_t most_cells =
      std::numeric_limits<std::ptrdiff_t>::max() / static_cast<std::int64_t>(sizeof(float));
  if (x.count > most_cells / y.count) {
    return impossible("the working window of " + std::to_string(x.count) + " by " +
                      std::to_string(y.count) + " cells is larger than any memory");
  }
  return {};
}

}  // namespace

Outcome snap_window(const stitch_parameters& parameters, const grid_description& adjusted,
                    const stitch_line& line, working_window& window) {
  if (Outcome outcome = check_numbers(parameters); outcome.failed()) return outcome;
  if (Outcome outcome = check_line(line); outcome.failed()) return outcome;
  const Lattice& lattice = parameters.lattice;
  const double reach = static_cast<double>(band_reach(parameters));
  axis along_x =
      around("X", lattice.x_min, parameters.lattice_x_max, lattice.x_cell, line.x, reach);
  axis along_y =
      around("Y", lattice.y_min, parameters.lattice_y_max, lattice.y_cell, line.y, reach);
  if (parameters.correction_distance > 0.0F) {
    if (Outcome outcome = check_limits(adjusted.reals); outcome.failed()) return outcome;
    widen(along_x, adjusted.reals.x_min, adjusted.reals.x_max);
    widen(along_y, adjusted.reals.y_min, adjusted.reals.y_max);
  }
  axis_window x;
  axis_window y;
  if (Outcome outcome = snap_axis(along_x, x); outcome.failed()) return outcome;
  if (Outcome outcome = snap_axis(along_y, y); outcome.failed()) return outcome;
  if (Outcome outcome = check_size(x, y, lattice, parameters.blend_width); outcome.failed()) {
    return outcome;
  }
  window = {{x.min, y.min, lattice.x_cell, lattice.y_cell, x.count, y.count},
            x.max,
            y.max,
            x.first,
            x.last,
            y.first,
            y.last};
  return {};
}

}  // namespace velmorankite
