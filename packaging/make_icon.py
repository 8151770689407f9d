#!/usr/bin/env python3
"""Draws the program's icon, a ring of six sheets, and writes it in all its sizes.

Usage: packaging/make_icon.py src/program/vrix.ico
The same input gives the same bytes. Needs nothing but Python's own library.
"""

import math
import struct
import sys
import zlib

SIZES = (16, 20, 24, 32, 40, 48, 64, 256)
LARGE = 64  # from here on a size is stored as PNG
UNITS = 48.0
SAMPLES = 4  # each way in a pixel
DARK, LIGHT, FIRST, PAPER = (12, 62, 92), (64, 158, 178), (226, 148, 40), (255, 255, 255)


def turned(points, angle, centre):
    sine, cosine = math.sin(angle), math.cos(angle)
    cx, cy = centre
    return [(cx + (x - cx) * cosine - (y - cy) * sine, cy + (x - cx) * sine + (y - cy) * cosine) for x, y in points]


def shapes(size):
    """The polygons in drawing order. Small sizes leave out the lines of text."""
    for i in range(6):
        def placed(points):
            return turned(turned(points, -0.42, (24, 10)), 2 * math.pi * i / 6, (24, 24))

        share = (i - 1) / 4
        colour = FIRST if i == 0 else tuple(round(d + (l - d) * share) for d, l in zip(DARK, LIGHT))
        yield placed([(18.5, 2), (26, 2), (30, 6), (30, 18), (18.5, 18)]), colour
        if size < 32:
            continue
        yield placed([(26, 2), (30, 6), (26, 6)]), PAPER
        for line in (9.5, 13.5):
            yield placed([(20.3, line - 0.7), (28.2, line - 0.7), (28.2, line + 0.7), (20.3, line + 0.7)]), PAPER


def crossings(polygon, y):
    found = []
    for (x0, y0), (x1, y1) in zip(polygon, polygon[1:] + polygon[:1]):
        if (y0 <= y) != (y1 <= y):
            found.append(x0 + (y - y0) * (x1 - x0) / (y1 - y0))
    return sorted(found)


def picture(size):
    """Rows from top to bottom of (red, green, blue, alpha)."""
    wide = size * SAMPLES
    scale = wide / UNITS
    samples = [[None] * wide for _ in range(wide)]
    for polygon, colour in shapes(size):
        polygon = [(x * scale, y * scale) for x, y in polygon]
        for row in range(wide):
            at = crossings(polygon, row + 0.5)
            for start, end in zip(at[::2], at[1::2]):
                for x in range(max(0, math.ceil(start - 0.5)), min(wide, math.ceil(end - 0.5))):
                    samples[row][x] = colour
    return [[pixel(samples, x, y) for x in range(size)] for y in range(size)]


def pixel(samples, x, y):
    seen = [samples[y * SAMPLES + j][x * SAMPLES + i] for j in range(SAMPLES) for i in range(SAMPLES)]
    filled = [colour for colour in seen if colour is not None]
    if not filled:
        return (0, 0, 0, 0)
    mean = tuple(round(sum(part) / len(filled)) for part in zip(*filled))
    return mean + (round(255 * len(filled) / len(seen)),)


def png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    size = len(rows)
    lines = b"".join(b"\0" + bytes(part for p in row for part in p) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def bitmap(rows):
    size = len(rows)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = bytes((size + 31) // 32 * 4 * size)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0)
    return header + colours + mask


def main():
    images = [png(picture(size)) if size >= LARGE else bitmap(picture(size)) for size in SIZES]
    offset = 6 + 16 * len(images)
    with open(sys.argv[1], "wb") as out:
        out.write(struct.pack("<HHH", 0, 1, len(images)))
        for size, image in zip(SIZES, images):
            out.write(struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset))
            offset += len(image)
        for image in images:
            out.write(image)


main()
