#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""A recolour of 400 shapes is one entry of Writer's Undo: undone and redone from its menu.

    undo_test.py --office SOFFICE --extensions FOLDER [unittest arguments]
"""

import argparse
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import uno  # noqa: F401  # The modules of the office come with it.
from com.sun.star.beans import NamedValue

from interruption import InterruptibleCase, interrupt_on_request
from screen import Screen, wait_until
from writer import Writer

ROOT = Path(__file__).resolve().parents[2]
TITLE = "Přebarvení grafických objektů"
SHAPES = 400
FILL = ("FillStyle", "FillColor", "FillTransparence", "FillBackground", "FillGradientName",
        "FillHatchName", "FillBitmapName", "FillBitmapMode")

options = None


def leaves(shapes):
    for i in range(shapes.Count):
        shape = shapes.getByIndex(i)
        if shape.supportsService("com.sun.star.drawing.GroupShape"):
            yield from leaves(shape)
        else:
            yield shape


def fill_of(shape):
    values = [getattr(shape, name) for name in FILL]
    gradient = shape.FillGradient
    attributes = shape.UserDefinedAttributes
    remembered = tuple((name, attributes.getByName(name).Value)
                       for name in sorted(attributes.ElementNames)) if attributes else ()
    return (*[getattr(value, "value", value) for value in values], gradient.StartColor,
            gradient.EndColor, gradient.Angle, gradient.Style.value, remembered)


def fills(document):
    return [fill_of(shape) for shape in leaves(document.DrawPage)]


class UndoTest(InterruptibleCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-undo-")
        self.addCleanup(folder.cleanup)
        self.screen = self.enter(Screen())
        self.path = os.path.join(folder.name, "shapes.fodt")
        subprocess.run([sys.executable, str(ROOT / "bench" / "make_document.py"), self.path,
                        "--shapes", str(SHAPES), "--fills", "8", "--nested"], check=True)
        self.writer = self.enter(Writer(self.screen, options.office, folder.name,
                                        options.extensions, "gen", has_bar=False))
        self.frame = self.writer.open_document(self.path)
        self.document = self.frame.Controller.Model

    def enter(self, context):
        value = context.__enter__()
        self.addCleanup(context.__exit__, None, None, None)
        return value

    def undo_titles(self):
        return list(self.document.UndoManager.getAllUndoActionTitles())

    def redo_titles(self):
        return list(self.document.UndoManager.getAllRedoActionTitles())

    def choose_in_edit_menu(self, *keys):
        title = self.frame.ContainerWindow.AccessibleContext.AccessibleName
        self.screen.focus(self.screen.windows_named(title)[0])
        self.screen.key("alt+e")
        self.screen.key(*keys)

    def test_undo_and_redo_of_a_recolour_by_the_edit_menu(self):
        before = fills(self.document)
        self.assertEqual(len(before), SHAPES)
        self.document.setModified(False)
        job = self.writer.create("cz.huebrush.tests.Recolour")
        job.execute((NamedValue("Document", self.document),))
        wait_until(lambda: self.undo_titles() == [TITLE], f"one undo entry: {self.undo_titles()}")
        wait_until(self.document.isModified, "the document is modified")
        after = fills(self.document)
        self.assertTrue(all(a != b for a, b in zip(after, before)))
        self.assertTrue(self.document.isModified())

        self.choose_in_edit_menu("Return")
        wait_until(lambda: fills(self.document) == before, "all is as before")
        self.assertEqual(self.redo_titles(), [TITLE])
        self.assertEqual(self.undo_titles(), [])

        self.choose_in_edit_menu("Down", "Return")
        wait_until(lambda: fills(self.document) == after, "all is as after the recolour")
        self.assertEqual(self.undo_titles(), [TITLE])
        self.document.setModified(False)


def main():
    global options
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--office", required=True)
    parser.add_argument("--extensions", required=True)
    options, rest = parser.parse_known_args()
    interrupt_on_request()
    unittest.main(argv=[sys.argv[0], "-v", *rest])


if __name__ == "__main__":
    main()
