// SPDX-License-Identifier: MIT
#include "platform/keep_apart.h"

#include <utility>

#include "platform/file_tests.h"
#include "platform/io_error.h"

namespace velmorankite::platform {

std::optional<file_clash> find_clash(const named_files& inputs, const named_files& results) {
  for (std::size_t i = 0; i < results.size(); ++i) {
    const named_file& result = results[i];
    for (std::size_t k = 0; k < inputs.size() + i; ++k) {
      const named_file& other = k < inputs.size() ? inputs[k] : results[k - inputs.size()];
      if (same_place(result.path, other.path)) {
        std::string reason = result.meaning;
        reason.append(" would replace ").append(other.meaning).append(" (");
        reason.append(result.path.string()).append("), a name of its own is expected");
        return file_clash{i, other.path, std::move(reason)};
      }
    }
  }
  return std::nullopt;
}

void keep_apart(const named_files& inputs, const named_files& results) {
  if (const std::optional<file_clash> clash = find_clash(inputs, results)) {
    throw IoError(clash->lost, clash->reason);
  }
}

}  // namespace velmorankite::platform
