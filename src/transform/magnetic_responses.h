// Responses of the magnetic field: susceptibility, reduction to the pole and to the equator,
// pseudo gravity, components of the field. Directions come from MAGDIRCOS.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cmath>

#include "transform/complex_response.h"
#include "transform/elementary_functions.h"
#include "transform/filter_parameters.h"
#include "transform/radial_responses.h"

namespace velmorankite {

[[nodiscard]] inline bool is_zero_frequency(double u, double v) {
  return std::abs(u) < tiny_frequency && std::abs(v) < tiny_frequency;
}

// At low inclinations the reduction blows up along the declination. There it is made for 45
// degrees and blended with a plain change of sign, which is the answer at the equator.
class Stabilised {
 public:
  explicit Stabilised(const filter_parameters& p)
      : active_(p.Opt2 == 1 && std::abs(p.Par2) < 45.0F),
        sine_(std::sin(dip(p))),
        towards_x_(std::cos(dip(p)) * std::sin(static_cast<double>(p.Par1) * DegToRad)),
        towards_y_(std::cos(dip(p)) * std::cos(static_cast<double>(p.Par1) * DegToRad)),
        weight_(std::abs(std::sin(2.0 * static_cast<double>(p.Par2) * DegToRad))) {}

  [[nodiscard]] bool active() const { return active_; }
  [[nodiscard]] double sine() const { return sine_; }
  // Horizontal part of the field's direction along (u, v), times their length.
  [[nodiscard]] double along(double u, double v) const { return towards_x_ * u + towards_y_ * v; }
  [[nodiscard]] complex_response blend(complex_response z) const {
    return {weight_ * z.re - 1.0 + weight_, weight_ * z.im};
  }

 private:
  [[nodiscard]] static double dip(const filter_parameters& p) {
    return (p.Par2 < 0.0F ? -45.0 : 45.0) * DegToRad;
  }

  bool active_;
  double sine_;
  double towards_x_;
  double towards_y_;
  double weight_;
};

// Apparent susceptibility of square prisms of side Par1 with their tops at Par2, field Par3.
class RespAppSusc {
 public:
  explicit RespAppSusc(const filter_parameters& p)
      : side_(static_cast<double>(p.Par1)),
        depth_(static_cast<double>(p.Par2)),
        field_(static_cast<double>(p.Par3)) {}

  // The response along a row, with what depends on v alone worked out.
  [[nodiscard]] auto row(double v) const {
    return [this, v, along_y = sinc(side_ * v)](double u) {
      return exponential(depth_ * (TwoPi * radius(u, v))) * sinc(side_ * u) * along_y / field_ /
             TwoPi;
    };
  }

 private:
  // Of pi t.
  [[nodiscard]] static double sinc(double t) {
    const double x = Pi * t;
    return std::abs(x) < tiny_frequency ? 1.0 : sine_of_half_turns(t) / x;
  }

  double side_;
  double depth_;
  double field_;
};

// What a total field anomaly is divided by to stand on the pole, for a field and a remanence.
class PlainReduction {
 public:
  explicit PlainReduction(const filter_parameters& p)
      : mag_l_(p.MagL),
        mag_m_(p.MagM),
        rem_l_(p.RemL),
        rem_m_(p.RemM),
        mag_n_(static_cast<float>(p.MagN)),
        rem_n_(static_cast<float>(p.RemN)) {}

  complex_response operator()(double u, double v) const {
    const double r = radius(u, v);
    const complex_single field{mag_n_, static_cast<float>((u * mag_l_ + v * mag_m_) / r)};
    const complex_single remanence{rem_n_, static_cast<float>((u * rem_l_ + v * rem_m_) / r)};
    const complex_response inverse = reciprocal(field * remanence);
    return widened(rounded(inverse.re, inverse.im));
  }

 private:
  double mag_l_;
  double mag_m_;
  double rem_l_;
  double rem_m_;
  float mag_n_;
  float rem_n_;
};

// Reduction to the pole (Baranov, 1957).
class RespRTP {
 public:
  explicit RespRTP(const filter_parameters& p) : plain_(p), stabilised_(p) {}

  complex_response operator()(double u, double v) const {
    if (is_zero_frequency(u, v)) return {1.0, 0.0};
    if (!stabilised_.active()) return plain_(u, v);
    const complex_single z = rounded(stabilised_.sine(), stabilised_.along(u, v) / radius(u, v));
    const complex_response inverse = reciprocal(z * z);
    return stabilised_.blend(widened(rounded(inverse.re, inverse.im)));
  }

 private:
  PlainReduction plain_;
  Stabilised stabilised_;
};

// Reduction to the equator: to the pole, and from there to a level field along Y.
class RespRTE {
 public:
  explicit RespRTE(const filter_parameters& p)
      : plain_(p),
        split_(p.Opt2 == 1 && std::abs(p.Par2) < 30.0F),
        mag_l_(p.MagL),
        mag_m_(p.MagM),
        mag_n_(p.MagN) {
    const double flatness = std::abs(mag_n_);
    if (flatness > 0.25) {
      const double q = std::sqrt((flatness - 0.25) * 4.0);
      along_share_ = (1.0 + q) / 2.0;
      across_share_ = (1.0 - q) / 2.0;
    }
  }

  complex_response operator()(double u, double v) const {
    if (is_zero_frequency(u, v)) return {1.0, 0.0};
    const double r = radius(u, v);
    const double to_equator = -(v * v / (r * r));
    return to_equator * (split_ ? split(u, v, r) : plain_(u, v));
  }

 private:
  // At low inclinations the reduction along the field is mixed with the one across it, each
  // weighted by how well it is determined.
  [[nodiscard]] complex_response split(double u, double v, double r) const {
    const double along = (u * mag_l_ + v * mag_m_) / r;
    const double across = (v * mag_l_ - u * mag_m_) / r;
    const double along_weight = squared((along * along + mag_n_ * mag_n_) * along_share_);
    const double across_weight = squared((mag_n_ * mag_n_ + across * across) * across_share_);
    const complex_single z1 = rounded(mag_n_, along);
    const complex_single z2 = rounded(mag_n_, across);
    const complex_response sum =
        along_weight * reciprocal(z1 * z1) + across_weight * reciprocal(z2 * z2);
    const double weights = along_weight + across_weight;
    return {sum.re / weights, sum.im / weights};
  }
  [[nodiscard]] static double squared(double x) { return x * x; }

  PlainReduction plain_;
  bool split_;
  double mag_l_;
  double mag_m_;
  double mag_n_;
  double along_share_ = 0.5;
  double across_share_ = 0.5;
};

// Pseudo gravity (Baranov, 1957).
class RespPseudoGrav {
 public:
  explicit RespPseudoGrav(const filter_parameters& p) : p_(p) {}

  complex_response operator()(double u, double v) const {
    if (is_zero_frequency(u, v)) return {1.0 / TwoPi, 0.0};
    const double a = u * p_.MagL + v * p_.MagM;
    const double b = u * p_.RemL + v * p_.RemM;
    const double square = u * u + v * v;
    const double divisor = (a * a + p_.MagNN * square) * (b * b + p_.RemNN * square) * TwoPi;
    return {(p_.MagRemN * square - a * b) * std::sqrt(square) / divisor,
            (p_.RemN * a + p_.MagN * b) * square / divisor};
  }

 private:
  const filter_parameters& p_;
};

// Components of the anomalous field from the total field, with a ramp below LoCut.
class FieldComponent {
 public:
  explicit FieldComponent(const filter_parameters& p)
      : stabilised_(p),
        mag_l_(p.MagL),
        mag_m_(p.MagM),
        sine_(std::abs(stabilised_.active() ? stabilised_.sine() : p.MagN)),
        low_cut_(static_cast<double>(p.LoCut)) {}

 protected:
  // Part of the field's direction along (u, v), times their length.
  [[nodiscard]] double along(double u, double v) const {
    return stabilised_.active() ? stabilised_.along(u, v) : u * mag_l_ + v * mag_m_;
  }
  [[nodiscard]] double sine() const { return sine_; }

  [[nodiscard]] complex_response finished(complex_response z, double r) const {
    return low_cut_factor(r) * (stabilised_.active() ? stabilised_.blend(z) : z);
  }

 private:
  [[nodiscard]] double low_cut_factor(double r) const {
    if (!(low_cut_ > 0.0)) return 1.0;
    const double corner = low_cut_ / 20.0;
    if (r < corner) return 0.0;
    return r >= low_cut_ / 10.0 ? 1.0 : std::min(1.0, (r - corner) / corner);
  }

  Stabilised stabilised_;
  double mag_l_;
  double mag_m_;
  double sine_;
  double low_cut_;
};

class RespFieldZ : FieldComponent {
 public:
  using FieldComponent::FieldComponent;

  complex_response operator()(double u, double v) const {
    const double r = radius(u, v);
    if (!(r > 0.0)) return {};
    const auto n = static_cast<double>(static_cast<float>(sine()));
    const auto a = static_cast<double>(static_cast<float>(along(u, v) / r));
    const double square = n * n + a * a;
    return finished({n / square, -a / square}, r);
  }
};

// The horizontal components differ in the frequency that they take.
class HorizontalFieldComponent : FieldComponent {
 public:
  using FieldComponent::FieldComponent;

 protected:
  [[nodiscard]] complex_response component(double u, double v, double frequency) const {
    const double r = radius(u, v);
    if (!(r > 0.0)) return {};
    const auto n = static_cast<double>(static_cast<float>(sine() * r));
    const auto a = static_cast<double>(static_cast<float>(along(u, v)));
    const auto w = static_cast<double>(static_cast<float>(frequency));
    const double square = n * n + a * a;
    return finished({-w * a / square, -w * n / square}, r);
  }
};

class RespFieldX : HorizontalFieldComponent {
 public:
  using HorizontalFieldComponent::HorizontalFieldComponent;
  complex_response operator()(double u, double v) const { return component(u, v, u); }
};

class RespFieldY : HorizontalFieldComponent {
 public:
  using HorizontalFieldComponent::HorizontalFieldComponent;
  complex_response operator()(double u, double v) const { return component(u, v, v); }
};

}  // namespace velmorankite
