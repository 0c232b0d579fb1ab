// A folder of a test's own, gone with it.
// SPDX-License-Identifier: MIT
#pragma once
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmorankite::testing {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
  [[nodiscard]] std::filesystem::path operator/(std::string_view name) const {
    return path_ / name;
  }
  // Names of the files in it, sorted.
  [[nodiscard]] std::vector<std::string> names() const;

 private:
  std::filesystem::path path_;
};

// Makes a folder the current directory for the life of the object.
class CurrentFolder {
 public:
  explicit CurrentFolder(const std::filesystem::path& folder);
  ~CurrentFolder();
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;

 private:
  std::filesystem::path previous_;
};

// A file of tests/data.
std::filesystem::path test_data(std::string_view name);

std::string read_file(const std::filesystem::path& path);
void write_file(const std::filesystem::path& path, std::string_view bytes);

}  // namespace velmorankite::testing
