// SPDX-License-Identifier: MIT
#include "utilities/flip.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "grid/cell_position.h"
#include "grid/standard_header.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

using Word = std::uint32_t;  // a cell of 4 bytes, whatever it holds

// Columns of a grid of `rows` rows of `columns` cells as rows: those that end at `last_column`
// (from 0), the last one first. The cells of a column come from the highest Y down.
struct ColumnTurn {
  // A tile reads whole cache lines and writes whole cache lines.
  static constexpr std::size_t tile = 16;

  std::span<const Word> cells;
  std::size_t columns;
  std::size_t rows;
  bool bottom_up;

  void operator()(std::size_t last_column, std::span<Word> turned) const {
    const std::size_t count = turned.size() / rows;
    for (std::size_t begin = 0; begin < rows; begin += tile) {
      const std::size_t end = std::min(rows, begin + tile);
      for (std::size_t first = 0; first < count; first += tile) {
        const std::size_t behind = std::min(count, first + tile);
        for (std::size_t r = first; r < behind; ++r) {
          const Word* const column = &cells[last_column - r];
          for (std::size_t k = begin; k < end; ++k) {
            turned[r * rows + k] = column[(bottom_up ? rows - 1 - k : k) * columns];
          }
        }
      }
    }
  }
};

standard_header turned_header(const standard_header& input) {
  standard_header header = input;
  header.elements_per_row = input.row_count;
  header.row_count = input.elements_per_row;
  header.storage_sense = sense_top_down;
  header.x_origin = input.y_origin + (input.row_count - 1) * input.row_spacing;
  header.y_origin = input.x_origin;
  header.element_spacing = input.row_spacing;
  header.row_spacing = input.element_spacing;
  return header;
}

// Cells move as their bytes lie in the file.
void turn_cells(const platform::BinaryFile& from, const standard_header& input,
                platform::BinaryFile& to) {
  const auto columns = static_cast<std::size_t>(input.elements_per_row);
  const auto rows = static_cast<std::size_t>(input.row_count);
  platform::LargeArray<Word> cells(columns * rows);
  from.read(standard_header_bytes + 1, std::as_writable_bytes(cells.span()));
  const ColumnTurn turn{cells.span(), columns, rows, input.storage_sense == sense_bottom_up};

  const auto cached = static_cast<std::size_t>(
      rows_of_block(static_cast<std::int64_t>(rows * sizeof(Word)), input.elements_per_row));
  const std::size_t most = std::min(columns, std::max(cached, ColumnTurn::tile));
  platform::LargeArray<Word> block(rows * most);
  std::int64_t position = standard_header_bytes + 1;
  for (std::size_t left = columns; left > 0;) {
    const std::size_t count = std::min(most, left);
    const std::span<Word> turned = block.span().first(rows * count);
    turn(left - 1, turned);
    to.write(position, std::as_bytes(turned));
    position += static_cast<std::int64_t>(turned.size_bytes());
    left -= count;
  }
}

}  // namespace

Status GEOFLIP(std::string_view input_path, std::string_view output_path) {
  const platform::BinaryFile input(platform::without_padding(input_path),
                                   platform::open_mode::read);
  const std::filesystem::path output = result_path(input.path(), output_path);
  standard_header header;
  if (const Status status = read_plain_header(input, header); status.failed()) {
    return status;
  }
  if (header.element_size != static_cast<std::int32_t>(sizeof(Word))) {
    return plain_cells_unknown;
  }
  platform::StagedFile staged(output);
  OUTPUT_GEOSOFT_HEADER(staged.file(), turned_header(header));
  turn_cells(input, header, staged.file());
  staged.commit();
  return success;
}

}  // namespace velmorankite
