#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Takes the manual's pictures of the dialogs, on a screen without a monitor.

    tools/screenshots.py [--build build/release] [--out docs/images] [--only NAME]

Each picture is made by mouse and keys on the example picture, in a Writer with a fresh profile.
"""

import argparse
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tests" / "libreoffice")]

from dialog import (  # noqa: E402
    BOX, DESTINATION, HANDLE, LOGO, MENU, REMOVE, SELECTED, SOURCE, TWIPS_PER_PIXEL,
    Dialog)
from office import end_cleanly_on_request  # noqa: E402
from screen import Screen, wait_until  # noqa: E402
from writer import Writer  # noqa: E402

CHANGE_FILLS = "Změnit výplně"
ABOUT = "O doplňku Huebrush"
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


class Stage:
    """Writer with the example's shapes selected and the dialog open over it."""

    def __init__(self, screen, writer, scale):
        self.screen = screen
        self.writer = writer
        frame = writer.frame()
        page = frame.Controller.Model.DrawPage
        writer.select(frame, *(page.getByIndex(i) for i in range(page.Count)))
        writer.click_button(CHANGE_FILLS)
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

    def picture(self, path, window=None, below=0):
        """Saves what the screen shows of a window, including its frame, and `below` pixels more."""
        wait_until_still(self.screen)
        left, top, width, height = self.screen.outline_of(window or self.dialog.window)
        size = f"{width + 2 * EDGE}x{height + 2 * EDGE + below}+{left - EDGE}+{top - EDGE}"
        subprocess.run(["import", "-window", "root", "-crop", size, "+repage", "-strip", str(path)],
                       env=self.screen.environment, check=True)


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
        self._see_change(lambda: self.screen.type(text))

    def go_down(self, lines):
        """Picks a palette below the one that is picked in the list."""
        self._see_change(lambda: self.screen.key(*["Down"] * lines))

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
    stage.dialog.click_row(4, MENU)
    stage.picture(path)


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
    stage.picture(path, stage.begin_palette().window)


def palette_load(stage, path):
    saving = stage.begin_palette()
    saving.click(STORE)
    saving.close(CLOSE)
    loading = stage.open_palettes(FROM_DATABASE, LOAD)
    loading.click(FIRST_PALETTE)
    loading.go_down(PALETTE_LINE)
    loading.click(PREVIEWS)
    stage.picture(path, loading.window)


def palette_loaded(stage, path):
    stage.dialog.add()
    stage.tick(8)
    stage.open_palettes(FROM_DATABASE, LOAD).close(OK)
    stage.dialog.park_mouse()
    stage.picture(path)


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
                stage = Stage(screen, writer, scale)
                scene(stage, out / f"{name}.png")
        finally:
            for key in settings:
                del os.environ[key]
    print(out / f"{name}.png", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--out", type=Path, default=ROOT / "docs" / "images")
    parser.add_argument("--only", action="append", choices=SCENES)
    options = parser.parse_args()
    end_cleanly_on_request()
    options.out.mkdir(parents=True, exist_ok=True)
    for name in options.only or SCENES:
        take(name, options.build.resolve(), options.out)


if __name__ == "__main__":
    main()
