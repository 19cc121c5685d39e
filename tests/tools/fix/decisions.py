"""What "plxclip fix" makes of each damage that the checks of "plxclip check" know.

A damage that is not here, and a reason of the check that no damage has, fails the test.
"""

import dataclasses

CLIP = "clip"
PROPERTY = "property.json"


@dataclasses.dataclass
class Decision:
    """Texts of a document and what takes their place; everything else stays as it is."""

    document: str = None
    old: str = None
    new: str = None
    made: bool = False  # a property document is made, or made anew
    left: tuple = ()  # the reasons of what is named and left


def left(*reasons):
    return Decision(left=reasons)


def properties(old, new, **further):
    return Decision(PROPERTY, old, new, **further)


def clip(old, new, **further):
    return Decision(CLIP, old, new, **further)


MADE = Decision(made=True)
FINE = Decision()
UNREADABLE = left("syntax", "missing-document")

DECISIONS = {
    # The property document.
    "id-missing": properties('{\n    "name"', '{\n    "id": "id-missing",\n    "name"'),
    "id-empty": properties('"id": ""', '"id": "id-empty"'),
    "id-number": properties('"id": 7', '"id": "id-number"'),
    "name-missing": properties('"id": "name-missing",', '"id": "name-missing",\n    "name": "Größe",'),
    "part-array": properties('"part": []', '"part": { "type": "midi" }'),
    "type-missing": properties('"part": { "key"', '"part": { "type": "midi", "key"'),
    "type-unknown": properties('"Midi"', '"midi"'),
    "type-with-nul": properties(r'"midi\u0000x"', '"midi"'),
    "root-array": MADE,
    "key-31": left("out-of-range"),
    "tempo-1999": left("out-of-range"),
    "tempo-float": properties("112.0", "11200"),
    "vendor-null": left("wrong-type"),
    "vendor-capital": properties('"Vendor"', '"vendor"'),
    "tag-number": left("wrong-type"),
    "tag-twice": left("repeated"),
    "language-negative": left("out-of-range"),
    "name-twice": left("repeated"),
    # Texts that are no documents.
    "trailing-comma": clip('"take.wav", }', '"take.wav" }', made=True, left=("wave-file",)),
    "comment": UNREADABLE,
    "single-quotes": UNREADABLE,
    "cut-off": UNREADABLE,
    "lone-surrogate": UNREADABLE,
    "empty-file": UNREADABLE,
    "nul-behind-in-utf-8": UNREADABLE,
    "nul-behind-in-utf-16-le": UNREADABLE,
    "nul-behind-in-utf-32-be": UNREADABLE,
    "number-without-digits": UNREADABLE,
    "number-without-fraction": UNREADABLE,
    "number-without-exponent": UNREADABLE,
    "number-too-large": UNREADABLE,
    "bad-utf-8": left("encoding", "missing-document"),
    "odd-utf-16": left("encoding", "missing-document"),
    **{f"comma-in-{codec}": UNREADABLE
       for codec in ("utf-8-sig", "utf-16-le", "utf-16-be", "utf-32-le", "utf-32-be")},
    **{f"key-in-{codec}": left("out-of-range")
       for codec in ("utf-8-sig", "utf-16-le", "utf-16-be", "utf-32-le", "utf-32-be")},
    # Parts.
    "whole-id-missing": MADE,
    "no-part": left("missing-key", "missing-document"),
    "part-number": left("wrong-type"),
    "wave-missing": left("wave-file"),
    "wave-with-nul": left("wave-file"),
    "duration-0": left("out-of-range"),
    "voice-missing": left("missing-key"),
    "voice-bank-short": left("wrong-value"),
    "language-128": left("out-of-range"),
    "ai-voice-short": left("wrong-value"),
    "ai-language": left("wrong-type"),
    "two-parts": left("not-looked-at"),
    # Notes.
    "lyric-empty": left("wrong-value"),
    "phoneme-missing": left("missing-key"),
    "velocity-128": left("out-of-range"),
    "number-float": clip("66.0", "66"),
    "number-wide": left("out-of-range"),
    "note-beyond-the-end": left("out-of-range"),
    "note-null": left("wrong-type"),
    "accent-101": left("out-of-range"),
    "fall-number": left("wrong-type"),
    "pitch-integer": clip('"pitchFine": 1', '"pitchFine": 1.0'),
    "pitch-of-400-digits": left("wrong-type"),
    "pitch-1.5": left("out-of-range"),
    "pitch-beyond-floats": left("out-of-range"),
    "skill-longer": left("out-of-range"),
    "skill-beside-dvqm": left("not-looked-at"),
    "vibrato-type-17": left("out-of-range"),
    "vibrato-longer": left("out-of-range"),
    "points-of-a-vibrato-that-ends": left("out-of-range"),
    "point-behind": left("out-of-range"),
    "five-levels": left("wrong-value"),
    "level-number": left("wrong-type"),
    "factor-2.5": left("out-of-range"),
    # Lists.
    "lane-unknown": clip('"Dynamics"', '"dynamics"'),
    "lane-with-nul": left("wrong-value"),
    "lane-twice": left("repeated"),
    "lane-empty": left("wrong-value"),
    "event-128": left("out-of-range"),
    "event-twice": left("repeated"),
    "effect-twice": left("repeated"),
    "effect-without-id": left("missing-key"),
    "parameter-flag": left("wrong-type"),
    "parameter-of-400-digits": left("out-of-range"),
    "parameter-huge": left("out-of-range"),
    # What loses nothing stays as it is, except where it contradicts the clip file.
    "type-of-another-part": properties('"midiAi"', '"midi"'),
    "key-misspelt": clip('"acent"', '"accent"'),
    "key-of-another-object": FINE,
    "key-of-its-own": FINE,
    "note-behind-the-part": FINE,
    "notes-overlap": FINE,
    "note-without-language": FINE,
    "no-language-at-all": FINE,
    # Numbers of the wrong kind.
    "tempo-in-beats": properties('"tempo": 112 ', '"tempo": 11200 '),
    "key-float": properties("10.0", "10"),
    "duration-float": clip("1.92e3", "1920"),
    "language-float": clip('"langID": 3.0', '"langID": 3'),
    "pos-float": clip("480.0", "480"),
    "event-float": clip("81.0", "81"),
    "depth-float": clip("40.0", "40"),
    "speed-float": clip("20.0", "20"),
    "factor-integer": clip('"topFactor": 1 ', '"topFactor": 1.0 '),
    "controllers-capital": clip('"Controllers"', '"controllers"'),
    # Files.
    "capital-extension": FINE,
    "no-property-document": MADE,
    "both-refused": left(*6 * ["missing-key"]),
}

# Reasons that no damage of a document has: the case of the test that shows each.
REASONS_ELSEWHERE = {
    "unreadable": "Files.test_property_document_that_is_a_folder",
    "too-large": "Files.test_document_that_is_too_large",
    "duplicate": "Files.test_duplicate",
    "file-name": "Files.test_name_that_no_host_can_ask_for",
    "unexplained": None,  # a contradiction of library and check; there is none
}
