#!/usr/bin/python3
# Draws the picture of the README from the results of ./dev demo: both grids as they came, the
# merged grid, and their difference along the line.
# SPDX-License-Identifier: MIT
#
#   apt-get install python3-matplotlib python3-scipy
#   ./dev demo && /usr/bin/python3 examples/draw.py build/demo docs/merge.png
import pathlib
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy
from matplotlib.colors import LightSource, LinearSegmentedColormap, Normalize
from PIL import Image
from scipy.ndimage import map_coordinates

COLOURS = [(-4000, "#14285a"), (-2000, "#235596"), (-200, "#5aa0cd"), (-1, "#b4dcf0"),
           (0, "#55874b"), (300, "#82a55a"), (900, "#c8b97d"), (2000, "#a57855"),
           (3000, "#f5f5f5")]  # fmt: skip
HEIGHTS = Normalize(COLOURS[0][0], COLOURS[-1][0], clip=True)
RELIEF = LinearSegmentedColormap.from_list("relief", [(HEIGHTS(z), c) for z, c in COLOURS], N=1024)
NO_DATA = (0.85, 0.85, 0.85)


def read_grid(path):
    """Lattice (x first, x cell, y first, y cell) and cells, lowest row first, blanks as NaN."""
    raw = path.read_bytes()
    columns, rows, sense = numpy.frombuffer(raw, "<i4", 3, 8)
    x_cell, y_cell, x_first, y_first = numpy.frombuffer(raw, "<f8", 4, 20)
    cells = numpy.frombuffer(raw, "<f4", columns * rows, 512).reshape(rows, columns).astype(float)
    cells[cells <= -1e30] = numpy.nan
    return (x_first, x_cell, y_first, y_cell), cells if sense == 1 else cells[::-1]


def values_at(grid, x, y, order):
    """Values of the nearest cells (order 0) or between the cells (order 1); NaN outside."""
    (x_first, x_cell, y_first, y_cell), cells = grid
    places = [(y - y_first) / y_cell, (x - x_first) / x_cell]
    return map_coordinates(cells, places, order=order, cval=numpy.nan)


def draw_relief(axes, cells, extent, title, line):
    light = LightSource(315, 45)
    shade = light.hillshade(numpy.nan_to_num(cells), vert_exag=0.02)[..., None]
    picture = RELIEF(HEIGHTS(numpy.nan_to_num(cells)))[..., :3] * (0.55 + 0.6 * shade)
    picture[numpy.isnan(cells)] = NO_DATA
    axes.imshow(numpy.clip(picture, 0, 1), origin="lower", extent=extent, aspect=1 / 0.76)
    axes.plot(*line, color="black", linewidth=0.6, linestyle=(0, (4, 4)))
    axes.set(title=title, xticks=[], yticks=[], xlim=extent[:2], ylim=extent[2:])


def read_report(path):
    """Columns of the report, which are 6, 10, 10, 12, 12 and 12 characters wide."""
    lines = path.read_text().splitlines()[1:]
    ends = numpy.cumsum([0, 6, 10, 10, 12, 12, 12])
    return numpy.array([[float(line[a:b]) for a, b in zip(ends, ends[1:])] for line in lines]).T


def offset_of(summary):
    """The offset that the program found, from its words on standard error."""
    words = summary.read_text().split()
    return float(words[words.index("offset") + 1])


def main():
    folder, target = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    italy, balkans = read_grid(folder / "italy.grd"), read_grid(folder / "balkans.grd")
    lattice, merged = read_grid(folder / "merged.grd")
    x = lattice[0] + lattice[1] * numpy.arange(merged.shape[1])
    y = lattice[2] + lattice[3] * numpy.arange(merged.shape[0])
    extent = (x[0], x[-1], y[0], y[-1])
    over = values_at(italy, *numpy.meshgrid(x, y), order=0)
    under = values_at(balkans, *numpy.meshgrid(x, y), order=0)
    _, line_x, line_y, _, _, residual = read_report(folder / "merged_mismatch.dat")
    offset = offset_of(folder / "summary.txt")
    surface = read_grid(folder / "merged_stitch_grid_smooth.grd")
    corrected = residual - values_at(surface, line_x, line_y, order=1)

    figure = plt.figure(figsize=(11, 6.2), dpi=90, layout="constrained")
    maps, below = figure.subfigures(2, 1, height_ratios=[2.6, 1])
    left, right = maps.subplots(1, 2)
    draw_relief(left, numpy.where(numpy.isnan(over), under, over), extent,
                "before: one grid laid over the other", (line_x, line_y))
    draw_relief(right, merged, extent, "merged along the dashed line", (line_x, line_y))
    axes = below.subplots()
    along = numpy.concatenate([[0], numpy.cumsum(numpy.hypot(numpy.diff(line_x), numpy.diff(line_y)))])
    axes.axhline(0, color="grey", linewidth=0.6)
    axes.plot(along, residual + offset, color="#b03030", label="before")
    axes.plot(along, residual, color="#5aa0cd", label="offset taken away")
    axes.plot(along, corrected, color="#14285a", label="drift taken away too")
    axes.set(xlabel="distance along the line (minutes of arc)", ylabel="grid 1 - grid 2 (m)",
             xlim=(0, along[-1]))
    axes.legend(loc="center left", ncols=3, frameon=False)
    # A palette makes the file a third as large.
    figure.canvas.draw()
    picture = Image.fromarray(numpy.asarray(figure.canvas.buffer_rgba())[..., :3])
    picture.quantize(224, dither=Image.Dither.NONE).save(target, optimize=True)


if __name__ == "__main__":
    main()
