// SPDX-License-Identifier: MIT
#include "merge/driver.h"

#include <array>
#include <cstdio>
#include <string>

#include "formats/convert_grid.h"
#include "formats/describe_grid.h"
#include "formats/status_table.h"
#include "grid/cell_position.h"
#include "grid/standard_header.h"
#include "merge/definitions.h"
#include "merge/outcome.h"
#include "merge/stitch.h"
#include "merge/stitch_line.h"
#include "platform/number_edit.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

using platform::fixed_edit;
using platform::integer_edit;

constexpr std::string_view banner[] = {
    "",
    "          ***************************************************",
    "          *                                                 *",
    "          *     Velmorankite - Version 5.01              *",
    "          *                                                 *",
    "          *                                                 *",
    "          *     a program to perform grid stitching         *",
    "          *                                                 *",
    "          *                                                 *",
    "          *                   April,  2022                  *",
    "          *                                                 *",
    "          ***************************************************",
    "",
};

// A line on which a seam can be measured.
constexpr std::size_t least_vertices = 3;

// A grid that the stitch can read, and the scratch file that holds it where it had to be made.
struct prepared_grid {
  input_grid grid;
  platform::ScratchFile converted;
};

std::string about(const std::filesystem::path& path, std::string_view words) {
  std::string text = path.empty() ? "a blank name" : path.string();
  return text.append(": ").append(words);
}

// Puts a standard grid with the cells of `path` in place of `prepared`.
Outcome convert(const std::filesystem::path& path, std::string_view stem, prepared_grid& prepared) {
  const Status status =
      convert_to_scratch(path.string(), stem, prepared.grid.description, prepared.converted);
  if (status.failed()) {
    return {status, about(path, status_words(formats_statuses, "GRDRDG", status,
                                             prepared.grid.description.ints.format_code))};
  }
  prepared.grid.path = prepared.converted.path();
  return {};
}

Outcome read_line(const std::filesystem::path& path, double minimum_distance, stitch_line& line) {
  if (Outcome outcome = RDSTITCHDXF(path, minimum_distance, line); outcome.failed()) {
    return outcome;
  }
  if (line.x.size() < least_vertices) {
    return impossible(about(path, "the stitch line keeps " + std::to_string(line.x.size()) +
                                      " vertices, " + std::to_string(least_vertices) +
                                      " are needed"));
  }
  return {};
}

// One run, step by step. A run stops at the first step that fails, and says why.
class MergeRun {
 public:
  explicit MergeRun(const run_output& output) : output_(output) {}

  void run(std::string_view definitions_path);

 private:
  [[nodiscard]] std::optional<prepared_grid> prepare(int number,
                                                     const std::filesystem::path& path) const;
  Outcome describe(const std::filesystem::path& path, grid_description& grid) const;
  void report(int number, const grid_description& grid) const;
  void stitch(const stitch_parameters& parameters, const input_grid& grid_1,
              const input_grid& grid_2, stitch_line& line) const;
  void summarise(const stitch_summary& summary) const;

  void say(std::string_view line) const { output_.console(line); }
  void remark(std::string_view words) const { output_.remarks(words); }

  const run_output& output_;
};

Outcome MergeRun::describe(const std::filesystem::path& path, grid_description& grid) const {
  grid_texts texts;
  const Status status = GRDRDH(path.string(), grid, texts);
  for (const std::string& advice : texts.advice) {
    remark(about(path, advice));
  }
  if (status.failed()) {
    return {status,
            about(path, status_words(formats_statuses, "GRDRDH", status, grid.ints.format_code))};
  }
  return {};
}

std::optional<prepared_grid> MergeRun::prepare(int number,
                                               const std::filesystem::path& path) const {
  prepared_grid prepared{{path, {}}, {}};
  if (const Outcome described = describe(path, prepared.grid.description); described.failed()) {
    say("Failed to determine the grid file format");
    remark(described.why);
    return std::nullopt;
  }
  if (!is_read_in_place(prepared.grid.description)) {
    const std::string file = "the input grid file " + std::to_string(number);
    say("Convert " + file + " to standard Geosoft");
    const std::string stem = "~grd" + std::to_string(number) + "cnv";
    if (const Outcome converted = convert(path, stem, prepared); converted.failed()) {
      remark(converted.why);
      say("Failed to read " + file);
      return std::nullopt;
    }
  }
  report(number, prepared.grid.description);
  return prepared;
}

void MergeRun::report(int number, const grid_description& grid) const {
  const auto pair = [](double a, double b) { return fixed_edit(a, 18, 6) + fixed_edit(b, 18, 6); };
  const grid_reals& reals = grid.reals;
  say("");
  say("Grid limits " + std::to_string(number) + ":");
  say(pair(reals.x_min, reals.x_max));
  say(pair(reals.y_min, reals.y_max));
  say("");
  say("Grid cell sizes:");
  say(pair(reals.x_cell, reals.y_cell));
  say("");
  say("Grid num cells:");
  say(integer_edit(grid.ints.x_count, 8) + integer_edit(grid.ints.y_count, 8));
}

void MergeRun::stitch(const stitch_parameters& parameters, const input_grid& grid_1,
                      const input_grid& grid_2, stitch_line& line) const {
  stitch_summary summary;
  const Outcome outcome = GRIDSTITCH(parameters, grid_1, grid_2, line, summary);
  if (outcome.failed()) {
    remark("no merged grid: " + outcome.why);
    return;
  }
  summarise(summary);
}

void MergeRun::summarise(const stitch_summary& summary) const {
  const seam_mismatch& m = summary.mismatch;
  std::array<char, 256> text{};
  std::snprintf(text.data(), text.size(),
                "offset %g (grid 1 minus grid 2 on %lld samples), %lld blended cells, residual "
                "along the line %g rms before, %g after",
                static_cast<double>(m.offset), static_cast<long long>(m.sample_count),
                static_cast<long long>(summary.blended_cells), m.rms_before, m.rms_after);
  std::string summed_up = text.data();
  if (summary.corrected) {
    std::snprintf(text.data(), text.size(), " the offset, %g after the correction",
                  m.rms_corrected);
    summed_up += text.data();
  }
  remark(summed_up);
}

void MergeRun::run(std::string_view definitions_path) {
  std::string starting = "Starting Velmorankite with parameters from: ";
  say(starting.append(definitions_path));
  const merge_definitions definitions = read_definitions(definitions_path);
  say("Parameters read correctly");

  const auto grid_1 = prepare(1, definitions.grid_1_file);
  if (!grid_1) {
    return;
  }
  const auto grid_2 = prepare(2, definitions.grid_2_file);
  if (!grid_2) {
    return;
  }
  stitch_line line;
  const double minimum_distance = grid_1->grid.description.reals.x_cell;
  if (const Outcome read = read_line(definitions.stitch_line_file, minimum_distance, line);
      read.failed()) {
    remark(read.why);
    return;
  }
  stitch(definitions.stitch, grid_1->grid, grid_2->grid, line);
  say("");
  say("Completed Velmorankite");
}

}  // namespace

void run_merge(std::optional<std::string_view> definitions, const run_output& output) {
  for (const std::string_view line : banner) {
    output.console(line);
  }
  if (!definitions) {
    output.console("Usage: Velmorankite mergedefs.trs");
    return;
  }
  MergeRun(output).run(platform::without_padding(*definitions));
}

}  // namespace velmorankite
