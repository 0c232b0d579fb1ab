// SPDX-License-Identifier: MIT
#include "transform/convolution_design.h"

#include "transform/filter_index.h"

namespace velmorankite {
Status WTDESIGN(const filter_parameters& parameters, std::int32_t n, std::span<float> weights,
                const log_sink& log) {
  if (parameters.FilterNo < first_asymmetric_filter) {
    return WTSYM(parameters, half_points(n), weights, log);
  }
  return WTASYM(parameters, n, weights, log);
}

Status CALC_FILTER_COEFFICIENTS(std::int32_t Filter, std::int32_t Opt1, std::int32_t Opt2,
                                float LoCut, float HiCut, float Par1, float Par2, float Par3,
                                double CellX, double CellY, double direction, std::int32_t columns,
                                std::int32_t rows, std::span<float> weights) {
  if (columns != rows || columns % 2 != 1) return operator_size_invalid;
  filter_parameters parameters;
  parameters.FilterNo = Filter;
  parameters.Opt1 = Opt1;
  parameters.Opt2 = Opt2;
  parameters.LoCut = LoCut;
  parameters.HiCut = HiCut;
  // The remanence along the field: a remanent direction would take a fourth parameter.
  parameters.Par1 = parameters.Par3 = Par1;
  parameters.Par2 = parameters.Par4 = Par2;
  MAGDIRCOS(parameters);
  parameters.Par3 = Par3;
  parameters.Par4 = 0.0F;
  parameters.CellX = CellX;
  parameters.CellY = CellY;
  parameters.CellRatio = CellY != 0.0 ? CellX / CellY : 1.0;
  set_direction(parameters, direction);
  return WTDESIGN(parameters, columns, weights, [](std::string_view) {});
}

}  // namespace velmorankite
