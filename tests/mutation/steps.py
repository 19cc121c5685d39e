"""Finds the steps of the code that can be left out: statements, checks, and flags."""

import re

FLAG = re.compile(r'\b(?:O_(?:APPEND|CLOEXEC|CREAT|DIRECTORY|EXCL|NOCTTY|NOFOLLOW|NONBLOCK|TRUNC)|'
                  r'AT_(?:REMOVEDIR|SYMLINK_NOFOLLOW)|LOCK_NB)\b')
# What a function returns when it has failed, and what it returns otherwise.
FAILURES = {'WriteResult::failed': 'written', 'WriteResult::notOpened': 'written',
            'ReadResult::refused': 'read', 'ReadResult::notOpened': 'read',
            'Attempt::failed': 'done', 'Attempt::tryAgain': 'failed',
            'Made::no': 'yes', 'Made::parentMissing': 'no',
            'Locked::busy': 'yes', 'Locked::unknownHere': 'busy',
            'State::missing': 'refused', 'State::refused': 'missing', 'State::busy': 'refused'}
FAILURE = re.compile(r'(?<!case )(?<!case HeldFile::)(?<!case fs::HeldFile::)(?<![=!]= )'
                     rf'\b(?:{"|".join(FAILURES)})\b')
ANSWER = re.compile(r'(?<=return )(?:true|false)(?=;)')
CONDITION = re.compile(r'\b(?:if|while) \(')
# An expression whose value is not used: a call or an assignment.
STATEMENT = re.compile(r'\s*(?!(?:return|else|delete|throw|if|while|for|switch|do|case|default)\b)'
                       r'(?:\+\+|--)?(?:::)?[\w:]+(?:(?:\.|->)\w+|\[[^]\n]*\]|\(\))*\s*'
                       r'(?:\(|=|[-+]=|\+\+;|;)')
PAIRS = {'(': ')', '[': ']', '{': '}'}


def end_of(code, start, stops):
    """The place, from `start` on, of the first of `stops` outside all brackets, or where the last
    bracket closes."""
    depth = 0
    for place in range(start, len(code)):
        if depth == 0 and code.startswith(stops, place):
            return place
        if code[place] in PAIRS:
            depth += 1
        elif code[place] in PAIRS.values():
            depth -= 1
            if depth < 0:
                return place
    return len(code)


def start_of(code, end, stops):
    """The same backwards: the place after the stop."""
    depth = 0
    for place in range(end, 0, -1):
        if depth == 0 and code.endswith(stops, 0, place):
            return place
        if code[place - 1] in PAIRS.values():
            depth += 1
        elif code[place - 1] in PAIRS:
            depth -= 1
            if depth < 0:
                return place
    return 0


def trimmed(code, start, end):
    while start < end and code[start].isspace():
        start += 1
    while start < end and code[end - 1].isspace():
        end -= 1
    return start, end


STOPS = (';', ',', ' ? ', ' : ', ' = ')
NEUTRAL = {'&&': 'true', '||': 'false'}


def operands(code):
    """(start, end, replacement when it is left out) of each operand of && and ||."""
    found = set()
    for match in re.finditer(r'(?<=[\s)])(?:&&|\|\|)(?=\s)', code):
        inner = ('&&', '||') if match.group() == '&&' else ('||',)
        before = start_of(code, match.start(), ('return ', *STOPS, *inner)), match.start()
        after = match.end(), end_of(code, match.end(), (*STOPS, *inner))
        found |= {(*trimmed(code, *place), NEUTRAL[match.group()]) for place in (before, after)}
    return sorted(found)


def conditions(code):
    """(start, end, 'false') of each condition that declares nothing."""
    for match in CONDITION.finditer(code):
        start, end = match.end(), end_of(code, match.end(), ())
        if not re.match(r'const |auto ', code[start:end]) and '=' not in re.sub(
                r'[=!<>]=|\[=\]', '', code[start:end]):
            yield start, end, 'false'


def is_in_function(code, place):
    """Whether the innermost open bracket is a brace, but not that of a class or a namespace."""
    open_at = start_of(code, place, ())
    head = code[max(code.rfind(c, 0, max(open_at - 1, 0)) for c in ';{}') + 1:open_at]
    return open_at > 0 and code[open_at - 1] == '{' and not re.search(
        r'\b(?:namespace|class|struct|enum|union)\b[^()]*{$', head)


def statements(code):
    """(start, end, ';') of each."""
    for match in re.finditer(r'[;{}](?=\s)|:\n', code):
        found = STATEMENT.match(code, match.end())
        if found is None or not is_in_function(code, match.end()):
            continue
        start, end = trimmed(code, match.end(), end_of(code, match.end(), (';',)) + 1)
        if code[end - 1:end] == ';':
            yield start, end, ';'


def words(code):
    """(start, end, replacement) of flags and of the results of functions."""
    for match in FLAG.finditer(code):
        yield match.start(), match.end(), '0'
    for match in FAILURE.finditer(code):
        kind = match.group().split('::')[0]
        yield match.start(), match.end(), f'{kind}::{FAILURES[match.group()]}'
    for match in ANSWER.finditer(code):
        yield match.start(), match.end(), {'true': 'false', 'false': 'true'}[match.group()]


def find(code):
    for places in (operands, conditions, statements, words):
        for start, end, changed in places(code):
            yield start, code[start:end], [changed]
