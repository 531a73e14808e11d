#!/usr/bin/env python3
# SPDX-License-Identifier: MPL-2.0
"""Joins the source files named on standard input into few, so that a tool that spends most of its
time in the headers goes through these once for several files.

    tools/join_sources.py FOLDER PART PARTS

FOLDER holds compile_commands.json; the joined files are written there and added to it. Only files
of one folder that are compiled alike are joined; what no command compiles stays by itself. Of all
joined files every PARTS-th is written, beginning with number PART; their names go to standard
output, a line each.
"""

import json
import os
import re
import sys

# More gain little, and a part should not wait for one long file at its end.
MOST = 8


def flags(entry):
    """The command without what it compiles and makes."""
    return re.sub(r" -o \S+ -c \S+$", "", entry["command"])


def groups(paths, commands):
    alike = {}
    for path in paths:
        alike.setdefault((os.path.dirname(path), flags(commands[path])), []).append(path)
    for (_, command), paths in alike.items():
        for start in range(0, len(paths), MOST):
            yield command, paths[start:start + MOST]


def main():
    folder, part, parts = os.path.abspath(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3])
    database = os.path.join(folder, "compile_commands.json")
    with open(database, encoding="utf-8") as file:
        entries = json.load(file)
    commands = {entry["file"]: entry for entry in entries}
    named = [os.path.abspath(name) for name in sys.stdin.read().split()]
    if part == parts:
        print(*(path for path in named if path not in commands), sep="\n")
    compiled = [path for path in named if path in commands]
    for number, (command, paths) in enumerate(groups(compiled, commands)):
        if number % parts != part % parts:
            continue
        joined = os.path.join(folder, f"joined_{number}.cpp")
        with open(joined, "w", encoding="utf-8") as file:
            file.writelines(f'#include "{path}"\n' for path in paths)
        directory = commands[paths[0]]["directory"]
        entries.append({"directory": directory, "file": joined,
                        "command": f"{command} -c {joined}"})
        print(joined)
    with open(database, "w", encoding="utf-8") as file:
        json.dump(entries, file, indent=1)


main()
