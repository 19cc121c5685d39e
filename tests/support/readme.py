"""What the pages of the repository say: their tables and their blocks of code."""

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
