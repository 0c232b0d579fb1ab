// The operating system's files on a POSIX system.
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/system.h"

namespace velmorankite::platform {
namespace {

constexpr mode_t new_file_permissions = 0666;

int open_flags(open_mode mode) {
  switch (mode) {
    case open_mode::read:
      return O_RDONLY;
    case open_mode::read_write:
      return O_RDWR;
    case open_mode::create:
      return O_RDWR | O_CREAT | O_TRUNC;
    case open_mode::create_new:
      return O_RDWR | O_CREAT | O_EXCL;
    case open_mode::open_always:
      return O_RDWR | O_CREAT;
  }
  return O_RDONLY;
}

// Only regular files have byte positions: a directory, a pipe or a terminal is refused.
int refuse_special(int handle) {
  struct stat facts {};
  if (::fstat(handle, &facts) != 0) {
    return -errno;
  }
  if (S_ISDIR(facts.st_mode)) {
    return -EISDIR;
  }
  return S_ISREG(facts.st_mode) ? 0 : -ESPIPE;
}

}  // namespace

file_handle System::open(const std::filesystem::path& path, open_mode mode) {
  // O_NONBLOCK keeps the open of a pipe without a writer from waiting for ever.
  const int handle =
      ::open(path.c_str(), open_flags(mode) | O_CLOEXEC | O_NONBLOCK, new_file_permissions);
  if (handle < 0) {
    return -errno;
  }
  const int refusal = refuse_special(handle);
  if (refusal != 0) {
    ::close(handle);
    return refusal;
  }
  return handle;
}

file_handle System::open_anonymous() {
  std::error_code failure;
  std::filesystem::path directory = std::filesystem::temp_directory_path(failure);
  if (failure) {
    directory = ".";
  }
  std::string name = (directory / "~velmorankiteXXXXXX").string();
  const int handle = ::mkstemp(name.data());
  if (handle < 0) {
    return -errno;
  }
  ::unlink(name.c_str());
  return handle;
}

int System::close(file_handle handle) {
  return ::close(handle) == 0 ? 0 : -errno;
}

std::int64_t System::read_at(file_handle handle, std::int64_t offset, std::span<std::byte> bytes) {
  const ssize_t count = ::pread(handle, bytes.data(), bytes.size(), offset);
  return count < 0 ? -errno : count;
}

std::int64_t System::write_at(file_handle handle, std::int64_t offset,
                              std::span<const std::byte> bytes) {
  const ssize_t count = ::pwrite(handle, bytes.data(), bytes.size(), offset);
  return count < 0 ? -errno : count;
}

std::int64_t System::size(file_handle handle) {
  struct stat facts {};
  return ::fstat(handle, &facts) == 0 ? facts.st_size : -errno;
}

int System::resize(file_handle handle, std::int64_t size) {
  return ::ftruncate(handle, size) == 0 ? 0 : -errno;
}

int System::lock(file_handle handle) {
  return ::flock(handle, LOCK_EX | LOCK_NB) == 0 ? 0 : -errno;
}

bool System::names(const std::filesystem::path& path, file_handle handle) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(handle, &opened) == 0 && ::stat(path.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

int System::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : -errno;
}

int System::remove(const std::filesystem::path& path) {
  return ::unlink(path.c_str()) == 0 ? 0 : -errno;
}

namespace {

System& default_system() noexcept {
  static System instance;
  return instance;
}

thread_local System* overriding_system = nullptr;

}  // namespace

System& current_system() noexcept {
  return overriding_system != nullptr ? *overriding_system : default_system();
}

SystemOverride::SystemOverride(System& replacement) noexcept : previous_(overriding_system) {
  overriding_system = &replacement;
}

SystemOverride::~SystemOverride() {
  overriding_system = previous_;
}

}  // namespace velmorankite::platform
