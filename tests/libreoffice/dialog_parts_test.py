#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""The recolour dialog in Writer's window: removing, ticking and dragging rows, its size, its end
and its about box.

    dialog_parts_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

import os

from case import run_tests
from dialog import (ACTIVE, ADD, BOX, CLOSE, EVERY, HANDLE, LOGO, LOGO_BORDER, LOGO_TOP, REMOVE,
                    REMOVE_MENU, SELECT_ALL, SELECTED, SOURCE, TICKED, TWIPS_PER_PIXEL, UNTICKED)
from dialog_case import BLUE, COLOURS, GREEN, GREY, RED, YELLOW, DialogCase
from screen import wait_until

ABOUT = "O doplňku Huebrush"
FROM_BOTTOM = 505  # The middle of the strip of controls under the list.


class DialogPartsTest(DialogCase):
    # Removal.

    def wait_for_rows(self, dialog, *colours):
        """Waits until the list shows these rows and none after them."""
        dialog.wait_for_colours([*colours, self.background(dialog)])

    def test_the_menu_removes_what_it_says(self):
        dialog = self.open_filled()

        def remove(item, *usable):
            menu = dialog.open_remove_menu()
            self.assertEqual(menu.usable(), list(usable))
            menu.pick(REMOVE_MENU.index(item))

        dialog.click_row(2, BOX)
        dialog.click_row(4, BOX)
        remove(TICKED, ACTIVE, UNTICKED, TICKED, EVERY)
        self.wait_for_rows(dialog, RED, BLUE, GREY)
        self.wait_for_ticked(0)
        dialog.click_row(2, SOURCE)
        remove(ACTIVE, ACTIVE, UNTICKED, EVERY)
        self.wait_for_rows(dialog, RED, GREY)
        dialog.click_row(2, BOX)
        remove(UNTICKED, ACTIVE, UNTICKED, TICKED, EVERY)
        self.wait_for_rows(dialog, GREY)
        self.wait_for_ticked(1)
        remove(EVERY, TICKED, EVERY)
        self.wait_for_rows(dialog)
        self.wait_for_ticked(0)
        self.wait_until_usable("Přebarvit", False)
        self.assertEqual(self.fills(), [colour for colour in COLOURS for _ in range(2)])

    def test_after_the_remove_menu_the_rest_can_be_recoloured(self):
        dialog = self.open_filled([RED, GREEN])
        dialog.open_remove_menu().close()
        self.wait_until_usable("Přebarvit")

    def test_what_cannot_be_removed_is_shown_and_not_picked(self):
        dialog = self.open_filled([RED, GREEN])
        menu = dialog.open_remove_menu()
        self.assertEqual(menu.usable(), [UNTICKED, EVERY])
        for item in (ACTIVE, TICKED):
            menu.click(REMOVE_MENU.index(item))
        self.screen.key("a", "o")  # Their access keys.
        self.assertTrue(menu.is_open())
        dialog.wait_for_colours([RED, GREEN])
        self.screen.key("v")
        menu.wait_for_end()
        self.wait_for_rows(dialog)

    def test_a_click_beside_the_menu_closes_it(self):
        dialog = self.open_filled([RED, GREEN])
        dialog.click_row(2, SOURCE)
        menu = dialog.open_remove_menu()
        dialog.click(REMOVE)
        menu.wait_for_end()
        menu = dialog.open_remove_menu()
        self.assertEqual(menu.usable(), [ACTIVE, UNTICKED, EVERY])
        dialog.click((5060, 6200))
        menu.wait_for_end()
        menu = dialog.open_row_menu(1)
        self.screen.click(*self.outside(dialog))
        menu.wait_for_end()
        self.screen.focus(dialog.window)
        dialog.open_remove_menu().pick(REMOVE_MENU.index(ACTIVE))
        self.wait_for_rows(dialog, RED)

    def outside(self, dialog):
        """A place in the document beside the dialog."""
        left, top, width, _ = self.screen.outline_of(dialog.window)
        return left + width + 30, top + 200

    def test_the_document_is_closed_under_an_open_menu(self):
        dialog = self.open_filled([RED, GREEN])
        self.writer.new_document()
        self.screen.focus(dialog.window)
        dialog.open_row_menu(2)
        self.frame.Controller.Model.setModified(False)
        self.frame.close(True)
        wait_until(lambda: not dialog.is_open(), "the dialog has gone with its document")
        self.assertEqual(self.writer.quit(), 0)

    # Ticks.

    def test_the_box_for_all_rows_has_three_states(self):
        dialog = self.open_filled()
        self.wait_for_select_all("clear")
        dialog.click(SELECT_ALL)
        self.wait_for_select_all("ticked")
        self.wait_for_ticked(5)
        dialog.click_row(2, BOX)
        self.wait_for_select_all("grey")
        self.wait_for_ticked(4)
        dialog.click(SELECT_ALL)
        self.wait_for_select_all("clear")
        self.wait_for_ticked(0)
        dialog.click_row(3, BOX)
        self.wait_for_select_all("grey")
        dialog.click(SELECTED)
        self.wait_for_rows(dialog, BLUE)

    # Size.

    def test_the_window_keeps_its_width_and_gives_its_height_to_the_list(self):
        dialog = self.open_filled()
        _, _, width, height = self.screen.bounds_of(dialog.window)

        def click_select_all(now):
            dialog.click((SELECT_ALL[0], now * TWIPS_PER_PIXEL - FROM_BOTTOM))

        dialog.resize(width - 300, 200, given=(width, 200))  # Room for three rows only.
        fourth = dialog.in_row(4, SOURCE)
        wait_until(lambda: dialog.colour_at(fourth) != YELLOW, "the fourth row is out of sight")
        dialog.wait_for_colours([RED, GREEN])
        click_select_all(200)
        self.wait_for_ticked(5)
        self.screen.turn_wheel(*dialog.on_screen(dialog.in_row(1, SOURCE)), 2)
        wait_until(lambda: dialog.colours(1) != [RED], "the list scrolls")
        dialog.resize(width, 20)
        dialog.resize(width + 200, height + 100)
        dialog.wait_for_colours(COLOURS)
        click_select_all(height + 100)
        self.wait_for_ticked(0)
        dialog.click_row(5, BOX)
        self.wait_for_ticked(1)
        dialog.resize(width, height)
        dialog.wait_for_colours(COLOURS)

    # Dragging.

    def test_a_row_goes_where_it_is_dropped(self):
        dialog = self.open_filled()
        handle = dialog.on_screen(dialog.in_row(4, HANDLE))
        outside = dialog.on_screen((ADD[0], CLOSE[1]))
        below_the_rows = dialog.on_screen(dialog.in_row(8, SOURCE))
        left, top, width, _ = self.screen.bounds_of(dialog.window)
        dialog.click_row(4, SOURCE)
        dialog.drag_row(4, to=4)
        for place in (outside, below_the_rows, (left + width + 150, top + 200), (left - 60, top)):
            self.screen.drag(handle, place)
        dialog.wait_for_colours(COLOURS)
        dialog.drag_row(4, to=1)
        dialog.wait_for_colours([YELLOW, RED, GREEN, BLUE, GREY])
        dialog.drag_row(1, to=5)
        dialog.wait_for_colours([RED, GREEN, BLUE, GREY, YELLOW])

    def test_a_row_released_outside_stays_where_it_is(self):
        dialog = self.open_filled()
        dialog.click_row(4, SOURCE)
        handle, first = (dialog.on_screen(dialog.in_row(row, x))
                         for row, x in ((4, HANDLE), (1, SOURCE)))
        left, top, width, height = self.screen.bounds_of(dialog.window)

        def leave_and_release(outside):
            """Drags over the first row, and from there leaves the dialog in one move."""
            self.screen.hold(handle, first)
            self.screen.move(*outside)
            self.screen.let_go()

        for outside in ((left + width + 150, top + 200), (left - 60, top + 100),
                        (left + 200, top + height + 60)):
            leave_and_release(outside)
            for x in (3000, 2800, 2600):  # Back over the first row, without the button.
                self.screen.move(*dialog.on_screen(dialog.in_row(1, x)))
            dialog.wait_for_colours(COLOURS)
            leave_and_release(outside)
            dialog.click_row(2, SOURCE)  # Back at once.
            dialog.wait_for_colours(COLOURS)
            dialog.click_row(4, SOURCE)
        dialog.drag_row(4, to=1)
        dialog.wait_for_colours([YELLOW, RED, GREEN, BLUE, GREY])

    # The end.

    def test_the_button_ends_the_dialog(self):
        dialog = self.open_filled([RED])
        dialog.click(CLOSE)
        wait_until(lambda: not dialog.is_open(), "the dialog closes")
        self.assertEqual(self.writer.quit(), 0)

    # The about box.

    def logo_is_coloured(self, dialog):
        x, y = dialog.on_screen(LOGO)
        pixels = self.screen.pixels(x - 65, y - 25, 130, 50)
        return any(max(pixels[i:i + 3]) - min(pixels[i:i + 3]) > 60
                   for i in range(0, len(pixels), 3))

    def open_about_box(self, dialog):
        dialog.click(LOGO)
        window = wait_until(lambda: self.screen.windows_named(ABOUT), "the about box opens")[0]
        self.screen.focus(window)
        return window

    def click_in(self, window, name):
        """Clicks a button of the about box."""
        part = wait_until(lambda: self.button(name, ABOUT), name)
        place, size = part.getLocation(), part.getSize()
        left, top, _ = self.screen.place_of(window)
        self.screen.click(left + place.X + size.Width // 2, top + place.Y + size.Height // 2)

    def test_the_logo_opens_the_about_box(self):
        dialog = self.open_filled()
        self.assertFalse(self.logo_is_coloured(dialog))
        x, y = dialog.on_screen(LOGO)
        self.screen.move(x - 2, y)
        self.screen.move(x, y)
        wait_until(lambda: self.logo_is_coloured(dialog), "the logo is coloured")
        self.screen.move(*dialog.on_screen((LOGO[0], LOGO_TOP + LOGO_BORDER - 30)))
        wait_until(lambda: not self.logo_is_coloured(dialog), "its border leaves it grey")
        self.screen.move(*dialog.on_screen((LOGO[0], LOGO_TOP + LOGO_BORDER + 30)))
        wait_until(lambda: self.logo_is_coloured(dialog), "inside of that it is coloured")
        window = self.open_about_box(dialog)
        left, top, width, height = self.screen.bounds_of(window)
        beside = [place for place in (dialog.in_row(5, BOX), dialog.in_row(1, BOX), CLOSE)
                  if not (left <= dialog.on_screen(place)[0] < left + width
                          and top <= dialog.on_screen(place)[1] < top + height)]
        self.assertTrue(beside)
        for place in beside:
            dialog.click(place)
        self.screen.focus(window)
        self.click_in(window, "OK")
        wait_until(lambda: not self.screen.windows_named(ABOUT), "the about box closes")
        wait_until(dialog.is_open, "the dialog stays open")
        self.wait_for_ticked(0)
        wait_until(lambda: not self.logo_is_coloured(dialog), "the logo is grey")
        dialog.click_row(2, BOX)
        self.wait_for_ticked(1)

    def test_the_about_box_starts_a_system_information_tool(self):
        tool = os.path.join(self._folder.name, "hardinfo2")
        trace = os.path.join(self._folder.name, "started")

        def write_tool(text):
            with open(tool, "w", encoding="utf-8") as file:
                file.write(text)
            os.chmod(tool, 0o755)

        self.set_environment("PATH", self._folder.name + ":" + os.environ["PATH"])
        write_tool("This is no program.")
        window = self.open_about_box(self.open([RED]))
        self.click_in(window, "System Info")
        self.answer_box("Huebrush", "Return")
        write_tool(f"#!/bin/sh\n: > {trace}\n")
        self.click_in(window, "System Info")
        wait_until(lambda: os.path.exists(trace), "the tool starts")
        self.click_in(window, "OK")
        wait_until(lambda: not self.screen.windows_named(ABOUT), "the about box closes")


if __name__ == "__main__":
    run_tests(__doc__)
