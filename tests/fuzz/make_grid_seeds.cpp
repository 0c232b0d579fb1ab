// Writes the corpus of a fuzzer of grids: make_grid_seeds DATA CORPUS.
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/grid_names.h"
#include "grid/standard_header.h"
#include "platform/binary_file.h"
#include "support/compressed_grids.h"
#include "support/foreign_grids.h"

namespace {

using velmorankite::testing::grid_names;

// Headers are what counts, and short inputs make for quick runs.
constexpr std::size_t longest_seed = 4096;

// The number of the first name with this file's extension; 0 for others, whose content decides.
char name_number(const std::filesystem::path& file) {
  const auto same = [&file](std::string_view name) {
    return std::filesystem::path(name).extension() == file.extension();
  };
  const auto found = std::find_if(grid_names.begin(), grid_names.end(), same);
  return static_cast<char>(found == grid_names.end() ? 0 : found - grid_names.begin());
}

void write_seed(const std::filesystem::path& corpus, const std::filesystem::path& name,
                const std::string& bytes) {
  std::ofstream seed(corpus / name, std::ios::binary);
  seed << name_number(name) << bytes.substr(0, longest_seed);
}

std::string read_file(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A standard grid of 30 columns by 4 rows, plain and with a block of each compression.
void write_standard_seeds(const std::filesystem::path& corpus) {
  using namespace velmorankite;
  const std::filesystem::path path = corpus / "plain.grd";
  {
    platform::BinaryFile file(path, platform::open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, float_grid_header({0.0, 0.0, 1.0, 1.0, 30, 4}));
  }
  const std::string header = read_file(path);
  const std::string row(120, '\7');
  const std::vector<std::string> blocks{testing::raw_block(row), testing::deflate_block(row),
                                        testing::chunked_block(row, 50), testing::raw_block(row)};
  write_seed(corpus, "plain.grd", header + row + row + row + row);
  write_seed(corpus, "compressed.grd", testing::compressed_file(header, 1, blocks));
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "make_grid_seeds DATA CORPUS\n";
    return 1;
  }
  const std::filesystem::path corpus = arguments[2];
  std::filesystem::create_directories(corpus);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[1])) {
    if (entry.is_regular_file()) {
      write_seed(corpus, entry.path().filename(), read_file(entry.path()));
    }
  }
  for (const auto& format : velmorankite::testing::foreign_formats()) {
    write_seed(corpus, format.file_name, format.bytes(velmorankite::testing::small_sample()));
  }
  write_standard_seeds(corpus);
  return 0;
}
