"""A conversation over the window channel: every reply whole, byte by byte, and what it left on the desktop."""
from .channel import text_bytes
from .core import NOTHING_HELD
from .window_talk import CHANNEL, asked, posted  # noqa: F401
from .wire import reply_hex

FAILED = {"success": False}
DONE = {"success": True}
MAIN = "main"

TOOL_BOX_MESSAGE = 0x8153
OTHER_INSTANCE = "orvane.exe"
MAIN_CLASS = "FLUTTER_RUNNER_WIN32_WINDOW"

# Arguments that are no map: each counts as an empty one. `...` stands for none at all.
NO_MAPS = (..., None, True, False, 7, {"$int64": 7}, {"$double": 7.0}, "text", {"$bytes": "Nw=="}, {"$int32List": [7]},
           {"$int64List": [7]}, {"$doubleList": [7]}, {"$floatList": [7]}, [], [{"width": 640}])
# What a number's reader takes for none, and a text's reader.
NO_NUMBERS = (None, True, False, "640", {"$bytes": "Nw=="}, {"$int32List": [640]}, {"$doubleList": [640]}, [640],
              {"number": 640})
NO_TEXTS = (None, True, 7, {"$int64": 7}, {"$double": 7.5}, {"$bytes": "QzpcYQ=="}, ["C:\\a"], {"path": "C:\\a"})


def slug(method):
    """A method's name as file names have it."""
    return "".join("-" + letter.lower() if letter.isupper() else letter for letter in method)


def logical(bounds, dpi):
    """A rectangle of the desktop as a reply tells it."""
    left, top, right, bottom = bounds
    scale = dpi / 96.0
    return {"success": True, "x": left / scale, "y": top / scale, "width": (right - left) / scale,
            "height": (bottom - top) / scale}


def post(message, window=MAIN, w_param=0, l_param=0):
    """A step: a message of another program."""
    made = {"window": window, "message": message}
    if w_param:
        made["wParam"] = w_param
    if l_param:
        made["lParam"] = l_param
    return {"post": made}


def tool_box_call(milliseconds=0):
    """What reaches the interface when a tool box message comes."""
    return {"channel": CHANNEL, "method": "showToolBoxMenu", "arguments": None,
            "messageHex": text_bytes("showToolBoxMenu") + "00", "ms": milliseconds}


class Talk:
    """Steps, and the whole of each reply. The clock stands at `ms`."""

    def __init__(self, path, name, arguments=()):
        self.path = path
        self.name = name
        self.arguments = list(arguments)
        self.steps = []
        self.replies = []
        self.ms = 0

    def do(self, *steps):
        self.steps.extend(steps)
        return self

    def wait(self, milliseconds):
        self.steps.append({"wait": milliseconds})
        self.ms += milliseconds

    def ask(self, method, arguments, value, takes=0):
        """`takes`: the milliseconds that the call waits."""
        self.steps.append(asked(method, arguments))
        self.expect(method, "success", value, reply_hex(value), takes)
        return self

    def refuse(self, method, arguments=...):
        self.steps.append(asked(method, arguments))
        self.expect(method, "notImplemented", None, "")

    def send(self, message_hex, method, value):
        """A raw message; a value of None: it isn't implemented."""
        self.steps.append({"bytes": message_hex, "channel": CHANNEL})
        if value is None:
            self.expect(method, "notImplemented", None, "")
        else:
            self.expect(method, "success", value, reply_hex(value))

    def expect(self, method, kind, value, hex_bytes, takes=0):
        self.replies.append({"as": str(len(self.replies)), "method": method, "kind": kind, "value": value,
                             "error": None, "replyHex": hex_bytes, "startMs": self.ms, "endMs": self.ms + takes})
        self.ms += takes

    def scenario(self, windows=(), faults=(), expect=None, **desktop):
        """`expect`: more than that nothing was sent anywhere and nothing is left."""
        made = {"name": self.name}
        if self.arguments:
            made["arguments"] = self.arguments
        stands = {}
        if windows:
            stands["windows"] = list(windows)
        stands.update(desktop)
        if faults:
            stands["faults"] = list(faults)
        if stands:
            made["desktop"] = stands
        made["steps"] = self.steps
        wanted = {"exitCode": 0, "virtualMs": self.ms, "replies": self.replies, "toInterface": [], "input": [],
                  "shell": [], "posted": []}
        wanted.update(expect or {})
        wanted.setdefault("stderr", [])
        wanted["live"] = NOTHING_HELD
        made["expect"] = wanted
        return f"{self.path}.json", made
