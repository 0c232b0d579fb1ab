// Designer of symmetric operators, WTSYM.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "transform/convolution_design.h"
#include "transform/filter_index.h"
#include "transform/filter_traits.h"
#include "transform/operator_log.h"
#include "transform/radial_responses.h"
#include "transform/responses.h"

namespace velmorankite {
namespace {

// Sum over the whole operator of which `weights` is the quarter plane: points on an axis stand for
// two, all others but the centre for four.
double whole_sum(std::span<const float> weights, std::size_t w) {
  double on_axes = 0.0;
  double elsewhere = 0.0;
  for (std::size_t i = 1; i < w; ++i) {
    on_axes += static_cast<double>(weights[i]) + static_cast<double>(weights[i * w]);
    for (std::size_t j = 1; j < w; ++j) {
      elsewhere += static_cast<double>(weights[j * w + i]);
    }
  }
  return static_cast<double>(weights[0]) + 2.0 * on_axes + 4.0 * elsewhere;
}

void divide_by_sum(std::span<float> weights, std::size_t w) {
  const double sum = whole_sum(weights, w);
  for (float& weight : weights) {
    weight = static_cast<float>(static_cast<double>(weight) / sum);
  }
}

// The smoothing windows at a distance from the centre, as a share of the half width.
float window_weight(std::int32_t kind, float distance) {
  const auto rr = static_cast<double>(distance);
  if (rr > 1.0) return 0.0F;
  if (rr <= tiny_frequency) return 1.0F;
  double weight = 1.0;
  if (kind == 1) {
    weight = 1.0 - rr;
  } else if (kind == 2) {
    const double sinc = std::sin(Pi * rr) / (Pi * rr);
    weight = sinc * sinc;
  } else if (kind == 3) {
    weight = (1.0 - std::cos((1.0 - rr) * Pi)) * 0.5;
  } else if (kind == 4) {
    weight = 0.54 - 0.46 * std::cos((1.0 - rr) * Pi);
  }
  return std::max(0.0F, static_cast<float>(weight));
}

void design_window(const filter_parameters& parameters, std::size_t w, std::span<float> weights) {
  const auto half_width = static_cast<float>(w);
  for (std::size_t j = 0; j < w; ++j) {
    const float y = static_cast<float>(j) / half_width;
    for (std::size_t i = 0; i < w; ++i) {
      const float x = static_cast<float>(i) / half_width;
      weights[j * w + i] = window_weight(parameters.Opt1, std::sqrt(x * x + y * y));
    }
  }
  divide_by_sum(weights, w);
  if (parameters.Opt2 == 1) {
    for (float& weight : weights)
      weight = -weight;
    weights[0] += 1.0F;
  }
}

// The input, plus the mean of the area, less the mean along the row or column: which of the two
// is told by the sine of the strike in Par3.
void design_strike(const filter_parameters& parameters, std::size_t w, std::span<float> weights) {
  for (float& weight : weights)
    weight = 1.0F;
  divide_by_sum(weights, w);
  const bool along_y = std::abs(parameters.Par3) < 0.01F;
  const float share = 1.0F / static_cast<float>(2 * w - 1);
  for (std::size_t k = 0; k < w; ++k) {
    weights[along_y ? k * w : k] -= share;
  }
  weights[0] += 1.0F;
}

// Inverse cosine transform of the samples of an even function on the quarter plane: along X, then
// along Y.
void invert_cosines(std::span<const float> samples, std::size_t w, std::span<float> weights) {
  const std::size_t n = 2 * w - 1;
  std::vector<float> cosine(n);
  for (std::size_t k = 0; k < n; ++k) {
    cosine[k] =
        static_cast<float>(std::cos(TwoPi * static_cast<double>(k) / static_cast<double>(n)));
  }
  const auto factor = [&](std::size_t k, std::size_t i) {
    return (k == 0 ? 1.0 : 2.0) * static_cast<double>(cosine[k * i % n]);
  };
  std::vector<double> half(w * w);
  for (std::size_t l = 0; l < w; ++l) {
    for (std::size_t i = 0; i < w; ++i) {
      double sum = 0.0;
      for (std::size_t k = 0; k < w; ++k) {
        sum += factor(k, i) * static_cast<double>(samples[l * w + k]);
      }
      half[l * w + i] = sum;
    }
  }
  const auto points = static_cast<double>(n);
  for (std::size_t j = 0; j < w; ++j) {
    for (std::size_t i = 0; i < w; ++i) {
      double sum = 0.0;
      for (std::size_t l = 0; l < w; ++l) {
        sum += factor(l, j) * half[l * w + i];
      }
      weights[j * w + i] = static_cast<float>(sum / (points * points));
    }
  }
}

void design_sampled(const filter_parameters& parameters, response_id id, std::size_t w,
                    std::span<float> weights) {
  const auto points = static_cast<float>(2 * w - 1);
  const auto frequency = [&](std::size_t k) {
    return static_cast<double>(static_cast<float>(k) / points);
  };
  std::vector<float> samples(w * w);
  for (std::size_t j = 0; j < w; ++j) {
    for (std::size_t i = 0; i < w; ++i) {
      samples[j * w + i] =
          static_cast<float>(response_at(id, parameters, frequency(i), frequency(j)).re);
    }
  }
  invert_cosines(samples, w, weights);
}

}  // namespace

Status WTSYM(const filter_parameters& parameters, std::int32_t w, std::span<float> weights,
             const log_sink& log) {
  const auto half = static_cast<std::size_t>(w);
  if (w < 1 || weights.size() / half < half) return operator_size_invalid;
  weights = weights.first(half * half);
  const filter_traits& traits = traits_of(parameters.FilterNo);
  switch (traits.design) {
    case operator_design::none: {
      const bool in_range =
          parameters.FilterNo >= first_filter && parameters.FilterNo < first_asymmetric_filter;
      return in_range ? operator_unknown : operator_index_invalid;
    }
    case operator_design::window:
      design_window(parameters, half, weights);
      break;
    case operator_design::strike:
      design_strike(parameters, half, weights);
      break;
    case operator_design::sampled:
      design_sampled(parameters, traits.sampled, half, weights);
      break;
  }
  log("");
  log(log_line("Symmetric Filter coefficients : ", whole_sum(weights, half)));
  log_rows(weights, half, log);
  log("");
  return success;
}

}  // namespace velmorankite
