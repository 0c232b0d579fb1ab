/* A client of the C interface that sees the installed header and library alone.
 * SPDX-License-Identifier: MIT */
#include "client_checks.h"

#include <math.h>

enum { columns = 40, rows = 30 };

static const double x_origin = 100.0;
static const double y_origin = 200.0;
static const double cell = 10.0;

static void check_words(const char* part, const char* what) {
  char words[VELMORANKITE_WORDS + 1];
  const int32_t length = VELMORANKITE_LAST_ERROR(words, VELMORANKITE_WORDS);
  words[length] = '\0';
  check(strstr(words, part) != NULL, what);
}

/* The Catmull-Rom cubic gives back a plane away from the edges. */
static float plane(double x, double y) {
  return (float)(0.5 * (x - x_origin) - 0.25 * (y - y_origin) + 7.0);
}

static const char* padded(const char* text, char* buffer, size_t size) {
  memset(buffer, ' ', size);
  memcpy(buffer, text, strlen(text));
  return buffer;
}

/* Writes a plane plus `shift` as a standard grid; a cell at (hole, hole) has no data. */
static void write_grid(const char* name, float shift, int32_t hole) {
  const int32_t unit = 0, size = 4, kind = 2, nx = columns, ny = rows, sense = 1, flag = 3;
  const int32_t header = 512;
  const double z_base = 0.0, z_mult = 1.0;
  const float unknown = VELMORANKITE_DUMMY;
  check(FCREAT(name, strlen(name)) == 0, "a file is made on unit 0");
  check(OUTPUT_GEOSOFT_HEADER(&unit, &size, &kind, &nx, &ny, &sense, &x_origin, &y_origin, &cell,
                              &cell, &z_base, &z_mult, &flag, &unknown, &unknown, &unknown,
                              &unknown) == 0,
        "a header is written");
  check(FCLOSE(&unit) == 0, "unit 0 is closed");
  FILE* file = fopen(name, "r+b");
  for (int32_t row = 1; row <= ny; ++row) {
    for (int32_t column = 1; column <= nx; ++column) {
      const float z =
          column == hole && row == hole
              ? VELMORANKITE_DUMMY
              : plane(x_origin + (column - 1) * cell, y_origin + (row - 1) * cell) + shift;
      const int64_t position = GRDCELLPOS(&sense, &header, &size, &nx, &ny, &row, &column);
      fseek(file, (long)position - 1, SEEK_SET);
      fwrite(&z, sizeof z, 1, file);
    }
  }
  fclose(file);
}

static void files_go_by_unit_numbers(void) {
  int32_t size = 0, kind = 0, nx = 0, ny = 0, sense = 0, flag = 0, status = 7;
  double x = 0, y = 0, dx = 0, dy = 0, base = 0, mult = 0, variance = 0;
  float low = 0, high = 0, median = 0, mean = 0, sx = 0, sy = 0, sdx = 0, sdy = 0;
  const int32_t first = FOPEN("one.grd", 7);
  const int32_t second = FOPEN("one.grd", 7);
  check(first == 101 && second == 102, "units are given out from 101 on");
  check(FOPEN("missing.grd", 11) == -1, "a missing file has no unit");
  READ_GEOSOFT_HEADER(&second, &size, &kind, &nx, &ny, &sense, &x, &y, &dx, &dy, &base, &mult,
                      &flag, &low, &high, &median, &mean, &variance, &status);
  check(status == 7, "success does not touch the status");
  check(size == 4 && kind == 2 && nx == columns && ny == rows && sense == 1 && flag == 3,
        "the integers of the header come back");
  check(x == x_origin && y == y_origin && dx == cell && dy == cell && base == 0.0 && mult == 1.0,
        "the reals of the header come back");
  check(low == VELMORANKITE_DUMMY && variance == (double)VELMORANKITE_DUMMY,
        "unknown statistics come back");
  READ_GEOSOFT_HEADERS(&first, &size, &kind, &nx, &ny, &sense, &sx, &sy, &sdx, &sdy, &base, &mult,
                       &flag, &low, &high, &median, &mean, &variance, &status);
  check(status == 7 && sx == 100.0F && sy == 200.0F && sdx == 10.0F && sdy == 10.0F,
        "the header comes in single precision");
  check(FCLOSE(&first) == 0 && FCLOSE(&second) == 0, "the units are closed");
  READ_GEOSOFT_HEADER(&first, &size, &kind, &nx, &ny, &sense, &x, &y, &dx, &dy, &base, &mult, &flag,
                      &low, &high, &median, &mean, &variance, &status);
  check(status == VELMORANKITE_FILE_FAILED, "a unit without a file is a failure");
  check_words("unit 101", "its words name the unit");
}

static void grids_are_described(void) {
  char name[256];
  char bands[512];
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  float singles[23];
  int32_t status = 7;
  ints[17] = 9;
  reals[22] = 9.0;
  GRDRDH(padded("one.grd", name, sizeof name), ints, reals, bands, &status, sizeof name,
         sizeof bands);
  check(status == 0 && ints[VELMORANKITE_FORMAT_CODE] == 2, "a standard grid is recognised");
  check(ints[VELMORANKITE_X_COUNT] == columns && ints[VELMORANKITE_Y_COUNT] == rows,
        "the counts stand in their slots");
  check(reals[VELMORANKITE_X_MAX] == x_origin + (columns - 1) * cell &&
            reals[VELMORANKITE_Y_CELL] == cell,
        "the reals stand in their slots");
  check(ints[17] == 9 && reals[22] == 9.0, "the slots behind the last are not touched");
  check(bands[0] == ' ' && bands[511] == ' ', "the first band name is blank");
  singles[22] = 9.0F;
  GRDRDHS("one.grd", ints, singles, NULL, &status, 8, 512); /* with the NUL of the text */
  check(status == 0 && singles[VELMORANKITE_X_MAX] == 490.0F && singles[22] == 9.0F,
        "22 reals come in single precision");
  GRDRDH("missing.grd", ints, reals, NULL, &status, 11, 0);
  check(status == -1001, "a missing file is told by its number");
  check_words("GRDRDH: the file does not exist", "and by its words");
}

static void points_have_values(void) {
  const double x[3] = {250.0, 253.5, 99999.0};
  const double y[3] = {300.0, 296.0, 300.0};
  static float cells[columns * rows];
  float from_file[3];
  float from_memory[3];
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  int32_t source = 0, mode = 1, count = 3, status = 0;
  FILE* file = fopen("one.grd", "rb");
  fseek(file, 512, SEEK_SET);
  check(fread(cells, sizeof cells, 1, file) == 1, "the cells lie behind the header");
  fclose(file);
  GRDRDH("one.grd", ints, reals, NULL, &status, 7, 0);
  status = 7;
  GEO_CELL_INTERPOLATION(&source, "one.grd  ", ints, reals, NULL, &mode, &count, x, y, from_file,
                         &status, 9);
  check(status == 7, "success does not touch the status");
  check(fabsf(from_file[0] - plane(x[0], y[0])) < 1e-4F &&
            fabsf(from_file[1] - plane(x[1], y[1])) < 1e-4F && from_file[2] == VELMORANKITE_DUMMY,
        "points have the values of the plane");
  source = 1;
  GEO_CELL_INTERPOLATION(&source, "", ints, reals, cells, &mode, &count, x, y, from_memory, &status,
                         0);
  check(memcmp(from_file, from_memory, sizeof from_file) == 0, "memory gives what the file gives");
  count = -2;
  GEO_CELL_INTERPOLATION(&source, "", ints, reals, cells, &mode, &count, x, y, from_memory, &status,
                         0);
  check(mode == 2 && status == 7, "a negative count sets the mode");
  count = 0;
  GEO_CELL_INTERPOLATION(&source, "", ints, reals, cells, &mode, &count, x, y, from_memory, &status,
                         0);
  check(status == -1, "no points are a bad call");
}

static void small_services_serve(void) {
  char name[24];
  char path[512];
  int32_t length = -1, status = 7, a = 0, b = 0, c = 0, mode = 2, back = -1, forth = 0;
  float value = -4.0F;
  GRDTMPNAME((char*)padded("~job", name, sizeof name), &length, &status, sizeof name);
  check(status == 0 && length == 12 && memcmp(name, "~job0000.tmp            ", 24) == 0,
        "a scratch name is completed and padded");
  GRDTMPNAME((char*)padded("~sixteen_letters", name, sizeof name), &length, &status, sizeof name);
  check(status == 0 && length == 24 && memcmp(name, "~sixteen_letters0000.tmp", 24) == 0,
        "a name may fill its buffer");
  GRDTMPNAME((char*)padded("~seventeen_letter", name, sizeof name), &length, &status, sizeof name);
  check(status == -1 && length == 17 && memcmp(name, "~seventeen_letter       ", 24) == 0,
        "a stem without room stays as it is");
  check(GRDFILECOPY("one.grd", "copy.grd ", 7, 9) == 1, "a file is copied");
  check(GRDFILECOPY("missing", "copy.grd", 7, 8) == 0, "a missing file is not copied");
  GRDFILEDEL("copy.grd", 8);
  check(FOPEN("copy.grd", 8) == -1, "a file is deleted");
  check(GRDOSTEMP(".", "job", path, 1, 3, sizeof path) == 0 && path[511] == ' ',
        "a temporary file is made");
  GRDFILEDEL(path, sizeof path);
  check(GRDOSTEMP(".", "job", path, 1, 3, 4) == -1, "a path that does not fit is not cut");
  check(FSYSTEM("exit 0", 6) == 0 && FSYSTEM("exit 4", 6) == -1, "commands are run");
  check(FINDFILEINPATH("sh", path, 2, sizeof path) > 3, "a program is found on the path");
  check(FINDFILEINPATH("no such program", path, 15, sizeof path) == 0, "or not");
  ZRV_DLL_VERSION(&a, &b, &c);
  check(a == 32 && b == 5 && c == 5, "the version is 32, 5, 5");
  GRDZTRANS(&mode, &value, &forth);
  check(value == -18.0F, "a negative value has no logarithm");
  GRDZTRANS(&mode, &value, &back);
  check(fabsf(value - expf(-18.0F)) < 1e-14F, "its transform goes back to e to the power -18");
}

static void grids_are_cloned_and_filled(void) {
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  const int32_t zeros = 1, road = 1, limit = 0, in_memory = 1, none = 0, nx = 8, ny = 6;
  static float cells[48];
  const float spare = 0.0F;
  const double x = 100.0 + 4 * 10.0, y = 200.0 + 4 * 10.0;
  float low = 1.0F, high = 1.0F, value = 1.0F;
  int32_t source = 0, mode = 1, one = 1, filled = -1, status = 7;
  GEOCLONE("one.grd", "zeros.grd", &zeros, &status, 7, 9);
  check(status == 0, "a grid is cloned");
  GRDRDH("zeros.grd", ints, reals, NULL, &status, 9, 0);
  GEO_CELL_INTERPOLATION(&source, "zeros.grd", ints, reals, NULL, &mode, &one, &x, &y, &value,
                         &status, 9);
  check(value == 0.0F, "its cells are 0");
  GEOCLONE("missing.grd", "zeros.grd", &zeros, &status, 11, 9);
  check(status == -1001, "a missing source is told");

  write_grid("hole.grd", 0.0F, 5);
  GRID_FILL("hole.grd", "full.grd", &road, &limit, &low, &high, &spare, &filled, &status, 8, 8);
  check(status == 0 && filled >= 1 && low == 0.0F && high == 0.0F, "a hole is filled");
  GEO_CELL_INTERPOLATION(&source, "full.grd", ints, reals, NULL, &mode, &one, &x, &y, &value,
                         &status, 8);
  check(fabsf(value - plane(x, y)) < 2.0F, "its value is like those around it");

  const int32_t sweeps = 0;
  GRID_FILL("hole.grd", "swept.grd", &sweeps, &limit, &low, &high, &spare, &filled, &status, 8, 9);
  check(status == 0 && filled == 1 && low < high, "and by sweeps, a cell of one");

  for (int i = 0; i < 48; ++i) {
    cells[i] = i % 5 == 0 ? VELMORANKITE_DUMMY : 3.5F;
  }
  ints[VELMORANKITE_X_COUNT] = nx;
  ints[VELMORANKITE_Y_COUNT] = ny;
  GRDMIPMAP("one.grd", ints, reals, &nx, &ny, &none, &none, &in_memory, cells, "memory.grd", &low,
            &high, &filled, &status, 7, 10);
  check(status == 0 && filled >= 10, "cells in memory are filled");
  for (int i = 0; i < 48; ++i) {
    check(fabsf(cells[i] - 3.5F) < 1e-5F, "a constant is filled with itself");
  }
}

/* Two columns and three rows more on each side. */
static void a_grid_is_extended(void) {
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  const int32_t sense = 1, nx = columns, ny = rows, no_limit = 0, two = 2, three = 3, all = 1;
  const int32_t x_count = columns + 4, y_count = rows + 6, in_file = 0, one = 1, nowhere = 55;
  const float spare = 0.0F;
  const double x = x_origin - cell, y = y_origin + 4 * cell;
  float low = 1.0F, high = 1.0F, background = VELMORANKITE_DUMMY, value = 0.0F;
  int32_t filled = 7, status = 7, mode = 1;
  GRDRDH("hole.grd", ints, reals, NULL, &status, 8, 0);
  GRDEXT(&nowhere, &sense, &nx, &ny, reals, &cell, &cell, &spare, &no_limit, &x_count, &y_count,
         &two, &three, "wide.grd", &low, &high, &background, &all, &filled, &status, 8);
  check(status == -1 && low == 0.0F && filled == 7, "a unit without a file is told");
  const int32_t unit = FOPEN("hole.grd", 8);
  GRDEXT(&unit, &sense, &nx, &ny, reals, &cell, &cell, &spare, &no_limit, &x_count, &y_count, &two,
         &three, "wide.grd", &low, &high, &background, &all, &filled, &status, 8);
  check(status == 0 && low < high && background > low && background < high, "a grid is extended");
  check(FCLOSE(&unit) == 0 && filled > 7, "the unit stays open, the count grows");
  GRDRDH("wide.grd", ints, reals, NULL, &status, 8, 0);
  GEO_CELL_INTERPOLATION(&in_file, "wide.grd", ints, reals, NULL, &mode, &one, &x, &y, &value,
                         &status, 8);
  check(fabsf(value - plane(x, y)) < 10.0F, "its margin has values like those beside it");
}

static void grids_are_turned_and_trimmed(void) {
  int32_t first_column = 0, last_column = 0, first_row = 0, last_row = 0, status = 7;
  check(GEOFLIP("one.grd", "turned.grd", 7, 10) == 0, "a grid is turned");
  check(GEOVALID("turned.grd", 10) == 0, "and stored from the bottom");
  GEOTRIM("turned.grd", "trimmed.grd", &status, 10, 11);
  GEOLIMITS("trimmed.grd", &first_column, &last_column, &first_row, &last_row, &status, 11);
  check(first_column == 1 && last_column == rows && first_row == 1 && last_row == columns,
        "its columns have become rows, and nothing is cut from a grid without blanks");
  check(status == 7, "success does not touch the status");
  GEOTRIM("one.grd", "./one.grd", &status, 7, 9);
  check(status == VELMORANKITE_FILE_FAILED, "an input is not trimmed into itself");
}

/* Grid 2 lies 5 above grid 1: the merged grid is grid 1's plane all over. */
static void grids_are_joined(void) {
  int32_t ints_1[VELMORANKITE_DESCRIPTION_WORDS], ints_2[VELMORANKITE_DESCRIPTION_WORDS];
  double reals_1[VELMORANKITE_DESCRIPTION_WORDS], reals_2[VELMORANKITE_DESCRIPTION_WORDS];
  double line_x[5], line_y[5];
  const double spacing = 5.0, x_max = 490.0, y_max = 490.0, x_far = 1e6;
  const float correction = 0.0F, width = 30.0F, margin = 30.0F;
  const int32_t adjusted = 1, count_only = 0, store = 1, nx = columns, ny = rows;
  int32_t vertices = 0, status = 7;
  static float merged[columns * rows];
  FILE* dxf = fopen("line.dxf", "w");
  fprintf(dxf, "0\nSECTION\n2\nENTITIES\n0\nPOLYLINE\n8\n0\n");
  for (int i = 0; i < 4; ++i) {
    fprintf(dxf, "0\nVERTEX\n10\n%d\n20\n%d\n", 290 + i, 150 + 150 * i);
  }
  fprintf(dxf, "0\nSEQEND\n0\nEOF\n");
  fclose(dxf);
  RDSTITCHDXF(&count_only, "line.dxf", &spacing, &vertices, NULL, NULL, &status, 8);
  check(status == 0 && vertices == 4, "vertices are counted");
  RDSTITCHDXF(&store, "line.dxf", &spacing, &vertices, line_x, line_y, &status, 8);
  check(status == 0 && line_x[3] == 293.0 && line_y[3] == 600.0, "and stored");

  write_grid("two.grd", 5.0F, 0);
  GRDRDH("one.grd", ints_1, reals_1, NULL, &status, 7, 0);
  GRDRDH("two.grd", ints_2, reals_2, NULL, &status, 7, 0);
  GRIDSTITCH("report.txt", "one.grd", ints_1, reals_1, "two.grd", ints_2, reals_2, &correction,
             &adjusted, &width, &margin, &vertices, line_x, line_y, "merged.grd", &x_origin, &x_max,
             &cell, &nx, &y_origin, &y_max, &cell, &ny, &status, 10, 7, 7, 10);
  check(status == 0, "two grids are joined");
  FILE* file = fopen("merged.grd", "rb");
  fseek(file, 512, SEEK_SET);
  check(fread(merged, sizeof merged, 1, file) == 1, "the merged grid is whole");
  fclose(file);
  for (int i = 0; i < columns * rows; ++i) {
    const float expected = plane(x_origin + i % columns * cell, y_origin + i / columns * cell);
    check(fabsf(merged[i] - expected) < 1e-3F, "the joined grids are one plane");
  }

  GRIDSTITCH("report.txt", "one.grd", ints_1, reals_1, "two.grd", ints_2, reals_2, &correction,
             &adjusted, &width, &margin, &vertices, line_x, line_y, "two.grd", &x_origin, &x_max,
             &cell, &nx, &y_origin, &y_max, &cell, &ny, &status, 10, 7, 7, 7);
  check(status == VELMORANKITE_FILE_FAILED, "an input is no output");
  GRIDSTITCH("report.txt", "one.grd", ints_1, reals_1, "two.grd", ints_2, reals_2, &correction,
             &adjusted, &width, &margin, &vertices, line_x, line_y, "far.grd", &x_far, &x_max,
             &cell, &nx, &y_origin, &y_max, &cell, &ny, &status, 10, 7, 7, 7);
  check(status == -1, "grids that do not meet cannot be joined");
  check_words("GRIDSTITCH: ", "and the reason is told");
}

/* All that the engine takes off a plane it puts back. */
static void grids_are_transformed(void) {
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  float singles[22];
  float mean = 0, a = 0, b = 0, c = 0, low = 7.0F, high = 7.0F;
  static float cells[columns * rows];
  const int32_t scope = 1, reuse = 0, continuation = 101, width = 3, put_back = 1, in_memory = 1;
  const int32_t int_par[3] = {0, 1, 0};
  const float none = 0.0F;
  const float real_par[8] = {20.0F};
  int32_t road = 2, status = 7;
  GRID_DETREND_PLANE(&scope, "one.grd", "", &mean, &a, &b, &c, &status, 7, 0);
  check(
      status == 0 && fabsf(b - 0.5F) < 1e-5F && fabsf(c + 0.25F) < 1e-5F && fabsf(a - 7.0F) < 0.01F,
      "a plane is found");
  GRID_DETREND("one.grd", "flat.grd", &mean, &a, &b, &c, &status, 7, 8);
  GRDRDH("flat_trend.grd", ints, reals, NULL, &status, 14, 0);
  check(status == 0, "and written");
  GRID_DETREND_OLD("none.grd", "flat.grd", &mean, &a, &b, &c, &status, 8, 8);
  check(status == -999, "a missing grid has no plane");

  GRDRDH("one.grd", ints, reals, NULL, &status, 7, 0);
  TRSD("one.grd", ints, reals, "up.grd", &reuse, "", &continuation, &width, &width, &put_back,
       &road, &none, &none, &none, int_par, real_par, &low, &high, &status, 7, 6, 0);
  check(status == -1004 && low == 7.0F && high == 1.0F, "an unknown road makes no output");
  road = in_memory;
  for (int i = 0; i < 22; ++i) {
    singles[i] = (float)reals[i];
  }
  TRS("one.grd", ints, singles, "up.grd", &reuse, "", &continuation, &width, &width, &put_back,
      &road, &none, &none, &none, int_par, real_par, &low, &high, &status, 7, 6, 0);
  check(status == 0 && fabsf(low - plane(x_origin, y_origin + (rows - 1) * cell)) < 0.1F,
        "a plane is continued upwards");
  FILE* file = fopen("up.grd", "rb");
  fseek(file, 512, SEEK_SET);
  check(fread(cells, sizeof cells, 1, file) == 1, "the filtered grid is whole");
  fclose(file);
  for (int i = 0; i < columns * rows; ++i) {
    const float expected = plane(x_origin + i % columns * cell, y_origin + i / columns * cell);
    check(fabsf(cells[i] - expected) < 0.01F, "and stays the plane that it was");
  }
}

static void spectra_and_operators_are_made(void) {
  float data[16] = {3.0F, -1.0F};
  float weights[4];
  const int32_t sizes[2] = {4, 2}, odd_sizes[2] = {4, 3}, two = 2, forward = 1, inverse = -1;
  const int32_t smoothing = 100, three = 3, four = 4, option = 1, no_option = 0;
  const float none = 0.0F;
  const double spacing = 1.0, direction = 0.0;
  int32_t status = 7;
  check(FOURN(data, &two, sizes, &forward) == 0 && data[14] == 3.0F && data[15] == -1.0F,
        "a point has a flat spectrum");
  check(FOURN(data, &two, sizes, &inverse) == 0 && data[0] == 24.0F && data[14] == 0.0F,
        "both ways give the data, 8 times");
  check(FOURN(data, &two, odd_sizes, &forward) == -1, "3 is no power of two");
  CALC_FILTER_COEFFICIENTS(&smoothing, &option, &no_option, &none, &none, &none, &none, &none,
                           &spacing, &spacing, &direction, &three, &three, weights, &status);
  check(
      status == 0 && fabsf(weights[0] + 2 * (weights[1] + weights[2]) + 4 * weights[3] - 1) < 1e-6F,
      "the weights of a smoother make up 1");
  CALC_FILTER_COEFFICIENTS(&smoothing, &option, &no_option, &none, &none, &none, &none, &none,
                           &spacing, &spacing, &direction, &four, &four, weights, &status);
  check(status == -3003, "an even operator has no centre");
}

/* Integers written by one routine come back as floats by another, a window of them by steps. */
static void grids_are_written_and_converted(void) {
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS];
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  char name[32], mask[32];
  int16_t cells[12];
  float array[12], low = 0, high = 0;
  const int32_t from_array = 0, sense = 1, nx = 4, ny = 3, offset = 0, hole = 5, plain = 0;
  const float float_hole = 5.0F;
  int32_t count = 0, code = 14, step = 2, y_step = 1, status = 7;
  double x_start = x_origin, x_end = x_origin + 3 * cell, y_start = y_origin, y_end = 1e6;
  for (int i = 0; i < 12; ++i) {
    cells[i] = (int16_t)i;
    array[i] = (float)i;
  }
  GEOOUTI2("int.grd", &from_array, &sense, &nx, &ny, cells, NULL, &offset, &x_origin, &y_origin,
           &cell, &cell, &hole, &plain, &low, &high, &status, 7);
  check(status == 0 && low == 0.0F && high == 11.0F, "integers are written");
  GRDRDH("int.grd", ints, reals, NULL, &status, 7, 0);
  GRDRDG("int.grd", "float.grd", ints, reals, &x_start, &x_end, &step, &y_start, &y_end, &y_step,
         &status, 7, 9);
  check(status == 0 && reals[VELMORANKITE_Z_MAX] == 10.0 && ints[VELMORANKITE_VALID_COUNT] == 6,
        "and every other column of them converted");
  step = 0;
  GRDRDGD("int.grd", "float.grd", ints, reals, &x_start, &x_end, &step, &y_start, &y_end, &y_step,
          &status, 7, 9);
  check(status == 0 && step == 1 && y_end == y_origin + 2 * cell &&
            ints[VELMORANKITE_DUMMY_COUNT] == 1,
        "a step of 0 asks for the whole grid");
  GRDRDG("int.grd", "int.grd", ints, reals, &x_start, &x_end, &step, &y_start, &y_end, &y_step,
         &status, 7, 7);
  check(status == -12, "an input is no output");
  GEOOUT("g.grd", &from_array, &nx, &ny, array, &sense, &x_origin, &y_origin, &cell, &cell,
         &float_hole, &plain, &low, &high, &status, 5);
  check(status == 0 && low == 0.0F && high == 11.0F, "floats are written");
  EXPUNCOMPGRID("g.grd", "plain.grd", &status, 5, 9);
  check(status == -20005, "a plain grid is not compressed");
  GET_NUM_SUPPORTED_GRID_FORMATS(&count);
  check(count == 25 && GET_GRID_FORMAT_NAME(&code, name, mask, sizeof name, sizeof mask) == 0 &&
            memcmp(name, "Surfer V7 ", 10) == 0 && memcmp(mask, "*.grd ", 6) == 0,
        "formats have names");
}

int main(void) {
  write_grid("one.grd", 0.0F, 0);
  files_go_by_unit_numbers();
  grids_are_described();
  points_have_values();
  small_services_serve();
  grids_are_cloned_and_filled();
  a_grid_is_extended();
  grids_are_turned_and_trimmed();
  grids_are_joined();
  grids_are_transformed();
  spectra_and_operators_are_made();
  grids_are_written_and_converted();
  return failures == 0 ? 0 : 1;
}
