// The spectrum of a padded grid, saved as a standard grid for later passes and later runs.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <span>

#include "grid/lattice.h"
#include "grid/standard_header.h"
#include "platform/binary_file.h"
#include "transform/fft_array.h"
#include "transform/log_line.h"

namespace velmorankite {

// The header of the spectrum of a grid on `lattice`: two columns for every element of the array,
// rows from the north.
[[nodiscard]] standard_header fft_grid_header(const Lattice& lattice, const fft_geometry& geometry);

// Writes header and array: under a name, where it appears when it is complete, or into a file that
// is open. Throws IoError.
void save_fft_grid(const std::filesystem::path& path, const Lattice& lattice,
                   const fft_geometry& geometry, std::span<const float> array);
void save_fft_grid(platform::BinaryFile& file, const Lattice& lattice, const fft_geometry& geometry,
                   std::span<const float> array);

// Reads the array of a file that holds it. Throws IoError.
void read_fft_grid(const platform::BinaryFile& file, std::span<float> array);

// Looks for a saved spectrum of the grid on `lattice` with this geometry, and reads it. A file that
// belongs to another geometry, or cannot be read, is deleted. Logs what it finds.
// True if the array holds the spectrum.
[[nodiscard]] bool reuse_fft_grid(const std::filesystem::path& path, const Lattice& lattice,
                                  const fft_geometry& geometry, std::span<float> array,
                                  const log_sink& log);

}  // namespace velmorankite
