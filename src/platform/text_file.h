// Text files by lines, with a chosen line end.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/binary_file.h"
#include "platform/scratch_file.h"

namespace velmorankite::platform {

enum class line_end {
  any,   // LF, CR LF or CR, whichever comes
  crlf,  // CR LF; a lone LF or CR is a character of the line
  lf,
  cr
};

// Reads lines one after the other. Memory is one block and the kept part of one line, however
// long the lines of a wrong file are. Failures throw IoError.
class TextReader {
 public:
  static constexpr std::size_t default_keep = std::size_t{1} << 16;

  explicit TextReader(std::filesystem::path path, line_end end = line_end::any);

  // Reads the next line without its end into `line`: its first `keep` characters, the rest of a
  // longer line is passed over. False at the end of the file; a last line without a line end
  // counts as a line.
  [[nodiscard]] bool next_line(std::string& line, std::size_t keep = default_keep);

  // Number of the line read last, from 1; 0 before the first.
  [[nodiscard]] std::int64_t line_number() const noexcept { return line_number_; }
  // File position, from 1, of what follows that line.
  [[nodiscard]] std::int64_t position() const noexcept {
    return position_ - static_cast<std::int64_t>(limit_ - begin_);
  }
  [[nodiscard]] const std::filesystem::path& path() const noexcept { return file_.path(); }

 private:
  [[nodiscard]] bool fill();
  [[nodiscard]] bool skip_if(char wanted);

  BinaryFile file_;
  line_end end_;
  std::vector<char> block_;
  std::size_t begin_ = 0;  // unread part of block_: [begin_, limit_)
  std::size_t limit_ = 0;
  std::int64_t position_ = 1;  // file position of the next block
  std::int64_t line_number_ = 0;
};

// Writes lines one after the other, gathered into blocks, to a file or to a staged one, which
// appears under its name with close(). Failures throw IoError.
class TextWriter {
 public:
  // Lines end in LF unless `end` is crlf or cr. `mode` is create, or open_always to append
  // behind what the file holds.
  explicit TextWriter(std::filesystem::path path, line_end end = line_end::lf,
                      open_mode mode = open_mode::create);
  explicit TextWriter(StagedFile staged, line_end end = line_end::lf);
  // Writes what is pending; a failure here is lost, so call close() where it matters. Nothing stays
  // of a staged file that was not closed.
  ~TextWriter();
  TextWriter(TextWriter&&) noexcept = default;
  TextWriter& operator=(TextWriter&&) noexcept = default;
  TextWriter(const TextWriter&) = delete;
  TextWriter& operator=(const TextWriter&) = delete;

  void write_line(std::string_view line);
  void close();

 private:
  void flush();
  [[nodiscard]] BinaryFile& file() noexcept { return staged_ ? staged_->file() : file_; }

  BinaryFile file_;
  std::optional<StagedFile> staged_;
  std::string_view ending_;
  std::string pending_;
  std::int64_t position_ = 1;
};

}  // namespace velmorankite::platform
