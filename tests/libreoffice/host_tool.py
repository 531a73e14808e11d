# SPDX-License-Identifier: MPL-2.0
"""The office's own dialogs for a fill, which the recolour dialog opens."""

from screen import comes_soon, wait_until

COLOUR_TITLE, AREA_TITLE = "Pick a Color", "Area"
# In the window: where a colour is typed as a number, and where the chosen colour is shown.
PLACES = {
    ("gen", COLOUR_TITLE): ((477, 109), (73, 329)),
    ("gen", AREA_TITLE): ((554, 254), (555, 131)),
    ("gtk3", COLOUR_TITLE): ((563, 159), (167, 481)),
    ("gtk3", AREA_TITLE): ((680, 342), (667, 150)),
}
# The button of the area dialog that shows the gradients.
GRADIENT = {"gen": (301, 52), "gtk3": (362, 71)}
# From the right lower corner.
OK_OF_AREA = (45, 28)


class HostTool:
    """One that opens, with the keyboard in it."""

    def __init__(self, screen, plugin, title, start):
        self.screen = screen
        self.title = title
        self._plugin = plugin
        self.window = wait_until(lambda: screen.windows_named(title), f"{title!r} opens", 60.0)[0]
        self._number, self._shown = PLACES[plugin, title]
        screen.focus(self.window)
        self.wait_for_colour(start)

    def is_open(self):
        return self.window in self.screen.windows_named(self.title)

    def wait_for_colour(self, colour):
        wait_until(lambda: self.screen.colour_at(*self._at(self._shown)) == colour,
                   f"{self.title!r} shows {colour:#08x}")

    def choose(self, colour):
        self.screen.click(*self._at(self._number))
        self.screen.key("ctrl+a")
        self.screen.type(f"{colour:06x}")
        self.screen.key("Tab")
        self.wait_for_colour(colour)

    def confirm(self):
        if self.title == COLOUR_TITLE:
            self.screen.key("Return")
        else:
            left, top, width, height = self.screen.bounds_of(self.window)
            self.screen.click(left + width - OK_OF_AREA[0], top + height - OK_OF_AREA[1])
        self.wait_for_end()

    def choose_gradient(self):
        """Changes a solid fill to the gradient that is offered."""
        before = self.screen.colour_at(*self._at(self._shown))

        def has_changed():
            self.screen.click(*self._at(GRADIENT[self._plugin]))
            return comes_soon(
                lambda: self.screen.colour_at(*self._at(self._shown)) != before)

        wait_until(has_changed, f"{self.title!r} shows a gradient")

    def escape(self):
        self._end_by_key("Escape")

    def cancel(self):
        self._end_by_key("alt+c")

    def close(self):
        self.screen.close(self.window)
        self.wait_for_end()

    def wait_for_end(self):
        wait_until(lambda: not self.is_open(), f"{self.title!r} closes")

    def _end_by_key(self, key):
        def is_gone():
            self.screen.ask_for_focus(self.window)
            self.screen.key(key)
            return comes_soon(lambda: not self.is_open())

        wait_until(is_gone, f"{self.title!r} closes at {key}")

    def _at(self, place):
        left, top, _ = self.screen.place_of(self.window)
        return left + place[0], top + place[1]
