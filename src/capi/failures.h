// Where exceptions and statuses of the library become the numbers of the C interface.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

#include "grid/status.h"
#include "merge/outcome.h"

namespace velmorankite::capi {

// Keeps the words of a failure for this thread.
void remember_failure(std::string_view routine, std::string_view words) noexcept;

// Words of the last failure on this thread.
[[nodiscard]] std::string_view last_failure() noexcept;

// Remembers the words of the exception that is being handled and gives its number.
std::int32_t failure_in_flight(std::string_view routine) noexcept;

// Remembers the words of a status, if it is a failure, and gives its number.
//   format_code  of the grid at hand, 0 where there is none.
std::int32_t number_of(std::string_view routine, Status status, std::int32_t format_code = 0);

// The same of an outcome, whose own words are remembered.
std::int32_t number_of(std::string_view routine, const Outcome& outcome);

// Runs the body of a routine, which gives a Status or an Outcome; no exception leaves it.
template <typename Body>
std::int32_t guarded(std::string_view routine, Body&& body) noexcept {
  try {
    return number_of(routine, body());
  } catch (...) {
    return failure_in_flight(routine);
  }
}

// The same for a routine whose numbers mean different things for different formats. `format_code`
// is looked at behind the body.
template <typename Body>
std::int32_t guarded(std::string_view routine, Body&& body,
                     const std::int32_t& format_code) noexcept {
  try {
    const Status status = body();
    return number_of(routine, status, format_code);
  } catch (...) {
    return failure_in_flight(routine);
  }
}

// For a status that a routine does not touch on success.
inline void touch_on_failure(std::int32_t* status, std::int32_t number) noexcept {
  if (number < 0) {
    *status = number;
  }
}

}  // namespace velmorankite::capi
