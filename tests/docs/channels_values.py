"""The values of arguments and replies: of which type they are, which are of none, and where they stand in a call."""
import copy
import re

from markdown import DocumentError

TEXTS = ("7", "text")
WRONG_VALUES = {
    "text": (None, True, 7, {"$int64": 7}, 1.5, ["text"], {"text": "text"}, {"$bytes": "QQ=="}),
    "number": (None, True, False, *TEXTS, [1], {"x": 1}, {"$int32List": [1]}),
    "integer": (None, True, 1.5, {"$double": 65864}, *TEXTS, [1], {"x": 1}),
    "list": (None, True, 7, "text", {"text": "text"}, {"$bytes": "QQ=="}),
}
WRONG_VALUES["map"] = (None, True, 7, "text", ["text"], {"$bytes": "QQ=="})
WRONG_VALUES["decimal text"] = WRONG_VALUES["text"]
WRONG_VALUES["flag"] = WRONG_VALUES["number"]
WRONG_VALUES["list of texts"] = WRONG_VALUES["list of maps"] = WRONG_VALUES["list"]


def fits(expected, actual):
    """As a scenario's `expect`: a subset of objects, whole lists, texts behind ~ as expressions."""
    if isinstance(expected, dict):
        return isinstance(actual, dict) and all(key in actual and fits(expected[key], actual[key]) for key in expected)
    if isinstance(expected, list):
        return (
            isinstance(actual, list)
            and len(expected) == len(actual)
            and all(fits(one, other) for one, other in zip(expected, actual))
        )
    if isinstance(expected, str) and expected.startswith("~"):
        return isinstance(actual, str) and re.search(expected[1:], actual) is not None
    return type(expected) is type(actual) and expected == actual


def is_step(value):
    return isinstance(value, dict) and set(value) == {"step", "result"}


def has_type(value, name):
    """Whether a value of a report, in its forms, is of a type of the document."""
    if name == "int32":
        return isinstance(value, int) and not isinstance(value, bool)
    if name == "int64":
        is_plain = isinstance(value, int) and not isinstance(value, bool) and not -(2**31) <= value < 2**31
        return is_plain or (isinstance(value, dict) and set(value) == {"$int64"})
    if name == "list of texts":
        return isinstance(value, list) and all(isinstance(item, str) for item in value)
    if name == "trace":
        return isinstance(value, list) and all(is_step(item) for item in value)
    if name == "bytes":
        return isinstance(value, dict) and set(value) == {"$bytes"}
    return isinstance(value, {"bool": bool, "double": float, "text": str}[name])


class Place:
    """Where an argument stands in a call's map: `key`, `key[]` (the first of a list), `key[].inner`."""

    def __init__(self, path):
        match = re.fullmatch(r"(\w+)(\[\])?(?:\.(\w+))?", path)
        if not match or (match.group(3) and not match.group(2)):
            raise DocumentError(f"{path!r} is no place of an argument")
        self.key, is_item, self.inner = match.groups()
        self.is_item = bool(is_item)
        self.is_nested = self.is_item

    def holder(self, arguments):
        if not self.is_item:
            return arguments, self.key
        return (arguments[self.key][0], self.inner) if self.inner else (arguments[self.key], 0)

    def put(self, arguments, value):
        changed = copy.deepcopy(arguments)
        holder, key = self.holder(changed)
        holder[key] = value
        return changed

    def drop(self, arguments):
        changed = copy.deepcopy(arguments)
        holder, key = self.holder(changed)
        if isinstance(holder, list):
            del holder[key]
        else:
            holder.pop(key, None)
        return changed
