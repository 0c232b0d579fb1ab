// SPDX-License-Identifier: MIT
#include "utilities/source_grid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/value_transform.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

bool has_known_cells(const standard_header& header) noexcept {
  const bool floats = header.element_size == 4 && header.sign_flag == kind_float;
  const bool integers = header.element_size == 2 && header.sign_flag == kind_signed;
  return (floats || integers) &&
         (header.storage_sense == sense_bottom_up || header.storage_sense == sense_top_down);
}

bool is_finite(const Lattice& lattice) noexcept {
  return std::isfinite(lattice.x_min) && std::isfinite(lattice.y_min) &&
         std::isfinite(lattice.x_cell) && std::isfinite(lattice.y_cell);
}

}  // namespace

Status open_source(const std::filesystem::path& path, source_grid& source) {
  source.file = platform::BinaryFile(path, platform::open_mode::read);
  const Status status = READ_GEOSOFT_HEADER(source.file, source.header);
  const standard_header& header = source.header;
  if (status.failed() || header.element_size == 1 || !is_finite(source.lattice())) {
    return resampling_header_unsound;
  }
  if (!has_known_cells(header)) {
    return resampling_cells_unknown;
  }
  if (header.elements_per_row < 2 || header.row_count < 2) {
    return resampling_too_small;
  }
  platform::expect(header.elements_per_row <= longest_row, path, "rows below 2 GiB expected");
  check_cells_there(source.file, standard_header_bytes, header.elements_per_row, header.row_count,
                    header.element_size);
  return success;
}

CellWindow WindowReader::read(std::int32_t first_column, std::int32_t last_column,
                              std::int32_t first_row, std::int32_t last_row) {
  const auto width = static_cast<std::size_t>(last_column - first_column) + 1;
  const auto height = static_cast<std::size_t>(last_row - first_row) + 1;
  cells_.make_room(width * height);
  for (std::size_t r = 0; r < height; ++r) {
    read_row(first_row + static_cast<std::int32_t>(r), first_column,
             cells_.span().subspan(r * width, width));
  }
  return {cells_.data(), static_cast<std::ptrdiff_t>(width), first_column, first_row, last_column,
          last_row};
}

void WindowReader::read_row(std::int32_t row, std::int32_t first_column, std::span<float> cells) {
  const standard_header& header = source_.header;
  const std::int64_t position =
      GRDCELLPOS(header.storage_sense, standard_header_bytes, header.element_size,
                 header.elements_per_row, header.row_count, row, first_column);
  if (header.element_size == 4) {
    source_.file.read_values(position, cells);
  } else {
    integers_.resize(cells.size());
    source_.file.read_values(position, std::span(integers_));
    std::ranges::transform(integers_, cells.begin(), [](std::int16_t cell) {
      return cell == dummy_int16 ? dummy : static_cast<float>(cell);
    });
  }
  if (is_transformed(mode_)) {
    for (float& cell : cells) {
      cell = is_valid(cell) ? transform_value(mode_, cell) : cell;
    }
  }
}

}  // namespace velmorankite
