// What the engine does with a filter index on each of its roads.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

// The responses that a filter can have; what each is stands in responses.h.
enum class response_id : std::uint8_t {
  none,
  smooth,
  continuation,
  vertical_derivative,
  vertical_integral,
  magnetic_layer,
  gravity_layer,
  reste,
  strike,
  tensor,
  apparent_susceptibility,
  pole,
  equator,
  pseudo_gravity,
  horizontal_derivative,
  horizontal_of_vertical_derivative,
  second_cross_derivative,
  horizontal_of_vertical_integral,
  vertical_derivative_of_integral,
  phase_flip,
  field_x,
  field_y,
  field_z
};

// How a convolution operator is designed.
enum class operator_design : std::uint8_t {
  none,     // no symmetric operator
  window,   // a window in the space domain
  strike,   // area mean against the mean along the strike
  sampled,  // quarter plane from samples of a real response
};

// What a filter makes of a vertical derivative and the two horizontal ones.
enum class gradient_use : std::uint8_t { none, whole_length, angle, horizontal_length };

// The roads on which a filter is taken.
inline constexpr std::uint8_t road_convolution = 1;
inline constexpr std::uint8_t road_memory = 2;
inline constexpr std::uint8_t road_disk = 4;
inline constexpr std::uint8_t all_roads = road_convolution | road_memory | road_disk;

// What the engine does with a filter index.
struct filter_traits {
  std::int32_t index = 0;
  response_id response = response_id::none;        // on the FFT roads
  operator_design design = operator_design::none;  // of WTSYM
  response_id sampled = response_id::none;         // response that WTSYM samples
  bool asymmetric = false;                         // WTASYM designs an operator from `response`
  gradient_use gradient = gradient_use::none;
  std::uint8_t roads = 0;
};

// The traits of an index; those of an identity filter for an index that is in no table.
[[nodiscard]] const filter_traits& traits_of(std::int32_t index) noexcept;

}  // namespace velmorankite
