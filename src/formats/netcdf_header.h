// The header of a netCDF classic file: its lists of dimensions, attributes and variables.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

// Types of values, as the file codes them.
enum class netcdf_type : std::int32_t {
  byte = 1,
  text = 2,
  int16 = 3,
  int32 = 4,
  real32 = 5,
  real64 = 6
};

// Bytes of one value; 0 for a type that the classic format does not have.
[[nodiscard]] std::size_t bytes_of(netcdf_type type) noexcept;

struct netcdf_dimension {
  std::string name;
  std::int32_t length = 0;  // 0 for the dimension that grows with the records
};

struct netcdf_attribute {
  std::string name;
  netcdf_type type = netcdf_type::byte;
  std::vector<double> values;  // of a numeric type; a float of four FF bytes as the dummy
  std::string text;            // of type text, its first characters

  [[nodiscard]] bool has_values(std::size_t count) const noexcept { return values.size() >= count; }
};

using netcdf_attributes = std::vector<netcdf_attribute>;

// nullptr if there is none of the name.
[[nodiscard]] const netcdf_attribute* find_attribute(const netcdf_attributes& list,
                                                     std::string_view name) noexcept;

struct netcdf_variable {
  std::string name;
  std::vector<std::int32_t> dimensions;  // numbers of its dimensions, the slowest first
  netcdf_attributes attributes;
  netcdf_type type = netcdf_type::byte;
  std::int64_t start = 0;  // bytes from the start of the file to its first value
};

struct netcdf_header {
  std::array<netcdf_dimension, 2> dimensions;
  netcdf_attributes attributes;
  std::vector<netcdf_variable> variables;
  bool within_small_tables = true;  // no list, name or value list longer than old readers hold

  [[nodiscard]] const netcdf_variable* find_variable(std::string_view name) const noexcept;
};

// Reads the header of a file of version 1, or of version 2 with its 64-bit offsets; a file that
// has not exactly two dimensions is no grid. Memory is bounded by the tables' limits.
// Status: success, netcdf_no_dimensions, netcdf_not_two_dimensions, header_too_short,
// table_too_long, layout_unsupported (a type or version that the classic format does not have).
Status parse_netcdf_header(const platform::BinaryFile& file, netcdf_header& header);

// The first values of a variable as doubles, from the file. Status: success, pointer_outside if
// the file ends before, number_unreadable if they are text.
Status read_netcdf_values(const platform::BinaryFile& file, const netcdf_variable& variable,
                          std::int64_t first, std::vector<double>& values);

}  // namespace velmorankite
