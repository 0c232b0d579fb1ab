// Indices of filters that the engine itself asks for or tells apart.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>

namespace velmorankite {

inline constexpr std::int32_t first_filter = 100;
inline constexpr std::int32_t last_filter = 212;
inline constexpr std::int32_t first_asymmetric_filter = 200;  // their operators have a phase

inline constexpr std::int32_t filter_continuation = 101;
inline constexpr std::int32_t filter_vertical_derivative = 102;
inline constexpr std::int32_t filter_magnetic_layer = 103;
inline constexpr std::int32_t filter_total_gradient = 106;
inline constexpr std::int32_t filter_euler = 107;
inline constexpr std::int32_t filter_angle_map = 109;
inline constexpr std::int32_t filter_vertical_integral = 111;
inline constexpr std::int32_t filter_hole_fill = 112;
inline constexpr std::int32_t filter_horizontal_derivative = 204;
inline constexpr std::int32_t filter_vrmi = 212;
// The components of the field from the total field: a caller cannot ask for them.
inline constexpr std::int32_t filter_field_x = 312;
inline constexpr std::int32_t filter_field_y = 313;
inline constexpr std::int32_t filter_field_z = 314;

}  // namespace velmorankite
