// SPDX-License-Identifier: MIT
#include "utilities/drape.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <vector>

#include "platform/padded_text.h"
#include "utilities/bilinear.h"
#include "utilities/cubic_spline.h"
#include "utilities/resampling.h"

namespace velmorankite {
namespace {

bool is_profile(std::span<const double> x, std::span<const double> y) noexcept {
  const auto finite = [](double at) { return std::isfinite(at); };
  return x.size() >= 2 && y.size() == x.size() && std::ranges::all_of(x, finite) &&
         std::ranges::all_of(y, finite) &&
         std::ranges::adjacent_find(x, std::greater_equal<>()) == x.end();
}

// The height of the profile at each column of the output, in single precision.
std::vector<float> heights(const drape_request& request) {
  std::vector<cubic_node> nodes(request.profile_x.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    nodes[i].value = request.profile_y[i];
  }
  CUBSPL(request.profile_x, nodes, boundary_not_a_knot, boundary_not_a_knot);
  std::vector<float> result(static_cast<std::size_t>(request.out.x_count));
  std::int32_t position = 1;
  for (std::size_t c = 0; c < result.size(); ++c) {
    const double x = static_cast<double>(c) * request.out.x_cell + request.out.x_min;
    result[c] = static_cast<float>(CUBVAL(request.profile_x, nodes, x, position));
  }
  return result;
}

standard_header output_header(const drape_request& request, const standard_header& source) {
  standard_header header = source;
  header.storage_sense = request.sense_out;
  header.elements_per_row = request.out.x_count;
  header.row_count = request.out.y_count;
  header.x_origin = request.out.x_min;
  header.y_origin = request.out.y_min;
  header.element_spacing = request.out.x_cell;
  header.row_spacing = request.out.y_cell;
  return header;
}

}  // namespace

Status GEODRAPE(const drape_request& request) {
  const std::string_view input = platform::without_tail(request.input);
  if (input.empty() || platform::without_tail(request.output).empty()) {
    return resampling_header_unsound;
  }
  source_grid source;
  if (const Status status = open_source(input, source); status.failed()) {
    return status;
  }
  if (!is_profile(request.profile_x, request.profile_y)) {
    return resampling_profile_unsound;
  }
  if (!std::isfinite(request.x_shift) || !std::isfinite(request.y_shift)) {
    return resampling_numbers_unsound;
  }
  resampling work;
  work.header = output_header(request, source.header);
  if (!is_sound_result(work.header)) {
    return resampling_output_unsound;
  }
  work.in = source.lattice();
  work.in.x_min -= request.x_shift;
  work.in.y_min -= request.y_shift;
  work.place = [out = request.out, shift = heights(request)](std::int32_t column, std::int32_t row,
                                                             std::span<double> x,
                                                             std::span<double> y) {
    const double unshifted = row * out.y_cell + out.y_min;
    for (std::size_t i = 0; i < x.size(); ++i) {
      const std::size_t c = static_cast<std::size_t>(column) + i;
      x[i] = static_cast<double>(c) * out.x_cell + out.x_min;
      y[i] = unshifted - shift[c];
    }
  };
  work.values = [in = work.in](const CellWindow& cells, std::span<const double> x,
                               std::span<const double> y, std::span<float> values) {
    bilinear_points(cells, in, x, y, values);
  };
  resample(source, work, request.output);
  return success;
}

}  // namespace velmorankite
