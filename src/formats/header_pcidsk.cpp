// PCIDSK images: text fields at fixed offsets, and a georeference in a segment of its own. They are
// described, but no conversion reads their cells.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <span>
#include <string>
#include <string_view>

#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/header_text.h"
#include "formats/text_helpers.h"

namespace velmorankite {
namespace {

constexpr std::int64_t block_bytes = 512;  // blocks count from 1

using block = std::array<char, block_bytes>;

bool read_text(const header_source& source, std::int64_t offset, std::span<char> text) {
  return read_header_bytes(source, offset + 1, std::as_writable_bytes(text));
}

constexpr std::int64_t offset_of_block(std::int64_t number) {
  return (number - 1) * block_bytes;
}

// A number of a text field, 0 for a blank one; false if something else stands there.
template <typename T>
bool take_field(std::string_view text, T& value) {
  const std::string trimmed = FTRIM(text);
  value = T{};
  return trimmed.empty() || read_number(trimmed, value);
}

// Where the tables of the file lie, in blocks.
struct file_tables {
  std::int32_t image = 0;     // read, but the other tables tell where the image begins
  std::int32_t channels = 0;  // first block of the channel headers
  std::int32_t channel_blocks = 0;
  std::int32_t segments = 0;  // first block of the segment pointers
  std::int32_t segment_blocks = 0;
};

// One row reads one number of the first block.
struct number_row {
  std::size_t offset;
  std::size_t length;
  std::int32_t file_tables::*table;
  std::int32_t grid_ints::*count;
  double grid_reals::*real;
};

constexpr std::size_t at_channel_blocks = 352;
constexpr std::size_t at_interleave = 360;
constexpr std::size_t at_segment_blocks = 456;

constexpr number_row number_rows[] = {
    {304, 16, &file_tables::image, nullptr, nullptr},
    {336, 16, &file_tables::channels, nullptr, nullptr},
    {at_channel_blocks, 8, &file_tables::channel_blocks, nullptr, nullptr},
    {376, 8, nullptr, &grid_ints::band_count, nullptr},
    {384, 8, nullptr, &grid_ints::x_count, nullptr},
    {392, 8, nullptr, &grid_ints::y_count, nullptr},
    {408, 17, nullptr, nullptr, &grid_reals::x_cell},
    {424, 16, nullptr, nullptr, &grid_reals::y_cell},
    {440, 16, &file_tables::segments, nullptr, nullptr},
    {at_segment_blocks, 8, &file_tables::segment_blocks, nullptr, nullptr},
};

// How bands follow each other in the file; the code stands in element_code.
struct interleave_row {
  std::string_view word;
  std::int32_t code;
};

constexpr interleave_row interleaves[] = {{"PIXEL", 0}, {"LINE", 1}, {"BAND", 2}, {"FILE", 3}};

bool take_numbers(std::string_view text, file_tables& tables, grid_description& grid) {
  return std::all_of(std::begin(number_rows), std::end(number_rows), [&](const number_row& row) {
    const std::string_view field = text.substr(row.offset, row.length);
    if (row.real != nullptr) {
      return take_field(field, grid.reals.*row.real);
    }
    return take_field(field, row.table != nullptr ? tables.*row.table : grid.ints.*row.count);
  });
}

// The image stands behind the last table that the file has.
std::int64_t image_offset(std::string_view text, const file_tables& tables) {
  const auto is_blank = [text](std::size_t offset) {
    return FTRIM(text.substr(offset, 8)).empty();
  };
  if (!is_blank(at_segment_blocks)) {
    return offset_of_block(std::int64_t{tables.segments} + tables.channel_blocks);
  }
  if (!is_blank(at_channel_blocks)) {
    return offset_of_block(std::int64_t{tables.channels} + tables.channel_blocks);
  }
  return block_bytes;
}

Status read_first_block(const header_source& source, file_tables& tables, grid_description& grid) {
  block bytes;
  if (!read_text(source, 0, bytes)) {
    return pcidsk_unreadable;
  }
  const std::string_view text(bytes.data(), bytes.size());
  if (!take_numbers(text, tables, grid)) {
    return pcidsk_unreadable;
  }
  for (const interleave_row& row : interleaves) {
    if (text.substr(at_interleave).starts_with(row.word)) {
      grid.ints.element_code = row.code;
    }
  }
  const std::int64_t offset = image_offset(text, tables);
  if (offset < 0 || offset > std::numeric_limits<std::int32_t>::max()) {
    return pointer_outside;
  }
  grid.ints.data_offset = static_cast<std::int32_t>(offset);
  return success;
}

// A channel header is two blocks, of which the first is the band's name.
Status read_band_names(const header_source& source, std::int32_t first_block, std::int32_t bands,
                       grid_texts& texts) {
  if (first_block < 1) {
    texts.band_names.emplace_back();
    return success;
  }
  const std::int64_t first = offset_of_block(first_block);
  const std::int64_t headers = std::max(bands, 1);
  if (first + (2 * headers - 1) * block_bytes > source.file.size) {
    return pcidsk_unreadable;
  }
  for (std::int64_t band = 0; band < headers; ++band) {
    block name;
    if (!read_text(source, first + band * 2 * block_bytes, name)) {
      return pcidsk_unreadable;
    }
    const std::string_view text(name.data(), name.size());
    texts.band_names.emplace_back(text.substr(0, FTAIL(text)));
  }
  return success;
}

// Looks for the first block of the georeference segment: type 150, locked. The last such entry
// counts, and the very last entry of the table is not looked at.
Status find_georeference(const header_source& source, const file_tables& tables,
                         std::int32_t& start) {
  constexpr std::size_t entry_bytes = 32;
  std::int32_t size = 0;
  for (std::int64_t i = 0; i < tables.segment_blocks; ++i) {
    block bytes;
    if (!read_text(source, offset_of_block(tables.segments + i), bytes)) {
      return pcidsk_unreadable;
    }
    const bool last_block = i + 1 == tables.segment_blocks;
    const std::string_view text(bytes.data(), bytes.size() - (last_block ? entry_bytes : 0));
    for (std::size_t at = 0; at < text.size(); at += entry_bytes) {
      const std::string_view entry = text.substr(at, entry_bytes);
      if (!entry.starts_with("L150")) {
        continue;
      }
      if (!take_field(entry.substr(12, 11), start) || !take_field(entry.substr(23, 9), size)) {
        return pcidsk_unreadable;
      }
    }
  }
  return start < 1 || size < 1 ? pcidsk_no_georeference : success;
}

// A number of 26 characters, of which the last 18 are decimals where it has no point.
bool take_fixed(std::string_view text, double& value) {
  constexpr double implied_decimals = 1.0E18;
  const bool taken = take_field(text, value);
  if (text.find('.') == std::string_view::npos) {
    value /= implied_decimals;
  }
  return taken;
}

// The coefficients of X and of Y, of which the first are the corner.
Status read_georeference(const header_source& source, std::int32_t start, grid_reals& reals) {
  constexpr std::size_t head_bytes = 212;
  constexpr std::size_t field_bytes = 26;
  constexpr std::size_t fields = 55;
  std::array<char, head_bytes + 2 * fields * field_bytes> bytes;
  const std::int64_t offset = start * block_bytes + block_bytes;
  const std::string_view text(bytes.data(), bytes.size());
  if (!read_text(source, offset, std::span(bytes).first(head_bytes))) {
    return pcidsk_unreadable;
  }
  if (!text.starts_with("POLY") || text.substr(16, 3) != "PIX") {
    return pcidsk_georeference_unknown;
  }
  if (!read_text(source, offset, bytes)) {
    return pcidsk_unreadable;
  }
  const std::string_view y_text = text.substr(head_bytes + fields * field_bytes, field_bytes);
  return take_fixed(text.substr(head_bytes, field_bytes), reals.x_min) &&
                 take_fixed(y_text, reals.y_max)
             ? success
             : pcidsk_unreadable;
}

}  // namespace

Status read_pcidsk_header(header_source& source, grid_description& grid, grid_texts& texts) {
  grid.reals.dummy_value = 0.0;
  grid.ints.element_code = 2;
  grid.ints.storage_sense = 1;
  file_tables tables;
  if (const Status status = read_first_block(source, tables, grid); status.failed()) {
    return status;
  }
  if (const Status status = read_band_names(source, tables.channels, grid.ints.band_count, texts);
      status.failed()) {
    return status;
  }
  if (tables.segments < 1) {
    return success;  // no georeference at all: the limits stay 0
  }
  std::int32_t start = 0;
  if (const Status status = find_georeference(source, tables, start); status.failed()) {
    return status;
  }
  grid_reals& reals = grid.reals;
  if (const Status status = read_georeference(source, start, reals); status.failed()) {
    return status;
  }
  reals.x_max = (grid.ints.x_count - 1.0) * reals.x_cell + reals.x_min;
  reals.y_min = reals.y_max - (grid.ints.y_count - 1.0) * reals.y_cell;
  for (double* const value : {&reals.z_min, &reals.z_max, &reals.z_mid, &reals.z_spread}) {
    *value = reals.dummy_value;
  }
  return success;
}

}  // namespace velmorankite
