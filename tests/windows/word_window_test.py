# SPDX-License-Identifier: MPL-2.0
"""The add-in's commands in the window of the stand-in for Word, with a real mouse and keys.
window_case.py says how it is started."""

from window_case import WindowCase, run_tests, wait_until
from stand_in import BY_FILL, BY_LINE

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


if __name__ == "__main__":
    run_tests()
