// SPDX-License-Identifier: MIT
#include "condition/level_interpolation.h"

#include <algorithm>
#include <cmath>

#include "grid/catmull_rom.h"
#include "grid/dummy.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Lists the runs of blank cells of a row, in ascending order. Valid cells are passed by blocks,
// since most rows are blank only at their ends or not at all.
VELMORANKITE_VECTOR_CLONES void list_blanks(const float* cells, std::size_t count,
                                            std::vector<cell_run>& runs) {
  constexpr std::size_t block = 64;
  runs.clear();
  std::size_t i = 0;
  while (i < count) {
    if (i + block <= count) {
      int blanks = 0;
      for (std::size_t k = i; k < i + block; ++k) {
        blanks += is_valid(cells[k]) ? 0 : 1;
      }
      if (blanks == 0) {
        i += block;
        continue;
      }
    }
    while (i < count && is_valid(cells[i])) {
      ++i;
    }
    const std::size_t begin = i;
    while (i < count && !is_valid(cells[i])) {
      ++i;
    }
    if (i > begin) {
      runs.push_back({begin, i});
    }
  }
}

// The cubic along Y through four rows of nodes.
VELMORANKITE_VECTOR_CLONES void cross_rows(const float* p, const float* q, const float* r,
                                           const float* s, double fraction, std::size_t count,
                                           double* values) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = static_cast<double>(column_value(p[i], q[i], r[i], s[i], fraction));
  }
}

}  // namespace

LevelInterpolation::LevelInterpolation(const Lattice& points, LevelRows& nodes)
    : points_(points),
      nodes_(nodes),
      interpolator_(nodes.lattice(), [&nodes](std::int32_t row) { return nodes.row(row); }),
      x_(x_of_columns(points)),
      y_axis_(y_axis(nodes.lattice())),
      values_(x_.size()) {
  columns_.make(x_axis(nodes.lattice()), x_);
  column_values_.resize(static_cast<std::size_t>(columns_.last_column - columns_.first_column) + 1);
}

void LevelInterpolation::row(std::int32_t row, std::span<float> values) {
  interpolator_.row(x_, points_.y(row), values);
}

fill_count LevelInterpolation::fill_row(std::int32_t row, bool complete, std::span<float> cells) {
  list_blanks(cells.data(), cells.size(), blanks_);
  if (blanks_.empty()) {
    return {};
  }
  const double y = points_.y(row);
  const AxisPlace place = y_axis_.place(y);
  const bool inside = y_axis_.contains(y) && place.base() >= 2 &&
                      place.base() + 2 <= nodes_.lattice().y_count && columns_.begin == 0 &&
                      columns_.end == cells.size();
  if (complete && inside) {
    fill_between(place, cells);
  } else {
    this->row(row, values_);
    for (const cell_run& run : blanks_) {
      std::copy_n(&values_[run.begin], run.end - run.begin, &cells[run.begin]);
    }
  }
  fill_count result;
  for (const cell_run& run : blanks_) {
    for (std::size_t i = run.begin; i < run.end; ++i) {
      ++result.filled;
      result.lost += is_valid(cells[i]) ? 0 : 1;
    }
  }
  return result;
}

// Between rows of valid nodes nothing is patched but the columns beyond their ends, where the
// outermost goes on; so the columns round a run are brought to the row's Y as a whole.
void LevelInterpolation::fill_between(const AxisPlace& y, std::span<float> cells) {
  const std::int32_t base = y.base();
  const four_nodes nodes = {nodes_.row(base - 1), nodes_.row(base), nodes_.row(base + 1),
                            nodes_.row(base + 2)};
  const std::span<const float> nearest_row = nodes[y.nearest > base ? 2 : 1];
  const auto first_node = static_cast<std::size_t>(1 - columns_.first_column);
  const double y_distance = std::fabs(y.offset);
  std::size_t known = 0;
  for (const cell_run& run : blanks_) {
    known = bring_columns(nodes, y.fraction(), run, known);
    for (std::size_t i = run.begin; i < run.end; ++i) {
      const double* const f = &column_values_[static_cast<std::size_t>(columns_.left[i])];
      const float value =
          is_on_cell(columns_.distance[i], y_distance)
              ? nearest_row[static_cast<std::size_t>(columns_.nearest[i]) - first_node]
              : row_value(f[0], f[1], f[2], f[3], columns_.fraction[i]);
      cells[i] = std::isnan(value) ? dummy : value;
    }
  }
}

// Brings the columns that a run reaches to the Y of its row.
//   known  nodes of a column before this one were done for the runs before; gives the same for
//          the runs to come.
std::size_t LevelInterpolation::bring_columns(const four_nodes& nodes, double fraction,
                                              const cell_run& run, std::size_t known) {
  const std::span<double> columns = column_values_;
  const auto ahead = static_cast<std::size_t>(1 - columns_.first_column);
  const std::size_t count = std::min(nodes[0].size(), columns.size() - ahead);
  const auto left = static_cast<std::size_t>(columns_.left[run.begin]);
  const std::size_t end = static_cast<std::size_t>(columns_.left[run.end - 1]) + 4;
  const std::size_t first = std::min(std::max(left, ahead) - ahead, count - 1);
  const std::size_t from = std::max(known, first);
  const std::size_t to = std::clamp(end - ahead, from, count);
  cross_rows(nodes[0].data() + from, nodes[1].data() + from, nodes[2].data() + from,
             nodes[3].data() + from, fraction, to - from, columns.data() + ahead + from);
  if (left < ahead) {
    std::ranges::fill(columns.first(ahead), columns[ahead]);
  }
  if (end > ahead + count) {
    std::ranges::fill(columns.subspan(ahead + count), columns[ahead + count - 1]);
  }
  return to;
}

}  // namespace velmorankite
