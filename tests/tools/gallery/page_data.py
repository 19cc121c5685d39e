"""The data in a page that "plxclip gallery" wrote, read without a browser."""

import html.parser
import json


class Reader(html.parser.HTMLParser):
    """Collects the scripts that are data, as a browser finds their ends."""

    def __init__(self):
        super().__init__()
        self.data = {}
        self.current = None
        self.tags = []

    def handle_starttag(self, tag, attrs):
        self.tags.append(tag)
        values = dict(attrs)
        if tag == "script" and values.get("type") == "application/json":
            self.current = values["id"]
            self.data[self.current] = ""

    def handle_endtag(self, tag):
        if tag == "script":
            self.current = None

    def handle_data(self, data):
        if self.current is not None:
            self.data[self.current] += data


def read_page(path):
    """The catalogue, the parts in the order of its clips, and the names of all elements."""
    reader = Reader()
    reader.feed(path.read_bytes().decode("utf-8"))
    catalogue = json.loads(reader.data["catalogue-data"])
    parts = [json.loads(reader.data[f"part-{index}"]) for index in range(len(catalogue["clips"]))]
    return catalogue, parts, reader.tags
