# SPDX-License-Identifier: MPL-2.0
"""Documents that the program changes itself, beside what an office makes of them: the rows are the
same, only fills change in the file, the office finds them there, and the former ones come back.

It tries the examples and the documents that the tests make; HUEBRUSH_SAMPLES may name a folder of
further ones.
"""

import contextlib
import io
import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import docx
from odf.opendocument import load as load_odf

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "libreoffice"))

import generated_documents  # noqa: E402
from document_parts import FILL_WORDS, out_of_order, parts_of, rest_without  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
SAMPLES = os.environ.get("HUEBRUSH_SAMPLES")
EXAMPLES = [ROOT / "examples" / "town.odt", ROOT / "examples" / "town.docx"]
LIMIT = 240
# One of each kind, by the rows that get them.
NEW_FILLS = {
    1: "#0070C0", 2: "#123456@25%", 3: "#0000FE",
    4: '{"Type": 3, "GradientStyle": 1, "GradientVariant": 2, "GradientColorType": 2,'
       ' "ForeColorRGB": 255, "BackColorRGB": 65280}',
    5: '{"Type": 2, "Pattern": 41, "ForeColorRGB": 255, "BackColorRGB": 65280}',
    6: '{"Type": 4, "TextureType": 1, "PresetTexture": 12}',
}
PICTURES = (4, 6)
# Writer paints patterns of .docx by hatches, of which it has fewer.
KNOWN_DIFFERENCES = {".docx": {"Pattern"}}
# A shape that names a common style itself: Writer does not look there.
OTHER_ROWS = {"odf-by_inherited_styles.odt"}


def huebrush(*arguments, office):
    through = ("--through", "office" if office else "documents")
    return subprocess.run([PROGRAM, arguments[0], *through, *map(str, arguments[1:])],
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True, timeout=LIMIT)


def rows_of(documents, office):
    """The rows of each document that can be read, by its name, of one call over all of them."""
    listed = huebrush("fills", "--json", *documents, office=office)
    if len(documents) == 1:
        return {str(documents[0]): json.loads(listed.stdout)["rows"]} if listed.stdout else {}
    return {each["document"]: each["rows"] for each in json.loads(listed.stdout)["documents"]
            if "rows" in each}


def differing(one, other):
    """The properties in which rows differ; None where their shapes do."""
    if [row["shapes"] for row in one] != [row["shapes"] for row in other]:
        return None
    return {name for a, b in zip(one, other) for name in a["fill"]
            if a["fill"][name] != b["fill"][name]}


def look(row):
    """What a user sees of a row, but for its colour."""
    return row["shapes"], row["fill"]["Visible"], row["fill"]["Type"]


def channels(row):
    """The colour of a row that has one."""
    color = row["fill"]["ForeColorRGB"] if row["fill"]["Visible"] else 0
    return color & 0xFF, color >> 8 & 0xFF, color >> 16


def look_alike(ours, office):
    """Writer rounds the colours of a theme at each step."""
    return (list(map(look, ours)) == list(map(look, office)) and
            all(abs(one - other) <= 1 for pair in zip(map(channels, ours), map(channels, office))
                for one, other in zip(*pair)))


def opens(document):
    """Whether another program reads the document; each refuses some that LibreOffice reads."""
    try:
        with contextlib.redirect_stdout(io.StringIO()), contextlib.redirect_stderr(io.StringIO()):
            if document.suffix == ".docx":
                return docx.Document(str(document)).element.body is not None
            return load_odf(str(document)).body.firstChild is not None
    except Exception:  # whatever it may be in each
        return False


class Documents:
    """The tests of a collection of documents."""

    # How many of them may differ in their rows from those of the office.
    MAY_DIFFER = 0

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-without-office-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.documents = cls.collect()
        cls.rows = rows_of(cls.documents, False)
        cls.by_office = rows_of(cls.documents, True)
        cls.results = {document: result for document in cls.documents
                       if (result := cls.recoloured(document))}

    @classmethod
    def recoloured(cls, document):
        """The document with new fills in its first rows; None where they can have none."""
        rows = cls.rows.get(str(document))
        if not rows:
            return None
        place = cls.folder / "new"
        place.mkdir(exist_ok=True)
        output = place / f"{len(list(place.iterdir()))}{document.suffix}"
        # No listing holds the bytes of a picture, so that none could come back.
        requests = [f"--row={row}={fill}" for row, fill in NEW_FILLS.items()
                    if row <= len(rows) and rows[row - 1]["fill"]["Type"] not in PICTURES]
        if not requests:
            return None
        done = huebrush("recolor", document, "-o", output, "--json", *requests, office=False)
        assert done.returncode == 0, (document, done.stderr)
        return output if json.loads(done.stdout)["changed"] else None

    def compare(self, documents, ours, by_office):
        """Compares the rows of documents that both could read, and says how many are the same."""
        both = [each for each in documents if str(each) in ours and str(each) in by_office]
        same = [each for each in both if ours[str(each)] == by_office[str(each)]]
        alike = [each for each in both if look_alike(ours[str(each)], by_office[str(each)])]
        print(f"{len(same)} of {len(both)} documents have the same rows, "
              f"{len(alike)} the same but for rounding and patterns")
        other = {each.name for each in both if each not in alike} - OTHER_ROWS
        self.assertLessEqual(len(other), self.MAY_DIFFER, other)
        return both

    def test_rows_are_those_of_the_office(self):
        self.assertGreater(len(self.compare(self.documents, self.rows, self.by_office)), 1)

    def test_only_fills_change(self):
        for document, result in self.results.items():
            with self.subTest(document.name):
                before, after = parts_of(document), parts_of(result)
                self.assertEqual([name for name in after if name in before], list(before))
                changed = [name for name in before if before[name] != after[name]]
                self.assertTrue(changed)
                for name in changed:
                    self.assertEqual(rest_without(before[name], FILL_WORDS),
                                     rest_without(after[name], FILL_WORDS), name)

    def test_what_changes_is_in_the_order_of_the_schemas(self):
        for document, result in self.results.items():
            with self.subTest(document.name):
                before, after = parts_of(document), parts_of(result)
                for name in after:
                    if after[name] == before.get(name) or not after[name].startswith(b"<"):
                        continue
                    former = out_of_order(before[name]) if name in before else set()
                    self.assertLessEqual(out_of_order(after[name]), former, name)

    def test_the_office_finds_the_new_fills(self):
        results = list(self.results.values())
        ours, by_office = rows_of(results, False), rows_of(results, True)
        readable = {str(result) for document, result in self.results.items()
                    if str(document) in self.by_office}
        self.assertLessEqual(readable, set(by_office))
        self.compare(results, ours, by_office)

    def test_the_former_fills_come_back(self):
        for document, result in self.results.items():
            with self.subTest(document.name):
                former = [(row["shapes"], row["fill"]) for row in self.rows[str(document)]]
                changed = json.loads(huebrush("fills", "--json", result, office=False).stdout)
                if len(changed["rows"]) != len(former):
                    continue  # a new fill is that of another row, so that they are one
                for row, (_, fill) in zip(changed["rows"], former):
                    row["new"] = fill
                plan = self.folder / "back.json"
                plan.write_text(json.dumps(changed), encoding="utf-8")
                again = self.folder / f"back{document.suffix}"
                done = huebrush("recolor", result, "-o", again, "--plan", plan, office=False)
                self.assertEqual(done.returncode, 0, done.stderr)
                back = rows_of([again], False)[str(again)]
                self.assertEqual([(row["shapes"], row["fill"]) for row in back], former)

    def test_other_programs_open_the_result(self):
        opened = 0
        for document, result in self.results.items():
            with self.subTest(document.name):
                if opens(document):
                    self.assertTrue(opens(result))
                    opened += 1
        print(f"{opened} of {len(self.results)} results open in other programs")
        self.assertGreater(opened, 0.7 * len(self.results))


class Examples(Documents, unittest.TestCase):
    @classmethod
    def collect(cls):
        return EXAMPLES

    def compare(self, documents, ours, by_office):
        for document in documents:
            found = differing(ours[str(document)], by_office[str(document)])
            self.assertIsNotNone(found)
            self.assertLessEqual(found, KNOWN_DIFFERENCES.get(document.suffix, set()))
        return documents

    def test_no_office_is_needed(self):
        for document in EXAMPLES:
            output = self.folder / f"alone{document.suffix}"
            done = subprocess.run(
                [PROGRAM, "recolor", str(document), "-o", str(output), "--map", "#C00000=#0070C0"],
                env={"PATH": "", "HUEBRUSH_OFFICE": "/nonexistent"}, stdin=subprocess.DEVNULL,
                stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, timeout=LIMIT,
                check=False)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertTrue(output.exists())


class Generated(Documents, unittest.TestCase):
    """What the tests make by hand and by other programs."""

    @classmethod
    def collect(cls):
        return generated_documents.write_all(cls.folder)


@unittest.skipUnless(SAMPLES, "HUEBRUSH_SAMPLES names no folder")
class Samples(Documents, unittest.TestCase):
    # What differs is in docs/document-files.md.
    MAY_DIFFER = 6

    @classmethod
    def collect(cls):
        return [each for each in sorted(Path(SAMPLES).rglob("*"))
                if each.suffix in (".odt", ".docx", ".fodt")]


if __name__ == "__main__":
    unittest.main(verbosity=2)
