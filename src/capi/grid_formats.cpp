// The C interface of the grid file formats.
// SPDX-License-Identifier: MIT
#include <velmorankite/velmorankite.h>

#include <algorithm>
#include <array>
#include <span>

#include "capi/descriptions.h"
#include "capi/failures.h"
#include "capi/texts.h"
#include "formats/describe_grid.h"

using namespace velmorankite::capi;

namespace {

constexpr std::size_t single_words = 22;  // of the description in single precision

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
  const velmorankite::Status status = velmorankite::GRDRDH(name, grid, texts);
  description_out(grid, grid_ints, grid_reals);
  band_names_out(texts, band_names, band_name_length);
  return status;
}

}  // namespace

void GRDRDH(const char* file_name, std::int32_t* grid_ints, double* grid_reals, char* band_names,
            std::int32_t* status, std::size_t file_name_length, std::size_t band_name_length) {
  *status = guarded("GRDRDH", [&] {
    return describe(text_in(file_name, file_name_length), grid_ints, grid_reals, band_names,
                    band_name_length);
  });
}

void GRDRDHS(const char* file_name, std::int32_t* grid_ints, float* grid_reals, char* band_names,
             std::int32_t* status, std::size_t file_name_length, std::size_t band_name_length) {
  *status = guarded("GRDRDHS", [&] {
    std::array<double, velmorankite::description_words> reals{};
    const velmorankite::Status result = describe(text_in(file_name, file_name_length), grid_ints,
                                                 reals.data(), band_names, band_name_length);
    std::transform(reals.begin(), reals.begin() + single_words, grid_reals,
                   [](double value) { return static_cast<float>(value); });
    return result;
  });
}
