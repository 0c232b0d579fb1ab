// The C interface of values at points.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <cstdlib>
#include <span>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "utilities/point_values.h"

using namespace velmorankite::capi;

namespace {

std::size_t size_of(std::int32_t point_count) {
  return static_cast<std::size_t>(std::abs(std::int64_t{point_count}));
}

// The cells of a call that has them in memory.
template <typename Cell>
std::span<const Cell> cells_in(std::int32_t memory_flag, const Cell* cells,
                               const velmorankite::grid_description& grid) {
  if (memory_flag == 0) {
    return {};
  }
  return cells_of(cells, grid.ints.out_x_count, grid.ints.out_y_count);
}

}  // namespace

void GRDVALD(const std::int32_t* memory_flag, const char* name, const std::int32_t* grid_ints,
             const double* grid_reals, const float* cells, const std::int32_t* point_count,
             const double* x, const double* y, float* values, std::int32_t* status,
             std::size_t name_length) {
  *status = guarded("GRDVALD", [&] {
    const velmorankite::grid_description grid = description_in(grid_ints, grid_reals);
    const std::size_t points = size_of(*point_count);
    return velmorankite::GRDVALD(*memory_flag, text_in(name, name_length), grid,
                                 cells_in(*memory_flag, cells, grid), *point_count, {x, points},
                                 {y, points}, {values, points});
  });
}

void GRDVALDS(const std::int32_t* memory_flag, const char* name, const std::int32_t* grid_ints,
              const float* grid_reals, const float* cells, const std::int32_t* point_count,
              const double* x, const double* y, float* values, std::int32_t* status,
              std::size_t name_length) {
  const auto reals = widened_reals(grid_reals);
  GRDVALD(memory_flag, name, grid_ints, reals.data(), cells, point_count, x, y, values, status,
          name_length);
}

void GRDVAL(const std::int32_t* memory_flag, const char* name, const std::int32_t* grid_ints,
            const float* grid_reals, const float* cells, const std::int32_t* point_count,
            const float* x, const float* y, float* values, std::int32_t* status,
            std::size_t name_length) {
  *status = guarded("GRDVAL", [&] {
    const velmorankite::grid_description grid =
        description_in(grid_ints, widened_reals(grid_reals).data());
    const std::size_t points = size_of(*point_count);
    return velmorankite::GRDVAL(*memory_flag, text_in(name, name_length), grid,
                                cells_in(*memory_flag, cells, grid), *point_count, {x, points},
                                {y, points}, {values, points});
  });
}

void GRDVALI2(const std::int32_t* memory_flag, const char* name, const std::int32_t* grid_ints,
              const double* grid_reals, const std::int16_t* cells, const std::int32_t* point_count,
              const double* x, const double* y, std::int16_t* values, std::int32_t* status,
              std::size_t name_length) {
  *status = guarded("GRDVALI2", [&] {
    const velmorankite::grid_description grid = description_in(grid_ints, grid_reals);
    const std::size_t points = size_of(*point_count);
    return velmorankite::GRDVALI2(*memory_flag, text_in(name, name_length), grid,
                                  cells_in(*memory_flag, cells, grid), *point_count, {x, points},
                                  {y, points}, {values, points});
  });
}

void GEOVAL(const float* cells, const std::int32_t* grid_ints, const double* grid_reals,
            const std::int32_t* point_count, const double* x, const double* y, float* values,
            std::int32_t* status) {
  *status = guarded("GEOVAL", [&] {
    const velmorankite::grid_description grid = description_in(grid_ints, grid_reals);
    const std::size_t points = size_of(*point_count);
    return velmorankite::GEOVAL(cells_of(cells, grid.ints.x_count, grid.ints.y_count), grid,
                                *point_count, {x, points}, {y, points}, {values, points});
  });
}

void GEOVALS(const float* cells, const std::int32_t* grid_ints, const float* grid_reals,
             const std::int32_t* point_count, const double* x, const double* y, float* values,
             std::int32_t* status) {
  *status = guarded("GEOVALS", [&] {
    const velmorankite::grid_description grid =
        description_in(grid_ints, widened_reals(grid_reals).data());
    const std::size_t points = size_of(*point_count);
    return velmorankite::GEOVALS(cells_of(cells, grid.ints.x_count, grid.ints.y_count), grid,
                                 *point_count, {x, points}, {y, points}, {values, points});
  });
}
