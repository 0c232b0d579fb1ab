// SPDX-License-Identifier: MIT
#include "grid/standard_header.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "grid/cell_position.h"
#include "platform/byte_order.h"
#include "platform/io_error.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::TemporaryFolder;

standard_header some_header() {
  standard_header header = float_grid_header({100.5, -20.25, 25.0, 12.5, 7, 3}, sense_top_down);
  header.z_base = 1.5;
  header.z_mult = 2.0;
  header.process_flag = 9;
  header.stat_min = -4.0F;
  header.stat_max = 8.0F;
  header.stat_median = 1.0F;
  header.stat_mean = 1.25F;
  return header;
}

std::string header_bytes_of(const standard_header& header) {
  const TemporaryFolder folder;
  BinaryFile file(folder / "a.grd", open_mode::create);
  OUTPUT_GEOSOFT_HEADER(file, header);
  file.close();
  return testing::read_file(folder / "a.grd");
}

template <typename T>
T at(const std::string& bytes, std::size_t offset) {
  return platform::load<T>(reinterpret_cast<const std::byte*>(bytes.data()) + offset);
}

TEST(StandardHeader, every_field_lies_at_its_byte) {
  const std::string bytes = header_bytes_of(some_header());
  ASSERT_EQ(bytes.size(), 512U);
  EXPECT_EQ(bytes.substr(0, 4), std::string("\4\0\0\0", 4));
  const std::int32_t ints[] = {2, 7, 3, -2};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(at<std::int32_t>(bytes, 4 + 4 * i), ints[i]);
  }
  const double doubles[] = {25.0, 12.5, 100.5, -20.25, 0.0, 1.5, 2.0};
  for (std::size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(at<double>(bytes, 20 + 8 * i), doubles[i]) << 20 + 8 * i;
  }
  EXPECT_EQ(bytes.substr(76, 64), std::string(64, ' '));
  EXPECT_EQ(bytes.substr(140, 20), std::string(20, '\0'));
  const float statistics[] = {-4.0F, 8.0F, 1.0F, 1.25F};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(at<float>(bytes, 160 + 4 * i), statistics[i]);
  }
  EXPECT_EQ(at<double>(bytes, 176), -1.0000000331813535e+32);
  EXPECT_EQ(at<std::int32_t>(bytes, 184), 9);
  EXPECT_EQ(bytes.substr(188), std::string(324, ' '));
  // Element sizes and senses that cannot be written are mended.
  standard_header header = some_header();
  header.element_size = 8;
  header.storage_sense = 2;
  EXPECT_EQ(header_bytes_of(header), bytes);
}

TEST(StandardHeader, what_is_written_reads_back_in_every_kind_of_cells) {
  struct example {
    std::int32_t element_size, sign_flag;
    float given, read;
  };
  const example examples[] = {
      {4, 2, 2.75F, 2.75F}, {4, 2, dummy, dummy}, {4, 1, 2.75F, 3.0F},
      {2, 1, -2.5F, -3.0F}, {2, 1, dummy, dummy}, {1, 0, 200.0F, 200.0F},
      {1, 0, dummy, dummy}, {4, 0, dummy, dummy}, {4, 1, 3.0E38F, 2147483648.0F}};
  for (const example& e : examples) {
    const TemporaryFolder folder;
    BinaryFile file(folder / "a.grd", open_mode::create);
    standard_header header = some_header();
    header.element_size = e.element_size;
    header.sign_flag = e.sign_flag;
    header.stat_min = header.stat_mean = e.given;
    OUTPUT_GEOSOFT_HEADER(file, header);
    standard_header read;
    EXPECT_EQ(READ_GEOSOFT_HEADER(file, read), success);
    EXPECT_EQ(read.stat_min, e.read);
    EXPECT_EQ(read.stat_mean, e.read);
    EXPECT_EQ(read.x_origin, header.x_origin);
    EXPECT_EQ(read.process_flag, 9);
  }
}

TEST(StandardHeader, unsound_fields_fail_the_reader_which_still_gives_them) {
  struct example {
    std::size_t offset;
    std::string bytes;
  };
  const example examples[] = {
      {0, std::string("\10\0", 2)},                  // 8-byte cells
      {0, std::string("\4\4", 2)},                   // compressed
      {8, std::string(4, '\0')},                     // no columns
      {12, std::string(4, '\377')},                  // -1 rows
      {20, std::string(8, '\0')},                    // no spacing
      {28, std::string("\0\0\0\0\0\0\370\377", 8)},  // NaN
  };
  for (const example& e : examples) {
    const TemporaryFolder folder;
    std::string bytes = header_bytes_of(some_header());
    bytes.replace(e.offset, e.bytes.size(), e.bytes);
    testing::write_file(folder / "a.grd", bytes);
    standard_header read;
    EXPECT_EQ(READ_GEOSOFT_HEADER(BinaryFile(folder / "a.grd", open_mode::read), read),
              header_unsound)
        << e.offset;
    EXPECT_EQ(read.process_flag, 9);
  }
  const TemporaryFolder folder;
  testing::write_file(folder / "a.grd", header_bytes_of(some_header()).substr(0, 511));
  standard_header read;
  const BinaryFile file(folder / "a.grd", open_mode::read);
  EXPECT_THROW((void)READ_GEOSOFT_HEADER(file, read), platform::IoError);
}

TEST(CellPosition, rows_count_from_the_lowest_y_in_both_senses) {
  EXPECT_EQ(GRDCELLPOS(1, 512, 4, 5, 3, 1, 1), 513);
  EXPECT_EQ(GRDCELLPOS(1, 512, 4, 5, 3, 3, 2), 512 + 2 * 20 + 4 + 1);
  EXPECT_EQ(GRDCELLPOS(-2, 512, 4, 5, 3, 1, 1), 512 + 2 * 20 + 1);
  EXPECT_EQ(GRDCELLPOS(-2, 512, 4, 5, 3, 3, 5), 512 + 16 + 1);
  EXPECT_EQ(GRDCELLPOS(1, 512, 4, 100000, 100000, 100000, 1), 512 + 99999LL * 400000 + 1);
}

}  // namespace
}  // namespace velmorankite
