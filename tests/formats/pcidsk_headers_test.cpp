// Headers of PCIDSK images.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "formats/describe_grid.h"
#include "formats/header_readers.h"
#include "formats/header_status.h"
#include "grid/grid_rows.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

constexpr std::size_t block = 512;
constexpr std::size_t georeference = 10 * block;  // of the segment at block 9
constexpr std::size_t pointers = 5 * block;       // in blocks 6 and 7
constexpr std::size_t x_corner = georeference + 212;
constexpr std::size_t y_corner = x_corner + std::size_t{55} * 26;

// Text fields, right-justified, in a file of blanks.
class Image {
 public:
  explicit Image(std::size_t blocks) : bytes_(blocks * block, ' ') {}

  Image& text(std::size_t offset, std::string_view value) {
    std::copy(value.begin(), value.end(), &bytes_.at(offset));
    return *this;
  }
  Image& field(std::size_t offset, std::size_t length, std::string_view value) {
    std::fill_n(&bytes_.at(offset), length, ' ');
    return text(offset + length - value.size(), value);
  }
  [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

 private:
  std::string bytes_;
};

// Two bands of 6 by 4 pixels of 2 by 5 map units. Channel headers from block 2 on, 4 blocks.
Image small_image() {
  Image image(20);
  image.text(0, "PCIDSK  ");
  image.field(304, 16, "8").field(336, 16, "2").field(352, 8, "4").text(360, "BAND");
  image.field(376, 8, "2").field(384, 8, "6").field(392, 8, "4");
  image.field(408, 17, "2.0             1").field(424, 16, "5.0");
  image.field(440, 16, "6").field(456, 8, "2");
  image.text(block, "gravity").text(3 * block, "magnetics");
  image.text(pointers, "L150GEOref  ").field(pointers + 12, 11, "3").field(pointers + 23, 9, "9");
  image.text(pointers + block, "L150GEOref  ");
  image.field(pointers + block + 12, 11, "9").field(pointers + block + 23, 9, "8");
  image.text(georeference, "POLYNOMIAL").text(georeference + 16, "PIXEL");
  image.field(x_corner, 26, "1.005D+02");
  image.field(y_corner, 26, "-0.200250000000000000D+02");
  return image;
}

class PcidskHeaders : public ::testing::Test {
 protected:
  Status describe(const Image& image) {
    testing::write_file(path, image.bytes());
    return GRDRDH(path.string(), grid, texts);
  }

  testing::TemporaryFolder folder;
  std::filesystem::path path = folder / "a.pix";
  grid_description grid;
  grid_texts texts;
};

TEST_F(PcidskHeaders, tell_bands_lattice_and_interleave) {
  ASSERT_EQ(describe(small_image()), success);
  EXPECT_EQ(grid.ints.format_code, 4);
  EXPECT_EQ(grid.ints.band_count, 2);
  EXPECT_EQ(grid.ints.data_offset, (6 + 4) * 512 - 512);
  EXPECT_EQ(grid.ints.element_code, 2);
  EXPECT_EQ(grid.ints.storage_sense, 1);
  EXPECT_EQ(lattice_of(grid), (Lattice{100.5, -35.025, 2.0, 5.0, 6, 4}));
  EXPECT_EQ(grid.reals.x_max, 110.5);
  EXPECT_EQ(grid.reals.y_max, -20.025);
  EXPECT_EQ(grid.reals.dummy_value, 0.0);
  EXPECT_EQ(grid.reals.z_spread, 0.0);
  EXPECT_EQ(texts.band_names, (std::vector<std::string>{"gravity", "magnetics"}));
  for (const auto& [word, code] :
       {std::pair("FILE ", 3), {"LINE ", 1}, {"PIXEL", 0}, {"ODD  ", 2}}) {
    ASSERT_EQ(describe(small_image().text(360, word)), success);
    EXPECT_EQ(grid.ints.element_code, code) << word;
  }
}

TEST_F(PcidskHeaders, fields_may_be_blank) {
  Image image = small_image();
  ASSERT_EQ(describe(image.field(456, 8, "").field(440, 16, "")), success);
  EXPECT_EQ(grid.ints.data_offset, (2 + 4) * 512 - 512);
  EXPECT_EQ(grid.reals.x_max, 0.0);  // no segment pointers, no limits
  EXPECT_EQ(grid.reals.x_cell, 2.0);
  ASSERT_EQ(describe(image.field(352, 8, "").field(336, 16, "")), success);
  EXPECT_EQ(grid.ints.data_offset, 512);
  EXPECT_EQ(texts.band_names, std::vector<std::string>{""});
  // A coefficient without a point has its 18 decimals.
  ASSERT_EQ(
      describe(small_image().field(x_corner, 26, "1500000000000000000").field(y_corner, 26, "")),
      success);
  EXPECT_EQ(grid.reals.x_min, 1.5);
  EXPECT_EQ(grid.reals.y_max, 0.0);
}

TEST_F(PcidskHeaders, faults_have_their_own_status) {
  struct example {
    const char* name;
    std::function<void(Image&)> change;
    Status expected;
  };
  constexpr std::size_t entry = pointers + block;
  const example examples[] = {
      {"no number", [](Image& i) { i.field(384, 8, "six"); }, pcidsk_unreadable},
      {"no count", [](Image& i) { i.field(384, 8, ""); }, counts_unsound},
      {"no cell size", [](Image& i) { i.field(408, 17, ""); }, cell_size_unsound},
      {"many bands", [](Image& i) { i.field(376, 8, "99999999"); }, pcidsk_unreadable},
      {"channels outside", [](Image& i) { i.field(336, 16, "2000000000"); }, pcidsk_unreadable},
      {"image outside", [](Image& i) { i.field(352, 8, "-9"); }, pointer_outside},
      {"pointers outside", [](Image& i) { i.field(456, 8, "99999999"); }, pcidsk_unreadable},
      {"no pointers", [](Image& i) { i.field(456, 8, "0"); }, pcidsk_no_georeference},
      {"one block of pointers", [](Image& i) { i.field(456, 8, "1"); },
       pcidsk_georeference_unknown},
      {"segment outside", [](Image& i) { i.field(entry + 12, 11, "2000000000"); },
       pcidsk_unreadable},
      {"segment of no size", [](Image& i) { i.field(entry + 23, 9, "0"); }, pcidsk_no_georeference},
      {"last entry of all", [](Image& i) { i.text(entry + 480, "L150"); }, success},
      {"last entry but one", [](Image& i) { i.text(entry + 448, "L150"); }, pcidsk_no_georeference},
      {"another model", [](Image& i) { i.text(georeference, "PROJ"); },
       pcidsk_georeference_unknown},
      {"another unit", [](Image& i) { i.text(georeference + 16, "LON"); },
       pcidsk_georeference_unknown},
      {"no corner", [](Image& i) { i.field(x_corner, 26, "x"); }, pcidsk_unreadable},
  };
  for (const example& e : examples) {
    Image image = small_image();
    e.change(image);
    EXPECT_EQ(describe(image), e.expected) << e.name;
  }
}

TEST_F(PcidskHeaders, of_a_file_that_ends_anywhere_are_refused) {
  ASSERT_EQ(describe(small_image()), success);
  constexpr std::size_t needed = 2 * y_corner - x_corner;
  for (std::size_t length = needed - 1; length > 0; --length) {
    std::filesystem::resize_file(path, length);
    EXPECT_EQ(GRDRDH(path.string(), grid, texts), pcidsk_unreadable) << length;
  }
}

// GDAL marks its georeference segment as active, not as locked.
TEST_F(PcidskHeaders, of_gdal_have_bands_but_no_usable_georeference) {
  EXPECT_EQ(GRDRDH(testing::test_data("pcidsk/bands.pix").string(), grid, texts),
            pcidsk_no_georeference);
  EXPECT_EQ(grid.ints.x_count, 6);
  EXPECT_EQ(grid.ints.y_count, 4);
  ASSERT_EQ(texts.band_names.size(), 1U);
  EXPECT_TRUE(texts.band_names[0].starts_with("Contents Not Specified  "));
}

}  // namespace
}  // namespace velmorankite
