// SPDX-License-Identifier: MIT
#include "merge/stitch_parameters.h"

#include <cmath>
#include <limits>
#include <string_view>
#include <type_traits>

#include "platform/number_text.h"

namespace velmorankite {
namespace {

using platform::shortest;

// A row of the output grid must stay below 2 GiB, as the rows of every standard grid.
constexpr std::int32_t longest_row = 0x7FFFFFFF / 4;

// One field, the value in the shortest form that reads back as itself, and whether it will do.
struct parameter_rule {
  int definitions_line;
  bool holds;
  std::string_view field;
  std::string value;
  std::string_view expected;
};

// A list may leave a value out, which reads as no number.
template <typename T>
std::string told(T value) {
  const bool none = std::is_integral_v<T> ? value == std::numeric_limits<T>::min()
                                          : std::isnan(static_cast<double>(value));
  return none ? "left out or no number" : shortest(value);
}

template <typename T>
parameter_rule finite(int line, std::string_view field, T value) {
  return {line, std::isfinite(value), field, told(value), "a finite number"};
}

template <typename T>
parameter_rule above_zero(int line, std::string_view field, T value) {
  return {line, std::isfinite(value) && value > 0, field, told(value), "a finite number above 0"};
}

}  // namespace

parameter_check check_parameters(const stitch_parameters& p) {
  const parameter_rule rules[] = {
      finite(7, "correction_distance", p.correction_distance),
      {8, p.adjusted_grid == 0 || p.adjusted_grid == 1, "adjusted_grid", told(p.adjusted_grid),
       "0 or 1"},
      above_zero(9, "blend_width", p.blend_width),
      finite(10, "band_margin", p.band_margin),
      finite(12, "lattice_x_min", p.lattice.x_min),
      finite(12, "lattice_x_max", p.lattice_x_max),
      above_zero(12, "lattice_cell_x", p.lattice.x_cell),
      {12, p.lattice.x_count >= 1 && p.lattice.x_count <= longest_row, "lattice_nx",
       told(p.lattice.x_count), "a count from 1 to 536870911"},
      finite(13, "lattice_y_min", p.lattice.y_min),
      finite(13, "lattice_y_max", p.lattice_y_max),
      above_zero(13, "lattice_cell_y", p.lattice.y_cell),
      {13, p.lattice.y_count >= 1, "lattice_ny", told(p.lattice.y_count), "a count of at least 1"},
  };
  for (const parameter_rule& rule : rules) {
    if (!rule.holds) {
      std::string text(rule.field);
      text.append(" is ").append(rule.value).append(", ").append(rule.expected);
      return {impossible(text.append(" is expected")), rule.definitions_line};
    }
  }
  return {};
}

}  // namespace velmorankite
