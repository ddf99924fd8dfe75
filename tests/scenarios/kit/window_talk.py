"""A conversation over the window channel: what is asked in turn, and the whole of what comes back, to the byte."""
from .core import NOTHING_HELD, call
from .wire import call_hex, reply_hex, shown

CHANNEL = "orvane/window"
PLAIN_SUCCESS = {"success": True}
PLAIN_FAILURE = {"success": False}

INTERNAL_ERROR = 1359

NORMAL_TITLE = "Orvane: The Desk for Every Assistant"
COMPACT_TITLE = "Orvane"


def posted(window, message, w_param=0, l_param=0):
    return {"window": window, "message": message, "wParam": w_param, "lParam": l_param}


def merged(base, more):
    """`more` over `base`, object into object."""
    made = dict(base)
    for key, value in more.items():
        both = isinstance(value, dict) and isinstance(made.get(key), dict)
        made[key] = merged(made[key], value) if both else value
    return made


def asked(method, arguments, as_=None):
    """The step of a call; `...` stands for no arguments at all, None for those that are null."""
    step = call(method, None if arguments is ... else arguments, as_, CHANNEL)
    if arguments is None:
        step["call"]["arguments"] = None
    return step


class WindowTalk:
    """Steps and the replies to them; `...` stands for arguments that aren't given."""

    def __init__(self, folder, stem, name):
        self.path = f"{folder}/{stem}.json"
        self.name = name
        self.steps = []
        self.replies = []

    def do(self, *steps):
        self.steps.extend(steps)

    def ask(self, method, arguments, value, as_=None, **reply):
        """`reply`: more that must hold of it, such as its times."""
        self.steps.append(asked(method, arguments, as_))
        self._expect(method, value, as_, reply)

    def ask_in_bytes(self, method, arguments, value):
        """For arguments that no text of a scenario can hold."""
        self.steps.append({"bytes": call_hex(method, arguments), "channel": CHANNEL})
        self._expect(method, value, None, {})

    def scenario(self, desktop=None, painted=(), posts=(), end=None, calls=None, **expect):
        """`posts`: what the host posted; `end`: the desktop at the end; `calls`: how often the platform was called."""
        made = {"name": self.name}
        if desktop:
            made["desktop"] = desktop
        made["steps"] = self.steps
        made["expect"] = {"exitCode": 0, "replies": self.replies, "toInterface": [], "input": [], "shell": [],
                          "painted": list(painted), "posted": list(posts), **expect}
        if end is not None:
            made["expect"]["desktop"] = end
        made["expect"]["stderr"] = []
        if calls is not None:
            made["expect"]["platformCalls"] = calls
        made["expect"]["live"] = NOTHING_HELD
        return self.path, made

    def _expect(self, method, value, as_, more):
        self.replies.append({"as": as_ if as_ is not None else str(len(self.replies)), "method": method,
                             "kind": "success", "value": shown(value), "error": None, "replyHex": reply_hex(value),
                             **more})


def desktop_of(windows=(), foreground=..., clipboard=None, faults=(), monitors=None, spelling=None):
    made = {}
    if monitors:
        made["monitors"] = list(monitors)
    if windows:
        made["windows"] = list(windows)
    if foreground is not ...:
        made["foreground"] = foreground
    if clipboard is not None:
        made["clipboard"] = clipboard
    if spelling is not None:
        made["spelling"] = spelling
    if faults:
        made["faults"] = list(faults)
    return made
