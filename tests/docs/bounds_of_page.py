"""What the page on the clip format claims of the table of keys."""

import re

from bounds import CONTROLLERS, Claim

SOURCE = "page"
NUMBER = r"-?\d+(?:\.\d+)?"
# Which objects a heading tells of.
HEADINGS = {"The property document": ["property"], "filter": ["property.filter"],
            "The data document": ["data"], "audio": ["data.audio"],
            "midi and midiAi": ["data.midiAi", "data.midi"],
            "An effect": ["audioEffects[]", "midiEffects[]"], "A note": ["notes[]"],
            "A controller lane": ["controllers[]"]}
# What stands before the key of an object in a list.
ELEMENTS = {"parameter": ["parameters"], "point": ["rates", "depths"], "event": ["events"]}
TYPES = {"integer": "int", "real": "float", "flag": "bool", "text": "text", "word": "text",
         "value": "text, int or float", "object": "object", "integers": "array of int",
         "texts": "array of text"}
# What stands before the table of an object in a note.
LEAD = r"`(exp|dvqm\.attack|singingSkill|vibrato)`.*:$"
# One of the parts has to be there. Of the languages of an AI voice the page tells what becomes of each.
OF_THE_WHOLE = (("data", "part fails"),)
WORDS = {"false": 0, "true": 1, "no language": 0xFFFFFFFF}


def number(text):
    return float(text) if "." in text else int(text)


class Page:
    def __init__(self, table, text):
        self.table = table
        self.text = text
        self.claims = []

    def read(self):
        for _, bases, lead, cells in self.table_lines():
            self.line(bases, lead, cells)
        self.ai_expression()
        return self.claims

    def table_lines(self):
        """(index of the line, objects that its heading tells of, what stands before the table, cells)"""
        heading = lead = None
        for index, line in enumerate(self.text.splitlines()):
            if line.startswith("#"):
                heading, lead = line.lstrip("# "), None
            elif re.match(LEAD, line):
                lead = line
            elif line.startswith("|") and heading in HEADINGS:
                yield index, HEADINGS[heading], lead, re.split(r"\s*\|\s*", line)[1:-1]

    def line_of(self, row):
        """The index of the line that tells of this key alone; None when there is none."""
        for index, bases, lead, cells in self.table_lines():
            if len(cells) == 4 and row in self.rows(bases, lead, cells[0]):
                return index
        return None

    def claim(self, row, fact, value):
        self.claims.append(Claim(SOURCE, "clip-format.md", row, fact, value))

    def line(self, bases, lead, cells):
        if cells[-1] in ("when wrong", "values") or set(cells[0]) == {"-"}:
            return
        if len(cells) == 2:
            self.controllers(*cells)
            return
        label, kind, accepted, wrong = cells
        for row in self.rows(bases, lead, label):
            entry = self.table.rows.get(row)
            if entry is None:
                self.claim(row, "kind", kind)
            else:
                self.cells(row, entry, kind, accepted, wrong)

    def rows(self, bases, lead, label):
        element, _, key = label.rpartition(": ")
        steps = key.strip("`").split(".")
        paths = [path for base in bases for path in self.table.objects_at(base)]
        if lead:
            paths = [path for name in re.findall(r"^`([\w.]+)`(?: and `([\w.]+)`)?", lead)[0] if name
                     for start in paths for path in self.inner([start], name.split("."))]
        for name in ELEMENTS.get(element, []):
            found = self.inner(paths, [name])
            yield from ((path, key.strip("`")) for path in found)
        if not element:
            yield from self.at(paths, steps)

    def inner(self, paths, steps):
        for step in steps:
            paths = [self.table.rows[(path, step)].inner for path in paths if (path, step) in self.table.rows]
        return sorted(set(paths))

    def at(self, paths, steps):
        """The key at the end of the steps. Of the parts some have it and some have not."""
        ends = self.inner(paths, steps[:-1])
        rows = [(path, steps[-1]) for path in ends or paths]
        return [row for row in rows if row in self.table.rows] or rows[:1]

    def cells(self, row, entry, kind, accepted, wrong):
        expected = "array" if entry.kind == "objects" else TYPES[entry.kind]
        is_so = kind.startswith("array") if entry.kind == "objects" else kind == expected
        self.claim(row, "kind", entry.kind if is_so else kind)
        if (row[0], wrong) not in OF_THE_WHOLE and row[1] != "langIDs":
            self.claim(row, "required", not wrong.startswith("default: "))
        if entry.kind == "objects":
            self.elements(entry, accepted)
        elif entry.kind == "object":
            self.objects_in(entry, accepted)
        else:
            self.accepted(row, entry, accepted)
        initial = re.match(rf"default: ({NUMBER}|{'|'.join(WORDS)})", wrong)
        if initial:
            said = initial[1]
            self.claim(row, "initial", WORDS[said] if said in WORDS else number(said))

    def objects_in(self, entry, accepted):
        for key in re.findall(r"`(\w+)`", accepted):
            inner = self.table.rows.get((entry.inner, key))
            if inner is not None and inner.kind == "object":
                self.claim((entry.inner, key), "kind", "object")
                self.claim((entry.inner, key), "required", False)

    def elements(self, entry, accepted):
        keys = re.match(r'`\{ "(\w+)": \d+ \}`, with ', accepted)
        if keys:
            row = (entry.inner, keys[1])
            self.claim(row, "required", True)
            self.claim(row, "kind", "integer")
            self.accepted(row, self.table.rows[row], accepted[keys.end():])

    def accepted(self, row, entry, text):
        low, high = ("fewest", "most") if entry.kind == "texts" else ("minimum", "maximum")
        span = re.search(rf"(?<![\w.-])({NUMBER}) to ({NUMBER})", text)
        if span:
            self.claim(row, low, number(span[1]))
            self.claim(row, high, number(span[2]))
        least = re.match(rf"({NUMBER}) (?:or more|to the (?:note|vibrato)'s duration)", text)
        if least:
            self.claim(row, low, number(least[1]))
        most = re.search(rf"at most ({NUMBER})", text)
        if most:
            self.claim(row, high, number(most[1]))
        also = re.match(rf"({NUMBER}) \(none\), or ", text)
        if also:
            self.claim(row, "also", number(also[1]))
        if text.endswith(", or empty"):
            self.claim(row, "also", 0)
        self.lengths(row, text)
        if entry.kind == "word" and "`" in text:
            self.claim(row, "words", sorted(re.findall(r"`(\w+)`", text)))

    def lengths(self, row, text):
        exact = re.match(r"exactly (\d+) UTF-16 units", text)
        if exact:
            self.claim(row, "shortest", int(exact[1]))
            self.claim(row, "longest", int(exact[1]))
        elif text.startswith("not empty"):
            self.claim(row, "shortest", 1)

    def controllers(self, names, values):
        low, high = (number(value) for value in re.fullmatch(rf"({NUMBER}) to ({NUMBER})", values).groups())
        for name in re.findall(r"`(\w+)`", names):
            self.claim((CONTROLLERS, name), "minimum", low)
            self.claim((CONTROLLERS, name), "maximum", high)
            for path in self.table.objects_at("controllers[]"):
                self.claim((path, "name"), "words", self.names_in_the_table())

    def names_in_the_table(self):
        return sorted(set(re.findall(r"`(\w+)`", " ".join(
            re.findall(rf"^\| ((?:`\w+`(?:, )?)+) \| {NUMBER} to ", self.text, re.MULTILINE)))))

    def ai_expression(self):
        said = re.search(r"`aiExp`, the expression of an AI voice: thirteen floats, "
                         rf"each ({NUMBER}) to ({NUMBER}), default ({NUMBER})\.((?:[^.]|\n)*)\.", self.text)
        written = re.search(rf"thirteen values of `aiExp` are written as ({NUMBER}),", self.text)
        for path in self.table.objects_at("aiExp"):
            for key in re.findall(r"`(\w+)`", said[4]):
                row = (path, key)
                for fact, value in zip(("minimum", "maximum", "initial", "initial"),
                                       (*said.groups()[:3], written[1])):
                    self.claim(row, fact, number(value))
                self.claim(row, "kind", "real")
                self.claim(row, "required", False)
