// A run on the FFT road without its driver: an analytic field as padded grid, filters on it.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "grid/grid_rows.h"
#include "platform/binary_file.h"
#include "support/grids.h"
#include "support/temporary_folder.h"
#include "transform/fft_array.h"
#include "transform/fft_response.h"
#include "transform/gradient_stage.h"
#include "transform/trs_filter.h"

namespace velmorankite::testing {

// Value of a field at a point, x to the east and y to the north of the middle of the grid.
using field = std::function<double(double x, double y)>;

inline constexpr std::int32_t pad_of_width_1 = 4;

// The padded grid is nxp by nyp cells, the grid what its pad of 4 cells leaves.
class GridRun {
 public:
  GridRun(std::int32_t nxp, std::int32_t nyp, double x_cell, double y_cell,
          std::int32_t storage_sense, const field& value)
      : lattice_{-0.5 * (nxp - 1) * x_cell, -0.5 * (nyp - 1) * y_cell, x_cell, y_cell, nxp, nyp} {
    const fft_geometry& g = plan(nxp, nyp);
    array_.resize(g.fftwords());
    write_grid(
        folder_ / "padded.grd", lattice_,
        [&](std::int32_t column, std::int32_t row) {
          return static_cast<float>(value(lattice_.x(column), lattice_.y(row)));
        },
        storage_sense);
    padded_ = {platform::BinaryFile(folder_ / "padded.grd", platform::open_mode::read_write),
               {storage_sense, nxp, nyp}};
  }

  void load(std::int32_t filter, std::array<float, real_parameters> reals,
            std::array<std::int32_t, integer_parameters> integers = {}) {
    const Status status =
        TRSFLT(filter, 3, 2, 1, high_cut, 0.0F, 0.0F, integers, reals, lattice_.x_cell,
               lattice_.y_cell, parameters_, [](std::string_view) {});
    ASSERT_FALSE(status.failed());
  }

  void forward() { transform_padded(padded_, geometry_, 0.0F, array_); }

  // The grid after one filter.
  std::vector<float> filtered(std::int32_t filter, std::array<float, real_parameters> reals,
                              std::array<std::int32_t, integer_parameters> integers = {}) {
    load(filter, reals, integers);
    forward();
    fftrsp(true, geometry_.size(), filter, parameters_, array_, power_);
    transform_array(array_, geometry_, -1);
    return window();
  }

  // The real parts of the array on the padded grid, lowest row first.
  [[nodiscard]] std::vector<float> window() const {
    std::vector<float> cells;
    std::vector<float> row_cells(static_cast<std::size_t>(geometry_.nxp));
    for (std::int32_t row = 1; row <= geometry_.nyp; ++row) {
      read_window_row(array_, geometry_, row, row_cells);
      cells.insert(cells.end(), row_cells.begin(), row_cells.end());
    }
    return cells;
  }

  // The lattice of the grid inside its pad.
  [[nodiscard]] Lattice grid_lattice() const {
    return {lattice_.x(1 + pad_of_width_1),
            lattice_.y(1 + pad_of_width_1),
            lattice_.x_cell,
            lattice_.y_cell,
            geometry_.columns,
            geometry_.rows};
  }

  fft_stage stage() { return {grid_lattice(), geometry_, array_, power_}; }

  // Compares cells with a field away from the edges; `tolerance` is a share of its largest value.
  void expect_field(const std::vector<float>& cells, const field& value, double tolerance,
                    std::int32_t margin = 12) const {
    double largest = 0.0;
    double error = 0.0;
    for (std::int32_t row = 1 + margin; row <= lattice_.y_count - margin; ++row) {
      for (std::int32_t column = 1 + margin; column <= lattice_.x_count - margin; ++column) {
        const double expected = value(lattice_.x(column), lattice_.y(row));
        const std::size_t at = cell_index(column, row, lattice_.x_count);
        largest = std::max(largest, std::abs(expected));
        error = std::max(error, std::abs(static_cast<double>(cells[at]) - expected));
      }
    }
    EXPECT_LT(error, tolerance * largest);
  }

  [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }
  RowFile& padded() { return padded_; }
  [[nodiscard]] const Lattice& lattice() const { return lattice_; }
  [[nodiscard]] const fft_geometry& geometry() const { return geometry_; }
  std::vector<float>& array() { return array_; }
  filter_parameters& parameters() { return parameters_; }

  float high_cut = 0.0F;  // HiCut of the filters to come

 private:
  const fft_geometry& plan(std::int32_t nxp, std::int32_t nyp) {
    EXPECT_EQ(plan_fft(nxp - 2 * pad_of_width_1, nyp - 2 * pad_of_width_1, 1, geometry_), success);
    return geometry_;
  }

  TemporaryFolder folder_;
  Lattice lattice_;  // of the padded grid
  RowFile padded_;
  fft_geometry geometry_;
  std::vector<float> array_;
  filter_parameters parameters_;
  PowerSpectrum power_;
};

}  // namespace velmorankite::testing
