// SPDX-License-Identifier: MIT
#include "condition/fill_pyramid.h"

#include <algorithm>
#include <utility>

#include "condition/level_build.h"
#include "grid/dummy.h"

namespace velmorankite {
namespace {

// A level with fewer nodes of its own says nothing of a surface.
constexpr std::int64_t fewest_valid_nodes = 2;

Lattice halved(const Lattice& fine) {
  constexpr auto step = static_cast<std::int32_t>(level_step);
  Lattice coarse = fine;
  coarse.x_cell *= step;
  coarse.y_cell *= step;
  coarse.x_count = fine.x_count / step + 1;
  coarse.y_count = fine.y_count / step + 1;
  return coarse;
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

void set_constant(LevelRows& level, float value) {
  for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
    std::ranges::fill(level.fresh_row(j), value);
    level.keep(j);
  }
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
    : level_0_(level_0), store_(coarser_lattices(level_0.lattice()), storage) {}

bool FillPyramid::build() {
  LevelRows* finer = &level_0_;
  for (std::size_t number = 1; number <= store_.level_count(); ++number) {
    std::unique_ptr<LevelRows> level = store_.make(number);
    const bool is_first = number == 1;
    const std::int32_t reach = is_first ? 2 : 1;
    level_summary summary = build_level(*finer, *level, reach);
    if (is_first && summary.valid_count < fewest_valid_nodes) {
      summary = build_widened_level(level_0_, *level, reach);
    }
    if (summary.valid_count < fewest_valid_nodes) {
      break;
    }
    if (is_first) {
      constant_ = summary.mean;
    }
    finer = level.get();
    coarser_.push_back(std::move(level));
  }
  if (!coarser_.empty()) {
    return true;
  }
  constant_ = mean_of_valid(level_0_);
  return is_valid(constant_);
}

std::int64_t FillPyramid::fill(const row_sink& sink) {
  if (coarser_.empty()) {
    return fill_with_constant(sink);
  }
  set_constant(*coarser_.back(), constant_);
  bool complete = is_valid(constant_);
  std::int64_t filled = 0;
  while (!coarser_.empty()) {
    const std::unique_ptr<LevelRows> coarser = std::move(coarser_.back());
    coarser_.pop_back();
    const fill_count count = coarser_.empty()
                                 ? fill_level(*coarser, complete, level_0_, sink)
                                 : fill_level(*coarser, complete, *coarser_.back(), nullptr);
    filled += count.filled;
    complete = count.lost == 0;
  }
  return filled;
}

fill_count FillPyramid::fill_level(LevelRows& coarser, bool complete, LevelRows& level,
                                   const row_sink& sink) {
  LevelInterpolation interpolation(level.lattice(), coarser);
  fill_count total;
  for (std::int32_t j = 1; j <= level.lattice().y_count; ++j) {
    const std::span<float> cells = level.row(j);
    const fill_count count = interpolation.fill_row(j, complete, cells);
    if (count.filled > 0) {
      level.keep(j);
    }
    if (sink) {
      sink(j, cells);
    }
    total.filled += count.filled;
    total.lost += count.lost;
  }
  return total;
}

std::int64_t FillPyramid::fill_with_constant(const row_sink& sink) {
  std::int64_t filled = 0;
  for (std::int32_t j = 1; j <= level_0_.lattice().y_count; ++j) {
    const std::span<float> cells = level_0_.row(j);
    for (float& value : cells) {
      filled += is_valid(value) ? 0 : 1;
      value = is_valid(value) ? value : constant_;
    }
    if (sink) {
      sink(j, cells);
    }
  }
  return filled;
}

}  // namespace velmorankite
