# SPDX-License-Identifier: MPL-2.0
"""What the tests of palette files share: the program, and palettes to try it on."""

import base64
import json
import os
import random
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
LIMIT = 120
# Under the sanitizers, large tests do only part of their work.
MANY_PALETTES = int(os.environ.get("HUEBRUSH_MANY_PALETTES", "2000"))
NUMBERS = ("Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
           "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType",
           "TextureType", "Type", "PresetTexture")
PREVIEW_SIZES = (0, 1, 2000, 4000, 50_000, 300_000)


def huebrush(*arguments, **options):
    if "input" not in options:
        options.setdefault("stdin", subprocess.DEVNULL)
    options.setdefault("stdout", subprocess.PIPE)
    return subprocess.run([PROGRAM, *map(str, arguments)], stderr=subprocess.PIPE, text=True,
                          timeout=LIMIT, **options)


def element(order, preview, texture=None, picture=None):
    """A fill with all columns that the file does not assign itself, in the table's order."""
    numbers = {name: order * 100 + i for i, name in enumerate(NUMBERS)}
    encoded = None if preview is None else base64.b64encode(preview).decode()
    return {"OrderNumber": order, **numbers, "TextureName": texture, "Pattern": -order,
            "PictureName": picture, "FillPreview": encoded}


def palette(name, elements, description=None):
    return {"Name": name, "Description": description, "elements": elements}


def various_elements(count, previews, seed=1):
    """Fills with nulls, empty texts and long Czech ones."""
    generator = random.Random(seed)
    texts = (None, "", "Žula", "ěščřžýáíé", "ď" * 255, "plain", "x" * 255, "\U0001F3A8 barvy")
    return [element(order, None if size is None else generator.randbytes(size),
                    texts[order % len(texts)], texts[(order + 3) % len(texts)])
            for order, size in enumerate(previews[:count])]


def various_palettes(previews):
    few = [None, 0, 1, 30, 64, 65, 4076, 4077]
    return [palette("Žluťoučký kůň", various_elements(50, previews)),
            palette("příšerně úpěl", various_elements(50, few * 7, 2), ""),
            palette("ďábelské ódy", various_elements(50, few * 7, 3), "Popis\r\nna dvou řádcích"),
            palette("x" * 30, [], "d" * 255)]


def as_stored(palettes, first_palette=1, first_element=1):
    """The palettes as a dump of a new file prints them after they were imported."""
    stored = []
    for each in palettes:
        group = first_palette + len(stored)
        elements = []
        for given in each["elements"]:
            elements.append({"ID": first_element, "GroupID": group, **given})
            first_element += 1
        stored.append({"ID": group, "Name": each["Name"], "Description": each["Description"],
                       "Count": len(elements), "elements": elements})
    return stored


class OnPaletteFiles(unittest.TestCase):
    """A test with a folder of its own and a new palette file in it."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="huebrush-palettes-"))
        self.addCleanup(shutil.rmtree, self.folder, True)
        self.file = self.folder / "fill.mdb"
        self.run_program("new", self.file)

    def run_program(self, *arguments):
        """Runs a palette command that must succeed. What it prints."""
        done = huebrush("palette", *arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""), arguments)
        return done.stdout

    def write_json(self, palettes, name="palettes.json"):
        path = self.folder / name
        path.write_text(json.dumps({"palettes": palettes}), encoding="utf-8")
        return path

    def add(self, palettes):
        self.run_program("import", self.file, self.write_json(palettes))

    def dump(self, file=None):
        return json.loads(self.run_program("dump", file or self.file))["palettes"]

    def assert_clean(self, file=None):
        result = json.loads(self.run_program("check", file or self.file, "--json"))
        self.assertEqual(result["violations"], [])
