// The steps of which the rows of the filter catalogue are made.
// SPDX-License-Identifier: MIT
#pragma once
#include "transform/filter_catalogue.h"

namespace velmorankite::steps {

using parameters = filter_parameters;

// Actions; each reads the fields of the step that its maker below fills.
void log_real(filter_loading& loading, const filter_step& step);
void log_integer(filter_loading& loading, const filter_step& step);
void log_choice(filter_loading& loading, const filter_step& step);
void log_cutoff(filter_loading& loading, const filter_step& step);
void log_field_direction(filter_loading& loading, const filter_step& step);
void log_remanence(filter_loading& loading, const filter_step& step);
void convert_to_cells(filter_loading& loading, const filter_step& step);
void set_field(filter_loading& loading, const filter_step& step);
void check_order(filter_loading& loading, const filter_step& step);
void name_angle_map(filter_loading& loading, const filter_step& step);
void log_angle_map_source(filter_loading& loading, const filter_step& step);
void normalise_strike(filter_loading& loading, const filter_step& step);
void load_strike_operator(filter_loading& loading, const filter_step& step);
void load_angle_map_operator(filter_loading& loading, const filter_step& step);
void widen_crossline(filter_loading& loading, const filter_step& step);
void log_variable_vrmi(filter_loading& loading, const filter_step& step);
void normalise_phase_azimuth(filter_loading& loading, const filter_step& step);

// Makers of the common steps.
constexpr filter_step real(std::string_view text, float parameters::*field,
                           std::int32_t parameters::*only_with = nullptr) {
  return {log_real, text, {}, field, nullptr, only_with};
}
constexpr filter_step integer(std::string_view text, std::int32_t parameters::*field) {
  return {log_integer, text, {}, nullptr, field, nullptr};
}
constexpr filter_step choice(std::string_view text, std::string_view otherwise,
                             std::int32_t parameters::*field) {
  return {log_choice, text, otherwise, nullptr, field, nullptr};
}
constexpr filter_step cutoff(std::int32_t parameters::*only_with = nullptr) {
  return {log_cutoff, "High Frequency Cutoff: ", {}, &parameters::HiCut, nullptr, only_with};
}
constexpr filter_step to_cells(float parameters::*field,
                               std::int32_t parameters::*only_with = nullptr) {
  return {convert_to_cells, {}, {}, field, nullptr, only_with};
}
constexpr filter_step set_to(float parameters::*field, float value) {
  return {set_field, {}, {}, field, nullptr, nullptr, value};
}
constexpr filter_step call(void (*act)(filter_loading&, const filter_step&),
                           std::int32_t parameters::*only_with = nullptr) {
  return {act, {}, {}, nullptr, nullptr, only_with};
}

}  // namespace velmorankite::steps
