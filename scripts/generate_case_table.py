#!/usr/bin/env python3
"""Writes host/framework/case_table.h: the one-to-one case mappings and foldings of Unicode, as runs.

Usage: scripts/generate_case_table.py > host/framework/case_table.h
"""
import sys
import textwrap
import unicodedata


def upper(char):
    # Where the full upper case is longer than one character, the title case may be the one-to-one mapping.
    return char.upper() if len(char.upper()) == 1 else char.title()


def lower(char):
    return char.lower() if len(char.lower()) == 1 else {"\u0130": "i"}.get(char, char)


def fold(char):
    # A character that folds to several only has the one-to-one folding of its lower case, if it has one.
    return char.casefold() if len(char.casefold()) == 1 else char.lower()


def runs(convert):
    """Yields [first, last, stride, delta]: every stride-th code point from first to last is mapped to itself plus delta."""
    run = None
    for code in range(0x110000):
        if 0xD800 <= code < 0xE000:
            continue
        mapped = convert(chr(code))
        if len(mapped) != 1 or ord(mapped) == code:
            continue
        delta = ord(mapped) - code
        step = code - run[1] if run else 0
        if run and run[3] == delta and (step == run[2] or (run[0] == run[1] and step <= 2)):
            run[1], run[2] = code, step
            continue
        if run:
            yield run
        run = [code, code, 1, delta]
    yield run


def table(name, convert):
    cells = [f"{{0x{first:X}, 0x{last:X}, {stride}, {delta}}}," for first, last, stride, delta in runs(convert)]
    rows = textwrap.fill(" ".join(cell.replace(" ", "~") for cell in cells), 108, initial_indent="    ", subsequent_indent="    ",
                         break_on_hyphens=False)
    return f"inline constexpr CaseRun {name}[] = {{\n{rows.replace('~', ' ')}\n}};"


print(f"""// Case mappings of Unicode {unicodedata.unidata_version}, written by scripts/{sys.argv[0].rsplit("/", 1)[-1]}. Do not edit.
// clang-format off
#pragma once

namespace utf8 {{

/// Every `stride`-th code point from `first` to `last` becomes itself plus `delta`.
struct CaseRun {{
  char32_t first;
  char32_t last;
  unsigned stride;
  int delta;
}};

{table("kToUpper", upper)}

{table("kToLower", lower)}

{table("kToFolded", fold)}

}}  // namespace utf8""")
