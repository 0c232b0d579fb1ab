// SPDX-License-Identifier: MIT
#include "grid/scratch_names.h"

#include <filesystem>

#include "platform/file_tests.h"
#include "platform/padded_text.h"

namespace velmorankite {
namespace {

std::filesystem::path stem_of(std::string_view name) {
  const std::string_view stem = platform::without_padding(name);
  return stem.empty() ? default_scratch_stem : stem;
}

}  // namespace

Status GRDTMPNAME(std::string& name) {
  const std::filesystem::path stem = stem_of(name);
  for (int number = 0; number < platform::scratch_name_count; ++number) {
    const std::filesystem::path candidate = platform::scratch_name(stem, number);
    name = candidate.string();
    if (!platform::file_exists(candidate)) {
      return success;
    }
  }
  return scratch_names_taken;
}

platform::ScratchFile new_scratch(std::string_view stem) {
  const std::filesystem::path path = stem_of(stem);
  return platform::create_scratch(path, path);
}

}  // namespace velmorankite
