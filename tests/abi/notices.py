"""That the check notices each kind of change, on a small library with an interface of that kind."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

from check_abi import BROKEN, GROWN, judge
from description import INCLUDE, Incomplete, constants, describe, without_comments

DECLARATION = re.compile(r"KRT_PLX_API ([\w\s*]+?)KRT_PLX_CALL (KRT_PLX_\w+)\(([^)]*)\) KRT_PLX_NOEXCEPT;")
SETTER = "KRT_PLX_MutableEffectParameter_setValueInt32"


def interface_of(headers, folder, flags=("-g",)):
    """That of a library whose functions do nothing, made from effect.h as it stands in the folder."""
    text = without_comments((headers / "korvel/plx/effect.h").read_text(encoding="utf-8"))
    functions = [f"{kind} {name}({parameters}) noexcept {{ return {{}}; }}\n"
                 for kind, name, parameters in DECLARATION.findall(text)]
    source, library = folder / "library.cpp", folder / "library.so"
    source.write_text('#include "korvel/plx/effect.h"\n' + "".join(functions), encoding="utf-8")
    subprocess.run([os.environ["CXX"], "-std=c++20", "-w", "-shared", "-fPIC", "-O1", *flags,
                    f"-I{headers}", "-o", library, source], check=True)
    return describe(library, headers), constants(headers)


class Notices(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.original = interface_of(INCLUDE, cls.folder)

    def judgement_after(self, header, old, new):
        headers = self.folder / "include"
        shutil.rmtree(headers, ignore_errors=True)
        shutil.copytree(INCLUDE, headers)
        file = headers / "korvel/plx" / header
        text, count = re.subn(old, new, file.read_text(encoding="utf-8"), flags=re.DOTALL)
        self.assertEqual(count, 1, f"{old} in {header}")
        file.write_text(text, encoding="utf-8")
        is_function = header == "effect.h"
        return judge(self.original, interface_of(headers, self.folder) if is_function
                     else (self.original[0], constants(headers)))

    def assert_broken(self, *change, names=SETTER):
        report = self.judgement_after(*change)
        self.assertIn(names, report)
        self.assertIn(BROKEN, report)

    def test_nothing(self):
        self.assertEqual(judge(self.original, interface_of(INCLUDE, self.folder)), "")

    def test_another_comment_and_another_parameter_name(self):
        self.assertEqual(self.judgement_after("effect.h", r"int32_t value\b", "int32_t number"), "")

    def test_a_function_that_is_gone(self):
        self.assert_broken("effect.h", rf"KRT_PLX_API bool KRT_PLX_CALL {SETTER}\(.*?;", "")

    def test_another_name(self):
        self.assert_broken("effect.h", rf"\b{SETTER}\(\s*KRT", f"{SETTER}s(KRT")

    def test_another_type_of_a_parameter(self):
        self.assert_broken("effect.h", r"\bint32_t value\b", "int64_t value")

    def test_another_sign(self):
        self.assert_broken("effect.h", r"\bint32_t value\b", "uint32_t value")

    def test_another_handle(self):
        self.assert_broken("effect.h", rf"(bool KRT_PLX_CALL {SETTER}\(\s*)KRT_PLX_\w+", r"\1KRT_PLX_NoteBase")

    def test_another_result(self):
        self.assert_broken("effect.h", rf"bool KRT_PLX_CALL {SETTER}\(", f"int32_t KRT_PLX_CALL {SETTER}(")

    def test_one_parameter_more(self):
        self.assert_broken("effect.h", r"\bint32_t value\)", "int32_t value, bool now)")

    def test_one_parameter_less(self):
        self.assert_broken("effect.h", r",\s*int32_t value\)", ")")

    def test_another_value_of_an_enumerator(self):
        self.assert_broken("common.h", "KRT_PLX_PART_NONE = 4", "KRT_PLX_PART_NONE = 5",
                           names="KRT_PLX_PART_NONE = 4")

    def test_an_enumerator_that_is_gone(self):
        self.assert_broken("common.h", "KRT_PLX_RESULT_NO_PART = 13,", "",
                           names="KRT_PLX_RESULT_NO_PART")

    def test_another_mark(self):
        self.assert_broken("common.h", "KRT_PLX_NO_KEY 31u", "KRT_PLX_NO_KEY 32u",
                           names="KRT_PLX_NO_KEY")

    def test_one_function_more(self):
        report = self.judgement_after(
            "effect.h", rf"KRT_PLX_API bool KRT_PLX_CALL {SETTER}\(",
            f"KRT_PLX_API bool KRT_PLX_CALL KRT_PLX_Effect_isNew(bool now) KRT_PLX_NOEXCEPT;\n\\g<0>")
        self.assertIn("KRT_PLX_Effect_isNew", report)
        self.assertIn(GROWN, report)

    def test_one_enumerator_more(self):
        report = self.judgement_after("common.h", "KRT_PLX_PART_NONE = 4",
                                      "KRT_PLX_PART_NONE = 4, KRT_PLX_PART_VIDEO = 5")
        self.assertIn("KRT_PLX_PART_VIDEO", report)
        self.assertIn(GROWN, report)

    def test_a_library_that_tells_no_types(self):
        with self.assertRaises(Incomplete):
            interface_of(INCLUDE, self.folder, flags=("-g1",))


if __name__ == "__main__":
    unittest.main()
