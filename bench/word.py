#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Measures the add-in's work in Word, over a stand-in for it, under Wine.

    bench/word.py [--build FOLDER] [--runs 3]

The calls of Word that each shape takes stand beside the least that the operation can do with; the
times are those of the adapter and of the stand-in, in one process.
"""

import argparse
import json
import subprocess
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
WINE = ROOT / "tests" / "windows" / "wine.sh"
SHAPES = (1000, 4000)
TITLES = {"scan": "scan", "apply": "apply ¼", "select_fill": "by fill", "select_line": "by line"}
# Times may grow no faster than this when there are four times as many shapes.
MOST_GROWTH = 5


def measure(build, runs):
    wine = [WINE, build / "wine"]
    subprocess.run([*wine, "start"], check=True)
    try:
        return {shapes: json.loads(subprocess.run(
            [*wine, "run", build / "bin" / "word_bench.exe", str(shapes), str(runs)], check=True,
            capture_output=True, text=True).stdout) for shapes in SHAPES}
    finally:
        subprocess.run([*wine, "end"], check=True)


def print_table(figures):
    print("\nthe add-in in Word, by a stand-in for it")
    print(f"{'shapes':>8}  {'':10}{'ms':>10}{'calls a shape':>16}{'least':>10}")
    for shapes, operations in figures.items():
        for name, title in TITLES.items():
            each = operations[name]
            print(f"{shapes:8}  {title:10}{each['ms']:10.1f}{each['calls']:16.2f}"
                  f"{each['least']:10.2f}")


def verdicts(figures):
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
