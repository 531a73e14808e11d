"""A LibreOffice process of one's own: private profile, own process group, gone at the end."""

import os
import re
import signal
import subprocess
import sys
import time


def end_cleanly_when_told_to():
    """Lets SIGTERM unwind the stack, so that what was started is ended."""
    signal.signal(signal.SIGTERM, lambda number, _: sys.exit(128 + number))


def office_version(program="soffice"):
    """The version of an office, as (25, 2)."""
    said = subprocess.run([program, "--version"], stdin=subprocess.DEVNULL, timeout=60, check=True,
                          stdout=subprocess.PIPE, text=True).stdout
    return tuple(map(int, re.match(r"LibreOffice (\d+)\.(\d+)", said).groups()))


class Office:
    """Starts soffice on a fresh profile below `folder` and ends it when the block is left.

    extensions   a folder whose sub-folders are unpacked extensions
    arguments    further arguments of soffice
    plugin       the VCL plugin ("svp", "gen", "gtk3"), or None for the office's own choice
    """

    def __init__(self, program, folder, extensions=None, arguments=(), environment=None,
                 plugin=None, profile="profile"):
        self._command = [program, f"-env:UserInstallation=file://{folder}/{profile}",
                         "--norestore", "--nologo", "--nofirststartwizard", *arguments]
        if extensions is not None:
            self._command.insert(2, f"-env:BUNDLED_EXTENSIONS=file://{extensions}")
        self._environment = dict(os.environ if environment is None else environment)
        if plugin is not None:
            self._environment["SAL_USE_VCLPLUGIN"] = plugin
            # There is no desktop session whose settings the toolkit could keep.
            self._environment["GSETTINGS_BACKEND"] = "memory"
        self._process = None

    def __enter__(self):
        self._process = subprocess.Popen(self._command, env=self._environment,
                                         start_new_session=True)
        return self

    def __exit__(self, *unused):
        if self._process.poll() is None:
            self.kill()
        self._process.wait()

    def kill(self):
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
