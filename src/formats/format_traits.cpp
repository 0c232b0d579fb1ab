// SPDX-License-Identifier: MIT
#include "formats/format_traits.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <iterator>

#include "formats/catalogue.h"
#include "formats/describe_grid.h"
#include "formats/header_text_readers.h"
#include "grid/cell_position.h"

namespace velmorankite {
namespace {

// The test of the last row of a code, and the reader of a format that is not read. Not nullptr:
// the compiler does not hold a function against that while it builds for the sanitizers.
bool is_any_other(const grid_ints&) {
  return true;
}
Status read_nothing(header_source&, grid_description&, grid_texts&) {
  return format_unknown;
}

// A tile without a header; the recognition gives the other the place of its cells.
bool starts_at_0(const grid_ints& ints) {
  return ints.data_offset == 0;
}

// The recognition gives the standard grid in big-endian records the place of its first one.
bool has_no_records(const grid_ints& ints) {
  return ints.data_offset != first_row_record;
}

bool is_no_text(const grid_ints& ints) {
  return std::abs(std::int64_t{ints.element_code}) != surfer_text_mark;
}

constexpr format_traits formats[] = {
    {format_ermapper, "Ermapper", "*.ers", cell_form::binary, line_form::in_turns,
     second_file::cells, header_access::text, read_ermapper_header, is_any_other},
    {format_standard, "Geosoft binary", "*.grd", cell_form::binary, line_form::framed,
     second_file::none, header_access::binary, read_standard_header, has_no_records},
    {format_standard, "Geosoft binary", "*.grd", cell_form::binary, line_form::framed,
     second_file::none, header_access::binary, read_fixed_header, is_any_other},
    {format_gxf, "GXF", "*.gxf", cell_form::text, line_form::plain, second_file::none,
     header_access::text, read_gxf_header, is_any_other},
    {format_pcidsk, "PCI", "*.pix", cell_form::images, line_form::plain, second_file::none,
     header_access::binary, read_pcidsk_header, is_any_other},
    {format_bil, "BIL", "*.bil", cell_form::images, line_form::plain, second_file::header,
     header_access::text_beside, read_band_image_header, is_any_other},
    {format_bip, "BIP", "*.bip", cell_form::images, line_form::plain, second_file::header,
     header_access::text_beside, read_band_image_header, is_any_other},
    {format_grid_text, "$$GRID$$", "*.grd", cell_form::text, line_form::plain, second_file::none,
     header_access::text, read_grid_text_header, is_any_other},
    {format_grid_binary, "$$BINARY$$", "*.bgd", cell_form::binary, line_form::plain,
     second_file::none, header_access::binary, read_fixed_header, is_any_other},
    {format_arcinfo, "ArcInfo", "*.arc;*.asc", cell_form::text, line_form::plain, second_file::none,
     header_access::text, read_arcinfo_header, is_any_other},
    {format_geosolutions, "Geosolutions", "*.grd", cell_form::binary, line_form::plain,
     second_file::none, header_access::binary, read_fixed_header, is_any_other},
    {format_encom, "Encom", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_geopak, "Geopak", "*.grd", cell_form::binary, line_form::grouped, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_surfer_6, "Surfer V6", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_no_text},
    {format_surfer_6, "Surfer V6", "*.grd", cell_form::text, line_form::plain, second_file::none,
     header_access::text, read_surfer_text_header, is_any_other},
    {format_surfer_7, "Surfer V7", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_surfer_7_header, is_any_other},
    {format_raster, "Raster", "*.bmp;*.jpg;*.tif", cell_form::none, line_form::plain,
     second_file::none, header_access::name_only, read_nothing, is_any_other},
    {format_tile_3_arcs, "SRTM-3", "*.hgt;*.dt1;*.dt2", cell_form::binary, line_form::framed,
     second_file::none, header_access::name_only, read_degree_tile_name, starts_at_0},
    {format_tile_3_arcs, "SRTM-3", "*.hgt;*.dt1;*.dt2", cell_form::binary, line_form::framed,
     second_file::none, header_access::binary, read_dted_header, is_any_other},
    {format_tile_1_arc, "SRTM-1", "*.hgt;*.dt1;*.dt2", cell_form::binary, line_form::framed,
     second_file::none, header_access::name_only, read_degree_tile_name, starts_at_0},
    {format_tile_1_arc, "SRTM-1", "*.hgt;*.dt1;*.dt2", cell_form::binary, line_form::framed,
     second_file::none, header_access::binary, read_dted_header, is_any_other},
    {format_float_cells, "FLT", "*.flt", cell_form::binary, line_form::plain, second_file::header,
     header_access::text_beside, read_arcinfo_header, is_any_other},
    {format_geodass, "Geodass/NST", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_vulcan, "Vulcan", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_netcdf, "NetCDF-1", "*.cdf", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_netcdf_header, is_any_other},
    {format_gmt, "GMT", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_newmont, "Newmont", "*.grd", cell_form::binary, line_form::plain, second_file::none,
     header_access::binary, read_fixed_header, is_any_other},
    {format_zmap, "ZMap", "*.dat", cell_form::text, line_form::plain, second_file::none,
     header_access::text, read_zmap_header, is_any_other},
    {format_geodesy, "Geodysy binary", "*.ga;*.ha;*.dg;*.xi;*.eta", cell_form::binary,
     line_form::plain, second_file::none, header_access::name_only, read_geodesy_tile_name,
     is_any_other},
};

constexpr format_traits unknown_format{0,
                                       "Unsupported",
                                       "",
                                       cell_form::none,
                                       line_form::plain,
                                       second_file::none,
                                       header_access::name_only,
                                       read_nothing,
                                       is_any_other};

constexpr bool is_complete(const format_traits& row) {
  return !row.name.empty() && row.mask.starts_with("*.") && row.cells != cell_form::unset &&
         row.lines != line_form::unset && row.second != second_file::unset &&
         (row.read == read_nothing) == (row.cells == cell_form::none);
}

// A header beside the cells is opened as one; only binary cells can stand in a file of their own
// or in lines of another form.
constexpr bool agrees(const format_traits& row) {
  const bool beside = row.access == header_access::text_beside;
  const bool binary = row.cells == cell_form::binary;
  return beside == (row.second == second_file::header) &&
         (binary || (row.second != second_file::cells && row.lines == line_form::plain));
}

// Codes count from 1. Of the rows of one code all but the last have a test; they share
// name and second file.
constexpr bool codes_ascend() {
  std::int32_t code = 1;
  for (std::size_t i = 0; i < std::size(formats); ++i) {
    const bool last = i + 1 == std::size(formats) || formats[i + 1].code != formats[i].code;
    if (formats[i].code != code || last != (formats[i].is_kind == is_any_other) ||
        (!last &&
         (formats[i].name != formats[i + 1].name || formats[i].second != formats[i + 1].second))) {
      return false;
    }
    code += last ? 1 : 0;
  }
  return true;
}

static_assert(std::ranges::all_of(formats, is_complete));
static_assert(std::ranges::all_of(formats, agrees));
static_assert(codes_ascend());

}  // namespace

std::span<const format_traits> all_formats() noexcept {
  return formats;
}

const format_traits& traits_of(const grid_ints& ints) noexcept {
  const auto* const row = std::ranges::find_if(formats, [&ints](const format_traits& r) {
    return r.code == ints.format_code && r.is_kind(ints);
  });
  return row == std::end(formats) ? unknown_format : *row;
}

bool is_compressed(const grid_ints& ints) noexcept {
  return ints.format_code == format_standard && ints.data_offset == standard_header_bytes &&
         ints.element_code < 0;
}

bool has_cells_in_place(const grid_ints& ints) noexcept {
  const format_traits& traits = traits_of(ints);
  return traits.cells == cell_form::binary && traits.second != second_file::cells &&
         !is_compressed(ints);
}

}  // namespace velmorankite
