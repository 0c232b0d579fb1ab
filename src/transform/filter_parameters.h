// The parameter set of a filter: what the responses and the designers of operators read.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <string_view>

namespace velmorankite {

inline constexpr double Pi = 3.141592653589793;           // bits 0x400921FB54442D18
inline constexpr double TwoPi = 6.283185307179586;        // bits 0x401921FB54442D18
inline constexpr double DegToRad = 0.017453292519943295;  // bits 0x3F91DF46A2529D39

inline constexpr std::int32_t integer_parameters = 3;  // elements of IntPar that are used
inline constexpr std::int32_t real_parameters = 8;     // elements of RealPar that are used

// What the responses and the designers of operators read. A stage that needs other values takes a
// copy of its own. Angles are in degrees where nothing else is said.
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

}  // namespace velmorankite
