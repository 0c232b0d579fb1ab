// Writers of a whole standard grid in one call, of 4-byte floats or of 2-byte integers.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/lattice.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

inline constexpr Status geoout_failed{-1};

// Where the rows come from, for the numbers that name no open unit.
inline constexpr std::int32_t source_array = 0;            // row i is row i of the array
inline constexpr std::int32_t source_array_reversed = -1;  // row i is row y_count - i + 1
inline constexpr std::int32_t source_constant = -999;      // every cell is z_min
                                                           // any other: the array by columns

struct float_source {
  std::int32_t source = source_array;
  std::span<const float> array;                // x_count x y_count cells
  const platform::BinaryFile* unit = nullptr;  // open file of floats, read from its start; taken
                                               // ahead of the array
};

// Writes a grid of 4-byte floats.
//   name         path; fewer than 3 characters fail.
//   lattice      of the grid.
//   sense        1, or anything else for -2. Rows are given from the lowest Y up.
//   input_dummy  marks a cell without data in the source; a cell nearer to it than two spacings
//                of floats becomes the dummy.
//   transform    2 and 3 undo a logarithmic value transform (e to the power v; the log-linear
//                one), anything else leaves values as they are.
//   z_min        in: the constant; out: smallest value written.  z_max  out: largest.
// Without any value they end as 1.0E32 and -1.0E32. Status: success or geoout_failed (name, array
// too short, output cannot be opened or would replace the file of the unit). Throws IoError for a
// read or write that fails.
Status GEOOUT(std::string_view name, const float_source& source, const Lattice& lattice,
              std::int32_t sense, float input_dummy, std::int32_t transform, float& z_min,
              float& z_max);

struct int16_source {
  std::int32_t sense = 1;                 // line order of the input: 1, -2, -1 or 2
  std::span<const std::int16_t> rows;     // input for the senses 1 and -2, lines of x_count cells
  std::span<const std::int16_t> columns;  // input for the senses -1 and 2, lines of y_count cells
  const platform::BinaryFile* unit = nullptr;  // open file, taken ahead of the arrays
  std::int32_t offset = 0;                     // bytes ahead of its first cell
};

// Writes a grid of 2-byte signed integers; blanks are written as -32767. A file gives a grid of
// sense 1, an array one of sense -2. A trimmed name of fewer than 2 characters means
// "outfile.grd". Without any value z_min and z_max end as 1.0E30 and -1.0E30. A value that the
// transform takes out of 16 bits is written as the nearest that fits. Status and failures as for
// GEOOUT; the result is the same whether or not the whole input fits in memory.
Status GEOOUTI2(std::string_view name, const int16_source& source, const Lattice& lattice,
                std::int32_t input_dummy, std::int32_t transform, float& z_min, float& z_max);

}  // namespace velmorankite
