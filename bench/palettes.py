#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Measures the work on palette files against mdb-export and mdb-reader on the same files, and the
dialogs of palettes on a file of 500 palettes with 50 fills each.

    bench/palettes.py [--build FOLDER] [--rows 200000] [--runs 5]

Our times and those of mdb-reader are taken inside the process. mdb-export is measured as a whole
process, less the time in which the same program starts and does nothing; its output is discarded.
A save replaces the file; "old file gone" is the part of its time in which the system removes the
old one from the disk. A dump and mdb-export are measured in turn, as whole processes; the peak
memory of dump and import is the system's own figure.
"""

import argparse
import json
import os
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
TABLE = "TFillElementParameter"
FILLS = 100
# An upper bound for loading a palette of a large file: its own values and the pages they are on.
LOAD_MEMORY_KB = 4096
# And one for any number of rows, however they are read and written.
ROWS_MEMORY_KB = 64 * 1024
ROW_GOAL_US = 10
# What the dialogs of palettes do, its title, and the goal in milliseconds. The time that the system
# takes to bring a file to the disk is not in it.
DIALOG_OPERATIONS = (
    ("openSaving", "opening the dialog that saves", None),
    ("openLoading", "opening the one that loads, with previews", None),
    ("choose", "choosing a palette with previews", 50),
    ("saveInLarge", "saving 100 fills in a large file", 50),
    ("saveInSmall", "saving 100 fills in a small file", 50),
)


def process_ms(*command):
    start = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)
    return (time.monotonic() - start) * 1000


def export_figures(file, runs):
    printed = subprocess.run(["mdb-export", "-b", "hex", file, TABLE], check=True,
                             stdout=subprocess.PIPE).stdout
    start = statistics.median(process_ms("mdb-export", "--version") for _ in range(runs * 3))
    whole = statistics.median(process_ms("mdb-export", "-b", "hex", file, TABLE)
                              for _ in range(runs))
    return {"ms": whole - start, "start_ms": start, "fills": printed.count(b"\n") - 1}


def run_process(*command, output=subprocess.DEVNULL):
    """The time that a program takes, and the most memory."""
    start = time.monotonic()
    with subprocess.Popen(list(map(str, command)), stdout=output) as program:
        _, status, usage = os.wait4(program.pid, 0)
        program.returncode = os.waitstatus_to_exitcode(status)
    if program.returncode != 0:
        raise subprocess.CalledProcessError(program.returncode, command)
    return {"ms": (time.monotonic() - start) * 1000, "memory_kb": usage.ru_maxrss}


def stream_figures(huebrush, many, folder, runs):
    """A dump beside mdb-export of the same file, and an import of what was dumped."""
    json_file, copy = folder / "rows.json", folder / "copy.mdb"
    dumps, exports = [], []
    for _ in range(runs):
        dumps.append(run_process(huebrush, "palette", "dump", many))
        exports.append(run_process("mdb-export", "-b", "hex", many, TABLE))
    with json_file.open("wb") as output:
        run_process(huebrush, "palette", "dump", many, output=output)
    run_process(huebrush, "palette", "new", copy)
    imported = run_process(huebrush, "palette", "import", copy, json_file)
    middle = [statistics.median(each["ms"] for each in found) for found in (dumps, exports)]
    return {"dump": {"ms": middle[0], "memory_kb": max(each["memory_kb"] for each in dumps)},
            "mdb-export": {"ms": middle[1]}, "import": imported,
            "json_kb": json_file.stat().st_size // 1024}


def run_json(*command):
    done = subprocess.run(list(map(str, command)), check=True, stdout=subprocess.PIPE)
    return json.loads(done.stdout)


def dialog_figures(program):
    """What the dialogs take on a large file, by operation."""
    with tempfile.TemporaryDirectory(prefix="huebrush-bench-") as folder:
        done = subprocess.run([program, "--benchmark_format=json", folder], check=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        file_kb = (Path(folder) / "large.mdb").stat().st_size // 1024
    figures = {run["name"].split("/")[0]:
               {"ms": run["real_time"], **{key: run[key] for key in
                                           ("slowest_ms", "syncs", "sync_ms") if key in run}}
               for run in json.loads(done.stdout)["benchmarks"]}
    return {"file_kb": file_kb, **figures}


def measure(build, runs, rows):
    """The figures of all three by operation; they must have seen the same fills."""
    bench, readers = build / "bin" / "palette_bench", build / "readers"
    subprocess.run([ROOT / "tests" / "readers" / "install.sh", readers], check=True)
    figures = {}
    with tempfile.TemporaryDirectory(prefix="huebrush-bench-") as folder:
        subprocess.run([bench, "make", folder, str(rows)], check=True)
        one, many = Path(folder) / "one.mdb", Path(folder) / "rows.mdb"
        for name, file, ours in (("load", one, ("load", one, 1, runs * 20)),
                                 ("scan", many, ("scan", many, runs))):
            figures[name] = {"huebrush": run_json(bench, *ours),
                             "mdb-export": export_figures(file, runs),
                             "mdb-reader": run_json("node", readers / "measure.mjs", file, TABLE,
                                                    runs)}
            counts = {reader: each["fills"] for reader, each in figures[name].items()}
            if len(set(counts.values())) != 1:
                raise RuntimeError(f"the readers disagree about the fills: {counts}")
        # In the middle of a large file, in a process that does nothing else.
        figures["load_of_many"] = {
            "huebrush": run_json(bench, "load", many, rows // FILLS // 2, 1),
            "file_kb": many.stat().st_size // 1024}
        figures["save"] = {"huebrush": run_json(bench, "save", folder, runs * 5)}
        figures["insert"] = {order: run_json(bench, "insert", folder, rows, order)
                             for order in ("rising", "random")}
        figures["stream"] = stream_figures(build / "bin" / "huebrush", many, Path(folder), runs)
    figures["dialogs"] = dialog_figures(build / "bin" / "palette_dialogs_bench")
    return figures


def print_table(figures):
    print("\npalette files (ms)")
    columns = ("load of 100", "scan", "save of 100", "its syncs", "old file gone")
    print(" " * 12 + "".join(f"{column:>16}" for column in columns))
    for reader in ("huebrush", "mdb-export", "mdb-reader"):
        cells = [f"{figures[name][reader]['ms']:.2f}" for name in ("load", "scan")]
        if reader == "huebrush":
            saved = figures["save"][reader]
            cells += [f"{saved[key]:.2f}" for key in ("ms", "sync_ms", "removal_ms")]
        print(f"{reader:12}" + "".join(f"{cell:>16}" for cell in cells))
    memory = figures["load_of_many"]
    print(f"loading {FILLS} fills of a file of {memory['file_kb']} KB took "
          f"{memory['huebrush']['memory_kb']} KB of memory")
    insert, stream = figures["insert"], figures["stream"]
    print(f"a row of 20 columns with three indexes took {insert['rising']['us_a_row']:.1f} us, and "
          f"{insert['random']['us_a_row']:.1f} us with keys in no order")
    print(f"{stream['json_kb']} KB of JSON: dumped in {stream['dump']['ms']:.0f} ms and "
          f"{stream['dump']['memory_kb']} KB of memory "
          f"(mdb-export {stream['mdb-export']['ms']:.0f} ms), "
          f"imported in {stream['import']['ms']:.0f} ms and {stream['import']['memory_kb']} KB")
    print_dialogs(figures["dialogs"])


def print_dialogs(figures):
    print(f"\nthe dialogs of palettes on a file of {figures['file_kb']} KB (ms)")
    columns = ("mean", "slowest", "goal", "syncs", "they took")
    print(" " * 42 + "".join(f"{column:>10}" for column in columns))
    for key, title, goal in DIALOG_OPERATIONS:
        each = figures[key]
        cells = [f"{each['ms']:.2f}", f"{each['slowest_ms']:.2f}", f"< {goal}" if goal else ""]
        if "syncs" in each:
            cells += [f"{each['syncs']:.0f}", f"{each['sync_ms']:.2f}"]
        print(f"{title:42}" + "".join(f"{cell:>10}" for cell in cells))


def goals(figures):
    """Each goal as (text, figure, limit, whether a greater figure is better)."""
    for name, factor in (("load", 5), ("scan", 4)):
        both = figures[name]
        yield (f"{name} ≥ {factor}× as fast as mdb-export without its start",
               both["mdb-export"]["ms"] / both["huebrush"]["ms"], factor, True)
    yield "save of 100 fills < 5 ms plus syncs", figures["save"]["huebrush"]["ms"], 5, False
    yield ("KB of memory to load 100 fills of a large file",
           figures["load_of_many"]["huebrush"]["memory_kb"], LOAD_MEMORY_KB, False)
    for order, figure in figures["insert"].items():
        yield (f"us to add a row of 20 columns with three indexes, the third's keys {order}",
               figure["us_a_row"], ROW_GOAL_US, False)
    stream = figures["stream"]
    yield ("a dump takes no longer than mdb-export of the same rows",
           stream["dump"]["ms"] / stream["mdb-export"]["ms"], 1, False)
    for name in ("dump", "import"):
        yield (f"KB of memory to {name} a large file", stream[name]["memory_kb"], ROWS_MEMORY_KB,
               False)
    for key, title, goal in DIALOG_OPERATIONS:
        if goal is not None:
            each = figures["dialogs"][key]
            limit = f"{goal} ms plus syncs" if "syncs" in each else f"{goal} ms"
            yield f"{title} < {limit}", each["ms"], goal, False


def verdicts(figures):
    return [{"goal": f"palettes: {text}", "figure": round(figure, 2),
             "met": bool(figure >= limit if more else figure < limit)}
            for text, figure, limit, more in goals(figures)]


def print_verdicts(found):
    print("\ngoals")
    for each in found:
        print(f"  {'met   ' if each['met'] else 'MISSED'} {each['figure']:10.2f}  {each['goal']}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--rows", type=int, default=200_000)
    parser.add_argument("--runs", type=int, default=5)
    arguments = parser.parse_args()
    figures = measure(arguments.build, arguments.runs, arguments.rows)
    print_table(figures)
    print_verdicts(verdicts(figures))


if __name__ == "__main__":
    main()
