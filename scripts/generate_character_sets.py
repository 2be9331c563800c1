#!/usr/bin/env python3
"""Writes the tables of character sets: host/framework/single_byte_sets.h, from Python's codecs, and
host/platform/double_byte_sets.h, which has what other sets have beyond a code page of Windows, from iconv. Run it on
Linux with glibc."""
import ctypes
import os
import unicodedata

SINGLE_BYTE_SETS = {
    "ASCII": "ascii", "KOI8-R": "koi8_r", "KOI8-U": "koi8_u", "MACINTOSH": "mac_roman", "MAC-CYRILLIC": "mac_cyrillic",
    **{f"ISO-8859-{part}": f"iso8859_{part}" for part in (*range(1, 11), *range(13, 17))},
    **{f"CP{page}": f"cp{page}" for page in (437, 850, 852, 855, 858, 866, 874, *range(1250, 1259))},
}
# A set, and the page of Windows that it is near to.
DOUBLE_BYTE_SETS = [("GB18030", "CP936"), ("BIG5-HKSCS", "CP950")]
ROOT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")

libc = ctypes.CDLL(None)
libc.iconv_open.restype = ctypes.c_void_p


class Iconv:
    def __init__(self, charset):
        self.handle = ctypes.c_void_p(libc.iconv_open(b"UTF-8", charset.encode()))

    def text(self, sequence):
        """What the bytes stand for if they are just one character, else nothing."""
        source = ctypes.c_char_p(sequence)
        rest = ctypes.c_size_t(len(sequence))
        buffer = ctypes.create_string_buffer(16)
        to = ctypes.cast(buffer, ctypes.c_void_p)
        room = ctypes.c_size_t(16)
        libc.iconv(self.handle, None, None, None, None)
        if libc.iconv(self.handle, ctypes.byref(source), ctypes.byref(rest), ctypes.byref(to), ctypes.byref(room)) != 0:
            return ""
        return buffer.raw[: 16 - room.value].decode() if rest.value == 0 else ""


def literal(text, prefix=""):
    """The text as it is where it can be read, else escaped."""
    plain = "".join(
        c if unicodedata.category(c) in ("Lu", "Ll", "Lo", "Lt", "Po", "Ps", "Pe", "Sm", "Sc", "So", "Nd", "No", "Nl", "Pd", "Pc")
        and unicodedata.bidirectional(c) not in ("R", "AL") and c not in '"\\?\uFFFD'
        else f"\\u{ord(c):04X}" if ord(c) < 0x10000 else f"\\U{ord(c):08X}" for c in text)
    return f'{prefix}"{plain}"'


def write(name, source, lines):
    with open(os.path.join(ROOT, name), "w", encoding="utf-8") as file:
        file.write(f"// {source}, written by scripts/generate_character_sets.py. Do not edit.\n// clang-format off\n")
        file.write("#pragma once\n\n")
        file.write("\n".join(lines) + "\n")


def single_byte_sets():
    lines = ["#include <string_view>", "", "// The characters of the bytes from 0x80 to the last that has one; U+FFFD for none.",
             "struct SingleByteSet {", "  std::string_view name;", "  std::u16string_view upper;", "};",
             "inline constexpr SingleByteSet kSingleByteSets[] = {"]
    for name, codec in SINGLE_BYTE_SETS.items():
        upper = bytes(range(0x80, 0x100)).decode(codec, errors="replace").rstrip("\uFFFD")
        lines += [f'    {{"{name}",']
        lines += ["     " + literal(upper[at:at + 32], "u") for at in range(0, max(len(upper), 1), 32)]
        lines[-1] += "},"
    return lines + ["};"]


def double_byte_runs(name, page):
    """What the set has beyond the page: stretches of characters whose bytes follow each other."""
    whole, near = Iconv(name), Iconv(page)
    runs, end = [], 0
    for number in range(0x8100, 0xFF00):
        sequence = number.to_bytes(2, "big")
        text = whole.text(sequence)
        # The page has the private characters too, but iconv leaves them out of it.
        if sequence[1] < 0x40 or text == near.text(sequence) or "\uE000" <= text < "\uF900":
            continue
        text = text or "\uFFFD"
        if number == end:
            runs[-1][1].append(text)
        else:
            runs.append((number, [text]))
        end = number + 1
    return runs


def four_byte_runs():
    """(number, code) where a stretch of four-byte characters of the lower 65,536 begins; code 0 where one ends."""
    gb18030 = Iconv("GB18030")
    runs, step = [], 0
    for number in range(39420 + 1):
        places = (number // 12600 + 0x81, number // 1260 % 10 + 0x30, number // 10 % 126 + 0x81, number % 10 + 0x30)
        text = gb18030.text(bytes(places))
        code = ord(text) if text else 0
        if (code - number if code else 0) != step:
            step = code - number if code else 0
            runs.append((number, code))
    return runs


def double_byte_sets():
    lines = ["// What a set has beyond a code page: pairs of bytes that follow each other. U+FFFD takes away what the page has.",
             "struct PairRun {", "  unsigned first;", "  unsigned count;", "  const char* characters;", "};"]
    for name, page in DOUBLE_BYTE_SETS:
        runs = double_byte_runs(name, page)
        print(name, len(runs), "runs", sum(len(texts) for _, texts in runs), "characters")
        lines += ["", f"inline constexpr PairRun k{''.join(c for c in name.title() if c.isalnum())}Beyond{page.title()}[] = {{"]
        for first, texts in runs:
            parts = [literal("".join(texts[at:at + 48])) for at in range(0, len(texts), 48)]
            lines += [f"    {{0x{first:04X}, {len(texts)}, " + "\n     ".join(parts) + "},"]
        lines += ["};"]
    runs = four_byte_runs()
    print(len(runs), "runs of four bytes")
    lines += ["", "// Where a stretch of characters that GB18030 has in four bytes begins, by number; code 0 for none.",
              "struct FourByteRun {", "  char16_t number;", "  char16_t code;", "};",
              "inline constexpr FourByteRun kFourByteRuns[] = {"]
    for at in range(0, len(runs), 8):
        lines += ["    " + " ".join(f"{{{number}, 0x{code:04X}}}," for number, code in runs[at:at + 8])]
    return lines + ["};"]


write("host/framework/single_byte_sets.h", "Character sets of one byte", single_byte_sets())
write("host/platform/double_byte_sets.h", "Character sets that Windows lacks", double_byte_sets())
