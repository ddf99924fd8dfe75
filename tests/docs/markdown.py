"""Reads the tables and examples of a document. Strictly: what looks like a table and can't be read as
one, or a cell that isn't of the form it must have, is an error with its line."""
import re

SPAN = re.compile(r"`+")
HEADING = re.compile(r"(#{1,6}) (.+?)$")
RULE = re.compile(r"\|(?: ?:?-{3,}:? ?\|)+$")


class DocumentError(Exception):
    """What a document says can't be read, or isn't so."""


class Table:
    """The rows of one table; each row knows its line and its cells by the heading of their column."""

    def __init__(self, line, columns):
        self.line = line
        self.columns = columns
        self.rows = []


class Row(dict):
    def __init__(self, line, cells):
        super().__init__(cells)
        self.line = line


class Code:
    def __init__(self, line, language, text):
        self.line = line
        self.language = language
        self.text = text


class Text:
    def __init__(self, line, text):
        self.line = line
        self.text = text


class Section:
    """A heading with what stands below it, up to the next heading of any level."""

    def __init__(self, line, level, title):
        self.line = line
        self.level = level
        self.title = title
        self.blocks = []

    def tables(self, first_column):
        return [block for block in self.blocks if isinstance(block, Table) and block.columns[0] == first_column]

    def codes(self, language):
        return [block for block in self.blocks if isinstance(block, Code) and block.language == language]

    def texts(self):
        return [block for block in self.blocks if isinstance(block, Text)]


def split_cells(line, number):
    """The cells of `| a | b |`. A bar inside a cell is written `\\|`."""
    if not line.startswith("|") or not line.rstrip().endswith("|") or len(line.rstrip()) < 2:
        raise DocumentError(f"line {number}: a table's row begins and ends with a bar")
    inner = line.rstrip()[1:-1]
    cells = [cell.replace("\\|", "|").strip() for cell in re.split(r"(?<!\\)\|", inner)]
    for cell in cells:
        if len(SPAN.findall(cell)) % 2:
            raise DocumentError(f"line {number}: a code span is left open in {cell!r}")
    return cells


def read_table(lines, start):
    """The table that begins at lines[start], and the index behind it."""
    columns = split_cells(lines[start], start + 1)
    if start + 1 >= len(lines) or not RULE.match(lines[start + 1]):
        raise DocumentError(f"line {start + 1}: a table's second line is its rule of dashes")
    if len(split_cells(lines[start + 1], start + 2)) != len(columns):
        raise DocumentError(f"line {start + 2}: the rule has another number of columns than the heading")
    if len(set(columns)) != len(columns):
        raise DocumentError(f"line {start + 1}: two columns have the same heading")
    table = Table(start + 1, columns)
    index = start + 2
    while index < len(lines) and lines[index].lstrip().startswith("|"):
        cells = split_cells(lines[index], index + 1)
        if len(cells) != len(columns):
            raise DocumentError(f"line {index + 1}: {len(cells)} cells under {len(columns)} headings")
        table.rows.append(Row(index + 1, dict(zip(columns, cells))))
        index += 1
    if not table.rows:
        raise DocumentError(f"line {start + 1}: a table without a row")
    return table, index


def read_code(lines, start):
    end = start + 1
    while end < len(lines) and lines[end].rstrip() != "```":
        end += 1
    if end == len(lines):
        raise DocumentError(f"line {start + 1}: a code block is left open")
    return Code(start + 1, lines[start][3:].strip(), "\n".join(lines[start + 1 : end])), end + 1


def read_document(text):
    """All sections in their order; what stands above the first heading is a section of level 0."""
    lines = text.split("\n")
    sections = [Section(1, 0, "")]
    index = 0
    while index < len(lines):
        line = lines[index]
        if heading := HEADING.match(line):
            sections.append(Section(index + 1, len(heading.group(1)), heading.group(2)))
            index += 1
        elif line.startswith("```"):
            block, index = read_code(lines, index)
            sections[-1].blocks.append(block)
        elif line.lstrip().startswith("|"):
            block, index = read_table(lines, index)
            sections[-1].blocks.append(block)
        elif line.strip():
            sections[-1].blocks.append(Text(index + 1, line.strip()))
            index += 1
        else:
            index += 1
    return sections


def code_of(cell, line):
    """The text of a cell that is one code span and nothing else."""
    match = re.fullmatch(r"`([^`]+)`", cell)
    if not match:
        raise DocumentError(f"line {line}: {cell!r} must be one code span")
    return match.group(1)


def require_columns(table, columns):
    if table.columns != columns:
        raise DocumentError(f"line {table.line}: the columns must be {', '.join(columns)}")
