// Designer of asymmetric operators, WTASYM.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "transform/complex_response.h"
#include "transform/convolution_design.h"
#include "transform/filter_traits.h"
#include "transform/operator_log.h"
#include "transform/responses.h"

namespace velmorankite {
namespace {

// The response on n x n frequencies, the zero frequency in the middle, parts rounded to single.
std::vector<complex_single> sample(const filter_parameters& parameters, response_id id,
                                   std::size_t n) {
  const std::size_t middle = (n - 1) / 2;
  const auto frequency = [&](std::size_t k) {
    const float steps = static_cast<float>(k) - static_cast<float>(middle);
    return static_cast<double>(steps / static_cast<float>(n));
  };
  std::vector<complex_single> samples(n * n);
  for (std::size_t j = 0; j < n; ++j) {
    for (std::size_t i = 0; i < n; ++i) {
      const complex_response value = response_at(id, parameters, frequency(i), frequency(j));
      samples[j * n + i] = rounded(value.re, value.im);
    }
  }
  return samples;
}

// exp(2 pi i k / n) with the angle in single precision.
std::vector<complex_response> roots_of_unity(std::size_t n) {
  constexpr float two_pi = 6.2831855F;
  std::vector<complex_response> roots(n);
  for (std::size_t k = 0; k < n; ++k) {
    const float angle = two_pi * static_cast<float>(k) / static_cast<float>(n);
    roots[k] = widened({std::cos(angle), std::sin(angle)});
  }
  return roots;
}

// The inverse transform of samples about the zero frequency, along X and then along Y, on the lags
// from -h to h.
void invert(const std::vector<complex_single>& samples, std::size_t n, std::span<float> weights) {
  const std::size_t h = (n - 1) / 2;
  const std::vector<complex_response> roots = roots_of_unity(n);
  // Frequency and lag count from -h; their product is taken modulo n.
  const auto root = [&](std::size_t frequency, std::size_t lag) {
    return roots[(frequency + n - h) % n * ((lag + n - h) % n) % n];
  };
  std::vector<complex_response> half(n * n);
  for (std::size_t l = 0; l < n; ++l) {
    for (std::size_t x = 0; x < n; ++x) {
      complex_response sum;
      for (std::size_t k = 0; k < n; ++k) {
        sum = sum + widened(samples[l * n + k]) * root(k, x);
      }
      half[l * n + x] = sum;
    }
  }
  const auto points = static_cast<double>(n);
  for (std::size_t y = 0; y < n; ++y) {
    for (std::size_t x = 0; x < n; ++x) {
      complex_response sum;
      for (std::size_t l = 0; l < n; ++l) {
        sum = sum + half[l * n + x] * root(l, y);
      }
      weights[y * n + x] = static_cast<float>(sum.re / (points * points));
    }
  }
}

void log_samples(const std::vector<complex_single>& samples, std::size_t n, const log_sink& log) {
  std::vector<float> part(samples.size());
  log("frequency response");
  std::ranges::transform(samples, part.begin(), &complex_single::re);
  log_rows(part, n, log);
  log("");
  std::ranges::transform(samples, part.begin(), &complex_single::im);
  log_rows(part, n, log);
  log("");
}

}  // namespace

Status WTASYM(const filter_parameters& parameters, std::int32_t n, std::span<float> weights,
              const log_sink& log) {
  const auto points = static_cast<std::size_t>(n);
  if (n < 1 || n % 2 == 0 || weights.size() / points < points) return operator_size_invalid;
  weights = weights.first(points * points);
  const filter_traits& traits = traits_of(parameters.FilterNo);
  if (traits.asymmetric) {
    const std::vector<complex_single> samples = sample(parameters, traits.response, points);
    log_samples(samples, points, log);
    invert(samples, points, weights);
  } else {
    std::ranges::fill(weights, 1.0F);
  }
  log("");
  log("Asymmetric Filter coefficients:");
  log_rows(weights, points, log);
  log("");
  return traits.asymmetric ? success : operator_without_response;
}

}  // namespace velmorankite
