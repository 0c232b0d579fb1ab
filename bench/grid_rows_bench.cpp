// Writing and reading the rows of a standard grid.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "grid/grid_rows.h"
#include "platform/binary_file.h"

namespace velmorankite {
namespace {

constexpr std::int32_t row_count = 1000;

// A square grid's worth of rows in an anonymous file, so that nothing is left behind.
struct AnonymousRows {
  explicit AnonymousRows(std::int32_t x_count)
      : cells(static_cast<std::size_t>(x_count), 1.0F),
        file(platform::BinaryFile::anonymous(), {sense_bottom_up, x_count, row_count}) {
    write_all();
  }

  void write_all() {
    for (std::int32_t row = 1; row <= row_count; ++row) {
      file.write(row, cells);
    }
  }

  std::vector<float> cells;
  RowFile file;
};

void count_bytes(benchmark::State& state, const AnonymousRows& rows) {
  state.SetBytesProcessed(state.iterations() * row_count *
                          static_cast<std::int64_t>(rows.cells.size() * sizeof(float)));
}

void write_rows(benchmark::State& state) {
  AnonymousRows rows(static_cast<std::int32_t>(state.range(0)));
  for ([[maybe_unused]] auto step : state) {
    rows.write_all();
  }
  count_bytes(state, rows);
}
BENCHMARK(write_rows)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

void read_rows(benchmark::State& state) {
  AnonymousRows rows(static_cast<std::int32_t>(state.range(0)));
  for ([[maybe_unused]] auto step : state) {
    for (std::int32_t row = 1; row <= row_count; ++row) {
      rows.file.read(row, rows.cells);
      benchmark::DoNotOptimize(rows.cells.data());
    }
  }
  count_bytes(state, rows);
}
BENCHMARK(read_rows)->Arg(1000)->Arg(4000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmorankite
