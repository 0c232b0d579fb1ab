// SPDX-License-Identifier: MIT
#include "condition/padded_grid.h"

#include <algorithm>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "condition/detrend.h"
#include "condition/edge_taper.h"
#include "condition/multi_level_fill.h"
#include "condition/opened_grid.h"
#include "formats/describe_grid.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/row_blocks.h"
#include "platform/keep_apart.h"
#include "platform/large_array.h"
#include "platform/scratch_file.h"
#include "platform/vector_clones.h"

namespace velmorankite {
namespace {

// The input, and how it lies in the padded grid.
struct pad_job {
  const pad_request& request;
  RowFile input;
  grid_description grid;
  Lattice padded;  // lattice of the padded grid

  [[nodiscard]] platform::named_file file() const {
    return {input.file().path(), "the grid that is padded"};
  }
  [[nodiscard]] const RowLayout& from() const noexcept { return input.layout(); }
  [[nodiscard]] bool takes_plane() const noexcept {
    return request.detrend_mode < detrend_keeps_plane;
  }
  [[nodiscard]] float level() const noexcept { return takes_plane() ? 0.0F : request.average; }
};

// Whether the input with its margins lies within the padded grid.
bool pads_enclose(const pad_request& request, const grid_description& grid) {
  return request.column_pad >= 0 && request.row_pad >= 0 &&
         std::int64_t{request.column_pad} + grid.ints.x_count <= request.x_count &&
         std::int64_t{request.row_pad} + grid.ints.y_count <= request.y_count;
}

// Takes the plane from the valid cells of a row, the first of which lies at X 0, and makes
// dummies of the others.
VELMORANKITE_VECTOR_CLONES void take_plane(float* cells, std::size_t count, const plane& trend,
                                           double x_cell, double y) {
  const auto a = static_cast<double>(trend.a);
  const auto b = static_cast<double>(trend.b);
  const double rise = y * static_cast<double>(trend.c);
  for (std::size_t i = 0; i < count; ++i) {
    const double x = static_cast<double>(static_cast<std::int32_t>(i)) * x_cell;
    const auto level = static_cast<float>(static_cast<double>(cells[i]) - a - rise - x * b);
    cells[i] = is_valid(cells[i]) ? level : dummy;
  }
}

// Reads input row `row` and gives its cells without the plane, blanks as dummies.
void read_levelled_row(const pad_job& job, std::int32_t row, std::span<float> cells) {
  job.input.read(row, cells);
  if (job.takes_plane()) {
    const double y =
        plane_row(job.from().storage_sense, job.from().y_count, row) * job.grid.reals.y_cell;
    take_plane(cells.data(), cells.size(), job.request.trend, job.grid.reals.x_cell, y);
  } else {
    std::ranges::replace_if(
        cells, [](float cell) { return !is_valid(cell); }, dummy);
  }
}

// The padded row before the fill: dummies but for the data of the input row in its middle.
void place_row(const pad_job& job, std::int32_t row, std::span<float> cells) {
  const std::int32_t input_row = row - job.request.row_pad;
  if (input_row < 1 || input_row > job.from().y_count) {
    std::ranges::fill(cells, dummy);
    return;
  }
  const auto left = static_cast<std::size_t>(job.request.column_pad);
  const auto count = static_cast<std::size_t>(job.from().x_count);
  std::ranges::fill(cells.first(left), dummy);
  read_levelled_row(job, input_row, cells.subspan(left, count));
  std::ranges::fill(cells.subspan(left + count), dummy);
}

standard_header header_of(const pad_job& job) {
  standard_header header = float_grid_header(job.padded, job.from().storage_sense);
  header.process_flag = job.request.detrend_mode;
  header.stat_min = job.request.trend.b;
  header.stat_max = job.request.trend.c;
  header.stat_median = job.request.trend.a;
  header.stat_mean = job.request.average;
  return header;
}

// Tapers the rows and finds their range, in ascending order.
class RowFinisher {
 public:
  explicit RowFinisher(const pad_job& job) : job_(job) {
    if (job.request.taper) {
      columns_ = taper_factors(job.request.column_pad, job.request.taper_width);
      rows_ = taper_factors(job.request.row_pad, job.request.taper_width);
    }
  }

  void finish(std::int32_t row, std::span<float> cells, value_range& range) const {
    if (job_.request.taper) {
      taper_row(cells, row, job_.padded.y_count, columns_, rows_, job_.level());
    }
    if (row == 1) {
      range = {cells.front(), cells.front()};
    }
    range.widen(cells);
  }

 private:
  const pad_job& job_;
  std::vector<float> columns_;
  std::vector<float> rows_;
};

std::span<float> row_of(std::span<float> cells, const pad_job& job, std::int32_t row) {
  const auto width = static_cast<std::size_t>(job.padded.x_count);
  return cells.subspan(width * static_cast<std::size_t>(row - 1), width);
}

void write_padded_header(const pad_job& job, RowFile& padded) {
  OUTPUT_GEOSOFT_HEADER(padded.file(), header_of(job));
}

Status pad_whole(const pad_job& job, std::span<float> cells, RowFile& padded, value_range& range) {
  for (std::int32_t row = 1; row <= job.padded.y_count; ++row) {
    place_row(job, row, row_of(cells, job, row));
  }
  std::int64_t filled_count = 0;
  if (const Status status = fill_levels(cells, job.padded, filled_count); status.failed()) {
    return status;
  }
  write_padded_header(job, padded);
  const RowFinisher finisher(job);
  RowBlockWriter output(padded);
  for (std::int32_t row = 1; row <= job.padded.y_count; ++row) {
    const std::span<float> finished = row_of(cells, job, row);
    finisher.finish(row, finished, range);
    std::ranges::copy(finished, output.next_row().begin());
  }
  output.finish();
  return success;
}

// Fills the padded file in place, level by level through files.
Status fill_file(const std::filesystem::path& padded, const pad_job& job) {
  fill_request fill;
  fill.others = {job.file()};
  grid_texts texts;
  const std::string name = padded.string();
  if (const Status status = GRDRDH(name, fill.input, texts); status.failed()) {
    return status;
  }
  fill.input_name = name;
  fill.x_count = fill.input.ints.x_count;
  fill.y_count = fill.input.ints.y_count;
  std::int64_t filled_count = 0;
  constexpr std::int64_t nothing_in_memory = 0;
  return GRDMIPMAP(fill, filled_count, nothing_in_memory);
}

Status pad_by_rows(const pad_job& job, RowFile& padded, value_range& range) {
  std::vector<float> cells(static_cast<std::size_t>(job.padded.x_count));
  write_padded_header(job, padded);
  for (std::int32_t row = 1; row <= job.padded.y_count; ++row) {
    place_row(job, row, cells);
    padded.write(row, cells);
  }
  padded.close();
  if (const Status status = fill_file(padded.file().path(), job); status.failed()) {
    return status;
  }
  padded = {platform::BinaryFile(padded.file().path(), platform::open_mode::read_write),
            padded.layout()};
  const RowFinisher finisher(job);
  for (std::int32_t row = 1; row <= job.padded.y_count; ++row) {
    padded.read(row, cells);
    finisher.finish(row, cells, range);
    padded.write(row, cells);
  }
  return success;
}

// The whole padded grid in memory, lent or taken; empty where there is no room for it.
class WholeGrid {
 public:
  WholeGrid(std::span<float> lent, const Lattice& lattice) {
    const auto count = static_cast<std::size_t>(lattice.cell_count());
    if (lent.size() >= count) {
      cells_ = lent.first(count);
      return;
    }
    try {
      taken_ = platform::LargeArray<float>(count);
      cells_ = taken_.span();
    } catch (const std::bad_alloc&) {
      // The grid is then made by rows.
    }
  }

  [[nodiscard]] std::span<float> cells() const { return cells_; }

 private:
  platform::LargeArray<float> taken_;
  std::span<float> cells_;
};

Status make_padded(const pad_job& job, pad_storage storage, RowFile& padded, value_range& range) {
  if (storage == pad_storage::whole) {
    if (const WholeGrid grid(job.request.lent, job.padded); !grid.cells().empty()) {
      return pad_whole(job, grid.cells(), padded, range);
    }
  }
  return pad_by_rows(job, padded, range);
}

}  // namespace

Status GRDPAD(std::string_view input, const std::filesystem::path& padded,
              const pad_request& request, value_range& range, pad_storage storage) {
  std::optional<opened_grid> opened = open_float_grid(input);
  if (!opened) {
    return pad_input_unreadable;
  }
  const grid_description& grid = opened->description;
  pad_job job{request, std::move(opened->rows), grid, {}};
  if (!pads_enclose(request, grid)) {
    return pad_size_impossible;
  }
  platform::keep_apart({job.file()}, {{padded, "the padded grid"}});
  job.padded = around(lattice_of(grid), request.column_pad, request.row_pad, request.x_count,
                      request.y_count);

  platform::ScratchFile guard(padded);
  RowFile file(platform::BinaryFile(padded, platform::open_mode::create),
               {job.from().storage_sense, request.x_count, request.y_count});
  const Status status = make_padded(job, storage, file, range);
  file.close();
  if (!status.failed()) {
    guard.keep();
  }
  return status;
}

}  // namespace velmorankite
