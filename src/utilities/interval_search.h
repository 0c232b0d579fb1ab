// The interval of a table in which a value falls.
// SPDX-License-Identifier: MIT
#pragma once
#include <cstdint>
#include <span>

namespace velmorankite {

// An entry of a table, from 1, and on which side of the table the value lies.
struct table_place {
  std::int32_t left = 1;
  std::int32_t flag = 0;  // 0 within the table; -1 ahead of its first entry; 1 from its last one on

  friend constexpr bool operator==(const table_place&, const table_place&) = default;
};

// Finds the entry that stands left of a value in an ascending table: xt(left) <= x < xt(left + 1).
// The walk begins at `position` and doubles its steps, so that a value near the last one costs a
// step; it ends in a bisection.
//   xt        the table. One that is not in order, or a NaN, gives some entry of it.
//   x         below xt(1): left 1, flag -1. From the last entry on: left is the count, flag 1.
//   position  in: where to begin, from 1; a position that is not one of this table is put right.
//             out: where to begin next. What is found does not depend on it.
// After C. de Boor, A Practical Guide to Splines (1978), INTERV.
table_place INTERV(std::span<const double> xt, double x, std::int32_t& position) noexcept;

// The same in a descending table: xt(left) > x >= xt(left + 1).
//   x  from xt(1) up: left 1, flag -1. Below the last entry: left is the count, flag 1.
table_place RINTERV(std::span<const double> xt, double x, std::int32_t& position) noexcept;

}  // namespace velmorankite
