"""What the comments of the public headers say, in a form that a program can use.

The comments use a small vocabulary. Anything else is an error here: a new comment must either use
the same words, or this file must be extended.
"""

import re

NUMBER = r"-?\d+(?:\.\d+)?"
CONSTANT = r"#(KRT_PLX_\w+)"
VALUE = rf"#KRT_PLX_\w+|INT32_MAX|{NUMBER}"
LIMITS = {
    "int32": (-(2**31), 2**31 - 1),
    "uint32": (0, 2**32 - 1),
    "uint64": (0, 2**64 - 1),
}


class Meaning:
    """Reads comments; knows the constants by name, and the values of each enumeration."""

    def __init__(self, constants, enums):
        self.constants = constants
        self.enums = enums

    def number(self, text):
        """A value as the comments write it: a constant, the name of the largest integer, or digits."""
        if text.startswith("#"):
            return self.constants[text[1:]]
        if text == "INT32_MAX":
            return LIMITS["int32"][1]
        return float(text) if "." in text else int(text)

    def range_of(self, kind, text):
        """The numbers that a parameter accepts, or that a result can be."""
        low, high = LIMITS.get(kind, (None, None))
        whole = re.match(r"(?:.*?(?:, | ))?0 for none, or (\d+) to (\d+)", text)
        if whole:
            return {"minimum": int(whole[1]), "maximum": int(whole[2]), "also": [0]}
        bounded = re.search(r"\b0 up to (the \w+'s duration)", text)
        if bounded:
            return {"minimum": 0, "maximum": high, "bound": bounded[1]}
        values = self.values_in(text)
        if values:
            return {"values": values}
        span = re.search(rf"(?<![\w-])({NUMBER}) to ({NUMBER})", text)
        if span:
            found = {"minimum": self.number(span[1]), "maximum": self.number(span[2])}
            return found | {"nan": True} if "or a NaN" in text else found
        if re.search(r"\bbelow 2147483647|at most INT32_MAX - 1", text):
            return {"minimum": low, "maximum": high - 1, "bound": "position plus duration"}
        least = re.search(r"\bat least (\d+)|\b(\d+) or more", text)
        if least:
            return {"minimum": int(least[1] or least[2]), "maximum": high}
        if "between the bounds of the lane" in text:
            return {"minimum": low, "maximum": high, "bound": "the lane's type"}
        if re.search(r"\bany\b|possibly negative|the language number$|^the (?:value|number|bound)\b", text):
            found = {"minimum": low, "maximum": high}
            return found | {"nan": True} if kind == "float" else found
        if text.startswith(("0", "receives")) or "place" in text or text.startswith("index of"):
            return {"minimum": 0, "maximum": 0 if text.startswith("0") else high}
        raise ValueError(f"no range in: {text}")

    def values_in(self, text):
        """The values of a list of constants such as "#A or #B", "#A to #B", "a value of #E"."""
        enum = re.match(rf"a value of {CONSTANT}", text)
        if enum:
            return sorted(self.enums[enum[1]].values())
        span = re.match(rf"{CONSTANT} to {CONSTANT}", text)
        if span:
            first, last = (self.constants[name] for name in span.groups())
            return list(range(first, last + 1))
        listed = re.match(rf"{CONSTANT}(?:, {CONSTANT})*(?:,? or {CONSTANT})?(?=[:;.]|$)", text)
        if listed:
            return [self.constants[name] for name in re.findall(CONSTANT, listed[0])]
        return None

    def enum_of(self, text):
        """The enumeration whose values a comment names, if it does."""
        for name in re.findall(CONSTANT, text):
            for enum, members in self.enums.items():
                if name in members or text.startswith(f"a value of #{enum}"):
                    return enum
        return "KRT_PLX_ControllerType" if "controller type (controller.h)" in text else None

    def rejected(self, kind, text):
        """What a function returns for a handle that is null or of the wrong kind."""
        if kind == "void":
            return None
        clauses = [clause.strip() for clause in text.split(";")]
        said = [clause for clause in clauses if re.search(r"\bnull\b|^NULL on", clause)]
        if not said:
            raise ValueError(f"no result for a null handle in: {text}")
        first = re.match(rf"({VALUE}|NULL|false)\b", said[-1])
        if not first:
            raise ValueError(f"no value in: {said[-1]}")
        if first[1] in ("NULL", "false"):
            return None if first[1] == "NULL" else False
        value = self.number(first[1])
        return float(value) if kind == "float" else value

    def marks(self, text):
        """The values that a living object returns to say "there is none", each with when."""
        found = []
        for clause in (clause.strip() for clause in text.split(";")):
            mark = re.match(rf"({VALUE}) (?:when|for) (.*)", clause)
            if mark and "a null handle" != mark[2] and not mark[2].startswith("a handle that is"):
                found.append({"value": self.number(mark[1]), "when": mark[2]})
        return found


def text_rule(parameter, text, result):
    """Which texts a text parameter accepts."""
    lengths = re.search(r"exactly (\d+) UTF-16 units(, or the empty text)?", text)
    rule = {"null": bool(re.search(r"(?i)null (?:empties|stands)", text))}
    if lengths:
        return rule | {"lengths": ([0] if lengths[2] else []) + [int(lengths[1])]}
    refused = rf"null or empty|NULL or empty|`{parameter}` is null or empty"
    empty_refused = "not empty" in text or re.search(refused, result)
    return rule | {"empty": not empty_refused}


def lifetime(text):
    """How long the result lives, as the comment says it."""
    said = re.search(r"\b((?:valid|lives?) (?:until|as long as)[^;]*)", text)
    return said[1].strip() if said else None


# In the table of the main header: what each call destroys. A child is named by its slot in its
# owner.
DESTROYED = {
    "the manager": [{"what": "self"}],
    "the clip": [{"what": "self"}],
    "the object": [{"what": "self"}],
    "all system clips and all user clips": [{"what": "children", "slot": "systemClip"},
                                            {"what": "children", "slot": "userClip"}],
    "all user clips": [{"what": "children", "slot": "userClip"}],
    "the part that was loaded before": [{"what": "children", "slot": "part"}],
    "the part that the clip had": [{"what": "children", "slot": "part"}],
    "the editor that the clip had": [{"what": "children", "slot": "propertyEditor"}],
    "the editor that the clip has": [{"what": "children", "slot": "propertyEditor"}],
    "the event that stood at the position": [{"what": "sibling at the position"}],
    "the point that stood at the position": [{"what": "sibling at the position"}],
}
NO_CALL = "unloading the library"


def deaths(main_header, names):
    """What each function destroys, by name, read from the table of the main header."""
    rows = re.findall(r"^ \* \| (?!call\b|-)(.+?) +\| (.+?) +\|$", main_header, re.MULTILINE)
    table = main_header.partition("## What ends the life of a handle")[2].partition("*/")[0]
    found = {}
    for call, destroyed in rows:
        if call == NO_CALL or f"| {call} " not in table:
            continue
        pattern = re.escape(re.match(r"`?(KRT_PLX_[\w.]+)", call)[1]).replace(r"\.\.\.", r"\w+")
        meant = [name for name in names if re.fullmatch(pattern, name)]
        if not meant:
            raise ValueError(f"no function is meant by: {call}")
        for name in meant:
            found[name] = DESTROYED[destroyed]
    return found
