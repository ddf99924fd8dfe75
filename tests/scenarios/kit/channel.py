"""A conversation over the browser channel: what is asked in turn, and the whole of what comes back."""
from .core import BROWSER_CHANNEL as CHANNEL
from .core import NOTHING_HELD, call

PLAIN_FAILURE = {"success": False}
NOT_IMPLEMENTED = "notImplemented"
BAD_ARGUMENTS = {"code": "bad_arguments", "message": "Expected a provider argument map.", "details": None}

# One of every kind of value that is no text.
WRONG_ARGUMENTS = (None, True, 7, {"$int64": 7}, {"$double": 7.0}, {"$bytes": "Nw=="}, {"$int32List": [7]},
                   {"$int64List": [7]}, {"$doubleList": [7]}, {"$floatList": [7]}, ["7"], {"7": "7"})


def text_bytes(text):
    """A short text as the codec writes it."""
    encoded = text.encode()
    assert len(encoded) < 254
    return "07" + f"{len(encoded):02x}" + encoded.hex()


# The replies that come most often, as bytes: an envelope's kind, then a map or three values.
REPLY_BYTES = {
    (("success", False),): "000d01" + text_bytes("success") + "02",
    (("success", True),): "000d01" + text_bytes("success") + "01",
}
BAD_ARGUMENTS_BYTES = "01" + text_bytes(BAD_ARGUMENTS["code"]) + text_bytes(BAD_ARGUMENTS["message"]) + "00"


def byte_message(message):
    return {"bytes": message, "channel": CHANNEL}


class Conversation:
    """Steps and the replies to them; `...` stands for arguments that aren't given, and for what isn't looked at."""

    def __init__(self, file, name):
        self.file = file
        self.name = name
        self.steps = []
        self.replies = []

    def do(self, *steps):
        self.steps.extend(steps)

    def expect(self, method, value, kind="success", error=None):
        reply = {"as": str(len(self.replies))}
        if method is not ...:
            reply["method"] = method
        reply.update(kind=kind, value=value, error=error)
        reply_hex = self._reply_hex(kind, value, error)
        if reply_hex is not None:
            reply["replyHex"] = reply_hex
        self.replies.append(reply)

    def ask(self, method, arguments, value):
        self._send(method, arguments)
        self.expect(method, value)

    def fail(self, method, arguments, error):
        self._send(method, arguments)
        self.expect(method, None, "error", error)

    def refuse(self, method, arguments, channel=CHANNEL):
        self._send(method, arguments, channel)
        self.expect(method, None, NOT_IMPLEMENTED)

    def scenario(self, windows=(), faults=(), foreground=None, clipboard=None, stderr=(), shell=(), **expect):
        desktop = {}
        if windows:
            desktop["windows"] = list(windows)
        if foreground is not None:
            desktop["foreground"] = foreground
        if clipboard is not None:
            desktop["clipboard"] = clipboard
        if faults:
            desktop["faults"] = list(faults)
        made = {"name": self.name}
        if desktop:
            made["desktop"] = desktop
        made["steps"] = self.steps
        made["expect"] = {"exitCode": 0, "replies": self.replies, "toInterface": [], "input": [], "shell": list(shell),
                          **expect, "stderr": list(stderr), "live": NOTHING_HELD}
        return f"channel/{self.file}.json", made

    def _send(self, method, arguments, channel=CHANNEL):
        step = call(method, None if arguments is ... else arguments, channel=channel)
        if arguments is None:
            step["call"]["arguments"] = None
        self.steps.append(step)

    @staticmethod
    def _reply_hex(kind, value, error):
        if kind == NOT_IMPLEMENTED:
            return ""
        if error == BAD_ARGUMENTS:
            return BAD_ARGUMENTS_BYTES
        return REPLY_BYTES.get(tuple(value.items())) if isinstance(value, dict) and len(value) == 1 else None
