// SPDX-License-Identifier: MIT
#include "support/compressed_grids.h"

#include <zlib.h>

#include <algorithm>

#include "platform/byte_order.h"

namespace velmorankite::testing {
namespace {

template <typename T>
std::string word(T value) {
  std::string bytes(sizeof(T), '\0');
  platform::store(value, reinterpret_cast<std::byte*>(bytes.data()));
  return bytes;
}

struct match {
  std::size_t distance = 0;
  std::size_t length = 0;
};

match longest_match(std::string_view bytes, std::size_t at) {
  constexpr std::size_t farthest = 4095;
  constexpr std::size_t longest = 16;
  match best;
  for (std::size_t distance = 1; distance <= std::min(at, farthest); ++distance) {
    std::size_t length = 0;
    while (length < longest && at + length < bytes.size() &&
           bytes[at + length] == bytes[at + length - distance]) {
      ++length;
    }
    if (length > best.length) {
      best = {distance, length};
    }
  }
  return best;
}

}  // namespace

std::string compress_lzrw1(std::string_view bytes) {
  std::string out(4, '\0');
  std::size_t at = 0;
  while (at < bytes.size()) {
    unsigned control = 0;
    std::string items;
    for (unsigned item = 0; item < 16 && at < bytes.size(); ++item) {
      const match found = longest_match(bytes, at);
      if (found.length >= 3) {
        control |= 1U << item;
        items += static_cast<char>((found.distance >> 8U) << 4U | (found.length - 1));
        items += static_cast<char>(found.distance & 0xFFU);
        at += found.length;
      } else {
        items += bytes[at++];
      }
    }
    out += word(static_cast<std::uint16_t>(control));
    out += items;
  }
  return out;
}

std::string marked_block(std::int32_t kind, std::string_view payload) {
  std::string block("\x0F\x0E\xFF\xFE\x12\x34\x56\x78", 8);
  block += word(kind);
  block += word(std::int32_t{0});
  block += payload;
  return block;
}

std::string raw_block(std::string_view cells) {
  return std::string(cells);
}

std::string chunk(std::uint32_t expected, std::string_view payload) {
  std::string bytes = word(expected);
  bytes += word(static_cast<std::uint32_t>(payload.size() + 8));
  bytes += payload;
  return bytes;
}

std::string chunked_block(std::string_view cells, std::size_t chunk_bytes) {
  std::string payload;
  for (std::size_t at = 0; at < cells.size(); at += chunk_bytes) {
    const std::string_view part = cells.substr(at, chunk_bytes);
    const std::string packed = compress_lzrw1(part);
    std::string stored("\xC3\xD2\xE1\xF0", 4);
    stored += part;
    payload += chunk(static_cast<std::uint32_t>(part.size()),
                     packed.size() < part.size() ? packed : stored);
  }
  return marked_block(1, payload);
}

std::string deflate_block(std::string_view cells) {
  uLongf length = ::compressBound(static_cast<uLong>(cells.size()));
  std::string packed(length, '\0');
  ::compress(reinterpret_cast<Bytef*>(packed.data()), &length,
             reinterpret_cast<const Bytef*>(cells.data()), static_cast<uLong>(cells.size()));
  packed.resize(length);
  return marked_block(2, packed);
}

std::string compressed_file(std::string_view plain, std::int32_t rows_per_block,
                            const std::vector<std::string>& blocks) {
  std::string file(plain.substr(0, 512));
  file[1] = 4;
  file += word(std::int32_t{7});
  file += word(std::int32_t{1});
  file += word(static_cast<std::int32_t>(blocks.size()));
  file += word(rows_per_block);
  std::int64_t offset = 528 + 12 * static_cast<std::int64_t>(blocks.size());
  for (const std::string& block : blocks) {
    file += word(offset);
    offset += static_cast<std::int64_t>(block.size());
  }
  for (const std::string& block : blocks) {
    file += word(static_cast<std::int32_t>(block.size()));
  }
  for (const std::string& block : blocks) {
    file += block;
  }
  return file;
}

}  // namespace velmorankite::testing
