// SPDX-License-Identifier: MIT
#include "transform/gradient_stage.h"

#include <cstddef>
#include <vector>

#include "grid/dummy.h"
#include "grid/standard_header.h"
#include "transform/fft_grid.h"
#include "transform/fft_response.h"
#include "transform/filter_index.h"

namespace velmorankite {
namespace {

void face_x(filter_parameters& p) {
  p.Par1 = 1.0F;
  p.Par2 = 90.0F;
  p.Azim = 0.0F;
  set_direction(p, 90.0);
}

void face_y(filter_parameters& p) {
  p.Par1 = 1.0F;
  p.Par2 = 0.0F;
  p.Azim = 0.0F;
  p.DirCos = 1.0;
  p.DirSin = 0.0;
}

void face_down(filter_parameters& p) {
  p.Par1 = 1.0F;
}

struct gradient_pass {
  std::int32_t filter = 0;
  void (*set)(filter_parameters&) = nullptr;
  bool removes_mean = false;
  bool kept = false;
};

using pass_list = std::array<gradient_pass, 3>;

constexpr gradient_pass along_x{filter_horizontal_derivative, face_x, false, true};
constexpr gradient_pass along_y{filter_horizontal_derivative, face_y, false, true};
constexpr gradient_pass component_x{filter_field_x, nullptr, true, true};
constexpr gradient_pass component_y{filter_field_y, nullptr, true, true};

// In the order of gradient_passes, without `none`.
constexpr pass_list passes[] = {
    {along_x, along_y, {filter_vertical_derivative, face_down, false, false}},
    {along_x, along_y, {filter_vertical_derivative, face_down, true, true}},
    {component_x, component_y, {filter_field_z, nullptr, true, false}},
    {component_x, component_y, {filter_field_z, nullptr, true, true}},
};

// The mean of the real parts over the valid cells of the input, summed in single precision.
float mean_of_valid(const fft_stage& stage, const RowFile& input) {
  const auto columns = static_cast<std::size_t>(stage.geometry.columns);
  std::vector<float> cells(columns);
  float sum = 0.0F;
  std::int64_t count = 0;
  for (std::int32_t row = stage.geometry.rows; row >= 1; --row) {
    input.read(row, cells);
    const float* const words = stage.array.data() + stage.geometry.grid_row(row);
    for (std::size_t i = 0; i < columns; ++i) {
      if (is_valid(cells[i])) {
        sum += words[2 * i];
        ++count;
      }
    }
  }
  return count > 0 ? sum / static_cast<float>(count) : 0.0F;
}

void subtract_from_window(const fft_stage& stage, float mean) {
  for (std::int32_t row = 1; row <= stage.geometry.nyp; ++row) {
    float* const words = stage.array.data() + stage.geometry.padded_row(row);
    for (std::size_t i = 0; i < static_cast<std::size_t>(stage.geometry.nxp); ++i) {
      words[2 * i] -= mean;
    }
  }
}

void apply(const fft_stage& stage, const filter_parameters& parameters, bool normalise,
           std::int32_t filter) {
  fftrsp(normalise, stage.geometry.size(), filter, parameters, stage.array, stage.power);
}

}  // namespace

gradient_passes gradient_passes_of(const filter_parameters& p) {
  struct passes_row {
    std::int32_t filter;
    std::int32_t filter_parameters::*option;  // asked for by this option, if any
    gradient_passes with_option;
    gradient_passes without;
  };
  using G = gradient_passes;
  constexpr passes_row rows[] = {
      {filter_total_gradient, nullptr, G::derivatives, G::derivatives},
      {filter_euler, nullptr, G::euler_derivatives, G::euler_derivatives},
      {filter_angle_map, &filter_parameters::Opt3, G::components, G::derivatives},
      {filter_vertical_integral, &filter_parameters::Opt2, G::derivatives, G::none},
      {filter_vrmi, nullptr, G::kept_components, G::kept_components},
  };
  for (const passes_row& row : rows) {
    if (row.filter == p.FilterNo) {
      return row.option != nullptr && p.*row.option == 1 ? row.with_option : row.without;
    }
  }
  return gradient_passes::none;
}

gradient_work_grids make_work_grids(const fft_stage& stage) {
  gradient_work_grids work;
  const fft_geometry& g = stage.geometry;
  const Lattice lattice = around(stage.lattice, g.pad, g.pad, g.nxp, g.nyp);
  for (RowFile& grid : work.grids) {
    grid = {platform::BinaryFile::anonymous(), {sense_bottom_up, lattice.x_count, lattice.y_count}};
    OUTPUT_GEOSOFT_HEADER(grid.file(), float_grid_header(lattice));
  }
  return work;
}

platform::BinaryFile prepare_gradient_spectrum(const fft_stage& stage, filter_parameters p) {
  if (p.FilterNo == filter_vertical_integral && p.Opt2 == 1) {
    apply(stage, p, false, filter_vertical_integral);
  } else if (p.FilterNo == filter_vrmi && p.Par3 > 0.0F) {
    // With several layers the thickness is in cells already.
    const double cell = p.Opt3 != 0 ? 1.0 : p.CellX;
    p.Par2 = static_cast<float>(static_cast<double>(p.Par3) / cell);
    p.Par1 = 0.0F;
    apply(stage, p, false, filter_magnetic_layer);
  } else {
    return {};
  }
  platform::BinaryFile spectrum = platform::BinaryFile::anonymous();
  save_fft_grid(spectrum, stage.lattice, stage.geometry, stage.array);
  return spectrum;
}

void FFTGRAD3(const fft_stage& stage, filter_parameters p, const RowFile& input,
              const platform::BinaryFile& spectrum, gradient_work_grids& work) {
  const gradient_passes wanted = gradient_passes_of(p);
  if (wanted == gradient_passes::none) return;
  const pass_list& list = passes[static_cast<std::size_t>(wanted) - 1];
  for (std::size_t n = 0; n < list.size(); ++n) {
    const gradient_pass& pass = list[n];
    if (pass.set != nullptr) pass.set(p);
    if (n > 0) read_fft_grid(spectrum, stage.array);
    apply(stage, p, true, pass.filter);
    transform_array(stage.array, stage.geometry, -1);
    if (pass.removes_mean) {
      subtract_from_window(stage, mean_of_valid(stage, input));
    }
    if (pass.kept) {
      write_window(stage.array, stage.geometry, work.grids[n]);
    }
  }
}

void integrate_padded_grid(const fft_stage& stage, filter_parameters p, RowFile& padded) {
  transform_padded(padded, stage.geometry, 0.0F, stage.array);
  p.HiCut = 0.0F;
  p.Par1 = 1.0F;
  apply(stage, p, true, filter_vertical_integral);
  transform_array(stage.array, stage.geometry, -1);
  write_window(stage.array, stage.geometry, padded);
}

}  // namespace velmorankite
