"""Gives a header or a page to Doxygen: prints it with its comments in the form that Doxygen reads.

The names of exports become links, in a page where they are marked as code. In a header, the comment at the top of a header, and every other one that stands alone, becomes a part of the file's page. Indented
lines become code, and "// ---- Title" a group of members. A comment holds for all declarations up to the next empty
line.
"""

import re
import sys

with open("cmake/exports.txt", encoding="utf-8") as exports:
    NAMES = "|".join(sorted({re.match(r"\w+", line)[0] for line in exports}))
PROSE = re.compile(rf"(`[^`]*`)|([<>#%@&\\])|(\*)|(\b(?:{NAMES})\b(?!\())")


def escaped(text):
    """Prose in which Doxygen sees no commands, tags or emphasis, and the names of exports as links."""

    def mark(found):
        code, character, star, name = found.groups()
        return code or character and "\\" + character or star and "&lowast;" or name + "()"

    return PROSE.sub(mark, text)


def page(text):
    """A page, with the names of exports as links outside its blocks."""
    parts = re.split(r"(^```.*?^```$)", text, flags=re.MULTILINE | re.DOTALL)
    parts[::2] = [re.sub(rf"`({NAMES})`", r"\1()", part) for part in parts[::2]]
    return "".join(parts)


def doxygen(block):
    """The lines of a comment, without their slashes, as a comment for Doxygen."""
    order = re.match(r"( Order: [`\w, ]+\. )", block[0])
    if order:  # which argument is which comes last, as the first sentence is what lists show
        block = [" " + block[0][len(order[1]):], *block[1:], "", order[1].rstrip()]
    out = []
    in_list = in_code = False
    for text in block:
        indent = len(text) - len(text.lstrip(" "))
        if not text.strip() and not in_code or indent < 2:
            was_in_list, in_list = in_list, text.startswith(" - ")
            out += ["///"] * (was_in_list and not in_list)
        code = bool(text.strip()) and not in_list and indent >= 2
        if code != in_code and (text.strip() or not in_code):
            out.append("/// ~~~{.txt}" if code else "/// ~~~")
            in_code = code
        out.append("///" + (text if in_code else escaped(text)))
    return out + ["/// ~~~"] * in_code


def several(lines):
    """Whether more than one declaration follows, up to the next empty line."""
    run = []
    for line in lines:
        if not line.strip():
            break
        run.append(line)
    plain = not any("{" in line or line.startswith(("#", "static_assert", "//")) for line in run)
    return plain and sum(";" in line for line in run) > 1


def header(text):
    """A header with its comments in Doxygen's form."""
    lines = text.splitlines()
    out = []
    in_group = False
    shared = []  # the comment of a run of declarations, which each of them gets
    at = 0
    while at < len(lines):
        line = lines[at]
        mark = re.match(r"( *)(///?)(?=[ ]|$)", line)
        end = at + 1
        if line.strip().startswith("// ---- "):
            out += ["/// @}"] * in_group + ["/// @name " + line.strip()[8:].rstrip("."), "/// @{"]
            in_group = True
        elif mark:
            while end < len(lines) and lines[end].startswith(mark[0]) and not lines[end].startswith(mark[0] + "/"):
                end += 1
            block = doxygen([text[len(mark[0]):] for text in lines[at:end]])
            alone = end == len(lines) or not lines[end].strip() or lines[end] == "#pragma once"
            if mark[2] == "///":
                shared = block if not mark[1] and several(lines[end:]) else []
                out += block
            elif alone and not mark[1]:
                out += ["/// @file", "///"] + block + [""]
        else:
            if line == " private:":
                end = lines.index("};", at)
            if in_group and re.match(r"( private:|};|}  // namespace)", line):
                out.append("/// @}")
                in_group = False
            if not line.strip():
                shared = []
            out.append(line)
            if line.endswith(";") and lines[end:] and lines[end].strip():
                out += shared
        at = end
    return "\n".join(out)


with open(sys.argv[1], encoding="utf-8") as source:
    print((page if sys.argv[1].endswith(".md") else header)(source.read()))
