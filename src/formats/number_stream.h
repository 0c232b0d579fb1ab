// Free-format numbers of a large text file, read at the speed of the file.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/binary_file.h"
#include "platform/text_file.h"

namespace velmorankite {

// Reads as platform::read_list does (numbers parted by blanks or commas, repeat counts, slashes),
// without a limit on the length of a line. Memory is one block.
class NumberStream {
 public:
  // `file` must outlive the stream.
  //   position  where a line begins, from 1.
  //   end       what ends a line of this file.
  NumberStream(const platform::BinaryFile& file, std::int64_t position, platform::line_end end);

  // Reads one number into each of `values` from here on, through as many lines as it takes, and
  // passes over the rest of the last line. Values between two commas and those behind a slash
  // stay as they are. False where the file ends or what stands there is no number.
  [[nodiscard]] bool read(std::span<float> values);

 private:
  [[nodiscard]] bool fill();
  [[nodiscard]] bool next_item(bool behind_value);
  [[nodiscard]] bool read_short_decimal(float& value);
  [[nodiscard]] std::string_view take_item();
  [[nodiscard]] std::size_t give_item(std::string_view item, std::span<float> values);
  void pass_rest_of_line();
  [[nodiscard]] bool ends_line(char c) const noexcept;

  const platform::BinaryFile& file_;
  std::int64_t position_;  // of the next block
  platform::line_end end_;
  std::vector<char> block_;
  std::size_t begin_ = 0;  // unread part of the block: begin_ to limit_ - 1
  std::size_t limit_ = 0;
  bool at_end_ = false;  // the file has no more than what is held
};

}  // namespace velmorankite
