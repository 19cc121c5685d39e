"""Makes the table that plainText() reads: the letters that are not plain, and what they become.

plain_letters.py OUTPUT
"""

import pathlib
import sys
import unicodedata

# Syllables of Hangul are taken apart by a rule.
HANGUL = range(0xAC00, 0xD7A4)
SURROGATES = range(0xD800, 0xE000)


def plain(letter):
    apart = unicodedata.normalize("NFKD", letter)
    return "".join(each for each in apart if not unicodedata.category(each).startswith("M")).lower()


def changed_letters():
    for code in range(0x80, 0x110000):
        if code not in HANGUL and code not in SURROGATES and plain(chr(code)) != chr(code):
            yield code, plain(chr(code)).encode()


def main(output):
    pool = b""
    rows = []
    for code, text in changed_letters():
        rows.append(f"    {{{code:#x}, {len(pool)}, {len(text)}}},")
        pool += text
    numbers = [", ".join(str(byte) for byte in pool[i : i + 24]) + "," for i in range(0, len(pool), 24)]
    source = [
        '#include "plain.h"',
        "namespace plxclip {",
        "static const unsigned char pool[] = {", *numbers, "};",
        "static const PlainLetter rows[] = {", *rows, "};",
        "const std::span<const unsigned char> plainPool = pool;",
        "const std::span<const PlainLetter> plainLetters = rows;",
        "} // namespace plxclip",
    ]  # fmt: skip
    pathlib.Path(output).write_text("\n".join(source) + "\n", encoding="utf-8")


main(sys.argv[1])
