// SPDX-License-Identifier: MIT
#include "formats/buffered_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include "platform/io_error.h"

namespace velmorankite {
namespace {

using platform::IoError;

constexpr auto block_size = static_cast<std::size_t>(file_block_bytes);

// Position in the file, from 1, of the next block.
std::int64_t next_block(const block_state& state) {
  return std::int64_t{state.block_count} * file_block_bytes + 1;
}

void write_block(positioned_file& unit, block_state& state, std::span<const std::byte> block) {
  const std::int64_t position = next_block(state);
  unit.file.write(position, block);
  unit.position = position + file_block_bytes;
  ++state.block_count;
}

// Writes the whole blocks that a position beyond one block means, and gives the rest's length.
std::size_t write_whole_blocks(positioned_file& unit, block_state& state,
                               std::span<const std::byte> buffer) {
  const auto pending = static_cast<std::size_t>(std::max(state.position, 0));
  std::size_t done = 0;
  for (; pending - done >= block_size; done += block_size) {
    write_block(unit, state, buffer.subspan(done, block_size));
  }
  return pending - done;
}

Status status_of(const IoError& error) {
  const int number = error.error_number();
  return Status{-(number == 0 ? EIO : number)};
}

Status read_block(positioned_file& unit, block_state& state, std::span<std::byte> buffer) {
  const std::int64_t position = next_block(state);
  try {
    if (unit.file.read_some(position, buffer.first(block_size)) < block_size) {
      return getbuf_end_of_file;
    }
  } catch (const IoError& error) {
    return status_of(error);
  }
  unit.position = position + file_block_bytes;
  state.position = 0;
  ++state.block_count;
  return success;
}

}  // namespace

Status OPENBUFF(const std::filesystem::path& path, positioned_file& unit, block_state& state) {
  try {
    unit = {platform::BinaryFile(path, platform::open_mode::open_always), 1};
  } catch (const IoError& error) {
    return status_of(error);
  }
  state = {};
  return success;
}

Status PUTBUF(std::span<const std::byte> data, positioned_file& unit, block_state& state,
              std::span<std::byte> buffer) {
  if (data.empty()) {
    return putbuf_nothing;
  }
  auto pending = static_cast<std::size_t>(std::max(state.position, 0));
  if (pending >= block_size) {
    const std::size_t rest = write_whole_blocks(unit, state, buffer);
    std::memmove(buffer.data(), &buffer[pending - rest], rest);
    pending = rest;
  }
  while (!data.empty()) {
    const std::size_t count = std::min(data.size(), block_size - pending);
    std::memcpy(&buffer[pending], data.data(), count);
    data = data.subspan(count);
    pending += count;
    if (pending == block_size) {
      write_block(unit, state, buffer.first(block_size));
      pending = 0;
    }
    state.position = static_cast<std::int32_t>(pending);
  }
  return success;
}

Status GETBUF(std::span<std::byte> data, positioned_file& unit, block_state& state,
              std::span<std::byte> buffer) {
  while (!data.empty()) {
    if (state.block_count == 0 || state.position >= file_block_bytes) {
      if (const Status status = read_block(unit, state, buffer); status.failed()) {
        return status;
      }
    }
    const auto taken = static_cast<std::size_t>(std::max(state.position, 0));
    const std::size_t count = std::min(data.size(), block_size - taken);
    std::memcpy(data.data(), &buffer[taken], count);
    data = data.subspan(count);
    state.position = static_cast<std::int32_t>(taken + count);
  }
  return success;
}

void CLOSBUFF(positioned_file& unit, block_state& state, std::span<const std::byte> buffer) {
  const auto pending = static_cast<std::size_t>(std::max(state.position, 0));
  const std::size_t rest = write_whole_blocks(unit, state, buffer);
  if (rest > 0) {
    // What stands behind the pending bytes goes along, as far as the buffer holds any.
    std::array<std::byte, block_size> last{};
    const auto tail = buffer.subspan(pending - rest);
    std::copy_n(tail.begin(), std::min(tail.size(), block_size), last.begin());
    write_block(unit, state, last);
  }
  unit.file.close();
  state = {};
}

std::int64_t GETBUFFPOS(const positioned_file& unit) noexcept {
  return unit.position - 1;
}

Status SETBUFFPOS(positioned_file& unit, std::int64_t offset) noexcept {
  if (offset < 0) {
    return position_refused;
  }
  unit.position = offset + 1;
  return success;
}

}  // namespace velmorankite
