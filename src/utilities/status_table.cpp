// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "utilities/status_table.h"

#include "formats/status_table.h"
#include "utilities/bicubic.h"
#include "utilities/point_values.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"BICUBIC_GEO_INTERPOLATION", bicubic_bad_call, "a blank name, or a count of cells below 1"},
    {"BICUBIC_GRID_INTERPOLATION", bicubic_bad_call, "a count of cells below 1"},
    {"GEOVAL", point_values_bad_call, "a count of cells below 1"},
    {"GRDVAL", point_values_bad_call,
     "a blank name, a format of images, or a count of cells below 1"},
};

constexpr status_handover handovers[] = {
    {"BICUBIC_GEO_INTERPOLATIONS", "BICUBIC_GEO_INTERPOLATION"},
    {"BICUBIC_GRID_INTERPOLATIOND", "BICUBIC_GRID_INTERPOLATION"},
    {"BICUBIC_GRID_INTERPOLATIONS", "BICUBIC_GRID_INTERPOLATION"},
    {"GEOCLONE", "GRDRDH"},
    {"GEOVALS", "GEOVAL"},
    {"GRDVALD", "GRDVAL"},
    {"GRDVALI2", "GRDVAL"},
};

}  // namespace

constinit const status_table utilities_statuses{rows, {}, handovers, &formats_statuses};

}  // namespace velmorankite
