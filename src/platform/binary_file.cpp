// SPDX-License-Identifier: MIT
#include "platform/binary_file.h"

#include <cerrno>
#include <string>
#include <utility>

#include "platform/io_error.h"

namespace velmorankite::platform {
namespace {

[[noreturn]] void fail(const std::filesystem::path& path, const std::string& what,
                       int error_number) {
  throw IoError(path, system_reason(what, error_number), error_number);
}

}  // namespace

BinaryFile::BinaryFile(std::filesystem::path path, open_mode mode)
    : path_(std::move(path)), handle_(current_system().open(path_, mode)) {
  if (handle_ < 0) {
    fail(path_, "cannot be opened", -handle_);
  }
}

BinaryFile BinaryFile::anonymous() {
  BinaryFile file;
  file.path_ = "(scratch file without a name)";
  file.handle_ = current_system().open_anonymous();
  if (file.handle_ < 0) {
    fail(file.path_, "cannot be made", -file.handle_);
  }
  return file;
}

BinaryFile::~BinaryFile() {
  if (is_open()) {
    current_system().close(handle_);
  }
}

BinaryFile::BinaryFile(BinaryFile&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, -1)) {}

BinaryFile& BinaryFile::operator=(BinaryFile&& other) noexcept {
  if (this != &other) {
    if (is_open()) {
      current_system().close(handle_);
    }
    path_ = std::move(other.path_);
    handle_ = std::exchange(other.handle_, -1);
  }
  return *this;
}

std::int64_t BinaryFile::size() const {
  const std::int64_t bytes = current_system().size(handle_);
  if (bytes < 0) {
    fail(path_, "cannot be measured", static_cast<int>(-bytes));
  }
  return bytes;
}

std::size_t BinaryFile::read_some(std::int64_t position, std::span<std::byte> bytes) const {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::int64_t count = current_system().read_at(
        handle_, position - 1 + static_cast<std::int64_t>(done), bytes.subspan(done));
    if (count == -EINTR) {
      continue;
    }
    if (count < 0) {
      fail(path_, "cannot be read", static_cast<int>(-count));
    }
    if (count == 0) {
      break;
    }
    done += static_cast<std::size_t>(count);
  }
  return done;
}

void BinaryFile::read(std::int64_t position, std::span<std::byte> bytes) const {
  const std::size_t count = read_some(position, bytes);
  if (count < bytes.size()) {
    throw IoError(path_, "the file ends too early: " + std::to_string(bytes.size()) +
                             " bytes expected at byte " + std::to_string(position) + ", " +
                             std::to_string(count) + " are there");
  }
}

void BinaryFile::write(std::int64_t position, std::span<const std::byte> bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::int64_t count = current_system().write_at(
        handle_, position - 1 + static_cast<std::int64_t>(done), bytes.subspan(done));
    if (count == -EINTR) {
      continue;
    }
    if (count <= 0) {
      const int error_number = count < 0 ? static_cast<int>(-count) : ENOSPC;
      fail(path_, "cannot be written", error_number);
    }
    done += static_cast<std::size_t>(count);
  }
}

void BinaryFile::resize(std::int64_t size) {
  const int result = current_system().resize(handle_, size);
  if (result < 0) {
    fail(path_, "cannot be resized", -result);
  }
}

void BinaryFile::lock() {
  const int result = current_system().lock(handle_);
  if (result == -EWOULDBLOCK) {
    throw IoError(path_, "is in use by another run in this directory");
  }
  if (result < 0) {
    fail(path_, "cannot be locked", -result);
  }
}

void BinaryFile::close() {
  if (!is_open()) {
    return;
  }
  const int result = current_system().close(std::exchange(handle_, -1));
  if (result < 0) {
    fail(path_, "cannot be closed", -result);
  }
}

}  // namespace velmorankite::platform
