// Filters of the transform engine: the parameter set of a run and the catalogue that fills it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>
#include <string_view>

#include "grid/status.h"
#include "transform/log_line.h"

namespace velmorankite {

inline constexpr double Pi = 3.141592653589793;           // bits 0x400921FB54442D18
inline constexpr double TwoPi = 6.283185307179586;        // bits 0x401921FB54442D18
inline constexpr double DegToRad = 0.017453292519943295;  // bits 0x3F91DF46A2529D39

inline constexpr std::int32_t integer_parameters = 3;  // elements of IntPar that are used
inline constexpr std::int32_t real_parameters = 8;     // elements of RealPar that are used

// What the responses and the designers of operators read. It belongs to one run; the roads change
// fields of it between two responses. Angles are in degrees where nothing else is said.
struct filter_parameters {
  std::int32_t FilterNo = 0;   // index by which responses and designers are chosen
  std::int32_t HalfWidth = 0;  // of the convolution operator, which has 2 HalfWidth - 1 points
  std::int32_t Road = 0;       // 0 convolution, 1 FFT in memory, negative FFT on disk
  float HiCut = 0.0F;          // cutoffs, meaningful in (0, 1], where 1 is an eighth of the
  float LoCut = 0.0F;          // sampling frequency
  float Azim = 0.0F;
  // Meaning by filter, see the catalogue; distances are in cells once TRSFLT has been through.
  float Par1 = 0.0F;
  float Par2 = 0.0F;
  float Par3 = 0.0F;
  float Par4 = 0.0F;
  float Par5 = 0.0F;
  float Par6 = 0.0F;
  float Par7 = 0.0F;
  float Par8 = 0.0F;
  std::int32_t Opt1 = 0;
  std::int32_t Opt2 = 0;
  std::int32_t Opt3 = 0;
  double CellX = 1.0;  // cell sizes in map units
  double CellY = 1.0;
  double CellRatio = 1.0;  // CellX / CellY
  // Direction of a horizontal derivative, radians from the grid's Y axis towards its X axis.
  double DirAngle = 0.0;
  double DirCos = 1.0;
  double DirSin = 0.0;
  // Direction cosines towards X, Y and down: of the inducing field, of the remanence.
  double MagL = 0.0;
  double MagM = 0.0;
  double MagN = 1.0;
  double RemL = 0.0;
  double RemM = 0.0;
  double RemN = 1.0;
  double MagNN = 1.0;
  double RemNN = 1.0;
  double MagRemN = 1.0;
  std::string_view ShortName;  // goes into the name of the power spectrum file
};

// Whether a cutoff acts: one above 0 and at most 1.
[[nodiscard]] constexpr bool is_cutoff(float cutoff) noexcept {
  return cutoff > 0.0F && cutoff <= 1.0F;
}

// Sets the direction cosines from Par2 (inclination) and Par1 (declination) of the field and Par4
// and Par3 of the remanence. The downward cosines are kept at least 0.01 away from 0.
void MAGDIRCOS(filter_parameters& parameters);

// DirAngle and its cosine and sine from an angle in degrees.
void set_direction(filter_parameters& parameters, double degrees);

inline constexpr std::int32_t first_filter = 100;
inline constexpr std::int32_t last_filter = 212;
inline constexpr std::int32_t first_asymmetric_filter = 200;  // their operators have a phase

// Indices that the engine itself asks for or tells apart.
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

inline constexpr Status filter_index_invalid{-2001};
inline constexpr Status derivative_order_invalid{-2204};

// Loads the parameter set for one filter of the catalogue: checks the index, converts distances to
// cells (of CellX), works out the directions, and writes the filter's lines into the log.
//   Filter         index, first_filter to last_filter.
//   FilterWidth    half width of the convolution operator, in points.
//   DetrendUnits   units digit of the detrending mode; no filter depends on it.
//   FftMode        road, as filter_parameters::Road.
//   IntPar, RealPar  integer_parameters and real_parameters values, meaning by filter.
//   CellX, CellY   cell sizes in map units.
//   parameters     out; ShortName stays as it was for a filter that has none of its own to give.
// Status: success; filter_index_invalid, with nothing loaded; derivative_order_invalid, loaded all
// the same.
Status TRSFLT(std::int32_t Filter, std::int32_t FilterWidth, std::int32_t DetrendUnits,
              std::int32_t FftMode, float HiCut, float LoCut, float Azimuth,
              std::span<const std::int32_t, integer_parameters> IntPar,
              std::span<const float, real_parameters> RealPar, double CellX, double CellY,
              filter_parameters& parameters, const log_sink& log);

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
