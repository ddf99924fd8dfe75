#!/usr/bin/env python3
"""Holds the host to docs/channels.md: makes calls out of its tables and examples, runs them in the
simulated Windows and compares what comes with what stands there.

channels_test.py SIMULATOR [DOCUMENT]
"""
import json
import re
import sys
from pathlib import Path

from channels_document import ChannelsDocument
from channels_values import WRONG_VALUES, Place, fits, has_type
from markdown import DocumentError
from simulator import Simulator

ROOT = Path(__file__).resolve().parents[2]
SCENARIOS = ROOT / "tests" / "scenarios"
HANDLERS = {
    "orvane/browser": ROOT / "src" / "browser_channel" / "provider_command_handler.cpp",
    "orvane/window": ROOT / "src" / "desktop" / "window_command_handler.cpp",
}
NO_MAPS = (None, True, 7, 1.5, "text", ["text"], {"$bytes": "QQ=="})
ANYTHING = (*NO_MAPS, {}, {"x": 1, "text": "y"})


def names_in_program(channel):
    """The first column of the handler's table of commands."""
    source = HANDLERS[channel].read_text(encoding="utf-8")
    table = re.search(r"constexpr std::array<\w+, (\d+)> commands\{\{\n(.*?)\n\}\};", source, re.DOTALL)
    if not table:
        raise DocumentError(f"{HANDLERS[channel].name}: there is no table of commands to compare with")
    names = re.findall(r'^ *\{"(\w+)", ', table.group(2), re.MULTILINE)
    if len(names) != int(table.group(1)):
        raise DocumentError(f"{HANDLERS[channel].name}: the table of commands can't be read")
    return names


class Plan:
    """Runs that are asked for first and made together, and what is to be checked of them."""

    def __init__(self, document, simulator):
        self.document = document
        self.simulator = simulator
        self.scenarios = {}
        self.files = {}
        self.checks = []

    def run_of(self, steps, faults=()):
        desktop = {**self.document.desktop, "faults": [*self.document.desktop.get("faults", []), *faults]}
        text = json.dumps({"desktop": desktop, "steps": steps})
        self.scenarios.setdefault(text, len(self.scenarios))
        return text

    def run_of_file(self, name):
        path = SCENARIOS / f"{name}.json"
        if not path.is_file():
            raise DocumentError(f"there is no scenario {name}")
        self.files.setdefault(name, path)
        return name

    def check(self, label, holds):
        self.checks.append((label, holds))

    def run(self):
        self.reports = dict(
            zip(self.scenarios, self.simulator.run_scenarios([json.loads(text) for text in self.scenarios]))
        )
        self.reports.update(zip(self.files, self.simulator.run_files(list(self.files.values()))))
        complaints = []
        for label, holds in self.checks:
            complaint = holds()
            if complaint:
                complaints.append(f"{label}: {complaint}")
        return complaints


def without_name(report):
    return {key: value for key, value in report.items() if key != "name"}


def outcome(report):
    """What came of a run, without how it was done."""
    return {key: value for key, value in report.items() if key not in ("name", "platformCalls")}


def shown(value):
    text = json.dumps(value, ensure_ascii=False)
    return text if len(text) < 700 else text[:700] + "…"


class MethodChecks:
    def __init__(self, plan, method):
        self.plan = plan
        self.method = method
        self.call = method.steps[-1]["call"]
        self.arguments = self.call.get("arguments")

    def run_with(self, arguments, before=(), faults=()):
        call = {**self.call, "arguments": arguments}
        return self.plan.run_of([*self.method.steps[:-1], *before, {"call": call}], faults)

    def plan_all(self):
        self.plan_example()
        self.plan_no_maps()
        for argument in self.method.arguments:
            self.plan_argument(argument)
        if not self.method.arguments:
            for value in ANYTHING:
                self.same(f"given {json.dumps(value)}", self.run_with(value), self.run_with(self.arguments))
        for failure in self.method.failures:
            self.plan_failure(failure)

    def check(self, line, what, holds):
        self.plan.check(f"line {line}: {self.method.name}: {what}", holds)

    def same(self, what, run, other, line=None):
        def holds():
            report, expected = (without_name(self.plan.reports[each]) for each in (run, other))
            for key in expected:
                if report[key] != expected[key]:
                    return f"{key} came {shown(report[key])} in place of {shown(expected[key])}"
            return None

        self.check(line or self.method.line, what, holds)

    def plan_example(self):
        run = self.plan.run_of(self.method.steps)

        def holds():
            reply = self.plan.reports[run]["replies"][-1]
            answer = reply["value"]
            if isinstance(answer, dict) and "logs" not in self.method.answer:
                answer = {key: value for key, value in answer.items() if key != "logs"}
            # As texts, since 1, 1.0 and true are equal as values.
            if json.dumps(answer, sort_keys=True) != json.dumps(self.method.answer, sort_keys=True):
                return f"answered {json.dumps(answer, ensure_ascii=False)}"
            took = reply["endMs"] - reply["startMs"]
            return None if took == self.method.example_ms else f"took {took} ms"

        self.check(self.method.line, "its example", holds)

    def plan_no_maps(self):
        if not self.method.arguments:
            return
        refusals = [failure for failure in self.method.failures if failure.kind == "error"]
        for value in NO_MAPS:
            what = f"given {json.dumps(value)} in place of a map"
            run = self.run_with(value)
            if refusals:
                self.check(refusals[0].line, what, lambda run=run: self.complain(refusals[0], run, None))
            else:
                self.same(what, run, self.run_with({}))

    def contexts(self, place):
        """The maps into which an argument is put: those of the example, and an empty one."""
        if isinstance(self.arguments, dict) and (not place.is_nested or place.key in self.arguments):
            yield self.arguments
            if place.is_nested:
                yield {place.key: self.arguments[place.key]}
        if not place.is_nested:
            yield {}

    def plan_argument(self, argument):
        place = Place(argument.path)
        contexts = list(self.contexts(place))
        if not contexts:
            raise DocumentError(f"line {argument.line}: the example has no list to put {argument.path} into")
        self.plan_effect(argument, place, contexts)
        for number, context in enumerate(contexts):
            absent = self.run_with(place.drop(context))
            if argument.default is not None:
                run = self.run_with(place.put(context, argument.default))
                self.same(f"{argument.path} at its default", run, absent, argument.line)
            for value in WRONG_VALUES[argument.type][: None if number == 0 else 3]:
                run = self.run_with(place.put(context, value))
                self.same(f"{argument.path} given {json.dumps(value)}", run, absent, argument.line)
        self.plan_widths(argument, place, contexts[0])

    def plan_effect(self, argument, place, contexts):
        pairs = [
            (self.run_with(place.put(context, argument.example)), self.run_with(place.drop(context)))
            for context in contexts
        ]

        def holds():
            reports = self.plan.reports
            is_seen = any(outcome(reports[one]) != outcome(reports[other]) for one, other in pairs)
            if is_seen == argument.has_effect:
                return None
            return "makes no difference" if argument.has_effect else "makes a difference"

        self.check(argument.line, f"{argument.path} at its example", holds)

    def plan_widths(self, argument, place, context):
        """One number in each width that its type allows."""
        value = argument.example
        if argument.type not in ("number", "flag", "integer") or isinstance(value, (dict, bool)) or value != int(value):
            return
        forms = ["$int32", "$int64"] + ([] if argument.type == "integer" else ["$double"])
        first = self.run_with(place.put(context, {forms[0]: int(value)}))
        for form in forms[1:]:
            run = self.run_with(place.put(context, {form: int(value)}))
            self.same(f"{argument.path} as {form}", run, first, argument.line)

    def plan_failure(self, failure):
        if failure.scenario:
            run = self.plan.run_of_file(failure.scenario)
        else:
            change = failure.change
            arguments = change.get("arguments", self.arguments)
            run = self.run_with(arguments, change.get("before", ()), change.get("faults", ()))
        self.check(failure.line, "its failure", lambda: self.complain(failure, run, failure.step))

    def complain(self, failure, run, step):
        replies = [reply for reply in self.plan.reports[run]["replies"] if reply["method"] == self.method.name]
        return complaint_about(failure, replies, step)

    def complain_about_replies(self, reports):
        """Of each reply of the method in these runs, and of all of them together."""
        groups = {}
        for key in self.method.replies:
            groups.setdefault(key.there, []).append(key)
        states = {there: set() for there in groups}
        for report in reports:
            for reply in report["replies"]:
                if reply["method"] == self.method.name and reply["kind"] == "success":
                    yield from self.complain_about_keys(reply["value"], groups, states)
                    if reply["endMs"] - reply["startMs"] > self.method.most_ms:
                        yield f"{self.method.name} blocked for longer than is told: {report['name']}"
        for there, seen in states.items():
            if there != "always" and seen != {True, False}:
                yield f"{self.method.name}: {there} was never both so and not so"

    def complain_about_keys(self, value, groups, states):
        known = {key.name for key in self.method.replies}
        if set(value) - known:
            yield f"{self.method.name} answered {sorted(set(value) - known)}, which isn't told"
        for there, keys in groups.items():
            present = [key for key in keys if key.name in value]
            states[there].add(bool(present))
            for key in present:
                if not has_type(value[key.name], key.type):
                    yield f"line {key.line}: {self.method.name}: {key.name} came {shown(value[key.name])}"
            if len(present) not in (0, len(keys)) or (there == "always" and not present):
                missing = sorted({key.name for key in keys} - set(value))
                yield f"line {keys[0].line}: {self.method.name} answered without {missing}"
            if there == "when `success` is true" and bool(present) != value["success"]:
                yield f"line {keys[0].line}: {self.method.name}: what comes with success came otherwise"


def complaint_about(failure, replies, step):
    if step is not None:
        replies = [reply for reply in replies if reply["as"] == step]
    if not replies:
        return "the run has no such call"
    reply = replies[-1]
    if reply["kind"] != failure.kind:
        return f"was answered as {reply['kind']}"
    answer = reply["error"] if failure.kind == "error" else reply["value"]
    if failure.reply is not None and not fits(failure.reply, answer):
        short = {key: value for key, value in answer.items() if key != "logs"} if isinstance(answer, dict) else answer
        return f"answered {shown(short)}"
    return None


def plan_common(plan):
    for failure in plan.document.common_failures:
        if not failure.scenario or not failure.step:
            raise DocumentError(f"line {failure.line}: a scenario and the name of its call must be given")
        run = plan.run_of_file(failure.scenario)
        plan.check(
            f"line {failure.line}: a failure of every method",
            lambda failure=failure, run=run: complaint_about(failure, plan.reports[run]["replies"], failure.step),
        )


def plan_call_back(plan):
    run = plan.run_of(plan.document.call_back_steps)

    def holds():
        calls = plan.reports[run]["toInterface"]
        if len(calls) == 1 and fits(plan.document.call_back, calls[0]):
            return None
        return f"came {shown(calls)}"

    plan.check("the call back", holds)


def plan_names(plan):
    """The methods told are those that the program has, and no other name is a method."""
    for channel in HANDLERS:
        told = [method.name for method in plan.document.methods if method.channel == channel]
        expected = names_in_program(channel)
        plan.check(channel, lambda told=told, expected=expected: name_complaint(told, expected))
        strange = [f"{name[0].upper()}{name[1:]}" for name in told]
        steps = [{"call": {"channel": channel, "method": name}} for name in strange]
        run = plan.run_of(steps)
        plan.check(
            f"{channel}: names in another case",
            lambda run=run: None
            if all(reply["kind"] == "notImplemented" for reply in plan.reports[run]["replies"])
            else "one of them is a method",
        )


def name_complaint(told, expected):
    if sorted(told) == sorted(expected):
        return None
    return f"not told: {sorted(set(expected) - set(told))}; no methods: {sorted(set(told) - set(expected))}"


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__.strip())
    path = Path(sys.argv[2]) if len(sys.argv) == 3 else ROOT / "docs" / "channels.md"
    try:
        plan = Plan(ChannelsDocument(path.read_text(encoding="utf-8")), Simulator(sys.argv[1]))
        methods = [MethodChecks(plan, method) for method in plan.document.methods]
        plan_names(plan)
        plan_common(plan)
        plan_call_back(plan)
        for method in methods:
            method.plan_all()
        complaints = plan.run()
    except DocumentError as error:
        sys.exit(f"{path.name}: {error}")
    # Where the window has gone its channel answers alike for all methods.
    gone = {failure.scenario for failure in plan.document.common_failures}
    reports = [report for run, report in plan.reports.items() if run not in gone]
    for method in methods:
        complaints += dict.fromkeys(method.complain_about_replies(reports))
    for complaint in complaints:
        print(f"{path.name}: {complaint}")
    print(f"{len(plan.checks)} checks of {len(plan.reports)} runs, {len(complaints)} complaints")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main())
