// SPDX-License-Identifier: MIT
#include "condition/plain_sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "condition/gap_continuation.h"
#include "grid/dummy.h"

namespace velmorankite::testing {
namespace {

struct gap {
  std::int32_t first;
  std::int32_t last;
};

// Of each cell: 0 data, 1 a blank that data enclose, -1 a blank open to the edge.
std::vector<int> classes_of(const plain_grid& grid) {
  std::vector<int> mask;
  for (const float cell : grid.cells) {
    mask.push_back(is_valid(cell) ? 0 : 1);
  }
  const auto is_open = [&](std::int32_t c, std::int32_t r) {
    return !grid.has(c, r) || mask[grid.index(c, r)] < 0;
  };
  for (bool changed = true; changed;) {
    changed = false;
    for (std::int32_t r = 1; r <= grid.y_count; ++r) {
      for (std::int32_t c = 1; c <= grid.x_count; ++c) {
        if (mask[grid.index(c, r)] == 1 &&
            (is_open(c - 1, r) || is_open(c + 1, r) || is_open(c, r - 1) || is_open(c, r + 1))) {
          mask[grid.index(c, r)] = -1;
          changed = true;
        }
      }
    }
  }
  return mask;
}

class PlainSweep {
 public:
  PlainSweep(plain_grid& grid, const sweep_plan& plan)
      : grid_(grid), plan_(plan), mask_(classes_of(grid)) {
    for (std::int32_t row = 1; row <= grid.y_count; ++row) {
      std::vector<gap>& gaps = gaps_.emplace_back();
      for (std::int32_t c = 1; c <= grid.x_count; ++c) {
        if (mask(c, row) != 0 && (gaps.empty() || gaps.back().last != c - 1)) {
          gaps.push_back({c, c});
        } else if (mask(c, row) != 0) {
          gaps.back().last = c;
        }
      }
    }
    blanks_left_ = std::ranges::count_if(mask_, [](int m) { return m != 0; });
    enclosed_left_ = std::ranges::count(mask_, 1);
    const std::int32_t side = std::max(grid_.x_count, grid_.y_count);
    for (std::int32_t i = -1; i < side / 2 + 1; ++i) {  // counted from 1
      pull_.push_back(std::min(1.0F, static_cast<float>(i) * (2.0F / static_cast<float>(side))));
    }
  }

  std::int64_t run() {
    if (plan_.extend) {
      go_on_outwards();
    }
    std::int32_t direction = plan_.extend ? -1 : 1;
    do {
      before_ = grid_;
      fills_ = writes_ = 0;
      for (std::int32_t i = 1; i <= grid_.y_count; ++i) {
        sweep_row(direction > 0 ? i : grid_.y_count + 1 - i, direction);
      }
      direction = -direction;
    } while (goes_on());
    return filled_;
  }

 private:
  int& mask(std::int32_t column, std::int32_t row) { return mask_[grid_.index(column, row)]; }

  // The continuation has a test of its own.
  void go_on_outwards() {
    MemoryRows rows({0.0, 0.0, 1.0, 1.0, grid_.x_count, grid_.y_count}, grid_.cells);
    GapTables tables = GRDGAPS(rows, {{sense_bottom_up, grid_.x_count, grid_.y_count}, 0, 0});
    blanks_left_ -= continue_into_gaps(rows, tables, 18);
    for (std::size_t i = 0; i < mask_.size(); ++i) {
      mask_[i] = tables.mask[i];
    }
    pass_ = 1;
  }

  [[nodiscard]] bool is_blank(std::int32_t c, std::int32_t r) const {
    return !is_valid(grid_.at(c, r));
  }

  void sweep_row(std::int32_t row, std::int32_t direction) {
    std::vector<gap>& gaps = gaps_[static_cast<std::size_t>(row - 1)];
    const std::vector<gap> at_first = gaps;
    std::vector<std::int32_t> inside;
    for (const auto& [first, last] : at_first) {
      for (std::int32_t c = first + 1; c < last; ++c) {
        if (is_blank(c, row) && (!is_blank(c, row - 1) || !is_blank(c, row + 1))) {
          inside.push_back(c);
        }
      }
    }
    for (std::size_t i = 0; i < gaps.size(); ++i) {
      const auto [first, last] = at_first[i];
      if (first <= last && mask(first, row) == 1 && give_mean(first, row, direction)) {
        gaps[i].first = first + 1;
      }
      if (first < last && mask(last, row) == 1 && give_mean(last, row, direction)) {
        gaps[i].last = last - 1;
      }
    }
    for (std::int32_t c = 1; c <= grid_.x_count; ++c) {
      const int m = mask(c, row);
      if ((m == 1 && std::ranges::count(inside, c) > 0) || (plan_.extend && (m < 0 || m >= 2))) {
        give_mean(c, row, direction);
      }
    }
  }

  bool give_mean(std::int32_t column, std::int32_t row, std::int32_t direction) {
    int& age = mask(column, row);
    const bool again = age >= 2;
    float sum = again ? before_.at(column, row) : 0.0F;
    float weights = again ? 1.0F : 0.0F;
    int neighbours = again ? 1 : 0;
    const auto pass = static_cast<std::size_t>(pass_);
    const float lift = again && !holes_first_ ? pull_[std::min(pass, pull_.size() - 1)] : 0.0F;
    for (std::int32_t b = -2; b <= 2; ++b) {
      for (std::int32_t a = -2; a <= 2; ++a) {
        const float z = before_.at(column + a, row + b * direction);
        if ((a != 0 || b != 0) && is_valid(z)) {
          const float base = std::ldexp(1.0F, -std::abs(a) - std::abs(b));
          const float weight = lift * (1.0F - base) + base;
          sum = sum + weight * z;
          weights = weights + weight;
          neighbours += std::max(std::abs(a), std::abs(b)) == 1 ? 1 : 0;
        }
      }
    }
    if (neighbours < fewest_) {
      return false;
    }
    float value = sum / weights;
    if (!again) {
      ++fills_;
      enclosed_left_ -= age == 1 ? 1 : 0;
      value = blend_ > 0.0F ? value * (1.0F - blend_) + blend_ * plan_.background : value;
    }
    grid_.cells[grid_.index(column, row)] = value;
    ++writes_;
    age = age < 0 ? mark_ : age > 3 ? age - 1 : 0;
    return true;
  }

  bool goes_on() {
    blanks_left_ -= fills_;
    filled_ += fills_;
    if (writes_ == 0 && blanks_left_ < 1) {
      return false;
    }
    fewest_ = writes_ == 0 ? 1 : fewest_;
    if (holes_first_ && enclosed_left_ < 1) {
      if (!plan_.extend) {
        return false;
      }
      holes_first_ = false;
      switched_ = pass_;
    }
    if (!holes_first_) {
      if (blanks_left_ == 0 || (plan_.pass_limit > 0 && pass_ > plan_.pass_limit)) {
        return false;
      }
      fewest_ = pass_ == switched_ + 25 ? 1 : fewest_;
    }
    mark_ = std::min(mark_ + 1, 34);
    ++pass_;
    const auto index = static_cast<std::size_t>(pass_);
    blend_ = index < pull_.size() ? pull_[index] : 1.0F;
    return true;
  }

  plain_grid& grid_;
  plain_grid before_;
  sweep_plan plan_;
  std::vector<int> mask_;
  std::vector<std::vector<gap>> gaps_;
  std::vector<float> pull_;
  std::int32_t pass_ = 0;
  std::int32_t fewest_ = 2;
  int mark_ = 18;
  float blend_ = 0.0F;
  bool holes_first_ = true;
  std::int32_t switched_ = 0;
  std::int64_t blanks_left_ = 0;
  std::int64_t enclosed_left_ = 0;
  std::int64_t fills_ = 0;
  std::int64_t writes_ = 0;
  std::int64_t filled_ = 0;
};

}  // namespace

std::int64_t plain_sweep(plain_grid& grid, const sweep_plan& plan) {
  return PlainSweep(grid, plan).run();
}

}  // namespace velmorankite::testing
