#!/usr/bin/env python3
"""Draws orvane.ico: a white ring on a green square with round corners."""
import argparse
import math
import struct
import zlib
from pathlib import Path

SIZES_PIXELS = (16, 32, 48, 256)
PNG_FROM_PIXELS = 256  # what reads icons takes smaller ones as bitmaps only
GREEN = (0x12, 0x5C, 0x42)
WHITE = (0xFF, 0xFF, 0xFF)
# Lengths as parts of the side.
CORNER_RADIUS = 0.22
RING_RADIUS = 0.255  # to the middle of the stroke
RING_STROKE = 0.115
LEAST_STROKE_PIXELS = 2.0


def coverage(distance):
    """How much of a pixel lies inside an edge that many pixels away (negative: inside)."""
    return min(1.0, max(0.0, 0.5 - distance))


def square_distance(x, y, side):
    half = side / 2
    radius = CORNER_RADIUS * side
    across = max(abs(x - half) - (half - radius), 0.0)
    down = max(abs(y - half) - (half - radius), 0.0)
    return math.hypot(across, down) - radius


def ring_distance(x, y, side):
    stroke = max(RING_STROKE * side, LEAST_STROKE_PIXELS)
    return abs(math.hypot(x - side / 2, y - side / 2) - RING_RADIUS * side) - stroke / 2


def draw(side):
    """Rows of (red, green, blue, alpha), the top one first."""
    rows = []
    for row in range(side):
        pixels = []
        for column in range(side):
            x, y = column + 0.5, row + 0.5
            alpha = coverage(square_distance(x, y, side))
            white = coverage(ring_distance(x, y, side))
            colour = (round(g + (w - g) * white) for g, w in zip(GREEN, WHITE))
            pixels.append((*colour, round(255 * alpha)))
        rows.append(pixels)
    return rows


def as_png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    side = len(rows)
    lines = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in rows)
    header = struct.pack(">IIBBBBB", side, side, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(lines, 9))
            + chunk(b"IEND", b""))


def as_bitmap(rows):
    side = len(rows)
    # The height counts the colours and the mask; the mask is empty, since alpha says it all.
    header = struct.pack("<IiiHHIIiiII", 40, side, side * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask_row_bytes = (side + 31) // 32 * 4
    return header + colours + bytes(mask_row_bytes * side)


def as_icon(pictures):
    offset = 6 + 16 * len(pictures)
    entries, images = b"", b""
    for rows in pictures:
        side = len(rows)
        image = as_png(rows) if side >= PNG_FROM_PIXELS else as_bitmap(rows)
        entries += struct.pack("<BBBBHHII", side % 256, side % 256, 0, 0, 1, 32, len(image), offset + len(images))
        images += image
    return struct.pack("<HHH", 0, 1, len(pictures)) + entries + images


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("icon", type=Path, help="the file to write")
    parser.add_argument("png_folder", type=Path, nargs="?", help="where each size goes, too, as a picture to look at")
    arguments = parser.parse_args()
    pictures = [draw(side) for side in SIZES_PIXELS]
    arguments.icon.write_bytes(as_icon(pictures))
    if arguments.png_folder:
        for rows in pictures:
            (arguments.png_folder / f"orvane-{len(rows)}.png").write_bytes(as_png(rows))


if __name__ == "__main__":
    main()
