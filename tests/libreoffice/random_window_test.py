#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""A user who does anything at all in the window of the recolour dialog: Writer survives it.

    random_window_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3
        [unittest arguments]

The environment's HUEBRUSH_SEED chooses the actions; without it they are the same every time.
"""

import os
import random
import subprocess

from case import run_tests
from dialog import (ADD, ALL, BOX, DESTINATION, DOWN, HANDLE, LOGO, MENU, NOT_SELECTED, RECOLOUR,
                    REMOVE, SELECT_ALL, SELECTED, SOURCE, UP, dialogs_on)
from dialog_case import CHANGE_FILLS, COLOURS, Dialog, DialogCase
from screen import WindowIsGone, comes_soon, wait_until

SEED = int(os.environ.get("HUEBRUSH_SEED", "4711"))
ACTIONS = 200
BUTTONS = [ADD, REMOVE, RECOLOUR, ALL, SELECTED, NOT_SELECTED, SELECT_ALL, UP, DOWN, LOGO]
IN_ROW = [HANDLE, BOX, SOURCE, DESTINATION, MENU]
KEYS = ["Tab", "shift+Tab", "Up", "Down", "shift+Up", "shift+Down", "space", "Delete", "Menu",
        "Return", "alt+p", "alt+b", "Prior", "Next", "Home", "End", "ctrl+a", "BackSpace"]
MENU_KEYS = ["Down", "Up", "Return", "Escape", "Right"]


class RandomWindowTest(DialogCase):
    """Anything that comes up over the dialog is answered by Escape sooner or later."""

    def setUp(self):
        super().setUp()
        self.random = random.Random(SEED)
        self.done = []
        self.dialog = self.open_filled()

    def place(self):
        if self.random.random() < 0.5:
            return self.random.choice(BUTTONS)
        return self.dialog.in_row(self.random.randint(1, 6), self.random.choice(IN_ROW))

    def click(self):
        self.dialog.click(self.place())

    def press(self):
        self.screen.key(self.random.choice(KEYS))

    def pick(self, *_):
        row = self.random.randint(1, 5)
        self.dialog.click(self.random.choice([REMOVE, self.dialog.in_row(row, MENU)]))
        self.screen.key(*self.random.choices(MENU_KEYS, k=3))

    def drag(self):
        rows = [self.random.randint(1, 8) for _ in range(2)]
        self.screen.drag(self.dialog.on_screen(self.dialog.in_row(rows[0], HANDLE)),
                         self.dialog.on_screen(self.dialog.in_row(rows[1], SOURCE)))

    def turn_wheel(self):
        self.screen.turn_wheel(*self.dialog.on_screen(self.place()), self.random.choice([-2, 2]))

    def resize(self):
        self.screen.resize(self.dialog.window, self.random.randint(300, 800),
                           self.random.randint(100, 600))

    def escape(self):
        """Closes what is open over the dialog, but not the dialog itself."""
        if self.screen.active() not in (self.dialog.window, self.writer.window_of(self.frame)):
            self.screen.key("Escape")

    def act(self):
        """One action, if the dialog is there; else it is opened again."""
        if self.is_closed():
            self.reopen()
        action = self.random.choices(
            [self.click, self.press, self.pick, self.drag, self.turn_wheel, self.resize],
            [6, 5, 4, 2, 1, 1])[0]
        self.done.append(action.__name__)
        try:
            action()
        except WindowIsGone:
            if not self.is_closed():  # What was done before may have ended it only now.
                raise
        self.escape()

    def is_closed(self):
        return not self.dialog.is_open()

    def is_writer_active(self):
        return self.screen.active() == self.writer.window_of(self.frame)

    def reopen(self):
        """Something has ended the dialog, which any user may do. What was open over it may be open
        still."""
        def has_the_keyboard():
            if self.is_writer_active():
                return True
            self.screen.key("Escape")
            return False

        def is_open():
            if dialogs_on(self.screen):
                return True
            # A box about what ended it may appear only now: it is closed, and the click repeated.
            wait_until(has_the_keyboard, "Writer has the keyboard", 60.0)
            self.writer.select(self.frame, *self.shapes)
            self.writer.click_button(CHANGE_FILLS)
            return comes_soon(lambda: dialogs_on(self.screen))

        wait_until(is_open, "the dialog opens", 60.0)
        self.dialog = Dialog(self.screen)

    def close_all(self):
        """Escape closes what is open over the dialog, one window after the other, and the button of
        its title bar at last the dialog."""
        def is_closed():
            if self.is_closed():
                return True
            if self.is_writer_active():
                self.screen.ask_for_focus(self.dialog.window)
            if self.screen.active() == self.dialog.window:
                self.screen.close(self.dialog.window)
            else:
                self.screen.key("Escape")
            return False

        wait_until(is_closed, "the dialog closes", 60.0)

    def test_nothing_that_a_user_does_ends_writer(self):
        folder = self._folder.name
        try:
            for _ in range(ACTIONS):
                self.act()
                self.assertTrue(self.writer.running())
            self.close_all()
            self.assertEqual(len(self.shapes), 2 * len(COLOURS))
            self.assertTrue(all(shape.FillStyle.value for shape in self.shapes))
            self.assertEqual(self.writer.quit(), 0)
        except Exception as error:
            raise AssertionError(f"seed {SEED}, action {len(self.done)}: {self.done[-5:]}: "
                                 f"{error}") from error
        left = subprocess.run(["pgrep", "-f", folder], stdout=subprocess.PIPE, check=False)
        self.assertEqual(left.stdout.split(), [])


if __name__ == "__main__":
    run_tests(__doc__)
