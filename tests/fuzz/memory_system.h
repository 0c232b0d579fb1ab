// One block of memory as the file system of a fuzzer.
// SPDX-License-Identifier: MIT
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/system.h"

namespace velmorankite::testing {

// Serves the same bytes as every file that is opened; nothing can be written.
class MemorySystem final : public platform::System {
 public:
  MemorySystem(const std::uint8_t* data, std::size_t size)
      : bytes_(std::as_bytes(std::span(data, size))) {}

  platform::file_handle open(const std::filesystem::path&, platform::open_mode) override {
    return 0;
  }
  int close(platform::file_handle) override { return 0; }
  std::int64_t size(platform::file_handle) override {
    return static_cast<std::int64_t>(bytes_.size());
  }
  std::int64_t read_at(platform::file_handle, std::int64_t offset,
                       std::span<std::byte> bytes) override {
    if (offset < 0 || offset >= size(0)) {
      return 0;
    }
    const auto from = bytes_.subspan(static_cast<std::size_t>(offset));
    const std::size_t count = std::min(from.size(), bytes.size());
    std::copy_n(from.begin(), count, bytes.begin());
    return static_cast<std::int64_t>(count);
  }

 private:
  std::span<const std::byte> bytes_;
};

}  // namespace velmorankite::testing
