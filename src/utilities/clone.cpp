// SPDX-License-Identifier: MIT
#include "utilities/clone.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "formats/describe_grid.h"
#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/standard_header.h"
#include "platform/io_error.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

using platform::expect;

constexpr std::int64_t block_bytes = std::int64_t{1} << 20;

bool holds_floats(const grid_ints& ints) noexcept {
  return std::abs(ints.element_code) == static_cast<std::int32_t>(sizeof(float));
}

std::int64_t bytes_of_cell(const grid_ints& ints) noexcept {
  return holds_floats(ints) ? sizeof(float) : sizeof(std::int16_t);
}

template <typename Cell>
Cell cell_of(std::int32_t mode) noexcept {
  if (mode == clone_zeros) {
    return Cell{0};
  }
  if constexpr (std::is_same_v<Cell, float>) {
    return dummy;
  } else {
    return dummy_int16;
  }
}

void check_source(const platform::BinaryFile& file, const grid_description& grid,
                  std::int32_t mode) {
  const grid_ints& ints = grid.ints;
  const std::filesystem::path& path = file.path();
  expect(is_plain_standard(ints), path, "a standard grid that is not compressed expected");
  expect(mode != clone_copy || ints.storage_sense == sense_bottom_up ||
             ints.storage_sense == sense_top_down,
         path,
         "storage sense 1 or -2 expected for a copy, " + std::to_string(ints.storage_sense) +
             " found");
  expect(ints.x_count >= 1 && ints.y_count >= 1 && ints.x_count <= longest_row, path,
         "counts of at least 1 and rows below 2 GiB expected, " + std::to_string(ints.x_count) +
             " columns and " + std::to_string(ints.y_count) + " rows found");
  expect(std::isfinite(grid.reals.x_cell) && std::isfinite(grid.reals.y_cell) &&
             grid.reals.x_cell > 0.0 && grid.reals.y_cell > 0.0,
         path,
         "cell sizes above 0 expected, " + std::to_string(grid.reals.x_cell) + " and " +
             std::to_string(grid.reals.y_cell) + " found");
  // A file that does not hold what its header says is not a grid of that size, whatever the mode.
  const std::int64_t cell_bytes =
      mode == clone_copy ? std::max<std::int64_t>(ints.element_code, bytes_of_cell(ints))
                         : ints.element_code;
  const std::int64_t wanted = lattice_of(grid).cell_count();
  const std::int64_t there =
      (file.size() - standard_header_bytes) / std::max<std::int64_t>(1, cell_bytes);
  expect(there >= wanted, path,
         "the file ends too early: " + std::to_string(wanted) + " cells expected, " +
             std::to_string(there) + " are there");
}

standard_header header_of(const grid_description& grid) {
  standard_header header = float_grid_header(lattice_of(grid), grid.ints.storage_sense);
  header.element_size = grid.ints.element_code;
  header.sign_flag = grid.ints.element_kind;
  header.z_base = grid.reals.z_base;
  header.z_mult = grid.reals.z_mult;
  // The description has the grid's own dummy where a statistic is not known.
  const auto statistic = [&grid](double value) {
    return value == grid.reals.dummy_value ? dummy : static_cast<float>(value);
  };
  header.stat_min = statistic(grid.reals.z_min);
  header.stat_max = statistic(grid.reals.z_max);
  header.stat_median = statistic(grid.reals.z_mid);
  header.stat_mean = header.stat_median;
  return header;
}

template <typename Cell>
void clone_cells_as(const platform::BinaryFile& source, platform::BinaryFile& target,
                    const grid_ints& layout, std::int32_t mode, std::int32_t rows_at_once) {
  const auto row_cells = static_cast<std::size_t>(layout.x_count);
  const std::int32_t most = std::clamp(rows_at_once, 1, layout.y_count);
  platform::LargeArray<Cell> block(row_cells * static_cast<std::size_t>(most));
  if (mode != clone_copy) {
    std::fill(block.begin(), block.end(), cell_of<Cell>(mode));
  }
  std::int64_t position = standard_header_bytes + 1;
  for (std::int32_t left = layout.y_count; left > 0;) {
    const std::int32_t rows = std::min(left, most);
    const std::span<Cell> cells = block.span().first(row_cells * static_cast<std::size_t>(rows));
    if (mode == clone_copy) {
      source.read_values(position, cells);
    }
    target.write_values(position, std::span<const Cell>(cells));
    position += static_cast<std::int64_t>(cells.size_bytes());
    left -= rows;
  }
}

}  // namespace

void clone_cells(const platform::BinaryFile& source, platform::BinaryFile& target,
                 const grid_ints& layout, std::int32_t mode, std::int32_t rows_at_once) {
  if (holds_floats(layout)) {
    clone_cells_as<float>(source, target, layout, mode, rows_at_once);
  } else {
    clone_cells_as<std::int16_t>(source, target, layout, mode, rows_at_once);
  }
}

Status GEOCLONE(std::string_view source_path, std::string_view target_path, std::int32_t mode) {
  grid_description grid;
  grid_texts texts;
  if (const Status status = GRDRDH(source_path, grid, texts); status.failed()) {
    return status;
  }
  const platform::BinaryFile source(platform::without_padding(source_path),
                                    platform::open_mode::read);
  check_source(source, grid, mode);
  platform::StagedFile staged(result_path(source.path(), target_path));
  OUTPUT_GEOSOFT_HEADER(staged.file(), header_of(grid));
  const std::int64_t row_bytes = bytes_of_cell(grid.ints) * grid.ints.x_count;
  clone_cells(source, staged.file(), grid.ints, mode,
              static_cast<std::int32_t>(std::max<std::int64_t>(1, block_bytes / row_bytes)));
  staged.commit();
  return success;
}

}  // namespace velmorankite
