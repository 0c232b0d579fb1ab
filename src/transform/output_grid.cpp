// SPDX-License-Identifier: MIT
#include "transform/output_grid.h"

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

VELMORANKITE_VECTOR_CLONES void add_plane(const plane& trend, double x_cell, double y,
                                          std::span<const float> padded, std::span<float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const double x = static_cast<double>(static_cast<std::int32_t>(i)) * x_cell;
    const auto sum = static_cast<float>(static_cast<double>(padded[i]) + trend.at(x, y));
    cells[i] = is_valid(cells[i]) ? sum : dummy;
  }
}

}  // namespace

value_range GRDOUT(const output_plan& plan, std::int32_t padded_columns,
                   const padded_row_source& padded_row) {
  const RowLayout& from = plan.input->layout();
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
    plan.input->read(row, cells);
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
    range.widen(cells);
  }
  output.finish();
  header.stat_min = range.smallest;
  header.stat_max = range.largest;
  OUTPUT_GEOSOFT_HEADER(staged.file(), header);
  staged.commit();
  return range;
}

}  // namespace velmorankite
