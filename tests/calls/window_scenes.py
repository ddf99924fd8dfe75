"""Calls of the window channel on a desktop with nothing else on it."""
from activation_scenes import others
from kit.core import call, scenario, user, window
from kit.window_calls import CHANNEL, MAIN_CLASS, OTHER_INSTANCE

INSTANCE_PROCESS_ID = 7340


def asked(method, arguments=None, before=(), **desktop):
    def build(*_):
        made = scenario("calls", [], [*before, call(method, arguments, channel=CHANNEL)], {}, **desktop)
        return made

    return build


def among_others(method, arguments=None):
    def build(sizes, _):
        return scenario("calls", others(sizes), [call(method, arguments, channel=CHANNEL)], {})

    return build


def instance_in_front(*_):
    """Another instance of the program, its window above all."""
    instance = window("content", OTHER_INSTANCE, "Orvane", (0, 0, 900, 700), pid=INSTANCE_PROCESS_ID,
                      **{"class": MAIN_CLASS})
    step = call("activateContentProcess", {"processId": INSTANCE_PROCESS_ID}, channel=CHANNEL)
    return scenario("calls", [instance], [step], {}, "content")


def raised(*_):
    step = call("foregroundWindowHandle", {"windowHandle": {"$window": "other0"}})
    return scenario("calls", others({"o": 1}), [step], {}, "other0")


def menu(sizes, _):
    entries = [{"action": f"act{at}", "label": f"Entry {at}", "shortcut": "Ctrl+1"} for at in range(sizes["m"])]
    chosen = sizes["m"] if sizes["c"] else None
    return asked("showNativeHotKeysMenu", {"items": entries}, [user(chooseMenu=chosen)])()


def spelling(sizes, _):
    suggestions = [f"lease{at}" for at in range(sizes["s"])]
    return asked("checkSpelling", {"word": "leese"},
                 spelling={"en-US": {"words": ["lease"], "suggest": {"leese": suggestions}}})()
