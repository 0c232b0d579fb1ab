// SPDX-License-Identifier: MIT
#include "formats/netcdf_lattice.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "formats/header_numbers.h"
#include "formats/header_status.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

// Positions may stray from a regular lattice by this part of a cell.
constexpr double largest_stray = 0.1;

enum class axis_role { unknown, x, y };

struct role_row {
  std::string_view attribute;  // blank: the variable's name
  std::string_view text;
  axis_role role;
};

// The first row that fits tells what a coordinate runs along.
constexpr role_row role_rows[] = {
    {"axis", "X", axis_role::x},
    {"axis", "Y", axis_role::y},
    {"standard_name", "longitude", axis_role::x},
    {"standard_name", "latitude", axis_role::y},
    {"standard_name", "projection_x_coordinate", axis_role::x},
    {"standard_name", "projection_y_coordinate", axis_role::y},
    {"units", "degrees_east", axis_role::x},
    {"units", "degrees_north", axis_role::y},
    {{}, "x", axis_role::x},
    {{}, "y", axis_role::y},
    {{}, "lon", axis_role::x},
    {{}, "lat", axis_role::y},
    {{}, "longitude", axis_role::x},
    {{}, "latitude", axis_role::y},
};

axis_role role_of(const netcdf_variable& coordinate) {
  for (const role_row& row : role_rows) {
    const netcdf_attribute* const attribute = find_attribute(coordinate.attributes, row.attribute);
    const std::string_view text = row.attribute.empty()  ? std::string_view(coordinate.name)
                                  : attribute != nullptr ? std::string_view(attribute->text)
                                                         : std::string_view();
    if (text == row.text) {
      return row.role;
    }
  }
  return axis_role::unknown;
}

const netcdf_variable* coordinate_of(const netcdf_header& header, std::int32_t dimension) noexcept {
  const netcdf_variable* const variable =
      header.find_variable(header.dimensions[static_cast<std::size_t>(dimension)].name);
  const bool fits = variable != nullptr && variable->type != netcdf_type::text &&
                    variable->dimensions == std::vector<std::int32_t>{dimension};
  return fits ? variable : nullptr;
}

bool spans_both(const netcdf_variable& variable) noexcept {
  const auto& ids = variable.dimensions;
  return variable.type != netcdf_type::text && bytes_of(variable.type) != 0 && ids.size() == 2 &&
         std::min(ids[0], ids[1]) == 0 && std::max(ids[0], ids[1]) == 1;
}

// nullptr if there are none; `others` tells of further grids in the file.
const netcdf_variable* find_cells(const netcdf_header& header, bool& others) noexcept {
  const netcdf_variable* found = nullptr;
  others = false;
  for (const netcdf_variable& variable : header.variables) {
    if (!spans_both(variable)) {
      continue;
    }
    others = others || found != nullptr;
    if (found == nullptr || (variable.name == "z" && found->name != "z")) {
      found = &variable;
    }
  }
  return found;
}

// One direction of the lattice.
struct axis {
  std::int32_t count = 0;
  double lowest = 0.0;
  double highest = 0.0;
  double cell = 0.0;
  bool rises = true;  // whether the coordinate rises from cell to cell in the file
};

// Holds every position against the line from the first to the last, a block at a time.
Status check_spacing(const platform::BinaryFile& file, const netcdf_variable& coordinate,
                     std::int32_t count, double first, double step) {
  constexpr std::int32_t block = 4096;
  const bool is_single = coordinate.type == netcdf_type::real32;
  const double reach = std::abs(first) + std::abs(step) * count;
  const double rounding = is_single ? reach * std::numeric_limits<float>::epsilon() : 0.0;
  const double tolerance = largest_stray * std::abs(step) + rounding;
  std::vector<double> values;
  for (std::int32_t i = 0; i < count; i += block) {
    values.resize(static_cast<std::size_t>(std::min(block, count - i)));
    if (const Status status = read_netcdf_values(file, coordinate, i, values); status.failed()) {
      return status;
    }
    for (std::size_t k = 0; k < values.size(); ++k) {
      const double expected = first + (i + static_cast<double>(k)) * step;
      if (!(std::abs(values[k] - expected) <= tolerance)) {
        return lattice_irregular;
      }
    }
  }
  return success;
}

// Positions from the coordinate's own values.
Status take_positions(const platform::BinaryFile& file, const netcdf_variable& coordinate,
                      axis& a) {
  std::vector<double> first(1);
  std::vector<double> last(1);
  for (auto* const value : {&first, &last}) {
    const std::int64_t index = value == &first ? 0 : a.count - 1;
    if (const Status status = read_netcdf_values(file, coordinate, index, *value);
        status.failed()) {
      return status;
    }
  }
  a.lowest = std::min(first[0], last[0]);
  a.highest = std::max(first[0], last[0]);
  a.rises = !(last[0] < first[0]);
  if (a.count == 1 || first[0] == last[0]) {
    return success;  // no spacing to be had from these
  }
  a.cell = (a.highest - a.lowest) / (a.count - 1.0);
  return check_spacing(file, coordinate, a.count, first[0], a.rises ? a.cell : -a.cell);
}

// Limits from "actual_range", which count more than the positions; `edges`: they are those of the
// outer cells' edges.
void take_range(const netcdf_variable& coordinate, bool edges, axis& a, grid_texts& texts) {
  const netcdf_attribute* const range = find_attribute(coordinate.attributes, "actual_range");
  if (range == nullptr || !range->has_values(2)) {
    return;
  }
  const axis by_positions = a;
  a.lowest = std::min(range->values[0], range->values[1]);
  a.highest = std::max(range->values[0], range->values[1]);
  a.cell = (a.highest - a.lowest) / (edges ? a.count : a.count - 1.0);
  if (edges) {
    edges_to_centres(a.cell, a.lowest, a.highest);
  }
  const double stray = std::max(std::abs(a.lowest - by_positions.lowest),
                                std::abs(a.highest - by_positions.highest));
  if (by_positions.cell > 0.0 && stray > largest_stray * by_positions.cell) {
    std::string text = "The attribute actual_range of \"";
    text.append(coordinate.name);
    text.append("\" and its values place the grid differently; the attribute is followed.");
    texts.advice.push_back(std::move(text));
  }
}

Status read_axis(const platform::BinaryFile& file, const netcdf_header& header,
                 std::int32_t dimension, bool edges, axis& a, grid_texts& texts) {
  a.count = header.dimensions[static_cast<std::size_t>(dimension)].length;
  if (a.count < 1) {
    return counts_unsound;  // also a dimension that grows with the file's records
  }
  const netcdf_variable& coordinate = *coordinate_of(header, dimension);
  if (const Status status = take_positions(file, coordinate, a); status.failed()) {
    return status;
  }
  take_range(coordinate, edges, a, texts);
  return success;
}

// The storage sense by whether lines are columns, X rises and Y rises.
constexpr std::int32_t sense_of(bool columns, bool x_rises, bool y_rises) {
  if (columns) {
    return x_rises ? (y_rises ? -1 : 2) : (y_rises ? 4 : -3);
  }
  return x_rises ? (y_rises ? 1 : -2) : (y_rises ? -4 : 3);
}

// What a writer leaves in cells that it never wrote.
double default_fill(netcdf_type type) {
  switch (type) {
    case netcdf_type::int16:
      return -32767.0;
    case netcdf_type::int32:
      return -2147483647.0;
    case netcdf_type::real32:
    case netcdf_type::real64:
      return 9.969209968386869E36;
    case netcdf_type::byte:
    case netcdf_type::text:
      break;
  }
  return static_cast<double>(dummy);
}

double first_value(const netcdf_variable& variable, std::string_view name, double otherwise) {
  const netcdf_attribute* const attribute = find_attribute(variable.attributes, name);
  return attribute != nullptr && attribute->has_values(1) ? attribute->values[0] : otherwise;
}

void take_cells(const netcdf_variable& cells, grid_description& grid) {
  const bool is_real = cells.type == netcdf_type::real32 || cells.type == netcdf_type::real64;
  const netcdf_attribute* const sign = find_attribute(cells.attributes, "_Unsigned");
  const bool is_unsigned = sign != nullptr && sign->text.starts_with("true");
  grid.ints.element_code = -static_cast<std::int32_t>(bytes_of(cells.type));
  grid.ints.element_kind = is_real ? kind_float : is_unsigned ? kind_unsigned : kind_signed;

  grid_reals& reals = grid.reals;
  // True value = stored x scale + offset, which is stored / z_mult + z_base here.
  reals.z_mult = 1.0 / first_value(cells, "scale_factor", 1.0);
  reals.z_base = first_value(cells, "add_offset", 0.0);
  const double missing = first_value(cells, "missing_value", default_fill(cells.type));
  const double fill = first_value(cells, "_FillValue", missing);
  reals.dummy_value = std::isfinite(fill) ? fill : static_cast<double>(dummy);
  // The mark has the type of the cells, which knows no unsigned numbers: its bits are meant.
  const double values = std::exp2(8.0 * static_cast<double>(bytes_of(cells.type)));
  if (grid.ints.element_kind == kind_unsigned && fill < 0.0 && fill >= -values / 2.0) {
    reals.dummy_value += values;
  }
  const netcdf_attribute* const range = find_attribute(cells.attributes, "actual_range");
  if (range != nullptr && range->has_values(2)) {
    reals.z_min = range->values[0];
    reals.z_max = range->values[1];
  }
}

}  // namespace

bool has_coordinates(const netcdf_header& header) noexcept {
  bool others = false;
  return find_cells(header, others) != nullptr && coordinate_of(header, 0) != nullptr &&
         coordinate_of(header, 1) != nullptr;
}

Status describe_coordinate_grid(const platform::BinaryFile& file, const netcdf_header& header,
                                grid_description& grid, grid_texts& texts) {
  bool others = false;
  const netcdf_variable& cells = *find_cells(header, others);
  if (others) {
    std::string text = "The file holds several grids; \"";
    text.append(cells.name).append("\" is read.");
    texts.advice.push_back(std::move(text));
  }
  const std::int32_t slow = cells.dimensions[0];
  const std::int32_t fast = cells.dimensions[1];
  const axis_role slow_role = role_of(*coordinate_of(header, slow));
  const axis_role fast_role = role_of(*coordinate_of(header, fast));
  const bool columns = (fast_role == axis_role::y && slow_role != axis_role::y) ||
                       (slow_role == axis_role::x && fast_role != axis_role::x);

  const netcdf_attribute* const registration = find_attribute(header.attributes, "node_offset");
  const bool edges =
      registration != nullptr && registration->has_values(1) && registration->values[0] == 1.0;
  axis x;
  axis y;
  if (const Status status = read_axis(file, header, columns ? slow : fast, edges, x, texts);
      status.failed()) {
    return status;
  }
  if (const Status status = read_axis(file, header, columns ? fast : slow, edges, y, texts);
      status.failed()) {
    return status;
  }
  grid.ints.x_count = x.count;
  grid.ints.y_count = y.count;
  grid.ints.storage_sense = sense_of(columns, x.rises, y.rises);
  grid.reals.x_min = x.lowest;
  grid.reals.x_max = x.highest;
  grid.reals.x_cell = x.cell;
  grid.reals.y_min = y.lowest;
  grid.reals.y_max = y.highest;
  grid.reals.y_cell = y.cell;
  take_cells(cells, grid);
  return place_cells(cells, grid.ints);
}

Status place_cells(const netcdf_variable& cells, grid_ints& ints) {
  if (cells.start < 0) {
    return pointer_outside;
  }
  if (cells.start > std::numeric_limits<std::int32_t>::max()) {
    return layout_unsupported;
  }
  ints.data_offset = static_cast<std::int32_t>(cells.start);
  return success;
}

}  // namespace velmorankite
