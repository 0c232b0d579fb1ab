// SPDX-License-Identifier: MIT
#include "formats/header_readers.h"

#include "formats/catalogue.h"
#include "formats/header_text_readers.h"

namespace velmorankite {
namespace {

// The plain standard grid and the tile without a header, as the recognition tells them from the
// record layout and the tile with one.
bool starts_at_0(const grid_ints& ints) {
  return ints.data_offset == 0;
}

bool is_no_text(const grid_ints& ints) {
  constexpr std::int32_t text_mark = 1;
  return ints.element_code != text_mark;
}

// The first row that applies to the format is taken.
constexpr format_reader format_readers[] = {
    {format_ermapper, header_access::text, read_ermapper_header},
    {format_standard, header_access::binary, read_standard_header, starts_at_0},
    {format_standard, header_access::binary, read_fixed_header},
    {format_gxf, header_access::text, read_gxf_header},
    {format_pcidsk, header_access::binary, read_pcidsk_header},
    {format_bil, header_access::text_beside, read_band_image_header},
    {format_bip, header_access::text_beside, read_band_image_header},
    {format_grid_text, header_access::text, read_grid_text_header},
    {format_grid_binary, header_access::binary, read_fixed_header},
    {format_arcinfo, header_access::text, read_arcinfo_header},
    {format_geosolutions, header_access::binary, read_fixed_header},
    {format_encom, header_access::binary, read_fixed_header},
    {format_geopak, header_access::binary, read_fixed_header},
    {format_surfer_6, header_access::binary, read_fixed_header, is_no_text},
    {format_surfer_6, header_access::text, read_surfer_text_header},
    {format_surfer_7, header_access::binary, read_surfer_7_header},
    {format_tile_3_arcs, header_access::name_only, read_degree_tile_name, starts_at_0},
    {format_tile_3_arcs, header_access::binary, read_dted_header},
    {format_tile_1_arc, header_access::name_only, read_degree_tile_name, starts_at_0},
    {format_tile_1_arc, header_access::binary, read_dted_header},
    {format_float_cells, header_access::text_beside, read_arcinfo_header},
    {format_geodass, header_access::binary, read_fixed_header},
    {format_vulcan, header_access::binary, read_fixed_header},
    {format_netcdf, header_access::binary, read_netcdf_header},
    {format_gmt, header_access::binary, read_fixed_header},
    {format_newmont, header_access::binary, read_fixed_header},
    {format_zmap, header_access::text, read_zmap_header},
    {format_geodesy, header_access::name_only, read_geodesy_tile_name},
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
