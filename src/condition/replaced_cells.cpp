// SPDX-License-Identifier: MIT
#include "condition/replaced_cells.h"

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

ReplacedCells::ReplacedCells(const RowFile& grid)
    : grid_(grid), permissions_(permissions_of(grid.file().path())), output_(grid.file().path()) {
  copy_bytes(1, grid.layout().header_bytes + 1);
}

void ReplacedCells::commit() {
  const RowLayout& layout = grid_.layout();
  const std::int64_t cells_end =
      layout.header_bytes +
      std::int64_t{layout.x_count} * static_cast<std::int64_t>(sizeof(float)) * layout.y_count;
  copy_bytes(cells_end + 1, grid_.file().size() + 1);
  output_.commit();
  std::error_code ignored;
  std::filesystem::permissions(output_.target(), permissions_, ignored);
}

void ReplacedCells::copy_bytes(std::int64_t position, std::int64_t end) {
  constexpr std::int64_t block_bytes = std::int64_t{1} << 20;
  std::vector<std::byte> block;
  for (; position < end; position += block_bytes) {
    block.resize(static_cast<std::size_t>(std::min(block_bytes, end - position)));
    grid_.file().read(position, block);
    output_.file().write(position, block);
  }
}

}  // namespace velmorankite
