/* A client of the values at points, against the installed library alone.
 * SPDX-License-Identifier: MIT */
#include "client_checks.h"

#include <math.h>

enum { columns = 12, rows = 9, points = 4 };

static int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
static double reals[VELMORANKITE_DESCRIPTION_WORDS];
static float reals_single[VELMORANKITE_DESCRIPTION_WORDS];
static float cells[columns * rows]; /* as the file has them */
static int16_t cells_int16[columns * rows];

static const char name[] = "plane.grd   ";
static const int32_t nx = columns, ny = rows, count = points, by_logarithms = -points;
static const int32_t from_file = 0, in_memory = 1;

/* A plane in the middle of the grid, on a node, half a cell outside and far away. */
static const double x[points] = {105.5, 104.0, 99.5, 90.0};
static const double y[points] = {207.3, 206.0, 210.0, 210.0};
static float x_single[points], y_single[points];

static double plane(double at_x, double at_y) {
  return 3.0 * (at_x - 100.0) + 2.0 * (at_y - 200.0) + 5.0;
}

static void check_values(const float* values, double tolerance, const char* what) {
  int good = values[points - 1] <= VELMORANKITE_DUMMY;
  for (int i = 0; i < points - 1; ++i) {
    good &= fabs(values[i] - plane(x[i], y[i])) <= tolerance;
  }
  check(good, what);
}

/* The grid is written from the top row down, so that both orders of rows are met. */
static void make_grid(void) {
  const double x_origin = 100.0, y_origin = 200.0, cell = 1.0, height = 2.0;
  const int32_t rows_of_array = 0, sense = -2, as_they_are = 0;
  const float no_data = VELMORANKITE_DUMMY;
  float upwards[columns * rows], low = 0, high = 0;
  int32_t status = 7;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const double z = plane(x_origin + column * cell, y_origin + row * height);
      upwards[row * columns + column] = (float)z;
      cells[(rows - 1 - row) * columns + column] = (float)z;
      cells_int16[(rows - 1 - row) * columns + column] = (int16_t)z;
    }
  }
  GEOOUT(name, &rows_of_array, &nx, &ny, upwards, &sense, &x_origin, &y_origin, &cell, &height,
         &no_data, &as_they_are, &low, &high, &status, sizeof name);
  check(status == 0, "a grid is written");
  GRDRDH(name, ints, reals, NULL, &status, sizeof name, 0);
  check(status == 0 && ints[VELMORANKITE_STORAGE_SENSE] == -2, "and described");
  for (int i = 0; i < VELMORANKITE_DESCRIPTION_WORDS; ++i) {
    reals_single[i] = (float)reals[i];
  }
  for (int i = 0; i < points; ++i) {
    x_single[i] = (float)x[i];
    y_single[i] = (float)y[i];
  }
}

static void the_best_that_the_cells_allow(void) {
  float values[points], again[points], upwards[columns * rows];
  int16_t whole[points];
  int32_t status = 7;
  GRDVALD(&from_file, name, ints, reals, NULL, &count, x, y, values, &status, sizeof name);
  check(status == 0, "values come from a file");
  check_values(values, 1e-4, "GRDVALD gives the plane");
  GRDVALD(&in_memory, " ", ints, reals, cells, &count, x, y, again, &status, 1);
  check(status == 0 && memcmp(values, again, sizeof values) == 0, "and the same from memory");
  GRDVALDS(&in_memory, " ", ints, reals_single, cells, &count, x, y, values, &status, 1);
  check_values(values, 1e-4, "GRDVALDS gives the plane");
  GRDVAL(&from_file, name, ints, reals_single, NULL, &count, x_single, y_single, values, &status,
         sizeof name);
  check_values(values, 1e-3, "GRDVAL gives the plane");
  GRDVALI2(&in_memory, " ", ints, reals, cells_int16, &count, x, y, whole, &status, 1);
  check(status == 0 && whole[0] == 36 && whole[1] == 29 && whole[3] == -32767,
        "whole numbers are cut");
  GRDVALD(&in_memory, " ", ints, reals, cells, &by_logarithms, x, y, values, &status, 1);
  check(fabs(values[1] - 29.0) < 1e-4 && values[0] != again[0], "a negative count asks for logs");
  GRDVALD(&from_file, "  ", ints, reals, NULL, &count, x, y, values, &status, 2);
  check(status == -1 && values[0] <= VELMORANKITE_DUMMY, "no name, no values");

  for (int row = 0; row < rows; ++row) { /* GEOVAL has the lowest row first */
    memcpy(upwards + row * columns, cells + (rows - 1 - row) * columns, columns * sizeof *cells);
  }
  GEOVAL(upwards, ints, reals, &count, x, y, values, &status);
  check(status == 0, "GEOVAL has a status");
  check_values(values, 1e-4, "GEOVAL gives the plane");
  GEOVALS(upwards, ints, reals_single, &count, x, y, values, &status);
  check_values(values, 1e-4, "GEOVALS gives the plane");
}

static void bicubic_values(void) {
  /* Away from the rim, where the cubic leaves a plane. */
  const double inner_x[points] = {105.5, 104.0, 103.25, 90.0};
  const double inner_y[points] = {207.3, 206.0, 210.0, 210.0};
  float xs[points], ys[points], values[points];
  int32_t status = 7;
  for (int i = 0; i < points; ++i) {
    xs[i] = (float)inner_x[i];
    ys[i] = (float)inner_y[i];
  }
  const char* const forms[] = {
      "GRID",         "GRID in double", "GRID in single", "GEO from memory", "GEO from a file",
      "GEO in single"};
  for (int form = 0; form < 6; ++form) {
    memset(values, 0, sizeof values);
    switch (form) {
      case 0:
        BICUBIC_GRID_INTERPOLATION(cells, ints, reals, &nx, &ny, &count, inner_x, inner_y, values,
                                   &status);
        break;
      case 1:
        BICUBIC_GRID_INTERPOLATIOND(cells, ints, reals, &count, inner_x, inner_y, values, &status);
        break;
      case 2:
        BICUBIC_GRID_INTERPOLATIONS(cells, ints, reals_single, &nx, &ny, &count, xs, ys, values,
                                    &status);
        break;
      case 3:
        BICUBIC_GEO_INTERPOLATION(&in_memory, name, ints, reals, &nx, &ny, cells, &count, inner_x,
                                  inner_y, values, &status, sizeof name);
        break;
      case 4:
        BICUBIC_GEO_INTERPOLATION(&from_file, name, ints, reals, &nx, &ny, NULL, &count, inner_x,
                                  inner_y, values, &status, sizeof name);
        break;
      default:
        BICUBIC_GEO_INTERPOLATIONS(&from_file, name, ints, reals_single, &nx, &ny, NULL, &count, xs,
                                   ys, values, &status, sizeof name);
    }
    int good = values[3] <= VELMORANKITE_DUMMY;
    for (int i = 0; i < 3; ++i) {
      good &= fabs(values[i] - plane(inner_x[i], inner_y[i])) <= 1e-4;
    }
    check(good && status == 7, forms[form]);
  }
  BICUBIC_GEO_INTERPOLATION(&in_memory, " ", ints, reals, &nx, &ny, cells, &count, x, y, values,
                            &status, 1);
  check(status == -1, "a blank name is refused in memory too");
  BICUBIC_GEO_INTERPOLATION(&from_file, "missing.grd", ints, reals, &nx, &ny, NULL, &count, x, y,
                            values, &status, 11);
  check(status == VELMORANKITE_FILE_FAILED, "a missing file is a failed operation");
}

int main(void) {
  make_grid();
  the_best_that_the_cells_allow();
  bicubic_values();
  return failures == 0 ? 0 : 1;
}
