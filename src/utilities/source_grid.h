// A grid that a utility reads cells of: opened, and known to hold what its header says.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <vector>

#include "grid/cell_window.h"
#include "grid/lattice.h"
#include "grid/standard_header.h"
#include "grid/status.h"
#include "platform/binary_file.h"
#include "platform/large_array.h"

namespace velmorankite {

// What resampling refuses, in GEOROT and GEODRAPE alike.
inline constexpr Status resampling_header_unsound{-1};  // or a blank name, or cells of 1 byte
inline constexpr Status resampling_cells_unknown{-2};
inline constexpr Status resampling_too_small{-3};
inline constexpr Status resampling_counts_differ{-4};
inline constexpr Status resampling_output_unsound{-5};
inline constexpr Status resampling_numbers_unsound{-6};
inline constexpr Status resampling_profile_unsound{-7};

struct source_grid {
  platform::BinaryFile file;
  standard_header header;

  [[nodiscard]] Lattice lattice() const noexcept {
    return {header.x_origin,    header.y_origin,         header.element_spacing,
            header.row_spacing, header.elements_per_row, header.row_count};
  }
};

// Opens a plain standard grid of 4-byte floats or signed 2-byte integers in one of the senses 1
// and -2, with at least 2 columns and rows.
// Status: success, resampling_header_unsound, resampling_cells_unknown (other cells or senses),
// resampling_too_small. Throws IoError if the file cannot be read or does not hold all its cells.
Status open_source(const std::filesystem::path& path, source_grid& source);

// Reads pieces of a grid into memory that is used again.
class WindowReader {
 public:
  // The source must outlive the reader. Valid cells are read as value_transform.h makes them in
  // `mode`; integers come as floats, their dummy as the dummy.
  explicit WindowReader(const source_grid& source, std::int32_t mode = 1)
      : source_(source), mode_(mode) {}

  // Columns and rows of the grid, from 1, at least one of each. Good until the next read. Throws
  // IoError.
  CellWindow read(std::int32_t first_column, std::int32_t last_column, std::int32_t first_row,
                  std::int32_t last_row);

 private:
  void read_row(std::int32_t row, std::int32_t first_column, std::span<float> cells);

  const source_grid& source_;
  std::int32_t mode_;
  platform::LargeArray<float> cells_;
  std::vector<std::int16_t> integers_;
};

}  // namespace velmorankite
