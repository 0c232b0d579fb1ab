// The C interface of the grid file formats.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "formats/catalogue.h"
#include "formats/compressed_grid.h"
#include "formats/convert_grid.h"
#include "formats/describe_grid.h"

using namespace velmorankite::capi;

namespace {

constexpr std::size_t single_words = 22;  // of the description in single precision

void narrow(std::span<const double> reals, float* singles) {
  std::transform(reals.begin(), reals.begin() + single_words, singles,
                 [](double value) { return static_cast<float>(value); });
}

// The first entry is written even where there is no name, since every caller has it.
void band_names_out(const velmorankite::grid_texts& texts, char* names, std::size_t length) {
  if (names == nullptr) {
    return;
  }
  fill_padded({names, length}, {});
  const std::size_t count = std::min(texts.band_names.size(), std::size_t{VELMORANKITE_BAND_NAMES});
  for (std::size_t band = 0; band < count; ++band) {
    fill_padded({names + band * length, length}, texts.band_names[band]);
  }
}

velmorankite::Status describe(std::string_view name, std::int32_t* grid_ints, double* grid_reals,
                              char* band_names, std::size_t band_name_length) {
  velmorankite::grid_description grid;
  velmorankite::grid_texts texts;
  description_out(grid, grid_ints, grid_reals);  // where the file cannot be read, nothing stays
  const velmorankite::Status status = velmorankite::GRDRDH(name, grid, texts);
  description_out(grid, grid_ints, grid_reals);
  band_names_out(texts, band_names, band_name_length);
  return status;
}

}  // namespace

void GRDRDH(const char* file_name, std::int32_t* grid_ints, double* grid_reals, char* band_names,
            std::int32_t* status, std::size_t file_name_length, std::size_t band_name_length) {
  const auto body = [&] {
    return describe(text_in(file_name, file_name_length), grid_ints, grid_reals, band_names,
                    band_name_length);
  };
  *status = guarded("GRDRDH", body, grid_ints[VELMORANKITE_FORMAT_CODE]);
}

void GRDRDHS(const char* file_name, std::int32_t* grid_ints, float* grid_reals, char* band_names,
             std::int32_t* status, std::size_t file_name_length, std::size_t band_name_length) {
  const auto body = [&] {
    std::array<double, velmorankite::description_words> reals{};
    narrow(reals, grid_reals);
    const velmorankite::Status result = describe(text_in(file_name, file_name_length), grid_ints,
                                                 reals.data(), band_names, band_name_length);
    narrow(reals, grid_reals);
    return result;
  };
  *status = guarded("GRDRDHS", body, grid_ints[VELMORANKITE_FORMAT_CODE]);
}

void GRDRDG(const char* input, const char* output, std::int32_t* grid_ints, double* grid_reals,
            double* x_start, double* x_end, std::int32_t* x_step, double* y_start, double* y_end,
            std::int32_t* y_step, std::int32_t* status, std::size_t input_length,
            std::size_t output_length) {
  velmorankite::grid_description grid = description_in(grid_ints, grid_reals);
  const auto convert = [&] {
    velmorankite::grid_window window{*x_start, *x_end, *x_step, *y_start, *y_end, *y_step};
    const velmorankite::Status result = velmorankite::GRDRDG(
        text_in(input, input_length), text_in(output, output_length), grid, window);
    description_out(grid, grid_ints, grid_reals);
    *x_start = window.x_start;
    *x_end = window.x_end;
    *x_step = window.x_step;
    *y_start = window.y_start;
    *y_end = window.y_end;
    *y_step = window.y_step;
    return result;
  };
  *status = guarded("GRDRDG", convert, grid.ints.format_code);
}

void GRDRDGD(const char* input, const char* output, std::int32_t* grid_ints, double* grid_reals,
             double* x_start, double* x_end, std::int32_t* x_step, double* y_start, double* y_end,
             std::int32_t* y_step, std::int32_t* status, std::size_t input_length,
             std::size_t output_length) {
  GRDRDG(input, output, grid_ints, grid_reals, x_start, x_end, x_step, y_start, y_end, y_step,
         status, input_length, output_length);
}

void GRDRDGS(const char* input, const char* output, std::int32_t* grid_ints, float* grid_reals,
             float* x_start, float* x_end, std::int32_t* x_step, float* y_start, float* y_end,
             std::int32_t* y_step, std::int32_t* status, std::size_t input_length,
             std::size_t output_length) {
  std::array<double, velmorankite::description_words> reals{};
  std::copy_n(grid_reals, single_words, reals.begin());
  const std::array<float*, 4> limits{x_start, x_end, y_start, y_end};
  std::array<double, 4> wide{};
  std::ranges::transform(limits, wide.begin(), [](const float* limit) { return double{*limit}; });
  GRDRDG(input, output, grid_ints, reals.data(), &wide[0], &wide[1], x_step, &wide[2], &wide[3],
         y_step, status, input_length, output_length);
  narrow(reals, grid_reals);
  for (std::size_t i = 0; i < limits.size(); ++i) {
    *limits[i] = static_cast<float>(wide[i]);
  }
}

void EXPUNCOMPGRID(const char* input, const char* output, std::int32_t* status,
                   std::size_t input_length, std::size_t output_length) {
  *status = guarded("EXPUNCOMPGRID", [&] {
    return velmorankite::EXPUNCOMPGRID(text_in(input, input_length),
                                       text_in(output, output_length));
  });
}

void GET_NUM_SUPPORTED_GRID_FORMATS(std::int32_t* count) {
  velmorankite::GET_NUM_SUPPORTED_GRID_FORMATS(*count);
}

std::int32_t GET_GRID_FORMAT_NAME(const std::int32_t* code, char* name, char* mask,
                                  std::size_t name_length, std::size_t mask_length) {
  return guarded("GET_GRID_FORMAT_NAME", [&] {
    if (*code == 0) {
      return velmorankite::success;
    }
    std::string name_text(text_in(name, name_length));
    std::string mask_text(text_in(mask, mask_length));
    const velmorankite::Status status =
        velmorankite::GET_GRID_FORMAT_NAME(*code, name_text, mask_text);
    text_out(name_text, {name, name_length});
    text_out(mask_text, {mask, mask_length});
    return status;
  });
}
