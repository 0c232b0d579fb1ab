// Runs one library routine from file to file, for bench/compare:
// velmorankite_bench_routine NAME ARGUMENT...
// SPDX-License-Identifier: MIT
#include <cmath>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "condition/hole_filling.h"
#include "formats/convert_grid.h"
#include "formats/describe_grid.h"
#include "grid/cell_interpolation.h"
#include "grid/grid_rows.h"
#include "grid/row_blocks.h"
#include "platform/binary_file.h"
#include "platform/large_array.h"
#include "transform/filter_index.h"
#include "transform/transform_driver.h"
#include "utilities/bicubic.h"
#include "utilities/flip.h"
#include "utilities/point_values.h"
#include "utilities/rotation.h"
#include "utilities/trim.h"

namespace velmorankite::bench {
namespace {

using Arguments = std::span<const std::string>;

grid_description describe(const std::string& path) {
  grid_description grid;
  grid_texts texts;
  if (GRDRDH(path, grid, texts).code < 0) {
    throw std::runtime_error(path + ": not a grid");
  }
  return grid;
}

void require(Status status, const char* routine) {
  if (status.code < 0) {
    throw std::runtime_error(std::string(routine) + " failed: " + std::to_string(status.code));
  }
}

// Writes a grid on a lattice, a row a call: values_at(x, y, values).
template <typename ValuesAt>
void write_on_lattice(const Lattice& lattice, const std::string& path, const ValuesAt& values_at) {
  RowFile out(platform::BinaryFile(path, platform::open_mode::create),
              {sense_bottom_up, lattice.x_count, lattice.y_count});
  OUTPUT_GEOSOFT_HEADER(out.file(), float_grid_header(lattice));
  RowBlockWriter rows(out);
  const std::vector<double> x = x_of_columns(lattice);
  std::vector<double> y(x.size());
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    std::fill(y.begin(), y.end(), lattice.y(row));
    values_at(x, y, rows.next_row());
  }
  rows.finish();
  out.close();
}

// IN ON OUT: the grid IN on the lattice of the grid ON, a row a call, as a stitch does it.
void sample(Arguments arguments) {
  const grid_description grid = describe(arguments[0]);
  const Lattice lattice = lattice_of(describe(arguments[1]));
  write_on_lattice(lattice, arguments[2], [&](const auto& x, const auto& y, auto values) {
    std::int32_t mode = 1;
    require(GEO_CELL_INTERPOLATION(0, arguments[0], grid, {}, mode, lattice.x_count, x, y, values),
            "GEO_CELL_INTERPOLATION");
  });
}

// All cells of a grid, as they lie in its file.
platform::LargeArray<float> cells_of(const std::string& path, const grid_description& grid) {
  const RowFile rows = open_rows(path, grid);
  platform::LargeArray<float> cells(static_cast<std::size_t>(lattice_of(grid).cell_count()));
  rows.file().read_values(grid.ints.data_offset + 1, cells.span());
  return cells;
}

// IN ON OUT: the same by the biquadratic of a grid in memory.
void evaluate(Arguments arguments) {
  const grid_description grid = describe(arguments[0]);
  const Lattice lattice = lattice_of(describe(arguments[1]));
  const platform::LargeArray<float> cells = cells_of(arguments[0], grid);
  write_on_lattice(lattice, arguments[2], [&](const auto& x, const auto& y, auto values) {
    require(GRDVALD(1, {}, grid, cells.span(), lattice.x_count, x, y, values), "GRDVALD");
  });
}

// IN ON OUT: the same by the bicubic of a grid in memory.
void bicubic(Arguments arguments) {
  const grid_description grid = describe(arguments[0]);
  const Lattice lattice = lattice_of(describe(arguments[1]));
  const platform::LargeArray<float> cells = cells_of(arguments[0], grid);
  write_on_lattice(lattice, arguments[2], [&](const auto& x, const auto& y, auto values) {
    require(BICUBIC_GRID_INTERPOLATION(cells.span(), grid, grid.ints.x_count, grid.ints.y_count,
                                       lattice.x_count, x, y, values),
            "BICUBIC_GRID_INTERPOLATION");
  });
}

// IN OUT: the blanks of a grid filled, on the road of a flag of GRID_FILL.
template <std::int32_t road>
void fill(Arguments arguments) {
  float minimum = 0.0F;
  float maximum = 0.0F;
  std::int64_t filled_count = 0;
  require(GRID_FILL(arguments[0], arguments[1], road, 0, minimum, maximum, filled_count),
          "GRID_FILL");
}

// IN DISTANCE OUT: a grid upwards by a distance in map units, by the FFT in memory.
void continue_upwards(Arguments arguments) {
  constexpr std::int32_t width = 11;  // a margin of 34 cells
  transform_request request;
  request.in_grid = arguments[0];
  request.grid = describe(arguments[0]);
  request.out_grid = arguments[2];
  request.filter = filter_continuation;
  request.pad_width = width;
  request.filter_width = width;
  request.detrend = detrend_keeps_plane;
  request.fft_mode = fft_mode_memory;
  request.real_par = {std::stof(arguments[1])};
  transform_range range;
  require(TRSD(request, range), "TRSD");
}

// IN OUT: any grid as a standard grid.
void convert(Arguments arguments) {
  grid_description grid = describe(arguments[0]);
  grid_window whole;
  require(GRDRDG(arguments[0], arguments[1], grid, whole), "GRDRDG");
}

// The lattice of a grid turned about its middle.
rotation_request turned(Arguments arguments) {
  rotation_request request;
  request.input = arguments[0];
  request.output = arguments[2];
  request.in = request.out = lattice_of(describe(arguments[0]));
  request.angle = std::stof(arguments[1]);
  const grid_reals reals = describe(arguments[0]).reals;
  request.x_pivot_in = request.x_pivot_out = (reals.x_min + reals.x_max) / 2.0;
  request.y_pivot_in = request.y_pivot_out = (reals.y_min + reals.y_max) / 2.0;
  return request;
}

// IN DEGREES OUT: a grid rotated by the cubic.
void rotate(Arguments arguments) {
  require(GEOROTD(turned(arguments), 1), "GEOROTD");
}

// IN DEGREES OUT: the same by the bilinear form.
void rotate_bilinear(Arguments arguments) {
  require(GEOROT(turned(arguments)), "GEOROT");
}

// IN OUT: without the outer blanks.
void trim(Arguments arguments) {
  require(GEOTRIM(arguments[0], arguments[1]), "GEOTRIM");
}

// IN OUT: a quarter turn.
void flip(Arguments arguments) {
  require(GEOFLIP(arguments[0], arguments[1]), "GEOFLIP");
}

struct Routine {
  std::string_view name;
  std::size_t argument_count;
  void (*run)(Arguments);
};

constexpr Routine routines[] = {
    {"bicubic", 3, bicubic}, {"continue", 3, continue_upwards},
    {"convert", 2, convert}, {"evaluate", 3, evaluate},
    {"fill", 2, fill<1>},    {"flip", 2, flip},
    {"rotate", 3, rotate},   {"rotate_bilinear", 3, rotate_bilinear},
    {"sample", 3, sample},   {"sweep", 2, fill<0>},
    {"trim", 2, trim},
};

int run(Arguments arguments) {
  for (const Routine& routine : routines) {
    if (!arguments.empty() && arguments[0] == routine.name &&
        arguments.size() == routine.argument_count + 1) {
      routine.run(arguments.subspan(1));
      return 0;
    }
  }
  std::cerr << "no such routine, or not its arguments\n";
  return 2;
}

}  // namespace
}  // namespace velmorankite::bench

int main(int argc, char** argv) try {
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  return velmorankite::bench::run(arguments);
} catch (const std::exception& failure) {
  std::cerr << failure.what() << '\n';
  return 2;
}
