#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""What happens around the open recolour dialog in Writer: other documents, shapes that go, Undo,
and the end of Writer.

    dialog_robust_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3
        [unittest arguments]
"""

import os

from case import run_tests
from dialog import BOX, COLOUR, DESTINATION, DONE, LOOK, NO_FILL, RECOLOUR, SELECT_ALL, ADD
from dialog_case import BLUE, GREEN, RED, DialogCase
from screen import wait_until

ERROR_BOX = "Chyba č. [0-9]+"
BY_FILL = "Dle výplne"
ORANGE = 0xE07020


class DialogRobustTest(DialogCase):
    def without_fill(self, dialog, *rows):
        """Gives rows no fill and ticks them."""
        for row in rows:
            dialog.open_row_menu(row).pick(NO_FILL)
            dialog.click_row(row, BOX)
        self.wait_for_ticked(len(rows))

    def undo(self):
        self.screen.focus(self.writer.window_of(self.frame))
        self.screen.key("ctrl+z")

    # The documents.

    def test_the_document_changes_and_is_stored(self):
        dialog = self.open_filled([RED, GREEN])
        more = self.writer.add_shape(self.frame, (5, 0), BLUE)
        path = os.path.join(self._folder.name, "stored.odt")
        self.frame.Controller.Model.storeAsURL("file://" + path, ())
        self.assertTrue(os.path.exists(path))
        self.without_fill(dialog, 2)
        dialog.click(RECOLOUR)
        self.wait_for_fills([RED, RED, None, None], "the green ones lose their fill")
        self.assertEqual(more.FillColor, BLUE)
        self.assertTrue(self.frame.Controller.Model.isModified())
        self.writer.select(self.frame, more)
        dialog.add()
        dialog.wait_for_colours([RED, self.background(dialog), BLUE])

    def test_another_document_becomes_active(self):
        dialog = self.open_filled([RED, GREEN])
        second = self.writer.new_document()
        stranger = self.writer.add_shape(second, (0, 0), GREEN)
        self.screen.focus(self.writer.window_of(second))
        self.screen.focus(dialog.window)
        self.without_fill(dialog, 2)
        self.screen.focus(self.writer.window_of(self.frame))
        self.screen.focus(dialog.window)
        dialog.click(RECOLOUR)
        self.wait_for_fills([RED, RED, None, None], "the green ones lose their fill")
        self.assertEqual(stranger.FillColor, GREEN)
        second.Controller.Model.setModified(False)
        second.close(True)
        wait_until(lambda: len(self.writer.frames()) == 1, "one window is left")
        dialog.wait_for_colours([RED, self.background(dialog)])
        self.assertEqual(self.writer.quit(), 0)

    def test_a_read_only_document_is_not_recoloured(self):
        dialog = self.open_filled([RED, GREEN])
        model = self.frame.Controller.Model
        model.storeAsURL("file://" + os.path.join(self._folder.name, "stored.odt"), ())
        self.writer.dispatch(self.frame, ".uno:EditDoc")
        wait_until(model.isReadonly, "the document is read-only")
        self.without_fill(dialog, 2)
        dialog.click(RECOLOUR)
        self.answer_box("Huebrush", "Return")
        self.wait_until_usable("Přebarvit (1)")
        self.assertEqual(self.fills(), [RED, RED, GREEN, GREEN])
        self.assertEqual(self.recolour_entries(), 0)
        self.writer.select(self.frame, self.shapes[2])
        self.writer.click_button(BY_FILL)
        names = sorted(shape.Name for shape in self.shapes[2:])
        wait_until(lambda: self.writer.selected_names(self.frame) == names,
                   "the green ones are selected")
        self.writer.dispatch(self.frame, ".uno:EditDoc")
        wait_until(lambda: not model.isReadonly(), "the document may be changed again")
        dialog.click(RECOLOUR)
        self.wait_for_fills([RED, RED, None, None], "the green ones lose their fill")

    # Shapes.

    def test_missing_shapes_are_reported_and_the_others_are_recoloured(self):
        dialog = self.open_filled([RED, GREEN, BLUE])
        page = self.frame.Controller.Model.DrawPage
        for shape in self.shapes[2:4]:
            page.remove(shape)
        del self.shapes[2:4]
        self.without_fill(dialog, 1, 2, 3)
        dialog.click(RECOLOUR)
        self.answer_box(ERROR_BOX, "Return")
        self.wait_for_fills([None] * 4, "the others lose their fill")
        self.wait_until_usable("Přebarvit (3)")
        self.assertEqual(self.screen.windows_named(ERROR_BOX), [])
        self.undo()
        self.wait_for_fills([RED, RED, BLUE, BLUE], "one step undoes the rest")
        self.assertEqual(self.writer.quit(), 0)

    def test_undo_and_a_second_recolour(self):
        dialog = self.open_filled([RED, GREEN])
        self.without_fill(dialog, 2)
        dialog.click(RECOLOUR)
        self.wait_for_fills([RED, RED, None, None], "the green ones lose their fill")
        self.undo()
        self.wait_for_fills([RED, RED, GREEN, GREEN], "it is undone")
        self.screen.focus(dialog.window)
        dialog.open_row_menu(2).pick(NO_FILL)
        dialog.open_row_menu(2).pick(NO_FILL)
        dialog.open_row_menu(1).pick(NO_FILL)
        dialog.click(SELECT_ALL)
        dialog.click(SELECT_ALL)
        dialog.wait_for_colours([self.background(dialog)] * 2, DESTINATION)
        dialog.click(RECOLOUR)
        self.wait_for_fills([None] * 4, "all lose their fill")
        self.undo()
        self.wait_for_fills([RED, RED, GREEN, GREEN], "it is undone")
        wait_until(dialog.is_open, "the dialog stays open")

    # While a tool is open.

    def check_that_waits(self, dialog, tool):
        """While a tool is open, the dialog gets no input, and Writer does not quit."""
        before = self.screen.windows()
        left, top, width, height = self.screen.bounds_of(tool.window)
        for place in (dialog.in_row(1, BOX), dialog.in_row(2, BOX), ADD, SELECT_ALL):
            x, y = dialog.on_screen(place)
            if not (left <= x < left + width and top <= y < top + height):
                dialog.click(place)
        self.assertFalse(self.writer.desktop.terminate())
        self.writer.dispatch(self.frame, ".uno:Quit")
        wait_until(tool.is_open, "the tool stays open")
        self.assertEqual(self.screen.windows() - before, set())

    def check_tool(self, item):
        dialog = self.open_filled([RED, GREEN])
        for frame in self.writer.frames():
            frame.Controller.Model.setModified(False)
        tool = self.open_tool(dialog, 2, item, GREEN)
        self.check_that_waits(dialog, tool)
        self.screen.focus(tool.window)
        tool.choose(ORANGE)
        tool.confirm()
        dialog.wait_for_colours([RED, ORANGE], DESTINATION)
        self.wait_for_ticked(0)
        self.assertEqual(self.writer.quit(), 0)

    def test_writer_waits_for_the_colour_dialog(self):
        self.check_tool(COLOUR)

    def test_writer_waits_for_the_area_dialog(self):
        self.check_tool(LOOK)

    def test_writer_waits_for_a_message(self):
        dialog = self.open([RED, GREEN])
        dialog.click(ADD)
        wait_until(lambda: self.screen.windows_named(DONE), "the scan is over")
        self.assertFalse(self.writer.desktop.terminate())
        self.answer_box(DONE, "Return")
        dialog.wait_for_colours([RED, GREEN])
        self.assertEqual(self.writer.quit(), 0)


if __name__ == "__main__":
    run_tests(__doc__)
