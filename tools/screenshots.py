#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Takes the manual's pictures of the recolour dialog, on a screen without a monitor.

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
    BOX, DESTINATION, HANDLE, LOGO, MENU, REMOVE, SELECTED, SOURCE, Dialog)
from office import end_cleanly_on_request  # noqa: E402
from screen import Screen, wait_until  # noqa: E402
from writer import Writer  # noqa: E402

CHANGE_FILLS = "Změnit výplně"
ABOUT = "O doplňku Huebrush"
EXAMPLE = ROOT / "examples" / "town.odt"
EDGE = 12
NORMAL_DPI = 96


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

    def picture(self, path, window=None, below=0):
        """Saves what the screen shows of a window, including its frame, and `below` pixels more."""
        wait_until_still(self.screen)
        left, top, width, height = self.screen.outline_of(window or self.dialog.window)
        size = f"{width + 2 * EDGE}x{height + 2 * EDGE + below}+{left - EDGE}+{top - EDGE}"
        subprocess.run(["import", "-window", "root", "-crop", size, "+repage", "-strip", str(path)],
                       env=self.screen.environment, check=True)


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


SCENES = {
    "dialog-empty": (dialog_empty, {}),
    "dialog-filled": (dialog_filled, {}),
    "dialog-selected": (dialog_selected, {}),
    "dialog-row-menu": (row_menu, {}),
    "dialog-remove-menu": (remove_menu, {}),
    "dialog-drag": (drag, {}),
    "about": (about, {}),
    "dialog-dark": (dialog_filled, {"GTK_THEME": "Adwaita:dark"}),
    "dialog-200-percent": (dialog_filled, {"SAL_FORCEDPI": "192"}),
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
