// Putting a grid on another lattice, row by row. Times are for all rows; items are points.
// SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/standard_header.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

constexpr std::int32_t side = 2000;  // cells of the grid along each axis, of size 1

struct target {
  double origin, cell;
  std::int32_t side;
};
constexpr target targets[] = {
    {0.0, 1.0, side},           // on the cells
    {0.3, 1.0, side - 1},       // between them
    {0.2, 1.0 / 1.7, side},     // finer
    {0.2, 2.1, side / 21 * 10}  // coarser
};

// A smooth surface, `hole_percent` of its cells punched out, in memory and on disk.
struct SourceGrid {
  explicit SourceGrid(std::int64_t hole_percent)
      : scratch(std::filesystem::temp_directory_path() / "~cell_interpolation_bench.grd") {
    std::mt19937 generator(1);
    for (std::int32_t row = 0; row < side; ++row) {
      for (std::int32_t column = 0; column < side; ++column) {
        const bool hole = generator() % 100 < static_cast<std::uint32_t>(hole_percent);
        const double value = 100.0 * std::sin(column / 37.0) * std::cos(row / 29.0);
        cells.push_back(hole ? dummy : static_cast<float>(value));
      }
    }
    platform::BinaryFile file(scratch.path(), platform::open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, float_grid_header({0.0, 0.0, 1.0, 1.0, side, side}));
    file.write_values(standard_header_bytes + 1, std::span<const float>(cells));
    description.ints.data_offset = standard_header_bytes;
    description.ints.element_code = 4;
    description.ints.element_kind = kind_float;
    description.ints.storage_sense = sense_bottom_up;
    description.ints.x_count = description.ints.y_count = side;
    description.reals.x_cell = description.reals.y_cell = 1.0;
    description.reals.x_max = description.reals.y_max = side - 1.0;
  }

  platform::ScratchFile scratch;
  std::vector<float> cells;
  grid_description description;
};

// Takes `sample(x, y, values)` along the rows of a target.
template <typename Sampler>
void walk(benchmark::State& state, const target& lattice, const Sampler& sample) {
  std::vector<double> x;
  x.reserve(static_cast<std::size_t>(lattice.side));
  for (std::int32_t column = 0; column < lattice.side; ++column) {
    x.push_back(lattice.origin + column * lattice.cell);
  }
  std::vector<float> values(x.size());
  for (std::int32_t row = 0; row < lattice.side; ++row) {
    sample(x, lattice.origin + row * lattice.cell, values);
    benchmark::DoNotOptimize(values.data());
  }
  state.SetItemsProcessed(state.items_processed() + std::int64_t{lattice.side} * lattice.side);
}

void every_target(benchmark::internal::Benchmark* bench) {
  bench->ArgNames({"target", "holes_percent"})->Unit(benchmark::kMillisecond);
  for (std::int64_t i = 0; i < static_cast<std::int64_t>(std::size(targets)); ++i) {
    bench->Args({i, 0});
  }
  bench->Args({1, 30});
}

void rows_from_file(benchmark::State& state) {
  const SourceGrid grid(state.range(1));
  for ([[maybe_unused]] auto step : state) {
    CellInterpolator cells(grid.scratch.path(), grid.description);
    walk(state, targets[state.range(0)],
         [&](const auto& x, double y, auto& values) { cells.row(x, y, values); });
  }
}
BENCHMARK(rows_from_file)->Apply(every_target);

void rows_from_memory(benchmark::State& state) {
  const SourceGrid grid(state.range(1));
  for ([[maybe_unused]] auto step : state) {
    CellInterpolator cells(std::span<const float>(grid.cells), grid.description);
    walk(state, targets[state.range(0)],
         [&](const auto& x, double y, auto& values) { cells.row(x, y, values); });
  }
}
BENCHMARK(rows_from_memory)->Apply(every_target);

void a_call_for_each_row(benchmark::State& state) {
  const SourceGrid grid(state.range(1));
  const std::string path = grid.scratch.path().string();
  std::vector<double> row_y;
  for ([[maybe_unused]] auto step : state) {
    walk(state, targets[state.range(0)], [&](const auto& x, double y, auto& values) {
      row_y.assign(x.size(), y);
      std::int32_t mode = 1;
      const auto count = static_cast<std::int32_t>(x.size());
      if (GEO_CELL_INTERPOLATION(0, path, grid.description, {}, mode, count, x, row_y, values)
              .failed()) {
        state.SkipWithError("the call failed");
      }
    });
  }
}
BENCHMARK(a_call_for_each_row)->Apply(every_target);

}  // namespace
}  // namespace velmorankite
