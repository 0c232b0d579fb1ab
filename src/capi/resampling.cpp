// The C interface of rotation and drape.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "capi/failures.h"
#include "capi/texts.h"
#include "utilities/drape.h"
#include "utilities/rotation.h"

using namespace velmorankite::capi;

namespace {

// A lattice as a caller gives it. Its reals are doubles or, in the routines whose names end in S,
// floats; so are those of a rotation.
template <typename Real>
velmorankite::Lattice lattice_in(const Real* dx, const Real* dy, const Real* x0, const Real* y0,
                                 const std::int32_t* columns, const std::int32_t* rows) noexcept {
  return {double{*x0}, double{*y0}, double{*dx}, double{*dy}, *columns, *rows};
}

template <typename Real>
struct turn_arguments {
  const float* angle;
  const Real* x_pivot_out;
  const Real* y_pivot_out;
  const Real* x_pivot_in;
  const Real* y_pivot_in;
  const Real* x_scale;
  const Real* y_scale;
  const std::int32_t* sense_out;
  const float* stat_min;
  const float* stat_max;
};

template <typename Real>
velmorankite::rotation_request request_in(std::string_view input, std::string_view output,
                                          const velmorankite::Lattice& in,
                                          const velmorankite::Lattice& out,
                                          const turn_arguments<Real>& turn) {
  return {input,
          output,
          in,
          out,
          *turn.angle,
          double{*turn.x_pivot_out},
          double{*turn.y_pivot_out},
          double{*turn.x_pivot_in},
          double{*turn.y_pivot_in},
          double{*turn.x_scale},
          double{*turn.y_scale},
          *turn.sense_out,
          *turn.stat_min,
          *turn.stat_max};
}

// The first n numbers of a caller's array; none where n is below 1.
template <typename Real>
std::span<const Real> numbers_in(const Real* first, std::int32_t n) noexcept {
  return {first, n > 0 ? static_cast<std::size_t>(n) : 0};
}

}  // namespace

void GEOROT(const char* input, const char* output, const double* dx_in, const double* dy_in,
            const double* x0_in, const double* y0_in, const std::int32_t* columns_in,
            const std::int32_t* rows_in, const double* dx_out, const double* dy_out,
            const double* x0_out, const double* y0_out, const std::int32_t* columns_out,
            const std::int32_t* rows_out, const float* angle, const double* x_pivot_out,
            const double* y_pivot_out, const double* x_pivot_in, const double* y_pivot_in,
            const double* x_scale, const double* y_scale, const std::int32_t* sense_out,
            const void* /*spare*/, const float* stat_min, const float* stat_max,
            std::int32_t* status, std::size_t input_length, std::size_t output_length) {
  *status = guarded("GEOROT", [&] {
    return velmorankite::GEOROT(
        request_in<double>(text_in(input, input_length), text_in(output, output_length),
                           lattice_in(dx_in, dy_in, x0_in, y0_in, columns_in, rows_in),
                           lattice_in(dx_out, dy_out, x0_out, y0_out, columns_out, rows_out),
                           {angle, x_pivot_out, y_pivot_out, x_pivot_in, y_pivot_in, x_scale,
                            y_scale, sense_out, stat_min, stat_max}));
  });
}

void GEOROTD(const char* input, const char* output, const double* dx_in, const double* dy_in,
             const double* x0_in, const double* y0_in, const std::int32_t* /*columns_in*/,
             const std::int32_t* /*rows_in*/, const double* dx_out, const double* dy_out,
             const double* x0_out, const double* y0_out, const std::int32_t* columns_out,
             const std::int32_t* rows_out, const float* angle, const double* x_pivot_out,
             const double* y_pivot_out, const double* x_pivot_in, const double* y_pivot_in,
             const double* x_scale, const double* y_scale, const std::int32_t* sense_out,
             const std::int32_t* mode, const void* /*spare*/, const float* stat_min,
             const float* stat_max, std::int32_t* status, std::size_t input_length,
             std::size_t output_length) {
  constexpr std::int32_t not_read = 0;
  *status = guarded("GEOROTD", [&] {
    return velmorankite::GEOROTD(
        request_in<double>(text_in(input, input_length), text_in(output, output_length),
                           lattice_in(dx_in, dy_in, x0_in, y0_in, &not_read, &not_read),
                           lattice_in(dx_out, dy_out, x0_out, y0_out, columns_out, rows_out),
                           {angle, x_pivot_out, y_pivot_out, x_pivot_in, y_pivot_in, x_scale,
                            y_scale, sense_out, stat_min, stat_max}),
        *mode);
  });
}

void GEOROTS(const char* input, const char* output, const float* dx_in, const float* dy_in,
             const float* x0_in, const float* y0_in, const std::int32_t* columns_in,
             const std::int32_t* rows_in, const float* dx_out, const float* dy_out,
             const float* x0_out, const float* y0_out, const std::int32_t* columns_out,
             const std::int32_t* rows_out, const float* angle, const float* x_pivot_out,
             const float* y_pivot_out, const float* x_pivot_in, const float* y_pivot_in,
             const float* x_scale, const float* y_scale, const std::int32_t* sense_out,
             const void* /*spare*/, const float* stat_min, const float* stat_max,
             std::int32_t* status, std::size_t input_length, std::size_t output_length) {
  *status = guarded("GEOROTS", [&] {
    return velmorankite::GEOROT(
        request_in<float>(text_in(input, input_length), text_in(output, output_length),
                          lattice_in(dx_in, dy_in, x0_in, y0_in, columns_in, rows_in),
                          lattice_in(dx_out, dy_out, x0_out, y0_out, columns_out, rows_out),
                          {angle, x_pivot_out, y_pivot_out, x_pivot_in, y_pivot_in, x_scale,
                           y_scale, sense_out, stat_min, stat_max}));
  });
}

void GEODRAPE(const char* input, const char* output, const std::int32_t* sense_out,
              const double* dx_out, const double* dy_out, const double* x0_out,
              const double* y0_out, const std::int32_t* columns_out, const std::int32_t* rows_out,
              const std::int32_t* n, const double* profile_x, const double* profile_y,
              const double* x_shift, const double* y_shift, std::int32_t* status,
              std::size_t input_length, std::size_t output_length) {
  *status = guarded("GEODRAPE", [&] {
    return velmorankite::GEODRAPE(
        {text_in(input, input_length), text_in(output, output_length),
         lattice_in(dx_out, dy_out, x0_out, y0_out, columns_out, rows_out), *sense_out,
         numbers_in(profile_x, *n), numbers_in(profile_y, *n), *x_shift, *y_shift});
  });
}

void GEODRAPES(const char* input, const char* output, const std::int32_t* sense_out,
               const float* dx_out, const float* dy_out, const float* x0_out, const float* y0_out,
               const std::int32_t* columns_out, const std::int32_t* rows_out, const std::int32_t* n,
               const float* profile_x, const float* profile_y, const float* x_shift,
               const float* y_shift, std::int32_t* status, std::size_t input_length,
               std::size_t output_length) {
  *status = guarded("GEODRAPES", [&] {
    const std::span<const float> x = numbers_in(profile_x, *n);
    const std::span<const float> y = numbers_in(profile_y, *n);
    const std::vector<double> wide_x(x.begin(), x.end());
    const std::vector<double> wide_y(y.begin(), y.end());
    return velmorankite::GEODRAPE(
        {text_in(input, input_length), text_in(output, output_length),
         lattice_in(dx_out, dy_out, x0_out, y0_out, columns_out, rows_out), *sense_out, wide_x,
         wide_y, double{*x_shift}, double{*y_shift}});
  });
}
