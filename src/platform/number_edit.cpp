// SPDX-License-Identifier: MIT
#include "platform/number_edit.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>

namespace velmorankite::platform {
namespace {

// `text` at the right end of a field, or stars where it is longer than the field.
std::string justified(std::string_view text, std::size_t width) {
  if (text.size() > width) {
    return std::string(width, '*');
  }
  std::string field(width - text.size(), ' ');
  field += text;
  return field;
}

std::string_view name_of_special(double value, std::size_t width) {
  if (std::isnan(value)) {
    return "NaN";
  }
  if (value > 0.0) {
    return width < std::string_view("Infinity").size() ? "Inf" : "Infinity";
  }
  return width < std::string_view("-Infinity").size() ? "-Inf" : "-Infinity";
}

// All digits of the largest double, a sign and a point stand ahead of the decimals.
std::string fixed_digits(double value, int decimals) {
  constexpr int longest_whole_part = std::numeric_limits<double>::max_exponent10 + 1;
  std::string digits(static_cast<std::size_t>(longest_whole_part + 2 + decimals), '\0');
  const std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                                 value, std::chars_format::fixed, decimals);
  digits.resize(static_cast<std::size_t>(end.ptr - digits.data()));
  if (decimals == 0) {
    digits += '.';
  }
  return digits;
}

}  // namespace

std::string fixed_edit(double value, int width, int decimals) {
  const auto field = static_cast<std::size_t>(width);
  if (!std::isfinite(value)) {
    return justified(name_of_special(value, field), field);
  }
  std::string digits = fixed_digits(value, decimals);
  const std::size_t first = digits.front() == '-' ? 1 : 0;
  if (digits.size() == field + 1 && decimals > 0 && digits.compare(first, 2, "0.") == 0) {
    digits.erase(first, 1);
  }
  return justified(digits, field);
}

std::string integer_edit(std::int64_t value, int width) {
  return justified(std::to_string(value), static_cast<std::size_t>(width));
}

}  // namespace velmorankite::platform
