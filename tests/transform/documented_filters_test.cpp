// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/temporary_folder.h"
#include "transform/convolution_design.h"
#include "transform/filter_catalogue.h"
#include "transform/filter_traits.h"

namespace velmorankite {
namespace {

// Whether the convolution road can make an operator of a filter.
bool has_operator(std::int32_t filter) {
  constexpr std::int32_t points = 5;
  std::vector<float> weights(std::size_t{points} * points);
  const std::size_t side = filter < 200 ? points / 2 + 1 : points;
  return CALC_FILTER_COEFFICIENTS(filter, 3, 0, 0.0F, 0.0F, 1.0F, 60.0F, 1.0F, 1.0, 1.0, 0.0,
                                  points, points, std::span(weights).first(side * side)) == success;
}

TEST(DocumentedFilters, are_those_of_the_catalogue_with_the_roads_that_they_have) {
  const std::string page = testing::read_file(VELMORANKITE_DOCS "/transforms.md");
  for (std::int32_t index = 100; index <= 212; ++index) {
    const std::string number = std::to_string(index);
    const std::size_t row = page.find("\n| " + number + " |");
    const bool named = row != std::string::npos || page.find(" " + number + " (") != page.npos;
    const bool identity = traits_of(index).index != index || index == 200;
    EXPECT_EQ(named, !identity) << index;
    if (row != std::string::npos && index != 112) {
      const std::string line = page.substr(row + 1, page.find('\n', row + 1) - row - 1);
      const bool by_convolution =
          line.find("| F C |") != std::string::npos || line.find("| C |") != std::string::npos;
      EXPECT_EQ(by_convolution, has_operator(index)) << line;
    }
  }
}

}  // namespace
}  // namespace velmorankite
