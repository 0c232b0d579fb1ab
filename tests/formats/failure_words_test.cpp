// SPDX-License-Identifier: MIT
#include "formats/failure_words.h"

#include <gtest/gtest.h>

#include "formats/catalogue.h"

namespace velmorankite {
namespace {

grid_description grid_of(std::int32_t format_code) {
  grid_description grid;
  grid.ints.format_code = format_code;
  return grid;
}

TEST(FailureWords, of_a_number_with_several_meanings_are_those_of_the_format) {
  struct example {
    std::int32_t number;
    std::int32_t format_code;
    const char* words;
  };
  const example examples[] = {
      {-1005, 0, "the format of the file is not recognised"},
      {-2008, format_pcidsk, "no usable georeference segment"},
      {-2008, format_zmap, "no dummy value"},
      {-2010, format_bip, "\"NCOLS\" cannot be read"},
      {-2019, format_surfer_7, "a count below 1; no \"DATA\" behind the lattice"},
      {-2020, format_tile_1_arc, "no \"E\" or \"W\" in the name"},
      {-2001, format_zmap, "a blank line in its comments"},
      {-2001, format_bil, "the header file that belongs to the grid is missing"},
      {-2701, format_gxf, "the value of \"#POINTS\" cannot be read"},
      {-77, format_gxf, "status -77"},
  };
  for (const example& e : examples) {
    EXPECT_EQ(words_of_description(Status{e.number}, grid_of(e.format_code)), e.words);
  }
}

TEST(FailureWords, of_a_conversion_count_lines_and_name_images) {
  const auto words = [](std::int32_t number, std::int32_t format_code) {
    return words_of_conversion(Status{number}, grid_of(format_code));
  };
  EXPECT_EQ(words(-1001, format_arcinfo), "the first line of the cells cannot be read");
  EXPECT_EQ(words(-1001, format_zmap),
            "line 1001 of the file cannot be read, or the header does not end with \"@\"");
  EXPECT_EQ(words(-27, format_zmap), "line 27 of the file cannot be read");
  EXPECT_EQ(words(-1003, format_arcinfo), "line 3 of the cells cannot be read");
  EXPECT_EQ(words(-17, format_zmap), "line 17 of the file cannot be read");
  EXPECT_NE(words(-1, format_bil).find("\"BIL\""), std::string::npos);
}

}  // namespace
}  // namespace velmorankite
