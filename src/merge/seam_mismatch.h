// The mismatch of two grids along the stitch line, and its report.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace velmorankite {

// The name from which the names of the reports are built: without trailing blanks, up to its last
// ".", wherever that stands.
[[nodiscard]] std::string report_stem(std::string_view report_name);

// "<stem>_mismatch.dat".
[[nodiscard]] std::filesystem::path mismatch_report_path(std::string_view report_name);

struct seam_mismatch {
  float offset = 0.0F;            // mean of grid 1 minus grid 2; 0 without a sample
  std::int64_t sample_count = 0;  // samples at which both grids have a value
  double rms_before = 0.0;        // of grid 1 minus grid 2, grid units
  double rms_after = 0.0;         // of the same once the offset is added to grid 2
  double rms_corrected = 0.0;     // once the correction is added too; rms_after without one
};

// Measures the mismatch over the samples at which both grids have a value, in order, with a sum
// in single precision.
//   grid_2  in and out: brought onto the level of grid 1 by the offset; the dummy at a sample at
//           which one of the grids has no value.
seam_mismatch measure_mismatch(std::span<const float> grid_1, std::span<float> grid_2);

// Writes the report: one line a sample at which grid_2, as measure_mismatch leaves it, has a
// value. It appears under its name only when it is complete. Throws IoError.
void write_mismatch_report(const std::filesystem::path& path, std::span<const double> x,
                           std::span<const double> y, std::span<const float> grid_1,
                           std::span<const float> grid_2);

}  // namespace velmorankite
