// Feeds damaged files to the conversion of grids, the compressed ones among them: it succeeds with
// an output that can be read, or fails and leaves nothing beside its input.
// SPDX-License-Identifier: MIT
#include <filesystem>
#include <fstream>
#include <string>

#include "formats/convert_grid.h"
#include "formats/describe_grid.h"
#include "formats/format_traits.h"
#include "fuzz/fuzz_folder.h"
#include "fuzz/grid_names.h"
#include "platform/io_error.h"

namespace {

using namespace velmorankite;
using testing::expect;
namespace fs = std::filesystem;

// More of them only cost time, where the size of the file does not bound their number: a text or a
// compressed grid may repeat a cell as often as it likes.
constexpr std::int64_t most_cells = std::int64_t{1} << 18;

// Scratch files lie in the current directory, so that is where all takes place.
class WorkingFolder {
 public:
  WorkingFolder() { fs::current_path(folder_.path()); }

  [[nodiscard]] const fs::path& path() const noexcept { return folder_.path(); }

 private:
  testing::FuzzFolder folder_;
};

void write_bytes(const fs::path& path, const std::uint8_t* data, std::size_t size) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
}

bool convert(const std::string& input, const std::string& output) {
  grid_description grid;
  grid_texts texts;
  if (GRDRDH(input, grid, texts).failed() ||
      (!has_cells_in_place(grid.ints) &&
       std::int64_t{grid.ints.x_count} * grid.ints.y_count > most_cells)) {
    return false;
  }
  grid_window whole{0.0, 0.0, 0, 0.0, 0.0, 0};
  return !GRDRDG(input, output, grid, whole).failed();
}

void expect_standard_grid(const std::string& path) {
  grid_description grid;
  grid_texts texts;
  expect(!GRDRDH(path, grid, texts).failed());
  const auto cells = static_cast<std::uintmax_t>(grid.ints.x_count) *
                     static_cast<std::uintmax_t>(grid.ints.y_count);
  expect(fs::file_size(path) == 512 + 4 * cells);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const WorkingFolder folder;
  if (size < 2) {
    return 0;
  }
  const std::string input(testing::grid_names[data[0] % testing::grid_names.size()]);
  const std::string output = "converted.grd";
  write_bytes(input, data + 1, size - 1);
  bool converted = false;
  try {
    converted = convert(input, output);
  } catch (const platform::IoError&) {
    converted = false;
  }
  expect(fs::exists(output) == converted);
  if (converted) {
    expect_standard_grid(output);
    fs::remove(output);
  }
  fs::remove(input);
  expect(fs::is_empty(folder.path()));
  return 0;
}
