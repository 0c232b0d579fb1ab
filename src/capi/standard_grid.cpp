// The C interface of the standard grid: its header and its cells.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <cstdlib>
#include <span>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/file_units.h"
#include "capi/texts.h"
#include "grid/cell_interpolation.h"
#include "grid/cell_position.h"
#include "utilities/clone.h"
#include "grid/standard_header.h"
#include "grid/value_transform.h"

using namespace velmorankite::capi;

namespace {

// The fields of a header as a caller takes them, in the order of the arguments. Origin and
// spacings are doubles or, in the routine whose name ends in S, floats.
template <typename Real>
struct header_arguments {
  std::int32_t* element_size;
  std::int32_t* sign_flag;
  std::int32_t* elements_per_row;
  std::int32_t* row_count;
  std::int32_t* storage_sense;
  Real* x_origin;
  Real* y_origin;
  Real* element_spacing;
  Real* row_spacing;
  double* z_base;
  double* z_mult;
  std::int32_t* process_flag;
  float* stat_min;
  float* stat_max;
  float* stat_median;
  float* stat_mean;
  double* stat_variance;
};

template <typename Real>
velmorankite::Status read_header(std::int32_t unit, const header_arguments<Real>& to) {
  velmorankite::standard_header header;
  const velmorankite::Status status =
      velmorankite::READ_GEOSOFT_HEADER(file_units().at(unit).file, header);
  *to.element_size = header.element_size;
  *to.sign_flag = header.sign_flag;
  *to.elements_per_row = header.elements_per_row;
  *to.row_count = header.row_count;
  *to.storage_sense = header.storage_sense;
  *to.x_origin = static_cast<Real>(header.x_origin);
  *to.y_origin = static_cast<Real>(header.y_origin);
  *to.element_spacing = static_cast<Real>(header.element_spacing);
  *to.row_spacing = static_cast<Real>(header.row_spacing);
  *to.z_base = header.z_base;
  *to.z_mult = header.z_mult;
  *to.process_flag = header.process_flag;
  *to.stat_min = header.stat_min;
  *to.stat_max = header.stat_max;
  *to.stat_median = header.stat_median;
  *to.stat_mean = header.stat_mean;
  *to.stat_variance = header.stat_variance;
  return status;
}

velmorankite::Status write_header(std::int32_t unit, const velmorankite::standard_header& header) {
  velmorankite::OUTPUT_GEOSOFT_HEADER(file_units().at(unit).file, header);
  return velmorankite::success;
}

}  // namespace

void READ_GEOSOFT_HEADER(const std::int32_t* unit, std::int32_t* element_size,
                         std::int32_t* sign_flag, std::int32_t* elements_per_row,
                         std::int32_t* row_count, std::int32_t* storage_sense, double* x_origin,
                         double* y_origin, double* element_spacing, double* row_spacing,
                         double* z_base, double* z_mult, std::int32_t* process_flag,
                         float* stat_min, float* stat_max, float* stat_median, float* stat_mean,
                         double* stat_variance, std::int32_t* status) {
  touch_on_failure(status, guarded("READ_GEOSOFT_HEADER", [&] {
                     return read_header<double>(
                         *unit,
                         {element_size, sign_flag, elements_per_row, row_count, storage_sense,
                          x_origin, y_origin, element_spacing, row_spacing, z_base, z_mult,
                          process_flag, stat_min, stat_max, stat_median, stat_mean, stat_variance});
                   }));
}

void READ_GEOSOFT_HEADERS(const std::int32_t* unit, std::int32_t* element_size,
                          std::int32_t* sign_flag, std::int32_t* elements_per_row,
                          std::int32_t* row_count, std::int32_t* storage_sense, float* x_origin,
                          float* y_origin, float* element_spacing, float* row_spacing,
                          double* z_base, double* z_mult, std::int32_t* process_flag,
                          float* stat_min, float* stat_max, float* stat_median, float* stat_mean,
                          double* stat_variance, std::int32_t* status) {
  touch_on_failure(status, guarded("READ_GEOSOFT_HEADERS", [&] {
                     return read_header<float>(
                         *unit,
                         {element_size, sign_flag, elements_per_row, row_count, storage_sense,
                          x_origin, y_origin, element_spacing, row_spacing, z_base, z_mult,
                          process_flag, stat_min, stat_max, stat_median, stat_mean, stat_variance});
                   }));
}

std::int32_t OUTPUT_GEOSOFT_HEADER(
    const std::int32_t* unit, const std::int32_t* element_size, const std::int32_t* sign_flag,
    const std::int32_t* elements_per_row, const std::int32_t* row_count,
    const std::int32_t* storage_sense, const double* x_origin, const double* y_origin,
    const double* element_spacing, const double* row_spacing, const double* z_base,
    const double* z_mult, const std::int32_t* process_flag, const float* stat_min,
    const float* stat_max, const float* stat_median, const float* stat_mean) {
  return guarded("OUTPUT_GEOSOFT_HEADER", [&] {
    return write_header(
        *unit, {*element_size, *sign_flag, *elements_per_row, *row_count, *storage_sense, *x_origin,
                *y_origin, *element_spacing, *row_spacing, *z_base, *z_mult, *process_flag,
                *stat_min, *stat_max, *stat_median, *stat_mean});
  });
}

std::int32_t OUTPUT_GEOSOFT_HEADERS(
    const std::int32_t* unit, const std::int32_t* element_size, const std::int32_t* sign_flag,
    const std::int32_t* elements_per_row, const std::int32_t* row_count,
    const std::int32_t* storage_sense, const float* x_origin, const float* y_origin,
    const float* element_spacing, const float* row_spacing, const double* z_base,
    const double* z_mult, const std::int32_t* process_flag, const float* stat_min,
    const float* stat_max, const float* stat_median, const float* stat_mean) {
  return guarded("OUTPUT_GEOSOFT_HEADERS", [&] {
    return write_header(
        *unit, {*element_size, *sign_flag, *elements_per_row, *row_count, *storage_sense, *x_origin,
                *y_origin, *element_spacing, *row_spacing, *z_base, *z_mult, *process_flag,
                *stat_min, *stat_max, *stat_median, *stat_mean});
  });
}

std::int64_t GRDCELLPOS(const std::int32_t* storage_sense, const std::int32_t* header_size,
                        const std::int32_t* element_size, const std::int32_t* elements_per_row,
                        const std::int32_t* row_count, const std::int32_t* row,
                        const std::int32_t* column) {
  return velmorankite::GRDCELLPOS(*storage_sense, *header_size, *element_size, *elements_per_row,
                                  *row_count, *row, *column);
}

void GEO_CELL_INTERPOLATION(const std::int32_t* source_flag, const char* path,
                            const std::int32_t* grid_ints, const double* grid_reals,
                            const float* cells, std::int32_t* mode, const std::int32_t* point_count,
                            const double* x, const double* y, float* values, std::int32_t* status,
                            std::size_t path_length) {
  touch_on_failure(
      status, guarded("GEO_CELL_INTERPOLATION", [&] {
        const velmorankite::grid_description grid = description_in(grid_ints, grid_reals);
        const auto points = static_cast<std::size_t>(std::abs(std::int64_t{*point_count}));
        return velmorankite::GEO_CELL_INTERPOLATION(
            *source_flag, text_in(path, path_length), grid,
            *source_flag == 0 ? std::span<const float>()
                              : cells_of(cells, grid.ints.x_count, grid.ints.y_count),
            *mode, *point_count, {x, points}, {y, points}, {values, points});
      }));
}

void GEOCLONE(const char* source, const char* target, const std::int32_t* mode,
              std::int32_t* status, std::size_t source_length, std::size_t target_length) {
  *status = guarded("GEOCLONE", [&] {
    return velmorankite::GEOCLONE(text_in(source, source_length), text_in(target, target_length),
                                  *mode);
  });
}

void GRDZTRANS(const std::int32_t* mode, float* value, const std::int32_t* direction) {
  velmorankite::GRDZTRANS(*mode, *value, *direction);
}
