// The multi-level fill from file to file: both storages of the levels, offsets, in place, failures.
// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "condition/multi_level_fill.h"
#include "condition/plain_fill.h"
#include "grid/dummy.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

using names = std::vector<std::string>;
using platform::IoError;
using testing::first_difference;
using testing::plain_level;
using testing::read_file;
using testing::read_grid;

constexpr std::int64_t nothing_in_memory = 0;

// A grid with blanks of all sizes. Its level 1 has 11 x 6 = 66 nodes.
plain_level some_level() {
  plain_level level{{100.0, 200.0, 2.5, 5.0, 20, 11}, {}};
  std::mt19937 random(3);
  for (std::int32_t i = 0; i < 220; ++i) {
    const bool blank = random() % 4 == 0 || (i % 20 / 6 + i / 80) % 3 == 0;
    level.cells.push_back(blank ? dummy : static_cast<float>(random() % 1000) / 8.0F);
  }
  return level;
}

// Two cells between the nodes of level 1, which is then built anew.
plain_level between_nodes() {
  plain_level level{{0.0, 0.0, 1.0, 1.0, 20, 11}, std::vector<float>(std::size_t{220}, dummy)};
  level.at(4, 6) = 2.5F;
  level.at(9, 6) = 4.0F;
  return level;
}

// The same on a working lattice of 31 x 24, behind 7 columns and 5 rows.
plain_level with_margin(plain_level inner) {
  plain_level outer{{inner.lattice.x(-6), inner.lattice.y(-4), inner.lattice.x_cell,
                     inner.lattice.y_cell, 31, 24},
                    std::vector<float>(std::size_t{31} * 24, dummy)};
  for (std::int32_t row = 1; row <= 11; ++row) {
    std::copy_n(&inner.at(1, row), 20, &outer.at(8, row + 5));
  }
  return outer;
}

class FillFiles : public ::testing::Test {
 protected:
  void write(plain_level level, std::int32_t sense = 1) {
    testing::write_grid(
        input, level.lattice, [&](std::int32_t c, std::int32_t r) { return level.at(c, r); },
        sense);
    request.input_name = input;
    request.output_name = "b.grd  ";
    request.input = testing::describe(input);
    request.x_count = 20;
    request.y_count = 11;
    request.column_offset = request.row_offset = 0;
  }
  void add_margin() {
    request.x_count = 31;
    request.y_count = 24;
    request.column_offset = 7;
    request.row_offset = 5;
  }
  Status fill(std::int64_t most_cells = while_memory_lasts) {
    return GRDMIPMAP(request, count, most_cells);
  }

  testing::TemporaryFolder folder;
  testing::CurrentFolder here{folder.path()};
  std::string input = "a.grd";
  fill_request request;
  std::int64_t count = 4;
};

TEST_F(FillFiles, sense_storage_and_offsets_do_not_change_a_bit) {
  for (const plain_level& level : {some_level(), between_nodes()}) {
    for (const bool has_margin : {false, true}) {
      plain_level expected = has_margin ? with_margin(level) : level;
      const std::int64_t expected_count = testing::plain_fill(expected);
      for (const std::int64_t most_cells : {while_memory_lasts, std::int64_t{66}, std::int64_t{65},
                                            std::int64_t{20}, nothing_in_memory}) {
        for (const std::int32_t sense : {1, -2}) {
          write(level, sense);
          if (has_margin) {
            add_margin();
          }
          request.minimum = -2.5F;
          request.maximum = 8.25F;
          ASSERT_EQ(fill(most_cells), success);
          EXPECT_EQ(count, expected_count);
          EXPECT_EQ(first_difference(expected.cells, read_grid("b.grd")), "")
              << "sense " << sense << ", " << most_cells << " cells";
          const grid_description output = testing::describe("b.grd");
          EXPECT_EQ(output.ints.storage_sense, sense);
          EXPECT_EQ(lattice_of(output), expected.lattice);
          EXPECT_EQ(output.reals.z_min, -2.5);
          EXPECT_EQ(output.reals.z_max, 8.25);
          EXPECT_EQ(folder.names(), (names{"a.grd", "b.grd"}));
        }
      }
    }
  }
}

TEST_F(FillFiles, array_takes_the_place_of_the_input_cells_and_is_filled) {
  plain_level expected = with_margin(some_level());
  std::vector<float> cells = expected.cells;
  const std::int64_t expected_count = testing::plain_fill(expected);
  cells.front() = 77.0F;   // outside the input: no data
  write(between_nodes());  // what the file holds is of no account
  add_margin();
  request.cells = cells;
  ASSERT_EQ(fill(), success);
  EXPECT_EQ(count, expected_count);
  EXPECT_EQ(first_difference(expected.cells, cells), "");
  EXPECT_EQ(first_difference(expected.cells, read_grid("b.grd")), "");
}

TEST_F(FillFiles, filling_in_place_changes_the_blank_cells_alone) {
  namespace fs = std::filesystem;
  constexpr fs::perms permissions = fs::perms::owner_read | fs::perms::owner_write;
  plain_level expected = with_margin(some_level());
  (void)testing::plain_fill(expected);
  std::vector<float> wanted;
  for (std::int32_t row = 6; row <= 16; ++row) {
    wanted.insert(wanted.end(), &expected.at(8, row), &expected.at(28, row));
  }
  for (const std::int64_t most_cells : {while_memory_lasts, nothing_in_memory}) {
    write(some_level(), -2);
    add_margin();
    std::string bytes = read_file(input);
    bytes[300] = 'u';  // user area of the header
    testing::write_file(input, bytes + "behind the cells");
    fs::permissions(input, permissions);
    request.output_name = "   ";
    ASSERT_EQ(fill(most_cells), success);
    EXPECT_EQ(first_difference(wanted, read_grid(input)), "");
    const std::string after = read_file(input);
    EXPECT_EQ(after.substr(0, 512), bytes.substr(0, 512));
    EXPECT_EQ(after.substr(512 + 880), "behind the cells");
    EXPECT_EQ(fs::status(input).permissions(), permissions);
    EXPECT_EQ(folder.names(), names{"a.grd"});
  }
}

TEST_F(FillFiles, working_lattice_that_cannot_be_is_refused_before_any_file_is_opened) {
  struct example {
    std::int32_t x_count, y_count, column_offset, row_offset;
  };
  write(some_level());
  request.input_name = "missing.grd";
  for (const example& e :
       {example{3, 9, 0, 0}, example{9, 3, 0, 0}, example{20, 10, 0, 0}, example{20, 11, 1, 0},
        example{30, 20, -1, 0}, example{30, 20, 0, 2147483647}}) {
    request.x_count = e.x_count;
    request.y_count = e.y_count;
    request.column_offset = e.column_offset;
    request.row_offset = e.row_offset;
    EXPECT_EQ(fill(), fill_impossible) << e.x_count << " x " << e.y_count;
    EXPECT_EQ(count, 0);
  }
}

TEST_F(FillFiles, failure_of_any_file_operation_leaves_inputs_and_outputs_as_they_were) {
  using testing::system_call;
  for (const system_call call :
       {system_call::open, system_call::read, system_call::write, system_call::rename}) {
    for (const char* const output : {"b.grd", ""}) {
      for (const std::int64_t most_cells : {while_memory_lasts, nothing_in_memory}) {
        write(some_level());
        request.output_name = output;
        testing::write_file("b.grd", "an older result");
        const std::string before = read_file(input);
        const int failures = testing::fail_each_call(
            call, ENOSPC, [&] { (void)fill(most_cells); },
            [&](int nth) {
              EXPECT_EQ(read_file(input), before) << nth;
              EXPECT_EQ(read_file("b.grd"), "an older result") << nth;
              EXPECT_EQ(folder.names(), (names{"a.grd", "b.grd"})) << nth;
            });
        EXPECT_GT(failures, 0) << static_cast<int>(call);
      }
    }
  }
}

TEST_F(FillFiles, level_file_of_another_run_stops_the_fill_and_stays) {
  write(some_level());
  testing::write_file("mmap_level_002.grd", "nodes of another run");
  platform::BinaryFile other("mmap_level_002.grd", platform::open_mode::read_write);
  other.lock();
  try {
    (void)fill(nothing_in_memory);
    ADD_FAILURE() << "the fill went on";
  } catch (const IoError& error) {
    EXPECT_EQ(error.path(), "mmap_level_002.grd");
  }
  EXPECT_EQ(read_file("mmap_level_002.grd"), "nodes of another run");
  EXPECT_EQ(folder.names(), (names{"a.grd", "mmap_level_002.grd"}));

  // What a run that was killed left behind is not locked: it is used and cleared away.
  other.close();
  EXPECT_EQ(fill(nothing_in_memory), success);
  EXPECT_EQ(folder.names(), (names{"a.grd", "b.grd"}));
}

TEST_F(FillFiles, input_that_would_be_lost_or_has_shrunk_is_refused) {
  input = "mmap_level_001.grd";
  write(some_level());
  const std::string before = read_file(input);
  EXPECT_THROW((void)fill(nothing_in_memory), IoError);
  EXPECT_EQ(read_file(input), before);
  std::filesystem::resize_file(input, 1000);
  EXPECT_THROW((void)fill(), IoError);
  EXPECT_EQ(folder.names(), names{input});
  // Nor does an output go the way of a level file.
  std::filesystem::remove(input);
  input = "a.grd";
  write(some_level());
  request.output_name = "mmap_level_001.grd";
  EXPECT_THROW((void)fill(nothing_in_memory), IoError);
  EXPECT_EQ(folder.names(), names{"a.grd"});
  EXPECT_EQ(fill(), success);
}

}  // namespace
}  // namespace velmorankite
