// SPDX-License-Identifier: MIT
#include "formats/text_helpers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "platform/byte_order.h"
#include "platform/io_error.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

std::span<std::byte> bytes_of(std::span<char> text) {
  return std::as_writable_bytes(text);
}

// As much of the file as there is at `position`; a failed read finds nothing.
std::string_view read_quietly(const platform::BinaryFile& file, std::int64_t position,
                              std::span<char> text) {
  try {
    return {text.data(), file.read_some(position, bytes_of(text))};
  } catch (const platform::IoError&) {
    return {};
  }
}

line_end_kind kind_of(std::string_view head) noexcept {
  const std::size_t cr = head.find('\r');
  const std::size_t lf = head.find('\n');
  constexpr std::size_t none = std::string_view::npos;
  if (cr == none) {
    return lf == none ? line_end_kind::unsettled : line_end_kind::unix_system;
  }
  if (lf == none) {
    return line_end_kind::mac;
  }
  return lf == cr + 1 ? line_end_kind::windows : line_end_kind::unsettled;
}

}  // namespace

line_end_kind ISFILEUNIX(const std::filesystem::path& path) {
  std::array<char, 1024> head;
  try {
    const platform::BinaryFile file(path, platform::open_mode::read);
    return kind_of(read_quietly(file, 1, head));
  } catch (const platform::IoError&) {
    return line_end_kind::unsettled;
  }
}

platform::line_end text_ending(line_end_kind kind) noexcept {
  switch (kind) {
    case line_end_kind::windows:
      return platform::line_end::crlf;
    case line_end_kind::unix_system:
      return platform::line_end::lf;
    case line_end_kind::mac:
      return platform::line_end::cr;
    case line_end_kind::unsettled:
      break;
  }
  return platform::line_end::any;
}

std::string RDLINE(const platform::BinaryFile& file, std::int64_t& position, std::size_t size) {
  // One byte more than the text holds, for an LF behind a CR.
  std::string line(size + 1, ' ');
  const std::string_view there = read_quietly(file, position, line);
  const std::size_t length = std::min(there.find_first_of("\r\n"), std::min(there.size(), size));
  std::size_t taken = length;
  if (length < size && length < there.size()) {
    taken += there.substr(length).starts_with("\r\n") ? 2 : 1;
  }
  position += static_cast<std::int64_t>(taken);
  line.resize(length);
  return line;
}

std::string FTRIM(std::string_view text) {
  std::string blanked(text);
  std::replace(blanked.begin(), blanked.end(), '\0', ' ');
  const std::size_t first = blanked.find_first_not_of(' ');
  if (first == std::string::npos) {
    return {};
  }
  return std::string(platform::without_padding(std::string_view(blanked).substr(first)));
}

std::size_t FTAIL(std::string_view text) noexcept {
  return platform::without_tail(text).size();
}

void FUPPER(std::span<char> text) noexcept {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') {
      c = static_cast<char>(c - 'a' + 'A');
    }
  }
}

double DECODE_VULCAN_BINARY(const std::byte* bytes, std::int32_t order_code) noexcept {
  constexpr std::uint64_t exponent_mask = 0x7FFULL << 52;
  constexpr std::uint64_t fraction_mask = (1ULL << 52) - 1;
  constexpr std::uint64_t one = 1023ULL << 52;  // exponent of a number from 1.0 to 2.0
  const auto word = platform::load<std::uint64_t>(
      bytes, order_code == decode_big_endian ? std::endian::big : std::endian::little);
  const std::uint64_t exponent = word & exponent_mask;
  if (exponent != 0 && exponent != exponent_mask) {
    return std::bit_cast<double>(word);
  }
  const auto fraction = std::bit_cast<double>((word & fraction_mask) | one);
  const double value =
      exponent == 0 ? std::ldexp(fraction, -1023) : std::numeric_limits<double>::infinity();
  return std::copysign(value, std::bit_cast<double>(word));
}

}  // namespace velmorankite
