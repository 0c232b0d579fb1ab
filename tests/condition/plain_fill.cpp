// SPDX-License-Identifier: MIT
#include "condition/plain_fill.h"

#include <algorithm>
#include <span>

#include "grid/cell_interpolation.h"
#include "grid/dummy.h"

namespace velmorankite::testing {
namespace {

plain_level interpolated(plain_level from, const Lattice& lattice) {
  const auto width = static_cast<std::size_t>(from.lattice.x_count);
  plain_level level{lattice, {}};
  CellInterpolator nodes(from.lattice, [&](std::int32_t row) {
    return std::span<const float>(&from.at(1, row), width);
  });
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    std::vector<float> values(static_cast<std::size_t>(lattice.x_count));
    nodes.row(x_of_columns(lattice), lattice.y(row), values);
    level.cells.insert(level.cells.end(), values.begin(), values.end());
  }
  return level;
}

struct facts {
  std::int64_t count = 0;
  float mean = 0.0F;
};

facts facts_of(const plain_level& level) {
  facts result;
  float sum = 0.0F;
  for (const float value : level.cells) {
    if (is_valid(value)) {
      sum += value;
      ++result.count;
    }
  }
  result.mean = result.count > 0 ? sum / static_cast<float>(result.count) : 0.0F;
  return result;
}

// Extends the data of one line of nodes, from the ends it had at the start.
void extend_line(int count, int reach, const auto& source, const auto& target) {
  int first = count;
  int last = 1;
  for (int i = 1; i <= count; ++i) {
    if (is_valid(source(i))) {
      first = std::min(first, i);
      last = std::max(last, i);
    }
  }
  for (int step = 1; step <= reach; ++step) {
    if (first > step && first < count) {
      target(first - step) = source(first);
    }
    if (last > 1 && last + step <= count) {
      target(last + step) = source(last);
    }
  }
}

// Along every column, then along every row.
void extend(plain_level& level, int reach) {
  plain_level before = level;
  const int columns = level.lattice.x_count;
  const int rows = level.lattice.y_count;
  for (int c = 1; c <= columns; ++c) {
    extend_line(
        rows, reach, [&](int r) { return before.at(c, r); },
        [&](int r) -> float& { return level.at(c, r); });
  }
  for (int r = 1; r <= rows; ++r) {
    extend_line(
        columns, reach, [&](int c) { return before.at(c, r); },
        [&](int c) -> float& { return level.at(c, r); });
  }
}

// Nodes of level 1 without a value take the mean of what lies within one cell of them.
void widen(plain_level& level, plain_level& fine) {
  for (int row = 1; row <= level.lattice.y_count; ++row) {
    for (int column = 1; column <= level.lattice.x_count; ++column) {
      double sum = 0.0;
      int count = 0;
      for (int r = 2 * row - 2; r <= 2 * row; ++r) {
        for (int c = 2 * column - 2; c <= 2 * column; ++c) {
          const bool inside =
              c >= 1 && c <= fine.lattice.x_count && r >= 1 && r <= fine.lattice.y_count;
          if (inside && is_valid(fine.at(c, r))) {
            sum += static_cast<double>(fine.at(c, r));
            ++count;
          }
        }
      }
      if (!is_valid(level.at(column, row)) && count > 0) {
        level.at(column, row) = static_cast<float>(sum / count);
      }
    }
  }
}

std::int64_t take(plain_level& level, const plain_level& values) {
  std::int64_t count = 0;
  for (std::size_t i = 0; i < level.cells.size(); ++i) {
    if (!is_valid(level.cells[i])) {
      level.cells[i] = values.cells[i];
      ++count;
    }
  }
  return count;
}

std::int64_t fill_with_mean(plain_level& level) {
  double sum = 0.0;
  std::int64_t count = 0;
  for (const float value : level.cells) {
    sum += is_valid(value) ? static_cast<double>(value) : 0.0;
    count += is_valid(value) ? 1 : 0;
  }
  if (count == 0) {
    return -1;
  }
  const auto mean = static_cast<float>(sum / static_cast<double>(count));
  return take(level, {level.lattice, std::vector<float>(level.cells.size(), mean)});
}

}  // namespace

std::int64_t plain_fill(plain_level& level_0) {
  std::vector<plain_level> levels{level_0};
  float mean = 0.0F;
  while (std::min(levels.back().lattice.x_count, levels.back().lattice.y_count) > 3) {
    Lattice half = levels.back().lattice;
    half.x_count = half.x_count / 2 + 1;
    half.y_count = half.y_count / 2 + 1;
    half.x_cell *= 2;
    half.y_cell *= 2;
    plain_level level = interpolated(levels.back(), half);
    const bool is_first = levels.size() == 1;
    if (is_first && facts_of(level).count < 2) {
      widen(level, level_0);
    }
    const facts found = facts_of(level);
    if (found.count < 2) {
      break;
    }
    mean = is_first ? found.mean : mean;
    extend(level, is_first ? 2 : 1);
    levels.push_back(level);
  }
  if (levels.size() == 1) {
    return fill_with_mean(level_0);
  }
  std::ranges::fill(levels.back().cells, mean);
  std::int64_t filled = 0;
  for (std::size_t k = levels.size() - 1; k-- > 0;) {
    filled += take(levels[k], interpolated(levels[k + 1], levels[k].lattice));
  }
  level_0 = levels[0];
  return filled;
}

}  // namespace velmorankite::testing
