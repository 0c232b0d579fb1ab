// Names of grid files, by which the first byte of a fuzzer's input chooses the format.
// SPDX-License-Identifier: MIT
#pragma once
#include <array>
#include <string_view>

namespace velmorankite::testing {

// The first is for content that decides by itself; the tiles' names tell their corner.
inline constexpr std::array<std::string_view, 19> grid_names = {
    "a.grd", "a.any", "a.dat",      "a.ers",      "a.gxf",   "a.pix", "a.bil",
    "a.bip", "a.bgd", "a.arc",      "a.asc",      "a.flt",   "a.dt1", "a.dt2",
    "a.nc",  "a.cdf", "N45E006.ga", "S07W120.xi", "tile.hgt"};

}  // namespace velmorankite::testing
