// A binary stream that is read and written at explicit byte positions.
// SPDX-License-Identifier: MIT
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "platform/byte_order.h"
#include "platform/system.h"

namespace velmorankite::platform {

// Positions are 64-bit and count from 1. Every failure, a read that meets the end of the file
// among them, throws IoError with the path and the reason.
class BinaryFile {
 public:
  BinaryFile() = default;
  BinaryFile(std::filesystem::path path, open_mode mode);
  static BinaryFile anonymous();
  ~BinaryFile();
  BinaryFile(BinaryFile&& other) noexcept;
  BinaryFile& operator=(BinaryFile&& other) noexcept;
  BinaryFile(const BinaryFile&) = delete;
  BinaryFile& operator=(const BinaryFile&) = delete;

  [[nodiscard]] bool is_open() const noexcept { return handle_ >= 0; }
  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
  [[nodiscard]] std::int64_t size() const;

  void read(std::int64_t position, std::span<std::byte> bytes) const;
  // Reads up to the end of the file and gives the number of bytes that were there.
  [[nodiscard]] std::size_t read_some(std::int64_t position, std::span<std::byte> bytes) const;
  void write(std::int64_t position, std::span<const std::byte> bytes);
  void resize(std::int64_t size);
  // Takes the file for this process alone, or says who could hold it.
  void lock();
  // Whether the path still leads to this file: it could have been deleted or replaced meanwhile.
  [[nodiscard]] bool is_still_named() const { return current_system().names(path_, handle_); }
  // Closes and reports what the system had still to say of earlier writes.
  void close();

  // Values stand little-endian in the file.
  template <typename T>
  [[nodiscard]] T read_value(std::int64_t position) const {
    T value;
    read_values(position, std::span<T>(&value, 1));
    return value;
  }
  template <typename T>
  void read_values(std::int64_t position, std::span<T> values) const {
    read(position, std::as_writable_bytes(values));
    swap_from_little(values);
  }
  template <typename T>
  void write_value(std::int64_t position, T value) {
    write_values(position, std::span<const T>(&value, 1));
  }
  template <typename T>
  void write_values(std::int64_t position, std::span<const T> values) {
    if constexpr (std::endian::native == std::endian::little) {
      write(position, std::as_bytes(values));
    } else {
      std::vector<T> ordered(values.begin(), values.end());
      swap_from_little(std::span<T>(ordered));
      write(position, std::as_bytes(std::span<const T>(ordered)));
    }
  }

 private:
  std::filesystem::path path_;
  file_handle handle_ = -1;
};

}  // namespace velmorankite::platform
