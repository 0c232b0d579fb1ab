// A grid written row by row in several formats at once: the standard grid, and the plain binary
// formats that other tools read without a conversion.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "grid/lattice.h"
#include "platform/binary_file.h"

namespace velmorankite::bench {

enum class format {
  standard,  // .grd, for this program
  gmt,       // .bf, native binary floats of GMT, blanks as NaN
  envi       // .bil with .hdr, which GDAL reads
};

class GridFile {
 public:
  // `stem` is the path without its extension.
  GridFile(const std::filesystem::path& stem, format kind, const Lattice& lattice);
  // Rows in any order, counted from 1 at the lowest Y.
  void write(std::int32_t row, std::span<const float> values);

 private:
  format kind_;
  Lattice lattice_;
  platform::BinaryFile file_;
  std::vector<float> row_;
};

}  // namespace velmorankite::bench
