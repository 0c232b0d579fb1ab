// The stored lines of binary grids, each read in one piece from its place in the file.
// SPDX-License-Identifier: MIT
#include <cstddef>
#include <utility>
#include <vector>

#include "formats/catalogue.h"
#include "formats/cell_decoding.h"
#include "formats/companion_file.h"
#include "formats/line_source.h"
#include "formats/stored_lines.h"
#include "platform/binary_file.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

class BinaryLines final : public LineSource {
 public:
  BinaryLines(platform::BinaryFile file, const grid_description& grid, cell_decoder decode)
      : file_(std::move(file)), grid_(grid), decode_(decode), lines_(stored_lines_of(grid.ints)) {}

  Status read(std::int32_t number, bool wanted, std::span<float> cells) override {
    if (!wanted) {
      return success;
    }
    try {
      // No more is taken than the file can hold.
      if (lines_.bytes > file_.size()) {
        return binary_line_unread;
      }
      raw_.resize(static_cast<std::size_t>(lines_.bytes));
      file_.read(position(number), raw_);
    } catch (const platform::IoError&) {
      return binary_line_unread;
    }
    decode_(raw_, grid_, cells);
    return success;
  }

 private:
  // ER Mapper's bands take turns line by line.
  [[nodiscard]] std::int64_t position(std::int32_t number) const noexcept {
    const grid_ints& ints = grid_.ints;
    std::int64_t ahead = std::int64_t{number} - 1;
    if (ints.format_code == format_ermapper) {
      ahead = ahead * ints.band_count + ints.band_select - 1;
      return ahead * lines_.stride + ints.data_offset + 1;
    }
    return std::int64_t{ints.data_offset} + ints.aux_1 + ahead * lines_.stride + 1;
  }

  platform::BinaryFile file_;
  const grid_description& grid_;
  cell_decoder decode_;
  stored_lines lines_;
  std::vector<std::byte> raw_;
};

}  // namespace

std::unique_ptr<LineSource> open_binary_lines(const std::filesystem::path& path,
                                              const grid_description& grid, Status& status) {
  const bool beside = grid.ints.format_code == format_ermapper;
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
