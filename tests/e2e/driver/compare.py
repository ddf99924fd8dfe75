"""Holds the report of orvane.exe against the simulation's of the same scenario."""
import dataclasses
import json
import re

from driver.known_differences import LEFT_OUT, NOT_LISTED, OF_THE_CLOCK, OF_THE_PLATFORM

# What a call may take beyond its virtual time, which is the sum of the waits that it must make.
SLOWER_PART = 0.1
SLOWER_MS = 300
# Ticks are coarse: so much may a wait seem short.
FASTER_MS = 20

MISSING = object()

HANDLE_IN_TEXT = re.compile(r"\b(?:hwnd=|HWND=)(0x[0-9a-f]+|\d+)")
PROCESS_IN_TEXT = re.compile(r"\bpid=(\d+)")
CLOCK_IN_TEXT = re.compile(r"\b(\d+) ms\b")
# Keys of replies whose numbers the platform makes up.
MADE_UP = {"windowHandle": "handle", "sequence": "sequence"}


class Names:
    """Numbers that the platform makes up: whatever they are, each stands for one thing in both worlds."""

    def __init__(self):
        self._pairs = {}

    def agree(self, kind, expected, came):
        if (expected == 0) != (came == 0):
            return False
        forward = self._pairs.setdefault((kind, "expected", expected), came)
        backward = self._pairs.setdefault((kind, "came", came), expected)
        return forward == came and backward == expected


@dataclasses.dataclass(frozen=True)
class Difference:
    """A line that names the path, what the simulation said and what came."""

    line: str
    is_time: bool

    def __str__(self):
        return self.line


class Comparison:
    """The differences of two reports."""

    def __init__(self):
        self.differences = []
        self._names = Names()

    def compare(self, expected, came, path=""):
        """Compares two values at a path such as `replies.0.value.success`."""
        if any(re.fullmatch(pattern, path) for pattern, _ in LEFT_OUT):
            return
        if isinstance(expected, dict) and isinstance(came, dict):
            self._compare_objects(expected, came, path)
        elif isinstance(expected, list) and isinstance(came, list):
            self._compare_lists(*(listed(items, path) for items in (expected, came)), path)
        elif not self._agree(expected, came, path):
            self._note(path, expected, came)

    def _compare_objects(self, expected, came, path):
        if self._is_trace_step(expected) and self._is_trace_step(came):
            self._compare_steps(expected, came, path)
            return
        for key in dict.fromkeys((*expected, *came)):
            self.compare(expected.get(key, MISSING), came.get(key, MISSING), f"{path}.{key}" if path else key)

    def _compare_lists(self, expected, came, path):
        for index in range(max(len(expected), len(came))):
            before = len(self.differences)
            self.compare(expected[index] if index < len(expected) else MISSING,
                         came[index] if index < len(came) else MISSING, f"{path}.{index}")
            # Behind a step too many or too few nothing stands where it should.
            if len(expected) != len(came) and len(self.differences) > before:
                self._note(f"{path}.length", len(expected), len(came))
                return

    @staticmethod
    def _is_trace_step(value):
        return set(value) == {"step", "result"}

    def _compare_steps(self, expected, came, path):
        step = expected["step"]
        if step != came["step"]:
            self._note(path, f"{step}: {expected['result']}", f"{came['step']}: {came['result']}")
        elif step in OF_THE_PLATFORM:
            pass
        elif not self._texts_agree(expected["result"], came["result"], OF_THE_CLOCK.search(step) is not None):
            without_times = [CLOCK_IN_TEXT.sub("", one["result"]) for one in (expected, came)]
            is_time = OF_THE_CLOCK.search(step) is not None and self._texts_agree(*without_times, False)
            self._note(f"{path} ({step})", expected["result"], came["result"], is_time)

    def _agree(self, expected, came, path):
        if expected is MISSING or came is MISSING:
            return False
        key = path.split(".")[-2 if path.endswith(".$int64") else -1]
        if key in MADE_UP and type(expected) is int and type(came) is int:
            return self._names.agree(MADE_UP[key], expected, came)
        if isinstance(expected, str) and isinstance(came, str):
            return self._texts_agree(expected, came, False)
        return type(expected) is type(came) and expected == came

    def _texts_agree(self, expected, came, has_clock):
        """Texts that are equal but for handles, process ids and, where a clock is read, its values."""
        for pattern, kind, is_read in ((HANDLE_IN_TEXT, "handle", True), (PROCESS_IN_TEXT, "process", True),
                                       (CLOCK_IN_TEXT, "clock", has_clock)):
            if not is_read:
                continue
            numbers = [int(number, 0) for number in pattern.findall(expected)]
            numbers_came = [int(number, 0) for number in pattern.findall(came)]
            if len(numbers) != len(numbers_came):
                return False
            for number, number_came in zip(numbers, numbers_came):
                if not self._numbers_agree(kind, number, number_came):
                    return False
            expected, came = pattern.sub(kind, expected), pattern.sub(kind, came)
        return expected == came

    def _numbers_agree(self, kind, expected, came):
        return self._took_as_long(expected, came) if kind == "clock" else self._names.agree(kind, expected, came)

    @staticmethod
    def _took_as_long(virtual_ms, real_ms):
        return virtual_ms - FASTER_MS <= real_ms <= virtual_ms * (1 + SLOWER_PART) + SLOWER_MS

    def compare_times(self, expected, came):
        """Each call's time on the real clock against its time on the virtual one."""
        for index, (reply, reply_came) in enumerate(zip(expected["replies"], came["replies"])):
            virtual, real = (one["endMs"] - one["startMs"] for one in (reply, reply_came))
            if not self._took_as_long(virtual, real):
                self._note(f"replies.{index} ({reply['method']}) took", f"{virtual} ms", f"{real} ms", True)

    def compare_bytes(self, expected, came):
        """A reply that holds nothing the platform made up is the same byte by byte."""
        for index, (reply, reply_came) in enumerate(zip(expected["replies"], came["replies"])):
            if reply["value"] == reply_came["value"] and reply["kind"] == reply_came["kind"] and \
                    reply.get("replyHex") != reply_came.get("replyHex"):
                self._note(f"replies.{index}.replyHex", reply.get("replyHex"), reply_came.get("replyHex"))

    def check_held(self, came):
        """Nothing of the stand-ins is held at the end."""
        for name, count in came.get("live", {}).items():
            if count != 0:
                self._note(f"live.{name}", 0, count)

    def _note(self, path, expected, came, is_time=False):
        line = f"{path}: the simulation {show(expected)}, came {show(came)}"
        self.differences.append(Difference(line, is_time))


def listed(items, path):
    """A list without what is left out of it."""
    left_out = [predicate for place, predicate, _ in NOT_LISTED if place == path]
    return [item for item in items if not any(predicate(item) for predicate in left_out)]


def show(value):
    return "nothing" if value is MISSING else json.dumps(value, ensure_ascii=False)


def differences(expected, came):
    """What differs between the simulation's report and the real one."""
    comparison = Comparison()
    comparison.compare(expected, came)
    comparison.compare_times(expected, came)
    comparison.compare_bytes(expected, came)
    comparison.check_held(came)
    return comparison.differences
