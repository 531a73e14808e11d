#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Writes a document to measure with: many rectangles, few fills.

    bench/make_document.py OUT.fodt --shapes 4000 --fills 8 [--nested]

The fills are solid and take turns, so that neighbours differ; every fill has about as many shapes
as any other. Lines have four colours. Flat, every shape stands by itself; nested, ten of them make
a group and five such groups another.
"""

import argparse
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools"))

from flat_odf import TO_PARAGRAPH, Document, line, solid  # noqa: E402

PAGE_WIDTH, PAGE_HEIGHT, MARGIN = 210, 297, 20
COLUMNS, ROWS = 20, 25
CELL_WIDTH = (PAGE_WIDTH - 2 * MARGIN) / COLUMNS
CELL_HEIGHT = (PAGE_HEIGHT - 2 * MARGIN - 10) / ROWS
SHAPES_PER_PAGE = COLUMNS * ROWS
INNER_GROUP, GROUPS_IN_GROUP = 10, 5
LINE_COLORS = ("#000000", "#404040", "#7F7F7F", "#C00000")
# Odd, so that multiplying by it only permutes the 24-bit numbers: no two fills are equal.
COLOR_STEP = 0x9E3779


def color(number):
    return f"#{(number + 1) * COLOR_STEP % 0x1000000:06X}"


def cell(number):
    row, column = divmod(number % SHAPES_PER_PAGE, COLUMNS)
    left, top = MARGIN + column * CELL_WIDTH, MARGIN + 10 + row * CELL_HEIGHT
    return (left, top, CELL_WIDTH * 0.8, CELL_HEIGHT * 0.8)


def chunks(items, size):
    return [items[i:i + size] for i in range(0, len(items), size)]


def page(document, numbers, fills, nested):
    """The shapes of one page, each tied to the page's paragraph, alone or with its group."""
    anchor = None if nested else TO_PARAGRAPH
    shapes = [
        document.rectangle(
            cell(number),
            solid(color(number % fills)),
            line(LINE_COLORS[number // fills % len(LINE_COLORS)]),
            f"Obdélník {number + 1}",
            anchor,
        )
        for number in numbers
    ]
    if not nested:
        return shapes
    inner = [document.group(members) for members in chunks(shapes, INNER_GROUP)]
    return [
        document.group(groups, f"Skupina {numbers[0] // SHAPES_PER_PAGE + 1}.{i + 1}", TO_PARAGRAPH)
        for i, groups in enumerate(chunks(inner, GROUPS_IN_GROUP))
    ]


def make(shapes, fills, nested):
    margins = (MARGIN,) * 4
    document = Document(PAGE_WIDTH, PAGE_HEIGHT, margins, "Benchmark", "2001-01-01T00:00:00")
    for numbers in chunks(range(shapes), SHAPES_PER_PAGE):
        properties = {"fo:break-before": "page"} if numbers[0] else {}
        members = page(document, numbers, fills, nested)
        document.append(document.paragraph("".join(members), properties))
    return document.xml()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("output", type=Path)
    parser.add_argument("--shapes", type=int, required=True)
    parser.add_argument("--fills", type=int, default=8)
    parser.add_argument("--nested", action="store_true")
    arguments = parser.parse_args()
    if not 1 <= arguments.fills <= arguments.shapes:
        parser.error("there must be at least one fill, and no more fills than shapes")
    if arguments.output.suffix != ".fodt":
        parser.error("the document's name must end in .fodt")
    document = make(arguments.shapes, arguments.fills, arguments.nested)
    arguments.output.write_text(document, encoding="utf-8")


if __name__ == "__main__":
    main()
