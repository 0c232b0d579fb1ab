// The fast chunks of compressed grids.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>

namespace velmorankite {

// Expands one chunk.
//   source       the chunk's payload.
//   destination  room for the expanded bytes; its size is the capacity.
// Gives the number of bytes written, which the caller holds against the length that it expects; a
// chunk that is no sound one gives 0. Nothing is read or written outside the two spans.
using chunk_expander = std::size_t (*)(std::span<const std::byte> source,
                                       std::span<std::byte> destination);

// LZRW1 (Ross Williams, "An Extremely Fast Ziv-Lempel Data Compression Algorithm", Data
// Compression Conference, 1991): four flag bytes, the first of which is 0 for compressed and 1
// for copied; then groups of a 16-bit control word, the low byte first, and up to 16 items. A
// control bit of 0 is a literal byte; one of 1 is a copy of two bytes that hold, high to low, four
// bits of the distance, the length less 1 (4 bits) and the other eight bits of the distance.
[[nodiscard]] std::size_t expand_lzrw1(std::span<const std::byte> source,
                                       std::span<std::byte> destination);

}  // namespace velmorankite
