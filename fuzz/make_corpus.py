#!/usr/bin/env python3
"""Writes worlds/ and corpus/ out of the shipped scenarios and of cases made by hand.

make_corpus.py [--simulator FILE]   the simulator of the native build says what replies a seed has to name

What a long run has found beyond them is kept beside them, under names that this program doesn't write.
"""
import argparse
import base64
import json
import struct
import subprocess
import sys
from pathlib import Path

FOLDER = Path(__file__).resolve().parent
SCENARIOS = FOLDER.parent / "tests" / "scenarios"
sys.path.insert(0, str(SCENARIOS))
sys.dont_write_bytecode = True

from kit.wire import call_hex  # noqa: E402  (the kit is found through the path above)

# The desktops of the messages, in this order, each with its scenario's own steps.
WORLDS = [
    "run/chatgpt", "run/claude", "run/deepseek", "run/doubao", "run/gemini", "run/grok", "run/perplexity", "run/qwen",
    "day/whole-day", "day/second-screen", "day/content-process",
    "warm/claude-settings-page-is-left-again-by-both-ways", "warm/gemini-tab-that-was-in-front-is-itself-the-providers",
    "warm/gemini-page-that-turns-into-the-chat-is-proven", "warm/gemini-two-tabs-of-the-title-leave-the-index-to-be-proven",
    "destination/first-of-several-windows-is-the-upper-one",
    "activation/chatgpt-sleeping-tab-is-known-by-its-title-alone-then-proven",
    "activation/gemini-in-a-minimised-window-among-topmost-hidden-and-deaf-ones",
    "browser-assist/box-leads-to-the-chatgpt-page", "browser-assist/page-of-a-sub-domain-is-escaped",
    "delivery/claude-text-remains-after-retry-fails-at-once", "delivery/claude-retry-by-send-after-a-first-enter",
    "delivery/chatgpt-enter-stands-in-for-a-send-that-refuses", "delivery/chatgpt-text-remains-send-stable-again-fails",
    "delivery/perplexity-send-that-refuses-stops-without-enter", "delivery/gemini-text-remains-send-stable-again-fails",
    "delivery/claude-of-twelve-attachments-ten-are-removed",
]
SPELLING = {
    "en-US": {"words": ["What", "may", "a", "landlord", "keep"], "suggest": {"teh": ["the", "tea"], "kepe": ["keep"]}},
    "de-DE": {"words": ["Miete"], "suggest": {"Meite": ["Miete"]}},
}
# What a page may do and the messages' promises stay plain: nobody but the host moves windows or writes the clipboard.
REFUSED_ACTIONS = {"clipboard", "foreground", "closeWindow"}
FIRST_HANDLE, HANDLE_STEP = 0x10104, 0x22
BROWSER, WINDOW, WAIT, FORWARD, MENU, POST = range(6)


def scenario(name):
    return json.loads((SCENARIOS / f"{name}.json").read_text(encoding="utf-8"))


def write(path, content):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content if isinstance(content, bytes) else content.encode("utf-8", "surrogatepass"))


def slug(name):
    return name.replace("/", "-")


# ---- messages

def actions_of(value):
    if isinstance(value, list):
        for item in value:
            yield from actions_of(item)
    elif isinstance(value, dict):
        for action in value.get("do", []):
            yield from action
        for item in value.values():
            yield from actions_of(item)


def world_of(name):
    desktop = {key: value for key, value in scenario(name).get("desktop", {}).items() if key != "faults"}
    refused = REFUSED_ACTIONS & set(actions_of(desktop.get("windows", [])))
    if refused or not desktop.get("windows"):
        sys.exit(f"{name}: no desktop for messages: {refused or 'no windows'}")
    return {"name": name, "desktop": desktop | {"spelling": SPELLING}}


class Seed:
    """A scenario's steps as an input of the messages."""

    def __init__(self, name, simulator):
        self.scenario = scenario(name)
        path = SCENARIOS / f"{name}.json"
        run = subprocess.run([simulator, "--json", path], capture_output=True, text=True, check=False)
        self.replies = {reply["as"]: reply["value"] for reply in json.loads(run.stdout)["replies"]}
        self.windows = [window["id"] for window in self.scenario.get("desktop", {}).get("windows", [])]

    def handle(self, window):
        place = self.windows.index(window) if window in self.windows else len(self.windows)
        return FIRST_HANDLE + HANDLE_STEP * place

    def told(self, reference):
        name, key = reference.split(".")
        value = (self.replies.get(name) or {}).get(key)
        return next(iter(value.values())) if isinstance(value, dict) and len(value) == 1 else value

    def resolved(self, value):
        if isinstance(value, list):
            return [self.resolved(item) for item in value]
        if not isinstance(value, dict):
            return value
        form = next(iter(value), "") if len(value) == 1 else ""
        if form == "$window":
            return self.handle(value[form])
        if form == "$windowText":
            return str(self.handle(value[form]))
        if form == "$from":
            return self.told(value[form])
        if form == "$fromText":
            return str(self.told(value[form]) or "")
        if form == "$double":
            return float(value[form])
        if form == "$int32":
            return value[form]
        return {key: self.resolved(item) for key, item in value.items()}

    def message(self, step):
        if "call" in step:
            call = step["call"]
            content = bytes.fromhex(call_hex(call["method"], self.resolved(call.get("arguments"))))
            return call["channel"], content
        return step["channel"], bytes.fromhex(step["bytes"])

    def records(self):
        for step in self.scenario.get("steps", []):
            if "call" in step or "bytes" in step:
                try:
                    channel, content = self.message(step)
                except ValueError:  # a form of a value that the kit doesn't write as bytes
                    continue
                yield (BROWSER if channel == "orvane/browser" else WINDOW), content
            elif "wait" in step:
                yield WAIT, struct.pack("<H", step["wait"] % 3000)
            elif "user" in step and "bringForward" in step["user"]:
                window = step["user"]["bringForward"]
                yield FORWARD, bytes([self.windows.index(window) if window in self.windows else len(self.windows)])
            elif "user" in step and "chooseMenu" in step["user"]:
                yield MENU, bytes([step["user"]["chooseMenu"] or 0])
            elif "post" in step:
                yield POST, b"\0"


def input_of(world, records):
    content = bytes([world])
    for kind, record in records:
        content += bytes([kind]) + struct.pack("<H", len(record)) + record
    return content


# Calls of the window channel, on the plainest of the desktops.
OTHER_SEEDS = [
    "keys/all-in-turn", "keys/other-texts", "menu/menus-in-a-row", "menu/element-with-more-keys", "menu/anchor-kinds",
    "spelling/arguments-of-every-kind", "clipboard/write-twice", "clipboard/write-any-script", "geometry/edges-free",
    "backdrop/flag-enabled-not-zero", "channel/malformed-messages", "channel/unknown-methods", "channel/open-external-url",
    "channel/foreground-window-handle", "activation/arguments-of-other-types-read-as-absent",
]


def make_messages(simulator):
    for place, name in enumerate(WORLDS):
        write(FOLDER / "worlds" / f"{place:02}-{slug(name)}.json", json.dumps(world_of(name), ensure_ascii=False, indent=1) + "\n")
        write(FOLDER / "corpus/messages" / slug(name), input_of(place, Seed(name, simulator).records()))
    plain = WORLDS.index("day/second-screen")
    for name in OTHER_SEEDS:
        write(FOLDER / "corpus/messages" / slug(name), input_of(plain, Seed(name, simulator).records()))
    write(FOLDER / "corpus/messages/hand-nothing", b"")
    write(FOLDER / "corpus/messages/hand-tool-box", input_of(plain, [(POST, b"\0"), (POST, b"\1"), (WAIT, b"\x64\0")]))


# ---- the codec

def make_codec(simulator):
    folder = FOLDER / "corpus/codec"
    for name in ("run/claude", "day/whole-day", "menu/menus-in-a-row", "geometry/edges-free"):
        seed = Seed(name, simulator)
        for place, (kind, content) in enumerate(record for record in seed.records() if record[0] <= WINDOW):
            if place < 6:
                write(folder / f"{slug(name)}-{place}", content)
    by_hand = {
        "null": b"\0", "true": b"\1", "false": b"\2", "int32": b"\3\1\2\3\4", "int64": b"\4" + bytes(range(8)),
        "large-integer": b"\5\2ff", "double": b"\6" + bytes(7) + struct.pack("<d", 1.5), "text": b"\7\5hello",
        "text-of-254": b"\7\xfe\xfe\0" + b"x" * 254, "text-of-70000": b"\7\xff" + struct.pack("<I", 70000) + b"y" * 70000,
        "bytes": b"\x08\3\1\2\3", "int32s": b"\x09\2\0\0" + struct.pack("<2i", 1, -1),
        "int64s": b"\x0a\1" + bytes(6) + struct.pack("<q", -1), "doubles": b"\x0b\2" + bytes(6) + struct.pack("<2d", 0.0, -0.0),
        "floats": b"\x0e\2\0\0" + struct.pack("<2f", 1.0, float("nan")), "list": b"\x0c\3\0\1\x0c\1\2",
        "map": b"\x0d\2\7\1a\3\1\0\0\0\7\1b\x0c\0", "map-with-equal-keys": b"\x0d\2\7\1a\1\7\1a\2",
        "map-with-a-number-that-is-none": b"\x0d\2\6" + bytes(5) + struct.pack("<d", float("nan")) + b"\1\3\0\0\0\0\2",
        "map-without-its-last-value": b"\x0d\1\7\1a", "unknown-tag": b"\x0f", "tag-255": b"\xff",
        "list-that-declares-too-much": b"\x0c\xff\xff\xff\xff\xff\0", "text-that-declares-too-much": b"\7\xff\xff\xff\xff\x7f",
        "deep": b"\x0c\1" * 999 + b"\0", "too-deep": b"\x0c\1" * 1001 + b"\0", "success": b"\0\7\2ok", "empty": b"",
        "error": b"\1\7\1c\7\1m\0", "error-without-message": b"\1\7\1c\0\x0d\0", "error-of-a-number": b"\1\3\1\0\0\0\0\0",
    }
    for name, content in by_hand.items():
        write(folder / f"hand-{name}", content)


# ---- blocks of the clipboard

def make_html():
    folder = FOLDER / "corpus/html_block"
    for path in sorted((SCENARIOS / "clipboard").glob("html-*.json")):
        clipboard = json.loads(path.read_text(encoding="utf-8")).get("desktop", {}).get("clipboard", {})
        block = clipboard.get("html")
        if isinstance(block, str) and len(block) < 1000:
            write(folder / path.stem, block)
    write(folder / "hand-key-at-the-reach", " " * 4096 + "StartFragment:1 EndFragment:2")
    write(folder / "hand-greatest-numbers", "StartFragment:9223372036854775807 EndFragment:9223372036854775808")
    write(folder / "hand-own-block-inside", "Version:1.0\r\nStartFragment:3<!--StartFragment-->x<!--EndFragment-->")


def make_bitmaps():
    folder = FOLDER / "corpus/bitmap_block"
    for path in sorted((SCENARIOS / "clipboard").glob("image-dib*.json")):
        clipboard = json.loads(path.read_text(encoding="utf-8")).get("desktop", {}).get("clipboard", {})
        for form in ("dib", "dibv5"):
            block = clipboard.get(form)
            if isinstance(block, str) and len(block) < 2000:
                write(folder / path.stem, base64.b64decode(block))
    write(folder / "hand-greatest-rows", struct.pack("<IiiHHII16x", 40, -(1 << 31), -(1 << 31), 1, 0xFFFF, 0, 0))


# ---- texts

def make_identity():
    folder = FOLDER / "corpus/identity"
    for name in ("chatgpt", "claude", "gemini", "grok", "perplexity", "deepseek"):
        read = scenario(f"run/{name}")
        call = read["steps"][0]["call"]["arguments"]
        browsers = [window for window in read["desktop"]["windows"] if window.get("tabs")]
        for place, tab in enumerate(tab for window in browsers for tab in window["tabs"]):
            lines = [call["name"], call["domain"], "|".join(call["patterns"]), tab["title"], "", "Chrome", tab["title"],
                     tab["address"], "", "Chrome", "1111", "s" if tab.get("selected") else ""]
            write(folder / f"{name}-{place}", "\n".join(lines))
    by_hand = {
        "company": "ChatGPT\nopenai.com\n\nOpenAI | About\nid\nEdge\nOpenAI | About\nhttps://openai.com/about\nid\nedge\n1111\nsv",
        "sleeping": "Gemini\n\ngemini||lease\nPlan - google gemini - sleeping tab - x\n\nChrome\nPlan - google gemini\n\n\nChrome\n2323\n",
        "claude-settings": "Claude\nclaude.ai\n\n\n\n\nSettings - Claude\nhttps://claude.ai/settings\n\nBrave\n0000\ns",
        "claude-new": "claude\n\n\nclaude\n7\nVivaldi\nclaude\nHTTPS://CLAUDE.AI/new#x\n7\nVIVALDI\n1222\ns",
        "new-tab": "ChatGPT\nchatgpt.com\n\nNew Tab\n\nChrome\nNew Tab \t\n\n\nChrome\n1111\n",
        "any-script": "豆包\ndoubao.com\n豆包|É\n豆包 É\n\nChrome\n豆包 É \U0001F4CE\nhttps://www.doubao.com:443/chat?x\n\nChrome\n1234\ns",
        "half-a-pair": "\ud83d\n\n\ud83d\nx\ud83d\n\nFirefox\ny\udcce\nhttps://\ud83d/\n\n\n9999\nsv",
        "nothing": "",
    }
    for name, content in by_hand.items():
        write(folder / f"hand-{name}", content)


def make_command_lines():
    folder = FOLDER / "corpus/command_line"
    for path in sorted((SCENARIOS / "start").glob("*.json")):
        arguments = json.loads(path.read_text(encoding="utf-8")).get("arguments")
        if arguments and sum(map(len, arguments)) < 500:
            write(folder / path.stem, "\n".join(arguments))
    by_hand = {
        "program-alone": '"C:\\Program Files\\Orvane\\orvane.exe"', "program-without-quotes": "orvane.exe a b\tc",
        "backslashes": 'p "a\\\\" b\\"c \\\\\\"d e\\f', "quotes": 'p "a""b c" """" ""a"" "x', "blanks": "   \t a  ",
        "flags": "p --orvane-content-page=7 --orvane-open-toolbox", "flag-with-a-value": "p --orvane-open-toolbox=1",
        "page-flag-alone": "--orvane-content-page=", "half-a-pair": "p \ud83d a\udcce", "pair": "p \U0001F4CE",
        "lines": 'one\n\ntwo words\n"quoted"\nends\\', "long": "p " + "x" * 32767 + "\U0001F4CE",
    }
    for name, content in by_hand.items():
        write(folder / f"hand-{name}", content)


def make_scenarios():
    folder = FOLDER / "corpus/scenario_reader"
    for category in sorted(path for path in SCENARIOS.iterdir() if path.is_dir() and path.name != "kit"):
        files = sorted(category.glob("*.json"), key=lambda path: (path.stat().st_size, path.name))
        for path in files[:1] + files[len(files) // 2:len(files) // 2 + 1]:
            compact = json.dumps(json.loads(path.read_text(encoding="utf-8")), ensure_ascii=False, separators=(",", ":"))
            if len(compact) < 8000:
                write(folder / slug(f"{category.name}/{path.stem}"), compact)
    element = '{"type":50004,"name":null,"bounds":[0,0,1,1],"unreadable":["name"],"children":[{}]}'
    rules = ('[{"on":{"key":"Ctrl+V"},"after":5,"times":1,"do":[{"set":{"element":"a","value":"x"}},{"remove":"a"},'
             '{"title":"t"},{"address":"b"},{"selectTab":"t"},{"focus":null},{"foreground":null},{"closeWindow":"w"}]}]')
    by_hand = {
        "nothing": "", "null": "null", "list": "[]", "no-json": "{", "unknown-key": '{"colour":1}', "empty": "{}",
        "deep": '{"expect":' + "[" * 200 + "]" * 200 + "}", "zero": "{\"name\":\"\\u0000\"}", "no-utf-8": b'{"name":"\xff"}',
        "regex": '{"expect":{"name":"~^(a|b)*[c-e]{2}$"}}', "bad-regex": '{"expect":{"name":"~("}}',
        "regex-number-too-great": '{"expect":{"name":"~a{' + "1" * 19 + '}"}}',
        "number-too-great": '{"name":1e999}', "key-with-a-line-end": '{"a\\nb":1}',
        "id-with-a-line-end": '{"desktop":{"foreground":"a\\nb"}}',
        "too-deep": '{"expect":{"name":' + "[" * 20000 + "]" * 20000 + "}}",
        "elements": '{"desktop":{"windows":[{"id":"w","elements":[' + element + "]}]}}",
        "rules": '{"desktop":{"windows":[{"id":"w","tabs":[{"title":"t","page":[{"id":"a","value":""}],"rules":' + rules + "}]}]}}",
        "values": '{"steps":[{"call":{"channel":"c","method":"m","arguments":{"$map":[[{"$int64":1},{"$bytes":"AA=="}],'
                  '[{"$double":"NaN"},{"$floatList":[1,2.5]}]]}}}]}',
        "faults": '{"desktop":{"faults":[{"call":"SendInput","nth":2,"times":3,"result":"0x80004005"}]}}',
        "numbers": '{"desktop":{"monitors":[{"bounds":[-1,0,1e3,9223372036854775808],"dpi":0}]}}',
    }
    for name, content in by_hand.items():
        write(folder / f"hand-{name}", content)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--simulator", type=Path, default=FOLDER.parent / "build/native/bin/orvane-sim")
    simulator = parser.parse_args().simulator
    if not simulator.is_file():
        sys.exit(f"make_corpus.py: {simulator}: build the native preset first")
    make_messages(simulator)
    make_codec(simulator)
    make_html()
    make_bitmaps()
    make_identity()
    make_command_lines()
    make_scenarios()


if __name__ == "__main__":
    main()
