#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""The tool bar in Writer's window, used as its user does: by mouse and keys, on a screen.

    window_test.py --office SOFFICE --extensions FOLDER --plugin gen|gtk3 [unittest arguments]
"""

import glob
import os
import signal
import subprocess
import sys
from pathlib import Path

import uno
from com.sun.star.awt import Point

from case import WriterCase, run_tests
from screen import wait_until
from writer import BAR_NAME

RED, BLUE, GREEN, BLACK = 0xFF0000, 0x0000FF, 0x00FF00, 0x000000
BY_FILL, BY_LINE, CHANGE_FILLS = "Dle výplne", "Dle čáry", "Změnit výplně"
BY_FILL_TOTAL = "Celkový počet všech vybraných objektů se shodným typem výplně.. "
BY_LINE_TOTAL = "Celkový počet všech vybraných objektů se stejnou barvou čáry.. "
BY_LINE_NONE = "Nebyly nalezeny žádné jiné objekty se shodnou barvou čáry!"
WRONG_SELECTION = "Nesprávný výběr"
NONE_SELECTED = (
    "Není vybrán vzorový grafický prvkek!\n\n"
    "Označ libovolný grafický prvek obrázku, jehož výplň bude použita pro nalezení ostatních "
    "prvků v obrázku a spusť nástroj znovu.")
SEVERAL_SELECTED = (
    "Je vybráno více vzorových grafických prvků!\n\n"
    "Označ pouze jeden libovolný grafický prvek obrázku, jehož barva čáry bude použita pro "
    "nalezení ostatních prvků v obrázku a spusť nástroj znovu.")


def colour_count(pixels, wanted, tolerance=24):
    """How many pixels are about of a colour (0xRRGGBB)."""
    parts = wanted >> 16, wanted >> 8 & 0xFF, wanted & 0xFF
    return sum(
        all(abs(pixels[i + k] - parts[k]) <= tolerance for k in range(3))
        for i in range(0, len(pixels), 3))


class WindowTest(WriterCase):
    def forget_setting(self, key):
        """Removes a setting of the bar's place from the profile. REQUIRES: no Writer runs."""
        path = os.path.join(self._folder.name, "profile/user/registrymodifications.xcu")
        with open(path, encoding="utf-8") as file:
            lines = file.readlines()
        left = [line for line in lines if f"Huebrush.ToolBarPosition.{key}" not in line]
        self.assertEqual(len(left), len(lines) - 1)
        with open(path, "w", encoding="utf-8") as file:
            file.writelines(left)

    def status_picture(self, writer, text):
        """What the status bar looks like with a text."""
        before = writer.status_pixels()
        indicator = writer.frame().createStatusIndicator()
        indicator.start(text, 0)
        picture = self.settled(writer.status_pixels, but=before)
        indicator.end()
        wait_until(lambda: writer.status_pixels() != picture, "the status text is gone")
        return picture

    @staticmethod
    def settled(picture, but):
        """A picture that differs from `but` and is the same twice in a row."""
        last = [but]

        def is_settled():
            now, previous = picture(), last[0]
            last[0] = now
            return now if now == previous and now != but else None

        return wait_until(is_settled, "the screen settles")

    def assert_selection(self, writer, frame, shapes):
        names = sorted(shape.Name for shape in shapes)
        wait_until(lambda: writer.selected_names(frame) == names,
                   f"selected are {names}, not {writer.selected_names(frame)}")

    # The bar and its buttons.

    def test_the_bar_has_three_buttons_with_their_captions(self):
        writer = self.start()
        buttons = writer.buttons()
        self.assertEqual(list(buttons), [BY_FILL, BY_LINE, CHANGE_FILLS])
        self.assertEqual([writer.is_enabled(button) for button in buttons.values()],
                         [True, True, True])

    def test_each_button_has_its_tooltip(self):
        writer = self.start()
        self.assertEqual(writer.tooltips(), [
            "Vybere všechny ostatní grafické objekty se shodným typem výplně jako je právě "
            "zvolený objekt",
            "Vybere všechny ostatní grafické objekty se shodnou barvou čáry jako je právě "
            "zvolený objekt",
            "Zobrazí dialog hromadné záměny výplně grafických objektů"])

    def test_each_button_shows_its_icon(self):
        writer = self.start()
        buttons = writer.buttons()
        blue, red, green = 0x2F7DE1, 0xD93A2B, 0x2FA866

        def picture(caption):
            return self.screen.pixels(*writer.place_of(buttons[caption]))

        def shows(caption, wanted, unwanted):
            pixels = picture(caption)
            return colour_count(pixels, wanted) > 20 and colour_count(pixels, unwanted) == 0

        wait_until(lambda: shows(BY_FILL, blue, red), "the first icon is painted")
        wait_until(lambda: shows(BY_LINE, red, blue), "the second icon is painted")
        wait_until(lambda: shows(CHANGE_FILLS, green, red), "the third icon is painted")

    # The selection commands.

    def test_a_click_selects_all_shapes_of_the_same_fill(self):
        writer = self.start()
        frame = writer.frame()
        sample = writer.add_shape(frame, (0, 0), RED, BLACK)
        same = [writer.add_shape(frame, (1, 0), RED), writer.add_shape(frame, (2, 0), RED, BLUE)]
        writer.add_shape(frame, (0, 1), BLUE, BLACK)
        writer.add_shape(frame, (1, 1), None, BLACK)
        status = self.status_picture(writer, BY_FILL_TOTAL + "3.")
        self.assertNotEqual(status, self.status_picture(writer, BY_FILL_TOTAL + "4."))
        writer.select(frame, sample)
        writer.click_button(BY_FILL)
        self.assert_selection(writer, frame, [sample, *same])
        wait_until(lambda: writer.status_pixels() == status, "the status bar shows the total")

    def test_a_click_selects_all_shapes_of_the_same_line(self):
        writer = self.start()
        frame = writer.frame()
        sample = writer.add_shape(frame, (0, 0), RED, GREEN)
        same = [writer.add_shape(frame, (1, 0), BLUE, GREEN, "Ellipse"),
                writer.add_shape(frame, (2, 0), None, GREEN)]
        writer.add_shape(frame, (0, 1), RED, BLACK)
        writer.add_shape(frame, (1, 1), RED)
        status = self.status_picture(writer, BY_LINE_TOTAL + "3.")
        writer.select(frame, sample)
        writer.click_button(BY_LINE)
        self.assert_selection(writer, frame, [sample, *same])
        wait_until(lambda: writer.status_pixels() == status, "the status bar shows the total")

    def test_a_shape_unlike_all_others_stays_selected_alone_until_the_user_goes_on(self):
        writer = self.start()
        frame = writer.frame()
        sample = writer.add_shape(frame, (0, 0), RED, GREEN)
        writer.add_shape(frame, (1, 0), RED, BLACK)
        status = self.status_picture(writer, BY_LINE_NONE)
        writer.select(frame, sample)
        writer.click_button(BY_LINE)
        wait_until(lambda: writer.status_pixels() == status, "the status bar says so")
        self.assert_selection(writer, frame, [sample])
        self.screen.key("Escape")
        wait_until(lambda: writer.status_pixels() != status, "the status text makes way")

    def test_hundreds_of_shapes_are_selected_at_once(self):
        writer = self.start()
        frame = writer.frame()
        shapes = [writer.add_shape(frame, (i % 14, i // 14), (RED, BLUE)[i % 2])
                  for i in range(250)]
        writer.select(frame, shapes[0])
        writer.click_button(BY_FILL)
        self.assert_selection(writer, frame, shapes[::2])

    def test_shapes_that_are_not_laid_out_yet_are_selected_too(self):
        path = os.path.join(self._folder.name, "shapes.fodt")
        maker = Path(__file__).resolve().parents[2] / "bench" / "make_document.py"
        subprocess.run([sys.executable, str(maker), path, "--shapes", "4000", "--fills", "8"],
                       check=True)
        writer = self.start()
        frame = writer.open_document(path)
        wait_until(lambda: writer.bar(frame), "the window has the bar")
        writer.select(frame, frame.Controller.Model.DrawPage.getByIndex(0))
        writer.click_button(BY_FILL, frame)
        wait_until(lambda: len(writer.selected_names(frame)) == 500, "an eighth is selected")

    def test_without_a_selection_a_box_says_so_and_a_key_closes_it(self):
        writer = self.start()
        frame = writer.frame()
        writer.add_shape(frame, (0, 0), RED)
        writer.click_button(BY_FILL)
        wait_until(lambda: self.screen.windows_named(WRONG_SELECTION), "the box appears")
        self.assertIn(NONE_SELECTED, writer.box_texts(WRONG_SELECTION))
        self.assertEqual(self.warning_buttons(writer), ["OK"])
        self.screen.key("Return")
        wait_until(lambda: not self.screen.windows_named(WRONG_SELECTION), "the key closes it")

    def test_with_two_selected_a_box_says_so_and_the_selection_stays(self):
        writer = self.start()
        frame = writer.frame()
        shapes = [writer.add_shape(frame, (i, 0), RED, BLACK) for i in range(3)]
        writer.select(frame, *shapes[:2])
        writer.click_button(BY_LINE)
        wait_until(lambda: self.screen.windows_named(WRONG_SELECTION), "the box appears")
        self.assertIn(SEVERAL_SELECTED, writer.box_texts(WRONG_SELECTION))
        self.screen.key("Escape")
        wait_until(lambda: not self.screen.windows_named(WRONG_SELECTION), "the key closes it")
        self.assert_selection(writer, frame, shapes[:2])

    @staticmethod
    def warning_buttons(writer):
        return [text for text in writer.box_texts(WRONG_SELECTION) if text in ("OK", "Cancel")]

    # Windows.

    def test_a_click_acts_on_the_document_of_its_window(self):
        writer = self.start()
        first = writer.frame()
        documents = {}
        for frame in (first, writer.new_document(), writer.new_document(hidden=True)):
            documents[frame.Title] = [writer.add_shape(frame, (i, 0), RED) for i in range(3)]
            writer.select(frame, documents[frame.Title][0])
        second = next(frame for frame in writer.frames() if frame.Title != first.Title)
        wait_until(lambda: writer.bar(second), "the second window has the bar")

        for frame, other in ((second, first), (first, second)):
            for window in (first, second):
                writer.select(window, documents[window.Title][0])
            self.screen.focus(writer.window_of(frame))
            writer.click_button(BY_FILL, frame)
            self.assert_selection(writer, frame, documents[frame.Title])
            self.assert_selection(writer, other, documents[other.Title][:1])

    def test_when_a_window_closes_the_one_before_it_is_active_again(self):
        writer = self.start()
        first = writer.frame()
        shapes = [writer.add_shape(first, (i, 0), RED) for i in range(3)]
        writer.select(first, shapes[0])
        second = writer.new_document()
        wait_until(lambda: writer.bar(second), "the second window has the bar")
        self.screen.focus(writer.window_of(second))
        self.screen.key("ctrl+w")
        wait_until(lambda: len(writer.frames()) == 1, "the second window closes")
        # Not by a click, which would itself make its window the active one.
        writer.dispatch(writer.desktop, "vnd.huebrush:SellFill")
        self.assert_selection(writer, first, shapes)

    # From run to run.

    def test_the_bar_keeps_its_edge_over_a_restart(self):
        writer = self.start()
        bottom = uno.Enum("com.sun.star.ui.DockingArea", "DOCKINGAREA_BOTTOM")
        writer.frame().LayoutManager.dockWindow(writer.bar_url(), bottom, Point(0, 0))
        wait_until(lambda: self.top_of_bar(writer) > self.screen.HEIGHT // 2,
                   "the bar is at the bottom")
        self.assertEqual(writer.quit(), 0)
        writer = self.start()
        wait_until(lambda: self.top_of_bar(writer) > self.screen.HEIGHT // 2,
                   "the bar is at the bottom again")
        self.assertEqual(list(writer.buttons()), [BY_FILL, BY_LINE, CHANGE_FILLS])

    def test_a_floating_bar_keeps_its_place_over_a_restart(self):
        writer = self.start()
        layout, url = writer.frame().LayoutManager, writer.bar_url()
        layout.unlockWindow(url)

        def moved():
            # What is asked for while the office lays its bars out is lost, as is a move before the
            # bar's own window is on the screen.
            if not layout.isElementFloating(url):
                layout.floatWindow(url)
            layout.setElementPos(url, Point(400, 500))
            return self.floats_near(writer, 400, 500)

        wait_until(moved, "the bar floats")
        self.assertEqual(writer.quit(), 0)
        writer = self.start()
        wait_until(lambda: self.floats_near(writer, 400, 500), "the bar floats there again")

    def test_a_place_that_cannot_be_read_is_reported_and_the_user_chooses(self):
        self.assertEqual(self.start().quit(), 0)
        for key in ("Left", "Top", "RowIndex"):
            self.forget_setting(key)
        retry, ignore, abort = "alt+r", "alt+i", "Escape"

        def choose():
            title = "Chyba č. 13"
            left = self.answer_box(title, retry)
            left += self.answer_box(title, ignore, unlike=left)
            # Of the row it is no longer asked.
            self.answer_box(title, abort, unlike=left)

        writer = self.start(meanwhile=choose)
        self.assertEqual(list(writer.buttons()), [BY_FILL, BY_LINE, CHANGE_FILLS])
        self.assertEqual(self.screen.windows_named("Chyba č. 13"), [])

    def test_nothing_of_the_bar_is_left_after_the_end(self):
        writer = self.start()
        self.assertIsNotNone(writer.bar_url())
        self.assertEqual(writer.quit(), 0)
        self.assertEqual(self.stored_bars(), [])
        self.assertIsNone(self.start(extensions=False).bar_url())

    def test_after_a_session_that_was_killed_the_bar_is_whole_and_goes_at_the_end(self):
        writer = self.start()
        tooltips = writer.tooltips()
        self.assertEqual(len(tooltips), 3)
        settings = Path(self._folder.name, "profile/user/registrymodifications.xcu")
        wait_until(lambda: "ChangeFillWizard" in settings.read_text(encoding="utf-8"),
                   "the settings are on the disk")
        os.killpg(writer.pid, signal.SIGKILL)
        self.assertTrue(writer.wait_for_end(30.0))
        self.assertNotEqual(self.stored_bars(), [])
        writer = self.start()
        self.assertEqual(list(writer.buttons()), [BY_FILL, BY_LINE, CHANGE_FILLS])
        wait_until(lambda: writer.tooltips() == tooltips, "the buttons have their tool tips")
        self.assertEqual(writer.quit(), 0)
        self.assertEqual(self.stored_bars(), [])
        self.assertIsNone(self.start(extensions=False).bar_url())

    def stored_bars(self):
        """What is in the profile of bars that are not the office's own."""
        module = os.path.join(self._folder.name, "profile/user/config/soffice.cfg/modules/swriter")
        return glob.glob(module + "/toolbar/*") + glob.glob(module + "/images/**/*.png",
                                                            recursive=True)

    def floats_near(self, writer, left, top):
        """Whether the office, its settings and the screen agree on that. A window manager may
        count the bar's title once more or once less."""
        layout, url = writer.frame().LayoutManager, writer.bar_url()
        if not layout.isElementFloating(url):
            return False
        place, kept = layout.getElementPos(url), writer.kept_place(url)
        places = [(place.X, place.Y), (kept.X, kept.Y)]
        if self.options.plugin == "gtk3":  # The other one does not name the bar's window.
            windows = writer.screen.windows_named(BAR_NAME)
            places.append(writer.screen.place_of(windows[0])[:2] if windows else (-1, -1))
        return all(abs(x - left) < 10 and abs(y - top) < 40 for x, y in places)

    def top_of_bar(self, writer):
        return writer.place_of(next(iter(writer.buttons().values())))[1]


if __name__ == "__main__":
    run_tests(__doc__)
