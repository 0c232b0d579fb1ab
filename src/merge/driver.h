// A run of the program: from the definitions file to the merged grid.
// SPDX-License-Identifier: MIT
#pragma once
#include <functional>
#include <optional>
#include <string_view>

namespace velmorankite {

// Where a run says what it does, line by line and without line ends.
struct run_output {
  std::function<void(std::string_view)> console;  // the program's own text: standard output
  std::function<void(std::string_view)> remarks;  // reasons and the summary: standard error
};

// Merges two grids as a definitions file says.
//   definitions  path of the definitions file; without one the run tells how it is called.
// A run that comes to a stop says so in `output` and ends in the ordinary way. Throws IoError
// where a file operation fails or the definitions cannot be used.
void run_merge(std::optional<std::string_view> definitions, const run_output& output);

}  // namespace velmorankite
