// The few calls through which everything above touches the operating system's files.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace velmorankite::platform {

enum class open_mode {
  read,        // an existing file
  read_write,  // an existing file
  create,      // a new file, or an existing one emptied
  create_new,  // a new file; fails if the name is taken
  open_always  // read and write; made if it is missing, its contents kept if not
};

using file_handle = int;

// Each call gives a count or handle of at least 0, or the negated error number of the system.
// The default implementation asks the operating system; a test puts a double in its place to
// make the n-th open, read or write fail.
class System {
 public:
  System() = default;
  System(const System&) = delete;
  System& operator=(const System&) = delete;
  virtual ~System() = default;

  virtual file_handle open(const std::filesystem::path& path, open_mode mode);
  virtual file_handle open_anonymous();  // a file without a name, gone when it is closed
  virtual int close(file_handle handle);
  virtual std::int64_t read_at(file_handle handle, std::int64_t offset, std::span<std::byte> bytes);
  virtual std::int64_t write_at(file_handle handle, std::int64_t offset,
                                std::span<const std::byte> bytes);
  virtual std::int64_t size(file_handle handle);
  virtual int resize(file_handle handle, std::int64_t size);
  // Takes the file for this process alone; fails at once if another process holds it.
  virtual int lock(file_handle handle);
  // Whether the path leads to the file of the handle and not, say, to one made after it was
  // deleted.
  virtual bool names(const std::filesystem::path& path, file_handle handle);
  virtual int rename(const std::filesystem::path& from, const std::filesystem::path& to);
  virtual int remove(const std::filesystem::path& path);
};

// The system that this thread's file operations go to.
System& current_system() noexcept;

// Puts `replacement` in place of this thread's system for the life of the object.
class SystemOverride {
 public:
  explicit SystemOverride(System& replacement) noexcept;
  ~SystemOverride();
  SystemOverride(const SystemOverride&) = delete;
  SystemOverride& operator=(const SystemOverride&) = delete;

 private:
  System* previous_;
};

}  // namespace velmorankite::platform
