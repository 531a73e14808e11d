# SPDX-License-Identifier: MPL-2.0
"""The recolour dialog with as many rows as a large picture has fills, on a screen of twice the
usual resolution: its list is taller than any window can be.

    many_rows_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

from case import run_tests
from dialog import LIST_LEFT, LIST_TOP, ROW_HEIGHT, SOURCE
from dialog_case import DialogCase
from screen import wait_until

ROWS = 2000
LIST_HEIGHT = 6170
SCROLL_BAR = 4790
WHEEL_TURN = 40


def colour(row):
    """Each row's own; the steps are large enough to tell neighbours apart."""
    return (row * 0x01F3D7) & 0xFFFFFF


class ManyRowsTest(DialogCase):
    SCALE = 2

    def test_the_last_of_two_thousand_rows_is_reached(self):
        colours = [colour(row) for row in range(1, ROWS + 1)]
        self.assertEqual(len(set(colours)), ROWS)
        dialog = self.open(colours, each=1)
        dialog.add()
        dialog.wait_for_colours(colours[:5])
        # Below the mark of the scroll bar: how far that goes is the toolkit's affair.
        dialog.click((SCROLL_BAR, LIST_TOP + LIST_HEIGHT - 500))
        wait_until(lambda: dialog.colours(5) != colours[:5], "the list scrolls")
        last = (LIST_LEFT + SOURCE - 200, LIST_TOP + LIST_HEIGHT - ROW_HEIGHT // 2 - 120)

        def is_shown_after_a_turn():
            self.screen.turn_wheel(*dialog.on_screen(dialog.in_row(1, SOURCE)), WHEEL_TURN)
            return dialog.colour_at(last) == colours[-1]

        wait_until(is_shown_after_a_turn, "the last row is shown", 120.0)
        before = (last[0], last[1] - ROW_HEIGHT)
        self.assertEqual(dialog.colour_at(before), colours[-2])


if __name__ == "__main__":
    run_tests(__doc__)
