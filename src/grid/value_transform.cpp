// SPDX-License-Identifier: MIT
#include "grid/value_transform.h"

#include <cmath>

#include "grid/dummy.h"

namespace velmorankite {

void make_plain(std::int32_t mode, std::span<float> values) noexcept {
  for (float& value : values) {
    value = std::isnan(value) ? dummy : value;
  }
  if (is_transformed(mode)) {
    for (float& value : values) {
      value = is_valid(value) ? restore_value(mode, value) : value;
    }
  }
}

void GRDZTRANS(std::int32_t mode, float& value, std::int32_t direction) noexcept {
  if (is_valid(value)) {
    value = direction >= 0 ? transform_value(mode, value) : restore_value(mode, value);
  }
}

}  // namespace velmorankite
