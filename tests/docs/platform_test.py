#!/usr/bin/env python3
"""Holds the table "Where the platform is touched" in docs/architecture.md to the calls in src/: each call
of the platform stands in one row, and the row's places are the files and folders that make it.

platform_test.py [DOCUMENT]
"""
import fnmatch
import re
import sys
from pathlib import Path

from markdown import DocumentError, read_document, require_columns
from sources import read_code, source_files

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
PLATFORM_HEADERS = ROOT / "simulation" / "include"
LIBRARY_HEADER = SOURCES / "embedding" / "flutter_library.h"
AUTOMATION_HEADER = SOURCES / "composer" / "uia_interfaces.h"
# Their interfaces by file name; what every interface has, `unknwn.h`, counts for none.
INTERFACE_HEADERS = {path.name: path for path in (AUTOMATION_HEADER, PLATFORM_HEADERS / "spellcheck.h")}
COLUMNS = ["part of Windows", "its calls", "where"]
ENTRY = "wWinMain"  # the platform calls it
SPAN = re.compile(r"`([^`]+)`")
FUNCTION = re.compile(r"\bWINAPI\s+(\w+)\(")
LIBRARY_FUNCTION = re.compile(r"^[\w ]+\*? \*?(\w+)\(", re.MULTILINE)
INTERFACE_METHOD = re.compile(r"\bvirtual\s+\w+\s+STDMETHODCALLTYPE\s+(\w+)\(")
# What is called by its bare name or through a pointer; a name behind a class is somebody else's.
CALL = re.compile(r"(?:(->)|(?<![\w.>:])(?:::)?)(\w+)\(")


def interface_methods():
    """header -> the methods of its interfaces."""
    return {name: set(INTERFACE_METHOD.findall(path.read_text(encoding="utf-8")))
            for name, path in INTERFACE_HEADERS.items()}


def platform_functions():
    names = {name for path in PLATFORM_HEADERS.glob("*.h") for name in FUNCTION.findall(path.read_text(encoding="utf-8"))}
    return (names | set(LIBRARY_FUNCTION.findall(LIBRARY_HEADER.read_text(encoding="utf-8")))) - {ENTRY}


def read_calls(text, functions, methods):
    """The platform's functions and methods that a source calls. Methods are told from functions by "->" in front."""
    calls = set()
    for arrow, name in CALL.findall(text):
        if name in (methods if arrow else functions):
            calls.add(f"->{name}" if arrow else name)
    return calls


class TableRow:
    """One part of Windows: its functions, its methods, and the places that call them, which are folders or files
    without their endings."""

    def __init__(self, row, functions, methods):
        self.line = row.line
        self.part = row["part of Windows"]
        self.places = set(SPAN.findall(row["where"]))
        self.functions, self.methods = set(), set()
        for span in SPAN.findall(row["its calls"]):
            if span in methods:
                self.methods |= methods[span]
            elif found := fnmatch.filter(functions, span):
                self.functions.update(found)
            else:
                raise DocumentError(f"line {self.line}: {span} is no call of the platform")
        if not self.places or not self.functions | self.methods:
            raise DocumentError(f"line {self.line}: a row names calls and places")

    def place_of(self, file):
        """Which of the places has the file; the file's own name where none has."""
        own = str(Path(file).with_suffix(""))
        folder = str(Path(file).parent)
        return own if own in self.places or folder not in self.places else folder


def read_rows(sections, functions, methods):
    tables = [table for section in sections for table in section.tables(COLUMNS[0])]
    if len(tables) != 1:
        raise DocumentError(f"there must be one table of the platform's parts, there are {len(tables)}")
    require_columns(tables[0], COLUMNS)
    return [TableRow(row, functions, methods) for row in tables[0].rows]


def rows_by_call(rows):
    """call -> its row. A method that two interfaces declare has two rows, and is known by its place."""
    owners = {}
    for row in rows:
        for call in row.functions:
            if call in owners:
                raise DocumentError(f"line {row.line}: {call} stands in line {owners[call][0].line}, too")
            owners[call] = [row]
        for method in row.methods:
            owners.setdefault(f"->{method}", []).append(row)
    return owners


def complain(rows, sources, functions, methods):
    """`sources`: file below src/ -> its code."""
    owners = rows_by_call(rows)
    made, callers = set(), {row: set() for row in rows}
    for file, code in sources.items():
        for call in sorted(read_calls(code, functions, set().union(*methods.values()))):
            made.add(call)
            fitting = [row for row in owners.get(call, []) if row.place_of(file) in row.places]
            for row in fitting:
                callers[row].add(row.place_of(file))
            if not fitting:
                yield f"{file} calls {call}, which no row says"
    for row in rows:
        for call in sorted(row.functions - made):
            yield f"line {row.line}: nothing calls {call}"
        for place in sorted(row.places - callers[row]):
            yield f"line {row.line}: {place} calls nothing of this row"


def main():
    path = Path(sys.argv[1]) if len(sys.argv) == 2 else ROOT / "docs" / "architecture.md"
    try:
        functions, methods = platform_functions(), interface_methods()
        rows = read_rows(read_document(path.read_text(encoding="utf-8")), functions, methods)
        sources = {str(file.relative_to(SOURCES)): read_code(file) for file in source_files(SOURCES)
                   if file not in (LIBRARY_HEADER, AUTOMATION_HEADER)}
        complaints = list(complain(rows, sources, functions, methods))
    except DocumentError as error:
        sys.exit(f"{path.name}: {error}")
    for complaint in complaints:
        print(f"{path.name}: {complaint}")
    print(f"{sum(len(row.functions) for row in rows)} functions in {len(rows)} rows, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
