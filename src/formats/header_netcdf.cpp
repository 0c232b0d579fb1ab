// NetCDF classic grids of the two older conventions: COARDS, with the lattice in attributes, and
// the one before it, with the lattice in one-dimensional variables.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <string_view>
#include <vector>

#include "formats/header_numbers.h"
#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "formats/netcdf_header.h"
#include "formats/netcdf_lattice.h"
#include "grid/dummy.h"
#include "grid/standard_header.h"

namespace velmorankite {
namespace {

// What the global attributes say of the whole file.
struct conventions {
  bool coards = false;
  bool climate_forecast = false;  // "CF-"
  bool edges = false;             // COARDS: the limits are those of the outer cells' edges
};

// "node_offset" counts behind the text "COARDS" only.
conventions conventions_of(const netcdf_attributes& attributes) {
  conventions found;
  for (const netcdf_attribute& attribute : attributes) {
    const std::string_view text = attribute.text;
    if (text.starts_with("COARDS")) {
      found.coards = true;
    } else if (attribute.name == "Conventions" && text.starts_with("CF-")) {
      found.climate_forecast = true;
    } else if (found.coards && attribute.name == "node_offset" &&
               attribute.type == netcdf_type::int32 && attribute.has_values(1)) {
      found.edges = attribute.values[0] == 1.0;
    }
  }
  return found;
}

// The older conventions hold all attributes in single precision.
double single(double value) {
  return static_cast<double>(static_cast<float>(value));
}

double first_value(const netcdf_attribute& attribute, double otherwise) {
  return attribute.has_values(1) ? single(attribute.values[0]) : otherwise;
}

// Scale, offset and dummy of the cells, the same in both conventions.
void take_cell_attributes(const netcdf_variable& cells, grid_reals& reals) {
  for (const netcdf_attribute& attribute : cells.attributes) {
    if (attribute.name == "scale_factor") {
      reals.z_mult = first_value(attribute, reals.z_mult);
    } else if (attribute.name == "add_offset") {
      reals.z_base = first_value(attribute, reals.z_base);
    } else if (attribute.name == "_FillValue") {
      const double value = first_value(attribute, reals.dummy_value);
      reals.dummy_value = std::isfinite(value) ? value : static_cast<double>(dummy);
    }
  }
}

// Limits from the attribute "actual_range" of a coordinate, and the cell size from them.
void take_range(const netcdf_header& header, std::string_view name, double cells, double& lowest,
                double& highest, double& cell) {
  const netcdf_variable* const coordinate = header.find_variable(name);
  if (coordinate == nullptr) {
    return;
  }
  const netcdf_attribute* const range = find_attribute(coordinate->attributes, "actual_range");
  if (range != nullptr && range->has_values(2)) {
    lowest = single(range->values[0]);
    highest = single(range->values[1]);
    cell = (highest - lowest) / cells;
  }
}

// Gives the variable of the cells, nullptr if there is none.
const netcdf_variable* take_coards(const netcdf_header& header, bool edges,
                                   grid_description& grid) {
  grid_reals& reals = grid.reals;
  grid.ints.x_count = header.dimensions[0].length;
  grid.ints.y_count = header.dimensions[1].length;
  const double less = edges ? 0.0 : 1.0;
  take_range(header, "x", grid.ints.x_count - less, reals.x_min, reals.x_max, reals.x_cell);
  take_range(header, "y", grid.ints.y_count - less, reals.y_min, reals.y_max, reals.y_cell);
  const netcdf_variable* const z = header.find_variable("z");
  if (z != nullptr) {
    double unused = 0.0;
    take_range(header, "z", 1.0, reals.z_min, reals.z_max, unused);
    take_cell_attributes(*z, reals);
  }
  if (z != nullptr && !z->attributes.empty()) {
    return z;
  }
  return header.variables.empty() ? nullptr : &header.variables.back();
}

// Two values of a one-dimensional variable; left as they are if there is no such variable.
Status take_pair(const platform::BinaryFile& file, const netcdf_header& header,
                 std::string_view name, double& first, double& second) {
  const netcdf_variable* const variable = header.find_variable(name);
  if (variable == nullptr) {
    return success;
  }
  std::vector<double> pair(2);
  if (const Status status = read_netcdf_values(file, *variable, 0, pair); status.failed()) {
    return status;
  }
  first = pair[0];
  second = pair[1];
  return success;
}

// Gives the variable of the cells in `cells`, nullptr if there is none.
Status take_ranges(const platform::BinaryFile& file, const netcdf_header& header, bool& edges,
                   const netcdf_variable*& cells, grid_description& grid) {
  grid_reals& reals = grid.reals;
  double x_count = 0.0;
  double y_count = 0.0;
  struct pair_row {
    std::string_view name;
    double* first;
    double* second;
  };
  const pair_row pairs[] = {{"x_range", &reals.x_min, &reals.x_max},
                            {"y_range", &reals.y_min, &reals.y_max},
                            {"z_range", &reals.z_min, &reals.z_max},
                            {"spacing", &reals.x_cell, &reals.y_cell},
                            {"dimension", &x_count, &y_count}};
  for (const pair_row& row : pairs) {
    if (const Status status = take_pair(file, header, row.name, *row.first, *row.second);
        status.failed()) {
      return status;
    }
  }
  grid.ints.x_count = integer_part(x_count);
  grid.ints.y_count = integer_part(y_count);
  cells = header.find_variable("z");
  if (cells != nullptr) {
    take_cell_attributes(*cells, reals);
    const netcdf_attribute* const offset = find_attribute(cells->attributes, "node_offset");
    edges = offset != nullptr && offset->has_values(1) && offset->values[0] == 1.0;
  }
  return success;
}

// Where these conventions are read otherwise than their standard says, the user should hear of it.
void advise(const platform::BinaryFile& file, const netcdf_header& header,
            const netcdf_variable& cells, const grid_reals& reals, grid_texts& texts) {
  if (cells.type != netcdf_type::real32) {
    texts.advice.emplace_back(
        "The cells of this netCDF file are not 4-byte floats, but are read as such; convert it to "
        "floats or to a CF convention first.");
  }
  if (reals.z_mult != 1.0) {
    texts.advice.emplace_back(
        "The scale_factor of this netCDF file divides the stored values here, where the netCDF "
        "convention multiplies by it; unpack the file first if it means the latter.");
  }
  double first = 0.0;
  double last = 0.0;
  const netcdf_variable* const y = header.find_variable("y");
  if (y != nullptr && y->dimensions.size() == 1 && y->dimensions[0] >= 0 && y->dimensions[0] < 2) {
    std::vector<double> value(1);
    const std::int32_t count = header.dimensions[static_cast<std::size_t>(y->dimensions[0])].length;
    if (count > 1 && !read_netcdf_values(file, *y, 0, value).failed()) {
      first = value[0];
      last = read_netcdf_values(file, *y, count - 1, value).failed() ? first : value[0];
    }
  }
  if (last > first) {
    texts.advice.emplace_back(
        "The Y coordinates of this netCDF file rise from its first row on, but its rows are read "
        "from the highest Y down, so the grid comes out upside down; write it anew with a CF "
        "convention.");
  }
}

Status read_older(const platform::BinaryFile& file, const netcdf_header& header,
                  const conventions& found, grid_description& grid, grid_texts& texts) {
  const netcdf_variable* cells = nullptr;
  bool edges = found.edges;
  if (found.coards) {
    cells = take_coards(header, edges, grid);
  } else if (const Status status = take_ranges(file, header, edges, cells, grid); status.failed()) {
    return status;
  }
  grid.ints.element_code = -4;
  grid.ints.storage_sense = -2;
  grid.ints.element_kind = kind_float;
  if (edges) {
    edges_to_centres(grid.reals);
  }
  if (!header.within_small_tables) {
    return table_too_long;
  }
  if (cells == nullptr) {
    return layout_unsupported;
  }
  advise(file, header, *cells, grid.reals, texts);
  return place_cells(*cells, grid.ints);
}

}  // namespace

Status read_netcdf_header(header_source& source, grid_description& grid, grid_texts& texts) {
  const platform::BinaryFile& file = *source.binary;
  netcdf_header header;
  if (const Status status = parse_netcdf_header(file, header); status.failed()) {
    return status;
  }
  grid.reals.dummy_value = static_cast<double>(dummy);
  const conventions found = conventions_of(header.attributes);
  const grid_description before = grid;
  if (found.coards || !found.climate_forecast || !has_coordinates(header)) {
    const Status status = read_older(file, header, found, grid, texts);
    const bool is_empty = grid.reals.x_cell == 0.0 || grid.reals.y_cell == 0.0;
    if (!is_empty || !has_coordinates(header)) {
      return status;
    }
    grid = before;
    texts.advice.clear();
  }
  return describe_coordinate_grid(file, header, grid, texts);
}

}  // namespace velmorankite
