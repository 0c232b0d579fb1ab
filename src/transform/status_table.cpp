// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "transform/status_table.h"

#include "condition/status_table.h"
#include "transform/convolution_design.h"
#include "transform/fourn.h"
#include "transform/transform_status.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"CALC_FILTER_COEFFICIENTS", operator_index_invalid,
     "the filter is not one of 100 to 199, which have a symmetric operator"},
    {"CALC_FILTER_COEFFICIENTS", operator_unknown, "the filter has no operator"},
    {"CALC_FILTER_COEFFICIENTS", operator_size_invalid,
     "columns and rows are not the same odd number"},
    {"FOURN", fourn_bad_dimension, "a dimension is not a power of two, or there is none"},
    {"FOURN", fourn_short_array, "the dimensions are more than can be counted"},
    {"FOURN", fourn_bad_sign, "the sign is neither 1 nor -1"},
    {"TRSD", transform_arguments_invalid,
     "a grid has no name, a file of the run would replace the input or another of the run, the "
     "storage "
     "sense is neither 1 nor -2, or a cell size is not above 0"},
    {"TRSD", transform_not_available, "the filter is not available on this road in this version"},
    {"TRSD", transform_padding_invalid, "the padding width is not above 0"},
    {"TRSD", transform_road_unknown, "FftMode is above 1"},
    {"TRSD", transform_conversion_failed, "the input cannot be converted to a standard grid"},
    {"TRSD", transform_input_unopened, "the input cannot be opened"},
    {"TRSD", transform_fill_failed, "the holes of the grid cannot be filled"},
    {"TRSD", transform_filter_refused,
     "a filter that does not exist, or parameters that it does not take; the log has more"},
    {"TRSD", transform_row_memory_fft,
     "FFT: a padded grid of so many cells cannot be held, or the disk has no room"},
    {"TRSD", transform_row_memory,
     "convolution: a padded grid of so many cells cannot be held, or the disk has no room"},
    {"TRSD", transform_array_memory, "no memory for the FFT array"},
    {"TRSD", transform_padding_failed, "the padded grid cannot be made"},
    {"TRSD", transform_design_failed,
     "the convolution operator cannot be designed, or is larger than the padded grid"},
};

constexpr status_handover handovers[] = {{"TRS", "TRSD"}};

}  // namespace

constinit const status_table transform_statuses{rows, {}, handovers, &condition_statuses};

}  // namespace velmorankite
