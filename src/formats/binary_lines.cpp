// The stored lines of binary grids, each read in one piece from its place in the file.
// SPDX-License-Identifier: MIT
#include <cstddef>
#include <utility>
#include <vector>

#include "formats/cell_decoding.h"
#include "formats/companion_file.h"
#include "formats/format_traits.h"
#include "formats/line_source.h"
#include "formats/stored_lines.h"
#include "platform/binary_file.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

class BinaryLines final : public LineSource {
 public:
  BinaryLines(platform::BinaryFile file, const grid_description& grid, cell_decoder decode)
      : file_(std::move(file)),
        file_size_(file_.size()),
        grid_(grid),
        decode_(decode),
        lines_(stored_lines_of(grid.ints)),
        in_turns_(traits_of(grid.ints).lines == line_form::in_turns) {}

  // Lines lie in the file one behind the other, so that those between two that are there are too.
  [[nodiscard]] Status find_lines(std::int32_t first, std::int32_t last) const override {
    return is_there(first) && is_there(last) ? success : binary_line_unread;
  }

  Status read(std::int32_t number, bool wanted, std::span<float> cells) override {
    if (!wanted) {
      return success;
    }
    try {
      raw_.resize(static_cast<std::size_t>(lines_.bytes));
      file_.read(position(number), raw_);
    } catch (const platform::IoError&) {
      return binary_line_unread;
    }
    decode_(raw_, grid_, cells);
    return success;
  }

 private:
  // How many stored lines lie ahead of one.
  [[nodiscard]] std::int64_t lines_ahead(std::int32_t number) const noexcept {
    const std::int64_t ahead = std::int64_t{number} - 1;
    return in_turns_ ? ahead * grid_.ints.band_count + grid_.ints.band_select - 1 : ahead;
  }

  // Bytes ahead of the cells of the first stored line.
  [[nodiscard]] std::int64_t bytes_ahead() const noexcept {
    return std::int64_t{grid_.ints.data_offset} + (in_turns_ ? 0 : grid_.ints.aux_1);
  }

  [[nodiscard]] std::int64_t position(std::int32_t number) const noexcept {
    return bytes_ahead() + lines_ahead(number) * lines_.stride + 1;
  }

  // Divides, since the counts of a header may have a product beyond 64 bits.
  [[nodiscard]] bool is_there(std::int32_t number) const noexcept {
    const std::int64_t room = file_size_ - bytes_ahead() - lines_.bytes;
    return bytes_ahead() >= 0 && room >= 0 && lines_.stride > 0 && lines_ahead(number) >= 0 &&
           lines_ahead(number) <= room / lines_.stride;
  }

  platform::BinaryFile file_;
  std::int64_t file_size_;
  const grid_description& grid_;
  cell_decoder decode_;
  stored_lines lines_;
  bool in_turns_;  // the bands, line by line
  std::vector<std::byte> raw_;
};

}  // namespace

std::unique_ptr<LineSource> open_binary_lines(const std::filesystem::path& path,
                                              const grid_description& grid, Status& status) {
  const bool beside = traits_of(grid.ints).second == second_file::cells;
  const std::filesystem::path cells = beside ? ermapper_cells(path) : path;
  const cell_decoder decode = decoder_of(grid.ints);
  if (cells.empty() || decode == nullptr) {
    status = cells.empty() ? conversion_impossible : conversion_missing;
    return nullptr;
  }
  status = success;
  return std::make_unique<BinaryLines>(platform::BinaryFile(cells, platform::open_mode::read), grid,
                                       decode);
}

}  // namespace velmorankite
