# SPDX-License-Identifier: MPL-2.0
"""The palette file of another program, on which the dialogs are tested: what it is supposed to be,
other readers say, too, before and after it is changed."""

import os
import subprocess
import unittest

from mdbtools import NULL, export
from other_readers import OnOtherReaders
from program import LIMIT, element, palette

MAKER = os.environ["HUEBRUSH_OTHER_PROGRAMS_FILE"]
MDBTOOLS_UPDATE = os.environ["HUEBRUSH_MDBTOOLS_UPDATE"]


class OtherProgramsFile(OnOtherReaders):
    def setUp(self):
        super().setUp()
        subprocess.run([MAKER, self.file], check=True, timeout=LIMIT)

    def test_is_read_alike_by_all_readers(self):
        tables = self.assert_read_alike(wasteful=True)
        self.assertEqual([row[:4] for row in tables["TFillGroup"]],
                         [[1, "Příšerně žluťoučký kůň úpěl óď", "popis", 4], [2, "b", None, 1]])
        self.assertEqual([row[4] for row in tables["TFillElementParameter"]],
                         [11, 12, 13, 14, 21])

    def test_has_metafiles_a_bitmap_and_nulls_as_previews(self):
        header, *rows = export(self.file, "TFillElementParameter")
        previews = [row[header.index("FillPreview")] for row in rows]
        self.assertEqual([each[:8] for each in previews],
                         ["D7CDC69A", NULL, "01000000", "424D3A00", NULL])

    def test_is_changed_by_both_in_turn(self):
        subprocess.run([MDBTOOLS_UPDATE, self.file, "TFillElementParameter", "ForeColorRGB",
                        "2", "1234"], check=True, timeout=LIMIT)
        tables = self.assert_read_alike(wasteful=True)
        self.assertEqual(tables["TFillElementParameter"][1][4], 1234)
        self.add([palette("nová", [element(0, b"x"), element(1, None)])])
        self.run_program("erase", self.file, "b")
        tables = self.assert_read_alike(wasteful=True)
        self.assertEqual([row[0] for row in tables["TFillGroup"]], [1, 3])
        self.assertEqual(tables["TFillElementParameter"][1][4], 1234)


if __name__ == "__main__":
    unittest.main()
