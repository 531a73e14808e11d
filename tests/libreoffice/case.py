# SPDX-License-Identifier: MPL-2.0
"""What the tests in Writer's window share: a screen and a profile each, and the command line."""

import argparse
import faulthandler
import os
import sys
import tempfile
import unittest

from interruption import InterruptibleCase, interrupt_on_request
from screen import Screen, comes_soon, wait_until
from writer import Writer


# A little before CTest ends a program of these.
HANG_LIMIT = 570.0


class WriterCase(InterruptibleCase):
    options = None
    # How much larger than usual everything is shown, as on a screen with more dots.
    SCALE = 1

    def setUp(self):
        self._folder = tempfile.TemporaryDirectory(prefix="huebrush-window-")
        self.addCleanup(self._folder.cleanup)
        self.screen = self.enter(Screen(1280 * self.SCALE, 1000 * self.SCALE))

    def tearDown(self):
        """Keeps a picture of what a failed test saw."""
        result = self._outcome.result
        if self.options.pictures and any(
                test is self for test, _ in result.failures + result.errors):
            self.screen.save_picture(os.path.join(self.options.pictures, self.id() + ".png"))

    def enter(self, context):
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def start(self, extensions=True, meanwhile=None):
        """Writer on this test's profile."""
        if self.SCALE != 1:
            self.set_environment("SAL_FORCEDPI", str(96 * self.SCALE))
        return self.enter(Writer(self.screen, self.options.office, self._folder.name,
                                 self.options.extensions if extensions else None,
                                 self.options.plugin, meanwhile=meanwhile))

    def set_environment(self, name, value):
        """Gives what is started from now on a variable, until the test is over."""
        before = os.environ.get(name)
        os.environ[name] = value
        if before is None:
            self.addCleanup(os.environ.pop, name, None)
        else:
            self.addCleanup(os.environ.__setitem__, name, before)

    def answer_box(self, title, key, unlike=()):
        """Waits for a box with this title that is none of the windows `unlike`, and gives it the
        key until it is gone; the box's windows."""
        windows = wait_until(
            lambda: [w for w in self.screen.windows_named(title) if w not in unlike],
            f"a box {title!r} appears", 60.0)
        for _ in range(10):
            self.screen.focus(windows[0])
            self.screen.key(key)
            # A box that has just opened may not get keys yet.
            if comes_soon(lambda: windows[0] not in self.screen.windows_named(title)):
                return windows
        self.fail(f"the box {title!r} does not react to {key}")


def run_tests(description):
    """Runs the tests of the calling program with the options of its command line."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--office", required=True)
    parser.add_argument("--extensions", required=True)
    parser.add_argument("--plugin", required=True, choices=["gen", "gtk3"])
    parser.add_argument("--pictures", help="a folder for the screens of failed tests")
    interrupt_on_request()
    faulthandler.dump_traceback_later(HANG_LIMIT)
    WriterCase.options, remaining = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], *remaining], verbosity=2)
