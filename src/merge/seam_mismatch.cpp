// SPDX-License-Identifier: MIT
#include "merge/seam_mismatch.h"

#include <cmath>
#include <cstddef>

#include "grid/dummy.h"
#include "platform/number_edit.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"
#include "platform/text_file.h"

namespace velmorankite {
namespace {

using platform::fixed_edit;
using platform::integer_edit;

double rms(double sum_of_squares, std::int64_t count) {
  return count > 0 ? std::sqrt(sum_of_squares / static_cast<double>(count)) : 0.0;
}

}  // namespace

std::string report_stem(std::string_view report_name) {
  const std::string_view name = platform::without_padding(report_name);
  return std::string(name.substr(0, name.rfind('.')));
}

std::filesystem::path mismatch_report_path(std::string_view report_name) {
  return report_stem(report_name) + "_mismatch.dat";
}

seam_mismatch measure_mismatch(std::span<const float> grid_1, std::span<float> grid_2) {
  seam_mismatch result;
  float sum = 0.0F;
  double squares_before = 0.0;
  for (std::size_t i = 0; i < grid_1.size(); ++i) {
    if (is_valid(grid_1[i]) && is_valid(grid_2[i])) {
      const float difference = grid_1[i] - grid_2[i];
      sum += difference;
      squares_before += static_cast<double>(difference) * static_cast<double>(difference);
      ++result.sample_count;
    }
  }
  if (result.sample_count > 0) {
    result.offset = sum / static_cast<float>(result.sample_count);
  }
  double squares_after = 0.0;
  for (std::size_t i = 0; i < grid_1.size(); ++i) {
    if (is_valid(grid_1[i]) && is_valid(grid_2[i])) {
      grid_2[i] += result.offset;
      const float residual = grid_1[i] - grid_2[i];
      squares_after += static_cast<double>(residual) * static_cast<double>(residual);
    } else {
      grid_2[i] = dummy;
    }
  }
  result.rms_before = rms(squares_before, result.sample_count);
  result.rms_after = rms(squares_after, result.sample_count);
  result.rms_corrected = result.rms_after;
  return result;
}

void write_mismatch_report(const std::filesystem::path& path, std::span<const double> x,
                           std::span<const double> y, std::span<const float> grid_1,
                           std::span<const float> grid_2) {
  platform::TextWriter report{platform::StagedFile(path)};
  report.write_line("Num,X,Y,grid1,grid2,grid1-grid2");
  std::int64_t number = 0;
  for (std::size_t i = 0; i < grid_1.size(); ++i) {
    if (grid_2[i] == dummy) {
      continue;
    }
    std::string line = integer_edit(++number, 6);
    line += fixed_edit(x[i], 10, 1);
    line += fixed_edit(y[i], 10, 1);
    for (const float value : {grid_1[i], grid_2[i], grid_1[i] - grid_2[i]}) {
      line += fixed_edit(static_cast<double>(value), 12, 4);
    }
    report.write_line(line);
  }
  report.close();
}

}  // namespace velmorankite
