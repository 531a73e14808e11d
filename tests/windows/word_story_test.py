# SPDX-License-Identifier: MPL-2.0
"""The story of the recolour dialog that all hosts play (tests/dialogs/story.py), in the stand-in for
Word. window_case.py says how it is started. All that the windows show is read from them."""

import pathlib
import sys

from window_case import WindowCase, run_tests
from dialog import CAPTION, Dialog
from stand_in import CHANGE_FILLS, shown_colour

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "dialogs"))

from story import PICTURE, Control, play  # noqa: E402

# The kinds of buttons, by the number of their style.
BUTTONS = {0: "button", 1: "button", 4: "option", 5: "box"}
VALUES = {0: False, 1: True, 2: None}


class WordHost:
    reads_list = True

    def __init__(self, case, word):
        self.screen, self._word = case.screen, word
        self.dialog = None

    def open(self):
        self._word.click_button(CHANGE_FILLS)
        self.dialog = Dialog(self.screen)

    def _shown(self, kind):
        """The fields of the lines of a kind, of the dialog alone."""
        window = None
        for line in self._word.step("controls"):
            first, *fields = line.split("\t")
            if first == "window":
                window = fields[-1].strip()
            elif first == kind and window == CAPTION:
                yield fields

    def controls(self):
        return [self._control(*fields) for fields in self._shown("control")]

    @staticmethod
    def _control(name, style, usable, value, *rest):
        *place, text = rest
        kind = "bar" if name == "ScrollBar" else BUTTONS[int(style)]
        return Control(kind, text.replace("&", ""), usable == "1",
                       int(value) if kind == "bar" else VALUES[int(value)],
                       tuple(map(int, place)))

    def texts(self):
        return [(int(left), int(top), text) for left, top, text in self._shown("text")]

    @staticmethod
    def spoken(text):
        return text

    def fills(self):
        return self._word.visible_fills()


class Story(WindowCase):
    def test_is_played(self):
        colours = ",".join(str(shown_colour(colour)) for colour in PICTURE)
        with self.start(f"shapes={colours}") as word:
            play(WordHost(self, word))
        self.assertTrue(word.ended_well(), word.said[-20:])


if __name__ == "__main__":
    run_tests()
