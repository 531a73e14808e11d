#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""A test in Writer's window that is interrupted leaves nothing behind: no office, no screen, no
files.

    interruption_test.py --office SOFFICE --extensions FOLDER [unittest arguments]
"""

import argparse
import os
import signal
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from screen import wait_until

WINDOW_TEST = Path(__file__).with_name("window_test.py")
LIMIT = 120.0

options = None


def processes():
    """All processes: the number of each, its parent's and its command."""
    printed = subprocess.run(["ps", "-eo", "pid=,ppid=,comm="], check=True, text=True,
                             stdout=subprocess.PIPE).stdout
    for line in printed.splitlines():
        number, parent, command = line.split(None, 2)
        yield int(number), int(parent), command


def descendants(ancestor):
    """The commands of the processes that a process has started, by their numbers."""
    family, found = {ancestor}, {}
    listed = list(processes())
    grown = True
    while grown:
        grown = False
        for number, parent, command in listed:
            if parent in family and number not in family:
                family.add(number)
                found[number] = command
                grown = True
    return found


class Interruption(unittest.TestCase):
    def start(self, folder):
        program = subprocess.Popen(
            [sys.executable, WINDOW_TEST, "--plugin", "gen", "--office", options.office,
             "--extensions", options.extensions, "-k", "each_button_has_its_tooltip"],
            env=dict(os.environ, TMPDIR=folder), stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        return program

    def left_of(self, started):
        return {number: command for number, _, command in processes()
                if started.get(number) == command}

    def test_ends_all_that_was_started(self):
        for interrupt in (signal.SIGINT, signal.SIGTERM):
            with self.subTest(interrupt), tempfile.TemporaryDirectory() as folder:
                program = self.start(folder)
                wait_until(lambda: "soffice.bin" in descendants(program.pid).values(),
                           "the office runs", LIMIT)
                started = descendants(program.pid)
                self.assertLessEqual({"Xvfb", "openbox", "soffice.bin"}, set(started.values()))
                program.send_signal(interrupt)
                self.assertNotEqual(program.wait(LIMIT), 0)
                wait_until(lambda: not self.left_of(started), "all that was started has ended")
                self.assertEqual(os.listdir(folder), [])


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--office", required=True)
    parser.add_argument("--extensions", required=True)
    options, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], "-v", *rest])
