#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Measures `huebrush fills` and `huebrush recolor` on document files beside the same through an
office, a script with lxml, and what the package alone costs: to inflate its largest part, and to
deflate it again.

    bench/documents.py [--build FOLDER] [--shapes 250,1000,4000,8000,16000,32000] [--runs 5]
                       [--kinds docx,odt]

All figures are of whole processes, the best of several runs, one after the other in each run. The
office's are those of one run, for up to OFFICE_SHAPES shapes, as it takes seconds each.
"""

import argparse
import json
import re
import subprocess
import sys
import tempfile
import zipfile
from pathlib import Path

BENCH = Path(__file__).resolve().parent
ROOT = BENCH.parent
sys.path[:0] = [str(BENCH), str(ROOT / "tools"), str(ROOT / "tests" / "libreoffice")]

import make_document  # noqa: E402
from handmade_docx import Docx, solid  # noqa: E402
from palettes import print_verdicts, run_process  # noqa: E402

# The logic counts shapes in 16 bits: it refuses documents with more than 32767.
SIZES = (250, 1000, 4000, 8000, 16000, 32000)
GROWN = 32000
# The fewest shapes for which the start of a process counts little.
LARGE = 4000
FILLS = 8
OFFICE_SHAPES = 1000
SMALL_DOCUMENTS, SMALL_SHAPES = 1000, 20
NEW = "123456"
PEER = ["/usr/bin/python3", BENCH / "peer_lxml.py"]
STARTER = ("import resource, subprocess, sys\n"
           "subprocess.run(sys.argv[1:], check=True, stdout=subprocess.DEVNULL)\n"
           "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)\n")
COMMANDS = ("fills", "recolor")
MEASURERS = ("huebrush", "lxml", "office", "floor")
PARTS = {"docx": "word/document.xml", "odt": "content.xml"}


def color(number):
    return make_document.color(number % FILLS).lstrip("#")


def make_docx(path, shapes):
    """Each shape in both languages that Word writes, as Word does."""
    document = Docx()
    for number in range(shapes):
        document.shape(solid(color(number)), twin=document.vml(f'fillcolor="#{color(number)}"'))
    document.write(path)


def make_odt(path, shapes):
    """The flat document, in the parts of a package."""
    flat = make_document.make(shapes, FILLS, False)
    root = re.search(r"<office:document\b[^>]*>", flat).group(0)
    attributes = re.sub(r' office:mimetype="[^"]*"', "", root[len("<office:document"):-1])
    version = re.search(r'office:version="([^"]*)"', root).group(1)

    def section(name):
        found = re.search(rf"<office:{name}\b.*?</office:{name}>|<office:{name}/>", flat, re.DOTALL)
        return found.group(0) if found else ""

    def part(kind, *names):
        return ('<?xml version="1.0" encoding="UTF-8"?>'
                f"<office:document-{kind}{attributes}>{''.join(map(section, names))}"
                f"</office:document-{kind}>")

    mimetype = "application/vnd.oasis.opendocument.text"
    names = {"": mimetype, "content.xml": "text/xml", "styles.xml": "text/xml"}
    manifest = "".join(f'<manifest:file-entry manifest:full-path="{name or "/"}" '
                       f'manifest:media-type="{kind}"/>' for name, kind in names.items())
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=6) as package:
        package.writestr("mimetype", mimetype, zipfile.ZIP_STORED)
        package.writestr("content.xml", part("content", "automatic-styles", "body"))
        package.writestr("styles.xml", part("styles", "styles", "automatic-styles",
                                            "master-styles"))
        package.writestr("META-INF/manifest.xml",
                         '<?xml version="1.0" encoding="UTF-8"?><manifest:manifest '
                         'xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" '
                         f'manifest:version="{version}">{manifest}</manifest:manifest>')


MAKERS = {"docx": make_docx, "odt": make_odt}


def commands(build, document, kind, output):
    """What is measured: each measurer's two commands."""
    old = color(0)
    mapped = f"--map=#{old}=#{NEW}"
    huebrush = build / "bin" / "huebrush"
    floor = [build / "bin" / "documents_floor", document, PARTS[kind]]
    office = "--through=office"
    return {
        "huebrush": ([huebrush, "fills", "--through=documents", document],
                     [huebrush, "recolor", "--through=documents", document, "-o", output, mapped]),
        "lxml": ([*PEER, "fills", document], [*PEER, "recolor", document, output, old, NEW]),
        "floor": (floor, [*floor, output]),
        "office": ([huebrush, "fills", office, document],
                   [huebrush, "recolor", office, document, "-o", output, mapped]),
    }


def fills_of(document):
    return sorted(subprocess.run([*PEER, "fills", document], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout.splitlines())


def memory_of(command):
    """The most memory that a program has, in KB. A small process starts it, as the system counts
    what the one that starts it had before."""
    done = subprocess.run(["/usr/bin/python3", "-c", STARTER, *map(str, command)], check=True,
                          text=True, stdout=subprocess.PIPE)
    return int(done.stdout)


def measure(build, document, kind, shapes, runs):
    """The best times of whole processes, by measurer and command, and the memory of ours."""
    output = document.with_name(f"out.{kind}")
    figures, written, memory = {}, {}, 0
    for run in range(runs):
        for name, pair in commands(build, document, kind, output).items():
            if name == "office" and (run or shapes > OFFICE_SHAPES):
                continue
            best = figures.setdefault(name, {})
            for command, arguments in zip(COMMANDS, pair):
                output.unlink(missing_ok=True)
                done = run_process(*arguments)
                best[command] = min(done["ms"], best.get(command, done["ms"]))
                if name == "huebrush" and not run:
                    memory = max(memory, memory_of(arguments))
            if name in ("huebrush", "lxml") and name not in written:
                written[name] = fills_of(output)
    if written["huebrush"] != written["lxml"] or written["lxml"] == fills_of(document):
        raise RuntimeError(f"the measurers disagree about the new fills: {written}")
    with zipfile.ZipFile(document) as package:
        part = package.getinfo(PARTS[kind]).file_size / 1024
    return figures | {"memory_kb": memory, "part_kb": part}


def measure_many(build, folder):
    """Documents a second in one call over many."""
    huebrush = build / "bin" / "huebrush"
    sources, output = folder / "many", folder / "recoloured"
    sources.mkdir()
    output.mkdir()
    documents = [sources / f"{number}.docx" for number in range(SMALL_DOCUMENTS)]
    make_docx(documents[0], SMALL_SHAPES)
    for document in documents[1:]:
        document.write_bytes(documents[0].read_bytes())
    done = run_process(huebrush, "recolor", *documents, "--output-dir", output, "--jobs=1",
                       f"--map=#{color(0)}=#{NEW}")
    if len(list(output.iterdir())) != SMALL_DOCUMENTS:
        raise RuntimeError("a call over many documents left some of them out")
    return SMALL_DOCUMENTS / (done["ms"] / 1000)


def print_table(figures):
    for command in COMMANDS:
        print(f"\n{command} of document files, whole processes (ms)")
        print(f"{'document':>16}" + "".join(f"{name:>10}" for name in MEASURERS))
        for each in figures["files"]:
            cells = [each[name][command] if name in each else None for name in MEASURERS]
            print(f"{each['shapes']:>11} {each['kind']:4}" +
                  "".join(f"{'–':>10}" if cell is None else f"{cell:10.1f}" for cell in cells))
    print(f"\n{SMALL_DOCUMENTS} documents in one call: {figures['many_per_second']:.0f} a second")


def verdict(goal, figure, met):
    return {"goal": goal, "figure": round(figure, 2), "met": bool(met)}


def verdicts(figures):
    by_document = {(each["kind"], each["shapes"]): each for each in figures["files"]}
    for (kind, shapes), each in by_document.items():
        for command in COMMANDS:
            yield from time_goals(by_document, kind, shapes, command)
        if shapes >= LARGE:
            ratio = each["memory_kb"] / each["part_kb"]
            yield verdict(f"documents: memory for {shapes} shapes, .{kind} ≤ 8 × the largest part",
                          ratio, ratio <= 8)
    many = figures["many_per_second"]
    yield verdict(f"documents: {SMALL_DOCUMENTS} small ones in one call ≥ 50 a second a core",
                  many, many >= 50)


def time_goals(by_document, kind, shapes, command):
    times = by_document[(kind, shapes)]
    ours = times["huebrush"][command]
    name = f"documents: {command} of {shapes} shapes, .{kind}"
    if "office" in times:
        ratio = times["office"][command] / ours
        yield verdict(f"{name} ≥ 100 × as fast as through the office", ratio, ratio >= 100)
    if shapes == 16000:
        ratio = times["lxml"][command] / ours
        yield verdict(f"{name} ≥ 4 × as fast as lxml", ratio, ratio >= 4)
    if shapes >= LARGE:
        ratio = ours / times["floor"][command]
        yield verdict(f"{name} ≤ 3.5 × the floor", ratio, ratio <= 3.5)
    if shapes == GROWN and (kind, GROWN // 4) in by_document:
        growth = ours / by_document[(kind, GROWN // 4)]["huebrush"][command]
        yield verdict(f"documents: {command}, .{kind}: time({GROWN}) / time({GROWN // 4}) ≤ 4.4",
                      growth, growth <= 4.4)


def measure_all(build, kinds, sizes, runs):
    files = []
    with tempfile.TemporaryDirectory(prefix="huebrush-bench-") as name:
        folder = Path(name)
        for kind in kinds:
            for shapes in sizes:
                document = folder / f"{shapes}.{kind}"
                MAKERS[kind](document, shapes)
                files.append({"kind": kind, "shapes": shapes}
                             | measure(build, document, kind, shapes, runs))
        return {"files": files, "many_per_second": measure_many(build, folder)}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", type=Path, default=ROOT / "build" / "release")
    parser.add_argument("--shapes", default=",".join(map(str, SIZES)))
    parser.add_argument("--kinds", default=",".join(MAKERS))
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--json", type=Path, help="also write all figures here")
    arguments = parser.parse_args()
    sizes = [int(size) for size in arguments.shapes.split(",")]
    figures = measure_all(arguments.build, arguments.kinds.split(","), sizes, arguments.runs)
    print_table(figures)
    found = list(verdicts(figures))
    print_verdicts(found)
    if arguments.json:
        arguments.json.write_text(json.dumps({**figures, "goals": found}, indent=2))


if __name__ == "__main__":
    main()
