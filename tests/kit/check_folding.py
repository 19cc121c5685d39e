"""The table by which the kit compares texts says what Python's own tables say, of each character that
both know: check_folding.py FOLDING_TABLE_C"""

import pathlib
import re
import sys
import unicodedata

HANGUL = range(0xAC00, 0xD7A4)
FIRST_ACCENT = 10


def numbers(text):
    return [int(number, 0) for number in re.findall(r"0x[0-9A-F]+|\d+", text)]


def read(source):
    array = {name: body for name, body in re.findall(r"(\w+)\[\] = \{(.*?)\};", source, flags=re.S)}
    pool = numbers(array["kitFoldingPoints"])
    rows = [numbers(row) for row in re.findall(r"\{([^{}]*)\}", array["kitFoldings"])]
    table = {point: pool[place:place + length] for point, place, length in rows}
    marks = {}
    for row in re.findall(r"\{([^{}]*)\}", array["kitMarks"]):
        first, last = numbers(row)
        marks.update(dict.fromkeys(range(first, last + 1), "true" in row))
    return table, marks


def expected(character):
    decompose = lambda text: unicodedata.normalize("NFD", text)
    folded = decompose(decompose(character).casefold())
    return [ord(each) for each in decompose(folded.casefold())]


def main():
    table, marks = read(pathlib.Path(sys.argv[1]).read_text(encoding="ascii"))
    faults, checked = [], 0
    for point in range(sys.maxunicode + 1):
        character = chr(point)
        if 0xD800 <= point < 0xE000 or unicodedata.category(character) == "Cn":
            continue
        checked += 1
        if point not in HANGUL and table.get(point, [point]) != expected(character):
            faults.append(f"U+{point:04X}: {table.get(point, [point])}, not {expected(character)}")
        kind = unicodedata.combining(character)
        if marks.get(point) != (None if kind == 0 else kind >= FIRST_ACCENT):
            faults.append(f"U+{point:04X}: class {kind}, but {marks.get(point)}")
    if checked < 200000:
        faults.append(f"only {checked} characters were compared")
    print("\n".join(faults) or f"{checked} characters are right, {len(table)} of them by the table")
    return bool(faults)


if __name__ == "__main__":
    sys.exit(main())
