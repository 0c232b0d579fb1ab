// NetCDF classic files, put together for tests.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "formats/netcdf_header.h"

namespace velmorankite::testing {

struct netcdf_text {
  std::string name;
  std::string text;
};

struct netcdf_numbers {
  std::string name;
  netcdf_type type;
  std::vector<double> values;
};

struct netcdf_values {
  std::string name;
  std::vector<std::int32_t> dimensions;
  netcdf_type type;
  std::vector<double> values;
  std::vector<netcdf_numbers> attributes = {};
  std::vector<netcdf_text> texts = {};
};

// A file as it is to be: texts stand ahead of numbers in its lists of attributes.
struct netcdf_file {
  std::vector<std::pair<std::string, std::int32_t>> dimensions;
  std::vector<netcdf_text> texts;
  std::vector<netcdf_numbers> numbers;
  std::vector<netcdf_values> variables;
  char version = 1;

  [[nodiscard]] std::string bytes() const;
};

}  // namespace velmorankite::testing
