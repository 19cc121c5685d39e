"""The recipes for vcpkg and Conan, as far as they can be tried without either: beside what CMake knows."""

import json
import pathlib
import re
import runpy
import shutil
import sys
import types

from surroundings import PackageTest, output_of

PORT = "packaging/vcpkg/ports/krt-plx"
RECIPE = "packaging/conan/conanfile.py"

# What vcpkg gives a port, as far as this one uses it. What was asked for is printed, and configured.
STUBS = """
function(vcpkg_check_linkage)
    message(STATUS "linkage: ${ARGN}")
endfunction()
function(vcpkg_cmake_configure)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "SOURCE_PATH" "OPTIONS")
    message(STATUS "options: ${arg_OPTIONS}")
    execute_process(COMMAND "${CMAKE_COMMAND}" -G Ninja -S "${arg_SOURCE_PATH}" -B "@BUILD@" ${arg_OPTIONS}
        COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
endfunction()
function(vcpkg_cmake_install)
endfunction()
function(vcpkg_cmake_config_fixup)
    message(STATUS "fixup: ${ARGN}")
endfunction()
function(vcpkg_fixup_pkgconfig)
endfunction()
function(vcpkg_install_copyright)
    cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "FILE_LIST")
    message(STATUS "copyright: ${arg_FILE_LIST}")
endfunction()
set(CURRENT_PACKAGES_DIR "@PACKAGE@")
include("@PORT@/portfile.cmake")
"""


class Recipe(PackageTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        text = (cls.surroundings.sources / "CMakeLists.txt").read_text(encoding="utf-8")
        cls.description = re.search(r'DESCRIPTION "(.+)"', text)[1]

    def assert_options_are_known(self, names):
        """Each is an option of the build."""
        cache = (self.surroundings.build / "CMakeCache.txt").read_text(encoding="utf-8")
        known = set(re.findall(r"^(KRT_PLX_\w+):BOOL=", cache, re.MULTILINE))
        self.assertGreater(len(names), 3)
        self.assertEqual(names - known, set())


class VcpkgPort(Recipe):
    def manifest(self):
        return json.loads((self.surroundings.sources / PORT / "vcpkg.json").read_text(encoding="utf-8"))

    def test_manifest_says_what_cmake_says(self):
        manifest = self.manifest()
        self.assertEqual(manifest["name"], pathlib.PurePath(PORT).name)
        self.assertEqual((manifest["version"], manifest["description"]), (self.version_text, self.description))
        self.assertRegex(manifest["name"], r"^[a-z0-9]+(-[a-z0-9]+)*$")
        needed = {name if isinstance(name, str) else name["name"] for name in manifest["dependencies"]}
        self.assertEqual(needed, {"rapidjson", "vcpkg-cmake", "vcpkg-cmake-config"})

    def run_port(self):
        """What the port asks of vcpkg, by kind."""
        script = self.folder / "stubs.cmake"
        package = self.folder / "package of vcpkg"
        shutil.copytree(self.tree / "share", package / "share", dirs_exist_ok=True)
        text = STUBS
        for name, value in {"PORT": self.surroundings.sources / PORT, "PACKAGE": package,
                            "BUILD": self.folder / "build of vcpkg"}.items():
            text = text.replace(f"@{name}@", str(value))
        script.write_text(text, encoding="utf-8")
        printed = output_of([self.surroundings.cmake, "-P", script])
        return dict(re.findall(r"^-- (\w+): (.*)$", printed, re.MULTILINE)), package

    def test_port_configures_the_sources(self):
        asked, package = self.run_port()
        self.assertEqual(asked["linkage"], "ONLY_DYNAMIC_LIBRARY")
        options = dict(re.findall(r"-D(\w+)=(ON|OFF)", asked["options"]))
        self.assert_options_are_known(options.keys())
        cache = (self.folder / "build of vcpkg/CMakeCache.txt").read_text(encoding="utf-8")
        self.assertEqual(options, {name: re.search(rf"^{name}:BOOL=(.+)$", cache, re.MULTILINE)[1]
                                   for name in options})
        self.assertFalse((package / "share/doc").exists())
        self.assertTrue(pathlib.Path(asked["copyright"]).is_file())
        name, folder = re.fullmatch("PACKAGE_NAME;(.+);CONFIG_PATH;(.+)", asked["fixup"]).groups()
        self.assertTrue((self.tree / folder / f"{name}Config.cmake").is_file())


class Dependencies:
    """In place of Conan's."""

    def __init__(self, _recipe):
        pass

    def generate(self):
        pass


class Toolchain(Dependencies):
    """In place of Conan's: keeps what the recipe tells CMake."""

    last = None

    def __init__(self, recipe):
        super().__init__(recipe)
        self.cache_variables = {}
        Toolchain.last = self


def copy_files(_recipe, pattern, source, target):
    """What Conan's copy does, for the patterns of this recipe: all below a folder, or one file."""
    source, target = pathlib.Path(source), pathlib.Path(target)
    if pattern.endswith("/*"):
        shutil.copytree(source / pattern[:-2], target / pattern[:-2], dirs_exist_ok=True)
    else:
        target.mkdir(parents=True, exist_ok=True)
        shutil.copy(source / pattern, target)


def modules_of_conan():
    """In place of Conan's modules."""
    contents = {
        "conan": {"ConanFile": object},
        "conan.errors": {"ConanInvalidConfiguration": ValueError},
        "conan.tools": {},
        "conan.tools.build": {"check_min_cppstd": lambda *_: None},
        "conan.tools.cmake": {"CMake": None, "CMakeDeps": Dependencies, "CMakeToolchain": Toolchain,
                              "cmake_layout": None},
        "conan.tools.files": {"copy": copy_files, "rmdir": None,
                              "load": lambda _recipe, path: pathlib.Path(path).read_text(encoding="utf-8")},
    }
    for name, members in contents.items():
        module = types.ModuleType(name)
        module.__dict__.update(members)
        yield name, module


class ConanRecipe(Recipe):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.path = cls.surroundings.sources / RECIPE
        sys.modules.update(modules_of_conan())
        cls.recipe = runpy.run_path(str(cls.path))["KrtPlxConan"]()
        cls.recipe.recipe_folder = str(cls.path.parent)
        cls.recipe.export_sources_folder = str(cls.folder / "exported by Conan")

    def test_says_what_cmake_says(self):
        self.recipe.set_version()
        self.assertEqual((self.recipe.name, self.recipe.version, self.recipe.description),
                         ("krt_plx", self.version_text, self.description))

    def options(self):
        """What the recipe tells CMake."""
        self.recipe.generate()
        return Toolchain.last.cache_variables

    def test_exported_sources_can_be_configured(self):
        options = self.options()
        self.assert_options_are_known(options.keys())
        self.recipe.export_sources()
        build = self.folder / "build of Conan"
        output_of([self.surroundings.cmake, "-G", "Ninja", "-S", self.recipe.export_sources_folder, "-B", build,
                   *(f"-D{name}={'ON' if value else 'OFF'}" for name, value in options.items())])
        rules = (build / "cmake_install.cmake").read_text(encoding="utf-8")
        self.assertIn("korvel", rules)

    def test_names_the_library(self):
        self.recipe.cpp_info = types.SimpleNamespace(set_property=lambda *_: None)
        self.recipe.package_info()
        (library,) = self.recipe.cpp_info.libs
        self.assertTrue((self.tree / f"lib/lib{library}.so").exists())
        (folder,) = self.recipe.cpp_info.builddirs
        self.assertTrue((self.tree / folder / "krt_plxConfig.cmake").is_file())
