// SPDX-License-Identifier: MIT
#include "formats/describe_grid.h"

#include <optional>
#include <string>

#include "formats/companion_file.h"
#include "formats/description_checks.h"
#include "formats/format_traits.h"
#include "formats/header_readers.h"
#include "formats/recognition.h"
#include "formats/text_helpers.h"
#include "grid/dummy.h"
#include "platform/file_tests.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

Status read_header(const format_traits& format, const grid_file& file, grid_description& grid,
                   grid_texts& texts) {
  header_source source{file};
  std::optional<platform::BinaryFile> binary;
  std::optional<platform::TextReader> text;
  switch (format.access) {
    case header_access::binary:
      source.binary = &binary.emplace(file.path, platform::open_mode::read);
      break;
    case header_access::text:
      source.text = &text.emplace(file.path, text_ending(ISFILEUNIX(file.path)));
      break;
    case header_access::text_beside: {
      const std::filesystem::path beside = header_beside(file.path);
      if (!platform::file_exists(beside)) {
        return header_file_missing;
      }
      source.text = &text.emplace(beside, text_ending(ISFILEUNIX(beside)));
      break;
    }
    case header_access::name_only:
      break;
  }
  return format.read(source, grid, texts);
}

// What the format did not say: limits of the converted grid as those of the file, and the file's
// own dummy for every value that is not known.
void complete(grid_description& grid) {
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  reals.out_x_min = reals.x_min;
  reals.out_x_max = reals.x_max;
  reals.out_y_min = reals.y_min;
  reals.out_y_max = reals.y_max;
  reals.out_x_cell = reals.x_cell;
  reals.out_y_cell = reals.y_cell;
  ints.out_x_count = ints.x_count;
  ints.out_y_count = ints.y_count;
  if (reals.dummy_value > static_cast<double>(dummy)) {
    for (double* value : {&reals.z_min, &reals.z_max, &reals.z_mid, &reals.z_spread,
                          &reals.unused_14, &reals.unused_15}) {
      if (*value <= static_cast<double>(valid_threshold)) {
        *value = reals.dummy_value;
      }
    }
  }
}

}  // namespace

Status GRDRDH(std::string_view file_name, grid_description& grid, grid_texts& texts) {
  grid = {};
  texts = {};
  grid.ints.band_count = 1;
  grid.ints.band_select = 1;

  std::string_view name = platform::without_padding(file_name);
  constexpr std::size_t shortest_name = 3;
  if (name.size() < shortest_name) {
    return name_too_short;
  }
  if (name.back() == '\0') {
    name.remove_suffix(1);
  }
  grid_file file{std::filesystem::path(name), {}, 0};
  if (!platform::file_exists(file.path)) {
    return file_missing;
  }
  file.size = platform::bytes_of_file(file.path);
  if (file.size == 0) {
    return file_empty;
  }
  file.extension = extension_of(file.path);
  if (const Status status = recognise_format(file, grid); status.failed()) {
    if (const std::string_view advice = advice_on_unknown(file); !advice.empty()) {
      texts.advice.emplace_back(advice);
    }
    return status;
  }
  const format_traits& format = traits_of(grid.ints);
  if (format.cells == cell_form::none) {
    return format_unknown;
  }
  grid.reals.z_base = 0.0;
  grid.reals.z_mult = 1.0;
  for (double* value : {&grid.reals.z_min, &grid.reals.z_max, &grid.reals.z_mid,
                        &grid.reals.z_spread, &grid.reals.unused_14, &grid.reals.unused_15}) {
    *value = static_cast<double>(dummy);
  }
  if (const Status status = read_header(format, file, grid, texts); status.failed()) {
    return status;
  }
  // The users of a plain standard grid hold it against its file when they open it.
  if (!is_plain_standard(grid.ints)) {
    if (const Status status = check_description(grid); status.failed()) {
      return status;
    }
  }
  complete(grid);
  return success;
}

}  // namespace velmorankite
