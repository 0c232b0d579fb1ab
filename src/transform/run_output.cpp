// SPDX-License-Identifier: MIT
#include "transform/run_output.h"

#include "platform/padded_text.h"
#include "transform/log_line.h"

namespace velmorankite {

value_range put_out_grid(const transform_run& run, const std::filesystem::path& path,
                         const padded_row_source& rows) {
  output_plan plan;
  plan.out_grid = path;
  plan.input = &run.input_rows;
  plan.input_grid = run.input.grid;
  plan.pad = run.geometry.pad;
  plan.add_plane = run.request.detrend_mode() == 1;
  plan.trend = run.facts.trend;
  return GRDOUT(plan, run.geometry.nxp, rows);
}

void put_out(transform_run& run, const padded_row_source& rows) {
  run.log.line("Output the transformed grid");
  const value_range range =
      put_out_grid(run, platform::without_padding(run.request.out_grid), rows);
  run.range = {range.smallest, range.largest};
  run.log.line(log_line("Transformed range : ", run.range.OutMin, run.range.OutMax));
}

}  // namespace velmorankite
