// Free-format numbers: blanks, commas, repeat counts, slashes, D exponents.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/text_file.h"

namespace velmorankite::platform {

// Where a value of a list goes; the type says what may stand there. An integer takes no decimal
// point, a real takes an integer, a decimal or an exponent with E, D or Q.
using list_item = std::variant<std::int32_t*, float*, double*>;

enum class list_result { complete, end_of_file, malformed };

// Reads the items from `reader`, beginning on a new line: blank lines are passed over, and a list
// that runs short goes on in the next line. Items are parted by blanks, tabs or one comma. "n*v"
// gives v to n items, "n*" and two commas without a value between them leave items as they are,
// a slash ends the list and leaves the items behind it as they are. What stands behind the last
// value that is needed is ignored. Items ahead of a failure hold what was read.
//   rejected  out: the text that is not a value, cut to a length that fits a message.
// A value that does not fit its item is malformed, and so is one that stands beyond
// TextReader::default_keep characters of a line. Throws IoError.
[[nodiscard]] list_result read_list(TextReader& reader, std::span<const list_item> items,
                                    std::string* rejected = nullptr);

// The same from one text, which does not go on: a text that runs short gives end_of_file.
[[nodiscard]] list_result read_list(std::string_view text, std::span<const list_item> items,
                                    std::string* rejected = nullptr);

// One number as a list reads it, without the separators; nothing if `text` is no such number or
// is too large. A real too small for its type is 0; "NaN", "Inf" and "Infinity" are taken.
// A single-precision number is rounded once, from its digits.
[[nodiscard]] std::optional<double> parse_real(std::string_view text);
[[nodiscard]] std::optional<float> parse_single(std::string_view text);
[[nodiscard]] std::optional<std::int32_t> parse_integer(std::string_view text);
// The count of a repeat, without its star: digits alone, from 1 to 200 million.
[[nodiscard]] std::optional<std::int32_t> parse_repeat(std::string_view text);

}  // namespace velmorankite::platform
