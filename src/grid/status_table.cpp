// What the statuses of this floor mean. A new number is a row here and a constant beside its
// routine. SPDX-License-Identifier: MIT
#include "grid/cell_interpolation.h"
#include "grid/file_services.h"
#include "grid/scratch_names.h"
#include "grid/standard_header.h"
#include "grid/status_words.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"FSYSTEM", command_failed, "the command could not be run or ended with a status other than 0"},
    {"GEO_CELL_INTERPOLATION", interpolation_bad_call,
     "no points, a blank path, or fewer cells in memory than the description says"},
    {"GRDOSTEMP", temporary_name_failed, "no file of a new name can be made in the folder"},
    {"GRDTMPNAME", scratch_names_taken,
     "all 257 scratch names of the stem are taken, or its buffer has no room"},
    {"READ_GEOSOFT_HEADER", header_unsound,
     "an element size other than 1, 2 and 4, a count below 1 or a spacing not above 0"},
};

}  // namespace

constinit const status_table grid_statuses{rows, {}, {}, nullptr};

}  // namespace velmorankite
