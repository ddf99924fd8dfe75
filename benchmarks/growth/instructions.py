"""The host's own instructions in what valgrind's callgrind counted of a run.

A function is the host's, the simulation's or neutral. The host's are those of the namespace orvane without
orvane::simulation; the simulation's are that one, and the platform's functions, which stand in the same program
without a namespace. Neutral are the standard library's and what other libraries hold. A neutral function's own
instructions go to its callers in proportion to what the calls from each cost; a neutral caller's part goes on to its
own callers. So memory, texts and maps count for the side that asked for them, and nothing below a call of the platform
counts for the host.
"""
import re
from collections import defaultdict

HOST, SIMULATION, NEUTRAL = "host", "simulation", "neutral"
# Shares of functions that call each other settle by then.
ROUNDS = 30
NAMED = re.compile(r"\((\d+)\)(?: (.*))?")


def own_name(function):
    """The qualified name alone: without return type, parameters and arguments of templates."""
    plain = function.replace("(anonymous namespace)", "{anonymous}").replace("decltype(auto) ", "").split("'")[0]
    depth, kept = 0, []
    for at, character in enumerate(plain):
        if character == "<" and not plain[:at].endswith("operator"):
            depth += 1
        elif character == ">" and depth:
            depth -= 1
        elif not depth:
            if character == "(":
                break
            kept.append(character)
    return "".join(kept).split(" ")[-1]


def side_of(function, library, program):
    name = own_name(function)
    if name.startswith("orvane::simulation::"):
        return SIMULATION
    if name.startswith("orvane::"):
        return HOST
    if library == program and "::" not in name and not function.startswith("operator"):
        return SIMULATION
    return NEUTRAL


class Profile:
    """One dump: own instructions of each function, and what the calls between them cost."""

    def __init__(self):
        self.own = defaultdict(int)
        self.calls = defaultdict(int)  # (caller, callee) -> instructions of the call and all below it
        self.trigger = ""

    def host_instructions(self, program, within=None):
        """`within`: the qualified name of a function of the host's, of which and below which alone is counted; the
        platform must not call the host below it."""
        sides = {one: side_of(one[1], one[0], program) for one in self._functions()}
        shares = {}
        for one, side in sides.items():
            counts = own_name(one[1]) == within if within else side == HOST
            shares[one] = 1.0 if counts else 0.0
        fixed = {one for one, side in sides.items() if shares[one] or side == SIMULATION}
        incoming = defaultdict(list)
        for (caller, callee), cost in self.calls.items():
            if callee not in fixed and caller != callee:
                incoming[callee].append((caller, cost))
        for _ in range(ROUNDS):
            for callee, callers in incoming.items():
                whole = sum(cost for _, cost in callers)
                shares[callee] = sum(shares[caller] * cost for caller, cost in callers) / whole if whole else 0.0
        return round(sum(cost * shares[one] for one, cost in self.own.items()))

    def _functions(self):
        return set(self.own) | {one for pair in self.calls for one in pair}


class Reader:
    """Callgrind's format: names are numbered at their first mention."""

    def __init__(self):
        self.names = {"ob": {}, "fn": {}}

    def name(self, kind, text):
        number, given = NAMED.fullmatch(text).groups()
        if given is not None:
            self.names[kind][number] = given
        return self.names[kind][number]

    def read(self, path):
        """The dumps of one file."""
        profiles, profile = [], None
        with open(path, encoding="utf-8", errors="replace") as lines:
            for line in lines:
                line = line.rstrip("\n")
                if line.startswith("part:"):
                    profile = Profile()
                    profiles.append(profile)
                    library = callee_library = function = callee = ""
                    is_call = False
                elif line.startswith("desc: Trigger: "):
                    profile.trigger = line.removeprefix("desc: Trigger: ")
                elif line.startswith("ob="):
                    library = self.name("ob", line[3:])
                elif line.startswith("cob="):
                    callee_library = self.name("ob", line[4:])
                elif line.startswith("fn="):
                    function = (library, self.name("fn", line[3:]))
                    callee_library = library
                elif line.startswith("cfn="):
                    callee = (callee_library or library, self.name("fn", line[4:]))
                elif line.startswith("calls="):
                    is_call = True
                elif line.startswith("totals: "):
                    if sum(profile.own.values()) != int(line.split(" ")[1]):
                        raise ValueError(f"{path} doesn't add up to its own total")
                elif line[:1].isdigit():
                    cost = int(line.split(" ")[1])
                    if is_call:
                        profile.calls[function, callee] += cost
                        callee_library, is_call = library, False
                    else:
                        profile.own[function] += cost
        return profiles
