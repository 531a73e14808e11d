#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""The recolour dialog in Writer's window, used as its user does: by mouse and keys, on a screen.

    dialog_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

from case import run_tests
from dialog import (ADD, ALL, BOX, DESTINATION, DONE, DOWN, NO_FILL, NOT_SELECTED, RECOLOUR,
                    SELECT_ALL, SELECTED, SOURCE, UP, Dialog, dialogs_on)
from dialog_case import BLUE, CHANGE_FILLS, COLOURS, GREEN, GREY, RED, YELLOW, DialogCase
from screen import wait_until


PROGRESS = 4600, 7100  # In the progress box, right of its text.


class DialogTest(DialogCase):
    # Scan and recolour.

    def test_the_whole_job_by_mouse(self):
        dialog = self.open_filled()
        dialog.click_row(2, BOX)
        dialog.open_row_menu(2).press("Down", "Return")  # No fill.
        nothing = self.background(dialog)
        dialog.wait_for_colours([RED, nothing, BLUE], DESTINATION)
        dialog.click(RECOLOUR)
        wait_until(lambda: self.fills() == [RED, RED, None, None, BLUE, BLUE, YELLOW, YELLOW,
                                            GREY, GREY], "the green shapes lose their fill")
        dialog.wait_for_colours([RED, nothing, BLUE])
        self.screen.focus(self.writer.window_of(self.frame))
        self.screen.key("ctrl+z")
        wait_until(lambda: self.fills()[2:4] == [GREEN, GREEN], "one step undoes it")

    def test_the_menu_restores_the_previous_fill(self):
        dialog = self.open_filled()
        dialog.open_row_menu(1).press("Down", "Return")
        dialog.wait_for_colours([self.background(dialog), GREEN], DESTINATION)
        dialog.open_row_menu(1).press("Up", "Return")  # The last item restores.
        dialog.wait_for_colours([RED, GREEN], DESTINATION)

    def test_a_menu_closed_without_a_pick_changes_nothing(self):
        dialog = self.open_filled()
        dialog.open_row_menu(1).press("Down", "Escape")
        dialog.open_row_menu(2).press("Down", "Return")
        dialog.wait_for_colours([RED, self.background(dialog), BLUE], DESTINATION)

    def test_add_by_its_access_key_and_again(self):
        dialog = self.open([RED, GREEN])
        self.screen.focus(dialog.window)
        self.screen.key("alt+p")
        self.answer_box("Zpracování je dokončeno...", "Return")
        dialog.wait_for_colours([RED, GREEN])
        dialog.add()
        dialog.wait_for_colours([RED, GREEN, RED, GREEN])

    def test_nothing_selected_is_reported(self):
        dialog = self.open([RED])
        self.writer.dispatch(self.frame, ".uno:Escape")
        wait_until(lambda: not self.writer.selected_names(self.frame), "nothing is selected")
        dialog.click(ADD)
        self.answer_box("Huebrush", "Return")

    # Views.

    def test_the_views_show_the_ticked_rows_or_the_others(self):
        dialog = self.open_filled()
        dialog.click_row(2, BOX)
        dialog.click_row(4, BOX)
        dialog.click(SELECTED)
        dialog.wait_for_colours([GREEN, YELLOW, self.background(dialog)])
        dialog.click(NOT_SELECTED)
        dialog.wait_for_colours([RED, BLUE, GREY, self.background(dialog)])
        dialog.click_row(1, BOX)
        dialog.wait_for_colours([BLUE, GREY, self.background(dialog)])
        dialog.click(ALL)
        dialog.wait_for_colours(COLOURS)

    def test_select_all_ticks_every_row(self):
        dialog = self.open_filled()
        dialog.click(SELECT_ALL)
        dialog.click(SELECTED)
        dialog.wait_for_colours(COLOURS)
        dialog.click(SELECT_ALL)
        dialog.wait_for_colours([self.background(dialog)] * 2)

    # Order.

    def test_the_buttons_move_the_row_that_has_the_focus(self):
        dialog = self.open_filled()
        dialog.click_row(3, SOURCE)
        dialog.click(UP)
        dialog.wait_for_colours([RED, BLUE, GREEN, YELLOW, GREY])
        dialog.click(UP)
        dialog.wait_for_colours([BLUE, RED, GREEN, YELLOW, GREY])
        dialog.click(DOWN)
        dialog.wait_for_colours([RED, BLUE, GREEN, YELLOW, GREY])

    def test_shift_and_an_arrow_key_move_a_row(self):
        dialog = self.open_filled()
        dialog.click_row(1, SOURCE)
        self.screen.key("shift+Down")
        dialog.wait_for_colours([GREEN, RED, BLUE, YELLOW, GREY])
        self.screen.key("shift+Up")
        dialog.wait_for_colours(COLOURS)

    def test_a_row_is_dragged_by_its_handle(self):
        dialog = self.open_filled()
        dialog.click_row(1, SOURCE)
        dialog.drag_row(1, to=4)
        dialog.wait_for_colours([GREEN, BLUE, YELLOW, RED, GREY])

    # Removal.

    def test_the_remove_menu_removes_the_active_row(self):
        dialog = self.open_filled()
        dialog.click_row(3, SOURCE)
        dialog.open_remove_menu().press("Down", "Return")
        dialog.wait_for_colours([RED, GREEN, YELLOW, GREY, self.background(dialog)])

    def test_keys_remove_rows(self):
        dialog = self.open_filled()
        dialog.click_row(2, SOURCE)
        self.screen.key("Delete")
        dialog.wait_for_colours([RED, BLUE, YELLOW, GREY, self.background(dialog)])
        dialog.click_row(1, SOURCE)
        self.screen.key("shift+Delete")
        dialog.wait_for_colours([self.background(dialog)] * 4)

    # Keyboard.

    def test_the_keyboard_alone_does_the_job(self):
        dialog = self.open_filled([RED, GREEN])
        dialog.click_row(1, SOURCE)
        self.screen.key("Down")
        self.screen.key("space")
        dialog.open_row_menu_by_key("Menu").press("Down", "Return")
        dialog.wait_for_colours([RED, self.background(dialog)], DESTINATION)
        self.screen.key("alt+b")
        wait_until(lambda: self.fills() == [RED, RED, None, None], "the green ones are recoloured")

    def test_keys_open_the_menu_of_a_row(self):
        dialog = self.open_filled([RED, GREEN])
        dialog.click_row(2, SOURCE)
        for key in ("Menu", "shift+F10", "BackSpace"):
            dialog.open_row_menu_by_key(key).close()

    def test_the_focus_survives_a_click_into_the_document(self):
        dialog = self.open_filled()
        dialog.click_row(3, SOURCE)
        self.screen.focus(self.writer.window_of(self.frame))
        self.screen.focus(dialog.window)
        dialog.click(UP)
        dialog.wait_for_colours([RED, BLUE, GREEN, YELLOW, GREY])

    # Scrolling.

    def test_the_wheel_scrolls_the_list(self):
        colours = [0x101010 * i + 0x0F for i in range(1, 16)]
        dialog = self.open(colours)
        dialog.add()
        dialog.wait_for_colours(colours[:9])
        dialog.scroll_to(2, colours)
        dialog.wait_for_colours(colours[2:9])
        dialog.scroll_to(1, colours)
        dialog.wait_for_colours(colours[1:9])

    # Ends.

    def test_escape_closes_the_dialog_and_the_button_opens_a_new_one(self):
        dialog = self.open([RED])
        self.screen.focus(dialog.window)
        self.screen.key("Escape")
        wait_until(lambda: not dialog.is_open(), "the dialog closes")
        self.writer.click_button(CHANGE_FILLS)
        dialog = Dialog(self.screen)
        dialog.add()
        dialog.wait_for_colours([RED])

    def test_escape_closes_no_dialog_with_a_changed_fill(self):
        dialog = self.open_filled([RED, GREEN])
        dialog.open_row_menu(2).pick(NO_FILL)
        dialog.wait_for_colours([RED, self.background(dialog)], DESTINATION)
        self.screen.key("Escape")
        dialog.click_row(2, BOX)  # Handled after that.
        self.screen.key("Escape")
        self.wait_for_ticked(1)
        dialog.click(RECOLOUR)
        self.wait_for_fills([RED, RED, None, None], "the green ones are recoloured")
        self.wait_until_usable("Přebarvit (1)")
        self.screen.key("Escape")
        wait_until(lambda: not dialog.is_open(), "the dialog, done with its work, closes")

    def test_escape_during_a_scan_ends_it_silently(self):
        first = self.open([0x010203 * number for number in range(1500)], each=1)
        before = self.screen.windows() - {first.window}

        def is_done():
            return self.screen.windows_named(DONE)

        def end_by_escape(dialog):
            """What came first: the scan was "done", or Escape has "closed" the dialog."""
            self.screen.focus(dialog.window)
            idle = dialog.colour_at(PROGRESS)
            dialog.click(ADD)
            wait_until(lambda: is_done() or dialog.colour_at(PROGRESS) != idle, "the scan begins")

            def outcome():
                if is_done():
                    return "done"
                if not dialog.is_open():
                    return "closed"
                self.screen.key("Escape")
                return None

            return wait_until(outcome, "the scan ends")

        def closes():
            if not dialogs_on(self.screen):
                return True
            self.screen.key("Escape")
            return False

        def is_ended_by_escape():
            """Whether a scan is; one that was done too soon is made again in a new dialog."""
            if end_by_escape(Dialog(self.screen)) == "closed":
                return True
            wait_until(closes, "the dialog closes")
            self.writer.select(self.frame, *self.shapes)
            self.writer.click_button(CHANGE_FILLS)
            return False

        wait_until(is_ended_by_escape, "Escape comes while a scan goes on", 240.0)
        self.assertEqual(self.screen.windows() - before, set())
        self.writer.click_button(CHANGE_FILLS)
        Dialog(self.screen)
        self.assertEqual(self.writer.quit(), 0)

    def test_writer_ends_with_the_dialog_open(self):
        self.open_filled()
        self.assertEqual(self.writer.quit(), 0)

    def test_the_document_closes_under_the_dialog(self):
        dialog = self.open_filled()
        self.writer.new_document()
        self.frame.Controller.Model.setModified(False)
        self.frame.close(True)
        wait_until(lambda: len(self.writer.frames()) == 1, "one window is left")
        wait_until(lambda: not dialog.is_open(), "the dialog has gone with its document")
        self.writer.click_button(CHANGE_FILLS)
        Dialog(self.screen)
        self.assertEqual(self.writer.quit(), 0)


if __name__ == "__main__":
    run_tests(__doc__)
