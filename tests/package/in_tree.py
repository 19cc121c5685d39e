"""Hosts that take the sources of the library into their own build."""

import json
import os
import pathlib
import re
import shlex

from surroundings import PackageTest, call, output_of

HOST = pathlib.Path(__file__).parent / "in_tree"
CONSUMER = pathlib.Path(__file__).parent / "consumer"
WAYS = ("add_subdirectory", "FetchContent")


class HostTree(PackageTest):
    """A host in a folder whose name has what names of folders can have."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.place = cls.folder / "hosts in C++ & more"
        cls.configured = {}

    def configure(self, way, *settings):
        """Returns the build folder, and what CMake printed; the same again for the same arguments."""
        if (way, settings) not in self.configured:
            build = self.place / f"{len(self.configured)} with {way}"
            self.configured[way, settings] = build, self.configure_in(build, way, *settings)
        return self.configured[way, settings]

    def configure_in(self, build, way, *settings):
        (build / ".cmake/api/v1/query/codemodel-v2").mkdir(parents=True, exist_ok=True)
        toolchain = "cmake/mingw/toolchain.cmake"
        if self.surroundings.is_windows:
            settings = (f"-DCMAKE_TOOLCHAIN_FILE={self.surroundings.sources / toolchain}", *settings)
        else:
            settings = (f"-DCMAKE_C_COMPILER={self.surroundings.c_compiler}",
                        f"-DCMAKE_CXX_COMPILER={self.surroundings.cpp_compiler}", *settings)
        return output_of([self.surroundings.cmake, "-G", "Ninja", "-S", HOST, "-B", build,
                          f"-DPLX_SOURCES={self.surroundings.sources}", f"-DTAKE_IN={way}",
                          f"-DHOST_SOURCE={CONSUMER / 'consumer.c'}", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", *settings])


class InTree(HostTree):
    """What the library does to the build of such a host. Nothing is compiled here."""

    def targets(self, build):
        """The names of all targets that can be built."""
        return {json.loads(file.read_text(encoding="utf-8"))["name"]
                for file in (build / ".cmake/api/v1/reply").glob("target-*.json")}

    def options_of_host(self, build):
        """How the host's own source is compiled."""
        (command,) = (entry["command"]
                      for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
                      if entry["file"].endswith("consumer.c"))
        return {word for word in shlex.split(command)[1:] if word.startswith("-")}

    def settings_of(self, build):
        text = (build / "CMakeCache.txt").read_text(encoding="utf-8")
        return dict(re.findall(r"^([^#/\s:][^:\n]*):\w+=(.*)$", text, re.MULTILINE))

    def test_leaves_the_host_alone(self):
        for way in WAYS:
            with self.subTest(way):
                build, printed = self.configure(way)
                self.assertNotIn("leaked:", printed)
                self.assertEqual(re.findall("has: (.+)", printed), ["krt_plx", "loader"])
                self.assertEqual(self.options_of_host(build),
                                 {f"-I{self.surroundings.sources / 'include'}", "-o", "-c"})

    def test_builds_nothing_that_was_not_asked_for(self):
        build, _ = self.configure("FetchContent")
        targets = self.targets(build)
        self.assertGreaterEqual(targets, {"host", "krt_plx"})
        foreign = {name for name in targets if re.search("test|plxclip|browse|compose|bench|gmock|gtest", name)}
        self.assertEqual(foreign, set())

    def test_has_settings_of_its_own_names_only(self):
        build, _ = self.configure("FetchContent")
        own = re.compile("(KRT_PLX|krt_plx|FETCHCONTENT|CMAKE|_?CMAKE|host|GNUINSTALLDIRS|_GNUInstallDirs|PLX_SOURCES|"
                         "TAKE_IN|HOST_SOURCE|FIND_PACKAGE_MESSAGE_DETAILS|_Python3|Python3)")
        self.assertEqual({name for name in self.settings_of(build) if not own.match(name)}, set())

    def test_gives_what_is_asked_for(self):
        build, printed = self.configure("add_subdirectory", "-DKRT_PLX_KIT=ON", "-DKRT_PLX_INTERFACE=ON",
                                        "-DKRT_PLX_INSTALL=ON")
        self.assertEqual(re.findall("has: (.+)", printed), ["krt_plx", "loader", "kit", "loaded"])
        self.assertIn("krt_plx_kit", self.targets(build))
        self.assertIn("/include", self.install_rules(build))

    def install_rules(self, build):
        return "".join(file.read_text(encoding="utf-8") for file in build.rglob("cmake_install.cmake"))

    def test_installs_nothing_unless_asked_to(self):
        build, _ = self.configure("FetchContent")
        self.assertNotIn("file(INSTALL", self.install_rules(build))


class InTreeRuns(HostTree):
    """The same hosts, built and run; scripts/try-packages does this, because it compiles the library."""

    def test_lists_the_example_library(self):
        for way in WAYS:
            with self.subTest(way):
                build, _ = self.configure(way, "-DCMAKE_BUILD_TYPE=Release", "-DKRT_PLX_INSTALL=ON")
                output_of([self.surroundings.cmake, "--build", build])
                (library,) = build.rglob("krt_plx.dll" if self.surroundings.is_windows else "libkrt_plx.so")
                (line,) = self.run_host(build / self.surroundings.file_name("host"),
                                        dict(os.environ, WINEPATH=f"Z:{library.parent}"))
                self.assertRegex(line, rf"krt_plx {re.escape(self.version_text)}: \d+ system clips, \d+ user clips")
                output_of([self.surroundings.cmake, "--install", build, "--prefix", self.place / way])
                self.assertTrue((self.place / way / "include/korvel/plx.h").is_file())


class Components(PackageTest):
    """What find_package answers when a host asks for parts of the package."""

    def asked_for(self, components):
        """Whether CMake finds the package with these components, and what it says if not."""
        source = self.folder / "asking for components"
        source.mkdir(exist_ok=True)
        (source / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.25)\nproject(asking LANGUAGES NONE)\n"
            f"find_package(krt_plx CONFIG REQUIRED {components})\n", encoding="utf-8")
        result = call([self.surroundings.cmake, "-S", source, "-B", source / "build",
                       f"-Dkrt_plx_DIR={self.tree / 'lib/cmake/krt_plx'}"])
        return result.returncode == 0, " ".join(result.stderr.decode("utf-8").split())

    def test_each_target_is_a_component(self):
        found, message = self.asked_for("COMPONENTS krt_plx kit loader loaded OPTIONAL_COMPONENTS organ")
        self.assertTrue(found, message)

    def test_unknown_component_is_named_with_those_that_there_are(self):
        found, message = self.asked_for("COMPONENTS kit organ piano")
        self.assertFalse(found)
        self.assertIn("krt_plx has no component organ, piano; it has krt_plx, kit, loader, loaded", message)
