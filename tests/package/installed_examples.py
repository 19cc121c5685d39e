"""The README of the installed package, and the examples that it tells to build."""

import os
import re
import shlex

from surroundings import PackageTest, output_of

from readme import blocks, tables  # noqa: E402, surroundings shows where it is

RECIPES = ["find: 2 slow clips", "change: done", "vibrato: done", "phrase: done", "transpose: done",
           "rename: done", "Saving: done"]


class PackageReadme(PackageTest):
    """What the README names is there, and nothing leads out of the package."""

    @property
    def page(self):
        return self.tree / "share/doc/krt_plx/README.md"

    def test_what_it_lists_is_there(self):
        (rows,) = tables(self.page)
        column = "on Windows" if self.surroundings.is_windows else "on Linux"
        paths = [re.match("`([^`]+)`", row[column])[1] for row in rows]
        self.assertGreaterEqual(len(paths), 9)
        self.assertEqual([path for path in paths if not (self.tree / path).exists()], [])

    def test_what_stands_beside_it_is_there(self):
        text = self.page.read_text(encoding="utf-8")
        for name in ("CHANGELOG.md", "LICENSE", "copyright"):
            self.assertIn(f"`{name}`", text)
            self.assertTrue((self.page.parent / name).is_file(), name)
        self.assertIn("`html/index.html`", text)

    def test_headers_that_it_names_are_there(self):
        names = re.findall(r"`(plx\w*\.h(?:pp)?)`", self.page.read_text(encoding="utf-8"))
        self.assertGreaterEqual(len(names), 4)
        for name in names:
            self.assertTrue((self.tree / "include/korvel" / name).is_file(), name)

    def test_no_link_of_the_documents_leads_nowhere(self):
        for page in self.tree.rglob("*.md"):
            for place in re.findall(r"\]\((?!https?:)([^)#]+)", page.read_text(encoding="utf-8")):
                self.assertTrue((page.parent / place).exists(), f"{page.name}: {place}")


class PackageExamples(PackageTest):
    """The commands of the README build the examples in their installed place, and run the recipes."""

    def commands(self):
        text = next(text for text in blocks(self.tree / "share/doc/krt_plx/README.md", "sh")
                    if "examples" in text)
        configure, build, run = (shlex.split(line.replace("$PWD", str(self.tree)))
                                 for line in text.splitlines())
        surroundings = self.surroundings
        configure = [surroundings.cmake, *configure[1:], f"-DCMAKE_C_COMPILER={surroundings.c_compiler}",
                     f"-DCMAKE_CXX_COMPILER={surroundings.cpp_compiler}"]
        if surroundings.is_windows:
            configure.append("-DCMAKE_SYSTEM_NAME=Windows")
        return configure, [surroundings.cmake, *build[1:]], run

    def test_recipes(self):
        configure, build, run = self.commands()
        surroundings = dict(os.environ, CMAKE_GENERATOR="Ninja")
        output_of(configure, cwd=self.tree, env=surroundings)
        output_of(build, cwd=self.tree)
        command = [*self.surroundings.launcher, self.surroundings.file_name(str(self.tree / run[0])), *run[1:]]
        self.assertEqual(output_of(command, cwd=self.tree).splitlines(), RECIPES)
        self.assertEqual(self.saved_clips(), 4)
        self.transpose_loaded(*run[1:])
        programs = {path.stem for path in (self.tree / "my-examples/bin").iterdir()
                    if os.access(path, os.X_OK) and path.is_file()}
        self.assertLessEqual({"browse", "compose", "sing_along", "load", "recipes",
                              "transpose", "transpose_loaded", "sing_higher", "sing_higher_loaded"}, programs)

    def transpose_loaded(self, *folders):
        """A host in C++ loads the library of the package, of which it has linked only the static ones."""
        name = self.surroundings.file_name(str(self.tree / "my-examples/bin/sing_higher_loaded"))
        library = "bin\\krt_plx.dll" if self.surroundings.is_windows else "lib/libkrt_plx.so"
        output_of([*self.surroundings.launcher, name, library, *folders, "freude", "Loaded"], cwd=self.tree)
        self.assertEqual(self.saved_clips(), 5)

    def saved_clips(self):
        return len(list((self.tree / "my-clips").rglob("*.kxclip")))
