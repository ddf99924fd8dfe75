#!/usr/bin/env python3
"""Writes a source file that holds the platform's own headers to the simulated ones.

header_checks.py SIMULATED_HEADERS COMPILER OUTPUT

Every number, type, layout, function and interface that the simulated headers declare is asserted:
what a constant expression can say when the file is compiled, the rest as tests. The values come out
of a program that COMPILER, a native one, makes from the simulated headers. Wide characters are
wider there, so what lies behind one in a structure isn't asserted.
"""
import dataclasses
import re
import subprocess
import sys
import tempfile
from pathlib import Path

# Macros that stand for a type or a keyword, and names that only the simulation has.
NO_NUMBERS = {"CALLBACK", "WINAPI", "APIENTRY", "VOID", "STDMETHODCALLTYPE", "REFGUID", "REFIID", "REFCLSID"}
NO_CALLS = {"DECLARE_HANDLE", "_HRESULT_TYPEDEF_"}
# Later editions of the platform's headers have them; this toolchain's don't.
NOT_IN_TOOLCHAIN = {"DWMWA_USE_IMMERSIVE_DARK_MODE", "DWMWA_CAPTION_COLOR", "DWMWA_TEXT_COLOR"}
NO_MEMBERS = {"record", "pvRecord", "pRecInfo"}
WIDE = {"WCHAR", "OLECHAR"}
SAMPLES = ("0x12345678", "0x9ABC", "0xDE")

HEADERS = ("windows", "combaseapi", "dwmapi", "objbase", "objidl", "oleauto", "shellapi", "spellcheck", "unknwn", "io",
           "wchar")


@dataclasses.dataclass
class Declared:
    """What the headers declare, as written."""

    numbers: list = dataclasses.field(default_factory=list)
    macros: list = dataclasses.field(default_factory=list)  # (name, count of parameters)
    types: list = dataclasses.field(default_factory=list)
    structures: dict = dataclasses.field(default_factory=dict)  # name -> members up to the first wide one
    wide: set = dataclasses.field(default_factory=set)  # structures with wide characters in them
    functions: list = dataclasses.field(default_factory=list)  # (name, type)
    pointers: list = dataclasses.field(default_factory=list)  # (name, type)
    methods: list = dataclasses.field(default_factory=list)  # (interface, name, result, parameters)


def read(folder):
    """All headers as one text without comments and with declarations on one line each."""
    text = "\n".join(file.read_text(encoding="utf-8") for file in sorted(folder.glob("*.h")))
    text = re.sub(r"//[^\n]*", "", text)
    return text.replace("\\\n", " ")


def split_body(body):
    """A structure's members and whether they are wide; those of unnamed unions in it are its own."""
    names = []
    body = re.sub(r"struct\s*\{[^{}]*\}\s*\w+\s*;", "", body)
    for statement in re.sub(r"union\s*\{", ";", body).replace("}", ";").split(";"):
        member = re.fullmatch(r"\s*(?:const\s+)?[\w:]+[\s\*]+(\w+)(?:\[\d+\])?\s*", statement)
        if member:
            names.append((member.group(1), statement.split()[0] in WIDE))
    return names


def find_structures(text, declared):
    pattern = r"typedef (?:struct|union)\s*\w*\s*\{((?:[^{}]|\{(?:[^{}]|\{[^{}]*\})*\})*)\}\s*(\w+)"
    for body, name in re.findall(pattern, text):
        narrow = []
        for member, is_wide in split_body(body):
            if is_wide:
                declared.wide.add(name)
                break
            if member not in NO_MEMBERS:
                narrow.append(member)
        declared.structures[name] = narrow


def find_interfaces(text, declared):
    for name, body in re.findall(r"struct (\w+)(?: : IUnknown)? \{([^{}]*virtual[^{}]*)\};", text):
        for result, method, parameters in re.findall(
                r"virtual\s+(\w+)\s+STDMETHODCALLTYPE\s+(\w+)\(([^)]*)\)\s*=\s*0", body):
            declared.methods.append((name, method, result, " ".join(parameters.split())))


def find_all(text):
    declared = Declared()
    for name, parameters, value in re.findall(r"^#define (\w+)(\([^)]*\))?[ \t]*(.*)$", text, re.MULTILINE):
        if parameters and name not in NO_CALLS:
            declared.macros.append((name, parameters.count(",") + 1))
        elif not parameters and value and name not in NO_NUMBERS:
            declared.numbers.append(name)
    text = re.sub(r"^[ \t]*#.*$", "", text, flags=re.MULTILINE)
    for body in re.findall(r"enum \w+ \{([^}]*)\}", text):
        declared.numbers += [name for name in re.findall(r"(\w+)\s*=", body) if name not in NOT_IN_TOOLCHAIN]
    find_structures(text, declared)
    find_interfaces(text, declared)
    for target in re.findall(r"typedef [\w:\s\*]+?[\s\*](\w+);", text):
        if target not in WIDE and "__" not in target:
            declared.types.append(target)
    for result, name, parameters in re.findall(r"typedef (\w+)\(\w*\s*\*\s*(\w+)\)\(([^)]*)\);", text):
        declared.pointers.append((name, f"{result}(*)({' '.join(parameters.split())})"))
    for result, star, name, parameters in re.findall(
            r"(?:^|extern \"C\" )(\w+)(\*?) (?:WINAPI )?(\w+)\(([^();]*)\);", text, re.MULTILINE):
        declared.functions.append((name, f"{result}{star}({' '.join(parameters.split())})"))
    return declared


def calls(declared):
    """Each macro with parameters, called with samples."""
    return [f"{name}({', '.join(SAMPLES[:count])})" for name, count in declared.macros]


def probe(declared):
    """A program that prints what the simulated headers mean: kind, subject and value, parted by tabs."""
    lines = ["#include <cstddef>", "#include <cstdint>", "#include <cstdio>", "#include <cstring>", "#include <type_traits>"]
    lines += [f"#include <{header}.h>" for header in HEADERS]
    lines += ["template <class T> void number(const char* name, T value) {",
              "  long long whole = 0;",
              "  if constexpr (std::is_pointer_v<T>) whole = (long long)(std::uintptr_t)value; else whole = (long long)value;",
              '  std::printf("%s\\t%s\\t%lld\\n", std::is_pointer_v<T> ? "pointer" : "number", name, whole);', "}",
              "void size(const char* what, std::size_t value) { std::printf(\"size\\t%s\\t%zu\\n\", what, value); }",
              "template <class M> void slot(const char* name, M method) {",
              "  std::uintptr_t words[2]; std::memcpy(words, &method, sizeof words);",
              '  std::printf("slot\\t%s\\t%llu\\n", name, (unsigned long long)words[0]);', "}", "int main() {"]
    lines += [f'  number("{text}", {text});' for text in [*declared.numbers, *calls(declared)]]
    for name in declared.types:
        lines.append(f'  size("sizeof({name})", sizeof({name}));')
        lines.append(f'  size("std::is_signed_v<{name}>", std::is_signed_v<{name}>);')
    for name, members in declared.structures.items():
        if name not in declared.wide:
            lines.append(f'  size("sizeof({name})", sizeof({name}));')
        lines += [f'  size("offsetof({name}, {member})", offsetof({name}, {member}));' for member in members]
        lines += [f'  size("sizeof({name}::{member})", sizeof({name}::{member}));' for member in members]
    lines += [f'  slot("{name}::{method}", &{name}::{method});' for name, method, *_ in declared.methods]
    return "\n".join(lines + ["}", ""])


def measure(folder, compiler, declared):
    with tempfile.TemporaryDirectory() as scratch:
        source, program = Path(scratch) / "probe.cpp", Path(scratch) / "probe"
        source.write_text(probe(declared), encoding="utf-8")
        # Only the values are wanted: an offset in a class of the platform's needs no warning here.
        subprocess.run([compiler, "-std=c++20", "-w", "-isystem", folder, source, "-o", program], check=True)
        lines = subprocess.run([program], check=True, capture_output=True, text=True).stdout.splitlines()
    return [line.split("\t") for line in lines]


def write(declared, measured):
    lines = ["// Generated from the simulated headers: see header_checks.py."]
    lines += ["#include <windows.h>"] + [f"#include <{header}.h>" for header in HEADERS if header != "windows"]
    lines += ["", "#include <gtest/gtest.h>", "", "#include <cstddef>", "#include <cstdint>", "#include <cstring>",
              "#include <type_traits>", "", "namespace {", ""]
    # Overloads are told apart by the cast, which finds no method of another type.
    pointers = {f"{name}::{method}": f"static_cast<{result} (STDMETHODCALLTYPE {name}::*)({parameters})>(&{name}::{method})"
                for name, method, result, parameters in declared.methods}
    tests = []
    for kind, subject, value in measured:
        if kind in ("number", "size"):
            lines.append(f'static_assert((long long)({subject}) == {value}LL, "{subject}");')
        elif kind == "pointer":
            tests.append(f"  EXPECT_EQ((long long)(std::uintptr_t)({subject}), {value}LL);")
        else:
            tests.append(f"  EXPECT_EQ(slotOf({pointers[subject]}), {value}u);")
    for name, its_type in declared.functions:
        lines.append(f'static_assert(std::is_same_v<decltype(::{name}), {its_type}>, "{name}");')
    for name, its_type in declared.pointers:
        lines.append(f'static_assert(std::is_same_v<{name}, {its_type}>, "{name}");')
    lines += ["", "// A method's place in its table, as pointers to members tell it.",
              "template <class Method>", "std::uintptr_t slotOf(Method method) {", "  std::uintptr_t words[2];",
              "  static_assert(sizeof words == sizeof method);", "  std::memcpy(words, &method, sizeof words);",
              "  return words[0];", "}", "", "TEST(Headers, PointersAndSlots_AreThePlatforms) {", *tests, "}", "",
              "}  // namespace", ""]
    return "\n".join(lines)


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__.strip())
    folder, compiler, output = Path(sys.argv[1]), sys.argv[2], Path(sys.argv[3])
    declared = find_all(read(folder))
    # A header in another form than this reads would otherwise pass unseen.
    for found, least in ((declared.numbers, 200), (declared.functions, 100), (declared.structures, 15),
                         (declared.methods, 20), (declared.types, 50)):
        if len(found) < least:
            sys.exit(f"header_checks: only {len(found)} found where {least} are expected")
    output.write_text(write(declared, measure(folder, compiler, declared)), encoding="utf-8")


if __name__ == "__main__":
    main()
