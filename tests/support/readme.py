"""What the pages of the repository say: their tables and their blocks of code."""

import collections
import re


def tables(page):
    """Each table of a page, as a list of rows that map headings to cells."""
    heading = None
    rows = []
    for line in [*page.read_text(encoding="utf-8").splitlines(), ""]:
        if not line.startswith("|"):
            if rows:
                yield rows
            heading, rows = None, []
            continue
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if heading is None:
            heading = cells
        elif not set(line) <= set("|- "):
            rows.append(dict(zip(heading, cells, strict=True)))


def table_with(page, heading):
    """The rows of all tables of a page that have a column of this heading."""
    return [row for rows in tables(page) if heading in rows[0] for row in rows]


def blocks(page, language):
    """The blocks of code in a language, in the order of the page."""
    text = page.read_text(encoding="utf-8")
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


def example_clips(sources):
    """The rows on the example library's clips, in the words that the programs have for them."""
    page = sources / "examples/library/README.md"
    system, user = (rows for rows in tables(page) if "Part reads" in rows[0])
    for folder, rows in (("system", system), ("user", user)):
        for row in rows:
            yield shown(row) | {"Clip file": f"{folder}/{row['Clip file'].strip('`')}"}


def shown(row):
    _, _, key = row["Key"].partition(" (")
    tempo = int(row["Tempo"] or 0) / 100
    return row | {
        "Name": row["Name"] or "-",
        "Vendor": row["Vendor"] or "-",
        "Key": key.rstrip(")") or "-",
        "BPM": f"{tempo:g}" if tempo else "-",
    }


def documented_clips(sources):
    """Counts the clips that the page calls listed; two that share an ID are one clip."""
    halves = {"yes": 2, "1 of 2": 1, "no": 0}
    counts = collections.Counter()
    for row in example_clips(sources):
        clip = tuple(row[key] for key in ("Name", "Vendor", "Type", "Key", "BPM"))
        counts[clip] += halves[row["Listed"]]
    return collections.Counter({clip: count // 2 for clip, count in counts.items() if count > 1})


def figures(sources):
    """How many system clips and user clips the README says that there are."""
    text = (sources / "README.md").read_text(encoding="utf-8")
    (row,) = re.findall(r"(\d+) system clips and (\d+) user clips", text)
    return tuple(map(int, row))
