// SPDX-License-Identifier: MIT
#include "capi/file_units.h"

#include <velmorankite/velmorankite.h>

#include <string>
#include <utility>

#include "capi/failures.h"
#include "capi/texts.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"

namespace velmorankite::capi {

std::int32_t FileUnits::free_unit() const {
  std::int32_t unit = first_unit;
  // Units are in ascending order: the first gap among them is free.
  for (auto file = files_.lower_bound(first_unit);
       file != files_.end() && file->first == unit && unit < last_unit; ++file) {
    ++unit;
  }
  return unit;
}

void FileUnits::connect(std::int32_t unit, platform::BinaryFile file) {
  disconnect(unit);
  files_.emplace(unit, positioned_file{std::move(file)});
}

std::int32_t FileUnits::connect(platform::BinaryFile file) {
  const std::int32_t unit = free_unit();
  connect(unit, std::move(file));
  return unit;
}

positioned_file& FileUnits::at(std::int32_t unit) {
  const auto file = files_.find(unit);
  if (file == files_.end()) {
    throw platform::IoError("unit " + std::to_string(unit), "no file is open on it");
  }
  return file->second;
}

void FileUnits::disconnect(std::int32_t unit) {
  if (auto file = files_.extract(unit); !file.empty()) {
    file.mapped().file.close();
  }
}

FileUnits& file_units() {
  thread_local FileUnits units;
  return units;
}

platform::BinaryFile open_existing(const std::filesystem::path& path) {
  try {
    return {path, platform::open_mode::read_write};
  } catch (const platform::IoError&) {
    return {path, platform::open_mode::read};
  }
}

}  // namespace velmorankite::capi

using namespace velmorankite;
using namespace velmorankite::capi;

std::int32_t FCREAT(const char* name, std::size_t name_length) {
  return guarded("FCREAT", [&] {
    file_units().connect(unit_of_created, platform::BinaryFile(text_in(name, name_length),
                                                               platform::open_mode::open_always));
    return success;
  });
}

std::int32_t FOPEN(const char* name, std::size_t name_length) {
  return guarded("FOPEN", [&] {
    const std::filesystem::path path = text_in(name, name_length);
    return platform::file_exists(path) ? Status{file_units().connect(open_existing(path))}
                                       : Status{-1};
  });
}

std::int32_t FCLOSE(const std::int32_t* unit) {
  return guarded("FCLOSE", [&] {
    file_units().disconnect(*unit);
    return success;
  });
}
