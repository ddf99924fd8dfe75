"""Values of the channels as bytes, in the standard method codec, and as a report shows them.

A value is written in the forms of a scenario's arguments; besides, `bytes` stand for a text of exactly these bytes.
"""
import base64
import struct

SMALL_SIZE, MEDIUM_SIZE = 254, 0x10000
DOUBLE_ALIGNMENT = 8
SUCCESS = b"\x00"


def _size(count):
    if count < SMALL_SIZE:
        return bytes([count])
    return b"\xfe" + struct.pack("<H", count) if count < MEDIUM_SIZE else b"\xff" + struct.pack("<I", count)


def _text(value):
    encoded = value if isinstance(value, bytes) else value.encode()
    return b"\x07" + _size(len(encoded)) + encoded


def _whole(value):
    fits = -(1 << 31) <= value < 1 << 31
    return b"\x03" + struct.pack("<i", value) if fits else b"\x04" + struct.pack("<q", value)


def _double(value, before):
    padding = -(before + 1) % DOUBLE_ALIGNMENT
    return b"\x06" + bytes(padding) + struct.pack("<d", value)


def _special(form, value):
    if form == "$int64":
        return b"\x04" + struct.pack("<q", value)
    if form == "$bytes":
        content = base64.b64decode(value)
        return b"\x08" + _size(len(content)) + content
    raise ValueError(f"{form} isn't written here")


def _written(value, before):
    """`before`: how many bytes stand in front of it in the message."""
    if value is None:
        return b"\x00"
    if isinstance(value, bool):
        return b"\x01" if value else b"\x02"
    if isinstance(value, int):
        return _whole(value)
    if isinstance(value, float):
        return _double(value, before)
    if isinstance(value, (str, bytes)):
        return _text(value)
    if isinstance(value, list):
        message = b"\x0c" + _size(len(value))
        for item in value:
            message += _written(item, before + len(message))
        return message
    if len(value) == 1 and next(iter(value)).startswith("$"):
        return _special(*next(iter(value.items())))
    message = b"\x0d" + _size(len(value))
    for key, item in value.items():
        message += _text(key)
        message += _written(item, before + len(message))
    return message


def reply_hex(value):
    """The whole reply: a success with this value. The host's maps are in the order of their keys."""
    ordered = {key: value[key] for key in sorted(value)} if isinstance(value, dict) else value
    return (SUCCESS + _written(ordered, len(SUCCESS))).hex()


def call_hex(method, arguments):
    message = _text(method)
    return (message + _written(arguments, len(message))).hex()


def shown(value):
    """As the report has it: what is no UTF-8 is replaced."""
    if isinstance(value, bytes):
        return value.decode(errors="replace")
    if isinstance(value, list):
        return [shown(item) for item in value]
    if isinstance(value, dict):
        return {key: shown(item) for key, item in value.items()}
    return value


def whole_number(value):
    """As 64-bit number, the way the report writes one."""
    return value if not -(1 << 31) <= value < 1 << 31 else {"$int64": value}
