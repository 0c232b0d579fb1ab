// Files that are written and read through a buffer of the caller, block by block.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

inline constexpr std::int32_t file_block_bytes = 4096;

inline constexpr Status putbuf_nothing{-1};      // a count below 1
inline constexpr Status getbuf_end_of_file{-1};  // no whole block is left to read
inline constexpr Status position_refused{-1};    // an offset below 0

// An open file and the position of its next byte, from 1, for routines that go on where the last
// one stopped.
struct positioned_file {
  platform::BinaryFile file;
  std::int64_t position = 1;
};

// How far the caller's buffer of at least 4096 bytes is: block b lies at byte 4096 b of the file.
struct block_state {
  std::int32_t position = 0;  // writing: bytes pending; reading: bytes taken of the present block
  std::int32_t block_count = 0;  // blocks written or read
};

// Opens a file for one direction of PUTBUF or GETBUF, and makes it if there is none. Status:
// success, or the negated error number of the system; `state` is then left as it is.
Status OPENBUFF(const std::filesystem::path& path, positioned_file& unit, block_state& state);

// Adds bytes to the file. A buffer that the caller filled beyond 4096 bytes by VAL2BUF is written
// as far as whole blocks go first. Status: success, putbuf_nothing. Throws IoError.
Status PUTBUF(std::span<const std::byte> data, positioned_file& unit, block_state& state,
              std::span<std::byte> buffer);

// Takes bytes from the file. Status: success, getbuf_end_of_file, or the negated error number of
// the system; what came before the failure stands in `data`.
Status GETBUF(std::span<std::byte> data, positioned_file& unit, block_state& state,
              std::span<std::byte> buffer);

// Writes what is pending, always whole blocks: what stands behind the pending bytes in the last one
// too. Closes the file and sets the state back. Throws IoError.
void CLOSBUFF(positioned_file& unit, block_state& state, std::span<const std::byte> buffer);

// The file's present position as a byte offset from its start.
[[nodiscard]] std::int64_t GETBUFFPOS(const positioned_file& unit) noexcept;
// Moves it. Status: success, position_refused.
Status SETBUFFPOS(positioned_file& unit, std::int64_t offset) noexcept;

}  // namespace velmorankite
