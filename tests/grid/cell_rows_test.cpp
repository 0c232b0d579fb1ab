// SPDX-License-Identifier: MIT
#include "grid/cell_rows.h"

#include <gtest/gtest.h>

#include <vector>

#include "grid/cell_interpolation.h"
#include "platform/io_error.h"
#include "support/failing_system.h"
#include "support/grids.h"
#include "support/temporary_folder.h"

namespace velmorankite {
namespace {

// Passes everything on and counts what is read.
class CountingSystem final : public platform::System {
 public:
  std::int64_t read_at(platform::file_handle handle, std::int64_t offset,
                       std::span<std::byte> bytes) override {
    ++reads;
    cells += bytes.size() / sizeof(float);
    return System::read_at(handle, offset, bytes);
  }

  int reads = 0;
  std::size_t cells = 0;
};

class RowsOnDisk : public ::testing::Test {
 protected:
  void write(std::int32_t x_count, std::int32_t y_count) {
    testing::write_grid(path, {0.0, 0.0, 1.0, 1.0, x_count, y_count}, cell_at);
    grid = testing::describe(path);
  }
  static float cell_at(std::int32_t column, std::int32_t row) {
    return static_cast<float>(100 * row + column);
  }

  testing::TemporaryFolder folder;
  std::filesystem::path path = folder / "a.grd";
  grid_description grid;
  std::vector<float> values = std::vector<float>(4);
};

TEST_F(RowsOnDisk, a_walk_reads_every_row_once_and_only_as_far_as_its_points_reach) {
  struct example {
    double first_row, step;
    int rows, reads;
  };
  const example examples[] = {
      {0.3, 1.0, 59, 60},    // up the grid
      {58.3, -1.0, 59, 60},  // down
      {0.2, 0.25, 20, 7},    // a finer lattice, whose highest row is 4.95
      {2.0, 2.0, 20, 20},    // on the rows, every second of them
  };
  write(500, 60);
  const std::vector<double> on_cells = {240.0, 243.0, 249.0, 250.0};
  const std::vector<double> between = {240.4, 243.4, 249.4, 249.5};
  for (const example& e : examples) {
    CellInterpolator cells(path, grid);
    CountingSystem system;
    const platform::SystemOverride override(system);
    for (int row = 0; row < e.rows; ++row) {
      cells.row(e.step == 2.0 ? on_cells : between, e.first_row + row * e.step, values);
    }
    EXPECT_EQ(system.reads, e.reads) << e.step;
    EXPECT_LE(system.cells, static_cast<std::size_t>(14 * e.reads)) << e.step;
  }
}

TEST_F(RowsOnDisk, points_far_apart_do_not_read_whole_rows) {
  write(20000, 8);
  CellInterpolator cells(path, grid);
  CountingSystem system;
  const platform::SystemOverride override(system);
  cells.points(std::vector<double>{10.5, 10.7, 15000.5, 15001.5},
               std::vector<double>{3.5, 3.6, 3.7, 3.8}, values);
  EXPECT_EQ(system.reads, 8);  // four rows at two places
  EXPECT_LE(system.cells, 8U * 256U);
}

TEST_F(RowsOnDisk, a_row_whose_reading_failed_is_read_again) {
  write(6, 8);
  CellRows rows(open_rows(path, grid), 1);
  EXPECT_EQ(*rows.stretch(2, 3, 4, 0), cell_at(3, 2));
  struct example {
    std::int32_t row, first;
  };
  for (const example& e : {example{6, 3}, example{6, 1}, example{2, 1}}) {
    {
      testing::FailingSystem system(testing::system_call::read, 1, EIO);
      const platform::SystemOverride override(system);
      EXPECT_THROW(rows.stretch(e.row, e.first, e.first + 1, 0), platform::IoError);
    }
    EXPECT_EQ(*rows.stretch(e.row, e.first, e.first + 1, 0), cell_at(e.first, e.row));
  }
}

}  // namespace
}  // namespace velmorankite
