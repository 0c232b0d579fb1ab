// SPDX-License-Identifier: MIT
#include "formats/header_text.h"

#include <algorithm>
#include <optional>

#include "formats/text_helpers.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

constexpr std::size_t value_length = 80;

template <typename T>
bool read_one(std::string_view text, T& value) {
  const platform::list_item item = &value;
  return platform::read_list(text, std::span(&item, 1)) == platform::list_result::complete;
}

std::string_view field_of(std::string_view line, std::size_t column, std::size_t width) {
  return column > line.size() ? std::string_view() : trimmed_text(line.substr(column - 1, width));
}

}  // namespace

bool HeaderLines::next() {
  std::string raw;
  if (!reader_.next_line(raw, keep_)) {
    return false;
  }
  std::replace(raw.begin(), raw.end(), '\t', ' ');
  as_written_ = FTRIM(raw);
  line_ = as_written_;
  FUPPER(line_);
  return true;
}

std::string_view behind_equals(std::string_view line, std::size_t fixed_column) {
  const std::size_t equals = line.find('=');
  const std::size_t first = equals == std::string_view::npos ? fixed_column : equals + 1;
  return first >= line.size() ? std::string_view() : line.substr(first, value_length);
}

std::string_view behind_blank(std::string_view line) noexcept {
  const std::size_t blank = line.find(' ');
  return blank == std::string_view::npos ? std::string_view() : line.substr(blank + 1);
}

std::string_view trimmed_text(std::string_view text) noexcept {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) {
    return {};
  }
  return platform::without_padding(text.substr(first));
}

bool read_number(std::string_view text, std::int32_t& value) {
  return read_one(text, value);
}
bool read_number(std::string_view text, float& value) {
  return read_one(text, value);
}
bool read_number(std::string_view text, double& value) {
  return read_one(text, value);
}

bool read_field(std::string_view line, std::size_t column, std::size_t width, std::int32_t& value) {
  const std::string_view field = field_of(line, column, width);
  const std::optional<std::int32_t> number =
      field.empty() ? std::optional(0) : platform::parse_integer(field);
  value = number.value_or(value);
  return number.has_value();
}

bool read_field(std::string_view line, std::size_t column, std::size_t width, double& value) {
  const std::string_view field = field_of(line, column, width);
  const std::optional<double> number =
      field.empty() ? std::optional(0.0) : platform::parse_real(field);
  value = number.value_or(value);
  return number.has_value();
}

}  // namespace velmorankite
