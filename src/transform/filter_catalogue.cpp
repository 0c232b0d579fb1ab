// SPDX-License-Identifier: MIT
#include "transform/filter_catalogue.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "transform/filter_index.h"
#include "transform/filter_steps.h"
#include "transform/filter_traits.h"
#include "transform/products.h"
#include "transform/run_names.h"

namespace velmorankite {
namespace {

using namespace steps;  // NOLINT(google-build-using-namespace): the tables are made of its words
using P = filter_parameters;

constexpr filter_step smoothing[] = {choice("Residual: Yes", "Residual: No", &P::Opt2), cutoff()};
constexpr filter_step continuation[] = {real("Distance: ", &P::Par1), to_cells(&P::Par1)};
constexpr filter_step vertical_gradient[] = {real("Order: ", &P::Par1), real("HF: ", &P::HiCut)};
constexpr filter_step layer[] = {real("Top: ", &P::Par1), real("Thick: ", &P::Par2),
                                 to_cells(&P::Par1), to_cells(&P::Par2)};
constexpr filter_step reste[] = {integer("Polynomial Order: ", &P::Opt1),
                                 real("UC dist: ", &P::Par1), to_cells(&P::Par1)};
constexpr filter_step total_gradient[] = {
    real("HF: ", &P::HiCut), choice("VI: Yes", "VI: No", &P::Opt2),
    real("LF: ", &P::LoCut, &P::Opt2), set_to(&P::Par1, 1.0F)};
constexpr filter_step euler[] = {
    integer("Window step: ", &P::Opt1), real("Sensor height: ", &P::Par1),
    real("Mag Background: ", &P::Par2), real("SI: ", &P::Par3),
    real("Top limit: ", &P::Par4),      real("Bottom limit: ", &P::Par5),
    real("Misfit %: ", &P::Par6),       set_to(&P::Par1, 1.0F)};
constexpr filter_step spectral_slope[] = {integer("Window width: ", &P::HalfWidth),
                                          integer("Window step: ", &P::Opt1)};
constexpr filter_step angle_map[] = {call(name_angle_map), call(log_angle_map_source),
                                     real("HF: ", &P::HiCut), call(load_angle_map_operator)};
constexpr filter_step horizontal_magnitude[] = {cutoff()};
constexpr filter_step vertical_integral[] = {real("Order: ", &P::Par1), real("LF: ", &P::LoCut),
                                             choice("AS: Yes", "AS: No", &P::Opt2),
                                             cutoff(&P::Opt2)};
constexpr filter_step multilayer[] = {choice("Resid: Yes", "Resid: No", &P::Opt2),
                                      real("Min level: ", &P::Par1),
                                      real("Max level: ", &P::Par2),
                                      real("Increment: ", &P::Par3),
                                      real("Min gradient: ", &P::Par4),
                                      to_cells(&P::Par1),
                                      to_cells(&P::Par2),
                                      to_cells(&P::Par3)};
constexpr filter_step strike[] = {call(normalise_strike),
                                  call(load_strike_operator),
                                  real("Block: ", &P::Par1, &P::Road),
                                  real("Roll-off: ", &P::Par2, &P::Road),
                                  real("Crossline-filter: ", &P::Par3, &P::Road),
                                  to_cells(&P::Par2, &P::Road),
                                  call(widen_crossline, &P::Road)};
constexpr filter_step tensor[] = {real("Azim: ", &P::Azim)};
constexpr filter_step susceptibility[] = {real("Prism: ", &P::Par1), real("Susc depth: ", &P::Par2),
                                          real("Field: ", &P::Par3), to_cells(&P::Par1),
                                          to_cells(&P::Par2)};
constexpr filter_step stabilisation =
    choice("Stabilization Applied: Yes", "Stabilization Applied: No", &P::Opt2);
constexpr filter_step directions[] = {call(log_field_direction), call(log_remanence),
                                      stabilisation};
constexpr filter_step pole[] = {call(log_field_direction), call(log_remanence), stabilisation,
                                choice("Variable RTP: Yes", "Variable RTP: No", &P::Opt3)};
constexpr filter_step ensemble[] = {real("Order: ", &P::Par1), real("Direction: ", &P::Par2),
                                    real("Grid azim: ", &P::Azim), cutoff()};
constexpr filter_step horizontal_gradient[] = {call(check_order), real("Order: ", &P::Par1),
                                               real("Direction: ", &P::Par2),
                                               real("Grid azim: ", &P::Azim), cutoff()};
constexpr filter_step phase_flip[] = {call(normalise_phase_azimuth)};
constexpr filter_step vrmi[] = {
    call(log_field_direction),           stabilisation,
    real("Layer thickness: ", &P::Par3), choice("Multilayer: Yes", "Multilayer: No", &P::Opt3),
    to_cells(&P::Par3, &P::Opt3),        call(log_variable_vrmi)};

// Uses of the filters.
bool always(const P&) {
  return true;
}
bool second_option(const P& p) {
  return p.Opt2 == 1;
}
bool third_option(const P& p) {
  return p.Opt3 == 1;
}
bool varies_or_layers(const P& p) {
  return p.Opt3 != 0 || p.Par6 > 0.0F;
}

constexpr product nothing{};
constexpr product filled{make_filled_grid, need::input};
constexpr product convolved{make_convolved_grid, need::padded_grid};
constexpr product filtered{make_filtered_grid, need::spectrum};
constexpr product mapped{make_gradient_map, need::spectrum_and_padded_grid};
constexpr product components{make_field_components, need::spectrum_and_padded_grid};

constexpr filter_use response_uses[] = {{always, {}, convolved, filtered, nothing}};
constexpr filter_use gradient_uses[] = {{always, {}, convolved, mapped, nothing}};
constexpr filter_use integral_uses[] = {{second_option, {}, convolved, mapped, nothing},
                                        {always, {}, convolved, filtered, nothing}};
constexpr filter_use fill_uses[] = {{always, {}, filled, filled, filled}};
constexpr filter_use euler_uses[] = {{always, "Euler deconvolution", {}, {}, {}}};
constexpr filter_use slope_uses[] = {{always, "the log spectral slope", {}, {}, {}}};
constexpr filter_use multilayer_uses[] = {{always, "the multilayer continuation", {}, {}, {}}};
constexpr filter_use ensemble_uses[] = {{always, "the derivative ensemble", {}, {}, {}}};
constexpr filter_use pole_uses[] = {
    {third_option, "a direction that varies over the grid", {}, {}, {}},
    {always, {}, convolved, filtered, nothing}};
constexpr std::string_view vrmi_missing = "VRMI by layers, by panels or by convolution";
constexpr filter_use vrmi_uses[] = {
    {varies_or_layers, vrmi_missing, {}, {}, {}},
    {always, vrmi_missing, nothing, components, nothing, component_names}};

using R = response_id;
using D = operator_design;
constexpr std::nullopt_t kept = std::nullopt;
using G = gradient_use;
using S = direction_setup;
constexpr std::uint8_t not_on_disk = road_convolution | road_memory;
constexpr std::uint8_t by_fft = road_memory | road_disk;

// index, response on the FFT roads, designer of a symmetric operator and the response it samples,
// asymmetric operator, use of the gradient, roads; title, short name, directions, what is loaded
// and logged, what is made.
// clang-format off
constexpr catalogue_row catalogue[] = {
    {{100, R::smooth, D::window, R::none, false, G::none, all_roads},
     "Smoothing filter", "Smoothing", S::none, smoothing, response_uses},
    {{101, R::continuation, D::sampled, R::continuation, true, G::none, all_roads},
     "Continuation: ", "Continuation", S::none, continuation, response_uses},
    {{102, R::vertical_derivative, D::sampled, R::vertical_derivative, false, G::none, all_roads},
     "Vert gradient: ", "VG", S::none, vertical_gradient, response_uses},
    {{103, R::magnetic_layer, D::sampled, R::magnetic_layer, false, G::none, all_roads},
     "Magnetic layer extraction: ", "MLE", S::none, layer, response_uses},
    {{104, R::gravity_layer, D::sampled, R::gravity_layer, false, G::none, all_roads},
     "Gravity layer extraction: ", "GLE", S::none, layer, response_uses},
    {{105, R::reste, D::sampled, R::reste, false, G::none, all_roads},
     "Reste Residual: ", "Reste", S::none, reste, response_uses},
    {{106, R::vertical_derivative, D::sampled, R::vertical_derivative, false, G::whole_length,
      all_roads},
     "Total gradient: ", "AS", S::none, total_gradient, gradient_uses},
    {{107, R::none, D::sampled, R::vertical_derivative, false, G::none, all_roads},
     "Euler decon: ", "ED", S::none, euler, euler_uses},
    {{108, R::none, D::none, R::none, false, G::none, all_roads},
     "Log spectral slope: ", "LogSpectralSlope", S::none, spectral_slope, slope_uses},
    {{109, R::none, D::sampled, R::vertical_derivative, false, G::angle, all_roads},
     {}, kept, S::field_if_components, angle_map, gradient_uses},
    {{110, R::none, D::sampled, R::none, false, G::horizontal_length, all_roads},
     "Magnitude of horizontal gradient: ", "Magnitude_HG", S::none, horizontal_magnitude, response_uses},
    {{111, R::vertical_integral, D::sampled, R::vertical_integral, true, G::none, all_roads},
     "Vertical integral: ", "VI", S::none, vertical_integral, integral_uses},
    {{112, R::none, D::none, R::none, false, G::none, all_roads},
     "Hole fill: ", "HoleFill", S::none, {}, fill_uses},
    {{114, R::continuation, D::sampled, R::continuation, true, G::none, not_on_disk},
     "Multilayer Continuation: ", "MLC", S::none, multilayer, multilayer_uses},
    {{115, R::strike, D::strike, R::none, false, G::none, all_roads},
     "Strike filter: ", "SF", S::none, strike, response_uses},
    {{116, R::tensor, D::none, R::none, false, G::none, by_fft},
     "Tensor transform: ", "Tensor", S::axes, tensor, response_uses},
    {{117, R::apparent_susceptibility, D::none, R::none, false, G::none, by_fft},
     "App susc: ", "AppSus", S::none, susceptibility, response_uses},
    {{200, R::none, D::none, R::none, false, G::none, all_roads}, {}, "", S::field, directions, response_uses},
    {{201, R::pole, D::none, R::none, true, G::none, all_roads},
     "Reduction to the pole: ", "RTP", S::field, pole, pole_uses},
    {{202, R::equator, D::none, R::none, true, G::none, all_roads},
     "Reduction to the equator: ", "RTE", S::field, directions, response_uses},
    {{203, R::pseudo_gravity, D::none, R::none, true, G::none, all_roads},
     "Mag pseudo gravity: ", "MagPseudoGrav", S::field, directions, response_uses},
    {{204, R::horizontal_derivative, D::none, R::none, true, G::none, all_roads},
     "horizontal grad", "HG", S::derivative, horizontal_gradient, response_uses},
    {{205, R::none, D::none, R::none, false, G::none, not_on_disk}, {}, kept, S::derivative,
      ensemble, ensemble_uses},
    {{206, R::horizontal_of_vertical_derivative, D::none, R::none, true, G::none, all_roads},
     "grad d2dxdz: ", "DxDz", S::derivative, horizontal_gradient, response_uses},
    {{207, R::horizontal_of_vertical_derivative, D::none, R::none, true, G::none, all_roads},
     "grad d2dydz: ", "DyDz", S::derivative, horizontal_gradient, response_uses},
    {{208, R::second_cross_derivative, D::none, R::none, true, G::none, all_roads},
     "grad d2dxdy: ", "DzDz", S::derivative, horizontal_gradient, response_uses},
    {{209, R::horizontal_of_vertical_integral, D::none, R::none, true, G::none, all_roads},
     "grad izdx/dy: ", "DxVI", S::derivative, horizontal_gradient, response_uses},
    {{210, R::vertical_derivative_of_integral, D::none, R::none, true, G::none, all_roads},
     "grad izdz: ", "DzVI", S::derivative, horizontal_gradient, response_uses},
    {{211, R::phase_flip, D::none, R::none, true, G::none, all_roads},
     "Phase flip: ", "PhaseFlip", S::derivative, phase_flip, response_uses},
    {{212, R::none, D::none, R::none, false, G::none, all_roads},
     "TMI VRMI: ", "VRMI", S::field, vrmi, vrmi_uses},
    {{filter_field_x, R::field_x, D::none, R::none, true, G::none, all_roads}, {}, kept, S::field,
      {}, response_uses},
    {{filter_field_y, R::field_y, D::none, R::none, true, G::none, all_roads}, {}, kept, S::field,
      {}, response_uses},
    {{filter_field_z, R::field_z, D::none, R::none, true, G::none, all_roads}, {}, kept, S::field,
      {}, response_uses},
};
// clang-format on

// Indices in the range that have no row of their own.
constexpr catalogue_row identity{{0, R::none, D::none, R::none, false, G::none, all_roads},
                                 {},
                                 "",
                                 S::none,
                                 directions,
                                 response_uses};

static_assert(std::ranges::is_sorted(catalogue, {},
                                     [](const catalogue_row& row) { return row.traits.index; }));

// Whatever the options are, some use applies.
constexpr bool has_a_use(const catalogue_row& row) {
  return !row.uses.empty() && row.uses.back().applies == always;
}
static_assert(std::ranges::all_of(catalogue, has_a_use) && has_a_use(identity));

}  // namespace

const catalogue_row& catalogue_row_of(std::int32_t index) noexcept {
  const auto* const row = std::ranges::lower_bound(
      catalogue, index, {}, [](const catalogue_row& entry) { return entry.traits.index; });
  return row != std::end(catalogue) && row->traits.index == index ? *row : identity;
}

const filter_use& use_of(const filter_parameters& parameters) noexcept {
  return *std::ranges::find_if(catalogue_row_of(parameters.FilterNo).uses,
                               [&](const filter_use& use) { return use.applies(parameters); });
}

const filter_traits& traits_of(std::int32_t index) noexcept {
  return catalogue_row_of(index).traits;
}

}  // namespace velmorankite
