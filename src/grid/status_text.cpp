// SPDX-License-Identifier: MIT
#include "grid/status_text.h"

#include <algorithm>
#include <iterator>

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
    {"FOURN", -1, "a dimension is not a power of two, or there is none"},
    {"FOURN", -2, "the dimensions are more than can be counted"},
    {"FOURN", -3, "the sign is neither 1 nor -1"},
    {"FSYSTEM", -1, "the command could not be run or ended with a status other than 0"},
    {"GEO_CELL_INTERPOLATION", -1,
     "no points, a blank path, or fewer cells in memory than the description says"},
    {"GRDMIPMAP", -1,
     "the working lattice has fewer than 4 columns or rows or does not hold the whole input, or no "
     "cell has a value"},
    {"GRDOSTEMP", -1, "no file of a new name can be made in the folder"},
    {"GRDRDH", -1, "the name has fewer than 3 characters"},
    {"GRDRDH", -1001, "the file does not exist"},
    {"GRDRDH", -1002, "the file is empty"},
    {"GRDRDH", -1005, "the format of the file is not recognised"},
    {"GRDRDH", -1006, "the first 256 bytes of the file cannot be read"},
    {"GRDRDH", -2001, "the header file that belongs to the grid is missing"},
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
    {"GRDTMPNAME", -1, "all 257 scratch names of the stem are taken, or its buffer has no room"},
    {"GRIDSTITCH", -1, "the grids cannot be joined along this line"},
    {"GRID_DETREND_PLANE", -1, "the grid has no valid cell"},
    {"GRID_DETREND_PLANE", -997, "the grid of the plane cannot be written"},
    {"GRID_DETREND_PLANE", -998, "the residual grid cannot be written"},
    {"GRID_DETREND_PLANE", -999, "the input cannot be described or opened"},
    {"GRID_FILL", -1, "the grid has no valid cell, or fewer than 4 columns or rows"},
    {"GRID_FILL", -999, "the input cannot be opened"},
    {"GRID_FILL", -1100, "filling of enclosed holes by sweeps is not part of this version"},
    {"RDSTITCHDXF", -1, "the file has no polyline of two vertices"},
    {"READ_GEOSOFT_HEADER", -1,
     "an element size other than 1, 2 and 4, a count below 1 or a spacing not above 0"},
    {"TRSD", -1001,
     "a grid has no name, its storage sense is neither 1 nor -2, or a cell size is not above 0"},
    {"TRSD", -1002, "the filter is not available on this road in this version"},
    {"TRSD", -1003, "the padding width is not above 0"},
    {"TRSD", -1004, "FftMode is above 1"},
    {"TRSD", -1006, "the input is not a plain standard grid and cannot be converted"},
    {"TRSD", -1007, "the input cannot be opened"},
    {"TRSD", -1008, "the holes of the grid cannot be filled"},
    {"TRSD", -1010,
     "a filter that does not exist, or parameters that it does not take; the log has more"},
    {"TRSD", -1013, "no memory for the rows of the operator"},
    {"TRSD", -1015, "no memory for the FFT array"},
    {"TRSD", -1016, "the padded grid cannot be made"},
    {"TRSD", -1023, "the convolution operator cannot be designed"},
};

// The routine whose numbers a routine hands on; all others hand on those of the C interface.
struct forwarding {
  std::string_view routine;
  std::string_view numbers_of;
};

constexpr forwarding forwardings[] = {
    {"GEOCLONE", "GRDRDH"},
    {"GRDRDHS", "GRDRDH"},
    {"GRID_DETREND", "GRID_DETREND_PLANE"},
    {"GRID_DETREND_OLD", "GRID_DETREND_PLANE"},
    {"GRID_FILL", "GRDRDH"},
    {"READ_GEOSOFT_HEADERS", "READ_GEOSOFT_HEADER"},
    {"TRS", "TRSD"},
};

}  // namespace

std::span<const status_row> status_rows() noexcept {
  return rows;
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
  const auto* const next = std::find_if(std::begin(forwardings), std::end(forwardings),
                                        [&](const forwarding& f) { return f.routine == routine; });
  if (next != std::end(forwardings)) {
    return status_text(next->numbers_of, status);
  }
  return routine.empty() ? std::string_view() : status_text({}, status);
}

}  // namespace velmorankite
