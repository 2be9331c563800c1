"""Writes, for compilers without aliases, the exports that are aliases elsewhere (frame/flag.h): each calls the function
that does its work. Arguments: the file to write, the sources to look through."""
import re
import sys

WORKER = re.compile(r'^extern "C" ([\w:]+[ *&]+)flagged_(\w+)\(([^)]*)\) \{', re.MULTILINE)
result, sources = sys.argv[1], sys.argv[2:]
functions = []
for source in sources:
    with open(source, encoding="utf-8") as file:
        text = file.read()
    found = WORKER.findall(text)
    if {name for _, name, _ in found} != set(re.findall(r'gnu::alias\(\s*"flagged_(\w+)"', text)):
        sys.exit(f"{source}: each flagged_ function has one alias, and each alias one such function")
    for kind, name, parameters in found:
        parameters = re.sub(r"/\*(\w+)\*/", r"\1", " ".join(parameters.split()))
        passed = [
            f"static_cast<Flag>(is_set({part.split()[-1]}))" if part.startswith("Flag ") else part.split()[-1].lstrip("*&")
            for part in re.split(r", (?![^<]*>)", parameters)
        ]
        functions.append(f'extern "C" {kind}flagged_{name}({parameters});\n'
                         f"{kind}{name}({parameters.replace('Flag ', 'bool ')}) {{\n"
                         f"  return flagged_{name}({', '.join(passed)});\n}}\n")
with open(result, "w", encoding="utf-8") as file:
    file.write('#include <rytree_Utils.h>\n\n#include "frame/flag.h"\n\n' + "\n".join(functions))
