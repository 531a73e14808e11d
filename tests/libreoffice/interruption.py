# SPDX-License-Identifier: MPL-2.0
"""Tests that end what they have started, also when they are interrupted themselves."""

import signal
import unittest


class InterruptibleCase(unittest.TestCase):
    def run(self, result=None):
        """Of an interrupted test, unittest itself does not run the cleanups."""
        try:
            return super().run(result)
        except KeyboardInterrupt:
            self.doCleanups()
            raise


def interrupt_on_request():
    """Lets SIGTERM end the program as an interrupt from the keyboard does. Any other exception
    would count as a failure of the test that runs, and the next one would follow."""
    signal.signal(signal.SIGTERM, signal.default_int_handler)
