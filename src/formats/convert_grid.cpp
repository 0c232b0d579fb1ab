// SPDX-License-Identifier: MIT
#include "formats/convert_grid.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <optional>
#include <string>

#include "formats/catalogue.h"
#include "formats/cell_decoding.h"
#include "formats/cell_statistics.h"
#include "formats/companion_file.h"
#include "formats/compressed_grid.h"
#include "formats/describe_grid.h"
#include "formats/format_traits.h"
#include "formats/stored_lines.h"
#include "grid/cell_position.h"
#include "grid/grid_rows.h"
#include "grid/scratch_names.h"
#include "grid/standard_header.h"
#include "platform/io_error.h"
#include "platform/keep_apart.h"
#include "platform/large_array.h"
#include "platform/padded_text.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

namespace fs = std::filesystem;

// Senses of absolute value 3 and 4 store from the highest X down, 2 and 3 from the highest Y.
bool x_ascends(std::int32_t sense) {
  return std::abs(sense) <= 2;
}
bool y_ascends(std::int32_t sense) {
  return std::abs(sense) == 1 || std::abs(sense) == 4;
}

// One conversion: the lines of the source, and the output that they go to.
class Conversion {
 public:
  Conversion(LineSource& source, const grid_description& grid, const kept_window& kept,
             platform::BinaryFile& output)
      : source_(source),
        grid_(grid),
        lines_(stored_lines_of(grid.ints)),
        columns_(stores_columns(grid.ints.storage_sense)),
        across_(columns_ ? kept.columns : kept.rows),
        along_(columns_ ? kept.rows : kept.columns),
        lattice_(kept_lattice(grid, kept)),
        output_(output) {}

  Status run() {
    // A lattice has rows and columns the other way round from the lines of a grid by columns.
    const std::int32_t sense = grid_.ints.storage_sense;
    ascends_across_ = columns_ ? x_ascends(sense) : y_ascends(sense);
    ascends_along_ = columns_ ? y_ascends(sense) : x_ascends(sense);
    if (const Status status = find_kept_lines(); status.failed()) {
      return status;
    }
    line_ = platform::LargeArray<float>(static_cast<std::size_t>(lines_.length));
    if (columns_) {
      held_ = platform::LargeArray<float>(static_cast<std::size_t>(lattice_.cell_count()));
    }
    for (std::int32_t number = 1; number <= lines_.count; ++number) {
      if (const Status status = take_line(number); status.failed()) {
        return status;
      }
    }
    if (columns_) {
      write_columns();
    }
    return success;
  }

  [[nodiscard]] const CellStatistics& statistics() const noexcept { return statistics_; }

 private:
  // The place of a stored line on the lattice, and the stored line of a place.
  [[nodiscard]] std::int32_t turned(std::int32_t number) const noexcept {
    return ascends_across_ ? number : lines_.count - number + 1;
  }

  // What lies outside the window may be missing.
  [[nodiscard]] Status find_kept_lines() const {
    const auto [first, last] = std::minmax({turned(across_.first), turned(across_.last)});
    return source_.find_lines(first, last);
  }

  Status take_line(std::int32_t number) {
    const std::int32_t place = turned(number);
    const bool wanted = across_.has(place);
    const Status status = source_.read(number, wanted, line_.span());
    if (status.failed() || !wanted) {
      return status;
    }
    if (!source_.settles()) {
      settle_cells(grid_, line_.span());
    }
    if (!ascends_along_) {
      std::ranges::reverse(line_);
    }
    const std::span<const float> cells = keep_along();
    statistics_.add(cells);
    const std::int32_t index = (place - across_.first) / across_.step;  // from 0
    if (columns_) {
      std::ranges::copy(cells, held_.begin() + std::int64_t{index} * lattice_.y_count);
    } else {
      write_row(output_, {sense_top_down, lattice_.x_count, lattice_.y_count}, index + 1, cells);
    }
    return success;
  }

  // Moves the kept cells of the line to the front of them.
  std::span<const float> keep_along() {
    float* const first = line_.data() + (along_.first - 1);
    const auto count = static_cast<std::size_t>(along_.count());
    if (along_.step > 1) {
      for (std::size_t n = 1; n < count; ++n) {
        first[n] = first[n * static_cast<std::size_t>(along_.step)];
      }
    }
    return {first, count};
  }

  // The columns are turned into rows some at a time: so many of them share a line of the cache.
  void write_columns() {
    constexpr std::int32_t rows_at_once = 16;
    const auto width = static_cast<std::size_t>(lattice_.x_count);
    const auto height = static_cast<std::size_t>(lattice_.y_count);
    platform::LargeArray<float> block(width * rows_at_once);
    for (std::int32_t below = lattice_.y_count; below > 0;) {
      const std::int32_t count = std::min(rows_at_once, below);
      for (std::size_t c = 0; c < width; ++c) {
        const float* const cells = held_.data() + c * height + below;
        for (std::int32_t r = 0; r < count; ++r) {
          block[static_cast<std::size_t>(r) * width + c] = cells[-1 - r];
        }
      }
      const std::int64_t position = GRDCELLPOS(sense_top_down, standard_header_bytes, sizeof(float),
                                               lattice_.x_count, lattice_.y_count, below, 1);
      output_.write_values(
          position,
          std::span<const float>(block.span()).first(static_cast<std::size_t>(count) * width));
      below -= count;
    }
  }

  LineSource& source_;
  const grid_description& grid_;
  stored_lines lines_;
  bool columns_;       // the stored lines are columns
  kept_cells across_;  // of the lines
  kept_cells along_;   // of the cells of a line
  Lattice lattice_;
  platform::BinaryFile& output_;
  platform::LargeArray<float> line_;
  platform::LargeArray<float> held_;  // columns, the lowest X first, each from the lowest Y up
  bool ascends_across_ = true;
  bool ascends_along_ = true;
  CellStatistics statistics_;
};

std::optional<platform::ScratchFile> scratch_in(const fs::path& folder) {
  try {
    return platform::create_scratch(folder / "unc_", folder);
  } catch (const platform::IoError&) {
    return std::nullopt;
  }
}

// Expands a compressed grid beside the work, or in the folder for temporary files.
Status expand(const fs::path& input, std::optional<platform::ScratchFile>& expanded) {
  expanded = scratch_in({});
  if (!expanded) {
    const char* const temporary = std::getenv("TEMP");
    if (temporary == nullptr || platform::without_padding(temporary).empty()) {
      return expansion_folder_unset;
    }
    expanded = scratch_in(std::string(platform::without_padding(temporary)));
    if (!expanded) {
      return expansion_unplaced;
    }
  }
  const Status status = EXPUNCOMPGRID(input.string(), expanded->path().string());
  return status.failed() ? expansion_failed : success;
}

void describe_result(const kept_window& kept, const Lattice& lattice,
                     const CellStatistics& statistics, grid_description& grid) {
  constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
  grid_ints& ints = grid.ints;
  grid_reals& reals = grid.reals;
  ints.out_x_count = lattice.x_count;
  ints.out_y_count = lattice.y_count;
  ints.valid_count = static_cast<std::int32_t>(std::min(statistics.valid_count(), most));
  ints.dummy_count = static_cast<std::int32_t>(std::min(statistics.dummy_count(), most));
  reals.out_x_min = lattice.x_min;
  reals.out_x_max = (kept.columns.last - 1) * reals.x_cell + reals.x_min;
  reals.out_y_min = lattice.y_min;
  reals.out_y_max = (kept.rows.last - 1) * reals.y_cell + reals.y_min;
  reals.out_x_cell = lattice.x_cell;
  reals.out_y_cell = lattice.y_cell;
  const bool any = statistics.valid_count() > 0;
  reals.z_min = any ? static_cast<double>(statistics.lowest()) : -static_cast<double>(dummy);
  reals.z_max = any ? static_cast<double>(statistics.highest()) : static_cast<double>(dummy);
  if (any) {
    reals.z_mid = statistics.mean();
    reals.z_spread = statistics.deviation();
  }
  reals.unused_14 = -static_cast<double>(dummy);
  reals.unused_15 = static_cast<double>(dummy);
}

// The smallest and the largest value stand in the header as they are, or as not known; mean and
// deviation take the places of mean and variance.
void write_statistics(platform::BinaryFile& output, const Lattice& lattice,
                      const grid_description& result) {
  constexpr std::int64_t at_mean = 172;
  constexpr std::int64_t at_deviation = 176;
  standard_header header = float_grid_header(lattice, sense_top_down);
  const bool any = result.ints.valid_count > 0;
  if (any) {
    header.stat_min = static_cast<float>(result.reals.z_min);
    header.stat_max = static_cast<float>(result.reals.z_max);
  }
  OUTPUT_GEOSOFT_HEADER(output, header);
  output.write_value(at_mean + 1, any ? static_cast<float>(result.reals.z_mid) : 0.0F);
  output.write_value(at_deviation + 1, result.reals.z_spread);
}

// Converts what `cells` describes, in the file `path`, into the output.
Status convert(const fs::path& path, const grid_description& cells, cell_form storage,
               const kept_window& kept, const fs::path& output, grid_description& grid) {
  Status status;
  const std::unique_ptr<LineSource> source = storage == cell_form::text
                                                 ? open_text_lines(path, cells, status)
                                                 : open_binary_lines(path, cells, status);
  if (source == nullptr) {
    return status;
  }
  std::optional<platform::StagedFile> staged;
  try {
    staged.emplace(output);
  } catch (const platform::IoError&) {
    return conversion_output_unopened;
  }
  const Lattice lattice = kept_lattice(cells, kept);
  OUTPUT_GEOSOFT_HEADER(staged->file(), float_grid_header(lattice, sense_top_down));
  Conversion conversion(*source, cells, kept, staged->file());
  if (const Status done = conversion.run(); done.failed()) {
    return done;
  }
  describe_result(kept, lattice, conversion.statistics(), grid);
  write_statistics(staged->file(), lattice, grid);
  staged->commit();
  return success;
}

std::string_view name_in(std::string_view name) {
  if (name.ends_with('\0')) {
    name.remove_suffix(1);
  }
  return platform::without_padding(name);
}

}  // namespace

Status GRDRDG(std::string_view input, std::string_view output, grid_description& grid,
              grid_window& window) {
  const fs::path from(name_in(input));
  const fs::path to(name_in(output));
  const cell_form storage = traits_of(grid.ints).cells;
  if (from.empty() || storage == cell_form::images || grid.ints.x_count < 1 ||
      grid.ints.y_count < 1) {
    return conversion_impossible;
  }
  const std::optional<kept_window> kept = keep_window(grid, window);
  if (!kept) {
    return conversion_impossible;
  }
  if (storage == cell_form::none) {
    return conversion_missing;
  }
  if (to.empty() || platform::find_clash(files_of_grid(from, "the input", grid.ints.format_code),
                                         {{to, "the output"}})) {
    return conversion_output_unopened;
  }
  try {
    if (!is_compressed(grid.ints)) {
      return convert(from, grid, storage, *kept, to, grid);
    }
    std::optional<platform::ScratchFile> expanded;
    if (const Status status = expand(from, expanded); status.failed()) {
      return status;
    }
    grid_description plain = grid;
    plain.ints.element_code = -grid.ints.element_code;
    return convert(expanded->path(), plain, storage, *kept, to, grid);
  } catch (const std::bad_alloc&) {
    return conversion_impossible;
  }
}

bool is_read_in_place(const grid_description& grid) noexcept {
  const grid_ints& ints = grid.ints;
  return is_plain_standard(ints) && ints.data_offset == standard_header_bytes &&
         ints.element_code == sizeof(float) && ints.element_kind == kind_float &&
         (ints.storage_sense == sense_bottom_up || ints.storage_sense == sense_top_down) &&
         grid.reals.z_base == 0.0 && grid.reals.z_mult == 1.0;
}

Status convert_to_scratch(std::string_view path, std::string_view stem, grid_description& grid,
                          platform::ScratchFile& scratch) {
  scratch = new_scratch(stem);
  const std::string name = scratch.path().string();
  grid_window whole;
  if (const Status status = GRDRDG(path, name, grid, whole); status.failed()) {
    return status;
  }
  grid_texts texts;
  return GRDRDH(name, grid, texts);
}

}  // namespace velmorankite
