// SPDX-License-Identifier: MIT
#include "condition/gap_sweep.h"

#include <algorithm>
#include <vector>

#include "condition/gap_continuation.h"
#include "condition/sweep_average.h"
#include "condition/sweep_front.h"

namespace velmorankite {
namespace {

constexpr std::int8_t first_mark = 18;            // age of a cell that the first passes fill
constexpr std::int8_t last_mark = 34;             // and at most
constexpr std::int32_t passes_with_company = 25;  // behind the holes, cells with one neighbour wait

// The pull by pass: from 0 in steps of 2 / M to 1, M the longer side of the lattice.
class PullTable {
 public:
  explicit PullTable(std::int32_t longer_side)
      : step_(2.0F / static_cast<float>(longer_side)), count_(longer_side / 2 + 1) {}

  [[nodiscard]] std::int32_t count() const noexcept { return count_; }
  [[nodiscard]] float at(std::int32_t index) const noexcept {
    return std::min(static_cast<float>(index - 1) * step_, 1.0F);
  }

 private:
  float step_;
  std::int32_t count_;
};

// A value that is not stored yet, since cells near by are still to see what was there.
struct pending_value {
  std::int32_t row;
  std::int32_t column;
  float value;
};

// A cell that got its first value in the row at hand.
struct first_value {
  std::int32_t column;
  std::int8_t before;  // its mask
};

std::int64_t cells_of_gaps(const LineRuns& gaps, const std::vector<std::uint8_t>& exterior,
                           bool enclosed_alone) {
  std::int64_t count = 0;
  for (std::size_t i = 0; i < exterior.size(); ++i) {
    count += enclosed_alone && exterior[i] != 0 ? 0 : gaps.all()[i].length();
  }
  return count;
}

class GapSweep {
 public:
  GapSweep(LevelRows& rows, GapTables& tables, const sweep_plan& plan)
      : rows_(rows),
        tables_(tables),
        plan_(plan),
        front_(tables),
        pull_(std::max(tables.x_count, tables.y_count)),
        outside_(rows.width(), dummy),
        blanks_left_(cells_of_gaps(tables.row_gaps, tables.row_gap_exterior, false)),
        enclosed_left_(cells_of_gaps(tables.row_gaps, tables.row_gap_exterior, true)) {}

  std::int64_t run() {
    if (plan_.extend) {
      blanks_left_ -= continue_into_gaps(rows_, tables_, mark_);
      front_.take_in_exterior();
      direction_ = -1;
      pass_ = 1;
    }
    do {
      sweep();
      direction_ = -direction_;
    } while (!ends_with_pass());
    return filled_;
  }

 private:
  static constexpr std::int32_t reach = 2;  // columns and rows of a mean to each side

  void sweep() {
    fills_ = 0;
    writes_ = 0;
    const bool outwards = !holes_first_;
    smoothing_ = sweep_weights(outwards ? pull_.at(std::min(pass_, pull_.count())) : 0.0F);
    const std::int32_t count = tables_.y_count;
    for (std::int32_t i = 1; i <= count; ++i) {
      const std::int32_t row = direction_ > 0 ? i : count + 1 - i;
      if (!front_.of_row(row).empty()) {
        store_behind(row);
        visit(row);
      }
    }
    store_all();
  }

  void visit(std::int32_t row) {
    std::int32_t near = row - reach * direction_;
    for (const float*& cells : window_) {
      cells = near >= 1 && near <= tables_.y_count ? rows_.row(near).data() : outside_.data();
      near += direction_;
    }
    first_values_.clear();
    std::vector<std::int32_t>& listed = front_.of_row(row);
    std::size_t kept = 0;
    for (const std::int32_t column : listed) {
      if (!take_mean(column, row)) {
        listed[kept++] = column;
      }
    }
    listed.resize(kept);
    for (const first_value& cell : first_values_) {
      front_.note_filled(cell.column, row, cell.before);
    }
  }

  // Gives a cell of the list its mean, where it has one. Whether the cell is done with.
  bool take_mean(std::int32_t column, std::int32_t row) {
    std::int8_t& mask = tables_.mask_at(column, row);
    const bool smoothed = is_smoothed(mask);
    local_sum sum;
    if (smoothed) {
      sum = {window_[reach][column - 1], 1.0F, 1};
    }
    add_around(window_, column - 1, tables_.x_count, smoothed ? smoothing_ : base_, sum);
    if (sum.neighbours < fewest_neighbours_) {
      return false;
    }
    float value = sum.values / sum.weights;
    if (!smoothed && blend_ > 0.0F) {
      value = value * (1.0F - blend_) + blend_ * plan_.background;
    }
    if (!is_valid(value)) {
      return false;
    }
    pending_.push_back({row, column, value});
    ++writes_;
    if (!smoothed) {
      ++fills_;
      first_values_.push_back({column, mask});
    }
    mask = next_mask(mask);
    return mask == mask_data;
  }

  std::int8_t next_mask(std::int8_t mask) {
    if (is_exterior(mask)) {
      return mark_;
    }
    if (is_smoothed(mask)) {
      return mask - 1 <= oldest_age ? mask_data : static_cast<std::int8_t>(mask - 1);
    }
    --enclosed_left_;
    return mask_data;
  }

  // Stores the values of rows that no mean of this row, or of one ahead, can reach.
  void store_behind(std::int32_t row) {
    while (stored_ < pending_.size() && direction_ * (row - pending_[stored_].row) > reach) {
      store_row();
    }
  }

  void store_all() {
    while (stored_ < pending_.size()) {
      store_row();
    }
    pending_.clear();
    stored_ = 0;
  }

  void store_row() {
    const std::int32_t row = pending_[stored_].row;
    const std::span<float> cells = rows_.row(row);
    for (; stored_ < pending_.size() && pending_[stored_].row == row; ++stored_) {
      cells[static_cast<std::size_t>(pending_[stored_].column - 1)] = pending_[stored_].value;
    }
    rows_.keep(row);
  }

  // Draws the balance of a pass and makes ready for the next. Whether there is none.
  bool ends_with_pass() {
    blanks_left_ -= fills_;
    filled_ += fills_;
    bool stuck = false;
    if (writes_ == 0) {
      if (blanks_left_ < 1) {
        return true;
      }
      stuck = fewest_neighbours_ == 1;  // the next pass could do no more
      fewest_neighbours_ = 1;
    }
    if (holes_first_ && enclosed_left_ < 1) {
      if (!plan_.extend) {
        return true;
      }
      holes_first_ = false;
      outwards_since_ = pass_;
    } else if (stuck) {
      return true;
    }
    if (!holes_first_) {
      if (blanks_left_ == 0 || (plan_.pass_limit > 0 && pass_ > plan_.pass_limit)) {
        return true;
      }
      if (outwards_since_ > 0 && pass_ == outwards_since_ + passes_with_company) {
        fewest_neighbours_ = 1;
      }
    }
    mark_ = static_cast<std::int8_t>(std::min<int>(mark_ + 1, last_mark));
    ++pass_;
    blend_ = pass_ > pull_.count() ? 1.0F : pull_.at(pass_);
    return false;
  }

  LevelRows& rows_;
  GapTables& tables_;
  sweep_plan plan_;
  SweepFront front_;
  PullTable pull_;
  std::vector<float> outside_;  // a row beyond the lattice
  sweep_weights base_{0.0F};
  sweep_weights smoothing_{0.0F};
  sweep_window window_{};
  std::vector<first_value> first_values_;
  std::vector<pending_value> pending_;  // of the pass, in the order of its rows
  std::size_t stored_ = 0;              // of them

  std::int32_t pass_ = 0;
  std::int32_t direction_ = 1;
  std::int32_t fewest_neighbours_ = 2;
  std::int8_t mark_ = first_mark;
  float blend_ = 0.0F;
  bool holes_first_ = true;
  std::int32_t outwards_since_ = 0;  // pass that filled the last hole of an extension
  std::int64_t blanks_left_;
  std::int64_t enclosed_left_;
  std::int64_t fills_ = 0;   // blank cells that got a value in the pass
  std::int64_t writes_ = 0;  // cells that got a value in the pass
  std::int64_t filled_ = 0;
};

}  // namespace

std::int64_t GRDSWEEP(LevelRows& rows, GapTables& tables, const sweep_plan& plan) {
  return GapSweep(rows, tables, plan).run();
}

}  // namespace velmorankite
