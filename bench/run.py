#!/usr/bin/python3
"""Measures Huebrush beside a Basic macro and a PyUNO script that do the same job, the recolour
dialog in its window, and the work on palette files beside other readers, and prints tables.

    bench/run.py [--json FILE] [--shapes 250,1000,4000,16000] [--runs 3]

All figures come from this machine and this run; each document is measured with all three, one after
the other. Times are medians in milliseconds, taken inside the office's process.
"""

import argparse
import json
import subprocess
import sys
import tempfile
from pathlib import Path

BENCH = Path(__file__).resolve().parent
ROOT = BENCH.parent
sys.path[:0] = [str(BENCH), str(ROOT / "tools")]

import dialog  # noqa: E402
import palettes  # noqa: E402
from private_office import PrivateOffice  # noqa: E402
from run_peers import PEERS, medians  # noqa: E402

# Scan and apply are measured in a document without a window, as the program works, and once more
# in a window, where the dialog does them between two clicks and events run. "its …" is what the
# office's own calls alone take of the column before.
OPERATIONS = (("scan_ms", "scan"), ("apply_ms", "apply ¼"), ("host_apply_ms", "its writes"),
              ("select_fill_ms", "by fill"), ("host_select_ms", "its select call"),
              ("select_line_ms", "by line"), ("host_select_line_ms", "its select call"),
              ("scan_dialog_ms", "scan, window"), ("apply_dialog_ms", "apply ¼, window"))
FEW, MANY = 8, 2000
DIALOG_ROWS = (200, 1000)
PALETTE_ROWS = 200_000


def huebrush(office):
    return dialog.job_of(office, "cz.huebrush.Bench")


def measure(document_path, runs, measurers, extensions):
    """The medians of each measurer on a document, run by run in turn."""
    figures = {name: [] for name in measurers}
    arguments = [f"-env:BUNDLED_EXTENSIONS={extensions.as_uri()}"]
    for _ in range(runs):
        for name, make in measurers.items():
            hidden, shown = (measure_once(make, document_path, is_hidden, arguments)
                             for is_hidden in (True, False))
            figures[name].append({**renamed_for_window(shown), **hidden})
    return {name: medians(runs_of_one) for name, runs_of_one in figures.items()}


def measure_once(make, document_path, is_hidden, arguments):
    with PrivateOffice(arguments=arguments) as office:
        result = json.loads(office.work_on(document_path, make(office), hidden=is_hidden))
    if "error" in result:
        raise RuntimeError(result["error"])
    return result


def renamed_for_window(figures):
    """The peers call their scan and apply the same with a window and without; ours do not."""
    names = {"scan_ms": "scan_dialog_ms", "apply_ms": "apply_dialog_ms"}
    return {names.get(key, key): value for key, value in figures.items()}


def make_document(folder, shapes, fills, nested):
    path = folder / f"{shapes}-{fills}-{'nested' if nested else 'flat'}.fodt"
    arguments = [sys.executable, str(BENCH / "make_document.py"), str(path), "--shapes",
                 str(shapes), "--fills", str(fills)]
    subprocess.run(arguments + (["--nested"] if nested else []), check=True)
    return path


def check_agreement(results):
    """All three must have seen the same shapes and fills: else the times mean nothing."""
    for key in ("shapes", "fills", "applied", "selected_fill", "selected_line"):
        values = {name: result[key] for name, result in results.items()}
        if len(set(values.values())) != 1:
            raise RuntimeError(f"the measurers disagree about {key}: {values}")


def print_table(label, results):
    print(f"\n{label}")
    print(f"{'':12}" + "".join(f"{title:>16}" for _, title in OPERATIONS))
    for name, result in results.items():
        print(f"{name:12}" + row(result, lambda figure, key: f"{figure:.1f}"))
    ours = results["huebrush"]
    for name in PEERS:
        if name in results:
            print(f"{name + ' ÷ ours':12}" +
                  row(results[name], lambda figure, key: f"{figure / max(ours[key], 1e-6):.1f}×"))


def row(result, cell):
    """The cells of a line of the table; a dash where there is no figure."""
    cells = (cell(result[key], key) if key in result else "–" for key, _ in OPERATIONS)
    return "".join(f"{text:>16}" for text in cells)


def memory_figures(program):
    """Nanoseconds a shape of the logic alone, by benchmark name."""
    done = subprocess.run([program, "--benchmark_format=json"], check=True, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return {run["name"]: run["cpu_time"] * 1e6 / int(run["name"].split("/")[1])
            for run in json.loads(done.stdout)["benchmarks"]}


def goals(all_results, memory, dialogs, palette_figures):
    """Each goal with its figure, as (text, figure, whether it is met)."""
    found = []

    def goal(text, figure, met):
        found.append({"goal": text, "figure": round(figure, 2), "met": bool(met)})

    flat = {shapes: results for (shapes, fills, nested), results in all_results.items()
            if fills == FEW and not nested}
    if 4000 in flat:
        for key, factor in (("scan_ms", 10), ("apply_ms", 5)):
            ratio = flat[4000]["basic"][key] / flat[4000]["huebrush"][key]
            goal(f"{key[:-3]} at 4000 shapes ≥ {factor}× as fast as the Basic macro", ratio,
                 ratio >= factor)
    if 4000 in flat and 16000 in flat:
        for key in ("scan_ms", "apply_ms"):
            growth = flat[16000]["huebrush"][key] / flat[4000]["huebrush"][key]
            goal(f"{key[:-3]}: time(16000) / time(4000) ≤ 5", growth, growth <= 5)
    many = all_results.get((16000, MANY, False))
    if many and 16000 in flat:
        ratio = many["huebrush"]["scan_ms"] / flat[16000]["huebrush"]["scan_ms"]
        goal(f"scan of 16000 shapes: {MANY} fills ≤ 5× the time with {FEW}", ratio, ratio <= 5)
    own = memory["scan/16000/8"]
    goal("own logic on the memory host ≤ 1000 ns a shape (16000 shapes, 8 fills)", own,
         own <= 1000)
    for text, figure, limit in dialog.goals(dialogs):
        goal(f"the dialog: {text}", figure, figure < limit)
    return found + palettes.verdicts(palette_figures)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--json", type=Path, help="also write all figures here")
    parser.add_argument("--shapes", default="250,1000,4000,16000")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    arguments = parser.parse_args()
    sizes = [int(size) for size in arguments.shapes.split(",")]
    cases = [(size, FEW, nested) for size in sizes for nested in (False, True)]
    if max(sizes) >= 16000:
        cases.append((16000, MANY, False))

    measurers = {"huebrush": huebrush, **PEERS}
    results = {}
    with tempfile.TemporaryDirectory(prefix="huebrush-bench-") as folder:
        for case in cases:
            shapes, fills, nested = case
            document = make_document(Path(folder), *case)
            # Many fills take the macro minutes, and the goal there is about our own growth.
            measured = measurers if fills == FEW else {"huebrush": huebrush}
            results[case] = measure(document, arguments.runs, measured,
                                    arguments.build / "bench" / "extensions")
            check_agreement(results[case])
            label = f"{shapes} shapes, {fills} fills, {'nested' if nested else 'flat'} (ms)"
            print_table(label, results[case])
            sys.stdout.flush()

        dialogs = {}
        for rows in DIALOG_ROWS:
            document = make_document(Path(folder), rows, rows, False)
            dialogs[rows] = dialog.measure(document, arguments.runs,
                                           arguments.build / "bench" / "extensions")
            dialog.print_table(rows, dialogs[rows])

    memory = memory_figures(arguments.build / "bin" / "memory_bench")
    print("\nthe logic alone, on the memory host (ns a shape)")
    for name, value in memory.items():
        print(f"{name:24}{value:10.0f}")
    palette_figures = palettes.measure(arguments.build, arguments.runs, PALETTE_ROWS)
    palettes.print_table(palette_figures)
    verdicts = goals(results, memory, dialogs, palette_figures)
    palettes.print_verdicts(verdicts)
    if arguments.json:
        listed = [{"shapes": s, "fills": f, "nested": n, "results": r}
                  for (s, f, n), r in results.items()]
        arguments.json.write_text(json.dumps(
            {"documents": listed, "memory_ns_per_shape": memory, "dialog": dialogs,
             "palettes": palette_figures, "goals": verdicts}, indent=2))


if __name__ == "__main__":
    main()
