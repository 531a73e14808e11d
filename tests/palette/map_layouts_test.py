# SPDX-License-Identifier: MPL-2.0
"""Palette files whose page maps other programs have laid out, edited by the program: nothing is
lost, and other readers find the same in them."""

import os
import random
import shutil
import subprocess
import unittest

from other_readers import OnOtherReaders
from program import LIMIT, element, huebrush, palette

MAP_LAYOUT = os.environ["HUEBRUSH_MAP_LAYOUT"]
MDBTOOLS_UPDATE = os.environ["HUEBRUSH_MDBTOOLS_UPDATE"]
SEEDS = 1000 if "HUEBRUSH_LONG" in os.environ else 20
ROUNDS = 500 if "HUEBRUSH_LONG" in os.environ else 50
SIZES = (None, 0, 30, 700, 4076, 9000)


class MapLayouts(OnOtherReaders):
    def setUp(self):
        super().setUp()
        self.stored = []

    def import_one(self, name, generator):
        sizes = generator.choices(SIZES, k=generator.randint(1, 12))
        elements = [element(order, None if size is None else generator.randbytes(size), "Žula")
                    for order, size in enumerate(sizes)]
        self.add([palette(name, elements)])
        self.stored.append(palette(name, elements))

    def erase(self, name):
        self.run_program("erase", self.file, name)
        self.stored = [each for each in self.stored if each["Name"] != name]

    def lay_out(self, kind, seed):
        subprocess.run([MAP_LAYOUT, kind, str(seed), str(self.file)], check=True, timeout=LIMIT)

    def assert_all_there(self):
        self.assert_read_alike(wasteful=True)
        for each, expected in zip(self.dump(), self.stored, strict=True):
            self.assertEqual(each["Name"], expected["Name"])
            for fill, given in zip(each["elements"], expected["elements"], strict=True):
                self.assertEqual({name: fill[name] for name in given}, given)

    def test_lose_nothing_when_the_free_map_begins_at_the_last_page(self):
        for seed in range(SEEDS):
            with self.subTest(seed=seed):
                generator = random.Random(seed)
                self.stored = []
                self.run_program("new", self.file, "--force")
                for name in ("Podzim", "Zima", "Jaro"):
                    self.import_one(name, generator)
                self.lay_out("at-the-end", seed)
                self.erase("Zima")
                self.import_one("Léto", generator)
                self.assert_all_there()

    def set_number_by_mdbtools(self, fill, given, number):
        """Lets mdbtools write into a row of the file as it is. It damages pages on which rows were
        deleted; such a result is discarded. Whether it succeeded."""
        written = self.folder / "written.mdb"
        shutil.copyfile(self.file, written)
        subprocess.run([MDBTOOLS_UPDATE, written, "TFillElementParameter", "ForeColorRGB",
                        str(fill["ID"]), str(number)], check=True, timeout=LIMIT)
        if huebrush("palette", "check", written).returncode != 0:
            return False
        shutil.copyfile(written, self.file)
        given["ForeColorRGB"] = number
        return True

    def set_any_number_by_mdbtools(self, generator):
        fills = [(fill, given) for each, expected in zip(self.dump(), self.stored, strict=True)
                 for fill, given in zip(each["elements"], expected["elements"], strict=True)]
        return any(self.set_number_by_mdbtools(fill, given, generator.randrange(1 << 24))
                   for fill, given in generator.sample(fills, min(8, len(fills))))

    def test_lose_nothing_when_other_programs_write_in_turn(self):
        generator = random.Random(1)
        self.import_one("Paleta", generator)
        written = 0
        for turn in range(ROUNDS):
            with self.subTest(turn=turn):
                self.lay_out("any", turn)
                written += self.set_any_number_by_mdbtools(generator)
                self.import_one(f"Paleta {turn}", generator)
                if len(self.stored) > 5:
                    self.erase(generator.choice(self.stored)["Name"])
                self.assert_all_there()
        self.assertGreater(written, ROUNDS // 10)


class Waste(OnOtherReaders):
    def test_is_reported_and_is_no_damage(self):
        subprocess.run([MAP_LAYOUT, "at-the-end", "3", str(self.file)], check=True, timeout=LIMIT)
        lines = self.run_program("check", self.file).splitlines()
        self.assertRegex(lines[0], r"^waste: pages \d+ to \d+, byte 0: the page is orphaned "
                                   r"but not marked as free \(rule M4\)$")
        self.assertEqual(lines[1:], [f"{self.file} is sound, but wastes space"])


if __name__ == "__main__":
    unittest.main()
