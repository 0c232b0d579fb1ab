// SPDX-License-Identifier: MIT
#include "grid/status_text.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace velmorankite {
namespace {

// A new number is a row here and a constant beside its routine.
constexpr status_row rows[] = {
    {"", -9001, "a file operation failed, or a file is not sound"},
    {"", -9002, "an array could not be allocated"},
    {"", -9003, "a text that comes back does not fit its buffer"},
    {"", -9004, "the routine failed in an unforeseen way"},
    {"CALC_FILTER_COEFFICIENTS", -3001,
     "the filter is not one of 100 to 199, which have a symmetric operator"},
    {"CALC_FILTER_COEFFICIENTS", -3002, "the filter has no operator"},
    {"CALC_FILTER_COEFFICIENTS", -3003, "columns and rows are not the same odd number"},
    {"EXPUNCOMPGRID", -20000, "a blank name"},
    {"EXPUNCOMPGRID", -20001, "the input cannot be opened"},
    {"EXPUNCOMPGRID", -20002, "the output cannot be opened, or would replace the input"},
    {"EXPUNCOMPGRID", -20005, "the grid is not compressed"},
    {"EXPUNCOMPGRID", -20007, "the header cannot be written"},
    {"EXPUNCOMPGRID", -20020, "a block is too large for the reader"},
    {"EXPUNCOMPGRID", -20022, "the tables of the blocks are not sound"},
    {"EXPUNCOMPGRID", -20023, "the file is too short for its tables"},
    {"FOURN", -1, "a dimension is not a power of two, or there is none"},
    {"FOURN", -2, "the dimensions are more than can be counted"},
    {"FOURN", -3, "the sign is neither 1 nor -1"},
    {"FSYSTEM", -1, "the command could not be run or ended with a status other than 0"},
    {"GEOOUT", -1,
     "a name of fewer than 3 characters, a lattice or an array that is not sound, or an output "
     "that cannot be opened or would replace the file of the unit"},
    {"GEOOUTI2", -1,
     "no such unit, a lattice or an array that is not sound, or an output that cannot be opened or "
     "would replace the file of the unit"},
    {"GEO_CELL_INTERPOLATION", -1,
     "no points, a blank path, or fewer cells in memory than the description says"},
    {"GETBUF", -1, "the file ends before"},
    {"GET_GRID_FORMAT_NAME", -1, "the code is not in the catalogue of formats"},
    {"GRDMIPMAP", -1,
     "the working lattice has fewer than 4 columns or rows or does not hold the whole input, or no "
     "cell has a value"},
    {"GRDOSTEMP", -1, "no file of a new name can be made in the folder"},
    {"GRDRDG", -1,
     "a blank name, a format of images, no file with the cells, a window outside the grid, or no "
     "memory"},
    {"GRDRDG", -11, "no conversion exists for the format"},
    {"GRDRDG", -12, "the output cannot be opened, or would replace a file of the input"},
    {"GRDRDG", -27, "GXF: no line with \"#GRID\""},
    {"GRDRDG", -1001,
     "the first line of the cells cannot be read; ZMap: the header does not end with \"@\""},
    {"GRDRDG", -3000, "a line of the cells cannot be read"},
    {"GRDRDG", -10001, "the compressed grid cannot be expanded"},
    {"GRDRDG", -10002, "the expanded grid cannot be opened"},
    {"GRDRDG", -10901, "no scratch file can be made in the current directory, and TEMP is not set"},
    {"GRDRDG", -10902, "no scratch file can be made in the current directory or in that of TEMP"},
    {"GRDRDH", -1, "the name has fewer than 3 characters"},
    {"GRDRDH", -1001, "the file does not exist"},
    {"GRDRDH", -1002, "the file is empty"},
    {"GRDRDH", -1005, "the format of the file is not recognised"},
    {"GRDRDH", -1006, "the first 256 bytes of the file cannot be read"},
    {"GRDRDH", -2001,
     "the header file that belongs to the grid is missing; ZMap: a blank line in its comments"},
    {"GRDRDH", -2002, "ZMap: the line behind the comments does not begin with \"@\""},
    {"GRDRDH", -2003, "ZMap: no comma behind the name of the grid"},
    {"GRDRDH", -2004, "ZMap: the file is not of the kind \"GRID\""},
    {"GRDRDH", -2005,
     "ER Mapper: fewer than 7 of the items that tell the grid; ZMap: no number of nodes a line"},
    {"GRDRDH", -2006,
     "GXF: the file ends ahead of \"#GRID\"; ZMap: the line of the fields is blank"},
    {"GRDRDH", -2007, "PCIDSK: a text field or block cannot be read; ZMap: no field width"},
    {"GRDRDH", -2008, "PCIDSK: no usable georeference segment; ZMap: no dummy value"},
    {"GRDRDH", -2009,
     "PCIDSK: the georeference is not of polynomials and pixels; ZMap: no null text"},
    {"GRDRDH", -2010, "BIL, BIP: \"NCOLS\" cannot be read; ZMap: no decimals"},
    {"GRDRDH", -2011, "BIL, BIP: \"NROWS\" cannot be read; ZMap: the line of the limits is blank"},
    {"GRDRDH", -2012, "BIL, BIP: \"NBANDS\" cannot be read; ZMap: no number of rows"},
    {"GRDRDH", -2013, "BIL, BIP: \"NBITS\" cannot be read; ZMap: no number of columns"},
    {"GRDRDH", -2014, "BIL, BIP: \"SKIPBYTES\" cannot be read; ZMap: no lowest X"},
    {"GRDRDH", -2015, "BIL, BIP: \"CELLSIZE\" or \"XDIM\" cannot be read; ZMap: no highest X"},
    {"GRDRDH", -2016, "BIL, BIP: \"YDIM\" cannot be read; ZMap: no lowest Y"},
    {"GRDRDH", -2017, "BIL, BIP: \"ULXMAP\" cannot be read; ZMap: no highest Y"},
    {"GRDRDH", -2018,
     "BIL, BIP: \"ULYMAP\" cannot be read; ZMap: the line that ends the header is blank"},
    {"GRDRDH", -2019,
     "BIL, BIP, Surfer 7: a count below 1; Surfer 7: no \"DATA\" behind the lattice"},
    {"GRDRDH", -2020,
     "BIL, BIP: a cell size not above 0; tiles: no \"E\" or \"W\" in the name; ZMap: a count below "
     "1"},
    {"GRDRDH", -2021, "BIL, BIP: no band; ZMap: a cell size not above 0"},
    {"GRDRDH", -2022, "BIL, BIP: a negative \"SKIPBYTES\"; ZMap: less than one node a line"},
    {"GRDRDH", -2023, "$$GRID$$: the first line, with the counts, cannot be read"},
    {"GRDRDH", -2024, "$$GRID$$: the second line, with the limits, cannot be read"},
    {"GRDRDH", -2025, "$$GRID$$: the file ends in its comments"},
    {"GRDRDH", -2026, "$$GRID$$: the line of cell sizes and values cannot be read"},
    {"GRDRDH", -2027, "$$GRID$$: codes of other than 1, 2 or 3 characters"},
    {"GRDRDH", -2030, "ArcInfo: the file ends inside its header"},
    {"GRDRDH", -2119, "ZMap: the header does not end with \"@\""},
    {"GRDRDH", -2701, "GXF: the value of \"#POINTS\" cannot be read"},
    {"GRDRDH", -2702, "GXF: the value of \"#ROWS\" cannot be read"},
    {"GRDRDH", -2703, "GXF: the value of \"#PTSEPARATION\" cannot be read"},
    {"GRDRDH", -2704, "GXF: the value of \"#RWSEPARATION\" cannot be read"},
    {"GRDRDH", -2705, "GXF: the value of \"#ROTATION\" cannot be read"},
    {"GRDRDH", -2706, "GXF: the value of \"#SENSE\" cannot be read"},
    {"GRDRDH", -2707, "GXF: the value of \"#GTYPE\" cannot be read"},
    {"GRDRDH", -2708, "GXF: the value of \"#XORIGIN\" cannot be read"},
    {"GRDRDH", -2709, "GXF: the value of \"#YORIGIN\" cannot be read"},
    {"GRDRDH", -2710, "GXF: the value of \"#ZMINIMUM\" cannot be read"},
    {"GRDRDH", -2711, "GXF: the value of \"#ZMAXIMUM\" cannot be read"},
    {"GRDRDH", -2712, "GXF: the value of \"#TRANSFORM\" cannot be read"},
    {"GRDRDH", -2713, "GXF: the value of \"#DUMMY\" cannot be read"},
    {"GRDRDH", -2901, "the file ends inside its header"},
    {"GRDRDH", -2902, "the header has no number where one must stand"},
    {"GRDRDH", -2903, "a count of cells is below 1 or too large"},
    {"GRDRDH", -2904, "a cell size is zero, negative or not finite"},
    {"GRDRDH", -2905, "a limit of the grid is not finite"},
    {"GRDRDH", -2906, "the file is too short for its counts of cells"},
    {"GRDRDH", -2907, "a table of the header has more entries than the file or the reader holds"},
    {"GRDRDH", -2908, "a table of the header points outside the file"},
    {"GRDRDH", -2909, "the cells are of a type that cannot be converted"},
    {"GRDRDH", -2910, "the coordinates of the cells are not evenly spaced"},
    {"GRDRDH", -3001, "netCDF: no list of dimensions where it should stand"},
    {"GRDRDH", -3002, "netCDF: not exactly two dimensions"},
    {"GRDTMPNAME", -1, "all 257 scratch names of the stem are taken, or its buffer has no room"},
    {"GRIDSTITCH", -1, "the grids cannot be joined along this line"},
    {"GRID_DETREND_PLANE", -1, "the grid has no valid cell"},
    {"GRID_DETREND_PLANE", -997,
     "the grid of the plane cannot be written, or would replace the input or the residual grid"},
    {"GRID_DETREND_PLANE", -998, "the residual grid cannot be written, or would replace the input"},
    {"GRID_DETREND_PLANE", -999, "the input cannot be described or opened"},
    {"GRID_FILL", -1, "the grid has no valid cell, or fewer than 4 columns or rows"},
    {"GRID_FILL", -999, "the input cannot be opened"},
    {"GRID_FILL", -1100, "filling of enclosed holes by sweeps is not part of this version"},
    {"PUTBUF", -1, "a count below 1"},
    {"RDSTITCHDXF", -1, "the file has no polyline of two vertices"},
    {"READ_GEOSOFT_HEADER", -1,
     "an element size other than 1, 2 and 4, a count below 1 or a spacing not above 0"},
    {"SETBUFFPOS", -1, "an offset below 0"},
    {"TRSD", -1001,
     "a grid has no name, a file of the run would replace the input or another of the run, the "
     "storage "
     "sense is neither 1 nor -2, or a cell size is not above 0"},
    {"TRSD", -1002, "the filter is not available on this road in this version"},
    {"TRSD", -1003, "the padding width is not above 0"},
    {"TRSD", -1004, "FftMode is above 1"},
    {"TRSD", -1006, "the input cannot be converted to a standard grid"},
    {"TRSD", -1007, "the input cannot be opened"},
    {"TRSD", -1008, "the holes of the grid cannot be filled"},
    {"TRSD", -1010,
     "a filter that does not exist, or parameters that it does not take; the log has more"},
    {"TRSD", -1012, "FFT: a padded grid of so many cells cannot be held, or the disk has no room"},
    {"TRSD", -1013,
     "convolution: a padded grid of so many cells cannot be held, or the disk has no room"},
    {"TRSD", -1015, "no memory for the FFT array"},
    {"TRSD", -1016, "the padded grid cannot be made"},
    {"TRSD", -1023,
     "the convolution operator cannot be designed, or is larger than the padded grid"},
};

constexpr std::int32_t no_last = std::numeric_limits<std::int32_t>::min();

// Where one family begins another of the same routine goes on: the nearest base counts.
constexpr status_family families[] = {
    {"EXPUNCOMPGRID", -20002, -20021, "the file ends within value ", " of its header"},
    {"EXPUNCOMPGRID", -21000, no_last, "block ", ": the file ends within it"},
    {"EXPUNCOMPGRID", -22000, no_last, "block ", ": its cells cannot be written"},
    {"EXPUNCOMPGRID", -24000, no_last, "block ", ": a chunk has more bytes than a chunk may have"},
    {"EXPUNCOMPGRID", -26000, no_last, "block ", ": a chunk cannot be written"},
    {"EXPUNCOMPGRID", -27000, no_last, "block ", ": a stored chunk lacks its marker"},
    {"EXPUNCOMPGRID", -28000, no_last, "block ", ": a stored chunk cannot be written"},
    {"EXPUNCOMPGRID", -29000, no_last, "block ", ": there is no memory to expand it"},
    {"EXPUNCOMPGRID", -30000, no_last, "block ", ": what it expands to cannot be written"},
    {"EXPUNCOMPGRID", -31000, no_last, "block ", ": it is of an unknown kind"},
    {"EXPUNCOMPGRID", -32000, no_last, "block ", ": it is corrupt, or longer than its rows"},
    {"EXPUNCOMPGRID", -33000, no_last, "block ",
     ": a chunk leaves it, or does not expand to its length"},
    {"GRDRDG", 0, -1000, "ZMap: line ", " of the file cannot be read"},
    {"GRDRDG", -1000, no_last, "line ", " of the cells cannot be read"},
};

const status_family* family_of(std::string_view routine, std::int32_t number) noexcept {
  const status_family* nearest = nullptr;
  for (const status_family& family : families) {
    if (family.routine == routine && number < family.base && number >= family.last) {
      nearest = &family;
    }
  }
  return nearest;
}

// The routine whose numbers a routine hands on; all others hand on those of the C interface.
struct forwarding {
  std::string_view routine;
  std::string_view numbers_of;
};

constexpr forwarding forwardings[] = {
    {"GEOCLONE", "GRDRDH"},
    {"GEOOUTI2S", "GEOOUTI2"},
    {"GEOOUTS", "GEOOUT"},
    {"GRDRDGD", "GRDRDG"},
    {"GRDRDGS", "GRDRDG"},
    {"GRDRDHS", "GRDRDH"},
    {"GRID_DETREND", "GRID_DETREND_PLANE"},
    {"GRID_DETREND_OLD", "GRID_DETREND_PLANE"},
    {"GRID_FILL", "GRDRDH"},
    {"READ_GEOSOFT_HEADERS", "READ_GEOSOFT_HEADER"},
    {"TRS", "TRSD"},
};

std::string_view numbers_of(std::string_view routine) noexcept {
  const auto* const next = std::find_if(std::begin(forwardings), std::end(forwardings),
                                        [&](const forwarding& f) { return f.routine == routine; });
  return next != std::end(forwardings) ? next->numbers_of : routine;
}

}  // namespace

std::span<const status_row> status_rows() noexcept {
  return rows;
}

std::span<const status_family> status_families() noexcept {
  return families;
}

std::string status_words(std::string_view routine, Status status) {
  if (const std::string_view words = status_text(routine, status); !words.empty()) {
    return std::string(words);
  }
  if (const status_family* const family = family_of(numbers_of(routine), status.code)) {
    std::string words(family->before);
    words += std::to_string(std::int64_t{family->base} - status.code);
    return words.append(family->behind);
  }
  return "status " + std::to_string(status.code);
}

std::string_view status_text(std::string_view routine, Status status) noexcept {
  if (!status.failed()) {
    return "success";
  }
  const auto* const row = std::find_if(std::begin(rows), std::end(rows), [&](const status_row& r) {
    return r.routine == routine && r.number == status.code;
  });
  if (row != std::end(rows)) {
    return row->words;
  }
  if (const std::string_view next = numbers_of(routine); next != routine) {
    return status_text(next, status);
  }
  return routine.empty() ? std::string_view() : status_text({}, status);
}

}  // namespace velmorankite
