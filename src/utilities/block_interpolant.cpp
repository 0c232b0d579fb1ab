// SPDX-License-Identifier: MIT
#include "utilities/block_interpolant.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace velmorankite {
namespace {

// A point this near to a row or column, in cells, is interpolated along it.
constexpr auto near = static_cast<double>(0.01F);

// What can be said of a point's place. An interpolant asks for some of it.
enum place : std::uint32_t {
  anywhere = 0,
  near_column = 1U << 0U,  // of the centre
  near_row = 1U << 1U,
  right = 1U << 2U,  // u >= 0
  left = 1U << 3U,
  upper = 1U << 4U,  // v >= 0
  lower = 1U << 5U,
  sum_to_1 = 1U << 6U,  // u + v <= 1
  sum_above_1 = 1U << 7U,
  sum_to_0 = 1U << 8U,  // u + v <= 0
  sum_above_0 = 1U << 9U,
  sum_to_minus_1 = 1U << 10U,  // u + v <= -1
  sum_above_minus_1 = 1U << 11U,
  v_leads = 1U << 12U,  // v >= u
  u_leads = 1U << 13U,
  u_leads_to_1 = 1U << 14U,  // u - v <= 1
  u_leads_above_1 = 1U << 15U,
  v_leads_from_1 = 1U << 16U,  // v - u >= 1
  v_leads_below_1 = 1U << 17U,
};

std::uint32_t place_of(double u, double v) noexcept {
  const struct {
    bool holds;
    place what;
  } statements[] = {
      {std::fabs(u) <= near, near_column},
      {std::fabs(v) <= near, near_row},
      {u >= 0.0, right},
      {u < 0.0, left},
      {v >= 0.0, upper},
      {v < 0.0, lower},
      {u + v <= 1.0, sum_to_1},
      {u + v > 1.0, sum_above_1},
      {u + v <= 0.0, sum_to_0},
      {u + v > 0.0, sum_above_0},
      {u + v <= -1.0, sum_to_minus_1},
      {u + v > -1.0, sum_above_minus_1},
      {v >= u, v_leads},
      {u > v, u_leads},
      {u - v <= 1.0, u_leads_to_1},
      {u - v > 1.0, u_leads_above_1},
      {v - u >= 1.0, v_leads_from_1},
      {v - u < 1.0, v_leads_below_1},
  };
  std::uint32_t all = anywhere;
  for (const auto& statement : statements) {
    all |= statement.holds ? static_cast<std::uint32_t>(statement.what) : 0U;
  }
  return all;
}

// Which of the three columns, or rows, an interpolant goes through.
enum class through : std::uint8_t { middle, lower_two, upper_two, outer_two, all };

constexpr std::uint32_t bits_of(through which) noexcept {
  constexpr std::uint32_t bits[] = {2, 3, 6, 5, 7};
  return bits[static_cast<std::size_t>(which)];
}

three_weights weights_of(through which, double t) noexcept {
  switch (which) {
    case through::middle:
      return {0.0, 1.0, 0.0};
    case through::lower_two:
      return {-t, 1.0 + t, 0.0};
    case through::upper_two:
      return {0.0, 1.0 - t, t};
    case through::outer_two:
      return {(1.0 - t) / 2.0, 0.0, (1.0 + t) / 2.0};
    case through::all:
      break;
  }
  return parabola(t);
}

constexpr int no_corner = -1;

// An interpolant: the cells that it needs, where the point must lie, and its kind: the product of
// weights along X and along Y, or, where a corner is given, the plane through that corner of a
// square and its two neighbours.
struct rung {
  std::uint32_t cells;
  std::uint32_t where;
  through columns;
  through rows;
  int corner = no_corner;
};

// Where a cell is missing, the first whose cells are all there and whose place is the point's is
// taken.
constexpr rung ladder[] = {
    {0x010, near_column | near_row, through::middle, through::middle},
    {0x038, near_row, through::all, through::middle},
    {0x030, near_row | right, through::upper_two, through::middle},
    {0x018, near_row | left, through::lower_two, through::middle},
    {0x028, near_row, through::outer_two, through::middle},
    {0x092, near_column, through::middle, through::all},
    {0x090, near_column | upper, through::middle, through::upper_two},
    {0x012, near_column | lower, through::middle, through::lower_two},
    {0x082, near_column, through::middle, through::outer_two},
    {0x1B0, right | upper, through::upper_two, through::upper_two},
    {0x036, right | lower, through::upper_two, through::lower_two},
    {0x186, right, through::upper_two, through::outer_two},
    {0x0D8, left | upper, through::lower_two, through::upper_two},
    {0x01B, left | lower, through::lower_two, through::lower_two},
    {0x0C3, left, through::lower_two, through::outer_two},
    {0x0B0, right | upper | sum_to_1, through::upper_two, through::upper_two, 4},
    {0x1A0, right | upper | sum_above_1, through::upper_two, through::upper_two, 8},
    {0x190, right | upper | v_leads, through::upper_two, through::upper_two, 7},
    {0x130, right | upper | u_leads, through::upper_two, through::upper_two, 5},
    {0x016, right | lower | sum_to_0, through::upper_two, through::lower_two, 1},
    {0x034, right | lower | sum_above_0, through::upper_two, through::lower_two, 5},
    {0x032, right | lower | u_leads_to_1, through::upper_two, through::lower_two, 4},
    {0x026, right | lower | u_leads_above_1, through::upper_two, through::lower_two, 2},
    {0x058, left | upper | sum_to_0, through::lower_two, through::upper_two, 3},
    {0x0D0, left | upper | sum_above_0, through::lower_two, through::upper_two, 7},
    {0x0C8, left | upper | v_leads_from_1, through::lower_two, through::upper_two, 6},
    {0x098, left | upper | v_leads_below_1, through::lower_two, through::upper_two, 4},
    {0x00B, left | lower | sum_to_minus_1, through::lower_two, through::lower_two, 0},
    {0x01A, left | lower | sum_above_minus_1, through::lower_two, through::lower_two, 4},
    {0x019, left | lower | v_leads, through::lower_two, through::lower_two, 3},
    {0x013, left | lower | u_leads, through::lower_two, through::lower_two, 1},
    {0x168, upper, through::outer_two, through::upper_two},
    {0x02D, lower, through::outer_two, through::lower_two},
    {0x145, anywhere, through::outer_two, through::outer_two},
    {0x1B0, anywhere, through::upper_two, through::upper_two},
    {0x036, anywhere, through::upper_two, through::lower_two},
    {0x186, anywhere, through::upper_two, through::outer_two},
    {0x0D8, anywhere, through::lower_two, through::upper_two},
    {0x01B, anywhere, through::lower_two, through::lower_two},
    {0x0C3, anywhere, through::lower_two, through::outer_two},
};

// Of a square of two by two cells: from its corner to the neighbour along X and to that along Y.
constexpr int step_beside(const rung& r) noexcept {
  const int columns = r.columns == through::upper_two ? 1 : -1;  // sum of the square's columns
  return columns - 2 * (r.corner % 3 - 1);
}
constexpr int step_across(const rung& r) noexcept {
  const int rows = r.rows == through::upper_two ? 1 : -1;
  return rows - 2 * (r.corner / 3 - 1);
}

constexpr std::uint32_t cells_used(const rung& r) noexcept {
  std::uint32_t cells = 0;
  for (std::uint32_t row = 0; row < 3; ++row) {
    cells |= (bits_of(r.rows) >> row & 1U) * (bits_of(r.columns) << 3U * row);
  }
  if (r.corner != no_corner) {
    cells &= ~(1U << static_cast<unsigned>(r.corner + step_beside(r) + 3 * step_across(r)));
  }
  return cells;
}

static_assert(std::all_of(std::begin(ladder), std::end(ladder),
                          [](const rung& r) { return r.cells == cells_used(r); }),
              "an interpolant needs the cells that it weighs, and no others");

double product(const double* z, const three_weights& along_x, const three_weights& along_y) {
  const double rows[] = {weighted(along_x, z), weighted(along_x, z + 3), weighted(along_x, z + 6)};
  return weighted(along_y, rows);
}

double plane(const double* z, const rung& r, double u, double v) {
  const double corner = z[r.corner];
  const double beside = z[r.corner + step_beside(r)];
  const double across = z[r.corner + 3 * step_across(r)];
  const int corner_column = r.corner % 3 - 1;
  const int corner_row = r.corner / 3 - 1;
  const double u_share = (u - corner_column) * step_beside(r);
  const double v_share = (v - corner_row) * step_across(r);
  return corner + (beside - corner) * u_share + (across - corner) * v_share;
}

}  // namespace

std::optional<double> block_value(const nine_cells& block, double u, double v) noexcept {
  if (block.present == all_nine) {
    const three_weights along_x = parabola(u);
    return product(block.z, along_x, parabola(v));
  }
  const std::uint32_t where = place_of(u, v);
  for (const rung& r : ladder) {
    if ((block.present & r.cells) == r.cells && (where & r.where) == r.where) {
      return r.corner == no_corner
                 ? product(block.z, weights_of(r.columns, u), weights_of(r.rows, v))
                 : plane(block.z, r, u, v);
    }
  }
  return std::nullopt;
}

}  // namespace velmorankite
