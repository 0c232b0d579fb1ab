// SPDX-License-Identifier: MIT
#include "utilities/point_values.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <filesystem>

#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/padded_text.h"
#include "utilities/point_evaluation.h"

namespace velmorankite {
namespace {

constexpr std::int32_t first_image_format = 4;
constexpr std::int32_t last_image_format = 6;

// The points of a call.
template <typename Coordinate>
struct point_lists {
  std::int32_t count;  // negative: by logarithms
  std::span<const Coordinate> x;
  std::span<const Coordinate> y;

  [[nodiscard]] std::size_t size() const noexcept {
    return static_cast<std::size_t>(std::abs(std::int64_t{count}));
  }
  [[nodiscard]] value_scale scale() const noexcept {
    return count < 0 ? value_scale::logarithmic : value_scale::linear;
  }
  [[nodiscard]] bool are_there(std::size_t value_count) const noexcept {
    return x.size() >= size() && y.size() >= size() && value_count >= size();
  }
};

// Whether an array holds the cells of a layout, whose counts are sound.
template <typename Cell>
bool holds(std::span<const Cell> cells, const CellLayout& layout) noexcept {
  return layout.x_count >= 1 && layout.x_count <= longest_row && layout.y_count >= 1 &&
         cells.size() / static_cast<std::size_t>(layout.x_count) >=
             static_cast<std::size_t>(layout.y_count);
}

// Opens what a call of GRDVAL, GRDVALD or GRDVALI2 speaks of and hands it to `evaluate`.
template <typename Cell, typename Real, typename Evaluate>
Status with_grid(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
                 std::span<const Cell> cells, value_scale scale, const Evaluate& evaluate) {
  using Evaluation = PointEvaluation<Cell, HalfCellAxis<Real>>;
  const std::string_view path = platform::without_padding(name.substr(0, name.find('\0')));
  const grid_ints& ints = grid.ints;
  const CellLayout in_memory = layout_in_memory(grid);
  const bool is_image =
      ints.format_code >= first_image_format && ints.format_code <= last_image_format;
  const bool there = memory_flag != 0
                         ? holds(cells, in_memory)
                         : !path.empty() && ints.out_x_count >= 1 && ints.out_y_count >= 1;
  if (is_image || !there) {
    return point_values_bad_call;
  }
  typename Evaluation::Cells source =
      memory_flag != 0 ? typename Evaluation::Cells(MemoryCells<Cell>(cells, in_memory))
                       : typename Evaluation::Cells(
                             open_cells<Cell>(std::filesystem::path(path), layout_in_file(grid),
                                              ints.data_offset, ints.element_code));
  Evaluation evaluation(std::move(source), out_x_axis<Real>(grid), out_y_axis<Real>(grid), scale);
  evaluate(evaluation);
  return success;
}

template <typename Real>
Status float_values(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
                    std::span<const float> cells, const point_lists<Real>& points,
                    std::span<float> values) {
  if (!points.are_there(values.size())) {
    return point_values_bad_call;
  }
  values = values.first(points.size());
  std::ranges::fill(values, dummy);
  return with_grid<float, Real>(
      memory_flag, name, grid, cells, points.scale(), [&](auto& evaluation) {
        evaluation.points(points.x.first(values.size()), points.y.first(values.size()), values);
      });
}

std::int16_t cut_to_int16(float value) noexcept {
  constexpr float largest = 32767.0F;
  return static_cast<std::int16_t>(std::clamp(value, static_cast<float>(dummy_int16), largest));
}

template <typename Real>
Status values_from_edge(std::span<const float> cells, const grid_description& grid,
                        const point_lists<double>& points, std::span<float> values) {
  if (!points.are_there(values.size())) {
    return point_values_bad_call;
  }
  values = values.first(points.size());
  std::ranges::fill(values, dummy);
  const grid_reals& reals = grid.reals;
  const CellLayout layout = {grid.ints.x_count, grid.ints.y_count};
  if (!holds(cells, layout)) {
    return point_values_bad_call;
  }
  const auto real = [](double value) { return static_cast<Real>(value); };
  PointEvaluation<float, EdgeAxis<Real>> evaluation(
      MemoryCells<float>(cells, layout),
      {{real(reals.x_min), real(reals.x_max), real(reals.x_cell), layout.x_count}},
      {{real(reals.y_min), real(reals.y_max), real(reals.y_cell), layout.y_count}}, points.scale());
  evaluation.points(points.x.first(values.size()), points.y.first(values.size()), values);
  return success;
}

}  // namespace

Status GRDVALD(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
               std::span<const float> cells, std::int32_t point_count, std::span<const double> x,
               std::span<const double> y, std::span<float> values) {
  return float_values<double>(memory_flag, name, grid, cells, {point_count, x, y}, values);
}

Status GRDVAL(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
              std::span<const float> cells, std::int32_t point_count, std::span<const float> x,
              std::span<const float> y, std::span<float> values) {
  return float_values<float>(memory_flag, name, grid, cells, {point_count, x, y}, values);
}

Status GRDVALI2(std::int32_t memory_flag, std::string_view name, const grid_description& grid,
                std::span<const std::int16_t> cells, std::int32_t point_count,
                std::span<const double> x, std::span<const double> y,
                std::span<std::int16_t> values) {
  const point_lists<double> points = {point_count, x, y};
  if (!points.are_there(values.size())) {
    return point_values_bad_call;
  }
  values = values.first(points.size());
  std::ranges::fill(values, dummy_int16);
  return with_grid<std::int16_t, double>(
      memory_flag, name, grid, cells, points.scale(), [&](auto& evaluation) {
        std::array<float, points_at_once> some;
        for (std::size_t done = 0; done < values.size(); done += some.size()) {
          const std::size_t count = std::min(some.size(), values.size() - done);
          evaluation.points(x.subspan(done, count), y.subspan(done, count),
                            std::span(some).first(count));
          std::transform(some.begin(), some.begin() + static_cast<std::ptrdiff_t>(count),
                         values.begin() + static_cast<std::ptrdiff_t>(done), cut_to_int16);
        }
      });
}

Status GEOVAL(std::span<const float> cells, const grid_description& grid, std::int32_t point_count,
              std::span<const double> x, std::span<const double> y, std::span<float> values) {
  return values_from_edge<double>(cells, grid, {point_count, x, y}, values);
}

Status GEOVALS(std::span<const float> cells, const grid_description& grid, std::int32_t point_count,
               std::span<const double> x, std::span<const double> y, std::span<float> values) {
  return values_from_edge<float>(cells, grid, {point_count, x, y}, values);
}

}  // namespace velmorankite
