# SPDX-License-Identifier: MPL-2.0
"""The completions of each shell know every command and every option of it, and what they take."""

import os
import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))

from command_help import every_command  # noqa: E402

PROGRAM = os.environ["HUEBRUSH_PROGRAM"]
LIMIT = 60


def output(*command, **options):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          timeout=LIMIT, **options)
    assert done.returncode == 0, (command, done.stderr)
    return done.stdout


def commands():
    """Every command by its words: its options, and the commands below it."""
    for path, text, below in every_command(lambda path: output(PROGRAM, *path, "--help")):
        options = set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", text, re.MULTILINE))
        options |= set(re.findall(r"^  (-\w)\b", text, re.MULTILINE))
        yield path, options, set(below)


class Completions(unittest.TestCase):
    SHELL = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(prefix="huebrush-completions-")
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.script = cls.folder / "_huebrush"
        cls.script.write_text(output(PROGRAM, "completions", cls.SHELL))
        cls.commands = list(commands())

    def assert_complete(self):
        self.assertGreater(len(self.commands), 10)
        for path, options, below in self.commands:
            self.assertIn("--help", options)
            self.assertEqual(self.completed(*path, "-"), options, path)
            if below:
                self.assertEqual(self.completed(*path, ""), below, path)


class Bash(Completions):
    SHELL = "bash"

    def completed(self, *words):
        script = ('source "$0"; COMP_WORDS=(huebrush "$@"); COMP_CWORD=$#; _huebrush; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        return set(output("bash", "--norc", "-c", script, self.script, *words).split())

    def test_commands_and_options(self):
        self.assert_complete()

    def test_values(self):
        self.assertEqual(self.completed("recolor", "--through", ""), {"documents", "office"})
        self.assertEqual(self.completed("recolor", "x.odt", "--also", "g"), {"gradients"})
        self.assertEqual(self.completed("palette", "import", "--format", ""),
                         {"json", "gpl", "soc", "ase"})
        self.assertEqual(self.completed("completions", ""), {"bash", "zsh", "fish"})
        self.assertEqual(self.completed("recolor", "--tolerance", ""), set())
        self.assertEqual(self.completed("recolor", "--in-place", "--tol"), {"--tolerance"})


class Fish(Completions):
    SHELL = "fish"

    def completed(self, *words):
        line = " ".join(["huebrush", *words])
        out = output("fish", "--no-config", "-c", f"source {self.script}; complete -C '{line}'",
                     cwd=self.folder, env=dict(os.environ, HOME=str(self.folder)))
        return {each.partition("\t")[0] for each in out.splitlines()}

    def test_commands_and_options(self):
        self.assert_complete()

    def test_values(self):
        (self.folder / "files").mkdir(exist_ok=True)
        self.assertEqual(self.completed("recolor", "--through", ""), {"documents", "office"})
        self.assertEqual(self.completed("recolor", "--also", "g"), {"gradients"})
        self.assertEqual(self.completed("completions", ""), {"bash", "zsh", "fish"})
        self.assertEqual(self.completed("recolor", "--output-dir", "f"), {"files/"})


class Zsh(Completions):
    SHELL = "zsh"
    # What the completion system would be given; the words are what it would take for them.
    STAND_INS = """
        compdef() { }
        _arguments() { print -rl -- "$@"; state=$wanted; }
        _describe() { print -rl -- "${(@P)2}"; }
        source "$0"
        wanted=$1; shift
        words=("$@")
        _huebrush${(j::)${@/#/_}}
        """

    def specifications(self, path, state=""):
        return output("zsh", "-f", "-c", self.STAND_INS, self.script, state, *path).splitlines()

    def test_commands_and_options(self):
        for path, options, below in self.commands:
            given = self.specifications(path)
            named = {each for line in given for each in re.findall(r"^\*(--?[a-z-]+)\[", line)}
            self.assertEqual(named, options, path)
            if below:
                described = {line.partition(":")[0]
                             for line in self.specifications(path, "command")}
                self.assertLessEqual(below, described)

    def test_values(self):
        given = self.specifications(("recolor",))
        self.assertTrue(any(line.startswith("*--through[") and
                            line.endswith("]:value:(documents office)") for line in given))
        self.assertIn("*:file:_files", given)
        self.assertIn("1:value:(bash zsh fish)", self.specifications(("completions",)))


# The class that the others share has no tests.
del Completions

if __name__ == "__main__":
    unittest.main(verbosity=2)
