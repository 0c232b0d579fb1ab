// The stored lines of a grid file, whatever its format: rows or columns of decoded cells.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status conversion_impossible{-1};  // the name, the window, no file of cells
inline constexpr Status conversion_missing{-11};    // no conversion exists for the format
inline constexpr Status gxf_without_cells{-27};     // no line "#GRID"
inline constexpr Status zmap_header_unended{-1001};
inline constexpr Status binary_line_unread{-3000};
// Stored line k of a text file could not be read: the number less k. ZMap counts the lines of the
// file.
inline constexpr std::int32_t text_line_unread = -1000;
inline constexpr Status first_line_unread{text_line_unread - 1};
inline constexpr std::int32_t zmap_line_unread = 0;

// Gives lines in the order of the file.
class LineSource {
 public:
  LineSource() = default;
  virtual ~LineSource() = default;
  LineSource(const LineSource&) = delete;
  LineSource& operator=(const LineSource&) = delete;

  // Whether the file can hold two stored lines and all between them, asked before anything is
  // allocated for their cells. Text tells that only when it is read.
  // Status: success, binary_line_unread.
  [[nodiscard]] virtual Status find_lines(std::int32_t /*first*/, std::int32_t /*last*/) const {
    return success;
  }

  // Decodes stored line `number`, each in its turn from 1.
  //   wanted  false: the line is passed over, and `cells` need not be filled.
  //   cells   out: the line in stored order, as settle_cells takes it.
  virtual Status read(std::int32_t number, bool wanted, std::span<float> cells) = 0;

  // Whether the decoding left nothing for settle_cells to do.
  [[nodiscard]] virtual bool settles() const noexcept { return false; }
};

// Opens a text grid and passes over its header. Throws IoError.
//   status  out: why there is no source.
[[nodiscard]] std::unique_ptr<LineSource> open_text_lines(const std::filesystem::path& path,
                                                          const grid_description& grid,
                                                          Status& status);

// Opens the file that holds the cells of a binary grid. The description must outlive the source.
// Throws IoError.
[[nodiscard]] std::unique_ptr<LineSource> open_binary_lines(const std::filesystem::path& path,
                                                            const grid_description& grid,
                                                            Status& status);

}  // namespace velmorankite
