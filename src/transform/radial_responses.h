// Responses that depend on the distance from zero frequency alone: smoothing, continuation,
// derivatives and integrals along the vertical, layers.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "transform/elementary_functions.h"
#include "transform/filter_parameters.h"

// A response is made from the parameter set of a run and is then a pure function of u and v, the
// frequencies along X and Y in cycles per cell. Distances and thicknesses are in cells. What
// depends on the parameters alone is worked out when the response is made.
namespace velmorankite {

// Frequencies, and angles 2 pi x frequency, below this one count as zero.
inline constexpr double tiny_frequency = static_cast<double>(1.0E-4F);

[[nodiscard]] inline double radius(double u, double v) {
  return std::sqrt(u * u + v * v);
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

  // The response along a row: one loop a window.
  [[gnu::always_inline]] void fill(std::span<const double> u, double v,
                                   std::span<double> out) const {
    switch (window_) {
      case 1:
        return fill_with(u, v, out, [](double r) { return 1.0 - r / cut; });
      case 2:
        return fill_with(u, v, out, [](double r) {
          const double sinc = sine_of_half_turns(0.5 * r / cut) / (Pi * r / cut * 0.5);
          return sinc * sinc;
        });
      case 3:
        return fill_with(u, v, out, [](double r) { return (1.0 - turned_cosine(r)) * 0.5; });
      case 4:
        return fill_with(u, v, out, [](double r) { return 0.54 - 0.46 * turned_cosine(r); });
      default:
        return fill_with(u, v, out, [this](double r) {
          const double knee = cut - roll_off_;
          return r <= knee ? 1.0 : std::max(0.0, 1.0 - (r - knee) / roll_off_);
        });
    }
  }

 private:
  static constexpr double cut = 0.5;

  // cos((1 - r / cut) pi)
  [[nodiscard]] static double turned_cosine(double r) { return sine_of_half_turns(1.5 - r / cut); }

  template <typename Window>
  [[gnu::always_inline]] void fill_with(std::span<const double> u, double v, std::span<double> out,
                                        Window window) const {
    for (std::size_t i = 0; i < u.size(); ++i) {
      const double r = radius(u[i], v);
      const double within = window(r);
      const double passed = r < tiny_frequency ? 1.0 : r > cut ? 0.0 : within;
      out[i] = residual_ ? 1.0 - passed : passed;
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
      : rate_(-TwoPi * static_cast<double>(p.Par1)), largest_gain_(p.Par1 < 0.0F ? 20.0 : 1.0) {}

  double operator()(double u, double v) const {
    return std::min(exponential(rate_ * radius(u, v)), largest_gain_);
  }

 private:
  double rate_;
  double largest_gain_;
};

// The power of 2 pi r in radians per map unit that a vertical derivative of order Par1 takes.
class RespDerivZ {
 public:
  explicit RespDerivZ(const filter_parameters& p)
      : cell_(std::sqrt(p.CellX * p.CellY)),
        order_(static_cast<double>(p.Par1)),
        at_zero_(order_ == 0.0 ? 1.0 : 0.0) {}

  double operator()(double u, double v) const {
    const double wavenumber = TwoPi * radius(u, v) / cell_;
    if (order_ == 1.0) return wavenumber;
    return wavenumber > 0.0 ? power(wavenumber, order_) : at_zero_;
  }

 private:
  double cell_;
  double order_;
  double at_zero_;  // of a negative order too, where the power has no value
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
    return exponential(-top_ * k) * (1.0 - exponential(-thickness_ * k));
  }

 private:
  double top_;
  double thickness_;
};

// The same for gravity.
class RespGravLayer {
 public:
  explicit RespGravLayer(const filter_parameters& p) : share_(p) {}

  double operator()(double u, double v) const { return TwoPi * radius(u, v) * share_(u, v); }

 private:
  RespMagLayer share_;
};

// Continuation by Par1 less its Taylor polynomial of order Opt1 (Reste's residual).
class RespReste {
 public:
  explicit RespReste(const filter_parameters& p)
      : distance_(static_cast<double>(p.Par1)), order_(p.Opt1) {}

  // The response along a row, a stretch at a time: term after term of all its elements, until
  // there is none that would change anything.
  [[gnu::always_inline]] void fill(std::span<const double> u, double v,
                                   std::span<double> out) const {
    for (std::size_t first = 0; first < u.size(); first += stretch) {
      std::array<double, stretch> x{};
      const std::size_t count = std::min(stretch, u.size() - first);
      for (std::size_t i = 0; i < count; ++i) {
        x[i] = -distance_ * (TwoPi * radius(u[first + i], v));
      }
      const std::array<double, stretch> taylor = polynomial(x);
      for (std::size_t i = 0; i < count; ++i) {
        out[first + i] = exponential(x[i]) - taylor[i];
      }
    }
  }

 private:
  static constexpr std::size_t stretch = 32;

  [[gnu::always_inline]] [[nodiscard]] std::array<double, stretch> polynomial(
      const std::array<double, stretch>& x) const {
    std::array<double, stretch> term;
    term.fill(1.0);
    std::array<double, stretch> sum = term;
    bool goes_on = true;
    for (std::int32_t n = 1; n <= order_ && goes_on; ++n) {
      double changes = 0.0;
      for (std::size_t i = 0; i < stretch; ++i) {
        // Behind an overflow the sum stays as it is.
        const bool finite = std::abs(term[i]) <= std::numeric_limits<double>::max();
        term[i] = finite ? term[i] * (x[i] / n) : 0.0;
        sum[i] += term[i];
        changes = term[i] != 0.0 ? 1.0 : changes;
      }
      goes_on = changes != 0.0;
    }
    return sum;
  }

  double distance_;
  std::int32_t order_;
};

}  // namespace velmorankite
