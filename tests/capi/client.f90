! A Fortran client of the C interface: describes a grid and takes values at points.
! SPDX-License-Identifier: MIT
module grid_routines
  use, intrinsic :: iso_c_binding
  implicit none

  interface
    subroutine GRDRDH(file_name, grid_ints, grid_reals, band_names, status, name_length, &
                      band_length) bind(C, name="GRDRDH")
      import
      character(kind=c_char), intent(in) :: file_name(*)
      integer(c_int32_t), intent(out) :: grid_ints(24)
      real(c_double), intent(out) :: grid_reals(24)
      character(kind=c_char), intent(out) :: band_names(*)
      integer(c_int32_t), intent(out) :: status
      integer(c_size_t), value :: name_length, band_length
    end subroutine GRDRDH

    subroutine GEO_CELL_INTERPOLATION(source_flag, path, grid_ints, grid_reals, cells, mode, &
                                      point_count, x, y, values, status, path_length) &
        bind(C, name="GEO_CELL_INTERPOLATION")
      import
      integer(c_int32_t), intent(in) :: source_flag, grid_ints(24), point_count
      character(kind=c_char), intent(in) :: path(*)
      real(c_double), intent(in) :: grid_reals(24), x(*), y(*)
      real(c_float), intent(in) :: cells(*)
      integer(c_int32_t), intent(inout) :: mode, status
      real(c_float), intent(out) :: values(*)
      integer(c_size_t), value :: path_length
    end subroutine GEO_CELL_INTERPOLATION

    subroutine GRDVALD(memory_flag, name, grid_ints, grid_reals, cells, point_count, x, y, values, &
                       status, name_length) bind(C, name="GRDVALD")
      import
      integer(c_int32_t), intent(in) :: memory_flag, grid_ints(24), point_count
      character(kind=c_char), intent(in) :: name(*)
      real(c_double), intent(in) :: grid_reals(24), x(*), y(*)
      real(c_float), intent(in) :: cells(*)
      real(c_float), intent(out) :: values(*)
      integer(c_int32_t), intent(out) :: status
      integer(c_size_t), value :: name_length
    end subroutine GRDVALD

    subroutine CUBSPL(n, tau, c, begin_code, end_code) bind(C, name="CUBSPL")
      import
      integer(c_int32_t), intent(in) :: n, begin_code, end_code
      real(c_double), intent(in) :: tau(n)
      real(c_double), intent(inout) :: c(4, n)
    end subroutine CUBSPL

    real(c_double) function CUBVAL(n, tau, c, x) bind(C, name="CUBVAL")
      import
      integer(c_int32_t), intent(in) :: n
      real(c_double), intent(in) :: tau(n), c(4, n), x
    end function CUBVAL
  end interface
end module grid_routines

program client
  use grid_routines
  implicit none

  integer, parameter :: columns = 12, rows = 9
  real(c_double), parameter :: x_origin = -50.0_c_double, y_origin = 75.0_c_double
  real(c_double), parameter :: cell = 2.5_c_double
  character(len=256) :: name
  character(len=512) :: band_name
  integer(c_int32_t) :: ints(24), status, mode
  real(c_double) :: reals(24), x(4), y(4)
  real(c_float) :: cells(columns, rows), from_file(4), from_memory(4)
  integer :: failures = 0

  name = 'plane.grd'
  call fill_cells()
  call write_grid()

  call GRDRDH(name, ints, reals, band_name, status, len(name, c_size_t), len(band_name, c_size_t))
  call check(status == 0, 'the grid is described')
  call check(ints(1) == 2 .and. ints(8) == columns .and. ints(9) == rows, 'integers in their slots')
  call check(abs(reals(2) - (x_origin + (columns - 1) * cell)) < 1.0e-9_c_double, 'x_max in slot 2')
  call check(band_name == '', 'the band has no name')

  x = [x_origin + 4 * cell, x_origin + 4.6_c_double * cell, x_origin, 1.0e6_c_double]
  y = [y_origin + 3 * cell, y_origin + 5.3_c_double * cell, y_origin, y_origin]
  mode = 1
  status = 7
  call GEO_CELL_INTERPOLATION(0_c_int32_t, name, ints, reals, cells, mode, 4_c_int32_t, x, y, &
                              from_file, status, len(name, c_size_t))
  call check(status == 7, 'success does not touch the status')
  call check(all(abs(from_file(1:3) - plane(x(1:3), y(1:3))) < 1.0e-4_c_float), 'values on the plane')
  call check(from_file(4) < -1.0e30_c_float, 'no value outside the grid')
  call GEO_CELL_INTERPOLATION(1_c_int32_t, ' ', ints, reals, cells, mode, 4_c_int32_t, x, y, &
                              from_memory, status, 1_c_size_t)
  call check(all(abs(from_memory - from_file) <= 0.0_c_float), 'memory gives what the file gives')
  call GEO_CELL_INTERPOLATION(0_c_int32_t, name, ints, reals, cells, mode, 0_c_int32_t, x, y, &
                              from_file, status, len(name, c_size_t))
  call check(status == -1, 'no points are a bad call')
  call GRDVALD(0_c_int32_t, name, ints, reals, cells, 4_c_int32_t, x, y, from_file, status, &
               len(name, c_size_t))
  call check(status == 0 .and. all(abs(from_file(1:3) - plane(x(1:3), y(1:3))) < 1.0e-4_c_float), &
             'the biquadratic lies on the plane')
  call GRDRDH('missing.grd', ints, reals, band_name, status, 11_c_size_t, len(band_name, c_size_t))
  call check(status == -1001, 'a missing file is told')
  call fit_square()
  if (failures > 0) stop 1

contains

  ! A spline is one table of 4 by n doubles: through squares it gives squares.
  subroutine fit_square()
    real(c_double), parameter :: tau(4) = [0.0_c_double, 1.0_c_double, 3.0_c_double, 4.0_c_double]
    real(c_double) :: c(4, 4)
    c = 0
    c(1, :) = tau**2
    call CUBSPL(4_c_int32_t, tau, c, 0_c_int32_t, 0_c_int32_t)
    call check(abs(CUBVAL(4_c_int32_t, tau, c, 2.0_c_double) - 4) < 1.0e-9_c_double, &
               'a spline meets what its nodes lie on')
  end subroutine fit_square

  elemental real(c_float) function plane(at_x, at_y)
    real(c_double), intent(in) :: at_x, at_y
    plane = real(3 * (at_x - x_origin) - 2 * (at_y - y_origin) + 1, c_float)
  end function plane

  subroutine fill_cells()
    integer :: column, row
    do row = 1, rows
      do column = 1, columns
        cells(column, row) = plane(x_origin + (column - 1) * cell, y_origin + (row - 1) * cell)
      end do
    end do
  end subroutine fill_cells

  ! A standard grid: 512 bytes of header, then the rows from the lowest Y up.
  subroutine write_grid()
    integer :: unit
    open (newunit=unit, file=trim(name), access='stream', form='unformatted', status='replace')
    write (unit) repeat(achar(0), 512)
    write (unit, pos=1) 4_c_int32_t, 2_c_int32_t, int(columns, c_int32_t), int(rows, c_int32_t), &
      1_c_int32_t, cell, cell, x_origin, y_origin, 0.0_c_double, 0.0_c_double, 1.0_c_double
    write (unit, pos=161) - 1.0e32_c_float
    write (unit, pos=513) cells
    close (unit)
  end subroutine write_grid

  subroutine check(holds, what)
    logical, intent(in) :: holds
    character(len=*), intent(in) :: what
    if (.not. holds) then
      print '(2A)', 'not so: ', what
      failures = failures + 1
    end if
  end subroutine check
end program client
