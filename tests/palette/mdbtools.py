# SPDX-License-Identifier: MPL-2.0
"""Palette files as mdbtools reads them."""

import csv
import io
import subprocess
import sys

LIMIT = 120
NULL = "\\N"


def output_of(*command):
    """What a reader prints. A reader that is missing or fails is an error."""
    return subprocess.run(list(map(str, command)), check=True, timeout=LIMIT,
                          stdout=subprocess.PIPE).stdout.decode()


def export(file, table):
    """The rows as mdb-export prints them, each as the texts of its columns."""
    csv.field_size_limit(sys.maxsize)
    printed = output_of("mdb-export", "-b", "hex", "-0", NULL, file, table)
    return list(csv.reader(io.StringIO(printed, newline="")))
