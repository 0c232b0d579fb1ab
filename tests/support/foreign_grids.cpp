// SPDX-License-Identifier: MIT
#include "support/foreign_grids.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <utility>

#include "grid/dummy.h"
#include "platform/byte_order.h"

namespace velmorankite::testing {
namespace {

// The bytes of a file in the making, as long as what was put furthest back.
class Bytes {
 public:
  explicit Bytes(std::endian order = std::endian::little) : order_(order) {}

  template <typename T>
  Bytes& put(std::size_t offset, T value) {
    reach(offset + sizeof value);
    platform::store(value, reinterpret_cast<std::byte*>(&bytes_[offset]), order_);
    return *this;
  }
  Bytes& text(std::size_t offset, std::string_view value) {
    reach(offset + value.size());
    bytes_.replace(offset, value.size(), value);
    return *this;
  }
  Bytes& reach(std::size_t size) {
    bytes_.resize(std::max(bytes_.size(), size), '\0');
    return *this;
  }
  template <typename T>
  Bytes& add(T value) {
    return put(bytes_.size(), value);
  }
  [[nodiscard]] std::string take() { return std::move(bytes_); }

 private:
  std::endian order_;
  std::string bytes_;
};

// Floats at the offsets, in turn.
Bytes& put_floats(Bytes& bytes, std::initializer_list<std::pair<std::size_t, double>> fields) {
  for (const auto& [offset, value] : fields) {
    bytes.put(offset, static_cast<float>(value));
  }
  return bytes;
}

bool by_columns(int sense) {
  return sense == -1 || sense == 2 || sense == -3 || sense == 4;
}

// Calls `line` with the cells of each stored line of a sense, in the order of the file.
template <typename Line>
void each_line(const sample_grid& grid, int sense, const Line& line) {
  const bool columns = by_columns(sense);
  const bool x_falls = std::abs(sense) >= 3;
  const bool y_falls = std::abs(sense) == 2 || std::abs(sense) == 3;
  const std::int32_t x_count = grid.lattice.x_count;
  const std::int32_t y_count = grid.lattice.y_count;
  const auto cell = [&](std::int32_t x, std::int32_t y) {
    return grid.at(x_falls ? x_count + 1 - x : x, y_falls ? y_count + 1 - y : y);
  };
  for (std::int32_t i = 1; i <= (columns ? x_count : y_count); ++i) {
    std::vector<float> cells;
    for (std::int32_t k = 1; k <= (columns ? y_count : x_count); ++k) {
      cells.push_back(columns ? cell(i, k) : cell(k, i));
    }
    line(cells);
  }
}

// Adds the cells as values of type T, with `marker` for those without data.
template <typename T>
void add_cells(Bytes& bytes, const sample_grid& grid, int sense, T marker) {
  each_line(grid, sense, [&](const std::vector<float>& cells) {
    for (const float value : cells) {
      bytes.add(is_valid(value) ? static_cast<T>(value) : marker);
    }
  });
}

double highest_x(const Lattice& lattice) {
  return lattice.x(lattice.x_count);
}
double highest_y(const Lattice& lattice) {
  return lattice.y(lattice.y_count);
}

std::string as_records(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  constexpr float marker = 1.0E30F;
  Bytes bytes(std::endian::big);
  bytes.put(0, 28).put(32, 28);
  put_floats(bytes, {{4, l.x_min},
                     {8, highest_x(l)},
                     {12, l.y_min},
                     {16, highest_y(l)},
                     {20, l.x_cell},
                     {24, l.y_cell},
                     {28, static_cast<double>(marker)}});
  each_line(grid, 1, [&bytes](const std::vector<float>& cells) {
    const auto length = static_cast<std::int32_t>(4 * cells.size());
    bytes.add(length);
    for (const float value : cells) {
      bytes.add(is_valid(value) ? value : marker);
    }
    bytes.add(length);
  });
  return bytes.reach(256).take();
}

std::string as_grid_binary(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  constexpr float marker = -1.0E34F;
  Bytes bytes(std::endian::big);
  bytes.text(0, "$$BGD");
  put_floats(bytes, {{88, l.x_min - l.x_cell / 2},
                     {92, highest_x(l) + l.x_cell / 2},
                     {96, l.y_min - l.y_cell / 2},
                     {100, highest_y(l) + l.y_cell / 2},
                     {120, l.x_cell},
                     {124, l.y_cell},
                     {144, 5.0},
                     {148, 75.0},
                     {216, 30.0},
                     {232, static_cast<double>(marker)}});
  bytes.put(112, l.y_count).put(116, l.x_count).reach(512);
  add_cells(bytes, grid, -2, marker);
  return bytes.take();
}

std::string as_geosolutions(const sample_grid& grid) {
  sample_grid square = grid;
  square.lattice.y_cell = square.lattice.x_cell;
  const Lattice& l = square.lattice;
  Bytes bytes;
  put_floats(bytes, {{0, l.x_cell},
                     {4, static_cast<double>(l.x_count)},
                     {8, static_cast<double>(l.y_count)},
                     {12, l.x_min},
                     {16, l.y_min}});
  bytes.reach(4096);
  add_cells(bytes, square, -1, -1.0E30F);
  return bytes.take();
}

std::string as_encom(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  constexpr float marker = 99999.0F;
  Bytes bytes;
  bytes.text(0, "TOOL");
  put_floats(bytes, {{180, static_cast<double>(marker)},
                     {188, static_cast<double>(l.y_count)},
                     {196, static_cast<double>(l.x_count)},
                     {204, l.x_min},
                     {212, l.y_min},
                     {220, l.x_cell},
                     {228, l.y_cell}});
  bytes.reach(240);
  add_cells(bytes, grid, -2, marker);
  return bytes.take();
}

std::string as_geopak(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  constexpr double mult = 4.0;
  constexpr double base = 100.0;
  constexpr std::int16_t marker = -9999;
  Bytes bytes;
  bytes.text(0, "K");
  put_floats(bytes, {{2, static_cast<double>(l.y_count)},
                     {6, static_cast<double>(l.x_count)},
                     {10, mult},
                     {14, base},
                     {18, l.y_min},
                     {22, l.x_min},
                     {38, l.y_cell},
                     {42, l.x_cell},
                     {102, static_cast<double>(marker)}});
  bytes.reach(130);
  each_line(grid, 1, [&bytes](const std::vector<float>& cells) {
    constexpr std::size_t group = 64;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i % group == 0) {
        bytes.add<std::int16_t>(12345);  // the word ahead of each group, which is no cell
      }
      bytes.add(is_valid(cells[i]) ? static_cast<std::int16_t>((cells[i] - base) * mult) : marker);
    }
  });
  return bytes.reach(256).take();
}

// Five degrees east, three south; the lattice tells the counts only.
std::string as_dted(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  const auto four = [](std::int32_t count) {
    std::string digits = std::to_string(count);
    return std::string(4 - digits.size(), '0') + digits;
  };
  Bytes bytes(std::endian::big);
  bytes.text(0, "UHL10050000E0030000S").text(47, four(l.x_count)).text(51, four(l.y_count));
  bytes.reach(3428);
  each_line(grid, -1, [&bytes](const std::vector<float>& cells) {
    bytes.add<std::int64_t>(0);
    for (const float value : cells) {
      bytes.add(is_valid(value) ? static_cast<std::int16_t>(value) : std::int16_t{-1});
    }
    bytes.add<std::int32_t>(0);
  });
  return bytes.take();
}

// Cell sizes and counts at 5, and a corner: the header that Geodass and Newmont share.
void put_common_header(Bytes& bytes, const Lattice& l, double y_corner) {
  put_floats(bytes, {{5, l.x_cell}, {9, l.y_cell}, {17, l.x_min}, {21, y_corner}});
  bytes.put(13, static_cast<std::int16_t>(l.y_count));
  bytes.put(15, static_cast<std::int16_t>(l.x_count));
}

std::string as_geodass(const sample_grid& grid) {
  Bytes bytes;
  put_common_header(bytes, grid.lattice, grid.lattice.y_min);
  bytes.reach(200);
  add_cells(bytes, grid, -1, -1.0E30F);
  return bytes.take();
}

std::string as_vulcan(const sample_grid& grid) {
  const Lattice& l = grid.lattice;
  Bytes bytes;
  for (const double value :
       {static_cast<double>(l.x_count), static_cast<double>(l.y_count), l.x_cell, l.y_cell, l.x_min,
        highest_x(l), l.y_min, highest_y(l), 5.0, 75.0}) {
    bytes.add(value);
  }
  bytes.reach(592);
  add_cells(bytes, grid, 1, -1.0E8);
  return bytes.take();
}

std::string as_newmont(const sample_grid& grid) {
  Bytes bytes;
  bytes.put(0, 65);
  put_common_header(bytes, grid.lattice, highest_y(grid.lattice));
  bytes.reach(485);
  add_cells(bytes, grid, -1, dummy);
  return bytes.take();
}

constexpr foreign_format formats[] = {
    {2, "records.grd", as_records},
    {8, "binary.bgd", as_grid_binary},
    {10, "geosolutions.grd", as_geosolutions},
    {11, "encom.grd", as_encom},
    {12, "geopak.grd", as_geopak},
    {16, "tile.dt1", as_dted},
    {19, "geodass.grd", as_geodass},
    {20, "vulcan.grd", as_vulcan},
    {23, "newmont.grd", as_newmont},
};

}  // namespace

sample_grid small_sample() {
  sample_grid grid;
  grid.lattice = {1000.5, -2000.25, 2.0, 5.0, 6, 4};
  for (std::int32_t row = 1; row <= grid.lattice.y_count; ++row) {
    for (std::int32_t column = 1; column <= grid.lattice.x_count; ++column) {
      grid.cells.push_back(static_cast<float>(10 * row + column * column));
    }
  }
  grid.cells.front() = dummy;
  grid.cells.back() = dummy;
  return grid;
}

std::span<const foreign_format> foreign_formats() {
  return formats;
}

}  // namespace velmorankite::testing
