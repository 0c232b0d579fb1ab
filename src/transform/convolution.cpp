// SPDX-License-Identifier: MIT
#include "transform/convolution.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

#include "grid/dummy.h"
#include "platform/vector_clones.h"
#include "transform/derived_maps.h"
#include "transform/filter_traits.h"

namespace velmorankite {
namespace {

// Columns that are summed together: all rows of the operator then lie in the innermost cache.
constexpr std::size_t block_columns = 256;

// The rows under an operator that reaches h cells: row k from the centre is at(k), k from -h to h.
class RowWindow {
 public:
  RowWindow(std::size_t h, std::size_t columns) : h_(h), rows_(2 * h + 1) {
    for (window_row& row : rows_) {
      row.cells.resize(columns);
      row.blocked.resize(columns);
    }
  }

  // Takes the next row of the grid in place of the oldest.
  void read_next(const RowFile& grid) {
    window_row& row = rows_[rows_read_ % rows_.size()];
    ++rows_read_;
    grid.read(static_cast<std::int32_t>(rows_read_), row.cells);
    row.any_blocked = !std::ranges::all_of(row.cells, is_valid);
    if (row.any_blocked) mark_blocked(row);
  }

  [[nodiscard]] const float* at(std::ptrdiff_t k) const { return row_at(k).cells.data(); }

  // Makes a dummy of every cell from column h to the h-th last whose operator touches a cell
  // without data.
  void blank(std::span<float> cells) const {
    for (const window_row& row : rows_) {
      if (!row.any_blocked) continue;
      for (std::size_t x = h_; x + h_ < cells.size(); ++x) {
        if (row.blocked[x] != 0) cells[x] = dummy;
      }
    }
  }

 private:
  struct window_row {
    std::vector<float> cells;
    std::vector<std::uint8_t> blocked;  // 1 within h columns of a cell without data
    bool any_blocked = false;
  };

  [[nodiscard]] const window_row& row_at(std::ptrdiff_t k) const {
    const auto centre = static_cast<std::ptrdiff_t>(rows_read_ - 1 - h_);
    return rows_[static_cast<std::size_t>(centre + k) % rows_.size()];
  }

  void mark_blocked(window_row& row) const {
    std::ranges::fill(row.blocked, std::uint8_t{0});
    for (std::size_t x = 0; x < row.cells.size(); ++x) {
      if (is_valid(row.cells[x])) continue;
      const std::size_t first = x - std::min(x, h_);
      const std::size_t last = std::min(row.cells.size() - 1, x + h_);
      // Neighbours without data mark the same columns again, but for the last.
      const bool neighbour = x > 0 && !is_valid(row.cells[x - 1]);
      std::fill(row.blocked.begin() + static_cast<std::ptrdiff_t>(neighbour ? last : first),
                row.blocked.begin() + static_cast<std::ptrdiff_t>(last) + 1, std::uint8_t{1});
    }
  }

  std::size_t h_;
  std::vector<window_row> rows_;
  std::size_t rows_read_ = 0;
};

// Adds one weight times one, two or four cells to a run of sums.
VELMORANKITE_VECTOR_CLONES void add_pair(float* sums, std::size_t count, float weight,
                                         const float* a, const float* b) {
  for (std::size_t x = 0; x < count; ++x) {
    sums[x] += weight * (a[x] + b[x]);
  }
}

VELMORANKITE_VECTOR_CLONES void add_four(float* sums, std::size_t count, float weight,
                                         const float* a, const float* b, const float* c,
                                         const float* d) {
  for (std::size_t x = 0; x < count; ++x) {
    sums[x] += weight * (a[x] + b[x] + c[x] + d[x]);
  }
}

VELMORANKITE_VECTOR_CLONES void add_one(double* sums, std::size_t count, double weight,
                                        const float* cells) {
  for (std::size_t x = 0; x < count; ++x) {
    sums[x] += weight * static_cast<double>(cells[x]);
  }
}

// The operator's sums of `count` cells from column `first`.
void symmetric_sums(const RowWindow& window, std::span<const float> weights, std::size_t w,
                    std::size_t first, std::size_t count, float* sums) {
  const float* const centre = window.at(0) + first;
  for (std::size_t x = 0; x < count; ++x)
    sums[x] = weights[0] * centre[x];
  for (std::size_t b = 1; b < w; ++b) {
    add_pair(sums, count, weights[b], centre + b, centre - b);
  }
  for (std::size_t a = 1; a < w; ++a) {
    const auto lag = static_cast<std::ptrdiff_t>(a);
    add_pair(sums, count, weights[a * w], window.at(lag) + first, window.at(-lag) + first);
  }
  for (std::size_t a = 1; a < w; ++a) {
    const auto lag = static_cast<std::ptrdiff_t>(a);
    const float* const ahead = window.at(lag) + first;
    const float* const behind = window.at(-lag) + first;
    for (std::size_t b = 1; b < w; ++b) {
      add_four(sums, count, weights[a * w + b], ahead + b, ahead - b, behind + b, behind - b);
    }
  }
}

void asymmetric_sums(const RowWindow& window, std::span<const float> weights, std::size_t h,
                     std::size_t first, std::size_t count, double* sums) {
  const std::size_t n = 2 * h + 1;
  std::fill_n(sums, count, 0.0);
  for (std::size_t q = 0; q < n; ++q) {
    // The weight at lag a takes the row a back.
    const auto lag = static_cast<std::ptrdiff_t>(q) - static_cast<std::ptrdiff_t>(h);
    const float* const row = window.at(-lag) + first + h;
    for (std::size_t p = 0; p < n; ++p) {
      add_one(sums, count, static_cast<double>(weights[q * n + p]), row - p);
    }
  }
}

// Horizontal derivatives at a run of cells from column `first`, from their eight neighbours.
void horizontal_derivatives(const RowWindow& window, const filter_parameters& parameters,
                            std::size_t first, std::span<float> gx, std::span<float> gy) {
  const float* t = window.at(-1) + first;
  const float* c = window.at(0) + first;
  const float* s = window.at(1) + first;
  for (std::size_t x = 0; x < gx.size(); ++x, ++t, ++c, ++s) {
    const float along_x = (t[1] - t[-1]) + (c[1] - c[-1]) + (s[1] - s[-1]);
    const float along_y = (s[-1] - t[-1]) + (s[0] - t[0]) + (s[1] - t[1]);
    gx[x] = static_cast<float>(static_cast<double>(along_x) / parameters.CellX / 6.0);
    gy[x] = static_cast<float>(static_cast<double>(along_y) / parameters.CellY / 6.0);
  }
}

// Replaces sums by what the filter makes of them and the horizontal derivatives.
void use_gradient(const RowWindow& window, const filter_parameters& parameters, gradient_use use,
                  std::size_t first, std::span<float> sums) {
  if (use == gradient_use::none) return;
  std::array<float, block_columns> gx;
  std::array<float, block_columns> gy;
  const std::span<float> x = std::span(gx).first(sums.size());
  const std::span<float> y = std::span(gy).first(sums.size());
  horizontal_derivatives(window, parameters, first, x, y);
  if (use == gradient_use::horizontal_length) {
    for (std::size_t i = 0; i < sums.size(); ++i)
      sums[i] = std::sqrt(x[i] * x[i] + y[i] * y[i]);
  } else if (use == gradient_use::whole_length) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
      sums[i] = std::sqrt(sums[i] * sums[i] + x[i] * x[i] + y[i] * y[i]);
    }
  } else {
    combine_row(derived_map_of(parameters), x, y, sums);
  }
}

// Writes `count` rows that hold nothing but `value`.
void write_edge(const convolution_grids& grids, std::int32_t first, std::int32_t count,
                float value) {
  const std::vector<float> cells(static_cast<std::size_t>(grids.output.layout().x_count), value);
  for (std::int32_t row = first; row < first + count; ++row) {
    grids.output.write(row, cells);
  }
}

// Passes an operator that reaches h cells over the grid: make(window, first, cells) makes a run of
// cells from column `first`.
template <typename Make>
void pass_over(const convolution_grids& grids, std::size_t h, float edge, const Make& make) {
  const auto columns = static_cast<std::size_t>(grids.input.layout().x_count);
  const std::int32_t rows = grids.input.layout().y_count;
  const std::size_t shorter = std::min(columns, static_cast<std::size_t>(rows));
  if (shorter < 2 * h + 1) {
    write_edge(grids, 1, rows, edge);
    return;
  }
  RowWindow window(h, columns);
  for (std::size_t k = 0; k < 2 * h; ++k)
    window.read_next(grids.input);
  const auto reach = static_cast<std::int32_t>(h);
  write_edge(grids, 1, reach, edge);
  std::vector<float> cells(columns, edge);
  for (std::int32_t row = 1 + reach; row <= rows - reach; ++row) {
    window.read_next(grids.input);
    for (std::size_t first = h; first < columns - h; first += block_columns) {
      const std::size_t count = std::min(block_columns, columns - h - first);
      make(window, first, std::span(cells).subspan(first, count));
    }
    window.blank(cells);
    grids.output.write(row, cells);
  }
  write_edge(grids, rows - reach + 1, reach, edge);
}

}  // namespace

void WTCONVS(std::span<const float> weights, std::int32_t w, const filter_parameters& parameters,
             const convolution_grids& grids) {
  const auto half = static_cast<std::size_t>(w);
  const gradient_use use = traits_of(parameters.FilterNo).gradient;
  // The neighbours of a cell reach further than an operator of one point.
  const std::size_t reach = std::max<std::size_t>(half - 1, use == gradient_use::none ? 0 : 1);
  pass_over(grids, reach, dummy,
            [&](const RowWindow& window, std::size_t first, std::span<float> cells) {
              symmetric_sums(window, weights, half, first, cells.size(), cells.data());
              use_gradient(window, parameters, use, first, cells);
            });
}

void WTCONVA(std::span<const float> weights, std::int32_t n, const convolution_grids& grids) {
  const auto h = static_cast<std::size_t>((n - 1) / 2);
  pass_over(grids, h, 0.0F,
            [&](const RowWindow& window, std::size_t first, std::span<float> cells) {
              std::array<double, block_columns> sums;
              asymmetric_sums(window, weights, h, first, cells.size(), sums.data());
              for (std::size_t x = 0; x < cells.size(); ++x) {
                cells[x] = static_cast<float>(sums[x]);
              }
            });
}

}  // namespace velmorankite
