// The array of the transform: where a grid lies in it, and the ways in and out.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "grid/grid_rows.h"
#include "grid/lattice.h"
#include "grid/status.h"
#include "platform/binary_file.h"
#include "transform/fft_response.h"

namespace velmorankite {

inline constexpr Status fft_too_large{-1015};  // a size that no array can have

// A grid in the middle of its padded grid, and that in the middle of an array of powers of two.
// Rows of the array run from the north: its row padoffy + k, from 1, is padded row nyp - k + 1.
struct fft_geometry {
  std::int32_t columns = 0;  // of the grid
  std::int32_t rows = 0;
  std::int32_t pad = 0;  // cells on each side
  std::int32_t nxp = 0;  // columns and rows of the padded grid
  std::int32_t nyp = 0;
  std::int32_t fftnx = 0;  // of the array
  std::int32_t fftny = 0;
  std::int32_t padoffx = 0;  // array columns ahead of the padded grid
  std::int32_t padoffy = 0;
  std::int32_t origx = 0;  // array columns ahead of the grid
  std::int32_t origy = 0;

  [[nodiscard]] constexpr fft_size size() const noexcept { return {fftnx, fftny}; }
  // Single-precision words of the array.
  [[nodiscard]] constexpr std::size_t fftwords() const noexcept {
    return 2 * static_cast<std::size_t>(fftnx) * static_cast<std::size_t>(fftny);
  }
  // Index of the array's first word of a row of the padded grid or of the grid (rows from 1 at the
  // lowest Y), at its first column.
  [[nodiscard]] constexpr std::size_t padded_row(std::int32_t row) const noexcept {
    return word(padoffx, padoffy + nyp - row);
  }
  [[nodiscard]] constexpr std::size_t grid_row(std::int32_t row) const noexcept {
    return word(origx, origy + rows - row);
  }

 private:
  [[nodiscard]] constexpr std::size_t word(std::int32_t column, std::int32_t row) const noexcept {
    return 2 * (static_cast<std::size_t>(row) * static_cast<std::size_t>(fftnx) +
                static_cast<std::size_t>(column));
  }
};

// Sizes for a grid padded by 3 x PadWidth + 1 cells, PadWidth at least 1. Status: success or
// fft_too_large.
Status plan_fft(std::int32_t columns, std::int32_t rows, std::int32_t PadWidth,
                fft_geometry& geometry);

// The real parts of one row of the padded grid (from 1 at the lowest Y): nxp cells.
void read_window_row(std::span<const float> array, const fft_geometry& geometry, std::int32_t row,
                     std::span<float> cells);

// Writes the real parts over all rows of a padded grid. Throws IoError.
void write_window(std::span<const float> array, const fft_geometry& geometry, RowFile& padded);

// Sets all of the array to the forward transform of a padded grid: its cells as real parts,
// `background` round them, the imaginary parts 0. The rows are made just ahead of their own
// transform. Throws IoError.
void transform_padded(const RowFile& padded, const fft_geometry& geometry, float background,
                      std::span<float> array);

// The transform of the whole array, sign as for FOURN.
void transform_array(std::span<float> array, const fft_geometry& geometry, std::int32_t sign);

}  // namespace velmorankite
