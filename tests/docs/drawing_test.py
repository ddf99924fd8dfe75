#!/usr/bin/env python3
"""Holds the drawing of rooms in docs/architecture.md to what the files of src/ include.

drawing_test.py [DOCUMENT]
"""
import re
import sys
from pathlib import Path

from markdown import DocumentError, read_document
from sources import read_includes, source_files

ROOT = Path(__file__).resolve().parents[2]
SOURCES = ROOT / "src"
NODE = r'(\w+)(?:\["([^"]+)"\])?'
ARROW = re.compile(rf"\s*{NODE} --> {NODE}\s*")


class Drawing:
    """Nodes, each a folder or a part of one, and the arrows between them."""

    def __init__(self, code):
        lines = code.text.split("\n")
        if lines[0].strip() != "graph TD":
            raise DocumentError(f"line {code.line}: the drawing must be a graph TD")
        self.labels = {}
        self.arrows = set()
        for number, line in enumerate(lines[1:], code.line + 2):
            arrow = ARROW.fullmatch(line)
            if not arrow:
                raise DocumentError(f"line {number}: {line.strip()!r} is no arrow")
            self.label(arrow.group(1), arrow.group(2), number)
            self.label(arrow.group(3), arrow.group(4), number)
            pair = (arrow.group(1), arrow.group(3))
            if pair in self.arrows:
                raise DocumentError(f"line {number}: the arrow is drawn twice")
            self.arrows.add(pair)

    def label(self, node, label, number):
        if label is None:
            return
        if self.labels.setdefault(node, label) != label:
            raise DocumentError(f"line {number}: {node} has two labels")

    def nodes(self):
        return sorted({node for arrow in self.arrows for node in arrow})

    def parts(self):
        """folder -> [(node, the words behind the folder's name)]"""
        parts = {}
        for node in self.nodes():
            folder, _, words = self.labels.get(node, node).partition("<br/>")
            parts.setdefault(folder, []).append((node, [word.strip() for word in words.split(",") if word.strip()]))
        return parts


def assign_files(drawing, files):
    """file -> node. Of a folder in two parts one names its files, and the other one has the rest."""
    nodes = {}
    by_folder = {}
    for file in files:
        by_folder.setdefault(file.split("/")[0], []).append(file)
    parts = drawing.parts()
    if set(parts) != set(by_folder):
        raise DocumentError(f"drawn are {sorted(parts)}, there are {sorted(by_folder)}")
    for folder, own_files in by_folder.items():
        stems = {Path(file).stem for file in own_files}
        naming = [(node, words) for node, words in parts[folder] if words and set(words) <= stems]
        rest = [node for node, words in parts[folder] if (node, words) not in naming]
        if len(rest) != 1:
            raise DocumentError(f"{folder}: all parts but one must name their files, and {len(rest)} don't")
        for file in own_files:
            owners = [node for node, words in naming if Path(file).stem in words] or rest
            if len(owners) != 1:
                raise DocumentError(f"{file} stands in two parts")
            nodes[file] = owners[0]
    return nodes


def arrows_of_sources(nodes):
    """(node, node) -> an include that makes it so."""
    arrows = {}
    for file, node in nodes.items():
        for included in read_includes(SOURCES / file):
            if included not in nodes:
                raise DocumentError(f"{file} includes {included}, which is no file of src/")
            if nodes[included] != node:
                arrows.setdefault((node, nodes[included]), f"{file} includes {included}")
    return arrows


def find_circle(arrows):
    """Nodes that lead back to where they begin; empty when there are none."""
    next_nodes = {}
    for begin, end in arrows:
        next_nodes.setdefault(begin, set()).add(end)
    remaining = set(next_nodes)
    while free := {node for node in remaining if not next_nodes[node] & remaining}:
        remaining -= free
    return sorted(remaining)


def complain(drawing):
    files = [str(path.relative_to(SOURCES)) for path in source_files(SOURCES)]
    arrows = arrows_of_sources(assign_files(drawing, files))
    for pair in sorted(set(arrows) - drawing.arrows):
        yield f"{pair[0]} --> {pair[1]} isn't drawn, but {arrows[pair]}"
    for begin, end in sorted(drawing.arrows - set(arrows)):
        yield f"{begin} --> {end} is drawn, and nothing includes that way"
    if circle := find_circle(drawing.arrows):
        yield f"a circle leads through {', '.join(circle)}"


def main():
    path = Path(sys.argv[1]) if len(sys.argv) == 2 else ROOT / "docs" / "architecture.md"
    try:
        sections = read_document(path.read_text(encoding="utf-8"))
        drawings = [code for section in sections for code in section.codes("mermaid")]
        if len(drawings) != 1:
            raise DocumentError(f"there must be one drawing, there are {len(drawings)}")
        drawing = Drawing(drawings[0])
        complaints = list(complain(drawing))
    except DocumentError as error:
        sys.exit(f"{path.name}: {error}")
    for complaint in complaints:
        print(f"{path.name}: {complaint}")
    print(f"{len(drawing.arrows)} arrows between {len(drawing.nodes())} nodes, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
