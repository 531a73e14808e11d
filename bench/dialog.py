# SPDX-License-Identifier: MPL-2.0
"""Measures the recolour dialog in a window, on a screen without a monitor."""

import json
import statistics
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tools"), str(ROOT / "tests" / "libreoffice")]

from private_office import PrivateOffice  # noqa: E402
from screen import Screen  # noqa: E402

from com.sun.star.beans import NamedValue  # noqa: E402

# What is measured, its title, and the goal in milliseconds by number of rows.
OPERATIONS = (
    ("reopen_ms", "opening with the rows", {200: 1000, 1000: 1000}),
    ("scroll_ms", "a scroll step", {200: 16, 1000: 16}),
    ("tick_ms", "a tick with refresh", {200: 50, 1000: 50}),
    ("select_all_ms", "select all", {200: 100, 1000: 100}),
    ("remove_half_ms", "removing every second row", {200: 300, 1000: 300}),
    ("drag_ms", "a drag from the first to the last row", {200: 100, 1000: 100}),
    ("selection_ms", "added to a change of selection", {200: 1, 1000: 1}),
)
NOTED = (("open_ms", "opening the empty dialog (ms)"), ("scan_ms", "“Přidat” (ms)"),
         ("row_kib", "memory a row (KiB)"))


def job_of(office, service):
    """A job of the bench's own extension, as a function of a document."""
    job = office.create(service)
    return lambda document: job.execute((NamedValue("Document", document),))


def measure(document_path, runs, extensions, plugin="gen"):
    """The medians of the figures of some runs, each in an office of its own."""
    figures = []
    for _ in range(runs):
        with Screen() as screen:
            with PrivateOffice(extensions=extensions, arguments=["--nodefault"], headless=False,
                               environment=screen.environment, plugin=plugin) as office:
                result = json.loads(office.work_on(
                    document_path, job_of(office, "cz.huebrush.DialogBench"), hidden=False))
        if "error" in result:
            raise RuntimeError(f"the dialog: {result['error']}")
        if result["rows_left"] != result["rows"] - result["rows"] // 2:
            raise RuntimeError(f"the dialog kept {result['rows_left']} rows")
        figures.append(result)
    return {key: statistics.median(run[key] for run in figures) for key in figures[0]}


def print_table(rows, figures):
    print(f"\nthe dialog with {rows} rows (ms)")
    for key, title, _ in OPERATIONS:
        print(f"{title:40}{figures[key]:10.1f}")
    for key, title in NOTED:
        print(f"{title:40}{figures[key]:10.1f}")


def goals(results):
    """Each goal as (text, figure, limit)."""
    for rows, figures in results.items():
        for key, title, limits in OPERATIONS:
            if rows in limits:
                yield f"{title}, {rows} rows < {limits[rows]} ms", figures[key], limits[rows]
