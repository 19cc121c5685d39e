"""Checks that the version is the same everywhere."""

import pathlib
import re
import shlex
import tempfile

from surroundings import PackageTest, call, output_of, package_environment, tool

from readme import blocks  # noqa: E402, surroundings shows where they are
from windows_binary import WindowsBinary  # noqa: E402


class Versions(PackageTest):
    def found_when_asked_for(self, *versions):
        """The version that CMake finds for each requested one; None where it refuses."""
        source = pathlib.Path(tempfile.mkdtemp(dir=self.folder))
        calls = "\n".join(
            f"find_package(krt_plx {version} CONFIG QUIET)\n"
            f'message(STATUS "asked for {version}: ${{krt_plx_FOUND}} ${{krt_plx_VERSION}}")'
            for version in versions
        )
        (source / "CMakeLists.txt").write_text(
            f"cmake_minimum_required(VERSION 3.25)\nproject(asking LANGUAGES NONE)\n{calls}\n",
            encoding="utf-8",
        )
        text = output_of([self.surroundings.cmake, "-S", source, "-B", source / "build",
                          f"-Dkrt_plx_DIR={self.tree / 'lib/cmake/krt_plx'}"])
        rows = re.findall(r"asked for (\S+): (\S+) (\S*)", text)
        return [found if is_found == "1" else None for _, is_found, found in rows]

    def test_cmake_package(self):
        major, minor, patch = self.version
        accepted = [self.version_text, f"{major}.{minor}"]
        refused = [f"{major + 1}.0", f"{major}.{minor + 1}", f"{major}.{minor}.{patch + 1}"]
        if major == 0 and minor > 0:
            refused.append(f"{major}.{minor - 1}")
        expected = [self.version_text] * len(accepted) + [None] * len(refused)
        self.assertEqual(self.found_when_asked_for(*accepted, *refused), expected)

    def example(self, language):
        """The only example in a language on the manual's page about versions."""
        (code,) = blocks(self.surroundings.sources / "docs/versioning.md", language)
        return code.strip()

    def test_manual_asks_cmake_as_one_can(self):
        arguments = re.fullmatch(r"find_package\(krt_plx (\S+) CONFIG REQUIRED\)", self.example("cmake"))
        self.assertEqual(self.found_when_asked_for(arguments[1]), [self.version_text])

    def test_manual_asks_pkg_config_as_one_can(self):
        command = shlex.split(self.example("sh"))
        self.assertEqual(command[0], "pkg-config")
        environment = package_environment(self.tree)
        self.assertEqual(output_of(command, env=environment), "")
        too_new = [word.replace("=", "=99.") for word in command]
        self.assertNotEqual(call(too_new, env=environment).returncode, 0)

    def test_pkg_config_file(self):
        text = output_of([tool("pkg-config"), "--modversion", "krt_plx"],
                         env=package_environment(self.tree))
        self.assertEqual(text.strip(), self.version_text)

    def test_changelog(self):
        """The newest entry is for this version."""
        text = (self.tree / "share/doc/krt_plx/CHANGELOG.md").read_text(encoding="utf-8")
        newest = re.search(r"^## \[([^\]]+)\]", text, re.MULTILINE)[1]
        self.assertIn(newest, (self.version_text, "Unreleased"))

    def test_pages_name_the_shared_object(self):
        for page in ("README.md", "docs/installing.md"):
            text = (self.surroundings.sources / page).read_text(encoding="utf-8")
            names = set(re.findall(r"libkrt_plx\.so\.[0-9.]*[0-9]", text))
            self.assertEqual(names, {f"libkrt_plx.so.{self.compatible_version}"}, page)

    def test_page_names_the_debian_package(self):
        text = (self.surroundings.sources / "docs/installing.md").read_text(encoding="utf-8")
        names = set(re.findall(r"libkrt-plx[0-9][0-9.]*", text))
        self.assertEqual(names, {f"libkrt-plx{self.compatible_version}"})


class SharedObjectVersion(PackageTest):
    def test_soname(self):
        library = self.tree / f"lib/libkrt_plx.so.{self.version_text}"
        entries = output_of([tool("readelf"), "--dynamic", library])
        self.assertEqual(re.findall(r"\(SONAME\).*\[(.*)\]", entries),
                         [f"libkrt_plx.so.{self.compatible_version}"])

    def test_links_lead_to_it(self):
        for name in ("libkrt_plx.so", f"libkrt_plx.so.{self.compatible_version}"):
            resolved = (self.tree / "lib" / name).resolve()
            self.assertEqual(resolved.name, f"libkrt_plx.so.{self.version_text}")


class ResourceVersion(PackageTest):
    """What the properties of a file show in Windows."""

    KINDS = {"krt_plx.dll": 2, "plxclip.exe": 1}

    def versions(self):
        """For each binary its name and its version resource."""
        for name in self.KINDS:
            yield name, WindowsBinary(self.tree / "bin" / name).version()

    def test_numbers(self):
        for name, version in self.versions():
            self.assertEqual(version.file_version(), (*self.version, 0), name)
            self.assertEqual(version.product_version(), (*self.version, 0), name)
            self.assertEqual(version.kind(), self.KINDS[name])

    def test_texts(self):
        for name, version in self.versions():
            for key in ("FileVersion", "ProductVersion"):
                self.assertEqual(version.text(key), self.version_text, name)
            self.assertEqual(version.text("OriginalFilename"), name)
            self.assertEqual(version.text("InternalName"), name.partition(".")[0])
            self.assertEqual(version.text("ProductName"), "krt_plx")

    def test_descriptions(self):
        """As CMake and the program's own help have them."""
        descriptions = {name: version.text("FileDescription") for name, version in self.versions()}
        project = (self.surroundings.sources / "CMakeLists.txt").read_text(encoding="utf-8")
        self.assertIn(f'DESCRIPTION "{descriptions["krt_plx.dll"]}"', project)
        help_text = output_of([*self.surroundings.launcher, self.tree / "bin/plxclip.exe", "--help"])
        self.assertEqual(help_text.split("\n", 1)[0].strip(), descriptions["plxclip.exe"] + ".")
