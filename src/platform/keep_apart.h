// The rule by which no result takes the place of anything that a caller owns.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmorankite::platform {

// A file and what it is to the routine at hand, in words for a message: "grid 1", "the output
// grid". A blank path means no file.
struct named_file {
  std::filesystem::path path;
  std::string meaning;
};
using named_files = std::vector<named_file>;

// A result that has no name of its own.
struct file_clash {
  std::size_t result;          // its index among the results
  std::filesystem::path lost;  // the file in whose place it would come
  // "the output grid would replace grid 1 (link.grd), a name of its own is expected", with the
  // result's path as it was given.
  std::string reason;
};

// The first result that means the place of an input, or of a result ahead of it: through links,
// hard links and other spellings too, and whether or not there is a file yet. For a routine with a
// status of its own for this; to be asked before anything is written.
[[nodiscard]] std::optional<file_clash> find_clash(const named_files& inputs,
                                                   const named_files& results);

// The same for all other routines. Throws IoError with the file that would be lost.
void keep_apart(const named_files& inputs, const named_files& results);

}  // namespace velmorankite::platform
