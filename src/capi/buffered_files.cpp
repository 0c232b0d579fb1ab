// The C interface of files that go through a buffer of the caller, and of lines read by unit.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>

#include "capi/failures.h"
#include "capi/file_units.h"
#include "capi/texts.h"
#include "formats/buffered_file.h"
#include "formats/text_helpers.h"

using namespace velmorankite;
using namespace velmorankite::capi;

namespace {

// The caller's buffer reaches one block, or as far as its position says that it was filled.
std::span<std::byte> block_buffer(char* buffer, std::int32_t position) {
  const std::int32_t bytes = std::max(position, file_block_bytes);
  return std::as_writable_bytes(std::span(buffer, static_cast<std::size_t>(bytes)));
}

// A count of the caller's; below 1 there is nothing.
std::size_t bytes_of(std::int32_t count) {
  return static_cast<std::size_t>(std::max(count, 0));
}

}  // namespace

void OPENBUFF(const char* name, std::int32_t* unit, std::int32_t* position,
              std::int32_t* block_count, std::int32_t* status, std::size_t name_length) {
  *status = guarded("OPENBUFF", [&] {
    positioned_file opened;
    block_state state{*position, *block_count};
    const Status result = velmorankite::OPENBUFF(text_in(name, name_length), opened, state);
    if (!result.failed()) {
      *unit = file_units().connect(std::move(opened.file));
    }
    *position = state.position;
    *block_count = state.block_count;
    return result;
  });
}

void PUTBUF(const std::int32_t* count, const void* data, const std::int32_t* unit,
            std::int32_t* position, std::int32_t* block_count, char* buffer, std::int32_t* status) {
  *status = guarded("PUTBUF", [&] {
    block_state state{*position, *block_count};
    const Status result =
        velmorankite::PUTBUF({static_cast<const std::byte*>(data), bytes_of(*count)},
                             file_units().at(*unit), state, block_buffer(buffer, *position));
    *position = state.position;
    *block_count = state.block_count;
    return result;
  });
}

void GETBUF(const std::int32_t* count, void* data, const std::int32_t* unit, std::int32_t* position,
            std::int32_t* block_count, char* buffer, std::int32_t* status) {
  *status = guarded("GETBUF", [&] {
    block_state state{*position, *block_count};
    const Status result =
        velmorankite::GETBUF({static_cast<std::byte*>(data), bytes_of(*count)},
                             file_units().at(*unit), state, block_buffer(buffer, 0));
    *position = state.position;
    *block_count = state.block_count;
    return result;
  });
}

// The unit is free afterwards even where the last block could not be written.
std::int32_t CLOSBUFF(const std::int32_t* unit, std::int32_t* position, std::int32_t* block_count,
                      char* buffer) {
  const std::int32_t status = guarded("CLOSBUFF", [&] {
    block_state state{*position, *block_count};
    velmorankite::CLOSBUFF(file_units().at(*unit), state, block_buffer(buffer, *position));
    return success;
  });
  *position = 0;
  *block_count = 0;
  file_units().forget(*unit);
  return status;
}

std::int64_t GETBUFFPOS(const std::int32_t* unit) {
  std::int64_t position = 0;
  const std::int32_t status = guarded("GETBUFFPOS", [&] {
    position = velmorankite::GETBUFFPOS(file_units().at(*unit));
    return success;
  });
  return status < 0 ? status : position;
}

void SETBUFFPOS(const std::int32_t* unit, const std::int64_t* offset, std::int32_t* status) {
  *status = guarded("SETBUFFPOS",
                    [&] { return velmorankite::SETBUFFPOS(file_units().at(*unit), *offset); });
}

void RDLINE(const std::int32_t* unit, char* text, std::int32_t* length, std::size_t text_length) {
  *length = 0;
  fill_padded({text, text_length}, {});
  (void)guarded("RDLINE", [&] {
    positioned_file& from = file_units().at(*unit);
    const std::string line = velmorankite::RDLINE(from.file, from.position, text_length);
    fill_padded({text, text_length}, line);
    *length = static_cast<std::int32_t>(line.size());
    return success;
  });
}
