#!/usr/bin/env python3
"""make-icon.py RESULT.ico PICTURE.png...: puts pictures into an icon. Up to 48 pixels they become bitmaps with alpha
and mask, which every Windows reads; larger ones stay PNG, as Windows Vista and later expect, and take little room."""
import struct
import subprocess
import sys

LARGEST_BITMAP = 48


def size_of(png):
    width, height = struct.unpack(">II", png[16:24])
    assert width == height, "not square"
    return width


def bitmap(path, size):
    """The picture as an icon's bitmap: rows from the bottom up, first BGRA, then a bit for each invisible pixel."""
    pixels = subprocess.run(["convert", path, "-depth", "8", "BGRA:-"], check=True, capture_output=True).stdout
    assert len(pixels) == 4 * size * size
    rows = [pixels[4 * size * y:4 * size * (y + 1)] for y in reversed(range(size))]
    mask = b""
    for row in rows:
        bits = "".join("1" if alpha == 0 else "0" for alpha in row[3::4])
        words = -(-size // 32)  # a row of the mask is made of whole ones
        mask += int(bits.ljust(32 * words, "0"), 2).to_bytes(4 * words, "big")
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0) + b"".join(rows) + mask


def main(result, *paths):
    images = []
    for path in paths:
        with open(path, "rb") as file:
            png = file.read()
        size = size_of(png)
        images.append((size, png if size > LARGEST_BITMAP else bitmap(path, size)))
    offset = 6 + 16 * len(images)
    entries = b""
    for size, data in images:
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    with open(result, "wb") as file:
        file.write(struct.pack("<HHH", 0, 1, len(images)) + entries + b"".join(data for _, data in images))


if __name__ == "__main__":
    main(*sys.argv[1:])
