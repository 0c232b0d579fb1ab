// SPDX-License-Identifier: MIT
#include "formats/header_text_readers.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats/describe_grid.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using testing::TemporaryFolder;
using testing::write_file;

const std::string data_folder = testing::test_data("gdal/").string();

class TextHeader : public ::testing::Test {
 protected:
  // Status of a file with these bytes; the description stays in `grid`.
  std::int32_t status_of(const std::string& name, const std::string& bytes) {
    write_file(folder / name, bytes);
    return GRDRDH((folder / name).string(), grid, texts).code;
  }

  TemporaryFolder folder;
  grid_description grid;
  grid_texts texts;
};

TEST_F(TextHeader, files_that_gdal_wrote_lie_where_gdal_put_them) {
  struct example {
    const char* name;
    std::int32_t format, offset, element, sense;
    double x_min, y_min, x_cell, y_cell;
    std::size_t advice;
  };
  // The corners of the ASCII grid stand ahead of its cell size, and the limits of the ZMap grid
  // are outer edges; both are taken as centres, and the user is told.
  const example examples[] = {{"square.asc", 9, 6, 4, -2, 998.75, 1998.75, 2.5, 2.5, 1},
                              {"square.flt", 18, 0, 4, -2, 1000.0, 2000.0, 2.5, 2.5, 0},
                              {"oblong.ers", 1, 0, 4, -2, 1000.0, 2000.0, 2.0, 3.0, 0},
                              {"oblong_text.grd", 13, 5, 1, 1, 1000.0, 2000.0, 2.0, 3.0, 0},
                              {"oblong.dat", 24, 8, 4, 2, 999.0, 1998.5, 14.0 / 6.0, 3.75, 1}};
  for (const example& e : examples) {
    ASSERT_EQ(GRDRDH(data_folder + e.name, grid, texts), success) << e.name;
    EXPECT_EQ(grid.ints.format_code, e.format) << e.name;
    EXPECT_EQ(grid.ints.data_offset, e.offset) << e.name;
    EXPECT_EQ(grid.ints.element_code, e.element) << e.name;
    EXPECT_EQ(grid.ints.storage_sense, e.sense) << e.name;
    EXPECT_EQ(grid.ints.x_count, 7) << e.name;
    EXPECT_EQ(grid.ints.y_count, 5) << e.name;
    EXPECT_DOUBLE_EQ(grid.reals.x_cell, e.x_cell) << e.name;
    EXPECT_DOUBLE_EQ(grid.reals.y_cell, e.y_cell) << e.name;
    EXPECT_DOUBLE_EQ(grid.reals.x_min, e.x_min) << e.name;
    EXPECT_DOUBLE_EQ(grid.reals.y_min, e.y_min) << e.name;
    EXPECT_EQ(texts.advice.size(), e.advice) << e.name;
  }
  EXPECT_EQ(grid.ints.aux_1, 4);
  EXPECT_EQ(grid.ints.aux_2, 20);
  EXPECT_EQ(grid.ints.aux_3, 1);
}

const std::string ers =
    "DatasetHeader Begin\n HeaderOffset = 16\n ByteOrder = MSBFirst\n"
    " CoordinateSpace Begin\n Datum = \"WGS84 \"\n Projection = \"NUTM33\"\n"
    " CoordinateType = EN\n CoordinateSpace End\n"
    " RasterInfo Begin\n CellType = Signed16BitInteger\n NullCellValue = -32768000\n"
    " CellInfo Begin\n Xdimension = 2\n Ydimension = 3\n CellInfo End\n"
    " NrOfLines = 5\n NrOfCellsPerLine = 7\n"
    " BandId Begin\n Value = \"TMI\"\n BandId End\n NrOfBands = 11\n"
    " RegistrationCoord Begin\n Eastings = 1000\n Northings = 2012\n RegistrationCoord End\n"
    " RegistrationCellX = 0.5\n RegistrationCellY = 0.5\n"
    " RegionInfo Begin\n RegistrationCellX = 99\n Xdimension = 99\n RegionInfo End\n"
    " RasterInfo End\nDatasetHeader End\n";

std::string with(std::string text, const std::string& part, const std::string& instead) {
  text.replace(text.find(part), part.size(), instead);
  return text;
}

TEST_F(TextHeader, ermapper_registration_types_names_and_regions) {
  ASSERT_EQ(status_of("a.ers", ers + std::string(200, ' ')), 0);
  EXPECT_EQ(grid.ints.element_code, -2);
  EXPECT_EQ(grid.ints.element_kind, 1);
  EXPECT_EQ(grid.ints.data_offset, 16);
  EXPECT_EQ(grid.ints.band_count, 11);
  EXPECT_EQ(grid.reals.dummy_value, -32768.0);
  // The registration point is the centre of the top left cell, and the region's lines count not.
  EXPECT_EQ(grid.reals.x_min, 1000.0);
  EXPECT_EQ(grid.reals.y_max, 2012.0);
  EXPECT_EQ(texts.band_names[0], "WGS84/NUTM33");
  EXPECT_EQ(texts.band_names[8], "Band  9");
  EXPECT_EQ(texts.band_names[10], "Band 11");
  const std::string corner =
      with(with(ers, "RegistrationCellX = 0.5", ""), "RegistrationCellY = 0.5", "");
  ASSERT_EQ(status_of("a.ers", corner), 0);
  EXPECT_EQ(grid.reals.x_min, 1001.0);
  EXPECT_EQ(grid.reals.y_min, 2012.0 - 4.5 * 3.0);
}

TEST_F(TextHeader, ermapper_angles_and_null_values) {
  std::string text = with(ers, "CoordinateType = EN", "CoordinateType = LATLONG");
  text = with(text, "Eastings = 1000", "Longitude = -0:30:0");
  text = with(text, "Northings = 2012", "Latitude = -10:15:36");
  text = with(text, "-32768000", "-1.0E+75");
  ASSERT_EQ(status_of("a.ers", text), 0);
  EXPECT_EQ(grid.reals.x_min, 0.5);
  EXPECT_DOUBLE_EQ(grid.reals.y_max, -10.26);
  EXPECT_EQ(grid.reals.dummy_value, -1.0E32 / 1000.0);
  EXPECT_TRUE(texts.advice.empty());
  ASSERT_EQ(status_of("a.ers", with(ers, "-32768000", "-9999")), 0);
  EXPECT_EQ(texts.advice.size(), 1U);
  EXPECT_EQ(status_of("a.ers", with(ers, "Ydimension = 3", "Ydimension = 0")), -2904);
  std::string few = ers;
  for (const char* item : {"CellType", "Eastings", "NrOfLines"}) {
    few = with(few, item, "-");
  }
  EXPECT_EQ(status_of("a.ers", few), -2005);
  EXPECT_EQ(status_of("a.ers", with(ers, "Eastings = 1000", "Eastings = east")), -2902);
}

const std::string gxf =
    "#TITLE\nPOINTS OF VIEW\n\n#POINTS\n7\n#ROWS\n5\n#PTSEPARATION\n2.0\n#RWSEPARATION\n3.1\n"
    "#MAP_DATUM_TRANSFORM\n\"WGS84 ROT SENSE\",0,0\n#MAP_PROJECTION\nUTM\nROWS,1\n"
    "#UNIT_LENGTH\nm,1\n#DISPLAY\n99\n#XORIGIN\n1000\n#YORIGIN\n2000\n#ROTATION\n12\n"
    "#GTYPE\n0\n#DUMMY\n-99\n#ZMINIMUM\n10\n#ZMAXIMUM\n20\n#TRANSFORM\n0.5 3\n#SENSE\n1\n#GRID\n";

TEST_F(TextHeader, gxf_keywords_of_today_are_passed_over_with_their_values) {
  ASSERT_EQ(status_of("a.gxf", gxf), 0);
  EXPECT_EQ(grid.ints.x_count, 7);
  EXPECT_EQ(grid.ints.y_count, 5);
  EXPECT_EQ(grid.reals.y_cell, 3.1);
  EXPECT_EQ(grid.reals.rotation, 12.0);
  EXPECT_EQ(grid.reals.z_mult, 2.0);
  EXPECT_EQ(grid.reals.z_base, 3.0);
  EXPECT_EQ(grid.reals.z_min, 8.0);
  EXPECT_EQ(grid.reals.z_max, 13.0);
  EXPECT_EQ(grid.reals.z_mid, -99.0);
  EXPECT_EQ(grid.ints.element_kind, 2);
}

TEST_F(TextHeader, gxf_senses_codes_and_failures) {
  for (const std::string sense : {"-1", "2", "-3", "4"}) {
    ASSERT_EQ(status_of("a.gxf", with(gxf, "#SENSE\n1", "#SENSE\n" + sense)), 0);
    const bool swapped = sense == "-1" || sense == "2";
    EXPECT_EQ(grid.ints.x_count, swapped ? 5 : 7) << sense;
    EXPECT_EQ(grid.reals.x_cell, swapped ? 3.1 : 2.0) << sense;
  }
  ASSERT_EQ(status_of("a.gxf", with(gxf, "#GTYPE\n0", "#GTYPE\n3")), 0);
  EXPECT_EQ(grid.ints.element_code, 3);
  EXPECT_EQ(grid.ints.element_kind, 1);
  struct example {
    const char* part;
    const char* instead;
    std::int32_t status;
  };
  const example examples[] = {{"#POINTS\n7", "#POINTS\nmany", -2701},
                              {"#YORIGIN\n2000", "#YORIGIN\n*", -2709},
                              {"0.5 3", "0 3", -2712},
                              {"0.5 3", "0.5", -2712},
                              {"#DUMMY\n-99", "#DUMMY\nnone", -2713},
                              {"#GRID", "#DISPLAY", -2006}};
  for (const example& e : examples) {
    EXPECT_EQ(status_of("a.gxf", with(gxf, e.part, e.instead)), e.status) << e.instead;
  }
}

TEST_F(TextHeader, arcinfo_corners_use_the_cell_size_known_so_far) {
  const std::string rows = "\n1 2 3\n4 5 6\n";
  ASSERT_EQ(status_of("a.asc",
                      "made by hand\nNCOLS 3\nnrows 2\n\ncellsize 4\nxllcorner 10\n"
                      "yllcenter 20\nNODATA_value -1" +
                          rows),
            0);
  EXPECT_EQ(grid.reals.x_min, 12.0);
  EXPECT_EQ(grid.reals.y_min, 20.0);
  EXPECT_EQ(grid.ints.data_offset, 8);
  EXPECT_EQ(grid.ints.element_kind, 1);
  EXPECT_TRUE(texts.advice.empty());
  ASSERT_EQ(status_of("a.asc", "ncols 3\nnrows 2\nxllcorner 10\nyllcorner 20\ncellsize 4" + rows),
            0);
  EXPECT_EQ(grid.reals.x_min, 10.0);
  EXPECT_EQ(texts.advice.size(), 1U);
  EXPECT_EQ(status_of("a.asc", "ncols 3\nnrows 2\ncellsize 4\n"), -2030);
  EXPECT_EQ(status_of("a.asc", "ncols 3\nnrows two\ncellsize 4" + rows), -2902);
  EXPECT_EQ(status_of("a.asc", "ncols 3\nnrows 2" + rows), -2904);
}

TEST_F(TextHeader, the_file_beside_a_float_grid_may_end_with_its_keywords) {
  write_file(folder / "a.flt", std::string(24, '\0'));
  const std::string lines = "ncols 3\nnrows 2\nxllcenter 10\nyllcenter 20\ncellsize 4\n";
  write_file(folder / "a.hdr", lines + "byteorder MSBFIRST\n");
  ASSERT_EQ(GRDRDH((folder / "a.flt").string(), grid, texts), success);
  EXPECT_EQ(grid.ints.element_code, -4);
  EXPECT_EQ(grid.ints.element_kind, 2);
  EXPECT_EQ(grid.ints.data_offset, 0);
  write_file(folder / "a.hdr", lines);
  EXPECT_EQ(GRDRDH((folder / "a.flt").string(), grid, texts), success);
  write_file(folder / "a.hdr", "ncols 3\nnrows 2\n");
  EXPECT_EQ(GRDRDH((folder / "a.flt").string(), grid, texts).code, -2030);
  std::filesystem::remove(folder / "a.hdr");
  EXPECT_EQ(GRDRDH((folder / "a.flt").string(), grid, texts), header_file_missing);
}

TEST_F(TextHeader, images_are_described_from_the_file_beside_them) {
  write_file(folder / "a.bil", std::string(70, '\0'));
  const std::string lines =
      "; a comment\nNROWS 5\nNCOLS 7\nNBANDS 2\nNBITS 16\nULXMAP 100\nULYMAP 50 top\nXDIM 2\n"
      "YDIM 3\nSKIPBYTES 4\n";
  const auto status = [&](const std::string& text) {
    write_file(folder / "a.hdr", text);
    return GRDRDH((folder / "a.bil").string(), grid, texts).code;
  };
  ASSERT_EQ(status(lines), 0);
  EXPECT_EQ(grid.ints.element_code, 16);
  EXPECT_EQ(grid.reals.y_min, 50.0 - 4 * 3.0);
  EXPECT_EQ(grid.reals.x_max, 112.0);
  EXPECT_EQ(status(with(lines, "ULYMAP 50", "-")), 0);
  EXPECT_EQ(grid.reals.y_min, 1.0);
  EXPECT_EQ(status(with(lines, "NROWS 5", "NROWS x")), -2011);
  EXPECT_EQ(status(with(lines, "NROWS 5", "NROWS 0")), -2019);
  EXPECT_EQ(status(with(lines, "YDIM 3", "YDIM 0")), -2020);
  EXPECT_EQ(status(with(lines, "NBANDS 2", "NBANDS 0")), -2021);
  EXPECT_EQ(status(with(lines, "SKIPBYTES 4", "SKIPBYTES -4")), -2022);
}

const std::string zmap =
    "! comment\n@ mag, GRID, 5\n 15, -99, Void, 7, 1\n 5, 7, 1000, 1012, 2000, 2012\n 0, 0, "
    "0\n@\n" +
    std::string(256, '1');

TEST_F(TextHeader, zmap_fields_have_a_status_each) {
  ASSERT_EQ(status_of("a.dat", zmap), 0);
  EXPECT_EQ(texts.band_names, std::vector<std::string>{"Void"});
  EXPECT_EQ(grid.ints.y_count, 5);
  EXPECT_EQ(grid.ints.x_count, 7);
  EXPECT_EQ(grid.reals.x_cell, 2.0);
  EXPECT_EQ(grid.reals.dummy_value, -99.0);
  EXPECT_EQ(grid.ints.data_offset, 6);
  struct example {
    const char* part;
    const char* instead;
    std::int32_t status;
  };
  const example examples[] = {{"! comment", "!\n", -2001},
                              {"mag, GRID", "mag GRID", -2004},
                              {"GRID, 5", "GRID", -2005},
                              {" 15, -99, Void, 7, 1", " ", -2006},
                              {" 15,", ",", -2007},
                              {"-99, Void, 7, 1", "-99", -2008},
                              {"-99, Void, 7, 1", "-99, ", -2009},
                              {" 5, 7, 1000", "5 7 , , ", -2013},
                              {"2012\n", "\n", -2017},
                              {"1012", "999", -2021},
                              {"GRID, 5", "GRID, 0", -2022},
                              {"0\n@\n", "0\nx\n", -2119}};
  for (const example& e : examples) {
    EXPECT_EQ(status_of("a.dat", with(zmap, e.part, e.instead)), e.status) << e.part;
  }
}

TEST_F(TextHeader, grids_of_fixed_columns_turn_edges_into_centres) {
  const std::string first = "$$GRID$$   7   5   0   0   0   0";
  const std::string second = std::string(14, '-') + "   2   1" + std::string(18, '-') +
                             "    1000.0    2015.0          "
                             "    1014.0    2000.0          ";
  const std::string third = "       2.0       3.0           12.5          10.0      50.0";
  const std::string text =
      first + "\n" + second + "\ncomment\n" + third + "\n" + std::string(256, '0');
  ASSERT_EQ(status_of("a.grd", text), 0);
  EXPECT_EQ(grid.reals.x_min, 1001.0);
  EXPECT_EQ(grid.reals.x_max, 1013.0);
  EXPECT_EQ(grid.reals.y_min, 2001.5);
  EXPECT_EQ(grid.reals.rotation, 12.5);
  EXPECT_EQ(grid.ints.data_offset, 4);
  EXPECT_EQ(grid.reals.z_base, 10.0);
  EXPECT_EQ(grid.reals.z_mult, 100.0);
  EXPECT_EQ(status_of("a.grd", with(text, "   2   1", "   4   1")), -2027);
  EXPECT_EQ(status_of("a.grd", with(text, "   2   1", "   2   x")), -2024);
  EXPECT_EQ(status_of("a.grd", with(text, "   7   5", "   a   5")), -2023);
  EXPECT_EQ(status_of("a.grd", with(text, "50.0", "high")), -2026);
}

TEST_F(TextHeader, headers_cut_anywhere_end_in_a_status) {
  const std::pair<const char*, std::string> files[] = {
      {"a.ers", ers},
      {"a.gxf", gxf},
      {"a.dat", zmap},
      {"a.asc", testing::read_file(data_folder + "square.asc")},
      {"a.grd", testing::read_file(data_folder + "oblong_text.grd")}};
  for (const auto& [name, text] : files) {
    for (std::size_t size = 1; size < text.size(); size += 3) {
      const std::int32_t status = status_of(name, text.substr(0, size));
      EXPECT_TRUE(status < 0 || grid.ints.x_count * grid.ints.y_count > 0) << name << size;
    }
  }
}

}  // namespace
}  // namespace velmorankite
