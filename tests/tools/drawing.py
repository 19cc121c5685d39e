"""A picture that "plxclip show" has drawn, taken apart."""

import dataclasses
import re
import sys
import pathlib
import xml.etree.ElementTree as ElementTree

sys.path.append(str(pathlib.Path(__file__).parent.parent / "support"))
from programs import display_width  # noqa: E402


@dataclasses.dataclass
class Box:
    left: float
    top: float
    right: float
    bottom: float

    @property
    def width(self):
        return self.right - self.left

    def overlaps(self, other, allowed=0.2):
        return (self.left + allowed < other.right and other.left + allowed < self.right
                and self.top + allowed < other.bottom and other.top + allowed < self.bottom)

    def holds(self, other, allowed=0.2):
        return (other.left >= self.left - allowed and other.right <= self.right + allowed
                and other.top >= self.top - allowed and other.bottom <= self.bottom + allowed)


def classes(element):
    return element.get("class", "").split()


def box(element):
    return [float(element.get(key)) for key in ("x", "y", "width", "height")]


def rectangle_box(element):
    left, top, width, height = box(element)
    return Box(left, top, left + width, top + height)


def points_of(path):
    return [(float(x), float(y)) for x, y in re.findall(r"[ML](-?[\d.]+) (-?[\d.]+)", path.get("d"))]


def path_box(path):
    xs, ys = zip(*points_of(path))
    return Box(min(xs), min(ys), max(xs), max(ys))


class Drawing:
    def __init__(self, text):
        self.root = ElementTree.fromstring(text)
        for element in self.root.iter():
            element.tag = element.tag.rpartition("}")[2]
        self.lines = self.groups("line")
        rules = re.findall(r"([^{}]+)\{([^{}]*)\}", self.root.find("style").text)
        self.rules = [(selector.split(","), body) for selector, body in rules]

    def all(self, tag, name, place=None):
        return [each for each in (self.root if place is None else place).iter(tag) if name in classes(each)]

    def groups(self, name):
        return self.all("g", name) if hasattr(self, "lines") else \
            [each for each in self.root.iter("g") if name in classes(each)]

    def rectangles(self, place, name):
        return self.all("rect", name, place)

    def texts(self, name):
        return [element.text for element in self.all("text", name)]

    def style(self, element, name):
        """What the element has itself, or by its class."""
        if found := re.search(rf"{name}: *([^;]+)", element.get("style", "")):
            return found[1]
        for selectors, body in self.rules:
            wanted = [set(selector.strip().strip(".").split(".")) for selector in selectors]
            found = re.search(rf"{name}: *([^;]+)", body)
            if found and any(each <= set(classes(element)) for each in wanted):
                return found[1]
        return None

    def font_size(self, element):
        return float(self.style(element, "font-size").removesuffix("px"))

    def text_box(self, element):
        """The place of a text, from the width of an ordinary font."""
        size = self.font_size(element)
        width = 0.6 * size * display_width(element.text)
        left = float(element.get("x")) - (width if self.style(element, "text-anchor") == "end" else 0)
        base = float(element.get("y"))
        return Box(left, base - 0.75 * size, left + width, base + 0.2 * size)

    def text_boxes(self):
        return [(each.text, self.text_box(each)) for each in self.root.iter("text") if each.text]
