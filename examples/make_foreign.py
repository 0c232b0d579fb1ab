#!/usr/bin/env python3
# Writes the two grids of the example as other programs keep theirs: italy.asc, an ArcInfo text
# grid, and balkans_surfer7.grd, a Surfer 7 binary grid. Every value is kept exactly.
# SPDX-License-Identifier: MIT
#
#   python3 examples/make_foreign.py
import array
import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent
NO_DATA = -32768  # of the text grid: below every elevation
BLANK = 1.70141e38  # of Surfer


def read_standard_grid(path):
    """Counts, origin, cell sizes and rows of a little-endian grid of floats, lowest row first."""
    data = path.read_bytes()
    columns, rows, sense = struct.unpack("<3i", data[8:20])
    x_cell, y_cell, x_min, y_min = struct.unpack("<4d", data[20:52])
    cells = array.array("f", data[512:])
    lines = [cells[r * columns : (r + 1) * columns] for r in range(rows)]
    return (x_min, y_min, x_cell, y_cell), lines if sense == 1 else lines[::-1]


def is_valid(value):
    return value > -1.0e30


def write_arcinfo(path, lattice, lines):
    x_min, y_min, cell, _ = lattice
    header = (
        f"ncols {len(lines[0])}\nnrows {len(lines)}\ncellsize {cell:g}\n"
        f"xllcenter {x_min:g}\nyllcenter {y_min:g}\nnodata_value {NO_DATA}\n"
    )
    text = [" ".join(f"{v:.9g}" if is_valid(v) else str(NO_DATA) for v in row) for row in lines[::-1]]
    path.write_text(header + "\n".join(text) + "\n")


def write_surfer7(path, lattice, lines):
    x_min, y_min, x_cell, y_cell = lattice
    valid = [v for row in lines for v in row if is_valid(v)]
    cells = b"".join(struct.pack("<d", v if is_valid(v) else BLANK) for row in lines for v in row)
    counts = struct.pack("<2i", len(lines), len(lines[0]))
    reals = struct.pack("<8d", x_min, y_min, x_cell, y_cell, min(valid), max(valid), 0.0, BLANK)
    path.write_bytes(
        struct.pack("<4s2i", b"DSRB", 4, 1)
        + struct.pack("<4si", b"GRID", 72)
        + counts
        + reals
        + struct.pack("<4si", b"DATA", len(cells))
        + cells
    )


if __name__ == "__main__":
    write_arcinfo(HERE / "italy.asc", *read_standard_grid(HERE / "italy.grd"))
    write_surfer7(HERE / "balkans_surfer7.grd", *read_standard_grid(HERE / "balkans.grd"))
