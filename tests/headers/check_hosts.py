"""Builds and runs hosts in every standard of C and C++ that the compilers of this computer know.

check_hosts.py PROJECT BUILD

BUILD is a folder where the library is built. Each standard of each compiler is a test: the public
headers compile, each alone and without a warning, and the first host of the manual is built, linked
and prints what its page says. Prints how many passed, failed and were skipped because the compiler
does not know the standard; and to standard error a line for each.
"""

import collections
import os
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path += [str(pathlib.Path(__file__).parent.parent / "snippets")]
import check_pages  # noqa: E402

WARNINGS = ("-Wall", "-Wextra", "-Wpedantic", "-Werror")
COMPILER = re.compile(r"(?P<family>gcc|clang|g\+\+|clang\+\+)(-\d+)?")
LANGUAGES = {"gcc": "c", "clang": "c", "g++": "cpp", "clang++": "cpp"}
# Some compilers know a standard by an earlier name.
STANDARDS = {"c": (("c99",), ("c11",), ("c17",), ("c23", "c2x")),
             "cpp": (("c++17",), ("c++20",), ("c++23", "c++2b"), ("c++26", "c++2c"))}
HEADERS = {"c": "*.h", "cpp": "*.h*"}
HOSTS = {"c": "docs/first-host-c.md", "cpp": "docs/first-host-cpp.md"}


class Failed(Exception):
    """A compiler or a host did not do what it should."""


def call(folder, *command):
    result = subprocess.run([str(word) for word in command], capture_output=True, check=False,
                            encoding="utf-8", cwd=folder, timeout=300)
    if result.returncode:
        raise Failed(f"{command[0]} ended with {result.returncode}: {result.stderr.strip()[:1000]}")
    return result.stdout


def compilers():
    """Each once, by the name that says its version if it has one."""
    found = {}
    for folder in os.get_exec_path():
        for file in sorted(pathlib.Path(folder).glob("*")):
            name = COMPILER.fullmatch(file.name)
            if name and "ccache" not in str(file):
                found[name["family"], file.resolve()] = file
    return [found[key] for key in sorted(found)]


def knows(compiler, language, name):
    words = {"c": "c", "cpp": "c++"}
    tried = subprocess.run([compiler, f"-std={name}", "-x", words[language], "-fsyntax-only", os.devnull],
                           capture_output=True, check=False)
    return tried.returncode == 0


def check_headers(compiler, standard, language, project, folder):
    for number, header in enumerate(sorted((project / "include").rglob(HEADERS[language]))):
        (folder / f"header{number}.{language}").write_text(f'#include "{header}"\n', encoding="utf-8")
    call(folder, compiler, f"-std={standard}", *WARNINGS, "-fsyntax-only", f"-I{project / 'include'}",
         f"-I{folder / 'build/release/generated/include'}", *sorted(folder.glob(f"header*.{language}")))


def check_host(compiler, standard, language, project, folder):
    (program, *_) = check_pages.programs_of(project / HOSTS[language])
    (folder / program.source).write_text(program.code, encoding="utf-8")
    arguments = [word for word in program.arguments if not word.startswith("-std=")]
    call(folder, compiler, f"-std={standard}", *WARNINGS, *arguments)
    printed = call(folder, "./host")
    if sorted(printed.splitlines()) != sorted(program.output.splitlines()):
        raise Failed(f"the host printed: {printed}")


def check(compiler, standard, language, project, build):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        for part in ("include", "examples"):
            (folder / part).symlink_to(project / part)
        (folder / "build").mkdir()
        (folder / "build/release").symlink_to(build)
        check_headers(compiler, standard, language, project, folder)
        check_host(compiler, standard, language, project, folder)


def outcomes(project, build):
    for compiler in compilers():
        language = LANGUAGES[COMPILER.fullmatch(compiler.name)["family"]]
        for names in STANDARDS[language]:
            standard = next((name for name in names if knows(compiler, language, name)), None)
            title = f"{compiler.name} {names[0]}"
            if not standard:
                yield title, "skipped", "this compiler does not know it"
                continue
            try:
                check(compiler, standard, language, project, build)
                yield title, "passed", ""
            except Failed as failure:
                yield title, "failed", str(failure)


def main():
    counts = collections.Counter()
    for title, outcome, reason in outcomes(*map(pathlib.Path, sys.argv[1:])):
        counts[outcome] += 1
        print(f"    {outcome}: {title}{': ' if reason else ''}{reason}", file=sys.stderr)
    print(counts["passed"], counts["failed"], counts["skipped"])


if __name__ == "__main__":
    main()
