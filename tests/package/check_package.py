"""Checks of the installed package.

check_package.py CASE SOURCES BUILD CMAKE C_COMPILER CPP_COMPILER [LAUNCHER...]
"""

import pathlib
import re
import shlex
import sys
import unittest

from in_tree import Components, InTree, InTreeRuns  # noqa: F401
from installed_examples import PackageExamples, PackageReadme  # noqa: F401
from packed import Archive, DebianPackages  # noqa: F401
from readme_hosts import ReadmeHosts  # noqa: F401
from recipes import ConanRecipe, VcpkgPort  # noqa: F401
from surroundings import PackageTest, Surroundings, call, output_of, package_environment, tool
from readme import figures  # noqa: E402, surroundings shows where it is
from versions import ResourceVersion, SharedObjectVersion, Versions  # noqa: F401
from windows_binary import WindowsBinary  # noqa: E402

CONSUMER = pathlib.Path(__file__).parent / "consumer"
MSVC = pathlib.Path(__file__).parent / "msvc"


class Tree(PackageTest):
    """The installed files, which must not contain the paths of the build."""

    def files(self):
        return {str(path.relative_to(self.tree)) for path in self.tree.rglob("*")
                if path.is_file()}

    def headers(self):
        include = self.surroundings.sources / "include"
        made = self.surroundings.build / "generated/include"
        return {f"include/{path.relative_to(folder)}" for folder in (include, made)
                for path in folder.rglob("*.h*")}

    def libraries(self):
        if self.surroundings.is_windows:
            return {"bin/krt_plx.dll", "lib/libkrt_plx.dll.a", "lib/krt_plx.lib",
                    "lib/krt_plx.def"}
        return {"lib/libkrt_plx.so", f"lib/libkrt_plx.so.{self.compatible_version}",
                f"lib/libkrt_plx.so.{self.version_text}"}

    def static_library(self, name, *made):
        """A library that hosts link, and its sources; some of them are made by the build."""
        sources = {file.name for file in (self.surroundings.sources / name).glob("*.[ch]")}
        self.assertGreater(len(sources), 1)
        return {f"lib/libkrt_plx_{name}.a"} | {f"share/krt_plx/{name}/{file}" for file in {*sources, *made}}

    def sources_in(self, folder):
        """The files of a folder of the sources, as they are installed."""
        root = self.surroundings.sources / folder
        return {f"share/krt_plx/{root.name}/{path.relative_to(root)}" for path in root.rglob("*")
                if path.is_file() and not path.name.startswith(".git")}

    def help_of_tools(self):
        """Completion in shells, and manual pages."""
        files = {"share/krt_plx/completion/plxclip.ps1"}
        if self.surroundings.is_windows:
            return files
        pages = {f"share/man/man1/{path.name}" for path in (self.surroundings.build / "share/man/man1").iterdir()}
        self.assertGreater(len(pages), 10)
        return files | pages | {"share/bash-completion/completions/plxclip", "share/zsh/site-functions/_plxclip",
                                "share/fish/vendor_completions.d/plxclip.fish"}

    def test_holds_what_a_host_needs(self):
        headers = self.headers()
        self.assertGreater(len(headers), 10)
        expected = headers | self.libraries() | {"lib/pkgconfig/krt_plx.pc", "lib/pkgconfig/krt_plx_kit.pc"}
        packages = {"krt_plxConfig.cmake", "krt_plxConfigVersion.cmake", "krt_plxTargets.cmake"}
        expected |= {f"lib/cmake/krt_plx/{name}" for name in packages}
        expected |= {"share/krt_plx/krt_plx.api.json", f"bin/{self.surroundings.file_name('plxclip')}"}
        expected |= self.static_library("kit", "folding_table.c", "linked.c")
        expected |= self.static_library("loaded", "functions.c")
        expected |= self.sources_in("examples") | self.sources_in("docs/schemas")
        expected |= {f"share/doc/krt_plx/{name}"
                     for name in ("README.md", "CHANGELOG.md", "LICENSE", "copyright")}
        expected |= self.help_of_tools()
        self.assertEqual(expected - self.files(), set())
        foreign = {name for name in self.files() - expected
                   if not name.startswith(("share/doc/", "lib/cmake/krt_plx/krt_plxTargets-"))}
        self.assertEqual(foreign, set())

    def test_names_no_place_where_it_was_made(self):
        places = [self.surroundings.sources, self.surroundings.build, self.installed]
        for name in sorted(self.files()):
            content = (self.tree / name).read_bytes()
            for place in places:
                self.assertFalse(str(place).encode("utf-8") in content, f"{name} names {place}")


class Manual(PackageTest):
    """The manual that the build has made is installed whole. (Only on Linux, where the tests make it.)"""

    def test_is_installed(self):
        made = self.surroundings.build / "docs/html"
        files = {path.relative_to(made) for path in made.rglob("*") if path.is_file()}
        installed = self.tree / "share/doc/krt_plx/html"
        self.assertGreater(len(files), 200)
        self.assertEqual({path.relative_to(installed) for path in installed.rglob("*") if path.is_file()}, files)
        self.assertIn("Recipes", (installed / "index.html").read_text(encoding="utf-8"))


class Licences(PackageTest):
    """Everyone who gets the binaries must also get the licences of everything in them."""

    def stanzas(self):
        text = (self.tree / "share/doc/krt_plx/copyright").read_text(encoding="utf-8")
        return text.split("\n\n")

    def stanza_of(self, field):
        (stanza,) = (part for part in self.stanzas() if part.startswith(f"{field}\n"))
        return stanza

    def test_our_own(self):
        licence = (self.tree / "share/doc/krt_plx/LICENSE").read_text(encoding="utf-8")
        title, holder, terms = licence.split("\n\n", 2)
        year = re.fullmatch(r"Copyright \(c\) (\d{4}) the krt_plx authors", holder)[1]
        self.assertEqual(title, "MIT License")
        self.assertIn(f"Copyright: {year} the krt_plx authors\nLicense: Expat",
                      self.stanza_of("Files: *"))
        self.assertEqual(" ".join(terms.split()),
                         " ".join(self.stanza_of("License: Expat").partition("\n")[2]
                                  .replace("\n .\n", "\n").split()))

    def test_all_licences_are_there(self):
        named = {name for stanza in self.stanzas() if stanza.startswith("Files:")
                 for name in re.findall(r"^License: (.+)$", stanza, re.MULTILINE)}
        self.assertGreaterEqual(len(named), 2)
        for name in named:
            self.assertGreater(len(self.stanza_of(f"License: {name}")), 1000, name)

    def test_headers_of_others(self):
        """Every library whose headers are compiled into a binary, as the build names their folders."""
        build = self.surroundings.build
        folders = {path.name for made in ("rapidjson-only", "headers-only")
                   for path in (build / made).iterdir()}
        self.assertIn("rapidjson", folders)
        for folder in folders:
            self.assertRegex(self.stanza_of(f"Files: {folder}/*"), r"(?s)\nCopyright: \d{4}.*\nLicense: \w")

    def test_rapidjson_is_told_as_its_package_tells_it(self):
        text = pathlib.Path("/usr/share/doc/rapidjson-dev/copyright").read_text(encoding="utf-8")
        years, holder, licence = re.search(r"^Files: \*\nCopyright: (?:Copyright \(C\) )?([\d-]+),? (.+)\n"
                                           r"License: (\S+)", text, re.MULTILINE).groups()
        stanza = self.stanza_of("Files: rapidjson/*")
        self.assertIn(f"{years} {holder}\n", stanza)
        self.assertIn(f"\nLicense: {licence}\n", stanza)


class Python(PackageTest):
    """The package for Python and its command find the library of their own tree. (Only on Linux.)"""

    components = (*PackageTest.components, "python")

    def test_holds_the_whole_package(self):
        made = self.surroundings.build / "python"
        installed = self.tree / "lib/python3/dist-packages"
        files = {path.relative_to(made) for path in made.rglob("*.py")}
        self.assertGreater(len(files), 20)
        self.assertEqual({path.relative_to(installed) for path in installed.rglob("*.py")}, files)

    def test_the_command_reads_a_clip_of_the_example_library(self):
        target = self.folder / "song.musicxml"
        output = output_of(["/usr/bin/python3", "-B", self.tree / "bin/plxsong", "export",
                            self.surroundings.sources / "examples/library/system",
                            "brindoll.hearth.greensleeves", target])
        self.assertIn("72 notes", output)
        self.assertTrue(target.is_file())


class RuntimePath(PackageTest):
    """The system decides where the libraries are that the library needs. (Only for ELF.)"""

    def test_there_is_none(self):
        entries = output_of([tool("readelf"), "--dynamic", self.tree / "lib/libkrt_plx.so"])
        self.assertIn("(SONAME)", entries)
        self.assertNotRegex(entries, "RPATH|RUNPATH")


class Consumers(PackageTest):
    """Hosts in C and in C++ that list the example library."""

    def expected_clips(self):
        return figures(self.surroundings.sources)

    def expected_lines(self):
        system, user = self.expected_clips()
        return [f"krt_plx {self.version_text}: {system} system clips, {user} user clips"]


class CMakeConsumers(Consumers):
    def settings(self):
        yield f"-DCMAKE_PREFIX_PATH={self.tree}"
        yield f"-DCMAKE_C_COMPILER={self.surroundings.c_compiler}"
        yield f"-DCMAKE_CXX_COMPILER={self.surroundings.cpp_compiler}"
        if self.surroundings.is_windows:
            yield "-DCMAKE_SYSTEM_NAME=Windows"

    def test_built_with_the_cmake_package(self):
        build = self.folder / "build"
        configured = output_of([self.surroundings.cmake, "-G", "Ninja", "-S", CONSUMER, "-B", build,
                                *self.settings()])
        self.assertIn(f"found krt_plx {self.version_text}", configured)
        output_of([self.surroundings.cmake, "--build", build])
        for name in ("c_consumer", "cpp_consumer", "kit_consumer"):
            with self.subTest(name):
                program = build / self.surroundings.file_name(name)
                self.assertEqual(self.run_host(program), self.expected_lines())


class PkgConfigConsumers(Consumers):
    package = "krt_plx"

    def flags(self, which):
        command = [tool("pkg-config"), which, self.package]
        return shlex.split(output_of(command, env=package_environment(self.tree)))

    def libraries(self):
        if not self.surroundings.is_windows:
            return self.flags("--libs")
        # The compiler's own libraries are linked into the program, the DLL is not.
        return ["-static", "-Wl,-Bdynamic", *self.flags("--libs"), "-Wl,-Bstatic"]

    def check(self, compiler, source, *options):
        program = self.folder / self.surroundings.file_name(source.stem + "_by_pkg_config")
        output_of([compiler, *options, "-Wall", "-Wextra", "-Wpedantic", "-Werror",
                   *self.flags("--cflags"), source, "-o", program, *self.libraries()])
        self.assertEqual(self.run_host(program, self.library_in_reach()), self.expected_lines())

    def test_c(self):
        self.check(self.surroundings.c_compiler, CONSUMER / "consumer.c", "-std=c11")

    def test_cpp(self):
        self.check(self.surroundings.cpp_compiler, CONSUMER / "consumer.cpp", "-std=c++17")

    def test_kit(self):
        self.package = "krt_plx_kit"
        self.check(self.surroundings.c_compiler, CONSUMER / "kit_consumer.c", "-std=c99")


class MsvcConsumer(Consumers):
    """A host made by tools that work only like Microsoft's, and without the headers of its C library."""

    def compile(self, source, *options, processor=None):
        """The object of a source that is compiled as `clang-cl` does."""
        result = self.folder / f"{source.stem}.obj"
        output_of([tool("clang", "clang-14"), f"--target={processor or self.processor()}-pc-windows-msvc",
                   "-ffreestanding", "-Wall", "-Wextra", "-Wpedantic", "-Werror", f"-isystem{MSVC}",
                   f"-I{self.tree / 'include'}", *options, "-c", source, "-o", result])
        return result

    def processor(self):
        """That of the installed library."""
        library = WindowsBinary(self.tree / "bin/krt_plx.dll")
        return "x86_64" if library.has_long_addresses else "i686"

    def called(self):
        """The functions that the host calls."""
        return set(re.findall(r"\b(KRT_PLX_\w+)\(", (MSVC / "host.c").read_text(encoding="utf-8")))

    def imports_of(self, host):
        """The pointers that an import library has to have for the host."""
        symbols = output_of([tool("llvm-nm", "llvm-nm-14"), "--undefined-only", "--format=just-symbols", host])
        return {name for name in symbols.split() if name != "__fltused"}

    def test_linked_with_the_import_library(self):
        program = self.folder / "host.exe"
        output_of([tool("lld-link", "lld-link-14"), "/nodefaultlib", "/entry:entry",
                   "/subsystem:console", f"/out:{program}", self.compile(MSVC / "host.c", "-std=c99"),
                   self.tree / "lib/krt_plx.lib"])
        self.assertEqual(set(WindowsBinary(program).imports()), {("krt_plx.dll", name) for name in self.called()})
        self.assertEqual(self.start_host(program, self.library_in_reach()).returncode,
                         sum(self.expected_clips()))

    def test_calls_as_c_does_whatever_else_is_usual(self):
        """Even where the compiler is told to call all functions in another way, which changes their names."""
        for language in ("-std=c99", "-xc++"):
            host = self.compile(MSVC / "host.c", language, "-mrtd", processor="i686")
            self.assertEqual(self.imports_of(host), {f"__imp__{name}" for name in self.called()})
        host = self.compile(MSVC / "host.c", "-xc++", processor="x86_64")
        self.assertEqual(self.imports_of(host), {f"__imp_{name}" for name in self.called()})


def main():
    case, sources, build, cmake, c_compiler, cpp_compiler, *launcher = sys.argv[1:]
    PackageTest.surroundings = Surroundings(pathlib.Path(sources), pathlib.Path(build), cmake,
                                            c_compiler, cpp_compiler, launcher)
    unittest.main(argv=[sys.argv[0], case], verbosity=2)


main()
