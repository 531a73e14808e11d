#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""What the recolour dialog does by itself while the mouse rests or drags over it.

    pointer_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

import itertools

from case import run_tests
from dialog import DESTINATION, HANDLE, LIST_TOP, SOURCE, UP
from dialog_case import DialogCase
from screen import comes_soon, wait_until

COLOURS = [0x060606 * number + 0x0F for number in range(1, 31)]
ROWS = 9
ABOVE, BELOW, NOTHING = (2000, LIST_TOP - 150), (2000, 6860), (7500, 6400)


class PointerTest(DialogCase):
    def open_full(self):
        """The dialog with more rows than it shows."""
        dialog = self.open(COLOURS, each=1)
        dialog.add()
        dialog.wait_for_colours(COLOURS[:ROWS])
        return dialog

    def hold_row(self, dialog, row, place):
        """Drags a row to a place, and keeps the button."""
        dialog.click_row(row, SOURCE)
        dialog.wait_for_handle(row)
        self.screen.hold(dialog.on_screen(dialog.in_row(row, HANDLE)), dialog.on_screen(place))

    def wait_for_scroll(self, dialog, place, first, gone):
        """Waits until a list that began with the row `first` has begun to scroll, and goes on by
        itself until it has left the rows `gone`. A busy office may hear of the press after the last
        move: the hand that holds the row moves a little until it scrolls."""
        x, y = dialog.on_screen(place)
        steps = itertools.cycle((0, 1))

        def scrolls():
            self.screen.move(x + next(steps), y)
            return dialog.colours(1)[0] != COLOURS[first]

        wait_until(scrolls, "the list begins to scroll")
        wait_until(lambda: dialog.colours(1)[0] not in gone, "the list scrolls")

    def first_shown(self, dialog):
        """The number of the row at the list's top, once that stands still."""
        shown = []

        def stands_still():
            shown.append(dialog.colours(ROWS))
            return shown[-2:-1] == shown[-1:]

        wait_until(stands_still, "the list stands still")
        return COLOURS.index(shown[-1][0])

    def drop_in_row(self, dialog, row, dragged):
        """Lets a row go over another one that shows, and waits for the new order."""
        self.screen.move(*dialog.on_screen(dialog.in_row(row, SOURCE)))
        first = self.first_shown(dialog)
        self.screen.let_go()
        order = [colour for colour in COLOURS if colour != COLOURS[dragged]]
        order.insert(first + row - 1, COLOURS[dragged])
        dialog.wait_for_colours(order[first:first + ROWS])

    def mark_of(self, dialog, row):
        """What shows at a row's upper edge, where the drop mark is."""
        x, y = dialog.on_screen(dialog.in_row(row, SOURCE))
        return self.screen.pixels(x, y - 24, 20, 8)

    def tip_comes(self, dialog, place):
        """Whether a tool tip opens soon after the mouse has come to a place."""
        x, y = dialog.on_screen(place)
        self.screen.move(x - 10, y)
        before = self.screen.windows()
        for distance in range(8, -1, -2):
            self.screen.move(x - distance, y)
        return comes_soon(lambda: self.screen.windows() - before)

    def test_painted_parts_have_tool_tips(self):
        dialog = self.open_full()
        for place in (dialog.in_row(1, SOURCE), dialog.in_row(3, DESTINATION), UP):
            self.screen.move(*dialog.on_screen(NOTHING))
            wait_until(lambda: self.tip_comes(dialog, place), f"a tool tip at {place}")

    def test_parts_without_a_tool_tip_show_none(self):
        dialog = self.open_full()
        self.assertFalse(self.tip_comes(dialog, NOTHING))

    def test_a_row_dragged_below_the_list_scrolls_it(self):
        dialog = self.open_full()
        self.hold_row(dialog, 1, BELOW)
        self.wait_for_scroll(dialog, BELOW, 0, COLOURS[:3])
        self.drop_in_row(dialog, 5, dragged=0)

    def test_a_row_dragged_above_the_list_scrolls_it(self):
        dialog = self.open_full()
        dialog.scroll_to(8, COLOURS)
        dialog.wait_for_colours(COLOURS[8:8 + ROWS])
        self.hold_row(dialog, 3, ABOVE)
        self.wait_for_scroll(dialog, ABOVE, 8, COLOURS[5:])
        self.drop_in_row(dialog, 2, dragged=10)

    def test_escape_cancels_a_drag(self):
        dialog = self.open_full()
        dialog.click_row(1, SOURCE)
        before = self.mark_of(dialog, 4)
        self.hold_row(dialog, 1, dialog.in_row(4, SOURCE))
        wait_until(lambda: self.mark_of(dialog, 4) != before, "the drop mark shows")
        self.screen.key("Escape")
        wait_until(lambda: self.mark_of(dialog, 4) == before, "the drop mark goes")
        self.screen.let_go()
        dialog.click_row(2, SOURCE)
        dialog.click(UP)
        dialog.wait_for_colours([COLOURS[1], COLOURS[0], *COLOURS[2:ROWS]])


if __name__ == "__main__":
    run_tests(__doc__)
