// Which format a grid file has: by the extension of its name, then by its first bytes.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "formats/grid_description.h"
#include "grid/status.h"

namespace velmorankite {

// Bytes at the start of a file that the content tests look at.
inline constexpr std::size_t head_bytes = 256;

// A file whose format is wanted.
struct grid_file {
  std::filesystem::path path;
  std::string extension;  // from the last "." on, upper case, at most 16 characters; may be blank
  std::int64_t size = 0;  // bytes
};

// Sets format_code, and for some formats layout fields. Status: success, format_unknown,
// first_bytes_unreadable.
Status recognise_format(const grid_file& file, grid_description& grid);

}  // namespace velmorankite
