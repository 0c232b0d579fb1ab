// SPDX-License-Identifier: MIT
#include <cmath>

#include "transform/fft_response.h"
#include "transform/filter_index.h"
#include "transform/products.h"
#include "transform/run_output.h"

namespace velmorankite {

Status make_filtered_grid(transform_run& run, filter_parameters parameters) {
  run.log.line("call fftrsp");
  fftrsp(true, run.geometry.size(), parameters.FilterNo, parameters, run.array.span(), run.power);
  run.spectrum_scratch.remove();
  run.log.line("compute inverse fft");
  run.log.pause();
  transform_array(run.array.span(), run.geometry, -1);
  // By its definition the vertical integral is divided by the cell's area to its order as well; the
  // response alone is in map units already.
  const double divisor =
      parameters.FilterNo == filter_vertical_integral
          ? std::pow(parameters.CellX * parameters.CellY, static_cast<double>(parameters.Par1))
          : 1.0;
  put_out(run, [&run, divisor](std::int32_t row, std::span<float> cells) {
    read_window_row(run.array.span(), run.geometry, row, cells);
    if (divisor != 1.0) {
      for (float& cell : cells) {
        cell = static_cast<float>(static_cast<double>(cell) / divisor);
      }
    }
  });
  return success;
}

}  // namespace velmorankite
