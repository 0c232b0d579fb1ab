// SPDX-License-Identifier: MIT
#include "transform/fft_response.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/vector_clones.h"
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

// What the elements of a row share with those of its mirror row, and the left half of a row with
// the right: the bin of the power spectrum and the ramp of HiCut.
struct HalfRow {
  explicit HalfRow(std::size_t columns) : bin(columns / 2 + 1), ramp(columns / 2 + 1) {}

  void fill(std::span<const double> u, double v, const HighCut& high_cut) {
    binned = 0;
    for (std::size_t i = 0; i < std::min(bin.size(), u.size()); ++i) {
      const auto f = static_cast<float>(radius(u[i], v));
      if (f < 0.5F) {
        bin[i] = static_cast<std::uint8_t>(f * 512.0F);
        binned = i + 1;
      }
      ramp[i] = static_cast<double>(high_cut(f));
    }
  }

  std::vector<std::uint8_t> bin;
  std::size_t binned = 0;  // elements ahead of the first that lies in no bin
  std::vector<double> ramp;
};

// Element of the left half of a row of n elements that lies at the same distance from zero.
std::size_t mirrored(std::size_t i, std::size_t n) {
  return std::min(i, n - i);
}

// Takes a share of a row, multiplies it by a real response and adds the powers of its elements,
// ahead of the response and behind it.
VELMORANKITE_VECTOR_CLONES void apply_real(float* row, std::size_t n, float share,
                                           const double* response, double* input, double* output) {
  for (std::size_t i = 0; i < n; ++i) {
    const auto re = static_cast<double>(row[2 * i] * share);
    const auto im = static_cast<double>(row[2 * i + 1] * share);
    const auto new_re = static_cast<float>(re * response[i]);
    const auto new_im = static_cast<float>(im * response[i]);
    row[2 * i] = new_re;
    row[2 * i + 1] = new_im;
    input[i] += re * re + im * im;
    output[i] += static_cast<double>(new_re) * static_cast<double>(new_re) +
                 static_cast<double>(new_im) * static_cast<double>(new_im);
  }
}

// The same with a complex response; gives the sum of the elements too.
VELMORANKITE_VECTOR_CLONES complex_response apply_complex(float* row, std::size_t n, float share,
                                                          const complex_response* response,
                                                          double* input, double* output) {
  complex_response sum;
  for (std::size_t i = 0; i < n; ++i) {
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
    input[i] += re * re + im * im;
    output[i] += wide_re * wide_re + wide_im * wide_im;
  }
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
        half_(u_.size()),
        half_response_(half_.ramp.size()),
        real_(u_.size(), 1.0),
        complex_(chosen.kind == response_kind::complex ? u_.size() : 0),
        input_(u_.size()),
        output_(u_.size()) {}

  // Gives the sum of all elements behind a complex response.
  complex_response work(std::span<float> array) {
    const std::size_t rows = v_.size();
    for (std::size_t j = 0; j <= rows / 2 && j < rows; ++j) {
      begin_pair(v_[j]);
      work_row(array, j);
      const std::size_t opposite = (rows - j) % rows;
      const bool paired = opposite > j;
      if (paired) work_row(array, opposite);
      add_powers(paired ? 2 : 1);
    }
    return sum_;
  }

 private:
  void begin_pair(double v) {
    half_.fill(u_, v, high_cut_);
    std::fill(input_.begin(), input_.end(), 0.0);
    std::fill(output_.begin(), output_.end(), 0.0);
    if (chosen_.kind == response_kind::real && chosen_.symmetry == response_symmetry::axes) {
      const std::size_t half = std::min(half_response_.size(), u_.size());
      chosen_.real_row(parameters_, std::span(u_).first(half), v, std::span(half_response_));
      for (std::size_t i = 0; i < u_.size(); ++i) {
        real_[i] = half_response_[mirrored(i, u_.size())];
      }
      apply_ramp();
    }
  }

  void apply_ramp() {
    if (chosen_.times_high_cut && high_cut_.active()) {
      for (std::size_t i = 0; i < u_.size(); ++i) {
        real_[i] *= half_.ramp[mirrored(i, u_.size())];
      }
    }
  }

  void work_row(std::span<float> array, std::size_t j) {
    float* const row = array.data() + 2 * u_.size() * j;
    if (chosen_.kind == response_kind::complex) {
      chosen_.complex_row(parameters_, u_, v_[j], complex_);
      const complex_response sum =
          apply_complex(row, u_.size(), share_, complex_.data(), input_.data(), output_.data());
      sum_ = sum_ + sum;
      return;
    }
    if (chosen_.kind == response_kind::real && chosen_.symmetry != response_symmetry::axes) {
      if (chosen_.symmetry == response_symmetry::point && j > v_.size() / 2) {
        turn_row(v_[j]);
      } else {
        chosen_.real_row(parameters_, u_, v_[j], real_);
      }
    }
    apply_real(row, u_.size(), share_, real_.data(), input_.data(), output_.data());
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
    for (std::size_t i = 0; i < half_.binned; ++i) {
      const bool twice = i != 0 && i != n - i;
      const std::size_t bin = half_.bin[i];
      power_.input[bin] += twice ? input_[i] + input_[n - i] : input_[i];
      power_.output[bin] += twice ? output_[i] + output_[n - i] : output_[i];
      // An element counts once ahead of the response and once behind it.
      power_.count[bin] += 2 * rows * (twice ? 2 : 1);
    }
  }

  const response& chosen_;
  const filter_parameters& parameters_;
  float share_;
  PowerSpectrum& power_;
  std::vector<double> u_;
  std::vector<double> v_;
  HighCut high_cut_;
  HalfRow half_;
  std::vector<double> half_response_;
  std::vector<double> real_;               // response of a row, 1 where there is none
  std::vector<complex_response> complex_;  // response of a row
  std::vector<double> input_;              // powers of a pair of rows
  std::vector<double> output_;
  complex_response sum_;
};

}  // namespace

void fftrsp(bool Normalise, fft_size size, std::int32_t filter, filter_parameters& parameters,
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
  if (chosen.afterwards != nullptr) {
    chosen.afterwards(parameters);
  }
}

}  // namespace velmorankite
