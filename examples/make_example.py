#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Draws the example picture, a small town by a river, and writes it as town.odt and town.docx.

    examples/make_example.py [FOLDER]

The picture is made of some 400 drawing shapes that share a dozen colours, in groups up to three
deep, with every kind of fill that Writer knows. It is written as flat OpenDocument XML and brought
into the two formats by a private LibreOffice. The same run always draws the same picture.
"""

import argparse
import math
import random
import re
import sys
import tempfile
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tools"))

from flat_odf import (  # noqa: E402
    AS_CHARACTER,
    NO_FILL,
    NO_LINE,
    TO_PAGE,
    TO_PARAGRAPH,
    Document,
    line,
    png,
    solid,
    tag,
)
from private_office import PrivateOffice  # noqa: E402

# The colours that a recolouring takes hold of; each is the fill of many shapes.
ROOF = "#C00000"
SLATE = "#4F6D7A"
WALL = "#FFF2CC"
WALL_OCHRE = "#F4C98A"
WALL_ROSE = "#F2B8A0"
WHITE = "#FFFFFF"
GLASS = "#7FA8C9"
WOOD = "#7F4A21"
STONE = "#CFC6B8"
MEADOW = "#7DB356"
SPRUCE = "#2F6B3C"
SPRUCE_LIGHT = "#3F8A4D"
LEAF = "#5B9A3C"
LEAF_LIGHT = "#86BC55"
FLOWER = "#FFC000"
FLOWER_RED = "#E4572E"
SHADOW = "#26332B"

INK = line("#5A4636", 0.18)
FRAME = line(WHITE, 0.35)
BIRD = line("#3B4A57", 0.35)

# The picture is composed on a canvas of 1000 x 580 units.
CANVAS_WIDTH, CANVAS_HEIGHT = 1000, 580
UNIT = 0.257
LEFT, TOP = 20, 37
SESSION_NUMBER = re.compile(rb'(config:name="Rsid(?:Root)?"[^>]*>)\d+')
TITLE = "Městečko u řeky"
EPOCH = (2001, 1, 1, 0, 0, 0)
DATE = "2001-01-01T00:00:00"


def place(point):
    return (LEFT + point[0] * UNIT, TOP + point[1] * UNIT)


def place_box(box):
    x, y = place(box)
    return (x, y, box[2] * UNIT, box[3] * UNIT)


def through(points, tension=6.0):
    """The Bézier segments of an open smooth curve through the points."""
    segments = []
    for i in range(len(points) - 1):
        before, start = points[max(i - 1, 0)], points[i]
        end, after = points[i + 1], points[min(i + 2, len(points) - 1)]
        first = tuple(s + (e - b) / tension for b, s, e in zip(before, start, end))
        second = tuple(e - (a - s) / tension for s, e, a in zip(start, end, after))
        segments.append((first, second, end))
    return segments


def straight(start, end):
    """A straight line as a Bézier segment."""
    third = tuple((e - s) / 3 for s, e in zip(start, end))
    return (
        tuple(s + t for s, t in zip(start, third)),
        tuple(e - t for e, t in zip(end, third)),
        end,
    )


class Picture:
    """The drawing functions of a document, on the canvas's coordinates."""

    def __init__(self, document):
        self.document = document
        self.random = random.Random(1348)

    def rectangle(self, box, fill, stroke=NO_LINE, name="", anchor=None):
        return self.document.rectangle(place_box(box), fill, stroke, name, anchor)

    def ellipse(self, box, fill, stroke=NO_LINE, name="", anchor=None):
        return self.document.ellipse(place_box(box), fill, stroke, name, anchor)

    def disc(self, center, radius, fill, stroke=NO_LINE, name="", anchor=None):
        box = (center[0] - radius, center[1] - radius, 2 * radius, 2 * radius)
        return self.ellipse(box, fill, stroke, name, anchor)

    def custom(self, kind, box, fill, stroke=NO_LINE, name="", anchor=None, modifiers=None):
        return self.document.custom(kind, place_box(box), fill, stroke, name, anchor, modifiers)

    def polygon(self, points, fill, stroke=NO_LINE, name="", anchor=None):
        return self.document.polygon(list(map(place, points)), fill, stroke, name, anchor)

    def polyline(self, points, stroke, name="", anchor=None):
        return self.document.polyline(list(map(place, points)), stroke, name, anchor)

    def line(self, start, end, stroke, name="", anchor=None):
        return self.document.line(place(start), place(end), stroke, name, anchor)

    def connector(self, start, end, stroke, name="", anchor=None):
        return self.document.connector(place(start), place(end), stroke, name, anchor)

    def curve(self, points, stroke, name="", anchor=None):
        """An open curve: its start, then two control points and an end for each segment."""
        start, *rest = map(place, points)
        segments = list(zip(rest[0::3], rest[1::3], rest[2::3]))
        return self.document.curve(start, segments, NO_FILL, stroke, name, anchor, closed=False)

    def ground(self, ridge, bottom, fill, stroke=NO_LINE, name="", anchor=None):
        """An area under a smooth ridge, down to the straight line `bottom`."""
        top = list(map(place, ridge))
        right, left = place((ridge[-1][0], bottom)), place((ridge[0][0], bottom))
        segments = through(top)
        segments += [straight(top[-1], right), straight(right, left), straight(left, top[0])]
        return self.document.curve(top[0], segments, fill, stroke, name, anchor)

    def band(self, upper, lower, fill, stroke=NO_LINE, name="", anchor=None):
        """An area between two smooth curves that run the same way."""
        top, bottom = list(map(place, upper)), list(map(place, reversed(lower)))
        segments = through(top) + [straight(top[-1], bottom[0])]
        segments += through(bottom) + [straight(bottom[-1], top[0])]
        return self.document.curve(top[0], segments, fill, stroke, name, anchor)

    def group(self, members, name="", anchor=None):
        return self.document.group(members, name, anchor)


# The fills that are more than a colour.


def brick_pixel(x, y):
    joint = y % 8 == 0 or (x + 8 * (y // 8 % 2)) % 16 == 0
    return (222, 205, 188) if joint else ((186, 108, 82), (176, 98, 74))[(x // 16 + y // 8) % 2]


def cobble_pixel(x, y):
    dx, dy = (x + 8 * (y // 12 % 2)) % 16 - 8, y % 12 - 6
    inside = (dx / 7.2) ** 2 + (dy / 5.2) ** 2 < 1
    return (206, 196, 180) if inside else (178, 168, 153)


def orchard_pixel(x, y):
    crown = (x - 10) ** 2 + (y - 10) ** 2
    if crown < 30:
        return (92, 148, 70)
    return (126, 170, 92) if (x - 12) ** 2 + (y - 13) ** 2 < 30 else (176, 205, 130)


def sail_pixel(x, y):
    return (228, 87, 46) if (y // 10) % 3 == 1 else (252, 250, 245)


class Fills:
    """The named fills of the document."""

    def __init__(self, document):
        gradient, hatch, bitmap = document.gradient, document.hatch, document.bitmap
        self.sky = gradient("Obloha", "linear", "#4E97D1", "#F3F7F4", border=12)
        self.sun = gradient("Slunce", "radial", "#FFC83D", "#FFF6D8", border=10)
        self.mountain = gradient("Hory", "linear", "#7E9BBF", "#B9CCDD")
        self.far_hill = gradient("Vzdálené kopce", "linear", "#A9CBA0", "#C4DBAE")
        self.hill = gradient("Kopec", "linear", "#9CC772", "#87B85E")
        self.river = gradient("Řeka", "linear", "#A8D3EA", "#3D86B8")
        self.road = gradient("Cesta", "axial", "#E9DFC6", "#CDBE9C", angle=90)
        self.crown = gradient("Koruna stromu", "ellipsoid", "#4F8C36", "#93C660", center=(38, 30))
        self.dial = gradient("Ciferník", "square", "#F0C75E", "#FFFBEC")
        self.plank = gradient("Prkna", "rectangular", "#B98A55", "#E3BE8A")
        self.field = hatch("Pole", "single", "#C79A3B", 1.1, 20, background="#F0D27A")
        self.furrow = hatch("Brázdy", "double", "#8A6A48", 1.3, 45, background="#C7A57C")
        self.reed = hatch("Rákos", "single", "#4C7A3A", 0.7, 80)
        self.net = hatch("Síť", "triple", "#6B6257", 0.9, 0)
        self.brick = bitmap("Cihly", png(32, 16, brick_pixel), size=(3.4, 1.7))
        self.cobble = bitmap("Dlažba", png(16, 24, cobble_pixel), size=(2.4, 3.0))
        self.orchard = bitmap("Sad", png(20, 20, orchard_pixel), size=(3.2, 3.2))
        self.sail = bitmap("Plachta", png(8, 60, sail_pixel), repeat="stretch")
        self.glow = document.fading(solid("#FFF3C4"), "Záře", "radial", 0, 95, border=30)
        self.mist = document.fading(solid(WHITE), "Mlha", "axial", 75, 0)
        self.cloud = solid(WHITE, 18)
        self.cloud_shade = solid("#DCE9F2", 30)
        self.shadow = solid(SHADOW, 78)
        self.glint = solid(WHITE, 55)


# The parts of the landscape, from the back to the front.


def sky(picture, fills):
    yield picture.rectangle((0, 0, 1000, 330), fills.sky, name="Obloha", anchor=TO_PAGE)
    yield picture.group(
        [
            picture.disc((812, 92), 92, fills.glow, name="Záře"),
            picture.disc((812, 92), 38, fills.sun, name="Slunce"),
        ],
        "Slunce",
        TO_PAGE,
    )
    for x, y, size in ((92, 78, 1.0), (330, 44, 0.78), (560, 98, 0.9), (905, 168, 0.62)):
        yield cloud(picture, fills, x, y, size)


def cloud(picture, fills, x, y, size):
    def puff(dx, dy, width, height, fill):
        box = (x + dx * size, y + dy * size, width * size, height * size)
        return picture.ellipse(box, fill, name="Obláček")

    return picture.group(
        [
            puff(-6, 26, 150, 30, fills.cloud_shade),
            puff(6, 10, 62, 38, fills.cloud),
            puff(38, -8, 66, 56, fills.cloud),
            puff(84, 8, 56, 38, fills.cloud),
        ],
        "Mrak",
        TO_PAGE,
    )


def mountains(picture, fills):
    members = []
    peaks = (
        (0, 300, 120, 196, 262),
        (150, 300, 300, 158, 452),
        (360, 300, 505, 186, 640),
        (560, 300, 690, 172, 830),
        (740, 300, 905, 190, 1000),
    )
    for left, base, top_x, top_y, right in peaks:
        outline = [(left, base), (top_x, top_y), (right, base)]
        members.append(picture.polygon(outline, fills.mountain, name="Hora"))
        members.append(snow_cap(picture, left, base, top_x, top_y, right))
    members.append(picture.rectangle((0, 238, 1000, 74), fills.mist, name="Mlha"))
    yield picture.group(members, "Hory", TO_PAGE)


def snow_cap(picture, left, base, top_x, top_y, right):
    def slope(end_x, part):
        return (top_x + (end_x - top_x) * part, top_y + (base - top_y) * part)

    points = [
        (top_x, top_y),
        slope(right, 0.30),
        slope(top_x + (right - top_x) * 0.45, 0.20),
        slope(top_x, 0.33),
        slope(top_x + (left - top_x) * 0.5, 0.19),
        slope(left, 0.27),
    ]
    return picture.polygon(points, solid(WHITE), name="Sníh")


def hills(picture, fills):
    far = [(0, 268), (140, 246), (300, 276), (470, 250), (640, 274), (820, 244), (1000, 270)]
    yield picture.ground(far, 352, fills.far_hill, name="Kopce", anchor=TO_PAGE)
    fields = [
        picture.band(
            [(690, 282), (790, 262), (880, 262)],
            [(672, 318), (790, 300), (900, 298)],
            fills.field,
            name="Pole",
        ),
        picture.band(
            [(888, 262), (940, 266), (1000, 274)],
            [(908, 298), (952, 302), (1000, 312)],
            fills.furrow,
            name="Pole",
        ),
        picture.band(
            [(404, 268), (470, 257), (556, 264)],
            [(388, 304), (470, 294), (572, 300)],
            fills.orchard,
            name="Sad",
        ),
    ]
    yield picture.group(fields, "Pole a sady", TO_PAGE)
    near = [(0, 300), (110, 290), (250, 316), (420, 306), (590, 330), (790, 306), (1000, 318)]
    yield picture.ground(near, 470, fills.hill, name="Kopec", anchor=TO_PAGE)


def spruce(picture, x, base, height):
    width = height * 0.46

    def tier(part, top, bottom, color):
        box = (x - width * part / 2, base - height * top, width * part, height * (top - bottom))
        return picture.custom("isosceles-triangle", box, solid(color), name="Větve")

    trunk = (x - height * 0.035, base - height * 0.14, height * 0.07, height * 0.14)
    return picture.group(
        [
            picture.rectangle(trunk, solid(WOOD), name="Kmen"),
            tier(1.0, 0.58, 0.10, SPRUCE),
            tier(0.80, 0.80, 0.36, SPRUCE_LIGHT),
            tier(0.56, 1.00, 0.62, SPRUCE),
        ],
        "Smrk",
    )


def forest(picture, _):
    """Two rows of spruces on the left hill; a group of groups."""
    rows = []
    for name, count, base, height in (("Zadní řada", 11, 318, 62), ("Přední řada", 10, 344, 80)):
        trees = []
        for i in range(count):
            x = 14 + i * 25.5 + picture.random.uniform(-5, 5)
            lift = 10 * math.sin(i * 0.9) + picture.random.uniform(-3, 3)
            grown = height * picture.random.uniform(0.86, 1.16)
            trees.append(spruce(picture, max(x, 22), base - lift, grown))
        rows.append(picture.group(trees, name))
    yield picture.group(rows, "Les", TO_PAGE)


def window(picture, x, y, width, height):
    """Panes with their cross bar: the glass is unnamed, as so much in real drawings is."""
    middle = x + width / 2
    return [
        picture.rectangle((x, y, width, height), solid(GLASS), FRAME),
        picture.line((middle, y), (middle, y + height), FRAME),
    ]


def house(picture, x, base, width, height, wall, roof="gable", windows=(2, 1), door=0.5):
    """A house from its left corner on the ground; `windows` is columns and upper rows."""
    top = base - height
    roof_height = width * (0.48 if roof == "gable" else 0.36)
    eaves = width * 0.08
    members = [
        picture.ellipse((x - 6, base - 5, width + 12, 10), solid(SHADOW, 78), name="Stín"),
        picture.rectangle(
            (x + width * 0.70, top - roof_height * 0.92, width * 0.11, roof_height * 0.8),
            solid(STONE),
            INK,
            "Komín",
        ),
        picture.rectangle((x, top, width, height), wall, INK, "Zeď"),
    ]
    roof_box = (x - eaves, top - roof_height, width + 2 * eaves, roof_height)
    if roof == "gable":
        members.append(
            picture.custom("isosceles-triangle", roof_box, solid(ROOF), INK, "Střecha")
        )
    else:
        left, y, wide, high = roof_box
        slant = wide * 0.17
        outline = [(left, y + high), (left + slant, y), (left + wide - slant, y)]
        outline.append((left + wide, y + high))
        members.append(picture.polygon(outline, solid(ROOF), INK, "Střecha"))
    members += openings(picture, x, top, width, height, windows, door)
    return picture.group(members, "Dům")


def openings(picture, x, top, width, height, windows, door):
    columns, rows = windows
    members = []
    pane_width, pane_height = width * 0.17, min(width * 0.22, height / (rows + 1) * 0.58)
    for row in range(rows):
        for column in range(columns):
            middle = x + width * (column + 1) / (columns + 1)
            y = top + height * (0.13 + row * 0.74 / (rows + 1))
            members += window(picture, middle - pane_width / 2, y, pane_width, pane_height)
    door_width, door_height = width * 0.19, min(height * 0.42, width * 0.38)
    door_x, door_y = x + width * door - door_width / 2, top + height - door_height
    members.append(
        picture.rectangle((door_x, door_y, door_width, door_height), solid(WOOD), INK, "Dveře")
    )
    knob = (door_x + door_width * 0.78, door_y + door_height * 0.55)
    members.append(picture.disc(knob, width * 0.017, solid(FLOWER), name="Klika"))
    return members


def church(picture, fills):
    nave, tower = solid(WALL), solid(WHITE)
    members = [
        picture.ellipse((452, 341, 150, 12), fills.shadow, name="Stín"),
        picture.rectangle((512, 292, 82, 54), nave, INK, "Loď kostela"),
        picture.polygon(
            [(503, 292), (522, 258), (588, 258), (602, 292)], solid(SLATE), INK, "Střecha lodi"
        ),
        picture.rectangle((466, 232, 46, 114), tower, INK, "Věž"),
        picture.custom("isosceles-triangle", (459, 158, 60, 76), solid(SLATE), INK, "Špička"),
        picture.disc((489, 154), 3.4, solid(FLOWER), name="Báň"),
        picture.line((489, 150), (489, 134), line("#8A6A1E", 0.5), "Kříž"),
        picture.line((483, 140), (495, 140), line("#8A6A1E", 0.5), "Kříž"),
        picture.disc((489, 256), 11, fills.dial, INK, "Hodiny"),
        picture.line((489, 256), (489, 248), line("#3B2A1C", 0.3), "Ručička"),
        picture.line((489, 256), (494, 259), line("#3B2A1C", 0.3), "Ručička"),
        picture.custom("round-rectangle", (480, 318, 18, 28), solid(WOOD), INK, "Vrata"),
    ]
    for x in (524, 545, 566):
        members.append(
            picture.custom("round-rectangle", (x, 302, 11, 28), solid(GLASS), INK, "Okno")
        )
    yield picture.group(members, "Kostel", TO_PAGE)


def town(picture, fills):
    """Three streets of houses: town > street > house, three groups deep."""
    cream, ochre, rose, white = map(solid, (WALL, WALL_OCHRE, WALL_ROSE, WHITE))
    upper = [
        house(picture, 322, 366, 48, 34, ochre, "gable", (2, 1)),
        house(picture, 386, 362, 56, 32, cream, "hip", (3, 1), 0.25),
        house(picture, 624, 364, 52, 34, rose, "gable", (2, 1)),
        house(picture, 692, 360, 62, 34, white, "hip", (3, 1), 0.75),
        house(picture, 772, 362, 48, 34, cream, "gable", (2, 1)),
    ]
    middle = [
        house(picture, 278, 418, 64, 46, cream, "hip", (3, 1), 0.25),
        house(picture, 362, 424, 58, 50, rose, "gable", (2, 1)),
        house(picture, 436, 420, 74, 46, white, "hip", (3, 1)),
        house(picture, 530, 426, 62, 56, fills.brick, "gable", (2, 1)),
        house(picture, 610, 420, 78, 46, ochre, "hip", (3, 1), 0.25),
    ]
    lower = [
        house(picture, 226, 494, 82, 76, white, "gable", (2, 2), 0.5),
        house(picture, 330, 500, 96, 64, ochre, "hip", (3, 1), 0.5),
        house(picture, 452, 498, 78, 78, rose, "gable", (2, 2), 0.5),
    ]
    # Rectangles that show nothing mark the places of houses not yet built.
    for x in (548, 616):
        lower.append(picture.rectangle((x, 446, 60, 52), NO_FILL, NO_LINE, "Stavební místo"))
    streets = [
        picture.group(upper, "Horní ulice"),
        picture.group(middle, "Prostřední ulice"),
        picture.group(lower, "Dolní ulice"),
    ]
    yield picture.group(streets, "Městečko", TO_PAGE)


def streets(picture, fills):
    meadow = [(0, 372), (130, 352), (330, 366), (560, 352), (780, 362), (1000, 344)]
    yield picture.ground(meadow, 580, solid(MEADOW), name="Louka", anchor=TO_PAGE)
    yield picture.band(
        [(236, 428), (420, 438), (580, 440), (800, 428)],
        [(228, 446), (420, 456), (590, 458), (800, 446)],
        fills.road,
        name="Cesta",
        anchor=TO_PAGE,
    )
    yield picture.band(
        [(222, 502), (360, 512), (520, 510), (700, 502)],
        [(196, 546), (360, 544), (540, 540), (700, 532)],
        fills.cobble,
        name="Náměstí",
        anchor=TO_PAGE,
    )


def river(picture, fills):
    upper = [(1000, 372), (880, 392), (770, 424), (690, 470), (648, 530), (640, 580)]
    lower = [(1000, 452), (940, 474), (900, 510), (886, 546), (880, 580)]
    yield picture.band(upper, lower, fills.river, NO_LINE, "Řeka", TO_PAGE)
    glints = []
    for x, y, width in (
        (905, 400, 54), (850, 428, 44), (930, 434, 40), (780, 452, 52), (850, 470, 40),
        (720, 496, 46), (800, 506, 58), (690, 540, 44), (770, 552, 50), (836, 536, 38),
    ):  # fmt: skip
        glints.append(picture.ellipse((x, y, width, 3.4), fills.glint, name="Odlesk"))
    yield picture.group(glints, "Odlesky", TO_PAGE)
    bank = [(908, 510), (930, 482), (1000, 458)]
    ridge = [(892, 546), (926, 516), (1000, 486)]
    yield picture.band(bank, ridge, fills.reed, name="Rákosí", anchor=TO_PARAGRAPH)


def boat(picture, x, y, size, sail, name):
    def at(points):
        return [(x + dx * size, y + dy * size) for dx, dy in points]

    mast = at([(0, 0), (0, -46)])
    return picture.group(
        [
            picture.ellipse((x - 30 * size, y + 5 * size, 60 * size, 8 * size), solid(SHADOW, 78)),
            picture.polygon(
                at([(-28, -2), (30, -2), (20, 10), (-20, 10)]), solid(WOOD), INK, "Trup"
            ),
            picture.line(mast[0], mast[1], line("#5A4636", 0.4), "Stěžeň"),
            picture.polygon(at([(2, -45), (26, -7), (2, -7)]), sail, INK, "Plachta"),
            picture.polygon(at([(-2, -38), (-18, -7), (-2, -7)]), solid(WHITE), INK, "Plachta"),
        ],
        name,
        TO_PARAGRAPH,
    )


def boats(picture, fills):
    yield boat(picture, 872, 424, 0.62, solid(FLOWER_RED), "Loďka")
    yield boat(picture, 768, 486, 0.86, fills.sail, "Loďka")
    yield boat(picture, 838, 556, 1.05, solid(FLOWER), "Loďka")


def oak(picture, fills, x, base, size, name="Strom"):
    def crown(dx, dy, radius, fill):
        return picture.disc((x + dx * size, base + dy * size), radius * size, fill, name="Koruna")

    trunk = [(-5, 0), (-3, -34), (3, -34), (5, 0)]
    return picture.group(
        [
            picture.ellipse((x - 22 * size, base - 4 * size, 44 * size, 8 * size), fills.shadow),
            picture.polygon(
                [(x + dx * size, base + dy * size) for dx, dy in trunk], solid(WOOD), name="Kmen"
            ),
            crown(-13, -40, 16, solid(LEAF)),
            crown(13, -42, 16, solid(LEAF)),
            crown(0, -56, 19, fills.crown),
            crown(-4, -36, 12, solid(LEAF_LIGHT)),
        ],
        name,
        TO_PARAGRAPH,
    )


def trees(picture, fills):
    for x, base, size in (
        (846, 372, 0.66), (932, 366, 0.74), (594, 404, 0.52), (200, 446, 0.78),
        (950, 540, 1.08), (636, 490, 0.6),
    ):  # fmt: skip
        yield oak(picture, fills, x, base, size)


def fence(picture, _):
    members = [
        picture.rectangle((18, 530, 204, 4.5), solid(WHITE), INK, "Laťka"),
        picture.rectangle((18, 546, 204, 4.5), solid(WHITE), INK, "Laťka"),
    ]
    for i in range(18):
        x = 20 + i * 11.5
        picket = [(x, 560), (x, 526), (x + 3.5, 520), (x + 7, 526), (x + 7, 560)]
        members.append(picture.polygon(picket, solid(WHITE), INK, "Tyčka"))
    yield picture.group(members, "Plot", TO_PARAGRAPH)


def flowers(picture, _):
    """Single shapes, each tied to the paragraph by itself, most of them without a name."""
    colors = (FLOWER, FLOWER_RED, WHITE)
    for i in range(30):
        x, y = picture.random.uniform(16, 214), picture.random.uniform(466, 512)
        if i >= 22:
            x, y = picture.random.uniform(905, 990), picture.random.uniform(552, 572)
        name = "Květ" if i % 3 == 0 else ""
        color = solid(colors[i % 3])
        yield picture.disc((x, y), 2.7, color, name=name, anchor=TO_PARAGRAPH)


def washing(picture, fills):
    """Two posts, a connector between them, and what hangs on it."""
    yield picture.rectangle((40, 396, 3.5, 50), solid(WOOD), name="Sloupek", anchor=TO_PARAGRAPH)
    yield picture.rectangle((160, 396, 3.5, 50), solid(WOOD), name="Sloupek", anchor=TO_PARAGRAPH)
    rope = line("#5A4636", 0.3)
    yield picture.connector((42, 399), (162, 401), rope, "Šňůra", TO_PARAGRAPH)
    for x, width, fill in (
        (54, 20, solid(WHITE)), (80, 14, solid(FLOWER_RED)), (100, 22, solid(GLASS)),
        (128, 18, solid(FLOWER)),
    ):  # fmt: skip
        box = (x, 400, width, 22)
        yield picture.rectangle(box, fill, INK, "Prádlo", TO_PARAGRAPH)


def shore(picture, fills):
    """A goal for the boys on the meadow, and the pier."""
    goal = line(WHITE, 0.7)
    yield picture.rectangle((566, 462, 46, 24), fills.net, goal, "Branka", TO_PARAGRAPH)
    posts = [
        picture.rectangle((x, 506, 3.5, 22), solid(WOOD), INK, "Kůl") for x in (664, 690, 716)
    ]
    deck = [(640, 506), (722, 506), (728, 514), (636, 514)]
    posts.append(picture.polygon(deck, fills.plank, INK, "Prkna"))
    yield picture.group(posts, "Molo", TO_PARAGRAPH)


def birds(picture, _):
    for x, y, size in (
        (196, 152, 1.0), (228, 138, 0.8), (252, 158, 0.7), (282, 146, 0.6), (650, 60, 0.8),
        (676, 72, 0.6), (424, 128, 0.6),
    ):  # fmt: skip
        wings = [(-13, -3), (-9, -9), (-3, -7), (0, 0), (3, -7), (9, -9), (13, -3)]
        yield picture.curve(
            [(x + dx * size, y + dy * size) for dx, dy in wings], BIRD, "Pták", TO_PAGE
        )
    yield picture.polyline(
        [(0, 0), (1000, 0), (1000, 580), (0, 580), (0, 0)], line("#8C8C8C", 0.3), "Rám", TO_PAGE
    )


PARTS = (
    sky, mountains, hills, streets, forest, church, river, town, trees, washing, shore, boats,
    fence, flowers, birds,
)  # fmt: skip


def key_entry(document, color, word):
    """A small square in the line of text, and what has its colour in the picture."""
    square = document.rectangle((0, 0, 3.2, 3.2), solid(color), INK, "Vzorek", AS_CHARACTER)
    return f"{square} {word}"


def write_text(document, floating):
    """The document's text; `floating` are the shapes that are tied to its first paragraph."""
    heading = {"fo:font-size": "20pt", "fo:font-weight": "bold", "fo:color": "#3B4A57"}
    font = {"style:font-name": "DejaVu Sans", "fo:font-family": "DejaVu Sans"}
    small = {"fo:font-size": "10pt", "fo:color": "#404040", **font}
    entries = (
        (ROOF, "střechy"), (WALL, "zdi"), (GLASS, "okna"), (SPRUCE, "les"), (MEADOW, "louka"),
        (FLOWER, "květy"),
    )  # fmt: skip
    key = tag("text:s", {"text:c": 5}).join(key_entry(document, *entry) for entry in entries)
    document.append(
        document.paragraph("".join(floating) + TITLE, {}, {**heading, **font})
    )
    document.append(document.paragraph(key, {"fo:margin-top": "1.5mm"}, small))


def note(document):
    text = (
        "Kresba je složena ze čtyř set tvarů, které sdílejí několik barev. "
        "Žluťoučké květy, červené střechy i zelený les lze přebarvit najednou."
    )
    small = {"fo:font-size": "9pt", "fo:font-style": "italic", "fo:color": "#595959"}
    font = {"style:font-name": "DejaVu Sans", "fo:font-family": "DejaVu Sans"}
    paragraph = document.frame_text(text, {**small, **font})
    box = (LEFT, TOP + CANVAS_HEIGHT * UNIT + 2.5, CANVAS_WIDTH * UNIT, 6)
    return document.text_frame(box, [paragraph], "Popis", TO_PARAGRAPH)


def draw():
    document = Document(297, 210, (14, 20, 10, 20), TITLE, DATE)
    picture, fills = Picture(document), Fills(document)
    shapes = [shape for part in PARTS for shape in part(picture, fills)]
    tied_to_page = f'text:anchor-type="{TO_PAGE.kind}"'

    def on_page(shape):
        return tied_to_page in shape[: shape.index(">")]

    # Shapes of a page stand before the text, in the body of the document itself.
    for shape in filter(on_page, shapes):
        document.append(shape)
    floating = [shape for shape in shapes if not on_page(shape)]
    write_text(document, [*floating, note(document)])
    return document


def bring_forward(document):
    """Lays the whole picture before the text, where a click finds its shapes."""
    page = document.DrawPage
    for i in range(page.Count):
        page.getByIndex(i).Opaque = True


def settle(path):
    """Rewrites the package with a fixed time and without the random number of the editing session,
    so that equal pictures give equal files."""
    with zipfile.ZipFile(path) as package:
        entries = [(entry, package.read(entry)) for entry in package.infolist()]
    with zipfile.ZipFile(path, "w") as package:
        for entry, data in entries:
            fixed = zipfile.ZipInfo(entry.filename, EPOCH)
            fixed.compress_type = entry.compress_type
            package.writestr(fixed, SESSION_NUMBER.sub(rb"\g<1>1", data))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", nargs="?", type=Path, default=ROOT / "examples")
    folder = parser.parse_args().folder
    document = draw()
    targets = [folder / "town.odt", folder / "town.docx"]
    with tempfile.TemporaryDirectory(prefix="town-") as scratch:
        source = Path(scratch) / "town.fodt"
        source.write_text(document.xml(), encoding="utf-8")
        with PrivateOffice() as office:
            loaded = office.load(source)
            bring_forward(loaded)
            for target in targets:
                office.store(loaded, target)
            loaded.close(True)
    for target in targets:
        settle(target)
        print(f"{target}: {document.shape_count} shapes, {target.stat().st_size} bytes")


if __name__ == "__main__":
    main()
