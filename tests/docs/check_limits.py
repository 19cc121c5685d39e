"""Wherever the manual, the schemas and the headers tell in words how large a document may be, they
say what the headers define.

check_limits.py PROJECT
"""

import json
import pathlib
import re
import sys
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from limits import in_words, limits_of  # noqa: E402

PROJECT = None

# By what words each place tells the limit of which document.
PLACES = {
    "include/korvel/plx/common.h": {
        "PROPERTY": r"The largest `property\.json`: (\d+ [KMG]iB)\.",
        "DATA": r"The largest clip file \(`\.kxclip`\): (\d+ [KMG]iB)\."},
    "docs/clip-format.md": {
        "PROPERTY": r"`property\.json` of more than (\d+ [KMG]iB) counts as missing",
        "DATA": r"clip file of more than (\d+ [KMG]iB) is not read"},
    "docs/reliability.md": {
        "PROPERTY": r"\| `property\.json` \| (\d+ [KMG]iB) \(#KRT_PLX_PROPERTY_DOCUMENT_LIMIT\) \|",
        "DATA": r"\| clip file \| (\d+ [KMG]iB) \(#KRT_PLX_DATA_DOCUMENT_LIMIT\) \|"},
    "docs/schemas/property.schema.json": {
        "PROPERTY": r"A file of more than (\d+ [KMG]iB) counts as missing\."},
    "docs/schemas/data.schema.json": {
        "DATA": r"A file of more than (\d+ [KMG]iB) is not read\."},
    "docs/schemas/standalone.schema.json": {
        "DATA": r"A file of more than (\d+ [KMG]iB) is not read\."},
}


def text_of(file):
    """Of a schema only its own description."""
    text = (PROJECT / file).read_text(encoding="utf-8")
    if file.endswith(".json"):
        return json.loads(text)["description"]
    return " ".join(text.split())


class Limits(unittest.TestCase):
    def test_each_place_says_what_the_headers_define(self):
        limits = limits_of(PROJECT)
        self.assertEqual(set(limits), {"PROPERTY", "DATA"})
        for file, patterns in PLACES.items():
            for name, pattern in patterns.items():
                with self.subTest(f"{file}, {name}"):
                    self.assertEqual(re.findall(pattern, text_of(file)), [in_words(limits[name])])


if __name__ == "__main__":
    PROJECT = pathlib.Path(sys.argv[1])
    unittest.main(argv=sys.argv[:1], verbosity=2)
