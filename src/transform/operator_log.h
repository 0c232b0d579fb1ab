// Arrays of an operator in the transform log.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>
#include <string>

#include "platform/number_text.h"
#include "transform/log_line.h"

namespace velmorankite {

// One line for every row of `width` values.
inline void log_rows(std::span<const float> values, std::size_t width, const log_sink& log) {
  for (std::size_t first = 0; first < values.size(); first += width) {
    std::string line;
    for (const float value : values.subspan(first, width)) {
      line.append(line.empty() ? "" : " ").append(platform::shortest(value));
    }
    log(line);
  }
}

}  // namespace velmorankite
