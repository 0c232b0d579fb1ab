// SPDX-License-Identifier: MIT
#include "transform/fft_grid.h"

#include <string>

#include "formats/describe_grid.h"
#include "grid/grid_rows.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

constexpr std::int64_t first_word = standard_header_bytes + 1;

bool has_size(const std::filesystem::path& path, const fft_geometry& geometry,
              const log_sink& log) {
  const std::int64_t actual = platform::bytes_of_file(path);
  const auto expected =
      static_cast<std::int64_t>(sizeof(float) * geometry.fftwords()) + standard_header_bytes;
  if (actual == expected) return true;
  log(log_line("Mismatch in size of saved FFT grid file: ", actual, expected));
  return false;
}

bool has_definitions(const std::filesystem::path& path, const Lattice& lattice,
                     const fft_geometry& geometry) {
  grid_description saved;
  grid_texts texts;
  if (GRDRDH(path.string(), saved, texts).failed()) return false;
  return saved.ints.x_count == 2 * geometry.fftnx && saved.ints.y_count == geometry.fftny &&
         agree(2.0 * saved.reals.x_cell, lattice.x_cell) &&
         agree(saved.reals.y_cell, lattice.y_cell) &&
         agree(saved.reals.x_min + geometry.origx * lattice.x_cell, lattice.x_min) &&
         agree(saved.reals.y_min + geometry.origy * lattice.y_cell, lattice.y_min);
}

}  // namespace

standard_header fft_grid_header(const Lattice& lattice, const fft_geometry& geometry) {
  return float_grid_header({lattice.x_min - geometry.origx * lattice.x_cell,
                            lattice.y_min - geometry.origy * lattice.y_cell, 0.5 * lattice.x_cell,
                            lattice.y_cell, 2 * geometry.fftnx, geometry.fftny},
                           sense_top_down);
}

void save_fft_grid(platform::BinaryFile& file, const Lattice& lattice, const fft_geometry& geometry,
                   std::span<const float> array) {
  OUTPUT_GEOSOFT_HEADER(file, fft_grid_header(lattice, geometry));
  file.write_values(first_word, array);
}

void save_fft_grid(const std::filesystem::path& path, const Lattice& lattice,
                   const fft_geometry& geometry, std::span<const float> array) {
  platform::StagedFile staged(path);
  save_fft_grid(staged.file(), lattice, geometry, array);
  staged.commit();
}

void read_fft_grid(const platform::BinaryFile& file, std::span<float> array) {
  file.read_values(first_word, array);
}

bool reuse_fft_grid(const std::filesystem::path& path, const Lattice& lattice,
                    const fft_geometry& geometry, std::span<float> array, const log_sink& log) {
  if (path.empty() || !platform::file_exists(path)) return false;
  log("Check for reuse of FFT file : " + path.string());
  try {
    if (has_size(path, geometry, log) && has_definitions(path, lattice, geometry)) {
      log("Read the saved FFT coefficients");
      read_fft_grid(platform::BinaryFile(path, platform::open_mode::read), array);
      log("FFT coefficients read");
      return true;
    }
    log("There is a mismatch in the definitions of the saved FFT grid file, so the existing file "
        "will be deleted");
  } catch (const platform::IoError& error) {
    log(error.what());
  }
  platform::delete_file(path);
  return false;
}

}  // namespace velmorankite
