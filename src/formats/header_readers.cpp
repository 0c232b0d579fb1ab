// SPDX-License-Identifier: MIT
#include "formats/header_readers.h"

#include "formats/catalogue.h"
#include "formats/header_text_readers.h"

namespace velmorankite {
namespace {

bool is_plain_layout(const grid_ints& ints) {
  return ints.data_offset == 0;
}

bool is_surfer_text(const grid_ints& ints) {
  constexpr std::int32_t text_mark = 1;
  return ints.element_code == text_mark;
}

// The first row that applies to the format is taken.
constexpr format_reader format_readers[] = {
    {format_ermapper, header_access::text, read_ermapper_header},
    {format_standard, header_access::binary, read_standard_header, is_plain_layout},
    {format_gxf, header_access::text, read_gxf_header},
    {format_bil, header_access::text_beside, read_band_image_header},
    {format_bip, header_access::text_beside, read_band_image_header},
    {format_grid_text, header_access::text, read_grid_text_header},
    {format_arcinfo, header_access::text, read_arcinfo_header},
    {format_surfer_6, header_access::text, read_surfer_text_header, is_surfer_text},
    {format_float_cells, header_access::text_beside, read_arcinfo_header},
    {format_zmap, header_access::text, read_zmap_header},
};

}  // namespace

const format_reader* find_reader(const grid_description& grid) {
  for (const format_reader& row : format_readers) {
    if (row.format_code == grid.ints.format_code &&
        (row.applies == nullptr || row.applies(grid.ints))) {
      return &row;
    }
  }
  return nullptr;
}

bool read_header_bytes(const header_source& source, std::int64_t position,
                       std::span<std::byte> bytes) {
  return source.binary->read_some(position, bytes) == bytes.size();
}

}  // namespace velmorankite
