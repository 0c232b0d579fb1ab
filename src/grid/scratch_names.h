// Names of the scratch files that a run keeps in its working folder.
// SPDX-License-Identifier: MIT
#pragma once
#include <string>
#include <string_view>

#include "grid/status.h"
#include "platform/scratch_file.h"

namespace velmorankite {

// The stem of a scratch file whose maker gives none.
inline constexpr std::string_view default_scratch_stem = "~scratch";

inline constexpr Status scratch_names_taken{-1};

// Completes a stem to the first name that no file has: stem, four digits from 0000, ".tmp".
//   name  in: the stem, trailing blanks dropped, the default stem if nothing is left; out: the
//         name, on failure the last one tried.
// The name is free when it is tested, not held: whoever means to create the file takes
// new_scratch, which does both in one step.
Status GRDTMPNAME(std::string& name);

// Creates an empty file under the first free name of `stem` and gives its guard. Two runs in one
// folder never get the same file. Throws IoError naming the stem if all 257 names are taken or
// the folder cannot be written.
[[nodiscard]] platform::ScratchFile new_scratch(std::string_view stem);

}  // namespace velmorankite
