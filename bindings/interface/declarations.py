"""What the public headers declare, as clang reads them: functions, handles, codes and constants.

Uses clang and not pycparser: clang keeps the comments, with parameters and results separated, and
brings the standard headers that ours include; pycparser drops comments, and reads neither
attributes nor the system's headers. And the build uses clang anyway.
"""

import json
import pathlib
import re
import subprocess

# Gives the same result on every system; no header of the system is read.
OPTIONS = ["--target=x86_64-pc-linux-gnu", "-ffreestanding", "-fparse-all-comments"]
LANGUAGES = {"c": "-std=c99", "c++": "-std=c++17"}
PREFIX = "KRT_PLX_"


class Reader:
    """Reads the headers of an include folder with clang."""

    def __init__(self, clang, include):
        self.command = [clang, *OPTIONS, f"-I{include}"]
        self.include = pathlib.Path(include)
        self.tree = self.parse("c")

    def parse(self, language, code=""):
        """The syntax tree of the headers, followed by this code."""
        source = f"#include <korvel/plx.h>\n{code}"
        dump = ["-fsyntax-only", "-Xclang", "-ast-dump=json", "-x", language, LANGUAGES[language], "-"]
        result = subprocess.run([*self.command, *dump], input=source.encode("utf-8"), check=True,
                                stdout=subprocess.PIPE)
        return json.loads(result.stdout)

    def declarations(self, kind):
        """Yields (header, node) of the library's own declarations. Clang names a file only where it
        changes, in the order of the dump."""
        header = ""
        for node in self.tree["inner"]:
            header = last_file(node["loc"]) or header
            if node["kind"] == kind and node.get("name", "").startswith(PREFIX):
                yield pathlib.Path(header).name, node
            header = last_file(node) or header

    def macros(self):
        """The names of the macros that define a value, with their headers and comments."""
        found = []
        for header in sorted((self.include / "korvel/plx").glob("*.h")):
            text = header.read_text(encoding="utf-8")
            text = re.sub(r"/\*\* @cond.*?@endcond \*/", "", text, flags=re.DOTALL)
            pattern = r"/\*\*((?:(?!\*/).)*)\*/\s*#define (KRT_PLX_\w+)(?=[ ])(?! *\\\n *__)"
            for comment, name in re.findall(pattern, text, re.DOTALL):
                found.append((name, header.name, plain_comment(comment)))
        return found

    def values(self, names):
        """The values of macros, as (type, value) by name. Clang evaluates them; only for C++ does
        it do so completely."""
        code = "".join(f"const auto value_{name} = {name};\n" for name in names)
        variables = {node["name"].partition("_")[2]: node
                     for node in self.parse("c++", code)["inner"]
                     if node.get("name", "").startswith("value_")}
        whole = [name for name in names if "int" in type_of(variables[name])
                 or "long" in type_of(variables[name])]
        code = "".join(f"void value_{name}(decltype({name}) x) {{ switch (x) {{ case ({name}):; }} }}\n"
                       for name in whole)
        integers = {node["name"].partition("_")[2]: int(find(node, "ConstantExpr")["value"])
                    for node in self.parse("c++", code)["inner"]
                    if node.get("name", "").startswith("value_")}
        return {name: value_of(variables[name], integers.get(name)) for name in names}


def last_file(node):
    """The last file that a node or anything in it names."""
    last = ""
    for key, value in node.items():
        if key == "file":
            last = value
        elif isinstance(value, dict) and key != "includedFrom":
            last = last_file(value) or last
        elif isinstance(value, list):
            for entry in value:
                last = (isinstance(entry, dict) and last_file(entry)) or last
    return last


def find(node, kind):
    """The first node of a kind within another, or None."""
    for inner in node.get("inner", []):
        found = inner if inner.get("kind") == kind else find(inner, kind)
        if found:
            return found
    return None


def type_of(node):
    return node["type"].get("desugaredQualType", node["type"]["qualType"])


def value_of(variable, integer):
    if integer is not None:
        bits = 64 if "long" in type_of(variable) else 32
        return f"{'u' if 'unsigned' in type_of(variable) else ''}int{bits}", int(integer)
    number = find(variable, "FloatingLiteral")
    if number:
        return "float", float(number["value"])
    return "string", json.loads(find(variable, "StringLiteral")["value"])


def plain_comment(text):
    """The text of a comment, without its stars."""
    lines = [re.sub(r"^\s*\* ?", "", line).rstrip() for line in text.strip().splitlines()]
    return "\n".join(line.strip() if index == 0 else line for index, line in enumerate(lines)).strip()


def text_of(node):
    """The text of a paragraph, line by line; clang says for each piece where a new line begins.
    What looks like an HTML tag is part of our text."""
    text = ""
    for inner in node.get("inner", []):
        if inner["kind"] != "TextComment":
            raise ValueError(f"a comment with {inner['kind']}")
        text += ("\n" if "line" in inner["loc"] else "") + inner["text"]
    lines = [line[1:] if line.startswith(" ") else line for line in text.splitlines()]
    return "\n".join(line.rstrip() for line in lines).strip("\n")


def comment_of(node):
    """A declaration's comment: its text, the text of each parameter and that of the result."""
    comment = next((inner for inner in node.get("inner", []) if inner["kind"] == "FullComment"), None)
    if comment is None:
        raise ValueError(f"{node['name']} has no comment")
    parts = {"text": [], "parameters": {}, "result": ""}
    for inner in comment["inner"]:
        if inner["kind"] == "ParagraphComment":
            parts["text"].append(text_of(inner))
        elif inner["kind"] == "ParamCommandComment":
            parts["parameters"][inner["param"]] = one_line(inner)
        elif inner["kind"] == "BlockCommandComment" and inner["name"] == "return":
            parts["result"] = one_line(inner)
        else:
            raise ValueError(f"{node['name']}: a comment with {inner['kind']}")
    parts["text"] = "\n\n".join(text.strip("\n") for text in parts["text"] if text.strip())
    return parts


def one_line(command):
    return " ".join(" ".join(text_of(inner) for inner in command["inner"]).split())
