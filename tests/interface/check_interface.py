"""Checks of krt_plx.api.json: check_interface.py CASE INTERFACE_FILE SOURCES LIBRARY READELF OBJDUMP"""

import json
import pathlib
import re
import struct
import sys
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "symbols"))
from binary import output_of  # noqa: E402

INTERFACE = SOURCES = LIBRARY = READELF = OBJDUMP = None


def functions():
    return {entry["name"]: entry for entry in INTERFACE["functions"]}


def exported_names():
    """What the binary itself says that it exports."""
    if LIBRARY.endswith(".dll"):
        headers = output_of(OBJDUMP, "--private-headers", LIBRARY)
        table = headers.partition("[Ordinal/Name Pointer] Table")[2].partition("\n\n")[0]
        return re.findall(r"(KRT_PLX_\w+)$", table, re.MULTILINE)
    rows = output_of(READELF, "--dyn-syms", "--wide", LIBRARY)
    return re.findall(r" (?!UND)\S+ (KRT_PLX_\w+)$", rows, re.MULTILINE)


class Binary(unittest.TestCase):
    """The file describes what the binary exports, all of it and no more."""

    def test_names(self):
        names = exported_names()
        self.assertEqual(sorted(names), sorted(functions()))
        self.assertGreater(len(names), 200)


class Defaults(unittest.TestCase):
    """The results for a null handle are those that the contract tests expect in their tables. They take
    the functions for a note's properties from a list; those are called by interface.NullCalls."""

    def tables(self):
        return sorted((SOURCES / "tests/contract").glob("export_table_*.cpp"))

    def words(self):
        text = (SOURCES / "tests/contract/export_table.h").read_text(encoding="utf-8")
        return {name: int(value, 0)
                for name, value in re.findall(r"uint64_t (\w+) = (\d\w*);", text)}

    def rows(self):
        words = self.words()
        for table in self.tables():
            text = table.read_text(encoding="utf-8")
            for name, default in re.findall(r'exported\("(\w+)",\s*&KRT_PLX_\w+,\s*(\w+)\)', text):
                yield f"KRT_PLX_{name}", words[default] if default in words else int(default, 0)

    def bits(self, result):
        if result["kind"] == "float":
            return struct.unpack("<I", struct.pack("<f", result["rejected"]))[0]
        return (result["rejected"] or 0) & 0xFFFFFFFF

    def test_each(self):
        expected = dict(self.rows())
        described = {name: self.bits(entry["result"]) for name, entry in functions().items()}
        self.assertEqual({name: described.get(name) for name in expected}, expected)
        self.assertGreater(len(expected), 200)


class Entries(unittest.TestCase):
    """Each entry says all that a binding needs."""

    def test_families_are_the_handles_of_the_headers(self):
        common = (SOURCES / "include/korvel/plx/common.h").read_text(encoding="utf-8")
        handles = re.findall(r"^typedef struct (KRT_PLX_\w+) \1;", common, re.MULTILINE)
        self.assertEqual([family["handle"] for family in INTERFACE["families"]], handles)
        self.assertEqual(len(handles), 14)

    def test_values_have_a_range_and_texts_a_rule(self):
        for name, entry in functions().items():
            for parameter in entry["parameters"]:
                with self.subTest(name, parameter=parameter["name"]):
                    plain = parameter["kind"] in ("bool", "texts", "handle")
                    if parameter["role"] == "value" and not plain:
                        self.assertTrue(parameter["accepts"])

    def test_numbers_have_a_range_and_objects_and_texts_an_owner(self):
        for name, entry in functions().items():
            result = entry["result"]
            with self.subTest(name):
                if result["kind"] in ("handle", "text"):
                    self.assertTrue(result["owner"] and result["lifetime"])
                elif result["kind"] not in ("bool", "void"):
                    self.assertTrue(result["range"])

    def test_what_can_be_ended_before_its_owner_names_the_call(self):
        """Read-only objects below a part, filters and expressions end with their owners alone."""
        for name, entry in functions().items():
            result = entry["result"]
            if result["kind"] == "handle" and result["owner"] != "owner of self":
                editable = "Mutable" in name or result["slot"] in ("userClip", "systemClip", "part",
                                                                   "propertyEditor", "manager")
                with_owner = result["slot"] in ("filter", "dvqm", "singingSkill", "vibrato")
                with self.subTest(name):
                    self.assertEqual(bool(result["ended_by"]), editable and not with_owner)

    def test_each_row_of_the_table_of_deaths_has_its_functions(self):
        page = (SOURCES / "docs/object-model.md").read_text(encoding="utf-8")
        table = page.partition("| call | what dies |")[2].partition("\n\n")[0]
        words = re.findall(r"KRT_PLX_[\w.]+", table)
        patterns = [word.replace("...", r"\w+") for word in words]
        expected = {name for name in functions() for pattern in patterns
                    if re.fullmatch(pattern, name)}
        self.assertEqual({name for name, entry in functions().items() if "destroys" in entry},
                         expected)

    def test_version(self):
        text = (SOURCES / "include/korvel/plx/version.h").read_text(encoding="utf-8")
        numbers = re.findall(r"#define KRT_PLX_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)", text)
        self.assertEqual(INTERFACE["version"]["text"], ".".join(numbers))

    def test_constants_are_those_of_the_headers(self):
        folder = SOURCES / "include/korvel/plx"
        text = "".join(header.read_text(encoding="utf-8") for header in folder.glob("*.h"))
        enumerators = re.findall(r"^    (KRT_PLX_\w+) = (\d+),?$", text, re.MULTILINE)
        found = {value["name"]: value["value"] for enum in INTERFACE["enums"]
                 for value in enum["values"]}
        self.assertEqual(found, {name: int(value) for name, value in enumerators})
        macros = re.findall(r"^#define (KRT_PLX_(?:(?:NO|VALUE|VIBRATO)_\w+|\w+_LIMIT)) ", text, re.MULTILINE)
        self.assertEqual({entry["name"] for entry in INTERFACE["constants"]
                          if "VERSION" not in entry["name"]}, set(macros))


class Comments(unittest.TestCase):
    """No word of a header's comment is lost, none is added."""

    def words_of_headers(self):
        for header in sorted((SOURCES / "include/korvel/plx").glob("*.h")):
            text = header.read_text(encoding="utf-8")
            for comment, name in re.findall(
                    r"/\*\*((?:(?!\*/).)*?)\*/\s*KRT_PLX_API [^;]*?(KRT_PLX_\w+)\(", text, re.DOTALL):
                yield name, re.sub(r"\n \*", " ", comment).split()

    def words_of_file(self, entry):
        words = entry["comment"].split()
        for parameter in entry["parameters"]:
            words += ["@param", parameter["name"], *parameter["comment"].split()]
        return words + (["@return", *entry["result"]["comment"].split()]
                        if entry["result"]["kind"] != "void" else [])

    def test_each(self):
        expected = dict(self.words_of_headers())
        self.assertEqual(sorted(expected), sorted(functions()))
        for name, entry in functions().items():
            with self.subTest(name):
                self.assertEqual(self.words_of_file(entry), expected[name])


def main():
    global INTERFACE, SOURCES, LIBRARY, READELF, OBJDUMP
    case, interface, sources, LIBRARY, READELF, OBJDUMP = sys.argv[1:]
    INTERFACE = json.loads(pathlib.Path(interface).read_text(encoding="utf-8"))
    SOURCES = pathlib.Path(sources)
    unittest.main(argv=[sys.argv[0], case])


if __name__ == "__main__":
    main()
