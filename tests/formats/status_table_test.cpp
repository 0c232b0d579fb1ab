// SPDX-License-Identifier: MIT
#include "formats/status_table.h"

#include <gtest/gtest.h>

#include "formats/catalogue.h"

namespace velmorankite {
namespace {

TEST(FormatStatuses, mean_what_their_format_means_by_them) {
  struct example {
    const char* routine;
    std::int32_t number;
    std::int32_t format_code;
    const char* words;
  };
  const example examples[] = {
      {"GRDRDH", -2010, format_bip, "\"NCOLS\" cannot be read"},
      {"GRDRDH", -2020, format_tile_1_arc, "no \"E\" or \"W\" in the name"},
      {"GRDRDH", -2001, format_zmap, "a blank line in its comments"},
      {"GRDRDH", -2001, format_bil, "the header file that belongs to the grid is missing"},
      {"GRDRDG", -1001, format_arcinfo, "the first line of the cells cannot be read"},
      {"GRDRDG", -1003, format_arcinfo, "line 3 of the cells cannot be read"},
      {"GRDRDG", -1, format_pcidsk,
       "files of the format hold images, which are not converted to grids"},
      {"GRDRDG", -1, format_zmap,
       "a blank name, no file with the cells, a window outside the grid, or no memory"},
      {"GRDRDG", -27, format_zmap, "line 27 of the file cannot be read"},
      {"GRDRDG", -1001, format_zmap,
       "line 1001 of the file cannot be read, or the header does not end with \"@\""},
      {"EXPUNCOMPGRID", -20021, 0, "the file ends within value 19 of its header"},
      {"EXPUNCOMPGRID", -23500, 0, "block 1500: its cells cannot be written"},
  };
  for (const example& e : examples) {
    EXPECT_EQ(status_words(formats_statuses, e.routine, Status{e.number}, e.format_code), e.words);
  }
}

}  // namespace
}  // namespace velmorankite
