"""Checks that the build finds its sources by their places in the project, wherever the project is.

check_sources.py CMAKE PROJECT SCRATCH

The project is copied into folders that have the same names as its own folders, as users may do, and
configured there. An expression that matches full paths would lose sources there, or find too many.
"""

import json
import pathlib
import shutil
import subprocess
import sys

LANGUAGES = (".c", ".cpp")
# Compiled by tests of their own, or only for a fuzzer.
OTHERS = ("src/fs/win32/", "src/process/win32/", "tests/archive/", "tests/package/", "tests/face/codegen_",
          "fuzz/entry.cpp", "fuzz/json_")


def own_folders(project):
    """The names of all folders that contain sources."""
    names = {part for folder in project.iterdir() if (folder / "CMakeLists.txt").is_file()
             for file in folder.rglob("*") if file.suffix in LANGUAGES
             for part in file.relative_to(project).parts[:-1]}
    return sorted(names)


def copy(project, place):
    place.mkdir(parents=True)
    for entry in project.iterdir():
        if entry.name == "build" or entry.name.startswith("."):
            continue
        if entry.is_dir():
            shutil.copytree(entry, place / entry.name)
        else:
            shutil.copy2(entry, place)


def configure(cmake, place, *settings):
    """Returns what went wrong, or nothing, and the sources of all targets, by their place."""
    build = place / "build"
    shutil.rmtree(build, ignore_errors=True)
    api = build / ".cmake" / "api" / "v1"
    (api / "query" / "codemodel-v2").mkdir(parents=True)
    done = subprocess.run([cmake, "-S", place, "-B", build, "-G", "Ninja", *settings],
                          capture_output=True, text=True, check=False)
    targets = [json.loads(file.read_text()) for file in (api / "reply").glob("target-*.json")]
    return (done.stderr if done.returncode != 0 else None,
            {source["path"] for target in targets for source in target.get("sources", [])})


def check(cmake, place):
    sources = {str(file.relative_to(place)) for file in place.rglob("*") if file.suffix in LANGUAGES}
    error, built = configure(cmake, place, "-DKRT_PLX_BENCHMARKS=ON")
    if error:
        return error
    # Files that Linux replaces are for other systems.
    error, elsewhere = configure(cmake, place, "-DKRT_PLX_FS=posix", "-DKRT_PLX_TESTS=OFF")
    if error:
        return error
    built |= elsewhere
    lost = sorted(source for source in sources - built if not source.startswith(OTHERS))
    if lost:
        return "in no target: " + ", ".join(lost)
    if not built & sources:
        return "no source found"

    # An expression that only matches the folders above the project.
    error, _ = configure(cmake, place, f"-DKRT_PLX_TEST_SOURCES={place.name}")
    if not error or "No contract test matches" not in error:
        return error or "tests are chosen by the folders above the project"
    return None


def main():
    cmake, project, scratch = sys.argv[1], *map(pathlib.Path, sys.argv[2:])
    shutil.rmtree(scratch, ignore_errors=True)
    place = scratch.joinpath(*own_folders(project), "whereabouts")
    copy(project, place)
    error = check(cmake, place)
    shutil.rmtree(scratch)
    if error:
        sys.exit(error)


if __name__ == "__main__":
    main()
