"""The steps of the manual from the installed package to three hosts."""

import re
import subprocess

from surroundings import PackageTest

from readme import blocks, figures  # noqa: E402, surroundings shows where it is

# The steps that were done before this test.
BUILDING = r"scripts/install-packages\n|cmake --preset .*\n|cmake --build build/install\S*\n"


class ReadmeHosts(PackageTest):
    """A folder like the top folder of the sources, where the library is built but not installed."""

    def setUp(self):
        self.readme = self.surroundings.sources / "README.md"
        self.page = self.surroundings.sources / "docs/installing.md"
        self.top = self.folder / "top"
        (self.top / "my-hosts").mkdir(parents=True)
        (self.top / "build").mkdir()
        for name in ("examples", "cmake"):
            (self.top / name).symlink_to(self.surroundings.sources / name)
        if self.surroundings.is_windows:
            (self.top / "build/wine").symlink_to(self.surroundings.launcher[1])

    def write_hosts(self):
        host = blocks(self.readme, "c")[0]
        (loading,) = blocks(self.page, "c")
        (cpp_host,) = blocks(self.page, "cpp")
        project = next(text for text in blocks(self.page, "cmake") if "project(" in text)
        if self.surroundings.is_windows:
            host, loading = (code.replace('u"', 'L"') for code in (host, loading))
        files = {"host.c": host, "loading.c": loading, "host.cpp": cpp_host,
                 "CMakeLists.txt": project}
        for name, content in files.items():
            (self.top / "my-hosts" / name).write_text(content, encoding="utf-8")

    def commands(self):
        """The commands for this system, except those that build the library."""
        system = "-windows" if self.surroundings.is_windows else ""
        text = "".join(text for text in blocks(self.page, "sh")
                       if "my-hosts" in text and "pkg-config" not in text
                       and ("windows" in text) == bool(system))
        left = re.sub(BUILDING, "", text)
        self.assertRegex(left, rf"\Acmake --install build/install{system} --prefix ")
        (self.top / f"build/install{system}").symlink_to(self.surroundings.build)
        return left + self.by_pkg_config()

    def by_pkg_config(self):
        """Builds the same C host with pkg-config, as the manual says for Linux."""
        if self.surroundings.is_windows:
            return ""
        return next(text for text in blocks(self.page, "sh") if "pkg-config" in text)

    def run_commands(self):
        result = subprocess.run(["sh", "-ec", self.commands()], check=False, capture_output=True,
                                cwd=self.top, timeout=280, encoding="utf-8")
        self.assertEqual((result.returncode, result.stderr), (0, ""), result.stdout)
        return result.stdout.splitlines()

    def test_three_hosts_list_the_example_library(self):
        self.write_hosts()
        lines = self.run_commands()
        clips = figures(self.surroundings.sources)[0]
        from_c = [line for line in lines if re.fullmatch(r"clip \d+: \d+ notes", line)]
        from_cpp = [line for line in lines if re.fullmatch(r"\d+ notes: .+", line)]
        builds = 1 if self.surroundings.is_windows else 2
        self.assertEqual((len(from_c), len(from_cpp)), (clips * builds, clips))
        self.assertTrue(any(line.endswith(": さくらさくら") for line in from_cpp), from_cpp)
        self.assertIn(f"{clips} clips", lines)
