/* A client of the splines, of rotation and of drape, against the installed library alone.
 * SPDX-License-Identifier: MIT */
#include "client_checks.h"

#include <math.h>

enum { columns = 8, rows = 6 };

static const double cell = 2.0, x_origin = 10.0, y_origin = 20.0;

/* The plane column + 10 row, both from 0, with cells of 2 units. */
static void write_plane(const char* name) {
  const int32_t unit = 0, size = 4, kind = 2, nx = columns, ny = rows, sense = 1, flag = 0;
  const double z_base = 0.0, z_mult = 1.0;
  const float unknown = VELMORANKITE_DUMMY;
  FCREAT(name, strlen(name));
  OUTPUT_GEOSOFT_HEADER(&unit, &size, &kind, &nx, &ny, &sense, &x_origin, &y_origin, &cell, &cell,
                        &z_base, &z_mult, &flag, &unknown, &unknown, &unknown, &unknown);
  FCLOSE(&unit);
  FILE* file = fopen(name, "r+b");
  fseek(file, 512, SEEK_SET);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      const float z = (float)(column + 10 * row);
      fwrite(&z, sizeof z, 1, file);
    }
  }
  fclose(file);
}

/* The value of a grid on a lattice of 4 by 3 cells of 1 unit from (0, 0), in the middle. */
static float middle_of(const char* name) {
  int32_t ints[VELMORANKITE_DESCRIPTION_WORDS], status = 0, mode = 1;
  const int32_t from_file = 0, one = 1;
  double reals[VELMORANKITE_DESCRIPTION_WORDS];
  const double x = 2.0, y = 1.0;
  float value = 0.0F;
  GRDRDH(name, ints, reals, NULL, &status, strlen(name), 0);
  GEO_CELL_INTERPOLATION(&from_file, name, ints, reals, NULL, &mode, &one, &x, &y, &value, &status,
                         strlen(name));
  check(status == 0 && ints[VELMORANKITE_X_COUNT] == 4 && ints[VELMORANKITE_Y_COUNT] == 3,
        "the output has the lattice that was asked for");
  remove(name);
  return value;
}

static void grids_are_turned(void) {
  const int32_t nx = columns, ny = rows, less = rows - 1, nx_out = 4, ny_out = 3, sense = -2;
  const int32_t plain = 1;
  const double one = 1.0, zero = 0.0, two = 2.0, x_middle = 16.0, y_middle = 26.0;
  const float right_angle = 90.0F, low = 0.0F, high = 60.0F;
  const float fcell = 2.0F, fx = 10.0F, fy = 20.0F, fone = 1.0F, fzero = 0.0F, ftwo = 2.0F;
  const float fx_middle = 16.0F, fy_middle = 26.0F;
  int32_t status = 7;
  /* The middle (2, 1) of the output falls on (16, 26): column 3, row 3. From there the cell left of
   * it is, turned by 90 degrees, the one above. */
  GEOROT("in.grd", "out.grd", &cell, &cell, &x_origin, &y_origin, &nx, &ny, &one, &one, &zero,
         &zero, &nx_out, &ny_out, &right_angle, &two, &one, &x_middle, &y_middle, &one, &one,
         &sense, NULL, &low, &high, &status, 6, 7);
  check(status == 0 && fabsf(middle_of("out.grd") - 33.0F) < 0.001F, "a grid is turned");
  GEOROTD("in.grd", "out.grd", &zero, &zero, &zero, &zero, NULL, NULL, &one, &one, &zero, &zero,
          &nx_out, &ny_out, &right_angle, &one, &one, &x_middle, &y_middle, &one, &one, &sense,
          &plain, NULL, &low, &high, &status, 6, 7);
  check(status == 0 && fabsf(middle_of("out.grd") - 28.0F) < 0.001F, "and by the cubic");
  GEOROTS("in.grd", "out.grd", &fcell, &fcell, &fx, &fy, &nx, &ny, &fone, &fone, &fzero, &fzero,
          &nx_out, &ny_out, &right_angle, &ftwo, &fzero, &fx_middle, &fy_middle, &fone, &fone,
          &sense, NULL, &low, &high, &status, 6, 7);
  check(status == 0 && fabsf(middle_of("out.grd") - 33.5F) < 0.001F, "and from floats");
  GEOROT("in.grd", "out.grd", &cell, &cell, &x_origin, &y_origin, &nx, &less, &one, &one, &zero,
         &zero, &nx_out, &ny_out, &right_angle, &two, &one, &x_middle, &y_middle, &one, &one,
         &sense, NULL, &low, &high, &status, 6, 7);
  check(status == -4 && remove("out.grd") != 0, "counts of another grid are refused");
}

static void grids_are_draped(void) {
  const int32_t n = 3, one_point = 1, nx_out = 4, ny_out = 3, sense = 1;
  const double one = 1.0, zero = 0.0, x_shift = 14.0, y_shift = 30.0;
  const double x[3] = {-1.0, 2.0, 5.0}, heights[3] = {1.0, 5.0, 1.0};
  const float fone = 1.0F, fzero = 0.0F, fx_shift = 14.0F, fy_shift = 30.0F;
  const float fx[3] = {-1.0F, 2.0F, 5.0F}, fheights[3] = {1.0F, 5.0F, 1.0F};
  int32_t status = 7;
  /* The middle (2, 1) shows (16, 26). */
  GEODRAPE("in.grd", "out.grd", &sense, &one, &one, &zero, &zero, &nx_out, &ny_out, &n, x, heights,
           &x_shift, &y_shift, &status, 6, 7);
  check(status == 0 && fabsf(middle_of("out.grd") - 33.0F) < 0.001F, "a grid is draped");
  GEODRAPES("in.grd", "out.grd", &sense, &fone, &fone, &fzero, &fzero, &nx_out, &ny_out, &n, fx,
            fheights, &fx_shift, &fy_shift, &status, 6, 7);
  check(status == 0 && fabsf(middle_of("out.grd") - 33.0F) < 0.001F, "and from floats");
  GEODRAPE("in.grd", "out.grd", &sense, &one, &one, &zero, &zero, &nx_out, &ny_out, &one_point, x,
           heights, &x_shift, &y_shift, &status, 6, 7);
  check(status == -7 && remove("out.grd") != 0, "one point is no profile");
}

static void splines_go_through_their_tables(void) {
  const int32_t n = 4, free_end = 0, slope = 1, computed = 3;
  const double x[4] = {0.0, 1.0, 2.0, 4.0}, zero = 0.0, three = 3.0, tension = 2.0;
  double c[16] = {0.0, 0, 0, 0, 1.0, 0, 0, 0, 8.0, 0, 0, 0, 64.0, 48.0, 0, 0}; /* x cubed */
  double t[12] = {1.0, 0, 0, 3.0, 0, 0, 5.0, 0, 0, 9.0, 0, 0};                 /* 2 x + 1 */
  const double descending[4] = {9.0, 5.0, 3.0, 1.0};
  int32_t left = 0, flag = 0, error = 7;
  CUBSPL(&n, x, c, &free_end, &slope);
  check(fabs(CUBVAL(&n, x, c, &three) - 27.0) < 1e-9, "a cubic spline has its values");
  check(fabs(CUBINT(&n, x, c, &zero, &three) - 20.25) < 1e-9, "and its integral");
  check(fabs(CUBINT2(x, c, &n, &zero, x + 1) - 0.2) < 1e-9, "and its first moment");
  INTERV(x, &n, &three, &left, &flag);
  check(left == 3 && flag == 0, "a value is found in a table");
  RINTERV(descending, &n, &three, &left, &flag);
  check(left == 2 && flag == 0, "and in one that descends");
  TCUBSPL(&n, x, t, &zero, &zero, &computed, &tension, &error);
  check(error == 0 && fabs(TCUBVAL(&n, x, t, &three) - 7.0) < 1e-6, "a line stays under tension");
  TCUBSPL(&n, descending, t, &zero, &zero, &computed, &tension, &error);
  check(error == 2, "a table that does not ascend is told");
}

int main(void) {
  write_plane("in.grd");
  grids_are_turned();
  grids_are_draped();
  splines_go_through_their_tables();
  return failures == 0 ? 0 : 1;
}
