// SPDX-License-Identifier: MIT
#include "condition/multi_level_fill.h"

#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "condition/fill_pyramid.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/replaced_cells.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::StagedFile;

bool is_possible(const fill_request& request) {
  const grid_ints& input = request.input.ints;
  const std::int64_t cell_count = std::int64_t{request.x_count} * request.y_count;
  return (request.cells.empty() || std::ssize(request.cells) >= cell_count) &&
         request.x_count >= fewest_nodes && request.y_count >= fewest_nodes &&
         lie_within(input.x_count, request.column_offset, request.x_count) &&
         lie_within(input.y_count, request.row_offset, request.y_count);
}

// Level 0, and the array that it is held in if that is none of the caller's.
struct base_level {
  platform::LargeArray<float> cells;
  std::unique_ptr<LevelRows> rows;
};

// The caller's array, with the part that the input does not cover blanked.
base_level level_in_array(std::span<float> cells, const Lattice& lattice,
                          const input_placement& placement) {
  base_level level{{}, std::make_unique<MemoryRows>(lattice, cells)};
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    if (placement.has_row(row)) {
      placement.blank_margin(level.rows->row(row));
    } else {
      std::ranges::fill(level.rows->row(row), dummy);
    }
  }
  return level;
}

// In memory where there is room.
base_level level_from_file(const RowFile& input, const Lattice& lattice,
                           const input_placement& placement, const level_storage& storage) {
  base_level level;
  if (lattice.cell_count() <= storage.most_cells_in_memory) {
    try {
      level.cells = platform::LargeArray<float>(static_cast<std::size_t>(lattice.cell_count()));
      level.rows = std::make_unique<MemoryRows>(lattice, level.cells.span());
      for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
        read_placed_row(input, placement, row, level.rows->row(row));
      }
      return level;
    } catch (const std::bad_alloc&) {
      // Read by rows, as one that is too large.
    }
  }
  level.rows = std::make_unique<InputRows>(lattice, input, placement);
  return level;
}

std::int64_t write_new_grid(FillPyramid& pyramid, const fill_request& request,
                            const Lattice& lattice) {
  StagedFile output(platform::without_padding(request.output_name));
  const std::int32_t sense = request.input.ints.storage_sense;
  standard_header header = float_grid_header(lattice, sense);
  header.stat_min = request.minimum;
  header.stat_max = request.maximum;
  OUTPUT_GEOSOFT_HEADER(output.file(), header);
  const RowLayout layout{sense, lattice.x_count, lattice.y_count};
  const std::int64_t filled = pyramid.fill([&](std::int32_t row, std::span<const float> cells) {
    write_row(output.file(), layout, row, cells);
  });
  output.commit();
  return filled;
}

std::int64_t fill_in_place(FillPyramid& pyramid, const RowFile& input,
                           const input_placement& placement) {
  ReplacedCells output(input);
  const std::int64_t filled = pyramid.fill([&](std::int32_t row, std::span<const float> cells) {
    if (placement.has_row(row)) {
      write_row(output.file(), input.layout(), row - placement.row_offset,
                placement.covered(cells));
    }
  });
  output.commit();
  return filled;
}

}  // namespace

Status GRDMIPMAP(const fill_request& request, std::int64_t& filled_count,
                 std::int64_t most_cells_in_memory) {
  filled_count = 0;
  if (!is_possible(request)) {
    return fill_impossible;
  }
  const bool in_place = platform::without_padding(request.output_name).empty();
  const RowFile input(
      BinaryFile(platform::without_padding(request.input_name),
                 in_place ? platform::open_mode::read_write : platform::open_mode::read),
      layout_of(request.input));
  if (in_place || request.cells.empty()) {
    check_float_grid(input.file(), request.input);
  }
  const platform::named_file output{platform::without_padding(request.output_name),
                                    "the filled grid"};
  platform::named_files kept = request.others;
  kept.push_back({input.file().path(), "the grid that is filled"});
  platform::keep_apart(kept, {output});
  kept.push_back(output);
  const Lattice lattice = around(lattice_of(request.input), request.column_offset,
                                 request.row_offset, request.x_count, request.y_count);
  const input_placement placement{input.layout(), request.column_offset, request.row_offset};
  const level_storage storage{most_cells_in_memory, request.input.ints.storage_sense,
                              request.minimum, request.maximum, kept};
  const base_level level_0 = request.cells.empty()
                                 ? level_from_file(input, lattice, placement, storage)
                                 : level_in_array(request.cells, lattice, placement);
  FillPyramid pyramid(*level_0.rows, storage);
  if (!pyramid.build()) {
    return fill_impossible;
  }
  filled_count = in_place ? fill_in_place(pyramid, input, placement)
                          : write_new_grid(pyramid, request, lattice);
  return success;
}

Status fill_levels(std::span<float> cells, const Lattice& lattice, std::int64_t& filled_count,
                   const line_cells& line) {
  filled_count = 0;
  if (lattice.x_count < fewest_nodes || lattice.y_count < fewest_nodes ||
      std::ssize(cells) < lattice.cell_count()) {
    return fill_impossible;
  }
  cells = cells.first(static_cast<std::size_t>(lattice.cell_count()));
  if (std::ranges::any_of(line.cells, [&](std::size_t place) { return place >= cells.size(); })) {
    return fill_impossible;
  }
  add_line_nodes(line, lattice, cells);
  if (std::ranges::all_of(cells, is_valid)) {
    return success;
  }
  MemoryRows level_0(lattice, cells);
  FillPyramid pyramid(level_0, {});
  if (!pyramid.build()) {
    return fill_impossible;
  }
  filled_count = pyramid.fill(nullptr);
  return success;
}

}  // namespace velmorankite
