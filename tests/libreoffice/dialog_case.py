# SPDX-License-Identifier: MPL-2.0
"""A test of the recolour dialog: Writer with shapes in a document, and the dialog open over it."""

import uno  # noqa: F401  # The modules of the office come with it.
from com.sun.star.accessibility import AccessibleRole, AccessibleStateType

from case import WriterCase
from dialog import CAPTION, COLOUR, DESTINATION, Dialog
from host_tool import AREA_TITLE, COLOUR_TITLE, HostTool
from screen import wait_until
from writer import children_of

CHANGE_FILLS = "Změnit výplně"
RED, GREEN, BLUE, YELLOW, GREY = 0xC00000, 0x00B050, 0x0070C0, 0xFFC000, 0x7F7F7F
COLOURS = [RED, GREEN, BLUE, YELLOW, GREY]


class DialogCase(WriterCase):
    def open(self, colours=COLOURS, each=2):
        """Writer with selected shapes, some of each colour, and the dialog open over it."""
        self.writer = self.start()
        self.frame = self.writer.frame()
        model = self.frame.Controller.Model
        model.lockControllers()  # Thousands of shapes would be laid out one by one.
        self.shapes = [self.writer.add_shape(self.frame, (column, row), colour)
                       for column, colour in enumerate(colours) for row in range(each)]
        model.unlockControllers()
        self.writer.select(self.frame, *self.shapes)
        self.writer.click_button(CHANGE_FILLS)
        return Dialog(self.screen, self.SCALE)

    def open_filled(self, colours=COLOURS):
        dialog = self.open(colours)
        dialog.add()
        dialog.wait_for_colours(colours)
        dialog.wait_for_colours(colours, DESTINATION)
        return dialog

    def fills(self):
        """The colours of the shapes in the document; nothing for those without fill."""
        return [None if shape.FillStyle.value == "NONE" else shape.FillColor
                for shape in self.shapes]

    def background(self, dialog):
        return dialog.colour_at((4000, 6200))

    def wait_for_fills(self, wanted, what):
        wait_until(lambda: self.fills() == wanted, what)

    def recolour_entries(self):
        """The number of steps of ours in the document's Undo list."""
        titles = self.frame.Controller.Model.UndoManager.getAllUndoActionTitles()
        return sum(title == "Přebarvení grafických objektů" for title in titles)

    def open_tool(self, dialog, row, item, colour):
        """The host's tool that an item of a row's menu opens on a colour."""
        dialog.open_row_menu(row).pick(item)
        title = COLOUR_TITLE if item == COLOUR else AREA_TITLE
        return HostTool(self.screen, self.options.plugin, title, colour)

    # Parts of a window, by accessibility.

    def part(self, name, role, window=CAPTION):
        """The part of an own window with this name and accessible role, or nothing."""
        def find(context):
            if context.getAccessibleRole() == role and context.getAccessibleName() == name:
                return context
            for child in children_of(context):
                found = find(child)
                if found is not None:
                    return found
            return None

        for top in self.writer.top_windows():
            if top.getAccessibleName().strip() == window:
                return find(top)
        return None

    def button(self, name, window=CAPTION):
        return self.part(name, AccessibleRole.PUSH_BUTTON, window)

    def is_default(self, name):
        return self.writer.has_state(self.button(name), AccessibleStateType.DEFAULT)

    def wait_until_usable(self, name, usable=True):
        wait_until(lambda: self.writer.is_enabled(self.button(name)) == usable,
                   f"{name!r} is enabled: {usable}")

    def wait_for_ticked(self, count):
        """Waits until the recolour button shows this number of ticked rows."""
        caption = f"Přebarvit ({count})" if count else "Přebarvit"
        wait_until(lambda: self.button(caption),
                   f"the button says {caption!r}")

    def wait_for_select_all(self, state):
        """Waits until the box for all rows is ticked, grey or clear."""
        def states():
            box = self.part("Vše", AccessibleRole.CHECK_BOX)
            return [self.writer.has_state(box, one)
                    for one in (AccessibleStateType.CHECKED, AccessibleStateType.INDETERMINATE)]

        wanted = {"ticked": [True, False], "grey": [False, True], "clear": [False, False]}[state]
        wait_until(lambda: states() == wanted, f"the box for all rows is {state}")
