// The lines of the transform log.
// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <string>
#include <string_view>

#include "platform/number_text.h"

namespace velmorankite {

// Takes one line of the log, without a line end. Routines that are not given a log get one that
// drops what it is told: [](std::string_view) {}.
using log_sink = std::function<void(std::string_view line)>;

// A text, and behind it the values, a blank between two of them.
template <typename... Numbers>
[[nodiscard]] std::string log_line(std::string_view text, Numbers... values) {
  std::string line(text);
  bool first = true;
  const auto append = [&line, &first](const std::string& number) {
    line.append(first ? "" : " ").append(number);
    first = false;
  };
  (append(platform::shortest(values)), ...);
  return line;
}

}  // namespace velmorankite
