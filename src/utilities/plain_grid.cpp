// SPDX-License-Identifier: MIT
#include "utilities/plain_grid.h"

#include <algorithm>
#include <string>

#include "grid/cell_position.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

using platform::expect;

constexpr std::string_view default_output = "outfile.grd";
constexpr std::size_t shortest_output = 2;  // characters
constexpr std::int64_t block_bytes = std::int64_t{128} << 10;

}  // namespace

Status read_plain_header(const platform::BinaryFile& file, standard_header& header) {
  if (const Status status = READ_GEOSOFT_HEADER(file, header); status.failed()) {
    return status;
  }
  const bool cells_known =
      header.sign_flag == kind_float ? header.element_size == 4 : header.element_size != 1;
  if (!cells_known) {
    return plain_cells_unknown;
  }
  if (header.storage_sense != sense_bottom_up && header.storage_sense != sense_top_down) {
    return plain_sense_unknown;
  }
  expect(std::max(header.elements_per_row, header.row_count) <= longest_row, file.path(),
         "rows and columns below 2 GiB expected, " + std::to_string(header.elements_per_row) +
             " columns by " + std::to_string(header.row_count) + " rows found");
  check_cells_there(file, standard_header_bytes, header.elements_per_row, header.row_count,
                    header.element_size);
  return success;
}

std::filesystem::path result_path(const std::filesystem::path& input,
                                  std::string_view output_path) {
  std::string_view output = platform::without_tail(output_path);
  if (output.size() < shortest_output) {
    output = default_output;
  }
  platform::keep_apart({{input, "the input grid"}}, {{output, "the output grid"}});
  return output;
}

std::int32_t rows_of_block(std::int64_t row_bytes, std::int32_t row_count) noexcept {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(block_bytes / row_bytes, 1, row_count));
}

}  // namespace velmorankite
