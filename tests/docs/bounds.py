"""The table of keys as print_table prints it, and what the papers claim of it."""

import dataclasses
import typing

INT32 = (-(2**31), 2**31 - 1)
NUMBERS = ("initial", "minimum", "maximum", "also", "shortest", "longest", "fewest", "most", "last")
FACTS = (*NUMBERS, "kind", "required", "words")
# They stand beside the objects of the documents.
CONTROLLERS = "controllers"
CONTROLLER_TYPES = (CONTROLLERS, "types")
LEVEL_NAMES = ("edited", "level names")


class Claim(typing.NamedTuple):
    """A place says that a fact of a row, (object, key), has this value."""
    source: str
    place: str
    row: tuple
    fact: str
    value: object


@dataclasses.dataclass
class Row:
    facts: dict
    inner: str | None = None

    @property
    def is_required(self):
        return self.facts.get("required", False)

    @property
    def kind(self):
        return self.facts.get("kind")


class Table:
    """rows: {(object, key): Row}"""

    def __init__(self, printed):
        self.rows = {}
        for path, rows in printed["objects"].items():
            for row in rows:
                facts = {name: row[name] for name in FACTS if name in row}
                self.rows[(path, row["key"])] = Row(facts, row.get("inner"))
        names = [each["name"] for each in printed["controllers"]]
        for each in printed["controllers"]:
            self.rows[(CONTROLLERS, each["name"])] = Row(
                {name: each[name] for name in ("minimum", "maximum")})
        self.rows[CONTROLLER_TYPES] = Row({"last": len(names) - 1})
        self.rows[LEVEL_NAMES] = Row({"most": printed["most edited level names"]})
        self.rows[("property.part", "type")].facts["words"] = sorted(printed["part types"])
        for path in self.objects_at("controllers[]"):
            self.rows[(path, "name")].facts["words"] = sorted(names)
        self.codes = {int(each["code"]): each["name"] for each in printed["controllers"]}

    def objects(self):
        return sorted({path for path, _ in self.rows})

    def objects_at(self, end):
        """The objects whose path ends so; there is one in a part for each kind of voice."""
        found = [path for path in self.objects() if path == end or path.endswith("." + end)]
        if not found:
            raise KeyError(end)
        return found

    def keys_of(self, path):
        return [key for outer, key in self.rows if outer == path]


def in_words(row):
    return f"{row[0]}.{row[1]}"


def contradictions(rows, claims):
    """What is claimed but is not so; with the source of each."""
    for claim in claims:
        entry = rows.get(claim.row)
        said = f"{claim.place} says that {claim.fact} of {in_words(claim.row)} is {claim.value}"
        if entry is None:
            yield claim.source, f"{said}; there is no such key"
        elif claim.fact not in entry.facts:
            yield claim.source, f"{said}; it has none"
        elif entry.facts[claim.fact] != claim.value:
            yield claim.source, f"{said}, but it is {entry.facts[claim.fact]}"


def gaps(rows, claims, sources, is_needed):
    """What a source has to say of these rows and does not."""
    said = {(claim.source, claim.row, claim.fact) for claim in claims}
    for row, entry in rows.items():
        for fact, value in entry.facts.items():
            for source in sources:
                if is_needed(source, entry, row, fact, value) and (source, row, fact) not in said:
                    yield source, f"{source}: nothing says that {fact} of {in_words(row)} is {value}"
