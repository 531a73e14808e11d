# SPDX-License-Identifier: MPL-2.0
"""The story of a palette, for every host: made, renamed, given up, erased, laid onto other rows.
The file is read by another program."""

import subprocess

from dialog import BOX, DESTINATION, RECOLOUR, TWIPS_PER_PIXEL
from mdbtools import export
from screen import comes_soon, wait_until
from story import GREEN, GREY, RED

SAVE, LOAD = "Uložení a úprava palet výplní...", "Načtení palety výplní..."
OPEN_FILE, NEW_FILE = "Zvol databázi...", "Zvol umístění databázového souboru..."
NO_PALETTES = "Databáze nemá žádné zánamy. Chcete založit nový?"
# In twips of the recolour dialog.
TO_DATABASE, FROM_DATABASE = (6600, 5085), (6600, 4485)
# In twips of the dialog that loads palettes: the previews from the first one on.
PREVIEW, NEXT_PREVIEW = (6975, 1540), 375
NAME, DESCRIPTION = "Žluťoučký kůň", "Červená a zelená: dvě barvy"
RENAMED, SECOND, UNWANTED = "Příšerný kůň", "Druhá paleta", "Nechtěná"
# Of the user's own file, as it is at first.
FIRST_PALETTES = ["Okabe a Ito", "Paul Tol – jasné", "Paul Tol – tlumené", "Stupně modré",
                  "Stupně šedi"]


def wait_until_same(ask, wanted):
    """Waits until the answer is the wanted one; the last answer."""
    last = [None]

    def is_wanted():
        last[0] = ask()
        return last[0] == wanted

    comes_soon(is_wanted, 30.0)
    return last[0]


class PaletteWindow:
    """A dialog of palettes that is open on a screen. A host's own knows what the toolkit's controls
    say:

        is_usable(name)     whether there is such a button, and it is enabled
        click_button(name), click_box(name), click_item(name)
        items()             the names of the palettes in the list
        text_of(field)      what one of the fields says
        type_into(field, text)
                            types into a field that has the focus and all of its text selected
    """

    NAME_FIELD, FILE_FIELD, DESCRIPTION_FIELD = "name", "file", "description"

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

    def press(self, name):
        """Presses a button as soon as it can be pressed. Its name is without dots at the end."""
        self.wait_until_usable(name)
        self.click_button(name)

    def wait_until_usable(self, name, usable=True):
        wait_until(lambda: self.is_usable(name) == usable, f"{name!r} is enabled: {usable}")

    def wait_for_items(self, names):
        wait_until(lambda: self.items() == names, f"the list has {names}")

    def type_name(self, text):
        self.type_into(self.NAME_FIELD, text)
        self.wait_for_text(self.NAME_FIELD, text)

    def wait_for_text(self, field, text):
        shown = wait_until_same(lambda: self.text_of(field), text)
        self.case.assertEqual(shown, text, f"the text of {field!r}")

    def wait_for_previews(self, colours):
        def shown():
            x, y = PREVIEW
            return [self.screen.colour_at(*self.on_screen((x, y + NEXT_PREVIEW * row)))
                    for row in range(len(colours))]

        wait_until(lambda: shown() == colours, f"the previews are {colours}")

    def wait_for_end(self):
        wait_until(lambda: not self._windows(), f"{self.title!r} closes")


class PaletteStory:
    """A test case plays it that has

        screen, file           the file is the one that is made; its path on this system
        palette_window(title)  one that is opening
        shown_path(path)       how the host's windows show a path
        file_dialog(title)     the host's own dialog for a file, which is opening
        answer(title, text, key), wait_for_ticked(count), wait_for_fills(wanted, what)
        assert_stored(groups, colours)
                               the file has these palettes and fills, with previews in their
                               colours
    """

    def names(self):
        """The names of the palettes in the file, as mdb-export reads them."""
        return [name for _, name, *_ in export(self.file, "TFillGroup")[1:]]

    def wait_for_names(self, names, what):
        wait_until(lambda: self.names() == names, what)

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
        return self.palette_window(SAVE)

    def open_loading(self, dialog):
        dialog.click(FROM_DATABASE)
        return self.palette_window(LOAD)

    def close(self, window):
        window.press("Konec")
        window.wait_for_end()

    def play_story(self, dialog):
        """On a dialog with a row of each colour, none of them ticked."""
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
        self.assert_stored([[1, RENAMED, DESCRIPTION, 2]], [RED, GREEN])

    def save_first_palette(self, saving):
        """In a new file, which is named without its ending."""
        self.assertEqual(saving.items(), FIRST_PALETTES)
        saving.press("Založit")
        self.file_dialog(NEW_FILE).choose(self.file.with_suffix(""))
        self.answer("Dotaz...", NO_PALETTES, "Return")
        saving.wait_until_usable("Uložit")
        self.assertEqual(saving.items(), [])
        saving.type_name(NAME)
        self.screen.key("Return")
        saving.type_into(saving.DESCRIPTION_FIELD, DESCRIPTION)
        saving.press("Uložit")
        saving.wait_until_usable("Nová")
        saving.wait_for_items([NAME])
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
        saving.wait_for_text(saving.NAME_FIELD, RENAMED)
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
        saving.wait_for_items([RENAMED, SECOND])
        self.edit(saving, UNWANTED)
        self.screen.key("Escape")
        saving.wait_for_end()
        self.assertEqual(self.names(), [RENAMED, SECOND])

    def erase_the_second_palette(self, dialog):
        """The dialog opens with the file that it had last, sorted by name."""
        saving = self.open_saving(dialog)
        saving.wait_for_text(saving.FILE_FIELD, self.shown_path(self.file))
        self.assertEqual(saving.items(), [SECOND, RENAMED])
        saving.click_item(RENAMED)
        saving.wait_for_text(saving.NAME_FIELD, RENAMED)
        saving.click_item(SECOND)
        saving.wait_for_text(saving.NAME_FIELD, SECOND)
        saving.press("Smazat")
        self.wait_for_names([RENAMED], "the second palette is erased")
        saving.wait_for_text(saving.NAME_FIELD, RENAMED)
        self.close(saving)

    def load(self, dialog):
        loading = self.open_loading(dialog)
        self.assertEqual(loading.items(), [RENAMED])
        loading.wait_for_text(loading.FILE_FIELD, self.shown_path(self.file))
        loading.click_box("Zobrazit náhledy")
        loading.wait_for_previews([RED, GREEN])
        loading.press("OK")
        loading.wait_for_end()
        dialog.wait_for_colours([RED, GREEN, RED, GREEN, GREY], DESTINATION)


def in_file(color):
    """The number that palettes keep: red is in its low byte."""
    return int.from_bytes(color.to_bytes(3, "big"), "little")


def colour_of(picture):
    """The colour in the middle of a picture, as another program sees it."""
    shown = subprocess.run(["convert", "-", "-gravity", "center", "-crop", "1x1+0+0", "-depth", "8",
                            "rgb:-"], input=picture, check=True, stdout=subprocess.PIPE).stdout
    return int.from_bytes(shown, "big")
