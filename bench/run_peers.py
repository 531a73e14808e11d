#!/usr/bin/python3
# SPDX-License-Identifier: MPL-2.0
"""Runs the peers on a document and prints their figures as JSON.

    bench/run_peers.py DOCUMENT [--runs 5] [--hidden]

Each peer has a fresh private LibreOffice; in it the document is reloaded for each run, and the
peer works in the office's process, on its main thread. Printed are the medians. With --hidden the
document has no window.
"""

import argparse
import json
import statistics
import sys
from pathlib import Path

BENCH = Path(__file__).resolve().parent
sys.path.insert(0, str(BENCH.parent / "tools"))

from private_office import PrivateOffice, file_url  # noqa: E402

from com.sun.star.beans import NamedValue  # noqa: E402

BASIC_LIBRARY, BASIC_MODULE = "HuebrushBench", "Peer"
SCRIPT_URL = (
    f"vnd.sun.star.script:{BASIC_LIBRARY}.{BASIC_MODULE}.Measure"
    "?language=Basic&location=application"
)
PYTHON_PEER = "huebrush.bench.PyunoPeer"


def basic_peer(office):
    """Puts the macro into the private profile; returns what runs it."""
    libraries = office.create("com.sun.star.script.ApplicationScriptLibraryContainer")
    library = libraries.createLibrary(BASIC_LIBRARY)
    source = (BENCH / "peer_basic.bas").read_text(encoding="utf-8")
    library.insertByName(BASIC_MODULE, source)
    factory = office.create("com.sun.star.script.provider.MasterScriptProviderFactory")
    script = factory.createScriptProvider("").getScript(SCRIPT_URL)
    return lambda document: script.invoke((document,), (), ())[0]


def pyuno_peer(office):
    """Loads the component into the office's process; returns what runs it."""
    loader = office.create("com.sun.star.loader.Python")
    factory = loader.activate(PYTHON_PEER, "", file_url(BENCH / "peer_pyuno.py"), None)
    peer = factory.createInstanceWithContext(office.context)
    return lambda document: peer.execute((NamedValue("Document", document),))


PEERS = {"basic": basic_peer, "pyuno": pyuno_peer}


def run(peer, document_path, runs, hidden):
    """The figures of all runs of one peer."""
    figures = []
    with PrivateOffice() as office:
        measure = peer(office)
        for _ in range(runs):
            document = office.load(document_path, hidden)
            office.finish_pending()
            result = json.loads(office.on_main_thread(lambda: measure(document)))
            if "error" in result:
                raise RuntimeError(result["error"])
            figures.append(result)
            document.close(True)
    return figures


def medians(figures):
    return {key: statistics.median(run[key] for run in figures) for key in figures[0]}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("document", type=Path)
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--hidden", action="store_true")
    arguments = parser.parse_args()
    results = {
        name: medians(run(peer, arguments.document, arguments.runs, arguments.hidden))
        for name, peer in PEERS.items()
    }
    print(json.dumps(results, indent=2))


if __name__ == "__main__":
    main()
