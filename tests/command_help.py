# SPDX-License-Identifier: MPL-2.0
"""The program's commands, as its own help has them."""

import re


def options_in(text):
    """The long options that a text mentions."""
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]*", text))


def every_command(help_of, path=()):
    """Every command by its words, with its help and the names of the commands below it. `help_of`
    gives the help on the command with these words."""
    text = help_of(path)
    listed = text.partition("\nSubcommands:\n")[2].partition("\n\n")[0]
    below = re.findall(r"^  (\w+) ", listed, re.MULTILINE)
    yield path, text, below
    for name in below:
        yield from every_command(help_of, (*path, name))
