// The record by which every routine speaks of a grid: its lattice, its limits, how its cells lie
// in their file.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace velmorankite {

// Both parts hold 24 words in slot order, so that the arrays of the C interface are the same bytes.
inline constexpr int description_words = 24;

struct grid_ints {
  std::int32_t format_code = 0;    // catalogue code, 0 until the format is known
  std::int32_t band_count = 0;     // bands in the file
  std::int32_t band_select = 0;    // band to convert; standard grid: the header's process flag
  std::int32_t data_offset = 0;    // bytes, for text formats lines, ahead of the first cell
  std::int32_t element_code = 0;   // bytes a cell, negative for big-endian; standard grid:
                                   // negative for a compressed file
  std::int32_t storage_sense = 0;  // 1, -1, 2, -2, 3, -3, 4 or -4
  std::int32_t element_kind = 0;   // 0 unsigned, 1 signed, 2 float, 4 coded doubles (Vulcan)
  std::int32_t x_count = 0;        // cells along X
  std::int32_t y_count = 0;        // cells along Y
  std::int32_t aux_1 = 0;          // bytes ahead of each stored line; ZMap: nodes a text line
  std::int32_t aux_2 = 0;          // bytes behind each stored line; ZMap: characters a field
  std::int32_t aux_3 = 0;          // ZMap: first column of the first field
  std::int32_t unused_13 = 0;
  std::int32_t out_x_count = 0;  // cells along X of the converted grid
  std::int32_t out_y_count = 0;  // cells along Y of the converted grid
  std::int32_t valid_count = 0;  // after a conversion: cells with data
  std::int32_t dummy_count = 0;  // after a conversion: cells without data
  std::int32_t unused_18_to_24[7] = {};
};

struct grid_reals {
  double x_min = 0.0;        // centre of the first column, map units
  double x_max = 0.0;        // centre of the last column
  double y_min = 0.0;        // centre of the lowest row
  double y_max = 0.0;        // centre of the highest row
  double x_cell = 0.0;       // cell size along X
  double y_cell = 0.0;       // cell size along Y
  double dummy_value = 0.0;  // marks a cell without data in this file
  double z_base = 0.0;       // true value = stored value / z_mult + z_base
  double z_mult = 0.0;
  double z_min = 0.0;      // smallest true value, where the file tells it
  double z_max = 0.0;      // largest true value
  double z_mid = 0.0;      // standard grid: median; after a conversion: mean
  double z_spread = 0.0;   // standard grid: mean; after a conversion: standard deviation
  double unused_14 = 0.0;  // -1.0E32; after a conversion 1.0E32
  double unused_15 = 0.0;  // -1.0E32
  double rotation = 0.0;   // as the file gives it; nothing acts on it
  double out_x_min = 0.0;  // limits and cell sizes of the converted grid
  double out_x_max = 0.0;
  double out_y_min = 0.0;
  double out_y_max = 0.0;
  double out_x_cell = 0.0;
  double out_y_cell = 0.0;
  double unused_23_to_24[2] = {};
};

// Words that mean something: those behind them belong to whoever holds the arrays.
inline constexpr std::size_t description_ints =
    offsetof(grid_ints, unused_18_to_24) / sizeof(std::int32_t);
inline constexpr std::size_t description_reals =
    offsetof(grid_reals, unused_23_to_24) / sizeof(double);

static_assert(sizeof(grid_ints) == description_words * sizeof(std::int32_t));
static_assert(sizeof(grid_reals) == description_words * sizeof(double));
static_assert(std::is_trivially_copyable_v<grid_ints> && std::is_trivially_copyable_v<grid_reals>);

struct grid_description {
  grid_ints ints;
  grid_reals reals;
};

}  // namespace velmorankite
