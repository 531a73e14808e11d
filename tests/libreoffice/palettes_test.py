#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""The dialogs of palettes in Writer, by mouse and keys; the file is read by another program.

    palettes_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

import csv
import io
import subprocess
from pathlib import Path

from case import run_tests
from com.sun.star.accessibility import AccessibleRole, AccessibleStateType
from dialog import BOX, DESTINATION, RECOLOUR, TWIPS_PER_PIXEL
from dialog_case import GREEN, GREY, RED, DialogCase
from screen import wait_until
from writer import children_of

SAVE, LOAD = "Uložení a úprava palet výplní...", "Načtení palety výplní..."
# In twips of the recolour dialog.
TO_DATABASE, FROM_DATABASE = (6600, 5085), (6600, 4485)
# In twips of the dialogs of palettes.
LIST_LEFT, LIST_TOP, LINE = 210, 1335, 210
LOAD_OK = (5910, 5085)
# Letters that the keyboard of the screen has.
NAME, OTHER_NAME, UNWANTED = "Two colours", "Renamed", "Unwanted"


def parts_of(accessible):
    """The part itself, and all within it."""
    yield accessible
    for child in children_of(accessible):
        yield from parts_of(child)


class PaletteWindow:
    """A dialog of palettes that is open on a screen."""

    def __init__(self, case, title):
        self.case, self.screen, self.title = case, case.screen, title
        self.window = wait_until(self._windows, f"{title!r} opens", 60.0)[0]
        self.screen.focus(self.window)

    def _windows(self):
        return self.screen.windows_named(" ?" + self.title.replace(".", "[.]"))

    def click(self, place):
        left, top, _ = self.screen.place_of(self.window)
        x, y = place
        self.screen.click(left + int(x / TWIPS_PER_PIXEL), top + int(y / TWIPS_PER_PIXEL))

    def button(self, name):
        return self.case.button(name, self.title)

    def press(self, name):
        """Presses a button as soon as it can be pressed."""
        self.wait_until_usable(name)
        part = self.button(name)
        place, size = part.getLocation(), part.getSize()
        left, top, _ = self.screen.place_of(self.window)
        self.screen.click(left + place.X + size.Width // 2, top + place.Y + size.Height // 2)

    def wait_until_usable(self, name, usable=True):
        def is_so():
            button = self.button(name)
            return button is not None and self.case.writer.is_enabled(button) == usable

        wait_until(is_so, f"{name!r} is enabled: {usable}")

    def items(self):
        """The names of the palettes in the list."""
        return [part.getAccessibleName() for part in self._parts()
                if part.getAccessibleRole() == AccessibleRole.LIST_ITEM]

    def type(self, text):
        """Types into the field with the focus, all text of which is selected."""
        self.screen.type(text)
        wait_until(lambda: self._typed() == text, f"{text!r} is typed")

    def _parts(self):
        for top in self.case.writer.top_windows():
            if top.getAccessibleName().strip() == self.title:
                yield from parts_of(top)

    def _typed(self):
        for part in self._parts():
            if (part.getAccessibleRole() == AccessibleRole.TEXT
                    and self.case.writer.has_state(part, AccessibleStateType.FOCUSED)):
                return part.getText()
        return None

    def wait_for_end(self):
        wait_until(lambda: not self._windows(), f"{self.title!r} closes")


class PalettesTest(DialogCase):
    def file(self):
        """The user's own palette file."""
        found = list(Path(self._folder.name).rglob("fill.mdb"))
        return found[0] if found else None

    def rows(self, table):
        """The rows of a table, as mdb-export reads them."""
        printed = subprocess.run(["mdb-export", "-b", "strip", self.file(), table], check=True,
                                 stdout=subprocess.PIPE, text=True).stdout
        return list(csv.DictReader(io.StringIO(printed)))

    def elements_of(self, name):
        """The colours of a palette's fills, in their order."""
        group = next(row["ID"] for row in self.rows("TFillGroup") if row["Name"] == name)
        fills = [row for row in self.rows("TFillElementParameter") if row["GroupID"] == group]
        return [int(row["ForeColorRGB"])
                for row in sorted(fills, key=lambda row: int(row["OrderNumber"]))]

    def tick(self, dialog, *rows):
        for count, row in enumerate(rows, 1):
            dialog.click_row(row, BOX)
            self.wait_for_ticked(count)

    def save_palette(self, dialog, name):
        dialog.click(TO_DATABASE)
        saving = PaletteWindow(self, SAVE)
        saving.press("Nová")
        saving.wait_until_usable("Uložit")
        saving.type(name)
        saving.press("Uložit")
        saving.wait_until_usable("Nová")
        return saving

    def tick_off(self, dialog, *rows):
        for left, row in zip(range(len(rows) - 1, -1, -1), rows):
            dialog.click_row(row, BOX)
            self.wait_for_ticked(left)

    def wait_for_groups(self, names, what):
        wait_until(lambda: sorted(row["Name"] for row in self.rows("TFillGroup")) == sorted(names),
                   what)

    def test_ticked_rows_are_saved_and_laid_onto_others(self):
        dialog = self.open_filled()
        self.tick(dialog, 1, 2)
        saving = self.save_palette(dialog, NAME)
        saving.press("Konec")
        saving.wait_for_end()
        self.assertEqual(self.elements_of(NAME), [in_file(RED), in_file(GREEN)])

        self.tick_off(dialog, 1, 2)
        self.tick(dialog, 3, 4)
        dialog.click(FROM_DATABASE)
        loading = PaletteWindow(self, LOAD)
        # The list is sorted by name, and ours is not the first.
        self.assertEqual(loading.items()[-1], NAME)
        loading.click((LIST_LEFT + 600, LIST_TOP + LINE * len(loading.items()) - LINE // 2))
        loading.click(LOAD_OK)
        loading.wait_for_end()
        dialog.wait_for_colours([RED, GREEN, RED, GREEN, GREY], DESTINATION)
        dialog.click(RECOLOUR)
        self.wait_for_fills([each for colour in (RED, GREEN, RED, GREEN, GREY)
                             for each in (colour, colour)], "the shapes have the palette's fills")

    def test_a_palette_is_renamed_an_edit_is_given_up_and_the_palette_erased(self):
        dialog = self.open_filled()
        self.tick(dialog, 1)
        saving = self.save_palette(dialog, NAME)
        before = sorted(row["Name"] for row in self.rows("TFillGroup"))

        saving.press("Upravit")
        saving.wait_until_usable("Smazat", False)
        saving.type(OTHER_NAME)
        saving.press("Uložit")
        renamed = sorted([name for name in before if name != NAME] + [OTHER_NAME])
        self.wait_for_groups(renamed, "the palette has its new name")

        saving.press("Upravit")
        saving.wait_until_usable("Smazat", False)
        saving.type(UNWANTED)
        saving.wait_until_usable("Zrušit")
        self.screen.key("Escape")
        saving.wait_for_end()
        self.wait_for_groups(renamed, "the edit is given up")

        dialog.click(TO_DATABASE)
        saving = PaletteWindow(self, SAVE)
        erased = saving.items()[0]
        saving.press("Smazat")
        self.wait_for_groups([name for name in renamed if name != erased],
                             "the first palette of the list is erased")
        saving.press("Konec")
        saving.wait_for_end()


def in_file(color):
    """The number that palettes keep: red is in its low byte."""
    return int.from_bytes(color.to_bytes(3, "big"), "little")


run_tests(__doc__)
