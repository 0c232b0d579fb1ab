// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "formats/status_table.h"

#include <limits>

#include "formats/buffered_file.h"
#include "formats/catalogue.h"
#include "formats/compressed_grid.h"
#include "formats/convert_grid.h"
#include "formats/describe_grid.h"
#include "formats/geoout.h"
#include "formats/header_status.h"
#include "formats/line_source.h"

namespace velmorankite {
namespace {

constexpr format_group arcinfo{"ArcInfo", {format_arcinfo}};
constexpr format_group band_images{"BIL, BIP", {format_bil, format_bip}};
constexpr format_group ermapper{"ER Mapper", {format_ermapper}};
constexpr format_group grid_text{"$$GRID$$", {format_grid_text}};
constexpr format_group gxf{"GXF", {format_gxf}};
constexpr format_group images{"BIL, BIP, PCIDSK", {format_bil, format_bip, format_pcidsk}};
constexpr format_group netcdf{"netCDF", {format_netcdf}};
constexpr format_group pcidsk{"PCIDSK", {format_pcidsk}};
constexpr format_group surfer_7{"Surfer 7", {format_surfer_7}};
constexpr format_group tiles{"tiles", {format_tile_3_arcs, format_tile_1_arc, format_geodesy}};
constexpr format_group zmap{"ZMap", {format_zmap}};

constexpr status_row rows[] = {
    {"EXPUNCOMPGRID", expand_name_blank, "a blank name"},
    {"EXPUNCOMPGRID", expand_input_unopened, "the input cannot be opened"},
    {"EXPUNCOMPGRID", expand_output_unopened,
     "the output cannot be opened, or would replace the input"},
    {"EXPUNCOMPGRID", expand_not_compressed, "the grid is not compressed"},
    {"EXPUNCOMPGRID", expand_header_unwritten, "the header cannot be written"},
    {"EXPUNCOMPGRID", expand_block_too_large, "a block is too large for the reader"},
    {"EXPUNCOMPGRID", expand_tables_unsound, "the tables of the blocks are not sound"},
    {"EXPUNCOMPGRID", expand_tables_missing, "the file is too short for its tables"},
    {"GEOOUT", geoout_failed,
     "a name of fewer than 3 characters, a lattice or an array that is not sound, or an output "
     "that cannot be opened or would replace the file of the unit"},
    {"GEOOUTI2", geoout_failed,
     "no such unit, a lattice or an array that is not sound, or an output that cannot be opened or "
     "would replace the file of the unit"},
    {"GETBUF", getbuf_end_of_file, "the file ends before"},
    {"GET_GRID_FORMAT_NAME", format_uncatalogued, "the code is not in the catalogue of formats"},
    {"PUTBUF", putbuf_nothing, "a count below 1"},
    {"SETBUFFPOS", position_refused, "an offset below 0"},

    {"GRDRDG", conversion_impossible,
     "a blank name, no file with the cells, a window outside the grid, or no memory"},
    {"GRDRDG", conversion_impossible,
     "files of the format hold images, which are not converted to grids", &images},
    {"GRDRDG", conversion_missing, "no conversion exists for the format"},
    {"GRDRDG", conversion_output_unopened,
     "the output cannot be opened, or would replace a file of the input"},
    {"GRDRDG", conversion_output_unopened,
     "line 12 of the file cannot be read, or the output cannot be opened, or would replace a file "
     "of the input",
     &zmap},
    {"GRDRDG", gxf_without_cells, "no line with \"#GRID\"", &gxf},
    {"GRDRDG", first_line_unread, "the first line of the cells cannot be read"},
    {"GRDRDG", zmap_header_unended,
     "line 1001 of the file cannot be read, or the header does not end with \"@\"", &zmap},
    {"GRDRDG", binary_line_unread, "a line of the cells cannot be read"},
    {"GRDRDG", expansion_failed, "the compressed grid cannot be expanded"},
    {"GRDRDG", expansion_unopened, "the expanded grid cannot be opened"},
    {"GRDRDG", expansion_folder_unset,
     "no scratch file can be made in the current directory, and TEMP is not set"},
    {"GRDRDG", expansion_unplaced,
     "no scratch file can be made in the current directory or in that of TEMP"},

    {"GRDRDH", name_too_short, "the name has fewer than 3 characters"},
    {"GRDRDH", file_missing, "the file does not exist"},
    {"GRDRDH", file_empty, "the file is empty"},
    {"GRDRDH", format_unknown, "the format of the file is not recognised"},
    {"GRDRDH", first_bytes_unreadable, "the first 256 bytes of the file cannot be read"},
    {"GRDRDH", header_file_missing, "the header file that belongs to the grid is missing"},
    {"GRDRDH", header_too_short, "the file ends inside its header"},
    {"GRDRDH", number_unreadable, "the header has no number where one must stand"},
    {"GRDRDH", counts_unsound, "a count of cells is below 1 or too large"},
    {"GRDRDH", cell_size_unsound, "a cell size is zero, negative or not finite"},
    {"GRDRDH", limits_unsound, "a limit of the grid is not finite"},
    {"GRDRDH", table_too_long,
     "a table of the header has more entries than the file or the reader holds"},
    {"GRDRDH", pointer_outside, "a table of the header points outside the file"},
    {"GRDRDH", layout_unsupported, "the cells are of a type that cannot be converted"},
    {"GRDRDH", lattice_irregular, "the coordinates of the cells are not evenly spaced"},
    {"GRDRDH", ermapper_items_missing, "fewer than 7 of the items that tell the grid", &ermapper},
    {"GRDRDH", gxf_ended_early, "the file ends ahead of \"#GRID\"", &gxf},
    {"GRDRDH", gxf_points_unread, "the value of \"#POINTS\" cannot be read", &gxf},
    {"GRDRDH", gxf_rows_unread, "the value of \"#ROWS\" cannot be read", &gxf},
    {"GRDRDH", gxf_point_separation_unread, "the value of \"#PTSEPARATION\" cannot be read", &gxf},
    {"GRDRDH", gxf_row_separation_unread, "the value of \"#RWSEPARATION\" cannot be read", &gxf},
    {"GRDRDH", gxf_rotation_unread, "the value of \"#ROTATION\" cannot be read", &gxf},
    {"GRDRDH", gxf_sense_unread, "the value of \"#SENSE\" cannot be read", &gxf},
    {"GRDRDH", gxf_type_unread, "the value of \"#GTYPE\" cannot be read", &gxf},
    {"GRDRDH", gxf_x_origin_unread, "the value of \"#XORIGIN\" cannot be read", &gxf},
    {"GRDRDH", gxf_y_origin_unread, "the value of \"#YORIGIN\" cannot be read", &gxf},
    {"GRDRDH", gxf_z_minimum_unread, "the value of \"#ZMINIMUM\" cannot be read", &gxf},
    {"GRDRDH", gxf_z_maximum_unread, "the value of \"#ZMAXIMUM\" cannot be read", &gxf},
    {"GRDRDH", gxf_transform_unread, "the value of \"#TRANSFORM\" cannot be read", &gxf},
    {"GRDRDH", gxf_dummy_unread, "the value of \"#DUMMY\" cannot be read", &gxf},
    {"GRDRDH", pcidsk_unreadable, "a text field or block cannot be read", &pcidsk},
    {"GRDRDH", pcidsk_no_georeference, "no usable georeference segment", &pcidsk},
    {"GRDRDH", pcidsk_georeference_unknown, "the georeference is not of polynomials and pixels",
     &pcidsk},
    {"GRDRDH", image_ncols_unread, "\"NCOLS\" cannot be read", &band_images},
    {"GRDRDH", image_nrows_unread, "\"NROWS\" cannot be read", &band_images},
    {"GRDRDH", image_nbands_unread, "\"NBANDS\" cannot be read", &band_images},
    {"GRDRDH", image_nbits_unread, "\"NBITS\" cannot be read", &band_images},
    {"GRDRDH", image_skipbytes_unread, "\"SKIPBYTES\" cannot be read", &band_images},
    {"GRDRDH", image_cellsize_unread, "\"CELLSIZE\" or \"XDIM\" cannot be read", &band_images},
    {"GRDRDH", image_ydim_unread, "\"YDIM\" cannot be read", &band_images},
    {"GRDRDH", image_ulxmap_unread, "\"ULXMAP\" cannot be read", &band_images},
    {"GRDRDH", image_ulymap_unread, "\"ULYMAP\" cannot be read", &band_images},
    {"GRDRDH", image_counts_unsound, "a count below 1", &band_images},
    {"GRDRDH", image_cells_unsound, "a cell size not above 0", &band_images},
    {"GRDRDH", image_bands_unsound, "no band", &band_images},
    {"GRDRDH", image_offset_unsound, "a negative \"SKIPBYTES\"", &band_images},
    {"GRDRDH", surfer_7_sections_unsound, "a count below 1, or no \"DATA\" behind the lattice",
     &surfer_7},
    {"GRDRDH", tile_name_without_longitude, "no \"E\" or \"W\" in the name", &tiles},
    {"GRDRDH", grid_text_counts_unread, "the first line, with the counts, cannot be read",
     &grid_text},
    {"GRDRDH", grid_text_limits_unread, "the second line, with the limits, cannot be read",
     &grid_text},
    {"GRDRDH", grid_text_comments_unended, "the file ends in its comments", &grid_text},
    {"GRDRDH", grid_text_scale_unread, "the line of cell sizes and values cannot be read",
     &grid_text},
    {"GRDRDH", grid_text_code_width_unknown, "codes of other than 1, 2 or 3 characters",
     &grid_text},
    {"GRDRDH", arcinfo_ended_early, "the file ends inside its header", &arcinfo},
    {"GRDRDH", netcdf_no_dimensions, "no list of dimensions where it should stand", &netcdf},
    {"GRDRDH", netcdf_not_two_dimensions, "not exactly two dimensions", &netcdf},
    {"GRDRDH", zmap_comment_blank, "a blank line in its comments", &zmap},
    {"GRDRDH", zmap_at_sign_missing, "the line behind the comments does not begin with \"@\"",
     &zmap},
    {"GRDRDH", zmap_name_unended, "no comma behind the name of the grid", &zmap},
    {"GRDRDH", zmap_kind_unknown, "the file is not of the kind \"GRID\"", &zmap},
    {"GRDRDH", zmap_no_line_nodes, "no number of nodes a line", &zmap},
    {"GRDRDH", zmap_layout_blank, "the line of the fields is blank", &zmap},
    {"GRDRDH", zmap_no_field_width, "no field width", &zmap},
    {"GRDRDH", zmap_no_dummy, "no dummy value", &zmap},
    {"GRDRDH", zmap_no_null_text, "no null text", &zmap},
    {"GRDRDH", zmap_no_decimals, "no decimals", &zmap},
    {"GRDRDH", zmap_limits_blank, "the line of the limits is blank", &zmap},
    {"GRDRDH", zmap_no_rows, "no number of rows", &zmap},
    {"GRDRDH", zmap_no_columns, "no number of columns", &zmap},
    {"GRDRDH", zmap_no_x_min, "no lowest X", &zmap},
    {"GRDRDH", zmap_no_x_max, "no highest X", &zmap},
    {"GRDRDH", zmap_no_y_min, "no lowest Y", &zmap},
    {"GRDRDH", zmap_no_y_max, "no highest Y", &zmap},
    {"GRDRDH", zmap_end_blank, "the line that ends the header is blank", &zmap},
    {"GRDRDH", zmap_counts_unsound, "a count below 1", &zmap},
    {"GRDRDH", zmap_cells_unsound, "a cell size not above 0", &zmap},
    {"GRDRDH", zmap_line_nodes_unsound, "less than one node a line", &zmap},
    {"GRDRDH", zmap_end_missing, "the header does not end with \"@\"", &zmap},
};

constexpr std::int32_t no_last = std::numeric_limits<std::int32_t>::min();

constexpr status_family families[] = {
    {"EXPUNCOMPGRID", expand_output_unopened.code, expand_header_ended.code,
     "the file ends within value ", " of its header"},
    {"EXPUNCOMPGRID", expand_block_unread, no_last, "block ", ": the file ends within it"},
    {"EXPUNCOMPGRID", expand_raw_unwritten, no_last, "block ", ": its cells cannot be written"},
    {"EXPUNCOMPGRID", expand_chunk_length, no_last, "block ",
     ": a chunk has more bytes than a chunk may have"},
    {"EXPUNCOMPGRID", expand_chunk_unwritten, no_last, "block ", ": a chunk cannot be written"},
    {"EXPUNCOMPGRID", expand_stored_unmarked, no_last, "block ",
     ": a stored chunk lacks its marker"},
    {"EXPUNCOMPGRID", expand_stored_unwritten, no_last, "block ",
     ": a stored chunk cannot be written"},
    {"EXPUNCOMPGRID", expand_deflate_memory, no_last, "block ",
     ": there is no memory to expand it"},
    {"EXPUNCOMPGRID", expand_deflate_unwritten, no_last, "block ",
     ": what it expands to cannot be written"},
    {"EXPUNCOMPGRID", expand_kind_unknown, no_last, "block ", ": it is of an unknown kind"},
    {"EXPUNCOMPGRID", expand_deflate_unsound, no_last, "block ",
     ": it is corrupt, or longer than its rows"},
    {"EXPUNCOMPGRID", expand_chunk_unsound, no_last, "block ",
     ": a chunk leaves it, or does not expand to its length"},
    // Line 1 of a ZMap file holds no cells, and its number means another thing.
    {"GRDRDG", zmap_line_unread, no_last, "line ", " of the file cannot be read", &zmap, 2},
    {"GRDRDG", text_line_unread, no_last, "line ", " of the cells cannot be read"},
};

}  // namespace

constinit const status_table formats_statuses{rows, families, {}, &grid_statuses};

}  // namespace velmorankite
