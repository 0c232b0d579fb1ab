// SPDX-License-Identifier: MIT
#include "utilities/validity.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/replaced_cells.h"
#include "grid/standard_header.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

// Puts the rows of a block in reversed order.
void reverse_rows(std::span<std::byte> block, std::size_t row_bytes) {
  std::size_t low = 0;
  for (std::size_t high = block.size(); low + row_bytes < high; low += row_bytes) {
    high -= row_bytes;
    const std::span<std::byte> other = block.subspan(high, row_bytes);
    std::swap_ranges(other.begin(), other.end(), block.begin() + static_cast<std::ptrdiff_t>(low));
  }
}

void write_reversed(const platform::BinaryFile& from, const standard_header& header,
                    platform::BinaryFile& to) {
  const std::int64_t row_bytes = std::int64_t{header.elements_per_row} * header.element_size;
  const std::int32_t most = rows_of_block(row_bytes, header.row_count);
  platform::LargeArray<std::byte> block(static_cast<std::size_t>(row_bytes * most));
  std::int64_t position = standard_header_bytes + 1;
  for (std::int32_t left = header.row_count; left > 0;) {
    const std::int32_t rows = std::min(most, left);
    left -= rows;
    const auto bytes = block.span().first(static_cast<std::size_t>(row_bytes * rows));
    from.read(standard_header_bytes + 1 + left * row_bytes, bytes);
    reverse_rows(bytes, static_cast<std::size_t>(row_bytes));
    to.write(position, bytes);
    position += row_bytes * rows;
  }
}

}  // namespace

Status GEOVALID(std::string_view path) {
  const platform::BinaryFile grid(platform::without_padding(path), platform::open_mode::read);
  standard_header header;
  const Status status = read_plain_header(grid, header);
  if (status.failed() || header.storage_sense == sense_bottom_up) {
    return status;
  }
  // A grid that may not be written is not replaced either.
  (void)platform::BinaryFile(grid.path(), platform::open_mode::read_write);
  header.storage_sense = sense_bottom_up;
  header.stat_median = dummy;
  header.stat_mean = dummy;
  ReplacedCells replaced(
      grid, standard_header_bytes,
      std::int64_t{header.elements_per_row} * header.element_size * header.row_count);
  OUTPUT_GEOSOFT_HEADER(replaced.file(), header);
  write_reversed(grid, header, replaced.file());
  replaced.commit();
  return success;
}

}  // namespace velmorankite
