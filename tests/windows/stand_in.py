# SPDX-License-Identifier: MPL-2.0
"""The program that stands in for Word, in its window under Wine, with the add-in that is registered
there."""

import os
import pathlib
import subprocess
import threading

from screen import wait_until
from shown import parts_of

CAPTION = "Dokument1 - Word"
END_LIMIT = 60.0
SETTINGS = r"HKCU\Software\VB and VBA Program Settings\Huebrush"
# The buttons of the bar, in pixels of the window.
BUTTON_TOP, BUTTON_WIDTH, BUTTON_STEP = 17, 110, 114
BY_FILL, BY_LINE, CHANGE_FILLS = range(3)


def shown_colour(colour):
    """A colour as the host has it, 0xBBGGRR, as a screen has it, 0xRRGGBB; and back."""
    return (colour & 0xFF) << 16 | colour & 0xFF00 | colour >> 16


class Wine:
    """Programs with windows on a screen. Leaving ends all of them."""

    def __init__(self, script, folder, screen):
        self._wine = [str(script), str(folder), "screen"]
        self.environment = {**os.environ, **screen.environment}

    def __enter__(self):
        self._do("start")
        return self

    def __exit__(self, *_):
        self._do("end")

    def _do(self, *what):
        subprocess.run([*self._wine, *what], check=True, env=self.environment, timeout=END_LIMIT,
                       stdin=subprocess.DEVNULL)

    def run(self, *command):
        self._do("run", *command)

    def forget_settings(self):
        """Removes what the add-in remembers of its user, if it does."""
        subprocess.run([*self._wine, "run", "reg", "delete", SETTINGS, "/f"], check=False,
                       env=self.environment, timeout=END_LIMIT, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def start(self, *command):
        return subprocess.Popen([*self._wine, "run", *command], env=self.environment, text=True,
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE)


def windows_path(path):
    """How Windows' programs call a file, which may be on the disk of their own."""
    outside, found, inside = str(pathlib.Path(path).resolve()).partition("/drive_c/")
    return ("C:/" + inside if found else "Z:" + outside).replace("/", "\\")


class StandIn:
    """The add-in is registered while this lives, and connected until the program is left."""

    def __init__(self, wine, programs, screen, *steps):
        self._wine = wine
        self._programs = pathlib.Path(programs)
        self._screen = screen
        self._steps = steps
        self._process = None
        self.window = None
        self.said = []

    def __enter__(self):
        self._register()
        self._process = self._wine.start(str(self._programs / "word_testhost.exe"), "--window",
                                         *self._steps, "connect")
        try:
            for _ in range(len(self._steps) + 1):
                self._answer()
            self.window = wait_until(lambda: self._screen.windows_named(CAPTION),
                                     "the window of the stand-in is there")[0]
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        watchdog = threading.Timer(END_LIMIT, self._process.kill)
        watchdog.start()
        try:
            self._process.stdin.close()
            self.said += self._process.stdout.read().splitlines()
            self._process.wait(END_LIMIT)
        finally:
            watchdog.cancel()
            self._process.kill()
            self._process.wait()
            self._process.stdout.close()
            self._register("/u")

    def _register(self, *how):
        self._wine.run("regsvr32", "/s", *how, windows_path(self._programs / "huebrush.dll"))

    def _answer(self):
        lines = []
        for line in self._process.stdout:
            line = line.rstrip("\r\n")
            if line == ".":
                self.said += lines
                return lines
            lines.append(line)
        raise AssertionError(f"the stand-in has ended: {lines}")

    def step(self, step):
        """Has it take a step; what happened since the last one."""
        self._process.stdin.write(step + "\n")
        self._process.stdin.flush()
        lines = self._answer()
        # What was said before the step belongs to what the user did meanwhile.
        lines.remove("> " + step)
        return lines

    def ended_well(self):
        """Whether it has given back all that it had of Word, and could be unloaded."""
        return (self._process.returncode == 0 and self.said[-1] == "can be unloaded" and
                "in use: 0 objects, 0 references, 0 listeners" in self.said)

    def parts(self, title):
        """What the windows with this title show."""
        return parts_of(self.step("controls"), title)

    def click_button(self, index):
        left, top, _, _ = self._screen.bounds_of(self.window)
        self._screen.click(left + index * BUTTON_STEP + BUTTON_WIDTH // 2, top + BUTTON_TOP)

    def _fills(self):
        """Of each shape whether its fill is visible, and its colour."""
        for line in self.step("fills"):
            if line.startswith("fill "):
                visible, colour, _ = line.rpartition(": ")[2].split()
                yield visible != "0", int(colour)

    def fills(self):
        """The colours of the shapes, 0xBBGGRR."""
        return [colour for _, colour in self._fills()]

    def visible_fills(self):
        """The colours of the shapes, 0xRRGGBB; None for those without fill."""
        return [shown_colour(colour) if visible else None for visible, colour in self._fills()]

    def selected(self):
        """The names of the selected shapes."""
        return [line.removeprefix("selected ") for line in self.step("selection")
                if line.startswith("selected ")]
