// SPDX-License-Identifier: MIT
#include "transform/output_grid.h"

#include <algorithm>
#include <array>
#include <vector>

#include "condition/detrend.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/row_blocks.h"
#include "platform/scratch_file.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Apart from add_plane, so that the processor takes several cells at a time.
VELMORANKITE_VECTOR_CLONES void keep_dummies(std::span<const float> padded,
                                             std::span<float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = is_valid(cells[i]) ? padded[i] : dummy;
  }
}

void add_plane(const plane& trend, double x_cell, double y, std::span<const float> padded,
               std::span<float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (is_valid(cells[i])) {
      const double x = static_cast<double>(i) * x_cell;
      cells[i] = static_cast<float>(static_cast<double>(padded[i]) + trend.at(x, y));
    } else {
      cells[i] = dummy;
    }
  }
}

// Several ranges side by side, so that no cell waits for the one before it.
void widen(std::span<const float> cells, value_range& range) {
  constexpr std::size_t lanes = 8;
  std::array<float, lanes> low;
  std::array<float, lanes> high;
  low.fill(range.smallest);
  high.fill(range.largest);
  const auto take = [&](std::size_t lane, float value) {
    low[lane] = is_valid(value) && value < low[lane] ? value : low[lane];
    high[lane] = is_valid(value) && value > high[lane] ? value : high[lane];
  };
  std::size_t first = 0;
  for (; first + lanes <= cells.size(); first += lanes) {
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      take(lane, cells[first + lane]);
    }
  }
  for (; first < cells.size(); ++first) {
    take(0, cells[first]);
  }
  range = {*std::ranges::min_element(low), *std::ranges::max_element(high)};
}

}  // namespace

value_range GRDOUT(const output_plan& plan, std::int32_t padded_columns,
                   const padded_row_source& padded_row) {
  const RowLayout from = layout_of(plan.input_grid);
  RowLayout to = from;
  to.header_bytes = standard_header_bytes;
  to.storage_sense = from.storage_sense == sense_bottom_up ? sense_bottom_up : sense_top_down;

  platform::StagedFile staged(plan.out_grid);
  standard_header header = float_grid_header(lattice_of(plan.input_grid), to.storage_sense);
  OUTPUT_GEOSOFT_HEADER(staged.file(), header);
  RowBlockWriter output(staged.file(), to);
  std::vector<float> padded(static_cast<std::size_t>(padded_columns));
  value_range range;
  for (std::int32_t row = 1; row <= from.y_count; ++row) {
    const std::span<float> cells = output.next_row();
    read_row(*plan.input, from, row, cells);
    padded_row(row + plan.pad, padded);
    const double y =
        plane_row(from.storage_sense, from.y_count, row) * plan.input_grid.reals.y_cell;
    const std::span<const float> inside =
        std::span<const float>(padded).subspan(static_cast<std::size_t>(plan.pad));
    if (plan.add_plane) {
      add_plane(plan.trend, plan.input_grid.reals.x_cell, y, inside, cells);
    } else {
      keep_dummies(inside, cells);
    }
    widen(cells, range);
  }
  output.finish();
  header.stat_min = range.smallest;
  header.stat_max = range.largest;
  OUTPUT_GEOSOFT_HEADER(staged.file(), header);
  staged.commit();
  return range;
}

}  // namespace velmorankite
