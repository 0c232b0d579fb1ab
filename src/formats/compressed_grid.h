// Compressed standard grids, expanded block by block into plain ones.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "formats/chunk_expander.h"
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status expand_name_blank{-20000};
inline constexpr Status expand_input_unopened{-20001};
inline constexpr Status expand_output_unopened{-20002};  // or it would replace the input
// -20003 to -20006 and -20008 to -20021: the input ends within its header, see the table beside
// the reader.
inline constexpr Status expand_header_ended{-20021};  // the last of them
inline constexpr Status expand_not_compressed{-20005};
inline constexpr Status expand_header_unwritten{-20007};
inline constexpr Status expand_block_too_large{-20020};
inline constexpr Status expand_tables_unsound{-20022};
inline constexpr Status expand_tables_missing{-20023};
// Failures of block i, from 1: the number less i.
inline constexpr std::int32_t expand_block_unread = -21000;
inline constexpr std::int32_t expand_raw_unwritten = -22000;
inline constexpr std::int32_t expand_chunk_length = -24000;
inline constexpr std::int32_t expand_chunk_unwritten = -26000;
inline constexpr std::int32_t expand_stored_unmarked = -27000;
inline constexpr std::int32_t expand_stored_unwritten = -28000;
inline constexpr std::int32_t expand_deflate_memory = -29000;
inline constexpr std::int32_t expand_deflate_unwritten = -30000;
inline constexpr std::int32_t expand_kind_unknown = -31000;     // neither raw, chunked nor deflate
inline constexpr std::int32_t expand_deflate_unsound = -32000;  // corrupt, or beyond its rows
inline constexpr std::int32_t expand_chunk_unsound = -33000;    // a chunk beyond its block

// Expands `input` into the plain standard grid `output`: the header without its compression
// marker, then the cells. One block is held at a time, and never more than the file's size lets
// expect. The output appears complete or not at all.
// Status: success or one of the above.
Status EXPUNCOMPGRID(std::string_view input, std::string_view output,
                     chunk_expander expand = expand_lzrw1);

}  // namespace velmorankite
