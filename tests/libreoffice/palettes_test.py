#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""The dialogs of palettes in Writer, by mouse and keys; the files are read by other programs.

    palettes_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]

The environment names the program (HUEBRUSH_PROGRAM) and the folder of the other readers of palette
files (HUEBRUSH_READERS).
"""

import base64
import subprocess
import sys
from pathlib import Path

from case import run_tests
from com.sun.star.accessibility import AccessibleRole
from dialog import BOX, DESTINATION, RECOLOUR, TWIPS_PER_PIXEL
from dialog_case import COLOURS, GREEN, GREY, RED, DialogCase
from file_dialog import FileDialog
from screen import wait_until
from writer import children_of

sys.path.append(str(Path(__file__).resolve().parents[1] / "palette"))

from other_readers import OnOtherReaders, export  # noqa: E402

SAVE, LOAD = "Uložení a úprava palet výplní...", "Načtení palety výplní..."
OPEN_FILE, NEW_FILE = "Zvol databázi...", "Zvol umístění databázového souboru..."
# Fields have their tool tips as accessible names. One with several lines has no accessible text.
NAME_FIELD, FILE_FIELD = "Název palety, nejvýše 30 znaků", "Soubor, ve kterém jsou palety uloženy"
NO_PALETTES = "Databáze nemá žádné zánamy. Chcete založit nový?"
# In twips of the recolour dialog.
TO_DATABASE, FROM_DATABASE = (6600, 5085), (6600, 4485)
# In twips of the dialog that loads palettes: the previews from the first one on.
PREVIEW, NEXT_PREVIEW = (6975, 1540), 375
NAME, DESCRIPTION = "Žluťoučký kůň", "Červená a zelená: dvě barvy"
RENAMED, SECOND, UNWANTED = "Příšerný kůň", "Druhá paleta", "Nechtěná"
# Of the user's own file, which a new profile gets.
FIRST_PALETTES = ["Okabe a Ito", "Paul Tol – jasné", "Paul Tol – tlumené", "Stupně modré",
                  "Stupně šedi"]
FIRST_COLOUR = 0x000000


def parts_of(accessible):
    """The part itself, and all within it."""
    yield accessible
    for child in children_of(accessible):
        yield from parts_of(child)


class PaletteWindow:
    """A dialog of palettes that is open on a screen."""

    def __init__(self, case, title):
        self.case, self.screen, self.title = case, case.screen, title
        self.window = wait_until(self._windows, f"{title!r} opens", 60.0)[0]
        self.screen.focus(self.window)

    def _windows(self):
        return self.screen.windows_named(" ?" + self.title.replace(".", "[.]"))

    def on_screen(self, place):
        left, top, _ = self.screen.place_of(self.window)
        return tuple(int(origin + twips / TWIPS_PER_PIXEL)
                     for origin, twips in zip((left, top), place))

    def click_part(self, part):
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

    def button(self, name):
        return self.case.button(name, self.title)

    def press(self, name):
        """Presses a button as soon as it can be pressed. Its accessible name is without dots at the
        end."""
        self.wait_until_usable(name)
        self.click_part(self.button(name))

    def tick(self, name):
        self.click_part(self.case.part(name, AccessibleRole.CHECK_BOX, self.title))

    def wait_until_usable(self, name, usable=True):
        def is_so():
            button = self.button(name)
            return button is not None and self.case.writer.is_enabled(button) == usable

        wait_until(is_so, f"{name!r} is enabled: {usable}")

    def items(self):
        """The names of the palettes in the list."""
        return [part.getAccessibleName() for part in self._list()]

    def pick(self, name):
        self.click_part(next(part for part in self._list() if part.getAccessibleName() == name))

    def type_name(self, text):
        """Types into the field for the name, which has the focus and all of its text selected."""
        self.screen.type(text)
        self.wait_for_text(NAME_FIELD, text)

    def wait_for_text(self, field, text):
        wait_until(lambda: self._field(field).getText() == text, f"{field!r} is {text!r}")

    def wait_for_previews(self, colours):
        def shown():
            x, y = PREVIEW
            return [self.screen.colour_at(*self.on_screen((x, y + NEXT_PREVIEW * row)))
                    for row in range(len(colours))]

        wait_until(lambda: shown() == colours, f"the previews are {colours}")

    def _root(self):
        return next(top for top in self.case.writer.top_windows()
                    if top.getAccessibleName().strip() == self.title)

    def _of_role(self, role):
        return [part for part in parts_of(self._root()) if part.getAccessibleRole() == role]

    def _list(self):
        return self._of_role(AccessibleRole.LIST_ITEM)

    def _field(self, name):
        return self.case.part(name, AccessibleRole.TEXT, self.title)

    def wait_for_end(self):
        wait_until(lambda: not self._windows(), f"{self.title!r} closes")


class PalettesTest(DialogCase):
    def setUp(self):
        super().setUp()
        self.file = Path(self._folder.name, "Žluté a modré.mdb")

    def own_file(self):
        """The user's own palette file."""
        return next(Path(self._folder.name).rglob("fill.mdb"))

    def names(self):
        """The names of the palettes in the file, as mdb-export reads them."""
        return [name for _, name, *_ in export(self.file, "TFillGroup")[1:]]

    def wait_for_names(self, names, what):
        wait_until(lambda: self.names() == names, what)

    def assert_stored(self, groups, colours):
        """The file has these palettes and fills, with previews in their colours: for us as for all
        other readers."""
        reader = OnOtherReaders("assert_read_alike")
        reader.file = self.file
        tables = reader.assert_read_alike()
        self.assertEqual(tables["TFillGroup"], groups)
        fills = tables["TFillElementParameter"]
        self.assertEqual([fill[4] for fill in fills], [in_file(each) for each in colours])
        self.assertEqual([colour_of(base64.b64decode(fill[-1])) for fill in fills], colours)

    def tick(self, dialog, *rows):
        for count, row in enumerate(rows, 1):
            self.click_box(dialog, row)
            self.wait_for_ticked(count)

    def tick_off(self, dialog, *rows):
        for left, row in zip(range(len(rows) - 1, -1, -1), rows):
            self.click_box(dialog, row)
            self.wait_for_ticked(left)

    @staticmethod
    def click_box(dialog, row):
        """A tool tip would cover the next one."""
        dialog.click_row(row, BOX)
        dialog.park_mouse()

    def open_saving(self, dialog):
        dialog.click(TO_DATABASE)
        return PaletteWindow(self, SAVE)

    def open_loading(self, dialog):
        dialog.click(FROM_DATABASE)
        return PaletteWindow(self, LOAD)

    def choose_file(self, window, path):
        window.press("Vybrat")
        FileDialog(self.screen, OPEN_FILE).choose(path)

    def close(self, window):
        window.press("Konec")
        window.wait_for_end()

    def answer(self, title, text, key):
        """Answers a box; its text only the office's own toolkit lets one read."""
        wait_until(lambda: self.screen.windows_named(title), f"a box {title!r} appears")
        if self.options.plugin == "gen":
            self.assertIn(text, "\n".join(self.writer.box_texts(title)))
        self.answer_box(title, key)

    # The story of a palette.

    def test_palettes_are_made_changed_and_laid_onto_other_rows(self):
        dialog = self.open_filled()
        self.tick(dialog, 1, 2)
        saving = self.open_saving(dialog)
        self.save_first_palette(saving)
        self.change_it(saving)
        self.give_up_another_change(saving)
        self.erase_the_second_palette(dialog)
        self.assert_stored([[1, RENAMED, DESCRIPTION, 2]], [RED, GREEN])
        self.tick_off(dialog, 1, 2)
        self.tick(dialog, 3, 4)
        self.load(dialog)
        dialog.click(RECOLOUR)
        self.wait_for_fills([each for colour in (RED, GREEN, RED, GREEN, GREY)
                             for each in (colour, colour)], "the shapes have the palette's fills")
        self.assertEqual(self.recolour_entries(), 1)
        self.assert_stored([[1, RENAMED, DESCRIPTION, 2]], [RED, GREEN])

    def save_first_palette(self, saving):
        """In a new file, which is named without its ending."""
        self.assertEqual(saving.items(), FIRST_PALETTES)
        saving.press("Založit")
        FileDialog(self.screen, NEW_FILE).choose(self.file.with_suffix(""))
        self.answer("Dotaz...", NO_PALETTES, "Return")
        saving.wait_until_usable("Uložit")
        self.assertEqual(saving.items(), [])
        saving.type_name(NAME)
        self.screen.key("Return")
        self.screen.type(DESCRIPTION)
        saving.press("Uložit")
        saving.wait_until_usable("Nová")
        self.assertEqual(saving.items(), [NAME])
        self.assert_stored([[1, NAME, DESCRIPTION, 2]], [RED, GREEN])

    def change_it(self, saving):
        """Its name, and nothing by a change that is cancelled."""
        self.edit(saving, RENAMED)
        saving.press("Uložit")
        self.wait_for_names([RENAMED], "the palette has its new name")
        saving.wait_until_usable("Nová")
        self.edit(saving, UNWANTED)
        saving.press("Zrušit")
        saving.wait_until_usable("Nová")
        saving.wait_for_text(NAME_FIELD, RENAMED)
        self.assertEqual(self.names(), [RENAMED])

    def edit(self, saving, name):
        saving.press("Upravit")
        saving.wait_until_usable("Smazat", False)
        saving.type_name(name)

    def give_up_another_change(self, saving):
        """Of a second palette, by a key that closes the dialog, too."""
        saving.press("Nová")
        saving.wait_until_usable("Uložit")
        saving.type_name(SECOND)
        saving.press("Uložit")
        self.wait_for_names([RENAMED, SECOND], "the second palette is saved")
        saving.wait_until_usable("Nová")
        self.assertEqual(saving.items(), [RENAMED, SECOND])
        self.edit(saving, UNWANTED)
        self.screen.key("Escape")
        saving.wait_for_end()
        self.assertEqual(self.names(), [RENAMED, SECOND])

    def erase_the_second_palette(self, dialog):
        """The dialog opens with the file that it had last, sorted by name."""
        saving = self.open_saving(dialog)
        saving.wait_for_text(FILE_FIELD, str(self.file))
        self.assertEqual(saving.items(), [SECOND, RENAMED])
        saving.pick(RENAMED)
        saving.wait_for_text(NAME_FIELD, RENAMED)
        saving.pick(SECOND)
        saving.wait_for_text(NAME_FIELD, SECOND)
        saving.press("Smazat")
        self.wait_for_names([RENAMED], "the second palette is erased")
        saving.wait_for_text(NAME_FIELD, RENAMED)
        self.close(saving)

    def load(self, dialog):
        loading = self.open_loading(dialog)
        self.assertEqual(loading.items(), [RENAMED])
        loading.wait_for_text(FILE_FIELD, str(self.file))
        loading.tick("Zobrazit náhledy")
        loading.wait_for_previews([RED, GREEN])
        loading.press("OK")
        loading.wait_for_end()
        dialog.wait_for_colours([RED, GREEN, RED, GREEN, GREY], DESTINATION)

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
        saving.pick(FIRST_PALETTES[-1])
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


def in_file(color):
    """The number that palettes keep: red is in its low byte."""
    return int.from_bytes(color.to_bytes(3, "big"), "little")


def colour_of(picture):
    """The colour in the middle of a picture, as another program sees it."""
    shown = subprocess.run(["convert", "-", "-gravity", "center", "-crop", "1x1+0+0", "-depth", "8",
                            "rgb:-"], input=picture, check=True, stdout=subprocess.PIPE).stdout
    return int.from_bytes(shown, "big")


if __name__ == "__main__":
    run_tests(__doc__)
