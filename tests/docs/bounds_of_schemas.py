"""What the JSON Schemas claim of the table of keys."""

import re

from bounds import CONTROLLERS, INT32, LEVEL_NAMES, Claim

SOURCE = "schemas"
ROOTS = {"property.schema.json": "property", "standalone.schema.json": "data"}
TYPES = {"integer": "integer", "real": "number", "flag": "boolean", "text": "string",
         "object": "object", "integers": "array", "texts": "array", "objects": "array"}
BOUNDS = {"minimum": "minimum", "maximum": "maximum", "default": "initial", "minLength": "shortest",
          "maxLength": "longest", "minItems": "fewest", "maxItems": "most"}
ANY_VALUE = [{"type": "string"}, {"type": "integer", "minimum": INT32[0], "maximum": INT32[1]},
             {"type": "number", "not": {"type": "integer"}}]
# A text by which editors find the schema. The library ignores it, so the table has no row for it.
FOR_EDITORS = {(path, "$schema") for path in ROOTS.values()}
ABOVE_U_FFFF = "[\U00010000-\U0010ffff]"


class Schemas:
    def __init__(self, table, schemas):
        self.table = table
        self.schemas = schemas  # {file: schema}
        self.claims = []
        self.required = set()
        self.walked = set()

    def read(self):
        for file, path in ROOTS.items():
            self.object(file, self.schemas[file], path)
        for row, entry in self.table.rows.items():
            if row[0] in {path for path, _ in self.walked}:
                self.claim(row, "required", row in self.required)
        return self.claims

    def claim(self, row, fact, value):
        self.claims.append(Claim(SOURCE, "a schema", row, fact, value))

    def branches(self, file, node, takes_choices=True):
        """The node and all that it refers to, with their files; of alternatives all."""
        yield file, node
        if "$ref" in node:
            other, _, pointer = node["$ref"].partition("#")
            target = self.schemas[other or file]
            for step in pointer.split("/")[1:]:
                target = target[step]
            yield from self.branches(other or file, target, takes_choices)
        for inner in node.get("allOf", []) + (node.get("anyOf", []) if takes_choices else []):
            yield from self.branches(file, inner, takes_choices)

    def object(self, file, node, path):
        is_lane = path.endswith("controllers[]")
        for _, branch in self.branches(file, node, takes_choices=False):
            self.required |= {(path, key) for key in branch.get("required", [])}
        for place, branch in self.branches(file, node, takes_choices=not is_lane):
            for key, inner in branch.get("properties", {}).items():
                self.key(place, inner, (path, key))
        if is_lane:
            self.controllers(node, file)

    def key(self, file, node, row):
        if row in FOR_EDITORS:
            if node.get("type") != "string":
                self.claim(row, "kind", "no text")
            return
        entry = self.table.rows.get(row)
        if entry is None:
            self.claim(row, "kind", "a key")
            return
        self.walked.add(row)
        branches = list(self.branches(file, node))
        if entry.kind == "value":
            self.claim(row, "kind", "value" if node.get("anyOf") == ANY_VALUE else "another")
        else:
            self.kind(branches, row, entry)
            self.bounds([branch for _, branch in branches], row, entry)
        for place, branch in branches:
            if entry.kind == "object":
                self.object(place, branch, entry.inner)
            if "items" in branch:
                self.items(place, branch["items"], row, entry)

    def kind(self, branches, row, entry):
        types = {branch["type"] for _, branch in branches if "type" in branch}
        if entry.kind == "object":
            is_so = types <= {"object"}
        elif entry.kind == "word":
            is_so = any("enum" in branch for _, branch in branches)
        elif types == {"number"}:
            is_so = entry.kind == "real" and any(branch.get("not") == {"type": "integer"}
                                                 for _, branch in branches)
        else:
            is_so = types <= {TYPES[entry.kind]}
        if types or "word" == entry.kind:
            self.claim(row, "kind", entry.kind if is_so else f"another ({types})")

    def bounds(self, branches, row, entry):
        for branch in branches:
            # A character above U+FFFF is two units: as few as half as many characters, and one at least.
            if branch.get("pattern") == ABOVE_U_FFFF:
                for fact, units in (("shortest", 2 * branch.get("minLength", 0)),
                                    ("longest", branch.get("maxLength", 0) + 1)):
                    self.claims.append(Claim("pairs", "a schema", row, fact, units))
                continue
            for name, fact in BOUNDS.items():
                if name in branch and not (fact == "initial" and entry.kind == "text"):
                    self.bound(row, entry, name, fact, branch[name])
            if "enum" in branch:
                self.enumeration(row, entry, branch["enum"])
            if entry.kind == "texts":
                for few, many in re.findall(r"(\d+) to (\d+) names", branch.get("description", "")):
                    # What a description says does not stand in for what a validator reads.
                    self.claims.append(Claim("descriptions", "a schema", row, "fewest", int(few)))
                    self.claim(row, "most", int(many))

    def bound(self, row, entry, name, fact, value):
        if entry.kind == "texts" and name == "maxItems":
            row = LEVEL_NAMES  # what a host can build is written, and what is written is valid
        # That a lane needs an event is a rule of lanes and not one of the key.
        if not (entry.kind == "objects" and name == "minItems"):
            self.claim(row, fact, value)

    def enumeration(self, row, entry, values):
        if entry.kind == "word":
            self.claim(row, "words", sorted(values))
        else:
            for value in values:
                self.claim(row, "also", 0 if value == "" else value)

    def items(self, file, node, row, entry):
        branches = list(self.branches(file, node))
        if entry.kind == "objects":
            self.object(file, node, entry.inner)
            return
        kind = {"integers": "integer", "texts": "string"}[entry.kind]
        for _, branch in branches:
            self.claim(row, "kind", entry.kind if branch.get("type") == kind else "of others")
        self.bounds([branch for _, branch in branches if entry.kind == "integers" or
                     "minLength" in branch], row, entry)

    def controllers(self, node, file):
        """Of each name the values of its events."""
        names = []
        for _, branch in self.branches(file, node):
            for choice in branch.get("anyOf", []):
                properties = choice["properties"]
                value = properties["events"]["items"]["properties"]["value"]
                for name in properties["name"]["enum"]:
                    names.append(name)
                    self.claim((CONTROLLERS, name), "minimum", value.get("minimum"))
                    self.claim((CONTROLLERS, name), "maximum", value.get("maximum"))
        for path in self.table.objects_at("controllers[]"):
            self.walked.add((path, "name"))
            self.claim((path, "name"), "kind", "word")
            self.claim((path, "name"), "words", sorted(names))
