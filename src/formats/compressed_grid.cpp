// SPDX-License-Identifier: MIT
#include "formats/compressed_grid.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <optional>
#include <span>
#include <vector>

#include "grid/cell_position.h"
#include "platform/binary_file.h"
#include "platform/byte_order.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::load;

// The file begins with the header of a plain grid, but for the marker in byte 1. Then come a word
// that says nothing, a label of the compression, the block count and the rows a block, the offsets
// of the blocks (64-bit, from the start of the file) and their sizes (32-bit).
constexpr std::size_t at_marker = 1;
constexpr std::size_t at_sign_flag = 4;
constexpr std::size_t at_elements_per_row = 8;
constexpr std::size_t at_row_count = 12;
constexpr std::size_t at_block_count = 520;
constexpr std::size_t at_rows_per_block = 524;
constexpr std::size_t at_tables = 528;
constexpr std::byte compression_marker{4};

// How far the header must reach for each of its reads; a file that ends earlier tells how far it
// got.
struct header_reach {
  std::size_t bytes;
  std::int32_t status;
};
constexpr header_reach header_reaches[] = {
    {1, -20003},
    {4, -20004},
    {8, -20006},
    {12, -20008},
    {16, -20009},
    {20, -20010},
    {28, -20011},
    {36, -20012},
    {44, -20013},
    {52, -20014},
    {60, -20015},
    {68, -20016},
    {76, -20017},
    {512, -20018},
    {516, -20019},
    {520, -20020},
    {528, expand_header_ended.code},
};

// A block begins with these bytes, its kind and a word that says nothing, or directly with cells.
constexpr std::array<unsigned char, 8> block_marker{0x0F, 0x0E, 0xFF, 0xFE, 0x12, 0x34, 0x56, 0x78};
constexpr std::size_t at_block_kind = 8;
constexpr std::size_t block_header = 16;
constexpr std::int32_t kind_raw = 0;
constexpr std::int32_t kind_chunked = 1;
constexpr std::int32_t kind_deflate = 2;

// A chunk: the length to expect, the chunk's own length with these 8 bytes, the payload.
constexpr std::size_t chunk_header = 8;
constexpr std::size_t largest_chunk = 16384;
constexpr std::array<unsigned char, 4> stored_marker{0xC3, 0xD2, 0xE1, 0xF0};

// No deflate stream grows beyond this many times its length.
constexpr std::int64_t deflate_growth = 1032;

template <std::size_t n>
bool begins_with(std::span<const std::byte> bytes, const std::array<unsigned char, n>& mark) {
  return bytes.size() >= n &&
         std::equal(mark.begin(), mark.end(), bytes.begin(),
                    [](unsigned char m, std::byte b) { return std::byte{m} == b; });
}

Status block_status(std::int32_t base, std::int32_t block) {
  return {base - block};
}

struct block_entry {
  std::int64_t offset = 0;
  std::int32_t size = 0;
};

// What the header tells, and where the output stands.
struct expansion {
  const BinaryFile& input;
  BinaryFile& output;
  chunk_expander expand;
  std::int64_t row_bytes = 0;
  std::int64_t row_count = 0;
  std::int64_t rows_per_block = 0;
  std::vector<block_entry> blocks{};
  std::int64_t position = standard_header_bytes + 1;

  // Appends cells; nothing is written behind the last cell of the grid.
  [[nodiscard]] bool append(std::span<const std::byte> cells) {
    const std::int64_t end = standard_header_bytes + 1 + row_bytes * row_count;
    const auto room = static_cast<std::size_t>(std::max<std::int64_t>(end - position, 0));
    cells = cells.first(std::min(cells.size(), room));
    try {
      output.write(position, cells);
    } catch (const platform::IoError&) {
      return false;
    }
    position += static_cast<std::int64_t>(cells.size());
    return true;
  }
};

Status write_header(BinaryFile& output, std::span<const std::byte, at_tables> header) {
  std::array<std::byte, standard_header_bytes> plain{};
  std::copy_n(header.begin(), plain.size(), plain.begin());
  std::fill(plain.begin() + at_marker, plain.begin() + at_sign_flag, std::byte{0});
  std::fill(plain.begin() + at_sign_flag + 1, plain.begin() + at_elements_per_row, std::byte{0});
  try {
    output.write(1, plain);
  } catch (const platform::IoError&) {
    return expand_header_unwritten;
  }
  return success;
}

Status read_tables(const BinaryFile& input, std::int32_t count, std::vector<block_entry>& blocks) {
  constexpr std::int64_t entry_bytes = 8 + 4;
  const std::int64_t room = input.size() - static_cast<std::int64_t>(at_tables);
  if (count < 0) {
    return expand_tables_unsound;
  }
  if (count * entry_bytes > room) {
    return expand_tables_missing;
  }
  std::vector<std::int64_t> offsets(static_cast<std::size_t>(count));
  std::vector<std::int32_t> sizes(static_cast<std::size_t>(count));
  input.read_values(at_tables + 1, std::span(offsets));
  const auto offset_bytes = static_cast<std::int64_t>(std::span(offsets).size_bytes());
  input.read_values(std::int64_t{at_tables} + 1 + offset_bytes, std::span(sizes));
  blocks.resize(offsets.size());
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    blocks[i] = {offsets[i], sizes[i]};
  }
  return success;
}

Status expand_chunks(std::span<const std::byte> payload, std::int32_t block, expansion& job) {
  std::array<std::byte, largest_chunk> expanded{};
  while (!payload.empty()) {
    if (payload.size() < chunk_header) {
      return block_status(expand_chunk_unsound, block);
    }
    const auto expected = load<std::uint32_t>(payload.data());
    const auto length = load<std::uint32_t>(payload.data() + 4);
    if (expected > largest_chunk || length < chunk_header || length > payload.size()) {
      return block_status(expand_chunk_unsound, block);
    }
    const std::span<const std::byte> chunk = payload.subspan(chunk_header, length - chunk_header);
    if (chunk.size() < expected) {
      if (job.expand(chunk, expanded) != expected) {
        return block_status(expand_chunk_length, block);
      }
      if (!job.append(std::span(expanded).first(expected))) {
        return block_status(expand_chunk_unwritten, block);
      }
    } else {
      if (!begins_with(chunk, stored_marker)) {
        return block_status(expand_stored_unmarked, block);
      }
      // The marker counts as cells only where the chunk has no room for the cells behind it.
      const bool behind = chunk.size() - stored_marker.size() >= expected;
      if (!job.append(chunk.subspan(behind ? stored_marker.size() : 0, expected))) {
        return block_status(expand_stored_unwritten, block);
      }
    }
    payload = payload.subspan(length);
  }
  return success;
}

Status expand_deflate(std::span<const std::byte> payload, std::int64_t rows, std::int32_t block,
                      expansion& job) {
  const std::int64_t most = deflate_growth * (static_cast<std::int64_t>(payload.size()) + 1);
  std::vector<std::byte> cells;
  try {
    cells.resize(static_cast<std::size_t>(std::min(rows * job.row_bytes, most)));
  } catch (const std::bad_alloc&) {
    return block_status(expand_deflate_memory, block);
  }
  auto length = static_cast<uLongf>(cells.size());
  const int result = ::uncompress(reinterpret_cast<Bytef*>(cells.data()), &length,
                                  reinterpret_cast<const Bytef*>(payload.data()),
                                  static_cast<uLong>(payload.size()));
  if (result != Z_OK && rows > 0) {
    return block_status(expand_deflate_unsound, block);
  }
  return job.append(std::span(cells).first(rows > 0 ? length : 0))
             ? success
             : block_status(expand_deflate_unwritten, block);
}

Status expand_block(std::span<const std::byte> bytes, std::int64_t rows, std::int32_t block,
                    expansion& job) {
  if (bytes.size() < block_header || !begins_with(bytes, block_marker)) {
    return job.append(bytes) ? success : block_status(expand_raw_unwritten, block);
  }
  const std::span<const std::byte> payload = bytes.subspan(block_header);
  switch (load<std::int32_t>(&bytes[at_block_kind])) {
    case kind_raw:
      // A raw block is cells from its first byte on, marked or not.
      return job.append(bytes) ? success : block_status(expand_raw_unwritten, block);
    case kind_chunked:
      return expand_chunks(payload, block, job);
    case kind_deflate:
      return expand_deflate(payload, rows, block, job);
    default:
      return block_status(expand_kind_unknown, block);
  }
}

Status expand_blocks(expansion& job) {
  std::vector<std::byte> bytes;
  const std::int64_t file_bytes = job.input.size();
  std::int64_t rows_left = job.row_count;
  for (std::size_t i = 0; i < job.blocks.size(); ++i) {
    const auto block = static_cast<std::int32_t>(i + 1);
    const block_entry& entry = job.blocks[i];
    if (entry.offset < 0 || entry.size < 0 || entry.offset > file_bytes ||
        entry.size > file_bytes - entry.offset) {
      return block_status(expand_block_unread, block);
    }
    const std::int64_t rows = std::clamp<std::int64_t>(job.rows_per_block, 0, rows_left);
    try {
      bytes.resize(static_cast<std::size_t>(entry.size));
    } catch (const std::bad_alloc&) {
      return expand_block_too_large;
    }
    try {
      job.input.read(entry.offset + 1, bytes);
    } catch (const platform::IoError&) {
      return block_status(expand_block_unread, block);
    }
    if (const Status status = expand_block(bytes, rows, block, job); status.failed()) {
      return status;
    }
    rows_left -= rows;
  }
  return success;
}

// Opens by `open`, or gives nothing where that fails.
template <typename Open>
auto attempt(Open open) -> std::optional<decltype(open())> {
  try {
    return open();
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
}

}  // namespace

Status EXPUNCOMPGRID(std::string_view input_name, std::string_view output_name,
                     chunk_expander expand) {
  if (platform::without_padding(input_name).empty() ||
      platform::without_padding(output_name).empty()) {
    return expand_name_blank;
  }
  if (platform::find_clash({{platform::without_padding(input_name), "the input"}},
                           {{platform::without_padding(output_name), "the output"}})) {
    return expand_output_unopened;
  }
  const auto input = attempt(
      [&] { return BinaryFile(platform::without_padding(input_name), platform::open_mode::read); });
  if (!input) {
    return expand_input_unopened;
  }
  auto staged =
      attempt([&] { return platform::StagedFile(platform::without_padding(output_name)); });
  if (!staged) {
    return expand_output_unopened;
  }
  std::array<std::byte, at_tables> header{};
  const auto there = attempt([&] { return input->read_some(1, header); });
  for (const header_reach& reach : header_reaches) {
    if (there.value_or(0) < reach.bytes) {
      return {reach.status};
    }
    if (reach.bytes == at_sign_flag && header[at_marker] != compression_marker) {
      return expand_not_compressed;
    }
  }
  if (const Status status = write_header(staged->file(), header); status.failed()) {
    return status;
  }
  expansion job{*input, staged->file(), expand};
  const std::int64_t per_row = std::max(0, load<std::int32_t>(&header[at_elements_per_row]));
  job.row_bytes = per_row * std::to_integer<int>(header[0]);
  job.row_count = std::max(0, load<std::int32_t>(&header[at_row_count]));
  job.rows_per_block = load<std::int32_t>(&header[at_rows_per_block]);
  // Sizes that pass 64 bits cannot be those of a file.
  constexpr std::int64_t largest_file = INT64_MAX / 2;
  if (job.row_bytes > 0 && job.row_count > largest_file / job.row_bytes) {
    return expand_tables_unsound;
  }
  const auto tables = attempt(
      [&] { return read_tables(*input, load<std::int32_t>(&header[at_block_count]), job.blocks); });
  if (!tables || tables->failed()) {
    return tables.value_or(expand_tables_missing);
  }
  if (const Status status = expand_blocks(job); status.failed()) {
    return status;
  }
  staged->commit();
  return success;
}

}  // namespace velmorankite
