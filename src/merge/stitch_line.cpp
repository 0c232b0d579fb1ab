// SPDX-License-Identifier: MIT
#include "merge/stitch_line.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/io_error.h"
#include "platform/list_directed.h"
#include "platform/number_text.h"
#include "platform/text_file.h"

namespace velmorankite {
namespace {

using platform::IoError;
using platform::list_item;
using platform::list_result;
using platform::malformed_line;

constexpr std::size_t code_characters = 16;  // kept of a group code line
constexpr std::size_t value_characters = 256;

// The groups of a DXF file: a line with a code, then a line with a value. A read that fails ends
// the file and is remembered.
class GroupReader {
 public:
  explicit GroupReader(const std::filesystem::path& path) : reader_(path) {}

  // Passes over single lines up to one that begins with `word`.
  [[nodiscard]] bool skip_to(std::string_view word);
  [[nodiscard]] bool next() {
    return next_line(code_, code_characters) && next_line(value_, value_characters);
  }

  // Whether the code line is that of a coordinate: two digits and a blank, or a blank ahead of
  // them, count only in its first three characters.
  [[nodiscard]] bool code_is(std::string_view digits) const;
  [[nodiscard]] bool code_begins(std::string_view text) const { return code_.starts_with(text); }
  [[nodiscard]] bool value_begins(std::string_view word) const { return value_.starts_with(word); }

  [[nodiscard]] double coordinate(std::string_view name) const;
  [[nodiscard]] std::int32_t flags() const;
  [[nodiscard]] IoError fault(const std::string& reason) const {
    return malformed_line(reader_.path(), reader_.line_number(), reason);
  }
  // What the system said of a read that failed; empty if none did.
  [[nodiscard]] const std::string& failure() const noexcept { return failure_; }

 private:
  [[nodiscard]] bool next_line(std::string& line, std::size_t keep);

  platform::TextReader reader_;
  std::string code_;
  std::string value_;
  std::string failure_;
};

bool GroupReader::next_line(std::string& line, std::size_t keep) {
  try {
    return reader_.next_line(line, keep);
  } catch (const IoError& error) {
    failure_ = error.what();
    return false;
  }
}

bool GroupReader::skip_to(std::string_view word) {
  while (next_line(value_, value_characters)) {
    if (value_begins(word)) {
      return true;
    }
  }
  return false;
}

bool GroupReader::code_is(std::string_view digits) const {
  const std::string_view code(code_);
  return (code.starts_with(digits) && (code.size() == 2 || code[2] == ' ')) ||
         (code.starts_with(' ') && code.substr(1).starts_with(digits));
}

double GroupReader::coordinate(std::string_view name) const {
  double value = std::numeric_limits<double>::quiet_NaN();
  const std::array<list_item, 1> items = {&value};
  if (platform::read_list(value_, items) != list_result::complete || !std::isfinite(value)) {
    std::string reason("a number expected for the ");
    throw fault(reason.append(name).append(" of a vertex, \"").append(value_).append("\" found"));
  }
  return value;
}

std::int32_t GroupReader::flags() const {
  constexpr std::int32_t none = std::numeric_limits<std::int32_t>::min();
  std::int32_t value = none;
  const std::array<list_item, 1> items = {&value};
  if (platform::read_list(value_, items) != list_result::complete || value == none) {
    throw fault("an integer expected for the flags of group 70, \"" + value_ + "\" found");
  }
  return value;
}

struct vertex {
  double x;
  double y;
};

double distance(const vertex& a, const vertex& b) {
  const double dx = a.x - b.x;
  const double dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

// Reads the groups up to the first vertex, watching for the flag of a closed polyline.
bool skip_to_vertices(GroupReader& groups, bool& closed) {
  while (groups.next()) {
    if (groups.value_begins("VERTEX")) {
      return true;
    }
    if (groups.code_begins("70") && groups.flags() % 2 != 0) {
      closed = true;
    }
  }
  return false;
}

// What was read of a polyline, kept or not.
struct vertices_read {
  std::size_t count = 0;
  std::optional<vertex> last;
};

// Reads the vertices up to the end of the polyline, or of the file, and keeps in `line` those
// that lie far enough from the vertex before them.
vertices_read read_vertices(GroupReader& groups, double minimum_distance, stitch_line& line) {
  std::size_t count = 0;
  std::optional<vertex> last;
  bool half_read = false;  // a vertex whose Y has not come yet
  double x = 0.0;
  while (groups.next() && !groups.value_begins("SEQEND")) {
    if (groups.code_is("10")) {
      if (half_read) {
        throw groups.fault("group 20, the Y of the vertex, expected ahead of the next group 10");
      }
      x = groups.coordinate("X");
      half_read = true;
    } else if (groups.code_is("20")) {
      if (!half_read) {
        throw groups.fault("group 10, the X of the vertex, expected ahead of group 20");
      }
      const vertex read{x, groups.coordinate("Y")};
      if (!last || !(distance(read, *last) < minimum_distance)) {
        line.x.push_back(read.x);
        line.y.push_back(read.y);
      }
      last = read;
      ++count;
      half_read = false;
    }
  }
  if (half_read && groups.value_begins("SEQEND")) {
    throw groups.fault("group 20, the Y of the vertex, expected ahead of SEQEND");
  }
  return {count, last};
}

std::string too_few(const vertices_read& vertices, double minimum_distance) {
  if (vertices.count == 0) {
    return "no VERTEX has its X in group 10 and its Y in group 20";
  }
  if (vertices.count == 1) {
    return "a stitch line needs 2 vertices, 1 is there";
  }
  return "a stitch line needs 2 vertices, 1 is left without those nearer than " +
         platform::shortest(minimum_distance) + " to the one before them";
}

}  // namespace

Outcome RDSTITCHDXF(const std::filesystem::path& path, double minimum_distance, stitch_line& line) {
  GroupReader groups(path);
  stitch_line kept;
  bool closed = false;
  vertices_read vertices;
  std::string missing;
  if (!groups.skip_to("ENTITIES")) {
    missing = "no line that begins with the word ENTITIES";
  } else if (!skip_to_vertices(groups, closed)) {
    missing = "no POLYLINE with VERTEX records behind the word ENTITIES";
  } else {
    vertices = read_vertices(groups, minimum_distance, kept);
    missing = kept.x.size() < 2 ? too_few(vertices, minimum_distance) : "";
  }
  if (!groups.failure().empty()) {
    return {stitch_line_unusable, groups.failure()};
  }
  if (!missing.empty()) {
    return {stitch_line_unusable, path.string() + ": " + missing};
  }
  const vertex first{kept.x.front(), kept.y.front()};
  if (closed && distance(*vertices.last, first) > minimum_distance) {
    kept.x.push_back(first.x);
    kept.y.push_back(first.y);
  }
  line = std::move(kept);
  return {};
}

}  // namespace velmorankite
