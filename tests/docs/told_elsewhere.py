"""What other pages and code in other languages claim of the table of keys.

They cannot take a bound from the table, and tell only some. Each place is a pattern that the file
must contain; its groups are the values of the facts.
"""

import re

from bounds import CONTROLLERS, Claim

SOURCE = "elsewhere"
RANGE = ("minimum", "maximum")
TEMPO = ("property.part", "tempo")
KEY = ("property.part", "key")
LANGUAGE = ("data.midi.voice", "langID")
NUMBER = ("notes[]", "number")
BEND = (CONTROLLERS, "pitchBend")
BEND_RANGE = (CONTROLLERS, "pitchBendSens")
SONGS = "bindings/python/korvel_plx/songs"

# (file, pattern, row, the facts that the groups tell, by how much a unit there is larger)
PLACES = (
    ("docs/songs.md", r"`--language` \| a number, (\d+) to (\d+) \|", LANGUAGE, RANGE, 1),
    ("docs/songs.md", r"`--voice-bank` \| its ID, (\d+) characters \|", ("data.midi.voice", "compID"),
     ("longest",), 1),
    ("docs/songs.md", r"a depth of (\d+) is played", ("depths[]", "value"), ("maximum",), 1),
    ("docs/songs.md", r"rate of (\d+) as twelve", ("rates[]", "value"), ("maximum",), 1),
    ("docs/python.md", r"setAccent refuses value \d+ \((\d+) to (\d+)\)", ("exp", "accent"), RANGE, 1),
    (f"{SONGS}/__main__.py", r'"--language", type=number_from\((\d+), (\d+)\)', LANGUAGE, RANGE, 1),
    (f"{SONGS}/__main__.py", r'default=0, help="(\d+) to (\d+)"', LANGUAGE, RANGE, 1),
    (f"{SONGS}/clips.py", r"LEAST_TEMPO, MOST_TEMPO = (\d+), (\d+)", TEMPO, RANGE, 1),
    (f"{SONGS}/clips.py", r"outside of (\d+) to (\d+)", TEMPO, RANGE, 100),
    (f"{SONGS}/clips.py", r"16 to (\d+) minor", KEY, ("maximum",), 1),
    (f"{SONGS}/midi.py", r"min\(value, (\d+)\)", BEND_RANGE, ("maximum",), 1),
    (f"{SONGS}/play.py", r"self\.bend\.at\(tick\) / (\d+)", BEND, ("minimum",), -1),
    ("tools/plxclip/options.h", r"a key: (\d+) to (\d+), or a name", KEY, RANGE, 1),
    ("tools/plxclip/options.h", r"a language: a number from (\d+) on", ("property.filter", "languages"),
     ("minimum",), 1),
    ("tools/plxclip/naming.cpp", r"found && \*found <= (\d+)", LANGUAGE, ("maximum",), 1),
    ("tools/plxclip/options.h", r"a language of notes: (\d+) to (\d+)", LANGUAGE, RANGE, 1),
    ("tools/plxclip/copy_command.cpp", r"between\((-\d+), \d+\)", NUMBER, ("maximum",), -1),
    ("tools/plxclip/copy_command.cpp", r"between\(-\d+, (\d+)\)", NUMBER, ("maximum",), 1),
    ("kit/copy.c", r"return language <= (\d+);", LANGUAGE, ("maximum",), 1),
    ("kit/change.c", r"highest = (\d+) }", NUMBER, ("maximum",), 1),
    ("include/korvel/plx_kit.h", r"language  (\d+) to (\d+) for notes", LANGUAGE, RANGE, 1),
    ("include/korvel/plx_kit.h", r"range of (\d+) to (\d+), nothing is changed", NUMBER, RANGE, 1),
    ("include/korvel/face/codes.hpp", r"return id <= (\d+) \?", LANGUAGE, ("maximum",), 1),
)
# What a note has that nobody changed, in the order in which clips.py compares it.
PLAIN = (f"{SONGS}/clips.py",
         r"note\.rise_port\) == \((\d+), (\d+), (\d+), (\d+), (\d+), False, False\)",
         ("accent", "bendDepth", "bendLength", "decay", "opening"))
PLAIN_AI = (f"{SONGS}/clips.py", r"getattr\(note, name\) != (\d\.\d)", "pitchFine")


class Elsewhere:
    def __init__(self, table, texts):
        self.table = table
        self.texts = texts  # {file: text}

    @staticmethod
    def files():
        return sorted({place[0] for place in (*PLACES, PLAIN, PLAIN_AI)})

    def places(self):
        """(file, pattern, the row and the fact of each group, the factor)"""
        for file, pattern, row, facts, factor in PLACES:
            yield file, pattern, [(self.row(*row), fact) for fact in facts], factor
        yield *PLAIN[:2], [(self.row("exp", key), "initial") for key in PLAIN[2]], 1
        yield *PLAIN_AI[:2], [(self.row("aiExp", PLAIN_AI[2]), "initial")], 1

    def row(self, path, key):
        return (path, key) if (path, key) in self.table.rows else (self.table.objects_at(path)[0], key)

    def read(self):
        claims = []
        for file, pattern, told, factor in self.places():
            found = list(re.finditer(pattern, self.texts[file]))
            if not found:
                claims.append(Claim(SOURCE, file, told[0][0], told[0][1], f"not told by {pattern}"))
            for match in found:
                claims += [Claim(SOURCE, file, row, fact, float(value) * factor)
                           for value, (row, fact) in zip(match.groups(), told)]
        return claims

    def with_one_more(self, file):
        """(what was changed, the text with it), for each number that a pattern shows in this file."""
        text = self.texts[file]
        for pattern in [pattern for other, pattern, *_ in self.places() if other == file]:
            for match in re.finditer(pattern, text):
                for group in range(1, match.re.groups + 1):
                    start, end = match.span(group)
                    yield match[0], text[:start] + f"{float(match[group]) + 1:g}" + text[end:]
