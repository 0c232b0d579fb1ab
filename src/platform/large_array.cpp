// SPDX-License-Identifier: MIT
#include "platform/large_array.h"

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace velmorankite::platform {
namespace {

constexpr std::size_t huge_page = std::size_t{2} << 20;
constexpr std::size_t large_from = 2 * huge_page;

#if defined(__linux__)
std::size_t whole_pages(std::size_t bytes) {
  return (bytes + huge_page - 1) / huge_page * huge_page;
}

// Maps a page more than is needed and gives back what lies outside the aligned part, so that the
// array begins on a huge page.
void* map_aligned(std::size_t bytes) {
  const std::size_t wanted = whole_pages(bytes);
  void* const raw = ::mmap(nullptr, wanted + huge_page, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (raw == MAP_FAILED) {
    throw std::bad_alloc();
  }
  char* const first = static_cast<char*>(raw);
  const std::size_t lead =
      (huge_page - reinterpret_cast<std::uintptr_t>(first) % huge_page) % huge_page;
  if (lead > 0) {
    ::munmap(first, lead);
  }
  ::munmap(first + lead + wanted, huge_page - lead);
  ::madvise(first + lead, wanted, MADV_HUGEPAGE);
  return first + lead;
}
#endif

}  // namespace

std::size_t array_bytes(std::size_t count, std::size_t element_size) {
  if (count > static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) / element_size) {
    throw std::bad_alloc();
  }
  return count * element_size;
}

void* allocate_large(std::size_t bytes) {
#if defined(__linux__)
  if (bytes >= large_from) {
    return map_aligned(bytes);
  }
#endif
  void* const memory = std::malloc(bytes > 0 ? bytes : 1);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void free_large(void* memory, std::size_t bytes) noexcept {
#if defined(__linux__)
  if (memory != nullptr && bytes >= large_from) {
    ::munmap(memory, whole_pages(bytes));
    return;
  }
#endif
  (void)bytes;
  std::free(memory);
}

}  // namespace velmorankite::platform
