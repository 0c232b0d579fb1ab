// Headers with fields at fixed byte offsets: a format of this kind is an array of fields and a row.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <span>

#include "formats/catalogue.h"
#include "formats/describe_grid.h"
#include "formats/header_numbers.h"
#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/text_helpers.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

using I = grid_ints;
using R = grid_reals;

// How a field stands in the file; little-endian unless it says big.
enum class stored { i16, i32_big, f32, f32_big, f64_decoded };

constexpr std::size_t bytes_of(stored type) {
  switch (type) {
    case stored::i16:
      return 2;
    case stored::f64_decoded:
      return 8;
    default:
      return 4;
  }
}

// One row fills one field of the description: a count, or a real.
struct field_row {
  std::size_t offset;
  stored type;
  std::int32_t I::*count;
  double R::*real;
};

constexpr field_row count_at(std::size_t offset, stored type, std::int32_t I::*count) {
  return {offset, type, count, nullptr};
}
constexpr field_row real_at(std::size_t offset, stored type, double R::*real) {
  return {offset, type, nullptr, real};
}

// Which statistics are not known: they take the dummy.
enum class unknown { none, limits, centre, all };

// What the fields leave to be worked out.
using completion = void (*)(const grid_file& file, std::span<const std::byte> bytes,
                            grid_description& grid);

struct fixed_header {
  std::int32_t format_code;
  std::uint32_t header_bytes;  // that are read
  std::int32_t data_offset;
  std::int32_t element_code;
  std::int32_t storage_sense;
  std::int32_t element_kind;
  unknown statistics;
  double dummy_value;  // unless it is one of the fields
  completion complete;
  std::span<const field_row> fields;
};

void highest_from_counts(const grid_file&, std::span<const std::byte>, grid_description& grid) {
  R& reals = grid.reals;
  reals.x_max = (grid.ints.x_count - 1.0) * reals.x_cell + reals.x_min;
  reals.y_max = (grid.ints.y_count - 1.0) * reals.y_cell + reals.y_min;
}

void cells_from_limits(const grid_file&, std::span<const std::byte>, grid_description& grid) {
  R& reals = grid.reals;
  reals.x_cell = (reals.x_max - reals.x_min) / (grid.ints.x_count - 1.0);
  reals.y_cell = (reals.y_max - reals.y_min) / (grid.ints.y_count - 1.0);
}

// The limits are those of the outer cells' edges.
void centres_from_edges(const grid_file&, std::span<const std::byte>, grid_description& grid) {
  edges_to_centres(grid.reals);
}

void square_cells(const grid_file& file, std::span<const std::byte> bytes, grid_description& grid) {
  grid.reals.y_cell = grid.reals.x_cell;
  highest_from_counts(file, bytes, grid);
}

void lowest_from_highest_y(const grid_file& file, std::span<const std::byte> bytes,
                           grid_description& grid) {
  const double y_max = grid.reals.y_max;
  grid.reals.y_min = y_max - (grid.ints.y_count - 1.0) * grid.reals.y_cell;
  highest_from_counts(file, bytes, grid);
  grid.reals.y_max = y_max;
}

void cells_end_the_file(const grid_file& file, std::span<const std::byte> bytes,
                        grid_description& grid) {
  // The recognition saw to it that what stands ahead of the cells is short.
  constexpr std::int64_t cell_bytes = 4;
  grid.ints.data_offset =
      static_cast<std::int32_t>(file.size - cell_bytes * grid.ints.x_count * grid.ints.y_count);
  highest_from_counts(file, bytes, grid);
}

// Limits and cell sizes of single precision can come out a hair short of a whole number of cells;
// where they do, the count that the file's own records tell is right.
std::int32_t agreed_count(double from_limits, std::int64_t from_records) {
  constexpr double hair = 0.01;
  const auto told = static_cast<double>(from_records);
  return integer_part(std::abs(from_limits - told) < hair ? told : from_limits);
}

// One record a row, with its length of 4 bytes ahead and behind, from byte 36 on.
void counts_from_limits(const grid_file& file, std::span<const std::byte> bytes,
                        grid_description& grid) {
  constexpr std::int64_t first_row = 36;
  constexpr std::int64_t length_bytes = 4;
  constexpr std::int64_t cell_bytes = 4;
  const R& reals = grid.reals;
  grid.ints.aux_1 = static_cast<std::int32_t>(length_bytes);
  grid.ints.aux_2 = grid.ints.aux_1;
  const std::int64_t record = platform::load<std::int32_t>(&bytes[first_row], std::endian::big);
  grid.ints.x_count =
      agreed_count((reals.x_max - reals.x_min) / reals.x_cell + 1.0, record / cell_bytes);
  const std::int64_t stride = cell_bytes * std::max(grid.ints.x_count, 0) + 2 * length_bytes;
  grid.ints.y_count = agreed_count((reals.y_max - reals.y_min) / reals.y_cell + 1.0,
                                   (file.size - first_row) / stride);
}

void nothing_more(const grid_file&, std::span<const std::byte>, grid_description&) {}

// "$$BINARY$$".
constexpr field_row grid_binary_fields[] = {
    real_at(88, stored::f32_big, &R::x_min),     real_at(92, stored::f32_big, &R::x_max),
    real_at(96, stored::f32_big, &R::y_min),     real_at(100, stored::f32_big, &R::y_max),
    count_at(112, stored::i32_big, &I::y_count), count_at(116, stored::i32_big, &I::x_count),
    real_at(120, stored::f32_big, &R::x_cell),   real_at(124, stored::f32_big, &R::y_cell),
    real_at(144, stored::f32_big, &R::z_min),    real_at(148, stored::f32_big, &R::z_max),
    real_at(216, stored::f32_big, &R::rotation), real_at(232, stored::f32_big, &R::dummy_value),
};

// The standard grid in records; the word at 36 is the length of the first row's record.
constexpr field_row record_fields[] = {
    real_at(4, stored::f32_big, &R::x_min),        real_at(8, stored::f32_big, &R::x_max),
    real_at(12, stored::f32_big, &R::y_min),       real_at(16, stored::f32_big, &R::y_max),
    real_at(20, stored::f32_big, &R::x_cell),      real_at(24, stored::f32_big, &R::y_cell),
    real_at(28, stored::f32_big, &R::dummy_value),
};

constexpr field_row geosolutions_fields[] = {
    real_at(0, stored::f32, &R::x_cell),   count_at(4, stored::f32, &I::x_count),
    count_at(8, stored::f32, &I::y_count), real_at(12, stored::f32, &R::x_min),
    real_at(16, stored::f32, &R::y_min),
};

constexpr field_row encom_fields[] = {
    real_at(180, stored::f32, &R::dummy_value), count_at(188, stored::f32, &I::y_count),
    count_at(196, stored::f32, &I::x_count),    real_at(204, stored::f32, &R::x_min),
    real_at(212, stored::f32, &R::y_min),       real_at(220, stored::f32, &R::x_cell),
    real_at(228, stored::f32, &R::y_cell),
};

constexpr field_row geopak_fields[] = {
    count_at(2, stored::f32, &I::y_count),      count_at(6, stored::f32, &I::x_count),
    real_at(10, stored::f32, &R::z_mult),       real_at(14, stored::f32, &R::z_base),
    real_at(18, stored::f32, &R::y_min),        real_at(22, stored::f32, &R::x_min),
    real_at(38, stored::f32, &R::y_cell),       real_at(42, stored::f32, &R::x_cell),
    real_at(102, stored::f32, &R::dummy_value),
};

constexpr field_row surfer_6_fields[] = {
    count_at(4, stored::i16, &I::x_count),       count_at(6, stored::i16, &I::y_count),
    real_at(8, stored::f64_decoded, &R::x_min),  real_at(16, stored::f64_decoded, &R::x_max),
    real_at(24, stored::f64_decoded, &R::y_min), real_at(32, stored::f64_decoded, &R::y_max),
    real_at(40, stored::f64_decoded, &R::z_min), real_at(48, stored::f64_decoded, &R::z_max),
};

constexpr field_row geodass_fields[] = {
    real_at(5, stored::f32, &R::x_cell),    real_at(9, stored::f32, &R::y_cell),
    count_at(13, stored::i16, &I::y_count), count_at(15, stored::i16, &I::x_count),
    real_at(17, stored::f32, &R::x_min),    real_at(21, stored::f32, &R::y_min),
};

// The header of a GMT grid does not tell doubles from floats, but doubles fill the file to its last
// byte.
void cells_by_size(const grid_file& file, std::span<const std::byte>, grid_description& grid) {
  const std::int64_t bytes = file.size - grid.ints.data_offset;
  if (bytes % 8 == 0 && bytes / 8 == std::int64_t{grid.ints.x_count} * grid.ints.y_count) {
    grid.ints.element_code = 8;
  }
}

constexpr field_row vulcan_fields[] = {
    count_at(0, stored::f64_decoded, &I::x_count), count_at(8, stored::f64_decoded, &I::y_count),
    real_at(16, stored::f64_decoded, &R::x_cell),  real_at(24, stored::f64_decoded, &R::y_cell),
    real_at(32, stored::f64_decoded, &R::x_min),   real_at(40, stored::f64_decoded, &R::x_max),
    real_at(48, stored::f64_decoded, &R::y_min),   real_at(56, stored::f64_decoded, &R::y_max),
    real_at(64, stored::f64_decoded, &R::z_min),   real_at(72, stored::f64_decoded, &R::z_max),
};

constexpr field_row newmont_fields[] = {
    real_at(5, stored::f32, &R::x_cell),    real_at(9, stored::f32, &R::y_cell),
    count_at(13, stored::i16, &I::y_count), count_at(15, stored::i16, &I::x_count),
    real_at(17, stored::f32, &R::x_min),    real_at(21, stored::f32, &R::y_max),
};

constexpr double from_field = 0.0;  // the dummy is a field of the header
constexpr double standard_dummy = static_cast<double>(dummy);
constexpr double geosolutions_dummy = static_cast<double>(valid_threshold);
constexpr double geodass_dummy = -1.0E30;
constexpr double vulcan_dummy = -1.0E8;

//  code, bytes read, data_offset, element_code, sense, kind, statistics unknown, dummy, completion
constexpr fixed_header fixed_headers[] = {
    {format_standard, 40, 36, -4, 1, kind_float, unknown::limits, from_field, counts_from_limits,
     record_fields},
    {format_grid_binary, 236, 512, -4, -2, kind_float, unknown::centre, from_field,
     centres_from_edges, grid_binary_fields},
    {format_geosolutions, 20, 4096, 4, -1, kind_float, unknown::all, geosolutions_dummy,
     square_cells, geosolutions_fields},
    {format_encom, 240, 240, 4, -2, kind_float, unknown::all, from_field, highest_from_counts,
     encom_fields},
    {format_geopak, 106, 130, 2, 1, kind_signed, unknown::all, from_field, highest_from_counts,
     geopak_fields},
    {format_surfer_6, 56, 56, 4, 1, kind_float, unknown::centre, surfer_blank, cells_from_limits,
     surfer_6_fields},
    {format_geodass, 25, 0, 4, -1, kind_float, unknown::all, geodass_dummy, cells_end_the_file,
     geodass_fields},
    {format_vulcan, 80, 592, -8, 1, kind_decoded, unknown::none, vulcan_dummy, nothing_more,
     vulcan_fields},
    {format_gmt, 0, 892, 4, -2, kind_float, unknown::none, standard_dummy, cells_by_size, {}},
    {format_newmont, 25, 485, 4, -1, kind_float, unknown::all, standard_dummy,
     lowest_from_highest_y, newmont_fields},
};

constexpr std::size_t longest_header = 240;

constexpr bool fields_fit() {
  for (const fixed_header& row : fixed_headers) {
    for (const field_row& field : row.fields) {
      if (field.offset + bytes_of(field.type) > row.header_bytes) {
        return false;
      }
    }
    if (row.header_bytes > longest_header) {
      return false;
    }
  }
  return true;
}
static_assert(fields_fit());

double value_of(const field_row& field, std::span<const std::byte> bytes) {
  const std::byte* const first = &bytes[field.offset];
  switch (field.type) {
    case stored::i16:
      return platform::load<std::int16_t>(first);
    case stored::i32_big:
      return platform::load<std::int32_t>(first, std::endian::big);
    case stored::f32:
      return static_cast<double>(platform::load<float>(first));
    case stored::f32_big:
      return static_cast<double>(platform::load<float>(first, std::endian::big));
    case stored::f64_decoded:
      break;
  }
  return DECODE_VULCAN_BINARY(first, decode_little_endian);
}

void set_layout(const fixed_header& row, grid_description& grid) {
  grid.ints.data_offset = row.data_offset;
  grid.ints.element_code = row.element_code;
  grid.ints.storage_sense = row.storage_sense;
  grid.ints.element_kind = row.element_kind;
  grid.reals.dummy_value = row.dummy_value;
}

void set_field(const field_row& field, double value, grid_description& grid) {
  if (field.count != nullptr) {
    grid.ints.*field.count = integer_part(value);
  } else {
    grid.reals.*field.real = value;
  }
}

void forget_statistics(unknown statistics, R& reals) {
  if (statistics == unknown::limits || statistics == unknown::all) {
    reals.z_min = reals.dummy_value;
    reals.z_max = reals.dummy_value;
  }
  if (statistics == unknown::centre || statistics == unknown::all) {
    reals.z_mid = reals.dummy_value;
    reals.z_spread = reals.dummy_value;
  }
}

}  // namespace

Status read_fixed_header(header_source& source, grid_description& grid, grid_texts&) {
  const auto* const row = std::find_if(
      std::begin(fixed_headers), std::end(fixed_headers),
      [&grid](const fixed_header& r) { return r.format_code == grid.ints.format_code; });
  if (row == std::end(fixed_headers)) {
    return format_unknown;
  }
  std::array<std::byte, longest_header> buffer{};
  const auto bytes = std::span(buffer).first(row->header_bytes);
  if (!read_header_bytes(source, 1, bytes)) {
    return header_too_short;
  }
  set_layout(*row, grid);
  for (const field_row& field : row->fields) {
    set_field(field, value_of(field, bytes), grid);
  }
  forget_statistics(row->statistics, grid.reals);
  row->complete(source.file, bytes, grid);
  return success;
}

}  // namespace velmorankite
