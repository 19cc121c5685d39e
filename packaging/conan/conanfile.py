"""The recipe for Conan 2, which builds the sources that it lies in:

    conan create packaging/conan --build=missing
"""

import os
import re

from conan import ConanFile
from conan.errors import ConanInvalidConfiguration
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load, rmdir

SOURCES = os.path.join("..", "..")


class KrtPlxConan(ConanFile):
    name = "krt_plx"
    license = "MIT"
    description = "Clip library for singing-voice synthesis editors"
    package_type = "shared-library"
    settings = "os", "arch", "compiler", "build_type"

    def set_version(self):
        header = load(self, os.path.join(self.recipe_folder, SOURCES, "include", "korvel", "plx", "version.h"))
        numbers = dict(re.findall(r"^#define KRT_PLX_VERSION_(MAJOR|MINOR|PATCH) (\d+)$", header, re.MULTILINE))
        self.version = ".".join(numbers[part] for part in ("MAJOR", "MINOR", "PATCH"))

    def export_sources(self):
        for folder in ("bindings", "cmake", "docs", "examples", "include", "kit", "loaded", "src"):
            copy(self, f"{folder}/*", os.path.join(self.recipe_folder, SOURCES), self.export_sources_folder)
        for file in ("CMakeLists.txt", "CHANGELOG.md", "LICENSE"):
            copy(self, file, os.path.join(self.recipe_folder, SOURCES), self.export_sources_folder)

    def validate(self):
        check_min_cppstd(self, 17)
        if self.settings.os not in ("Linux", "Windows") or self.settings.compiler == "msvc":
            raise ConanInvalidConfiguration("krt_plx is built for Linux, and for Windows with MinGW")

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        self.requires("rapidjson/[>=1.1.0]", visible=False)

    def generate(self):
        # What hosts link to or load. The kit, its table and the tools are made with Python and files of the system.
        toolchain = CMakeToolchain(self)
        for option in ("TESTS", "EXAMPLES", "TOOLS", "KIT", "INTERFACE"):
            toolchain.cache_variables[f"KRT_PLX_{option}"] = False
        toolchain.cache_variables["KRT_PLX_INSTALL"] = True
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()
        copy(self, "copyright", os.path.join(self.source_folder, "docs"), os.path.join(self.package_folder, "licenses"))
        rmdir(self, os.path.join(self.package_folder, "share", "doc"))

    def package_info(self):
        # The package of CMake and the files of pkg-config are those that are installed.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs = [os.path.join("lib", "cmake", "krt_plx")]
        self.cpp_info.libs = ["krt_plx"]
