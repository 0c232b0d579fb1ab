// The definitions file: the 13 lines that say what is merged.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>

#include "merge/stitch_parameters.h"

namespace velmorankite {

struct merge_definitions {
  std::filesystem::path grid_1_file;  // of any supported format
  std::filesystem::path grid_2_file;
  std::filesystem::path stitch_line_file;
  stitch_parameters stitch;
};

// Reads a definitions file and makes sure that a merge can be done with it, before any work:
// numbers as check_parameters wants them, and no result under the name of an input.
// Throws IoError with the line of the file and what was expected there.
merge_definitions read_definitions(const std::filesystem::path& path);

}  // namespace velmorankite
