// All that is known of a format, in one table: a new format is a row here and a reader.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "formats/grid_description.h"
#include "formats/header_readers.h"

namespace velmorankite {

// Each list begins with a value that no row may hold: what a row leaves out does not go unseen.

// What the cells are to the conversion.
enum class cell_form {
  unset,
  none,    // catalogued, not read
  images,  // described, not converted
  text,
  binary
};

// What stands in a second file.
enum class second_file { unset, none, header, cells };

// How binary cells make up their stored lines; text and images are plain.
enum class line_form {
  unset,
  plain,    // one line behind the other
  framed,   // each between `aux_1` and `aux_2` bytes of its own
  grouped,  // one 16-bit word that is no cell ahead of every 64 cells
  in_turns  // the bands take turns line by line
};

// Whether a described file, or one that was recognised as of the format, is of a row's kind.
using kind_test = bool (*)(const grid_ints& ints);

// One row a format; where files of two kinds share a code, a row each, told apart by a test.
struct format_traits {
  std::int32_t code;
  std::string_view name;
  std::string_view mask;  // of file names, parted by ";"
  cell_form cells;
  line_form lines;
  second_file second;
  header_access access;
  header_reader read;  // one that gives format_unknown where there are no cells
  kind_test is_kind;   // in the last row of a code: every other file
};

// The rows by ascending code, which has no gap.
[[nodiscard]] std::span<const format_traits> all_formats() noexcept;

// The row of a file by its code and its kind. A code outside the catalogue has a row of its own,
// without cells and without a reader.
[[nodiscard]] const format_traits& traits_of(const grid_ints& ints) noexcept;

// Whether the cells of a standard grid are compressed.
[[nodiscard]] bool is_compressed(const grid_ints& ints) noexcept;

// Whether the cells stand as plain bytes in the described file itself, so that its size bounds
// their number: not in another file, not as text, not compressed.
[[nodiscard]] bool has_cells_in_place(const grid_ints& ints) noexcept;

}  // namespace velmorankite
