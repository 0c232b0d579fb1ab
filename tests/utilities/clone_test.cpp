// SPDX-License-Identifier: MIT
#include "utilities/clone.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>
#include <vector>

#include "formats/describe_grid.h"
#include "grid/grid_rows.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::read_file;

constexpr Lattice lattice{100.5, -20.25, 25.0, 12.5, 3, 5};
const standard_header known_statistics = [] {
  standard_header header = float_grid_header(lattice, -2);
  header.z_base = 1.5;
  header.process_flag = 9;
  header.stat_min = 1.0F;
  header.stat_max = 15.0F;
  header.stat_median = 8.0F;
  header.stat_mean = 7.0F;
  return header;
}();

// A grid whose cells are of type T and count up in the order in which they are stored.
template <typename T>
void write_cells(const std::filesystem::path& path, const standard_header& header) {
  BinaryFile file(path, open_mode::create);
  OUTPUT_GEOSOFT_HEADER(file, header);
  for (int i = 0; i < lattice.cell_count(); ++i) {
    file.write_value(513 + i * static_cast<std::int64_t>(sizeof(T)), static_cast<T>(i + 1));
  }
}

template <typename T>
std::vector<T> stored_cells(const std::filesystem::path& path) {
  const BinaryFile file(path, open_mode::read);
  std::vector<T> cells(static_cast<std::size_t>(file.size() - 512) / sizeof(T));
  file.read_values(513, std::span(cells));
  return cells;
}

standard_header header_of(const std::filesystem::path& path) {
  standard_header header;
  EXPECT_EQ(READ_GEOSOFT_HEADER(BinaryFile(path, open_mode::read), header), success);
  return header;
}

class GridClone : public ::testing::Test {
 protected:
  GridClone() { write_cells<float>(from, known_statistics); }

  testing::TemporaryFolder folder;
  std::string from = (folder / "a.grd").string();
  std::string to = (folder / "b.grd").string();
};

TEST_F(GridClone, a_copy_has_the_cells_of_the_source_byte_for_byte) {
  const std::string source = read_file(from);
  ASSERT_EQ(GEOCLONE(from + "  ", to + "  ", 0), success);
  EXPECT_EQ(read_file(to).substr(512), source.substr(512));
  EXPECT_EQ(read_file(from), source);

  const standard_header header = header_of(to);
  EXPECT_EQ(header.storage_sense, -2);
  EXPECT_EQ(lattice_of(testing::describe(to)), lattice);
  EXPECT_EQ(header.z_base, 1.5);
  EXPECT_EQ(header.process_flag, 0);
}

TEST_F(GridClone, the_mode_fills_the_cells_and_the_statistics_stay_those_of_the_source) {
  standard_header source = known_statistics;
  source.z_base = 0.0;
  write_cells<float>(from, source);
  struct example {
    std::int32_t mode;
    float cell;
  };
  for (const example e : {example{1, 0.0F}, {-1, dummy}, {2, dummy}, {-7, dummy}}) {
    ASSERT_EQ(GEOCLONE(from, to, e.mode), success);
    EXPECT_EQ(stored_cells<float>(to), std::vector<float>(15, e.cell));
    const standard_header header = header_of(to);
    EXPECT_EQ(header.stat_min, 1.0F);
    EXPECT_EQ(header.stat_max, 15.0F);
    EXPECT_EQ(header.stat_median, 8.0F);
    EXPECT_EQ(header.stat_mean, 8.0F);  // the median stands for both
  }
}

TEST_F(GridClone, integer_cells_are_cloned_as_16_bit_integers) {
  standard_header source = float_grid_header(lattice);
  source.element_size = 2;
  source.sign_flag = kind_signed;
  write_cells<std::int16_t>(from, source);
  ASSERT_EQ(GEOCLONE(from, to, 0), success);
  EXPECT_EQ(read_file(to), read_file(from));  // unknown statistics stay unknown
  ASSERT_EQ(GEOCLONE(from, to, -1), success);
  EXPECT_EQ(stored_cells<std::int16_t>(to), std::vector<std::int16_t>(15, -32767));
}

TEST_F(GridClone, a_target_of_one_character_is_called_outfile_grd) {
  const testing::CurrentFolder current(folder.path());
  ASSERT_EQ(GEOCLONE("a.grd", "b   ", 1), success);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "outfile.grd"}));
}

TEST_F(GridClone, any_number_of_rows_at_once_gives_the_same_cells) {
  const BinaryFile source(from, open_mode::read);
  const grid_ints layout = testing::describe(from).ints;
  for (const std::int32_t rows : {1, 2, 4, 5, 6, std::numeric_limits<std::int32_t>::max()}) {
    BinaryFile target(to, open_mode::create);
    clone_cells(source, target, layout, clone_copy, rows);
    EXPECT_EQ(stored_cells<float>(to), stored_cells<float>(from)) << rows;
  }
}

TEST_F(GridClone, senses_that_the_header_cannot_tell_are_blank_canvases_but_no_copies) {
  BinaryFile(from, open_mode::read_write).write_value<std::int32_t>(17, -1);
  EXPECT_THROW((void)GEOCLONE(from, to, clone_copy), platform::IoError);
  ASSERT_EQ(GEOCLONE(from, to, clone_zeros), success);
  const standard_header header = header_of(to);
  EXPECT_EQ(header.storage_sense, -2);
  EXPECT_EQ(header.elements_per_row, 5);  // the stored lines of the source are columns
  EXPECT_EQ(header.row_count, 3);
}

TEST_F(GridClone, a_source_that_is_no_whole_plain_grid_is_refused_before_a_target_exists) {
  EXPECT_EQ(GEOCLONE((folder / "missing.grd").string(), to, 0), file_missing);

  struct damage {
    std::int64_t position;
    std::int32_t value;
  };
  const damage damages[] = {{9, 4},           // a column more than the file holds
                            {9, 0},           // no columns
                            {13, -5},         // rows below 0
                            {9, 0x7FFFFFFF},  // counts for more memory than there is
                            {1, 1028}};       // the mark of a compressed grid
  for (const damage& d : damages) {
    write_cells<float>(from, known_statistics);
    BinaryFile(from, open_mode::read_write).write_value(d.position, d.value);
    for (const std::int32_t mode : {clone_copy, clone_dummies}) {
      try {
        EXPECT_TRUE(GEOCLONE(from, to, mode).failed()) << d.position;
      } catch (const platform::IoError&) {
        // As good as a status.
      }
      EXPECT_EQ(folder.names(), std::vector<std::string>{"a.grd"}) << d.position;
    }
  }
}

TEST_F(GridClone, a_failing_file_leaves_the_source_alone) {
  const std::string source = read_file(from);
  for (const testing::system_call call :
       {testing::system_call::open, testing::system_call::read, testing::system_call::write,
        testing::system_call::rename}) {
    const int failures = testing::fail_each_call(
        call, EIO, [&] { (void)GEOCLONE(from, to, 0); },
        [&](int) {
          EXPECT_EQ(folder.names(), std::vector<std::string>{"a.grd"});
          EXPECT_EQ(read_file(from), source);
        });
    EXPECT_GE(failures, 1);
    std::filesystem::remove(to);
  }
}

}  // namespace
}  // namespace velmorankite
