"""What docs/channels.md says: the methods of both channels, from its tables and examples."""
import json
import re

from markdown import DocumentError, code_of, read_document, require_columns

CHANNELS = ("orvane/browser", "orvane/window")
ARGUMENT_COLUMNS = ["argument", "type", "default", "wrong type", "example", "meaning"]
REPLY_COLUMNS = ["reply", "type", "there", "meaning"]
FAILURE_COLUMNS = ["failure", "reply", "shown by"]
ARGUMENT_TYPES = {"map", "text", "decimal text", "number", "flag", "integer", "list of texts", "list of maps"}
REPLY_TYPES = {"bool", "int32", "int64", "double", "text", "bytes", "list of texts", "trace"}
WRONG_TYPES = {"as left out", "left out of the list"}
NO_ARGUMENTS = "No arguments; what is given is ignored."
NO_EFFECT = "No effect:"
WAIT = re.compile(r"\*\*Blocks\*\* for at most ([0-9]+) ms of waits; the example takes ([0-9]+) ms\.")


class Argument:
    def __init__(self, row):
        self.line = row.line
        self.path = code_of(row["argument"], row.line)
        self.type = row["type"]
        if self.type not in ARGUMENT_TYPES:
            raise DocumentError(f"line {row.line}: {self.type!r} is no type of an argument")
        if row["wrong type"] not in WRONG_TYPES:
            raise DocumentError(f"line {row.line}: {row['wrong type']!r} says nothing that could be tested")
        # "none": there is no value that stands for its absence.
        self.default = None if row["default"] == "none" else read_json(row["default"], row.line)
        self.example = read_json(row["example"], row.line)
        self.has_effect = not row["meaning"].startswith(NO_EFFECT)


class ReplyKey:
    def __init__(self, row):
        self.line = row.line
        self.name = code_of(row["reply"], row.line)
        self.type = row["type"]
        self.there = row["there"]
        if self.type not in REPLY_TYPES:
            raise DocumentError(f"line {row.line}: {self.type!r} is no type of a reply")


class Failure:
    """A reply that the document names, and the run that shows it."""

    def __init__(self, row):
        self.line = row.line
        self.kind, self.reply = read_reply(row["reply"], row.line)
        self.scenario, self.step, self.change = read_source(row["shown by"], row.line)


class Method:
    def __init__(self, section, channel):
        self.line = section.line
        self.channel = channel
        self.name = code_of(section.title, section.line)
        self.arguments = self.read_arguments(section)
        self.replies = [ReplyKey(row) for row in self.one_table(section, REPLY_COLUMNS).rows]
        failures = section.tables(FAILURE_COLUMNS[0])
        for table in failures:
            require_columns(table, FAILURE_COLUMNS)
        self.failures = [Failure(row) for table in failures for row in table.rows]
        self.most_ms, self.example_ms = self.read_waits(section)
        self.steps, self.answer = read_example(section)
        call = self.steps[-1].get("call", {})
        if (call.get("channel"), call.get("method")) != (channel, self.name):
            raise DocumentError(f"line {section.line}: the example must end with a call of the method itself")

    def one_table(self, section, columns):
        tables = section.tables(columns[0])
        if len(tables) != 1:
            raise DocumentError(f"line {section.line}: {self.name} must have one table of {columns[0]}")
        require_columns(tables[0], columns)
        return tables[0]

    def read_arguments(self, section):
        tells_none = any(text.text == NO_ARGUMENTS for text in section.texts())
        if tells_none == bool(section.tables(ARGUMENT_COLUMNS[0])):
            raise DocumentError(f"line {section.line}: {self.name} has a table of arguments or says {NO_ARGUMENTS!r}")
        return [] if tells_none else [Argument(row) for row in self.one_table(section, ARGUMENT_COLUMNS).rows]

    def read_waits(self, section):
        waits = [WAIT.fullmatch(text.text) for text in section.texts() if text.text.startswith("**Blocks**")]
        if len(waits) != 1 or waits[0] is None:
            raise DocumentError(f"line {section.line}: {self.name} must say once how long it blocks")
        return int(waits[0].group(1)), int(waits[0].group(2))


def read_json(cell, line):
    return parse_json(code_of(cell, line), line)


def parse_json(text, line):
    try:
        return json.loads(text)
    except json.JSONDecodeError as error:
        raise DocumentError(f"line {line}: {text!r} is no JSON: {error}") from error


def read_reply(cell, line):
    if cell == "not implemented":
        return "notImplemented", None
    if cell.startswith("error "):
        return "error", read_json(cell[len("error ") :], line)
    return "success", read_json(cell, line)


def read_source(cell, line):
    """(scenario, name of its step or None, None), or (None, None, what is changed of the example)."""
    if cell.startswith("the example with "):
        change = read_json(cell[len("the example with ") :], line)
        if not change or set(change) - {"arguments", "faults", "before"}:
            raise DocumentError(f"line {line}: an example is changed in its arguments, faults and the steps before")
        return None, None, change
    scenario, _, step = code_of(cell, line).partition("#")
    return scenario, step or None, None


def read_steps(code):
    """One JSON value after the other."""
    decoder, steps, text = json.JSONDecoder(), [], code.text.strip()
    while text:
        try:
            step, end = decoder.raw_decode(text)
        except json.JSONDecodeError as error:
            raise DocumentError(f"line {code.line}: the example is no JSON: {error}") from error
        steps.append(step)
        text = text[end:].strip()
    return steps


def read_example(section):
    codes = section.codes("json")
    if len(codes) != 2:
        raise DocumentError(f"line {section.line}: an example is two blocks: the steps, and the answer")
    return read_steps(codes[0]), parse_json(codes[1].text, codes[1].line)


def section_named(sections, title):
    found = [section for section in sections if section.title == title]
    if len(found) != 1:
        raise DocumentError(f"there must be one section {title!r}")
    return found[0]


class ChannelsDocument:
    def __init__(self, text):
        sections = read_document(text)
        self.methods = []
        channel = None
        for section in sections:
            if section.level <= 2:
                channel = section.title.strip("`") if section.title.strip("`") in CHANNELS else None
            elif section.level == 3 and channel:
                self.methods.append(Method(section, channel))
        desktop = section_named(sections, "The desktop of the examples").codes("json")
        self.desktop = parse_json(desktop[0].text, desktop[0].line)
        self.call_back_steps, self.call_back = read_example(section_named(sections, "`showToolBoxMenu`, the call back"))
        self.common_failures = []
        for table in section_named(sections, "What every method answers").tables(FAILURE_COLUMNS[0]):
            require_columns(table, FAILURE_COLUMNS)
            self.common_failures += [Failure(row) for row in table.rows]
        names = [(method.channel, method.name) for method in self.methods]
        if len(set(names)) != len(names):
            raise DocumentError("a method is told twice")
