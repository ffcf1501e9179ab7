#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Fails where a file uses a class of Qt or a name of the C++ library without a way of its own to the header: the precompiled
headers would hide that until somebody builds without them. Reading what includes what takes a second; compiling every file
by itself takes minutes. Conditions are not read, so a header that only another system includes counts as included."""

import os
import re
import subprocess
import sys
from functools import lru_cache
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FOLDERS = ("src", "tool", "helper", "tests", "bench")
PACKAGES = ("Qt6Core", "Qt6DBus", "Qt6Gui", "Qt6Network", "Qt6Qml", "Qt6Quick", "Qt6QuickTest", "Qt6Svg", "Qt6Test")

# What is looked for by name after `std::`; whatever else there is, a compiler has to find.
LIBRARY = {
    "algorithm": "all_of any_of clamp copy count_if equal find find_if max max_element min min_element none_of remove_if "
                 "replace reverse sort transform unique",
    "array": "array to_array",
    "atomic": "atomic atomic_flag",
    "charconv": "from_chars to_chars",
    "chrono": "chrono",
    "cmath": "abs isfinite isinf isnan lround round",
    "cstdint": "int8_t int16_t int32_t int64_t uint8_t uint16_t uint32_t uint64_t",
    "cstring": "memcmp memcpy memset strerror strlen",
    "deque": "deque",
    "filesystem": "filesystem",
    "fstream": "ifstream ofstream",
    "functional": "bind_front function greater hash invoke less",
    "iterator": "back_inserter distance inserter next prev",
    "limits": "numeric_limits",
    "map": "map multimap",
    "memory": "addressof default_delete enable_shared_from_this make_shared make_unique shared_ptr unique_ptr weak_ptr",
    "mutex": "lock_guard mutex scoped_lock unique_lock",
    "numeric": "accumulate iota",
    "optional": "make_optional nullopt optional",
    "ranges": "views",
    "set": "multiset set",
    "span": "span",
    "sstream": "istringstream ostringstream stringstream",
    "string": "getline string stod stoi to_string",
    "string_view": "string_view",
    "system_error": "error_code system_category",
    "tuple": "tie tuple",
    "unordered_map": "unordered_map",
    "unordered_set": "unordered_set",
    "utility": "as_const exchange forward in_place move pair swap",
    "variant": "get_if holds_alternative monostate variant visit",
    "vector": "vector",
}
HEADER_OF = {name: header for header, names in LIBRARY.items() for name in names.split()}
HEADER_OF["ranges"] = "algorithm"
# What Qt has in the header of a class with another name.
CLASS_OF = {name: header for header, names in {
    "QCoreApplication": "qApp",
    "QLoggingCategory": "Q_DECLARE_LOGGING_CATEGORY Q_LOGGING_CATEGORY qCCritical qCDebug qCInfo qCWarning",
    "QObject": "Q_EMIT Q_OBJECT Q_PROPERTY Q_SIGNALS Q_SLOTS qobject_cast",
    "QString": "qPrintable qUtf8Printable",
    "QVariant": "QVariantHash QVariantList QVariantMap",
}.items() for name in names.split()}

PRECOMPILED = re.compile(r"(?:set\(TARVIK_PRECOMPILED_HEADERS|target_precompile_headers\(\S+ PRIVATE)\s([^)]*)\)")
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include(?:_next)?[ \t]*[<"]([^>"\n]+)[>"]', re.MULTILINE)
NOT_CODE = re.compile(r'R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*', re.DOTALL | re.MULTILINE)
QT_NAME = re.compile(r"(?<![\w:])[Qq][A-Z_o]\w*")
FORWARD = re.compile(r"^(?:class|struct) (Q\w+);", re.MULTILINE)
LIBRARY_NAME = re.compile(r"\bstd::(\w+)")


def directories() -> list[Path]:
    """Where the compiler looks for what is included with angle brackets."""
    words = subprocess.check_output(["pkg-config", "--cflags-only-I", *PACKAGES], text=True).split()
    said = subprocess.run(
        ["c++", "-x", "c++", "-E", "-v", os.devnull],
        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=True, env={**os.environ, "LC_ALL": "C"},
    ).stderr
    system = re.findall(r"^ (/.+)$", said.partition("#include <...>")[2].partition("End of search")[0], re.MULTILINE)
    return [ROOT / "src", ROOT / "tests", *(Path(word.removeprefix("-I")) for word in words), *map(Path, system)]


DIRECTORIES = directories()


@lru_cache(maxsize=None)
def in_directories(name: str) -> Path | None:
    return next((path for path in (each / name for each in DIRECTORIES) if path.is_file()), None)


@lru_cache(maxsize=None)
def text_of(path: Path) -> str:
    return path.read_text(encoding="utf-8", errors="replace")


@lru_cache(maxsize=None)
def included_by(path: Path) -> list[Path]:
    found = []
    for name in INCLUDE.findall(text_of(path)):
        beside = path.parent / name
        target = beside if beside.is_file() else in_directories(name)
        if target:
            found.append(Path(os.path.normpath(target)))
    return found


def reachable_from(*sources: Path) -> set[Path]:
    reached, waiting = set(sources), [*sources]
    while waiting:
        for each in included_by(waiting.pop()):
            if each not in reached:
                reached.add(each)
                waiting.append(each)
    return reached


@lru_cache(maxsize=None)
def header_of_class(name: str) -> Path | None:
    """Where Qt declares it: the header named like it only leads there."""
    leading = in_directories(CLASS_OF.get(name, name))
    return next(iter(included_by(leading)), None) if leading else None


def precompiled() -> set[Path]:
    """What our own sources get without asking; those that are made of QML have other headers."""
    texts = (text_of(ROOT / name) for name in ("cmake/TarvikOptions.cmake", "tests/CMakeLists.txt"))
    names = {name for text in texts for block in PRECOMPILED.findall(text) for name in re.findall(r"<([\w./]+)>", block)}
    if not names:
        sys.exit("No precompiled headers are found.")
    return reachable_from(*(path for path in map(in_directories, names) if path))


HIDDEN = precompiled()


def violations(source: Path):
    hidden = HIDDEN - reachable_from(source)
    code = NOT_CODE.sub(" ", text_of(source))
    for name in sorted(set(QT_NAME.findall(code)) - set(FORWARD.findall(code))):
        header = header_of_class(name)
        if header in hidden:
            yield name, CLASS_OF.get(name, name)
    for name in sorted(set(LIBRARY_NAME.findall(code))):
        header = HEADER_OF.get(name)
        if header and in_directories(header) in hidden:
            yield f"std::{name}", header


def main() -> int:
    found = False
    sources = (path for folder in FOLDERS for path in (ROOT / folder).rglob("*") if path.suffix in (".h", ".cpp"))
    for source in sorted(sources):
        for name, header in violations(source):
            print(f"{source.relative_to(ROOT)}: uses {name} without <{header}>")
            found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
