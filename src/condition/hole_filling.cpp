// SPDX-License-Identifier: MIT
#include "condition/hole_filling.h"

#include "condition/multi_level_fill.h"
#include "formats/describe_grid.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

Status describe_input(std::string_view name, grid_description& grid) {
  try {
    grid_texts texts;
    return GRDRDH(name, grid, texts);
  } catch (const platform::IoError&) {
    return fill_input_unopened;
  }
}

}  // namespace

Status GRID_FILL(std::string_view input_name, std::string_view output_name, std::int32_t road,
                 std::int32_t /*limit*/, float& minimum, float& maximum,
                 std::int64_t& filled_count) {
  filled_count = 0;
  minimum = 0.0F;
  maximum = 0.0F;
  fill_request request;
  request.input_name = input_name;
  request.output_name = output_name;
  if (const Status status = describe_input(input_name, request.input); status.failed()) {
    return status;
  }
  if (road == 0) {
    return sweep_road_missing;
  }
  const grid_description& input = request.input;
  if (!is_plain_standard(input.ints) || input.reals.z_base != 0.0 || input.reals.z_mult != 1.0) {
    throw platform::IoError(std::filesystem::path(input_name),
                            "a plain standard grid with unscaled cells is expected");
  }
  request.x_count = input.ints.x_count;
  request.y_count = input.ints.y_count;
  request.minimum = minimum;
  request.maximum = maximum;
  return GRDMIPMAP(request, filled_count);
}

}  // namespace velmorankite
