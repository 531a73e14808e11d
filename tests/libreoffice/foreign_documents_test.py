# SPDX-License-Identifier: MPL-2.0
"""The program on documents that no office has made: a fill is stored as it was asked for in every
place that the file keeps it, nothing else changes, and what a format loses is reported.

HUEBRUSH_SAMPLES may name a folder of further documents, which are tried in the same way.
"""

import collections
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ET
import zipfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.path.insert(0, str(ROOT / "tests" / "libreoffice"))

from private_office import FILTERS  # noqa: E402
import generated_documents  # noqa: E402
import handmade_docx as handmade  # noqa: E402
import normal_form  # noqa: E402
from office import office_version, store_anew  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
SAMPLES = os.environ.get("HUEBRUSH_SAMPLES")
LIMIT = 240
ROOFS, BLUE = "#c00000", "#0070c0"
MAP = {ROOFS: BLUE}
STORED_OTHERWISE = 3


# Offices from 7.6 on keep the colours between a gradient's ends.
KNOWS_STOPS = office_version() >= (7, 6)

A, WPS, V, R = (f"{{{handmade.NAMESPACES[prefix]}}}" for prefix in ("a", "wps", "v", "r"))


def huebrush(command, *arguments):
    """What works on the document is an office."""
    return subprocess.run([PROGRAM, command, "--through", "office", *map(str, arguments)],
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, timeout=LIMIT)


def load_and_store(sources, folder):
    """What the office without our extension makes of documents, each in its own format: copies of
    the same names in the folder. One office for all of a format."""
    for suffix in sorted({source.suffix for source in sources}):
        store_anew([source for source in sources if source.suffix == suffix], FILTERS[suffix],
                   folder)


class InFolder(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.folder = Path(tempfile.mkdtemp(prefix="huebrush-foreign-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder, True)


# Twenty shapes of each of these colours, in all the ways in which a file can say them, get these
# fills. What is expected of the stored file, in both of a shape's branches, is below.
FILLS = {
    "accent1": "#0070C0",
    "accent2": json.dumps({"Visible": -1, "Type": 3, "GradientColorType": 2, "GradientStyle": 1,
                           "GradientVariant": 1,
                           "ForeColorRGB": 0x665544, "BackColorRGB": 0xCCBBAA}),
    "accent3": json.dumps({"Visible": -1, "Type": 3, "GradientColorType": 2, "GradientStyle": 7,
                           "GradientVariant": 1,
                           "ForeColorRGB": 0x112233, "BackColorRGB": 0x778899}),
    "accent4": json.dumps({"Visible": -1, "Type": 2, "Pattern": 14, "ForeColorRGB": 0x332211,
                           "BackColorRGB": 0xFFEEDD}),
    "accent5": json.dumps({"Visible": -1, "Type": 4, "TextureType": 1, "PresetTexture": 12}),
    "accent6": "none",
    "hlink": "#123456@50%",
}


def twenty_shapes(document, name):
    """Shapes that all show the theme's colour of this name; twenty with a group's members."""
    color = handmade.THEME_COLORS[name]
    other = "dk2"
    twin = lambda: document.vml(f'fillcolor="#{color}"')  # noqa: E731
    document.shape(handmade.theme(name), twin=twin())
    document.shape(handmade.theme(name), handmade.style_reference(other), twin=twin())
    document.shape(handmade.theme(name, lumMod=100), twin=twin())
    document.shape(handmade.theme(name), text="Text")
    document.shape(handmade.theme(name), prst="ellipse")
    document.shape("", handmade.style_reference(name), twin=twin())
    document.shape("", handmade.style_reference(name, lumMod=100))
    document.shape("", handmade.style_reference(name), text="Text")
    document.shape("", handmade.style_reference(name), prst="ellipse")
    for element in ("rect", "oval", "roundrect"):
        document.add(document.vml(f'fillcolor="#{color}"', element=element))
    document.add(document.vml(f'fillcolor="#{color}"', '<v:fill color2="blue" type="solid"/>'))
    document.shape(handmade.solid(color), twin=twin())
    document.shape(handmade.solid(color), handmade.style_reference(other, 3), twin=twin())
    document.shape(handmade.solid(color), prst="star5")
    document.shape(handmade.theme(name), text="Šířka", extra=handmade.width_of_margin(40))
    document.group(document.wps(handmade.theme(name)), document.wps(handmade.solid(color)),
                   document.wps("", handmade.style_reference(name)))


def fill_of(properties):
    """The fill in a shape's properties: kind and colours."""
    for kind in ("solidFill", "gradFill", "pattFill", "blipFill", "noFill"):
        fill = properties.find(A + kind)
        if fill is not None:
            colors = tuple((c.tag.replace(A, ""), c.get("val")) for c in fill.iter()
                           if c.tag in (A + "srgbClr", A + "schemeClr"))
            alpha = tuple(a.get("val") for a in fill.iter(A + "alpha"))
            return (kind, colors, alpha)
    return None


def picture_in_vml(shape):
    """The relation to the picture that a shape in VML shows: beside its fill, or in newer offices
    as a tile in the fill."""
    for element in (V + "imagedata", V + "fill"):
        found = shape.find(element)
        if found is not None and found.get(R + "id") is not None:
            return found.get(R + "id")
    return None


def vml_fill_of(shape):
    fill = shape.find(V + "fill")
    if picture_in_vml(shape) is not None:
        return ("picture", None, None)
    if fill is not None and fill.get("on") in ("false", "f"):
        return ("none", None, None)
    colors = (shape.get("fillcolor"),)
    if fill.get("type") != "solid":
        colors += (fill.get("color2"),)
    return ("solid" if len(colors) == 1 else "gradient", colors, fill.get("opacity"))


def shapes_in_vml(body):
    return [e for e in body.iter() if e.tag.startswith(V) and e.tag != V + "shapetype" and
            (e.find(V + "fill") is not None or e.find(V + "imagedata") is not None)]


class EveryBranch(InFolder):
    """The new fill is in every place where a .docx keeps one, and is listed again."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.source = cls.folder / "twenties.docx"
        document = handmade.Docx()
        for name in FILLS:
            twenty_shapes(document, name)
        document.write(cls.source)
        cls.output = cls.folder / "recoloured.docx"
        listed = huebrush("fills", cls.source, "--json")
        cls.rows = {}
        for row in json.loads(listed.stdout)["rows"]:
            cls.rows[cls.hex_of(row["fill"]["ForeColorRGB"])] = row
        arguments = []
        for name, fill in FILLS.items():
            row = cls.rows[handmade.THEME_COLORS[name]]
            arguments += ["--row", f"{row['row']}={fill}"]
        cls.done = huebrush("recolor", cls.source, "-o", cls.output, "--json", *arguments)
        with zipfile.ZipFile(cls.output) as package:
            cls.body = ET.fromstring(package.read("word/document.xml"))

    @staticmethod
    def hex_of(color):
        return f"{color & 0xFF:02X}{color >> 8 & 0xFF:02X}{color >> 16:02X}"

    def test_all_that_was_asked_is_stored(self):
        self.assertEqual(self.done.returncode, 0, self.done.stderr)
        result = json.loads(self.done.stdout)
        self.assertEqual(result["changed"], 20 * len(FILLS))
        self.assertEqual(result["stored"],
                         {"confirmed": 20 * len(FILLS), "notFound": 0, "differences": [],
                          "linesConfirmed": 0, "linesOtherwise": 0})

    def test_the_colours_are_the_same_before(self):
        for name in FILLS:
            self.assertEqual(self.rows[handmade.THEME_COLORS[name]]["shapes"], 20)

    def test_the_drawing_branch(self):
        pictures = ("blipFill", (), ())

        def solid(color, *alpha):
            return ("solidFill", (("srgbClr", color),), alpha)

        def gradient(*colors):
            return ("gradFill", tuple(("srgbClr", color) for color in colors), ())
        expected = {solid("0070c0"): 20, solid("123456", "50000"): 20,
                    gradient("445566", "aabbcc"): 20, gradient("998877", "332211"): 20,
                    pictures: 40, ("noFill", (), ()): 20}
        found = collections.Counter(fill_of(p) for p in self.body.iter(WPS + "spPr"))
        self.assertEqual(found, expected)

    def test_the_twin_branch(self):
        expected = {("solid", ("#0070c0",), None): 20, ("solid", ("#123456",), "0.5"): 20,
                    ("gradient", ("#445566", "#aabbcc"), None): 20,
                    ("gradient", ("#332211", "#998877"), None): 20,
                    ("picture", None, None): 40, ("none", None, None): 20}
        found = collections.Counter(vml_fill_of(shape) for shape in shapes_in_vml(self.body))
        self.assertEqual(found, expected)

    def test_each_picture_is_there(self):
        with zipfile.ZipFile(self.output) as package:
            relations = {r.get("Id"): r.get("Target") for r in
                         ET.fromstring(package.read("word/_rels/document.xml.rels"))}
            names = set(package.namelist())
        used = [blip.get(R + "embed") for blip in self.body.iter(A + "blip")]
        used += [picture for shape in shapes_in_vml(self.body)
                 if (picture := picture_in_vml(shape)) is not None]
        self.assertEqual(len(used), 80)
        for each in used:
            self.assertIn("word/" + relations[each], names)

    def test_the_listing_of_the_result_has_the_new_fills(self):
        rows = json.loads(huebrush("fills", self.output, "--json").stdout)["rows"]
        self.assertEqual([row["shapes"] for row in rows], [20] * len(FILLS))
        kinds = {(row["fill"]["Visible"], row["fill"]["Type"]) for row in rows}
        self.assertEqual(kinds, {(-1, 1), (-1, 2), (-1, 3), (-1, 4), (0, 1)})
        solid = [row["fill"] for row in rows if row["fill"]["Type"] == 1 and row["fill"]["Visible"]]
        self.assertEqual(sorted((f["ForeColorRGB"], f["Transparency"]) for f in solid),
                         [(0x563412, 0.5), (0xC07000, 0)])

    def test_nothing_ties_a_colour_to_the_theme_in_other_formats(self):
        for suffix in (".fodt", ".doc"):
            output = self.folder / f"roofs{suffix}"
            done = huebrush("recolor", self.source, "-o", output, "--json", "--map",
                            f"{ROOFS}={BLUE}")
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(json.loads(done.stdout)["stored"]["confirmed"], 20)
        styles = [s for s in ET.parse(self.folder / "roofs.fodt").getroot().iter()
                  if s.get(normal_form.DRAW + "fill-color") == BLUE]
        self.assertGreaterEqual(len(styles), 1)
        for each in styles:
            text = ET.tostring(each, encoding="unicode")
            self.assertNotIn("theme", text)
            self.assertNotIn("complex-color", text)


class WhatFormatsLose(InFolder):
    """The table of docs/libreoffice-fills.md, made by the program itself, from a document that no
    office has made."""

    KINDS = {
        "solid": ["#0070C0", "#0070C0@50%", "#0070C0@0.375"],
        "two-colour gradient": [
            json.dumps({"Visible": -1, "Type": 3, "GradientColorType": 2, "GradientStyle": style,
                        "GradientVariant": variant, "ForeColorRGB": 0x665544,
                        "BackColorRGB": 0xCCBBAA})
            for style in range(1, 8) for variant in range(1, 5)],
        "one-colour gradient": [
            json.dumps({"Visible": -1, "Type": 3, "GradientColorType": 1, "GradientStyle": 1,
                        "GradientVariant": 3, "GradientDegree": 0.25, "ForeColorRGB": 0x665544})],
        "preset gradient": [
            json.dumps({"Visible": -1, "Type": 3, "GradientColorType": 3, "GradientStyle": 2,
                        "GradientVariant": 3, "PresetGradientType": 7})],
        "pattern": [json.dumps({"Visible": -1, "Type": 2, "Pattern": 14, "ForeColorRGB": 0x332211,
                                "BackColorRGB": 0xFFEEDD})],
        "preset texture": [json.dumps({"Visible": -1, "Type": 4, "TextureType": 1,
                                       "PresetTexture": 12})],
        "user texture": ["(a file)"],
        "no fill": ["none"],
    }
    # By format and kind: how many of the kind's fills do not arrive, and what is said of them.
    LOSSES = {
        ".odt": {},
        ".docx": {
            "solid": (1, {"rounds transparency to a whole percentage"}),
            "two-colour gradient": (7, {"does not keep the style and variant of this gradient"}),
            "one-colour gradient": (1, {"stores a one-colour gradient as a two-colour one"}),
            "preset gradient": (1, {"stores a preset gradient as a two-colour one"}),
            "user texture": (1, {"keeps a texture's picture but not its file name"}),
        },
        ".doc": {
            "solid": (1, {"rounds transparency to a whole percentage"}),
            "two-colour gradient": (19, {"does not keep the style and variant of this gradient",
                                         "stores this gradient as a picture"}),
            "one-colour gradient": (1, {"stores a one-colour gradient as a two-colour one"}),
            "preset gradient": (1, {"stores a preset gradient as a two-colour one"}),
            "user texture": (1, {"keeps a texture's picture but not its file name"}),
        },
    }

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        texture = cls.folder / "textura.png"
        texture.write_bytes(handmade.png())
        cls.KINDS["user texture"] = [json.dumps({"Visible": -1, "Type": 4, "TextureType": 2,
                                                 "TextureName": str(texture),
                                                 "UnknownTexture": False})]
        cls.fills = [(kind, fill) for kind, fills in cls.KINDS.items() for fill in fills]
        document = handmade.Docx()
        for number in range(len(cls.fills)):
            # A row of its own for each: theme colours, style references and plain ones in turn.
            color = f"{0xC00000 + number:06X}"
            if number % 3 == 0:
                document.shape(handmade.solid(color), handmade.style_reference("accent1", 2))
            elif number % 3 == 1:
                document.add(document.vml(f'fillcolor="#{color}"'))
            else:
                document.group(document.wps(handmade.solid(color)))
        cls.source = cls.folder / "kinds.docx"
        document.write(cls.source)

    def losses_in(self, suffix):
        arguments = []
        for number, (_, fill) in enumerate(self.fills):
            arguments += ["--row", f"{number + 1}={fill}"]
        done = huebrush("recolor", self.source, "-o", self.folder / f"stored{suffix}", "--json",
                        *arguments)
        self.assertIn(done.returncode, (0, STORED_OTHERWISE), done.stderr)
        result = json.loads(done.stdout)
        self.assertEqual(result["changed"], len(self.fills))
        self.assertEqual(result["stored"]["notFound"], 0)
        losses = {}
        for each in result["stored"]["differences"]:
            kind = self.fills[each["row"] - 1][0]
            count, reasons = losses.get(kind, (0, set()))
            losses[kind] = (count + each["shapes"], reasons | {each["reason"]})
        return done.returncode, losses

    def test_each_format(self):
        for suffix, expected in self.LOSSES.items():
            with self.subTest(suffix):
                code, losses = self.losses_in(suffix)
                self.assertEqual(losses, expected)
                self.assertEqual(code, STORED_OTHERWISE if expected else 0)

    def test_the_text_names_row_count_fills_and_reason(self):
        done = huebrush("recolor", self.source, "-o", self.folder / "said.docx", "--row",
                        f"2={self.KINDS['one-colour gradient'][0]}")
        self.assertEqual(done.returncode, STORED_OTHERWISE)
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertRegex(done.stderr, r"row 2: 1 shape stored as two-colour gradient .* instead of "
                                      r"one-colour gradient .*: \.docx stores a one-colour "
                                      r"gradient as a two-colour one")


class GradientsOfManyColours(InFolder):
    """Gradients with the same ends are different fills. An office that knows no more than two
    colours loads the broadest part of each, and stores an untouched one as it was."""

    # By the colours between red and blue, how many shapes have them.
    BETWEEN = {(): 2, ((50, "00FF00"),): 3, ((50, "FFFF00"),): 1, ((25, "00FF00"),): 4,
               ((25, "00FF00"), (50, "FFFF00")): 5}
    NEW = "123457"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        document = handmade.Docx()
        for between, count in cls.BETWEEN.items():
            for _ in range(count):
                fill = handmade.gradient((0, "FF0000"), *between, (100, "0000FF"))
                document.add(document.drawing(document.wps(fill)))
        cls.source = cls.folder / "many.docx"
        document.write(cls.source)
        cls.rows = json.loads(huebrush("fills", cls.source, "--json").stdout)["rows"]

    @staticmethod
    def stops_of(path):
        """The colours of each gradient between its ends, and the solid fills."""
        with zipfile.ZipFile(path) as package:
            root = ET.fromstring(package.read("word/document.xml"))
        found = collections.Counter()
        for shape in root.iter(f"{WPS}spPr"):
            for gradient in shape.findall(f"{A}gradFill"):
                stops = [(int(s.get("pos")) // 1000, s[0].get("val").upper())
                         for s in gradient.iter(f"{A}gs")]
                found[tuple(stops[1:-1])] += 1
            for solid in shape.findall(f"{A}solidFill"):
                found[solid[0].get("val")] += 1
        return found

    def test_the_listing_has_a_row_for_each(self):
        counts = sorted(row["shapes"] for row in self.rows)
        self.assertEqual(counts, [1, 2, 3, 4, 5])

    def test_a_recolour_of_one_leaves_the_others(self):
        for row in self.rows:
            output = self.folder / f"row{row['row']}.docx"
            done = huebrush("recolor", self.source, "-o", output, "--json", "--row",
                            f"{row['row']}=#{self.NEW}")
            self.assertEqual(done.returncode, 0, done.stderr)
            self.assertEqual(json.loads(done.stdout)["changed"], row["shapes"])
            expected = collections.Counter({
                between: count for between, count in self.BETWEEN.items()
                if count != row["shapes"]})
            expected[self.NEW] = row["shapes"]
            self.assertEqual(self.stops_of(output), expected)

    def test_a_new_transparency_keeps_the_colours(self):
        row = next(row for row in self.rows if row["shapes"] >= 4)
        plan = {"rows": [dict(row, new=dict(row["fill"], Transparency=0.5))]}
        path = self.folder / "plan.json"
        path.write_text(json.dumps(plan), encoding="utf-8")
        output = self.folder / "clear.docx"
        done = huebrush("recolor", self.source, "-o", output, "--json", "--plan", path)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(json.loads(done.stdout)["stored"]["confirmed"], row["shapes"])
        if KNOWS_STOPS:
            self.assertEqual(self.stops_of(output), self.BETWEEN)


class NothingElse(InFolder):
    """The recoloured document is the one that the office stores, but for the mapped fills."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        inputs = cls.folder / "inputs"
        inputs.mkdir()
        cls.sources = generated_documents.write_all(inputs)
        cls.plain = cls.folder / "plain"
        cls.outputs = cls.folder / "outputs"
        cls.outputs.mkdir()
        with ThreadPoolExecutor(2) as pool:
            plain = pool.submit(load_and_store, cls.sources, cls.plain)
            cls.results = dict(zip(cls.sources, pool.map(cls.recolour, cls.sources)))
            plain.result()

    @classmethod
    def recolour(cls, source):
        return huebrush("recolor", source, "-o", cls.outputs / source.name, "--json", "--map",
                        f"{ROOFS}={BLUE}")

    def assert_only_fills_differ(self, source, result):
        plain, output = self.plain / source.name, self.outputs / source.name
        if source.suffix == ".docx":
            theme = {name: "#" + color.lower() for name, color in handmade.THEME_COLORS.items()}
            expected, mapped = normal_form.docx_body(plain, MAP, theme)
            self.assertEqual(normal_form.docx_body(output)[0], expected)
            self.assertEqual(normal_form.docx_other_parts(output),
                             normal_form.docx_other_parts(plain))
            self.assertEqual(mapped, result["changed"])
        else:
            recolour = normal_form.solid_fills_of_their_own(MAP)
            self.assertEqual(normal_form.NormalForm(output).body,
                             normal_form.NormalForm(plain, recolour).body)
            self.assertNotEqual(normal_form.NormalForm(output).body,
                                normal_form.NormalForm(plain).body)
            self.assertEqual(normal_form.styles_of(output), normal_form.styles_of(plain))

    def test_generated_documents(self):
        self.assertGreaterEqual(len(self.sources), 30)
        for source in self.sources:
            with self.subTest(source.name):
                done = self.results[source]
                self.assertEqual(done.returncode, 0, done.stderr)
                result = json.loads(done.stdout)
                self.assertGreater(result["changed"], 0)
                self.assertEqual(result["stored"]["confirmed"], result["changed"])
                self.assert_only_fills_differ(source, result)

    def test_shapes_of_headers_and_footers_are_left_alone(self):
        for name, shapes in {"hand-with_header.docx": 2, "hand-with_footer.docx": 3,
                             "docx-under_headers.docx": 4}.items():
            source = next(s for s in self.sources if s.name == name)
            self.assertEqual(json.loads(self.results[source].stdout)["shapes"], shapes, name)
            with zipfile.ZipFile(self.outputs / name) as package:
                parts = [package.read(p).decode() for p in package.namelist()
                         if re.match(r"word/(header|footer)\d+\.xml", p)]
            self.assertTrue(any("wps:spPr" in part for part in parts), name)
            self.assertFalse(any("0070c0" in part for part in parts), name)


@unittest.skipUnless(SAMPLES, "HUEBRUSH_SAMPLES names no folder of documents")
class Samples(InFolder):
    """Real documents: the first solid fill of each gets another colour, and nothing but fills
    changes. Where the office itself does not store a shape, the program says so."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.plain, cls.outputs = cls.folder / "plain", cls.folder / "outputs"
        cls.outputs.mkdir()
        cls.sources = [each for each in sorted(Path(SAMPLES).glob("**/*"))
                       if each.suffix in (".docx", ".odt")]
        load_and_store(cls.sources, cls.plain)

    @staticmethod
    def first_solid_color(source):
        listed = huebrush("fills", source, "--json")
        if listed.returncode != 0:
            return None
        solid = [row["fill"]["ForeColorRGB"] for row in json.loads(listed.stdout)["rows"]
                 if row["fill"]["Visible"] == -1 and row["fill"]["Type"] == 1]
        return "#" + EveryBranch.hex_of(solid[0]).lower() if solid else None

    @staticmethod
    def shapes_of(path):
        listed = huebrush("fills", path, "--json")
        return sum(row["shapes"] for row in json.loads(listed.stdout)["rows"]) if (
            listed.returncode == 0) else 0

    def assert_stored(self, source, done):
        stored = json.loads(done.stdout)["stored"]
        self.assertEqual(stored["differences"], [], done.stderr)
        lost = self.shapes_of(source) - self.shapes_of(self.plain / source.name)
        self.assertLessEqual(stored["notFound"], lost, done.stderr)
        expected = STORED_OTHERWISE if stored["notFound"] else 0
        self.assertEqual(done.returncode, expected, done.stderr)

    def test_samples(self):
        tried = 0
        for source in self.sources:
            color = self.first_solid_color(source)
            if color is None:
                continue
            tried += 1
            with self.subTest(source.name, color=color):
                output, plain = self.outputs / source.name, self.plain / source.name
                done = huebrush("recolor", source, "-o", output, "--json", "--map",
                                f"{color}=#123457")
                self.assertNotEqual(done.stdout, "", done.stderr)
                self.assert_stored(source, done)
                if source.suffix == ".odt":
                    self.assertEqual(normal_form.NormalForm(output, normal_form.without_fills).body,
                                     normal_form.NormalForm(plain, normal_form.without_fills).body)
                    self.assertEqual(normal_form.styles_of(output), normal_form.styles_of(plain))
                else:
                    self.assertEqual(normal_form.docx_body_without_fills(output),
                                     normal_form.docx_body_without_fills(plain))
                    self.assertEqual(normal_form.docx_other_parts(output),
                                     normal_form.docx_other_parts(plain))
        self.assertGreater(tried, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
