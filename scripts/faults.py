"""The faults that scripts/mutants plants: the ways to break each line of C++ that runs.

The name of a fault is its file, a digest of the line before and after, and a digest of the lines around it. So it
keeps its name while other lines come and go, and is found again when its line has moved to another file.
"""
import collections
import dataclasses
import hashlib
import random
import re

NAME = re.compile(r"[\w./-]+:[0-9a-f]{8}\.[0-9a-f]{4}")

# ---- Reading the sources. They are formatted by clang-format, and these patterns rely on it.


UNREAD = re.compile(r"""(?P<comment> //[^\n]* | /\*.*?\*/ | ^\s*\#(?:[^\n\\]|\\.)* )
                        | R"(?P<fence>\w*)\(.*?\)(?P=fence)" | "(?:[^"\\\n]|\\.)*" | (?<!\w)'(?:[^'\\]|\\.[^']*)'""",
                    re.VERBOSE | re.DOTALL | re.MULTILINE)
SCOPE = re.compile(r"\s*(template <.*?>\s*)?(inline )?(namespace|class|struct|union|enum|extern)\b(?!.*\)\s*$)",
                   re.DOTALL)
CONSTANT = re.compile(r"^ *(?:static |inline )*constexpr [^()\n]*? = (.*;)$", re.MULTILINE)


def readable(text):
    """The same without comments and directives and with literals filled up, every character in its old place."""
    return UNREAD.sub(lambda match: re.sub(r"[^\n]", " " if match["comment"] else '"', match[0]), text)


def runnable(code):
    """A byte for each character: 1 in the body of a function and in the value of a constant."""
    marks, inside, parens, head = bytearray(), [False], 0, 0
    for at, char in enumerate(code):
        if char == "}":
            inside.pop()
        marks.append(inside[-1])
        if char == "{" and (parens > 0 or code[at - 1] not in " \n" or code[at - 2] == "="):
            inside.append(inside[-1])       # a list of values, or a body among arguments
        elif char == "{":
            inside.append(not SCOPE.match(code[head:at]) and (inside[-1] or "(" in code[head:at]))
        parens += {"(": 1, ")": -1}.get(char, 0)
        if char in "{}" or (char == ";" and parens == 0):
            head = at + 1
    for constant in CONSTANT.finditer(code):
        marks[slice(*constant.span(1))] = b"\1" * len(constant[1])
    return marks


# ---- The faults.

EXCHANGES = [(re.compile(around % re.escape(one)), other)
             for around, pairs in [(r"(?<= )%s(?= )", "< <=, > >=, == !=, && ||, + -, += -="), (r"%s", "++ --"),
                                   (r"\b%s\b", "true false"), (r"\b%s(?=;)", "continue break")]
             for pair in pairs.split(", ") for one, other in (pair.split(), reversed(pair.split()))]
EXCHANGES += [(re.compile(pattern), other) for pattern, other in [
    (r"!(?=[\w(])", ""), (r"(?<=[(, ])-1\b", "0"), (r"(?<![\w.'-])1(?=[UL]*\b)(?![.'])", "0"),
    (r"(?<![\w.'])(?:0x[0-9A-Fa-f]+|(?!1[UL]*\b)\d+)(?=[UL]*\b)(?![.'])",
     lambda number: f"0x{int(number[0], 16) + 1:X}" if "x" in number[0] else str(int(number[0]) + 1)),
    (r"\breturn (?!(?:0|1|-1|true|false|nullptr);)[^;{}]+(?=;)", "return {}")]]
IDLE = re.compile(r"\b(?:HasChildren\(|(?:SetID|CopyAllAttributes)\(.*?, )(\w+)\)")     # arguments without an effect
CONDITION = re.compile(r"\b(?:if|while)(?= \()")
LONE = re.compile(r"|!\w+|[^&|]* [!=]= [^&|]*|.*( = |;).*")     # what another fault negates, and declarations
CALL = re.compile(r"\b(?!(?:max|min|if|while|for|switch)\b)\w+(?=\()")
STATEMENT = re.compile(
    r"(?:^ *|(?<=\{ ))((?:for \([^{}]*?\) )?[^ ;{}][^;{}]*(?:\{[^;{}]*\}[^;{}]*)*;)(?=$| \}$)")
KEPT = re.compile(      # returns, parts of longer statements, declarations
    r"(?:return|continue|break|goto|using|struct|enum)\b|[^\w(*+:-]|"
    r"(?!throw|delete|else|if|for|while)(?:(?:static|const|constexpr) )*[\w:]+(?:<.*>)?[ *&]+(?:const )?\w+ ?[=;({[]")


def argument_list(line, start):
    """The places of the parentheses that open at or after `start` and of the commas between; empty if cut off."""
    depth, places = 0, []
    for at in range(line.index("(", start), len(line)):
        depth += (line[at] in "([{") - (line[at] in ")]}")
        if depth == 0:
            return [*places, at]
        if depth == 1 and line[at] in "(,":
            places.append(at)
    return []


def edits(line, code, previous):
    """Yields (start, end, replacement) for each way to break a line. `code` is what can be read of it, and
    `previous` the last character of code above it."""
    idle = {match.start(1) for match in IDLE.finditer(code)}
    for pattern, other in EXCHANGES:
        for match in pattern.finditer(code):
            if match.start() not in idle:
                yield *match.span(), other(match) if callable(other) else other
    for match in CONDITION.finditer(code):
        first, *_, last = argument_list(code, match.end()) or [0, 0]
        if not LONE.fullmatch(code[first + 1:last]):
            yield first + 1, last, f"!({line[first + 1:last]})"
    for match in CALL.finditer(code):
        places = argument_list(code, match.end())
        for first, comma, last in zip(places, places[1:], places[2:]):
            left, right = line[first + 1:comma].strip(), line[comma + 1:last].strip()
            yield first + 1, last, f"{' ' * (line[first] == ',')}{right}, {left}"
    for match in STATEMENT.finditer(code):
        whole = code[:match.start(1)].strip() or previous in ";{}):"
        if whole and not KEPT.match(match[1]):
            yield *match.span(1), ";"


@dataclasses.dataclass(frozen=True)
class Fault:
    name: str
    path: str
    number: int     # of the line
    before: str
    after: str

    def __str__(self):
        return f"{self.name}  line {self.number}\n    - {self.before.strip()}\n    + {self.after.strip()}"


def digest(*lines):
    return hashlib.sha256("\n".join(" ".join(line.split()) for line in lines).encode()).hexdigest()


def faults_of(root, path):
    """All faults of a file. Of those with one name only the first can be planted."""
    text = (root / path).read_text()
    code = readable(text)
    marks = runnable(code)
    lines = text.split("\n")
    found, start = {}, 0
    for number, line in enumerate(lines, 1):
        part = code[start:start + len(line)]
        around = digest(*lines[max(number - 2, 0):number - 1], *lines[number:number + 1])[:4]
        if not re.match(r" *(static_assert|using|typedef|template)\b", part):
            for first, last, put in edits(line, part, code[:start].rstrip()[-1:]):
                after = line[:first] + put + line[last:]
                if after != line and all(marks[start + first:start + last]):
                    name = f"{path}:{digest(line, after)[:8]}.{around}"
                    found.setdefault(name, Fault(name, path, number, line, after))
        start += len(line) + 1
    return list(found.values())


def all_faults(root, paths):
    files = {file for path in paths for file in [root / path, *(root / path).rglob("*")]}
    sources = sorted(str(file.relative_to(root)) for file in files if file.suffix in (".cpp", ".h"))
    return [fault for path in sources for fault in faults_of(root, path)]


def pick(faults, count, seed):
    """Lines at even distances, so that every folder has its share, and one fault of each."""
    chance = random.Random(seed)
    by_line = collections.defaultdict(list)
    for fault in faults:
        by_line[fault.path, fault.number].append(fault)
    lines = list(by_line.values())
    step = max(len(lines) / count, 1)
    start = chance.random() * step
    return [chance.choice(lines[int(start + i * step)]) for i in range(min(count, len(lines)))]


def find(name, faults):
    """The fault of that name; else the only one of the same lines, or of the same line, wherever it is now."""
    path, digests = name.split(":")
    line = f":{digests[:8]}."
    for alike in (lambda f: f.name == name, lambda f: f.name.endswith(digests),
                  lambda f: f.path == path and line in f.name, lambda f: line in f.name):
        matches = list(filter(alike, faults))
        if len(matches) == 1:
            return matches[0]
    return None


def named(text, faults):
    """The faults whose names are in a text, by name; None for what is no longer there."""
    return {name: find(name, faults) for name in NAME.findall(text)}
