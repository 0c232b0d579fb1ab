// SPDX-License-Identifier: MIT
#include "utilities/limits.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>

#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

// Extends the limits by one row; the cells between its first and its last data are not looked at.
template <typename Cell>
void extend(std::span<const Cell> cells, std::int32_t row, Cell blank, data_limits& limits) {
  const auto holds_data = [blank](Cell cell) { return cell > blank; };
  const auto first = std::find_if(cells.begin(), cells.end(), holds_data);
  if (first == cells.end()) {
    return;
  }
  const auto behind_last = std::find_if(cells.rbegin(), cells.rend(), holds_data).base();
  const auto column = [&cells](auto place) {
    return static_cast<std::int32_t>(place - cells.begin());
  };
  limits.first_column = std::min(limits.first_column, column(first) + 1);
  limits.last_column = std::max(limits.last_column, column(behind_last));
  limits.first_row = std::min(limits.first_row, row);
  limits.last_row = std::max(limits.last_row, row);
}

template <typename Cell>
data_limits find_data_above(Cell blank, const platform::BinaryFile& file,
                            const standard_header& header) {
  const auto width = static_cast<std::size_t>(header.elements_per_row);
  const std::int32_t most =
      rows_of_block(static_cast<std::int64_t>(width * sizeof(Cell)), header.row_count);
  platform::LargeArray<Cell> block(width * static_cast<std::size_t>(most));
  data_limits limits{header.elements_per_row, 1, header.row_count, 1};
  std::int64_t position = standard_header_bytes + 1;
  for (std::int32_t done = 0; done < header.row_count;) {
    const std::int32_t rows = std::min(most, header.row_count - done);
    const std::span<Cell> cells = block.span().first(width * static_cast<std::size_t>(rows));
    file.read_values(position, cells);
    position += static_cast<std::int64_t>(cells.size_bytes());
    for (std::int32_t row = 0; row < rows; ++row) {
      extend<Cell>(cells.subspan(width * static_cast<std::size_t>(row), width), done + row + 1,
                   blank, limits);
    }
    done += rows;
  }
  return limits;
}

}  // namespace

data_limits find_data(const platform::BinaryFile& file, const standard_header& header) {
  if (header.sign_flag == kind_float) {
    return find_data_above(dummy, file, header);
  }
  return header.element_size == 4 ? find_data_above(dummy_int32, file, header)
                                  : find_data_above(dummy_int16, file, header);
}

Status GEOLIMITS(std::string_view path, data_limits& limits) {
  const platform::BinaryFile file(platform::without_padding(path), platform::open_mode::read);
  standard_header header;
  (void)READ_GEOSOFT_HEADER(file, header);  // only the counts matter
  header.sign_flag = kind_float;
  platform::expect(header.elements_per_row >= 1 && header.row_count >= 1 &&
                       header.elements_per_row <= longest_row,
                   file.path(),
                   "counts of at least 1 and rows below 2 GiB expected, " +
                       std::to_string(header.elements_per_row) + " columns and " +
                       std::to_string(header.row_count) + " rows found");
  check_cells_there(file, standard_header_bytes, header.elements_per_row, header.row_count,
                    sizeof(float));
  limits = find_data(file, header);
  return limits.meet() ? success : limits_no_data;
}

}  // namespace velmorankite
