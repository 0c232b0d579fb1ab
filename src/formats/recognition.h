// Which format a grid file has: by the extension of its name, then by its first bytes.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

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

// A file's own name: what stands behind the last "/" or "\" of a path.
[[nodiscard]] std::string_view own_name(std::string_view path) noexcept;

// The extension of a file's own name, as grid_file holds it; a dot in a directory is none.
[[nodiscard]] std::string extension_of(const std::filesystem::path& path);

// Sets format_code, and for some formats layout fields that choose the reader:
//   data_offset   standard grid: 36 for the record layout; tiles of one degree: 0 where the header
//                 is the file's name
//   element_code  Surfer 6: 1 for text, 4 for binary
// Status: success, format_unknown, first_bytes_unreadable.
Status recognise_format(const grid_file& file, grid_description& grid);

// What a file of an unknown format is, where its first bytes tell, and what helps: for the user.
// Blank where they do not.
[[nodiscard]] std::string_view advice_on_unknown(const grid_file& file);

}  // namespace velmorankite
