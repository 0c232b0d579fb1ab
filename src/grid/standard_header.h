// The 512-byte header of the standard grid (the Geosoft binary grid), all little-endian.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "grid/dummy.h"
#include "grid/lattice.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

// Kinds of cells, as `sign_flag` says them.
inline constexpr std::int32_t kind_unsigned = 0;
inline constexpr std::int32_t kind_signed = 1;
inline constexpr std::int32_t kind_float = 2;

// The fields that a caller sees, in the order of the argument lists. The defaults are those of
// the grids that the system writes: 4-byte floats from the bottom row up, statistics not known.
struct standard_header {
  std::int32_t element_size = 4;  // bytes a cell: 1, 2 or 4
  std::int32_t sign_flag = kind_float;
  std::int32_t elements_per_row = 0;
  std::int32_t row_count = 0;
  std::int32_t storage_sense = 1;
  double x_origin = 0.0;  // centre of the bottom left cell, map units
  double y_origin = 0.0;
  double element_spacing = 0.0;  // map units, above 0
  double row_spacing = 0.0;
  double z_base = 0.0;  // true value = stored value / z_mult + z_base
  double z_mult = 1.0;
  std::int32_t process_flag = 0;
  float stat_min = dummy;
  float stat_max = dummy;
  float stat_median = dummy;
  float stat_mean = dummy;
  double stat_variance = static_cast<double>(dummy);
};

inline constexpr Status header_unsound{-1};

// The header of a grid of 4-byte floats on `lattice`, with nothing known of its values.
[[nodiscard]] standard_header float_grid_header(const Lattice& lattice,
                                                std::int32_t storage_sense = 1);

// Reads every field of the header at the start of `file`, statistics by the kind of cells.
// header_unsound if the element size is not 1, 2 or 4, a count is below 1 or a spacing is not
// above 0; `header` holds what was read all the same. Throws IoError if the file is too short.
Status READ_GEOSOFT_HEADER(const platform::BinaryFile& file, standard_header& header);

// Writes all 512 bytes at the start of a new file, or of one that already holds cells. Element
// sizes other than 1, 2 and 4 are written as 4, senses other than 1 as -2, the variance as not
// known. Statistics are stored in the type that `sign_flag` says, rounded for integer cells, a
// dummy as the dummy of the type. Throws IoError.
void OUTPUT_GEOSOFT_HEADER(platform::BinaryFile& file, const standard_header& header);

// The integer that stands in a statistics field of an integer grid when it is not known, by the
// absolute size of its cells.
[[nodiscard]] std::int32_t unknown_statistic(std::int32_t element_size) noexcept;

// The dummy of cells of a kind and absolute size; 0.0 for a size that integer cells cannot have.
[[nodiscard]] double dummy_of_cells(std::int32_t kind, std::int32_t element_size) noexcept;

}  // namespace velmorankite
