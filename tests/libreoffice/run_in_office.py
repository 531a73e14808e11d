#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""Runs the GoogleTests inside a private LibreOffice and ends with their result.

Without --plugin the office has no screen, and the tests are those that need none; with it they are
those named OnScreen, on a screen of their own. GTEST_FILTER and the other variables of GoogleTest
reach the tests. The office's profile and processes are gone when this program ends, however it
ends.
"""

import argparse
import contextlib
import os
import sys
import tempfile
from pathlib import Path

from screen import Screen

sys.path.append(str(Path(__file__).resolve().parents[2] / "tools"))

from office import Office, end_cleanly_on_request  # noqa: E402

ON_SCREEN = "*OnScreen*"


def result_of(path):
    """The pair (exit code, tests run) that the runner has left, or None."""
    try:
        with open(path, encoding="ascii") as file:
            code, ran = file.read().split()
            return int(code), int(ran)
    except (OSError, ValueError):
        return None


def main():
    end_cleanly_on_request()
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--office", required=True, help="the program soffice")
    parser.add_argument("--extensions", required=True, help="the folder of unpacked extensions")
    parser.add_argument("--plugin", choices=["gen", "gtk3"], help="the VCL plugin on a screen")
    parser.add_argument("--limit", type=float, default=300, help="seconds until it counts as hung")
    options = parser.parse_args()

    with contextlib.ExitStack() as stack:
        folder = stack.enter_context(tempfile.TemporaryDirectory(prefix="huebrush-tests-"))
        result_path = os.path.join(folder, "result")
        environment = dict(os.environ, HUEBRUSH_TEST_RESULT=result_path, TMPDIR=folder)
        environment.setdefault("GTEST_FILTER", ON_SCREEN if options.plugin else "-" + ON_SCREEN)
        if options.plugin:
            environment["DISPLAY"] = stack.enter_context(Screen()).display
        with Office(options.office, folder, extensions=options.extensions,
                    arguments=["--nodefault"], headless=options.plugin is None,
                    environment=environment, plugin=options.plugin) as office:
            ended = office.wait_for_end(options.limit)
        result = result_of(result_path)

    if not ended:
        print(f"The office did not end within {options.limit} s.", file=sys.stderr)
        return 1
    if result is None:
        print(f"The office ended (code {office.exit_code}) without a result.", file=sys.stderr)
        return 1
    code, ran = result
    if ran == 0:
        print("No test was run.", file=sys.stderr)
        return 1
    if code == 0 and office.exit_code != 0:
        print(f"The tests passed, but the office ended with {office.exit_code}.", file=sys.stderr)
        return 1
    return code


if __name__ == "__main__":
    sys.exit(main())
