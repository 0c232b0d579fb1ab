// SPDX-License-Identifier: MIT
#include "support/merge_folder.h"

#include <sstream>

#include "merge/driver.h"

namespace velmorankite::testing {

MergeFolder::MergeFolder()
    : here_(folder_.path()), definitions_{"Two planes", "one.grd",    "two.grd", "line.dxf",
                                          "merged.grd", "merged.txt", "0",       "1",
                                          "50",         "50",         "0",       "0 400 10 41",
                                          "0 300 10 31"} {
  write_grid(folder_ / "one.grd", lattice, plane);
  write_grid(folder_ / "two.grd", lattice,
             [](std::int32_t column, std::int32_t row) { return plane(column, row) - 12.5F; });
  draw_line({{-50, 150}, {200, 150}, {450, 150}});
}

void MergeFolder::draw_line(const std::vector<std::pair<double, double>>& vertices) const {
  std::ostringstream dxf;
  dxf.precision(17);
  dxf << "0\nSECTION\n2\nENTITIES\n0\nPOLYLINE\n8\n0\n66\n1\n";
  for (const auto& [x, y] : vertices) {
    dxf << "0\nVERTEX\n8\n0\n10\n" << x << "\n20\n" << y << "\n30\n0\n";
  }
  dxf << "0\nSEQEND\n0\nENDSEC\n0\nEOF\n";
  write_file(folder_ / "line.dxf", dxf.str());
}

void MergeFolder::write_definitions() const {
  std::string text;
  for (const std::string& line : definitions_) {
    text += line + "\n";
  }
  write_file(folder_ / "mergedefs.trs", text);
}

run_text MergeFolder::run(const std::function<void(std::string_view)>& on_line) const {
  write_definitions();
  run_text text;
  const auto console = [&](std::string_view line) {
    text.console.append(line).append("\n");
    if (on_line) {
      on_line(line);
    }
  };
  run_merge("mergedefs.trs",
            {console, [&](std::string_view line) { text.remarks.append(line).append("\n"); }});
  return text;
}

std::map<std::string, std::string> MergeFolder::contents() const {
  std::map<std::string, std::string> files;
  for (const std::string& name : names()) {
    if (std::filesystem::is_regular_file(folder_ / name)) {
      files[name] = read_file(folder_ / name);
    }
  }
  return files;
}

}  // namespace velmorankite::testing
