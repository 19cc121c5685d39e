"""What scripts/pack makes of a build: the archive for this system, and the Debian packages."""

import hashlib
import json
import os
import pathlib
import re
import shutil
import struct
import tarfile
import zipfile

from surroundings import PackageTest, output_of, tool

CRASH = pathlib.Path(__file__).parent / "crash.c"


def pack(surroundings, kind, folder, launcher=(), **environment):
    """Packs the build into the folder."""
    command = [*launcher, surroundings.sources / "scripts/pack", surroundings.build, kind, folder]
    output_of(command, timeout=280, env=dict(os.environ, **environment))


def unpack(archive, folder):
    shutil.unpack_archive(archive, folder)
    return folder / archive.name.partition("-symbols.")[0].removesuffix(".tar.gz").removesuffix(".zip")


def times_in(library):
    """The time of each member of a static or an import library."""
    place = len(b"!<arch>\n")
    while place < len(library):
        header = library[place : place + 60]
        yield header[16:28].strip()
        size = int(header[48:58])
        place += 60 + size + size % 2


class Packed(PackageTest):
    """A test with the packages of one kind in self.packages."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.packages = cls.folder / "packages"
        pack(cls.surroundings, cls.kind(), cls.packages)

    @classmethod
    def kind(cls):
        return "ZIP" if cls.surroundings.is_windows else "TGZ"

    def test_is_the_same_on_another_day_in_another_folder(self):
        again = self.folder / "another folder + some blanks"
        pack(self.surroundings, self.kind(), again, launcher=[tool("faketime"), "-f", "+400d"],
             NO_FAKE_STAT="1", TZ="Asia/Tokyo", HOME=str(self.folder))
        first, second = ({file.name: hashlib.sha256(file.read_bytes()).hexdigest() for file in folder.iterdir()}
                         for folder in (self.packages, again))
        self.assertGreaterEqual(len(first), 3)
        self.assertEqual(first, second)

    def package(self, pattern):
        (package,) = self.packages.glob(pattern)
        return package

    def described(self, debug_file, address):
        """The functions and the places in the sources that a debugger shows for an address."""
        lines = output_of([tool("addr2line"), "--functions", "--inlines", "--demangle", "--exe", debug_file,
                           hex(address)]).splitlines()
        return lines[::2], lines[1::2]

    def source_of(self, name):
        """A source by its name in the symbols, where the sources are "." and the build is "build"."""
        below = name.removeprefix("build/")
        folders = [self.surroundings.sources, self.surroundings.build]
        return next((folder / below for folder in folders if (folder / below).is_file()), None)

    def assert_shows_source(self, places):
        """Each place is a line of a source of the project."""
        for place in places:
            name, line = re.match(r"(.+):(\d+)", place).groups()
            source = self.source_of(name)
            self.assertIsNotNone(source, place)
            self.assertIn(int(line), range(1, len(source.read_bytes().splitlines()) + 1))


class Bill:
    """The bill of materials of the archive: what SPDX 2.3 requires of it, and that it is true."""

    required = {
        "document": {"spdxVersion", "dataLicense", "SPDXID", "name", "documentNamespace", "creationInfo"},
        "package": {"SPDXID", "name", "versionInfo", "downloadLocation", "filesAnalyzed", "licenseConcluded",
                    "licenseDeclared", "copyrightText"},
        "file": {"SPDXID", "fileName", "checksums"},
        "relationship": {"spdxElementId", "relationshipType", "relatedSpdxElement"},
    }

    def bill(self):
        return json.loads(self.package("*.spdx.json").read_text(encoding="utf-8"))

    def assert_complete(self, element, kind):
        self.assertEqual(self.required[kind] - element.keys(), set(), element)
        self.assertTrue(all(element[key] not in ("", []) for key in self.required[kind]), element)

    def test_has_the_required_fields(self):
        bill = self.bill()
        self.assert_complete(bill, "document")
        self.assertEqual((bill["spdxVersion"], bill["dataLicense"]), ("SPDX-2.3", "CC0-1.0"))
        self.assertRegex(bill["creationInfo"]["created"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertRegex(bill["creationInfo"]["creators"][0], "^(Organization|Person|Tool): .")
        for kind in ("package", "file", "relationship"):
            for element in bill[f"{kind}s"]:
                self.assert_complete(element, kind)

    def test_names_each_element_once(self):
        bill = self.bill()
        names = [bill["SPDXID"], *(element["SPDXID"] for kind in ("packages", "files") for element in bill[kind])]
        self.assertEqual(len(names), len(set(names)))
        for name in names:
            self.assertRegex(name, r"^SPDXRef-[A-Za-z0-9.-]+$")
        related = {row[key] for row in bill["relationships"] for key in ("spdxElementId", "relatedSpdxElement")}
        self.assertEqual(related - set(names), set())

    def test_lists_each_file_as_it_is(self):
        archive = self.archives()[0]
        tree = unpack(archive, self.folder / "listed")
        files = {f"./{file.relative_to(tree.parent)}": hashlib.sha256(file.read_bytes()).hexdigest()
                 for file in tree.rglob("*") if file.is_file() and not file.is_symlink()}
        bill = self.bill()
        self.assertEqual({file["fileName"]: file["checksums"][1]["checksumValue"] for file in bill["files"]}, files)
        sums = sorted(file["checksums"][0]["checksumValue"] for file in bill["files"])
        package = bill["packages"][0]
        self.assertEqual(package["packageVerificationCode"]["packageVerificationCodeValue"],
                         hashlib.sha1("".join(sums).encode()).hexdigest())
        self.assertEqual(package["checksums"][1]["checksumValue"],
                         hashlib.sha256(archive.read_bytes()).hexdigest())

    def compiled_in(self):
        """What the binaries have of others: the names of the parts, by the name of the file."""
        bill = self.bill()
        names = {element["SPDXID"]: element.get("name", element.get("fileName"))
                 for kind in ("packages", "files") for element in bill[kind]}
        parts = {}
        for row in bill["relationships"]:
            if row["relationshipType"] == "STATIC_LINK":
                file = pathlib.PurePath(names[row["spdxElementId"]]).name
                parts.setdefault(file, set()).add(names[row["relatedSpdxElement"]])
        return parts

    def test_says_what_is_in_the_binaries(self):
        """A function or a table of each part is in the binary, before that loses its symbols."""
        traces = {"RapidJSON": "json::Generic", "fmt": "fmt::", "CLI11": "CLI::", "libgcc": "_Unwind_RaiseException",
                  "libstdc++": "__cxa_throw", "winpthreads": "pthread_mutex_lock", "mingw-w64": "__mingw_",
                  "Unicode Character Database": "kitFoldings",
                  "Unicode Character Database of Python": "plainLetters"}
        kit = "libkrt_plx_kit.a"
        binaries = {kit: f"lib/{kit}", "krt_plx.dll": "bin/krt_plx.dll", "plxclip.exe": "bin/plxclip.exe"}
        if not self.surroundings.is_windows:
            binaries = {kit: f"lib/{kit}", f"libkrt_plx.so.{self.version_text}": "bin/libkrt_plx.so", "plxclip": "bin/plxclip"}
        parts = self.compiled_in()
        self.assertEqual(parts.keys(), binaries.keys())
        for name, file in binaries.items():
            symbols = output_of([tool("nm"), "--defined-only", "--demangle", self.surroundings.build / file])
            found = {part for part, trace in traces.items() if trace in symbols}
            self.assertEqual(parts[name], found, name)

    def test_names_the_terms_of_everything_compiled_in(self):
        text = (self.surroundings.sources / "docs/copyright").read_text(encoding="utf-8")
        for package in self.bill()["packages"]:
            if package["SPDXID"] in {row["relatedSpdxElement"] for row in self.bill()["relationships"]
                                     if row["relationshipType"] == "STATIC_LINK"}:
                self.assertNotEqual(package["licenseDeclared"], "NOASSERTION", package["name"])
                self.assertIn(package["copyrightText"].splitlines()[0], text)

    def test_has_the_versions_that_are_installed(self):
        packages = [package for package in self.bill()["packages"] if "externalRefs" in package]
        self.assertGreater(len(packages), 3)
        for package in packages:
            locator = package["externalRefs"][0]["referenceLocator"]
            name, version = re.fullmatch(r"pkg:deb/debian/([^@]+)@(\S+)\?arch=\w+", locator).groups()
            self.assertEqual(version, package["versionInfo"])
            self.assertEqual(output_of(["dpkg-query", "--show", "--showformat=${Version}", name]), version)


class Archive(Bill, Packed):
    """The archive for this system, that of its symbols, and the bill of materials."""

    def archives(self):
        symbols = self.package("*-symbols.*")
        (archive,) = (file for file in self.packages.iterdir()
                      if file != symbols and not file.name.endswith(".json"))
        return archive, symbols

    def owners(self, archive):
        """Who owns the files in it, as far as an archive of its kind says so."""
        if archive.suffix == ".zip":
            with zipfile.ZipFile(archive) as content:
                return {self.owner_in(entry.extra) for entry in content.infolist()}
        with tarfile.open(archive) as content:
            return {(entry.uid, entry.gid) for entry in content}

    def owner_in(self, extra):
        """The numbers in the field that Unix programs add to an entry of a ZIP archive."""
        while extra:
            kind, size = struct.unpack_from("<HH", extra)
            if kind == 0x7875:
                return tuple(int.from_bytes(extra[place : place + 4], "little") for place in (6, 11))
            extra = extra[4 + size :]
        return (0, 0)

    def test_belongs_to_no_builder(self):
        for archive in self.archives():
            self.assertEqual(self.owners(archive), {(0, 0)}, archive.name)

    def test_libraries_hold_no_time(self):
        tree = unpack(self.archives()[0], self.folder / "times")
        libraries = [file for file in tree.glob("lib/*") if file.suffix in (".a", ".lib")]
        self.assertGreater(len(libraries), 1)
        for library in libraries:
            times = list(times_in(library.read_bytes()))
            self.assertGreater(len(times), 1, library.name)
            self.assertLessEqual(set(times), {b"0", b""}, library.name)
        for name in ("bin/krt_plx.dll", "bin/plxclip.exe") if self.surroundings.is_windows else ():
            content = (tree / name).read_bytes()
            header = struct.unpack_from("<I", content, 60)[0]
            self.assertEqual(struct.unpack_from("<4sHHI", content, header)[3], 0, name)

    def image_base(self, library):
        """The address for which a library was linked."""
        if not self.surroundings.is_windows:
            return 0
        content = library.read_bytes()
        header = struct.unpack_from("<I", content, 60)[0] + 24
        is_wide = struct.unpack_from("<H", content, header)[0] == 0x20B
        return struct.unpack_from("<Q" if is_wide else "<I", content, header + (24 if is_wide else 28))[0]

    def crash(self, tree):
        """Where the library of the tree crashes, counted from its start."""
        program = self.folder / self.surroundings.file_name("crash")
        libraries = [f"-L{tree / 'lib'}", "-lkrt_plx"]
        if self.surroundings.is_windows:
            libraries = ["-static", "-Wl,-Bdynamic", *libraries, "-Wl,-Bstatic"]
        output_of([self.surroundings.c_compiler, "-std=c11", "-Wall", "-Wextra", "-Werror", f"-I{tree / 'include'}",
                   CRASH, "-o", program, *libraries])
        self.tree = tree
        (line,) = self.run_host(program, self.library_in_reach())
        return int(line, 16)

    def debug_file(self, library, symbols):
        """Where a debugger finds the symbols of a library, in the tree of the symbols."""
        if self.surroundings.is_windows:
            link = output_of([tool("objdump"), "--section=.gnu_debuglink", "--full-contents", library])
            self.assertIn(" krt_plx.dll.deb", link)
            return symbols / "bin/krt_plx.dll.debug"
        notes = output_of([tool("readelf"), "--notes", library])
        build_id = re.search(r"Build ID: ([0-9a-f]+)", notes)[1]
        return symbols / f"lib/debug/.build-id/{build_id[:2]}/{build_id[2:]}.debug"

    def test_crash_is_read_with_the_symbols(self):
        archive, symbols = self.archives()
        tree = unpack(archive, self.folder / "shipped")
        symbol_tree = unpack(symbols, self.folder / "symbols")
        library = tree / ("bin/krt_plx.dll" if self.surroundings.is_windows else "lib/libkrt_plx.so")
        address = self.crash(tree) + self.image_base(library)
        functions, places = self.described(self.debug_file(library, symbol_tree), address)
        self.assertIn("KRT_PLX_Manager_numSystemClips", functions[-1])
        self.assert_shows_source(places)
        self.assertRegex(self.described(library, address)[1][0], r"^\?\?:", "shipped with its symbols")


class DebianPackages(Packed):
    """Each package has the documents that Debian requires, and its symbols in a package of their own."""

    @classmethod
    def kind(cls):
        return "DEB"

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.roots = {}
        for package in cls.packages.glob("*.deb"):
            root = cls.folder / package.stem
            output_of([tool("dpkg-deb"), "--extract", package, root])
            cls.roots[package.name.partition("_")[0]] = root

    def plain(self):
        return {name: root for name, root in self.roots.items() if not name.endswith("-dbgsym")}

    def test_all_are_there(self):
        library = f"libkrt-plx{self.compatible_version}"
        self.assertEqual(set(self.plain()), {library, "libkrt-plx-dev", "libkrt-plx-doc", "krt-plx-tools",
                                             "python3-korvel-plx"})
        self.assertEqual(set(self.roots) - set(self.plain()), {f"{library}-dbgsym", "krt-plx-tools-dbgsym"})

    def test_copyright(self):
        expected = self.surroundings.sources / "docs/copyright"
        for name, root in self.plain().items():
            found = root / "usr/share/doc" / name / "copyright"
            self.assertEqual(found.read_bytes(), expected.read_bytes(), name)
            self.assertEqual(list(root.rglob("LICENSE")), [])
            self.assertEqual(list(root.rglob("man1/*.1")), [], "manual pages have to be compressed")
        self.assertGreater(len(list(self.roots["krt-plx-tools"].glob("usr/share/man/man1/plxclip*.1.gz"))), 10)

    def test_changelog_names_the_version(self):
        for name, root in self.plain().items():
            changelog = root / "usr/share/doc" / name / "changelog.Debian.gz"
            text = output_of(["gzip", "--decompress", "--stdout", changelog])
            self.assertRegex(text, rf"^krt-plx \({re.escape(self.version_text)}-1\) ")
            parsed = output_of([tool("dpkg-parsechangelog"), "--show-field", "Version", "--file", "-"],
                               input=text.encode("utf-8"))
            self.assertEqual(parsed.strip(), f"{self.version_text}-1")

    def control_of(self, name, file):
        """A file that dpkg reads, of the package of this name."""
        folder = self.folder / f"control of {name}"
        output_of([tool("dpkg-deb"), "--control", self.package(f"{name}_*.deb"), folder])
        return (folder / file).read_text(encoding="utf-8")

    def test_hosts_get_the_library_that_they_need(self):
        name = f"libkrt-plx{self.compatible_version}"
        self.assertEqual(self.control_of(name, "shlibs"),
                         f"libkrt_plx {self.compatible_version} {name} (>= {self.version_text})\n")
        self.assertEqual(self.control_of(name, "triggers"), "activate-noawait ldconfig\n")
        self.assertRegex(self.control_of(name, "control"), r"\nDepends: .*libc6 .*libstdc\+\+6")
        self.assertRegex(self.control_of("krt-plx-tools", "control"), rf"\nDepends: .*{name} \(= .*libstdc\+\+6")

    def test_symbols_tell_the_place_of_a_function(self):
        name = f"libkrt-plx{self.compatible_version}"
        (library,) = self.roots[name].rglob(f"libkrt_plx.so.{self.version_text}")
        build_id = re.search(r"Build ID: ([0-9a-f]+)", output_of([tool("readelf"), "--notes", library]))[1]
        symbols = self.roots[f"{name}-dbgsym"] / f"usr/lib/debug/.build-id/{build_id[:2]}/{build_id[2:]}.debug"
        exported = output_of([tool("nm"), "--dynamic", "--defined-only", library])
        address = int(re.search(r"^(\w+) T KRT_PLX_CreateManager$", exported, re.MULTILINE)[1], 16)
        functions, places = self.described(symbols, address)
        self.assertIn("KRT_PLX_CreateManager", functions[-1])
        self.assert_shows_source(places)
