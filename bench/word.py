#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Measures the add-in's work in Word, over a stand-in for it, under Wine.

    bench/word.py [--build FOLDER] [--runs 3]

The calls of Word that each shape takes stand beside the least that the operation can do with; the
times are those of the adapter and of the stand-in, in one process. The recolour dialog is measured
in its window, on a screen without a monitor.
"""

import argparse
import json
import statistics
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "tests" / "libreoffice"), str(ROOT / "tests" / "windows")]

from screen import Screen  # noqa: E402
from stand_in import Wine  # noqa: E402

WINE = ROOT / "tests" / "windows" / "wine.sh"
SHAPES = (1000, 4000)
TITLES = {"scan": "scan", "apply": "apply ¼", "select_fill": "by fill", "select_line": "by line"}
ROWS = (200, 1000)
# What is measured in the window, its title, and the goal in milliseconds where there is one.
WINDOW_STEPS = (
    ("open_ms", "opening the empty dialog", None),
    ("scan_ms", "“Přidat”", None),
    ("reopen_ms", "opening with the rows", 1000),
    ("scroll_ms", "a scroll step", None),
    ("close_ms", "closing", 1000),
)
# Nearly all of a scroll step is Wine's, which asks its server for each window that moves; but it
# may not grow with the rows.
MOST_SCROLL_GROWTH = 1.3
# Times may grow no faster than this when there are four times as many shapes.
MOST_GROWTH = 5


def measure(build, runs):
    return {"calls": measure_calls(build, runs), "window": measure_window(build, runs)}


def measure_calls(build, runs):
    wine = [WINE, build / "wine"]
    subprocess.run([*wine, "start"], check=True)
    try:
        return {shapes: json.loads(subprocess.run(
            [*wine, "run", build / "bin" / "word_bench.exe", str(shapes), str(runs)], check=True,
            capture_output=True, text=True).stdout) for shapes in SHAPES}
    finally:
        subprocess.run([*wine, "end"], check=True)


def measure_window(build, runs):
    """The medians of some runs, by the number of rows."""
    figures = {}
    with Screen() as screen, Wine(WINE, build / "wine", screen) as wine:
        for rows in ROWS:
            each = [run_in_window(wine, build, rows) for _ in range(runs)]
            figures[rows] = {step: statistics.median(run[step] for run in each)
                             for step, _, _ in WINDOW_STEPS}
    return figures


def run_in_window(wine, build, rows):
    program = wine.start(build / "bin" / "word_window_bench.exe", str(rows))
    said, _ = program.communicate()
    figures = json.loads(said)
    if figures["rows"] != rows:
        raise RuntimeError(f"the dialog has {figures['rows']} rows")
    return figures


def print_table(figures):
    print_calls(figures["calls"])
    print("\nthe dialog in Word, by a stand-in for it (ms)")
    print(f"{'rows':40}" + "".join(f"{rows:10}" for rows in ROWS))
    for step, title, _ in WINDOW_STEPS:
        print(f"{title:40}" + "".join(f"{figures['window'][rows][step]:10.1f}" for rows in ROWS))


def print_calls(figures):
    print("\nthe add-in in Word, by a stand-in for it")
    print(f"{'shapes':>8}  {'':10}{'ms':>10}{'calls a shape':>16}{'least':>10}")
    for shapes, operations in figures.items():
        for name, title in TITLES.items():
            each = operations[name]
            print(f"{shapes:8}  {title:10}{each['ms']:10.1f}{each['calls']:16.2f}"
                  f"{each['least']:10.2f}")


def verdicts(figures):
    yield from call_verdicts(figures["calls"])
    for rows, times in figures["window"].items():
        for step, title, limit in WINDOW_STEPS:
            if limit is not None:
                yield {"goal": f"Word: {title}, {rows} rows < {limit} ms",
                       "figure": round(times[step], 1), "met": times[step] < limit}
    few, many = (figures["window"][rows]["scroll_ms"] for rows in ROWS)
    yield {"goal": f"Word: a scroll step, {ROWS[1]} rows against {ROWS[0]} < {MOST_SCROLL_GROWTH}",
           "figure": round(many / few, 2), "met": many / few < MOST_SCROLL_GROWTH}


def call_verdicts(figures):
    few, many = (figures[shapes] for shapes in SHAPES)
    for name, title in TITLES.items():
        calls = many[name]["calls"] / many[name]["least"]
        yield {"goal": f"Word: {title}, calls at most 1.01 times the least",
               "figure": round(calls, 2), "met": calls <= 1.01}
        growth = many[name]["ms"] / few[name]["ms"]
        yield {"goal": f"Word: {title}, {SHAPES[1]} shapes against {SHAPES[0]} < {MOST_GROWTH}",
               "figure": round(growth, 2), "met": growth < MOST_GROWTH}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "windows-x86_64")
    parser.add_argument("--runs", type=int, default=3)
    arguments = parser.parse_args()
    figures = measure(arguments.build, arguments.runs)
    print_table(figures)
    for each in verdicts(figures):
        print(f"  {'met   ' if each['met'] else 'MISSED'} {each['figure']:10.2f}  {each['goal']}")


if __name__ == "__main__":
    main()
