"""Checks what the build would tell the linker of macOS. It is only configured: nothing is compiled.

check_macos.py CMAKE PROJECT
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

CMAKE = PROJECT = None
SYSTEM = ("-DCMAKE_SYSTEM_NAME=Darwin", "-DCMAKE_C_COMPILER=clang", "-DCMAKE_CXX_COMPILER=clang++",
          "-DCMAKE_C_COMPILER_WORKS=ON", "-DCMAKE_CXX_COMPILER_WORKS=ON")
LIBRARY_ALONE = [f"-DKRT_PLX_{part}=OFF" for part in ("TESTS", "EXAMPLES", "TOOLS", "KIT", "INTERFACE")]
# Words that only a linker for ELF understands.
ELF = ("-Wl,-z", "version-script", "-soname", "--no-undefined", "$ORIGIN")


class MacOs(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.build = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        result = subprocess.run([CMAKE, "-S", PROJECT, "-B", cls.build, "-G", "Ninja", *SYSTEM,
                                 *LIBRARY_ALONE], capture_output=True, text=True, check=False)
        if result.returncode:
            raise RuntimeError(result.stderr)
        cls.rules = (cls.build / "build.ninja").read_text(encoding="utf-8")

    def setting(self, name):
        """A variable of the rule that links the library."""
        (rule,) = re.findall(r"^build bin/libkrt_plx\S+: CXX_SHARED.*\n((?:  .*\n)+)", self.rules, re.M)
        return dict(line.strip().split(" = ", 1) for line in rule.splitlines())[name]

    def test_the_library_has_the_name_by_which_programs_look_for_it(self):
        self.assertRegex(self.setting("TARGET_FILE"), r"^bin/libkrt_plx\.\d+\.\d+\.\d+\.dylib$")
        self.assertEqual(self.setting("SONAME_FLAG"), "-install_name")
        self.assertEqual(self.setting("INSTALLNAME_DIR"), "@rpath/")
        self.assertRegex(self.setting("SONAME"), r"^libkrt_plx\.[\d.]+\.dylib$")

    def test_the_linker_gets_the_exported_names_in_its_own_form(self):
        self.assertIn("-Wl,-exported_symbols_list,", self.setting("LINK_FLAGS"))
        self.assertEqual([word for word in ELF if word in self.rules], [])
        subprocess.run([CMAKE, "--build", self.build, "--target", "krt_plx_exports"],
                       stdout=subprocess.DEVNULL, check=True)
        names, symbols = (
            (self.build / "generated/exports" / name).read_text(encoding="utf-8").split()
            for name in ("exports.txt", "exports.symbols"))
        self.assertGreater(len(names), 0)
        self.assertEqual(symbols, [f"_{name}" for name in names])

    def test_the_file_layer_is_that_for_any_posix_system(self):
        units = [file.read_text(encoding="utf-8")
                 for file in self.build.glob("src/CMakeFiles/*/Unity/*.cxx")]
        self.assertEqual(set(re.findall(r"/src/fs/(\w+)/", "".join(units))), {"posix"})


if __name__ == "__main__":
    CMAKE, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
    unittest.main(argv=sys.argv[:1], verbosity=2)
