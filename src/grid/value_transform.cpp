// SPDX-License-Identifier: MIT
#include "grid/value_transform.h"

#include "grid/dummy.h"

namespace velmorankite {

void GRDZTRANS(std::int32_t mode, float& value, std::int32_t direction) noexcept {
  if (is_valid(value)) {
    value = direction >= 0 ? transform_value(mode, value) : restore_value(mode, value);
  }
}

}  // namespace velmorankite
