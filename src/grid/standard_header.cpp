// SPDX-License-Identifier: MIT
#include "grid/standard_header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "grid/cell_position.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

using platform::load;
using platform::store;

// Byte offsets of the fields from the start of the file. Fields that are not named here (the
// rotation at 52, the label, the map name, the reserved words, the user area) are dropped on
// reading and written as zeros or blanks.
constexpr std::size_t at_element_size = 0;      // 16-bit when read, 32-bit when written
constexpr std::size_t at_sign_flag = 4;         // 32-bit integers
constexpr std::size_t at_elements_per_row = 8;  //
constexpr std::size_t at_row_count = 12;        //
constexpr std::size_t at_storage_sense = 16;    //
constexpr std::size_t at_element_spacing = 20;  // doubles
constexpr std::size_t at_row_spacing = 28;      //
constexpr std::size_t at_x_origin = 36;         //
constexpr std::size_t at_y_origin = 44;         //
constexpr std::size_t at_z_base = 60;           //
constexpr std::size_t at_z_mult = 68;           //
constexpr std::size_t at_label = 76;            // 48 + 16 blanks, with the map name
constexpr std::size_t at_reserved = 140;        // five words
constexpr std::size_t at_stat_min = 160;        // 32-bit words, float or integer by sign_flag
constexpr std::size_t at_stat_max = 164;        //
constexpr std::size_t at_stat_median = 168;     //
constexpr std::size_t at_stat_mean = 172;       //
constexpr std::size_t at_stat_variance = 176;   // double
constexpr std::size_t at_process_flag = 184;    // 32-bit integer
constexpr std::size_t at_user_area = 188;       // 324 blanks

using header_bytes = std::array<std::byte, standard_header_bytes>;

float load_statistic(const header_bytes& bytes, std::size_t offset, const standard_header& header) {
  if (header.sign_flag == kind_float) {
    return load<float>(&bytes[offset]);
  }
  const auto word = load<std::int32_t>(&bytes[offset]);
  return word == unknown_statistic(header.element_size) ? dummy : static_cast<float>(word);
}

std::int32_t rounded_word(float value) {
  constexpr double lowest = std::numeric_limits<std::int32_t>::min();
  constexpr double highest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(
      std::clamp(std::round(static_cast<double>(value)), lowest, highest));
}

void store_statistic(float value, const standard_header& header, std::int32_t element_size,
                     std::byte* bytes) {
  if (header.sign_flag == kind_float) {
    store(value, bytes);
  } else {
    store(is_valid(value) ? rounded_word(value) : unknown_statistic(element_size), bytes);
  }
}

void fill(header_bytes& bytes, std::size_t first, std::size_t last, char with) {
  std::fill(bytes.begin() + static_cast<std::ptrdiff_t>(first),
            bytes.begin() + static_cast<std::ptrdiff_t>(last), static_cast<std::byte>(with));
}

}  // namespace

standard_header float_grid_header(const Lattice& lattice, std::int32_t storage_sense) {
  standard_header header;
  header.elements_per_row = lattice.x_count;
  header.row_count = lattice.y_count;
  header.storage_sense = storage_sense;
  header.x_origin = lattice.x_min;
  header.y_origin = lattice.y_min;
  header.element_spacing = lattice.x_cell;
  header.row_spacing = lattice.y_cell;
  return header;
}

Status READ_GEOSOFT_HEADER(const platform::BinaryFile& file, standard_header& header) {
  header_bytes bytes;
  file.read(1, bytes);
  header.element_size = load<std::int16_t>(&bytes[at_element_size]);
  header.sign_flag = load<std::int32_t>(&bytes[at_sign_flag]);
  header.elements_per_row = load<std::int32_t>(&bytes[at_elements_per_row]);
  header.row_count = load<std::int32_t>(&bytes[at_row_count]);
  header.storage_sense = load<std::int32_t>(&bytes[at_storage_sense]);
  header.element_spacing = load<double>(&bytes[at_element_spacing]);
  header.row_spacing = load<double>(&bytes[at_row_spacing]);
  header.x_origin = load<double>(&bytes[at_x_origin]);
  header.y_origin = load<double>(&bytes[at_y_origin]);
  header.z_base = load<double>(&bytes[at_z_base]);
  header.z_mult = load<double>(&bytes[at_z_mult]);
  header.stat_min = load_statistic(bytes, at_stat_min, header);
  header.stat_max = load_statistic(bytes, at_stat_max, header);
  header.stat_median = load_statistic(bytes, at_stat_median, header);
  header.stat_mean = load_statistic(bytes, at_stat_mean, header);
  header.stat_variance = load<double>(&bytes[at_stat_variance]);
  header.process_flag = load<std::int32_t>(&bytes[at_process_flag]);

  const bool size_known =
      header.element_size == 1 || header.element_size == 2 || header.element_size == 4;
  const bool counts_sound = header.elements_per_row >= 1 && header.row_count >= 1;
  const bool spacings_sound = header.element_spacing > 0.0 && header.row_spacing > 0.0;
  return size_known && counts_sound && spacings_sound ? success : header_unsound;
}

void OUTPUT_GEOSOFT_HEADER(platform::BinaryFile& file, const standard_header& header) {
  header_bytes bytes{};
  const bool size_known =
      header.element_size == 1 || header.element_size == 2 || header.element_size == 4;
  const std::int32_t element_size = size_known ? header.element_size : 4;
  store(element_size, &bytes[at_element_size]);
  store(header.sign_flag, &bytes[at_sign_flag]);
  store(header.elements_per_row, &bytes[at_elements_per_row]);
  store(header.row_count, &bytes[at_row_count]);
  store(header.storage_sense == sense_bottom_up ? sense_bottom_up : sense_top_down,
        &bytes[at_storage_sense]);
  store(header.element_spacing, &bytes[at_element_spacing]);
  store(header.row_spacing, &bytes[at_row_spacing]);
  store(header.x_origin, &bytes[at_x_origin]);
  store(header.y_origin, &bytes[at_y_origin]);
  store(header.z_base, &bytes[at_z_base]);
  store(header.z_mult, &bytes[at_z_mult]);
  fill(bytes, at_label, at_reserved, ' ');
  store_statistic(header.stat_min, header, element_size, &bytes[at_stat_min]);
  store_statistic(header.stat_max, header, element_size, &bytes[at_stat_max]);
  store_statistic(header.stat_median, header, element_size, &bytes[at_stat_median]);
  store_statistic(header.stat_mean, header, element_size, &bytes[at_stat_mean]);
  store(static_cast<double>(dummy), &bytes[at_stat_variance]);
  store(header.process_flag, &bytes[at_process_flag]);
  fill(bytes, at_user_area, bytes.size(), ' ');
  file.write(1, bytes);
}

std::int32_t unknown_statistic(std::int32_t element_size) noexcept {
  switch (element_size) {
    case 1:
      return -127;
    case 2:
      return dummy_int16;
    default:
      return dummy_int32;
  }
}

double dummy_of_cells(std::int32_t kind, std::int32_t element_size) noexcept {
  if (kind == kind_float) {
    return static_cast<double>(dummy);
  }
  const bool is_signed = kind == kind_signed;
  switch (element_size) {
    case 4:
      return is_signed ? -2147483647.0 : 4294967295.0;
    case 2:
      return is_signed ? -32767.0 : 65536.0;
    case 1:
      return is_signed ? -127.0 : 255.0;
    default:
      return 0.0;
  }
}

}  // namespace velmorankite
