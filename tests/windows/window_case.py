# SPDX-License-Identifier: MPL-2.0
"""What the tests in the window of the stand-in for Word share.

    ..._test.py WINE FOLDER PROGRAMS [TEST ...]

WINE is wine.sh, FOLDER where its prefix is, PROGRAMS the folder of huebrush.dll and the stand-in.
"""

import os
import pathlib
import sys
import unittest

TESTS = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(TESTS / each) for each in ("libreoffice", "dialogs", "palette")]

from interruption import InterruptibleCase, interrupt_on_request  # noqa: E402
from screen import Screen, wait_until  # noqa: E402
from stand_in import StandIn, Wine  # noqa: E402


class WindowCase(InterruptibleCase):
    wine_script = wine_folder = programs = None

    def setUp(self):
        self.screen = self.enter(Screen())
        self.wine = self.enter(Wine(self.wine_script, self.wine_folder, self.screen))

    def enter(self, context):
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def start(self, *steps):
        """The stand-in with the add-in connected, as a context."""
        return StandIn(self.wine, self.programs, self.screen, *steps)

    def box(self, title):
        return wait_until(lambda: self.screen.windows_named(title), f"the box {title} is there")[0]

    def close_by_return(self, window, title):
        self.screen.focus(window)
        self.screen.key("Return")
        wait_until(lambda: not self.screen.windows_named(title), f"the box {title} is gone")


def run_tests():
    interrupt_on_request()
    # Titles with Czech letters are found only in such a locale.
    os.environ["LC_ALL"] = "C.UTF-8"
    WindowCase.wine_script, WindowCase.wine_folder, WindowCase.programs = sys.argv[1:4]
    unittest.main(module="__main__", argv=[sys.argv[0], *sys.argv[4:]])
