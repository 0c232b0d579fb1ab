// Refusals of a header that is not sound: those of all formats, then those of one or a few, which
// may have a number in common.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status.h"

namespace velmorankite {

inline constexpr Status header_too_short{-2901};   // the file ends inside its header
inline constexpr Status number_unreadable{-2902};  // no number stands where one must
inline constexpr Status counts_unsound{-2903};     // a count of cells below 1 or too large
inline constexpr Status cell_size_unsound{-2904};  // zero, negative or not finite
inline constexpr Status limits_unsound{-2905};     // a limit that is not finite
inline constexpr Status table_too_long{-2907};     // more entries than the reader or the file holds
inline constexpr Status pointer_outside{-2908};    // a table points outside the file
inline constexpr Status layout_unsupported{-2909};  // cells of a type that cannot be converted
inline constexpr Status lattice_irregular{-2910};   // coordinates that are not evenly spaced

// ER Mapper
inline constexpr Status ermapper_items_missing{-2005};  // fewer than 7 of those that tell the grid

// GXF
inline constexpr Status gxf_ended_early{-2006};
// The value behind a keyword cannot be read.
inline constexpr Status gxf_points_unread{-2701};
inline constexpr Status gxf_rows_unread{-2702};
inline constexpr Status gxf_point_separation_unread{-2703};
inline constexpr Status gxf_row_separation_unread{-2704};
inline constexpr Status gxf_rotation_unread{-2705};
inline constexpr Status gxf_sense_unread{-2706};
inline constexpr Status gxf_type_unread{-2707};
inline constexpr Status gxf_x_origin_unread{-2708};
inline constexpr Status gxf_y_origin_unread{-2709};
inline constexpr Status gxf_z_minimum_unread{-2710};
inline constexpr Status gxf_z_maximum_unread{-2711};
inline constexpr Status gxf_transform_unread{-2712};
inline constexpr Status gxf_dummy_unread{-2713};

// PCIDSK
inline constexpr Status pcidsk_unreadable{-2007};  // a text field or block
inline constexpr Status pcidsk_no_georeference{-2008};
inline constexpr Status pcidsk_georeference_unknown{-2009};  // not of polynomials and pixels

// BIL and BIP images: the value behind a name of the ".hdr" file cannot be read.
inline constexpr Status image_ncols_unread{-2010};
inline constexpr Status image_nrows_unread{-2011};
inline constexpr Status image_nbands_unread{-2012};
inline constexpr Status image_nbits_unread{-2013};
inline constexpr Status image_skipbytes_unread{-2014};
inline constexpr Status image_cellsize_unread{-2015};  // or "XDIM"
inline constexpr Status image_ydim_unread{-2016};
inline constexpr Status image_ulxmap_unread{-2017};
inline constexpr Status image_ulymap_unread{-2018};
inline constexpr Status image_counts_unsound{-2019};
inline constexpr Status image_cells_unsound{-2020};
inline constexpr Status image_bands_unsound{-2021};
inline constexpr Status image_offset_unsound{-2022};

// Surfer 7
inline constexpr Status surfer_7_sections_unsound{-2019};  // no "DATA", or a count below 1

// Tiles
inline constexpr Status tile_name_without_longitude{-2020};  // neither "E" nor "W"

// "$$GRID$$"
inline constexpr Status grid_text_counts_unread{-2023};
inline constexpr Status grid_text_limits_unread{-2024};
inline constexpr Status grid_text_comments_unended{-2025};
inline constexpr Status grid_text_scale_unread{-2026};
inline constexpr Status grid_text_code_width_unknown{-2027};

// ArcInfo
inline constexpr Status arcinfo_ended_early{-2030};

// NetCDF
inline constexpr Status netcdf_no_dimensions{-3001};  // no dimension list where it should stand
inline constexpr Status netcdf_not_two_dimensions{-3002};

// ZMap: a line or a field of it that cannot be taken, in the order of the header.
inline constexpr Status zmap_comment_blank{-2001};
inline constexpr Status zmap_at_sign_missing{-2002};
inline constexpr Status zmap_name_unended{-2003};
inline constexpr Status zmap_kind_unknown{-2004};
inline constexpr Status zmap_no_line_nodes{-2005};
inline constexpr Status zmap_layout_blank{-2006};
inline constexpr Status zmap_no_field_width{-2007};
inline constexpr Status zmap_no_dummy{-2008};
inline constexpr Status zmap_no_null_text{-2009};
inline constexpr Status zmap_no_decimals{-2010};
inline constexpr Status zmap_limits_blank{-2011};
inline constexpr Status zmap_no_rows{-2012};
inline constexpr Status zmap_no_columns{-2013};
inline constexpr Status zmap_no_x_min{-2014};
inline constexpr Status zmap_no_x_max{-2015};
inline constexpr Status zmap_no_y_min{-2016};
inline constexpr Status zmap_no_y_max{-2017};
inline constexpr Status zmap_end_blank{-2018};
inline constexpr Status zmap_counts_unsound{-2020};
inline constexpr Status zmap_cells_unsound{-2021};
inline constexpr Status zmap_line_nodes_unsound{-2022};
inline constexpr Status zmap_end_missing{-2119};

}  // namespace velmorankite
