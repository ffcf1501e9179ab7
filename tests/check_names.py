#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Fails on two types of one name: in one program, they would silently lend each other their inline functions, destructors and
moves among them, and no linker says so. Types that a source file keeps to itself are left alone in its unnamed namespace."""

import re
import sys
from collections import defaultdict
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = ("src", "helper", "tool", "tests", "bench")

NAMESPACE = re.compile(r"^(?:inline )?namespace(?: ([\w:]+))? \{")
END_OF_NAMESPACE = re.compile(r"^\} // namespace")
# Declarations ahead, which end in a semicolon, are none.
TYPE = re.compile(r"^(?:class|struct|union|enum class|enum) (?:\[\[\w+\]\] )?((?:\w+::)*\w+)(?!.*;$)")


def types_in(text: str):
    """The full names of the types that may clash with another file's."""
    scopes = []
    for line in text.splitlines():
        if opened := NAMESPACE.match(line):
            scopes.append(opened[1])
        elif END_OF_NAMESPACE.match(line):
            scopes.pop()
        elif (declared := TYPE.match(line)) and None not in scopes:
            yield "::".join((*scopes, declared[1]))


def clashes(sources):
    places = defaultdict(list)
    for source in sources:
        for name in types_in(source.read_text(encoding="utf-8")):
            places[name].append(source)
    return {name: found for name, found in places.items() if len(found) > 1}


def main() -> int:
    sources = [source for folder in FOLDERS for pattern in ("*.h", "*.cpp") for source in sorted((ROOT / folder).rglob(pattern))]
    found = clashes(sources)
    for name, places in sorted(found.items()):
        print(f"{name}: {', '.join(str(place.relative_to(ROOT)) for place in places)}")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
