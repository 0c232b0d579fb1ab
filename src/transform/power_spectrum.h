// Radial power spectrum of a transform, before and after its response.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "transform/filter_parameters.h"

namespace velmorankite {

inline constexpr std::int32_t power_bins = 256;  // from zero frequency to 0.5 cycles per cell

// Sums over the elements of a spectrum, by their distance from zero frequency.
struct PowerSpectrum {
  std::array<double, power_bins> input{};   // re^2 + im^2 ahead of the response
  std::array<double, power_bins> output{};  // and behind it
  // Two for every element: both powers come out at half the mean of their bin.
  std::array<std::int64_t, power_bins> count{};

  void clear() { *this = {}; }
};

// stem + "_" + the short name + ".dat"; "power_fft.dat" with a blank stem.
[[nodiscard]] std::filesystem::path power_file_name(std::string_view stem,
                                                    const filter_parameters& parameters);

// Writes the file: a header line, then for 255 bins the bin number times the cell size along X and
// both powers, smoothed with weights 1/4, 1/2, 1/4, in fields of 12 characters. The mean of the
// grid, in bin 0, is left out. Throws IoError.
void write_power_file(const std::filesystem::path& path, const PowerSpectrum& power, double CellX);

}  // namespace velmorankite
