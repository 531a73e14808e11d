# SPDX-License-Identifier: MPL-2.0
"""The add-in's commands in the window of the stand-in for Word, with a real mouse and keys.
window_case.py says how it is started."""

from window_case import WindowCase, run_tests, wait_until
from dialog import LOGO, Dialog
from stand_in import BY_FILL, BY_LINE, CHANGE_FILLS

RED, GREEN = 0x0000FF, 0x00FF00
PICTURE = f"shapes={RED},{GREEN},{RED}"


class Window(WindowCase):
    def test_the_buttons_select_what_looks_the_same(self):
        for button in (BY_FILL, BY_LINE):
            with self.subTest(button=button):
                with self.start(PICTURE) as word:
                    word.step("select=#1")
                    word.click_button(button)
                    wanted = ["#1", "#3"] if button == BY_FILL else ["#1", "#2", "#3"]
                    wait_until(lambda: word.selected() == wanted, "the same are selected")
                self.assertTrue(word.ended_well(), word.said[-20:])

    def test_a_wrong_selection_is_reported_in_a_box_over_the_window(self):
        title = "Nesprávný výběr"
        with self.start(PICTURE) as word:
            word.click_button(BY_FILL)
            box = self.box(title)
            self.assertFalse(self.screen.windows_named("Chyba"))
            # The host goes on meanwhile.
            self.assertEqual(word.fills(), [RED, GREEN, RED])
            self.close_by_return(box, title)
            self.assertEqual(word.selected(), ["#1", "#2", "#3"])
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_word_may_let_go_of_the_add_in_while_its_dialog_is_open(self):
        with self.start(PICTURE) as word:
            word.click_button(CHANGE_FILLS)
            dialog = Dialog(self.screen)
            word.step("disconnect")
            wait_until(lambda: not dialog.is_open(), "the dialog goes with the add-in")
            self.assertEqual(word.fills(), [RED, GREEN, RED])
        self.assertTrue(word.ended_well(), word.said[-20:])

    def test_word_may_let_go_of_the_add_in_while_a_modal_form_is_open(self):
        title = " ?O doplňku Huebrush"
        with self.start(PICTURE) as word:
            word.click_button(CHANGE_FILLS)
            dialog = Dialog(self.screen)
            dialog.click(LOGO)
            self.box(title)
            word.step("disconnect")
            wait_until(lambda: not self.screen.windows_named(title), "the about box goes, too")
            wait_until(lambda: not dialog.is_open(), "the dialog goes with the add-in")
            self.assertEqual(word.fills(), [RED, GREEN, RED])
        self.assertTrue(word.ended_well(), word.said[-20:])


if __name__ == "__main__":
    run_tests()
