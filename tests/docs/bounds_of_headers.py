"""What the comments of the public headers claim of the table of keys: through krt_plx.api.json what each
function, code and constant says, and what the headers say of new objects."""

import re

from bounds import CONTROLLER_TYPES, CONTROLLERS, INT32, Claim
from meaning import Meaning

SOURCE = "headers"
NUMBER = r"-?\d+(?:\.\d+)?"
# Whose keys the functions of a class get and set.
CLASSES = {"Note": ["notes[]", "notes[].exp", "notes[].aiExp"],
           "SingingSkill": ["notes[].singingSkill"],
           "Dvqm": ["notes[].dvqm.attack", "notes[].dvqm.release"],
           "Vibrato": ["notes[].vibrato"],
           "VibratoParameter": ["rates[]", "depths[]"],
           "MidiEvent": ["events[]"],
           "MidiPart": ["data.midiAi", "data.midi"],
           "Clip": ["property.part"], "PropertyEditor": ["property.part"], "Filter": ["property.filter"]}
INSERTED = {"insertNote": "Note", "insertParameter": "VibratoParameter", "insertEvent": "MidiEvent"}
# What is called otherwise than its key.
OTHERWISE = {("SingingSkill", "preWeight"): (["singingSkill.weight"], "pre"),
             ("SingingSkill", "postWeight"): (["singingSkill.weight"], "post"),
             ("Clip", "partKey"): (["property.part"], "key"),
             ("Clip", "partTempo"): (["property.part"], "tempo"),
             ("PropertyEditor", "partKey"): (["property.part"], "key"),
             ("PropertyEditor", "partTempo"): (["property.part"], "tempo"),
             ("Filter", "language"): (["property.filter"], "languages"),
             ("MidiPart", "langID"): (["midi.voice"], "langID"),
             ("MidiPart", "aiLangID"): (["aiVoice.langIDs[]"], "langID"),
             ("MidiPart", "aiLangIDByIndex"): (["aiVoice.langIDs[]"], "langID"),
             ("MidiPart", "voiceBankID"): (["midi.voice"], "compID"),
             ("MidiPart", "aiVoiceBankID"): (["midiAi.aiVoice"], "compID")}
# The marks for "no value" tell of the real ones.
CONSTANTS = {"KRT_PLX_NO_KEY": (["property.part"], "key"),
             "KRT_PLX_NO_TEMPO": (["property.part"], "tempo"),
             "KRT_PLX_VIBRATO_TYPE_NONE": (["notes[].vibrato"], "type")}
LANGUAGES = [(["notes[]", "midi.voice", "aiVoice.langIDs[]"], "langID")]
ONE_MORE = ("KRT_PLX_NO_KEY", "KRT_PLX_VIBRATO_TYPE_NONE")
# What the headers say of new objects: by pattern the keys, in the order of its groups.
FLAG = "(true|false)"
FLAGS = {"true": 1, "false": 0, "not protected": 0, "protected": 1}
NEW = {
    "note.h": {
        rf"both portamento flags and the protection mark {FLAG}":
            [("notes[].exp.fallPort", "notes[].exp.risePort", "notes[].isProtected")],
        rf"each of the thirteen AI expression values ({NUMBER})": ["notes[].aiExp.*"],
        rf"and ({NUMBER}) is the default": ["notes[].aiExp.*"],
        rf"carries ({NUMBER}) for all of them": ["notes[].aiExp.*"],
        rf"saves ({NUMBER}) for these values": ["notes[].aiExp.*"]},
    "part.h": {rf"new note has note number ({NUMBER}) and velocity ({NUMBER})":
               ["notes[].number", "notes[].velocity"]},
    "expression.h": {
        rf"has speed ({NUMBER}) and top factor ({NUMBER})":
            [("dvqm.attack.speed", "dvqm.release.speed"), ("dvqm.attack.topFactor", "dvqm.release.topFactor")],
        "no level names, is ((?:not )?protected)":
            [("dvqm.attack.isProtected", "dvqm.release.isProtected")],
        rf"has duration ({NUMBER}) and both weights ({NUMBER})":
            ["singingSkill.duration", ("singingSkill.weight.pre", "singingSkill.weight.post")],
        rf"has type ({NUMBER}), duration ({NUMBER}) and no points": ["vibrato.type", "vibrato.duration"]},
    "clip.h": {rf"no types, no genres, key ({NUMBER}), tempo ({NUMBER})":
               ["property.part.key", "property.part.tempo"]},
    "manager.h": {rf"with key ({NUMBER}) and tempo ({NUMBER})": ["property.part.key", "property.part.tempo"]},
}


def number(text):
    if text in FLAGS:
        return FLAGS[text]
    return float(text) if "." in text else int(text)


WORDS = {word: number for number, word in enumerate(("no", "one", "two", "three", "four", "five", "six"))}
LEVELS = r"\b(\w+) to (\w+) level names"


def first_small(name):
    return name[:1].lower() + name[1:]


class Headers:
    def __init__(self, table, api, texts):
        self.table = table
        self.api = api
        self.texts = texts  # {file: its text, of one line}
        self.claims = []
        self.unknown = []  # numbers that get or set no key
        known = {entry["name"]: entry["value"] for entry in api["constants"]}
        known |= {value["name"]: value["value"] for enum in api["enums"] for value in enum["values"]}
        members = {enum["name"]: {value["name"]: value["value"] for value in enum["values"]}
                   for enum in api["enums"]}
        self.known = known
        self.meaning = Meaning(known, members)

    def read(self):
        for function in self.api["functions"]:
            self.function(function)
        self.constants()
        for enum in self.api["enums"]:
            if enum["name"] == "KRT_PLX_ControllerType":
                self.controllers(enum)
        self.new_objects()
        self.new_notes()
        self.level_names()
        return self.claims

    def claim(self, place, rows, fact, value):
        self.claims += [Claim(SOURCE, place, row, fact, value) for row in rows]

    def rows_at(self, ends, key):
        rows = [(path, key) for end in ends for path in self.table.objects_at(end)]
        return [row for row in rows if row in self.table.rows]

    def rows(self, owner, name):
        """The keys that a class means by the name."""
        ends, key = OTHERWISE.get((owner, name), (CLASSES.get(owner, []), name))
        return self.rows_at(ends, key)

    def function(self, function):
        owner = (function["class"] or "").removeprefix("Mutable").removesuffix("Base")
        operation = function["operation"]
        result = function["result"]
        if result["kind"] in ("int32", "uint32", "float", "bool"):
            self.result(function["name"], self.rows(owner, operation), result)
        for parameter in function["parameters"]:
            if parameter["role"] == "value":
                self.parameter(function["name"], owner, operation, parameter)
        for first, last in re.findall(r"\btypes (\d+) to (\d+)", function["comment"]):
            self.types(function["name"], first, last)

    def result(self, place, rows, result):
        text = result["comment"]
        default = re.search(rf"({NUMBER}|false)(?: \([^)]*\))? by default", text)
        if default:
            self.claim(place, rows, "initial", number(default[1]))
        if re.search("#KRT_PLX_NO_LANGUAGE (?:for a note without language|when none was set)", text):
            self.claim(place, rows, "initial", self.known["KRT_PLX_NO_LANGUAGE"])
        if re.search(r"; 0 when the clip has no tempo", text):
            self.claim(place, rows, "also", 0)
        if result["kind"] != "bool" and "values" not in result["range"]:
            if any(".aiExp" in path for path, _ in rows):
                self.claim(place, rows, "initial", self.meaning.rejected("float", text))
            self.range(place, rows, result["kind"], text.partition("; ")[0])

    def parameter(self, place, owner, operation, parameter):
        text = parameter["comment"]
        if operation in INSERTED:
            rows = self.rows(INSERTED[operation], parameter["name"])
        elif operation == "move":
            rows = self.rows(owner, "pos")
        else:
            rows = self.rows(owner, first_small(re.sub("^(?:set|add)", "", operation)))
        if parameter["kind"] == "text":
            self.lengths(place, rows, text)
        elif parameter["kind"] in ("int32", "uint32", "float") and "values" not in parameter["accepts"]:
            self.range(place, rows, parameter["kind"], text)

    def range(self, place, rows, kind, text):
        types = re.search(r"controller type \(controller\.h\), (\d+) to (\d+)", text)
        if types:
            self.types(place, *types.groups())
            return
        if not rows:
            self.unknown.append(place)
            return
        said = self.meaning.range_of(kind, text)
        for fact in ("minimum", "maximum"):
            # What every number of 32 bits meets is said by the type.
            if said[fact] not in INT32:
                self.claim(place, rows, fact, said[fact])
        if "also" in said:
            self.claim(place, rows, "also", said["also"][0])

    def lengths(self, place, rows, text):
        exact = re.match(r"exactly (\d+) UTF-16 units(, or the empty text)?", text)
        if exact:
            self.claim(place, rows, "shortest", int(exact[1]))
            self.claim(place, rows, "longest", int(exact[1]))
            if exact[2]:
                self.claim(place, rows, "also", 0)

    def types(self, place, first, last):
        self.claim(place, [CONTROLLER_TYPES], "last", int(last) if int(first) == 0 else None)

    def constants(self):
        comments = {entry["name"]: entry for entry in self.api["constants"]}
        for name, (ends, key) in CONSTANTS.items():
            rows = self.rows_at(ends, key)
            self.mark(name, rows, comments[name]["comment"])
            if name in ONE_MORE:
                self.claim(name, rows, "maximum", comments[name]["value"] - 1)
        for ends, key in LANGUAGES:
            self.mark("KRT_PLX_NO_LANGUAGE", self.rows_at(ends, key),
                      comments["KRT_PLX_NO_LANGUAGE"]["comment"])

    def mark(self, name, rows, text):
        low, high = re.search(rf"({NUMBER}) to ({NUMBER})", text).groups()
        self.claim(name, rows, "minimum", number(low))
        self.claim(name, rows, "maximum", number(high))

    def controllers(self, enum):
        for value in enum["values"]:
            span = re.search(rf"(?<![\w-])({NUMBER}) to ({NUMBER})", value["comment"])
            if value["value"] not in self.table.codes:
                self.claim(value["name"], [CONTROLLER_TYPES], "last", value["value"] - 1)
                continue
            row = (CONTROLLERS, self.table.codes[value["value"]])
            for fact, said in zip(("minimum", "maximum"), span.groups()):
                self.claim(value["name"], [row], fact, number(said))

    def new_objects(self):
        for file, patterns in NEW.items():
            for pattern, keys in patterns.items():
                said = re.search(pattern, self.texts[file])
                for place, key in enumerate(keys):
                    rows = [row for each in ([key] if isinstance(key, str) else key)
                            for row in self.rows_of(each)]
                    self.claim(f"{file}, \"{said[0] if said else pattern}\"", rows, "initial",
                               number(said[place + 1]) if said else None)

    def new_notes(self):
        """The numbers of a new note, each behind its key in words: "bend depth 0"."""
        text = re.search(r"The rest starts as: (.*?)\. ", self.texts["note.h"])[1]
        for end in ("notes[]", "notes[].exp"):
            for row in (row for path in self.table.objects_at(end) for row in self.table.rows if row[0] == path):
                words = re.sub("[A-Z]", lambda capital: " " + capital[0].lower(), row[1])
                said = re.search(rf"\b{words} ({NUMBER})", text)
                if said:
                    self.claim("note.h, a new note", [row], "initial", number(said[1]))

    def level_names(self):
        few, many = re.search(LEVELS, self.texts["expression.h"]).groups()
        rows = self.rows_at(["dvqm.attack", "dvqm.release"], "levelNames")
        self.claim("expression.h", rows, "fewest", WORDS[few])
        self.claim("expression.h", rows, "most", WORDS[many])

    def rows_of(self, dotted):
        end, _, key = dotted.rpartition(".")
        if key == "*":
            return [(path, each) for path in self.table.objects_at(end) for each in self.table.keys_of(path)]
        return self.rows_at([end], key)
