// The responses of the filters by rows of the frequency plane, chosen from a table.
// SPDX-License-Identifier: MIT
#pragma once
#include <span>

#include "transform/complex_response.h"
#include "transform/trs_filter.h"

namespace velmorankite {

enum class response_kind : std::uint8_t { none, real, complex };

// A response, ready for the rows of any frequency lattice. The row functions work out what depends
// on the parameters once a row; the values are those of the response class at (u[i], v).
//   u, v      frequencies along X and Y, cycles per cell.
//   out       as many elements as u.
struct response {
  response_kind kind = response_kind::none;
  // The value is the same for u and -u, and for v and -v.
  bool even = false;
  // The ramp of HiCut multiplies it on the FFT road in memory.
  bool times_high_cut = false;
  // The mean of the field is unknown: the first element of the spectrum is chosen so that the
  // transformed grid begins at zero.
  bool balanced = false;
  void (*real_row)(const filter_parameters&, std::span<const double> u, double v,
                   std::span<double> out) = nullptr;
  void (*complex_row)(const filter_parameters&, std::span<const double> u, double v,
                      std::span<complex_response> out) = nullptr;
  // What the response leaves in the parameter set, if anything.
  void (*afterwards)(filter_parameters&) = nullptr;
};

[[nodiscard]] const response& response_of(response_id id) noexcept;

// One value; a real response has no imaginary part, an identity filter gives 1.
[[nodiscard]] complex_response response_at(response_id id, const filter_parameters& parameters,
                                           double u, double v);

}  // namespace velmorankite
