# SPDX-License-Identifier: MPL-2.0
"""A user of one of the office's own dialogs for a fill, as a program: waits until the dialog shows
the colour it starts with, does something in it and ends it. Works on the screen of $DISPLAY. The
end of the standard input says that the dialog is over, even if its window has not gone yet."""

import argparse
import os
import select
import sys

from host_tool import HostTool
from screen import Screen


class ToldTool(HostTool):
    def is_open(self):
        told_to_end = select.select([sys.stdin], [], [], 0)[0]
        return not told_to_end and super().is_open()


def colour(text):
    return int(text, 16)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--plugin", required=True, choices=["gen", "gtk3"])
    parser.add_argument("--title", required=True)
    parser.add_argument("--start", required=True, type=colour, help="the colour it opens with")
    parser.add_argument("--choose", type=colour, help="a colour to choose")
    parser.add_argument("--gradient", action="store_true", help="choose a gradient")
    parser.add_argument("end", choices=["confirm", "cancel", "escape", "close"])
    options = parser.parse_args()

    screen = Screen()
    screen.display = os.environ["DISPLAY"]
    tool = ToldTool(screen, options.plugin, options.title, options.start)
    if options.choose is not None:
        tool.choose(options.choose)
    if options.gradient:
        tool.choose_gradient()
    getattr(tool, options.end)()


if __name__ == "__main__":
    sys.exit(main())
