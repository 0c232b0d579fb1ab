// SPDX-License-Identifier: MIT
#include "condition/detrend_files.h"

#include <filesystem>
#include <utility>
#include <vector>

#include "condition/opened_grid.h"
#include "grid/dummy.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"

namespace velmorankite {
namespace {

// The staged grid with its header, or nothing where it cannot be written.
std::optional<platform::StagedFile> stage_grid(const std::filesystem::path& path,
                                               const header_writer& write_header) {
  try {
    platform::StagedFile staged(path);
    write_header(staged.file());
    return staged;
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
}

void remove_plane(const line_end_pair& ends, double y, double x_cell, const plane& trend,
                  std::span<float> cells) {
  for (std::int32_t column = ends.first; column != 0 && column <= ends.last; ++column) {
    float& cell = cells[static_cast<std::size_t>(column - 1)];
    if (cell > dummy) {
      const double x = (column - 1) * x_cell;
      cell =
          static_cast<float>(static_cast<double>(cell) - static_cast<double>(trend.a) -
                             static_cast<double>(trend.c) * y - static_cast<double>(trend.b) * x);
    }
  }
}

}  // namespace

std::optional<detrend_input> open_detrend_input(std::string_view name) {
  std::optional<opened_grid> grid = open_float_grid(name);
  if (!grid) {
    return std::nullopt;
  }
  const grid_description& description = grid->description;
  return detrend_input{std::move(grid->rows), description, description.reals.x_cell,
                       description.reals.y_cell};
}

std::filesystem::path trend_path(const std::filesystem::path& output, std::string_view mark,
                                 std::string_view ending) {
  const std::string own = output.filename().string();
  const std::size_t dot = own.find('.');
  std::string stem = dot == std::string::npos ? std::string() : own.substr(0, dot);
  if (stem.ends_with(mark)) {
    stem.resize(stem.size() - mark.size());
  }
  stem += ending;
  return output.parent_path() / stem;
}

standard_header header_of_copy(const grid_description& grid) {
  standard_header header = float_grid_header(lattice_of(grid), grid.ints.storage_sense);
  header.z_base = grid.reals.z_base;
  header.z_mult = grid.reals.z_mult;
  header.stat_min = static_cast<float>(grid.reals.z_min);
  header.stat_max = static_cast<float>(grid.reals.z_max);
  header.stat_median = static_cast<float>(grid.reals.z_mid);
  header.stat_mean = static_cast<float>(grid.reals.z_mid);
  return header;
}

Status open_detrend_outputs(const detrend_input& input, const std::filesystem::path& residual_path,
                            const std::filesystem::path& trend_path, const RowLayout& layout,
                            const header_writer& write_header,
                            std::optional<detrend_outputs>& outputs) {
  if (const auto clash = platform::find_clash(
          {{input.rows.file().path(), "the input grid"}},
          {{residual_path, "the residual grid"}, {trend_path, "the grid of the plane"}})) {
    return clash->result == 0 ? detrend_residual_unwritable : detrend_trend_unwritable;
  }
  std::optional<platform::StagedFile> residual = stage_grid(residual_path, write_header);
  if (!residual) {
    return detrend_residual_unwritable;
  }
  std::optional<platform::StagedFile> trend = stage_grid(trend_path, write_header);
  if (!trend) {
    return detrend_trend_unwritable;
  }
  outputs.emplace(detrend_outputs{std::move(*residual), std::move(*trend), layout});
  return success;
}

void write_detrended(const detrend_input& input, const line_ends& ends, const plane& trend,
                     detrend_outputs& outputs) {
  std::vector<float> cells(static_cast<std::size_t>(input.x_count()));
  for (std::int32_t row = 1; row <= input.y_count(); ++row) {
    const double y = input.y_of(row);
    input.rows.read(row, cells);
    remove_plane(ends.row(row), y, input.x_cell, trend, cells);
    write_row(outputs.residual.file(), outputs.layout, row, cells);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      cells[i] = static_cast<float>(trend.at(static_cast<double>(i) * input.x_cell, y));
    }
    write_row(outputs.trend.file(), outputs.layout, row, cells);
  }
  outputs.residual.commit();
  outputs.trend.commit();
}

}  // namespace velmorankite
