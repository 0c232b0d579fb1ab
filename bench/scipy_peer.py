# The work of some routines as a script in NumPy and SciPy would do it, for bench/compare:
#   scipy_peer.py continue IN OUT CELLS SIDE        a standard grid upwards by some cells
#   scipy_peer.py merge ONE TWO LINE OUT CELLS BLEND SIDE   two grids joined along a DXF line:
#       nearest fill of the mismatch, continuation of it by CELLS, feathering over BLEND cells
#   scipy_peer.py rotate IN OUT DEGREES ORDER       a grid turned about its middle, by splines
# SIDE is that of the transform. Grids are standard grids of 4-byte floats on one lattice.
# SPDX-License-Identifier: MIT
import struct
import sys

import numpy as np
import scipy.fft
import scipy.ndimage

HEADER = 512


def read_grid(path):
    with open(path, "rb") as file:
        header = file.read(HEADER)
        cells = np.fromfile(file, np.float32)
    columns, rows = struct.unpack("<ii", header[8:16])
    return header, cells.reshape(rows, columns)


def write_grid(path, header, cells):
    with open(path, "wb") as file:
        file.write(header)
        cells.astype(np.float32, copy=False).tofile(file)


def continued(cells, distance, side):
    """The cells at a height of `distance` cells, in single precision."""
    mean = cells.mean(dtype=np.float64).astype(np.float32)
    margin = [((side - n) // 2, side - n - (side - n) // 2) for n in cells.shape]
    padded = np.pad(cells - mean, margin)
    spectrum = scipy.fft.rfft2(padded, overwrite_x=True)
    u = scipy.fft.rfftfreq(side).astype(np.float32)
    v = scipy.fft.fftfreq(side).astype(np.float32)
    spectrum *= np.exp(np.float32(-2.0 * np.pi * distance) * np.hypot(u[None, :], v[:, None]))
    padded = scipy.fft.irfft2(spectrum, padded.shape, overwrite_x=True)
    inside = tuple(slice(before, side - after) for before, after in margin)
    return padded[inside] + mean


def rotated(cells, degrees, order):
    sine, cosine = np.sin(np.radians(degrees)), np.cos(np.radians(degrees))
    turn = np.array([[cosine, -sine], [sine, cosine]])  # of rows and columns
    middle = (np.array(cells.shape) - 1) / 2
    return scipy.ndimage.affine_transform(cells, turn, middle - turn @ middle, order=order,
                                          mode="constant", cval=-1.0e32)  # fmt: skip


def read_line(path):
    """Vertices of the one polyline, in map units."""
    words = open(path).read().split("\n")
    values = {"10": [], "20": []}
    for code, value in zip(words, words[1:]):
        if code.strip() in values:
            values[code.strip()].append(float(value))
    return np.array(values["10"]), np.array(values["20"])


def merged(one, two, line, distance, blend, side):
    """Grid 1 left of a line that goes up the rows, grid 2 right of it, and the drift taken off."""
    rows = np.arange(one.shape[0])
    columns = np.interp(rows, line[1], line[0])
    on_line = np.zeros(one.shape, bool)
    on_line[rows, np.clip(np.rint(columns).astype(int), 0, one.shape[1] - 1)] = True
    has_1, has_2 = one > -1.0e30, two > -1.0e30
    away, nearest = scipy.ndimage.distance_transform_edt(~(on_line & has_1 & has_2), return_indices=True)
    correction = continued((one - two)[nearest[0], nearest[1]], distance, side)
    right = np.arange(one.shape[1])[None, :] > columns[:, None]
    share = np.where(right, np.clip(1.0 - away / blend, 0.0, 1.0), 1.0).astype(np.float32)
    blend = share * one + (1.0 - share) * (two + correction)
    return np.where(has_1 & has_2, blend, np.where(has_1, one, two))


def main(words):
    if words[0] == "continue":
        header, cells = read_grid(words[1])
        write_grid(words[2], header, continued(cells, float(words[3]), int(words[4])))
    elif words[0] == "rotate":
        header, cells = read_grid(words[1])
        write_grid(words[2], header, rotated(cells, float(words[3]), int(words[4])))
    else:
        header, one = read_grid(words[1])
        two = read_grid(words[2])[1]
        cell, x_min, y_min = struct.unpack("<d", header[20:28])[0], *struct.unpack("<dd", header[36:52])
        x, y = read_line(words[3])
        line = ((x - x_min) / cell, (y - y_min) / cell)
        write_grid(words[4], header, merged(one, two, line, float(words[5]), float(words[6]), int(words[7])))


main(sys.argv[1:])
