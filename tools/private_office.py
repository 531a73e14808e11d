# SPDX-License-Identifier: MPL-2.0
"""A LibreOffice of one's own to talk to: with a profile nobody else uses, ended in every case.

Run by the Python that has LibreOffice's `uno` module (on Debian /usr/bin/python3).

    with PrivateOffice() as office:
        document = office.load("in.odt")
        office.store(document, "out.docx")
"""

import shutil
import signal
import tempfile
import threading
import time
from pathlib import Path

import uno
import unohelper
from com.sun.star.awt import XCallback
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException
from com.sun.star.lang import DisposedException
from com.sun.star.uno import RuntimeException

from office import Office, end_cleanly_on_request

FILTERS = {
    ".odt": "writer8",
    ".fodt": "OpenDocument Text Flat XML",
    ".docx": "MS Word 2007 XML",
    ".doc": "MS Word 97",
    ".pdf": "writer_pdf_Export",
}
START_LIMIT = 60.0
END_LIMIT = 20.0


def properties(**values):
    """The named values as a sequence of PropertyValue, the form every UNO descriptor has."""
    return tuple(PropertyValue(name, 0, value, 0) for name, value in values.items())


def file_url(path):
    return uno.systemPathToFileUrl(str(Path(path).resolve()))


def context_behind(pipe):
    """The component context of the office that listens at the pipe; None where none does yet, or
    where the one that did is just ending."""
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext(
        "com.sun.star.bridge.UnoUrlResolver", local
    )
    try:
        return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
    except (NoConnectException, DisposedException):
        return None


class Callback(unohelper.Base, XCallback):
    """A function to be called by the office, and what became of it."""

    def __init__(self, function):
        self.function = function
        self.done = threading.Event()
        self.result = None
        self.error = None

    def notify(self, _):
        try:
            self.result = self.function()
        except BaseException as error:
            self.error = error
        finally:
            self.done.set()


class PrivateOffice:
    """Entering starts the office and connects to it; leaving ends it and removes its profile. The
    options are those of Office."""

    def __init__(self, headless=True, **options):
        self.options = dict(options, headless=headless)
        self.folder = None
        self.process = None
        self.context = None
        self.desktop = None
        self.is_busy = False
        self.replaced_handler = None

    def __enter__(self):
        if threading.current_thread() is threading.main_thread():
            # A request to end leaves by way of __exit__, as an interrupt from the keyboard does.
            self.replaced_handler = end_cleanly_on_request()
        self.folder = Path(tempfile.mkdtemp(prefix="private-office-"))
        try:
            self._start()
            self._connect()
        except BaseException:
            self._end()
            raise
        return self

    def __exit__(self, *_):
        self._end()

    def create(self, service):
        """A new instance of an office service, living in the office's process."""
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    def load(self, path, hidden=True):
        """Loads a copy of the document, so that no lock of another office stands in the way and
        none is left behind. Raises RuntimeError if LibreOffice takes the file for no document."""
        folder = Path(tempfile.mkdtemp(dir=self.folder))
        copy = shutil.copy(path, folder)
        document = self.desktop.loadComponentFromURL(
            file_url(copy), "_blank", 0, properties(Hidden=hidden)
        )
        if document is None:
            raise RuntimeError(f"{path}: not a document")
        return document

    def store(self, document, path):
        """Writes the document in the format of the path's extension."""
        path = Path(path)
        document.storeToURL(file_url(path), properties(FilterName=FILTERS[path.suffix]))

    def convert(self, source, *targets):
        document = self.load(source)
        try:
            for target in targets:
                self.store(document, target)
        finally:
            document.close(True)

    def on_main_thread(self, function):
        """Runs the function so that the calls it makes into the office are made on its main thread,
        and returns its result. Such calls find the thread that waits for them: the one that the
        office calls back on."""
        callback = Callback(function)
        self.create("com.sun.star.awt.AsyncCallback").addCallback(callback, None)
        self.is_busy = True
        while not callback.done.wait(1.0):
            if not self.process.running():
                raise RuntimeError("LibreOffice ended")
        self.is_busy = False
        if callback.error is not None:
            raise callback.error
        return callback.result

    def work_on(self, path, work, hidden=True):
        """What a function of the office's answers about a document loaded for it."""
        document = self.load(path, hidden=hidden)
        self.finish_pending()
        result = self.on_main_thread(lambda: work(document))
        document.close(True)
        return result

    def finish_pending(self):
        """Lets the office do all that it has put off, such as laying out a document just loaded."""
        toolkit = self.create("com.sun.star.awt.Toolkit")
        self.on_main_thread(toolkit.processEventsToIdle)

    def _start(self):
        self.pipe = self.folder.name
        accept = f"--accept=pipe,name={self.pipe};urp;"
        arguments = [accept, *self.options.pop("arguments", ())]
        self.process = Office("soffice", self.folder, arguments=arguments, quiet=True,
                              **self.options)
        self.process.__enter__()

    def _connect(self):
        limit = time.monotonic() + START_LIMIT
        while True:
            self.context = context_behind(self.pipe)
            if self.context is not None:
                self.desktop = self.create("com.sun.star.frame.Desktop")
                return
            if not self.process.running():
                raise RuntimeError("LibreOffice ended while it was starting")
            if time.monotonic() > limit:
                raise RuntimeError("LibreOffice does not answer")
            time.sleep(0.05)

    def _end(self):
        # An office that never answered, or is in the midst of something, would not listen.
        listens = self.desktop is not None and not self.is_busy
        if listens:
            try:
                self.desktop.terminate()
            except (DisposedException, RuntimeException):
                pass  # it died before; nothing is left to be asked
        if self.process is not None:
            if listens:
                self.process.wait_for_end(END_LIMIT)
            self.process.__exit__()
        shutil.rmtree(self.folder, ignore_errors=True)
        if self.replaced_handler is not None:
            signal.signal(signal.SIGTERM, self.replaced_handler)
