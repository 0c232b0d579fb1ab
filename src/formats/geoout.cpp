// SPDX-License-Identifier: MIT
#include "formats/geoout.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <new>
#include <optional>
#include <vector>

#include "formats/cell_decoding.h"
#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

constexpr float euler_number = 2.7182817F;  // bits 0x402DF854
constexpr std::int64_t stat_min_position = 161;

float undo_transform(std::int32_t transform, float v) {
  if (transform == 2) {
    return std::pow(euler_number, v);
  }
  if (transform == 3 && v > 1.0F) {
    return std::pow(euler_number, v - 1.0F);
  }
  if (transform == 3 && v < -1.0F) {
    return -std::pow(euler_number, -(v + 1.0F));
  }
  return v;
}

// The output, or nothing where it cannot be opened or would replace the file that is read.
std::optional<platform::StagedFile> stage(std::string_view name,
                                          const platform::BinaryFile* source) {
  const std::filesystem::path input = source != nullptr ? source->path() : "";
  if (platform::find_clash({{input, "the source"}}, {{name, "the output"}})) {
    return std::nullopt;
  }
  try {
    return platform::StagedFile(name);
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
}

bool lattice_sound(const Lattice& lattice) {
  return lattice.x_count >= 1 && lattice.y_count >= 1;
}

std::size_t index_of(std::int64_t line, std::int64_t line_length, std::int64_t cell) {
  return static_cast<std::size_t>((line - 1) * line_length + cell - 1);
}

// Rows of floats, row 1 the lowest Y.
void take_row(const float_source& source, const Lattice& lattice, std::int32_t row, float constant,
              std::span<float> cells) {
  const std::int32_t width = lattice.x_count;
  if (source.unit != nullptr) {
    source.unit->read_values(1 + std::int64_t{row - 1} * width * 4, cells);
  } else if (source.source == source_constant) {
    std::fill(cells.begin(), cells.end(), constant);
  } else if (source.source == source_array || source.source == source_array_reversed) {
    const std::int32_t from = source.source == source_array ? row : lattice.y_count - row + 1;
    std::copy_n(source.array.begin() + static_cast<std::ptrdiff_t>(index_of(from, width, 1)), width,
                cells.begin());
  } else {
    for (std::int32_t column = 1; column <= width; ++column) {
      cells[static_cast<std::size_t>(column - 1)] =
          source.array[index_of(column, lattice.y_count, row)];
    }
  }
}

bool source_suffices(const float_source& source, const Lattice& lattice) {
  return source.unit != nullptr || source.source == source_constant ||
         static_cast<std::int64_t>(source.array.size()) >= lattice.cell_count();
}

}  // namespace

Status GEOOUT(std::string_view name, const float_source& source, const Lattice& lattice,
              std::int32_t sense, float input_dummy, std::int32_t transform, float& z_min,
              float& z_max) {
  constexpr std::size_t shortest_name = 3;
  if (platform::without_padding(name).size() < shortest_name || !lattice_sound(lattice) ||
      !source_suffices(source, lattice)) {
    return geoout_failed;
  }
  std::optional<platform::StagedFile> staged = stage(platform::without_padding(name), source.unit);
  if (!staged) {
    return geoout_failed;
  }
  const bool is_constant = source.unit == nullptr && source.source == source_constant;
  if (is_constant) {
    z_max = z_min;
  } else {
    z_min = 1.0E32F;
    z_max = -1.0E32F;
  }
  const standard_header header = float_grid_header(lattice, sense);
  OUTPUT_GEOSOFT_HEADER(staged->file(), header);
  const RowLayout layout{sense == sense_bottom_up ? sense_bottom_up : sense_top_down,
                         lattice.x_count, lattice.y_count};
  const double tolerance = dummy_tolerance(static_cast<double>(input_dummy));
  std::vector<float> cells(static_cast<std::size_t>(lattice.x_count));
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    take_row(source, lattice, row, z_min, cells);
    for (float& cell : cells) {
      if (cell == input_dummy ||  // an infinity too
          std::abs(static_cast<double>(cell) - static_cast<double>(input_dummy)) < tolerance) {
        cell = dummy;
      } else if (!is_constant) {
        cell = undo_transform(transform, cell);
        if (is_valid(cell)) {
          z_min = std::min(z_min, cell);
          z_max = std::max(z_max, cell);
        }
      }
    }
    write_row(staged->file(), layout, row, cells);
  }
  staged->file().write_value(stat_min_position, z_min);
  staged->file().write_value(stat_min_position + 4, z_max);
  staged->commit();
  return success;
}

namespace {

std::int16_t transformed(std::int32_t transform, std::int16_t v) {
  if (transform != 2 && transform != 3) {
    return v;
  }
  constexpr float lowest = std::numeric_limits<std::int16_t>::min();
  constexpr float highest = std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(
      std::clamp(undo_transform(transform, static_cast<float>(v)), lowest, highest));
}

bool by_columns(std::int32_t sense) {
  return sense == -1 || sense == 2;
}

// Cell of row `row` (from 1, the lowest Y) and column `column` in stored lines.
std::size_t stored_index(std::int32_t sense, const Lattice& lattice, std::int32_t row,
                         std::int32_t column) {
  const bool descends = sense == -2 || sense == 2;
  const std::int32_t place = descends ? lattice.y_count + 1 - row : row;
  return by_columns(sense) ? index_of(column, lattice.y_count, place)
                           : index_of(place, lattice.x_count, column);
}

// A file is read a stored line at a time where lines are rows. Where they are columns each row
// needs a cell of every line: the file is read whole, once, or cell by cell if it does not fit.
class Int16Rows {
 public:
  Int16Rows(const int16_source& source, const Lattice& lattice)
      : source_(source), lattice_(lattice) {
    const bool columns = by_columns(source.sense);
    if (source.unit == nullptr) {
      cells_ = columns ? source.columns : source.rows;
    } else if (columns) {
      try {
        owned_.resize(static_cast<std::size_t>(lattice.cell_count()));
      } catch (const std::bad_alloc&) {
        return;
      }
      source.unit->read_values(source.offset + std::int64_t{1}, std::span(owned_));
      cells_ = owned_;
    }
  }

  void take(std::int32_t row, std::span<std::int16_t> cells) const {
    if (source_.unit != nullptr && !by_columns(source_.sense)) {
      const std::size_t first = stored_index(source_.sense, lattice_, row, 1);
      source_.unit->read_values(source_.offset + 1 + 2 * static_cast<std::int64_t>(first), cells);
      return;
    }
    const bool held = source_.unit == nullptr || !cells_.empty();
    for (std::int32_t column = 1; column <= lattice_.x_count; ++column) {
      const std::size_t index = stored_index(source_.sense, lattice_, row, column);
      cells[static_cast<std::size_t>(column - 1)] = held ? cells_[index] : read_cell(index);
    }
  }

 private:
  [[nodiscard]] std::int16_t read_cell(std::size_t index) const {
    return source_.unit->read_value<std::int16_t>(source_.offset + 1 +
                                                  2 * static_cast<std::int64_t>(index));
  }

  const int16_source& source_;
  const Lattice& lattice_;
  std::vector<std::int16_t> owned_;
  std::span<const std::int16_t> cells_;
};

bool source_suffices(const int16_source& source, const Lattice& lattice) {
  if (source.unit != nullptr) {
    return source.offset >= 0;
  }
  const auto& cells = by_columns(source.sense) ? source.columns : source.rows;
  return static_cast<std::int64_t>(cells.size()) >= lattice.cell_count();
}

}  // namespace

Status GEOOUTI2(std::string_view name, const int16_source& source, const Lattice& lattice,
                std::int32_t input_dummy, std::int32_t transform, float& z_min, float& z_max) {
  if (!lattice_sound(lattice) || !source_suffices(source, lattice)) {
    return geoout_failed;
  }
  if (source.unit != nullptr) {  // ahead of what is allocated from the counts
    check_cells_there(*source.unit, source.offset, lattice.x_count, lattice.y_count, 2);
  }
  std::string_view path = platform::without_padding(name);
  if (path.size() < 2) {
    path = "outfile.grd";
  }
  std::optional<platform::StagedFile> staged = stage(path, source.unit);
  if (!staged) {
    return geoout_failed;
  }
  z_min = 1.0E30F;
  z_max = -1.0E30F;
  const std::int32_t sense = source.unit != nullptr ? sense_bottom_up : sense_top_down;
  standard_header header = float_grid_header(lattice, sense);
  header.element_size = 2;
  header.sign_flag = kind_signed;
  platform::BinaryFile& file = staged->file();
  OUTPUT_GEOSOFT_HEADER(file, header);

  const Int16Rows rows(source, lattice);
  std::vector<std::int16_t> cells(static_cast<std::size_t>(lattice.x_count));
  for (std::int32_t row = 1; row <= lattice.y_count; ++row) {
    rows.take(row, cells);
    for (std::int16_t& cell : cells) {
      if (cell == input_dummy) {
        cell = dummy_int16;
      } else {
        cell = transformed(transform, cell);
        z_min = std::min(z_min, static_cast<float>(cell));
        z_max = std::max(z_max, static_cast<float>(cell));
      }
    }
    file.write_values(
        GRDCELLPOS(sense, standard_header_bytes, 2, lattice.x_count, lattice.y_count, row, 1),
        std::span<const std::int16_t>(cells));
  }
  // These writers have always stored the statistics of integer grids as floats.
  const float statistics[] = {z_min, z_max, -32767.0F, -32767.0F};
  file.write_values(stat_min_position, std::span<const float>(statistics));
  staged->commit();
  return success;
}

}  // namespace velmorankite
