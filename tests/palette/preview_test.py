# SPDX-License-Identifier: MPL-2.0
"""Contact sheets of the stored previews of a palette, as ImageMagick reads them."""

import json
import os
import struct
import subprocess
import unittest

from program import LIMIT, OnPaletteFiles, element, huebrush, palette

RED, BLUE = (200, 0, 0), (10, 20, 250)
WHITE, FRAME, GROUND = (255, 255, 255), (160, 160, 160), (240, 240, 240)
WIDTH, HEIGHT, GAP, COLUMNS = 144, 45, 8, 6
METAFILE = struct.pack("<HHHIHIH", 1, 9, 0x300, 12, 0, 3, 0) + struct.pack("<IH", 3, 0)


def bitmap(color, width=288, height=90):
    """A bitmap of one colour, 24 bits a pixel."""
    row = bytes(reversed(color)) * width
    row += bytes(-len(row) % 4)
    header = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, 0, 0, 0, 0, 0)
    return b"BM" + struct.pack("<IHHI", 54 + len(row) * height, 0, 0, 54) + header + row * height


class Previews(OnPaletteFiles):
    def setUp(self):
        super().setUp()
        self.sheet = self.folder / "sheet.png"

    def preview(self, name, *options, output=None):
        return huebrush("palette", "preview", self.file, name, "-o", output or self.sheet, *options)

    def refused(self, name, message, output=None):
        """Runs the command, which must fail in one line and write nothing."""
        before = {file: file.read_bytes() for file in self.folder.iterdir() if file.is_file()}
        done = self.preview(name, output=output)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(done.stderr, f"huebrush: {message}\n")
        after = {file: file.read_bytes() for file in self.folder.iterdir() if file.is_file()}
        self.assertEqual(after, before)

    def pixels(self):
        """The sheet's width and height, and its colours by their places."""
        raw = subprocess.run(["convert", self.sheet, "-depth", "8", "ppm:-"], check=True,
                             timeout=LIMIT, stdout=subprocess.PIPE).stdout
        kind, width, height, _, colors = raw.split(maxsplit=4)
        self.assertEqual(kind, b"P6")
        width, height = int(width), int(height)
        colors = raw[-3 * width * height:]
        return width, height, lambda x, y: tuple(colors[3 * (y * width + x):][:3])

    def test_are_shown_in_the_order_of_the_fills(self):
        fills = [element(5, bitmap(BLUE)), element(2, bitmap(RED)), element(9, None)]
        self.add([palette("Podzim", fills)])
        done = self.preview("Podzim")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout,
                         f"2 previews, 1 without a preview; sheet written to {self.sheet}\n")
        width, height, color = self.pixels()
        self.assertEqual((width, height), (3 * (WIDTH + GAP) + GAP, HEIGHT + 2 * GAP))
        step = WIDTH + GAP
        for place, expected in enumerate((RED, BLUE, FRAME)):
            left = GAP + place * step
            self.assertEqual(color(left, GAP), expected)
            self.assertEqual(color(left + WIDTH - 1, GAP + HEIGHT - 1), expected)
            self.assertEqual(color(left - 1, GAP), WHITE)
            self.assertEqual(color(left + WIDTH, GAP), WHITE)
        self.assertEqual(color(GAP + 2 * step + WIDTH // 2, GAP + HEIGHT // 2), GROUND)

    def test_that_cannot_be_drawn_are_counted(self):
        fills = [element(1, METAFILE), element(2, b"not a picture"), element(3, None),
                 element(4, bitmap(RED, 10, 10)), element(5, bitmap(RED)[:-1])]
        self.add([palette("Směs", fills)])
        done = self.preview("Směs")
        self.assertEqual(done.stdout, "1 preview, 1 without a preview, 1 metafile not drawn, "
                                      f"2 unreadable; sheet written to {self.sheet}\n")
        color = self.pixels()[2]
        left = GAP + 3 * (WIDTH + GAP)
        # A small picture keeps its size.
        self.assertEqual(color(left + 9, GAP + 9), RED)
        self.assertEqual(color(left + 10, GAP), WHITE)
        counted = json.loads(self.preview("Směs", "--json").stdout)
        self.assertEqual(counted, {"file": str(self.file), "palette": "Směs",
                                   "output": str(self.sheet), "fills": 5, "shown": 1, "missing": 1,
                                   "metafiles": 1, "unreadable": 2})

    def test_fill_several_rows(self):
        self.add([palette("Mnoho", [element(i, bitmap(BLUE)) for i in range(COLUMNS + 1)])])
        self.assertEqual(self.preview("Mnoho").returncode, 0)
        width, height, color = self.pixels()
        self.assertEqual((width, height),
                         (COLUMNS * (WIDTH + GAP) + GAP, 2 * (HEIGHT + GAP) + GAP))
        self.assertEqual(color(GAP, 2 * GAP + HEIGHT), BLUE)
        self.assertEqual(color(2 * GAP + WIDTH, 2 * GAP + HEIGHT), WHITE)

    def test_of_an_unknown_palette_are_refused(self):
        self.refused("Zima", f'{self.file} has no palette "Zima"')

    def test_of_a_palette_without_fills_are_refused(self):
        self.add([palette("Prázdná", [])])
        self.refused("Prázdná", 'the palette "Prázdná" has no fills')

    def test_of_a_file_that_does_not_exist_are_refused(self):
        self.file = self.folder / "none.mdb"
        self.refused("Zima", f"{self.file} does not exist")

    def test_are_not_written_over_a_folder_or_the_palette_file(self):
        self.add([palette("Podzim", [element(1, bitmap(RED))])])
        folder = self.folder / "folder.png"
        os.mkdir(folder)
        self.refused("Podzim", f"{folder} is not a regular file", output=folder)
        self.refused("Podzim", "the output is the palette file itself", output=self.file)

    def test_replace_an_older_sheet(self):
        self.sheet.write_bytes(b"old")
        self.add([palette("Podzim", [element(1, bitmap(RED))])])
        self.assertEqual(self.preview("Podzim").returncode, 0)
        self.assertEqual(self.pixels()[2](GAP, GAP), RED)


if __name__ == "__main__":
    unittest.main()
