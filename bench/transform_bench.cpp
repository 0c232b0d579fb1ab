// The transform, beside FFTW where that is installed, and what the roads do round it.
// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/binary_file.h"
#include "platform/large_array.h"
#include "transform/convolution.h"
#include "transform/fft_response.h"
#include "transform/fourn.h"
#include "transform/trs_filter.h"

#ifdef VELMORANKITE_FFTW
#include <fftw3.h>
#endif

namespace velmorankite {
namespace {

void fill_with_noise(std::span<float> words) {
  std::uint32_t seed = 1;
  for (float& word : words) {
    seed = seed * 1664525U + 1013904223U;
    word = static_cast<float>(seed >> 8) * 0x1p-24F - 0.5F;
  }
}

platform::LargeArray<float> noise(std::int64_t side) {
  platform::LargeArray<float> array(static_cast<std::size_t>(2 * side * side));
  fill_with_noise(array.span());
  return array;
}

// Argument: columns and rows. Forward and inverse, so that values stay in range.
void fourn_forward_and_inverse(benchmark::State& state) {
  platform::LargeArray<float> array = noise(state.range(0));
  const auto side = static_cast<std::int32_t>(state.range(0));
  const std::int32_t dimensions[] = {side, side};
  const float share = 1.0F / static_cast<float>(state.range(0) * state.range(0));
  for ([[maybe_unused]] auto step : state) {
    if (FOURN(array.span(), dimensions, 1).failed() ||
        FOURN(array.span(), dimensions, -1).failed()) {
      state.SkipWithError("refused");
      break;
    }
    state.PauseTiming();
    for (float& word : array)
      word *= share;
    state.ResumeTiming();
  }
}
BENCHMARK(fourn_forward_and_inverse)
    ->ArgName("side")
    ->Arg(512)
    ->Arg(4096)
    ->Unit(benchmark::kMillisecond);

#ifdef VELMORANKITE_FFTW
// The same array and the same work; the planning, by measurement, is not counted.
void fftw_forward_and_inverse(benchmark::State& state) {
  platform::LargeArray<float> array = noise(state.range(0));
  const auto side = static_cast<int>(state.range(0));
  auto* const data = reinterpret_cast<fftwf_complex*>(array.data());
  fftwf_plan forward = fftwf_plan_dft_2d(side, side, data, data, FFTW_FORWARD, FFTW_MEASURE);
  fftwf_plan inverse = fftwf_plan_dft_2d(side, side, data, data, FFTW_BACKWARD, FFTW_MEASURE);
  fill_with_noise(array.span());
  const float share = 1.0F / static_cast<float>(state.range(0) * state.range(0));
  for ([[maybe_unused]] auto step : state) {
    fftwf_execute(forward);
    fftwf_execute(inverse);
    state.PauseTiming();
    for (float& word : array)
      word *= share;
    state.ResumeTiming();
  }
  fftwf_destroy_plan(forward);
  fftwf_destroy_plan(inverse);
}
BENCHMARK(fftw_forward_and_inverse)
    ->ArgName("side")
    ->Arg(512)
    ->Arg(4096)
    ->Unit(benchmark::kMillisecond);
#endif

// Argument: filter. A response on 4096 x 4096 elements; to be held against half of the pair above.
void response_of_filter(benchmark::State& state) {
  constexpr std::int32_t side = 4096;
  platform::LargeArray<float> array = noise(side);
  const auto filter = static_cast<std::int32_t>(state.range(0));
  // Orders of 1.5 where a filter has an order, a block of 25 degrees with a taper of 10, distances
  // of a few cells, an inclination of 60.
  const bool order = filter == 102 || filter == 111 || filter >= 204;
  const float par_2 = filter >= 200 ? 60.0F : 10.0F;
  const std::array<std::int32_t, integer_parameters> integers{3};
  const std::array<float, real_parameters> reals{order ? 1.5F : 25.0F, par_2, 20.0F, 60.0F};
  filter_parameters parameters;
  if (TRSFLT(filter, 5, 2, 1, 0.5F, 0.2F, 30.0F, integers, reals, 10.0, 10.0, parameters,
             [](std::string_view) {})
          .failed()) {
    state.SkipWithError("refused");
  }
  PowerSpectrum power;
  for ([[maybe_unused]] auto step : state) {
    fftrsp(false, {side, side}, filter, parameters, array.span(), power);
    state.PauseTiming();
    fill_with_noise(array.span());
    state.ResumeTiming();
  }
}
BENCHMARK(response_of_filter)
    ->ArgName("filter")
    ->DenseRange(100, 105)
    ->Arg(111)
    ->DenseRange(115, 117)
    ->DenseRange(201, 203)
    ->Arg(204)
    ->Arg(210)
    ->Unit(benchmark::kMillisecond);

// Arguments: half width, whether the operator is symmetric. On a grid of 1000 x 1000 cells.
void operator_over_grid(benchmark::State& state) {
  constexpr std::int32_t side = 1000;
  const auto w = static_cast<std::int32_t>(state.range(0));
  const std::int32_t n = 2 * w - 1;
  const std::vector<float> weights(static_cast<std::size_t>(n * n), 0.001F);
  std::vector<float> cells(std::size_t{side} * side);
  fill_with_noise(cells);
  const RowLayout layout{sense_bottom_up, side, side};
  RowFile input(platform::BinaryFile::anonymous(), layout);
  RowFile output(platform::BinaryFile::anonymous(), layout);
  input.file().write_values(513, std::span<const float>(cells));
  filter_parameters parameters;
  parameters.FilterNo = 101;
  for ([[maybe_unused]] auto step : state) {
    if (state.range(1) == 1) {
      WTCONVS(weights, w, parameters, {input, output});
    } else {
      WTCONVA(weights, n, {input, output});
    }
  }
}
BENCHMARK(operator_over_grid)
    ->ArgNames({"half_width", "symmetric"})
    ->ArgsProduct({{5, 11}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmorankite
