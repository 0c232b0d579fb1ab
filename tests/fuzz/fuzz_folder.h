// Files of a fuzzer in a folder of their own.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>

namespace velmorankite::testing {

// A folder under the temporary one that goes with the object.
class FuzzFolder {
 public:
  FuzzFolder() {
    std::string name =
        (std::filesystem::temp_directory_path() / "velmorankite-fuzzXXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      std::abort();
    }
    path_ = name;
  }
  ~FuzzFolder() {
    std::error_code failure;
    std::filesystem::remove_all(path_, failure);
  }
  FuzzFolder(const FuzzFolder&) = delete;
  FuzzFolder& operator=(const FuzzFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

// What must hold of every input: the fuzzer keeps one for which it does not.
inline void expect(bool holds) {
  if (!holds) {
    std::abort();
  }
}

}  // namespace velmorankite::testing
