// Open files that callers of the C interface know by a unit number.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <filesystem>
#include <map>

#include "formats/buffered_file.h"
#include "platform/binary_file.h"

namespace velmorankite::capi {

// The unit of files that FCREAT opens; the others are given out from the first on, and the last
// one again and again.
inline constexpr std::int32_t unit_of_created = 0;
inline constexpr std::int32_t first_unit = 101;
inline constexpr std::int32_t last_unit = 1000;

class FileUnits {
 public:
  // Puts a file on a unit; one that was open there is closed.
  void connect(std::int32_t unit, platform::BinaryFile file);

  // Puts a file on the first free unit, or on the last one where none is free, and gives its
  // number.
  std::int32_t connect(platform::BinaryFile file);

  // The file of a unit and the position in it. Throws IoError if none is open on it.
  [[nodiscard]] positioned_file& at(std::int32_t unit);

  [[nodiscard]] bool is_open(std::int32_t unit) const { return files_.contains(unit); }

  // Closes the file of a unit, if there is one. Throws IoError.
  void disconnect(std::int32_t unit);

  // Frees a unit whose file has been closed.
  void forget(std::int32_t unit) noexcept { files_.erase(unit); }

 private:
  [[nodiscard]] std::int32_t free_unit() const;

  std::map<std::int32_t, positioned_file> files_;
};

// The units of this thread.
[[nodiscard]] FileUnits& file_units();

// Opens an existing file for reading and writing, or for reading alone where that is all that the
// system allows. Throws IoError.
[[nodiscard]] platform::BinaryFile open_existing(const std::filesystem::path& path);

}  // namespace velmorankite::capi
