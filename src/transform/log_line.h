// The lines of the transform log.
// SPDX-License-Identifier: MIT
#pragma once
#include <charconv>
#include <functional>
#include <string>
#include <string_view>

namespace velmorankite {

// Takes one line of the log, without a line end. Routines that are not given a log get one that
// drops what it is told: [](std::string_view) {}.
using log_sink = std::function<void(std::string_view line)>;

// The shortest decimal number that reads back as the same value; integers as they are.
template <typename Number>
[[nodiscard]] std::string log_number(Number value) {
  char text[32] = {};
  const std::to_chars_result end = std::to_chars(text, text + sizeof text, value);
  return {text, end.ptr};
}

// A text, and behind it the values, a blank between two of them.
template <typename... Numbers>
[[nodiscard]] std::string log_line(std::string_view text, Numbers... values) {
  std::string line(text);
  bool first = true;
  const auto append = [&line, &first](const std::string& number) {
    line.append(first ? "" : " ").append(number);
    first = false;
  };
  (append(log_number(values)), ...);
  return line;
}

}  // namespace velmorankite
