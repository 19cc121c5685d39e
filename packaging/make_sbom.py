"""Writes the bill of materials of a package: SPDX 2.3, as JSON.

make_sbom.py PACKAGE BUILD

What is compiled into the binaries stands here, by how it is found; what it is called, its version and where it
comes from tell the packages that are installed, and its terms docs/copyright. SOURCE_DATE_EPOCH is the time.
"""

import dataclasses
import datetime
import hashlib
import io
import json
import os
import pathlib
import re
import subprocess
import sys
import tarfile
import tempfile
import zipfile

PROJECT = pathlib.Path(__file__).parent.parent
LICENCES = {"Expat": "MIT", "BSD-3-clause": "BSD-3-Clause", "Unicode-DFS": "Unicode-DFS-2016",
            "ZPL-2.1": "ZPL-2.1", "GPL-3+ with GCC exception": "GPL-3.0-or-later WITH GCC-exception-3.1"}
LIBRARY = r"(libkrt_plx\.so\.[\d.]+|krt_plx\.dll)$"
TOOLS = r"bin/plxclip(\.exe)?$"
KIT = r"libkrt_plx_kit\.a$"


@dataclasses.dataclass
class Part:
    """Something of others in the binaries: its stanza in docs/copyright, its file, and which binaries have it.

    What no package of Debian has, has a version instead of a file.
    """

    name: str
    stanza: str
    file: pathlib.Path | None
    binaries: str
    version: str = ""


def output_of(*command):
    return subprocess.run(list(map(str, command)), check=True, capture_output=True, text=True).stdout.strip()


def settings_of(build):
    text = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    settings = dict(re.findall(r"^(\w+):[A-Z]+=(.*)$", text, re.MULTILINE))
    return settings | {"CMAKE_CXX_COMPILER": compiler_of(build)}


def parts_of(settings, is_windows):
    header = lambda name, file: pathlib.Path(settings[f"KRT_PLX_{name}_PARENT"]) / file  # noqa: E731
    parts = [Part("RapidJSON", "rapidjson/*", header("RAPIDJSON", "rapidjson/document.h"), f"{LIBRARY}|{TOOLS}"),
             Part("fmt", "fmt/*", header("fmt", "fmt/format.h"), TOOLS),
             Part("CLI11", "CLI/*", header("CLI", "CLI/CLI.hpp"), TOOLS),
             Part("Unicode Character Database", "folding_table.c",
                  pathlib.Path(settings["KRT_PLX_UNICODE_DATA"]) / "CaseFolding.txt", KIT),
             Part("Unicode Character Database of Python", "plain_letters.cpp", None, TOOLS,
                  output_of(settings["_Python3_EXECUTABLE"], "-c",
                            "import unicodedata; print(unicodedata.unidata_version)"))]
    if is_windows:
        runtime = {"libgcc": "libgcc.a", "libstdc++": "libstdc++.a", "winpthreads": "libwinpthread.a",
                   "mingw-w64": "libmingwex.a"}
        parts += [Part(name, f"{name}/*", file_of_compiler(settings, file), f"{LIBRARY}|{TOOLS}")
                  for name, file in runtime.items()]
    return parts


def compiler_of(build):
    """Found by CMake, or named by a toolchain file."""
    (file,) = build.glob("CMakeFiles/*/CMakeCXXCompiler.cmake")
    return re.search(r'^set\(CMAKE_CXX_COMPILER "(.+)"\)$', file.read_text(encoding="utf-8"), re.MULTILINE)[1]


def file_of_compiler(settings, name):
    return pathlib.Path(output_of(settings["CMAKE_CXX_COMPILER"], f"-print-file-name={name}")).resolve()


def terms_of(stanza):
    """What docs/copyright says in the stanza of these files: the holders, and the licence."""
    text = (PROJECT / "docs/copyright").read_text(encoding="utf-8")
    pattern = rf"^Files: {re.escape(stanza)}\nCopyright: ((?:.+\n)+?)License: (.+)$"
    holders, licence = re.search(pattern, text, re.MULTILINE).groups()
    return "\n".join(map(str.strip, holders.splitlines())), LICENCES[licence]


def debian_packages_of(files):
    """Name, version and architecture of the installed package that has the file, for each file."""
    places = {file: {str(file), re.sub("^/usr", "", str(file))} for file in files}
    found = subprocess.run(["dpkg-query", "--search", *sorted(set().union(*places.values()))],
                           capture_output=True, text=True, check=False).stdout
    owners = {place: owner.split(",")[0] for owner, place in re.findall(r"^(\S.*?): (/.+)$", found, re.MULTILINE)}
    packages = {}
    for file, names in places.items():
        owner = next((owners[name] for name in names if name in owners), None)
        if owner is None:
            raise SystemExit(f"{file} is in no Debian package, so its version is not known")
        packages[file] = output_of("dpkg-query", "--show", "--showformat=${Package} ${Version} ${Architecture}",
                                   owner).split()
    return packages


def files_in(package):
    """The content of each file in a package, by its name."""
    if package.suffix == ".zip":
        with zipfile.ZipFile(package) as archive:
            return {entry.filename: archive.read(entry) for entry in archive.infolist() if not entry.is_dir()}
    content = package.read_bytes()
    if package.suffix == ".deb":
        content = subprocess.run(["dpkg-deb", "--fsys-tarfile", str(package)], check=True,
                                 capture_output=True).stdout
    with tarfile.open(fileobj=io.BytesIO(content)) as archive:
        return {entry.name.removeprefix("./"): archive.extractfile(entry).read() for entry in archive
                if entry.isfile()}


def checksums(content, *algorithms):
    return [{"algorithm": name, "checksumValue": hashlib.new(name, content).hexdigest()} for name in algorithms]


def identifier(text):
    return "SPDXRef-" + re.sub(r"[^A-Za-z0-9.-]", "-", text)


def file_entries(files):
    """A name that is not ASCII alone would share its identifier with others, so each has a number."""
    return [{"SPDXID": f"SPDXRef-File-{number}", "fileName": f"./{name}",
             "checksums": checksums(content, "SHA1", "SHA256"), "licenseConcluded": "NOASSERTION",
             "copyrightText": "NOASSERTION"}
            for number, (name, content) in enumerate(sorted(files.items()), 1)]


def verification_code(entries):
    sums = sorted(entry["checksums"][0]["checksumValue"] for entry in entries)
    return hashlib.sha1("".join(sums).encode("ascii")).hexdigest()


def own_package(package, settings, entries):
    holders, licence = terms_of("*")
    return {"SPDXID": "SPDXRef-Package", "name": "krt_plx", "versionInfo": settings["CMAKE_PROJECT_VERSION"],
            "packageFileName": package.name, "supplier": "Organization: Korvel",
            "downloadLocation": "NOASSERTION", "filesAnalyzed": True,
            "packageVerificationCode": {"packageVerificationCodeValue": verification_code(entries)},
            "checksums": checksums(package.read_bytes(), "SHA1", "SHA256"),
            "hasFiles": [entry["SPDXID"] for entry in entries], "licenseConcluded": licence,
            "licenseDeclared": licence, "licenseInfoFromFiles": ["NOASSERTION"], "copyrightText": holders}


def foreign_package(name, version, holders="NOASSERTION", licence="NOASSERTION"):
    return {"SPDXID": identifier(f"Package-{name}"), "name": name, "versionInfo": version,
            "downloadLocation": "NOASSERTION", "filesAnalyzed": False, "licenseConcluded": licence,
            "licenseDeclared": licence, "copyrightText": holders}


def debian_package(name, found, **terms):
    package, version, architecture = found
    reference = {"referenceCategory": "PACKAGE-MANAGER", "referenceType": "purl",
                 "referenceLocator": f"pkg:deb/debian/{package}@{version}?arch={architecture}"}
    return foreign_package(name, version, **terms) | {"externalRefs": [reference]}


def needed_by(content):
    """The names of the shared libraries that an ELF binary needs."""
    with tempfile.NamedTemporaryFile() as file:
        file.write(content)
        file.flush()
        return re.findall(r"\(NEEDED\).*\[(.+)\]", output_of("readelf", "--dynamic", "--wide", file.name))


class Bill:
    """The foreign packages of one package, and which of its files has or needs which."""

    def __init__(self, files, entries, settings):
        self.files, self.settings = files, settings
        self.identifiers = {entry["fileName"][2:]: entry["SPDXID"] for entry in entries}
        self.foreign = {}
        self.relationships = []

    def add(self, name, origin, relationship, package, **terms):
        """A file of the package has or needs something: of a file that is installed, or of a version."""
        self.foreign[package] = (origin, terms)
        self.relationships.append({"spdxElementId": self.identifiers[name], "relationshipType": relationship,
                                   "relatedSpdxElement": identifier(f"Package-{package}")})

    def packages(self):
        files = {origin for origin, _ in self.foreign.values() if isinstance(origin, pathlib.Path)}
        found = debian_packages_of(files) if files else {}
        return [debian_package(name, found[origin], **terms) if origin in files
                else foreign_package(name, origin, **terms) for name, (origin, terms) in self.foreign.items()]

    def add_compiled(self):
        for part in parts_of(self.settings, any(name.endswith(".dll") for name in self.files)):
            holders, licence = terms_of(part.stanza)
            for name in sorted(filter(re.compile(f"(^|/)({part.binaries})").search, self.files)):
                self.add(name, part.file or part.version, "STATIC_LINK", part.name, holders=holders, licence=licence)

    def add_loaded(self):
        for name, content in sorted(self.files.items()):
            for needed in needed_by(content) if content.startswith(b"\x7fELF") else ():
                if not needed.startswith("libkrt_plx"):
                    self.add(name, file_of_compiler(self.settings, needed), "DYNAMIC_LINK", needed)

    def add_suggested(self):
        """What plxclip loads if it is there."""
        if (name := next(filter(re.compile("(^|/)bin/plxclip$").search, self.files), None)) is not None:
            self.add(name, file_of_compiler(self.settings, "librsvg-2.so.2"), "OPTIONAL_DEPENDENCY_OF", "librsvg")
            relation = self.relationships[-1]
            relation["spdxElementId"], relation["relatedSpdxElement"] = (
                relation["relatedSpdxElement"], relation["spdxElementId"])


def bill_of(package, build):
    settings = settings_of(build)
    files = files_in(package)
    entries = file_entries(files)
    bill = Bill(files, entries, settings)
    bill.add_compiled()
    bill.add_loaded()
    bill.add_suggested()
    digest = hashlib.sha256(package.read_bytes()).hexdigest()
    time = datetime.datetime.fromtimestamp(int(os.environ["SOURCE_DATE_EPOCH"]), datetime.timezone.utc)
    return {"spdxVersion": "SPDX-2.3", "dataLicense": "CC0-1.0", "SPDXID": "SPDXRef-DOCUMENT",
            "name": package.name, "documentNamespace": f"https://krt-plx.invalid/spdx/{package.name}-{digest}",
            "creationInfo": {"created": time.strftime("%Y-%m-%dT%H:%M:%SZ"),
                             "creators": ["Organization: Korvel", "Tool: krt_plx-make_sbom"]},
            "packages": [own_package(package, settings, entries), *bill.packages()],
            "files": entries,
            "relationships": [{"spdxElementId": "SPDXRef-DOCUMENT", "relationshipType": "DESCRIBES",
                               "relatedSpdxElement": "SPDXRef-Package"}, *bill.relationships]}


def main():
    package, build = map(pathlib.Path, sys.argv[1:])
    json.dump(bill_of(package, build), sys.stdout, indent=1, ensure_ascii=False)
    print()


main()
