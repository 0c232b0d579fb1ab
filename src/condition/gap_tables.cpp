// SPDX-License-Identifier: MIT
#include "condition/gap_tables.h"

#include <algorithm>
#include <utility>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

// A run of valid cells of a column that has come to its end.
struct ended_run {
  std::int32_t column;
  cell_run rows;
};

// The runs along rows and columns and the statistics, from the rows of the source.
class RunScan {
 public:
  explicit RunScan(GapTables& tables)
      : tables_(tables), begun_(static_cast<std::size_t>(tables.x_count) + 1) {
    tables_.first_column = tables.x_count;
    tables_.first_row = tables.y_count;
  }

  void take(std::int32_t row, std::span<const float> cells, std::int32_t column_offset) {
    const auto count = static_cast<std::int32_t>(cells.size());
    const auto cell = [&](std::int32_t i) { return cells[static_cast<std::size_t>(i)]; };
    for (std::int32_t i = 0; i < count;) {
      for (; i < count && !is_valid(cell(i)); ++i) {
        end_column_run(column_offset + i + 1, row - 1);
      }
      const std::int32_t first = i;
      for (; i < count && is_valid(cell(i)); ++i) {
        note_value(cell(i));
        begin_column_run(column_offset + i + 1, row);
      }
      if (first < i) {
        note_run({column_offset + first + 1, column_offset + i}, row);
      }
      tables_.valid_count += i - first;
    }
    tables_.row_runs.end_line();
  }

  void finish(const input_placement& source) {
    for (std::int32_t column = 1; column <= tables_.x_count; ++column) {
      end_column_run(column, source.row_offset + source.layout.y_count);
    }
    if (tables_.valid_count > 0) {
      tables_.mean = sum_ / static_cast<float>(tables_.valid_count);
    }
    tables_.blank_count =
        std::int64_t{source.layout.x_count} * source.layout.y_count - tables_.valid_count;
    list_column_runs();
  }

 private:
  void note_value(float value) {
    sum_ += value;
    tables_.minimum = std::min(tables_.minimum, value);
    tables_.maximum = std::max(tables_.maximum, value);
  }

  void note_run(cell_run columns, std::int32_t row) {
    tables_.row_runs.add(columns);
    tables_.first_column = std::min(tables_.first_column, columns.first);
    tables_.last_column = std::max(tables_.last_column, columns.last);
    tables_.first_row = std::min(tables_.first_row, row);
    tables_.last_row = std::max(tables_.last_row, row);
  }

  void begin_column_run(std::int32_t column, std::int32_t row) {
    std::int32_t& first = begun_[static_cast<std::size_t>(column)];
    if (first == 0) {
      first = row;
    }
  }

  void end_column_run(std::int32_t column, std::int32_t last) {
    std::int32_t& first = begun_[static_cast<std::size_t>(column)];
    if (first != 0) {
      ended_.push_back({column, {first, last}});
      first = 0;
    }
  }

  // The runs ended in the order of rows: sorted by counting, those of a column keep their order.
  void list_column_runs() {
    std::vector<std::size_t> places(static_cast<std::size_t>(tables_.x_count) + 2);
    for (const ended_run& run : ended_) {
      ++places[static_cast<std::size_t>(run.column) + 1];
    }
    for (std::size_t i = 1; i < places.size(); ++i) {
      places[i] += places[i - 1];
    }
    std::vector<cell_run> sorted(ended_.size());
    std::vector<std::size_t> next = places;
    for (const ended_run& run : ended_) {
      sorted[next[static_cast<std::size_t>(run.column)]++] = run.rows;
    }
    for (std::size_t column = 1; column + 1 < places.size(); ++column) {
      for (std::size_t i = places[column]; i < places[column + 1]; ++i) {
        tables_.column_runs.add(sorted[i]);
      }
      tables_.column_runs.end_line();
    }
  }

  GapTables& tables_;
  std::vector<std::int32_t> begun_;  // first row of the run that a column is in, 0: in none
  std::vector<ended_run> ended_;
  float sum_ = 0.0F;
};

// What the runs of lines of `length` cells leave.
LineRuns gaps_between(const LineRuns& runs, std::int32_t line_count, std::int32_t length) {
  LineRuns gaps;
  for (std::int32_t line = 1; line <= line_count; ++line) {
    std::int32_t behind = 0;
    for (const cell_run& run : runs.of(line)) {
      if (run.first > behind + 1) {
        gaps.add({behind + 1, run.first - 1});
      }
      behind = run.last;
    }
    if (behind < length) {
      gaps.add({behind + 1, length});
    }
    gaps.end_line();
  }
  return gaps;
}

// Marks the row gaps from which a way over blanks leads to the edge: from those that touch it,
// through those of neighbouring rows that share a column, each taken once.
class ExteriorSearch {
 public:
  explicit ExteriorSearch(GapTables& tables) : tables_(tables) {
    tables_.row_gap_exterior.assign(tables_.row_gaps.all().size(), 0);
  }

  void run() {
    for (std::int32_t row = 1; row <= tables_.y_count; ++row) {
      const bool at_edge = row == 1 || row == tables_.y_count;
      std::size_t number = tables_.row_gaps.number(row);
      for (const cell_run& gap : tables_.row_gaps.of(row)) {
        if (at_edge || gap.first == 1 || gap.last == tables_.x_count) {
          mark(row, number);
        }
        ++number;
      }
    }
    while (!waiting_.empty()) {
      const auto [row, number] = waiting_.back();
      waiting_.pop_back();
      const cell_run gap = tables_.row_gaps.all()[number];
      mark_touching(row - 1, gap);
      mark_touching(row + 1, gap);
    }
  }

 private:
  void mark(std::int32_t row, std::size_t number) {
    std::uint8_t& exterior = tables_.row_gap_exterior[number];
    if (exterior == 0) {
      exterior = 1;
      waiting_.emplace_back(row, number);
    }
  }

  void mark_touching(std::int32_t row, const cell_run& gap) {
    if (row < 1 || row > tables_.y_count) {
      return;
    }
    const std::span<const cell_run> others = tables_.row_gaps.of(row);
    auto other = std::ranges::lower_bound(others, gap.first, {}, &cell_run::last);
    for (; other != others.end() && other->first <= gap.last; ++other) {
      mark(row, tables_.row_gaps.number(row) + static_cast<std::size_t>(other - others.begin()));
    }
  }

  GapTables& tables_;
  std::vector<std::pair<std::int32_t, std::size_t>> waiting_;
};

void mask_cells(GapTables& tables) {
  std::size_t number = 0;
  for (std::int32_t row = 1; row <= tables.y_count; ++row) {
    std::int8_t* const first = &tables.mask_at(1, row);
    std::fill_n(first, tables.x_count, mask_data);
    for (const cell_run& gap : tables.row_gaps.of(row)) {
      const bool exterior = tables.row_gap_exterior[number++] != 0;
      std::fill_n(first + gap.first - 1, gap.length(), exterior ? mask_exterior : mask_enclosed);
    }
  }
}

// All cells of a gap are of one kind, so that any of them tells.
void flag_column_gaps(GapTables& tables) {
  tables.column_gap_exterior.reserve(tables.column_gaps.all().size());
  for (std::int32_t column = 1; column <= tables.x_count; ++column) {
    for (const cell_run& gap : tables.column_gaps.of(column)) {
      tables.column_gap_exterior.push_back(tables.mask_at(column, gap.first) == mask_exterior ? 1
                                                                                              : 0);
    }
  }
}

}  // namespace

GapTables GRDGAPS(LevelRows& rows, const input_placement& source) {
  GapTables tables;
  tables.x_count = rows.lattice().x_count;
  tables.y_count = rows.lattice().y_count;
  tables.mask =
      platform::LargeArray<std::int8_t>(static_cast<std::size_t>(rows.lattice().cell_count()));
  RunScan scan(tables);
  for (std::int32_t row = 1; row <= tables.y_count; ++row) {
    if (source.has_row(row)) {
      scan.take(row, source.covered(rows.row(row)), source.column_offset);
    } else {
      tables.row_runs.end_line();
    }
  }
  scan.finish(source);
  if (tables.valid_count > 0) {
    tables.row_gaps = gaps_between(tables.row_runs, tables.y_count, tables.x_count);
    tables.column_gaps = gaps_between(tables.column_runs, tables.x_count, tables.y_count);
  }
  ExteriorSearch(tables).run();
  mask_cells(tables);
  flag_column_gaps(tables);
  return tables;
}

}  // namespace velmorankite
