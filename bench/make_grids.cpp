// Writes the grids and lines of bench/compare: velmorankite_bench_grids FOLDER COUNT, with COUNT
// columns and rows in the output.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "grid/dummy.h"
#include "grid_files.h"
#include "platform/text_file.h"
#include "synthetic.h"

namespace velmorankite::bench {
namespace {

constexpr double cell = 10.0;         // map units
constexpr double reach_cells = 80.0;  // grid 1 ends this far left of the line
constexpr float level_of_grid_2 = 250.0F;

struct GridPlan {
  std::string_view name;
  Lattice lattice;
  float level;
  double hole_share;
  LineShape ends_left_of;  // none: the grid covers its lattice
  std::vector<format> formats;
  bool closed = false;           // no blank touches the edge
  std::int32_t square_hole = 0;  // columns and rows of a hole in the middle
};

Lattice output_lattice(std::int32_t count) {
  return {1000.0, 2000.0, cell, cell, count, count};
}

// Another lattice, with cells `ratio` times as large, that covers the output's.
Lattice covering(const Lattice& output, double ratio) {
  const auto count = static_cast<std::int32_t>(std::ceil(output.x_count / ratio)) + 2;
  const double first = 0.5 * ratio * cell;
  return {output.x_min - first, output.y_min - first, ratio * cell, ratio * cell, count, count};
}

// The blanks of a row of a grid.
void punch(const GridPlan& plan, const Holes& holes, std::int32_t row, std::span<float> values) {
  const float first = values.front();
  const float last = values.back();
  const bool inside = row > 1 && row < plan.lattice.y_count;
  if (inside || !plan.closed) {
    holes.punch(row, values);
  }
  if (plan.closed) {
    values.front() = first;
    values.back() = last;
  }
  const std::int32_t below = (plan.lattice.y_count - plan.square_hole) / 2;
  if (row > below && row <= below + plan.square_hole) {
    const std::int32_t ahead = (plan.lattice.x_count - plan.square_hole) / 2;
    std::fill_n(values.begin() + ahead, plan.square_hole, dummy);
  }
}

void write_grid(const std::filesystem::path& folder, const GridPlan& plan) {
  Random field_seed(20220401);  // one field: all grids show the same ground
  const Field field(field_seed, 25.0 * cell);
  Random hole_seed(static_cast<std::uint32_t>(plan.name.size()));
  const Holes holes(hole_seed, plan.lattice, plan.hole_share);
  std::vector<GridFile> files;
  for (const format kind : plan.formats) {
    files.emplace_back(folder / plan.name, kind, plan.lattice);
  }
  std::vector<float> values(static_cast<std::size_t>(plan.lattice.x_count));
  for (std::int32_t row = 1; row <= plan.lattice.y_count; ++row) {
    field.row(plan.lattice, row, plan.level, values);
    punch(plan, holes, row, values);
    if (plan.ends_left_of) {
      const double end = plan.ends_left_of(plan.lattice.y(row)) - reach_cells * cell;
      const double columns = std::ceil((end - plan.lattice.x_min) / cell);
      const auto blanks = static_cast<std::ptrdiff_t>(std::max(0.0, columns));
      std::fill(values.begin(), values.begin() + blanks, dummy);
    }
    for (GridFile& file : files) {
      file.write(row, values);
    }
  }
}

// A DXF polyline of `vertex_count` vertices from south to north: grid 1 lies in the east.
void write_line(const std::filesystem::path& path, const Lattice& lattice, const LineShape& shape,
                std::int32_t vertex_count) {
  platform::TextWriter text(path);
  for (const char* words : {"0", "SECTION", "2", "ENTITIES", "0", "POLYLINE"}) {
    text.write_line(words);
  }
  const double height = lattice.y(lattice.y_count) - lattice.y_min;
  for (std::int32_t i = 0; i < vertex_count; ++i) {
    const double y = lattice.y_min + height * i / (vertex_count - 1);
    for (const std::string& words :
         {std::string("0"), std::string("VERTEX"), std::string(" 10"), std::to_string(shape(y)),
          std::string(" 20"), std::to_string(y)}) {
      text.write_line(words);
    }
  }
  for (const char* words : {"0", "SEQEND", "0", "ENDSEC", "0", "EOF"}) {
    text.write_line(words);
  }
  text.close();
}

void make_all(const std::filesystem::path& folder, std::int32_t count) {
  const Lattice output = output_lattice(count);
  const std::vector<format> all{format::standard, format::gmt, format::envi};
  const std::vector<format> merged{format::standard, format::gmt};
  const std::vector<GridPlan> plans{
      {"one", output, 0.0F, 0.01, meandering(output), all},
      {"one_diagonal", output, 0.0F, 0.01, diagonal(output), merged},
      {"two", output, level_of_grid_2, 0.01, {}, all},
      {"two_between", covering(output, 1.0), level_of_grid_2, 0.01, {}, merged},
      {"two_coarse", covering(output, 1.7), level_of_grid_2, 0.01, {}, merged},
      {"whole", output, 0.0F, 0.0, {}, all},
      {"blanks", output, 0.0F, 0.30, {}, {format::standard, format::envi}},
      {"closed", output, 0.0F, 0.30, {}, {format::standard, format::envi}, true},
      {"square", output, 0.0F, 0.0, {}, {format::standard}, false, count / 4},
  };
  for (const GridPlan& plan : plans) {
    write_grid(folder, plan);
  }
  write_line(folder / "meander.dxf", output, meandering(output), 200);
  write_line(folder / "meander_50.dxf", output, meandering(output), 50);
  write_line(folder / "meander_5000.dxf", output, meandering(output), 5000);
  write_line(folder / "diagonal.dxf", output, diagonal(output), 200);
}

}  // namespace
}  // namespace velmorankite::bench

int main(int argc, char** argv) try {
  const std::int32_t count = argc == 3 ? std::atoi(argv[2]) : 0;
  if (count < 500) {
    std::cerr << "usage: velmorankite_bench_grids FOLDER COUNT (at least 500)\n";
    return 2;
  }
  velmorankite::bench::make_all(argv[1], count);
  return 0;
} catch (const std::exception& failure) {
  std::cerr << failure.what() << '\n';
  return 2;
}
