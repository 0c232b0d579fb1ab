// The polyline along which two grids are joined, from a DXF file.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <vector>

#include "merge/outcome.h"

namespace velmorankite {

// Vertices in map units, in the order in which the line was drawn: seen along it, grid 1 is taken
// on the right and grid 2 on the left.
struct stitch_line {
  std::vector<double> x;
  std::vector<double> y;
};

inline constexpr Status stitch_line_unusable{-1};

// Reads the first POLYLINE behind the word ENTITIES of a DXF text file and thins it.
//   minimum_distance  map units: a vertex nearer than this to the vertex before it in the file is
//                     dropped.
//   line              out: the vertices kept; a closed polyline comes back to its first vertex.
// Status: success, or stitch_line_unusable for fewer than 2 vertices or a read that fails.
// Throws IoError for a file that cannot be opened, text where a number must stand, or a vertex
// whose groups are not one 10 (X) and then one 20 (Y); it names the line.
Outcome RDSTITCHDXF(const std::filesystem::path& path, double minimum_distance, stitch_line& line);

}  // namespace velmorankite
