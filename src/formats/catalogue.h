// The catalogue of the grid file formats.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// Codes of the catalogue; format_standard stands beside the grid description.
inline constexpr std::int32_t format_ermapper = 1;
inline constexpr std::int32_t format_gxf = 3;
inline constexpr std::int32_t format_pcidsk = 4;
inline constexpr std::int32_t format_bil = 5;
inline constexpr std::int32_t format_bip = 6;
inline constexpr std::int32_t format_grid_text = 7;    // "$$GRID$$"
inline constexpr std::int32_t format_grid_binary = 8;  // "$$BINARY$$"
inline constexpr std::int32_t format_arcinfo = 9;
inline constexpr std::int32_t format_geosolutions = 10;
inline constexpr std::int32_t format_encom = 11;
inline constexpr std::int32_t format_geopak = 12;
inline constexpr std::int32_t format_surfer_6 = 13;  // binary and text
inline constexpr std::int32_t format_surfer_7 = 14;
inline constexpr std::int32_t format_raster = 15;       // catalogued, not read
inline constexpr std::int32_t format_tile_3_arcs = 16;  // one degree, 3 arc seconds a cell
inline constexpr std::int32_t format_tile_1_arc = 17;   // one degree, 1 arc second a cell
inline constexpr std::int32_t format_float_cells = 18;  // ArcInfo's float companion
inline constexpr std::int32_t format_geodass = 19;
inline constexpr std::int32_t format_vulcan = 20;
inline constexpr std::int32_t format_netcdf = 21;
inline constexpr std::int32_t format_gmt = 22;
inline constexpr std::int32_t format_newmont = 23;
inline constexpr std::int32_t format_zmap = 24;
inline constexpr std::int32_t format_geodesy = 25;

// What the recognition leaves for the kinds of file that share a code: the element code of Surfer
// text, and the first byte of the standard grid's first row where rows are records.
inline constexpr std::int32_t surfer_text_mark = 1;
inline constexpr std::int32_t first_row_record = 36;

// How many formats the catalogue holds.
void GET_NUM_SUPPORTED_GRID_FORMATS(std::int32_t& count) noexcept;

inline constexpr Status format_uncatalogued{-1};

// The name of a format and the mask of its files, as a file dialogue shows them.
//   code  from 1 to the number of formats; 0 leaves name and mask as they are.
//   name  out: "Unsupported" for a code outside the catalogue.
//   mask  out: masks parted by ";"; empty for a code outside the catalogue.
// Status: success, or format_uncatalogued.
Status GET_GRID_FORMAT_NAME(std::int32_t code, std::string& name, std::string& mask);

}  // namespace velmorankite
