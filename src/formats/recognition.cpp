// SPDX-License-Identifier: MIT
#include "formats/recognition.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "formats/catalogue.h"
#include "formats/describe_grid.h"
#include "formats/header_numbers.h"
#include "formats/text_helpers.h"
#include "grid/standard_header.h"
#include "platform/binary_file.h"
#include "platform/byte_order.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

constexpr std::int32_t no_format = 0;

// What an extension tells; a layout field of 0 is left to the format's reader.
struct extension_rule {
  std::string_view extension;
  bool may_go_on;  // whether the file's extension may be longer
  std::int32_t format_code;
  std::int32_t data_offset = 0;
  std::int32_t element_code = 0;
  std::int32_t element_kind = 0;
  std::int32_t aux_1 = 0;
  std::int32_t aux_2 = 0;
  std::int32_t count = 0;  // cells along X and along Y
};

constexpr bool whole = false;
constexpr bool start = true;
constexpr std::int32_t dted_header = 3428;  // bytes ahead of the first stored line
constexpr std::int32_t dted_ahead = 8;      // bytes ahead of the cells of each stored line
constexpr std::int32_t dted_behind = 4;     // its checksum
constexpr std::int32_t geodesy_count = 2500;

// The first rule that fits decides.
constexpr extension_rule extension_rules[] = {
    {".ERS", whole, format_ermapper},
    {".GXF", whole, format_gxf},
    {".PIX", whole, format_pcidsk},
    {".BIL", whole, format_bil},
    {".BIP", whole, format_bip},
    {".BGD", whole, format_grid_binary},
    {".ARC", whole, format_arcinfo},
    {".ASC", whole, format_arcinfo},
    {".DT1", whole, format_tile_3_arcs, dted_header, 0, 0, dted_ahead, dted_behind},
    {".DT2", whole, format_tile_1_arc, dted_header, 0, 0, dted_ahead, dted_behind},
    {".FLT", whole, format_float_cells, 0, 4, kind_float},
    {".GA", start, format_geodesy, 0, -4, kind_signed, 0, 0, geodesy_count},
    {".HA", start, format_geodesy, 0, -4, kind_signed, 0, 0, geodesy_count},
    {".DG", start, format_geodesy, 0, -2, kind_signed, 0, 0, geodesy_count},
    {".XI", start, format_geodesy, 0, -2, kind_signed, 0, 0, geodesy_count},
    {".ETA", start, format_geodesy, 0, -2, kind_signed, 0, 0, geodesy_count},
};

const extension_rule* find_rule(std::string_view extension) {
  for (const extension_rule& rule : extension_rules) {
    if (rule.may_go_on ? extension.starts_with(rule.extension) : extension == rule.extension) {
      return &rule;
    }
  }
  return nullptr;
}

void apply(const extension_rule& rule, grid_ints& ints) {
  ints.format_code = rule.format_code;
  ints.data_offset = rule.data_offset;
  ints.element_code = rule.element_code;
  ints.element_kind = rule.element_kind;
  ints.aux_1 = rule.aux_1;
  ints.aux_2 = rule.aux_2;
  ints.x_count = rule.count;
  ints.y_count = rule.count;
}

// A tile without a header is a square of 16-bit cells.
std::int32_t format_of_tile(std::int64_t size) {
  constexpr std::int32_t count_3_arcs = 1201;
  constexpr std::int32_t count_1_arc = 3601;
  const float side = std::floor(std::sqrt(static_cast<float>(size) * 0.5F));
  if (side == static_cast<float>(count_3_arcs)) {
    return format_tile_3_arcs;
  }
  return side == static_cast<float>(count_1_arc) ? format_tile_1_arc : no_format;
}

// The file as the content tests see it: its first bytes, taken as little-endian.
struct file_head {
  const grid_file& file;
  std::span<const std::byte, head_bytes> bytes;

  template <typename T>
  [[nodiscard]] T at(std::size_t offset) const {
    return platform::load<T>(&bytes[offset]);
  }
  [[nodiscard]] double decoded_at(std::size_t offset) const {
    return DECODE_VULCAN_BINARY(&bytes[offset], decode_little_endian);
  }
  [[nodiscard]] std::string_view text() const {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }
};

// A file passes that starts with one of the magics, where there are any, and of which `holds` is
// true, where there is one.
struct content_test {
  std::int32_t format_code;  // no_format: a file that passes is refused
  std::array<std::string_view, 2> magics;
  bool (*holds)(const file_head&, grid_description&) = nullptr;
};

// The two variants have readers of their own.
bool tells_its_variant(const file_head& head, grid_description& grid) {
  grid.ints.element_code = head.text().starts_with("DSAA") ? surfer_text_mark : 4;
  return true;
}

bool is_geopak(const file_head& head, grid_description&) {
  return head.text().front() == 'K' && head.at<float>(2) > 0.0F && head.at<float>(6) > 0.0F;
}

// Two counts, registration 0, and a lowest X whose low word is 0.
bool could_be_gmt(const file_head& head) {
  return head.at<std::int32_t>(0) >= 1 && head.at<std::int32_t>(4) >= 1 &&
         head.at<std::int32_t>(8) == 0 && head.at<std::int32_t>(12) == 0;
}

// Counts, limits and cell sizes of a GMT header. False for limits or sizes that no grid has.
bool take_gmt_lattice(const file_head& head, grid_description& grid) {
  grid_reals& reals = grid.reals;
  reals.x_min = head.decoded_at(12);
  reals.x_max = head.decoded_at(20);
  reals.y_min = head.decoded_at(28);
  reals.y_max = head.decoded_at(36);
  reals.x_cell = head.decoded_at(60);
  reals.y_cell = head.decoded_at(68);
  if (!(reals.x_max > reals.x_min && reals.y_max > reals.y_min && reals.x_cell > 0.0 &&
        reals.y_cell > 0.0)) {
    return false;
  }
  grid.ints.x_count = head.at<std::int32_t>(0);
  grid.ints.y_count = head.at<std::int32_t>(4);
  return true;
}

bool is_gmt(const file_head& head, grid_description& grid) {
  return could_be_gmt(head) && take_gmt_lattice(head, grid);
}

// The same header whatever the low word of its lowest X, and also with the limits of the cells'
// edges (registration 1). Counts, limits and cell sizes must all agree.
bool is_gmt_in_full(const file_head& head, grid_description& grid) {
  const auto registration = head.at<std::int32_t>(8);
  const auto x_count = head.at<std::int32_t>(0);
  const auto y_count = head.at<std::int32_t>(4);
  if (x_count < 1 || y_count < 1 || (registration != 0 && registration != 1)) {
    return false;
  }
  grid_description found = grid;
  grid_reals& reals = found.reals;
  constexpr double hair = 0.01;
  const auto agrees = [registration](double span, double cells, std::int32_t count) {
    return std::abs(span / cells - (count - 1.0 + registration)) < hair;
  };
  if (!take_gmt_lattice(head, found) || !agrees(reals.x_max - reals.x_min, reals.x_cell, x_count) ||
      !agrees(reals.y_max - reals.y_min, reals.y_cell, y_count)) {
    return false;
  }
  if (registration == 1) {
    edges_to_centres(reals);
  }
  grid = found;
  return true;
}

bool is_newmont(const file_head& head, grid_description&) {
  constexpr std::int32_t mark = 65;
  return !could_be_gmt(head) && head.at<std::int32_t>(0) == mark;
}

bool is_zmap(const file_head& head, grid_description&) {
  const std::string_view text = head.text();
  return !could_be_gmt(head) && (text.front() == '!' || text.front() == '@') &&
         text.find('@') != std::string_view::npos && text.find("GRID") != std::string_view::npos;
}

// Other programs call all sorts of things ".dat".
bool is_other_data(const file_head& head, grid_description&) {
  return head.file.extension == ".DAT";
}

// Byte 0 is the size of a cell, byte 1 says compressed (4) or not, the word at 4 is the kind.
bool is_standard_grid(const file_head& head, grid_description&) {
  const int size = std::to_integer<int>(head.bytes[0]);
  const int compression = std::to_integer<int>(head.bytes[1]);
  constexpr std::int32_t first_unknown_kind = 4;
  return (size == 1 || size == 2 || size == 4 || size == 8) &&
         (compression == 0 || compression == 4) && head.at<std::int32_t>(4) < first_unknown_kind;
}

// Seven big-endian floats in a record with its length of 28 bytes ahead and behind.
bool is_record_layout(const file_head& head, grid_description& grid) {
  constexpr std::string_view record_length{"\0\0\0\x1C", 4};
  if (head.text().substr(0, 4) != record_length || head.text().substr(32, 4) != record_length) {
    return false;
  }
  grid.ints.data_offset = first_row_record;
  return true;
}

bool is_geosolutions(const file_head& head, grid_description&) {
  return head.file.extension == ".GRD" && head.at<float>(0) > 0.0F && head.at<float>(4) > 0.0F &&
         head.at<float>(8) > 0.0F && head.at<float>(20) == 0.0F;
}

// Counts, cell sizes and limits that agree: the limits span no more than the counts ask for.
bool is_vulcan(const file_head& head, grid_description&) {
  const double x_count = head.decoded_at(0);
  const double y_count = head.decoded_at(8);
  const double x_cell = head.decoded_at(16);
  const double y_cell = head.decoded_at(24);
  const double x_span = head.decoded_at(40) - head.decoded_at(32);
  const double y_span = head.decoded_at(56) - head.decoded_at(48);
  constexpr double tolerance = static_cast<double>(0.1F);
  return x_count > 0.0 && y_count > 0.0 && x_cell > 0.0 && y_cell > 0.0 &&
         (1.0 - x_count) + x_span / x_cell < tolerance &&
         (1.0 - y_count) + y_span / y_cell < tolerance;
}

// Two cell sizes, two counts, and cells that end the file behind a header of a likely length.
bool is_geodass(const file_head& head, grid_description&) {
  const std::int64_t y_count = head.at<std::int16_t>(13);
  const std::int64_t x_count = head.at<std::int16_t>(15);
  constexpr std::int64_t shortest_header = 26;
  constexpr std::int64_t longest_rest = 9973;
  const std::int64_t rest = head.file.size - 4 * x_count * y_count - shortest_header;
  return head.file.extension == ".GRD" && head.at<float>(5) > 0.0F && head.at<float>(9) > 0.0F &&
         x_count >= 1 && y_count >= 1 && rest >= 0 && rest <= longest_rest;
}

// The first test that a file passes decides.
constexpr content_test content_tests[] = {
    {format_gxf, {"#"}},
    {format_pcidsk, {"PCIDSK  "}},
    {format_grid_text, {"$$GRID$$"}},
    {format_grid_binary, {"$$BGD"}},
    {format_encom, {"TOOL"}},
    {format_surfer_6, {"DSAA", "DSBB"}, tells_its_variant},
    {format_surfer_7, {"DSRB"}},
    {format_netcdf, {"CDF"}},
    {format_arcinfo, {"ncols", "NCOLS"}},
    {format_geopak, {}, is_geopak},
    {format_gmt, {}, is_gmt},
    {format_newmont, {}, is_newmont},
    {format_zmap, {}, is_zmap},
    {no_format, {}, is_other_data},
    {format_standard, {}, is_standard_grid},
    {format_standard, {}, is_record_layout},
    {format_gmt, {}, is_gmt_in_full},
    {format_geosolutions, {}, is_geosolutions},
    {format_vulcan, {}, is_vulcan},
    {format_geodass, {}, is_geodass},
};

bool passes(const content_test& test, const file_head& head, grid_description& grid) {
  const auto starts = [&head](std::string_view magic) {
    return !magic.empty() && head.text().starts_with(magic);
  };
  const bool magic_fits =
      test.magics[0].empty() || std::any_of(test.magics.begin(), test.magics.end(), starts);
  return magic_fits && (test.holds == nullptr || test.holds(head, grid));
}

// A file that cannot be opened is the caller's to hear of by IoError, one that cannot be read is
// a file without first bytes.
bool read_head(const grid_file& file, std::span<std::byte> bytes) {
  const platform::BinaryFile stream(file.path, platform::open_mode::read);
  try {
    return stream.read_some(1, bytes) == bytes.size();
  } catch (const platform::IoError&) {
    return false;
  }
}

Status recognise_content(const grid_file& file, grid_description& grid) {
  std::array<std::byte, head_bytes> bytes{};
  if (!read_head(file, bytes)) {
    return first_bytes_unreadable;
  }
  const file_head head{file, bytes};
  for (const content_test& test : content_tests) {
    if (passes(test, head, grid)) {
      grid.ints.format_code = test.format_code;
      return test.format_code == no_format ? format_unknown : success;
    }
  }
  return format_unknown;
}

// Files that users take for grids.
struct stranger {
  std::string_view magic;
  std::string_view advice;
};
constexpr std::string_view tiff_advice =
    "the file is a TIFF picture; \"gdal_translate -of GSBG\" makes a grid of it";
constexpr stranger strangers[] = {
    {{"\x89HDF", 4},
     "the file is netCDF 4 (HDF5); \"nccopy -k classic\" makes a file of it that can be read"},
    {{"II*\0", 4}, tiff_advice},
    {{"MM\0*", 4}, tiff_advice},
};

}  // namespace

std::string_view advice_on_unknown(const grid_file& file) {
  std::array<std::byte, head_bytes> bytes{};
  if (!read_head(file, bytes)) {
    return {};
  }
  const file_head head{file, bytes};
  for (const stranger& row : strangers) {
    if (head.text().starts_with(row.magic)) {
      return row.advice;
    }
  }
  return {};
}

std::string_view own_name(std::string_view path) noexcept {
  const std::size_t last = path.find_last_of("/\\");
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string extension_of(const std::filesystem::path& path) {
  constexpr std::size_t longest_extension = 16;
  const std::string whole_path = path.string();
  const std::string_view name = own_name(whole_path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) {
    return {};
  }
  std::string extension(name.substr(dot, longest_extension));
  FUPPER(extension);
  return extension;
}

Status recognise_format(const grid_file& file, grid_description& grid) {
  if (file.extension == ".HGT") {
    grid.ints.format_code = format_of_tile(file.size);
    return grid.ints.format_code == no_format ? format_unknown : success;
  }
  if (const extension_rule* const rule = find_rule(file.extension); rule != nullptr) {
    apply(*rule, grid.ints);
    return success;
  }
  return recognise_content(file, grid);
}

}  // namespace velmorankite
