// What the statuses of all routines mean: the tables of the floors, joined.
// SPDX-License-Identifier: MIT
#pragma once
#include <string_view>

#include "grid/status_words.h"

namespace velmorankite {

extern const status_table capi_statuses;

namespace capi {

// Words that must be had without an allocation.
inline constexpr std::string_view out_of_memory_words = "an array could not be allocated";
inline constexpr std::string_view unforeseen_words = "the routine failed in an unforeseen way";

}  // namespace capi
}  // namespace velmorankite
