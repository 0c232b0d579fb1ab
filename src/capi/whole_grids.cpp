// The C interface of the utilities that look at or move whole grids.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include "capi/failures.h"
#include "capi/texts.h"
#include "utilities/flip.h"
#include "utilities/limits.h"
#include "utilities/trim.h"
#include "utilities/validity.h"

using namespace velmorankite::capi;

void GEOLIMITS(const char* path, std::int32_t* first_column, std::int32_t* last_column,
               std::int32_t* first_row, std::int32_t* last_row, std::int32_t* status,
               std::size_t path_length) {
  touch_on_failure(status, guarded("GEOLIMITS", [&] {
                     velmorankite::data_limits limits;
                     const velmorankite::Status found =
                         velmorankite::GEOLIMITS(text_in(path, path_length), limits);
                     *first_column = limits.first_column;
                     *last_column = limits.last_column;
                     *first_row = limits.first_row;
                     *last_row = limits.last_row;
                     return found;
                   }));
}

std::int32_t GEOVALID(const char* path, std::size_t path_length) {
  return guarded("GEOVALID", [&] { return velmorankite::GEOVALID(text_in(path, path_length)); });
}

void GEOTRIM(const char* input, const char* output, std::int32_t* status, std::size_t input_length,
             std::size_t output_length) {
  touch_on_failure(status, guarded("GEOTRIM", [&] {
                     return velmorankite::GEOTRIM(text_in(input, input_length),
                                                  text_in(output, output_length));
                   }));
}

std::int32_t GEOFLIP(const char* input, const char* output, std::size_t input_length,
                     std::size_t output_length) {
  return guarded("GEOFLIP", [&] {
    return velmorankite::GEOFLIP(text_in(input, input_length), text_in(output, output_length));
  });
}
