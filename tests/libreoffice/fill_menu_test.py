#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""The menu of a row of the recolour dialog in Writer's window, with the office's own tools.

    fill_menu_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

from case import run_tests
from dialog import (BOX, COLOUR, DESTINATION, FORMAT, HALF, LOOK, NO_FILL, RECOLOUR, RESTORE,
                    ROW_MENU)
from dialog_case import BLUE, GREEN, RED, DialogCase
from screen import wait_until

ORANGE, VIOLET = 0xE07020, 0x7030A0


class FillMenuTest(DialogCase):
    def setUp(self):
        super().setUp()
        self.dialog = self.open_filled([RED, GREEN, BLUE])
        self.model = self.frame.Controller.Model

    def pick(self, row, item):
        self.dialog.open_row_menu(row).pick(item)

    def wait_for_new(self, *colours):
        self.dialog.wait_for_colours(list(colours), DESTINATION)

    def recolour(self, *rows, until=None):
        """Ticks these rows only, recolours and takes the ticks back: only when the recolouring is
        over, for it lets events run, and passes over rows that are not ticked by then. Its last act
        is an entry in the list of Undo, unless no fill differs from what it was."""
        entries = self.recolour_entries()
        is_over = until or (lambda: self.recolour_entries() == entries + 1)
        for number, row in enumerate(rows, 1):
            self.dialog.click_row(row, BOX)
            self.wait_for_ticked(number)
        self.dialog.click(RECOLOUR)
        wait_until(is_over, "the rows are recoloured")
        for number, row in enumerate(rows, 1):
            self.dialog.click_row(row, BOX)
            self.wait_for_ticked(len(rows) - number)

    def check_that_unchanged(self, row):
        """Whether a row has no new fill: then its recolour leaves the document as it was. REQUIRES:
        the dialog's first recolour, the end of which makes the close button the default one."""
        entries = self.recolour_entries()
        self.model.setModified(False)
        self.assertFalse(self.is_default("Konec"))
        self.recolour(row, until=lambda: self.is_default("Konec"))
        self.assertFalse(self.model.isModified())
        self.assertEqual(self.recolour_entries(), entries)

    def check_that_changed(self, row):
        """Whether a row has a new fill, be it the same as the old one."""
        self.model.setModified(False)
        self.recolour(row, until=self.model.isModified)

    def test_the_keys_of_the_menu(self):
        menu = self.dialog.open_row_menu(1)
        self.assertEqual(menu.usable(), [item for item in ROW_MENU if item != "-"])
        self.screen.key("End", "Up", "Home", "space")
        menu.wait_for_end()
        nothing = self.background(self.dialog)
        self.wait_for_new(nothing, GREEN, BLUE)
        menu = self.dialog.open_row_menu(1)
        self.screen.key("o")
        menu.wait_for_end()
        self.wait_for_new(RED, GREEN, BLUE)
        menu = self.dialog.open_row_menu(2)
        self.screen.key("x", "Down", "Escape")
        menu.wait_for_end()
        wait_until(self.dialog.is_open, "the dialog stays open")
        self.wait_for_new(RED, GREEN, BLUE)

    def test_no_fill_is_a_switch(self):
        nothing = self.background(self.dialog)
        self.pick(2, NO_FILL)
        self.wait_for_new(RED, nothing, BLUE)
        self.pick(2, NO_FILL)
        self.wait_for_new(RED, GREEN, BLUE)
        self.pick(3, NO_FILL)
        self.wait_for_new(RED, GREEN, nothing)
        self.recolour(2, 3)
        self.wait_for_fills([RED, RED, GREEN, GREEN, None, None], "the blue ones lose their fill")
        self.dialog.wait_for_colours([RED, GREEN, nothing])

    def test_half_transparency_is_a_switch(self):
        def shown():
            return self.dialog.colours(3, DESTINATION)

        self.pick(1, HALF)
        wait_until(lambda: shown()[0] != RED, "the preview is paler")
        self.pick(1, HALF)
        self.wait_for_new(RED, GREEN, BLUE)
        self.pick(2, HALF)
        wait_until(lambda: shown()[1] != GREEN, "the preview is paler")
        pale = shown()
        self.assertEqual([pale[0], pale[2]], [RED, BLUE])
        self.recolour(1, 2)
        wait_until(lambda: [shape.FillTransparence for shape in self.shapes]
                   == [0, 0, 50, 50, 0, 0], "the green ones are half transparent")
        self.assertEqual(self.fills(), [RED, RED, GREEN, GREEN, BLUE, BLUE])
        self.dialog.wait_for_colours(pale)

    def test_the_colour_dialog_gives_a_colour(self):
        tool = self.open_tool(self.dialog, 2, COLOUR, GREEN)
        tool.choose(ORANGE)
        tool.confirm()
        self.wait_for_new(RED, ORANGE, BLUE)
        self.dialog.wait_for_colours([RED, GREEN, BLUE])
        tool = self.open_tool(self.dialog, 2, COLOUR, ORANGE)
        tool.choose(VIOLET)
        tool.escape()
        self.wait_for_new(RED, ORANGE, BLUE)
        self.recolour(2)
        self.wait_for_fills([RED, RED, ORANGE, ORANGE, BLUE, BLUE], "the green ones change")
        self.dialog.wait_for_colours([RED, ORANGE, BLUE])

    def test_a_cancelled_format_is_no_change(self):
        self.open_tool(self.dialog, 1, FORMAT, RED).escape()
        self.check_that_unchanged(1)

    def test_a_cancelled_tool_counts_as_a_change_unless_it_is_the_format(self):
        self.open_tool(self.dialog, 2, COLOUR, GREEN).escape()
        self.check_that_changed(2)
        self.open_tool(self.dialog, 3, LOOK, BLUE).escape()
        self.check_that_changed(3)
        self.open_tool(self.dialog, 1, FORMAT, RED).confirm()
        self.check_that_changed(1)
        self.wait_for_new(RED, GREEN, BLUE)
        self.assertEqual(self.fills(), [RED, RED, GREEN, GREEN, BLUE, BLUE])

    def test_the_area_dialog_gives_a_fill(self):
        tool = self.open_tool(self.dialog, 1, LOOK, RED)
        tool.choose(ORANGE)
        tool.confirm()
        self.wait_for_new(ORANGE, GREEN, BLUE)
        tool = self.open_tool(self.dialog, 3, FORMAT, BLUE)
        tool.choose(VIOLET)
        tool.confirm()
        self.wait_for_new(ORANGE, GREEN, VIOLET)
        tool = self.open_tool(self.dialog, 2, FORMAT, GREEN)
        tool.choose(VIOLET)
        tool.escape()
        self.wait_for_new(ORANGE, GREEN, VIOLET)
        self.recolour(1, 2, 3)
        self.wait_for_fills([ORANGE, ORANGE, GREEN, GREEN, VIOLET, VIOLET], "two rows change")
        self.assertEqual(self.recolour_entries(), 1)

    def test_the_previous_fill_comes_back(self):
        tool = self.open_tool(self.dialog, 1, COLOUR, RED)
        tool.choose(ORANGE)
        tool.confirm()
        self.wait_for_new(ORANGE, GREEN, BLUE)
        self.pick(1, RESTORE)
        self.wait_for_new(RED, GREEN, BLUE)
        self.check_that_unchanged(1)
        self.assertEqual(self.fills(), [RED, RED, GREEN, GREEN, BLUE, BLUE])


if __name__ == "__main__":
    run_tests(__doc__)
