// The C interface of grid conditioning.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <span>

#include "capi/counts.h"
#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "condition/detrend.h"
#include "condition/hole_filling.h"
#include "condition/multi_level_fill.h"

using namespace velmorankite::capi;

namespace {

void plane_out(const velmorankite::plane& trend, float* a, float* b, float* c) {
  *a = trend.a;
  *b = trend.b;
  *c = trend.c;
}

}  // namespace

void GRID_FILL(const char* input, const char* output, const std::int32_t* road,
               const std::int32_t* limit, float* minimum, float* maximum, const float*,
               std::int32_t* filled_count, std::int32_t* status, std::size_t input_length,
               std::size_t output_length) {
  std::int64_t count = 0;
  *status = guarded("GRID_FILL", [&] {
    return velmorankite::GRID_FILL(text_in(input, input_length), text_in(output, output_length),
                                   *road, *limit, *minimum, *maximum, count);
  });
  *filled_count = count_out(count);
}

void GRDMIPMAP(const char* input, const std::int32_t* grid_ints, const double* grid_reals,
               const std::int32_t* x_count, const std::int32_t* y_count,
               const std::int32_t* column_offset, const std::int32_t* row_offset,
               const std::int32_t* memory_flag, float* cells, const char* output,
               const float* minimum, const float* maximum, std::int32_t* filled_count,
               std::int32_t* status, std::size_t input_length, std::size_t output_length) {
  std::int64_t count = 0;
  *status = guarded("GRDMIPMAP", [&] {
    velmorankite::fill_request request;
    request.input_name = text_in(input, input_length);
    request.input = description_in(grid_ints, grid_reals);
    request.x_count = *x_count;
    request.y_count = *y_count;
    request.column_offset = *column_offset;
    request.row_offset = *row_offset;
    if ((*memory_flag & 1) != 0) {
      request.cells = cells_of(cells, *x_count, *y_count);
    }
    request.output_name = text_in(output, output_length);
    request.minimum = *minimum;
    request.maximum = *maximum;
    return velmorankite::GRDMIPMAP(request, count);
  });
  *filled_count = count_out(count);
}

void GRID_DETREND_PLANE(const std::int32_t* scope, const char* input, const char* output,
                        float* mean, float* a, float* b, float* c, std::int32_t* status,
                        std::size_t input_length, std::size_t output_length) {
  using velmorankite::fit_scope;
  velmorankite::plane trend;
  *mean = 0.0F;
  *status = guarded("GRID_DETREND_PLANE", [&] {
    return velmorankite::GRID_DETREND_PLANE(
        *scope == 1 ? fit_scope::all_cells : fit_scope::line_ends, text_in(input, input_length),
        text_in(output, output_length), *mean, trend);
  });
  plane_out(trend, a, b, c);
}

void GRID_DETREND(const char* input, const char* output, float* mean, float* a, float* b, float* c,
                  std::int32_t* status, std::size_t input_length, std::size_t output_length) {
  const std::int32_t line_ends = 0;
  GRID_DETREND_PLANE(&line_ends, input, output, mean, a, b, c, status, input_length, output_length);
}

void GRID_DETREND_OLD(const char* input, const char* output, float* mean, float* a, float* b,
                      float* c, std::int32_t* status, std::size_t input_length,
                      std::size_t output_length) {
  velmorankite::plane trend;
  *mean = 0.0F;
  *status = guarded("GRID_DETREND_OLD", [&] {
    return velmorankite::GRID_DETREND_OLD(text_in(input, input_length),
                                          text_in(output, output_length), *mean, trend);
  });
  plane_out(trend, a, b, c);
}
