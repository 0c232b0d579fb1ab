// SPDX-License-Identifier: MIT
#include <algorithm>
#include <limits>

#include "condition/hole_filling.h"
#include "platform/padded_text.h"
#include "transform/log_line.h"
#include "transform/products.h"
#include "transform/transform_run.h"
#include "transform/transform_status.h"

namespace velmorankite {

Status make_filled_grid(transform_run& run, filter_parameters parameters) {
  run.range = {0.0F, 0.0F};
  const hole_fill fill{run.input.path, run.input.grid,
                       platform::without_padding(run.request.out_grid),
                       parameters.Opt2 == 0 ? fill_road::sweeps : fill_road::levels};
  float minimum = 0.0F;
  float maximum = 0.0F;
  std::int64_t filled = 0;
  const Status status = fill_grid(fill, minimum, maximum, filled);
  if (status == fill_input_unopened) {
    run.log.line("Failed to open the input grid file");
    return transform_input_unopened;
  }
  if (status.failed()) {
    return transform_fill_failed;
  }
  run.log.line(log_line("Number of cells filled: ", filled));
  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  return {static_cast<std::int32_t>(std::min(filled, most))};
}

}  // namespace velmorankite
