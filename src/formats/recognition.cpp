// SPDX-License-Identifier: MIT
#include "formats/recognition.h"

#include <array>

#include "formats/describe_grid.h"
#include "platform/binary_file.h"
#include "platform/byte_order.h"

namespace velmorankite {
namespace {

// The file as the content tests see it.
struct file_head {
  const grid_file& file;
  std::span<const std::byte, head_bytes> bytes;
};

// A content test: whether the file has this format, and what it tells of the layout.
struct content_test {
  std::int32_t format_code;
  bool (*holds)(const file_head&, grid_description&);
};

// Byte 0 is the size of a cell, byte 1 says compressed (4) or not, the word at 4 is the kind.
bool is_standard_grid(const file_head& head, grid_description&) {
  const int size = std::to_integer<int>(head.bytes[0]);
  const int compression = std::to_integer<int>(head.bytes[1]);
  constexpr std::int32_t first_unknown_kind = 4;
  return (size == 1 || size == 2 || size == 4 || size == 8) &&
         (compression == 0 || compression == 4) &&
         platform::load<std::int32_t>(&head.bytes[4]) < first_unknown_kind;
}

// The first test that holds decides.
constexpr content_test content_tests[] = {
    {format_standard, is_standard_grid},
};

}  // namespace

Status recognise_format(const grid_file& file, grid_description& grid) {
  std::array<std::byte, head_bytes> bytes{};
  const platform::BinaryFile stream(file.path, platform::open_mode::read);
  if (stream.read_some(1, bytes) < bytes.size()) {
    return first_bytes_unreadable;
  }
  const file_head head{file, bytes};
  for (const content_test& test : content_tests) {
    if (test.holds(head, grid)) {
      grid.ints.format_code = test.format_code;
      return success;
    }
  }
  return format_unknown;
}

}  // namespace velmorankite
