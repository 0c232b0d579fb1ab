// Compressed standard grids made from plain ones, for tests.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmorankite::testing {

// LZRW1 of `bytes`, flag bytes included: a plain search of the last 4095 bytes.
std::string compress_lzrw1(std::string_view bytes);

// Blocks as they stand in a file.
std::string raw_block(std::string_view cells);
std::string chunked_block(std::string_view cells, std::size_t chunk_bytes);
// One chunk with its two lengths.
std::string chunk(std::uint32_t expected, std::string_view payload);
std::string marked_block(std::int32_t kind, std::string_view payload);
std::string deflate_block(std::string_view cells);

// The compressed file: the header of `plain` with the marker, the tables, the blocks.
std::string compressed_file(std::string_view plain, std::int32_t rows_per_block,
                            const std::vector<std::string>& blocks);

}  // namespace velmorankite::testing
