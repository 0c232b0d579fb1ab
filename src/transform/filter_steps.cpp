// SPDX-License-Identifier: MIT
#include "transform/filter_steps.h"

#include <algorithm>
#include <cmath>

#include "transform/trs_filter.h"

namespace velmorankite::steps {
namespace {

constexpr float smallest_order = 0.01F;      // of a derivative
constexpr float narrowest_crossline = 5.0F;  // of the strike filter

}  // namespace

void log_real(filter_loading& loading, const filter_step& step) {
  loading.log(log_line(step.text, loading.parameters.*step.real));
}

void log_integer(filter_loading& loading, const filter_step& step) {
  loading.log(log_line(step.text, loading.parameters.*step.integer));
}

void log_choice(filter_loading& loading, const filter_step& step) {
  loading.log(loading.parameters.*step.integer != 0 ? step.text : step.otherwise);
}

void log_cutoff(filter_loading& loading, const filter_step& step) {
  if (is_cutoff(loading.parameters.*step.real)) {
    log_real(loading, step);
  }
}

void log_field_direction(filter_loading& loading, const filter_step& /*step*/) {
  loading.log(log_line("Incl, Dec: ", loading.parameters.Par2, loading.parameters.Par1));
}

void log_remanence(filter_loading& loading, const filter_step& /*step*/) {
  loading.log(log_line("Remanent Incl, Dec: ", loading.parameters.Par4, loading.parameters.Par3));
}

void convert_to_cells(filter_loading& loading, const filter_step& step) {
  float& distance = loading.parameters.*step.real;
  distance = static_cast<float>(static_cast<double>(distance) / loading.parameters.CellX);
}

void set_field(filter_loading& loading, const filter_step& step) {
  loading.parameters.*step.real = step.value;
}

void check_order(filter_loading& loading, const filter_step& /*step*/) {
  const float order = loading.parameters.Par1;
  if (std::abs(order) < smallest_order) {
    loading.log(log_line("Derivative Order is invalid: ", order));
    loading.status = derivative_order_invalid;
  }
}

void name_angle_map(filter_loading& loading, const filter_step& /*step*/) {
  struct map_names {
    std::string_view title, short_name;
  };
  constexpr map_names tilt{"Tilt map", "TiltMap"};
  constexpr map_names theta{"Theta map", "ThetaMap"};
  constexpr map_names tdx{"TDX map", "TDXMap"};
  const std::int32_t kind = loading.parameters.Opt2;
  const map_names& names = kind == 1 ? theta : kind == 2 ? tdx : tilt;
  loading.log(names.title);
  loading.parameters.ShortName = names.short_name;
}

void log_angle_map_source(filter_loading& loading, const filter_step& step) {
  if (loading.parameters.Opt3 == 1) {
    loading.log("Calculated using mag field components");
    log_field_direction(loading, step);
  } else {
    loading.log("Calculated using mag derivative components");
  }
}

// Brings the strike into [-90, 90).
void normalise_strike(filter_loading& loading, const filter_step& /*step*/) {
  float& azimuth = loading.parameters.Azim;
  loading.log(log_line("Azim: ", azimuth));
  if (azimuth >= 360.0F) {
    azimuth = std::fmod(azimuth, 360.0F);
  } else if (azimuth < 0.0F) {
    azimuth = 360.0F - std::fmod(-azimuth, 360.0F);
  }
  if (azimuth >= 180.0F) {
    azimuth -= 180.0F;
  }
  if (azimuth >= 90.0F) {
    azimuth -= 180.0F;
  }
}

// The designer of the strike operator reads the azimuth's cosine and sine.
void load_strike_operator(filter_loading& loading, const filter_step& /*step*/) {
  filter_parameters& parameters = loading.parameters;
  if (parameters.Road == 0) {
    const double azimuth = static_cast<double>(parameters.Azim) * DegToRad;
    parameters.Par2 = static_cast<float>(std::cos(azimuth));
    parameters.Par3 = static_cast<float>(std::sin(azimuth));
  }
}

// On the convolution road the map is made of the first vertical derivative, which is the order
// that the operator is designed for; the declination has been taken from Par1 by then.
void load_angle_map_operator(filter_loading& loading, const filter_step& /*step*/) {
  if (loading.parameters.Road == 0) {
    loading.parameters.Par1 = 1.0F;
  }
}

void widen_crossline(filter_loading& loading, const filter_step& /*step*/) {
  float& crossline = loading.parameters.Par3;
  crossline = std::max(std::abs(crossline), narrowest_crossline);
}

void log_variable_vrmi(filter_loading& loading, const filter_step& /*step*/) {
  loading.log(loading.parameters.Par6 != 0.0F ? "Variable VRMI: Yes" : "Variable VRMI: No");
}

// Brings the azimuth into [0, 360).
void normalise_phase_azimuth(filter_loading& loading, const filter_step& /*step*/) {
  float& azimuth = loading.parameters.Azim;
  azimuth = azimuth < 0.0F ? azimuth + 360.0F : std::fmod(azimuth, 360.0F);
  loading.log(log_line("Azim: ", azimuth));
}

}  // namespace velmorankite::steps
