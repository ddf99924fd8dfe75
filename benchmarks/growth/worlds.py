"""Worlds of growing size: what is asked of the host in each, and what of it is measured."""
import sys
from dataclasses import dataclass
from pathlib import Path
from typing import Callable

TESTS = Path(__file__).resolve().parent.parent.parent / "tests"
sys.path[:0] = [str(TESTS / "calls"), str(TESTS / "scenarios")]

import activation_scenes as desktops  # noqa: E402
import delivery_scenes as pages  # noqa: E402
import window_scenes as asked  # noqa: E402
from kit.core import button, edit, pane  # noqa: E402
from kit.pages import CLAUDE, working_page  # noqa: E402

PANE_ELEMENTS = 200
WHOLE_CALL = None


@dataclass(frozen=True)
class World:
    parts: dict  # what is measured -> the function in which it happens; None for the whole call
    things: str  # what grows
    sizes: tuple
    brief_sizes: tuple
    scene: Callable  # of a size; None where it isn't the simulator that runs


def chatgpt_over_windows(count):
    sizes = {"t": 4, "w": count, "o": 1, "e": 2}
    return desktops.desk_with_chat("ChatGPT", page=desktops.composer())(sizes, "chrome.exe")


def gemini_over_tabs(count):
    """Every title fits, and the best of them is chosen; the one in front has the address too."""
    chat = desktops.CHAT_ADDRESSES["Gemini"]
    strip = [desktops.named_tab(f"Plan {at:05d} - Google Gemini", chat, at=at) for at in range(count)]
    return desktops.run([desktops.browser("browser0", "chrome.exe", strip, 0)], {"o": 1}, "Gemini")


def remembered_tab(count):
    return desktops.warm("Gemini")({"t": count, "w": 1, "o": 1}, "chrome.exe")


def in_panes(elements):
    return [pane(None, "Group", (560, 260, 1360, 880), elements[begin:begin + PANE_ELEMENTS])
            for begin in range(0, len(elements), PANE_ELEMENTS)]


def page_of(count):
    """Fields and buttons in turn, nested as pages nest what they show; half of them behind the composer and Send."""
    bounds = (700, 300, 800, 330)
    elements = [edit(None, f"Field {at}", bounds, value="") if at % 2 else button(None, f"Reaction {at}", bounds)
                for at in range(count)]
    half = count // 2
    page = working_page(CLAUDE).with_first(*in_panes(elements[:half])).with_elements(*in_panes(elements[half:]))
    return pages.run(page, {}, [pages.call("pasteAndSubmit", pages.arguments(CLAUDE))])


def menu_of(count):
    return asked.menu({"m": count, "c": 1}, None)


WORLDS = (
    World({"activation": WHOLE_CALL}, "windows", (1, 2, 4, 8, 16, 32, 64), (1, 4, 16), chatgpt_over_windows),
    World({"activation": WHOLE_CALL}, "tabs", (1, 10, 100, 500, 1000, 2000), (1, 50, 200), gemini_over_tabs),
    World({"activation of a remembered tab": WHOLE_CALL}, "tabs", (2, 10, 100, 500, 1000, 2000), (2, 50, 200),
          remembered_tab),
    World({"prompt box": "orvane::verifyPromptBox", "Send, awaited": "orvane::waitForStableSendButton",
           "Send, pressed": "orvane::invokeSendButton", "attachments": "orvane::removeAttachments",
           "Claude's delivery": WHOLE_CALL},
          "elements", (10, 100, 1000, 10000, 100000), (10, 400, 1000), page_of),
    World({"menu": WHOLE_CALL}, "items", (1, 10, 50, 100, 250, 500), (1, 20, 80), menu_of),
    World({"encoding": "orvane::growth::encodeCall", "decoding": "orvane::growth::decodeCall"}, "bytes",
          (1, 1000, 10000, 100000, 1000000, 10000000), (1, 20000, 80000), None),
)
