// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "condition/status_table.h"

#include "condition/detrend.h"
#include "condition/grid_extension.h"
#include "condition/hole_filling.h"
#include "condition/multi_level_fill.h"
#include "utilities/status_table.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"GRDEXT", extension_impossible,
     "no file on the unit, cells other than 4-byte floats, counts, offsets, a sense or cell sizes "
     "that are not sound, no output name, or no valid cell"},
    {"GRDMIPMAP", fill_impossible,
     "the working lattice has fewer than 4 columns or rows or does not hold the whole input, or no "
     "cell has a value"},
    {"GRID_DETREND_PLANE", detrend_no_valid_cell, "the grid has no valid cell"},
    {"GRID_DETREND_PLANE", detrend_trend_unwritable,
     "the grid of the plane cannot be written, or would replace the input or the residual grid"},
    {"GRID_DETREND_PLANE", detrend_residual_unwritable,
     "the residual grid cannot be written, or would replace the input"},
    {"GRID_DETREND_PLANE", detrend_input_unreadable, "the input cannot be described or opened"},
    {"GRID_FILL", fill_no_valid_cell,
     "the grid has no valid cell, or, unless it is filled by sweeps, fewer than 4 columns or rows"},
    {"GRID_FILL", fill_input_unopened, "the input cannot be opened"},
};

constexpr status_handover handovers[] = {
    {"GRID_DETREND", "GRID_DETREND_PLANE"},
    {"GRID_DETREND_OLD", "GRID_DETREND_PLANE"},
    {"GRID_FILL", "GRDRDH"},
};

}  // namespace

constinit const status_table condition_statuses{rows, {}, handovers, &utilities_statuses};

}  // namespace velmorankite
