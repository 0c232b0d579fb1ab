// SPDX-License-Identifier: MIT
#include "condition/hole_filling.h"

#include "condition/multi_level_fill.h"
#include "formats/describe_grid.h"
#include "platform/binary_file.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

// The grid is opened as the filling will open it, so that one that may not be written has its
// status too.
Status describe_input(std::string_view name, platform::open_mode mode, grid_description& grid) {
  try {
    grid_texts texts;
    const Status status = GRDRDH(name, grid, texts);
    if (!status.failed()) {
      (void)platform::BinaryFile(platform::without_padding(name), mode);
    }
    return status;
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
  const bool in_place = platform::without_padding(output_name).empty();
  const auto mode = in_place ? platform::open_mode::read_write : platform::open_mode::read;
  if (const Status status = describe_input(input_name, mode, request.input); status.failed()) {
    return status;
  }
  platform::keep_apart({{platform::without_padding(input_name), "the grid that is filled"}},
                       {{platform::without_padding(output_name), "the filled grid"}});
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
