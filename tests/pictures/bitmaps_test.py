# SPDX-License-Identifier: MPL-2.0
"""Bitmaps as ImageMagick and our decoder see them: those that ImageMagick has written, and those of
every form that our tests are made of."""

import os
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

TOOL = os.environ["HUEBRUSH_PICTURE_TOOL"]
LIMIT = 60

# What ImageMagick is asked to write, and the depth, compression and header that come of it.
WRITTEN = {
    "1": (["-monochrome", "bmp3:"], (1, 0, 40)),
    "4": (["-colors", "11", "-type", "Palette", "bmp3:"], (4, 0, 40)),
    "8": (["-colors", "200", "-type", "Palette", "-compress", "None", "bmp3:"], (8, 0, 40)),
    "rle8": (["-colors", "60", "-type", "Palette", "-compress", "RLE", "bmp3:"], (8, 1, 40)),
    "24": (["-type", "TrueColor", "bmp3:"], (24, 0, 40)),
    "24-of-header-5": (["-type", "TrueColor", "bmp:"], (24, 0, 124)),
    "8-of-os2": (["-colors", "200", "-type", "Palette", "bmp2:"], (8, None, 12)),
    "24-of-os2": (["-type", "TrueColor", "bmp2:"], (24, None, 12)),
    "16-565": (["-define", "bmp:subtype=RGB565", "bmp:"], (16, 3, 124)),
    "16-555": (["-define", "bmp:subtype=RGB555", "bmp:"], (16, 3, 124)),
    "32-alpha": (["-alpha", "on", "-channel", "A", "-evaluate", "set", "40%", "+channel", "bmp:"],
                 (32, 3, 124)),
}

# How far a colour may be off where ImageMagick rounds another way.
ROUNDED = {"16-4444-56": 14, "16-4444-108": 14}
# It takes the colours in the table of OS/2 2 for three bytes; they have four. And it does not know
# the other number for bit fields with alpha.
NOT_READ_BY_IMAGEMAGICK = {"1-64", "4-64", "8-64", "1-64-top-down", "4-64-top-down",
                           "8-64-top-down", "rle4-of-os2", "32-fields-alpha"}


def convert(*arguments):
    return subprocess.run(["convert", *map(str, arguments)], check=True, timeout=LIMIT,
                          stdout=subprocess.PIPE).stdout


def decoded(files):
    """Red, green, blue and alpha of each file's pixels, as our decoder has them."""
    subprocess.run([TOOL, "decode", *files], check=True, timeout=LIMIT)
    return [file.with_suffix(".rgba").read_bytes() for file in files]


def number(file, at, size):
    return int.from_bytes(file[at:at + size], "little")


class Bitmaps(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="huebrush-bitmaps-"))
        self.addCleanup(shutil.rmtree, self.folder, True)

    def assert_same(self, ours, theirs, name, alpha, tolerance=0):
        self.assertEqual(len(ours), len(theirs), name)
        self.assertGreater(len(set(ours)), 1, name)
        channels = range(4 if alpha else 3)
        worst = max(abs(a - b) for channel in channels
                    for a, b in zip(ours[channel::4], theirs[channel::4]))
        self.assertLessEqual(worst, tolerance, name)

    def test_that_imagemagick_writes_are_decoded_as_it_reads_them(self):
        source = self.folder / "source.png"
        convert("-size", "37x23", "gradient:#20f0a0-#e01060", "(", "-size", "37x23",
                "plasma:red-blue", ")", "-seed", "7", "-append", source)
        files = []
        for name, (options, (bits, compression, header)) in WRITTEN.items():
            file = self.folder / f"{name}.bmp"
            convert(source, *options[:-1], f"{options[-1]}{file}")
            content = file.read_bytes()
            self.assertEqual(number(content, 14, 4), header, name)
            self.assertEqual(number(content, 24 if header == 12 else 28, 2), bits, name)
            if compression is not None:
                self.assertEqual(number(content, 30, 4), compression, name)
            files.append(file)
        for file, ours in zip(files, decoded(files)):
            self.assert_same(ours, convert(file, "-depth", "8", "rgba:-"), file.stem,
                             alpha=file.stem == "32-alpha", tolerance=int("16-" in file.stem))

    def test_of_every_form_are_read_alike(self):
        subprocess.run([TOOL, "samples", self.folder], check=True, timeout=LIMIT)
        files = sorted(self.folder.glob("*.bmp"))
        compared = 0
        for file, ours in zip(files, decoded(files)):
            name = file.stem
            if name in NOT_READ_BY_IMAGEMAGICK:
                continue
            usual = int(name.startswith("16-") or name == "32-10-bits")
            self.assert_same(ours, convert(file, "-depth", "8", "rgba:-"), name,
                             alpha=name.startswith("32-fields"),
                             tolerance=ROUNDED.get(name, usual))
            compared += 1
        self.assertEqual(compared, len(files) - len(NOT_READ_BY_IMAGEMAGICK))
        self.assertGreater(compared, 55)


if __name__ == "__main__":
    unittest.main()
