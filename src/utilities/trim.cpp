// SPDX-License-Identifier: MIT
#include "utilities/trim.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <span>

#include "grid/cell_position.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "utilities/limits.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

// The header of the kept rectangle.
standard_header trimmed(const standard_header& input, const data_limits& kept) {
  standard_header header = input;
  header.elements_per_row = kept.last_column - kept.first_column + 1;
  header.row_count = kept.last_row - kept.first_row + 1;
  // The stored rows of sense -2 run from the top: those behind the last are the lowest.
  const std::int32_t rows_below =
      input.storage_sense == sense_bottom_up ? kept.first_row - 1 : input.row_count - kept.last_row;
  header.x_origin = input.x_origin + (kept.first_column - 1) * input.element_spacing;
  header.y_origin = input.y_origin + rows_below * input.row_spacing;
  header.stat_median = dummy;
  header.stat_mean = dummy;
  return header;
}

// Moves the kept columns of the rows of a block to its front, without a gap between them.
void close_up(std::span<std::byte> block, std::size_t row_bytes, std::size_t first,
              std::size_t kept_bytes) {
  std::byte* to = block.data();
  for (std::size_t row = first; row < block.size(); row += row_bytes) {
    std::memmove(to, &block[row], kept_bytes);
    to += kept_bytes;
  }
}

void copy_kept(const platform::BinaryFile& from, const standard_header& input,
               const data_limits& kept, platform::BinaryFile& to) {
  const std::int64_t row_bytes = std::int64_t{input.elements_per_row} * input.element_size;
  const std::int64_t first = std::int64_t{kept.first_column - 1} * input.element_size;
  const std::int64_t kept_bytes =
      std::int64_t{kept.last_column - kept.first_column + 1} * input.element_size;
  const std::int32_t most = rows_of_block(row_bytes, input.row_count);
  platform::LargeArray<std::byte> block(static_cast<std::size_t>(row_bytes * most));
  std::int64_t position = standard_header_bytes + 1;
  for (std::int32_t done = kept.first_row - 1; done < kept.last_row;) {
    const std::int32_t rows = std::min(most, kept.last_row - done);
    const auto bytes = block.span().first(static_cast<std::size_t>(row_bytes * rows));
    from.read(standard_header_bytes + 1 + done * row_bytes, bytes);
    close_up(bytes, static_cast<std::size_t>(row_bytes), static_cast<std::size_t>(first),
             static_cast<std::size_t>(kept_bytes));
    to.write(position, bytes.first(static_cast<std::size_t>(kept_bytes * rows)));
    position += kept_bytes * rows;
    done += rows;
  }
}

}  // namespace

Status GEOTRIM(std::string_view input_path, std::string_view output_path) {
  const platform::BinaryFile input(platform::without_padding(input_path),
                                   platform::open_mode::read);
  const std::filesystem::path output = result_path(input.path(), output_path);
  standard_header header;
  if (const Status status = read_plain_header(input, header); status.failed()) {
    return status;
  }
  const data_limits kept = find_data(input, header);
  if (!kept.meet()) {
    return trim_no_data;
  }
  platform::StagedFile staged(output);
  OUTPUT_GEOSOFT_HEADER(staged.file(), trimmed(header, kept));
  copy_kept(input, header, kept, staged.file());
  staged.commit();
  return success;
}

}  // namespace velmorankite
