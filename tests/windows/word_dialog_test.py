# SPDX-License-Identifier: MPL-2.0
"""The recolour dialog over the stand-in for Word, with a real mouse and keys. window_case.py says
how it is started."""

from window_case import WindowCase, run_tests, wait_until
from dialog import (ALL, BOX, CLOSE, COLOUR, DESTINATION, DONE, FORMAT, LOGO, LOOK, NOT_SELECTED,
                    RECOLOUR, SELECTED, SOURCE, Dialog)
from stand_in import CHANGE_FILLS, shown_colour

# 0xBBGGRR, as the host has them.
RED, GREEN, BLUE, ORANGE = 0x0000FF, 0x00FF00, 0xFF0000, 0x0080FF
SHAPES = [RED, GREEN, RED, BLUE, ORANGE]
ROWS = [RED, GREEN, BLUE, ORANGE]
PICKED = 0x123456
TOOLS = {COLOUR: 1051, LOOK: 1006, FORMAT: 960}
ABOUT = "O doplňku Huebrush"
LOAD = "Načtení palety výplní..."
FROM_DATABASE = (6600, 4485)
# Of the palette that comes first.
FIRST_COLOURS = [0x000000, 0x009FE6]


def picture(colours):
    return "shapes=" + ",".join(str(colour) for colour in colours)


def seen(colours):
    """The colours as a screen has them, 0xRRGGBB."""
    return [shown_colour(colour) for colour in colours]


class RecolourDialog(WindowCase):
    def open(self, word):
        word.click_button(CHANGE_FILLS)
        return Dialog(self.screen)

    def filled(self, word):
        dialog = self.open(word)
        dialog.add()
        dialog.wait_for_colours(seen(ROWS))
        return dialog

    def named(self, title):
        return self.screen.windows_named(" ?" + title.replace(".", "[.]"))

    def wait_for_end(self, dialog, word):
        wait_until(lambda: not dialog.is_open(), "the dialog is closed")
        # Whoever asks next finds the host's window there.
        self.assertEqual(len(word.fills()), len(SHAPES))

    def test_scan_tools_and_recolour(self):
        tools = [f"tool={number}/{PICKED + item}" for item, number in TOOLS.items()]
        with self.start(picture(SHAPES), *tools) as word:
            dialog = self.filled(word)
            new = list(ROWS)
            for row, item in enumerate(TOOLS, 1):
                dialog.open_row_menu(row).pick(item)
                new[row - 1] = PICKED + item
                dialog.wait_for_colours(seen(new), DESTINATION)
            self.assertEqual(dialog.colours(4), seen(ROWS))
            for row in (1, 3):
                dialog.click_row(row, BOX)
            dialog.click(RECOLOUR)
            first, _, third, _ = new
            wait_until(lambda: word.fills() == [first, GREEN, first, third, ORANGE],
                       "the shapes have the new fills")
            dialog.wait_for_colours(seen([first, GREEN, third, ORANGE]))
            dialog.click(CLOSE)
            self.wait_for_end(dialog, word)
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_rows_are_dragged_and_views_show_what_is_ticked(self):
        with self.start(picture(SHAPES)) as word:
            dialog = self.filled(word)
            dialog.click_row(1, SOURCE)
            dialog.drag_row(1, to=3)
            dialog.wait_for_colours(seen([GREEN, BLUE, RED, ORANGE]))
            dialog.click_row(2, BOX)
            dialog.click(SELECTED)
            dialog.wait_for_colours(seen([BLUE]))
            dialog.click(NOT_SELECTED)
            dialog.wait_for_colours(seen([GREEN, RED, ORANGE]))
            dialog.click(ALL)
            dialog.wait_for_colours(seen([GREEN, BLUE, RED, ORANGE]))
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_everything_by_keys(self):
        with self.start(picture(SHAPES), f"tool=1051/{PICKED}") as word:
            dialog = self.filled(word)
            dialog.click_row(1, SOURCE)
            dialog.wait_for_handle(1)
            self.screen.key("Down")
            dialog.wait_for_handle(2)
            dialog.open_row_menu_by_key("Alt_L").press("b")
            dialog.wait_for_colours(seen([RED, PICKED, BLUE, ORANGE]), DESTINATION)
            self.screen.key("space")
            self.screen.key("alt+b")
            wait_until(lambda: word.fills() == [RED, PICKED, RED, BLUE, ORANGE],
                       "the shape has the new fill")
            self.screen.key("Escape")
            self.wait_for_end(dialog, word)
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_the_about_box_opens_over_the_dialog(self):
        with self.start(picture(SHAPES)) as word:
            dialog = self.open(word)
            dialog.click(LOGO)
            about = wait_until(lambda: self.named(ABOUT), "the about box is there")[0]
            self.screen.focus(about)
            self.screen.key("Escape")
            wait_until(lambda: not self.named(ABOUT), "the about box is gone")
            self.assertTrue(dialog.is_open())
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_a_palette_gives_its_fills_to_the_ticked_rows(self):
        with self.start(picture(SHAPES)) as word:
            dialog = self.filled(word)
            for row in (1, 2):
                dialog.click_row(row, BOX)
            dialog.click(FROM_DATABASE)
            window = wait_until(lambda: self.named(LOAD), "the dialog of palettes is there")[0]
            self.screen.focus(window)
            self.screen.key("Return")
            wait_until(lambda: not self.named(LOAD), "the dialog of palettes is gone")
            dialog.wait_for_colours(seen([*FIRST_COLOURS, BLUE, ORANGE]), DESTINATION)
            dialog.click(RECOLOUR)
            black, second = FIRST_COLOURS
            wait_until(lambda: word.fills() == [black, second, black, BLUE, ORANGE],
                       "the shapes have the palette's fills")
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_the_host_may_end_with_a_menu_open(self):
        with self.start(picture(SHAPES)) as word:
            self.filled(word).open_row_menu(1)
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_the_dialog_may_be_closed_while_it_scans(self):
        # So many that the scan would go on for minutes.
        colours = list(range(4000))
        with self.start(picture(colours)) as word:
            dialog = self.open(word)
            dialog.click((6600, 700))
            dialog.click(CLOSE)
            wait_until(lambda: not dialog.is_open(), "the dialog is closed")
            self.assertEqual(word.fills(), colours)
            self.assertFalse(self.screen.windows_named(DONE))
        self.assertTrue(word.ended_well(), word.said[-20:])


if __name__ == "__main__":
    run_tests()
