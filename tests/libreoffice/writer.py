# SPDX-License-Identifier: MPL-2.0
"""Writer in a window, with our extension: its documents over UNO, its window by mouse and keys."""

import os
import re
import sys
import threading
from functools import partial
from pathlib import Path

import uno
from com.sun.star.accessibility import AccessibleStateType
from com.sun.star.awt import Point, Size
from com.sun.star.beans import PropertyValue
from com.sun.star.drawing.FillStyle import NONE as NO_FILL
from com.sun.star.drawing.FillStyle import SOLID
from com.sun.star.drawing.LineStyle import NONE as NO_LINE
from com.sun.star.drawing.LineStyle import SOLID as SOLID_LINE
from com.sun.star.frame.FrameSearchFlag import CHILDREN
from com.sun.star.lang import DisposedException, IndexOutOfBoundsException
from com.sun.star.text.TextContentAnchorType import AT_PAGE
from com.sun.star.uno import RuntimeException

from screen import wait_until

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))

from office import Office  # noqa: E402
from private_office import Callback, context_behind  # noqa: E402

BAR_NAME = "Huebrush"
ASK_TO_QUIT_AGAIN = 10.0
START_LIMIT = 60.0
STARTS = 3
STATUS_BAR = "private:resource/statusbar/statusbar"


def accessibles(element, count):
    """The accessible objects of elements 0 to count - 1; those that have gone since they were
    counted are omitted."""
    for index in range(count):
        try:
            found = element(index)
            accessible = None if found is None else found.getAccessibleContext()
        except (IndexOutOfBoundsException, DisposedException):
            continue
        if accessible is not None:
            yield accessible


def children_of(accessible):
    return accessibles(accessible.getAccessibleChild, accessible.getAccessibleChildCount())


def shows_text_document(frame):
    """Not when it is closing, and has no document or no window any more."""
    try:
        controller, window = frame.Controller, frame.ContainerWindow
        model = None if controller is None else controller.Model
        return (model is not None and window is not None and window.isVisible()
                and model.supportsService("com.sun.star.text.TextDocument"))
    except DisposedException:
        return False


class WriterHangs(Exception):
    """Writer has taken a connection and says no more."""


class Writer(Office):
    """Entering starts Writer with a document and connects to it. The profile stays in
    `folder`, so that a second Writer finds what the first has left.

    has_bar      whether an extension is to show our bar before the window counts as complete
    meanwhile    what the user does while Writer starts, before it answers
    document     the file to open; without one the document is a new one
    """

    def __init__(self, screen, program, folder, extensions, plugin, has_bar=True,
                 meanwhile=None, document=None):
        self._pipe = f"{os.path.basename(folder)}-{plugin}"
        super().__init__(program, folder, extensions=extensions, plugin=plugin,
                         arguments=[document or "--writer", f"--accept=pipe,name={self._pipe};urp"],
                         environment=screen.environment)
        self._has_bar = extensions is not None and has_bar
        self._meanwhile = meanwhile
        self.screen = screen
        self.context = None
        self.desktop = None

    def __enter__(self):
        self.context = self._start()
        try:
            self.desktop = self.create("com.sun.star.frame.Desktop")
            wait_until(self.frames, "Writer has a window", START_LIMIT)
            self.maximise(self.frame())
            if self._has_bar:
                wait_until(self.bar, "Writer's window shows the bar", START_LIMIT)
        except BaseException:
            self.__exit__()
            raise
        return self

    def _start(self):
        """Writer's context. LibreOffice 25.2 hangs once in some hundred starts when the first
        connection comes just as its first window is made accessible: each of two threads holds a
        lock that the other one waits for. It is then started again."""
        for _ in range(STARTS):
            super().__enter__()
            try:
                if self._meanwhile is not None:
                    self._meanwhile()
                return self._connect_or_kill()
            except WriterHangs:
                self.__exit__()
                print("Writer hung at its start; it is started again.", file=sys.stderr)
            except BaseException:
                self.__exit__()
                raise
        raise AssertionError(f"Writer hung at {STARTS} starts")

    def _connect_or_kill(self):
        """Only the end of the office ends a call that it does not answer."""
        has_hung = threading.Event()

        def end_hang():
            has_hung.set()
            self.kill()

        watchdog = threading.Timer(1.5 * START_LIMIT, end_hang)
        watchdog.start()
        try:
            return wait_until(self._connect, "Writer answers", START_LIMIT)
        except AssertionError:
            if has_hung.is_set():
                raise WriterHangs from None
            raise
        finally:
            watchdog.cancel()

    def _connect(self):
        context = context_behind(self._pipe)
        if context is None and not self.running():
            raise AssertionError("Writer ended while it was starting")
        return context

    def create(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    # Windows and documents.

    def frames(self):
        """The frames of the visible text documents, all asked for at once: one that closes
        meanwhile is no longer among them."""
        return list(filter(shows_text_document, self.desktop.Frames.queryFrames(CHILDREN)))

    def frame(self):
        return self.frames()[0]

    def window_of(self, frame):
        """The screen's window of a frame."""
        title = re.sub(r"([][(){}.*+?^$|\\])", r"\\\1", frame.Title)
        return wait_until(lambda: self.screen.windows_named(title),
                          f"{frame.Title} is on the screen")[0]

    def maximise(self, frame):
        """Where a window manager puts a window of which size is its own affair."""
        self.screen.fill_with(self.window_of(frame))

    def new_document(self, hidden=False):
        """A further document; its frame."""
        frame = self._open("private:factory/swriter", hidden)
        if not hidden:
            self.maximise(frame)
        return frame

    def open_document(self, path):
        """A further document, from a file; its frame, of which the contents may not be laid out."""
        return self._open(uno.systemPathToFileUrl(path))

    def _open(self, url, hidden=False):
        document = self.desktop.loadComponentFromURL(
            url, "_blank", 0,
            # A window made on another thread can wait for the clipboard forever.
            (PropertyValue("Hidden", 0, hidden, 0), PropertyValue("OnMainThread", 0, True, 0)))
        return document.CurrentController.Frame

    def add_shape(self, frame, place, fill=None, line=None, kind="Rectangle"):
        """A shape in column and row `place` of a grid, with solid colours (0xRRGGBB) or without
        fill or line."""
        document = frame.Controller.Model
        shape = document.createInstance(f"com.sun.star.drawing.{kind}Shape")
        shape.AnchorType = AT_PAGE
        shape.AnchorPageNo = 1
        shape.Size = Size(900, 900)
        document.DrawPage.add(shape)
        shape.Position = Point(2500 + 1200 * place[0], 2500 + 1200 * place[1])
        if fill is None:
            shape.FillStyle = NO_FILL
        else:
            shape.FillStyle = SOLID
            shape.FillColor = fill
        if line is None:
            shape.LineStyle = NO_LINE
        else:
            shape.LineStyle = SOLID_LINE
            shape.LineColor = line
        return shape

    def select(self, frame, *shapes):
        collection = self.create("com.sun.star.drawing.ShapeCollection")
        for shape in shapes:
            collection.add(shape)
        frame.Controller.select(collection)

    def selected_names(self, frame):
        """The sorted names of the selected shapes."""
        selection = frame.Controller.Selection
        if selection is None or not selection.supportsService("com.sun.star.drawing.Shapes"):
            return []
        return sorted(selection.getByIndex(i).Name for i in range(selection.Count))

    def quit(self, limit=30.0):
        """Ends Writer the way its menu does, giving up unsaved changes; the exit code. While
        something of ours is still closing Writer stays, and the user asks again."""
        ended = any(self._ends_when_asked() for _ in range(int(limit / ASK_TO_QUIT_AGAIN)))
        self.context = self.desktop = None
        if not ended:
            raise AssertionError("Writer does not end")
        return self.exit_code

    def _ends_when_asked(self):
        try:
            frames = self.frames()
            for frame in frames:
                frame.Controller.Model.setModified(False)
            for frame in frames[:1]:
                self._run_on_main_thread(partial(self.dispatch, frame, ".uno:Quit"))
        except (DisposedException, RuntimeException, SystemError):
            pass  # It was gone before it could answer.
        return self.wait_for_end(ASK_TO_QUIT_AGAIN)

    def _run_on_main_thread(self, function):
        """Has the office call the function back on its main thread, where the user's own commands
        run: on another one, an end meets bars that still ask a closed document for its state."""
        self.create("com.sun.star.awt.AsyncCallback").addCallback(Callback(function), None)

    def dispatch(self, frame, command):
        """Runs a command of a menu. A modal box that it opens does not hold this call up."""
        helper = self.create("com.sun.star.frame.DispatchHelper")
        helper.executeDispatch(frame, command, "", 0, ())

    # The bar.

    def _bar_configuration(self):
        supplier = self.context.getValueByName(
            "/singletons/com.sun.star.ui.theModuleUIConfigurationManagerSupplier")
        return supplier.getUIConfigurationManager("com.sun.star.text.TextDocument")

    def tooltips(self):
        """The tooltips of our bar's buttons, as the office keeps them."""
        items = self._bar_configuration().getSettings(self.bar_url(), False)
        return [value.Value for i in range(items.Count) for value in items.getByIndex(i)
                if value.Name == "Tooltip"]

    def bar_url(self):
        """The resource of our bar in the office's configuration, or nothing."""
        toolbars = 3
        for information in self._bar_configuration().getUIElementsInfo(toolbars):
            values = {value.Name: value.Value for value in information}
            if values.get("UIName") == BAR_NAME:
                return values["ResourceURL"]
        return None

    def kept_place(self, url):
        """Where the office's settings say that a floating bar is."""
        states = self.create("com.sun.star.ui.WindowStateConfiguration").getByName(
            "com.sun.star.text.TextDocument")
        return next(value.Value for value in states.getByName(url) if value.Name == "Pos")

    def bar(self, frame=None):
        """The accessible object of our bar in a window, or nothing."""
        url = self.bar_url()
        if url is None:
            return None
        return self.accessible_element(frame or self.frame(), url)

    def accessible_element(self, frame, url):
        element = frame.LayoutManager.getElement(url)
        if element is None or element.RealInterface is None:
            return None
        return element.RealInterface.getAccessibleContext()

    def buttons(self, frame=None):
        """The accessible objects of our bar's buttons by their captions, in their order."""
        bar = self.bar(frame)
        return {child.getAccessibleName(): child for child in children_of(bar)}

    @staticmethod
    def has_state(accessible, state):
        """Whether an accessible object has a state, one of AccessibleStateType."""
        states = accessible.getAccessibleStateSet()
        # A number with a bit for each state since LibreOffice 7.5, an object before.
        return bool(states & state) if isinstance(states, int) else states.contains(state)

    def is_enabled(self, accessible):
        return self.has_state(accessible, AccessibleStateType.ENABLED)

    def click_button(self, caption, frame=None):
        """Clicks a button of our bar with the mouse."""
        x, y, width, height = self.place_of(self.buttons(frame)[caption], frame)
        self.screen.click(x + width // 2, y + height // 2)

    def place_of(self, accessible, frame=None):
        """Left, top, width and height on the screen. What the office believes of where its window
        is may be off, so only places within its window are taken from it; and a menu bar that the
        desktop's toolkit draws is no part of that."""
        frame = frame or self.frame()
        window = frame.ContainerWindow
        left, top, height = self.screen.place_of(self.window_of(frame))
        origin = window.getAccessibleContext().getLocationOnScreen()
        corner, size = accessible.getLocationOnScreen(), accessible.getSize()
        menu_bar = height - window.getPosSize().Height
        return (left + corner.X - origin.X, top + menu_bar + corner.Y - origin.Y,
                size.Width, size.Height)

    # The status bar.

    def status_pixels(self, frame=None):
        """What the left half of the status bar looks like, which is only painted."""
        bar = self.accessible_element(frame or self.frame(), STATUS_BAR)
        left, top, width, height = self.place_of(bar, frame)
        return self.screen.pixels(left, top, width // 2, height)

    # Message boxes.

    def top_windows(self):
        """The accessible objects of all windows that the office itself draws."""
        toolkit = self.create("com.sun.star.awt.Toolkit")
        return list(accessibles(toolkit.getTopWindow, toolkit.getTopWindowCount()))

    def box_texts(self, title):
        """All texts in the box of this title, where the office draws it itself."""
        texts = []

        def collect(context):
            texts.append(context.getAccessibleName())
            for child in children_of(context):
                collect(child)

        for window in self.top_windows():
            if window.getAccessibleName() == title:
                collect(window)
        return texts
