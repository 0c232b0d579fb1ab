// SPDX-License-Identifier: MIT
#include "utilities/hyperbolic_terms.h"

#include <cmath>
#include <span>

namespace velmorankite {
namespace {

// t (1 + t (a1 + t (a2 + t (a3 + t (a4 + t a5))))) / (b0 + t (b1 + t b2)) with t = x^2, for |x| up
// to a limit, itself inside. The limits and some b0 are single precision numbers.
struct rational_form {
  float limit;
  double a5, a4, a3, a2, a1, b2, b1, b0;

  [[nodiscard]] double at(double t) const noexcept {
    return t * (1.0 + t * (a1 + t * (a2 + t * (a3 + t * (a4 + t * a5))))) /
           (b0 + t * (b1 + t * b2));
  }
};

constexpr rational_form s_forms[] = {
    {2.2F, 0.0, 2.2758166906555743e-08, 6.121898422861705e-06, 0.0007153147598728538,
     0.03980882838368416, 0.0002063826977973804, -0.06114702671766281, 6.0},
    {3.9F, 1.2909415203488095e-10, 4.737318093361864e-08, 8.492134838888887e-06,
     0.000833264784887433, 0.04250241443514824, 0.00010600851237541065, -0.04498551785945892, 6.0},
    {5.1F, 1.551939410315839e-10, 5.1152944990917604e-08, 8.84775636222912e-06,
     0.0008504476281814277, 0.0428888164460659, 9.331288310931996e-05, -0.04266775771975517,
     6.000001430511475},
    {6.1F, 1.8807062851511347e-10, 5.457928153873581e-08, 9.201195098285098e-06,
     0.0008665593923069537, 0.043253522366285324, 8.24891758384183e-05, -0.040493883192539215,
     6.000050067901611},
};
constexpr rational_form c_forms[] = {
    {2.2F, 5.522006185643136e-10, 1.8166691972965054e-07, 2.705401311686728e-05,
     0.002062707208096981, 0.07444372028112411, 5.14609637320973e-05, -0.01777922548353672, 2.0},
};
constexpr rational_form m_forms[] = {
    {2.2F, 0.0, 6.64418786655574e-09, 2.1827454474987462e-06, 0.0003248510474804789,
     0.024451514706015587, 0.0006161658093333244, -0.21316364407539368, 24.0},
};

// The first form that holds at |x|, else the plain formula.
template <typename Plain>
double evaluate(std::span<const rational_form> forms, double x, const Plain& plain) noexcept {
  for (const rational_form& form : forms) {
    if (x <= form.limit) {
      return form.at(x * x);
    }
  }
  return plain(std::exp(x));
}

}  // namespace

hyperbolic_terms TCUBHYP(double x, std::int32_t wanted) noexcept {
  const bool both = wanted == 0 || wanted == 3;
  const double size = std::fabs(x);
  const double t = size * size;
  hyperbolic_terms terms;
  if (both || wanted < 0) {
    // Beside another term s has the first form alone: an exponential is then at hand anyway.
    terms.s = evaluate(std::span(s_forms).first(both ? 1 : std::size(s_forms)), size,
                       [size](double e) { return (e - 1.0 / e) / (2.0 * size) - 1.0; });
  }
  if (wanted == 0 || wanted == 1) {
    terms.c = evaluate(c_forms, size, [](double e) { return (e + 1.0 / e) / 2.0 - 1.0; });
  }
  if (wanted > 1) {
    terms.m =
        evaluate(m_forms, size, [t](double e) { return ((e - t + 1.0 / e) / 2.0 - 1.0) / t; });
  }
  return terms;
}

}  // namespace velmorankite
