# SPDX-License-Identifier: MPL-2.0
"""The story of the recolour dialog that all hosts play (tests/dialogs/story.py), in the stand-in
for Word. window_case.py says how it is started. All that the windows show is read from them."""

from window_case import WindowCase, run_tests
from dialog import CAPTION, Dialog
from shown import caption_of
from stand_in import CHANGE_FILLS, shown_colour
from story import PICTURE, Control, play


class WordHost:
    reads_list = True

    def __init__(self, case, word):
        self.screen, self._word = case.screen, word
        self.dialog = None

    def open(self):
        self._word.click_button(CHANGE_FILLS)
        self.dialog = Dialog(self.screen)

    def controls(self):
        return [Control(part.kind, caption_of(part), part.usable, part.value, part.place)
                for part in self._word.parts(CAPTION) if part.kind != "text"]

    def texts(self):
        return [(*part.place, part.text) for part in self._word.parts(CAPTION)
                if part.kind == "text"]

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
