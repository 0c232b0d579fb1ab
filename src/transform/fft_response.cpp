// SPDX-License-Identifier: MIT
#include "transform/fft_response.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "platform/vector_clones.h"
#include "transform/filter_traits.h"
#include "transform/radial_responses.h"
#include "transform/responses.h"

namespace velmorankite {
namespace {

// Signed whole frequency of an element, from 0, of an axis.
std::int32_t whole_frequency(std::size_t element, std::int32_t length) {
  const auto k = static_cast<std::int32_t>(element);
  return k < length / 2 || length == 1 ? k : k - length;
}

std::vector<double> frequencies(std::int32_t length, std::int32_t divisor) {
  std::vector<double> axis(static_cast<std::size_t>(length));
  for (std::size_t k = 0; k < axis.size(); ++k) {
    axis[k] = static_cast<double>(static_cast<float>(whole_frequency(k, length)) /
                                  static_cast<float>(divisor));
  }
  return axis;
}

// Elements of the left half of a row, zero and Nyquist frequency included. Those behind it lie at
// the same distances from zero, the other way round: element n - i belongs to element i.
std::size_t half_of(std::size_t n) {
  return n / 2 + 1;
}

// Bins of the power spectrum along the left half of a row: runs of elements, since the distance
// from zero grows along it. It grows from row to row as well, so that their ends only move back.
class BinEnds {
 public:
  explicit BinEnds(std::span<const double> u) : u_(u) { ends_.fill(half_of(u.size())); }

  // Rows are to be taken in the order of their distance from zero.
  void move_to(double v) {
    for (std::size_t bin = 0; bin < ends_.size(); ++bin) {
      while (ends_[bin] > 0 && bin_of(ends_[bin] - 1, v) > bin) {
        --ends_[bin];
      }
    }
  }

  // One behind the last element of a bin, as those of the bins before it.
  [[nodiscard]] std::size_t operator[](std::size_t bin) const { return ends_[bin]; }

 private:
  // From 0.5 cycles per cell on beyond the last.
  [[nodiscard]] std::size_t bin_of(std::size_t i, double v) const {
    return static_cast<std::size_t>(static_cast<float>(radius(u_[i], v)) * (2.0F * power_bins));
  }

  std::span<const double> u_;
  std::array<std::size_t, power_bins> ends_{};
};

// Powers of the elements of a pair of rows, summed up for the elements of the left half.
struct HalfPowers {
  explicit HalfPowers(std::size_t columns) : input(half_of(columns)), output(half_of(columns)) {}

  void clear() {
    std::ranges::fill(input, 0.0);
    std::ranges::fill(output, 0.0);
  }

  std::vector<double> input;  // ahead of the response
  std::vector<double> output;
};

// Calls work(i, k) for the elements i of a row, k being the element of the left half to which it
// belongs; two plain loops.
template <typename Work>
[[gnu::always_inline]] inline void for_folded(std::size_t n, Work work) {
  const std::size_t half = half_of(n);
  for (std::size_t i = 0; i < half; ++i) {
    work(i, i);
  }
  for (std::size_t i = half; i < n; ++i) {
    work(i, n - i);
  }
}

// The power of an element ahead of the response and behind it.
struct ElementPowers {
  double input;
  double output;
};

// Takes a share of an element and multiplies it by a real response.
[[gnu::always_inline]] inline ElementPowers multiply(float* element, float share, double response) {
  const auto re = static_cast<double>(element[0] * share);
  const auto im = static_cast<double>(element[1] * share);
  const auto new_re = static_cast<float>(re * response);
  const auto new_im = static_cast<float>(im * response);
  element[0] = new_re;
  element[1] = new_im;
  return {re * re + im * im, static_cast<double>(new_re) * static_cast<double>(new_re) +
                                 static_cast<double>(new_im) * static_cast<double>(new_im)};
}

// Takes a share of a row, multiplies it by a real response and adds the powers of its elements,
// ahead of the response and behind it.
VELMORANKITE_VECTOR_CLONES void apply_real(float* row, std::size_t n, float share,
                                           const double* response, double* input, double* output) {
  for_folded(n, [=](std::size_t i, std::size_t k) {
    const ElementPowers powers = multiply(row + 2 * i, share, response[i]);
    input[k] += powers.input;
    output[k] += powers.output;
  });
}

// The same for two rows of one response, whose powers are added in one go.
VELMORANKITE_VECTOR_CLONES void apply_to_both(float* row, float* opposite, std::size_t n,
                                              float share, const double* response, double* input,
                                              double* output) {
  for_folded(n, [=](std::size_t i, std::size_t k) {
    const ElementPowers powers = multiply(row + 2 * i, share, response[i]);
    const ElementPowers others = multiply(opposite + 2 * i, share, response[i]);
    input[k] += powers.input + others.input;
    output[k] += powers.output + others.output;
  });
}

// The same with a complex response; gives the sum of the elements too.
VELMORANKITE_VECTOR_CLONES complex_response apply_complex(float* row, std::size_t n, float share,
                                                          const complex_response* response,
                                                          double* input, double* output) {
  complex_response sum;
  for_folded(n, [=, &sum](std::size_t i, std::size_t k) {
    const auto re = static_cast<double>(row[2 * i] * share);
    const auto im = static_cast<double>(row[2 * i + 1] * share);
    const auto new_re = static_cast<float>(re * response[i].re - im * response[i].im);
    const auto new_im = static_cast<float>(re * response[i].im + im * response[i].re);
    row[2 * i] = new_re;
    row[2 * i + 1] = new_im;
    const auto wide_re = static_cast<double>(new_re);
    const auto wide_im = static_cast<double>(new_im);
    sum.re += wide_re;
    sum.im += wide_im;
    input[k] += re * re + im * im;
    output[k] += wide_re * wide_re + wide_im * wide_im;
  });
  return sum;
}

// Works on the rows of a spectrum, a row and that of the opposite frequency at a time.
class SpectrumFilter {
 public:
  SpectrumFilter(fft_size size, const response& chosen, const filter_parameters& parameters,
                 float share, PowerSpectrum& power)
      : chosen_(chosen),
        parameters_(parameters),
        share_(share),
        power_(power),
        u_(frequencies(size.fftnx, -size.fftnx)),
        v_(frequencies(size.fftny, size.fftny)),
        high_cut_(parameters.HiCut),
        real_(u_.size(), 1.0),
        complex_(chosen.kind == response_kind::complex ? u_.size() : 0),
        bin_ends_(u_),
        powers_(u_.size()) {}

  // Gives the sum of all elements behind a complex response.
  complex_response work(std::span<float> array) {
    const std::size_t rows = v_.size();
    for (std::size_t j = 0; j < half_of(rows); ++j) {
      const std::size_t opposite = (rows - j) % rows;
      const bool paired = opposite > j;
      powers_.clear();
      const bool symmetric = is_symmetric();
      if (symmetric) make_symmetric_row(v_[j]);
      if (symmetric && paired) {
        apply_to_both(row_of(array, j), row_of(array, opposite), u_.size(), share_, real_.data(),
                      powers_.input.data(), powers_.output.data());
      } else {
        work_row(array, j);
        if (paired) work_row(array, opposite);
      }
      bin_ends_.move_to(v_[j]);
      add_powers(paired ? 2 : 1);
    }
    return sum_;
  }

 private:
  [[nodiscard]] bool is_symmetric() const {
    return chosen_.kind == response_kind::real && chosen_.symmetry == response_symmetry::axes;
  }

  [[nodiscard]] float* row_of(std::span<float> array, std::size_t j) const {
    return array.data() + 2 * u_.size() * j;
  }

  // A row of the response and of its opposite row, from the left half.
  void make_symmetric_row(double v) {
    const std::size_t half = half_of(u_.size());
    chosen_.real_row(parameters_, std::span(u_).first(half), v, std::span(real_).first(half));
    if (chosen_.times_high_cut && high_cut_.active()) {
      for (std::size_t i = 0; i < half; ++i) {
        real_[i] *= static_cast<double>(high_cut_(static_cast<float>(radius(u_[i], v))));
      }
    }
    for (std::size_t i = half; i < real_.size(); ++i) {
      real_[i] = real_[real_.size() - i];
    }
  }

  void work_row(std::span<float> array, std::size_t j) {
    float* const row = row_of(array, j);
    if (chosen_.kind == response_kind::complex) {
      chosen_.complex_row(parameters_, u_, v_[j], complex_);
      const complex_response sum = apply_complex(row, u_.size(), share_, complex_.data(),
                                                 powers_.input.data(), powers_.output.data());
      sum_ = sum_ + sum;
      return;
    }
    if (chosen_.kind == response_kind::real && !is_symmetric()) {
      if (chosen_.symmetry == response_symmetry::point && j > v_.size() / 2) {
        turn_row(v_[j]);
      } else {
        chosen_.real_row(parameters_, u_, v_[j], real_);
      }
    }
    apply_real(row, u_.size(), share_, real_.data(), powers_.input.data(), powers_.output.data());
  }

  // Makes the response of the opposite row from that of a row: the elements in turned order, but
  // for the Nyquist frequency, which has no opposite in the array.
  void turn_row(double v) {
    const std::size_t n = u_.size();
    std::reverse(real_.begin() + 1, real_.end());
    if (n > 1) {
      chosen_.real_row(parameters_, std::span(u_).subspan(n / 2, 1), v,
                       std::span(real_).subspan(n / 2, 1));
    }
  }

  void add_powers(std::int64_t rows) {
    const std::size_t n = u_.size();
    std::size_t i = 0;
    for (std::size_t bin = 0; bin < power_bins; ++bin) {
      for (; i < bin_ends_[bin]; ++i) {
        power_.input[bin] += powers_.input[i];
        power_.output[bin] += powers_.output[i];
        // An element counts once ahead of the response and once behind it.
        power_.count[bin] += 2 * rows * (i == 0 || i == n - i ? 1 : 2);
      }
    }
  }

  const response& chosen_;
  const filter_parameters& parameters_;
  float share_;
  PowerSpectrum& power_;
  std::vector<double> u_;
  std::vector<double> v_;
  HighCut high_cut_;
  std::vector<double> real_;               // response of a row, 1 where there is none
  std::vector<complex_response> complex_;  // response of a row
  BinEnds bin_ends_;
  HalfPowers powers_;
  complex_response sum_;
};

}  // namespace

void fftrsp(bool Normalise, fft_size size, std::int32_t filter, const filter_parameters& parameters,
            std::span<float> array, PowerSpectrum& power) {
  power.clear();
  const response& chosen = response_of(traits_of(filter).response);
  // The number of elements is a power of two: its reciprocal is exact, and a product with it is
  // the quotient to the bit.
  const float share =
      Normalise ? 1.0F / static_cast<float>(std::int64_t{size.fftnx} * size.fftny) : 1.0F;
  const complex_response sum = SpectrumFilter(size, chosen, parameters, share, power).work(array);
  if (chosen.balanced) {
    array[0] = static_cast<float>(-sum.re);
    array[1] = static_cast<float>(-sum.im);
  }
}

}  // namespace velmorankite
