// How a step of a merge came out.
// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <utility>

#include "grid/status.h"

namespace velmorankite {

// Every step of a merge that can fail by its contract gives one: a step that cannot be done says
// why, and who asked for the step hands that on. Failed file operations throw IoError.
struct [[nodiscard]] Outcome {
  Status status = success;
  std::string why = {};  // on a failure one sentence, with the numbers that led to it

  [[nodiscard]] bool failed() const noexcept { return status.failed(); }
};

// The one number of a stitch that cannot be done, whichever of its steps says so.
inline constexpr Status stitch_impossible{-1};

inline Outcome impossible(std::string why) {
  return {stitch_impossible, std::move(why)};
}

}  // namespace velmorankite
