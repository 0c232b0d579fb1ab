// SPDX-License-Identifier: MIT
#include "formats/catalogue.h"

#include <gtest/gtest.h>

namespace velmorankite {
namespace {

TEST(FormatCatalogue, names_each_of_its_codes_and_no_other) {
  std::int32_t count = 0;
  GET_NUM_SUPPORTED_GRID_FORMATS(count);
  EXPECT_EQ(count, 25);
  struct example {
    std::int32_t code;
    Status status;
    const char* name;
    const char* mask;
  };
  const example examples[] = {
      {0, success, "kept", "*.kept"},
      {1, success, "Ermapper", "*.ers"},
      {13, success, "Surfer V6", "*.grd"},
      {25, success, "Geodysy binary", "*.ga;*.ha;*.dg;*.xi;*.eta"},
      {26, format_uncatalogued, "Unsupported", ""},
      {-1, format_uncatalogued, "Unsupported", ""},
  };
  for (const example& e : examples) {
    std::string name = "kept";
    std::string mask = "*.kept";
    EXPECT_EQ(GET_GRID_FORMAT_NAME(e.code, name, mask), e.status) << e.code;
    EXPECT_EQ(name, e.name) << e.code;
    EXPECT_EQ(mask, e.mask) << e.code;
  }
}

}  // namespace
}  // namespace velmorankite
