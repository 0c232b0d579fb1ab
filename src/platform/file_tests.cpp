// SPDX-License-Identifier: MIT
#include "platform/file_tests.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <system_error>
#include <vector>

#include "platform/binary_file.h"
#include "platform/scratch_file.h"
#include "platform/system.h"

namespace velmorankite::platform {
namespace {

constexpr std::size_t copy_block = std::size_t{1} << 20;

}  // namespace

bool file_exists(const std::filesystem::path& path) {
  std::error_code failure;
  return std::filesystem::exists(path, failure);
}

std::int64_t bytes_of_file(const std::filesystem::path& path) {
  std::error_code failure;
  const std::uintmax_t bytes = std::filesystem::file_size(path, failure);
  return failure ? -1 : static_cast<std::int64_t>(bytes);
}

std::int64_t free_bytes(const std::filesystem::path& folder) {
  constexpr std::uintmax_t most = std::numeric_limits<std::int64_t>::max();
  std::error_code failure;
  const std::filesystem::space_info space = std::filesystem::space(folder, failure);
  return static_cast<std::int64_t>(failure ? most : std::min(space.available, most));
}

bool has_room(const std::filesystem::path& folder, std::int64_t bytes) {
  return bytes <= free_bytes(folder);
}

bool same_file(const std::filesystem::path& a, const std::filesystem::path& b) {
  std::error_code failure;
  const bool same = std::filesystem::equivalent(a, b, failure);
  return !failure && same;
}

bool same_place(const std::filesystem::path& a, const std::filesystem::path& b) {
  if (a.empty() || b.empty()) {
    return false;
  }
  // A folder that may not be entered has no canonical name: then the name as it is written counts.
  const auto place = [](const std::filesystem::path& path) {
    std::error_code failure;
    const std::filesystem::path written = std::filesystem::absolute(link_target(path), failure);
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(written, failure);
    return failure ? written.lexically_normal() : canonical;
  };
  return same_file(a, b) || place(a) == place(b);
}

std::filesystem::path link_target(std::filesystem::path path) {
  constexpr int most_links = 40;  // as many as the system follows
  std::error_code failure;
  for (int i = 0; i < most_links && std::filesystem::is_symlink(path, failure); ++i) {
    const std::filesystem::path next = std::filesystem::read_symlink(path, failure);
    if (failure) {
      break;
    }
    path = path.parent_path() / next;
  }
  return path;
}

void delete_file(const std::filesystem::path& path) noexcept {
  current_system().remove(path);
}

bool copy_whole_file(const std::filesystem::path& source,
                     const std::filesystem::path& target) noexcept {
  try {
    const BinaryFile from(source, open_mode::read);
    StagedFile to(target);
    std::vector<std::byte> block(copy_block);
    std::int64_t position = 1;
    while (true) {
      const std::size_t count = from.read_some(position, block);
      if (count == 0) {
        break;
      }
      to.file().write(position, std::span(block).first(count));
      position += static_cast<std::int64_t>(count);
    }
    to.commit();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace velmorankite::platform
