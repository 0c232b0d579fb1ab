// SPDX-License-Identifier: MIT
#include "utilities/resampling.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <vector>

#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/large_array.h"
#include "platform/scratch_file.h"
#include "utilities/plain_grid.h"

namespace velmorankite {
namespace {

// Columns or rows of the output from 0, the last not among them; or of the source from 1, the last
// among them.
struct extent {
  std::int32_t first, last;

  [[nodiscard]] std::int32_t length() const noexcept { return last - first; }
  [[nodiscard]] std::int32_t middle() const noexcept { return first + length() / 2; }
};

struct piece {
  extent columns, rows;
};

// Coordinates between which points lie; a NaN lies nowhere.
struct bounds {
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -std::numeric_limits<double>::infinity();

  void take_in(std::span<const double> coordinates) noexcept {
    for (const double at : coordinates) {
      lowest = at < lowest ? at : lowest;
      highest = at > highest ? at : highest;
    }
  }
};

// The cells of an axis that the points between two coordinates can ask for: two beside them, and
// one for rounding.
extent cells_within(const bounds& points, double origin, double cell, std::int32_t count) noexcept {
  constexpr double beside = 3.0;
  const double first = std::floor((points.lowest - origin) / cell) + 1.0 - beside;
  const double last = std::floor((points.highest - origin) / cell) + 1.0 + beside;
  if (!(first <= count && last >= 1.0 && first <= last)) {
    return {1, 0};
  }
  return {static_cast<std::int32_t>(std::max(first, 1.0)),
          static_cast<std::int32_t>(std::min(last, static_cast<double>(count)))};
}

// Rows of the output that lie together in its file, held until all their pieces are there.
class Stripe {
 public:
  Stripe(const standard_header& header, std::int32_t row_count)
      : header_(header),
        width_(static_cast<std::size_t>(header.elements_per_row)),
        cells_(width_ * static_cast<std::size_t>(row_count)) {}

  // Takes the next rows of the file, from 0. Gives those of the lattice.
  extent begin(std::int32_t first_stored, std::int32_t count) noexcept {
    first_stored_ = first_stored;
    const std::int32_t from_top = header_.row_count - first_stored;
    rows_ = is_bottom_up() ? extent{first_stored, first_stored + count}
                           : extent{from_top - count, from_top};
    return rows_;
  }

  [[nodiscard]] std::span<float> cells(std::int32_t row, const extent& columns) noexcept {
    const auto stored =
        static_cast<std::size_t>(is_bottom_up() ? row - rows_.first : rows_.last - 1 - row);
    return cells_.span().subspan(stored * width_ + static_cast<std::size_t>(columns.first),
                                 static_cast<std::size_t>(columns.length()));
  }

  void write(platform::BinaryFile& file) {
    const std::span<const float> cells =
        cells_.span().first(static_cast<std::size_t>(rows_.length()) * width_);
    const std::int64_t ahead = std::int64_t{first_stored_} * header_.elements_per_row;
    const std::int64_t position = standard_header_bytes + 1 + ahead * header_.element_size;
    if (header_.element_size == 4) {
      file.write_values(position, cells);
      return;
    }
    integers_.resize(cells.size());
    std::ranges::transform(cells, integers_.begin(), [](float value) {
      constexpr float lowest = dummy_int16;
      constexpr float highest = 32766.0F;
      return static_cast<std::int16_t>(std::clamp(value, lowest, highest));
    });
    file.write_values(position, std::span<const std::int16_t>(integers_));
  }

 private:
  [[nodiscard]] bool is_bottom_up() const noexcept {
    return header_.storage_sense == sense_bottom_up;
  }

  const standard_header& header_;
  std::size_t width_;
  platform::LargeArray<float> cells_;
  std::vector<std::int16_t> integers_;
  std::int32_t first_stored_ = 0;
  extent rows_{0, 0};
};

// Fills pieces of a stripe.
class PieceFiller {
 public:
  PieceFiller(const source_grid& source, const resampling& work, const piece_limits& limits)
      : work_(work),
        limits_(limits),
        reader_(source, work.mode),
        x_(static_cast<std::size_t>(limits.side)),
        y_(x_.size()) {}

  // A piece under which there is too much of the source is halved.
  void fill(const piece& wanted, Stripe& stripe) {
    const piece under = source_under(wanted);
    const std::int64_t width = std::int64_t{under.columns.length()} + 1;
    const std::int64_t height = std::int64_t{under.rows.length()} + 1;
    const extent& columns = wanted.columns;
    const extent& rows = wanted.rows;
    if (width > limits_.cells / std::max<std::int64_t>(1, height) &&
        std::max(columns.length(), rows.length()) > 1) {
      const bool across = columns.length() >= rows.length();
      const extent left = {columns.first, across ? columns.middle() : columns.last};
      const extent lower = {rows.first, across ? rows.last : rows.middle()};
      fill({left, lower}, stripe);
      fill(
          across ? piece{{left.last, columns.last}, rows} : piece{columns, {lower.last, rows.last}},
          stripe);
      return;
    }
    const bool any = width > 0 && height > 0;
    const CellWindow cells = any ? reader_.read(under.columns.first, under.columns.last,
                                                under.rows.first, under.rows.last)
                                 : CellWindow();
    for (std::int32_t row = rows.first; row < rows.last; ++row) {
      const std::span<float> values = stripe.cells(row, columns);
      if (!any) {
        std::ranges::fill(values, dummy);
        continue;
      }
      place(columns, row);
      work_.values(cells, x(columns), y(columns), values);
    }
  }

 private:
  [[nodiscard]] std::span<double> x(const extent& columns) noexcept {
    return std::span(x_).first(static_cast<std::size_t>(columns.length()));
  }
  [[nodiscard]] std::span<double> y(const extent& columns) noexcept {
    return std::span(y_).first(static_cast<std::size_t>(columns.length()));
  }

  void place(const extent& columns, std::int32_t row) {
    work_.place(columns.first, row, x(columns), y(columns));
  }

  piece source_under(const piece& wanted) {
    bounds x_bounds;
    bounds y_bounds;
    for (const std::int32_t row : {wanted.rows.first, wanted.rows.last - 1}) {
      place(wanted.columns, row);
      x_bounds.take_in(x(wanted.columns));
      y_bounds.take_in(y(wanted.columns));
    }
    return {cells_within(x_bounds, work_.in.x_min, work_.in.x_cell, work_.in.x_count),
            cells_within(y_bounds, work_.in.y_min, work_.in.y_cell, work_.in.y_count)};
  }

  const resampling& work_;
  piece_limits limits_;
  WindowReader reader_;
  std::vector<double> x_;
  std::vector<double> y_;
};

}  // namespace

bool is_sound_result(const standard_header& header) noexcept {
  return header.elements_per_row >= 1 && header.elements_per_row <= longest_row &&
         header.row_count >= 1 && std::isfinite(header.x_origin) &&
         std::isfinite(header.y_origin) && std::isfinite(header.element_spacing) &&
         header.element_spacing > 0.0 && std::isfinite(header.row_spacing) &&
         header.row_spacing > 0.0;
}

void resample(const source_grid& source, const resampling& work, std::string_view output,
              const piece_limits& limits) {
  const standard_header& header = work.header;
  platform::StagedFile staged(result_path(source.file.path(), output));
  OUTPUT_GEOSOFT_HEADER(staged.file(), header);

  const std::int64_t most = std::max<std::int64_t>(1, limits.held_cells / header.elements_per_row);
  const auto stripe_rows =
      static_cast<std::int32_t>(std::min<std::int64_t>({most, limits.side, header.row_count}));
  Stripe stripe(header, stripe_rows);
  PieceFiller filler(source, work, limits);
  for (std::int64_t done = 0; done < header.row_count; done += stripe_rows) {
    const auto first_row = static_cast<std::int32_t>(done);
    const extent rows =
        stripe.begin(first_row, std::min(stripe_rows, header.row_count - first_row));
    for (std::int32_t first = 0; first < header.elements_per_row; first += limits.side) {
      const std::int32_t columns = std::min(limits.side, header.elements_per_row - first);
      filler.fill({{first, first + columns}, rows}, stripe);
    }
    stripe.write(staged.file());
  }
  staged.commit();
}

}  // namespace velmorankite
