"""The page on units tells of the numbers of a clip what the table of keys and the headers tell.

check_units.py PROJECT PROGRAM

PROGRAM prints the table of keys. That nothing slips through is shown: each number of the page's tables is
changed by one, and each is noticed.
"""

import json
import pathlib
import re
import subprocess
import sys
import unittest

from bounds import Claim, Table, contradictions

NUMBER = r"-?\d+(?:\.\d+)?"
NO_LANGUAGE = 0xFFFFFFFF
TABLE = PAGE = HEADERS = None


def rows_of(page, heading):
    """The cells of the lines of the table that has this heading."""
    inside = False
    for line in page.splitlines():
        inside = line == heading or inside and line.startswith("|")
        if inside and line != heading and not line.startswith("|-"):
            yield re.split(r"\s*\|\s*", line)[1:-1]


def rows_at(path):
    """The rows of a key; there is one in a part for each kind of voice."""
    base, _, key = path.rpartition(".")
    found = [row for row in TABLE.rows if row[1] == key and f".{row[0]}".endswith(f".{base}")]
    assert found, f"no document has {path}"
    return found


def facts_of(values, new):
    """(fact, value) that two cells tell."""
    span = re.match(rf"({NUMBER}) (?:to ({NUMBER})|to the |or more)", values)
    yield "minimum", float(span[1])
    if span[2]:
        yield "maximum", float(span[2])
    also = re.search(rf", or ({NUMBER}) for none", values)
    if also:
        yield "also", float(also[1])
    if new:
        yield "initial", float(NO_LANGUAGE if new == "none" else new)


def claims_of(page):
    for _, key, values, new in rows_of(page, "| what | key | values | new |"):
        for row in rows_at(key.strip("`")):
            for fact, value in facts_of(values, new):
                yield Claim("page", "units.md", row, fact, value)


# What the text beside the tables tells, and of which key it tells it.
IN_THE_TEXT = {r"a depth of (\d+)": "depths[].value", r"a rate of (\d+)": "rates[].value",
               r"types 0 to (\d+)": "vibrato.type"}


def claims_of_the_text(page):
    text = " ".join(page.split())
    for pattern, path in IN_THE_TEXT.items():
        told = [int(number) for number in re.findall(pattern, text)]
        for row in rows_at(path):
            yield Claim("page", "units.md", row, "maximum", told[0] if len(told) == 1 else told)


def wrong_marks(page):
    for mark, value, _ in rows_of(page, "| mark | value | where |"):
        defined = re.search(rf"^#define {mark.lstrip('#')} (\w+?)u?$", HEADERS, re.MULTILINE)
        if int(value, 0) != int(defined[1], 0):
            yield f"{mark} is {defined[1]}, not {value}"


def complaints(page):
    claims = [*claims_of(page), *claims_of_the_text(page)]
    return [*(text for _, text in contradictions(TABLE.rows, claims)), *wrong_marks(page)]


def with_one_more(page):
    """(line, the page with it), for each number of the tables."""
    lines = page.split("\n")
    for place, line in enumerate(lines):
        if line.startswith("| ") or any(re.search(pattern, line) for pattern in IN_THE_TEXT):
            told = re.sub("`[^`]*`", lambda code: "_" * len(code[0]), line)
            for match in re.finditer(rf"(?<![\w.])(?:0x[0-9A-F]+|{NUMBER})(?![\w.])", told):
                text = match[0]
                more = str(float(text) + 1) if "." in text else str(int(text, 0) + 1)
                changed = line[:match.start()] + more + line[match.end():]
                yield line, "\n".join([*lines[:place], changed, *lines[place + 1:]])


class Units(unittest.TestCase):
    def test_the_page_says_what_the_table_and_the_headers_say(self):
        self.assertEqual(complaints(PAGE), [])

    def test_each_number_is_compared(self):
        changed = list(with_one_more(PAGE))
        self.assertGreater(len(changed), 40)
        for line, page in changed:
            self.assertNotEqual(complaints(page), [], line)


if __name__ == "__main__":
    project, program = map(pathlib.Path, sys.argv[1:])
    TABLE = Table(json.loads(subprocess.run([program], check=True, capture_output=True, text=True).stdout))
    PAGE = (project / "docs/units.md").read_text(encoding="utf-8")
    HEADERS = "".join(path.read_text(encoding="utf-8") for path in (project / "include/korvel/plx").glob("*.h"))
    unittest.main(argv=sys.argv[:1], verbosity=2)
