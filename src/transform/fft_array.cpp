// SPDX-License-Identifier: MIT
#include "transform/fft_array.h"

#include <cassert>
#include <vector>

#include "grid/row_blocks.h"
#include "transform/fourn.h"

namespace velmorankite {
namespace {

// The smallest power of two from 2 that is not below `count`.
std::int64_t power_of_two(std::int64_t count) {
  std::int64_t size = 2;
  while (size < count)
    size *= 2;
  return size;
}

void blank_elements(std::span<float> words, float background) {
  for (std::size_t i = 0; i < words.size(); i += 2) {
    words[i] = background;
    words[i + 1] = 0.0F;
  }
}

// Makes the rows of the array from a padded grid.
class ArrayRows {
 public:
  ArrayRows(const RowFile& padded, const fft_geometry& geometry, float background)
      : padded_(padded),
        geometry_(geometry),
        background_(background),
        cells_(static_cast<std::size_t>(geometry.nxp)) {}

  // Makes row `array_row`, from 0 in the north: 2 x fftnx words.
  void make(std::int32_t array_row, std::span<float> words) {
    const std::int32_t row = geometry_.nyp - (array_row - geometry_.padoffy);
    if (row < 1 || row > geometry_.nyp) {
      blank_elements(words, background_);
      return;
    }
    const std::size_t first = 2 * static_cast<std::size_t>(geometry_.padoffx);
    padded_.read(row, cells_);
    blank_elements(words.first(first), background_);
    float* const inside = words.data() + first;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      inside[2 * i] = cells_[i];
      inside[2 * i + 1] = 0.0F;
    }
    blank_elements(words.subspan(first + 2 * cells_.size()), background_);
  }

 private:
  const RowFile& padded_;
  const fft_geometry& geometry_;
  float background_;
  std::vector<float> cells_;
};

}  // namespace

Status plan_fft(std::int32_t columns, std::int32_t rows, std::int32_t PadWidth,
                fft_geometry& geometry) {
  const std::int64_t pad = 3 * std::int64_t{PadWidth} + 1;
  const std::int64_t nxp = columns + 2 * pad;
  const std::int64_t nyp = rows + 2 * pad;
  constexpr std::int64_t largest = std::int64_t{1} << 29;  // a saved spectrum has twice as many
  if (nxp > largest || nyp > largest) return fft_too_large;
  const std::int64_t fftnx = power_of_two(nxp);
  const std::int64_t fftny = power_of_two(nyp);
  const auto whole = [](std::int64_t value) { return static_cast<std::int32_t>(value); };
  geometry.columns = columns;
  geometry.rows = rows;
  geometry.pad = whole(pad);
  geometry.nxp = whole(nxp);
  geometry.nyp = whole(nyp);
  geometry.fftnx = whole(fftnx);
  geometry.fftny = whole(fftny);
  geometry.padoffx = whole((fftnx - nxp) / 2);
  geometry.padoffy = whole((fftny - nyp) / 2);
  geometry.origx = geometry.pad + geometry.padoffx;
  geometry.origy = geometry.pad + geometry.padoffy;
  return success;
}

void read_window_row(std::span<const float> array, const fft_geometry& geometry, std::int32_t row,
                     std::span<float> cells) {
  const float* const words = array.data() + geometry.padded_row(row);
  for (std::size_t i = 0; i < static_cast<std::size_t>(geometry.nxp); ++i) {
    cells[i] = words[2 * i];
  }
}

void write_window(std::span<const float> array, const fft_geometry& geometry, RowFile& padded) {
  RowBlockWriter rows(padded);
  for (std::int32_t row = 1; row <= geometry.nyp; ++row) {
    read_window_row(array, geometry, row, rows.next_row());
  }
  rows.finish();
}

void transform_padded(const RowFile& padded, const fft_geometry& geometry, float background,
                      std::span<float> array) {
  ArrayRows rows(padded, geometry, background);
  const std::int32_t dimensions[] = {geometry.fftnx, geometry.fftny};
  [[maybe_unused]] const Status status =
      FOURN(array, dimensions, 1, [&rows](std::size_t line, std::span<float> elements) {
        rows.make(static_cast<std::int32_t>(line), elements);
      });
  assert(!status.failed());  // the sizes are powers of two and the array is theirs
}

void transform_array(std::span<float> array, const fft_geometry& geometry, std::int32_t sign) {
  const std::int32_t dimensions[] = {geometry.fftnx, geometry.fftny};
  [[maybe_unused]] const Status status = FOURN(array, dimensions, sign);
  assert(!status.failed());  // the sizes are powers of two and the array is theirs
}

}  // namespace velmorankite
