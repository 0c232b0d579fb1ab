// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "merge/status_table.h"

#include "merge/outcome.h"
#include "merge/stitch_line.h"
#include "transform/status_table.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"GRIDSTITCH", stitch_impossible, "the grids cannot be joined along this line"},
    {"RDSTITCHDXF", stitch_line_unusable, "the file has no polyline of two vertices"},
};

}  // namespace

constinit const status_table merge_statuses{rows, {}, {}, &transform_statuses};

}  // namespace velmorankite
