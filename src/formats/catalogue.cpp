// SPDX-License-Identifier: MIT
#include "formats/catalogue.h"

#include <iterator>
#include <string_view>

namespace velmorankite {
namespace {

struct catalogue_row {
  std::int32_t code;
  std::string_view name;
  std::string_view mask;
};

constexpr catalogue_row catalogue[] = {
    {format_ermapper, "Ermapper", "*.ers"},
    {format_standard, "Geosoft binary", "*.grd"},
    {format_gxf, "GXF", "*.gxf"},
    {format_pcidsk, "PCI", "*.pix"},
    {format_bil, "BIL", "*.bil"},
    {format_bip, "BIP", "*.bip"},
    {format_grid_text, "$$GRID$$", "*.grd"},
    {format_grid_binary, "$$BINARY$$", "*.bgd"},
    {format_arcinfo, "ArcInfo", "*.arc;*.asc"},
    {format_geosolutions, "Geosolutions", "*.grd"},
    {format_encom, "Encom", "*.grd"},
    {format_geopak, "Geopak", "*.grd"},
    {format_surfer_6, "Surfer V6", "*.grd"},
    {format_surfer_7, "Surfer V7", "*.grd"},
    {format_raster, "Raster", "*.bmp;*.jpg;*.tif"},
    {format_tile_3_arcs, "SRTM-3", "*.hgt;*.dt1;*.dt2"},
    {format_tile_1_arc, "SRTM-1", "*.hgt;*.dt1;*.dt2"},
    {format_float_cells, "FLT", "*.flt"},
    {format_geodass, "Geodass/NST", "*.grd"},
    {format_vulcan, "Vulcan", "*.grd"},
    {format_netcdf, "NetCDF-1", "*.cdf"},
    {format_gmt, "GMT", "*.grd"},
    {format_newmont, "Newmont", "*.grd"},
    {format_zmap, "ZMap", "*.dat"},
    {format_geodesy, "Geodysy binary", "*.ga;*.ha;*.dg;*.xi;*.eta"},
};

// A code is the place of its row.
constexpr bool codes_count_from_one() {
  std::int32_t expected = 1;
  for (const catalogue_row& row : catalogue) {
    if (row.code != expected++) {
      return false;
    }
  }
  return true;
}
static_assert(codes_count_from_one());

}  // namespace

void GET_NUM_SUPPORTED_GRID_FORMATS(std::int32_t& count) noexcept {
  count = static_cast<std::int32_t>(std::size(catalogue));
}

Status GET_GRID_FORMAT_NAME(std::int32_t code, std::string& name, std::string& mask) {
  if (code == 0) {
    return success;
  }
  if (code < 0 || code > static_cast<std::int32_t>(std::size(catalogue))) {
    name = "Unsupported";
    mask.clear();
    return format_uncatalogued;
  }
  const catalogue_row& row = catalogue[code - 1];
  name = row.name;
  mask = row.mask;
  return success;
}

}  // namespace velmorankite
