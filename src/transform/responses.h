// The responses of the filters by rows of the frequency plane, chosen from a table.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

#include "transform/complex_response.h"
#include "transform/filter_parameters.h"
#include "transform/filter_traits.h"

namespace velmorankite {

enum class response_kind : std::uint8_t { none, real, complex };

// Frequencies at which a response has the same value.
enum class response_symmetry : std::uint8_t {
  none,
  point,  // (u, v) and (-u, -v), as a real filter of real grids must
  axes    // u and -u, v and -v
};

// A response, ready for the rows of any frequency lattice. The row functions work out what depends
// on the parameters once a row; the values are those of the response class at (u[i], v).
//   u, v      frequencies along X and Y, cycles per cell.
//   out       as many elements as u.
struct response {
  response_kind kind = response_kind::none;
  response_symmetry symmetry = response_symmetry::none;
  // The ramp of HiCut multiplies it on the FFT road in memory.
  bool times_high_cut = false;
  // The mean of the field is unknown: the first element of the spectrum is chosen so that the
  // transformed grid begins at zero.
  bool balanced = false;
  void (*real_row)(const filter_parameters&, std::span<const double> u, double v,
                   std::span<double> out) = nullptr;
  void (*complex_row)(const filter_parameters&, std::span<const double> u, double v,
                      std::span<complex_response> out) = nullptr;
};

[[nodiscard]] const response& response_of(response_id id) noexcept;

// One value; a real response has no imaginary part, an identity filter gives 1.
[[nodiscard]] complex_response response_at(response_id id, const filter_parameters& parameters,
                                           double u, double v);

}  // namespace velmorankite
