// SPDX-License-Identifier: MIT
#include "transform/responses.h"

#include <algorithm>
#include <cstddef>

#include "platform/vector_clones.h"
#include "transform/directional_responses.h"
#include "transform/filter_traits.h"
#include "transform/magnetic_responses.h"
#include "transform/radial_responses.h"

namespace velmorankite {
namespace {

template <typename Response>
VELMORANKITE_VECTOR_CLONES void real_row(const filter_parameters& parameters,
                                         std::span<const double> u, double v,
                                         std::span<double> out) {
  const Response value(parameters);
  if constexpr (requires { value.fill(u, v, out); }) {
    value.fill(u, v, out);
  } else if constexpr (requires { value.row(v); }) {
    const auto value_in_row = value.row(v);
    for (std::size_t i = 0; i < u.size(); ++i) {
      out[i] = value_in_row(u[i]);
    }
  } else {
    for (std::size_t i = 0; i < u.size(); ++i) {
      out[i] = value(u[i], v);
    }
  }
}

template <typename Response>
VELMORANKITE_VECTOR_CLONES void complex_row(const filter_parameters& parameters,
                                            std::span<const double> u, double v,
                                            std::span<complex_response> out) {
  const Response value(parameters);
  for (std::size_t i = 0; i < u.size(); ++i) {
    out[i] = value(u[i], v);
  }
}

// The vertical derivative of the vertical integral, both of order Par1.
class RespDerivZOfIntegZ {
 public:
  explicit RespDerivZOfIntegZ(const filter_parameters& p) : derivative_(p), integral_(p) {}
  double operator()(double u, double v) const {
    const double power = derivative_(u, v);
    return power * integral_.of_power(radius(u, v), power);
  }

 private:
  RespDerivZ derivative_;
  RespIntegZ integral_;
};

constexpr auto real = response_kind::real;
constexpr auto complex = response_kind::complex;
constexpr auto even = response_symmetry::axes;
constexpr auto point = response_symmetry::point;
constexpr auto uneven = response_symmetry::none;
constexpr bool times_h = true;
constexpr bool plain = false;

// In the order of response_id.
constexpr response responses[] = {
    {},
    {real, even, plain, false, real_row<RespSmooth>},
    {real, even, plain, false, real_row<RespContinue>},
    {real, even, times_h, false, real_row<RespDerivZ>},
    {real, even, plain, false, real_row<RespIntegZ>},
    {real, even, plain, false, real_row<RespMagLayer>},
    {real, even, plain, false, real_row<RespGravLayer>},
    {real, even, plain, false, real_row<RespReste>},
    {real, point, plain, false, real_row<RespStrike>},
    {real, point, plain, false, real_row<RespTensor>},
    {real, even, plain, false, real_row<RespAppSusc>},
    {complex, uneven, plain, false, nullptr, complex_row<RespRTP>},
    {complex, uneven, plain, false, nullptr, complex_row<RespRTE>},
    {complex, uneven, plain, false, nullptr, complex_row<RespPseudoGrav>},
    {complex, uneven, plain, false, nullptr, complex_row<RespDerivH>},
    {complex, uneven, plain, false, nullptr, complex_row<RespDerivHOf<RespDerivZ>>},
    {complex, uneven, plain, false, nullptr, complex_row<RespDerivXY>},
    {complex, uneven, plain, false, nullptr, complex_row<RespDerivHOf<RespIntegZ>>},
    {real, even, plain, false, real_row<RespDerivZOfIntegZ>},
    {complex, uneven, plain, false, nullptr, complex_row<RespPhaseFlip>},
    {complex, uneven, plain, true, nullptr, complex_row<RespFieldX>},
    {complex, uneven, plain, true, nullptr, complex_row<RespFieldY>},
    {complex, uneven, plain, true, nullptr, complex_row<RespFieldZ>},
};
static_assert(std::size(responses) == static_cast<std::size_t>(response_id::field_z) + 1);
// The ramp of HiCut is put on a quarter of the frequency plane.
static_assert(std::ranges::all_of(responses, [](const response& r) {
  return !r.times_high_cut || r.symmetry == response_symmetry::axes;
}));

}  // namespace

const response& response_of(response_id id) noexcept {
  return responses[static_cast<std::size_t>(id)];
}

complex_response response_at(response_id id, const filter_parameters& parameters, double u,
                             double v) {
  const response& chosen = response_of(id);
  complex_response value{1.0, 0.0};
  if (chosen.real_row != nullptr) {
    chosen.real_row(parameters, std::span(&u, 1), v, std::span(&value.re, 1));
  } else if (chosen.complex_row != nullptr) {
    chosen.complex_row(parameters, std::span(&u, 1), v, std::span(&value, 1));
  }
  return value;
}

}  // namespace velmorankite
