// SPDX-License-Identifier: MIT
#include "formats/header_readers.h"

namespace velmorankite {
namespace {

constexpr format_reader format_readers[] = {
    {format_standard, header_access::binary, read_standard_header},
};

}  // namespace

const format_reader* find_reader(const grid_description& grid) {
  for (const format_reader& row : format_readers) {
    if (row.format_code == grid.ints.format_code) {
      return &row;
    }
  }
  return nullptr;
}

}  // namespace velmorankite
