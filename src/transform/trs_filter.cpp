// SPDX-License-Identifier: MIT
#include "transform/trs_filter.h"

#include <cmath>

#include "transform/filter_catalogue.h"
#include "transform/filter_index.h"

namespace velmorankite {
namespace {

// A field that lies flat has no downward part to divide by.
double keep_off_zero(double sine) {
  constexpr double smallest = static_cast<double>(0.01F);
  if (std::abs(sine) >= smallest) {
    return sine;
  }
  return static_cast<double>(sine < 0.0 ? -0.01F : 0.01F);
}

void set_directions(direction_setup setup, filter_parameters& parameters) {
  switch (setup) {
    case direction_setup::none:
      break;
    case direction_setup::axes:
      set_direction(parameters, static_cast<double>(parameters.Azim));
      break;
    case direction_setup::field:
      MAGDIRCOS(parameters);
      break;
    case direction_setup::field_if_components:
      if (parameters.Opt3 == 1) {
        MAGDIRCOS(parameters);
      }
      break;
    case direction_setup::derivative:
      set_direction(parameters, static_cast<double>(parameters.Par2 - parameters.Azim));
      break;
  }
}

}  // namespace

void MAGDIRCOS(filter_parameters& parameters) {
  const auto radians = [](float degrees) { return static_cast<double>(degrees) * DegToRad; };
  const double field_dip = radians(parameters.Par2);
  const double field_azimuth = radians(parameters.Par1);
  parameters.MagL = std::sin(field_azimuth) * std::cos(field_dip);
  parameters.MagM = std::cos(field_azimuth) * std::cos(field_dip);
  parameters.MagN = keep_off_zero(std::sin(field_dip));
  const double remanent_dip = radians(parameters.Par4);
  const double remanent_azimuth = radians(parameters.Par3);
  parameters.RemL = std::sin(remanent_azimuth) * std::cos(remanent_dip);
  parameters.RemM = std::cos(remanent_azimuth) * std::cos(remanent_dip);
  parameters.RemN = keep_off_zero(std::sin(remanent_dip));
  parameters.MagNN = parameters.MagN * parameters.MagN;
  parameters.RemNN = parameters.RemN * parameters.RemN;
  parameters.MagRemN = parameters.MagN * parameters.RemN;
}

void set_direction(filter_parameters& parameters, double degrees) {
  parameters.DirAngle = degrees * DegToRad;
  parameters.DirCos = std::cos(parameters.DirAngle);
  parameters.DirSin = std::sin(parameters.DirAngle);
}

Status TRSFLT(std::int32_t Filter, std::int32_t FilterWidth, std::int32_t /*DetrendUnits*/,
              std::int32_t FftMode, float HiCut, float LoCut, float Azimuth,
              std::span<const std::int32_t, integer_parameters> IntPar,
              std::span<const float, real_parameters> RealPar, double CellX, double CellY,
              filter_parameters& parameters, const log_sink& log) {
  if (Filter < first_filter || Filter > last_filter) {
    log(log_line("Filter Index is invalid: ", Filter));
    return filter_index_invalid;
  }
  const catalogue_row& row = catalogue_row_of(Filter);
  parameters = {.FilterNo = Filter,
                .HalfWidth = FilterWidth,
                .Road = FftMode,
                .HiCut = HiCut,
                .LoCut = LoCut,
                .Azim = Azimuth,
                .Par1 = RealPar[0],
                .Par2 = RealPar[1],
                .Par3 = RealPar[2],
                .Par4 = RealPar[3],
                .Par5 = RealPar[4],
                .Par6 = RealPar[5],
                .Par7 = RealPar[6],
                .Par8 = RealPar[7],
                .Opt1 = IntPar[0],
                .Opt2 = IntPar[1],
                .Opt3 = IntPar[2],
                .CellX = CellX,
                .CellY = CellY,
                .CellRatio = CellY != 0.0 ? CellX / CellY : 1.0,
                .ShortName = row.short_name.value_or(parameters.ShortName)};
  set_directions(row.direction, parameters);
  if (!row.title.empty()) {
    log(row.title);
  }
  filter_loading loading{parameters, log};
  for (const filter_step& step : row.steps) {
    if (step.only_with == nullptr || parameters.*step.only_with != 0) {
      step.act(loading, step);
    }
  }
  return loading.status;
}

}  // namespace velmorankite
