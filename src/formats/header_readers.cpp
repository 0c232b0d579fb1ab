// SPDX-License-Identifier: MIT
#include "formats/header_readers.h"

namespace velmorankite {
namespace {

bool is_plain_layout(const grid_ints& ints) {
  return ints.data_offset == 0;
}

// The first row that applies to the format is taken.
constexpr format_reader format_readers[] = {
    {format_standard, header_access::binary, read_standard_header, is_plain_layout},
};

}  // namespace

const format_reader* find_reader(const grid_description& grid) {
  for (const format_reader& row : format_readers) {
    if (row.format_code == grid.ints.format_code &&
        (row.applies == nullptr || row.applies(grid.ints))) {
      return &row;
    }
  }
  return nullptr;
}

bool read_header_bytes(const header_source& source, std::int64_t position,
                       std::span<std::byte> bytes) {
  return source.binary->read_some(position, bytes) == bytes.size();
}

}  // namespace velmorankite
