# SPDX-License-Identifier: MPL-2.0
"""Checks the documents for users: the two manuals are the same one in two languages, their links
lead somewhere, the texts that they quote are on the screen, and the commands that they show are
ones that the program understands."""

import os
import re
import shlex
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))

from command_help import every_command, options_in  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
LIMIT = 60
NOT_UNDERSTOOD = 2

ENGLISH, CZECH = ROOT / "docs/manual.md", ROOT / "docs/manual.cs.md"
# What the manuals quote of LibreOffice; texts with an arrow are its menus.
HOST_TEXTS = {"Cancel", "Redo", "Yes", "Znovu", "Ano"}

FENCE = re.compile(r"^```.*?^```$", re.MULTILINE | re.DOTALL)
SPAN = re.compile(r"`([^`]+)`")
PICTURE = re.compile(r"!\[[^\]]*\]\(([^)]+)\)")
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
HEADING = re.compile(r"^(#+) +(.*)$", re.MULTILINE)
QUOTED = re.compile(r"(?<![*\w])\*(?![*\s])([^*]+)\*(?!\*)")
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
CAPTION = re.compile(r'setUp\(\w+, "([^"]+)"')


def prose_of(text):
    """A document without its blocks of code."""
    return FENCE.sub("", text)


def outline_of(text):
    """The levels of the headings, in their order."""
    return [len(marks) for marks, _ in HEADING.findall(prose_of(text))]


def tables_of(text):
    """The number of lines of each table."""
    tables = re.findall(r"(?:^\|.*\n?)+", prose_of(text), re.MULTILINE)
    return [table.count("\n") for table in tables]


def differences(text, other):
    """In what two manuals are not the same one."""
    aspects = {"headings": outline_of, "pictures": PICTURE.findall, "tables": tables_of,
               "code": FENCE.findall}
    return [name for name, aspect in aspects.items() if aspect(text) != aspect(other)]


def anchors_of(text):
    """What a link can name in a document: its headings."""
    headings = (re.sub(r"[^\w\- ]", "", heading.lower())
                for _, heading in HEADING.findall(prose_of(text)))
    return {heading.replace(" ", "-") for heading in headings}


def broken_links(document):
    """The links and pictures of a document that lead nowhere in the tree."""
    broken = []
    for link in LINK.findall(prose_of(document.read_text(encoding="utf-8"))):
        path, _, anchor = link.partition("#")
        if ":" in path:
            continue
        target = document.parent / path if path else document
        if not target.exists() or (
                anchor and anchor not in anchors_of(target.read_text(encoding="utf-8"))):
            broken.append(link)
    return broken


def literals_in(folder):
    """All texts of the product, one per line, as the screen shows them: without the marks of access
    keys, and what stands in several literals put together."""
    texts = []
    for file in sorted(folder.rglob("*")):
        if file.suffix in (".h", ".cpp") and not re.search("_test|Contract", file.name):
            joined = re.sub(r'"\s*\n\s*"', "", file.read_text(encoding="utf-8"))
            texts += LITERAL.findall(joined)
    return "\n".join(texts).replace("&", "").replace('\\"', '"')


def not_on_screen(text, literals):
    """The texts that a manual quotes and the product does not have. A quotation is looked up in
    parts where a file's name is left out, or a sentence ends."""
    missing = []
    for quoted in QUOTED.findall(SPAN.sub("", prose_of(text))):
        words = " ".join(quoted.split())
        if "▸" in words or words in HOST_TEXTS:
            continue
        parts = re.split(r'"?\.\.\."?|(?<=[.!?])\s', words)
        if not all(re.search(rf"(?<!\w){re.escape(part.strip())}(?!\w)", literals)
                   for part in parts):
            missing.append(words)
    return missing


def captions_of(design):
    """What stands on the controls of a dialog, going by its design."""
    captions = CAPTION.findall(design.read_text(encoding="utf-8"))
    return [caption.replace("&", "").rstrip(":") for caption in captions]


def commands_in(text):
    """The words of every command of the program that a document shows, without what the shell
    does with its output. The name of the program may be left out before `palette`."""
    lines = [line for block in FENCE.findall(text) for line in block.splitlines()
             if line.startswith("huebrush ")]
    spans = [span for span in SPAN.findall(prose_of(text))
             if re.match(r"(huebrush( |$)|palette )", span)]
    for shown in lines + spans:
        words = shlex.split(shown, comments=True)
        if ">" in words:
            words = words[:words.index(">")]
        yield words[1:] if words[0] == "huebrush" else words


class Program:
    """The program, in an empty folder and without an office."""

    def __init__(self, folder):
        self._folder = folder
        self._environment = dict(os.environ, HOME=folder, HUEBRUSH_OFFICE=f"{folder}/none")

    def run(self, *words):
        return subprocess.run([PROGRAM, *words], cwd=self._folder, env=self._environment, text=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=LIMIT, check=False)

    def understands(self, words):
        """Whether a command line is one of the program's, or the name of a command."""
        if self.run(*words).returncode != NOT_UNDERSTOOD:
            return True
        helped = self.run(*words, "--help")
        return not options_in(" ".join(words)) and self.usage_of(words) in helped.stdout

    @staticmethod
    def usage_of(words):
        """How the help on a command begins what can follow it."""
        return f"huebrush {' '.join(words)} ["

    def options(self):
        """The options of all commands."""
        commands = every_command(lambda path: self.run(*path, "--help").stdout)
        return set().union(*(options_in(text) for _, text, _ in commands))


class InAFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-manuals-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.program = Program(folder.name)


class Manuals(InAFolder):
    def setUp(self):
        super().setUp()
        self.texts = {path: path.read_text(encoding="utf-8") for path in (ENGLISH, CZECH)}

    def test_are_the_same_in_both_languages(self):
        self.assertEqual(differences(*self.texts.values()), [])

    def test_show_every_picture(self):
        pictures = {f"images/{path.name}" for path in (ROOT / "docs/images").iterdir()}
        self.assertEqual(set(PICTURE.findall(self.texts[ENGLISH])), pictures)

    def test_quote_what_is_on_the_screen(self):
        literals = literals_in(ROOT / "src")
        for path, text in self.texts.items():
            with self.subTest(path.name):
                self.assertGreater(len(QUOTED.findall(text)), 50)
                self.assertEqual(not_on_screen(text, literals), [])

    def test_name_every_control_of_the_dialogs_of_palettes(self):
        for name in ("frmSaveFill", "frmLoadFill"):
            captions = captions_of(ROOT / f"src/palette/{name}Design.cpp")
            self.assertGreater(len(captions), 8)
            for path, text in self.texts.items():
                with self.subTest(dialog=name, manual=path.name):
                    self.assertEqual([each for each in captions if each not in text], [])

    def test_show_commands_that_the_program_understands(self):
        for path in (*self.texts, ROOT / "README.md"):
            with self.subTest(path.name):
                commands = list(commands_in(path.read_text(encoding="utf-8")))
                self.assertGreater(len(commands), 10)
                self.assertEqual([words for words in commands
                                  if not self.program.understands(words)], [])

    def test_name_only_options_that_the_program_has(self):
        known = self.program.options()
        for path, text in self.texts.items():
            named = options_in(" ".join(SPAN.findall(prose_of(text))))
            with self.subTest(path.name):
                self.assertGreater(len(named), 5)
                self.assertEqual(named - known, set())


class Documents(unittest.TestCase):
    def test_have_links_that_lead_somewhere(self):
        documents = [path for folder in (".", "docs", "src")
                     for path in sorted((ROOT / folder).glob("*.md"))]
        self.assertIn(CZECH, documents)
        self.assertEqual({path.name: links for path in documents
                          if (links := broken_links(path))}, {})


class TheChecksThemselves(InAFolder):
    """Each is shown what it must find."""

    TEXT = "# A\n\n![x](a.png)\n\n| a |\n|---|\n| b |\n\n## B\n\n```\nls\n```\n"

    def test_a_manual_that_lacks_something_differs(self):
        for lacking, aspect in (("## B", "headings"), ("![x](a.png)", "pictures"),
                                ("| b |\n", "tables"), ("ls\n", "code")):
            self.assertEqual(differences(self.TEXT, self.TEXT.replace(lacking, "")), [aspect])
        self.assertEqual(differences(self.TEXT, self.TEXT.replace("# A", "# Jiné")), [])

    def test_pictures_in_another_order_differ(self):
        self.assertEqual(differences("![](a) ![](b)", "![](b) ![](a)"), ["pictures"])

    def test_links_that_lead_nowhere_are_found(self):
        document = self.folder / "a.md"
        document.write_text("# Žluťoučký kůň (1)\n\n[a](#žluťoučký-kůň-1) [b](#b) [c](c.md) "
                            "![d](d.png) [e](a.md#e) [f](https://f)\n", encoding="utf-8")
        self.assertEqual(broken_links(document), ["#b", "c.md", "d.png", "a.md#e"])

    def test_texts_that_are_not_on_the_screen_are_found(self):
        (self.folder / "a.cpp").write_text('f("&Vybrat...", "Soubor \\"",\n"byl "\n  "jinde!");\n',
                                           encoding="utf-8")
        (self.folder / "a_test.cpp").write_text('f("Zkouška");\n', encoding="utf-8")
        literals = literals_in(self.folder)
        good = '*Vybrat...* **fett** *Soubor "..." byl\njinde!* *Úpravy ▸ Zpět* `*a*`'
        self.assertEqual(not_on_screen(good, literals), [])
        self.assertEqual(not_on_screen("*Vybrat…* *Vybr...* *Zkouška*", literals),
                         ["Vybrat…", "Vybr...", "Zkouška"])

    def test_commands_that_the_program_does_not_have_are_found(self):
        commands = list(commands_in(
            "`palette list FILE` `palette save` `huebrush palette lst A` `palette save FILE B`\n\n"
            "```\nhuebrush fills a.odt > b  # c\nhuebrush palette list a.mdb --all\n```\n"))
        self.assertEqual([words for words in commands if not self.program.understands(words)],
                         [["palette", "list", "a.mdb", "--all"],
                          ["palette", "lst", "A"], ["palette", "save", "FILE", "B"]])
        self.assertNotIn("--all", self.program.options())


if __name__ == "__main__":
    unittest.main()
