// SPDX-License-Identifier: MIT
#include "transform/power_spectrum.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>

#include "platform/padded_text.h"
#include "platform/text_file.h"

namespace velmorankite {
namespace {

constexpr std::size_t written_bins = power_bins - 1;

using bins = std::array<double, power_bins>;

// Means, each mixed with its neighbours. Neither the mean of the grid, in the first bin, nor the
// last bin takes part.
bins smoothed_means(const bins& sums, const std::array<std::int64_t, power_bins>& count) {
  bins means{};
  for (std::size_t k = 1; k < written_bins; ++k) {
    means[k] = count[k] > 0 ? sums[k] / static_cast<double>(count[k]) : 0.0;
  }
  bins smooth{};
  for (std::size_t k = 1; k < written_bins; ++k) {
    smooth[k] = 0.25 * (means[k - 1] + means[k + 1]) + 0.5 * means[k];
  }
  return smooth;
}

std::string field(double value) {
  constexpr std::size_t width = 12;
  char text[32] = {};
  const std::to_chars_result end =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, 6);
  const std::string digits(text, end.ptr);
  return std::string(width - std::min(width, digits.size()), ' ').append(digits);
}

}  // namespace

std::filesystem::path power_file_name(std::string_view stem, const filter_parameters& parameters) {
  if (platform::without_padding(stem).empty()) {
    return "power_fft.dat";
  }
  std::string name(stem);
  name.append("_").append(parameters.ShortName).append(".dat");
  return name;
}

void write_power_file(const std::filesystem::path& path, const PowerSpectrum& power, double CellX) {
  const bins input = smoothed_means(power.input, power.count);
  const bins output = smoothed_means(power.output, power.count);
  platform::TextWriter file(path);
  file.write_line("Radius      Power       Transformed");
  for (std::size_t k = 0; k < written_bins; ++k) {
    file.write_line(field(static_cast<double>(k) * CellX) + field(input[k]) + field(output[k]));
  }
  file.close();
}

}  // namespace velmorankite
