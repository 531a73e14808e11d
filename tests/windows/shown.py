# SPDX-License-Identifier: MPL-2.0
"""What the windows of the stand-in for Word show, as its step "controls" says it."""

from collections import namedtuple

# Places are in pixels of the window's inside: left, top, width, height, or left and top of a text.
Part = namedtuple("Part", "kind usable value text place")
# The kinds of buttons, by the number of their style.
BUTTONS = {0: "button", 1: "button", 4: "option", 5: "box"}
KINDS = {"ScrollBar": "bar", "ListBox": "list", "Edit": "field", "Static": "label"}
VALUES = {0: False, 1: True, 2: None}


def _control(name, style, usable, value, *rest):
    *place, text = rest
    kind = BUTTONS[int(style)] if name == "Button" else KINDS[name]
    return Part(kind, usable == "1", VALUES[int(value)] if name == "Button" else int(value), text,
                tuple(map(int, place)))


def _plain(kind):
    def part(*fields):
        *place, text = fields
        return Part(kind, True, 0, text, tuple(map(int, place)))

    return part


READERS = {"control": _control, "item": _plain("item"), "text": _plain("text")}


def parts_of(lines, title):
    """The parts of the windows with this title; a blank before it does not count."""
    parts, is_it = [], False
    for line in lines:
        kind, *fields = line.split("\t")
        if kind == "window":
            is_it = fields[-1].strip() == title
        elif is_it and kind in READERS:
            parts.append(READERS[kind](*fields))
    return parts


def caption_of(part):
    """The text on a button, without the mark of its access key."""
    return part.text.replace("&", "")
