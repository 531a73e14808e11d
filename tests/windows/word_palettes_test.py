# SPDX-License-Identifier: MPL-2.0
"""The dialogs of palettes over the stand-in for Word, with a real mouse and keys; the file is read
by another program. window_case.py says how it is started."""

import pathlib
import tempfile

from window_case import WindowCase, run_tests, wait_until
from dialog import CAPTION, Dialog
from file_dialog import FileDialog
from mdbtools import export
from palette_story import PaletteStory, PaletteWindow, colour_of, in_file
from shown import caption_of
from stand_in import CHANGE_FILLS, shown_colour, windows_path
from story import COLOURS, PICTURE


class WordPaletteWindow(PaletteWindow):
    """By what the stand-in says of its windows."""

    FIELDS = (PaletteWindow.FILE_FIELD, PaletteWindow.NAME_FIELD, PaletteWindow.DESCRIPTION_FIELD)

    def _parts(self, kind):
        return [part for part in self.case.word.parts(self.title) if part.kind == kind]

    def _named(self, kind, name):
        return next((part for part in self._parts(kind)
                     if caption_of(part).rstrip(".") == name), None)

    def _click(self, part):
        origin_left, origin_top, _ = self.screen.place_of(self.window)
        left, top, width, height = part.place
        self.screen.click(origin_left + left + width // 2, origin_top + top + height // 2)

    def is_usable(self, name):
        button = self._named("button", name)
        return button is not None and button.usable

    def click_button(self, name):
        self._click(self._named("button", name))

    def click_box(self, name):
        self._click(self._named("box", name))

    def items(self):
        return [part.text for part in self._parts("item")]

    def click_item(self, name):
        self._click(self._named("item", name))

    def text_of(self, field):
        """The fields from the top to the bottom: the file, the name, the description."""
        fields = sorted(self._parts("field"), key=lambda part: part.place[1])
        return fields[self.FIELDS.index(field)].text

    def type_into(self, field, text):
        self.screen.type_by_layouts(text, lambda typed: self.wait_for_text(field, typed))


class SystemFileDialog(FileDialog):
    def __init__(self, case, title):
        super().__init__(case.screen, title)
        self._word = case.word

    def _type(self, path):
        """Into the field, which is empty."""
        self.screen.type_by_layouts(windows_path(path), self._wait_for_text)

    def _wait_for_text(self, text):
        wait_until(lambda: text in self._texts(), f"the field says {text!r}")

    def _texts(self):
        return [part.text for part in self._word.parts(self.title) if part.kind == "field"]


class Palettes(WindowCase, PaletteStory):
    def setUp(self):
        super().setUp()
        folder = self.enter(tempfile.TemporaryDirectory(prefix="huebrush-palettes-"))
        self.file = pathlib.Path(folder, "Žluté a modré.mdb")
        # Other tests are to find the user's own palettes, too.
        self.wine.forget_settings()
        self.addCleanup(self.wine.forget_settings)

    def palette_window(self, title):
        return WordPaletteWindow(self, title)

    def file_dialog(self, title):
        return SystemFileDialog(self, title)

    shown_path = staticmethod(windows_path)

    def wait_for_ticked(self, count):
        caption = f"Přebarvit ({count})" if count else "Přebarvit"
        wait_until(lambda: caption in map(caption_of, self.word.parts(CAPTION)),
                   f"the button says {caption!r}")

    def wait_for_fills(self, wanted, what):
        wait_until(lambda: self.word.visible_fills() == wanted, what)

    def answer(self, title, text, key):
        box = self.box(title)
        self.assertIn(text, [part.text for part in self.word.parts(title)])
        self.screen.focus(box)
        self.screen.key(key)
        wait_until(lambda: not self.screen.windows_named(title), f"the box {title!r} closes")

    def assert_stored(self, groups, colours):
        """As mdbtools reads it."""
        self.assertEqual(export(self.file, "TFillGroup")[1:],
                         [list(map(str, group)) for group in groups])
        fills = export(self.file, "TFillElementParameter")[1:]
        self.assertEqual([int(fill[4]) for fill in fills], [in_file(each) for each in colours])
        self.assertEqual([colour_of(bytes.fromhex(fill[-1])) for fill in fills], colours)

    def test_palettes_are_made_changed_and_laid_onto_other_rows(self):
        colours = ",".join(str(shown_colour(colour)) for colour in PICTURE)
        with self.start(f"shapes={colours}") as self.word:
            self.word.click_button(CHANGE_FILLS)
            dialog = Dialog(self.screen)
            dialog.add()
            dialog.wait_for_colours(COLOURS)
            self.play_story(dialog)
        self.assertTrue(self.word.ended_well(), self.word.said[-20:])


if __name__ == "__main__":
    run_tests()
