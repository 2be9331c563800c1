#!/usr/bin/env python3
"""Writes the table of opcodes: every export and every public operation of the node class, from their headers.

    generate.py OUTPUT HINTS EXPORTS NODE_HEADER PUBLIC_HEADER...

A declaration that it cannot read, an export without one, and a hint for what is not there are errors."""

import collections
import re
import shlex
import sys

NODE = "RYXmlWrapperBase"
SETTINGS = {"ok", "under", "most"}  # what a line can set besides parameters
Function = collections.namedtuple("Function", "name result parameters const")  # parameters: (type, name)


def fail(message):
    sys.exit(f"generate.py: {message}")


# ---- Headers.

def read_code(path):
    """The text of a header without comments, preprocessor lines and line breaks."""
    with open(path, encoding="utf-8") as file:
        text = re.sub(r"//.*", "", file.read())
    return re.sub(r"\s+", " ", re.sub(r"(?m)^\s*#.*", "", text))


def read_parameter(text):
    text = re.sub(r" = .*", "", text.strip())
    found = re.fullmatch(r"(.+[\s*&>])(\w+)", text)
    if not found or found[2] in ("int", "bool", "char", "double"):
        return text, "_"
    return found[1].strip(), found[2]


def read_function(text, prefix=""):
    found = re.fullmatch(r"(?:virtual |static |explicit )*([\w ]+?[ *&]+)(\w+)\((.*)\)( const)?(?: override| noexcept)*"
                         r"(?: RYTREE_\w+)?", text.strip())
    if not found:
        fail(f"cannot read this declaration: {text}")
    parameters = [read_parameter(part) for part in re.split(r",(?![^<]*>)", found[3]) if part.strip()]
    return Function(prefix + found[2], found[1].strip(), parameters, bool(found[4]))


def exports_of(code):
    """The exported functions of a header, and the names of its exported classes."""
    functions = []
    for at in re.finditer(r"\bRYTREE_API (?!\w+ (?:final )?[:{])", code):
        functions.append(read_function(code[at.end():code.index(";", at.end())]))
    return functions, re.findall(r"class RYTREE_API (\w+)", code)


def operations_of(code):
    """The public operations of the node class. Those on handles, such as copies, are in one adapter."""
    start = code.index(f"class RYTESAVC_API {NODE} ")
    body = code[code.index("public:", start) + 7:code.index("private:", start)]
    while "{" in body:
        body = re.sub(r"(?:\) (?:: [^;{}]*?\)) ?)?\{[^{}]*\}", lambda match: ");" if match[0][0] == ")" else ";", body)
    for declaration in re.split(r";", body):
        declaration = declaration.replace("[[nodiscard]] ", "").strip()
        if declaration and not re.match(rf"~?{NODE}\(|.*\boperator\W|{NODE}\(", declaration):
            operation = read_function(declaration, NODE + "::")
            if not declaration.startswith("static "):
                operation.parameters.insert(0, (NODE + "&", "self"))
            yield operation


# ---- Hints.

def expand(text):
    """Node IDs and repetitions written out: <a@4>, {x*100}, { n#="1"*3}."""
    text = re.sub(r"(<\w+)@(-?\d+)", r'\1 _NodeID="\2"', text)
    return re.sub(r"\{([^{}]+)\*(\d+)\}",
                  lambda match: "".join(match[1].replace("#", str(i)) for i in range(int(match[2]))), text)


def read_hints(path):
    """The shapes by name, and the lines by the function they are for: dictionaries of values by parameter."""
    shapes, hints = {}, collections.defaultdict(list)
    with open(path, encoding="utf-8") as file:
        text = re.sub(r"\n +", " ", file.read())
    for line in text.splitlines():
        if line.startswith("shape "):
            _, name, xml = line.split(" ", 2)
            shapes[name] = expand(xml)
        elif line and line[0] != "#":
            function, *values = shlex.split(line.replace("\\", "\\\\"))
            hints[function].append({key: expand(value) for key, value in (part.split("=", 1) for part in values)})
    return shapes, hints


# ---- The table.

def literal(text):
    """A C string of the bytes; \\x83 is one of them."""
    data = re.sub(rb"\\x(..)", lambda match: bytes([int(match[1], 16)]), text.encode())
    return '"' + "".join(chr(byte) if 32 <= byte < 127 and byte not in b'"\\?' else f"\\{byte:03o}" for byte in data) + '"'


def opcode(function, adapted, hints):
    """The lines of one opcode, and the values in it."""
    names = [name for _, name in function.parameters]
    common = {key: value for line in hints["*"] for key, value in line.items()}
    mine = [line for line in hints[function.name] if set(line) <= {*names, *SETTINGS}] or [{}]
    rows = [[{**common, **line}.get(name, "") for name in names] for line in mine]
    lines = [f"      {{{literal(function.name)},"]
    texts = [", ".join(map(literal, row)) for row in rows]
    least = ["kChange" if function.result == "void" else line.get("ok", "1") for line in mine]
    settings = [f"{ok}, {line.get('under', 0)}, {line.get('most', 'INT_MAX')}" for ok, line in zip(least, mine)]
    lines.append("       {" + ", ".join(f"{{{setting}, {{{text}}}}}" for setting, text in zip(settings, texts)) + "},")
    types = [type for type, name in function.parameters if name != "self"]
    member = names[:1] == ["self"]
    if adapted:
        lines.append(f"       [](Call& call) {{ call.make(&adapted::{function.name}); }}}},")
    else:
        const = " const" if function.const else ""
        lines.append(f"       [](Call& call) {{ call.make(static_cast<{function.result} "
                     f"({NODE + '::' if member else ''}*)({', '.join(types)}){const}>(&{function.name})); }}}},")
    return lines, rows


def main(output, hints_path, exports_path, node_header, *headers):
    shapes, hints = read_hints(hints_path)
    functions, classes = [], []
    for header in headers:
        some, more = exports_of(read_code(header))
        functions += some
        classes += more
    with open(exports_path, encoding="utf-8") as file:
        listed = [re.match(r"\w+(::)?", line)[0] for line in file]
    members = {name for name in listed if name.endswith("::")}
    declared = collections.Counter([function.name for function in functions] + [name + "::" for name in classes])
    exported = collections.Counter([name for name in listed if name not in members] + list(members))
    if declared != exported:
        fail(f"declared and exported differ: {(declared - exported) + (exported - declared)}")

    # What takes variable arguments, is a class or works on handles is called through an adapter.
    open_ended = {"...", "va_list"}
    table = []
    for function in functions:
        adapted = not open_ended.isdisjoint(type for type, _ in function.parameters) or function.parameters[-1:] == [("...", "_")]
        tags = [("const char*", "second"), ("const char*", "third")] if adapted else []
        kept = [parameter for parameter in function.parameters if parameter[0] not in open_ended]
        table.append((function._replace(parameters=kept + tags), adapted))
    handle = (NODE + "&", "tree")
    for name in classes:
        table.append((Function(name, "int", [handle, (NODE + "&", "out")], False), True))
    exports = len(table)
    table.append((Function("handles", "int", [handle, (NODE + "&", "other")], False), True))
    table += [(operation, False) for operation in operations_of(read_code(node_header))]

    for name, lines in hints.items():
        known = [{name for _, name in function.parameters} for function, _ in table if name in (function.name, "*")]
        for line in lines:
            if name == "*" and not set(line) <= set.union(*known):
                fail(f"no function has all these parameters: {set(line) - set.union(*known)}")
            if name != "*" and not any(set(line) <= names | SETTINGS for names in known):
                fail(f"{name} has no such parameters: {' '.join(line)}")
    lines, words = [], set()
    for function, adapted in table:
        more, rows = opcode(function, adapted, hints)
        lines += more
        words.update(value for row in rows for value in row)
    for xml in shapes.values():
        words.update(re.findall(r"[\w]+", xml))
    # A call with a number between these as a count would be right, and slow.
    numbers = {int(word) for word in words if re.fullmatch(r"-?\d{1,9}", word)} - set(range(2000, 1 << 20))
    with open(output, "w", encoding="utf-8") as file:
        file.write("// Written by generate.py: change that or hints.txt.\n")
        file.write('#include "fuzz/calls/adapters.h"\n#include "fuzz/calls/call.h"\n\nnamespace calls {\n\n')
        file.write("const std::vector<Shape>& shapes() {\n  static const std::vector<Shape> all = {\n")
        file.writelines(f"      {{{literal(name)}, {literal(xml)}}},\n" for name, xml in shapes.items())
        file.write("  };\n  return all;\n}\n\nconst std::vector<const char*>& words() {\n"
                   "  static const std::vector<const char*> all = {\n")
        file.writelines(f"      {literal(word)},\n" for word in sorted(words))
        file.write("  };\n  return all;\n}\n\nconst std::vector<int>& numbers() {\n"
                   "  static const std::vector<int> all = {\n")
        file.writelines(f"      {number},\n" for number in sorted(numbers))
        file.write("  };\n  return all;\n}\n\nconst std::vector<Opcode>& opcodes() {\n"
                   "  static const std::vector<Opcode> all = {\n")
        file.write("\n".join(lines))
        file.write(f"\n  }};\n  return all;\n}}\n\nstd::size_t export_count() {{ return {exports}; }}\n\n}}  // namespace calls\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
