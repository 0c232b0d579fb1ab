// The log of a transform run: plain text for a reader, kept after the run.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/text_file.h"

namespace velmorankite {

// Begins anew under its name. Lines reach the file when the log is paused or closed, so that it
// is whole on disk during the long phases of a run and after a failure.
class TransformLog {
 public:
  // Deletes an old log of that name. Throws IoError.
  explicit TransformLog(std::filesystem::path path);
  ~TransformLog();
  TransformLog(const TransformLog&) = delete;
  TransformLog& operator=(const TransformLog&) = delete;

  void line(std::string_view text);
  // Closes the file until the next line.
  void pause();

 private:
  std::filesystem::path path_;
  std::optional<platform::TextWriter> writer_;
};

}  // namespace velmorankite
