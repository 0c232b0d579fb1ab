// SPDX-License-Identifier: MIT
#include "support/netcdf_file.h"

#include "platform/byte_order.h"

namespace velmorankite::testing {
namespace {

template <typename T>
void add(std::string& bytes, T value) {
  bytes.resize(bytes.size() + sizeof value);
  platform::store(value, reinterpret_cast<std::byte*>(&bytes[bytes.size() - sizeof value]),
                  std::endian::big);
}

void pad(std::string& bytes) {
  bytes.resize((bytes.size() + 3) / 4 * 4, '\0');
}

void add_count(std::string& bytes, std::size_t count) {
  add(bytes, static_cast<std::int32_t>(count));
}

void add_name(std::string& bytes, const std::string& name) {
  add_count(bytes, name.size());
  bytes += name;
  pad(bytes);
}

void add_values(std::string& bytes, netcdf_type type, const std::vector<double>& values) {
  for (const double value : values) {
    switch (type) {
      case netcdf_type::byte:
        add(bytes, static_cast<std::int8_t>(value));
        break;
      case netcdf_type::int16:
        add(bytes, static_cast<std::int16_t>(value));
        break;
      case netcdf_type::int32:
        add(bytes, static_cast<std::int32_t>(value));
        break;
      case netcdf_type::real32:
        add(bytes, static_cast<float>(value));
        break;
      case netcdf_type::real64:
        add(bytes, value);
        break;
      case netcdf_type::text:
        break;
    }
  }
  pad(bytes);
}

// A list without entries is two words of 0.
void add_list_head(std::string& bytes, std::int32_t tag, std::size_t count) {
  add(bytes, count == 0 ? 0 : tag);
  add_count(bytes, count);
}

void add_attributes(std::string& bytes, const std::vector<netcdf_numbers>& numbers,
                    const std::vector<netcdf_text>& texts) {
  constexpr std::int32_t tag = 12;
  add_list_head(bytes, tag, numbers.size() + texts.size());
  for (const netcdf_text& attribute : texts) {
    add_name(bytes, attribute.name);
    add(bytes, static_cast<std::int32_t>(netcdf_type::text));
    add_name(bytes, attribute.text);
  }
  for (const netcdf_numbers& attribute : numbers) {
    add_name(bytes, attribute.name);
    add(bytes, static_cast<std::int32_t>(attribute.type));
    add_count(bytes, attribute.values.size());
    add_values(bytes, attribute.type, attribute.values);
  }
}

std::string header(const netcdf_file& file, const std::vector<std::size_t>& starts) {
  std::string bytes = "CDF";
  bytes += file.version;
  add(bytes, 0);
  add_list_head(bytes, 10, file.dimensions.size());
  for (const auto& [name, length] : file.dimensions) {
    add_name(bytes, name);
    add(bytes, length);
  }
  add_attributes(bytes, file.numbers, file.texts);
  add_list_head(bytes, 11, file.variables.size());
  for (std::size_t i = 0; i < file.variables.size(); ++i) {
    const netcdf_values& variable = file.variables[i];
    add_name(bytes, variable.name);
    add_count(bytes, variable.dimensions.size());
    for (const std::int32_t dimension : variable.dimensions) {
      add(bytes, dimension);
    }
    add_attributes(bytes, variable.attributes, variable.texts);
    add(bytes, static_cast<std::int32_t>(variable.type));
    add_count(bytes, variable.values.size() * bytes_of(variable.type));
    if (file.version == 2) {
      add(bytes, static_cast<std::int64_t>(starts[i]));
    } else {
      add_count(bytes, starts[i]);
    }
  }
  return bytes;
}

}  // namespace

std::string netcdf_file::bytes() const {
  std::vector<std::size_t> starts(variables.size(), 0);
  std::string bytes = header(*this, starts);
  std::string cells;
  for (std::size_t i = 0; i < variables.size(); ++i) {
    starts[i] = bytes.size() + cells.size();
    add_values(cells, variables[i].type, variables[i].values);
  }
  bytes = header(*this, starts);
  bytes += cells;
  return bytes;
}

}  // namespace velmorankite::testing
