// What the statuses of the routines of this floor and those below mean.
// SPDX-License-Identifier: MIT
#pragma once
#include "grid/status_words.h"

namespace velmorankite {

extern const status_table condition_statuses;

}  // namespace velmorankite
