// SPDX-License-Identifier: MIT
#include "utilities/trim.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <limits>
#include <string>
#include <vector>

#include "grid/standard_header.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/temporary_folder.h"
#include "utilities/flip.h"
#include "utilities/limits.h"
#include "utilities/plain_grid.h"
#include "utilities/validity.h"

namespace velmorankite {
namespace {

using platform::BinaryFile;
using platform::open_mode;
using testing::read_file;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float none = dummy;

class WholeGrids : public ::testing::Test {
 protected:
  // `columns` cells a row, in the order in which they are stored.
  template <typename Cell>
  void store(std::int32_t columns, const std::vector<Cell>& cells, std::int32_t sense,
             std::int32_t sign_flag = kind_float) {
    header = float_grid_header(
        {100.0, 50.0, 10.0, 4.0, columns, static_cast<std::int32_t>(cells.size()) / columns},
        sense);
    header.element_size = sizeof(Cell);
    header.sign_flag = sign_flag;
    header.z_base = 1.5;
    header.z_mult = 2.0;
    header.process_flag = 9;
    header.stat_min = -3.0F;
    header.stat_max = 7.0F;
    header.stat_median = 2.0F;
    header.stat_mean = 4.0F;
    BinaryFile file(from, open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, header);
    file.write_values(513, std::span<const Cell>(cells));
  }

  template <typename Cell>
  [[nodiscard]] std::vector<Cell> stored(const std::string& path) const {
    const BinaryFile file(path, open_mode::read);
    std::vector<Cell> cells(static_cast<std::size_t>(file.size() - 512) / sizeof(Cell));
    file.read_values(513, std::span(cells));
    return cells;
  }

  // The bytes of a header as the writer makes them.
  [[nodiscard]] std::string bytes_of(const standard_header& wanted) const {
    BinaryFile file(folder / "wanted", open_mode::create);
    OUTPUT_GEOSOFT_HEADER(file, wanted);
    return read_file(folder / "wanted");
  }

  testing::TemporaryFolder folder;
  std::string from = (folder / "a.grd").string();
  std::string to = (folder / "b.grd").string();
  standard_header header;
};

TEST_F(WholeGrids, limits_and_the_kept_rectangle_are_those_of_the_outermost_data) {
  struct example {
    std::int32_t columns;
    std::vector<float> cells;
    data_limits limits;
    std::vector<float> kept;  // empty: nothing is written
  };
  // -2.0E31 lies below the threshold of a valid cell and above the dummy.
  const example examples[] = {
      {4,
       {none, none, none, none, none, 1, none, none, none, none, 2, none},
       {2, 3, 2, 3},
       {1, none, none, 2}},
      {3, {1, none, none, none, none, 2}, {1, 3, 1, 2}, {1, none, none, none, none, 2}},
      {3, {nan, none, none, none, none, -2.0E31F}, {3, 3, 2, 2}, {-2.0E31F}},
      {3, {none, 5, 6, none, none, none}, {2, 3, 1, 1}, {5, 6}},
      {1, {none}, {1, 1, 1, 1}, {none}},
      {1, {none, nan}, {1, 1, 2, 1}, {}},
      {2, {none, none}, {2, 1, 1, 1}, {}}};
  for (const example& e : examples) {
    for (const std::int32_t sense : {1, -2}) {
      store(e.columns, e.cells, sense);
      data_limits found;
      const Status status = e.kept.empty() ? Status{-1} : success;
      EXPECT_EQ(GEOLIMITS(from, found), status);
      EXPECT_EQ(
          (std::vector{found.first_column, found.last_column, found.first_row, found.last_row}),
          (std::vector{e.limits.first_column, e.limits.last_column, e.limits.first_row,
                       e.limits.last_row}));
      std::filesystem::remove(to);
      ASSERT_EQ(GEOTRIM(from, to), status);
      ASSERT_EQ(std::filesystem::exists(to), !e.kept.empty());
      if (!e.kept.empty()) {
        EXPECT_EQ(stored<float>(to), e.kept);
        header.elements_per_row = found.last_column - found.first_column + 1;
        const std::int32_t below =
            sense == 1 ? found.first_row - 1 : header.row_count - found.last_row;
        header.row_count = found.last_row - found.first_row + 1;
        header.x_origin = 100.0 + 10.0 * (found.first_column - 1);
        header.y_origin = 50.0 + 4.0 * below;
        header.stat_median = header.stat_mean = dummy;
        EXPECT_EQ(read_file(to).substr(0, 512), bytes_of(header));
      }
    }
  }
}

TEST_F(WholeGrids, integers_are_data_above_the_dummy_of_their_size) {
  store<std::int16_t>(3, {-32767, -32768, -32767, -32767, -32766, 4}, 1, kind_signed);
  ASSERT_EQ(GEOTRIM(from + "  ", to + "  "), success);
  EXPECT_EQ(stored<std::int16_t>(to), (std::vector<std::int16_t>{-32766, 4}));
  constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
  store<std::int32_t>(3, {lowest, lowest + 1, lowest + 1, lowest + 1, lowest + 2, 4}, 1, 1);
  ASSERT_EQ(GEOTRIM(from, to), success);
  EXPECT_EQ(stored<std::int32_t>(to), (std::vector<std::int32_t>{lowest + 2, 4}));
}

// 7 rows of 20000 cells are moved in blocks of one row, 70000 of 2 in blocks of thousands.
TEST_F(WholeGrids, grids_of_many_blocks_are_moved_whole) {
  for (const std::int32_t columns : {20000, 2}) {
    std::vector<float> cells(140000, none);
    const std::size_t width = static_cast<std::size_t>(columns);
    for (std::size_t i = width; i < cells.size() - width; ++i) {
      cells[i] = static_cast<float>(i);
    }
    store(columns, cells, -2);
    ASSERT_EQ(GEOTRIM(from, to), success);
    EXPECT_EQ(stored<float>(to),
              std::vector<float>(cells.begin() + columns, cells.end() - columns));

    ASSERT_EQ(GEOFLIP(from, to), success);
    const std::vector<float> turned = stored<float>(to);
    const std::size_t rows = cells.size() / width;
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      wrong += turned[(width - 1 - i % width) * rows + i / width] == cells[i] ? 0U : 1U;
    }
    EXPECT_EQ(wrong, 0U) << columns;

    ASSERT_EQ(GEOVALID(from), success);
    const std::vector<float> reversed = stored<float>(from);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      wrong += reversed[(rows - 1 - i / width) * width + i % width] == cells[i] ? 0U : 1U;
    }
    EXPECT_EQ(wrong, 0U) << columns;
  }
}

TEST_F(WholeGrids, a_grid_from_the_top_is_rewritten_from_the_bottom_once) {
  store<std::int16_t>(2, {1, 2, 3, 4, 5, 6}, -2, kind_signed);
  BinaryFile(from, open_mode::read_write).write_value<char>(525, '+');  // behind the cells
  constexpr auto owner_only =
      std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  std::filesystem::permissions(from, owner_only);
  std::filesystem::create_symlink(from, folder / "link.grd");
  ASSERT_EQ(GEOVALID((folder / "link.grd").string() + "  "), success);
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.grd"));
  EXPECT_EQ(std::filesystem::status(from).permissions(), owner_only);
  EXPECT_EQ(read_file(from).substr(524), "+");
  std::filesystem::resize_file(from, 524);
  EXPECT_EQ(stored<std::int16_t>(from), (std::vector<std::int16_t>{5, 6, 3, 4, 1, 2}));
  header.storage_sense = 1;
  header.stat_median = header.stat_mean = dummy;
  EXPECT_EQ(read_file(from).substr(0, 512), bytes_of(header));

  // A second time nothing is done, also to bytes that the header writer does not know.
  BinaryFile(from, open_mode::read_write).write_value<char>(100, 'x');
  const std::string once = read_file(from);
  ASSERT_EQ(GEOVALID(from), success);
  EXPECT_EQ(read_file(from), once);
}

TEST_F(WholeGrids, a_quarter_turn_takes_each_cell_to_2_y_max_minus_y_and_x) {
  const std::vector<float> cells{1, 2, 3, 4, 5, 6};
  for (const std::int32_t sense : {1, -2}) {
    store(3, cells, sense);
    ASSERT_EQ(GEOFLIP(from, to), success);
    header.elements_per_row = 2;
    header.row_count = 3;
    header.storage_sense = -2;
    header.x_origin = 54.0;  // the upper one of two rows at 50 and 54
    header.y_origin = 100.0;
    header.element_spacing = 4.0;
    header.row_spacing = 10.0;
    EXPECT_EQ(read_file(to).substr(0, 512), bytes_of(header));
    EXPECT_EQ(stored<float>(to), sense == 1 ? (std::vector<float>{6, 3, 5, 2, 4, 1})
                                            : (std::vector<float>{3, 6, 2, 5, 1, 4}));
    ASSERT_EQ(GEOFLIP(to, from), success);
    EXPECT_EQ(stored<float>(from), sense == 1 ? (std::vector<float>{3, 2, 1, 6, 5, 4})
                                              : (std::vector<float>{6, 5, 4, 3, 2, 1}));
  }
}

using Routine = Status (*)(const std::string&, const std::string&);
constexpr Routine trim = [](const std::string& in, const std::string& out) {
  return GEOTRIM(in, out);
};
constexpr Routine flip = [](const std::string& in, const std::string& out) {
  return GEOFLIP(in, out);
};
constexpr Routine valid = [](const std::string& in, const std::string&) { return GEOVALID(in); };
constexpr Routine limits = [](const std::string& in, const std::string&) {
  data_limits found;
  return GEOLIMITS(in, found);
};

TEST_F(WholeGrids, what_cannot_be_moved_is_told_and_left_alone) {
  constexpr std::int32_t io_error = -9001;
  struct damage {
    std::int64_t position;
    std::int32_t value;
    std::int32_t of_trim, of_flip, of_valid, of_limits;
  };
  const damage damages[] = {{1, 1028, -1, -1, -1, 0},  // the mark of a compressed grid
                            {1, 2, -2, -2, -2, 0},     // floats of 2 bytes
                            {5, 1, 0, 0, 0, 0},        // 4-byte integers
                            {17, -1, -3, -3, -3, 0},   // stored lines are columns
                            {9, 4, io_error, io_error, io_error, io_error},
                            {13, -5, -1, -1, -1, io_error},
                            {9, 0x7FFFFFFF, io_error, io_error, io_error, io_error}};
  const auto outcome = [&](Routine routine) {
    try {
      return routine(from, to).code;
    } catch (const platform::IoError&) {
      return io_error;
    }
  };
  for (const damage& d : damages) {
    store<float>(3, {1, 2, 3, 4, 5, 6}, -2);
    BinaryFile(from, open_mode::read_write).write_value(d.position, d.value);
    const std::string before = read_file(from);
    EXPECT_EQ(outcome(limits), d.of_limits) << d.position;
    EXPECT_EQ(outcome(trim), d.of_trim) << d.position;
    EXPECT_EQ(outcome(flip), d.of_flip) << d.position;
    EXPECT_EQ(std::filesystem::exists(to), d.of_trim == 0) << d.position;
    EXPECT_EQ(outcome(valid), d.of_valid) << d.position;
    EXPECT_EQ(read_file(from) == before, d.of_valid != 0) << d.position;
    std::filesystem::remove(to);
  }
  store<std::uint8_t>(3, {1, 2, 3}, -2, kind_unsigned);
  EXPECT_EQ(outcome(trim), plain_cells_unknown.code);
  store<std::int16_t>(3, {1, 2, 3}, -2, kind_signed);
  EXPECT_EQ(outcome(flip), plain_cells_unknown.code);
}

TEST_F(WholeGrids, a_result_is_no_input_and_appears_whole_or_not_at_all) {
  store<float>(3, {1, 2, 3, 4, 5, 6}, -2);
  const std::string before = read_file(from);
  for (const Routine routine : {trim, flip, valid}) {
    for (const testing::system_call call :
         {testing::system_call::open, testing::system_call::read, testing::system_call::write,
          testing::system_call::rename}) {
      EXPECT_GE(testing::fail_each_call(
                    call, EIO, [&] { (void)routine(from, to); },
                    [&](int) {
                      EXPECT_EQ(folder.names(), std::vector<std::string>{"a.grd"});
                      EXPECT_EQ(read_file(from), before);
                    }),
                1);
      std::filesystem::remove(to);
      testing::write_file(from, before);
    }
  }
  const testing::CurrentFolder current(folder.path());
  std::filesystem::create_hard_link("a.grd", "hard.grd");
  for (const Routine routine : {trim, flip}) {
    for (const char* const name : {"./a.grd", "hard.grd"}) {
      EXPECT_THROW((void)routine("a.grd", name), platform::IoError) << name;
    }
    ASSERT_EQ(routine("a.grd", "b   "), success);
    EXPECT_TRUE(std::filesystem::remove("outfile.grd"));
  }
  EXPECT_EQ(read_file(from), before);
}

}  // namespace
}  // namespace velmorankite
