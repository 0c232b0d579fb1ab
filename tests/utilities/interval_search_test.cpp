// SPDX-License-Identifier: MIT
#include "utilities/interval_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

namespace velmorankite {
namespace {

// Left is the last entry that is not above x.
table_place plain_search(const std::vector<double>& table, double x) {
  const auto count = static_cast<std::int32_t>(table.size());
  const auto below = static_cast<std::int32_t>(std::ranges::upper_bound(table, x) - table.begin());
  return {std::max(below, 1), below == 0 ? -1 : (below == count ? 1 : 0)};
}

const std::vector<double> tables[] = {
    {1.0}, {0.0, 2.0}, {0.0, 1.0, 1.0, 4.0}, {0,   1,   4,   9,   16,  25,  36,  49,  64,  81, 100,
                                              121, 144, 169, 196, 225, 256, 289, 324, 361, 400}};

TEST(IntervalSearch, any_position_leads_to_the_entry_of_a_plain_search) {
  for (const std::vector<double>& table : tables) {
    std::vector<double> wanted = table;
    for (const double at : table) {
      wanted.insert(wanted.end(), {at - 0.5, at + 0.5});
    }
    const std::vector<double> descending(table.rbegin(), table.rend());
    const auto count = static_cast<std::int32_t>(table.size());
    for (const double x : wanted) {
      const table_place expected = plain_search(table, x);
      const bool inside = expected.flag == 0;
      const std::int32_t mirrored =
          inside ? count - expected.left : (expected.flag > 0 ? 1 : count);
      for (const std::int32_t begin : {-3, 0, 1, 2, 3, 12, 19, 20, 21, 22, 2147483647}) {
        std::int32_t position = begin;
        EXPECT_EQ(INTERV(table, x, position), expected) << x << ' ' << begin;
        position = begin;
        EXPECT_EQ(RINTERV(descending, x, position), (table_place{mirrored, -expected.flag}))
            << x << ' ' << begin;
      }
    }
  }
  std::int32_t position = 5;
  EXPECT_EQ(INTERV({}, 1.0, position), (table_place{1, -1}));
  EXPECT_EQ(INTERV(tables[3], std::numeric_limits<double>::quiet_NaN(), position).flag, -1);
}

}  // namespace
}  // namespace velmorankite
