// Texts in blank padded buffers.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <string_view>

namespace velmorankite::platform {

// The text without its trailing blanks; empty for a blank text, which means no name.
[[nodiscard]] constexpr std::string_view without_padding(std::string_view text) noexcept {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

// The text without the blanks and NULs at its end.
[[nodiscard]] constexpr std::string_view without_tail(std::string_view text) noexcept {
  const std::size_t last = text.find_last_not_of(std::string_view(" \0", 2));
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

}  // namespace velmorankite::platform
