# SPDX-License-Identifier: MPL-2.0
"""The recolour dialog on the screen: where its parts are, and what their pixels say."""

from screen import WindowIsGone, comes_soon, wait_until

CAPTION = "Změna výplně grafických objektů..."
DONE = "Zpracování je dokončeno..."
TWIPS_PER_PIXEL = 15

# Places in twips of the dialog, and in a row.
ADD, REMOVE, RECOLOUR, CLOSE = (6600, 700), (6600, 1240), (6600, 1900), (6600, 5880)
ALL, SELECTED, NOT_SELECTED = (5800, 2820), (5800, 3150), (5800, 3480)
SELECT_ALL, UP, DOWN, LOGO = (620, 6860), (4275, 6860), (4725, 6860), (6235, 6705)
LOGO_TOP, LOGO_BORDER = 6255, 200
LIST_LEFT, LIST_TOP, ROW_HEIGHT = 210, 495, 630
HANDLE, BOX, SOURCE, DESTINATION, MENU = 120, 405, 1000, 2700, 4125


# What the menus offer, from the top; "-" is the line between two.
NO_FILL, HALF, COLOUR, LOOK, LINE, FORMAT, RESTORE = range(7)
ROW_MENU = ["Bez výplně", "Poloprůhledná", "Barva...", "Vzhled výplně...", "-",
            "Formát objektu...", "Obnovit původní"]
ACTIVE, UNTICKED, TICKED, EVERY = REMOVE_MENU = ["Aktuální", "Neoznačené", "Označené", "Vše"]


class Menu:
    """A menu that opens with these items, for the mouse. It has more than one, and is therefore
    taller than a tool tip."""

    EDGE, LINE_HEIGHT, LEAST_HEIGHT = 3, 8, 30
    TICK_WIDTH = 22
    # Red, green and blue together: how far an enabled text differs from its background.
    CONTRAST = 480

    def __init__(self, screen, before, items):
        self.screen = screen
        self.items = items
        self.window = wait_until(lambda: self._opened(before), "the menu opens")

    def _opened(self, before):
        for window in self.screen.windows() - before:
            try:
                left, top, width, height = self.screen.bounds_of(window)
            except WindowIsGone:
                continue
            if height > self.LEAST_HEIGHT and self._is_painted(left, top, width, height):
                return window
        return None

    def _is_painted(self, *place):
        pixels = self.screen.pixels(*place)
        return len(set(zip(pixels[::3], pixels[1::3], pixels[2::3]))) > 2

    def is_open(self):
        return self.window in self.screen.windows()

    def item_height(self):
        lines = self.items.count("-")
        height = self.screen.bounds_of(self.window)[3]
        return (height - 2 * self.EDGE - lines * self.LINE_HEIGHT) / (len(self.items) - lines)

    def top_of(self, item):
        """Where an item begins, in pixels of the menu."""
        lines = self.items[:item].count("-")
        return int(self.EDGE + (item - lines) * self.item_height() + lines * self.LINE_HEIGHT)

    def click(self, item):
        left, top, width, _ = self.screen.bounds_of(self.window)
        self.screen.click(left + width // 2,
                          int(top + self.top_of(item) + self.item_height() // 2))

    def usable(self):
        """The items that are not greyed, as long as the mouse is on none of them."""
        return [name for item, name in enumerate(self.items)
                if name != "-" and self._contrast(item) > self.CONTRAST]

    def _contrast(self, item):
        left, top, width, _ = self.screen.bounds_of(self.window)
        begin = left + self.TICK_WIDTH
        pixels = self.screen.pixels(begin, top + self.top_of(item),
                                    left + width - self.EDGE - begin, int(self.item_height()))
        sums = [sum(pixel) for pixel in zip(pixels[::3], pixels[1::3], pixels[2::3])]
        return max(sums) - min(sums)

    def wait_for_end(self):
        wait_until(lambda: not self.is_open(), "the menu closes")

    def pick(self, item):
        """Picks by the place of the item in the menu."""
        self.click(item)
        self.wait_for_end()

    def press(self, *keys):
        """Keys of which the last one closes the menu."""
        self.screen.key(*keys)
        self.wait_for_end()

    def close(self):
        self.press("Escape")


def dialogs_on(screen):
    """The windows of all dialogs that are open."""
    return screen.windows_named(" ?" + CAPTION.replace(".", "[.]"))


class Dialog:
    """The dialog that is open on a screen."""

    def __init__(self, screen, scale=1):
        self.screen = screen
        self.scale = scale
        self.window = wait_until(self._windows, "the dialog is on the screen", 60.0)[0]
        screen.focus(self.window)
        wait_until(self._is_painted, "the dialog is painted")

    def _windows(self):
        return dialogs_on(self.screen)

    def _is_painted(self):
        """Whether the list stands out from its surroundings: its edges differ from both."""
        left, beside, inside = (self.colour_at((x, 3000)) for x in
                                (LIST_LEFT - 60, LIST_LEFT, LIST_LEFT + 2000))
        return len({left, beside, inside}) == 3

    def is_open(self):
        return bool(self._windows())

    def on_screen(self, place):
        left, top, _ = self.screen.place_of(self.window)
        return tuple(int(origin + twips * self.scale / TWIPS_PER_PIXEL)
                     for origin, twips in zip((left, top), place))

    def click(self, place):
        self.screen.click(*self.on_screen(place))

    @staticmethod
    def in_row(row, x):
        """A place in a row; rows are counted from 1, as they are shown."""
        return LIST_LEFT + x, LIST_TOP + ROW_HEIGHT * (row - 1) + ROW_HEIGHT // 2

    def click_row(self, row, x):
        self.click(self.in_row(row, x))

    def wait_for_handle(self, row):
        """Until the row's grab handle shows, which only the row with the focus has."""
        x, y = self.on_screen(self.in_row(row, HANDLE))

        def is_drawn():
            pixels = self.screen.pixels(x - 5, y - 5, 10, 10)
            return len({pixels[at:at + 3] for at in range(0, len(pixels), 3)}) > 1

        wait_until(is_drawn, f"the handle of row {row} shows")

    def open_menu(self, place, items):
        """Clicks what opens a menu, and waits until the menu is there."""
        before = self.screen.windows()
        self.click(place)
        return Menu(self.screen, before, items)

    def open_row_menu_by_key(self, key):
        """Opens that of the active row."""
        before = self.screen.windows()
        self.screen.key(key)
        return Menu(self.screen, before, ROW_MENU)

    def open_row_menu(self, row):
        return self.open_menu(self.in_row(row, MENU), ROW_MENU)

    def open_remove_menu(self):
        return self.open_menu(REMOVE, REMOVE_MENU)

    def drag_row(self, row, to):
        """Drags a row that has the focus by its handle onto another one."""
        self.wait_for_handle(row)
        x, y = self.on_screen(self.in_row(row, HANDLE))
        target = self.on_screen(self.in_row(to, SOURCE))
        self.screen.drag((x, y), target)

    def colour_at(self, place):
        return self.screen.colour_at(*self.on_screen(place))

    def colours(self, rows, x=SOURCE):
        """The colours of the previews of so many rows from the top."""
        return [self.colour_at((LIST_LEFT + x - 200, self.in_row(row, x)[1] - 120))
                for row in range(1, rows + 1)]

    def wait_for_colours(self, wanted, x=SOURCE):
        self.park_mouse()
        wait_until(lambda: self.colours(len(wanted), x) == wanted,
                   f"the previews are {[hex(c) for c in wanted]}")

    def scroll_to(self, first, colours):
        """Turns the wheel until the list stands still with the row `first`, counted from 0, at its
        top. `colours` are those of all rows, each another one. A busy window may miss a notch."""
        shown = []

        def is_there():
            self.park_mouse()
            shown.append(self.colours(1)[0])
            if shown[-2:-1] != shown[-1:]:
                return False
            missing = first - colours.index(shown[-1])
            if missing:
                self.screen.turn_wheel(*self.on_screen(self.in_row(1, SOURCE)), missing)
            return not missing

        wait_until(is_there, f"row {first} is at the top of the list")

    def park_mouse(self):
        """Puts the mouse where no tool tip opens that could cover something."""
        self.screen.move(*self.on_screen((5060, 3000)))

    def resize(self, width, height, given=None):
        """Gives the inside of the window a size, or has it take another one, in pixels. The window
        may correct its width a moment after each change: another size that is requested in that
        moment is lost."""
        wanted = given or (width, height)
        for _ in range(10):
            self.screen.resize(self.window, width, height)
            if comes_soon(lambda: self.screen.bounds_of(self.window)[2:] == wanted):
                return
        raise AssertionError(f"the window does not get the size {wanted}")

    def add(self):
        """Scans the selection, and closes the box that shows the number of fills."""
        self.click(ADD)
        box = wait_until(lambda: self.screen.windows_named(DONE), "the scan is over", 60.0)[0]
        self.screen.focus(box)
        self.screen.key("Return")
        wait_until(lambda: not self.screen.windows_named(DONE), "the box closes")
        self.screen.focus(self.window)
