// SPDX-License-Identifier: MIT
#include "transform/transform_log.h"

#include <exception>
#include <utility>

namespace velmorankite {

TransformLog::TransformLog(std::filesystem::path path) : path_(std::move(path)) {
  writer_.emplace(path_);
}

TransformLog::~TransformLog() {
  try {
    pause();
  } catch (const std::exception&) {
    writer_.reset();
  }
}

void TransformLog::line(std::string_view text) {
  if (!writer_) {
    writer_.emplace(path_, platform::line_end::lf, platform::open_mode::open_always);
  }
  writer_->write_line(text);
}

void TransformLog::pause() {
  if (writer_) {
    writer_->close();
    writer_.reset();
  }
}

}  // namespace velmorankite
