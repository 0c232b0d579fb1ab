// The C interface of the writers of whole grids.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <span>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/file_units.h"
#include "capi/texts.h"
#include "formats/geoout.h"

using namespace velmorankite::capi;

namespace {

// The file of a unit, if `source` is the number of one that is open.
const velmorankite::platform::BinaryFile* open_unit(std::int32_t source) {
  return source > 0 && file_units().is_open(source) ? &file_units().at(source).file : nullptr;
}

}  // namespace

void GEOOUT(const char* name, const std::int32_t* source, const std::int32_t* x_count,
            const std::int32_t* y_count, const float* array, const std::int32_t* sense,
            const double* x_origin, const double* y_origin, const double* x_spacing,
            const double* y_spacing, const float* dummy, const std::int32_t* transform,
            float* z_min, float* z_max, std::int32_t* status, std::size_t name_length) {
  *status = guarded("GEOOUT", [&] {
    const velmorankite::float_source from{*source, cells_of(array, *x_count, *y_count),
                                          open_unit(*source)};
    return velmorankite::GEOOUT(text_in(name, name_length), from,
                                {*x_origin, *y_origin, *x_spacing, *y_spacing, *x_count, *y_count},
                                *sense, *dummy, *transform, *z_min, *z_max);
  });
}

void GEOOUTS(const char* name, const std::int32_t* source, const std::int32_t* x_count,
             const std::int32_t* y_count, const float* array, const std::int32_t* sense,
             const float* x_origin, const float* y_origin, const float* x_spacing,
             const float* y_spacing, const float* dummy, const std::int32_t* transform,
             float* z_min, float* z_max, std::int32_t* status, std::size_t name_length) {
  const double x = double{*x_origin};
  const double y = double{*y_origin};
  const double dx = double{*x_spacing};
  const double dy = double{*y_spacing};
  GEOOUT(name, source, x_count, y_count, array, sense, &x, &y, &dx, &dy, dummy, transform, z_min,
         z_max, status, name_length);
}

void GEOOUTI2(const char* name, const std::int32_t* source, const std::int32_t* sense,
              const std::int32_t* x_count, const std::int32_t* y_count, const std::int16_t* rows,
              const std::int16_t* columns, const std::int32_t* offset, const double* x_origin,
              const double* y_origin, const double* x_spacing, const double* y_spacing,
              const std::int32_t* dummy, const std::int32_t* transform, float* z_min, float* z_max,
              std::int32_t* status, std::size_t name_length) {
  *status = guarded("GEOOUTI2", [&] {
    velmorankite::int16_source from;
    from.sense = *sense;
    if (*source == velmorankite::source_array || *source == velmorankite::source_array_reversed) {
      from.rows = cells_of(rows, *x_count, *y_count);
      from.columns = cells_of(columns, *x_count, *y_count);
    } else {
      from.unit = open_unit(*source);
      from.offset = *offset;
      if (from.unit == nullptr) {
        return velmorankite::geoout_failed;
      }
    }
    return velmorankite::GEOOUTI2(
        text_in(name, name_length), from,
        {*x_origin, *y_origin, *x_spacing, *y_spacing, *x_count, *y_count}, *dummy, *transform,
        *z_min, *z_max);
  });
}

void GEOOUTI2S(const char* name, const std::int32_t* source, const std::int32_t* sense,
               const std::int32_t* x_count, const std::int32_t* y_count, const std::int16_t* rows,
               const std::int16_t* columns, const std::int32_t* offset, const float* x_origin,
               const float* y_origin, const float* x_spacing, const float* y_spacing,
               const std::int32_t* dummy, const std::int32_t* transform, float* z_min, float* z_max,
               std::int32_t* status, std::size_t name_length) {
  const double x = double{*x_origin};
  const double y = double{*y_origin};
  const double dx = double{*x_spacing};
  const double dy = double{*y_spacing};
  GEOOUTI2(name, source, sense, x_count, y_count, rows, columns, offset, &x, &y, &dx, &dy, dummy,
           transform, z_min, z_max, status, name_length);
}
