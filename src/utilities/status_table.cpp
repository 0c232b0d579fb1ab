// A new number is a row here and a constant beside its routine.
// SPDX-License-Identifier: MIT
#include "utilities/status_table.h"

#include "formats/status_table.h"

namespace velmorankite {
namespace {

constexpr status_handover handovers[] = {{"GEOCLONE", "GRDRDH"}};

}  // namespace

constinit const status_table utilities_statuses{{}, {}, handovers, &formats_statuses};

}  // namespace velmorankite
