// Responses that depend on the distance from zero frequency alone: smoothing, continuation,
// derivatives and integrals along the vertical, layers.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "transform/trs_filter.h"

// A response is made from the parameter set of a run and is then a pure function of u and v, the
// frequencies along X and Y in cycles per cell. Distances and thicknesses are in cells. What
// depends on the parameters alone is worked out when the response is made.
namespace velmorankite {

// Frequencies, and angles 2 pi x frequency, below this one count as zero.
inline constexpr double tiny_frequency = static_cast<double>(1.0E-4F);

[[nodiscard]] inline double radius(double u, double v) {
  return std::sqrt(u * u + v * v);
}

[[nodiscard]] inline bool is_cutoff(float cutoff) {
  return cutoff > 0.0F && cutoff <= 1.0F;
}

// The ramp of HiCut: 1 up to an eighth of it, falling to 0 at the Nyquist frequency, in single
// precision. 1 everywhere where HiCut is no cutoff.
class HighCut {
 public:
  explicit HighCut(float cutoff) : active_(is_cutoff(cutoff)), corner_(cutoff * 0.125F) {}

  [[nodiscard]] bool active() const { return active_; }

  float operator()(float frequency) const {
    if (!active_ || !(frequency >= corner_)) return 1.0F;
    return std::max(0.0F, 1.0F - (frequency - corner_) / (0.5F - corner_));
  }

 private:
  bool active_;
  float corner_;
};

// Low-pass windows, Opt1: 1 Bartlett, 2 squared sinc, 3 Hann, 4 Hamming, others a roll-off of
// width 0.125 x HiCut at the Nyquist frequency. Opt2 = 1: what the window takes away.
class RespSmooth {
 public:
  explicit RespSmooth(const filter_parameters& p)
      : roll_off_(p.HiCut > 0.0F ? 0.125 * static_cast<double>(p.HiCut) : 0.0625),
        window_(p.Opt1),
        residual_(p.Opt2 == 1) {}

  double operator()(double u, double v) const {
    const double passed = window(radius(u, v));
    return residual_ ? 1.0 - passed : passed;
  }

 private:
  static constexpr double cut = 0.5;

  [[nodiscard]] double window(double r) const {
    if (r < tiny_frequency) return 1.0;
    if (r > cut) return 0.0;
    switch (window_) {
      case 1:
        return 1.0 - r / cut;
      case 2: {
        const double a = Pi * r / cut * 0.5;
        const double sinc = std::sin(a) / a;
        return sinc * sinc;
      }
      case 3:
        return (1.0 - std::cos((1.0 - r / cut) * Pi)) * 0.5;
      case 4:
        return 0.54 - 0.46 * std::cos((1.0 - r / cut) * Pi);
      default: {
        const double knee = cut - roll_off_;
        return r <= knee ? 1.0 : std::max(0.0, 1.0 - (r - knee) / roll_off_);
      }
    }
  }

  double roll_off_;
  std::int32_t window_;
  bool residual_;
};

// Continuation by Par1, upwards positive; the gain downwards is capped.
class RespContinue {
 public:
  explicit RespContinue(const filter_parameters& p)
      : rate_(-TwoPi * static_cast<double>(p.Par1)), downward_(p.Par1 < 0.0F) {}

  double operator()(double u, double v) const {
    constexpr double largest_gain = 20.0;
    const double gain = std::exp(rate_ * radius(u, v));
    return downward_ ? std::min(gain, largest_gain) : gain;
  }

 private:
  double rate_;
  bool downward_;
};

// The power of 2 pi r in radians per map unit that a vertical derivative of order Par1 takes.
class RespDerivZ {
 public:
  explicit RespDerivZ(const filter_parameters& p)
      : cell_(std::sqrt(p.CellX * p.CellY)), order_(static_cast<double>(p.Par1)) {}

  double operator()(double u, double v) const {
    const double wavenumber = TwoPi * radius(u, v) / cell_;
    if (order_ == 1.0) return wavenumber;
    return std::pow(wavenumber, order_);
  }

 private:
  double cell_;
  double order_;
};

// Vertical integral of order Par1, with a ramp below LoCut.
class RespIntegZ {
 public:
  explicit RespIntegZ(const filter_parameters& p)
      : power_(p), ramped_(is_cutoff(p.LoCut)), corner_(static_cast<double>(p.LoCut * 0.125F)) {}

  double operator()(double u, double v) const { return of_power(radius(u, v), power_(u, v)); }

  // The same from the radius and the power of the wavenumber that is integrated over.
  [[nodiscard]] double of_power(double r, double power) const {
    if (r < tiny_frequency) return ramped_ ? 0.0 : 1.0;
    const double integral = 1.0 / power;
    return ramped_ && r < corner_ ? integral * std::max(0.0, 1.0 - (corner_ - r) / corner_)
                                  : integral;
  }

 private:
  RespDerivZ power_;
  bool ramped_;
  double corner_;
};

// Share of the field of a magnetic half space that comes from a layer: top Par1, thickness Par2.
class RespMagLayer {
 public:
  explicit RespMagLayer(const filter_parameters& p)
      : top_(static_cast<double>(p.Par1)), thickness_(static_cast<double>(p.Par2)) {}

  double operator()(double u, double v) const {
    const double k = TwoPi * radius(u, v);
    return std::exp(-top_ * k) * (1.0 - std::exp(-thickness_ * k));
  }

 private:
  double top_;
  double thickness_;
};

// The same for gravity.
class RespGravLayer {
 public:
  explicit RespGravLayer(const filter_parameters& p)
      : top_(static_cast<double>(p.Par1)), thickness_(static_cast<double>(p.Par2)) {}

  double operator()(double u, double v) const {
    const double k = TwoPi * radius(u, v);
    return k * std::exp(-top_ * k) * (1.0 - std::exp(-thickness_ * k));
  }

 private:
  double top_;
  double thickness_;
};

// Continuation by Par1 less its Taylor polynomial of order Opt1 (Reste's residual).
class RespReste {
 public:
  explicit RespReste(const filter_parameters& p)
      : distance_(static_cast<double>(p.Par1)), order_(p.Opt1) {}

  double operator()(double u, double v) const {
    const double x = -distance_ * (TwoPi * radius(u, v));
    double term = 1.0;
    double polynomial = 1.0;
    for (std::int32_t n = 1; n <= order_ && term != 0.0 && std::isfinite(term); ++n) {
      term *= x / n;
      polynomial += term;
    }
    return std::exp(x) - polynomial;
  }

 private:
  double distance_;
  std::int32_t order_;
};

}  // namespace velmorankite
