// SPDX-License-Identifier: MIT
#include "condition/level_rows.h"

#include <algorithm>
#include <cstdio>
#include <new>
#include <string>

#include "grid/dummy.h"
#include "platform/file_tests.h"
#include "platform/io_error.h"

namespace velmorankite {
namespace {

// A level that is held by rows through its file.
class FileRows final : public LevelRows {
 public:
  FileRows(const Lattice& lattice, std::filesystem::path path, const level_storage& storage);

  std::span<float> row(std::int32_t row) override;
  std::span<float> fresh_row(std::int32_t row) override { return cache_.find(row).cells; }
  void keep(std::int32_t row) override { write_row(file_, layout_, row, cache_.find(row).cells); }

 private:
  platform::BinaryFile file_;
  platform::ScratchFile scratch_;
  RowLayout layout_;
  RowCache cache_;
};

// Opens without emptying: until the lock is held the file may be another run's. A file that was
// deleted between opening and locking is no name any more, so the next try makes a new one.
platform::BinaryFile open_level_file(const std::filesystem::path& path) {
  constexpr int most_tries = 10;
  for (int tries = 0; tries < most_tries; ++tries) {
    platform::BinaryFile file(path, platform::open_mode::open_always);
    file.lock();
    if (file.is_still_named()) {
      return file;
    }
  }
  throw platform::IoError(path, "is in use by another run in this directory");
}

FileRows::FileRows(const Lattice& lattice, std::filesystem::path path, const level_storage& storage)
    : LevelRows(lattice),
      file_(open_level_file(path)),
      scratch_(std::move(path)),
      layout_{storage.storage_sense, lattice.x_count, lattice.y_count},
      cache_(width()) {
  file_.resize(0);
  standard_header header = float_grid_header(lattice, storage.storage_sense);
  header.stat_min = storage.minimum;
  header.stat_max = storage.maximum;
  OUTPUT_GEOSOFT_HEADER(file_, header);
}

std::span<float> FileRows::row(std::int32_t row) {
  const RowCache::entry entry = cache_.find(row);
  if (!entry.present) {
    read_row(file_, layout_, row, entry.cells);
  }
  return entry.cells;
}

std::filesystem::path level_file_name(int number) {
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "mmap_level_%03d.grd", number);
  return name.data();
}

}  // namespace

MemoryRows::MemoryRows(const Lattice& lattice)
    : LevelRows(lattice),
      own_(static_cast<std::size_t>(lattice.cell_count())),
      cells_(own_.span()) {}

RowCache::RowCache(std::size_t width) : width_(width), cells_(width * LevelRows::rows_kept) {}

RowCache::entry RowCache::find(std::int32_t row) {
  const auto slot = static_cast<std::size_t>(row % LevelRows::rows_kept);
  const bool present = held_[slot] == row;
  held_[slot] = row;
  return {std::span(cells_).subspan(slot * width_, width_), present};
}

void read_input_row(const platform::BinaryFile& file, const input_placement& placement,
                    std::int32_t row, std::span<float> cells) {
  if (!placement.has_row(row)) {
    std::ranges::fill(cells, dummy);
    return;
  }
  const std::span<float> covered = placement.covered(cells);
  std::fill(cells.data(), covered.data(), dummy);
  std::fill(covered.data() + covered.size(), cells.data() + cells.size(), dummy);
  read_row(file, placement.layout, row - placement.row_offset, covered);
}

std::span<float> InputRows::row(std::int32_t row) {
  const RowCache::entry entry = cache_.find(row);
  if (!entry.present) {
    read_input_row(file_, placement_, row, entry.cells);
  }
  return entry.cells;
}

std::unique_ptr<LevelRows> make_level(const Lattice& lattice, int number,
                                      const level_storage& storage) {
  if (lattice.cell_count() <= storage.most_cells_in_memory) {
    try {
      return std::make_unique<MemoryRows>(lattice);
    } catch (const std::bad_alloc&) {
      // Held by rows, below.
    }
  }
  std::filesystem::path path = level_file_name(number);
  if (platform::same_file(path, storage.input_path)) {
    throw platform::IoError(storage.input_path,
                            "has the name of a scratch file of the fill, so it would be lost");
  }
  return std::make_unique<FileRows>(lattice, std::move(path), storage);
}

}  // namespace velmorankite
