// SPDX-License-Identifier: MIT
#include "merge/definitions.h"

#include <array>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "formats/companion_file.h"
#include "merge/seam_correction.h"
#include "merge/seam_mismatch.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/list_directed.h"
#include "platform/text_file.h"
#include "transform/run_names.h"

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
  line.erase(line.find_last_not_of(' ') + 1);
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
  struct named_file {
    int line;
    std::string_view meaning;
    std::filesystem::path path;
  };
  const named_file inputs[] = {{0, "the definitions file", definitions},
                               {2, "grid 1", d.grid_1_file},
                               {2, "a file of grid 1", companion_file(d.grid_1_file)},
                               {3, "grid 2", d.grid_2_file},
                               {3, "a file of grid 2", companion_file(d.grid_2_file)},
                               {4, "the stitch line", d.stitch_line_file}};
  std::vector<named_file> results = {
      {5, "the output grid", d.stitch.output_path},
      {6, "the mismatch report", mismatch_report_path(d.stitch.report_name)}};
  if (d.stitch.correction_distance > 0.0F) {
    const std::filesystem::path correction = correction_grid_path(d.stitch.report_name);
    transform_request continuation;
    continuation.out_grid = correction.string();
    const run_names names = name_run(continuation);
    results.push_back({6, "the correction grid", correction});
    results.push_back({6, "the log of the correction", names.log});
  }
  const auto keep_apart = [&reader](const named_file& result, const named_file& other) {
    if (platform::same_place(result.path, other.path)) {
      std::string reason(result.meaning);
      reason.append(" would replace ").append(other.meaning).append(" (");
      reason.append(result.path.string()).append("), a name of its own is expected");
      throw reader.fault(result.line, reason);
    }
  };
  for (std::size_t i = 0; i < results.size(); ++i) {
    for (const named_file& input : inputs) {
      keep_apart(results[i], input);
    }
    for (std::size_t earlier = 0; earlier < i; ++earlier) {
      keep_apart(results[i], results[earlier]);
    }
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

  if (const auto fault = find_fault(s)) {
    throw reader.fault(fault->definitions_line, fault->text);
  }
  keep_files_apart(reader, path, d);
  return d;
}

}  // namespace velmorankite
