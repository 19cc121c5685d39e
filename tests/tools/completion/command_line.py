"""What --help shows of a command."""

import re

OPTION = re.compile(r"^  (?:(-\w),)?(--[\w-]+)", re.MULTILINE)
COMMAND = re.compile(r"^  (\w+) {2,}(\S.*)$", re.MULTILINE)
POSITIONAL = re.compile(r"^  ([A-Z]+)\b", re.MULTILINE)
GROUP = re.compile(r"^(\S.*):$", re.MULTILINE)


class Help:
    def __init__(self, lines):
        self.text = "\n".join(lines)

    def section(self, title):
        return self.text.partition(f"\n{title}:\n")[2].partition("\n\n")[0]

    @property
    def commands(self):
        """Their descriptions by their names."""
        return dict(COMMAND.findall(self.section("Subcommands")))

    @property
    def options(self):
        return {name for _, name in OPTION.findall(self.text)}

    @property
    def positionals(self):
        return POSITIONAL.findall(self.section("Positionals"))

    @property
    def groups(self):
        """The titles of further groups of options."""
        return set(GROUP.findall(self.text)) - {"Positionals", "Options", "Subcommands", "Example", "Examples"}
