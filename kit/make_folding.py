"""Makes the table by which texts are compared: folding.c, from the Unicode Character Database.

    make_folding.py <folder of UnicodeData.txt and CaseFolding.txt> <folding.c>

Each character that is not compared as it is gets the characters as which it is: decomposed, folded and
decomposed again. Hangul syllables are decomposed by rule, and so they are not in the table.
"""

import pathlib
import sys

# Marks of these combining classes make another letter: overlays, nuktas, kana voicing, viramas.
# Those above them are accents, vowel points and tones.
FIRST_ACCENT = 10


def read_characters(path):
    decompositions, classes = {}, {}
    for line in path.read_text(encoding="utf-8").splitlines():
        fields = line.split(";")
        point = int(fields[0], 16)
        if fields[3] != "0":
            classes[point] = int(fields[3])
        if fields[5] and not fields[5].startswith("<"):
            decompositions[point] = [int(part, 16) for part in fields[5].split()]
    return decompositions, classes


def read_foldings(path):
    foldings = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        fields = [field.strip() for field in line.partition("#")[0].split(";")]
        if len(fields) >= 3 and fields[1] in "CF":
            foldings[int(fields[0], 16)] = [int(part, 16) for part in fields[2].split()]
    return foldings


class Folder:
    def __init__(self, folder):
        self.decompositions, self.classes = read_characters(folder / "UnicodeData.txt")
        self.foldings = read_foldings(folder / "CaseFolding.txt")

    def decompose(self, point):
        if point not in self.decompositions:
            return [point]
        return [last for part in self.decompositions[point] for last in self.decompose(part)]

    def in_order(self, points):
        """Marks that follow each other, by their class."""
        ordered, marks = [], []
        for point in points + [0]:
            if self.classes.get(point, 0):
                marks.append(point)
                continue
            ordered += sorted(marks, key=self.classes.get) + [point]
            marks = []
        return ordered[:-1]

    def fold_once(self, points):
        folded = [last for point in points for part in self.decompose(point)
                  for last in self.foldings.get(part, [part])]
        return self.in_order([last for point in folded for last in self.decompose(point)])

    def fold(self, point):
        points = [point]
        while (folded := self.fold_once(points)) != points:
            points = folded
        return points

    def table(self):
        points = sorted(self.decompositions.keys() | self.foldings.keys())
        folded = {point: self.fold(point) for point in points}
        return {point: to for point, to in folded.items() if to != [point]}

    def marks(self):
        """First and last of those that stand side by side, and whether they are accents."""
        ranges = []
        for point, mark in sorted(self.classes.items()):
            accent = mark >= FIRST_ACCENT
            if ranges and ranges[-1][1] == point - 1 and ranges[-1][2] == accent:
                ranges[-1][1] = point
            else:
                ranges.append([point, point, accent])
        return ranges


def write(table, marks, path):
    pool, rows = [], []
    for point, to in table.items():
        rows.append(f"{{0x{point:X}, {len(pool)}, {len(to)}}}")
        pool += to
    lines = [
        "/* Made from the Unicode Character Database by make_folding.py. */",
        '#include "folding_table.h"',
        f"const KitFolding kitFoldings[] = {{\n{','.join(rows)}}};",
        f"const size_t kitFoldingCount = {len(rows)};",
        f"const uint32_t kitFoldingPoints[] = {{{','.join(f'0x{point:X}' for point in pool)}}};",
        "const KitMarks kitMarks[] = {",
        ",".join(f"{{0x{first:X}, 0x{last:X}, {'true' if accent else 'false'}}}"
                 for first, last, accent in marks) + "};",
        f"const size_t kitMarksCount = {len(marks)};",
    ]
    path.write_text("\n".join(lines) + "\n", encoding="ascii")


if __name__ == "__main__":
    source = Folder(pathlib.Path(sys.argv[1]))
    write(source.table(), source.marks(), pathlib.Path(sys.argv[2]))
