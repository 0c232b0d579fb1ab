// The readers of text headers, for the table of formats.
// SPDX-License-Identifier: MIT
#pragma once
#include "formats/header_readers.h"

namespace velmorankite {

Status read_ermapper_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_gxf_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_arcinfo_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_band_image_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_zmap_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_surfer_text_header(header_source& source, grid_description& grid, grid_texts& texts);
Status read_grid_text_header(header_source& source, grid_description& grid, grid_texts& texts);

}  // namespace velmorankite
