"""What docs/traces.md says: the steps of a trace and their results, as patterns."""
import re

from markdown import DocumentError, code_of, read_document, require_columns

STEP_COLUMNS = ["step", "result", "meaning", "what to do"]
DETAIL_COLUMNS = ["detail", "meaning", "what to do"]
PLACEHOLDER_COLUMNS = ["placeholder", "stands for", "kind"]
PLACEHOLDER = re.compile(r"<[a-z]+>")
KINDS = {
    "whole number": r"[0-9]+",
    "whole number, perhaps negative": r"-?[0-9]+",
    "lower-case hexadecimal": r"0x[0-9a-f]+",
    "upper-case hexadecimal": r"0x[0-9A-F]+",
    "Y or N": r"[YN]",
    "text": r".*",
}


class Pattern:
    """A text with placeholders."""

    def __init__(self, text, line):
        self.text = text
        self.line = line
        self.fixed_parts = [part for part in PLACEHOLDER.split(text) if part]

    def compile(self, placeholders):
        return re.compile(self.expression(placeholders), re.DOTALL)

    def expression(self, placeholders):
        expression, end = "", 0
        for match in PLACEHOLDER.finditer(self.text):
            if match.group(0) not in placeholders:
                raise DocumentError(f"line {self.line}: {match.group(0)} isn't among the placeholders")
            expression += re.escape(self.text[end : match.start()]) + placeholders[match.group(0)]
            end = match.end()
        return expression + re.escape(self.text[end:])


class StepRow:
    def __init__(self, row, placeholders):
        for column in ("meaning", "what to do"):
            if not row[column]:
                raise DocumentError(f"line {row.line}: {column!r} is empty")
        self.line = row.line
        self.step = Pattern(code_of(row["step"], row.line), row.line)
        self.result = Pattern(code_of(row["result"], row.line), row.line)
        self.step_expression = self.step.compile(placeholders)
        self.result_expression = self.result.compile(placeholders)
        self.weight = sum(map(len, self.step.fixed_parts + self.result.fixed_parts))

    def matches(self, step, result):
        return self.step_expression.fullmatch(step) and self.result_expression.fullmatch(result)


class TracesDocument:
    def __init__(self, text):
        self.sections = read_document(text)
        self.details = self.read_details()
        self.placeholders = self.read_placeholders()
        self.rows = self.read_rows()

    def read_details(self):
        """Of each section of details its patterns."""
        details = {}
        for section in self.sections:
            for table in section.tables("detail"):
                require_columns(table, DETAIL_COLUMNS)
                for row in table.rows:
                    if not row["meaning"] or not row["what to do"]:
                        raise DocumentError(f"line {row.line}: a cell is empty")
                    pattern = Pattern(code_of(row["detail"], row.line), row.line)
                    details.setdefault(section.title.lower(), []).append(pattern)
        return details

    def read_placeholders(self):
        tables = [table for section in self.sections for table in section.tables("placeholder")]
        if len(tables) != 1:
            raise DocumentError("there must be one table of placeholders")
        require_columns(tables[0], PLACEHOLDER_COLUMNS)
        placeholders, of_details = {}, {}
        for row in tables[0].rows:
            name = code_of(row["placeholder"], row.line)
            if not PLACEHOLDER.fullmatch(name) or name in placeholders or name in of_details:
                raise DocumentError(f"line {row.line}: {name} is no new placeholder")
            if row["kind"] in KINDS:
                placeholders[name] = KINDS[row["kind"]]
            else:
                of_details[name] = (row.line, row["kind"].lower().split(", "))
        for name, (line, titles) in of_details.items():
            placeholders[name] = self.alternatives(titles, placeholders, line)
        return placeholders

    def alternatives(self, titles, placeholders, line):
        unknown = [title for title in titles if title not in self.details]
        if unknown:
            raise DocumentError(f"line {line}: there are no {unknown[0]}")
        patterns = [pattern for title in titles for pattern in self.details[title]]
        return "(?:" + "|".join(pattern.expression(placeholders) for pattern in patterns) + ")"

    def read_rows(self):
        rows, seen = [], {}
        for section in self.sections:
            for table in section.tables("step"):
                require_columns(table, STEP_COLUMNS)
                for row in table.rows:
                    rows.append(StepRow(row, self.placeholders))
                    key = (rows[-1].step.text, rows[-1].result.text)
                    if key in seen:
                        raise DocumentError(f"line {row.line}: stands on line {seen[key]} already")
                    seen[key] = row.line
        if not rows:
            raise DocumentError("there is no table of steps")
        return rows

    def row_of(self, step, result):
        """The row that says most about a step; None when none fits."""
        fitting = [row for row in self.rows if row.matches(step, result)]
        return max(fitting, key=lambda row: row.weight, default=None)

    def patterns(self):
        for row in self.rows:
            yield row.step
            yield row.result
        for patterns in self.details.values():
            yield from patterns
