// SPDX-License-Identifier: MIT
#include "condition/halving_columns.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

VELMORANKITE_VECTOR_CLONES std::int32_t count_blanks(const float* cells, std::size_t count) {
  std::int32_t blanks = 0;
  for (std::size_t i = 0; i < count; ++i) {
    blanks += is_valid(cells[i]) ? 0 : 1;
  }
  return blanks;
}

// Where a cell is blank it takes the value of its point; gives the number of these that are not
// valid.
VELMORANKITE_VECTOR_CLONES std::int32_t take_where_blank(const float* points, std::size_t count,
                                                         float* cells) {
  std::int32_t lost = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const bool blank = !is_valid(cells[i]);
    const float value = std::isnan(points[i]) ? dummy : points[i];
    lost += blank && !is_valid(value) ? 1 : 0;
    cells[i] = blank ? value : cells[i];
  }
  return lost;
}

// The cubic along Y through four rows of nodes.
VELMORANKITE_VECTOR_CLONES void cross_rows(const float* p, const float* q, const float* r,
                                           const float* s, double fraction, std::size_t count,
                                           double* values) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = static_cast<double>(column_value(p[i], q[i], r[i], s[i], fraction));
  }
}

// `a` where all bits of the mask are set, `b` where none is: a choice that vectorises.
inline double choose(std::uint64_t mask, double a, double b) {
  return std::bit_cast<double>((std::bit_cast<std::uint64_t>(a) & mask) |
                               (std::bit_cast<std::uint64_t>(b) & ~mask));
}

// The cubic along X at points on the nodes, or a hair before or behind them. Node i stands in
// values[i + 2].
VELMORANKITE_VECTOR_CLONES void values_on_nodes(const double* values, const double* fraction,
                                                const std::uint64_t* before, std::size_t count,
                                                float* points) {
  const double* const g = values;
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint64_t early = before[i];
    points[i] = row_value(choose(early, g[i], g[i + 1]), choose(early, g[i + 1], g[i + 2]),
                          choose(early, g[i + 2], g[i + 3]), choose(early, g[i + 3], g[i + 4]),
                          fraction[i]);
  }
}

// Puts the points on the nodes and, by the cubic along X, those behind each of them in a row.
VELMORANKITE_VECTOR_CLONES void values_in_pairs(const double* values, const double* fraction,
                                                const float* on_nodes, std::size_t count,
                                                float* points) {
  const double* const g = values;
  for (std::size_t i = 0; i < count; ++i) {
    points[2 * i] = on_nodes[i];
    points[2 * i + 1] = row_value(g[i + 1], g[i + 2], g[i + 3], g[i + 4], fraction[i]);
  }
}

}  // namespace

HalvingColumns::HalvingColumns(const axis_plan& columns, std::int32_t node_count)
    : node_count_(static_cast<std::size_t>(node_count)) {
  // A run reads a whole number of pairs, the last of which may lack its even column.
  node_fraction_.resize(node_count_);
  half_fraction_.resize(node_count_);
  before_.resize(node_count_);
  for (std::size_t i = 0; i < columns.nearest.size(); ++i) {
    const std::size_t pair = i / 2;
    const auto node = static_cast<std::int32_t>(pair) + 1;
    const std::int32_t base = columns.base[i];
    if (i % 2 == 0) {
      if (columns.nearest[i] != node || base < 1) {
        return;
      }
      node_fraction_[pair] = columns.fraction[i];
      before_[pair] = base < node ? ~std::uint64_t{0} : 0;
      largest_offset_ = std::max(largest_offset_, std::abs(columns.offset[i]));
    } else {
      constexpr double clearly_between = 0.25;
      if (base != node || columns.nearest[i] == 0 ||
          std::abs(columns.offset[i]) < clearly_between) {
        return;
      }
      half_fraction_[pair] = columns.fraction[i];
    }
  }
  regular_ = true;
}

// Beyond the ends of the nodes their outermost column goes on.
void HalvingColumns::column_values(const std::array<std::span<const float>, 4>& nodes,
                                   double fraction, std::size_t first, std::size_t count,
                                   run_values& values) const {
  const std::size_t lead = first >= 2 ? 0 : 2 - first;
  const std::size_t from = first + lead - 2;
  const std::size_t end = std::min(first + count + 2, node_count_);
  double* const g = values.data() + lead;
  cross_rows(nodes[0].data() + from, nodes[1].data() + from, nodes[2].data() + from,
             nodes[3].data() + from, fraction, end - from, g);
  std::fill_n(values.data(), lead, g[0]);
  const std::size_t done = lead + end - from;
  std::fill(values.data() + done, values.data() + count + 4, values[done - 1]);
}

fill_count HalvingColumns::fill(const std::array<std::span<const float>, 4>& nodes, double fraction,
                                std::span<const float> node_row, std::span<float> cells) const {
  fill_count result;
  run_values values;
  std::array<float, run> on_nodes;
  std::array<float, 2 * run> points;
  for (std::size_t first = 0; 2 * first < cells.size(); first += run) {
    float* const run_cells = cells.data() + 2 * first;
    const std::size_t cell_count = std::min(2 * run, cells.size() - 2 * first);
    const std::int32_t blanks = count_blanks(run_cells, cell_count);
    if (blanks == 0) {
      continue;
    }
    const std::size_t count = (cell_count + 1) / 2;
    column_values(nodes, fraction, first, count, values);
    if (node_row.empty()) {
      values_on_nodes(values.data(), &node_fraction_[first], &before_[first], count,
                      on_nodes.data());
    }
    values_in_pairs(values.data(), &half_fraction_[first],
                    node_row.empty() ? on_nodes.data() : &node_row[first], count, points.data());
    result.filled += blanks;
    result.lost += take_where_blank(points.data(), cell_count, run_cells);
  }
  return result;
}

}  // namespace velmorankite
