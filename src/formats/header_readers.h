// The readers of the formats' headers, one row of a table each.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

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

// Reads bytes of a binary header, from a position that counts from 1; false if the file ends
// before. Throws IoError for a read that fails.
[[nodiscard]] bool read_header_bytes(const header_source& source, std::int64_t position,
                                     std::span<std::byte> bytes);

// The plain standard grid.
Status read_standard_header(header_source& source, grid_description& grid, grid_texts& texts);
// Every format whose fields stand at fixed byte offsets.
Status read_fixed_header(header_source& source, grid_description& grid, grid_texts& texts);
// Surfer 7: tagged sections, of which "GRID" tells the lattice.
Status read_surfer_7_header(header_source& source, grid_description& grid, grid_texts& texts);
// Tiles that tell their south-west corner by their names: of one degree (N45W120.hgt) and of five.
Status read_degree_tile_name(header_source& source, grid_description& grid, grid_texts& texts);
Status read_geodesy_tile_name(header_source& source, grid_description& grid, grid_texts& texts);
// Tiles of one degree with a DTED header.
Status read_dted_header(header_source& source, grid_description& grid, grid_texts& texts);

// NetCDF classic, of the older conventions and of those of today.
Status read_netcdf_header(header_source& source, grid_description& grid, grid_texts& texts);
// PCIDSK images, and the names of their bands.
Status read_pcidsk_header(header_source& source, grid_description& grid, grid_texts& texts);

// What Surfer writes into a cell without data.
inline constexpr double surfer_blank = 1.701410009187828E+38;

// Kind of cells that go through DECODE_VULCAN_BINARY.
inline constexpr std::int32_t kind_decoded = 4;

}  // namespace velmorankite
