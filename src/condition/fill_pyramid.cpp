// SPDX-License-Identifier: MIT
#include "condition/fill_pyramid.h"

#include <algorithm>
#include <limits>

#include "condition/level_edges.h"
#include "condition/level_interpolation.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

Lattice halved(const Lattice& fine) {
  return {fine.x_min,        fine.y_min,           fine.x_cell * 2.0,
          fine.y_cell * 2.0, fine.x_count / 2 + 1, fine.y_count / 2 + 1};
}

// Counts and sums the valid nodes of a level row by row, in the single precision that is part of
// the mean.
class Summary {
 public:
  void add(std::span<const float> cells) {
    for (const float value : cells) {
      const bool valid = is_valid(value);
      sum_ += valid ? value : 0.0F;
      count_ += valid ? 1 : 0;
    }
  }
  [[nodiscard]] level_summary result() const {
    return {count_, count_ > 0 ? sum_ / static_cast<float>(count_) : 0.0F};
  }

 private:
  float sum_ = 0.0F;
  std::int64_t count_ = 0;
};

using row_maker = std::function<void(std::int32_t row, std::span<float> cells)>;

// Writes all rows of a level as `make` gives them, then extends the level by `reach` nodes beyond
// the ends of its data.
level_summary build_level(LevelRows& level, std::int32_t reach, const row_maker& make) {
  Summary summary;
  LevelEdges edges(level.lattice(), reach);
  for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
    const std::span<float> cells = level.fresh_row(j);
    make(j, cells);
    summary.add(cells);
    edges.record(j, cells);
    level.keep(j);
  }
  edges.extend(level);
  return summary.result();
}

// Mean of the valid nodes of level 0 within one cell of a node of level 1, the dummy if none is.
//   rows    the up to three rows of level 0 round the node.
//   column  the node's column on level 0, which may be one past the last.
float mean_nearby(std::span<const std::span<const float>> rows, std::int64_t column) {
  double sum = 0.0;
  int count = 0;
  for (const std::span<const float> cells : rows) {
    const auto last = std::min(column + 1, static_cast<std::int64_t>(cells.size()));
    for (std::int64_t c = std::max<std::int64_t>(column - 1, 1); c <= last; ++c) {
      const float value = cells[static_cast<std::size_t>(c - 1)];
      if (is_valid(value)) {
        sum += static_cast<double>(value);
        ++count;
      }
    }
  }
  return count > 0 ? static_cast<float>(sum / count) : dummy;
}

void widen_row(LevelRows& level_0, std::int32_t row, std::span<float> cells) {
  std::vector<std::span<const float>> nearby;
  const std::int64_t centre = std::int64_t{2} * row - 1;
  const std::int64_t last = std::min<std::int64_t>(centre + 1, level_0.lattice().y_count);
  for (std::int64_t r = std::max<std::int64_t>(centre - 1, 1); r <= last; ++r) {
    nearby.emplace_back(level_0.row(static_cast<std::int32_t>(r)));
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      cells[i] = mean_nearby(nearby, 2 * static_cast<std::int64_t>(i) + 1);
    }
  }
}

float mean_of_valid(LevelRows& level) {
  double sum = 0.0;
  std::int64_t count = 0;
  for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
    for (const float value : level.row(j)) {
      if (is_valid(value)) {
        sum += static_cast<double>(value);
        ++count;
      }
    }
  }
  return count > 0 ? static_cast<float>(sum / static_cast<double>(count)) : dummy;
}

std::int64_t take_where_blank(std::span<float> cells, std::span<const float> values) {
  std::int64_t count = 0;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!is_valid(cells[i])) {
      cells[i] = values[i];
      ++count;
    }
  }
  return count;
}

}  // namespace

std::vector<Lattice> coarser_lattices(const Lattice& level_0) {
  std::vector<Lattice> lattices;
  Lattice level = level_0;
  while (level.x_count >= fewest_nodes && level.y_count >= fewest_nodes) {
    level = halved(level);
    lattices.push_back(level);
  }
  return lattices;
}

FillPyramid::FillPyramid(LevelRows& level_0, const level_storage& storage)
    : level_0_(level_0), storage_(storage) {}

bool FillPyramid::build() {
  LevelRows* finer = &level_0_;
  int number = 0;
  for (const Lattice& lattice : coarser_lattices(level_0_.lattice())) {
    ++number;
    std::unique_ptr<LevelRows> level = make_level(lattice, number, storage_);
    LevelInterpolation decimation(lattice, *finer);
    const std::int32_t reach = number == 1 ? 2 : 1;
    const auto decimate = [&](std::int32_t row, std::span<float> cells) {
      decimation.row(row, cells);
    };
    level_summary summary = build_level(*level, reach, decimate);
    constexpr std::int64_t fewest_valid = 2;
    if (number == 1 && summary.valid_count < fewest_valid) {
      // Data on even rows or columns alone, which a decimation misses.
      summary = build_level(*level, reach, [&](std::int32_t row, std::span<float> cells) {
        decimate(row, cells);
        widen_row(level_0_, row, cells);
      });
    }
    if (summary.valid_count < fewest_valid) {
      break;
    }
    if (number == 1) {
      constant_ = summary.mean;
    }
    coarser_.push_back(std::move(level));
    finer = coarser_.back().get();
  }
  if (!coarser_.empty()) {
    return true;
  }
  constant_ = mean_of_valid(level_0_);
  return is_valid(constant_);
}

std::int64_t FillPyramid::fill(const row_sink& sink) {
  std::int64_t filled = 0;
  if (coarser_.empty()) {
    const std::vector<float> constants(level_0_.width(), constant_);
    for (std::int32_t j = 1; j <= level_0_.lattice().y_count; ++j) {
      const std::span<float> cells = level_0_.row(j);
      filled += take_where_blank(cells, constants);
      sink(j, cells);
    }
    return filled;
  }
  LevelRows& coarsest = *coarser_.back();
  for (std::int32_t j = 1; j <= coarsest.lattice().y_count; ++j) {
    std::ranges::fill(coarsest.fresh_row(j), constant_);
    coarsest.keep(j);
  }
  for (std::size_t k = coarser_.size(); k-- > 0;) {
    LevelRows& level = k > 0 ? *coarser_[k - 1] : level_0_;
    LevelInterpolation interpolation(level.lattice(), *coarser_[k]);
    std::vector<float> values(level.width());
    for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
      interpolation.row(j, values);
      const std::span<float> cells = level.row(j);
      filled += take_where_blank(cells, values);
      level.keep(j);
      if (k == 0) {
        sink(j, cells);
      }
    }
    coarser_.pop_back();
  }
  return filled;
}

}  // namespace velmorankite
