// SPDX-License-Identifier: MIT
#include "condition/hole_filling.h"

#include <optional>
#include <utility>

#include "condition/multi_level_fill.h"
#include "condition/placed_grid.h"
#include "formats/describe_grid.h"
#include "grid/replaced_cells.h"
#include "platform/binary_file.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

fill_road road_of(std::int32_t flag) {
  return flag == 0 ? fill_road::sweeps : fill_road::levels;
}

bool is_in_place(std::string_view output_name) {
  return platform::without_padding(output_name).empty();
}

// The grid is opened as the filling will open it, so that one that may not be written has its
// status too.
std::optional<platform::BinaryFile> open_input(std::string_view name,
                                               std::string_view output_name) {
  try {
    return platform::BinaryFile(
        platform::without_padding(name),
        is_in_place(output_name) ? platform::open_mode::read_write : platform::open_mode::read);
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
}

// A grid that is not there has no description on the road of levels; the sweeps open it first.
Status describe_input(std::string_view name, std::string_view output_name, fill_road road,
                      grid_description& grid) {
  if (road == fill_road::sweeps && !open_input(name, output_name)) {
    return fill_input_unopened;
  }
  try {
    grid_texts texts;
    if (const Status status = GRDRDH(name, grid, texts); status.failed()) {
      return status;
    }
  } catch (const platform::IoError&) {
    return fill_input_unopened;
  }
  return open_input(name, output_name) ? success : fill_input_unopened;
}

Status fill_by_levels(const hole_fill& request, std::int64_t& filled_count,
                      std::int64_t most_cells_in_memory) {
  fill_request levels;
  levels.input_name = request.input_name;
  levels.input = request.input;
  levels.x_count = request.input.ints.x_count;
  levels.y_count = request.input.ints.y_count;
  levels.output_name = request.output_name;
  return GRDMIPMAP(levels, filled_count, most_cells_in_memory);
}

std::int64_t write_new_grid(PlacedGrid& grid, const hole_fill& request, const sweep_plan& plan) {
  platform::StagedFile output(platform::without_padding(request.output_name));
  standard_header header =
      float_grid_header(lattice_of(request.input), request.input.ints.storage_sense);
  header.stat_min = grid.gaps().minimum;
  header.stat_max = grid.gaps().maximum;
  header.stat_mean = grid.gaps().mean;
  OUTPUT_GEOSOFT_HEADER(output.file(), header);
  const std::int64_t filled = grid.write(output.file(), standard_header_bytes, plan);
  output.commit();
  return filled;
}

std::int64_t write_in_place(PlacedGrid& grid, const RowFile& input, const sweep_plan& plan) {
  ReplacedCells output(input);
  const std::int64_t filled = grid.write(output.file(), input.layout().header_bytes, plan);
  output.commit();
  return filled;
}

Status fill_by_sweeps(const hole_fill& request, float& minimum, float& maximum,
                      std::int64_t& filled_count, std::int64_t most_cells_in_memory) {
  std::optional<platform::BinaryFile> file = open_input(request.input_name, request.output_name);
  if (!file) {
    return fill_input_unopened;
  }
  check_float_grid(*file, request.input);
  const RowFile input(std::move(*file), in_file_order(layout_of(request.input)));
  const RowLayout& layout = input.layout();
  PlacedGrid grid(input, 0, 0, layout.x_count, layout.y_count, most_cells_in_memory);
  if (grid.gaps().valid_count < 1) {
    return fill_no_valid_cell;
  }
  const sweep_plan plan{false, grid.gaps().mean, 0};
  filled_count = is_in_place(request.output_name) ? write_in_place(grid, input, plan)
                                                  : write_new_grid(grid, request, plan);
  minimum = grid.gaps().minimum;
  maximum = grid.gaps().maximum;
  return success;
}

}  // namespace

Status fill_grid(const hole_fill& request, float& minimum, float& maximum,
                 std::int64_t& filled_count, std::int64_t most_cells_in_memory) {
  filled_count = 0;
  minimum = 0.0F;
  maximum = 0.0F;
  platform::keep_apart({{platform::without_padding(request.input_name), "the grid that is filled"}},
                       {{platform::without_padding(request.output_name), "the filled grid"}});
  return request.road == fill_road::levels
             ? fill_by_levels(request, filled_count, most_cells_in_memory)
             : fill_by_sweeps(request, minimum, maximum, filled_count, most_cells_in_memory);
}

Status GRID_FILL(std::string_view input_name, std::string_view output_name, std::int32_t road,
                 std::int32_t /*limit*/, float& minimum, float& maximum,
                 std::int64_t& filled_count) {
  filled_count = 0;
  minimum = 0.0F;
  maximum = 0.0F;
  hole_fill request{input_name, {}, output_name, road_of(road)};
  if (const Status status = describe_input(input_name, output_name, request.road, request.input);
      status.failed()) {
    return status;
  }
  const grid_description& input = request.input;
  if (!is_plain_standard(input.ints) || input.reals.z_base != 0.0 || input.reals.z_mult != 1.0) {
    throw platform::IoError(std::filesystem::path(input_name),
                            "a plain standard grid with unscaled cells is expected");
  }
  return fill_grid(request, minimum, maximum, filled_count);
}

}  // namespace velmorankite
