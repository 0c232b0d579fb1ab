// SPDX-License-Identifier: MIT
#include "condition/gap_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "grid/dummy.h"

namespace velmorankite {
namespace {

// A line as its tables tell it: '#' data, 'o' an enclosed blank, '.' an exterior one. Runs and gaps
// that do not follow each other without a break give nothing.
std::string line_of(const LineRuns& runs, const LineRuns& gaps,
                    const std::vector<std::uint8_t>& exterior, std::int32_t line) {
  std::string text;
  std::size_t run = runs.number(line);
  std::size_t gap = gaps.number(line);
  while (run < runs.number(line + 1) || gap < gaps.number(line + 1)) {
    const auto next = static_cast<std::int32_t>(text.size()) + 1;
    const bool data = run < runs.number(line + 1) && runs.all()[run].first == next;
    const cell_run cells = data ? runs.all()[run] : gaps.all()[gap];
    if (cells.first != next) {
      return "";
    }
    text.append(static_cast<std::size_t>(cells.length()), data ? '#' : exterior[gap] ? '.' : 'o');
    ++(data ? run : gap);
  }
  return text;
}

TEST(GapTables, blanks_are_exterior_where_a_way_along_rows_and_columns_leads_to_the_edge) {
  const std::vector<std::vector<std::string>> pictures{
      {"###", "#o#", "###"},
      {".##", "###", "###"},
      {"#####", "#o###", "##.##", "##.##"},
      {"#######", "#ooooo#", "#o###o#", "#o###o#", "#ooooo#", "#######"},
      {"#####", ".....", "##.##", "#####", "#ooo#", "#####"},
      {"#######", "......#", "#####.#", "#...#.#", "#.###.#", "#.....#", "#######"}};
  for (const std::vector<std::string>& picture : pictures) {
    const auto x_count = static_cast<std::int32_t>(picture.front().size());
    const auto y_count = static_cast<std::int32_t>(picture.size());
    std::vector<float> cells;
    std::vector<std::string> columns(picture.front().size());
    std::string masks;
    for (const std::string& line : picture) {
      for (std::size_t i = 0; i < line.size(); ++i) {
        cells.push_back(line[i] == '#' ? 2.0F : dummy);
        columns[i] += line[i];
      }
      masks += line;
    }
    MemoryRows rows({0.0, 0.0, 1.0, 1.0, x_count, y_count}, cells);
    const GapTables t = GRDGAPS(rows, {{sense_bottom_up, x_count, y_count}, 0, 0});
    for (std::int32_t i = 1; i <= y_count; ++i) {
      EXPECT_EQ(line_of(t.row_runs, t.row_gaps, t.row_gap_exterior, i),
                picture[std::size_t(i) - 1]);
    }
    for (std::int32_t i = 1; i <= x_count; ++i) {
      EXPECT_EQ(line_of(t.column_runs, t.column_gaps, t.column_gap_exterior, i),
                columns[std::size_t(i) - 1]);
    }
    for (std::size_t i = 0; i < masks.size(); ++i) {
      EXPECT_EQ(t.mask[i], masks[i] == '#'   ? mask_data
                           : masks[i] == 'o' ? mask_enclosed
                                             : mask_exterior);
    }
  }
}

TEST(GapTables, a_source_in_a_larger_lattice_has_exterior_margins_and_statistics_of_its_own) {
  std::vector<float> cells(std::size_t{30}, dummy);
  cells[9] = 3.0F;
  cells[14] = 5.0F;
  cells[15] = std::nanf("");
  MemoryRows rows({0.0, 0.0, 1.0, 1.0, 6, 5}, cells);
  const GapTables tables = GRDGAPS(rows, {{sense_bottom_up, 2, 2}, 2, 1});
  EXPECT_EQ(tables.valid_count, 2);
  EXPECT_EQ(tables.blank_count, 2);
  EXPECT_EQ(tables.minimum, 3.0F);
  EXPECT_EQ(tables.maximum, 5.0F);
  EXPECT_EQ(tables.mean, 4.0F);
  EXPECT_EQ(tables.first_column, 3);
  EXPECT_EQ(tables.last_column, 4);
  EXPECT_EQ(tables.first_row, 2);
  EXPECT_EQ(tables.last_row, 3);
  EXPECT_EQ(std::ranges::count(tables.mask, mask_exterior), 28);
}

}  // namespace
}  // namespace velmorankite
