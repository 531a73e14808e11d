# SPDX-License-Identifier: MPL-2.0
"""A LibreOffice process of one's own: private profile, own process group, gone at the end.

Everything that starts an office from Python does it here. Needs no `uno` module.
"""

import os
import re
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

CONVERSION_LIMIT = 240.0
VERSION_LIMIT = 60.0


def end_cleanly_on_request():
    """Lets SIGTERM unwind the stack, so that what was started is ended. Returns the handler that
    was there before."""
    return signal.signal(signal.SIGTERM, lambda number, _: sys.exit(128 + number))


def office_version(program="soffice"):
    """The version of an office, as (25, 2)."""
    said = subprocess.run([program, "--version"], stdin=subprocess.DEVNULL, check=True,
                          timeout=VERSION_LIMIT, stdout=subprocess.PIPE, text=True).stdout
    return tuple(map(int, re.match(r"LibreOffice (\d+)\.(\d+)", said).groups()))


def store_anew(sources, filter_name, folder):
    """What an office without our extension makes of documents of one format, each loaded and stored
    in one go: copies of the same names in the folder."""
    suffix = Path(sources[0]).suffix[1:]
    with tempfile.TemporaryDirectory(prefix="huebrush-plain-") as profile:
        arguments = ["--convert-to", f"{suffix}:{filter_name}", "--outdir", str(folder),
                     *map(str, sources)]
        with Office("soffice", profile, arguments=arguments, headless=True, quiet=True) as office:
            if not office.wait_for_end(CONVERSION_LIMIT):
                raise RuntimeError(f"LibreOffice does not finish with {sources}")
    if office.exit_code != 0:
        raise RuntimeError(f"LibreOffice ended with {office.exit_code} on {sources}")


class Office:
    """Starts soffice on a profile below `folder`, and ends it when the block is left.

    extensions   a folder whose sub-folders are unpacked extensions
    arguments    further arguments of soffice
    plugin       the VCL plugin ("svp", "gen", "gtk3"), or None for the office's own choice
    headless     without a screen
    quiet        what the office prints is not shown
    """

    def __init__(self, program, folder, extensions=None, arguments=(), environment=None,
                 plugin=None, headless=False, quiet=False):
        self._command = [program, f"-env:UserInstallation={(Path(folder) / 'profile').as_uri()}"]
        if extensions is not None:
            self._command.append(f"-env:BUNDLED_EXTENSIONS={Path(extensions).as_uri()}")
        self._command += ["--norestore", "--nologo", *(["--headless"] if headless else []),
                          *arguments]
        self._environment = dict(os.environ if environment is None else environment)
        if plugin is not None:
            self._environment["SAL_USE_VCLPLUGIN"] = plugin
            # There is no desktop session whose settings the toolkit could keep.
            self._environment["GSETTINGS_BACKEND"] = "memory"
        self._output = subprocess.DEVNULL if quiet else None
        self._process = None

    def __enter__(self):
        self._process = subprocess.Popen(self._command, env=self._environment,
                                         start_new_session=True, stdin=subprocess.DEVNULL,
                                         stdout=self._output, stderr=self._output)
        return self

    def __exit__(self, *unused):
        if self._process.poll() is None:
            self.kill()
        self._process.wait()

    def kill(self):
        """Ends the whole session: the launcher has the real office as its child."""
        try:
            os.killpg(self._process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass

    @property
    def exit_code(self):
        return self._process.returncode

    @property
    def pid(self):
        return self._process.pid

    def running(self):
        return self._process.poll() is None

    def wait_for_end(self, limit):
        """Whether the office ended by itself within `limit` seconds."""
        end = time.monotonic() + limit
        while self.running() and time.monotonic() < end:
            time.sleep(0.05)
        return not self.running()
