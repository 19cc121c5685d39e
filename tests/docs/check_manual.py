"""What the HTML manual has besides its text: the search finds what hosts look for, every C++ class has a
page, the recipes show their sources, and the links lead somewhere.

check_manual.py PROJECT HTML_FOLDER
"""

import html
import json
import pathlib
import re
import sys
import unittest

PROJECT = HTML = SOURCES = None

# What anybody types first. The names that one guesses stand in names.md.
WORDS = ("vibrato", "tempo", "free", "copy", "transpose", "EFFECT_PARAMETER_INT32", "insertDepth", "lyric",
         "KRT_PLX_Kit_edit", "Recipes", "Units")
# Plumbing without a page of its own.
ITERATORS = ("Iterator", "LaneIterator", "pointer")


def identifier(word):
    """The word as search.js compares it: every other character than these is an escape."""
    return "".join(letter if re.match(r"[a-z0-9]", letter) else f"_{ord(letter):02x}" for letter in word.lower())


def entries():
    """(identifier, the pages it leads to) of everything that the search knows."""
    for file in sorted((HTML / "search").glob("all_*.js")):
        text = re.sub(r"^var searchData=\n", "", file.read_text(encoding="utf-8")).rstrip().rstrip(";")
        text = text.replace(r"\'", "\0")
        text = re.sub(r"'((?:[^'])*)'", lambda found: json.dumps(found[1]), text).replace("\0", "'")
        for name, (_, *places) in json.loads(text):
            yield re.sub(r"_\d+$", "", name), [place[0].removeprefix("../") for place in places]


def exists(place):
    file, _, anchor = place.partition("#")
    page = HTML / file
    return page.is_file() and (not anchor or f'id="{anchor}"' in page.read_text(encoding="utf-8"))


def text_of(page):
    return html.unescape(re.sub(r"<[^>]*>", "", (HTML / page).read_text(encoding="utf-8")))


def page_of(name):
    """Doxygen's versions name the pages differently."""
    (page,) = HTML.glob(f"md_docs_*{name}.html")
    return page


def guessed_names():
    page = (PROJECT / "docs/names.md").read_text(encoding="utf-8")
    return re.findall(r"^\| `([^`]+)` \|", page, re.MULTILINE)


class Manual(unittest.TestCase):
    def found(self, word):
        return [place for name, places in ENTRIES for place in places if name.startswith(identifier(word))]

    def test_the_search_finds_what_hosts_look_for(self):
        names = guessed_names()
        self.assertGreater(len(names), 30)
        self.assertEqual(len(names), len(set(names)))
        for word in (*WORDS, *names):
            with self.subTest(word):
                self.assertNotEqual(self.found(word), [])
                self.assertEqual([place for place in self.found(word) if not exists(place)], [])

    def test_it_does_not_find_what_is_not_there(self):
        self.assertEqual(self.found("vibratissimo"), [])

    def test_a_guessed_name_leads_to_the_real_one(self):
        self.assertIn("KRT_PLX_VALUE_INT32", text_of("look_for_EFFECT_PARAMETER_INT32.html"))
        for name in guessed_names():
            page = (HTML / ("look_for_" + re.sub(r"\W", "_", name) + ".html")).read_text(encoding="utf-8")
            with self.subTest(name):
                # One link leads back to the list.
                self.assertGreater(len(re.findall(r'<a class="el" ', page)), 1)

    def test_every_class_has_a_page_with_its_functions(self):
        classes = 0
        for header in sorted((PROJECT / "include/korvel/face").glob("*.hpp")):
            outside = re.sub(r"^namespace detail \{.*?^\} // namespace detail", "",
                             header.read_text(encoding="utf-8"), flags=re.MULTILINE | re.DOTALL)
            for kind, name, body in re.findall(r"^(class|struct) (\w+)[^;{]*\{\n(.*?)^\};", outside,
                                               re.MULTILINE | re.DOTALL):
                if name not in ITERATORS:
                    classes += 1
                    self.expect_page(kind, name, body.partition("\nprivate:")[0])
        self.assertGreater(classes, 45)

    def expect_page(self, kind, name, body):
        page = HTML / f"{kind}korvel_1_1plx_1_1{name}.html"
        with self.subTest(name):
            self.assertTrue(page.is_file())
            text = text_of(page.name)
            for function in re.findall(r"^    (?:\[\[nodiscard\]\] )?[\w:<>]+ (\w+)\(", body, re.MULTILINE):
                self.assertTrue(re.search(rf"\b{function}\b", text), function)

    def test_recipes_show_their_sources(self):
        text = " ".join(text_of(page_of("recipes").name).split())
        page = (PROJECT / "docs/recipes.md").read_text(encoding="utf-8")
        quoted = re.findall(r"^\\snippet (\S+) (\w+)$", page, re.MULTILINE)
        for source, mark in quoted:
            (code,) = (file.read_text(encoding="utf-8") for file in SOURCES if file.name == source)
            body = re.split(rf"^(?://|/\*) \[{mark}\].*\n", code, flags=re.MULTILINE)[1]
            with self.subTest(f"{source}: {mark}"):
                self.assertTrue(" ".join(body.split()) in text)
        marks = {(file.name, mark) for file in SOURCES for mark in
                 re.findall(r"^(?://|/\*) \[(\w+)\](?: \*/)?$", file.read_text(encoding="utf-8"), re.MULTILINE)}
        self.assertEqual(set(quoted), marks)

    def test_the_sources_of_the_examples_are_linked(self):
        page = page_of("examples").read_text(encoding="utf-8")
        links = {name: place for place, name in re.findall(r'<a class="el" href="([^"]+)">([^<]+)</a>', page)}
        self.assertIn("tune.c", links)
        for source in re.findall(r"\]\(\.\./examples/(?:recipes/)?([\w.]+)\)",
                                 (PROJECT / "docs/examples.md").read_text(encoding="utf-8")):
            with self.subTest(source):
                self.assertIn(source, links)
                self.assertIn("#include", text_of(links[source]))


if __name__ == "__main__":
    PROJECT, HTML = map(pathlib.Path, sys.argv[1:])
    SOURCES = [*(PROJECT / "examples").rglob("*.c"), *(PROJECT / "examples").rglob("*.cpp")]
    ENTRIES = list(entries())
    unittest.main(argv=sys.argv[:1], verbosity=2)
