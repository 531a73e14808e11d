#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""The story of the recolour dialog that all hosts play (tests/dialogs/story.py), in Writer.

    story_test.py --office SOFFICE --extensions FOLDER --plugin gen [unittest arguments]

Its controls are read by accessibility, which does not reach those in the list; what is painted is
read from the screen.
"""

import sys
from pathlib import Path

from case import run_tests
from com.sun.star.accessibility import AccessibleRole, AccessibleStateType
from dialog import CAPTION
from dialog_case import DialogCase
from writer import children_of

sys.path.append(str(Path(__file__).resolve().parents[1] / "dialogs"))

from story import COLOURS, Control, play  # noqa: E402

KINDS = {AccessibleRole.PUSH_BUTTON: "button", AccessibleRole.CHECK_BOX: "box",
         AccessibleRole.RADIO_BUTTON: "option", AccessibleRole.SCROLL_BAR: "bar"}


class WriterHost:
    reads_list = False

    def __init__(self, case):
        self._case, self.screen = case, case.screen
        self.dialog = None

    def open(self):
        self.dialog = self._case.open(COLOURS, each=2)

    def controls(self):
        top = next(top for top in self._case.writer.top_windows()
                   if top.getAccessibleName().strip() == CAPTION)
        inside = next(children_of(top))
        return [self._control(part) for part in children_of(inside)
                if part.getAccessibleRole() in KINDS]

    def _control(self, part):
        kind = KINDS[part.getAccessibleRole()]
        place, size = part.getLocation(), part.getSize()
        text = "" if kind == "bar" else part.getAccessibleName()
        return Control(kind, text, self._case.writer.is_enabled(part), self._value(kind, part),
                       (place.X, place.Y, size.Width, size.Height))

    def _value(self, kind, part):
        if kind == "bar":
            return int(part.getCurrentValue())
        if self._case.writer.has_state(part, AccessibleStateType.INDETERMINATE):
            return None
        return self._case.writer.has_state(part, AccessibleStateType.CHECKED)

    @staticmethod
    def texts():
        return None

    @staticmethod
    def spoken(text):
        """Accessible names are without dots at the end."""
        return text.rstrip(".")

    def fills(self):
        return self._case.fills()


class Story(DialogCase):
    def test_is_played(self):
        play(WriterHost(self))


if __name__ == "__main__":
    run_tests(__doc__)
