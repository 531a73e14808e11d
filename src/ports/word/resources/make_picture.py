# SPDX-License-Identifier: MPL-2.0
"""Makes an icon or a bitmap of Windows from a drawing.

    make_picture.py DRAWING WIDTHxHEIGHT FILE

The drawing has WIDTH by HEIGHT pixels. A bitmap (.bmp) has them with their alpha. An icon (.ico)
has 32 by 32 pixels, the only size that every Windows draws as it is; the drawing stands in its
upper left corner. Its pixels have an alpha, too, and there is a mask for those versions of Windows
that do not look at it: what is less than half opaque is not drawn there.
"""

import pathlib
import struct
import subprocess
import sys
import zlib

ICON_SIZE = 32
HEADER = b"\x89PNG\r\n\x1a\n"


def chunks_of(png):
    """The parts of a PNG file: their names and bytes."""
    at = len(HEADER)
    while at < len(png):
        size, = struct.unpack_from(">I", png, at)
        yield png[at + 4:at + 8], png[at + 8:at + 8 + size]
        at += size + 12


def predicted(kind, left, above, above_left):
    """What a byte's filter takes for its value."""
    if kind == 4:
        guess = left + above - above_left
        return min((left, above, above_left), key=lambda each: abs(guess - each))
    return (0, left, above, (left + above) // 2)[kind]


def rows_of(png):
    """The rows of a PNG file with red, green, blue and alpha: lists of such pixels."""
    parts = list(chunks_of(png))
    width, height, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", parts[0][1])
    if not png.startswith(HEADER) or (depth, colours, interlaced) != (8, 6, 0):
        sys.exit("make_picture: not a PNG file with four bytes a pixel")
    data = zlib.decompress(b"".join(content for name, content in parts if name == b"IDAT"))
    size = 4 * width
    above = bytes(size)
    for at in range(0, height * (size + 1), size + 1):
        kind, row = data[at], bytearray(data[at + 1:at + 1 + size])
        for i in range(size):
            left, above_left = (row[i - 4], above[i - 4]) if i >= 4 else (0, 0)
            row[i] = (row[i] + predicted(kind, left, above[i], above_left)) & 0xFF
        yield [tuple(row[i:i + 4]) for i in range(0, size, 4)]
        above = row


def icon_of(rows):
    """The bytes of an icon's file, with the rows in its upper left corner."""
    rows = [row + [(0, 0, 0, 0)] * (ICON_SIZE - len(row)) for row in rows]
    rows += [[(0, 0, 0, 0)] * ICON_SIZE for _ in range(ICON_SIZE - len(rows))]
    colours, mask = b"", b""
    for row in reversed(rows):
        # A pixel that is not drawn at all is black: an older Windows adds it to what is below.
        colours += b"".join(bytes((blue, green, red, alpha)) if alpha >= 128 else
                            bytes((0, 0, 0, 0)) for red, green, blue, alpha in row)
        bits = "".join("0" if alpha >= 128 else "1" for _, _, _, alpha in row)
        mask += int(bits, 2).to_bytes(ICON_SIZE // 8, "big")
    image = struct.pack("<IiiHHIIiiII", 40, ICON_SIZE, 2 * ICON_SIZE, 1, 32, 0,
                        len(colours) + len(mask), 0, 0, 0, 0) + colours + mask
    directory = struct.pack("<HHHBBBBHHII", 0, 1, 1, ICON_SIZE, ICON_SIZE, 0, 0, 1, 32, len(image),
                            22)
    return directory + image


def bitmap_of(rows):
    """The bytes of a bitmap's file."""
    pixels = b"".join(bytes((blue, green, red, alpha)) for row in reversed(rows)
                      for red, green, blue, alpha in row)
    headers = 14 + 40
    return (struct.pack("<2sIII", b"BM", headers + len(pixels), 0, headers) +
            struct.pack("<IiiHHIIiiII", 40, len(rows[0]), len(rows), 1, 32, 0, len(pixels), 0, 0,
                        0, 0) + pixels)


def main():
    drawing, size, file = sys.argv[1:]
    width, height = size.split("x")
    png = subprocess.run(["rsvg-convert", "-w", width, "-h", height, drawing], capture_output=True,
                         check=True).stdout
    make = icon_of if file.endswith(".ico") else bitmap_of
    pathlib.Path(file).write_bytes(make(list(rows_of(png))))


if __name__ == "__main__":
    main()
