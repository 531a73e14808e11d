# SPDX-License-Identifier: MPL-2.0
"""Documents that the program changes itself, beside what an office makes of them: the rows are the
same, only fills change in the file, and the office finds them there.

HUEBRUSH_SAMPLES may name a folder of further documents, of which the rows are compared.
"""

import json
import os
import re
import subprocess
import sys
import tempfile
import unittest
import zipfile
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import docx
from odf.opendocument import load as load_odf

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests" / "libreoffice"))

import generated_documents  # noqa: E402

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
# Writer paints patterns of .docx by hatches, of which it has fewer.
KNOWN_DIFFERENCES = {"town.docx": {"Pattern"}}
# A shape that names a common style itself: Writer does not look there.
OTHER_ROWS = {"odf-by_inherited_styles.odt"}
# What may stand in other bytes of a part: what a fill is made of, and names of styles.
FILL_WORDS = re.compile(rb"(?i:fill|opacity|style|pict|gradient|clr|pattern|blip|bmp|color)|"
                        rb"a:(gs|lin|tile|srcRect|stretch|alpha)|Relationship|gfxdata|Default")


def huebrush(*arguments, office):
    through = ("--through", "office" if office else "documents")
    return subprocess.run([PROGRAM, arguments[0], *through, *map(str, arguments[1:])],
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          text=True, timeout=LIMIT)


def rows(document, office):
    listed = huebrush("fills", "--json", document, office=office)
    if listed.returncode != 0:
        raise AssertionError(listed.stderr)
    return json.loads(listed.stdout)["rows"]


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


def parts_of(document):
    with zipfile.ZipFile(document) as package:
        return {name: package.read(name) for name in package.namelist()}


def tags(part):
    return re.findall(rb"<[^>]*>|[^<]+", part)


def rest_without(part, pattern):
    """The tags that say nothing of fills."""
    return [tag for tag in tags(part) if not pattern.search(tag)]


class WithoutOffice(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-without-office-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def recoloured(self, document):
        output = self.folder / f"new{document.suffix}"
        requests = [f"--row={row}={fill}" for row, fill in NEW_FILLS.items()]
        done = huebrush("recolor", document, "-o", output, *requests, office=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return output

    def test_rows_are_those_of_the_office(self):
        for document in EXAMPLES:
            with self.subTest(document.name):
                found = differing(rows(document, False), rows(document, True))
                self.assertIsNotNone(found)
                self.assertLessEqual(found, KNOWN_DIFFERENCES.get(document.name, set()))

    def test_rows_of_other_programs_documents(self):
        documents = [each for each in generated_documents.write_all(self.folder)
                     if each.suffix in (".docx", ".odt")]

        def listed(document):
            return [rows(document, office) for office in (False, True)]

        with ThreadPoolExecutor(2) as pool:
            answers = list(pool.map(listed, documents))
        for document, (ours, office) in zip(documents, answers):
            with self.subTest(document.name):
                self.assertEqual(look_alike(ours, office), document.name not in OTHER_ROWS,
                                 (ours, office))

    def test_only_fills_change(self):
        for document in EXAMPLES:
            with self.subTest(document.name):
                before, after = parts_of(document), parts_of(self.recoloured(document))
                self.assertEqual([name for name in after if name in before], list(before))
                changed = [name for name in before if before[name] != after[name]]
                self.assertTrue(changed)
                for name in changed:
                    self.assertEqual(rest_without(before[name], FILL_WORDS),
                                     rest_without(after[name], FILL_WORDS), name)

    def test_the_office_finds_the_new_fills(self):
        for document in EXAMPLES:
            with self.subTest(document.name):
                output = self.recoloured(document)
                found = differing(rows(output, False), rows(output, True))
                self.assertIsNotNone(found)
                self.assertLessEqual(found, KNOWN_DIFFERENCES.get(document.name, set()))

    def test_the_former_fills_come_back(self):
        for document in EXAMPLES:
            with self.subTest(document.name):
                plan = json.loads(huebrush("fills", "--json", document, office=False).stdout)
                former = [row["fill"] for row in plan["rows"]]
                output = self.recoloured(document)
                back = json.loads(huebrush("fills", "--json", output, office=False).stdout)
                self.assertEqual(len(back["rows"]), len(former))
                for row, fill in zip(back["rows"], former):
                    row["new"] = fill
                changes = self.folder / "back.json"
                changes.write_text(json.dumps(back), encoding="utf-8")
                again = self.folder / f"back{document.suffix}"
                done = huebrush("recolor", output, "-o", again, "--plan", changes, office=False)
                self.assertEqual(done.returncode, 0, done.stderr)
                self.assertEqual([row["fill"] for row in rows(again, False)], former)

    def test_other_programs_open_the_result(self):
        text, word = map(self.recoloured, EXAMPLES)
        self.assertIsNotNone(load_odf(str(text)).body.firstChild)
        self.assertIsNotNone(docx.Document(str(word)).element.body)

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

    @unittest.skipUnless(SAMPLES, "HUEBRUSH_SAMPLES names no folder")
    def test_rows_of_samples(self):
        documents = [each for each in sorted(Path(SAMPLES).rglob("*"))
                     if each.suffix in (".odt", ".docx", ".fodt")]

        def listed(document):
            answers = [huebrush("fills", document, office=office) for office in (False, True)]
            return [(answer.returncode == 0, answer.stdout) for answer in answers]

        with ThreadPoolExecutor(2) as pool:
            answers = list(pool.map(listed, documents))
        readable = [pair for pair in answers if pair[0][0] and pair[1][0]]
        same = sum(ours == office for ours, office in readable)
        print(f"{same} of {len(readable)} documents that both read have the same rows")
        self.assertGreater(same, 0.8 * len(readable))


if __name__ == "__main__":
    unittest.main(verbosity=2)
