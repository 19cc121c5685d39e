"""Damaged clips, one for each reason, each with what a check of it must say.

A damage is written into the text of a good document, with the mark ⟦ where a finding has to point.
"""

import dataclasses

MARK = "⟦"

PROPERTIES = """{
    "id": "ID", "name": "Größe",
    "vendor": "Studio",
    "filter": {
        "singerGroups": ["Alto"], "languages": [3], "types": ["Melody"]
    },
    "part": { "type": "midi", "key": 10, "tempo": 11200 }
}
"""

NOTE = """{ "pos": 0, "duration": 480, "lyric": "Freu", "phoneme": "f R OY", "langID": 3,
              "number": 66, "velocity": 90, "exp": { "accent": 54, "fallPort": true },
              "aiExp": { "pitchFine": 0.25 }, "singingSkill": { "duration": 9, "weight": { "pre": 1 } },
              "vibrato": { "type": 1, "duration": 240, "depths": [{ "pos": 0, "value": 40 }] } }"""

SECOND_NOTE = """{ "pos": 480, "duration": 480, "lyric": "de", "phoneme": "d @", "langID": 3, "number": 67,
              "velocity": 91, "dvqm": { "attack": { "compID": "A", "levelNames": ["x"],
              "speed": 20, "topFactor": 1.5 } } }"""

DATA = """{
    "id": "ID", "name": "Größe",
    "midi": {
        "duration": 1920, "styleName": "Festive",
        "voice": { "compID": "voralin-alto-001", "langID": 3 },
        "notes": [
            %s,
            %s
        ],
        "controllers": [{ "name": "dynamics", "events": [{ "pos": 0, "value": 80 }] }],
        "audioEffects": [{ "id": "reverb", "parameters": [{ "name": "Mix", "value": 0.5 }] }],
        "midiEffects": [{ "id": "echo" }]
    }
}
""" % (NOTE, SECOND_NOTE)

AI = """{
    "id": "ID", "name": "Größe",
    "midiAi": {
        "duration": 1920,
        "aiVoice": { "compID": "", "langIDs": [{ "langID": 3 }] }
    }
}
"""

AUDIO = """{
    "id": "ID", "name": "Größe",
    "audio": { "wavFileName": "take.wav" }
}
"""


@dataclasses.dataclass
class Finding:
    reason: str
    effect: str
    pointer: str = ""
    document: str = "clip"
    line: int = None
    column: int = None


@dataclasses.dataclass
class Damage:
    """A clip: its documents in bytes, None for one that is not there, and what is to be said."""

    name: str
    properties: bytes
    data: bytes
    findings: list
    listed: bool = True
    part_reads: bool = True
    file_name: str = "clip.kxclip"
    property_name: str = "property.json"


def place_of_mark(text):
    before = text[: text.index(MARK)]
    return before.count("\n") + 1, len(before) - before.rfind("\n")


def damaged(text, old, new):
    assert text.count(old) == 1, old
    return text.replace(old, new)


def found(text, reason, effect, pointer, document):
    line, column = place_of_mark(text)
    return Finding(reason, effect, pointer, document, line, column)


MISSING = Finding("missing-document", "refused", document="property.json")


class Collector:
    """Makes clips of good documents by one damage each."""

    def __init__(self):
        self.clips = []

    def add(self, clip):
        assert all(clip.name != other.name for other in self.clips), clip.name
        self.clips.append(clip)

    @staticmethod
    def put_id(text, name):
        return text.replace('"ID"', f'"{name}"')

    def properties(self, name, old, new, reason, pointer="", effect="refused", codec="utf-8",
                   after=lambda data: data):
        """The property document is damaged; the clip is listed all the same, by its clip file."""
        text = self.put_id(damaged(PROPERTIES, old, new), name)
        finding = found(text, reason, effect, pointer, "property.json")
        data = self.put_id(DATA, name).encode()
        self.add(Damage(name, after(text.replace(MARK, "").encode(codec)), data, [finding]))

    def whole(self, name, old, new, reason, pointer="", effect="refused", base=DATA, codec="utf-8",
              after=lambda data: data):
        """The clip file is damaged and stands alone, so the clip is not listed."""
        text = self.put_id(damaged(base, old, new), name)
        finding = found(text, reason, effect, pointer, "clip")
        self.add(Damage(name, None, after(text.replace(MARK, "").encode(codec)),
                        [MISSING, finding], listed=False))

    def part(self, name, old, new, reason, pointer, effect="refused", base=DATA):
        """The clip file is damaged beside a good property document."""
        text = self.put_id(damaged(base, old, new), name)
        finding = found(text, reason, effect, pointer, "clip")
        properties = PROPERTIES.replace('"midi"', '"midiAi"') if base is AI else PROPERTIES
        self.add(Damage(name, self.put_id(properties, name).encode(),
                        text.replace(MARK, "").encode(), [finding],
                        part_reads=effect != "refused"))

    def loss(self, name, old, new, reason, pointer, effect="dropped", base=DATA):
        """Something in the part is not taken."""
        self.part(name, old, new, reason, pointer, effect, base)


def damaged_clips():
    """All of them."""
    make = Collector()
    add_property_documents(make)
    add_texts(make)
    add_parts(make)
    add_notes(make)
    add_lists(make)
    add_second_looks(make)
    add_numbers(make)
    add_files(make)
    return make.clips


def add_property_documents(make):
    """What a catalogue reads."""
    make.properties("id-missing", '{\n    "id": "ID", ', '⟦{\n    ', "missing-key", "/id")
    make.properties("id-empty", '"id": "ID"', '"id": ⟦""', "wrong-value", "/id")
    make.properties("id-number", '"id": "ID"', '"id": ⟦7', "wrong-type", "/id")
    make.properties("name-missing", '{\n    "id": "ID", "name": "Größe"', '⟦{\n    "id": "ID"',
                    "missing-key", "/name")
    make.properties("part-array", '{ "type": "midi", "key": 10, "tempo": 11200 }', "⟦[]",
                    "wrong-type", "/part")
    make.properties("type-missing", '{ "type": "midi", ', '⟦{ ', "missing-key", "/part/type")
    make.properties("type-unknown", '"type": "midi"', '"type": ⟦"Midi"', "wrong-value",
                    "/part/type")
    make.properties("type-with-nul", '"type": "midi"', r'"type": ⟦"midi\u0000x"', "wrong-value",
                    "/part/type")
    make.properties("root-array", PROPERTIES, "⟦[]", "wrong-type")
    ignored = {"effect": "ignored"}
    dropped = {"effect": "dropped"}
    make.properties("key-31", '"key": 10', '"key": ⟦31', "out-of-range", "/part/key", **ignored)
    make.properties("tempo-1999", "11200", "⟦1999", "out-of-range", "/part/tempo", **ignored)
    make.properties("tempo-float", "11200", "⟦112.0", "wrong-type", "/part/tempo", **ignored)
    make.properties("vendor-null", '"Studio"', "⟦null", "wrong-type", "/vendor", **ignored)
    make.properties("vendor-capital", '"vendor"', '⟦"Vendor"', "unknown-key", "/Vendor", **ignored)
    make.properties("tag-number", '["Alto"]', '["Alto", ⟦3]', "wrong-type",
                    "/filter/singerGroups/1", **dropped)
    make.properties("tag-twice", '["Melody"]', '["Melody", ⟦"Melody"]', "repeated",
                    "/filter/types/1", **dropped)
    make.properties("language-negative", "[3]", "[⟦-1, 3]", "out-of-range", "/filter/languages/0",
                    **dropped)
    make.properties("name-twice", '"vendor": "Studio",', '"vendor": "Studio", ⟦"name": "Other",',
                    "repeated", "/name", **dropped)


def add_texts(make):
    """What is no document at all, in every encoding."""
    make.whole("trailing-comma", '"take.wav" }', '"take.wav", ⟦}', "syntax", base=AUDIO)
    make.whole("comment", '"audio":', '⟦/* wave */ "audio":', "syntax", base=AUDIO)
    make.whole("single-quotes", '"take.wav"', "⟦'take.wav'", "syntax", base=AUDIO)
    make.whole("cut-off", '"take.wav" }\n}\n', '"take.wav"⟦', "syntax", base=AUDIO)
    make.whole("lone-surrogate", '"Größe"', r'"Gr\udc00⟦"', "syntax", base=AUDIO)
    make.whole("empty-file", AUDIO, "⟦", "syntax", base=AUDIO)
    for codec in ("utf-8-sig", "utf-16-le", "utf-16-be", "utf-32-le", "utf-32-be"):
        make.whole(f"comma-in-{codec}", '"Größe",', '"𝄞 Größe" ⟦"x",', "syntax", base=AUDIO,
                   codec=codec)
        make.properties(f"key-in-{codec}", '"key": 10', '"key": ⟦99', "out-of-range", "/part/key",
                        "ignored", codec)
    for codec in ("utf-8", "utf-16-le", "utf-32-be"):
        make.whole(f"nul-behind-in-{codec}", "}\n}\n", "}\n}\n⟦\0{}", "syntax", base=AUDIO, codec=codec)
    make.whole("number-without-digits", '{\n    "id"', '{\n    "other": -⟦x, "id"', "syntax", base=AUDIO)
    make.whole("number-without-fraction", '{\n    "id"', '{\n    "other": 1.⟦e5, "id"', "syntax",
               base=AUDIO)
    make.whole("number-without-exponent", '{\n    "id"', '{\n    "other": 1e+⟦, "id"', "syntax",
               base=AUDIO)
    make.whole("number-too-large", '{\n    "id"', '{\n    "other": ⟦1e400, "id"', "syntax", base=AUDIO)
    make.whole("bad-utf-8", "Größe", "Gr⟦\x00e", "encoding", base=AUDIO,
               after=lambda data: data.replace(b"\x00", b"\xff"))
    make.whole("odd-utf-16", "}\n}\n", "}\n}⟦", "encoding", base=AUDIO, codec="utf-16-le",
               after=lambda data: data + b" ")


def add_parts(make):
    """What a part must have."""
    make.whole("whole-id-missing", '{\n    "id": "ID", ', '⟦{\n    ', "missing-key", "/id")
    make.whole("no-part", '{\n    "id": "ID", "name": "Größe",\n    "audio": { "wavFileName": '
               '"take.wav" }', '⟦{\n    "id": "ID", "name": "Größe"', "missing-key", "/midi",
               base=AUDIO)
    make.part("part-number", '{ "wavFileName": "take.wav" }', "⟦1", "wrong-type", "/audio",
              base=AUDIO)
    make.part("wave-missing", '"take.wav"', '⟦"take.wav"', "wave-file", "/audio/wavFileName",
              base=AUDIO)
    make.part("wave-with-nul", '"take.wav"', r'⟦"take.wav\u0000x"', "wave-file",
              "/audio/wavFileName", base=AUDIO)
    make.part("duration-0", '"duration": 1920', '"duration": ⟦0', "out-of-range",
              "/midi/duration")
    make.part("voice-missing", '"midi": {', '"midi": ⟦{', "missing-key", "/midi/voice",
              base=DATA.replace('"voice"', '"singer"'))
    make.part("voice-bank-short", '"voralin-alto-001"', '⟦"voralin-alto-01"', "wrong-value",
              "/midi/voice/compID")
    make.part("language-128", '001", "langID": 3', '001", "langID": ⟦128', "out-of-range",
              "/midi/voice/langID")
    make.part("ai-voice-short", '"compID": ""', '"compID": ⟦"short"', "wrong-value",
              "/midiAi/aiVoice/compID", base=AI)
    make.loss("ai-language", '[{ "langID": 3 }]', '[{ "langID": ⟦"de" }]', "wrong-type",
              "/midiAi/aiVoice/langIDs/0/langID", base=AI)
    make.loss("two-parts", '"midiAi":', '"midi": ⟦{}, "midiAi":', "not-looked-at", "/midi",
              base=AI)


def add_notes(make):
    """What a note loses, or is lost for."""
    first = "/midi/notes/0"
    make.loss("lyric-empty", '"lyric": "Freu"', '"lyric": ⟦""', "wrong-value", f"{first}/lyric")
    make.loss("phoneme-missing", '{ "pos": 0, "duration": 480, "lyric": "Freu", '
              '"phoneme": "f R OY"', '⟦{ "pos": 0, "duration": 480, "lyric": "Freu"', "missing-key",
              f"{first}/phoneme")
    make.loss("velocity-128", '"velocity": 90', '"velocity": ⟦128', "out-of-range",
              f"{first}/velocity")
    make.loss("number-float", '"number": 66', '"number": ⟦66.0', "wrong-type", f"{first}/number")
    make.loss("number-wide", '"number": 66', '"number": ⟦6600000000', "out-of-range",
              f"{first}/number")
    make.loss("note-beyond-the-end", '"pos": 0, "duration": 480', '"pos": 2147483000, '
              '"duration": ⟦648', "out-of-range", f"{first}/duration")
    make.loss("note-null", '"notes": [', '"notes": [⟦null,', "wrong-type", f"{first}")
    ignored = {"effect": "ignored"}
    make.loss("accent-101", '"accent": 54', '"accent": ⟦101', "out-of-range",
              f"{first}/exp/accent", **ignored)
    make.loss("fall-number", '"fallPort": true', '"fallPort": ⟦1', "wrong-type",
              f"{first}/exp/fallPort", **ignored)
    make.loss("pitch-integer", '"pitchFine": 0.25', '"pitchFine": ⟦1', "wrong-type",
              f"{first}/aiExp/pitchFine", **ignored)
    make.loss("pitch-of-400-digits", '"pitchFine": 0.25', '"pitchFine": ⟦1' + 400 * "0",
              "wrong-type", f"{first}/aiExp/pitchFine", **ignored)
    make.loss("pitch-1.5", '"pitchFine": 0.25', '"pitchFine": ⟦1.5', "out-of-range",
              f"{first}/aiExp/pitchFine", **ignored)
    make.loss("pitch-beyond-floats", '"pitchFine": 0.25', '"pitchFine": ⟦3.5e38', "out-of-range",
              f"{first}/aiExp/pitchFine", **ignored)
    make.loss("skill-longer", '"duration": 9', '"duration": ⟦481', "out-of-range",
              f"{first}/singingSkill/duration", **ignored)
    make.loss("skill-beside-dvqm", '"velocity": 91,', '"velocity": 91, "singingSkill": '
              '⟦{ "duration": 7 },', "not-looked-at", "/midi/notes/1/singingSkill")
    make.loss("vibrato-type-17", '"type": 1', '"type": ⟦17', "out-of-range",
              f"{first}/vibrato/type")
    make.loss("vibrato-longer", '"duration": 240', '"duration": ⟦481', "out-of-range",
              f"{first}/vibrato/duration")
    make.loss("points-of-a-vibrato-that-ends", '"type": 1, "duration": 240, "depths": [',
              '"type": ⟦17, "duration": 240, "depths": [{}, ', "out-of-range",
              f"{first}/vibrato/type")
    make.loss("point-behind", '[{ "pos": 0, "value": 40 }]', '[{ "pos": ⟦241, "value": 40 }]',
              "out-of-range", f"{first}/vibrato/depths/0/pos")
    make.loss("five-levels", '["x"]', '⟦["x", "x", "x", "x", "x"]', "wrong-value",
              "/midi/notes/1/dvqm/attack/levelNames")
    make.loss("level-number", '["x"]', '["x", ⟦1]', "wrong-type",
              "/midi/notes/1/dvqm/attack/levelNames/1")
    make.loss("factor-2.5", '1.5', '⟦2.5', "out-of-range", "/midi/notes/1/dvqm/attack/topFactor",
              **ignored)


def add_lists(make):
    """Lanes and effects."""
    lane = '{ "name": "dynamics", "events": [{ "pos": 0, "value": 80 }] }'
    make.loss("lane-unknown", '"dynamics"', '⟦"Dynamics"', "wrong-value", "/midi/controllers/0/name")
    make.loss("lane-with-nul", '"dynamics"', r'⟦"dynamics\u0000"', "wrong-value",
              "/midi/controllers/0/name")
    make.loss("lane-twice", lane, f"{lane}, " + lane.replace('"dynamics"', '⟦"dynamics"'),
              "repeated", "/midi/controllers/1/name")
    make.loss("lane-empty", '[{ "pos": 0, "value": 80 }]', "⟦[]", "wrong-value",
              "/midi/controllers/0/events")
    event = '{ "pos": 0, "value": 80 }'
    make.loss("event-128", event, event + ', { "pos": 9, "value": ⟦128 }', "out-of-range",
              "/midi/controllers/0/events/1/value")
    make.loss("event-twice", event, event + ', { "pos": ⟦0, "value": 81 }', "repeated",
              "/midi/controllers/0/events/1/pos")
    make.loss("effect-twice", '[{ "id": "echo" }]', '[{ "id": "echo" }, { "id": ⟦"echo" }]',
              "repeated", "/midi/midiEffects/1/id")
    make.loss("effect-without-id", '[{ "id": "echo" }]', '[⟦{}]', "missing-key",
              "/midi/midiEffects/0/id")
    make.loss("parameter-flag", '"value": 0.5', '"value": ⟦true', "wrong-type",
              "/midi/audioEffects/0/parameters/0/value")
    make.loss("parameter-of-400-digits", '"value": 0.5', '"value": ⟦-' + 400 * "9", "out-of-range",
              "/midi/audioEffects/0/parameters/0/value")
    make.loss("parameter-huge", '"value": 0.5', '"value": ⟦-1e300', "out-of-range",
              "/midi/audioEffects/0/parameters/0/value", "ignored")


def add_numbers(make):
    """Numbers of the wrong kind, in every object that has numbers, and a key that holds a list."""
    ignored = {"effect": "ignored"}
    make.properties("tempo-in-beats", "11200", "⟦112", "out-of-range", "/part/tempo", **ignored)
    make.properties("key-float", '"key": 10', '"key": ⟦10.0', "wrong-type", "/part/key", **ignored)
    make.part("duration-float", '"duration": 1920', '"duration": ⟦1.92e3', "wrong-type", "/midi/duration")
    make.part("language-float", '001", "langID": 3', '001", "langID": ⟦3.0', "wrong-type",
              "/midi/voice/langID")
    make.loss("pos-float", '"pos": 480', '"pos": ⟦480.0', "wrong-type", "/midi/notes/1/pos")
    event = '{ "pos": 0, "value": 80 }'
    make.loss("event-float", event, event + ', { "pos": 9, "value": ⟦81.0 }', "wrong-type",
              "/midi/controllers/0/events/1/value")
    make.loss("depth-float", '"value": 40', '"value": ⟦40.0', "wrong-type",
              "/midi/notes/0/vibrato/depths/0/value")
    make.loss("speed-float", '"speed": 20', '"speed": ⟦20.0', "wrong-type",
              "/midi/notes/1/dvqm/attack/speed", **ignored)
    make.loss("factor-integer", "1.5", "⟦1", "wrong-type", "/midi/notes/1/dvqm/attack/topFactor", **ignored)
    make.loss("controllers-capital", '"controllers"', '⟦"Controllers"', "unknown-key", "/midi/Controllers",
              "ignored")


def add_second_looks(make):
    """What may be a mistake."""
    noted = {"effect": "noted"}
    make.properties("type-of-another-part", '"type": "midi"', '"type": ⟦"midiAi"', "other-type",
                    "/part/type", **noted)
    make.loss("key-misspelt", '"accent": 54', '⟦"acent": 54', "unknown-key",
              "/midi/notes/0/exp/acent", "ignored")
    make.loss("key-of-another-object", '"name": "dynamics"', '"name": "dynamics", ⟦"lyric": ""',
              "unknown-key", "/midi/controllers/0/lyric", **noted)
    make.loss("key-of-its-own", '"styleName"', '⟦"x-~made/by": {}, "styleName"', "unknown-key",
              "/midi/x-~0made~1by", **noted)
    second = '{ "pos": 480, "duration": 480, "lyric": "de"'
    make.loss("note-behind-the-part", second, second.replace('{ "pos": 480', '⟦{ "pos": 1441'),
              "beyond-end", "/midi/notes/1", **noted)
    make.loss("notes-overlap", second, second.replace('{ "pos": 480', '⟦{ "pos": 479'), "overlap",
              "/midi/notes/1", **noted)
    make.loss("note-without-language", second, f"⟦{second}", "no-language", "/midi/notes/1",
              base=DATA.replace('"langID": 3, "number": 67', '"number": 67'), **noted)
    first = second.replace('480', '0', 1).replace('"de"', '"Freu"')
    make.loss("no-language-at-all", first, f"⟦{first}", "no-language", "/midi/notes/0",
              base=DATA.replace('"langID": 3, "number": 67', '"number": 67').replace(
                  '"langID": 3,\n', "\n"), **noted)


def add_files(make):
    """What the names and places of the files bring about."""
    good = {"properties": make.put_id(PROPERTIES, "capital-extension").encode(),
            "data": make.put_id(DATA, "capital-extension").encode()}
    make.add(Damage("capital-extension", **good, listed=False, file_name="clip.KXCLIP",
                    findings=[Finding("extension", "passed-over")]))
    make.add(Damage("no-property-document", None, make.put_id(DATA, "no-property-document").encode(),
                    [MISSING]))
    make.add(Damage("both-refused", b"{}", b"{}", [
        Finding("missing-key", "refused", f"/{key}", document, 1, 1)
        for document, keys in (("property.json", ("id", "name", "part")),
                               ("clip", ("id", "name", "midi")))
        for key in keys], listed=False))
