// What the readers of text headers share: lines, keywords, values.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/list_directed.h"
#include "platform/text_file.h"

namespace velmorankite {

inline constexpr std::size_t header_line_length = 512;  // longer lines are cut

// The lines of a header, tabs made blanks, trimmed and in upper case.
class HeaderLines {
 public:
  explicit HeaderLines(platform::TextReader& reader, std::size_t keep = header_line_length)
      : reader_(reader), keep_(keep) {}

  // Goes on to the next line; false at the end of the file.
  [[nodiscard]] bool next();
  [[nodiscard]] const std::string& line() const noexcept { return line_; }
  // The line before its letters were folded to upper case.
  [[nodiscard]] const std::string& as_written() const noexcept { return as_written_; }
  [[nodiscard]] bool blank() const noexcept { return line_.empty(); }
  // A keyword counts wherever it stands in the line, in a longer word or a comment too.
  [[nodiscard]] bool holds(std::string_view keyword) const noexcept {
    return line_.find(keyword) != std::string::npos;
  }
  [[nodiscard]] platform::TextReader& reader() noexcept { return reader_; }

 private:
  platform::TextReader& reader_;
  std::size_t keep_;
  std::string line_;
  std::string as_written_;
};

// The text behind the first "=", or behind a fixed column in a line without one; at most 80
// characters.
[[nodiscard]] std::string_view behind_equals(std::string_view line, std::size_t fixed_column);

// The text behind the first blank.
[[nodiscard]] std::string_view behind_blank(std::string_view line) noexcept;

[[nodiscard]] std::string_view trimmed_text(std::string_view text) noexcept;

// Free-format numbers; false where none can be read.
[[nodiscard]] bool read_number(std::string_view text, std::int32_t& value);
[[nodiscard]] bool read_number(std::string_view text, float& value);
[[nodiscard]] bool read_number(std::string_view text, double& value);

// Numbers in a field of fixed columns (from 1); a blank field is 0.
[[nodiscard]] bool read_field(std::string_view line, std::size_t column, std::size_t width,
                              std::int32_t& value);
[[nodiscard]] bool read_field(std::string_view line, std::size_t column, std::size_t width,
                              double& value);

}  // namespace velmorankite
