// SPDX-License-Identifier: MIT
#include "merge/definitions.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

#include "formats/companion_file.h"
#include "merge/stitch.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/list_directed.h"
#include "platform/padded_text.h"
#include "platform/text_file.h"

namespace velmorankite {
namespace {

using platform::list_item;
using platform::list_result;
using platform::malformed_line;

constexpr std::size_t longest_name = 256;
constexpr int definitions_lines = 13;

// What a list that leaves a value out leaves behind: no rule lets it pass.
constexpr double no_real = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t no_integer = std::numeric_limits<std::int32_t>::min();

// Reads the 13 lines in order and remembers where in the file each of them stands, since blank
// lines ahead of a number are passed over and a list may go on in the next line.
class DefinitionsReader {
 public:
  explicit DefinitionsReader(const std::filesystem::path& path) : reader_(path) {}

  enum class blank { allowed, refused };
  std::string name(const std::string& meaning, blank rule);
  void title();
  void numbers(const std::string& meaning, std::initializer_list<list_item> items);

  // The stop for what stands in one of the 13 lines.
  [[nodiscard]] platform::IoError fault(int line, const std::string& reason) const {
    return malformed_line(reader_.path(), file_line_.at(static_cast<std::size_t>(line)), reason);
  }

 private:
  [[nodiscard]] platform::IoError ended(const std::string& meaning) const {
    return malformed_line(reader_.path(), reader_.line_number() + 1,
                          meaning + " expected, the file ends (it should have 13 lines)");
  }
  void next(std::int64_t line) { file_line_.at(++line_) = line; }

  platform::TextReader reader_;
  std::size_t line_ = 0;
  std::array<std::int64_t, definitions_lines + 1> file_line_{};
};

void DefinitionsReader::title() {
  std::string line;
  if (!reader_.next_line(line)) {
    throw ended("title");
  }
  next(reader_.line_number());
}

// A line as a whole; blanks at its end say nothing, blanks at its start do.
std::string DefinitionsReader::name(const std::string& meaning, blank rule) {
  std::string line;
  if (!reader_.next_line(line)) {
    throw ended(meaning);
  }
  next(reader_.line_number());
  line.resize(platform::without_padding(line).size());
  if (line.size() > longest_name || (line.empty() && rule == blank::refused)) {
    throw malformed_line(reader_.path(), reader_.line_number(),
                         meaning + " expected, at most 256 characters long, " +
                             std::to_string(line.size()) + " characters found");
  }
  return line;
}

void DefinitionsReader::numbers(const std::string& meaning,
                                std::initializer_list<list_item> items) {
  std::string rejected;
  switch (platform::read_list(reader_, {items.begin(), items.size()}, &rejected)) {
    case list_result::complete:
      next(reader_.line_number());
      return;
    case list_result::end_of_file:
      throw ended(meaning);
    case list_result::malformed:
      break;
  }
  throw malformed_line(reader_.path(), reader_.line_number(),
                       meaning + " expected, \"" + rejected + "\" found");
}

// No input may be lost to a result, and no result to another.
void keep_files_apart(const DefinitionsReader& reader, const std::filesystem::path& definitions,
                      const merge_definitions& d) {
  constexpr int output_line = 5;
  constexpr int report_line = 6;  // from which all other results have their names
  platform::named_files inputs{{definitions, "the definitions file"},
                               {d.stitch_line_file, "the stitch line"}};
  std::ranges::move(files_of_grid(d.grid_1_file, "grid 1"), std::back_inserter(inputs));
  std::ranges::move(files_of_grid(d.grid_2_file, "grid 2"), std::back_inserter(inputs));
  if (const auto clash = platform::find_clash(inputs, results_of(d.stitch))) {
    throw reader.fault(clash->result == 0 ? output_line : report_line, clash->reason);
  }
}

}  // namespace

merge_definitions read_definitions(const std::filesystem::path& path) {
  DefinitionsReader reader(path);
  merge_definitions d;
  stitch_parameters& s = d.stitch;
  s.correction_distance = s.blend_width = s.band_margin = static_cast<float>(no_real);
  s.adjusted_grid = no_integer;
  s.lattice = {no_real, no_real, no_real, no_real, no_integer, no_integer};
  s.lattice_x_max = s.lattice_y_max = no_real;
  std::int32_t reserved = 0;

  using blank = DefinitionsReader::blank;
  reader.title();
  d.grid_1_file = reader.name("path of grid 1", blank::allowed);
  d.grid_2_file = reader.name("path of grid 2", blank::allowed);
  d.stitch_line_file = reader.name("path of the stitch line", blank::refused);
  s.output_path = reader.name("path of the output grid", blank::refused);
  s.report_name = reader.name("name of the reports", blank::allowed);
  reader.numbers("correction_distance, a number,", {&s.correction_distance});
  reader.numbers("adjusted_grid, an integer,", {&s.adjusted_grid});
  reader.numbers("blend_width, a number,", {&s.blend_width});
  reader.numbers("band_margin, a number,", {&s.band_margin});
  reader.numbers("an integer that is not used", {&reserved});
  reader.numbers("lattice_x_min, lattice_x_max, lattice_cell_x and the integer lattice_nx",
                 {&s.lattice.x_min, &s.lattice_x_max, &s.lattice.x_cell, &s.lattice.x_count});
  reader.numbers("lattice_y_min, lattice_y_max, lattice_cell_y and the integer lattice_ny",
                 {&s.lattice.y_min, &s.lattice_y_max, &s.lattice.y_cell, &s.lattice.y_count});

  if (const parameter_check check = check_parameters(s); check.outcome.failed()) {
    throw reader.fault(check.definitions_line, check.outcome.why);
  }
  keep_files_apart(reader, path, d);
  return d;
}

}  // namespace velmorankite
