// SPDX-License-Identifier: MIT
#include "capi/status_table.h"

#include <velmorankite/velmorankite.h>

#include "merge/status_table.h"

namespace velmorankite {
namespace {

constexpr status_row rows[] = {
    {"", Status{VELMORANKITE_FILE_FAILED}, "a file operation failed, or a file is not sound"},
    {"", Status{VELMORANKITE_OUT_OF_MEMORY}, capi::out_of_memory_words},
    {"", Status{VELMORANKITE_TEXT_TOO_LONG}, "a text that comes back does not fit its buffer"},
    {"", Status{VELMORANKITE_FAILED}, capi::unforeseen_words},
};

// Forms of a routine that only the C interface has.
constexpr status_handover handovers[] = {
    {"GEOOUTI2S", "GEOOUTI2"}, {"GEOOUTS", "GEOOUT"},
    {"GRDRDGD", "GRDRDG"},     {"GRDRDGS", "GRDRDG"},
    {"GRDRDHS", "GRDRDH"},     {"READ_GEOSOFT_HEADERS", "READ_GEOSOFT_HEADER"},
};

}  // namespace

constinit const status_table capi_statuses{rows, {}, handovers, &merge_statuses};

}  // namespace velmorankite
