// The stored lines of text grids: plain numbers, and the codes of three formats.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "formats/catalogue.h"
#include "formats/cell_decoding.h"
#include "formats/header_text.h"
#include "formats/line_source.h"
#include "formats/number_stream.h"
#include "formats/stored_lines.h"
#include "formats/text_helpers.h"
#include "grid/dummy.h"
#include "platform/list_directed.h"
#include "platform/padded_text.h"
#include "platform/text_file.h"

namespace velmorankite {
namespace {

Status unread(std::int32_t number) {
  return Status{text_line_unread - number};
}

// Free-format numbers, a new line of the file for each stored line.
class PlainNumbers final : public LineSource {
 public:
  PlainNumbers(const std::filesystem::path& path, const platform::TextReader& behind_header,
               platform::line_end end)
      : file_(path, platform::open_mode::read), numbers_(file_, behind_header.position(), end) {}

  Status read(std::int32_t number, bool /*wanted*/, std::span<float> cells) override {
    // What a list leaves out is no data.
    std::ranges::fill(cells, dummy);
    if (!numbers_.read(cells)) {
      return unread(number);
    }
    drop_non_finite(cells);
    return success;
  }

 private:
  platform::BinaryFile file_;
  NumberStream numbers_;
};

// GXF's codes: numbers in base 90, with repeats.
class GxfCodes final : public LineSource {
 public:
  GxfCodes(platform::TextReader reader, std::int32_t width)
      : reader_(std::move(reader)), width_(static_cast<std::size_t>(width)) {}

  Status read(std::int32_t number, bool /*wanted*/, std::span<float> cells) override {
    constexpr std::size_t line_length = 80;
    repeat_follows_ = false;
    repeats_ = 1;
    std::size_t filled = 0;
    std::string line;
    while (filled < cells.size()) {
      if (!reader_.next_line(line, line_length)) {
        return unread(number);
      }
      if (!line.starts_with('$')) {
        filled += decode(std::string_view(line).substr(0, line.find(' ')), cells.subspan(filled));
      }
    }
    return success;
  }

 private:
  // Gives the number of cells that a line fills.
  std::size_t decode(std::string_view line, std::span<float> cells) {
    std::size_t filled = 0;
    for (std::size_t at = 0; at < line.size() && filled < cells.size(); at += width_) {
      const std::string_view token = line.substr(at, width_);
      if (all(token, '"')) {
        repeat_follows_ = true;
      } else if (repeat_follows_) {
        repeats_ = number_of(token);
        repeat_follows_ = false;
      } else {
        const std::int64_t number = all(token, '!') ? -1 : number_of(token);
        const float value = number < 0 ? dummy : static_cast<float>(number);
        const std::int64_t room = std::ssize(cells) - static_cast<std::int64_t>(filled);
        const auto count = static_cast<std::size_t>(std::clamp<std::int64_t>(repeats_, 0, room));
        std::ranges::fill(cells.subspan(filled, count), value);
        filled += count;
        repeats_ = 1;
      }
    }
    return filled;
  }

  [[nodiscard]] bool all(std::string_view token, char c) const {
    return token.size() == width_ && token.find_first_not_of(c) == std::string_view::npos;
  }

  static std::int64_t number_of(std::string_view token) {
    constexpr std::int64_t base = 90;
    constexpr int zero = 37;
    constexpr std::int64_t most = std::int64_t{1} << 40;  // far beyond what a code can mean
    std::int64_t number = 0;
    for (const char c : token) {
      number = std::clamp(number * base + (static_cast<unsigned char>(c) - zero), -most, most);
    }
    return number;
  }

  platform::TextReader reader_;
  std::size_t width_;
  bool repeat_follows_ = false;
  std::int64_t repeats_ = 1;
};

// "$$GRID$$": tokens of 6 bits a character, plain or with repeats.
class GridTextCodes final : public LineSource {
 public:
  GridTextCodes(platform::TextReader reader, const grid_description& grid)
      : reader_(std::move(reader)),
        width_(static_cast<std::size_t>(grid.ints.element_code)),
        plain_(grid.ints.data_offset == lines_without_comments),
        reals_(grid.reals) {}

  Status read(std::int32_t number, bool /*wanted*/, std::span<float> cells) override {
    std::size_t filled = 0;
    std::string line;
    last_ = dummy;
    while (filled < cells.size()) {
      if (!reader_.next_line(line, skipped + longest_coded)) {
        return unread(number);
      }
      line.erase(0, skipped);
      const std::span<float> rest = cells.subspan(filled);
      filled += plain_ ? decode_plain(line, rest) : decode_repeats(line, rest);
    }
    return success;
  }

  [[nodiscard]] bool settles() const noexcept override { return true; }

 private:
  static constexpr std::int32_t lines_without_comments = 3;
  static constexpr std::size_t skipped = 4;
  static constexpr std::size_t longest_coded = 124;

  // A line holds as many whole tokens as there is room for; what it lacks is blank.
  std::size_t decode_plain(std::string& line, std::span<float> cells) const {
    const std::size_t count = std::min(longest_coded / width_, cells.size());
    line.resize(count * width_, ' ');
    for (std::size_t i = 0; i < count; ++i) {
      cells[i] = value_of(std::string_view(line).substr(i * width_, width_));
    }
    return count;
  }

  // A count of 1 is a blank: at the end of a line it goes with the blanks that do not count.
  std::size_t decode_repeats(std::string_view line, std::span<float> cells) {
    constexpr int no_repeats = 31;
    line = platform::without_padding(line);
    std::size_t filled = 0;
    for (std::size_t at = 0; at < line.size();) {
      std::size_t count = 1;
      if (line[at] == '~') {
        const int code = at + 1 < line.size() ? static_cast<unsigned char>(line[at + 1]) : ' ';
        count = static_cast<std::size_t>(std::max(code - no_repeats, 0));
        at += 2;
      } else {
        last_ = value_of(line.substr(at, width_));
        at += width_;
      }
      count = std::min(count, cells.size() - filled);
      std::ranges::fill(cells.subspan(filled, count), last_);
      filled += count;
    }
    return filled;
  }

  [[nodiscard]] float value_of(std::string_view token) const {
    constexpr double digits = 64.0;
    constexpr int zero = 58;
    if (token.find_first_not_of('z') == std::string_view::npos) {
      return dummy;
    }
    double code = 0.0;
    for (const char c : token) {
      code = code * digits + (static_cast<unsigned char>(c) - zero);
    }
    return rounded(code / reals_.z_mult + reals_.z_base);
  }

  platform::TextReader reader_;
  std::size_t width_;
  bool plain_;
  const grid_reals& reals_;
  float last_ = dummy;  // what a repeat stands for: the token ahead of it in the row
};

// ZMap: fields of fixed width that run on through the lines of the file, from column to column.
class ZmapFields final : public LineSource {
 public:
  ZmapFields(platform::TextReader reader, const grid_description& grid)
      : reader_(std::move(reader)), grid_(grid) {}

  Status read(std::int32_t /*number*/, bool /*wanted*/, std::span<float> cells) override {
    constexpr float beyond_data = 1.0E20F;
    const double marked = grid_.reals.dummy_value;
    const double tolerance = dummy_tolerance(marked);
    for (float& cell : cells) {
      std::string_view text;
      if (!next_field(text)) {
        return Status{static_cast<std::int32_t>(zmap_line_unread - reader_.line_number() - 1)};
      }
      cell = dummy;
      if (!text.empty()) {
        const auto value = platform::parse_single(text);
        if (!value) {
          return Status{static_cast<std::int32_t>(zmap_line_unread - reader_.line_number())};
        }
        const bool none = std::abs(static_cast<double>(*value) - marked) < tolerance;
        cell = none || *value > beyond_data ? dummy : *value;
      }
    }
    return success;
  }

 private:
  // The next field without its blanks. A blank one ends its line, but for the first of a line,
  // which is a cell without data.
  bool next_field(std::string_view& text) {
    text = field_ < grid_.ints.aux_1 ? field_at(field_) : std::string_view{};
    if (!text.empty()) {
      ++field_;
      return true;
    }
    do {
      if (!reader_.next_line(line_)) {
        return false;
      }
    } while (line_.find_first_not_of(' ') == std::string::npos);
    text = field_at(0);
    field_ = 1;
    return true;
  }

  [[nodiscard]] std::string_view field_at(std::int32_t field) const {
    const grid_ints& ints = grid_.ints;
    const std::int64_t first = std::int64_t{ints.aux_3} - 1 + std::int64_t{field} * ints.aux_2;
    if (first < 0 || first >= std::ssize(line_)) {
      return {};
    }
    return trimmed_text(std::string_view(line_).substr(static_cast<std::size_t>(first),
                                                       static_cast<std::size_t>(ints.aux_2)));
  }

  platform::TextReader reader_;
  const grid_description& grid_;
  std::string line_;
  std::int32_t field_ = 0;  // the next one of the line
};

// Leaves the reader behind the header.
Status pass_header(platform::TextReader& reader, const grid_ints& ints) {
  std::string line;
  if (ints.format_code == format_gxf) {
    while (reader.next_line(line)) {
      if (line.find("#GRID") != std::string::npos) {
        return success;
      }
    }
    return gxf_without_cells;
  }
  for (std::int32_t i = 0; i < ints.data_offset; ++i) {
    if (!reader.next_line(line)) {
      return ints.format_code == format_zmap ? zmap_header_unended : unread(1);
    }
  }
  return ints.format_code == format_zmap && !line.starts_with('@') ? zmap_header_unended : success;
}

// Fields and codes have a width, and the lines of the two formats with one are rows or columns
// alone.
bool is_layout_sound(const grid_ints& ints) {
  switch (ints.format_code) {
    case format_grid_text:
      return ints.element_code >= 1 && !stores_columns(ints.storage_sense);
    case format_zmap:
      return ints.aux_1 >= 1 && ints.aux_2 >= 1 && ints.aux_3 >= 1;
    default:
      return true;
  }
}

}  // namespace

std::unique_ptr<LineSource> open_text_lines(const std::filesystem::path& path,
                                            const grid_description& grid, Status& status) {
  const platform::line_end end = text_ending(ISFILEUNIX(path));
  platform::TextReader reader(path, end);
  status = is_layout_sound(grid.ints) ? pass_header(reader, grid.ints) : conversion_impossible;
  if (status.failed()) {
    return nullptr;
  }
  switch (grid.ints.format_code) {
    case format_grid_text:
      return std::make_unique<GridTextCodes>(std::move(reader), grid);
    case format_zmap:
      return std::make_unique<ZmapFields>(std::move(reader), grid);
    case format_gxf:
      if (grid.ints.element_code > 0) {
        return std::make_unique<GxfCodes>(std::move(reader), grid.ints.element_code);
      }
      break;
    default:
      break;
  }
  return std::make_unique<PlainNumbers>(path, reader, end);
}

}  // namespace velmorankite
