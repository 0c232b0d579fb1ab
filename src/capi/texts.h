// Blank padded buffers of the C interface as texts of the library, and back.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/padded_text.h"

namespace velmorankite::capi {

class TextTooLong : public std::runtime_error {
 public:
  explicit TextTooLong(std::string_view text)
      : std::runtime_error("a text does not fit its buffer: " + std::string(text)) {}
};

// What a caller means by a buffer: the text up to a NUL, if there is one, without its trailing
// blanks.
[[nodiscard]] inline std::string_view text_in(const char* buffer, std::size_t length) noexcept {
  const std::string_view text(buffer, length);
  return platform::without_padding(text.substr(0, text.find('\0')));
}

// As much of a text as fits, and blanks behind it.
inline void fill_padded(std::span<char> buffer, std::string_view text) noexcept {
  const std::size_t count = std::min(text.size(), buffer.size());
  std::copy_n(text.begin(), count, buffer.begin());
  std::fill(buffer.begin() + static_cast<std::ptrdiff_t>(count), buffer.end(), ' ');
}

// The whole text and blanks behind it, or an exception and an untouched buffer.
inline void text_out(std::string_view text, std::span<char> buffer) {
  if (text.size() > buffer.size()) {
    throw TextTooLong(text);
  }
  fill_padded(buffer, text);
}

}  // namespace velmorankite::capi
