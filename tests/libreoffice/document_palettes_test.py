# SPDX-License-Identifier: MPL-2.0
"""Palettes laid onto documents, and made from them, by the program."""

import base64
import csv
import io
import json
import shutil
import subprocess
import unittest
from pathlib import Path

import uno

from documents_test import LIMIT, OnDocuments, PrivateOffice

# The properties of a fill that a palette file keeps, as its columns are called.
COLUMNS = ["Visible", "ForeColorRGB", "BackColorRGB", "Transparency", "GradientStyle",
           "GradientColorType", "GradientVariant", "GradientDegree", "PresetGradientType", "Type",
           "TextureType", "PresetTexture", "TextureName", "Pattern", "PictureName"]
UNUSED = {"BackColorRGB": 0xFFFFFF, "Transparency": 0, "GradientStyle": -2,
          "GradientColorType": -2, "GradientVariant": -2, "GradientDegree": 0,
          "PresetGradientType": -2, "TextureType": -2, "PresetTexture": -2, "TextureName": "",
          "Pattern": -2, "PictureName": ""}


def solid(color):
    return {**UNUSED, "Visible": -1, "Type": 1, "ForeColorRGB": color}


def gradient(fore, back):
    return {**solid(fore), "Type": 3, "BackColorRGB": back, "GradientStyle": 1,
            "GradientColorType": 2, "GradientVariant": 1}


def kept(fill):
    return {name: fill[name] for name in COLUMNS}


class OnPalettes(OnDocuments):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.file = cls.folder / "fill.mdb"

    def setUp(self):
        self.done("palette", "new", self.file, "--force")

    def done(self, *arguments, code=0):
        done = self.run_program(*arguments)
        self.assertEqual(done.returncode, code, done.stderr)
        if code == 0:
            self.assertEqual(done.stderr, "")
        self.assert_nothing_left()
        return done

    def listing(self, document):
        return json.loads(self.done("fills", document, "--json").stdout)["rows"]

    def add(self, name, fills):
        path = self.folder / "palette.json"
        elements = [{"OrderNumber": len(fills) - i, **fill}
                    for i, fill in enumerate(reversed(fills))]
        path.write_text(json.dumps({"palettes": [{"Name": name, "elements": elements}]}))
        self.done("palette", "import", self.file, path)

    def dump(self, file=None):
        return json.loads(self.done("palette", "dump", file or self.file).stdout)["palettes"]

    def exported(self, file, table):
        """The rows of a table as mdb-export prints them."""
        printed = subprocess.run(["mdb-export", "-b", "hex", file, table], check=True,
                                 timeout=LIMIT, stdout=subprocess.PIPE).stdout.decode()
        return list(csv.DictReader(io.StringIO(printed, newline="")))


class Recolouring(OnPalettes):
    def test_gives_each_row_its_fill_in_order(self):
        """The rows are numbered anew in the result. Shapes that can have no fill keep none."""
        before = self.listing(self.town)
        fills = [solid(0x010101 * (i + 1)) for i in range(len(before) + 2)]
        fills[1] = gradient(0x112233, 0x445566)
        self.add("Žluť: 1", fills)
        output = self.folder / "laid.odt"
        done = self.done("recolor", self.town, "-o", output, "--palette",
                         f"{self.file}:Žluť: 1", "--json")
        result = json.loads(done.stdout)
        skipped = {each["row"]: each["shapes"] for each in result["skipped"]}
        shapes = {tuple(kept(row["fill"]).values()): row["shapes"]
                  for row in self.listing(output)}
        changed = [row["shapes"] - skipped.get(row["row"], 0) for row in before]
        self.assertEqual([shapes.get(tuple(kept(fill).values()), 0) for fill in fills],
                         changed + [0, 0])
        self.assertEqual(sum(changed), result["changed"])
        self.assertGreater(len(before) - changed.count(0), 5)

    def test_asks_for_consent_where_there_are_fewer_fills_than_rows(self):
        before = self.listing(self.town)
        self.add("Podzim", [solid(0x030201)])
        output = self.folder / "few.odt"
        palette = ("--palette", f"{self.file}:#1")
        self.assert_refused(f"the document has {len(before)} rows, but the palette only 1 fill; "
                            "with --yes, the other rows keep their fills",
                            "recolor", self.town, "-o", output, *palette)
        self.assertFalse(output.exists())
        self.done("recolor", self.town, "-o", output, *palette, "--yes")
        after = self.listing(output)
        changed = [row for row in after if kept(row["fill"]) == solid(0x030201)]
        self.assertEqual([row["shapes"] for row in changed], [before[0]["shapes"]])
        self.assertEqual(len(after), len(before))

    def test_is_refused_without_a_palette(self):
        output = self.folder / "out.odt"
        self.done("palette", "import", self.file, self.empty_palette())
        for words, palette in {
                'has no palette "Podzim"': f"{self.file}:Podzim",
                'the palette "Zima" is empty': f"{self.file}:Zima",
                "must have the form FILE.mdb:NAME": f"{self.file}",
                "none.mdb does not exist": f"{self.folder}/none.mdb:Zima"}.items():
            self.assert_refused(words, "recolor", self.town, "-o", output, "--palette", palette)
        self.assertFalse(output.exists())

    def empty_palette(self):
        path = self.folder / "palette.json"
        path.write_text('{"palettes": [{"Name": "Zima"}]}')
        return path

    def test_excludes_the_other_ways_to_name_fills(self):
        for other in (("--map", "#C00000=#0070C0"), ("--row", "1=none"), ("--plan", "x.json")):
            done = self.run_program("recolor", self.town, "-o", self.folder / "out.odt",
                                    "--palette", f"{self.file}:Zima", *other)
            self.assertEqual(done.returncode, 2)
            self.assertIn(f"{other[0]} excludes --palette", done.stderr)
        done = self.run_program("recolor", self.town, "-o", self.folder / "out.odt", "--yes",
                                "--row", "1=none")
        self.assertEqual(done.returncode, 2)


class Saving(OnPalettes):
    def test_keeps_the_fills_of_a_document_in_a_new_file(self):
        """All but those with textures of which no file is known; numbers only as whole ones."""
        file = self.folder / "new.mdb"
        rows = self.listing(self.town)
        done = self.run_program("palette", "save", file, "Žluťoučký kůň", "--from", self.town)
        self.assertEqual(done.returncode, 3, done.stderr)
        left_out = [f"huebrush: row {row['row']} left out: its texture is unknown"
                    for row in rows if row["fill"]["UnknownTexture"]]
        rows = [row for row in rows if not row["fill"]["UnknownTexture"]]
        rounded = [row for row in rows if row["fill"]["Transparency"] not in (0, 1)]
        said = done.stderr.splitlines()
        self.assertEqual(said[:len(left_out)], left_out)
        self.assertEqual([line.split(":")[1] for line in said[len(left_out):]],
                         [f" row {row['row']}" for row in rounded])
        self.assertGreater(len(left_out), 0)
        self.assertEqual(done.stdout, f"created {file}\npalette \"Žluťoučký kůň\" with "
                                      f"{len(rows)} fills saved in {file}\n")
        groups = self.exported(file, "TFillGroup")
        self.assertEqual([(each["Name"], each["Count"]) for each in groups],
                         [("Žluťoučký kůň", str(len(rows)))])
        elements = self.exported(file, "TFillElementParameter")
        for order, (row, element) in enumerate(zip(rows, elements, strict=True)):
            expected = kept(row["fill"])
            for name in ("Transparency", "GradientDegree"):
                expected[name] = round(expected[name])
            self.assertEqual({name: element[name] for name in COLUMNS},
                             {name: str(value) for name, value in expected.items()})
            self.assertEqual(element["OrderNumber"], str(order))
        for element in self.dump(file)[0]["elements"]:
            drawn = (element["Visible"], element["Type"], element["Transparency"]) == (-1, 1, 0)
            self.assertEqual(element["FillPreview"] is not None, drawn)
            if drawn:
                bitmap = base64.b64decode(element["FillPreview"])
                self.assertEqual(bitmap[54:57], element["ForeColorRGB"].to_bytes(3, "big"))

    def test_says_what_a_palette_file_rounds(self):
        document = self.folder / "half.odt"
        self.done("recolor", self.town, "-o", document, "--row", "1=#C00000@75%")
        rows = self.listing(document)
        row = next(row["row"] for row in rows if row["fill"]["Transparency"] == 0.75)
        done = self.run_program("palette", "save", self.file, "A", "--from", document, "--json")
        self.assertEqual(done.returncode, 3)
        self.assertIn(f"huebrush: row {row}: transparency 75% stored as 100%; a palette file keeps "
                      "whole numbers only", done.stderr.splitlines())
        result = json.loads(done.stdout)
        self.assertEqual((result["file"], result["created"], result["palette"]),
                         (str(self.file), False, "A"))
        self.assertIn({"row": row, "property": "transparency", "value": 0.75, "stored": 1},
                      result["rounded"])
        self.assertEqual(result["unknownTextures"],
                         [row["row"] for row in rows if row["fill"]["UnknownTexture"]])

    def test_replaces_a_palette_only_when_asked_to(self):
        self.add("A", [solid(1)])
        self.add("B", [solid(2)])
        self.add("A", [solid(3)])
        before = self.file.read_bytes()
        self.assert_refused('already has a palette "A"; use --replace', "palette", "save",
                            self.file, "A", "--from", self.town)
        self.assertEqual(self.file.read_bytes(), before)
        self.run_program("palette", "save", self.file, "A", "--from", self.town, "--replace")
        self.assertEqual([(each["ID"], each["Name"]) for each in self.dump()],
                         [(2, "B"), (4, "A")])
        self.done("palette", "check", self.file)

    def test_is_refused_before_an_office_starts(self):
        folder = self.folder / "files"
        folder.mkdir()
        other = folder / "other.mdb"
        other.write_text("no database" * 1000)
        for words, file, name in (("1 to 30 characters", self.file, "x" * 31),
                                  ("1 to 30 characters", self.file, ""),
                                  ("other.mdb", other, "A"), ("is a folder", folder, "A"),
                                  ("No such file", folder / "no" / "fill.mdb", "A")):
            self.assert_refused(words, "palette", "save", file, name, "--from", self.town)
        self.assert_refused("does not exist", "palette", "save", folder / "new.mdb", "A", "--from",
                            folder / "none.odt")
        self.assertEqual([path.name for path in folder.iterdir()], ["other.mdb"])
        shutil.rmtree(folder)


class Exporting(OnPalettes):
    def test_writes_a_colour_table_that_the_office_takes_for_its_own(self):
        """The office reads a table of this name in the folder of its user's palettes."""
        red, blue = 0x0000C0, 0xC07000
        self.add("Podzim", [solid(red), solid(blue), gradient(1, 2), solid(red)])
        with PrivateOffice() as office:
            paths = office.context.getValueByName("/singletons/com.sun.star.util.thePathSettings")
            palettes = Path(uno.fileUrlToSystemPath(paths.getPropertyValue("Palette_writable")))
            palettes.mkdir(parents=True, exist_ok=True)
            done = self.run_program("palette", "export", self.file, "Podzim", "-o",
                                    palettes / "standard.soc")
            self.assertEqual(done.returncode, 3, done.stderr)
            table = office.create("com.sun.star.drawing.ColorTable")
            colors = {name: table.getByName(name) for name in table.getElementNames()}
        self.assertEqual(colors, {"#C00000": 0xC00000, "#0070C0": 0x0070C0,
                                  "#C00000 (2)": 0xC00000})


if __name__ == "__main__":
    unittest.main()
