// Uncleared arrays that ask the system for huge pages.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>

namespace velmorankite::platform {

// Memory of at least `bytes`, aligned for any element. From a few MiB up it comes from the system
// in huge pages, where there are some: the first touch of small pages costs more than the
// arithmetic on them. Throws std::bad_alloc.
void* allocate_large(std::size_t bytes);
void free_large(void* memory, std::size_t bytes) noexcept;

// A fixed-size array whose elements hold nothing in particular until they are written.
template <typename T>
class LargeArray {
  static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

 public:
  LargeArray() = default;
  explicit LargeArray(std::size_t count);
  ~LargeArray() { free_large(data_, size_ * sizeof(T)); }
  LargeArray(LargeArray&& other) noexcept
      : data_(std::exchange(other.data_, nullptr)), size_(std::exchange(other.size_, 0)) {}
  LargeArray& operator=(LargeArray&& other) noexcept {
    std::swap(data_, other.data_);
    std::swap(size_, other.size_);
    return *this;
  }
  LargeArray(const LargeArray&) = delete;
  LargeArray& operator=(const LargeArray&) = delete;

  // Makes room for at least `count` elements; what the array held is lost if it had less.
  void make_room(std::size_t count) {
    if (size_ < count) {
      *this = LargeArray();
      *this = LargeArray(count);
    }
  }

  [[nodiscard]] T* data() noexcept { return data_; }
  [[nodiscard]] const T* data() const noexcept { return data_; }
  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] bool empty() const noexcept { return size_ == 0; }
  T& operator[](std::size_t i) noexcept { return data_[i]; }
  const T& operator[](std::size_t i) const noexcept { return data_[i]; }
  [[nodiscard]] T* begin() noexcept { return data_; }
  [[nodiscard]] T* end() noexcept { return data_ + size_; }
  [[nodiscard]] const T* begin() const noexcept { return data_; }
  [[nodiscard]] const T* end() const noexcept { return data_ + size_; }
  [[nodiscard]] std::span<T> span() noexcept { return {data_, size_}; }
  [[nodiscard]] std::span<const T> span() const noexcept { return {data_, size_}; }

 private:
  T* data_ = nullptr;
  std::size_t size_ = 0;
};

// Bytes of `count` elements of `element_size`; throws std::bad_alloc where that passes an address.
std::size_t array_bytes(std::size_t count, std::size_t element_size);

template <typename T>
LargeArray<T>::LargeArray(std::size_t count)
    : data_(static_cast<T*>(allocate_large(array_bytes(count, sizeof(T))))), size_(count) {}

}  // namespace velmorankite::platform
