#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""What the user does to the shapes in the document while the recolour dialog holds them.

    dialog_changes_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3
        [unittest arguments]
"""

from case import run_tests
from dialog import BOX, CLOSE, NO_FILL, RECOLOUR, SELECT_ALL, SOURCE
from dialog_case import GREEN, RED, DialogCase
from office import office_version
from screen import wait_until

ERROR_BOX = "Chyba č. [0-9]+"
GROUP, UNGROUP = ".uno:FormatGroup", ".uno:FormatUngroup"
CUT, PASTE, DELETE = ".uno:Cut", ".uno:Paste", ".uno:Delete"
UNDO, REDO = ".uno:Undo", ".uno:Redo"
ANCHOR_TO_CHARACTER = ".uno:SetAnchorToChar"


class DialogChangesTest(DialogCase):
    def leaves(self):
        """The shapes in the document, including those in groups, that are not groups."""
        found = []

        def collect(shapes):
            for i in range(shapes.Count):
                shape = shapes.getByIndex(i)
                if shape.supportsService("com.sun.star.drawing.GroupShape"):
                    collect(shape)
                else:
                    found.append(shape)

        collect(self.frame.Controller.Model.DrawPage)
        return found

    def leaf_fills(self):
        """How many shapes there are of each colour; nothing for those without fill."""
        fills = [None if shape.FillStyle.value == "NONE" else shape.FillColor
                 for shape in self.leaves()]
        return {fill: fills.count(fill) for fill in fills}

    def wait_for_leaves(self, wanted, what):
        wait_until(lambda: self.leaf_fills() == wanted, f"{what}: {wanted}")

    def dispatch(self, *commands):
        for command in commands:
            self.writer.dispatch(self.frame, command)

    def select_red(self):
        self.writer.select(self.frame, *[shape for shape in self.leaves()
                                         if shape.FillColor == RED])

    def select_all(self):
        page = self.frame.Controller.Model.DrawPage
        self.writer.select(self.frame, *[page.getByIndex(i) for i in range(page.Count)])

    def check(self, change, before=(), red=2, found=True):
        """Scans two red and two green shapes, gives both rows no fill, changes the red shapes by
        commands of Writer, and recolours. Whether the red row still finds its shapes, and how many
        red ones there are, is what the change makes of them."""
        dialog = self.open([RED, GREEN])
        if before:
            self.select_red()
            self.dispatch(*before)
            self.select_all()
        dialog.add()
        for row in (1, 2):
            dialog.open_row_menu(row).pick(NO_FILL)
        dialog.click(SELECT_ALL)
        self.wait_for_ticked(2)
        self.select_red()
        self.dispatch(*change)
        left = {colour: count for colour, count in {RED: red, GREEN: 2}.items() if count}
        self.wait_for_leaves(left, "after the change")
        dialog.click(RECOLOUR)
        recoloured = {None: 4}
        if not found:
            self.answer_box(ERROR_BOX, "Return")
            recoloured = {fill: count for fill, count in {RED: red, None: 2}.items() if count}
        self.wait_for_leaves(recoloured, "recoloured")
        self.wait_until_usable("Přebarvit (2)")
        self.assertEqual(self.screen.windows_named(ERROR_BOX), [])
        self.dispatch(UNDO)
        self.wait_for_leaves(left, "undone")
        self.dispatch(REDO)
        self.wait_for_leaves(recoloured, "redone")
        steps = sum(-1 if command == UNDO else 1 for command in change)
        self.dispatch(UNDO, *[UNDO] * steps)
        self.wait_for_leaves({RED: 2, GREEN: 2}, "all undone")
        self.check_a_new_scan(dialog)

    def check_a_new_scan(self, dialog):
        """A new scan finds the shapes as they are now, whatever became of them."""
        dialog.click_row(1, SOURCE)
        self.screen.key("shift+Delete")
        dialog.wait_for_colours([self.background(dialog)] * 2)
        self.select_all()
        dialog.add()
        dialog.open_row_menu(1).pick(NO_FILL)
        dialog.click_row(1, BOX)
        self.wait_for_ticked(1)
        dialog.click(RECOLOUR)
        self.wait_for_leaves({None: 2, GREEN: 2}, "recoloured after a new scan")
        dialog.click(CLOSE)
        wait_until(lambda: not dialog.is_open(), "the dialog closes")
        self.assertEqual(self.writer.quit(), 0)

    def keeps_objects(self):
        """Whether shapes that enter or leave a group, or come back by Undo, stay the same objects
        in Writer. An older one makes new ones, and the old ones cannot be found again."""
        return office_version(self.options.office) >= (25, 2)

    def test_they_are_grouped(self):
        self.check([GROUP], found=self.keeps_objects())

    def test_they_are_ungrouped(self):
        self.check([UNGROUP], before=[GROUP], found=self.keeps_objects())

    def test_they_are_cut(self):
        self.check([CUT], red=0, found=False)

    def test_they_are_cut_and_pasted(self):
        self.check([CUT, PASTE], found=False)

    def test_they_are_deleted(self):
        self.check([DELETE], red=0, found=False)

    def test_they_are_deleted_and_brought_back(self):
        self.check([DELETE, UNDO], found=self.keeps_objects())

    def test_they_are_grouped_and_that_is_undone(self):
        self.check([GROUP, UNDO], found=self.keeps_objects())

    def test_they_are_anchored_elsewhere(self):
        self.check([ANCHOR_TO_CHARACTER])


if __name__ == "__main__":
    run_tests(__doc__)
