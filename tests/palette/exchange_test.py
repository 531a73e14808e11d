# SPDX-License-Identifier: MPL-2.0
"""Palettes that come from other programs and go to them: in the formats of GIMP, LibreOffice and
Adobe. What is written is read by the npm package anypalette, which also writes what is read here,
and a palette file by mdb-export."""

import base64
import json
import os
import random
import struct
import subprocess
import unittest
from pathlib import Path

from mdbtools import NULL, export, output_of
from other_readers import NODE_FOLDER, exported_text
from program import LIMIT, OnPaletteFiles, element, huebrush, palette

FORMATS = ("gpl", "soc", "ase")
COLORS = [(192, 0, 0), (0, 112, 192), (255, 255, 255), (0, 0, 0), (1, 2, 3), (192, 0, 0)]
OFFICE_PALETTES = Path("/usr/lib/libreoffice/share/palette")
# What a host answers for a solid fill.
SOLID = {"Visible": -1, "BackColorRGB": 0xFFFFFF, "Transparency": 0, "GradientStyle": -2,
         "GradientColorType": -2, "GradientVariant": -2, "GradientDegree": 0,
         "PresetGradientType": -2, "TextureType": -2, "Type": 1, "PresetTexture": -2,
         "TextureName": "", "Pattern": -2, "PictureName": ""}


def number_of(color):
    red, green, blue = color
    return red | green << 8 | blue << 16


def preview_in(color):
    """A bitmap of 81 by 25 pixels, one bit each, and a table of two colours that are the same."""
    rows = bytes(12 * 25)
    header = struct.pack("<IiiHHIIiiII", 40, 81, 25, 1, 1, 0, len(rows), 0, 0, 0, 0)
    return (b"BM" + struct.pack("<IHHI", 62 + len(rows), 0, 0, 62) + header +
            bytes((*reversed(color), 0)) * 2 + rows)


def solid(order, color, **others):
    return {"OrderNumber": order, "ForeColorRGB": number_of(color), **SOLID,
            "FillPreview": base64.b64encode(preview_in(color)).decode(), **others}


class OnOtherPrograms(OnPaletteFiles):
    def run_at_loss(self, *arguments):
        """Runs a command that does its work, but cannot keep all. What it says of that."""
        done = huebrush("palette", *arguments)
        self.assertEqual(done.returncode, 3, done.stderr)
        return done.stderr.splitlines()

    def assert_refused(self, words, *arguments):
        before = self.file.read_bytes()
        names = sorted(path.name for path in self.folder.iterdir())
        done = huebrush("palette", *arguments)
        self.assertEqual((done.returncode, done.stdout), (1, ""), done.stderr)
        self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
        self.assertIn(words, done.stderr)
        self.assertEqual(self.file.read_bytes(), before)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), names)

    def written(self, name, content):
        path = self.folder / name
        path.write_bytes(content)
        return path

    def written_by_another_program(self, file_name, name, colors):
        path = self.folder / file_name
        given = {"name": name, "colors": [{"color": color, "name": f"Žlutá {i}"}
                                          for i, color in enumerate(colors)]}
        subprocess.run(["node", os.path.join(NODE_FOLDER, "colors.mjs"), "write", str(path)],
                       input=json.dumps(given), text=True, check=True, timeout=LIMIT)
        return path

    def read_by_another_program(self, path):
        return json.loads(output_of("node", os.path.join(NODE_FOLDER, "colors.mjs"), "read", path))

    def stored_colors(self, name):
        return [each["ForeColorRGB"] for group in self.dump() if group["Name"] == name
                for each in group["elements"]]


class Import(OnOtherPrograms):
    def test_makes_solid_fills_of_what_another_program_wrote(self):
        for ending in FORMATS:
            with self.subTest(ending):
                source = self.written_by_another_program(f"Podzim {ending}.{ending}",
                                                         f"Podzim {ending}", COLORS)
                self.assertEqual(self.run_program("import", self.file, source),
                                 f"1 palette with {len(COLORS)} fills added to {self.file}; "
                                 f"{len(COLORS)} names of colours not kept\n")
                stored = self.dump()[-1]
                self.assertEqual((stored["Name"], stored["Count"]),
                                 (f"Podzim {ending}", len(COLORS)))
                for order, (fill, color) in enumerate(zip(stored["elements"], COLORS, strict=True)):
                    self.assertEqual({name: fill[name] for name in solid(0, color)},
                                     solid(order, color))
        self.assert_clean()

    def test_is_seen_by_another_reader_of_the_palette_file(self):
        source = self.written_by_another_program("a.gpl", "Žluťoučký kůň", COLORS)
        self.run_program("import", self.file, source)
        self.assertEqual(export(self.file, "TFillGroup"),
                         [["ID", "Name", "Description", "Count"],
                          ["1", "Žluťoučký kůň", NULL, str(len(COLORS))]])
        header, *rows = export(self.file, "TFillElementParameter")
        expected = [{"ID": i + 1, "GroupID": 1, **solid(i, color)}
                    for i, color in enumerate(COLORS)]
        for row, fill in zip(rows, expected, strict=True):
            for column, text in zip(header, row, strict=True):
                self.assertIn(text, exported_text(fill[column], column), column)

    def test_gives_each_colour_a_preview_that_another_program_reads(self):
        self.run_program("import", self.file,
                         self.written_by_another_program("a.gpl", "A", COLORS))
        for fill, color in zip(self.dump()[0]["elements"], COLORS, strict=True):
            bitmap = self.written("preview.bmp", base64.b64decode(fill["FillPreview"]))
            self.assertEqual(output_of("convert", bitmap, "-unique-colors", "-format",
                                       "%wx%h %[hex:p{0,0}]", "info:"),
                             "1x1 %02X%02X%02X" % color)

    def test_takes_the_palettes_that_come_with_the_office(self):
        found = sorted(OFFICE_PALETTES.glob("*.soc"))
        self.assertGreater(len(found), 3)
        for each in found:
            self.run_program("import", self.file, each)
            expected = [number_of(each["color"])
                        for each in self.read_by_another_program(each)["colors"]]
            self.assertEqual(self.stored_colors(each.stem), expected)
        self.assert_clean()

    def test_takes_the_format_by_the_ending_in_any_case_or_as_it_is_asked_for(self):
        content = b"GIMP Palette\nName: A\n1 2 3\n"
        self.run_program("import", self.file, self.written("a.GpL", content))
        self.run_program("import", self.file, self.written("a.txt", content), "--format", "GPL")
        self.run_program("import", self.file, self.written("a.ase", b'{"palettes": []}'),
                         "--format", "json")
        self.assertEqual(self.stored_colors("A"), [0x030201] * 2)
        self.assert_refused("a.txt is not valid JSON", "import", self.file, self.folder / "a.txt")

    def test_takes_a_palette_through_a_pipe(self):
        done = huebrush("palette", "import", self.file, "/dev/stdin", "--format", "gpl",
                        input="GIMP Palette\nName: A\n1 2 3\n")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(self.stored_colors("A"), [0x030201])

    def test_takes_the_name_that_is_given_or_in_the_file_or_of_the_file(self):
        names = {b"Name: In it\n": ("In it", "Given"), b"": ("f", "Given"),
                 b"Name:  \n": ("f", "Given")}
        for header, (expected, given) in names.items():
            source = self.written("f.gpl", b"GIMP Palette\n" + header + b"1 2 3\n")
            self.run_program("import", self.file, source)
            self.assertEqual(self.dump()[-1]["Name"], expected)
            self.run_program("import", self.file, source, "--name", given)
            self.assertEqual(self.dump()[-1]["Name"], given)

    def test_shortens_a_long_name_and_says_so(self):
        for name, kept in (("x" * 31, "x" * 30), ("ž" * 29 + " y", "ž" * 29),
                           ("x" * 29 + "\U0001F3A8", "x" * 29)):
            source = self.written("f.gpl", f"GIMP Palette\nName: {name}\n1 2 3\n".encode())
            self.assertEqual(self.run_at_loss("import", self.file, source),
                             [f'huebrush: the name "{name}" was shortened to "{kept}"'])
            self.assertEqual(self.dump()[-1]["Name"], kept)
        self.run_program("import", self.file,
                         self.written("f.gpl", f"GIMP Palette\nName: {'x' * 30}\n1 2 3".encode()))

    def test_says_what_is_not_kept(self):
        header = b"GIMP Palette\nName: A\nChannels: RGBA\n"
        source = self.written("a.gpl", header + b"1 2 3 255\n4 5 6 128\n7 8 9 0 x\n")
        self.assertEqual(self.run_at_loss("import", self.file, source),
                         ["huebrush: 2 colours added without transparency"])
        source = self.written("a.ase", swatches(("CMYK", 0, 1, 1, 0), ("RGB ", 1, 0, 0),
                                                ("LAB ", 1, 0, 0)))
        self.assertEqual(self.run_at_loss("import", self.file, source),
                         ["huebrush: 2 colours of CMYK or Lab approximated"])
        self.assertEqual(self.stored_colors("a"), [0x0000FF, 0x0000FF, 0xFFFFFF])

    def test_prints_its_result_as_json(self):
        source = self.written("a.gpl", f"GIMP Palette\nName: {'x' * 31}\n1 2 3 y\n".encode())
        done = huebrush("palette", "import", self.file, source, "--json")
        self.assertEqual(done.returncode, 3)
        self.assertEqual(json.loads(done.stdout), {
            "file": str(self.file),
            "palettes": [{"ID": 1, "Name": "x" * 30, "Description": None, "Count": 1}],
            "notKept": {"colorNames": 1, "approximated": 0, "withoutTransparency": 0,
                        "shortened": [{"name": "x" * 31, "kept": "x" * 30}]}})

    def test_makes_a_palette_of_each_group(self):
        source = self.written("Loose.ase", swatches(
            "Jaro", ("RGB ", 1, 0, 0), ("Gray", 0), None, "Empty", None, ("RGB ", 0, 1, 0),
            "Léto", ("RGB ", 0, 0, 1), None))
        self.assertEqual(self.run_program("import", self.file, source),
                         f"3 palettes with 4 fills added to {self.file}; "
                         "4 names of colours not kept\n")
        self.assertEqual([(each["Name"], each["Count"]) for each in self.dump()],
                         [("Loose", 1), ("Jaro", 2), ("Léto", 1)])
        self.assert_clean()

    def test_adds_all_palettes_or_none(self):
        """The second group has one colour too many, which is found when the first is read."""
        swatch = ("RGB ", 1, 0, 0)
        whole = swatches("A", swatch, None, "B", *[swatch] * 32767, None)
        self.run_program("import", self.file, self.written("most.ase", whole))
        listed = json.loads(self.run_program("list", self.file, "--json"))["palettes"]
        self.assertEqual([each["Count"] for each in listed], [1, 32767])
        self.assert_refused("more than 32767 colours", "import", self.file, self.written(
            "more.ase", swatches("A", swatch, None, "B", *[swatch] * 32768, None)))

    def test_refuses_what_it_cannot_read(self):
        cases = {
            "a.gpl is not a usable GIMP palette: line 3: a colour must begin with three numbers":
                ("a.gpl", b"GIMP Palette\r\n1 2 3\r\n1 2 256\r\n"),
            "a.gpl is not a usable GIMP palette: there are no colours":
                ("a.gpl", b"GIMP Palette\nName: A\n"),
            "a.soc is not a usable LibreOffice colour table: line 1: syntax error":
                ("a.soc", b"GIMP Palette\n"),
            "a.ase is not a usable Adobe Swatch Exchange file: byte 0":
                ("a.ase", b"GIMP Palette\n"),
            "a.gpl has more than 16 MB": ("a.gpl", bytes(16_000_001)),
        }
        for words, (name, content) in cases.items():
            with self.subTest(words):
                self.assert_refused(words, "import", self.file, self.written(name, content))
        self.assert_refused("names of their own", "import", self.file,
                            self.write_json([palette("A", [])]), "--name", "B")
        self.assertEqual(self.dump(), [])

    def test_leaves_the_file_as_it_was_whatever_is_damaged(self):
        generator = random.Random(1)
        before = self.file.read_bytes()
        for ending in FORMATS:
            whole = self.written_by_another_program(f"whole.{ending}", "A", COLORS).read_bytes()
            for _ in range(15):
                damaged = bytearray(whole[:generator.randrange(len(whole))])
                for _ in range(generator.randrange(3)):
                    if damaged:
                        damaged[generator.randrange(len(damaged))] = generator.randrange(256)
                source = self.written(f"damaged.{ending}", bytes(damaged))
                done = huebrush("palette", "import", self.file, source)
                self.assertIn(done.returncode, (0, 1, 3), done.stderr)
                if done.returncode == 1:
                    self.assertEqual(len(done.stderr.splitlines()), 1, done.stderr)
                    self.assertEqual(self.file.read_bytes(), before)
                else:
                    self.assert_clean()
                    self.file.write_bytes(before)


def swatches(*blocks):
    """A file of Adobe Swatch Exchange: a text begins a group, None ends it, the rest are colours:
    a model and its parts."""
    def text(value):
        return struct.pack(">H", len(value) + 1) + value.encode("utf-16-be") + b"\0\0"

    def block(kind, content):
        return struct.pack(">HI", kind, len(content)) + content

    content = b""
    for each in blocks:
        if each is None:
            content += block(0xC002, b"")
        elif isinstance(each, str):
            content += block(0xC001, text(each))
        else:
            model, *parts = each
            content += block(1, text("name") + model.encode() +
                             struct.pack(f">{len(parts)}f", *parts) + b"\0\2")
    return b"ASEF" + struct.pack(">HHI", 1, 0, len(blocks)) + content


class Export(OnOtherPrograms):
    def test_writes_what_another_program_reads(self):
        colors = COLORS + [(i, 255 - i, i * 7 % 256) for i in range(256)]
        self.add([palette("Žluť & <kůň>",
                          [solid(order, color) for order, color in enumerate(colors)])])
        for ending in FORMATS:
            with self.subTest(ending):
                output = self.folder / f"out.{ending}"
                self.assertEqual(
                    self.run_program("export", self.file, "Žluť & <kůň>", "-o", output),
                    f'{len(colors)} colours of the palette "Žluť & <kůň>" written to {output}\n')
                read = self.read_by_another_program(output)
                self.assertEqual([tuple(each["color"]) for each in read["colors"]], colors)
                self.assertEqual(read["colors"][0]["name"], "#C00000")
                if ending == "gpl":
                    self.assertEqual(read["name"], "Žluť & <kůň>")

    def test_comes_back_by_import(self):
        fills = [solid(order, color) for order, color in enumerate(COLORS)]
        self.add([palette("Podzim", fills)])
        for ending in FORMATS:
            output = self.folder / f"Podzim.{ending}"
            self.run_program("export", self.file, "Podzim", "-o", output)
            self.run_program("import", self.file, output, "--name", ending)
            self.assertEqual([{name: fill[name] for name in fills[0]}
                              for fill in self.dump()[-1]["elements"]], fills)

    def test_counts_what_is_not_a_solid_colour(self):
        red = (192, 0, 0)
        self.add([palette("Podzim", [
            solid(0, red), solid(1, red, Type=3), solid(2, red, Visible=0), solid(3, red, Type=2),
            solid(4, red, Type=3), solid(5, red, Transparency=1), solid(6, red, Type=4),
            solid(7, red, Type=6), solid(8, red, Type=-2)])])
        output = self.folder / "out.gpl"
        self.assertEqual(self.run_at_loss("export", self.file, "Podzim", "-o", output),
                         ["huebrush: 7 fills left out, not solid: 2 × gradient, 1 × no fill, "
                          "1 × other, 1 × pattern, 1 × picture, 1 × texture",
                          "huebrush: 1 colour written without transparency"])
        self.assertEqual(len(self.read_by_another_program(output)["colors"]), 2)
        done = huebrush("palette", "export", self.file, "Podzim", "-o", output, "--json")
        self.assertEqual(done.returncode, 3)
        self.assertEqual(json.loads(done.stdout), {
            "file": str(self.file), "output": str(output), "format": "gpl", "palette": "Podzim",
            "colors": 2, "withoutTransparency": 1,
            "leftOut": {"gradient": 2, "no fill": 1, "other": 1, "pattern": 1, "picture": 1,
                        "texture": 1}})

    def test_chooses_among_palettes_of_one_name_by_the_id(self):
        self.add([palette("A", [solid(0, (1, 1, 1))]), palette("A", [solid(0, (2, 2, 2))]),
                  palette("#1", [solid(0, (3, 3, 3))])])
        output = self.folder / "out.gpl"
        self.assert_refused('has 2 palettes "A"; choose one by its ID: #1 or #2', "export",
                            self.file, "A", "-o", output)
        for name, value in (("#2", 2), ("#1", 3), ("#3", 3)):
            self.run_program("export", self.file, name, "-o", output)
            self.assertEqual(self.read_by_another_program(output)["colors"][0]["color"],
                             [value] * 3)

    def test_replaces_a_file_and_takes_the_format_that_is_asked_for(self):
        self.add([palette("A", [solid(0, (1, 2, 3))])])
        output = self.written("out.txt", b"old")
        self.run_program("export", self.file, "A", "-o", output, "--format", "SOC")
        self.assertIn(b'draw:color="#010203"', output.read_bytes())

    def test_is_refused_and_writes_nothing(self):
        red = (192, 0, 0)
        self.add([palette("A", [solid(0, red)]), palette("Empty", []),
                  palette("Gradients", [solid(0, red, Type=3)])])
        for name in ("Empty", "Gradients"):
            self.assert_refused(f'the palette "{name}" has no solid fills', "export", self.file,
                                name, "-o", self.folder / "out.gpl")
        for name in ("a", "#9", "", "#"):
            self.assert_refused(f'has no palette "{name}"', "export", self.file, name, "-o",
                                self.folder / "out.gpl")
        self.assert_refused("must end in one of .gpl, .soc, .ase", "export", self.file, "A", "-o",
                            self.folder / "out.txt")
        self.assert_refused("is the palette file itself", "export", self.file, "A", "-o",
                            self.file, "--format", "gpl")
        self.assert_refused("No such file or directory", "export", self.file, "A", "-o",
                            self.folder / "no" / "out.gpl")
        for arguments in (["A"], ["A", "-o", "x.gpl", "--format", "json"]):
            done = huebrush("palette", "export", self.file, *arguments)
            self.assertEqual((done.returncode, done.stdout), (2, ""), arguments)

    def test_takes_the_fills_by_their_order(self):
        self.add([palette("A", [solid(order, (order, 0, 0)) for order in (7, 2, 5)])])
        output = self.folder / "out.ase"
        self.run_program("export", self.file, "A", "-o", output)
        self.assertEqual([each["color"][0]
                          for each in self.read_by_another_program(output)["colors"]], [2, 5, 7])


class NullsOfOtherPrograms(OnOtherPrograms):
    def test_are_texts_without_content(self):
        self.add([palette("A", [{**element(0, None), "Visible": -1, "Type": 1,
                                 "Transparency": 0}])])
        self.run_program("export", self.file, "A", "-o", self.folder / "out.gpl")


if __name__ == "__main__":
    unittest.main()
