# SPDX-License-Identifier: MPL-2.0
"""A screen of one's own: an X server without a monitor, a window manager, and a user's hands."""

import ctypes
import itertools
import os
import select
import string
import subprocess
import time

START_LIMIT = 30.0
TOOL_LIMIT = 30.0
# What the keys of the screen's keyboard stand for: the American layout, and a second one with the
# letters of Czech.
KEYBOARD = ["-layout", "us,cz", "-variant", ",ucw"]
CHARACTERS = set(string.printable + "áčďéěíňóřšťúůýž" + "ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ")


def wait_until(condition, what, limit=30.0):
    """Polls until the condition holds, and returns its value. Fails with `what` after the limit."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise AssertionError(f"waited {limit} s in vain: {what}")
        time.sleep(0.05)


def comes_soon(condition, limit=3.0):
    """Whether the condition holds before long: for what may have to be asked for again."""
    try:
        wait_until(condition, "", limit)
        return True
    except AssertionError:
        return False


class Pointer:
    """Which buttons of the mouse are down, as the X server knows."""

    LEFT = 1 << 8

    def __init__(self, display):
        self._x11 = ctypes.CDLL("libX11.so.6")
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        self._x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self._connection = ctypes.c_void_p(self._x11.XOpenDisplay(display.encode()))
        if not self._connection:
            raise RuntimeError(f"no connection to the X server {display}")
        self._root = ctypes.c_ulong(self._x11.XDefaultRootWindow(self._connection))

    def close(self):
        self._x11.XCloseDisplay(self._connection)

    def is_pressed(self):
        windows = [ctypes.c_ulong() for _ in range(2)]
        places = [ctypes.c_int() for _ in range(4)]
        buttons = ctypes.c_uint()
        self._x11.XQueryPointer(self._connection, self._root,
                                *map(ctypes.byref, [*windows, *places, buttons]))
        return bool(buttons.value & self.LEFT)


class WindowIsGone(Exception):
    """The window has closed since it was listed, as a tool tip does by itself."""


class Screen:
    """Entering starts the X server and the window manager, which may have options; leaving ends
    both."""

    def __init__(self, width=1280, height=1000, manager_options=()):
        self.WIDTH, self.HEIGHT = width, height
        self._manager_options = manager_options
        self._processes = []
        self._pointer = None
        self.display = None

    def __enter__(self):
        try:
            self._start_server()
            subprocess.run(["setxkbmap", *KEYBOARD], env=self.environment, check=True,
                           timeout=TOOL_LIMIT)
            self._start("openbox", *self._manager_options)
            wait_until(self._window_manager_runs, "the window manager runs")
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self._pointer is not None:
            self._pointer.close()
            self._pointer = None
        for process in reversed(self._processes):
            process.terminate()
            try:
                process.wait(TOOL_LIMIT)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()
        self._processes.clear()

    def _is_pressed(self):
        if self._pointer is None:
            self._pointer = Pointer(self.display)
        return self._pointer.is_pressed()

    @property
    def environment(self):
        return dict(os.environ, DISPLAY=self.display)

    def _start(self, *command, **options):
        process = subprocess.Popen(command, env=self.environment, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **options)
        self._processes.append(process)

    def _start_server(self):
        """The server chooses a free display itself and reports it. It must not restart when
        the last of its clients goes, because another may be about to come."""
        reader, writer = os.pipe()
        self.display = ""
        self._start("Xvfb", "-displayfd", str(writer), "-noreset", "-screen", "0",
                    f"{self.WIDTH}x{self.HEIGHT}x24", pass_fds=[writer])
        os.close(writer)
        with os.fdopen(reader) as pipe:
            if not select.select([pipe], [], [], START_LIMIT)[0]:
                raise RuntimeError("the X server does not start")
            self.display = ":" + pipe.readline().strip()

    def _window_manager_runs(self):
        return "window id" in self._run("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")

    def _run(self, *command):
        return subprocess.run(command, env=self.environment, check=False, text=True,
                              timeout=TOOL_LIMIT, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL).stdout

    def move(self, x, y):
        self._run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y):
        self.move(x, y)
        self._run("xdotool", "click", "1")

    def press(self):
        """Only when the server has passed it on may the mouse move: a window manager that wants to
        see it first holds buttons up, but not the places that the mouse is put at meanwhile."""
        self._run("xdotool", "mousedown", "1")
        wait_until(self._is_pressed, "the button goes down")

    def let_go(self):
        self._run("xdotool", "mouseup", "1")
        wait_until(lambda: not self._is_pressed(), "the button comes up")

    def drag(self, start, end):
        """Moves the mouse with its button held, by way of a place near the start."""
        self.hold(start, end)
        self.let_go()

    def hold(self, start, end):
        """The first half of a drag: the button stays pressed."""
        self.move(*start)
        self.press()
        self.move(start[0] + 5, start[1])
        self.move((start[0] + end[0]) // 2, (start[1] + end[1]) // 2)
        self.move(*end)

    def turn_wheel(self, x, y, notches):
        """Turns the wheel over a place: towards the user when `notches` is positive."""
        self.move(x, y)
        for _ in range(abs(notches)):
            self._run("xdotool", "click", "5" if notches > 0 else "4")

    def key(self, *names):
        self._run("xdotool", "key", *names)

    def type_by_layouts(self, text, wait_for):
        """Types a text in parts of one layout each, and after each calls `wait_for` with all that
        has been typed: Wine reads a key in the layout of the last key that has come, which may be a
        later one."""
        typed = ""
        for _, part in itertools.groupby(text, str.isascii):
            part = "".join(part)
            typed += part
            self.type(part)
            wait_for(typed)

    def type(self, text):
        """A character without a key would be lost: it gets one only while it is typed, and that is
        over before the window looks for its meaning."""
        unknown = set(text) - CHARACTERS
        if unknown:
            raise ValueError(f"the keyboard has no key for {sorted(unknown)}")
        self._run("xdotool", "type", text)

    def windows(self):
        """The ids of all visible windows next to the root, menus and the frames of others too."""
        return set(self._search("--maxdepth", "1", "--name", ""))

    def _search(self, *which):
        """The ids of visible windows. One that goes while it is looked at, as a tool tip does, ends
        the search with an error and without a result: it is made again then."""
        def search():
            return subprocess.run(["xdotool", "search", "--onlyvisible", *which],
                                  env=self.environment, check=False, text=True, timeout=TOOL_LIMIT,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE)

        end = time.monotonic() + TOOL_LIMIT
        found = search()
        while "X Error" in found.stderr:
            if time.monotonic() > end:
                raise AssertionError(f"no search for windows succeeds: {found.stderr}")
            found = search()
        return found.stdout.split()

    def resize(self, window, width, height):
        """Asks the window manager for another size, as a user who drags an edge does."""
        self._run("wmctrl", "-i", "-r", hex(int(window)), "-e", f"0,-1,-1,{width},{height}")

    def windows_named(self, title):
        """The ids of the visible windows with exactly this title."""
        return self._search("--name", f"^{title}$")

    def place_of(self, window):
        """Left, top and height of a window, its title bar not counted."""
        left, top, _, height = self.bounds_of(window)
        return left, top, height

    def bounds_of(self, window):
        """Left, top, width and height of a window, without what the window manager adds. Raises
        WindowIsGone."""
        values = dict(line.strip().split(": ", 1)
                      for line in self._run("xwininfo", "-id", window).splitlines()
                      if ": " in line)
        if "Width" not in values:
            raise WindowIsGone(window)
        return tuple(int(values[name]) for name in ("Absolute upper-left X",
                                                    "Absolute upper-left Y", "Width", "Height"))

    def outline_of(self, window):
        """The same with the frame and the title bar around it."""
        left, top, width, height = self.bounds_of(window)
        added = self._run("xprop", "-id", window, "_NET_FRAME_EXTENTS").partition("= ")[2]
        before, after, above, below = (int(size) for size in added.split(","))
        return left - before, top - above, width + before + after, height + above + below

    def fill_with(self, window):
        """Gives a window the whole screen."""
        self._run("wmctrl", "-i", "-r", hex(int(window)), "-b",
                  "add,maximized_vert,maximized_horz")
        wait_until(lambda: self.place_of(window)[2] > self.HEIGHT * 0.9, "the window is maximised")

    def ask_for_focus(self, window):
        """Has the window manager give a window the keyboard, if it is there."""
        self._run("xdotool", "windowactivate", window)

    def focus(self, window):
        """Gives a window the keyboard."""
        def has_focus():
            self.ask_for_focus(window)
            return self.active() == window

        wait_until(has_focus, "the window gets the focus")

    def close(self, window):
        """Has the window manager close a window, as by the button of its title bar."""
        self._run("wmctrl", "-i", "-c", hex(int(window)))

    def active(self):
        """The window that has the keyboard."""
        return self._run("xdotool", "getactivewindow").strip()

    def pixels(self, left, top, width, height):
        """The colours of a part of the screen, as bytes red, green, blue, row by row."""
        return subprocess.run(
            ["import", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "-depth", "8",
             "rgb:-"], env=self.environment, check=True, timeout=TOOL_LIMIT,
            stdout=subprocess.PIPE).stdout

    def colour_at(self, x, y):
        red, green, blue = self.pixels(x, y, 1, 1)
        return red << 16 | green << 8 | blue

    def save_picture(self, path):
        self._run("import", "-window", "root", str(path))
