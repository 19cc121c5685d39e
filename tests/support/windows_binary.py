"""What a program or a DLL for Windows imports, and its resources, for both sizes of addresses."""

import struct

EXPORTS, IMPORTS, RESOURCES = 0, 1, 2
FORM_WITH_LONG_ADDRESSES = 0x20B
VERSION_RESOURCE, MANIFEST_RESOURCE = 16, 24
IS_FOLDER = 0x80000000
# The only number in the fixed part of a version resource that is the same in all.
FIXED_FILE_INFO = 0xFEEF04BD


class WindowsBinary:
    def __init__(self, path):
        self.content = path.read_bytes()
        header = self.number("<I", 0x3C) + 4
        if self.content[header - 4 : header] != b"PE\0\0":
            raise ValueError(f"{path} is not a binary for Windows")
        sections, size = self.number("<H", header + 2), self.number("<H", header + 16)
        optional = header + 20
        self.has_long_addresses = self.number("<H", optional) == FORM_WITH_LONG_ADDRESSES
        self.directories = optional + (112 if self.has_long_addresses else 96)
        self.sections = [struct.unpack_from("<III", self.content, optional + size + 40 * i + 12)
                         for i in range(sections)]

    def number(self, form, place):
        return struct.unpack_from(form, self.content, place)[0]

    def place_of(self, address):
        """Where in the file is what will be at this address."""
        for begin, size, place in self.sections:
            if begin <= address < begin + size:
                return place + address - begin
        raise ValueError(f"nothing is at {address:#x}")

    def directory(self, which):
        address = self.number("<I", self.directories + 8 * which)
        return self.place_of(address) if address else None

    def text_at(self, place):
        return self.content[place : self.content.index(b"\0", place)].decode("ascii")

    def _functions(self, place):
        form, by_number = ("<Q", 1 << 63) if self.has_long_addresses else ("<I", 1 << 31)
        while entry := self.number(form, place):
            yield f"#{entry & 0xFFFF}" if entry & by_number else self.text_at(self.place_of(entry) + 2)
            place += struct.calcsize(form)

    def imports(self):
        """Pairs of a library, in small letters, and a function."""
        found = []
        place = self.directory(IMPORTS)
        while any(entry := struct.unpack_from("<5I", self.content, place)):
            library = self.text_at(self.place_of(entry[3])).lower()
            table = self.place_of(entry[0] or entry[4])
            found += [(library, function) for function in self._functions(table)]
            place += 20
        return found

    def exports(self):
        table = self.directory(EXPORTS)
        names = self.place_of(self.number("<I", table + 32))
        return [self.text_at(self.place_of(self.number("<I", names + 4 * i)))
                for i in range(self.number("<I", table + 24))]

    def resources(self, kind):
        """The content of all resources of a kind, in all languages."""
        root = self.directory(RESOURCES)
        return list(self._leaves(root, 0, kind)) if root else []

    def _leaves(self, root, folder, wanted=None):
        place = root + folder
        entries = sum(struct.unpack_from("<HH", self.content, place + 12))
        for i in range(entries):
            name, value = struct.unpack_from("<II", self.content, place + 16 + 8 * i)
            if wanted is not None and name != wanted:
                continue
            if value & IS_FOLDER:
                yield from self._leaves(root, value & ~IS_FOLDER)
            else:
                address, size = struct.unpack_from("<II", self.content, root + value)
                yield self.content[self.place_of(address) :][:size]

    def manifests(self):
        return [text.decode("utf-8") for text in self.resources(MANIFEST_RESOURCE)]

    def version(self):
        """The only version resource."""
        (content,) = self.resources(VERSION_RESOURCE)
        return VersionResource(content)


class VersionResource:
    def __init__(self, content):
        self.content = content
        place = content.index(struct.pack("<I", FIXED_FILE_INFO))
        self.fixed = struct.unpack_from("<13I", content, place)

    def _four(self, high, low):
        return high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF

    def file_version(self):
        return self._four(*self.fixed[2:4])

    def product_version(self):
        return self._four(*self.fixed[4:6])

    def kind(self):
        """1 for a program, 2 for a DLL."""
        return self.fixed[9]

    def text(self, key):
        name = f"{key}\0".encode("utf-16-le")
        place = self.content.index(name)
        units = struct.unpack_from("<H", self.content, place - 4)[0]
        begin = (place + len(name) + 3) // 4 * 4  # each value begins at a multiple of four
        return self.content[begin : begin + 2 * units].decode("utf-16-le").rstrip("\0")
