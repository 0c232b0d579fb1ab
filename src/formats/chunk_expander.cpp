// SPDX-License-Identifier: MIT
#include "formats/chunk_expander.h"

#include <algorithm>
#include <cstdint>

namespace velmorankite {
namespace {

constexpr std::size_t flag_bytes = 4;
constexpr std::byte flag_compressed{0};
constexpr std::byte flag_copied{1};
constexpr int items_in_group = 16;

// The chunk while it is read; every step says whether it stayed inside both spans.
struct expansion {
  std::span<const std::byte> source;
  std::span<std::byte> destination;
  std::size_t read = flag_bytes;
  std::size_t written = 0;

  [[nodiscard]] std::size_t left() const noexcept { return source.size() - read; }
  [[nodiscard]] unsigned take() noexcept { return std::to_integer<unsigned>(source[read++]); }

  bool literal() noexcept {
    if (written == destination.size()) {
      return false;
    }
    destination[written++] = source[read++];
    return true;
  }

  bool copy() noexcept {
    if (left() < 2) {
      return false;
    }
    const unsigned first = take();
    const std::size_t distance = ((first & 0xF0U) << 4U) | take();
    const std::size_t length = (first & 0x0FU) + 1;
    if (distance == 0 || distance > written || length > destination.size() - written) {
      return false;
    }
    // Byte by byte: a copy may overlap what it writes.
    for (std::size_t i = 0; i < length; ++i, ++written) {
      destination[written] = destination[written - distance];
    }
    return true;
  }
};

}  // namespace

std::size_t expand_lzrw1(std::span<const std::byte> source, std::span<std::byte> destination) {
  if (source.size() < flag_bytes) {
    return 0;
  }
  if (source[0] == flag_copied) {
    const auto cells = source.subspan(flag_bytes);
    if (cells.size() > destination.size()) {
      return 0;
    }
    std::copy(cells.begin(), cells.end(), destination.begin());
    return cells.size();
  }
  if (source[0] != flag_compressed) {
    return 0;
  }
  expansion chunk{source, destination};
  while (chunk.left() > 0) {
    if (chunk.left() < 2) {
      return 0;
    }
    unsigned control = chunk.take();
    control |= chunk.take() << 8U;
    for (int item = 0; item < items_in_group && chunk.left() > 0; ++item, control >>= 1U) {
      if (!((control & 1U) != 0 ? chunk.copy() : chunk.literal())) {
        return 0;
      }
    }
  }
  return chunk.written;
}

}  // namespace velmorankite
