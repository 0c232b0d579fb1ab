// SPDX-License-Identifier: MIT
#include "formats/cell_decoding.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <limits>

#include "formats/catalogue.h"
#include "formats/header_readers.h"
#include "formats/stored_lines.h"
#include "formats/text_helpers.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

using bytes = std::span<const std::byte>;

float finite_or_dummy(float value) {
  return std::isfinite(value) ? value : dummy;
}

// Integer cells; a kind of 0 says that they have no sign.
template <typename Signed, typename Unsigned, std::endian order>
void decode_integers(bytes line, const grid_description& grid, std::span<float> cells) {
  const std::byte* const from = line.data();
  if (grid.ints.element_kind == kind_unsigned) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = static_cast<float>(platform::load<Unsigned>(from + i * sizeof(Unsigned), order));
    }
  } else {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = static_cast<float>(platform::load<Signed>(from + i * sizeof(Signed), order));
    }
  }
}

template <std::endian order>
void decode_floats(bytes line, const grid_description&, std::span<float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i] = finite_or_dummy(platform::load<float>(line.data() + i * sizeof(float), order));
  }
}

template <std::endian order>
void decode_doubles(bytes line, const grid_description&, std::span<float> cells) {
  constexpr auto lowest = static_cast<double>(dummy);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto value = platform::load<double>(line.data() + i * sizeof(double), order);
    cells[i] = value >= lowest ? rounded(value) : dummy;  // NaN is not
  }
}

// ER Mapper's null cell can lie anywhere in the range of doubles, so it is told before rounding.
template <std::endian order>
void decode_ermapper_doubles(bytes line, const grid_description& grid, std::span<float> cells) {
  const double tolerance = dummy_tolerance(grid.reals.dummy_value);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto value = platform::load<double>(line.data() + i * sizeof(double), order);
    const bool null =
        value == grid.reals.dummy_value || std::abs(value - grid.reals.dummy_value) < tolerance;
    cells[i] = null || std::isnan(value) ? dummy : rounded(value);
  }
}

void decode_vulcan(bytes line, const grid_description&, std::span<float> cells) {
  constexpr double no_data = -1.0E8;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const double value =
        DECODE_VULCAN_BINARY(line.data() + i * sizeof(double), decode_little_endian);
    cells[i] = value <= no_data ? dummy : rounded(value);
  }
}

// Ahead of every 64 cells stands a word that is none.
constexpr std::size_t geopak_group = 64;

void decode_geopak(bytes line, const grid_description&, std::span<float> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::size_t word = i + i / geopak_group + 1;
    cells[i] =
        static_cast<float>(platform::load<std::int16_t>(line.data() + word * sizeof(std::int16_t)));
  }
}

// Elevation tiles with columns stored (DTED) mark a void by -32767 as well as by their dummy -1,
// which is the same word read with a sign bit of its own.
template <std::endian order>
void decode_tile(bytes line, const grid_description& grid, std::span<float> cells) {
  decode_integers<std::int16_t, std::uint16_t, order>(line, grid, cells);
  if (stores_columns(grid.ints.storage_sense)) {
    constexpr float marked_void = -32767.0F;
    std::ranges::replace(cells, marked_void, dummy);
  }
}

constexpr std::int32_t any = -1;

struct decoder_row {
  std::int32_t format_code;
  std::int32_t element_kind;
  std::int32_t size;
  cell_decoder little;
  cell_decoder big;
};

constexpr auto le = std::endian::little;
constexpr auto be = std::endian::big;

// The first row that fits decides.
constexpr decoder_row decoders[] = {
    {any, kind_decoded, 8, decode_vulcan, decode_vulcan},
    {format_geopak, any, any, decode_geopak, decode_geopak},
    {format_tile_3_arcs, any, 2, decode_tile<le>, decode_tile<be>},
    {format_tile_1_arc, any, 2, decode_tile<le>, decode_tile<be>},
    {format_ermapper, any, 8, decode_ermapper_doubles<le>, decode_ermapper_doubles<be>},
    {any, any, 8, decode_doubles<le>, decode_doubles<be>},
    {any, kind_float, 4, decode_floats<le>, decode_floats<be>},
    {any, any, 4, decode_integers<std::int32_t, std::uint32_t, le>,
     decode_integers<std::int32_t, std::uint32_t, be>},
    {any, any, 2, decode_integers<std::int16_t, std::uint16_t, le>,
     decode_integers<std::int16_t, std::uint16_t, be>},
    {any, any, 1, decode_integers<std::int8_t, std::uint8_t, le>,
     decode_integers<std::int8_t, std::uint8_t, le>},
};

bool differs(double value, double plain, double tolerance) {
  return std::abs(value - plain) > tolerance;
}

bool wants_scaling(const grid_description& grid) {
  constexpr double for_rows = 1.0E-6;
  constexpr auto for_columns = static_cast<double>(0.01F);
  const double tolerance = stores_columns(grid.ints.storage_sense) ? for_columns : for_rows;
  return grid.ints.format_code != format_ermapper &&
         (differs(grid.reals.z_mult, 1.0, tolerance) || differs(grid.reals.z_base, 0.0, tolerance));
}

VELMORANKITE_VECTOR_CLONES void mark_dummies(float* cells, std::size_t count, double dummy_value,
                                             double tolerance) {
  for (std::size_t i = 0; i < count; ++i) {
    const bool marked = std::abs(static_cast<double>(cells[i]) - dummy_value) < tolerance;
    cells[i] = marked ? dummy : cells[i];
  }
}

}  // namespace

float rounded(double value) noexcept {
  constexpr double largest = std::numeric_limits<float>::max();
  return std::abs(value) <= largest ? static_cast<float>(value) : dummy;
}

cell_decoder decoder_of(const grid_ints& ints) noexcept {
  const std::int64_t size = std::abs(std::int64_t{ints.element_code});
  const auto fits = [](std::int32_t wanted, std::int64_t value) {
    return wanted == any || wanted == value;
  };
  const auto* const row =
      std::find_if(std::begin(decoders), std::end(decoders), [&](const decoder_row& r) {
        return fits(r.format_code, ints.format_code) && fits(r.element_kind, ints.element_kind) &&
               fits(r.size, size);
      });
  if (row == std::end(decoders)) {
    return nullptr;
  }
  return ints.element_code < 0 ? row->big : row->little;
}

double dummy_tolerance(double dummy_value) noexcept {
  // The largest float, which many programs mark no data with, has none above it: there, and for
  // texts of it that lie a little beyond, the spacing is the one below it.
  constexpr float largest = std::numeric_limits<float>::max();
  const float below = std::nextafter(largest, 0.0F);
  const double size = std::abs(dummy_value);
  const float at = size < static_cast<double>(below) ? static_cast<float>(size) : below;
  return 2.0 * (static_cast<double>(std::nextafter(at, largest)) - static_cast<double>(at));
}

void settle_cells(const grid_description& grid, std::span<float> cells) {
  const grid_reals& reals = grid.reals;
  mark_dummies(cells.data(), cells.size(), reals.dummy_value, dummy_tolerance(reals.dummy_value));
  if (!wants_scaling(grid)) {
    return;
  }
  for (float& cell : cells) {
    if (is_valid(cell)) {
      cell = rounded(static_cast<double>(cell) / reals.z_mult + reals.z_base);
    }
  }
}

void drop_non_finite(std::span<float> cells) noexcept {
  for (float& cell : cells) {
    cell = finite_or_dummy(cell);
  }
}

}  // namespace velmorankite
