#!/usr/bin/env python3
"""Every link between the documents leads to a file that is there, and to a heading in it."""
import re
import sys
from pathlib import Path

from markdown import Code, DocumentError, Table, read_document

ROOT = Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)\s]+)\)")


def anchor_of(title):
    """As a page of the documents names its headings."""
    words = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", title).lower()
    return re.sub(r"[^\w\- ]", "", words).replace(" ", "-")


class Document:
    def __init__(self, path):
        self.sections = read_document(path.read_text(encoding="utf-8"))
        self.anchors = {anchor_of(section.title) for section in self.sections}

    def links(self):
        for section in self.sections:
            for block in section.blocks:
                if isinstance(block, Table):
                    for row in block.rows:
                        yield from ((row.line, link) for cell in row.values() for link in LINK.findall(cell))
                elif not isinstance(block, Code):
                    yield from ((block.line, link) for link in LINK.findall(block.text))


def complain(path, documents):
    for line, link in documents[path].links():
        name, _, anchor = link.partition("#")
        if "://" in name:
            continue
        target = (path.parent / name).resolve() if name else path
        if not target.exists():
            yield f"line {line}: {link} leads nowhere"
        elif anchor and target.suffix == ".md":
            if target not in documents:
                documents[target] = Document(target)
            if anchor not in documents[target].anchors:
                yield f"line {line}: {link} names no heading"


def main():
    paths = sorted([*ROOT.glob("*.md"), *(ROOT / "docs").glob("*.md")])
    documents, count = {}, 0
    for path in paths:
        try:
            documents[path] = Document(path)
        except DocumentError as error:
            print(f"{path.name}: {error}")
            count += 1
    for path in list(documents):
        for complaint in complain(path, documents):
            print(f"{path.name}: {complaint}")
            count += 1
    print(f"{len(documents)} documents, {count} complaints")
    return 1 if count or not documents else 0


if __name__ == "__main__":
    sys.exit(main())
