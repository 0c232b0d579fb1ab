// SPDX-License-Identifier: MIT
#include "grid/cell_position.h"

namespace velmorankite {

std::int64_t GRDCELLPOS(std::int32_t storage_sense, std::int32_t header_bytes,
                        std::int32_t element_size, std::int32_t elements_per_row,
                        std::int32_t row_count, std::int32_t row, std::int32_t column) noexcept {
  const std::int64_t row_stride = std::int64_t{elements_per_row} * element_size;
  const std::int64_t stored_row = storage_sense == sense_bottom_up ? row - 1 : row_count - row;
  return header_bytes + stored_row * row_stride + std::int64_t{column - 1} * element_size + 1;
}

}  // namespace velmorankite
