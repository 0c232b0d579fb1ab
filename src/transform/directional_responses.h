// Responses with a direction in the plane of the grid: strike, tensor components, horizontal
// derivatives, phase flip.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "transform/complex_response.h"
#include "transform/elementary_functions.h"
#include "transform/filter_parameters.h"
#include "transform/radial_responses.h"

namespace velmorankite {

// Stops waves whose direction lies within Par1 degrees of Azim, with a taper of Par2 either side;
// Par2 as a length in cells also lets the longest waves through.
class RespStrike {
 public:
  explicit RespStrike(const filter_parameters& p)
      : azimuth_(static_cast<double>(p.Azim)),
        block_(static_cast<double>(p.Par1)),
        roll_off_(static_cast<double>(p.Par2)),
        turns_(0.5 / roll_off_),
        cosine_(std::cos(azimuth_ * DegToRad)),
        sine_(std::sin(azimuth_ * DegToRad)),
        surely_stopped_(squared_sine(block_ - roll_off_ - margin)),
        surely_passed_(squared_sine(block_ + std::abs(roll_off_) + margin)) {}

  // The response along a row. With a taper a stretch that is not passed as a whole is worked out
  // all alike.
  [[gnu::always_inline]] void fill(std::span<const double> u, double v,
                                   std::span<double> out) const {
    constexpr std::size_t stretch = 32;
    for (std::size_t first = 0; first < u.size(); first += stretch) {
      const std::size_t end = std::min(first + stretch, u.size());
      if (!(roll_off_ > 0.0)) {
        for (std::size_t i = first; i < end; ++i) {
          out[i] = sharp(u[i], v);
        }
      } else if (passes(u.subspan(first, end - first), v)) {
        std::ranges::fill(out.subspan(first, end - first), 1.0);
      } else {
        for (std::size_t i = first; i < end; ++i) {
          out[i] = tapered(u[i], v);
        }
      }
    }
  }

 private:
  // Most directions are decided by the sine of their angle with the strike, which costs no
  // arc tangent; those within this many degrees of an edge of the block are not.
  static constexpr double margin = 1.0E-4;

  static constexpr double degrees_per_radian = 1.0 / DegToRad;

  [[nodiscard]] static double squared_sine(double degrees) {
    if (degrees <= 0.0) return 0.0;
    if (degrees >= 90.0) return 2.0;
    const double sine = std::sin(degrees * DegToRad);
    return sine * sine;
  }

  // Length of the part of (u, v) that runs across the strike.
  [[nodiscard]] double across(double u, double v) const {
    return std::abs(v * cosine_ - u * sine_);
  }

  // Whether all elements are surely passed.
  [[gnu::always_inline]] [[nodiscard]] bool passes(std::span<const double> u, double v) const {
    int held = 0;
    for (const double x : u) {
      held += across(x, v) * across(x, v) > surely_passed_ * (x * x + v * v) ? 0 : 1;
    }
    return held == 0;
  }

  // With a taper the response has no step, and the last bit of an angle does not matter.
  [[nodiscard]] double tapered(double u, double v) const {
    const double r = radius(u, v);
    const double off =
        angle_of(std::abs(u * cosine_ + v * sine_), across(u, v)) * degrees_per_radian;
    // Half turns from a quarter turn at the inner edge of the taper to minus one at the outer edge.
    const double turn = std::max(-0.5, std::min(0.5, (block_ - off) * turns_));
    const double passed = 0.5 - 0.5 * sine_of_half_turns(turn);
    const double k = TwoPi * r;
    const double with_long_waves = 1.0 - (1.0 - passed) * (1.0 - exponential(-roll_off_ * k));
    return k <= tiny_frequency ? 1.0 : with_long_waves;
  }

  [[nodiscard]] double sharp(double u, double v) const {
    const double square = u * u + v * v;
    const double sine_squared = across(u, v) * across(u, v);
    if (TwoPi * std::sqrt(square) <= tiny_frequency || sine_squared > surely_passed_ * square) {
      return 1.0;
    }
    return sine_squared < surely_stopped_ * square ? 0.0 : by_direction(u, v);
  }

  [[nodiscard]] double by_direction(double u, double v) const {
    double turn = std::atan2(v, u) / DegToRad - azimuth_;
    if (std::abs(turn) > 90.0) turn += turn < 0.0 ? 180.0 : -180.0;
    return block_ - roll_off_ > std::abs(turn) ? 0.0 : 1.0;
  }

  double azimuth_;
  double block_;
  double roll_off_;
  double turns_;  // half turns of the taper's sine for a degree
  double cosine_;
  double sine_;
  double surely_stopped_;
  double surely_passed_;
};

// Components of the gradient tensor from the vertical one, in axes turned by Azim. |Opt2|: 2
// Gzz - Gyy, 3 Gxx - Gyy, 4 Gxy, others Gzz - Gxx; Opt2 below 1: from Gzz, else the way back.
class RespTensor {
 public:
  explicit RespTensor(const filter_parameters& p)
      : cosine_(p.DirCos),
        sine_(p.DirSin),
        component_(std::abs(std::int64_t{p.Opt2})),
        direct_(p.Opt2 < 1) {}

  double operator()(double u, double v) const {
    if (TwoPi * radius(u, v) <= tiny_frequency) return 0.0;
    const double a = u * cosine_ + v * sine_;
    const double b = -u * sine_ + v * cosine_;
    const double square = a * a + b * b;
    const double part = component(a, b);
    return direct_ ? (square > 0.0 ? part / square : 0.0) : inverse(part, square);
  }

 private:
  [[nodiscard]] double component(double a, double b) const {
    if (component_ == 4) return -a * b;
    if (component_ == 3) return -(a * a - b * b);
    if (component_ == 2) return a * a + 2.0 * (b * b);
    return 2.0 * (a * a) + b * b;
  }
  [[nodiscard]] static double inverse(double part, double square) {
    return std::abs(part) > 0.0 ? square / part : 0.0;
  }

  double cosine_;
  double sine_;
  std::int64_t component_;
  bool direct_;
};

// Horizontal derivative of order Par1 along DirAngle, with a ramp above HiCut.
class RespDerivH {
 public:
  explicit RespDerivH(const filter_parameters& p) : RespDerivH(p, p.DirSin, p.DirCos) {}
  RespDerivH(const filter_parameters& p, double sine, double cosine)
      : sine_(sine),
        cosine_(cosine),
        x_cell_(p.CellX),
        y_cell_(p.CellY),
        order_(p.Par1),
        at_zero_(std::pow(0.0F, p.Par1)),
        phase_(power_of_i(static_cast<double>(p.Par1))),
        high_cut_(p.HiCut) {}

  [[nodiscard]] complex_single single(double u, double v) const {
    const auto frequency = static_cast<float>(radius(u, v));
    if (frequency > 1.0F) return {};
    const auto wavenumber =
        static_cast<float>(TwoPi * (u * sine_ / x_cell_ + v * cosine_ / y_cell_));
    const float size = magnitude(std::abs(wavenumber)) * high_cut_(frequency);
    // The principal branch: a negative wavenumber turns the other way.
    return {size * phase_.re, wavenumber < 0.0F ? -(size * phase_.im) : size * phase_.im};
  }

  complex_response operator()(double u, double v) const { return widened(single(u, v)); }

 private:
  // Exact for whole orders.
  [[nodiscard]] static complex_single power_of_i(double order) {
    const double turn = std::remainder(order, 4.0);  // in [-2, 2] quarter turns
    if (turn == std::trunc(turn)) {
      constexpr complex_single whole[] = {
          {-1.0F, 0.0F}, {0.0F, -1.0F}, {1.0F, 0.0F}, {0.0F, 1.0F}, {-1.0F, 0.0F}};
      return whole[static_cast<int>(turn) + 2];
    }
    return rounded(std::cos(turn * Pi / 2.0), std::sin(turn * Pi / 2.0));
  }

  // A wave that runs across the direction, up to the rounding of the direction's sine and cosine,
  // has no integral that would be finite: a negative order leaves it out.
  [[nodiscard]] float magnitude(float wavenumber) const {
    constexpr double across = 1.0E-9;  // radians a cell
    if (order_ == 1.0F) return wavenumber;
    if (order_ < 0.0F && static_cast<double>(wavenumber) * std::min(x_cell_, y_cell_) < across) {
      return 0.0F;
    }
    return wavenumber > 0.0F ? static_cast<float>(power(static_cast<double>(wavenumber),
                                                        static_cast<double>(order_)))
                             : at_zero_;
  }

  double sine_;
  double cosine_;
  double x_cell_;
  double y_cell_;
  float order_;
  float at_zero_;
  complex_single phase_;  // i to the power of the order
  HighCut high_cut_;
};

// Both horizontal second derivatives at once: along X of that along Y.
class RespDerivXY {
 public:
  explicit RespDerivXY(const filter_parameters& p) : along_x_(p, 1.0, 0.0), along_y_(p, 0.0, 1.0) {}

  complex_response operator()(double u, double v) const { return along_x_(u, v) * along_y_(u, v); }

 private:
  RespDerivH along_x_;
  RespDerivH along_y_;
};

// A horizontal derivative of what a vertical response makes.
template <typename Vertical>
class RespDerivHOf {
 public:
  explicit RespDerivHOf(const filter_parameters& p) : horizontal_(p), vertical_(p) {}

  complex_response operator()(double u, double v) const {
    const complex_single along = horizontal_.single(u, v);
    const auto factor = static_cast<float>(vertical_(u, v));
    return widened({along.re * factor, along.im * factor});
  }

 private:
  RespDerivH horizontal_;
  Vertical vertical_;
};

// Turns the phase by a quarter, one way on one side of the direction Par1, the other way on the
// other side.
class RespPhaseFlip {
 public:
  explicit RespPhaseFlip(const filter_parameters& p) : angle_(static_cast<double>(p.Par1)) {}

  complex_response operator()(double u, double v) const {
    if (TwoPi * radius(u, v) <= tiny_frequency) return {};
    const double turn = std::atan2(v, u) / DegToRad - 90.0;
    double off = std::abs(turn - angle_);
    if (off > 180.0) {
      off = turn < 0.0 ? std::abs(turn + 360.0 - angle_) : std::abs(turn - 360.0 - angle_);
    }
    if (off < 89.0) return {0.0, -1.0};
    if (off > 91.0) return {0.0, 1.0};
    const double across = off - 90.0;
    return {0.0, across * across * across};
  }

 private:
  double angle_;
};

}  // namespace velmorankite
