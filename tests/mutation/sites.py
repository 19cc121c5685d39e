"""Finds what can be changed in the sources, and changes it."""

import dataclasses
import re

import steps

# Strings and comments, which hide text that looks like code, and the code that is changed.
HIDDEN = re.compile(r'//[^\n]*|^[ \t]*#[^\n]*', re.MULTILINE)
STRING = re.compile(r'"(?:[^"\\\n]|\\.)*"(?:_t)?')
CHARACTER = re.compile(r"'(?:[^'\\\n]|\\.)+'")
UNTOUCHED = re.compile(r'\b(?:template|static_assert|operator)\b[^\n]*|'
                       r'\) (?:const )?(?:noexcept )?= 0;')
FIELD = re.compile(r'\.(?:initial|minimum|maximum) = ([^,{}]+?)(?=[,}])')
LIMIT = re.compile(r'std::numeric_limits<[\w:]+>::(?:max|min)\(\)')
ENUMERATOR = re.compile(r"(?<=\w = )\d+(?=,| })")
NUMBER = re.compile(r"(?<![\w.'])(?:0[xXbB][0-9a-fA-F]+|\d+\.\d+(?:e\d+)?|\d+)[FULful]*(?![\w.>])")
COMPARISON = re.compile(r'(?<=\s)(?:<=|>=|==|!=|<|>)(?=\s)')
CODE = re.compile(r'\bKRT_PLX_RESULT_\w+')
NEED = re.compile(r'(?<=, )Need::(?:required|optional)\b')
DEFAULT_FLAG = re.compile(r'(?<=_ = )(?:true|false)(?=;)')

OPPOSITES = {'<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '==',
             'true': 'false', 'false': 'true',
             'Need::required': 'Need::optional', 'Need::optional': 'Need::required'}


@dataclasses.dataclass
class Site:
    """One change at one place: `original`, at `start` of the file, becomes `changed`."""
    file: str
    start: int
    original: str
    changed: str
    line: int = 0
    text: str = ''
    number: int = 0  # among the same changes of one line
    is_of_steps: bool = False  # in code where steps are left out

    @property
    def is_comparison(self):
        return self.original in ('<', '<=', '>', '>=', '==', '!=')

    @property
    def end(self):
        return self.start + len(self.original)

    @property
    def change(self):
        which = f' #{self.number + 1}' if self.number else ''
        original = ' '.join(self.original.replace(' | ', '|').split())
        return f'{original} -> {self.changed}{which}'

    @property
    def key(self):
        return (self.file, self.text, self.change)

    def __str__(self):
        return f'{self.file}:{self.line}: {self.change}    {self.text}'


def blanked(pattern, text):
    return pattern.sub(lambda match: ' ' * len(match.group()), text)


def hide_comments(source):
    """Blanks comments and directives, but not inside strings."""
    either = re.compile(f'(?P<string>{STRING.pattern})|{HIDDEN.pattern}', re.MULTILINE)
    return either.sub(lambda m: m.group() if m.group('string') else ' ' * len(m.group()), source)


def changed_string(literal):
    return '"~' + literal[1:]


def changed_numbers(text):
    """One more and one less; for a fraction, a hundredth."""
    if re.search(r'\d\.\d', text):
        if float(text.rstrip('F')) == 0:
            return [f'{text} + 0.01F', f'{text} - 0.01F']
        return [f'{text} * 1.01F', f'{text} * 0.99F']
    zero = re.fullmatch(r'(?:0[xXbB])?0+[uUlL]*', text)
    return [f'{text} + 1'] if zero else [f'{text} + 1', f'{text} - 1']


def changed_field(text):
    is_least = text == '0' or text.endswith('::min()')
    if re.search(r'\d\.\d', text):
        return changed_numbers(text)
    return [f'{text} + 1'] if is_least else [f'{text} + 1', f'{text} - 1']


def changed_limit(text):
    return [f'{text} + 1' if text.endswith('min()') else f'{text} - 1']


def changed_code(text):
    return ('KRT_PLX_RESULT_NULL_ARGUMENT' if text == 'KRT_PLX_RESULT_OK'
            else 'KRT_PLX_RESULT_OK')


KINDS = [
    (FIELD, 1, changed_field),
    (LIMIT, 0, changed_limit),
    (ENUMERATOR, 0, lambda text: [f'{text} + 1']),
    (NUMBER, 0, changed_numbers),
    (COMPARISON, 0, lambda text: [OPPOSITES[text]]),
    (CODE, 0, lambda text: [changed_code(text)]),
    (NEED, 0, lambda text: [OPPOSITES[text]]),
    (DEFAULT_FLAG, 0, lambda text: [OPPOSITES[text]]),
]


def places(source):
    """(start, original, changes), of places that do not overlap."""
    code = hide_comments(source)
    for match in STRING.finditer(code):
        yield match.start(), match.group(), [changed_string(match.group())]
    code = blanked(STRING, code)
    for match in CHARACTER.finditer(code):
        yield match.start(), match.group(), ["'~'" if match.group() != "'~'" else "'!'"]
    code = blanked(CHARACTER, code)
    code = blanked(UNTOUCHED, code)
    for pattern, group, changes in KINDS:
        for match in pattern.finditer(code):
            yield match.start(group), match.group(group), changes(match.group(group))
        code = blanked(pattern, code)


def places_of_steps(source):
    code = hide_comments(source)
    return steps.find(blanked(UNTOUCHED, blanked(CHARACTER, code)))


def find(file, source, has_steps=False):
    lines = source.split('\n')
    found = []
    seen = {}
    every = list(places(source)) + (list(places_of_steps(source)) if has_steps else [])
    for start, shown, changes in sorted(every):
        original = source[start:start + len(shown)]
        line = source.count('\n', 0, start) + 1
        for changed in changes:
            site = Site(file, start, original, changed, line, lines[line - 1].strip(),
                        is_of_steps=has_steps)
            site.number = seen.get(site.key, 0)
            seen[site.key] = site.number + 1
            found.append(site)
    return found


def around(site, identity):
    """The text before and after the site's code that makes it a switch."""
    if site.is_comparison:
        return f'{site.original} ::mutation::On{{{identity}}} ', ''
    if site.changed == ';':
        return f'if (!::mutation::isOn({identity})) {{ ', ' }'
    if site.changed == 'true' and site.original != 'false':
        return f'(::mutation::isOn({identity}) || (', '))'
    if site.changed == 'false' and site.original != 'true':
        return f'(!::mutation::isOn({identity}) && (', '))'
    return f'::mutation::chosen({identity}, ', f', {site.changed})'


def with_switches(source, sites):
    """The source with a switch for each of its (identity, site), all off. Where several begin or
    end at one place, the longest is the outermost."""
    inserted = []
    for rank, (identity, site) in enumerate(sites):
        before, behind = around(site, identity)
        inserted.append((site.start, 1, -site.end, rank, before))
        inserted.append((site.end, 0, -site.start, -rank, behind))
    parts = []
    done = 0
    for place, _, _, _, text in sorted(inserted):
        parts += [source[done:place], text]
        done = place
    return ''.join(parts) + source[done:]


def with_change(source, site):
    """The source with this one change."""
    return source[:site.start] + site.changed + source[site.end:]


def without_constants(source, kept_lines):
    """Removes constexpr from code that depends on a switch, except in the lines that need it."""
    lines = source.split('\n')
    for index, line in enumerate(lines):
        if index + 1 not in kept_lines and not line.endswith(')'):
            lines[index] = re.sub(r'^(inline )?constexpr (?!auto query)', r'\1const ', line)
    return '\n'.join(lines)


def matching(found, pattern):
    return [site for site in found if re.search(pattern, str(site))]
