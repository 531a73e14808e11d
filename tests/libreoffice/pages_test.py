# SPDX-License-Identifier: MPL-2.0
"""Drawings, presentations and workbooks, which the office has made: the program finds the shapes of
their pages, changes their fills and nothing else, and the office finds them changed."""

import json
import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
sys.path.insert(0, str(ROOT / "tests" / "libreoffice"))

import uno  # noqa: E402,F401
from com.sun.star.awt import Point, Size  # noqa: E402
from com.sun.star.drawing.FillStyle import SOLID  # noqa: E402
from document_parts import FILL_WORDS, out_of_order, parts_of, rest_without  # noqa: E402
from private_office import PrivateOffice, file_url, properties  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
LIMIT = 240
RED, GREEN, BLUE, NEW = 0xC00000, 0x00C000, 0x0000C0, 0x00C0C0
# The filters of the office by the kind of its document.
KINDS = {
    "sdraw": {".odg": "draw8", ".otg": "draw8_template",
              ".fodg": "OpenDocument Drawing Flat XML"},
    "simpress": {".odp": "impress8", ".otp": "impress8_template",
                 ".fodp": "OpenDocument Presentation Flat XML",
                 ".pptx": "Impress MS PowerPoint 2007 XML",
                 ".potx": "Impress MS PowerPoint 2007 XML Template",
                 ".pptm": "Impress MS PowerPoint 2007 XML VBA",
                 ".ppsx": "Impress MS PowerPoint 2007 XML AutoPlay"},
    "scalc": {".xlsx": "Calc MS Excel 2007 XML", ".xltx": "Calc MS Excel 2007 XML Template",
              ".xlsm": "Calc MS Excel 2007 VBA XML"},
}


def huebrush(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], stdin=subprocess.DEVNULL, text=True,
                          capture_output=True, timeout=LIMIT)


def pages_of(document):
    if hasattr(document, "Sheets"):
        return [document.Sheets.getByIndex(i).DrawPage for i in range(document.Sheets.Count)]
    return [document.DrawPages.getByIndex(i) for i in range(document.DrawPages.Count)]


def add(document, page, kind, fill=None):
    shape = document.createInstance(f"com.sun.star.drawing.{kind}")
    shape.Position, shape.Size = Point(1000 * page.Count, 1000), Size(2000, 1000)
    page.add(shape)
    if fill is not None:
        shape.FillStyle, shape.FillColor = SOLID, fill
    return shape


def draw(office, kind):
    """A document with shapes on two pages, a group among them, and with one on the master page."""
    document = office.desktop.loadComponentFromURL(f"private:factory/{kind}", "_blank", 0,
                                                   properties(Hidden=True))
    if kind == "scalc":
        document.Sheets.insertNewByName("Další", 1)
    else:
        document.DrawPages.insertNewByIndex(1)
        add(document, document.MasterPages.getByIndex(0), "RectangleShape", RED)
    first, second = pages_of(document)[:2]
    if kind == "simpress":
        first.Layout = 1  # a title and an outline, both placeholders
    for shape, fill in (("RectangleShape", RED), ("EllipseShape", GREEN), ("LineShape", None),
                        ("TextShape", None)):
        add(document, first, shape, fill)
    add(document, first, "TextShape", RED).String = "Nápis"
    members = office.create("com.sun.star.drawing.ShapeCollection")
    members.add(add(document, first, "RectangleShape", BLUE))
    members.add(add(document, first, "EllipseShape", RED))
    first.group(members)
    add(document, second, "RectangleShape", RED)
    return document


def fills_in(shapes):
    """The fills of shapes and of the members of groups, as the office has them."""
    found = []
    for i in range(shapes.Count):
        shape = shapes.getByIndex(i)
        if shape.supportsService("com.sun.star.drawing.GroupShape"):
            found += fills_in(shape)
        elif hasattr(shape, "FillStyle"):
            found.append(shape.FillColor if shape.FillStyle == SOLID else None)
    return found


class Pages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-pages-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.documents, cls.before, cls.after = [], {}, {}
        with PrivateOffice() as office:
            for kind, filters in KINDS.items():
                document = draw(office, kind)
                for ending, name in filters.items():
                    path = cls.folder / f"{kind}{ending}"
                    document.storeToURL(file_url(path), properties(FilterName=name))
                    cls.documents.append(path)
                document.close(True)
            cls.results = cls.folder / "new"
            done = huebrush("recolor", *cls.documents, "--output-dir", cls.results, "--map",
                            f"#{RED:06X}=#{NEW:06X}")
            assert (done.returncode, done.stderr) == (0, ""), done.stderr
            for path in cls.documents:
                cls.before[path] = cls.fills_by(office, path)
                cls.after[path] = cls.fills_by(office, cls.results / path.name)

    @staticmethod
    def fills_by(office, path):
        # As it is, also where it is a template or a slide show.
        document = office.desktop.loadComponentFromURL(
            file_url(path), "_blank", 0, properties(Hidden=True, ReadOnly=True, AsTemplate=False))
        found = [fills_in(page) for page in pages_of(document)]
        if hasattr(document, "MasterPages"):
            found.append(fills_in(document.MasterPages.getByIndex(0)))
        document.close(True)
        return found

    def rows(self, path):
        return json.loads(huebrush("fills", path, "--json").stdout)["rows"]

    def test_the_office_finds_the_new_fills_and_no_others(self):
        for path in self.documents:
            with self.subTest(path.suffix):
                pages, master = self.before[path][:2], self.before[path][2:]
                self.assertEqual(sum(page.count(RED) for page in pages), 4)
                wanted = [[NEW if fill == RED else fill for fill in page] for page in pages]
                # What stands on a master page is not one of its pages' shapes.
                self.assertEqual(self.after[path], wanted + master)

    def test_the_rows_are_the_shapes_of_the_pages(self):
        for path in self.documents:
            with self.subTest(path.suffix):
                counts = {row["fill"]["ForeColorRGB"]: row["shapes"] for row in self.rows(path)
                          if row["fill"]["Visible"]}
                for color, count in ((RED, 4), (GREEN, 1), (BLUE, 1)):
                    reverse = int.from_bytes(color.to_bytes(3, "big"), "little")
                    self.assertEqual(counts[reverse], count)

    def test_only_fills_change(self):
        for path in self.documents:
            flat = path.suffix.startswith(".f")
            before, after = ({"": each.read_bytes()} if flat else parts_of(each)
                             for each in (path, self.results / path.name))
            with self.subTest(path.suffix):
                self.assertEqual(list(after), list(before))
                for name in before:
                    if before[name] == after[name]:
                        continue
                    self.assertEqual(rest_without(before[name], FILL_WORDS),
                                     rest_without(after[name], FILL_WORDS), name)
                    self.assertLessEqual(out_of_order(after[name]), out_of_order(before[name]))

    def test_the_former_fills_come_back(self):
        for path in self.documents:
            with self.subTest(path.suffix):
                back = self.folder / f"back{path.suffix}"
                done = huebrush("recolor", self.results / path.name, "-o", back, "--map",
                                f"#{NEW:06X}=#{RED:06X}")
                self.assertEqual((done.returncode, done.stderr), (0, ""))
                self.assertEqual(self.rows(back), self.rows(path))

    def test_every_kind_of_fill_is_kept(self):
        requests = ("#123456@25%", "none",
                    '{"Type": 3, "GradientStyle": 1, "GradientVariant": 2, "GradientColorType": 2,'
                    ' "ForeColorRGB": 255, "BackColorRGB": 65280}',
                    '{"Type": 2, "Pattern": 41, "ForeColorRGB": 255, "BackColorRGB": 65280}',
                    '{"Type": 4, "TextureType": 1, "PresetTexture": 12}')
        for path in self.documents:
            red = next(row["row"] for row in self.rows(path)
                       if row["fill"]["Visible"] and row["fill"]["ForeColorRGB"] == 0xC0)
            for request in requests:
                with self.subTest(path.suffix, request=request):
                    # What is stored is read back; what differs would be the exit code 3.
                    done = huebrush("recolor", path, "-o", self.folder / f"kind{path.suffix}",
                                    f"--row={red}={request}")
                    self.assertEqual((done.returncode, done.stderr), (0, ""))
                    self.assertIn("4 of ", done.stdout)

    def test_an_office_that_knows_texts_only_is_not_asked(self):
        path = self.documents[0]
        done = huebrush("fills", path, "--through", "office")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertIn("is not a text document", done.stderr)
        other = self.folder / "drawing.odt"
        done = huebrush("recolor", path, "-o", other, "--map", f"#{RED:06X}=#{NEW:06X}")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertEqual(len(done.stderr.splitlines()), 1)
        self.assertFalse(other.exists())

    def test_folders_are_searched_for_them(self):
        place = self.folder / "found"
        place.mkdir()
        for path in self.documents:
            shutil.copy(path, place)
        done = huebrush("fills", "-r", place)
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout.splitlines()[-1], f"{len(self.documents)} documents listed")


if __name__ == "__main__":
    unittest.main(verbosity=2)
