"""The installed package in a folder of its own, and the tools that build hosts."""

import dataclasses
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))


@dataclasses.dataclass
class Surroundings:
    sources: pathlib.Path
    build: pathlib.Path
    cmake: str
    c_compiler: str
    cpp_compiler: str
    launcher: list

    @property
    def is_windows(self):
        return bool(self.launcher)

    def file_name(self, program):
        return f"{program}.exe" if self.is_windows else program


def call(command, timeout=110, **options):
    command = [str(word) for word in command]
    return subprocess.run(command, check=False, capture_output=True, timeout=timeout, **options)


def checked(result):
    """The output of a command; an error when it failed or printed errors."""
    output, errors = (text.decode("utf-8", "replace") for text in (result.stdout, result.stderr))
    if result.returncode != 0 or errors:
        raise AssertionError(f"{result.args}: {result.returncode}\n{output}\n{errors}")
    return output


def output_of(command, **options):
    return checked(call(command, **options))


def tool(*names):
    for name in names:
        if path := shutil.which(name):
            return path
    raise AssertionError(f"{names[0]} is not there; scripts/install-packages installs it")


def versions_in(header):
    """The numbers that the header defines, as (major, minor, patch)."""
    text = header.read_text(encoding="utf-8")
    rows = re.findall(r"^#define KRT_PLX_VERSION_(MAJOR|MINOR|PATCH) (\d+)$", text, re.MULTILINE)
    numbers = dict(rows)
    return tuple(int(numbers[part]) for part in ("MAJOR", "MINOR", "PATCH"))


def package_environment(tree):
    """The environment in which pkg-config finds only the package below tree."""
    return dict(os.environ, PKG_CONFIG_LIBDIR=str(tree / "lib/pkgconfig"))


class PackageTest(unittest.TestCase):
    """A test with the installed package in self.tree, which was moved after installing."""

    surroundings = None
    components = ("runtime", "development", "manual", "tools")

    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        cls.installed = cls.folder / "as installed"
        for component in cls.components:
            output_of([cls.surroundings.cmake, "--install", cls.surroundings.build,
                       "--component", component, "--prefix", cls.installed])
        cls.tree = cls.folder / "moved tree"
        cls.installed.rename(cls.tree)
        shutil.copytree(cls.surroundings.sources / "examples/library", cls.folder / "library")
        cls.version = versions_in(cls.surroundings.sources / "include/korvel/plx/version.h")

    @property
    def version_text(self):
        return ".".join(map(str, self.version))

    @property
    def compatible_version(self):
        """The part of the version that changes when older hosts may no longer run."""
        return ".".join(map(str, self.version[: 2 if self.version[0] == 0 else 1]))

    def library_folder(self):
        return self.tree / ("bin" if self.surroundings.is_windows else "lib")

    def library_in_reach(self):
        """The environment in which any program finds the installed library."""
        if self.surroundings.is_windows:
            return dict(os.environ, WINEPATH=f"Z:{self.library_folder()}")
        return dict(os.environ, LD_LIBRARY_PATH=str(self.library_folder()))

    def start_host(self, program, environment):
        """Runs a host beside the folder "library"."""
        return call([*self.surroundings.launcher, program], cwd=self.folder, env=environment)

    def run_host(self, program, environment=None):
        """The lines that a host prints."""
        return checked(self.start_host(program, environment)).splitlines()
