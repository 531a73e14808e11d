#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Renders the first page of a document, or a part of it, as a PNG picture.

    tools/render.py DOCUMENT PICTURE [--crop LEFT,TOP,WIDTH,HEIGHT] [--width PIXELS]

A private LibreOffice lays the page out, `pdftoppm` paints it. Lengths are millimetres.
"""

import argparse
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from private_office import PrivateOffice  # noqa: E402

MILLIMETRES_PER_INCH = 25.4


def box(text):
    values = tuple(float(part) for part in text.split(","))
    if len(values) != 4 or min(values) < 0 or min(values[2:]) == 0:
        raise argparse.ArgumentTypeError("four lengths are needed: left, top, width, height")
    return values


def page_size(pdf):
    """Width and height of the first page."""
    report = subprocess.run(["pdfinfo", pdf], check=True, capture_output=True, text=True).stdout
    line = next(line for line in report.splitlines() if line.startswith("Page size:"))
    width, height = (float(part) for part in line.split()[2:5:2])
    return width * MILLIMETRES_PER_INCH / 72, height * MILLIMETRES_PER_INCH / 72


def paint(pdf, picture, crop, width):
    left, top, wide, high = crop or (0, 0, *page_size(pdf))
    per_millimetre = width / wide
    pixels = [round(value * per_millimetre) for value in (left, top, wide, high)]
    command = ["pdftoppm", "-png", "-singlefile", "-r", str(per_millimetre * MILLIMETRES_PER_INCH)]
    for option, value in zip(("-x", "-y", "-W", "-H"), pixels):
        command += [option, str(value)]
    # pdftoppm adds the suffix by itself.
    subprocess.run([*command, pdf, picture.with_suffix("")], check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("document", type=Path)
    parser.add_argument("picture", type=Path, help="ends in .png")
    parser.add_argument("--crop", type=box)
    parser.add_argument("--width", type=int, default=900, help="of the picture, in pixels")
    arguments = parser.parse_args()
    if arguments.picture.suffix != ".png":
        parser.error("the picture's name must end in .png")
    with tempfile.TemporaryDirectory(prefix="render-") as folder:
        pdf = Path(folder) / "page.pdf"
        with PrivateOffice() as office:
            office.convert(arguments.document, pdf)
        paint(pdf, arguments.picture, arguments.crop, arguments.width)


if __name__ == "__main__":
    main()
