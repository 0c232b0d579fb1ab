// A temporary folder with everything that a merge needs, and runs in it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "grid/lattice.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite::testing {

// What a run told.
struct run_text {
  std::string console;  // lines, each with its end
  std::string remarks;
};

// Two planes on one lattice of 41 columns by 31 rows, 10 apart from (0, 0): grid 1 is
// 100 + x / 2 - y / 4 and grid 2 lies 12.5 below it. The line runs east along y = 150, so that
// grid 1 lies south of it; the blend is 50 wide, the band 100 to either side. Grid 2 is moved.
class MergeFolder {
 public:
  MergeFolder();

  // Puts a text in place of one of the 13 lines of the definitions file, from 1.
  void define(std::size_t line, std::string text) { definitions_.at(line - 1) = std::move(text); }
  // Writes line.dxf.
  void draw_line(const std::vector<std::pair<double, double>>& vertices) const;
  // Writes the definitions file and runs the merge in the folder. `on_line` sees each line of the
  // console as it is written.
  run_text run(const std::function<void(std::string_view)>& on_line = {}) const;
  void write_definitions() const;

  [[nodiscard]] std::filesystem::path operator/(std::string_view name) const {
    return folder_ / name;
  }
  [[nodiscard]] std::vector<std::string> names() const { return folder_.names(); }
  // Bytes of every file, by name.
  [[nodiscard]] std::map<std::string, std::string> contents() const;

  static constexpr Lattice lattice{0.0, 0.0, 10.0, 10.0, 41, 31};
  static float plane(std::int32_t column, std::int32_t row) {
    return 100.0F + 5.0F * static_cast<float>(column - 1) - 2.5F * static_cast<float>(row - 1);
  }
  // Of a cell among those of read_grid on a grid of `lattice`.
  static std::size_t index(std::int32_t column, std::int32_t row) {
    return static_cast<std::size_t>((row - 1) * lattice.x_count + column - 1);
  }

 private:
  TemporaryFolder folder_;
  CurrentFolder here_;
  std::vector<std::string> definitions_;
};

}  // namespace velmorankite::testing
