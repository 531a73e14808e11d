# SPDX-License-Identifier: MPL-2.0
"""One story of the recolour dialog, for every host: what the user does, by mouse and keys, and what
the dialog's window must show after each action.

A host that plays it has

    screen, dialog    the screen, and the dialog once it is open
    open()            opens the dialog over a document with PICTURE, all of it selected
    controls()        the toolkit's controls in the window, as Control
    texts()           what is painted as text, as (left, top, text); None where nobody can say
    fills()           the colours of the shapes in the document; None for one without fill
    reads_list        whether controls() has those in the list, too
    spoken(text)      how the host's toolkit gives a caption
"""

from dataclasses import dataclass, replace

from dialog import (ALL, BOX, CLOSE, DOWN, HANDLE, LIST_LEFT, LIST_TOP, NO_FILL, NOT_SELECTED,
                    RECOLOUR, REMOVE_MENU, RESTORE, ROW_HEIGHT, SELECT_ALL, SELECTED, SOURCE,
                    TICKED, TWIPS_PER_PIXEL, UP)
from screen import wait_until

RED, GREEN, BLUE, YELLOW, GREY = COLOURS = [0xC00000, 0x00B050, 0x0070C0, 0xFFC000, 0x7F7F7F]
# Two shapes of each.
PICTURE = [colour for colour in COLOURS for _ in range(2)]

# In twips of the dialog, and of a row in the list.
WIDTH, HEIGHT = 8400, 7365
STRIP_FROM_BOTTOM = 670
SOURCE_LEFT, DESTINATION_LEFT, PREVIEW_TOP = 765, 2475, 120
PREVIEW_WIDTH, PREVIEW_HEIGHT = 1215, 375
BOX_LEFT, BOX_TOP, BOX_SIZE = 270, 165, 300
MENU_LEFT, MENU_WIDTH = 3915, 420
NO_FILL_TEXT = "Bez výplně"
REMOVE_PLACE = 5190, 1035, 2985, 420
HEADINGS = {"Pořadí": (210, 225, 735, 240), "Aktuální výplň": (975, 225, 1650, 240),
            "Nová výplň": (2685, 225, 1500, 240)}
# From where to where the line of a frame is interrupted by its caption; as far as is sure.
FRAMES = {"Zobrazit": (5265, 2355, 450, 210), "Databáze výplní": (5265, 3945, 450, 210)}
# A window shows this many twips less of the list than it has twips.
BESIDE_LIST = 1195

# The places may differ by what rounding to pixels makes of them; in pixels.
ROUNDING = 1
# How much further a text may begin because of its font.
BEARING = 3
# No letters of one word are as far apart; in pixels.
BETWEEN_WORDS = 3
# How much darker or lighter than its background a text is at the least, and a usable one; the sum
# of red, green and blue.
INK, USABLE_INK = 90, 450


def pixels_of(twips):
    return round(twips / TWIPS_PER_PIXEL)


@dataclass(frozen=True)
class Control:
    """A control of the toolkit: "button", "box", "option" or "bar", and where it lies, in pixels
    of the window's inside. The value of a box is True, False, or None for neither."""
    kind: str
    text: str
    usable: bool
    value: object
    place: tuple

    def is_like(self, other):
        return (replace(self, place=()) == replace(other, place=()) and
                all(abs(one - two) <= ROUNDING for one, two in zip(self.place, other.place)))


@dataclass(frozen=True)
class Row:
    current: int
    new: int
    ticked: bool = False


@dataclass(frozen=True)
class State:
    """What the window shows. Rows that the view leaves out, or that are scrolled out of it, are
    none of `rows`; `ticked` counts them all. Recolouring is possible with a ticked row, and after a
    removal with any row."""
    rows: tuple = ()
    ticked: int = 0
    every: object = False
    view: str = "Vše"
    focus: int = 0
    scanned: bool = True
    removed: bool = False
    height: int = HEIGHT
    # The position of the scroll bar in the list, in twips; None where there is nothing to scroll.
    scrolled: object = None


def control(kind, text, place, usable=True, value=False):
    return Control(kind, text, usable, value, tuple(map(pixels_of, place)))


def expected_controls(state, with_list):
    """Those that are not below the window's lower edge."""
    return [each for each in [*all_controls(state), *(boxes(state) if with_list else [])]
            if each.place[1] < pixels_of(state.height)]


def all_controls(state):
    caption = f"Přebarvit ({state.ticked})" if state.ticked else "Přebarvit"
    some = state.ticked > 0
    bottom = state.height - STRIP_FROM_BOTTOM
    return [
        control("button", "Přidat", (5190, 495, 2985, 420)),
        control("button", caption, (5190, 1695, 2985, 420), some or state.removed),
        *(control("option", text, (5370, top, 2600, 300), value=text == state.view)
          for text, top in (("Vše", 2670), ("Označené", 3000), ("Neoznačené", 3330))),
        control("button", "Načíst... ", (5370, 4275, 2625, 420), some),
        control("button", "Uložit/Editovat...", (5370, 4875, 2625, 420), some),
        control("button", "Konec", (5190, 5670, 2985, 420)),
        control("box", "Vše", (495, bottom, 1200, 330), value=state.every),
        control("bar", "", (4665, LIST_TOP, 255, state.height - BESIDE_LIST),
                state.scrolled is not None, state.scrolled or 0)]


def boxes(state):
    return [control("box", "", in_list(index, BOX_LEFT, BOX_TOP, BOX_SIZE, BOX_SIZE),
                    value=row.ticked) for index, row in enumerate(state.rows)]


def in_list(index, left, top, width, height):
    """A place in a row, in twips of the dialog."""
    return LIST_LEFT + left, LIST_TOP + ROW_HEIGHT * index + top, width, height


def preview_place(index, left):
    return in_list(index, left, PREVIEW_TOP, PREVIEW_WIDTH, PREVIEW_HEIGHT)


def frames(state):
    return [(text, place) for text, place in FRAMES.items() if place[1] < state.height]


def expected_texts(state):
    """The painted texts, and in which place each begins; a text that is not usable is painted
    twice."""
    texts = [*HEADINGS.items(), *frames(state), ("Smazat", REMOVE_PLACE)]
    if not state.scanned:
        texts.append(("Smazat", REMOVE_PLACE))
    for index, row in enumerate(state.rows):
        texts.append(("...", in_list(index, MENU_LEFT, PREVIEW_TOP, MENU_WIDTH, PREVIEW_HEIGHT)))
        for colour, left in ((row.current, SOURCE_LEFT), (row.new, DESTINATION_LEFT)):
            if colour is None:
                texts.append((NO_FILL_TEXT, preview_place(index, left)))
    return texts


class Picture:
    """What the screen shows of the inside of a window. Places are in twips, and results in pixels
    from the upper left corner of the place."""

    def __init__(self, screen, window):
        left, top, self.width, self.height = screen.bounds_of(window)
        self._pixels = screen.pixels(left, top, self.width, self.height)

    def colour(self, x, y):
        """At a pixel."""
        at = 3 * (y * self.width + x)
        return int.from_bytes(self._pixels[at:at + 3], "big")

    def area_of_colour(self, x, y):
        """The rectangle that has one colour around a pixel: left, top, width, height."""
        colour = self.colour(x, y)

        def end(step_x, step_y):
            at = [x, y]
            while (0 <= at[0] < self.width and 0 <= at[1] < self.height
                   and self.colour(*at) == colour):
                at[0] += step_x
                at[1] += step_y
            return at

        left, right = end(-1, 0)[0] + 1, end(1, 0)[0]
        top, bottom = end(0, -1)[1] + 1, end(0, 1)[1]
        return left, top, right - left, bottom - top

    def contrasts(self, place):
        """For each column of a place how far its pixels differ from the background at most."""
        left, top, width, height = map(pixels_of, place)
        columns = [[self.colour(x, y) for y in range(top, top + height)]
                   for x in range(left, left + width)]
        every = [colour for column in columns for colour in column]
        ground = channels(max(set(every), key=every.count))
        return [max(sum(abs(one - two) for one, two in zip(channels(colour), ground))
                    for colour in column) for column in columns]

    def ink(self, place):
        """In which columns of a place something is written."""
        return [column for column, contrast in enumerate(self.contrasts(place)) if contrast > INK]


def channels(colour):
    return colour >> 16, colour >> 8 & 0xFF, colour & 0xFF


def words_in(columns):
    """How many words these columns of ink are."""
    gaps = [two - one for one, two in zip(columns, columns[1:])]
    return sum(gap > BETWEEN_WORDS for gap in gaps) + 1 if columns else 0


def inner(place, edge=45):
    left, top, width, height = place
    return left + edge, top + edge, width - 2 * edge, height - 2 * edge


def differences_of_controls(found, state, host):
    """Both ways: what is missing, and what should not be there."""
    wanted = [replace(each, text=host.spoken(each.text))
              for each in expected_controls(state, host.reads_list)]
    return ([("missing", each) for each in wanted if not any(map(each.is_like, found))] +
            [("not wanted", each) for each in found if not any(map(each.is_like, wanted))] +
            ([] if len(wanted) == len(found) else [(len(wanted), "controls and not", len(found))]))


def differences_of_texts(found, state):
    wanted = expected_texts(state)
    left = list(found)
    missing = []
    for text, place in wanted:
        x, y, width, height = map(pixels_of, place)
        here = [each for each in left if each[2] == text
                and x - ROUNDING <= each[0] < x + width and y - ROUNDING <= each[1] < y + height]
        if here:
            left.remove(here[0])
        else:
            missing.append(("not painted", text, place))
    return missing + [("painted", each) for each in left]


def differences_of_preview(picture, index, left, colour):
    place = preview_place(index, left)
    if colour is None:
        return differences_of_heading(picture, NO_FILL_TEXT, inner(place), centred=True)
    x, y, width, height = map(pixels_of, place)
    at = x + width // 2, y + height // 2
    if picture.colour(*at) != colour:
        return [("preview", index + 1, hex(picture.colour(*at)), "and not", hex(colour))]
    # Inside its edge.
    wanted = x + 1, y + 1, width - 2, height - 2
    found = picture.area_of_colour(*at)
    if all(abs(one - two) <= ROUNDING for one, two in zip(found, wanted)):
        return []
    return [("preview", index + 1, "lies at", found, "and not", wanted)]


def differences_of_heading(picture, text, place, centred=False):
    columns = picture.ink(place)
    words = len(text.split())
    if words_in(columns) != words:
        return [(text, "has", words_in(columns), "words on the screen")]
    width = pixels_of(place[2])
    off = columns[0] - (width - 1 - columns[-1]) if centred else columns[0]
    return [] if abs(off) <= BEARING else [(text, "begins", off, "pixels off")]


def differences_of_row(picture, index, row, has_focus):
    found = []
    for left, colour in ((SOURCE_LEFT, row.current), (DESTINATION_LEFT, row.new)):
        found += differences_of_preview(picture, index, left, colour)
    x, y, width, height = map(pixels_of, in_list(index, HANDLE - 45, 200, 90, 250))
    colours = {picture.colour(at_x, at_y)
               for at_x in range(x, x + width) for at_y in range(y, y + height)}
    if (len(colours) > 1) != has_focus:
        found.append(("handle", index + 1, not has_focus))
    # Within the dotted frame that a box with the focus may have.
    if bool(picture.ink(in_list(index, 330, 270, 60, 60))) != row.ticked:
        found.append(("tick", index + 1, not row.ticked))
    dots = inner(in_list(index, MENU_LEFT, PREVIEW_TOP, MENU_WIDTH, PREVIEW_HEIGHT), 75)
    if not picture.ink(dots):
        found.append(("no dots", index + 1))
    return found


def differences_on_screen(picture, state):
    """Of what is painted, as far as pixels tell."""
    found = []
    if (picture.width, picture.height) != (pixels_of(WIDTH), pixels_of(state.height)):
        return [("size", picture.width, picture.height)]
    for text, place in HEADINGS.items():
        found += differences_of_heading(picture, text, place)
    for text, place in frames(state):
        columns = picture.ink(place)
        if not columns or abs(columns[0] - 3) > BEARING:
            found.append((text, columns))
    if (max(picture.contrasts(inner(REMOVE_PLACE))) > USABLE_INK) != state.scanned:
        found.append(("Smazat", "is usable:", not state.scanned))
    for index, row in enumerate(state.rows):
        found += differences_of_row(picture, index, row, index + 1 == state.focus)
    return found + differences_below(picture, state)


def differences_below(picture, state):
    """Below the last row the list is empty."""
    end = LIST_TOP + ROW_HEIGHT * len(state.rows)
    bottom = LIST_TOP + state.height - BESIDE_LIST
    if bottom - end < ROW_HEIGHT:
        return []
    place = inner((LIST_LEFT, end, 4455, bottom - end))
    return [("below the rows", place)] if picture.ink(place) else []


def differences(host, state):
    """In what the window differs from what it must show."""
    texts = host.texts()
    return (differences_of_controls(host.controls(), state, host) +
            ([] if texts is None else differences_of_texts(texts, state)) +
            differences_on_screen(Picture(host.screen, host.dialog.window), state))


# What the user does.

def nothing(_host):
    pass


def scan(host):
    host.dialog.add()


def tick(row):
    return lambda host: host.dialog.click_row(row, BOX)


def focus(row):
    return lambda host: host.dialog.click_row(row, SOURCE)


def click(place):
    return lambda host: host.dialog.click(place)


def drag(row, to):
    return lambda host: host.dialog.drag_row(row, to)


def pick(row, item):
    return lambda host: host.dialog.open_row_menu(row).pick(item)


def remove(item):
    return lambda host: host.dialog.open_remove_menu().pick(REMOVE_MENU.index(item))


def press(*keys):
    return lambda host: host.screen.key(*keys)


def resize(height):
    return lambda host: host.dialog.resize(pixels_of(WIDTH), pixels_of(height))


def wheel(notches):
    def turn(host):
        place = host.dialog.on_screen(host.dialog.in_row(1, SOURCE))
        host.screen.turn_wheel(*place, notches)

    return turn


def rows(*colours, ticked=()):
    """Rows that are not changed, some of them ticked, by their colours."""
    return tuple(Row(colour, colour, colour in ticked) for colour in colours)


EVERY = COLOURS
SMALL = 3000
AFTER_DRAG = [GREEN, BLUE, RED, YELLOW, GREY]
EDITED = (Row(GREEN, GREEN), Row(BLUE, None), *rows(RED, YELLOW, GREY))
TWO = [GREEN, YELLOW]
NOW = (Row(GREEN, GREEN), Row(None, None, True), *rows(RED, YELLOW, GREY))

LEFT = rows(GREEN, RED, YELLOW, GREY)

# Each is what the user does, what the window shows then, and what the shapes look like after it
# where that is of interest.
STORY = [
    ("opens the dialog", nothing, State(scanned=False), PICTURE),
    ("scans the selection", scan, State(rows(*EVERY)), PICTURE),
    ("ticks a row", tick(2),
     State(rows(*EVERY, ticked=[GREEN]), 1, None, focus=2)),
    ("ticks another one", tick(4),
     State(rows(*EVERY, ticked=TWO), 2, None, focus=4)),
    ("looks at the ticked ones", click(SELECTED),
     State(rows(*TWO, ticked=TWO), 2, None, "Označené")),
    ("looks at the others", click(NOT_SELECTED),
     State(rows(RED, BLUE, GREY), 2, None, "Neoznačené")),
    ("looks at all", click(ALL),
     State(rows(*EVERY, ticked=TWO), 2, None)),
    ("ticks none of some", click(SELECT_ALL), State(rows(*EVERY))),
    ("ticks all", click(SELECT_ALL),
     State(rows(*EVERY, ticked=EVERY), 5, True)),
    ("ticks none of all", click(SELECT_ALL), State(rows(*EVERY))),
    ("gives a row the focus", focus(1), State(rows(*EVERY), focus=1)),
    ("drags it down", drag(1, to=3), State(rows(*AFTER_DRAG), focus=3)),
    ("moves it up", click(UP), State(rows(GREEN, RED, BLUE, YELLOW, GREY), focus=2)),
    ("moves it down", click(DOWN), State(rows(*AFTER_DRAG), focus=3)),
    ("takes a fill away", pick(2, NO_FILL), State(EDITED, focus=3)),
    ("undoes that", pick(2, RESTORE), State(rows(*AFTER_DRAG), focus=3)),
    ("takes it away again", pick(2, NO_FILL), State(EDITED, focus=3), PICTURE),
    ("goes to its row", press("Up"), State(EDITED, focus=2)),
    ("ticks it by a key", press("space"),
     State((EDITED[0], Row(BLUE, None, True), *EDITED[2:]), 1, None, focus=2)),
    ("recolours", click(RECOLOUR), State(NOW, 1, None),
     [None if colour == BLUE else colour for colour in PICTURE]),
    ("makes the window small", resize(SMALL),
     State(NOW[:3], 1, None, height=SMALL, scrolled=0)),
    ("scrolls", wheel(2), State(NOW[2:], 1, None, height=SMALL, scrolled=2 * ROW_HEIGHT)),
    ("scrolls back", wheel(-2), State(NOW[:3], 1, None, height=SMALL, scrolled=0)),
    ("makes it large again", resize(HEIGHT), State(NOW, 1, None)),
    ("gives another row the focus", focus(2), State(NOW, 1, None, focus=2)),
    ("removes a row by a key", press("Delete"), State(LEFT, every=None, focus=2)),
    ("ticks the first one", tick(1), State((Row(GREEN, GREEN, True), *LEFT[1:]), 1, None, focus=1)),
    ("removes it by the menu", remove(TICKED), State(LEFT[1:], every=None, focus=1, removed=True)),
]


def play(host):
    """Plays the story on a host. Fails where the window does not come to show what it must."""
    host.open()
    for what, act, state, *shapes in STORY:
        act(host)
        host.dialog.park_mouse()
        found = [None]

        def is_shown(state=state, found=found):
            found[0] = differences(host, state)
            return not found[0]

        try:
            wait_until(is_shown, what)
        except AssertionError:
            raise AssertionError(f"the user {what}; then: {found[0]}") from None
        for wanted in shapes:
            wait_until(lambda wanted=wanted: host.fills() == wanted, f"{what}: the shapes change")
    host.dialog.click(CLOSE)
    wait_until(lambda: not host.dialog.is_open(), "the dialog closes")
