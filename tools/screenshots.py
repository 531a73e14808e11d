#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Takes the manual's pictures of the dialogs, on a screen without a monitor.

    tools/screenshots.py [--build build/release] [--windows build/windows-x86_64]
                         [--out docs/images] [--only NAME]

Each picture is made by mouse and keys: in Writer on the example picture, with a fresh profile; of
the add-in for Word in the program that stands in for Word, under Wine.
"""

import argparse
import contextlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tools"),
                *(str(ROOT / "tests" / each) for each in ("libreoffice", "windows"))]

from dialog import (  # noqa: E402
    BOX, DESTINATION, HANDLE, LOGO, REMOVE, SELECTED, SOURCE, TWIPS_PER_PIXEL, Dialog)
from dialog import CLOSE as CLOSE_DIALOG  # noqa: E402
from office import end_cleanly_on_request  # noqa: E402
from screen import Screen, wait_until  # noqa: E402
from stand_in import BY_FILL, StandIn, Wine, shown_colour  # noqa: E402
from stand_in import CHANGE_FILLS as THIRD_BUTTON  # noqa: E402
from writer import Writer  # noqa: E402

CHANGE_FILLS = "Změnit výplně"
ABOUT = "O doplňku Huebrush"
WRONG_SELECTION = "Nesprávný výběr"
EXAMPLE = ROOT / "examples" / "town.odt"
EDGE = 12
NORMAL_DPI = 96

SAVE, LOAD = "Uložení a úprava palet výplní...", "Načtení palety výplní..."
# In twips of the recolour dialog.
TO_DATABASE, FROM_DATABASE = (6600, 5085), (6600, 4485)
# In twips of the dialogs of palettes: the first line of their lists, the buttons of the one that
# saves, and what the one that loads has.
FIRST_PALETTE = (800, 1440)
NEW, STORE, CLOSE = (7560, 1545), (7560, 3405), (7560, 5070)
PREVIEWS, OK = (3225, 3525), (5910, 5085)
# As many rows as the list shows at once; more fills than the previews have room for.
ROWS = 10
PALETTE = "Podzimní město"
DESCRIPTION = "Střechy, stromy a obloha"
# Where the palette is in the list, with the first ones of the user's own file sorted by name.
PALETTE_LINE = 3


# The colours of a town, and how many shapes have each, for the stand-in for Word.
TOWN = [0xC00000, 0xF4B183, 0x7F6000, 0x00B050, 0xA9D18E, 0x0070C0, 0x9DC3E6, 0xFFC000, 0x7030A0,
        0x7F7F7F]
SHAPES = 4
# The upper left part of the stand-in's window, in which its bar is, with all shapes.
BAR_SIZE = 440, 180


class Stage:
    """A host with all shapes of a picture selected, and the dialog open over it."""

    def __init__(self, screen, scale=1):
        self.screen = screen
        self.dialog = Dialog(screen, scale)

    def fill(self):
        """Rows, some of them with a new fill, and some ticked."""
        self.dialog.add()
        for row in (1, 3, 4):
            self.dialog.click_row(row, BOX)
        self.pick(3, "Down")  # No fill.
        self.pick(9, "Down", "Down")  # Half transparent.
        self.dialog.click_row(3, SOURCE)

    def pick(self, row, *keys):
        """Picks in the menu of a row what changes the new fill."""
        def differs():
            source, new = (self.dialog.colours(row, x)[-1] for x in (SOURCE, DESTINATION))
            return source != new

        menu = self.dialog.open_row_menu(row)
        self.screen.key(*keys, "Return")
        menu.wait_for_end()
        wait_until(differs, f"row {row} has a new fill")

    def tick(self, rows):
        for row in range(1, rows + 1):
            self.dialog.click_row(row, BOX)

    def open_palettes(self, button, title):
        self.dialog.click(button)
        return PaletteDialog(self.screen, title, self.dialog.scale)

    def begin_palette(self):
        """The dialog with a new palette of the first rows, typed and not saved yet."""
        self.dialog.add()
        self.tick(ROWS)
        saving = self.open_palettes(TO_DATABASE, SAVE)
        saving.click(NEW)
        saving.type(PALETTE)
        self.screen.key("Return")
        saving.type(DESCRIPTION)
        return saving

    def picture(self, path, window=None):
        """Saves what the screen shows of a window, including its frame."""
        left, top, width, height = self.screen.outline_of(window or self.dialog.window)
        self.picture_of(path, left - EDGE, top - EDGE, width + 2 * EDGE, height + 2 * EDGE)

    def picture_of(self, path, left, top, width, height):
        wait_until_still(self.screen)
        size = f"{width}x{height}+{left}+{top}"
        subprocess.run(["import", "-window", "root", "-crop", size, "+repage", "-strip", str(path)],
                       env=self.screen.environment, check=True)


class WordStage(Stage):
    """The stand-in for Word."""

    def __init__(self, screen, word):
        screen.fill_with(word.window)
        word.click_button(THIRD_BUTTON)
        super().__init__(screen)
        self.word = word

    def close_dialog(self):
        self.dialog.click(CLOSE_DIALOG)
        wait_until(lambda: not self.dialog.is_open(), "the dialog closes")


class PaletteDialog:
    """A dialog of palettes that has just been opened. What is done in it is over when it looks
    different, and stays so."""

    def __init__(self, screen, title, scale):
        self.screen, self.title, self.scale = screen, title, scale
        self.window = wait_until(self._windows, f"{title!r} opens", 60.0)[0]
        screen.focus(self.window)
        wait_until_still(screen)

    def _windows(self):
        return self.screen.windows_named(" ?" + self.title.replace(".", "[.]"))

    def _press(self, place):
        left, top, _ = self.screen.place_of(self.window)
        self.screen.click(*(int(origin + twips * self.scale / TWIPS_PER_PIXEL)
                            for origin, twips in zip((left, top), place)))

    def click(self, place):
        self._see_change(lambda: self._press(place))

    def type(self, text):
        self._see_change(lambda: self.screen.type_by_layouts(
            text, lambda _: wait_until_still(self.screen)))

    def go_down(self, lines):
        """Picks a palette below the one that is picked in the list."""
        self._see_change(lambda: self.screen.key(*["Down"] * lines))

    def park_mouse(self):
        """In a corner without anything, where no tool tip opens."""
        left, top, _, height = self.screen.bounds_of(self.window)
        self.screen.move(left + 3, top + height - 3)

    def close(self, button):
        self._press(button)
        wait_until(lambda: not self._windows(), f"{self.title!r} closes")

    def _see_change(self, act):
        bounds = self.screen.bounds_of(self.window)
        before = self.screen.pixels(*bounds)
        act()
        wait_until(lambda: self.screen.pixels(*bounds) != before, f"{self.title!r} changes")
        wait_until_still(self.screen)


def wait_until_still(screen):
    """Waits until the screen looks the same twice in a row."""
    last = [b""]

    def is_still():
        previous, last[0] = last[0], screen.pixels(0, 0, screen.WIDTH, screen.HEIGHT)
        return previous == last[0]

    wait_until(is_still, "the screen is still")


# The scenes. Each leaves the picture of its name.

def dialog_empty(stage, path):
    stage.picture(path)


def dialog_filled(stage, path):
    stage.fill()
    stage.picture(path)


def dialog_selected(stage, path):
    stage.fill()
    stage.dialog.click(SELECTED)
    stage.picture(path)


def row_menu(stage, path):
    stage.fill()
    menu = stage.dialog.open_row_menu(4)
    stage.picture(path)
    menu.close()


def remove_menu(stage, path):
    stage.fill()
    stage.dialog.click(REMOVE)
    stage.picture(path)


def drag(stage, path):
    stage.fill()
    start = stage.dialog.on_screen(stage.dialog.in_row(3, HANDLE))
    end = stage.dialog.on_screen(stage.dialog.in_row(6, SOURCE))
    stage.screen.hold(start, end)
    stage.picture(path)
    stage.screen.let_go()


def about(stage, path):
    stage.dialog.click(LOGO)
    box = wait_until(lambda: stage.screen.windows_named(ABOUT), "the about box is open", 30.0)[0]
    stage.picture(path, box)


def palette_save(stage, path):
    saving = stage.begin_palette()
    saving.park_mouse()
    stage.picture(path, saving.window)


def palette_load(stage, path):
    saving = stage.begin_palette()
    saving.click(STORE)
    saving.close(CLOSE)
    loading = stage.open_palettes(FROM_DATABASE, LOAD)
    loading.click(FIRST_PALETTE)
    loading.go_down(PALETTE_LINE)
    loading.click(PREVIEWS)
    loading.park_mouse()
    stage.picture(path, loading.window)


def palette_loaded(stage, path):
    stage.dialog.add()
    stage.tick(8)
    stage.open_palettes(FROM_DATABASE, LOAD).close(OK)
    stage.dialog.park_mouse()
    stage.picture(path)


def bar(stage, path):
    """With nothing else in the window."""
    stage.close_dialog()
    left, top, _, _ = stage.screen.bounds_of(stage.word.window)
    stage.picture_of(path, left, top, *BAR_SIZE)


def message(stage, path):
    """About a selection with more than one sample."""
    stage.close_dialog()
    stage.word.click_button(BY_FILL)
    box = wait_until(lambda: stage.screen.windows_named(WRONG_SELECTION), "the box is open")[0]
    stage.picture(path, box)
    stage.screen.focus(box)
    stage.screen.key("Return")
    wait_until(lambda: not stage.screen.windows_named(WRONG_SELECTION), "the box closes")


DARK = {"GTK_THEME": "Adwaita:dark"}
LARGE = {"SAL_FORCEDPI": "192"}

SCENES = {
    "dialog-empty": (dialog_empty, {}),
    "dialog-filled": (dialog_filled, {}),
    "dialog-selected": (dialog_selected, {}),
    "dialog-row-menu": (row_menu, {}),
    "dialog-remove-menu": (remove_menu, {}),
    "dialog-drag": (drag, {}),
    "about": (about, {}),
    "dialog-dark": (dialog_filled, DARK),
    "dialog-200-percent": (dialog_filled, LARGE),
    "palette-save": (palette_save, {}),
    "palette-save-dark": (palette_save, DARK),
    "palette-save-200-percent": (palette_save, LARGE),
    "palette-load": (palette_load, {}),
    "palette-load-dark": (palette_load, DARK),
    "palette-load-200-percent": (palette_load, LARGE),
    "palette-loaded": (palette_loaded, {}),
}
# Those of the add-in for Word.
WORD_SCENES = {
    "word-bar": bar,
    "word-dialog": dialog_filled,
    "word-row-menu": row_menu,
    "word-message": message,
    "word-palette-save": palette_save,
    "word-palette-load": palette_load,
    "word-about": about,
}


def take(name, build, out):
    scene, settings = SCENES[name]
    scale = int(settings.get("SAL_FORCEDPI", NORMAL_DPI)) // NORMAL_DPI
    with tempfile.TemporaryDirectory(prefix="huebrush-pictures-") as folder, \
            Screen(1280 * scale, 1000 * scale) as screen:
        os.environ.update(settings)
        try:
            document = shutil.copy(EXAMPLE, folder)
            with Writer(screen, "soffice", folder, build / "extension", "gtk3",
                        document=document) as writer:
                frame = writer.frame()
                page = frame.Controller.Model.DrawPage
                writer.select(frame, *(page.getByIndex(i) for i in range(page.Count)))
                writer.click_button(CHANGE_FILLS)
                scene(Stage(screen, scale), out / f"{name}.png")
        finally:
            for key in settings:
                del os.environ[key]
    print(out / f"{name}.png", flush=True)


@contextlib.contextmanager
def copied_add_in(build):
    """The add-in's files in a folder that is the same each time, because its path is in pictures.
    The palettes there may be changed."""
    folder = build / "wine" / "prefix" / "drive_c" / "Huebrush"
    shutil.rmtree(folder, ignore_errors=True)
    try:
        shutil.copytree(build / "bin" / "Data", folder / "Data")
        for file in ("huebrush.dll", "word_testhost.exe"):
            shutil.copy(build / "bin" / file, folder)
        yield folder
    finally:
        shutil.rmtree(folder)


def take_of_word(name, build, out):
    shapes = ",".join(str(shown_colour(colour)) for colour in TOWN for _ in range(SHAPES))
    with tempfile.TemporaryDirectory(prefix="huebrush-pictures-") as folder, \
            Screen(manager_options=without_icons(Path(folder))) as screen, \
            Wine(ROOT / "tests" / "windows" / "wine.sh", build / "wine", screen) as wine, \
            copied_add_in(build) as programs:
        wine.forget_settings()
        try:
            with StandIn(wine, programs, screen, f"shapes={shapes}") as word:
                WORD_SCENES[name](WordStage(screen, word), out / f"{name}.png")
        finally:
            wine.forget_settings()
    print(out / f"{name}.png", flush=True)


def without_icons(folder):
    """Options of the window manager that leave out the icons of windows: Wine gives one to windows
    that have none."""
    settings = Path("/etc/xdg/openbox/rc.xml").read_text(encoding="utf-8")
    file = folder / "rc.xml"
    file.write_text(re.sub("(<titleLayout>)N", r"\1", settings), encoding="utf-8")
    return "--config-file", str(file)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--windows", type=Path, default=ROOT / "build" / "windows-x86_64")
    parser.add_argument("--out", type=Path, default=ROOT / "docs" / "images")
    parser.add_argument("--only", action="append", choices=[*SCENES, *WORD_SCENES])
    options = parser.parse_args()
    end_cleanly_on_request()
    options.out.mkdir(parents=True, exist_ok=True)
    # Titles with Czech letters are found only in such a locale.
    os.environ["LC_ALL"] = "C.UTF-8"
    for name in options.only or [*SCENES, *WORD_SCENES]:
        if name in SCENES:
            take(name, options.build.resolve(), options.out)
        else:
            take_of_word(name, options.windows.resolve(), options.out)


if __name__ == "__main__":
    main()
