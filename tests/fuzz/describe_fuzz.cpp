// Feeds damaged files to the description of grids: whatever they hold, GRDRDH ends with a status or
// an IoError, and what it calls a grid is one.
// SPDX-License-Identifier: MIT
#include <cmath>
#include <filesystem>
#include <string>

#include "formats/describe_grid.h"
#include "formats/format_traits.h"
#include "fuzz/fuzz_folder.h"
#include "fuzz/grid_names.h"
#include "fuzz/memory_system.h"
#include "platform/binary_file.h"
#include "platform/io_error.h"

namespace {

using namespace velmorankite;
using testing::expect;

// An empty file of each name, and the header file that some formats have beside it. Names and sizes
// are asked of the file system; the bytes come from memory.
class GridNames {
 public:
  GridNames() {
    for (const std::string_view file : testing::grid_names) {
      make(file);
    }
    make("a.hdr");
  }

  [[nodiscard]] std::filesystem::path file(std::string_view name, std::size_t size) const {
    std::filesystem::path path = folder_.path() / name;
    std::filesystem::resize_file(path, size);
    return path;
  }

 private:
  void make(std::string_view name) const {
    const platform::BinaryFile file(folder_.path() / name, platform::open_mode::create);
  }

  testing::FuzzFolder folder_;
};

void expect_grid(const grid_description& grid) {
  expect(traits_of(grid.ints).read != nullptr);
  if (is_plain_standard(grid.ints)) {
    return;  // held against its file by those who read it
  }
  expect(grid.ints.x_count >= 1 && grid.ints.y_count >= 1);
  expect(grid.reals.x_cell > 0.0 && grid.reals.y_cell > 0.0);
  expect(std::isfinite(grid.reals.x_min) && std::isfinite(grid.reals.y_max));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const GridNames names;
  if (size < 2) {
    return 0;
  }
  const std::string_view name = testing::grid_names[data[0] % testing::grid_names.size()];
  const std::filesystem::path path = names.file(name, size - 1);
  testing::MemorySystem memory(data + 1, size - 1);
  const platform::SystemOverride override(memory);
  grid_description grid;
  grid_texts texts;
  try {
    const Status status = GRDRDH(path.string(), grid, texts);
    if (!status.failed()) {
      expect_grid(grid);
    }
  } catch (const platform::IoError&) {
    return 0;
  }
  return 0;
}
