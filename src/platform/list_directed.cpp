// SPDX-License-Identifier: MIT
#include "platform/list_directed.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <type_traits>

namespace velmorankite::platform {
namespace {

constexpr std::string_view blanks = " \t\r";
constexpr std::string_view separators = " \t\r,/";
constexpr std::string_view digits = "0123456789";
constexpr std::int32_t largest_repeat = 200'000'000;
constexpr std::size_t longest_rejected = 80;  // characters of a wrong value that a message shows

bool is_sign(char c) {
  return c == '+' || c == '-';
}

// The parts of a decimal number; without a digit in it `sound` is false.
struct decimal_parts {
  bool sound = false;
  std::string_view whole;     // digits ahead of the point
  std::string_view fraction;  // digits behind it
  std::string_view exponent;  // digits with their sign; blank if there is none
};

std::string_view take_digits(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_not_of(digits), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end);
  return taken;
}

// A number without its own sign. The exponent may stand without a letter: "1+5" is 1E5.
decimal_parts split_decimal(std::string_view text) {
  decimal_parts parts;
  parts.whole = take_digits(text);
  if (!text.empty() && text.front() == '.') {
    text.remove_prefix(1);
    parts.fraction = take_digits(text);
  }
  if (parts.whole.empty() && parts.fraction.empty()) {
    return parts;
  }
  if (text.empty()) {
    parts.sound = true;
    return parts;
  }
  constexpr std::string_view exponent_letters = "eEdDqQ";
  if (exponent_letters.find(text.front()) != std::string_view::npos) {
    text.remove_prefix(1);
  } else if (!is_sign(text.front())) {
    return parts;
  }
  parts.exponent = text;
  if (!text.empty() && is_sign(text.front())) {
    text.remove_prefix(1);
  }
  parts.sound = !take_digits(text).empty() && text.empty();
  return parts;
}

// Whether a number that does not fit its type is too small for it, not too large: where its first
// digit other than 0 stands, seen from the point, plus its exponent.
bool is_tiny(const decimal_parts& parts) {
  std::string all(parts.whole);
  all += parts.fraction;
  const auto place = static_cast<std::int64_t>(parts.whole.size()) -
                     static_cast<std::int64_t>(all.find_first_not_of('0'));
  std::string_view exponent = parts.exponent;
  if (!exponent.empty() && exponent.front() == '+') {
    exponent.remove_prefix(1);
  }
  std::int64_t power = 0;
  const std::from_chars_result end =
      std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (end.ec == std::errc::result_out_of_range) {
    return exponent.front() == '-';
  }
  return place + power < 0;
}

bool same_word(std::string_view text, std::string_view lower_case) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(text.begin(), text.end(), lower_case.begin(), lower_case.end(),
                    [&](char a, char b) { return lower(a) == b; });
}

bool is_letter_or_digit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// "nan", also with letters and digits in brackets behind it, as C and Fortran print it.
bool is_nan(std::string_view text) {
  constexpr std::size_t word = 3;
  if (!same_word(text.substr(0, word), "nan")) {
    return false;
  }
  text.remove_prefix(word);
  return text.empty() || (text.size() >= 2 && text.front() == '(' && text.back() == ')' &&
                          std::ranges::all_of(text.substr(1, text.size() - 2), is_letter_or_digit));
}

template <typename Real>
std::optional<Real> parse_magnitude(std::string_view text) {
  if (is_nan(text)) {
    return std::numeric_limits<Real>::quiet_NaN();
  }
  if (same_word(text, "inf") || same_word(text, "infinity")) {
    return std::numeric_limits<Real>::infinity();
  }
  const decimal_parts parts = split_decimal(text);
  if (!parts.sound) {
    return std::nullopt;
  }
  std::string plain;
  plain.reserve(text.size() + 2);
  plain.append(parts.whole).append(".").append(parts.fraction);
  if (!parts.exponent.empty()) {
    plain.append("e").append(parts.exponent);
  }
  Real value{};
  const std::from_chars_result end =
      std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (end.ec == std::errc::result_out_of_range) {
    return is_tiny(parts) ? std::optional<Real>(Real{0}) : std::nullopt;
  }
  return end.ec == std::errc{} && std::isfinite(value) ? std::optional<Real>(value) : std::nullopt;
}

template <typename Real>
std::optional<Real> parse_signed_real(std::string_view text) {
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && is_sign(text.front())) {
    text.remove_prefix(1);
  }
  const std::optional<Real> magnitude = parse_magnitude<Real>(text);
  return magnitude && negative ? -*magnitude : magnitude;
}

// Hands the value texts of a list to its items. What it knows lasts from line to line.
class ListScanner {
 public:
  explicit ListScanner(std::span<const list_item> items) : items_(items) {}

  [[nodiscard]] bool complete() const { return next_ == items_.size(); }
  [[nodiscard]] std::string_view rejected() const { return rejected_; }

  // Takes what one line has. False if something in it is not a value. `cut` says that the line
  // goes on behind `line`, so that a value which reaches its end is not known whole.
  bool take_line(std::string_view line, bool cut);

 private:
  bool take_value(std::string_view text);
  bool give(std::string_view text, std::size_t count);
  bool reject(std::string_view text);

  std::span<const list_item> items_;
  std::size_t next_ = 0;
  bool after_value_ = false;  // a comma now parts two values; otherwise it stands for a value
  std::string_view rejected_;
};

bool ListScanner::reject(std::string_view text) {
  rejected_ = text.substr(0, longest_rejected);
  return false;
}

bool ListScanner::give(std::string_view text, std::size_t count) {
  const std::size_t last = next_ + std::min(count, items_.size() - next_);
  for (; next_ < last; ++next_) {
    const bool taken = std::visit(
        [text](auto* item) {
          using value_type = std::remove_pointer_t<decltype(item)>;
          std::optional<value_type> value;
          if constexpr (std::is_same_v<value_type, double>) {
            value = parse_real(text);
          } else if constexpr (std::is_same_v<value_type, float>) {
            value = parse_single(text);
          } else {
            value = parse_integer(text);
          }
          *item = value.value_or(*item);
          return value.has_value();
        },
        items_[next_]);
    if (!taken) {
      return false;
    }
  }
  return true;
}

// A value text is "v", "n*v" or "n*".
bool ListScanner::take_value(std::string_view text) {
  after_value_ = true;
  const std::size_t star = text.find('*');
  if (star == std::string_view::npos) {
    return give(text, 1) || reject(text);
  }
  const std::optional<std::int32_t> count = parse_repeat(text.substr(0, star));
  if (!count) {
    return reject(text);
  }
  const std::string_view value = text.substr(star + 1);
  const auto repeat = static_cast<std::size_t>(*count);
  if (value.empty()) {
    next_ += std::min(repeat, items_.size() - next_);
    return true;
  }
  return give(value, repeat) || reject(text);
}

bool ListScanner::take_line(std::string_view line, bool cut) {
  std::size_t at = 0;
  while (!complete() && (at = line.find_first_not_of(blanks, at)) != std::string_view::npos) {
    if (line[at] == '/') {
      next_ = items_.size();
    } else if (line[at] == ',') {
      next_ += after_value_ ? 0 : 1;
      after_value_ = false;
      ++at;
    } else {
      const std::size_t end = std::min(line.find_first_of(separators, at), line.size());
      const std::string_view text = line.substr(at, end - at);
      if ((cut && end == line.size()) || !take_value(text)) {
        return reject(text);
      }
      at = end;
    }
  }
  return complete() || !cut || reject(line);
}

list_result report_malformed(const ListScanner& scanner, std::string* rejected) {
  if (rejected != nullptr) {
    *rejected = scanner.rejected();
  }
  return list_result::malformed;
}

}  // namespace

list_result read_list(TextReader& reader, std::span<const list_item> items, std::string* rejected) {
  ListScanner scanner(items);
  std::string line;
  // One character more is asked for, which tells a line that was cut from one that just fits.
  constexpr std::size_t keep = TextReader::default_keep;
  while (!scanner.complete()) {
    if (!reader.next_line(line, keep + 1)) {
      return list_result::end_of_file;
    }
    if (!scanner.take_line(std::string_view(line).substr(0, keep), line.size() > keep)) {
      return report_malformed(scanner, rejected);
    }
  }
  return list_result::complete;
}

list_result read_list(std::string_view text, std::span<const list_item> items,
                      std::string* rejected) {
  ListScanner scanner(items);
  if (!scanner.take_line(text, false)) {
    return report_malformed(scanner, rejected);
  }
  return scanner.complete() ? list_result::complete : list_result::end_of_file;
}

std::optional<double> parse_real(std::string_view text) {
  return parse_signed_real<double>(text);
}

std::optional<float> parse_single(std::string_view text) {
  return parse_signed_real<float>(text);
}

std::optional<std::int32_t> parse_integer(std::string_view text) {
  // from_chars takes a minus sign of its own accord, but no plus sign.
  if (text.size() > 1 && text.front() == '+' && !is_sign(text[1])) {
    text.remove_prefix(1);
  }
  std::int32_t value = 0;
  const char* const last = text.data() + text.size();
  const std::from_chars_result end = std::from_chars(text.data(), last, value);
  return end.ec == std::errc{} && end.ptr == last ? std::optional(value) : std::nullopt;
}

std::optional<std::int32_t> parse_repeat(std::string_view text) {
  const std::optional<std::int32_t> count = parse_integer(text);
  return count && !is_sign(text.front()) && *count >= 1 && *count <= largest_repeat ? count
                                                                                    : std::nullopt;
}

}  // namespace velmorankite::platform
