"""Calls of the window channel on a desktop with nothing else on it."""
from kit.core import call, scenario, user
from kit.window_calls import CHANNEL


def asked(method, arguments=None, before=(), **desktop):
    def build(*_):
        made = scenario("calls", [], [*before, call(method, arguments, channel=CHANNEL)], {}, **desktop)
        return made

    return build


def menu(sizes, _):
    entries = [{"action": f"act{at}", "label": f"Entry {at}", "shortcut": "Ctrl+1"} for at in range(sizes["m"])]
    chosen = sizes["m"] if sizes["c"] else None
    return asked("showNativeHotKeysMenu", {"items": entries}, [user(chooseMenu=chosen)])()


def spelling(sizes, _):
    suggestions = [f"lease{at}" for at in range(sizes["s"])]
    return asked("checkSpelling", {"word": "leese"},
                 spelling={"en-US": {"words": ["lease"], "suggest": {"leese": suggestions}}})()
