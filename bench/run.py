#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Measures Huebrush against a Basic macro and a PyUNO script that do the same job, the recolour
dialog in its window, the work on palette files against other readers, the add-in for Word over a
stand-in, and document files without an office, and prints tables.

    bench/run.py [--json FILE] [--shapes 250,1000,4000,16000] [--runs 3] [--documents-only]

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
import documents  # noqa: E402
import palettes  # noqa: E402
import word  # noqa: E402
from private_office import PrivateOffice  # noqa: E402
from run_peers import PEERS, medians  # noqa: E402

# Scan and apply are measured in a document without a window, as the program works, and once more
# in a window, where the dialog does them between two clicks and events run. "its …" is what the
# office's own calls alone take of the column before.
# The goals are about those that a peer does, too.
OPERATIONS = (("scan_ms", "scan"), ("apply_ms", "apply ¼"), ("host_apply_ms", "its writes"),
              ("select_fill_ms", "by fill"), ("host_select_ms", "its select call"),
              ("select_line_ms", "by line"), ("host_select_line_ms", "its select call"),
              ("scan_dialog_ms", "scan, window"), ("apply_dialog_ms", "apply ¼, window"))
COMPARED = tuple(key for key, _ in OPERATIONS if not key.startswith("host_"))
FEW, MANY = 8, 2000
DIALOG_ROWS = (200, 1000)
PALETTE_ROWS = 200_000


def huebrush(office):
    return dialog.job_of(office, "cz.huebrush.Bench")


def measure(document_path, runs, measurers, extensions):
    """The medians of each measurer on a document, run by run in turn."""
    figures = {name: [] for name in measurers}
    for _ in range(runs):
        for name, make in measurers.items():
            hidden, shown = (measure_once(make, document_path, is_hidden, extensions)
                             for is_hidden in (True, False))
            figures[name].append({**renamed_for_window(shown), **hidden})
    return {name: medians(runs_of_one) for name, runs_of_one in figures.items()}


def measure_once(make, document_path, is_hidden, extensions):
    with PrivateOffice(extensions=extensions) as office:
        result = json.loads(office.work_on(document_path, make(office), hidden=is_hidden))
    if "error" in result:
        raise RuntimeError(result["error"])
    return result


def renamed_for_window(figures):
    """The peers call their scan and apply the same with a window and without; ours do not."""
    names = {"scan_ms": "scan_dialog_ms", "apply_ms": "apply_dialog_ms"}
    return {names.get(key, key): value for key, value in figures.items()}


def make_document(folder, shapes, fills, nested):
    path = folder / f"{shapes}-{fills}-{kind_of(nested)}.fodt"
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


def slowest(all_results, key):
    """The lowest ratio of a peer's time to ours for an operation, and in which case."""
    return min((results[peer][key] / results["huebrush"][key], peer, case)
               for case, results in all_results.items() for peer in PEERS
               if key in results.get(peer, {}))


def growths(all_results, nested, key):
    """Our time by number of shapes over that of the fewest, each with the office's own writes."""
    of_kind = {shapes: results["huebrush"] for (shapes, fills, is_nested), results
               in sorted(all_results.items()) if fills == FEW and is_nested == nested}
    least = of_kind[min(of_kind)]
    return [(shapes, figures[key] / least[key], figures["host_apply_ms"] / least["host_apply_ms"])
            for shapes, figures in of_kind.items()]


def kind_of(nested):
    return "nested" if nested else "flat"


def print_growths(all_results):
    print("\ngrowth of apply ¼ beside the office's own writes (the fewest shapes = 1)")
    for nested in (False, True):
        for shapes, ours, writes in growths(all_results, nested, "apply_ms"):
            print(f"{shapes:8} {kind_of(nested):8}{ours:10.1f}{writes:10.1f}")


def verdict(text, figure, met):
    return {"goal": text, "figure": round(figure, 2), "met": bool(met)}


def document_goals(all_results):
    """Each goal of the work on documents with its figure, and whether it is met."""
    flat = {shapes: results for (shapes, fills, nested), results in all_results.items()
            if fills == FEW and not nested}
    if 4000 in flat:
        for key, factor in (("scan_ms", 10), ("apply_ms", 5)):
            ratio = flat[4000]["basic"][key] / flat[4000]["huebrush"][key]
            yield verdict(f"{key[:-3]} at 4000 shapes ≥ {factor}× as fast as the Basic macro",
                          ratio, ratio >= factor)
    if 4000 in flat and 16000 in flat:
        for key in ("scan_ms", "apply_ms"):
            growth = flat[16000]["huebrush"][key] / flat[4000]["huebrush"][key]
            yield verdict(f"{key[:-3]}: time(16000) / time(4000) ≤ 5", growth, growth <= 5)
    many = all_results.get((16000, MANY, False))
    if many and 16000 in flat:
        ratio = many["huebrush"]["scan_ms"] / flat[16000]["huebrush"]["scan_ms"]
        yield verdict(f"scan of 16000 shapes: {MANY} fills ≤ 5× the time with {FEW}", ratio,
                      ratio <= 5)
    yield from macro_goals(all_results)


def macro_goals(all_results):
    """That no operation is slower than a macro's, whatever the document."""
    titles = dict(OPERATIONS)
    for key in COMPARED:
        ratio, peer, (shapes, _, nested) = slowest(all_results, key)
        yield verdict(f"{titles[key]}: a macro takes ≥ 1× as long "
                      f"(least: {peer}, {shapes} {kind_of(nested)})", ratio, ratio >= 1)
    for nested in (False, True):
        shapes, ratio = max(((shapes, ours / writes) for shapes, ours, writes
                             in growths(all_results, nested, "apply_ms")), key=lambda one: one[1])
        yield verdict(f"apply ¼, {kind_of(nested)}: grows ≤ 1× as the office's own writes "
                      f"(most at {shapes})", ratio, ratio <= 1)


def dialog_goals(dialogs):
    for text, figure, limit in dialog.goals(dialogs):
        yield verdict(f"the dialog: {text}", figure, figure < limit)


def memory_goals(memory):
    own = memory["scan/16000/8"]
    yield verdict("own logic on the memory host ≤ 1000 ns a shape (16000 shapes, 8 fills)", own,
                  own <= 1000)


def measure_documents(sizes, runs, extensions, folder):
    """The figures of all measurers by document, as (shapes, fills, nested)."""
    cases = [(size, FEW, nested) for size in sizes for nested in (False, True)]
    if max(sizes) >= 16000:
        cases.append((16000, MANY, False))
    measurers = {"huebrush": huebrush, **PEERS}
    results = {}
    for case in cases:
        shapes, fills, nested = case
        document = make_document(folder, *case)
        # Many fills take the macro minutes, and the goal there is about our own growth.
        measured = measurers if fills == FEW else {"huebrush": huebrush}
        results[case] = measure(document, runs, measured, extensions)
        check_agreement(results[case])
        print_table(f"{shapes} shapes, {fills} fills, {kind_of(nested)} (ms)", results[case])
        sys.stdout.flush()
    print_growths(results)
    return results


def measure_dialogs(runs, extensions, folder):
    dialogs = {}
    for rows in DIALOG_ROWS:
        document = make_document(folder, rows, rows, False)
        dialogs[rows] = dialog.measure(document, runs, extensions)
        dialog.print_table(rows, dialogs[rows])
    return dialogs


def measure_memory(program):
    memory = memory_figures(program)
    print("\nthe logic alone, on the memory host (ns a shape)")
    for name, value in memory.items():
        print(f"{name:24}{value:10.0f}")
    return memory


def measure_palettes(build, runs):
    figures = palettes.measure(build, runs, PALETTE_ROWS)
    palettes.print_table(figures)
    return figures


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--json", type=Path, help="also write all figures here")
    parser.add_argument("--shapes", default="250,1000,4000,16000")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--windows-build", type=Path, default=ROOT / "build" / "windows-x86_64")
    parser.add_argument("--documents-only", action="store_true",
                        help="measure only documents in the office")
    arguments = parser.parse_args()
    sizes = [int(size) for size in arguments.shapes.split(",")]
    build, runs = arguments.build, arguments.runs
    extensions = build / "bench" / "extensions"

    with tempfile.TemporaryDirectory(prefix="huebrush-bench-") as name:
        folder = Path(name)
        results = measure_documents(sizes, runs, extensions, folder)
        figures = {"documents": [{"shapes": s, "fills": f, "nested": n, "results": r}
                                 for (s, f, n), r in results.items()]}
        verdicts = list(document_goals(results))
        if not arguments.documents_only:
            dialogs = measure_dialogs(runs, extensions, folder)
            memory = measure_memory(build / "bin" / "memory_bench")
            palette_figures = measure_palettes(build, runs)
            in_word = word.measure(arguments.windows_build, runs)
            word.print_table(in_word)
            files = documents.measure_all(build, documents.MAKERS, documents.SIZES, runs)
            documents.print_table(files)
            figures |= {"memory_ns_per_shape": memory, "dialog": dialogs,
                        "palettes": palette_figures, "word": in_word,
                        "document_files": files}
            verdicts += [*memory_goals(memory), *dialog_goals(dialogs),
                         *palettes.verdicts(palette_figures), *word.verdicts(in_word),
                         *documents.verdicts(files)]
    palettes.print_verdicts(verdicts)
    if arguments.json:
        arguments.json.write_text(json.dumps({**figures, "goals": verdicts}, indent=2))


if __name__ == "__main__":
    main()
