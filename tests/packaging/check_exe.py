#!/usr/bin/env python3
"""Reads a Windows program's file and says what of it isn't as it ships.

check_exe.py kind|imports|resources|tool PROGRAM --version X.Y.Z --root SOURCE_TREE
"""
import argparse
import re
import struct
import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path

# Libraries that every Windows 10 brings.
SYSTEM_LIBRARIES = {
    "advapi32.dll", "dwmapi.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll",
    "shell32.dll", "user32.dll",
}
DEFINITION_FILES = ("flutter_windows.def", "desktop_drop_plugin.def", "url_launcher_windows_plugin.def",
                    "webview_windows_plugin.def")
INTERFACE_HEADER = "src/embedding/flutter_library.h"

ICON_GROUP_ID = 101
ICON_SIDES_PIXELS = [16, 32, 48, 256]
ICON_TYPE, ICON_GROUP_TYPE, VERSION_TYPE, MANIFEST_TYPE = 3, 14, 16, 24
X64_MACHINE, PE32_PLUS_MAGIC, WINDOWS_SUBSYSTEM, CONSOLE_SUBSYSTEM = 0x8664, 0x20B, 2, 3
VERSION_SIGNATURE = 0xFEEF04BD


class Program:
    """A 64-bit Windows program's file: its header, imports and resources."""

    def __init__(self, data):
        self.data = data
        header = self.number("<I", 0x3C)
        if data[:2] != b"MZ" or data[header:header + 4] != b"PE\0\0":
            raise ValueError("not a Windows program")
        self.machine, section_count = struct.unpack_from("<HH", data, header + 4)
        optional_size = self.number("<H", header + 20)
        optional = header + 24
        self.magic = self.number("<H", optional)
        self.subsystem = self.number("<H", optional + 68)
        self.directories = [struct.unpack_from("<II", data, optional + 112 + 8 * i) for i in range(16)]
        table = optional + optional_size
        self.sections = [struct.unpack_from("<IIII", data, table + 40 * i + 8) for i in range(section_count)]

    def number(self, form, offset):
        return struct.unpack_from(form, self.data, offset)[0]

    def offset(self, address):
        """The place in the file of what is loaded at `address`."""
        for size, start, raw_size, raw_start in self.sections:
            if start <= address < start + max(size, raw_size):
                return raw_start + address - start
        raise ValueError(f"address {address:#x} lies in no section")

    def text(self, address):
        start = self.offset(address)
        return self.data[start:self.data.index(b"\0", start)].decode("ascii")

    def imports(self):
        """Library name in lower case -> names of its functions; an ordinal stands as "#n"."""
        found = {}
        entry = self.offset(self.directories[1][0])
        while True:
            lookup, _, _, name, addresses = struct.unpack_from("<IIIII", self.data, entry)
            if name == 0:
                return found
            functions = found.setdefault(self.text(name).lower(), set())
            thunk = self.offset(lookup or addresses)
            while (value := self.number("<Q", thunk)) != 0:
                functions.add(f"#{value & 0xFFFF}" if value >> 63 else self.text(value + 2))
                thunk += 8
            entry += 20

    def resource(self, kind, name):
        """The bytes of a resource in its first language; None where there is none."""
        base = self.offset(self.directories[2][0]) if self.directories[2][0] else None
        place = 0
        for wanted in (kind, name, None):
            if base is None or place is None:
                return None
            place = self.resource_entry(base, place, wanted)
        if place is None:
            return None
        address, size = struct.unpack_from("<II", self.data, base + place)
        start = self.offset(address)
        return self.data[start:start + size]

    def resource_entry(self, base, directory, wanted):
        named, numbered = struct.unpack_from("<HH", self.data, base + directory + 12)
        for i in range(named + numbered):
            key, place = struct.unpack_from("<II", self.data, base + directory + 16 + 8 * i)
            if wanted is None or key == wanted:
                return place & 0x7FFFFFFF
        return None


def check_kind(program, _root, _version):
    if program.machine != X64_MACHINE or program.magic != PE32_PLUS_MAGIC:
        yield "not a program for 64-bit Windows"
    if program.subsystem != WINDOWS_SUBSYSTEM:
        yield f"subsystem {program.subsystem} instead of {WINDOWS_SUBSYSTEM}: it would open a console"


def read_definitions(path):
    """The library's name in lower case and the functions that it exports."""
    lines = [line.strip() for line in path.read_text().splitlines() if line.strip()]
    functions = lines[lines.index("EXPORTS") + 1:]
    return lines[0].removeprefix("LIBRARY").strip().lower(), set(functions)


def check_imports(program, root, _version):
    imports = program.imports()
    declared = set(re.findall(r"\b(\w+)\([^()]*(?:\([^()]*\)[^()]*)*\);", (root / INTERFACE_HEADER).read_text()))
    exported = set()
    ours = set()
    for file in DEFINITION_FILES:
        library, functions = read_definitions(root / "packaging" / file)
        ours.add(library)
        exported |= functions
        imported = imports.get(library, set())
        yield from (f"{library}: {name} isn't imported" for name in sorted(functions - imported))
        yield from (f"{library}: {name} isn't in packaging/{file}" for name in sorted(imported - functions))
    declared = {name for name in declared if name.startswith("FlutterDesktop") or name.endswith("WithRegistrar")}
    yield from (f"{name} is declared in {INTERFACE_HEADER} and in no .def file" for name in sorted(declared - exported))
    yield from (f"{name} is in a .def file and not in {INTERFACE_HEADER}" for name in sorted(exported - declared))
    yield from strange_libraries(imports.keys() - ours)


def strange_libraries(libraries):
    for library in sorted(libraries - SYSTEM_LIBRARIES):
        if not library.startswith("api-ms-win-crt-"):
            yield f"{library} is no library of Windows"


def check_icon(program):
    group = program.resource(ICON_GROUP_TYPE, ICON_GROUP_ID)
    if group is None:
        yield f"no icon group {ICON_GROUP_ID}"
        return
    count = struct.unpack_from("<HHH", group)[2]
    sides = []
    for i in range(count):
        side, _, _, _, _, _, size, name = struct.unpack_from("<BBBBHHIH", group, 6 + 14 * i)
        sides.append(side or 256)
        image = program.resource(ICON_TYPE, name)
        if image is None or len(image) != size:
            yield f"icon group {ICON_GROUP_ID}: the picture of {side or 256} pixels is missing or cut"
    if sorted(sides) != ICON_SIDES_PIXELS:
        yield f"icon group {ICON_GROUP_ID} has the sides {sorted(sides)} instead of {ICON_SIDES_PIXELS}"


def check_manifest(program):
    manifest = program.resource(MANIFEST_TYPE, 1)
    if manifest is None:
        yield "no manifest"
        return
    tree = ElementTree.fromstring(manifest.decode("utf-8").strip("\0 \r\n"))
    awareness = [node.text for node in tree.iter() if node.tag.endswith("}dpiAwareness")]
    levels = [node.get("level") for node in tree.iter() if node.tag.endswith("}requestedExecutionLevel")]
    if awareness != ["PerMonitorV2"]:
        yield f"the manifest's dpiAwareness is {awareness}"
    if levels != ["asInvoker"]:
        yield f"the manifest's requestedExecutionLevel is {levels}"


def check_version(program, version):
    block = program.resource(VERSION_TYPE, 1)
    start = block.find(struct.pack("<I", VERSION_SIGNATURE)) if block else -1
    if start < 0:
        yield "no version block"
        return
    wanted = tuple(int(part) for part in version.split(".")) + (0,)
    for what, offset in (("file", 8), ("product", 16)):
        high, low = struct.unpack_from("<II", block, start + offset)
        numbers = (high >> 16, high & 0xFFFF, low >> 16, low & 0xFFFF)
        if numbers != wanted:
            yield f"the {what} version is {numbers} instead of {wanted}"
    for name in ("FileVersion", "ProductVersion"):
        if not re.search(re.escape((name + "\0").encode("utf-16-le")) + rb"(?:\0\0)?"
                         + re.escape((version + "\0").encode("utf-16-le")), block):
            yield f'the text of {name} isn\'t "{version}"'


def check_resources(program, _root, version):
    yield from check_icon(program)
    yield from check_manifest(program)
    yield from check_version(program, version)


def check_tool(program, _root, version):
    """The tool beside the program: a console program that needs nothing but Windows."""
    if program.machine != X64_MACHINE or program.magic != PE32_PLUS_MAGIC:
        yield "not a program for 64-bit Windows"
    if program.subsystem != CONSOLE_SUBSYSTEM:
        yield f"subsystem {program.subsystem} instead of {CONSOLE_SUBSYSTEM}: it would print nothing"
    yield from strange_libraries(program.imports().keys())
    yield from check_manifest(program)
    yield from check_version(program, version)


CHECKS = {"kind": check_kind, "imports": check_imports, "resources": check_resources, "tool": check_tool}


def complaints(subject, data, root, version):
    """What is wrong with the program in `data`, a line each."""
    try:
        return list(CHECKS[subject](Program(data), root, version))
    except (ValueError, IndexError, struct.error, ElementTree.ParseError) as error:
        return [f"unreadable: {error}"]


def main():
    parser = argparse.ArgumentParser(description="Checks a Windows program's file.")
    parser.add_argument("subject", choices=CHECKS)
    parser.add_argument("program", type=Path)
    parser.add_argument("--version", required=True)
    parser.add_argument("--root", type=Path, required=True)
    options = parser.parse_args()
    found = complaints(options.subject, options.program.read_bytes(), options.root, options.version)
    for line in found:
        print(f"{options.program.name}: {line}", file=sys.stderr)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
