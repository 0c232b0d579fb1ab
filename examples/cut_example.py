#!/usr/bin/python3
# Cuts the example out of two world elevation products: grid 1, Italy from ETOPO5 (5 minutes of
# arc), and grid 2, the Balkans from ETOPO20 (20 minutes), which overlap along the Adriatic.
# SPDX-License-Identifier: MIT
#
#   apt-get install ferret-datasets python3-scipy
#   /usr/bin/python3 examples/cut_example.py
#
# Map units are minutes of arc. Grid 2 is given what grids of two surveys have and these two
# products lack: another level, a slow drift of it along the line, and holes.
import pathlib
import struct

import numpy
from scipy.io import netcdf_file

PRODUCTS = pathlib.Path("/usr/share/ferret-vis/data")
HERE = pathlib.Path(__file__).resolve().parent

DUMMY = numpy.float32(-1.0e32)
LEVEL_SHIFT = 250.0  # metres, added to grid 2
DRIFT = 100.0  # metres, from plus this in the north to minus this in the south of grid 2
GRID_1_REACH = 100.0  # minutes: grid 1 ends this far left of the line
# Degrees east and north, from the plain of Friuli down the axis of the Adriatic to Cyrenaica.
LINE = [
    (13.10, 46.20), (13.00, 45.60), (13.05, 45.20), (13.40, 44.80), (14.20, 43.90),
    (15.20, 43.15), (16.30, 42.40), (17.60, 41.80), (18.50, 41.10), (18.75, 40.60),
    (19.00, 40.10), (19.17, 39.60), (19.25, 39.00), (19.10, 38.50), (18.85, 37.90),
    (18.75, 37.30), (18.40, 36.80), (18.15, 36.20), (18.20, 35.50), (18.30, 34.80),
]  # fmt: skip
# Degrees east and north, and radius in minutes.
HOLES_1 = [(12.60, 42.05, 18.0)]
HOLES_2 = [(16.17, 43.17, 14.0), (20.50, 44.20, 45.0), (20.70, 36.70, 35.0)]


def read_product(name, first_x, first_y, cell, limits):
    """Cells of a world grid whose centres, in minutes, lie within (x, x, y, y), row 1 lowest."""
    with netcdf_file(PRODUCTS / name, mmap=False) as product:
        relief = product.variables["ROSE"].data
    x_low, x_high, y_low, y_high = limits
    columns = numpy.arange(x_low, x_high + cell / 2, cell)
    rows = numpy.arange(y_low, y_high + cell / 2, cell)
    i = numpy.rint(((columns - first_x) % 21600) / cell).astype(int)
    j = numpy.rint((rows - first_y) / cell).astype(int)
    return columns, rows, relief[numpy.ix_(j, i)].astype("f4")


def signed_distance(x, y, line):
    """Distance of points from a polyline, negative on its left."""
    best = numpy.full(x.shape, numpy.inf)
    for (x0, y0), (x1, y1) in zip(line, line[1:]):
        length = numpy.hypot(x1 - x0, y1 - y0)
        ux, uy = (x1 - x0) / length, (y1 - y0) / length
        along = numpy.clip(ux * (x - x0) + uy * (y - y0), 0.0, length)
        apart = numpy.hypot(x - x0 - along * ux, y - y0 - along * uy)
        right = (x - x0) * uy - (y - y0) * ux >= 0.0
        best = numpy.where(apart < numpy.abs(best), numpy.where(right, apart, -apart), best)
    return best


def drift(y):
    """The drifting part of the level of grid 2, in metres: a half wave from north to south."""
    middle, half = 60 * 40.5, 60 * 5.5
    return DRIFT * numpy.sin(numpy.clip((y - middle) / half, -1.0, 1.0) * numpy.pi / 2)


def punch(cells, x, y, holes):
    for east, north, radius in holes:
        cells[numpy.hypot(x - 60 * east, y - 60 * north) <= radius] = DUMMY


def write_standard_grid(path, columns, rows, cells, sense):
    """512 bytes of header, then rows of little-endian floats: sense 1 from below, -2 from above."""
    header = struct.pack("<hh4i7d", 4, 0, 2, len(columns), len(rows), sense,
                         columns[1] - columns[0], rows[1] - rows[0], columns[0], rows[0],
                         0.0, 0.0, 1.0)  # fmt: skip
    header += b" " * (48 + 16) + bytes(20)
    header += struct.pack("<4fdi", DUMMY, DUMMY, DUMMY, DUMMY, DUMMY, 0)
    header += b" " * 324
    stored = cells if sense == 1 else cells[::-1]
    path.write_bytes(header + stored.astype("<f4").tobytes())


def write_line(path, line):
    pairs = [("  0", "SECTION"), ("  2", "ENTITIES"), ("  0", "POLYLINE"), ("  8", "SEAM"),
             (" 66", "1"), (" 70", "0"), (" 10", "0.0"), (" 20", "0.0"), (" 30", "0.0")]  # fmt: skip
    for x, y in line:
        pairs += [("  0", "VERTEX"), ("  8", "SEAM"), (" 10", f"{x:.1f}"), (" 20", f"{y:.1f}"),
                  (" 30", "0.0")]  # fmt: skip
    pairs += [("  0", "SEQEND"), ("  0", "ENDSEC"), ("  0", "EOF")]
    path.write_text("".join(f"{code}\n{value}\n" for code, value in pairs))


def main():
    line = [(60 * east, 60 * north) for east, north in LINE]

    columns, rows, cells = read_product("etopo5.cdf", 0, -5400, 5, (300, 1240, 2100, 2760))
    x, y = numpy.meshgrid(columns, rows)
    cells[signed_distance(x, y, line) < -GRID_1_REACH] = DUMMY
    punch(cells, x, y, HOLES_1)
    write_standard_grid(HERE / "italy.grd", columns, rows, cells, 1)

    columns, rows, cells = read_product("etopo20.cdf", 1210, -5390, 20, (650, 1410, 2070, 2790))
    x, y = numpy.meshgrid(columns, rows)
    cells += (LEVEL_SHIFT + drift(y)).astype("f4")
    punch(cells, x, y, HOLES_2)
    write_standard_grid(HERE / "balkans.grd", columns, rows, cells, -2)

    write_line(HERE / "adriatic.dxf", line)


if __name__ == "__main__":
    main()
