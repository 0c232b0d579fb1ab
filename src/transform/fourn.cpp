// SPDX-License-Identifier: MIT
#include "transform/fourn.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <vector>

#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// Lines are worked on in batches of this many, side by side, so that one instruction serves
// several of them and a column of a row-major array is read in whole cache lines.
constexpr std::size_t lanes = 8;
constexpr std::size_t batches_together = 4;  // of columns, as many as the second cache takes
constexpr std::size_t rows_ahead = 12;       // that are fetched while a row is worked on

// Blocks up to this many elements are finished while they lie in the innermost cache.
constexpr std::size_t cached_block = 256;

// The factors of all stages of a line of n elements: stage m stands at m - 1.
struct Twiddles {
  explicit Twiddles(std::size_t n, std::int32_t sign) : re(n), im(n) {
    for (std::size_t m = 1; m < n; m *= 2) {
      make_stage(m, sign);
    }
  }
  void make_stage(std::size_t m, std::int32_t sign) {
    const double angle = sign * (6.28318530717959 / static_cast<double>(2 * m));
    const double half_sine = std::sin(0.5 * angle);
    const double pr = -2.0 * half_sine * half_sine;
    const double pi = std::sin(angle);
    double wr = 1.0;
    double wi = 0.0;
    for (std::size_t j = 0; j < m; ++j) {
      re[m - 1 + j] = static_cast<float>(wr);
      im[m - 1 + j] = static_cast<float>(wi);
      const double previous = wr;
      wr = wr * pr - wi * pi + wr;
      wi = wi * pr + previous * pi + wi;
    }
  }
  std::vector<float> re;
  std::vector<float> im;
};

// One element of every line of a batch.
struct alignas(64) Group {
  float re[lanes];
  float im[lanes];
};

// One butterfly of two complex numbers held in registers.
[[gnu::always_inline]] inline void butterfly(float& ar, float& ai, float& br, float& bi, float wr,
                                             float wi) {
  const float tr = wr * br - wi * bi;
  const float ti = wr * bi + wi * br;
  br = ar - tr;
  bi = ai - ti;
  ar = ar + tr;
  ai = ai + ti;
}

// One stage, half length 1.
VELMORANKITE_VECTOR_CLONES void single_stage(Group* group, std::size_t count, float wr, float wi) {
  for (std::size_t k = 0; k < count; k += 2) {
    Group& a = group[k];
    Group& b = group[k + 1];
    for (std::size_t lane = 0; lane < lanes; ++lane) {
      butterfly(a.re[lane], a.im[lane], b.re[lane], b.im[lane], wr, wi);
    }
  }
}

// Two stages at once, of half lengths m and 2m, on elements that lie m apart.
VELMORANKITE_VECTOR_CLONES void double_stage(Group* group, std::size_t count, std::size_t m,
                                             const float* wr, const float* wi) {
  const float* const outer_re = wr + 2 * m - 1;
  const float* const outer_im = wi + 2 * m - 1;
  const float* const inner_re = wr + m - 1;
  const float* const inner_im = wi + m - 1;
  for (std::size_t block = 0; block < count; block += 4 * m) {
    for (std::size_t j = 0; j < m; ++j) {
      Group& a = group[block + j];
      Group& b = group[block + j + m];
      Group& c = group[block + j + 2 * m];
      Group& d = group[block + j + 3 * m];
      const float ur = inner_re[j];
      const float ui = inner_im[j];
      const float vr = outer_re[j];
      const float vi = outer_im[j];
      const float xr = outer_re[j + m];
      const float xi = outer_im[j + m];
#pragma GCC ivdep
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        float ar = a.re[lane], ai = a.im[lane];
        float br = b.re[lane], bi = b.im[lane];
        float cr = c.re[lane], ci = c.im[lane];
        float dr = d.re[lane], di = d.im[lane];
        butterfly(ar, ai, br, bi, ur, ui);
        butterfly(cr, ci, dr, di, ur, ui);
        butterfly(ar, ai, cr, ci, vr, vi);
        butterfly(br, bi, dr, di, xr, xi);
        a.re[lane] = ar;
        a.im[lane] = ai;
        b.re[lane] = br;
        b.im[lane] = bi;
        c.re[lane] = cr;
        c.im[lane] = ci;
        d.re[lane] = dr;
        d.im[lane] = di;
      }
    }
  }
}

// All stages of `count` elements in bit-reversed order. A block that does not fit the innermost
// cache is made of four that do, or of four that are made so.
void all_stages(Group* group, std::size_t count, const Twiddles& twiddles) {
  if (count > cached_block) {
    const std::size_t quarter = count / 4;
    for (std::size_t part = 0; part < 4; ++part) {
      all_stages(group + part * quarter, quarter, twiddles);
    }
    double_stage(group, count, quarter, twiddles.re.data(), twiddles.im.data());
    return;
  }
  std::size_t m = 1;
  if (std::countr_zero(count) % 2 == 1) {
    single_stage(group, count, twiddles.re[0], twiddles.im[0]);
    m = 2;
  }
  for (; m < count; m *= 4) {
    double_stage(group, count, m, twiddles.re.data(), twiddles.im.data());
  }
}

// Where the lines of one dimension lie in the array.
struct Lines {
  std::size_t length;  // elements of a line, in complex numbers
  std::size_t stride;  // from one element to the next, in complex numbers

  [[nodiscard]] std::size_t start(std::size_t line) const {
    return line / stride * stride * length + line % stride;
  }
};

std::vector<std::uint32_t> bit_reversal(std::size_t n) {
  std::vector<std::uint32_t> reversed(n, 0);
  for (std::size_t k = 1; k < n; ++k) {
    reversed[k] = (reversed[k / 2] / 2) | static_cast<std::uint32_t>(k % 2 == 1 ? n / 2 : 0);
  }
  return reversed;
}

// Fetches a row of neighbouring batches, which may begin within a line of the cache. Rows of a
// large array lie in pages of their own, where no processor fetches ahead by itself.
inline void fetch_ahead([[maybe_unused]] const float* row, [[maybe_unused]] std::size_t batches) {
#if defined(__GNUC__)
  for (std::size_t b = 0; b < batches; ++b) {
    __builtin_prefetch(row + 2 * lanes * b);
  }
  __builtin_prefetch(row + 2 * lanes * batches - 1);
#endif
}

// Neighbouring batches of columns are copied together: the page of a row is then looked up once for
// all of them.
VELMORANKITE_VECTOR_CLONES void gather_columns(const float* data, const Lines& lines,
                                               const std::uint32_t* reversed, std::size_t batches,
                                               Group* batch) {
  for (std::size_t k = 0; k < lines.length; ++k) {
    if (k + rows_ahead < lines.length) {
      fetch_ahead(data + std::size_t{2} * reversed[k + rows_ahead] * lines.stride, batches);
    }
    const float* from = data + std::size_t{2} * reversed[k] * lines.stride;
    for (std::size_t b = 0; b < batches; ++b, from += 2 * lanes) {
      Group& to = batch[b * lines.length + k];
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        to.re[lane] = from[2 * lane];
        to.im[lane] = from[2 * lane + 1];
      }
    }
  }
}

VELMORANKITE_VECTOR_CLONES void scatter_columns(const Group* batch, std::size_t batches,
                                                const Lines& lines, float* data) {
  for (std::size_t k = 0; k < lines.length; ++k) {
    float* to = data + 2 * k * lines.stride;
    for (std::size_t b = 0; b < batches; ++b, to += 2 * lanes) {
      const Group& from = batch[b * lines.length + k];
      for (std::size_t lane = 0; lane < lanes; ++lane) {
        to[2 * lane] = from.re[lane];
        to[2 * lane + 1] = from.im[lane];
      }
    }
  }
}

VELMORANKITE_VECTOR_CLONES void gather_lines(float* const* line, std::size_t count,
                                             const Lines& lines, const std::uint32_t* reversed,
                                             Group* batch) {
  const std::size_t step = 2 * lines.stride;
  for (std::size_t k = 0; k < lines.length; ++k) {
    Group& to = batch[reversed[k]];
    for (std::size_t lane = 0; lane < count; ++lane) {
      to.re[lane] = line[lane][step * k];
      to.im[lane] = line[lane][step * k + 1];
    }
  }
}

VELMORANKITE_VECTOR_CLONES void scatter_lines(const Group* batch, const Lines& lines,
                                              std::size_t count, float* const* line) {
  const std::size_t step = 2 * lines.stride;
  for (std::size_t k = 0; k < lines.length; ++k) {
    const Group& from = batch[k];
    for (std::size_t lane = 0; lane < count; ++lane) {
      line[lane][step * k] = from.re[lane];
      line[lane][step * k + 1] = from.im[lane];
    }
  }
}

// The factors and the order of the elements of a dimension.
struct Plan {
  Plan(const Lines& of, std::int32_t sign)
      : lines(of), twiddles(of.length, sign), reversed(bit_reversal(of.length)) {}
  Lines lines;
  Twiddles twiddles;
  std::vector<std::uint32_t> reversed;
};

// Lines that lie side by side, at least a batch of them.
void transform_columns(float* data, std::size_t line_count, const Plan& plan) {
  const std::size_t length = plan.lines.length;
  const std::size_t batches = std::min(plan.lines.stride / lanes, batches_together);
  std::vector<Group> batch(batches * length);
  for (std::size_t first = 0; first < line_count; first += batches * lanes) {
    float* const corner = data + 2 * plan.lines.start(first);
    gather_columns(corner, plan.lines, plan.reversed.data(), batches, batch.data());
    for (std::size_t b = 0; b < batches; ++b) {
      all_stages(batch.data() + b * length, length, plan.twiddles);
    }
    scatter_columns(batch.data(), batches, plan.lines, corner);
  }
}

// Lines that lie anywhere.
//   make  makes a line of a first dimension, if there is one.
void transform_lines(float* data, std::size_t line_count, const Plan& plan,
                     const line_maker& make) {
  std::vector<Group> batch(plan.lines.length);
  for (std::size_t first = 0; first < line_count; first += lanes) {
    const std::size_t count = std::min(lanes, line_count - first);
    std::array<float*, lanes> line{};
    for (std::size_t lane = 0; lane < count; ++lane) {
      line[lane] = data + 2 * plan.lines.start(first + lane);
      if (make) {
        make(first + lane, {line[lane], 2 * plan.lines.length});
      }
    }
    gather_lines(line.data(), count, plan.lines, plan.reversed.data(), batch.data());
    all_stages(batch.data(), plan.lines.length, plan.twiddles);
    scatter_lines(batch.data(), plan.lines, count, line.data());
  }
}

void transform_dimension(float* data, std::size_t total, const Lines& lines, std::int32_t sign,
                         const line_maker& make) {
  const Plan plan(lines, sign);
  const bool side_by_side = lines.stride % lanes == 0;
  if (side_by_side) {
    transform_columns(data, total / lines.length, plan);
  } else {
    transform_lines(data, total / lines.length, plan, make);
  }
}

}  // namespace

Status FOURN(std::span<float> data, std::span<const std::int32_t> dimensions, std::int32_t sign) {
  return FOURN(data, dimensions, sign, nullptr);
}

Status FOURN(std::span<float> data, std::span<const std::int32_t> dimensions, std::int32_t sign,
             const line_maker& make) {
  if (sign != 1 && sign != -1) return fourn_bad_sign;
  if (dimensions.empty()) return fourn_bad_dimension;
  const std::size_t room = data.size() / 2;
  std::size_t total = 1;
  bool fits = true;
  for (const std::int32_t n : dimensions) {
    if (n < 1 || !std::has_single_bit(static_cast<std::uint32_t>(n))) return fourn_bad_dimension;
    fits = fits && total <= room / static_cast<std::size_t>(n);
    total *= fits ? static_cast<std::size_t>(n) : 1;
  }
  if (!fits) return fourn_short_array;
  std::size_t stride = 1;
  for (std::size_t d = 0; d < dimensions.size(); ++d) {
    const line_maker made = d == 0 ? make : nullptr;
    const auto length = static_cast<std::size_t>(dimensions[d]);
    if (length > 1 || made) {
      transform_dimension(data.data(), total, {length, stride}, sign, made);
    }
    stride *= length;
  }
  return success;
}

}  // namespace velmorankite
