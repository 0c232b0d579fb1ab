// SPDX-License-Identifier: MIT
#include "grid_files.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "grid/dummy.h"
#include "grid/grid_rows.h"
#include "grid/standard_header.h"
#include "platform/byte_order.h"
#include "platform/text_file.h"

namespace velmorankite::bench {
namespace {

// GMT's native header: three counts, ten doubles, then texts, packed without gaps.
constexpr std::size_t gmt_header_bytes = 892;

std::filesystem::path with_extension(const std::filesystem::path& stem, format kind) {
  constexpr std::array<const char*, 3> extensions{".grd", ".bf", ".bil"};
  std::filesystem::path path = stem;
  return path += extensions[static_cast<std::size_t>(kind)];
}

void write_gmt_header(platform::BinaryFile& file, const Lattice& lattice) {
  std::array<std::byte, gmt_header_bytes> header{};
  constexpr std::int32_t node_registration = 0;
  platform::store(lattice.x_count, &header[0]);
  platform::store(lattice.y_count, &header[4]);
  platform::store(node_registration, &header[8]);
  const std::array<double, 10> reals{lattice.x_min,
                                     lattice.x(lattice.x_count),
                                     lattice.y_min,
                                     lattice.y(lattice.y_count),
                                     0.0,  // smallest and largest value, which nothing needs
                                     0.0,
                                     lattice.x_cell,
                                     lattice.y_cell,
                                     1.0,   // scale
                                     0.0};  // and offset of the values
  for (std::size_t i = 0; i < reals.size(); ++i) {
    platform::store(reals[i], &header[12 + 8 * i]);
  }
  file.write(1, header);
}

void write_envi_header(const std::filesystem::path& stem, const Lattice& lattice) {
  std::filesystem::path path = stem;
  platform::TextWriter text(path += ".hdr");
  const auto line = [&text](std::string words, const std::string& value) {
    words += value;
    text.write_line(words);
  };
  line("ENVI", "");
  line("samples = ", std::to_string(lattice.x_count));
  line("lines = ", std::to_string(lattice.y_count));
  line("bands = ", "1");
  line("header offset = ", "0");
  line("data type = ", "4");
  line("interleave = ", "bil");
  line("byte order = ", "0");
  line("data ignore value = ", "-1e32");
  // The outer corner of the top left cell.
  line("map info = {Arbitrary, 1, 1, ",
       std::to_string(lattice.x_min - 0.5 * lattice.x_cell) + ", " +
           std::to_string(lattice.y(lattice.y_count) + 0.5 * lattice.y_cell) + ", " +
           std::to_string(lattice.x_cell) + ", " + std::to_string(lattice.y_cell) + "}");
  text.close();
}

}  // namespace

GridFile::GridFile(const std::filesystem::path& stem, format kind, const Lattice& lattice)
    : kind_(kind),
      lattice_(lattice),
      file_(with_extension(stem, kind), platform::open_mode::create),
      row_(static_cast<std::size_t>(lattice.x_count)) {
  if (kind == format::standard) {
    OUTPUT_GEOSOFT_HEADER(file_, float_grid_header(lattice));
  } else if (kind == format::gmt) {
    write_gmt_header(file_, lattice);
  } else {
    write_envi_header(stem, lattice);
  }
}

void GridFile::write(std::int32_t row, std::span<const float> values) {
  const std::int64_t row_bytes = std::int64_t{lattice_.x_count} * 4;
  if (kind_ == format::standard) {
    const RowLayout layout{sense_bottom_up, lattice_.x_count, lattice_.y_count};
    write_row(file_, layout, row, values);
    return;
  }
  row_.assign(values.begin(), values.end());
  if (kind_ == format::gmt) {
    for (float& value : row_) {
      value = is_valid(value) ? value : std::numeric_limits<float>::quiet_NaN();
    }
  }
  const std::int64_t ahead = kind_ == format::gmt ? gmt_header_bytes : 0;
  file_.write_values(1 + ahead + (lattice_.y_count - row) * row_bytes,
                     std::span<const float>(row_));
}

}  // namespace velmorankite::bench
