#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""The office is killed while the dialog saves and erases palettes: the file is sound, and each
palette is wholly there or wholly absent.

    saves_killed_test.py --office SOFFICE --extensions FOLDER [unittest arguments]

The environment names the program (HUEBRUSH_PROGRAM) and the folder of the other readers of palette
files (HUEBRUSH_READERS).
"""

import argparse
import base64
import os
import random
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from interruption import InterruptibleCase, interrupt_on_request
from screen import wait_until

ROOT = Path(__file__).resolve().parents[2]
sys.path += [str(ROOT / "tools"), str(ROOT / "tests/palette")]

from office import Office  # noqa: E402
from other_readers import OnOtherReaders  # noqa: E402
from program import palette  # noqa: E402

IS_LONG = "HUEBRUSH_LONG" in os.environ
KILLS = 200 if IS_LONG else 20
# In seconds: many changes happen meanwhile.
LATEST_INSTANT = 0.5
START_LIMIT = 120.0
PREVIEW_WIDTH, PREVIEW_HEIGHT = 81, 25

options = None


def number_of(name):
    return int(name.removeprefix("Paleta "))


def expected_fills(name):
    """The colour and the order of each fill that the job gives a palette. The file begins with the
    palette 0, which has none: an empty one would have the dialog ask for the first palette."""
    number = number_of(name)
    return [(100 * number + order, order) for order in range(1 + number % 20)] if number else []


def shows(preview, colour):
    """Whether a preview is a whole bitmap of one colour."""
    content = base64.b64decode(preview)
    begin = int.from_bytes(content[10:14], "little")
    pixels = content[begin:]
    depth = int.from_bytes(content[28:30], "little") // 8
    row = (PREVIEW_WIDTH * depth + 3) // 4 * 4
    wanted = bytes(reversed(colour.to_bytes(3, "little")))
    return (content[:2] == b"BM" and int.from_bytes(content[2:6], "little") == len(content)
            and len(pixels) == row * PREVIEW_HEIGHT
            and all(pixels[at:at + 3] == wanted for at in range(0, PREVIEW_WIDTH * depth, depth)))


class Notes:
    """What the job has noted: the changes that were done, and perhaps one that was begun."""

    def __init__(self, path):
        lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
        self.failures = [line for line in lines if line.startswith("failed")]
        self.done = [line.removeprefix("done ") for line in lines if line.startswith("done")]
        begun = [line.removeprefix("begin ") for line in lines if line.startswith("begin")]
        self.pending = begun[len(self.done):]


def after(names, change):
    """The names of the palettes after a change."""
    what, _, name = change.partition(" ")
    return sorted(names + [name]) if what == "save" else sorted(set(names) - {name})


class SavesKilled(InterruptibleCase, OnOtherReaders):
    def setUp(self):
        super().setUp()
        profile = tempfile.TemporaryDirectory(prefix="huebrush-saves-")
        self.addCleanup(profile.cleanup)
        self.profile = Path(profile.name)
        self.notes = self.profile / "notes"
        self.add([palette("Paleta 0", [])])
        self.names = ["Paleta 0"]
        self.next = 1

    def office(self):
        environment = dict(os.environ, TMPDIR=str(self.profile),
                           HUEBRUSH_SAVES_FILE=str(self.file),
                           HUEBRUSH_SAVES_NOTES=str(self.notes),
                           HUEBRUSH_SAVES_FIRST=str(self.next))
        return Office(options.office, self.profile, extensions=options.extensions,
                      arguments=["--nodefault"], headless=True, quiet=True,
                      environment=environment)

    def kill_in_the_midst(self, delay):
        """What the job has noted until the office is killed, some time after its first save."""
        self.notes.unlink(missing_ok=True)
        with self.office() as office:
            wait_until(lambda: Notes(self.notes).done or not office.running(), "a palette is saved",
                       START_LIMIT)
            # Nothing is waited for: the sleep is the instant.
            time.sleep(delay)
            self.assertTrue(office.running(), self.notes.read_text(encoding="utf-8"))
            office.kill()
        # What was killed may still be in a call of the system.
        wait_until(lambda: not self.processes(), "the office is gone")
        return Notes(self.notes)

    def processes(self):
        """Those of the office."""
        return subprocess.run(["pgrep", "-f", str(self.profile)], check=False,
                              stdout=subprocess.PIPE).stdout.split()

    def stored_names(self):
        """The names of the palettes, after each of them was found whole."""
        tables = self.assert_read_alike()
        fills = {}
        for fill in tables["TFillElementParameter"]:
            fills.setdefault(fill[1], []).append(fill)
        for group, name, _, count in tables["TFillGroup"]:
            found = fills.pop(group, [])
            self.assertEqual([(fill[4], fill[2]) for fill in found], expected_fills(name), name)
            self.assertEqual(count, len(found), name)
            self.assertTrue(all(shows(fill[-1], fill[4]) for fill in found), name)
        self.assertEqual(fills, {})
        return sorted(name for _, name, *_ in tables["TFillGroup"])

    def test_at_random_instants_loses_no_palette_and_leaves_none_half(self):
        instants = random.Random(11)
        pending = 0
        for kill in range(KILLS):
            with self.subTest(kill=kill):
                notes = self.kill_in_the_midst(instants.uniform(0, LATEST_INSTANT))
                self.assertEqual(notes.failures, [])
                for change in notes.done:
                    self.names = after(self.names, change)
                possible = [self.names, *(after(self.names, each) for each in notes.pending)]
                self.names = self.stored_names()
                self.assertIn(self.names, possible)
                self.next = 1 + max(number_of(change.partition(" ")[2])
                                    for change in notes.done + notes.pending)
                pending += len(notes.pending)
        print(f"{KILLS} kills, {pending} of them in the midst of a change")
        self.assertGreater(pending, KILLS // 4)
        # What was left unfinished goes with the next change.
        self.run_program("erase", self.file, self.names[0])
        self.assertEqual([path.name for path in self.folder.iterdir() if path.suffix != ".json"],
                         [self.file.name])


if __name__ == "__main__":
    interrupt_on_request()
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--office", required=True)
    parser.add_argument("--extensions", required=True)
    options, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], "-v", *rest])
