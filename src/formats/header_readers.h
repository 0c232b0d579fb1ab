// The readers of the formats' headers, one row of a table each.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

#include "formats/grid_description.h"
#include "formats/recognition.h"
#include "grid/status.h"
#include "platform/binary_file.h"
#include "platform/text_file.h"

namespace velmorankite {

// How the header is opened for its reader.
enum class header_access {
  binary,       // the grid file itself, as a binary stream
  text,         // the grid file itself, as text with the line end that it has
  text_beside,  // the text file of the same name with its last four characters ".hdr"
  name_only     // not opened: the header lies in the file's name
};

// What a reader gets: the file, and it opened in the way its row of the table says.
struct header_source {
  const grid_file& file;
  platform::BinaryFile* binary = nullptr;
  platform::TextReader* text = nullptr;
};

using header_reader = Status (*)(header_source& source, grid_description& grid, grid_texts& texts);

struct format_reader {
  std::int32_t format_code;
  header_access access;
  header_reader read;
};

// The row of a format; nullptr for one whose header cannot be read.
[[nodiscard]] const format_reader* find_reader(const grid_description& grid);

// The plain standard grid. A file shorter than its header throws IoError.
Status read_standard_header(header_source& source, grid_description& grid, grid_texts& texts);

// Whether the stored lines of a grid of this sense are columns.
[[nodiscard]] constexpr bool stores_columns(std::int32_t storage_sense) noexcept {
  return storage_sense == -1 || storage_sense == 2 || storage_sense == -3 || storage_sense == 4;
}

}  // namespace velmorankite
