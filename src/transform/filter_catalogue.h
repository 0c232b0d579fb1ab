// The catalogue of filters: one row a filter, with what is loaded and logged for it.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "transform/filter_parameters.h"
#include "transform/filter_traits.h"
#include "transform/trs_filter.h"

namespace velmorankite {

// What one step of loading a filter works on.
struct filter_loading {
  filter_parameters& parameters;
  const log_sink& log;
  Status status = success;
};

// One step: a line of the log, a change of the parameter set, or both.
struct filter_step {
  void (*act)(filter_loading&, const filter_step&) = nullptr;
  std::string_view text;                                 // of the line
  std::string_view otherwise;                            // the line where `integer` is 0
  float filter_parameters::*real = nullptr;              // the field that is meant
  std::int32_t filter_parameters::*integer = nullptr;    //
  std::int32_t filter_parameters::*only_with = nullptr;  // skipped where this field is 0
  float value = 0.0F;                                    // for a field that is set
};

// Which directions are worked out ahead of the steps.
enum class direction_setup : std::uint8_t {
  none,
  axes,                 // of the tensor: Azim
  field,                // of the field and the remanence
  field_if_components,  // the same where Opt3 is 1
  derivative            // Par2 less Azim
};

struct transform_run;

// What a product is made from; the driver provides it.
enum class need : std::uint8_t {
  input,                    // the grid itself
  padded_grid,              // the grid with its margin, filled and tapered
  spectrum,                 // of the padded grid, which then goes
  spectrum_and_padded_grid  // which the product writes over
};

// What a filter makes on one road: a routine that makes it of a run and of parameters that are its
// own. Its Status is that of TRSD.
struct product {
  Status (*make)(transform_run& run, filter_parameters parameters) = nullptr;  // nullptr: nothing
  need from = need::input;
};

// One use of a filter, by its options.
struct filter_use {
  bool (*applies)(const filter_parameters& parameters);
  std::string_view name;  // in the log, where a road does not have it
  product convolution;
  product memory;
  product disk;
  // Grids that are written beside the output.
  std::vector<std::filesystem::path> (*side_grids)(std::string_view out_grid) = nullptr;

  // By the sign of FftMode.
  [[nodiscard]] const product& on(std::int32_t FftMode) const noexcept {
    return FftMode == 0 ? convolution : FftMode > 0 ? memory : disk;
  }
};

struct catalogue_row {
  filter_traits traits;
  std::string_view title;                      // none if empty
  std::optional<std::string_view> short_name;  // nothing: what stood there before is kept
  direction_setup direction = direction_setup::none;
  std::span<const filter_step> steps;
  std::span<const filter_use> uses;  // the first that applies
};

// The row of an index; a row of an identity filter for one that has none of its own.
[[nodiscard]] const catalogue_row& catalogue_row_of(std::int32_t index) noexcept;

// The use that a filter is put to.
[[nodiscard]] const filter_use& use_of(const filter_parameters& parameters) noexcept;

}  // namespace velmorankite
