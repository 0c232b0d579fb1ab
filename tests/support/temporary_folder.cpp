// SPDX-License-Identifier: MIT
#include "support/temporary_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velmorankite::testing {

TemporaryFolder::TemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "velmorankite-testXXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    throw std::runtime_error("no temporary folder");
  }
  path_ = std::filesystem::canonical(name);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code failure;
  std::filesystem::remove_all(path_, failure);
}

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(path_)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

CurrentFolder::CurrentFolder(const std::filesystem::path& folder)
    : previous_(std::filesystem::current_path()) {
  std::filesystem::current_path(folder);
}

CurrentFolder::~CurrentFolder() {
  std::error_code failure;
  std::filesystem::current_path(previous_, failure);
}

std::filesystem::path test_data(std::string_view name) {
  return std::filesystem::path(VELMORANKITE_TEST_DATA) / name;
}

std::string read_file(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void write_file(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream stream(path, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace velmorankite::testing
