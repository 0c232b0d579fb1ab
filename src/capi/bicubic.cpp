// The C interface of bicubic values.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <span>
#include <vector>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "utilities/bicubic.h"

using namespace velmorankite::capi;

namespace {

std::size_t size_of(std::int32_t point_count) {
  return static_cast<std::size_t>(std::max(point_count, 0));
}

std::vector<double> widened(const float* list, std::int32_t point_count) {
  return {list, list + size_of(point_count)};
}

}  // namespace

void BICUBIC_GRID_INTERPOLATION(const float* cells, const std::int32_t* grid_ints,
                                const double* grid_reals, const std::int32_t* columns,
                                const std::int32_t* rows, const std::int32_t* point_count,
                                const double* x, const double* y, float* values,
                                std::int32_t* status) {
  touch_on_failure(status, guarded("BICUBIC_GRID_INTERPOLATION", [&] {
                     const auto grid = description_in(grid_ints, grid_reals);
                     const std::size_t points = size_of(*point_count);
                     return velmorankite::BICUBIC_GRID_INTERPOLATION(
                         cells_of(cells, grid.ints.x_count, std::max(grid.ints.y_count, *rows)),
                         grid, *columns, *rows, *point_count, {x, points}, {y, points},
                         {values, points});
                   }));
}

void BICUBIC_GRID_INTERPOLATIOND(const float* cells, const std::int32_t* grid_ints,
                                 const double* grid_reals, const std::int32_t* point_count,
                                 const double* x, const double* y, float* values,
                                 std::int32_t* status) {
  touch_on_failure(status, guarded("BICUBIC_GRID_INTERPOLATIOND", [&] {
                     const auto grid = description_in(grid_ints, grid_reals);
                     const std::size_t points = size_of(*point_count);
                     return velmorankite::BICUBIC_GRID_INTERPOLATIOND(
                         cells_of(cells, grid.ints.x_count, grid.ints.y_count), grid, *point_count,
                         {x, points}, {y, points}, {values, points});
                   }));
}

void BICUBIC_GRID_INTERPOLATIONS(const float* cells, const std::int32_t* grid_ints,
                                 const float* grid_reals, const std::int32_t* columns,
                                 const std::int32_t* rows, const std::int32_t* point_count,
                                 const float* x, const float* y, float* values,
                                 std::int32_t* status) {
  touch_on_failure(status, guarded("BICUBIC_GRID_INTERPOLATIONS", [&] {
                     const auto grid = description_in(grid_ints, widened_reals(grid_reals).data());
                     return velmorankite::BICUBIC_GRID_INTERPOLATION(
                         cells_of(cells, grid.ints.x_count, std::max(grid.ints.y_count, *rows)),
                         grid, *columns, *rows, *point_count, widened(x, *point_count),
                         widened(y, *point_count), {values, size_of(*point_count)});
                   }));
}

void BICUBIC_GEO_INTERPOLATION(const std::int32_t* memory_flag, const char* name,
                               const std::int32_t* grid_ints, const double* grid_reals,
                               const std::int32_t* columns, const std::int32_t* rows,
                               const float* cells, const std::int32_t* point_count, const double* x,
                               const double* y, float* values, std::int32_t* status,
                               std::size_t name_length) {
  touch_on_failure(
      status, guarded("BICUBIC_GEO_INTERPOLATION", [&] {
        const std::size_t points = size_of(*point_count);
        return velmorankite::BICUBIC_GEO_INTERPOLATION(
            *memory_flag, text_in(name, name_length), description_in(grid_ints, grid_reals),
            *columns, *rows,
            *memory_flag == 0 ? std::span<const float>() : cells_of(cells, *columns, *rows),
            *point_count, {x, points}, {y, points}, {values, points});
      }));
}

void BICUBIC_GEO_INTERPOLATIONS(const std::int32_t* memory_flag, const char* name,
                                const std::int32_t* grid_ints, const float* grid_reals,
                                const std::int32_t* columns, const std::int32_t* rows,
                                const float* cells, const std::int32_t* point_count, const float* x,
                                const float* y, float* values, std::int32_t* status,
                                std::size_t name_length) {
  touch_on_failure(
      status, guarded("BICUBIC_GEO_INTERPOLATIONS", [&] {
        return velmorankite::BICUBIC_GEO_INTERPOLATION(
            *memory_flag, text_in(name, name_length),
            description_in(grid_ints, widened_reals(grid_reals).data()), *columns, *rows,
            *memory_flag == 0 ? std::span<const float>() : cells_of(cells, *columns, *rows),
            *point_count, widened(x, *point_count), widened(y, *point_count),
            {values, size_of(*point_count)});
      }));
}
