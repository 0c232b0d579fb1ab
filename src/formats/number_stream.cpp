// SPDX-License-Identifier: MIT
#include "formats/number_stream.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "platform/list_directed.h"

namespace velmorankite {
namespace {

constexpr std::size_t block_size = std::size_t{1} << 18;
// An item is held whole. Longer ones are no numbers.
constexpr std::size_t longest_item = 512;

constexpr bool is_space(char c) noexcept {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}
constexpr bool ends_item(char c) noexcept {
  return is_space(c) || c == ',' || c == '/';
}
constexpr bool is_digit(char c) noexcept {
  return c >= '0' && c <= '9';
}

// The quotient of two numbers that single precision holds exactly is rounded once.
constexpr float powers_of_ten[] = {1E0F, 1E1F, 1E2F, 1E3F, 1E4F, 1E5F,
                                   1E6F, 1E7F, 1E8F, 1E9F, 1E10F};
constexpr std::uint32_t exact_below = 1U << 24U;

}  // namespace

NumberStream::NumberStream(const platform::BinaryFile& file, std::int64_t position,
                           platform::line_end end)
    : file_(file), position_(position), end_(end), block_(block_size) {}

// Moves what is left to the front and reads on behind it; false where nothing is left.
bool NumberStream::fill() {
  if (!at_end_) {
    std::copy(block_.begin() + static_cast<std::ptrdiff_t>(begin_),
              block_.begin() + static_cast<std::ptrdiff_t>(limit_), block_.begin());
    limit_ -= begin_;
    begin_ = 0;
    const std::size_t count =
        file_.read_some(position_, std::as_writable_bytes(std::span(block_).subspan(limit_)));
    at_end_ = count < block_.size() - limit_;
    position_ += static_cast<std::int64_t>(count);
    limit_ += count;
  }
  return begin_ < limit_;
}

// Goes to the next item and sees to it that it is held whole; false at the end of the file.
//   behind_value  the item before it was one: one comma, if it comes, belongs to that.
bool NumberStream::next_item(bool behind_value) {
  while (true) {
    while (begin_ < limit_ && is_space(block_[begin_])) {
      ++begin_;
    }
    if (limit_ - begin_ < longest_item && !at_end_) {
      if (!fill()) {
        return false;
      }
      continue;
    }
    if (begin_ == limit_) {
      return false;
    }
    if (!behind_value || block_[begin_] != ',') {
      return true;
    }
    behind_value = false;
    ++begin_;
  }
}

// The common case: a few digits, perhaps a sign and a point.
bool NumberStream::read_short_decimal(float& value) {
  const char* at = block_.data() + begin_;
  const char* const limit = block_.data() + limit_;
  const bool negative = *at == '-';
  at += negative ? 1 : 0;
  const char* const digits = at;
  std::uint32_t number = 0;
  std::size_t decimals = 0;
  const auto take_digits = [&] {
    while (at < limit && is_digit(*at) && number < exact_below) {
      number = number * 10 + static_cast<std::uint32_t>(*at++ - '0');
    }
  };
  take_digits();
  std::ptrdiff_t count = at - digits;
  if (at < limit && *at == '.') {
    const char* const first_decimal = ++at;
    take_digits();
    decimals = static_cast<std::size_t>(at - first_decimal);
    count += at - first_decimal;
  }
  if (count == 0 || number >= exact_below || decimals >= std::size(powers_of_ten) ||
      (at < limit && !ends_item(*at))) {
    return false;
  }
  const float size = static_cast<float>(number) / powers_of_ten[decimals];
  value = negative ? -size : size;
  begin_ = static_cast<std::size_t>(at - block_.data());
  return true;
}

std::string_view NumberStream::take_item() {
  const char* const first = block_.data() + begin_;
  const char* const limit = block_.data() + limit_;
  const char* const last = std::find_if(first, limit, ends_item);
  begin_ += static_cast<std::size_t>(last - first);
  return {first, static_cast<std::size_t>(last - first)};
}

// Puts an item into as many of the values as it has for them; gives their number, 0 if it is no
// number.
std::size_t NumberStream::give_item(std::string_view item, std::span<float> values) {
  float value = 0.0F;
  const char* const end = item.data() + item.size();
  const auto [behind, error] = std::from_chars(item.data(), end, value);
  if (error == std::errc{} && behind == end && std::isfinite(value)) {
    values[0] = value;
    return 1;
  }
  std::size_t count = 1;
  if (const std::size_t star = item.find('*'); star != std::string_view::npos) {
    const auto repeats = platform::parse_repeat(item.substr(0, star));
    if (!repeats) {
      return 0;
    }
    count = std::min(static_cast<std::size_t>(*repeats), values.size());
    item.remove_prefix(star + 1);
    if (item.empty()) {  // as many values stay as they are
      return count;
    }
  }
  const auto number = platform::parse_single(item);
  if (!number) {
    return 0;
  }
  std::ranges::fill(values.first(count), *number);
  return count;
}

bool NumberStream::ends_line(char c) const noexcept {
  return c == '\n'
             ? end_ != platform::line_end::cr
             : c == '\r' && (end_ == platform::line_end::cr || end_ == platform::line_end::any);
}

// The file may end with the line.
void NumberStream::pass_rest_of_line() {
  while (begin_ < limit_ || fill()) {
    const auto rest = std::span(block_).subspan(begin_, limit_ - begin_);
    const auto end = std::ranges::find_if(rest, [this](char c) { return ends_line(c); });
    begin_ += static_cast<std::size_t>(end - rest.begin());
    if (end != rest.end()) {
      ++begin_;
      return;
    }
  }
}

bool NumberStream::read(std::span<float> values) {
  bool behind_value = false;
  for (std::size_t i = 0; i < values.size();) {
    if (!next_item(behind_value)) {
      return false;
    }
    const char c = block_[begin_];
    if (c == '/') {
      break;
    }
    if (c == ',') {  // nothing ahead of the comma: the value stays
      ++begin_;
      ++i;
      behind_value = false;
      continue;
    }
    behind_value = true;
    if (read_short_decimal(values[i])) {
      ++i;
      continue;
    }
    const std::size_t given = give_item(take_item(), values.subspan(i));
    if (given == 0) {
      return false;
    }
    i += given;
  }
  pass_rest_of_line();
  return true;
}

}  // namespace velmorankite
