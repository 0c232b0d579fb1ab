// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "utilities/status_table.h"

#include "formats/status_table.h"
#include "grid/standard_header.h"
#include "utilities/bicubic.h"
#include "utilities/limits.h"
#include "utilities/plain_grid.h"
#include "utilities/point_values.h"
#include "utilities/source_grid.h"
#include "utilities/trim.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"BICUBIC_GEO_INTERPOLATION", bicubic_bad_call, "a blank name, or a count of cells below 1"},
    {"BICUBIC_GRID_INTERPOLATION", bicubic_bad_call, "a count of cells below 1"},
    {"GEODRAPE", resampling_profile_unsound,
     "fewer than 2 points of the profile, or points that are not finite or do not ascend"},
    {"GEOFLIP", header_unsound, "the header is not sound"},
    {"GEOFLIP", plain_cells_unknown, "the cells are of other than 4 bytes"},
    {"GEOFLIP", plain_sense_unknown, "the storage sense is neither 1 nor -2"},
    {"GEOLIMITS", limits_no_data, "no cell holds data"},
    {"GEOROT", resampling_header_unsound,
     "a name that is blank or too short, a header that is not sound, or cells of 1 byte"},
    {"GEOROT", resampling_cells_unknown,
     "the cells are not 4-byte floats or signed 2-byte integers in one of the senses 1 and -2"},
    {"GEOROT", resampling_too_small, "fewer than 2 columns or rows"},
    {"GEOROT", resampling_counts_differ, "the counts are not those of the input's header"},
    {"GEOROT", resampling_output_unsound, "the lattice of the output is not sound"},
    {"GEOROT", resampling_numbers_unsound,
     "a number that is not finite, a scale of 0, or an input cell size not above 0"},
    {"GEOTRIM", trim_no_data, "no cell holds data, or the header is not sound"},
    {"GEOTRIM", plain_cells_unknown, "cells of 1 byte, or floats of other than 4 bytes"},
    {"GEOTRIM", plain_sense_unknown, "the storage sense is neither 1 nor -2"},
    {"GEOVAL", point_values_bad_call, "a count of cells below 1"},
    {"GEOVALID", header_unsound, "the header is not sound"},
    {"GEOVALID", plain_cells_unknown, "cells of 1 byte, or floats of other than 4 bytes"},
    {"GEOVALID", plain_sense_unknown, "the storage sense is neither 1 nor -2"},
    {"GRDVAL", point_values_bad_call,
     "a blank name, a format of images, or a count of cells below 1"},
};

constexpr status_handover handovers[] = {
    {"BICUBIC_GEO_INTERPOLATIONS", "BICUBIC_GEO_INTERPOLATION"},
    {"BICUBIC_GRID_INTERPOLATIOND", "BICUBIC_GRID_INTERPOLATION"},
    {"BICUBIC_GRID_INTERPOLATIONS", "BICUBIC_GRID_INTERPOLATION"},
    {"GEOCLONE", "GRDRDH"},
    {"GEODRAPE", "GEOROT"},
    {"GEODRAPES", "GEODRAPE"},
    {"GEOROT", "GRDRDH"},  // which GEOROTD asks first
    {"GEOROTD", "GEOROT"},
    {"GEOROTS", "GEOROT"},
    {"GEOVALS", "GEOVAL"},
    {"GRDVALD", "GRDVAL"},
    {"GRDVALI2", "GRDVAL"},
};

}  // namespace

constinit const status_table utilities_statuses{rows, {}, handovers, &formats_statuses};

}  // namespace velmorankite
