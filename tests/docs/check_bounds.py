"""Wherever a range, a default or a key of the documents is told (in the JSON Schemas, on the page on the
clip format, in the comments of the public headers), it is what the table of keys says; and everything
that the table says is told in each of these places. What told_elsewhere.py lists is compared too.

check_bounds.py PROJECT INTERFACE_FILE PROGRAM

PROGRAM prints the table of keys. That nothing slips through is shown both ways: each fact of the table is
changed by one, and each number of the papers.
"""

import copy
import json
import pathlib
import re
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).parent
sys.path[:0] = [str(HERE), str(HERE.parent.parent / "bindings" / "interface")]
from bounds import CONTROLLER_TYPES, INT32, LEVEL_NAMES, NUMBERS, Table, contradictions, gaps  # noqa: E402
from bounds_of_headers import Headers  # noqa: E402
from bounds_of_page import HEADINGS, Page  # noqa: E402
from bounds_of_schemas import Schemas  # noqa: E402
from new_keys import PAGE, SCHEMAS as NEW_IN, with_new_keys  # noqa: E402
from told_elsewhere import Elsewhere  # noqa: E402

SOURCES = ("schemas", "page", "headers")
SCHEMAS = ("property.schema.json", "data.schema.json", "standalone.schema.json")
HEADERS = ("note.h", "part.h", "expression.h", "clip.h", "manager.h")
LENGTHS = ("shortest", "longest")

# What a source does not tell, by the end of the object's path, the key and the fact; with the reason.
UNTOLD = {
    ("headers", "notes[]", "pos", "initial"): "KRT_PLX_MutableMidiPart_insertNote() sets it",
    ("headers", "notes[]", "duration", "initial"): "KRT_PLX_MutableMidiPart_insertNote() sets it",
    ("headers", "langIDs[]", "langID", "initial"): "there is no entry without a language",
    ("headers", "events[]", "pos", "initial"): "KRT_PLX_MutableMidiController_insertEvent() sets it",
    ("headers", "events[]", "value", "initial"): "KRT_PLX_MutableMidiController_insertEvent() sets it",
    ("headers", "rates[]", "pos", "initial"): "KRT_PLX_MutableVibrato_insertParameter() sets it",
    ("headers", "rates[]", "value", "initial"): "KRT_PLX_MutableVibrato_insertParameter() sets it",
    ("headers", "depths[]", "pos", "initial"): "KRT_PLX_MutableVibrato_insertParameter() sets it",
    ("headers", "depths[]", "value", "initial"): "KRT_PLX_MutableVibrato_insertParameter() sets it",
    ("schemas", "notes[]", "langID", "initial"): "no document can say that there is no language",
    ("schemas", "events[]", "value", "minimum"): "it depends on the name of the lane",
    ("schemas", "events[]", "value", "maximum"): "it depends on the name of the lane",
    ("page", "data", "audio", "required"): "one of the three parts has to be there",
    ("page", "data", "midiAi", "required"): "one of the three parts has to be there",
    ("page", "data", "midi", "required"): "one of the three parts has to be there",
    ("page", "aiVoice", "langIDs", "required"): "the page tells what becomes of each language",
}
# Functions with numbers that are no key's, or no key's alone; with the reason.
WITHOUT_KEY = {
    "KRT_PLX_MidiControllerBase_minEventValue": "a bound of the lane's type",
    "KRT_PLX_MidiControllerBase_maxEventValue": "a bound of the lane's type",
    "KRT_PLX_MidiEventBase_minValue": "a bound of the lane's type",
    "KRT_PLX_MidiEventBase_maxValue": "a bound of the lane's type",
    "KRT_PLX_EffectParameterBase_valueInt32": "any number",
    "KRT_PLX_EffectParameterBase_valueFloat": "any number",
    "KRT_PLX_MutableEffectParameter_setValueInt32": "any number",
    "KRT_PLX_MutableEffectParameter_setValueFloat": "any number",
    "KRT_PLX_MutableFilter_removeLanguage": "any number; what is not there is not removed",
    "KRT_PLX_AudioPartBase_begin": "always 0",
    "KRT_PLX_AudioPartBase_end": "always 0",
    "KRT_PLX_MutableAudioPart_setRegion": "any number; nothing is stored",
}
# Numbers of the papers that are no bound of a key; with the reason.
NO_BOUND = {
    ("events", "minItems"): "a lane without good events is left out, a rule of the lane",
    ("KRT_PLX_MutableEffect_move", "2 or more"): "an example",
}


def is_untold(source, row, fact):
    return any(source == where and row[0].endswith(end) and (row[1], fact) == (key, what)
               for where, end, key, what in UNTOLD)


def is_needed(source, entry, row, fact, value):
    """Whether the source has to tell this fact."""
    if source == "elsewhere" or is_untold(source, row, fact):
        return False
    if row in (LEVEL_NAMES, CONTROLLER_TYPES):
        return source == ("schemas" if row == LEVEL_NAMES else "headers")
    is_limit = value in INT32 and fact in ("minimum", "maximum")
    if is_limit and source != "schemas" or (fact, value) == ("shortest", 0):
        return False  # what the type says; but of JSON's numbers none ends with 32 bits
    if source != "headers":
        return not (fact == "initial" and entry.is_required)
    # The setters of texts tell in words what they take.
    return fact in NUMBERS and (fact not in LENGTHS or "longest" in entry.facts)


class Papers:
    """All that is read, so that a copy can be changed."""

    def __init__(self, project, interface):
        self.texts = {f"docs/schemas/{name}": (project / "docs/schemas" / name).read_text(encoding="utf-8")
                      for name in SCHEMAS}
        self.schemas = {name: json.loads(self.texts[f"docs/schemas/{name}"]) for name in SCHEMAS}
        self.page = (project / PAGE).read_text(encoding="utf-8")
        self.elsewhere = {file: (project / file).read_text(encoding="utf-8") for file in Elsewhere.files()}
        self.api = json.loads(interface.read_text(encoding="utf-8"))
        self.headers = {name: in_one_line((project / "include/korvel/plx" / name).read_text(encoding="utf-8"))
                        for name in HEADERS}

    def claims(self, table, sources=SOURCES):
        found = []
        if "schemas" in sources:
            found += Schemas(table, self.schemas).read()
        if "page" in sources:
            found += Page(table, self.page).read()
        if "headers" in sources:
            found += Headers(table, self.api, self.headers).read()
        if "elsewhere" in sources:
            found += Elsewhere(table, self.elsewhere).read()
        return found


def in_one_line(header):
    return re.sub(r"\s*\n(?: \*)? *", " ", header)


def complaints(rows, claims, sources=SOURCES):
    """(source, what is wrong)"""
    return [*contradictions(rows, claims), *gaps(rows, claims, sources, is_needed)]


def changed(value):
    """Other values than this one."""
    if isinstance(value, bool):
        return [not value]
    if isinstance(value, (int, float)):
        return [value + 1, value - 1]
    return [value[1:]] if isinstance(value, list) else ["another"]


def changed_number(text):
    """The number that a text shows, one more."""
    return f"{float(text) + 1:.1f}" if "." in text else str(int(text) + 1)


def entries_of(node, path=()):
    """(the list or object, the place in it, the path) of each bound, default, required key and word."""
    for name, inner in node.items() if isinstance(node, dict) else enumerate(node):
        is_listed = isinstance(node, list) and path[-1] in ("required", "enum")
        if is_listed or isinstance(inner, (int, float)) and name != "uniqueItems":
            yield node, name, path
        elif isinstance(inner, (dict, list)):
            yield from entries_of(inner, (*path, name))


NUMBER = r"(?<![\w.-])(-?\d+(?:\.\d+)?)(?![\w.]*\w)"
# How a comment tells of a bound or a default.
TOLD = re.compile(rf"{NUMBER} to {NUMBER}|{NUMBER} or more|at least {NUMBER}"
                  rf"|{NUMBER}(?: \([^)]*\))? by default|exactly {NUMBER} UTF-16")


def one_more(text):
    return f"{float(text) + 1:.1f}" if "." in text else str(int(text) + 1)


def with_one_more(text, pattern):
    """(what was changed, the text with it), for each number that the pattern shows."""
    for match in re.finditer(pattern, text):
        for group in range(1, match.re.groups + 1):
            if match[group] is not None:
                start, end = match.span(group)
                yield match[0], text[:start] + one_more(match[group]) + text[end:]


def with_changed_cells(page):
    """(line, the page with it), for each number of the tables and of what stands in place of one."""
    lines = page.split("\n")
    heading = None
    for place, line in enumerate(lines):
        heading = line.lstrip("# ") if line.startswith("#") else heading
        if heading in HEADINGS and line.startswith(("| ", "`aiExp`, the expression")):
            told = re.sub("`[^`]*`", lambda code: "_" * len(code[0]), line)
            for match in re.finditer(NUMBER, told):
                changed_line = line[:match.start(1)] + one_more(match[1]) + line[match.end(1):]
                yield line, "\n".join([*lines[:place], changed_line, *lines[place + 1:]])


def comments(api):
    """(entry with a comment, the name of what it belongs to)"""
    for function in api["functions"]:
        for entry in (function, function["result"], *function["parameters"]):
            yield entry, function["name"]
    for each in [*api["constants"], *(value for enum in api["enums"] for value in enum["values"])]:
        yield each, each["name"]


class Bounds(unittest.TestCase):
    maxDiff = None

    def wrong(self, *sources):
        """What is wrong now with these sources."""
        return [text for _, text in complaints(TABLE.rows, PAPERS.claims(TABLE, sources), sources)]

    def test_every_place_says_what_the_table_says(self):
        self.assertEqual(self.wrong(*SOURCES, "elsewhere"), [])

    def test_each_fact_of_the_table_is_compared_in_each_place(self):
        claims = PAPERS.claims(TABLE)
        compared = 0
        for row, entry in TABLE.rows.items():
            own = [claim for claim in claims if claim.row == row]
            for fact, value in list(entry.facts.items()):
                for other in changed(value):
                    compared += self.expect_noticed(row, entry, fact, other, own)
        self.assertGreater(compared, 1000)

    def expect_noticed(self, row, entry, fact, other, claims):
        """In how many places it is."""
        value = entry.facts[fact]
        needed = {source for source in SOURCES if not is_untold(source, row, fact) and
                  (is_needed(source, entry, row, fact, value) or is_needed(source, entry, row, fact, other))}
        self.assertTrue(needed or is_untold("headers", row, fact), f"{fact} of {row} is told nowhere")
        entry.facts[fact] = other
        noticed = {source for source, _ in complaints({row: entry}, claims)}
        entry.facts[fact] = value
        self.assertEqual(needed - noticed, set(), f"{row}: {fact} {other} in place of {value}")
        return len(needed)

    def test_each_entry_of_the_schemas_is_compared(self):
        for name, schema in PAPERS.schemas.items():
            for node, place, path in list(entries_of(schema)):
                if (path[-1], place) in NO_BOUND or "not" in path or path[-1] == "required" and "anyOf" in path:
                    continue
                kept = copy.copy(node)
                del node[place]
                self.expect_wrong(f"{name}, without {path} {place}", "schemas")
                self.put_back(node, kept)
                if isinstance(kept[place], (int, float)):
                    node[place] = changed(kept[place])[0]
                    self.expect_wrong(f"{name}, {path} {place}", "schemas")
                    self.put_back(node, kept)

    @staticmethod
    def put_back(node, kept):
        node.clear()
        node.extend(kept) if isinstance(node, list) else node.update(kept)

    def test_each_number_of_the_page_is_compared(self):
        kept = PAPERS.page
        for line, page in list(with_changed_cells(kept)):
            PAPERS.page = page
            self.expect_wrong(line, "page")
        PAPERS.page = kept

    def test_each_number_of_the_headers_is_compared(self):
        for entry, name in comments(PAPERS.api):
            kept = entry["comment"]
            for told, text in with_one_more(kept, TOLD):
                if (name, told) not in NO_BOUND:
                    entry["comment"] = text
                    self.expect_wrong(f"{name}: {told}", "headers")
            entry["comment"] = kept

    def expect_wrong(self, what, source):
        self.assertNotEqual(self.wrong(source), [], what)

    def test_each_number_elsewhere_is_compared(self):
        for file, kept in list(PAPERS.elsewhere.items()):
            for told, text in Elsewhere(TABLE, PAPERS.elsewhere).with_one_more(file):
                PAPERS.elsewhere[file] = text
                self.expect_wrong(f"{file}: {told}", "elsewhere")
            PAPERS.elsewhere[file] = kept

    def test_a_new_key_is_put_where_it_belongs(self):
        schema, other = NEW_IN
        texts = {PAGE: PAPERS.page, schema: PAPERS.texts[schema], other: PAPERS.texts[other]}
        for key in ("bendDepth", "fallPort", "opening"):
            without = dict(texts)
            without[PAGE] = re.sub(rf"\n\| `{key}` .*", "", texts[PAGE])
            without[schema] = re.sub(rf',\n *"{key}": \{{.*\}}', "", texts[schema])
            self.assertTrue(all(without[file] != texts[file] for file in (PAGE, schema)), key)
            self.assertEqual(with_new_keys(without, TABLE), texts, key)

    def test_what_is_not_told_is_told_nowhere(self):
        """A reason that is not needed any more must go."""
        told = {(claim.source, claim.row, claim.fact) for claim in PAPERS.claims(TABLE)}
        for source, end, key, fact in UNTOLD:
            rows = [row for row in TABLE.rows if row[0].endswith(end) and row[1] == key]
            self.assertNotEqual(rows, [], (source, end, key, fact))
            self.assertFalse(told & {(source, row, fact) for row in rows}, (source, end, key, fact))

    def test_functions_with_numbers_are_of_a_key(self):
        headers = Headers(TABLE, PAPERS.api, PAPERS.headers)
        headers.read()
        self.assertEqual(set(headers.unknown), set(WITHOUT_KEY))


if __name__ == "__main__":
    project, interface, program = map(pathlib.Path, sys.argv[1:])
    TABLE = Table(json.loads(subprocess.run([program], check=True, capture_output=True, text=True).stdout))
    PAPERS = Papers(project, interface)
    unittest.main(argv=sys.argv[:1], verbosity=2)
