# SPDX-License-Identifier: MPL-2.0
"""Files that the program has made and edited, as mdbtools and the npm package mdb-reader read them:
the same tables, columns, types, rows and bytes."""

import unittest

from other_readers import OnOtherReaders
from program import PREVIEW_SIZES, element, palette, various_palettes


class OtherReaders(OnOtherReaders):
    def test_mdbtools_reads_a_preview_that_is_too_long_for_mdb_reader(self):
        # mdb-reader knows only lengths of 24 bits.
        self.add([palette("Podzim", [element(0, bytes(range(256)) * 65536), element(1, b"x")])])
        self.compare_with_mdbtools(self.tables())

    def test_read_a_new_file(self):
        self.assertEqual([len(rows) for rows in self.assert_read_alike().values()], [0, 0])

    def test_read_palettes_with_czech_names_nulls_empty_texts_and_previews_of_all_sizes(self):
        previews = list(PREVIEW_SIZES) + [16_000_000] + [None, 7] * 22
        self.add(various_palettes(previews))
        tables = self.assert_read_alike()
        self.assertEqual([len(rows) for rows in tables.values()], [4, 150])

    def test_read_what_erasing_and_adding_has_left(self):
        for turn in range(4):
            self.add(various_palettes([turn * 500, 5000, None] * 16 + [90_000]))
            self.add([palette(f"Paleta {turn}", [element(order, bytes(order * 40))
                                                 for order in range(120)])])
            self.run_program("erase", self.file, "příšerně úpěl")
            if turn % 2:
                self.run_program("erase", self.file, f"Paleta {turn - 1}")
        self.assert_read_alike()


if __name__ == "__main__":
    unittest.main()
