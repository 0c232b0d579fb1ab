// The C interface of grid extension.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <utility>

#include "capi/counts.h"
#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/file_units.h"
#include "capi/texts.h"
#include "condition/grid_extension.h"

using namespace velmorankite::capi;

namespace {

// The file of a unit as a grid, for the length of a call.
class GridOfUnit {
 public:
  GridOfUnit(velmorankite::platform::BinaryFile& file, const velmorankite::RowLayout& layout)
      : file_(file), grid_(std::move(file), layout) {}
  ~GridOfUnit() { file_ = std::move(grid_.file()); }
  GridOfUnit(const GridOfUnit&) = delete;
  GridOfUnit& operator=(const GridOfUnit&) = delete;

  [[nodiscard]] const velmorankite::RowFile& grid() const noexcept { return grid_; }

 private:
  velmorankite::platform::BinaryFile& file_;
  velmorankite::RowFile grid_;
};

}  // namespace

void GRDEXT(const std::int32_t* unit, const std::int32_t* sense, const std::int32_t* source_columns,
            const std::int32_t* source_rows, const double* grid_reals, const double* x_cell,
            const double* y_cell, const float*, const std::int32_t* pass_limit,
            const std::int32_t* x_count, const std::int32_t* y_count,
            const std::int32_t* column_offset, const std::int32_t* row_offset, const char* output,
            float* minimum, float* maximum, float* background, const std::int32_t* extend,
            std::int32_t* filled_count, std::int32_t* status, std::size_t output_length) {
  std::int64_t count = *filled_count;
  *minimum = 0.0F;
  *maximum = 0.0F;
  *status = guarded("GRDEXT", [&] {
    if (!file_units().is_open(*unit)) {
      return velmorankite::extension_impossible;
    }
    const velmorankite::grid_reals reals = reals_in(grid_reals);
    velmorankite::extension_request request;
    request.storage_sense = *sense;
    request.x_min = reals.x_min;
    request.y_min = reals.y_min;
    request.x_cell = *x_cell;
    request.y_cell = *y_cell;
    request.pass_limit = *pass_limit;
    request.x_count = *x_count;
    request.y_count = *y_count;
    request.column_offset = *column_offset;
    request.row_offset = *row_offset;
    request.output_name = text_in(output, output_length);
    request.extend = *extend != 0;
    const GridOfUnit source(file_units().at(*unit).file,
                            {velmorankite::sense_bottom_up, *source_columns, *source_rows});
    return velmorankite::GRDEXT(source.grid(), request, *minimum, *maximum, *background, count);
  });
  *filled_count = count_out(count);
}
