#!/usr/bin/env python3
"""A folder of inputs of a fuzzer as one file, in hexadecimal, one input a line.

    corpus.py pack FOLDER FILE
    corpus.py unpack FILE FOLDER"""

import hashlib
import pathlib
import sys

command, source, target = sys.argv[1], *map(pathlib.Path, sys.argv[2:])
if command == "pack":
    inputs = sorted((path.read_bytes() for path in source.iterdir()), key=lambda data: (len(data), data))
    target.write_text("".join(data.hex() + "\n" for data in inputs))
else:
    for line in source.read_text().splitlines():
        data = bytes.fromhex(line)
        (target / hashlib.sha1(data).hexdigest()).write_bytes(data)
