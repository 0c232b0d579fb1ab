// SPDX-License-Identifier: MIT
#include "utilities/interval_search.h"

#include <algorithm>
#include <cstddef>

namespace velmorankite {
namespace {

// Searches the ascending table at(1) to at(count). 64-bit indices: a step may pass the count.
template <typename Table>
table_place search(const Table& at, std::int64_t count, double x, std::int32_t& position) noexcept {
  if (count < 1 || !(x >= at(1))) {
    position = 1;
    return {1, -1};
  }
  if (x >= at(count)) {
    position = static_cast<std::int32_t>(count);
    return {position, 1};
  }
  std::int64_t low = std::clamp<std::int64_t>(position, 1, count - 1);
  std::int64_t high = low + 1;
  if (x >= at(high)) {
    for (std::int64_t step = 1; high < count && x >= at(high); step *= 2) {
      low = high;
      high = std::min(count, low + step);
    }
  } else {
    for (std::int64_t step = 1; low > 1 && x < at(low); step *= 2) {
      high = low;
      low = std::max<std::int64_t>(1, high - step);
    }
  }
  while (high - low > 1) {
    const std::int64_t middle = (low + high) / 2;
    (x < at(middle) ? high : low) = middle;
  }
  position = static_cast<std::int32_t>(low);
  return {position, 0};
}

}  // namespace

table_place INTERV(std::span<const double> xt, double x, std::int32_t& position) noexcept {
  const auto at = [xt](std::int64_t k) { return xt[static_cast<std::size_t>(k - 1)]; };
  return search(at, static_cast<std::int64_t>(xt.size()), x, position);
}

table_place RINTERV(std::span<const double> xt, double x, std::int32_t& position) noexcept {
  // Read from its end the table ascends.
  const auto count = static_cast<std::int64_t>(xt.size());
  const auto at = [xt, count](std::int64_t k) { return xt[static_cast<std::size_t>(count - k)]; };
  const table_place mirrored = search(at, count, x, position);
  if (mirrored.flag > 0) {
    return {1, -1};
  }
  if (mirrored.flag < 0) {
    return {static_cast<std::int32_t>(std::max<std::int64_t>(count, 1)), 1};
  }
  return {static_cast<std::int32_t>(count - mirrored.left), 0};
}

}  // namespace velmorankite
