"""Runs the example programs, natively or under Wine, and reads what they print."""

import dataclasses
import pathlib
import re
import subprocess
import unicodedata


@dataclasses.dataclass
class Result:
    code: int
    lines: list
    errors: str


@dataclasses.dataclass
class Programs:
    """The programs of a build folder, and how to start them."""

    folder: pathlib.Path
    suffix: str
    root: str
    launcher: list

    def path(self, path):
        """A path as the program has to be told it."""
        return f"{self.root}{path}"

    def run(self, name, *arguments, **options):
        command = [*self.launcher, str(self.folder / f"{name}{self.suffix}"), *arguments]
        result = subprocess.run(command, check=False, capture_output=True, **({"timeout": 120} | options))
        output = result.stdout.decode("utf-8")
        return Result(result.returncode, output.splitlines(), result.stderr.decode("utf-8"))


def from_arguments(case, sources, folder, suffix="", root="", *launcher):
    """What CTest tells a test: the case to run, the folder of the sources, and the programs."""
    return case, pathlib.Path(sources), Programs(pathlib.Path(folder), suffix, root, launcher)


def display_width(text):
    return sum(2 if unicodedata.east_asian_width(letter) in "WF" else 1 for letter in text)


def column_at(line, begin, end):
    """The part of a line that stands in these columns of the console."""
    cell = ""
    column = 0
    for letter in line:
        if column >= begin and (end is None or column < end):
            cell += letter
        column += display_width(letter)
    return cell.strip()


def columns_of(heading_line):
    """The headings of a printed catalogue, each with the columns where it begins and ends."""
    headings = list(re.finditer(r" *(\S+) *", heading_line))
    begins = [0, *(heading.start(1) for heading in headings[1:]), None]
    return [(heading[1], *ends) for heading, *ends in zip(headings, begins, begins[1:])]


def listed_clips(lines):
    """The rows of the catalogues in an output, as maps from headings to cells."""
    columns = []
    for line in lines:
        if line.startswith("  #  "):
            columns = columns_of(line)
        elif re.match(r" *\d+  ", line) and columns:
            yield {heading: column_at(line, begin, end) for heading, begin, end in columns}
        elif re.fullmatch(r"\d+ of \d+ clips", line):
            columns = []
