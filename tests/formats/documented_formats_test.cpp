// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "formats/catalogue.h"
#include "formats/convert_grid.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

// Whether GRDRDG goes as far as the cells of a file of this format.
bool is_converted(std::int32_t code, const testing::TemporaryFolder& folder) {
  grid_description grid;
  grid.ints.format_code = code;
  grid.ints.x_count = 2;
  grid.ints.y_count = 2;
  grid.ints.element_code = 4;
  grid.ints.element_kind = 2;
  grid.ints.aux_1 = 1;
  grid.ints.aux_2 = 1;
  grid.ints.aux_3 = 1;
  grid.reals.x_max = 1.0;
  grid.reals.y_max = 1.0;
  grid.reals.x_cell = 1.0;
  grid.reals.y_cell = 1.0;
  grid_window whole{0.0, 0.0, 0, 0.0, 0.0, 0};
  const Status status =
      GRDRDG((folder / "cells").string(), (folder / "out.grd").string(), grid, whole);
  return status != conversion_impossible && status != conversion_missing;
}

TEST(DocumentedFormats, are_those_of_the_catalogue_and_say_which_are_converted) {
  const std::string page = testing::read_file(VELMORANKITE_DOCS "/formats.md");
  const testing::TemporaryFolder folder;
  testing::write_file(folder / "cells", std::string(8192, '\n'));
  std::int32_t count = 0;
  GET_NUM_SUPPORTED_GRID_FORMATS(count);
  std::size_t from = 0;
  for (std::int32_t code = 1; code <= count; ++code) {
    std::string name;
    std::string mask;
    ASSERT_EQ(GET_GRID_FORMAT_NAME(code, name, mask), success);
    const std::size_t row = page.find("\n| " + std::to_string(code) + " | " + name + " |", from);
    ASSERT_NE(row, std::string::npos) << name;
    from = page.find('\n', row + 1);
    EXPECT_EQ(page.substr(row, from - row).ends_with("| yes |"), is_converted(code, folder))
        << name;
  }
}

}  // namespace
}  // namespace velmorankite
