// SPDX-License-Identifier: MIT
#include "transform/run_names.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "platform/padded_text.h"

namespace velmorankite {
namespace {

std::string three_digits(std::int32_t number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%03d", static_cast<int>(number));
  return text.data();
}

// Where the name ends: at the last "." of the file's own name. A dot in a directory is none.
std::size_t end_of_stem(const std::string& name) {
  const std::size_t slash = name.find_last_of('/');
  const std::size_t dot = name.find_last_of('.');
  const bool in_directory = slash != std::string::npos && dot != std::string::npos && dot < slash;
  return dot == std::string::npos || in_directory ? name.size() : dot;
}

std::string stem_of_output(std::string_view out_grid) {
  const std::string out(platform::without_padding(out_grid));
  const std::size_t mark = out.rfind("_WDtmp.");
  return out.substr(0, mark != std::string::npos ? mark : end_of_stem(out));
}

std::string log_stem(const transform_request& request) {
  if (request.out_grid.find('~') == std::string::npos) {
    return stem_of_output(request.out_grid);
  }
  const std::string base(platform::without_padding(request.reuse_base));
  return base.substr(0, end_of_stem(base));
}

}  // namespace

run_names name_run(const transform_request& request) {
  const std::string stem = log_stem(request);
  if (stem.empty()) {
    return {"trs_filter_" + three_digits(request.filter) + ".log", "power"};
  }
  return {stem + "_trs.log", stem + "_power"};
}

reuse_names name_reuse(const transform_request& request) {
  const std::string base(platform::without_padding(request.reuse_base));
  if (base.empty()) {
    return {};
  }
  const char* tag = "_trs_det_ext_";
  if (request.keeps_plane()) {
    tag = "_trs_ext_";
  } else if (request.detrend_scope() == 1) {
    tag = "_trs_det_all_ext_";
  }
  const std::string stem =
      base.substr(0, end_of_stem(base)) + tag + three_digits(request.pad_width);
  return {stem + ".grd",
          request.fft_mode != fft_mode_convolution ? stem + "_fft.grd" : std::string()};
}

std::vector<std::filesystem::path> component_names(std::string_view out_grid) {
  const std::string stem = stem_of_output(out_grid);
  return {stem + "_Tx.grd", stem + "_Ty.grd", stem + "_Tz.grd"};
}

}  // namespace velmorankite
