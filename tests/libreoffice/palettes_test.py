#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""The dialogs of palettes in Writer, by mouse and keys; the files are read by other programs.

    palettes_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]

The environment names the program (HUEBRUSH_PROGRAM) and the folder of the other readers of palette
files (HUEBRUSH_READERS).
"""

import base64
import sys
from pathlib import Path

from case import run_tests
from com.sun.star.accessibility import AccessibleRole
from dialog import DESTINATION
from dialog_case import COLOURS, DialogCase
from file_dialog import FileDialog
from screen import wait_until
from writer import children_of

TESTS = Path(__file__).resolve().parents[1]
sys.path += [str(TESTS / "palette"), str(TESTS / "dialogs")]

from other_readers import OnOtherReaders  # noqa: E402
from palette_story import (  # noqa: E402
    FIRST_PALETTES, NAME, OPEN_FILE, PaletteStory, PaletteWindow, colour_of, in_file)

FIRST_COLOUR = 0x000000


def parts_of(accessible):
    """The part itself, and all within it."""
    yield accessible
    for child in children_of(accessible):
        yield from parts_of(child)


class WriterPaletteWindow(PaletteWindow):
    """By accessibility."""

    # Fields have their tool tips as accessible names. One with several lines has no accessible
    # text.
    NAME_FIELD = "Název palety, nejvýše 30 znaků"
    FILE_FIELD = "Soubor, ve kterém jsou palety uloženy"

    def _click_part(self, part):
        """Clicks a part. Where the office believes that its window is may be off, so only the
        places within the window are taken from it."""
        left, top, _ = self.screen.place_of(self.window)
        left, top = left + part.getSize().Width // 2, top + part.getSize().Height // 2
        for place in self._places_of(part):
            left, top = left + place.X, top + place.Y
        self.screen.click(left, top)

    def _places_of(self, part):
        """Its place in what it is part of, and so on up to the window's inside."""
        parent = part.getAccessibleParent().getAccessibleContext()
        while parent.getAccessibleName().strip() != self.title:
            yield part.getLocation()
            part, parent = parent, parent.getAccessibleParent().getAccessibleContext()

    def _button(self, name):
        return self.case.button(name, self.title)

    def is_usable(self, name):
        button = self._button(name)
        return button is not None and self.case.writer.is_enabled(button)

    def click_button(self, name):
        self._click_part(self._button(name))

    def click_box(self, name):
        self._click_part(self.case.part(name, AccessibleRole.CHECK_BOX, self.title))

    def items(self):
        return [part.getAccessibleName() for part in self._list()]

    def click_item(self, name):
        self._click_part(next(part for part in self._list() if part.getAccessibleName() == name))

    def text_of(self, field):
        return self.case.part(field, AccessibleRole.TEXT, self.title).getText()

    def type_into(self, _field, text):
        self.screen.type(text)

    def _list(self):
        root = next(top for top in self.case.writer.top_windows()
                    if top.getAccessibleName().strip() == self.title)
        return [part for part in parts_of(root)
                if part.getAccessibleRole() == AccessibleRole.LIST_ITEM]


class PalettesTest(DialogCase, PaletteStory):
    def setUp(self):
        super().setUp()
        self.file = Path(self._folder.name, "Žluté a modré.mdb")

    def palette_window(self, title):
        return WriterPaletteWindow(self, title)

    def file_dialog(self, title):
        return FileDialog(self.screen, title)

    shown_path = staticmethod(str)

    def own_file(self):
        """The user's own palette file."""
        return next(Path(self._folder.name).rglob("fill.mdb"))

    def assert_stored(self, groups, colours):
        """For us as for all other readers."""
        reader = OnOtherReaders("assert_read_alike")
        reader.file = self.file
        tables = reader.assert_read_alike()
        self.assertEqual(tables["TFillGroup"], groups)
        fills = tables["TFillElementParameter"]
        self.assertEqual([fill[4] for fill in fills], [in_file(each) for each in colours])
        self.assertEqual([colour_of(base64.b64decode(fill[-1])) for fill in fills], colours)

    def choose_file(self, window, path):
        window.press("Vybrat")
        self.file_dialog(OPEN_FILE).choose(path)

    def answer(self, title, text, key):
        """Answers a box; its text only the office's own toolkit lets one read."""
        wait_until(lambda: self.screen.windows_named(title), f"a box {title!r} appears")
        if self.options.plugin == "gen":
            self.assertIn(text, "\n".join(self.writer.box_texts(title)))
        self.answer_box(title, key)

    def test_palettes_are_made_changed_and_laid_onto_other_rows(self):
        self.play_story(self.open_filled())
        self.assertEqual(self.recolour_entries(), 1)

    # What cannot be opened or written.

    def test_a_file_that_is_no_database_leaves_the_former_one(self):
        self.file.write_text("Poznámky o barvách.\n" * 300, encoding="utf-8")
        dialog = self.open_filled()
        self.tick(dialog, 1)
        saving = self.open_saving(dialog)
        self.choose_file(saving, self.file)
        self.answer("Chybný datový soubor...",
                    f'Zovelná databáze "{self.file}" není platným datovým souborem...\n'
                    "Databáze neobsahuje palety výplní.", "Return")
        saving.click_item(FIRST_PALETTES[-1])
        saving.press("Smazat")
        wait_until(lambda: saving.items() == FIRST_PALETTES[:-1], "a palette is erased")
        self.close(saving)

        loading = self.open_loading(dialog)
        self.choose_file(loading, self.file)
        self.answer("Chyba č. 3343", f'Databázi "{self.file}" se nezdařilo otevřít!', "Return")
        self.assertEqual(loading.items(), FIRST_PALETTES[:-1])
        loading.press("OK")
        loading.wait_for_end()
        dialog.wait_for_colours([FIRST_COLOUR, *COLOURS[1:]], DESTINATION)

    def test_a_file_in_use_keeps_the_palette_pending_until_it_is_free(self):
        dialog = self.open_filled()
        self.tick(dialog, 1)
        saving = self.open_saving(dialog)
        saving.press("Nová")
        saving.wait_until_usable("Uložit")
        saving.type_name(NAME)
        self.file = self.own_file()
        before = self.file.read_bytes()
        with self.file.open("r+b"):
            saving.press("Uložit")
            self.answer("Chyba č. 3045", "Při ukládání výplní do databáze se vyskytla chyba...",
                        "Return")
            self.assertEqual(self.file.read_bytes(), before)
            saving.wait_until_usable("Nová", False)
        saving.press("Uložit")
        saving.wait_until_usable("Nová")
        self.assertEqual(saving.items(), [*FIRST_PALETTES, NAME])
        self.assertIn(NAME, self.names())
        self.close(saving)


if __name__ == "__main__":
    run_tests(__doc__)
