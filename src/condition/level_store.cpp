// SPDX-License-Identifier: MIT
#include "condition/level_store.h"

#include <array>
#include <cstdio>
#include <new>
#include <utility>

#include "platform/binary_file.h"
#include "platform/io_error.h"
#include "platform/scratch_file.h"

namespace velmorankite {
namespace {

// Opens without emptying: until the lock is held the file may be another run's. A file that was
// deleted between opening and locking has no name any more, so the next try makes a new one.
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

// A level that is held by rows through its file.
class FileRows final : public LevelRows {
 public:
  FileRows(const Lattice& lattice, std::filesystem::path path, const level_storage& storage)
      : LevelRows(lattice),
        rows_(open_level_file(path), {storage.storage_sense, lattice.x_count, lattice.y_count}),
        scratch_(std::move(path)),
        cache_(width()) {
    rows_.file().resize(0);
    standard_header header = float_grid_header(lattice, storage.storage_sense);
    header.stat_min = storage.minimum;
    header.stat_max = storage.maximum;
    OUTPUT_GEOSOFT_HEADER(rows_.file(), header);
  }

  std::span<float> row(std::int32_t row) override {
    const RowCache::entry entry = cache_.find(row);
    if (!entry.present) {
      rows_.read(row, entry.cells);
    }
    return entry.cells;
  }
  std::span<float> fresh_row(std::int32_t row) override { return cache_.find(row).cells; }
  void keep(std::int32_t row) override { rows_.write(row, cache_.find(row).cells); }

 private:
  RowFile rows_;
  platform::ScratchFile scratch_;
  RowCache cache_;
};

std::filesystem::path level_file_name(std::size_t number) {
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "mmap_level_%03zu.grd", number);
  return name.data();
}

}  // namespace

LevelStore::LevelStore(std::vector<Lattice> lattices, level_storage storage)
    : lattices_(std::move(lattices)), storage_(std::move(storage)) {
  std::int64_t cell_count = 0;
  for (const Lattice& lattice : lattices_) {
    cell_count += lattice.cell_count();
  }
  for (; by_rows_ < lattices_.size(); ++by_rows_) {
    const std::int64_t largest = lattices_[by_rows_].cell_count();
    if (largest <= storage_.most_cells_in_memory) {
      try {
        cells_ = platform::LargeArray<float>(static_cast<std::size_t>(cell_count));
        return;
      } catch (const std::bad_alloc&) {
        // No room for this level: it is held by rows, and perhaps the others fit.
      }
    }
    cell_count -= largest;
  }
}

std::unique_ptr<LevelRows> LevelStore::make(std::size_t number) {
  const Lattice& lattice = lattices_[number - 1];
  if (number > by_rows_) {
    std::int64_t before = 0;
    for (std::size_t k = by_rows_ + 1; k < number; ++k) {
      before += lattices_[k - 1].cell_count();
    }
    return std::make_unique<MemoryRows>(
        lattice, cells_.span().subspan(static_cast<std::size_t>(before),
                                       static_cast<std::size_t>(lattice.cell_count())));
  }
  std::filesystem::path path = level_file_name(number);
  platform::keep_apart(storage_.kept, {{path, "a scratch file of the fill"}});
  return std::make_unique<FileRows>(lattice, std::move(path), storage_);
}

}  // namespace velmorankite
