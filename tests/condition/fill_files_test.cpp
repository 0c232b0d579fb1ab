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

using platform::BinaryFile;
using platform::IoError;
using platform::open_mode;
using testing::CurrentFolder;
using testing::plain_level;
using testing::TemporaryFolder;

constexpr std::int64_t nothing_in_memory = 0;

// A grid with blanks of all sizes.
plain_level some_level(std::int32_t x_count, std::int32_t y_count) {
  plain_level level{{100.0, 200.0, 2.5, 5.0, x_count, y_count}, {}};
  std::mt19937 random(3);
  for (std::int32_t row = 1; row <= y_count; ++row) {
    for (std::int32_t column = 1; column <= x_count; ++column) {
      const bool blank = random() % 4 == 0 || (column / 6 + row / 4) % 3 == 0;
      level.cells.push_back(blank ? dummy : static_cast<float>(random() % 1000) / 8.0F);
    }
  }
  return level;
}

void write_level(const std::filesystem::path& path, plain_level level, std::int32_t sense = 1) {
  testing::write_grid(
      path, level.lattice, [&](std::int32_t c, std::int32_t r) { return level.at(c, r); }, sense);
}

// Names own the text that a request only refers to.
struct fill_names {
  std::string input;
  std::string output;
};

fill_request request_of(const fill_names& names) {
  fill_request request;
  request.input_name = names.input;
  request.output_name = names.output;
  request.input = testing::describe(names.input);
  request.x_count = request.input.ints.x_count;
  request.y_count = request.input.ints.y_count;
  return request;
}

// The input of 20 x 11 cells on a working lattice of 31 x 24, behind 7 columns and 5 rows.
constexpr std::int32_t column_offset = 7;
constexpr std::int32_t row_offset = 5;

plain_level with_margin(plain_level inner) {
  plain_level outer{{100.0 - 7 * 2.5, 200.0 - 5 * 5.0, 2.5, 5.0, 31, 24},
                    std::vector<float>(std::size_t{31} * 24, dummy)};
  for (std::int32_t row = 1; row <= inner.lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= inner.lattice.x_count; ++column) {
      outer.at(column + column_offset, row + row_offset) = inner.at(column, row);
    }
  }
  return outer;
}

fill_request margin_request(const fill_names& names) {
  fill_request request = request_of(names);
  request.x_count = 31;
  request.y_count = 24;
  request.column_offset = column_offset;
  request.row_offset = row_offset;
  return request;
}

// Two cells between the nodes of level 1, which is then built anew.
plain_level between_nodes() {
  plain_level level{{0.0, 0.0, 1.0, 1.0, 20, 11}, std::vector<float>(std::size_t{220}, dummy)};
  level.at(4, 6) = 2.5F;
  level.at(9, 6) = 4.0F;
  return level;
}

TEST(FillFiles, sense_storage_and_offsets_do_not_change_a_bit) {
  struct example {
    plain_level level;
    bool has_margin;
  };
  for (const example& e : {example{some_level(37, 26), false}, example{some_level(20, 11), true},
                           example{between_nodes(), false}}) {
    plain_level expected = e.has_margin ? with_margin(e.level) : e.level;
    const std::int64_t expected_count = testing::plain_fill(expected);
    // Level 1 of the first has 19 x 14 = 266 nodes.
    for (const std::int64_t most_cells : {while_memory_lasts, std::int64_t{266}, std::int64_t{265},
                                          std::int64_t{50}, nothing_in_memory}) {
      for (const std::int32_t sense : {1, -2}) {
        const TemporaryFolder folder;
        const CurrentFolder here(folder.path());
        write_level("a.grd", e.level, sense);
        const fill_names names{"a.grd  ", "b.grd  "};
        fill_request request = e.has_margin ? margin_request(names) : request_of(names);
        request.minimum = -2.5F;
        request.maximum = 8.25F;
        std::int64_t count = 0;
        ASSERT_EQ(GRDMIPMAP(request, count, most_cells), success);
        EXPECT_EQ(count, expected_count);
        EXPECT_EQ(testing::first_difference(expected.cells, testing::read_grid("b.grd")), "")
            << "sense " << sense << ", " << most_cells << " cells";
        const grid_description output = testing::describe("b.grd");
        EXPECT_EQ(output.ints.storage_sense, sense);
        EXPECT_EQ(lattice_of(output), expected.lattice);
        EXPECT_EQ(output.reals.z_min, -2.5);
        EXPECT_EQ(output.reals.z_max, 8.25);
        EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "b.grd"}));
      }
    }
  }
}

TEST(FillFiles, array_takes_the_place_of_the_input_cells_and_is_filled) {
  plain_level level = some_level(20, 11);
  plain_level expected = with_margin(level);
  const std::int64_t expected_count = testing::plain_fill(expected);
  std::vector<float> cells = with_margin(level).cells;
  cells.front() = 77.0F;  // outside the input: no data
  const TemporaryFolder folder;
  const CurrentFolder here(folder.path());
  std::ranges::fill(level.cells, 5.0F);  // what the file holds is of no account
  write_level("a.grd", level, -2);
  const fill_names names{"a.grd", "b.grd"};
  fill_request request = margin_request(names);
  request.cells = cells;
  std::int64_t count = 0;
  ASSERT_EQ(GRDMIPMAP(request, count), success);
  EXPECT_EQ(count, expected_count);
  EXPECT_EQ(testing::first_difference(expected.cells, cells), "");
  EXPECT_EQ(testing::first_difference(expected.cells, testing::read_grid("b.grd")), "");
}

TEST(FillFiles, filling_in_place_changes_the_blank_cells_alone) {
  const plain_level level = some_level(20, 11);
  plain_level expected = with_margin(level);
  (void)testing::plain_fill(expected);
  std::vector<float> wanted;
  for (std::int32_t row = 1; row <= 11; ++row) {
    for (std::int32_t column = 1; column <= 20; ++column) {
      wanted.push_back(expected.at(column + column_offset, row + row_offset));
    }
  }
  for (const std::int64_t most_cells : {while_memory_lasts, nothing_in_memory}) {
    const TemporaryFolder folder;
    const CurrentFolder here(folder.path());
    write_level("a.grd", level, -2);
    std::string bytes = testing::read_file("a.grd");
    bytes[300] = 'u';  // user area of the header
    testing::write_file("a.grd", bytes + "behind the cells");
    const auto permissions =
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    std::filesystem::permissions("a.grd", permissions);
    const fill_names names{"a.grd", "   "};
    std::int64_t count = 0;
    ASSERT_EQ(GRDMIPMAP(margin_request(names), count, most_cells), success);
    EXPECT_EQ(testing::first_difference(wanted, testing::read_grid("a.grd")), "");
    const std::string after = testing::read_file("a.grd");
    EXPECT_EQ(after.substr(0, 512), bytes.substr(0, 512));
    EXPECT_EQ(after.substr(512 + 880), "behind the cells");
    EXPECT_EQ(std::filesystem::status("a.grd").permissions(), permissions);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.grd"});
  }
}

TEST(FillFiles, working_lattice_that_cannot_be_is_refused_before_any_file_is_opened) {
  struct example {
    std::int32_t x_count, y_count, column_offset, row_offset;
  };
  for (const example& e :
       {example{3, 9, 0, 0}, example{9, 3, 0, 0}, example{20, 10, 0, 0}, example{20, 11, 1, 0},
        example{30, 20, -1, 0}, example{30, 20, 0, 2147483647}}) {
    fill_request request;
    request.input_name = "missing.grd";
    request.output_name = "b.grd";
    request.input.ints.x_count = 20;
    request.input.ints.y_count = 11;
    request.x_count = e.x_count;
    request.y_count = e.y_count;
    request.column_offset = e.column_offset;
    request.row_offset = e.row_offset;
    std::int64_t count = 4;
    EXPECT_EQ(GRDMIPMAP(request, count), fill_impossible) << e.x_count << " x " << e.y_count;
    EXPECT_EQ(count, 0);
  }
}

TEST(FillFiles, failure_of_any_file_operation_leaves_inputs_and_outputs_as_they_were) {
  const plain_level level = some_level(12, 9);
  using testing::system_call;
  for (const system_call call :
       {system_call::open, system_call::read, system_call::write, system_call::rename}) {
    for (const char* const output : {"b.grd", ""}) {
      for (const std::int64_t most_cells : {while_memory_lasts, nothing_in_memory}) {
        const TemporaryFolder folder;
        const CurrentFolder here(folder.path());
        write_level("a.grd", level);
        testing::write_file("b.grd", "an older result");
        const std::string before = testing::read_file("a.grd");
        const fill_names names{"a.grd", output};
        const fill_request request = request_of(names);
        const int failures = testing::fail_each_call(
            call, ENOSPC,
            [&] {
              std::int64_t count = 0;
              (void)GRDMIPMAP(request, count, most_cells);
            },
            [&](int nth) {
              EXPECT_EQ(testing::read_file("a.grd"), before) << nth;
              EXPECT_EQ(testing::read_file("b.grd"), "an older result") << nth;
              EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "b.grd"})) << nth;
            });
        EXPECT_GT(failures, 0) << static_cast<int>(call);
      }
    }
  }
}

TEST(FillFiles, level_file_of_another_run_stops_the_fill_and_stays) {
  const TemporaryFolder folder;
  const CurrentFolder here(folder.path());
  write_level("a.grd", some_level(37, 26));
  testing::write_file("mmap_level_002.grd", "nodes of another run");
  BinaryFile other("mmap_level_002.grd", open_mode::read_write);
  other.lock();
  const fill_names names{"a.grd", "b.grd"};
  std::int64_t count = 0;
  try {
    (void)GRDMIPMAP(request_of(names), count, nothing_in_memory);
    ADD_FAILURE() << "the fill went on";
  } catch (const IoError& error) {
    EXPECT_NE(std::string(error.what()).find("mmap_level_002.grd"), std::string::npos);
    EXPECT_NE(std::string(error.what()).find("in use by another run"), std::string::npos);
  }
  EXPECT_EQ(testing::read_file("mmap_level_002.grd"), "nodes of another run");
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "mmap_level_002.grd"}));

  // What a run that was killed left behind is not locked: it is used and cleared away.
  other.close();
  EXPECT_EQ(GRDMIPMAP(request_of(names), count, nothing_in_memory), success);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.grd", "b.grd"}));
}

TEST(FillFiles, input_that_would_be_lost_or_has_shrunk_is_refused) {
  const TemporaryFolder folder;
  const CurrentFolder here(folder.path());
  write_level("mmap_level_001.grd", some_level(37, 26));
  const std::string before = testing::read_file("mmap_level_001.grd");
  const fill_names names{(folder / "mmap_level_001.grd").string(), "b.grd"};
  const fill_request request = request_of(names);
  std::int64_t count = 0;
  EXPECT_THROW((void)GRDMIPMAP(request, count, nothing_in_memory), IoError);
  EXPECT_EQ(testing::read_file("mmap_level_001.grd"), before);
  EXPECT_EQ(GRDMIPMAP(request, count), success);
  std::filesystem::resize_file(names.input, 3000);
  std::filesystem::remove("b.grd");
  EXPECT_THROW((void)GRDMIPMAP(request, count), IoError);
  EXPECT_EQ(folder.names(), std::vector<std::string>{"mmap_level_001.grd"});
}

}  // namespace
}  // namespace velmorankite
