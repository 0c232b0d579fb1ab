// SPDX-License-Identifier: MIT
#include "condition/level_axis.h"

#include <functional>

namespace velmorankite {
namespace {

GridAxis node_axis(double origin, double cell, std::int32_t count) {
  const double end = origin + (count - 1) * cell;
  return {origin, origin - cell / 2.0, end + cell / 2.0, cell, count};
}

axis_plan plan(std::int32_t point_count, const std::function<double(std::int32_t)>& coordinate,
               const GridAxis& nodes) {
  const auto size = static_cast<std::size_t>(point_count);
  axis_plan plan;
  plan.nearest.resize(size);
  plan.offset.resize(size);
  plan.base.resize(size);
  plan.fraction.resize(size);
  for (std::size_t i = 0; i < size; ++i) {
    const double point = coordinate(static_cast<std::int32_t>(i) + 1);
    if (nodes.contains(point)) {
      const AxisPlace place = nodes.place(point);
      plan.nearest[i] = place.nearest;
      plan.offset[i] = place.offset;
      plan.base[i] = place.base();
      plan.fraction[i] = place.fraction();
    }
  }
  return plan;
}

}  // namespace

axis_plan plan_columns(const Lattice& points, const Lattice& nodes) {
  return plan(
      points.x_count, [&points](std::int32_t column) { return points.x(column); },
      node_axis(nodes.x_min, nodes.x_cell, nodes.x_count));
}

axis_plan plan_rows(const Lattice& points, const Lattice& nodes) {
  return plan(
      points.y_count, [&points](std::int32_t row) { return points.y(row); },
      node_axis(nodes.y_min, nodes.y_cell, nodes.y_count));
}

}  // namespace velmorankite
