// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <algorithm>
#include <exception>
#include <span>
#include <utility>

namespace velmorankite::platform {
namespace {

constexpr std::size_t block_bytes = std::size_t{1} << 16;

constexpr std::string_view ending_of(line_end end) {
  switch (end) {
    case line_end::crlf:
      return "\r\n";
    case line_end::cr:
      return "\r";
    case line_end::any:
    case line_end::lf:
      break;
  }
  return "\n";
}

bool ends_line(char c, line_end end) {
  switch (end) {
    case line_end::lf:
      return c == '\n';
    case line_end::crlf:
    case line_end::cr:
      return c == '\r';
    case line_end::any:
      break;
  }
  return c == '\n' || c == '\r';
}

}  // namespace

TextReader::TextReader(std::filesystem::path path, line_end end)
    : file_(std::move(path), open_mode::read), end_(end), block_(block_bytes) {}

bool TextReader::fill() {
  begin_ = 0;
  limit_ = file_.read_some(position_, std::as_writable_bytes(std::span(block_)));
  position_ += static_cast<std::int64_t>(limit_);
  return limit_ > 0;
}

bool TextReader::skip_if(char wanted) {
  if (begin_ == limit_ && !fill()) {
    return false;
  }
  if (block_[begin_] != wanted) {
    return false;
  }
  ++begin_;
  return true;
}

bool TextReader::next_line(std::string& line, std::size_t keep) {
  line.clear();
  if (begin_ == limit_ && !fill()) {
    return false;
  }
  ++line_number_;
  const auto take = [&](const char* text, std::size_t count) {
    line.append(text, std::min(count, keep - line.size()));
  };
  do {
    const char* const first = block_.data() + begin_;
    const char* const last = block_.data() + limit_;
    const char* const stop =
        std::find_if(first, last, [this](char c) { return ends_line(c, end_); });
    take(first, static_cast<std::size_t>(stop - first));
    if (stop == last) {
      begin_ = limit_;
      continue;
    }
    begin_ += static_cast<std::size_t>(stop - first) + 1;
    if (end_ == line_end::lf || end_ == line_end::cr || *stop == '\n') {
      return true;
    }
    if (skip_if('\n') || end_ == line_end::any) {
      return true;
    }
    take("\r", 1);  // with CR LF as the line end, a CR on its own is part of the line
  } while (begin_ < limit_ || fill());
  return true;
}

TextWriter::TextWriter(std::filesystem::path path, line_end end, open_mode mode)
    : file_(std::move(path), mode), ending_(ending_of(end)) {
  if (mode == open_mode::open_always) {
    position_ = file_.size() + 1;
  }
}

TextWriter::TextWriter(StagedFile staged, line_end end)
    : staged_(std::move(staged)), ending_(ending_of(end)) {}

TextWriter::~TextWriter() {
  if (staged_) {
    return;
  }
  try {
    close();
  } catch (const std::exception&) {
    pending_.clear();
  }
}

void TextWriter::write_line(std::string_view line) {
  pending_.append(line).append(ending_);
  if (pending_.size() >= block_bytes) {
    flush();
  }
}

void TextWriter::flush() {
  file().write(position_, std::as_bytes(std::span(pending_)));
  position_ += static_cast<std::int64_t>(pending_.size());
  pending_.clear();
}

void TextWriter::close() {
  if (!file().is_open()) {
    return;
  }
  flush();
  if (staged_) {
    staged_->commit();
  } else {
    file_.close();
  }
}

}  // namespace velmorankite::platform
