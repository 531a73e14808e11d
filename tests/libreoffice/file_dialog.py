# SPDX-License-Identifier: MPL-2.0
"""The office's own dialog for a file."""

from screen import comes_soon, wait_until


class FileDialog:
    """One that opens, with the keyboard in the field for the file's name."""

    def __init__(self, screen, title):
        self.screen = screen
        self.title = title
        self.window = wait_until(self._windows, f"{title!r} opens", 60.0)[0]
        screen.focus(self.window)

    def _windows(self):
        return self.screen.windows_named(self.title.replace(".", "[.]"))

    def _is_over(self):
        return self.window not in self._windows()

    def choose(self, path):
        """Types a path and confirms it."""
        self._type(path)
        self._end_by_key("Return")

    def _type(self, path):
        """One of the toolkits selects the field once more when it has listed the folder, and what
        was typed before is overwritten: so it is typed twice."""
        for _ in range(2):
            self.screen.key("ctrl+a")
            self.screen.type(str(path))

    def cancel(self):
        self._end_by_key("Escape")

    def _end_by_key(self, key):
        def is_over():
            if not self._is_over():
                self.screen.ask_for_focus(self.window)
                self.screen.key(key)
            return comes_soon(self._is_over)

        wait_until(is_over, f"{self.title!r} closes at {key}")
