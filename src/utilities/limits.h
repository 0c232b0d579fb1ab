// The rectangle of a standard grid that holds data.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "grid/standard_header.h"
#include "grid/status.h"
#include "platform/binary_file.h"

namespace velmorankite {

inline constexpr Status limits_no_data{-1};

// The first and last columns and rows with data, from 1, rows as they are stored. Without data the
// first are the last of the grid and the last are 1, which 1 by 1 cell does not show.
struct data_limits {
  std::int32_t first_column = 0;
  std::int32_t last_column = 0;
  std::int32_t first_row = 0;
  std::int32_t last_row = 0;

  [[nodiscard]] bool meet() const noexcept {
    return last_column >= first_column && last_row >= first_row;
  }
};

// Finds the limits of the data of a grid whose file holds all its cells. Cells of kind_float are
// floats, others 32-bit integers where they have 4 bytes and 16-bit integers else; a cell above the
// dummy of its type (signed for all integers) holds data. Memory is a block of rows. Throws
// IoError.
[[nodiscard]] data_limits find_data(const platform::BinaryFile& file,
                                    const standard_header& header);

// Finds the limits of the data of a standard grid of 4-byte floats. Of the header only the two
// counts are looked at: rows are stored rows, the lowest Y first in storage sense 1 and last in
// sense -2.
//   path    standard grid that is not compressed; trailing blanks are dropped. Not changed.
//   limits  out; what it holds without data is told above.
// Status: success or limits_no_data; a grid of one cell succeeds in any case. Throws IoError if
// the file cannot be read, or if it does not hold as many floats as its counts say.
Status GEOLIMITS(std::string_view path, data_limits& limits);

}  // namespace velmorankite
