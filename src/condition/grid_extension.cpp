// SPDX-License-Identifier: MIT
#include "condition/grid_extension.h"

#include <cmath>

#include "condition/placed_grid.h"
#include "grid/dummy.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

bool holds_cells(const RowFile& source) {
  const RowLayout& layout = source.layout();
  const std::int64_t cell_count =
      (source.file().size() - layout.header_bytes) / static_cast<std::int64_t>(sizeof(float));
  return layout.y_count <= cell_count / layout.x_count;
}

// Whether the header speaks of cells that can be read as floats.
bool holds_floats(const RowFile& source) {
  standard_header header;
  return !READ_GEOSOFT_HEADER(source.file(), header).failed() && header.element_size == 4 &&
         header.sign_flag == kind_float;
}

bool is_possible(const RowFile& source, const extension_request& request) {
  const RowLayout& layout = source.layout();
  const auto is_size = [](double cell) { return std::isfinite(cell) && cell > 0.0; };
  return lie_within(layout.x_count, request.column_offset, request.x_count) &&
         lie_within(layout.y_count, request.row_offset, request.y_count) &&
         request.x_count <= longest_row && holds_cells(source) && holds_floats(source) &&
         (request.storage_sense == sense_bottom_up || request.storage_sense == sense_top_down) &&
         is_size(request.x_cell) && is_size(request.y_cell) && std::isfinite(request.x_min) &&
         std::isfinite(request.y_min) && !platform::without_padding(request.output_name).empty();
}

// The lattice whose lowest column and row are those of the output.
Lattice lattice_of(const extension_request& request, const RowLayout& source) {
  const std::int32_t rows_below = request.storage_sense == sense_bottom_up
                                      ? request.row_offset
                                      : request.y_count - source.y_count - request.row_offset;
  const Lattice inner{request.x_min,  request.y_min,  request.x_cell,
                      request.y_cell, source.x_count, source.y_count};
  return around(inner, request.column_offset, rows_below, request.x_count, request.y_count);
}

}  // namespace

Status GRDEXT(const RowFile& source, const extension_request& request, float& minimum,
              float& maximum, float& background, std::int64_t& filled_count,
              std::int64_t most_cells_in_memory) {
  minimum = 0.0F;
  maximum = 0.0F;
  if (!is_possible(source, request)) {
    return extension_impossible;
  }
  const std::filesystem::path output_path = platform::without_padding(request.output_name);
  platform::keep_apart({{source.file().path(), "the grid to extend"}},
                       {{output_path, "the extended grid"}});
  PlacedGrid grid(source, request.column_offset, request.row_offset, request.x_count,
                  request.y_count, most_cells_in_memory);
  const GapTables& gaps = grid.gaps();
  if (gaps.valid_count < 1) {
    return extension_impossible;
  }
  platform::StagedFile output(output_path);
  standard_header header =
      float_grid_header(lattice_of(request, source.layout()), request.storage_sense);
  header.stat_min = gaps.minimum;
  header.stat_max = gaps.maximum;
  header.stat_mean = gaps.mean;
  OUTPUT_GEOSOFT_HEADER(output.file(), header);
  const float pull_to = is_valid(background) ? background : gaps.mean;
  const bool has_blanks = grid.has_blanks();
  const std::int64_t filled = grid.write(output.file(), standard_header_bytes,
                                         {request.extend, pull_to, request.pass_limit});
  output.commit();
  minimum = gaps.minimum;
  maximum = gaps.maximum;
  background = has_blanks ? pull_to : background;
  filled_count += filled;
  return success;
}

}  // namespace velmorankite
