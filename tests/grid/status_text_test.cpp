// SPDX-License-Identifier: MIT
#include "grid/status_text.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "condition/hole_filling.h"
#include "condition/multi_level_fill.h"
#include "formats/describe_grid.h"
#include "formats/header_status.h"
#include "grid/cell_interpolation.h"
#include "grid/file_services.h"
#include "grid/scratch_names.h"
#include "grid/standard_header.h"
#include "merge/stitch_line.h"

namespace velmorankite {
namespace {

TEST(StatusText, every_named_failure_has_words) {
  const std::pair<const char*, Status> failures[] = {
      {"FSYSTEM", command_failed},
      {"GEOCLONE", file_missing},
      {"GEO_CELL_INTERPOLATION", interpolation_bad_call},
      {"GRDMIPMAP", fill_impossible},
      {"GRDOSTEMP", temporary_name_failed},
      {"GRDRDH", name_too_short},
      {"GRDRDH", file_missing},
      {"GRDRDH", file_empty},
      {"GRDRDH", format_unknown},
      {"GRDRDH", first_bytes_unreadable},
      {"GRDRDH", header_file_missing},
      {"GRDRDH", header_too_short},
      {"GRDRDH", number_unreadable},
      {"GRDRDH", counts_unsound},
      {"GRDRDH", cell_size_unsound},
      {"GRDRDH", limits_unsound},
      {"GRDRDH", cells_missing},
      {"GRDRDH", table_too_long},
      {"GRDRDH", pointer_outside},
      {"GRDRDH", layout_unsupported},
      {"GRDRDHS", format_unknown},
      {"GRDTMPNAME", scratch_names_taken},
      {"GRID_FILL", fill_no_valid_cell},
      {"GRID_FILL", fill_input_unopened},
      {"GRID_FILL", sweep_road_missing},
      {"GRID_FILL", format_unknown},
      {"RDSTITCHDXF", stitch_line_unusable},
      {"READ_GEOSOFT_HEADERS", header_unsound},
  };
  for (const auto& [routine, status] : failures) {
    EXPECT_FALSE(status_text(routine, status).empty()) << routine << ' ' << status.code;
  }
}

TEST(StatusText, a_number_means_what_its_routine_means_by_it) {
  EXPECT_NE(status_text("GRID_FILL", Status{-1}), status_text("GRDRDH", Status{-1}));
  EXPECT_EQ(status_text("GEOCLONE", Status{-1}), status_text("GRDRDH", Status{-1}));
  EXPECT_EQ(status_text("GRDRDH", Status{3}), "success");
  EXPECT_EQ(status_text("GRDRDH", Status{-3}), "");
  EXPECT_EQ(status_text("grdrdh", Status{-1}), "");
}

TEST(StatusText, no_number_of_a_routine_stands_twice) {
  std::set<std::pair<std::string, std::int32_t>> seen;
  for (const status_row& row : status_rows()) {
    EXPECT_TRUE(seen.emplace(row.routine, row.number).second) << row.routine << ' ' << row.number;
    EXPECT_LT(row.number, 0) << row.routine;
  }
}

}  // namespace
}  // namespace velmorankite
