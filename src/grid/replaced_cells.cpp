// SPDX-License-Identifier: MIT
#include "grid/replaced_cells.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace velmorankite {
namespace {

std::filesystem::perms permissions_of(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::status(path, ignored).permissions();
}

}  // namespace

ReplacedCells::ReplacedCells(const platform::BinaryFile& grid, std::int64_t header_bytes,
                             std::int64_t cell_bytes)
    : grid_(grid), cells_end_(header_bytes + cell_bytes), output_(grid.path()) {
  std::error_code ignored;  // what the new state holds is nobody's business either
  std::filesystem::permissions(output_.file().path(), permissions_of(grid.path()), ignored);
  copy_bytes(1, header_bytes + 1);
}

ReplacedCells::ReplacedCells(const RowFile& grid)
    : ReplacedCells(grid.file(), grid.layout().header_bytes,
                    std::int64_t{grid.layout().x_count} * static_cast<std::int64_t>(sizeof(float)) *
                        grid.layout().y_count) {}

void ReplacedCells::commit() {
  copy_bytes(cells_end_ + 1, grid_.size() + 1);
  output_.commit();
}

void ReplacedCells::copy_bytes(std::int64_t position, std::int64_t end) {
  constexpr std::int64_t block_bytes = std::int64_t{1} << 20;
  std::vector<std::byte> block;
  for (; position < end; position += block_bytes) {
    block.resize(static_cast<std::size_t>(std::min(block_bytes, end - position)));
    grid_.read(position, block);
    output_.file().write(position, block);
  }
}

}  // namespace velmorankite
